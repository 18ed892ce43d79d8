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
  std::optional<Variant> before;  ///< nullopt if the key was new
};

/// All that reflection keeps from one call to the next. `finalizeReflection` lays it down. A map is
/// nil until its first use.
struct Registry {
  static inline Ref<Dictionary> mArrayMap;             ///< of `ArrayInfo`: by full name
  static inline Ref<Dictionary> sClassFQNToRefMap;     ///< of `ClassInfo`: records by full name
  static inline Ref<Dictionary> sClassRefMap;          ///< of `ClassInfo`: descriptions by record
  static inline Ref<Dictionary> intrinsicTypeCodeMap;  ///< descriptions by intrinsic type code
  static inline Ref<Dictionary> fqnTypeInfoMap;        ///< descriptions by full name
  static inline ClassInfo* newest = nullptr;           ///< head of the list of class descriptions
  static inline std::vector<JournalEntry> journalEntries;
  static inline int openJournals = 0;
};

}  // namespace veldrin::Introspection
