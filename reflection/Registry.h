#pragma once

#include <optional>
#include <vector>

#include "shell/objects/Dictionary.h"

namespace veldrin::Introspection {

class ClassInfo;

/// A registration that a `Journal` can undo.
struct JournalEntry {
  Ref<Dictionary> map;
  Variant key;
  std::optional<Variant> previous;  ///< nullopt if the key was new
};

/// The state of the module. A map is nil until its first use; `finalizeReflection` releases it.
struct Registry {
  static inline Ref<Dictionary> mArrayMap;             ///< array descriptions by full name
  static inline Ref<Dictionary> sClassFQNToRefMap;     ///< class records by full name
  static inline Ref<Dictionary> sClassRefMap;          ///< descriptions by class record
  static inline Ref<Dictionary> intrinsicTypeCodeMap;  ///< built-in types by type code
  static inline Ref<Dictionary> fqnTypeInfoMap;        ///< class descriptions by full name
  static inline ClassInfo* newest = nullptr;           ///< head of the list of class descriptions
  static inline std::vector<JournalEntry> journalEntries;
  static inline int openJournals = 0;
};

}  // namespace veldrin::Introspection
