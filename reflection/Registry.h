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

/// The state of the module, released by `finalizeReflection`. A map is nil until its first use.
struct Registry {
  static inline Ref<Dictionary> mArrayMap;             ///< arrays by full name
  static inline Ref<Dictionary> sClassFQNToRefMap;     ///< class records by full name
  static inline Ref<Dictionary> sClassRefMap;          ///< classes by record
  static inline Ref<Dictionary> intrinsicTypeCodeMap;  ///< types by intrinsic type code
  static inline Ref<Dictionary> fqnTypeInfoMap;        ///< classes by full name
  static inline ClassInfo* newest = nullptr;           ///< head of the list of class descriptions
  static inline std::vector<JournalEntry> journalEntries;
  static inline int openJournals = 0;
};

}  // namespace veldrin::Introspection
