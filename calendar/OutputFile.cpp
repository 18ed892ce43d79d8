#include "calendar/OutputFile.h"

namespace veldrin {

void OutputFile::_Initialize() {
  pCalendar = New<FileType>();
  pCalendar->Name("calendar"_s);
  pCalendar->Extensions(""_s);
  pCalendar->MacType("text"_s);
  pCalendar->MacCreator(""_s);
  // The text is not wanted, but the registering that happens on the way.
  static_cast<void>(pCalendar->Operator_Convert());
}

}  // namespace veldrin
