#pragma once

#include "shell/files/FileType.h"

namespace veldrin {

/// The application's file types: only `Calendar`. A set of shared members; it has no objects and no
/// class record.
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
