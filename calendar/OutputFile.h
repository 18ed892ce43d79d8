#pragma once

#include "shell/files/FileType.h"

namespace veldrin {

/// The file type set of the application, with its one type.
class OutputFile {
 public:
  /// Makes and registers the type `Calendar`, before any dialog opens.
  static void _Initialize();

  /// The type of the files that the year run writes; nil before `_Initialize`.
  static Ref<FileType> Calendar() { return pCalendar; }

  /// Releases the type at the end of the program.
  static void __Exit() { pCalendar = nullptr; }

 private:
  static inline Ref<FileType> pCalendar;
};

}  // namespace veldrin
