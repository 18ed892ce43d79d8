#pragma once

#include "shell/files/FileType.h"

namespace veldrin {

/// The application's file types: only `Calendar`. All members are static, and the class has no
/// `ClassRecord`.
class OutputFile {
 public:
  /// Makes and registers the type `Calendar`. Call before any dialog opens.
  static void _Initialize();

  /// The type of calendar files. Nil before `_Initialize` and after `__Exit`.
  static Ref<FileType> Calendar() { return pCalendar; }

  /// Releases the type at the end of the program.
  static void __Exit() { pCalendar = nullptr; }

 private:
  static inline Ref<FileType> pCalendar;
};

}  // namespace veldrin
