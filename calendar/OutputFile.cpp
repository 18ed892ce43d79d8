#include "calendar/OutputFile.h"

namespace veldrin {

void OutputFile::_Initialize() {
  pCalendar = New<FileType>();
  pCalendar->Name("calendar"_s);
  pCalendar->Extensions(""_s);
  pCalendar->MacType("text"_s);
  pCalendar->MacCreator(""_s);
  // Called for its side effect: it registers the type.
  static_cast<void>(pCalendar->Operator_Convert());
}

}  // namespace veldrin
