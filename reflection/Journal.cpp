#include "reflection/Journal.h"

#include <optional>

#include "reflection/Registry.h"

namespace veldrin::Introspection {
namespace {

void undo(const JournalEntry& entry) {
  if (entry.previous) {
    entry.map->Value(entry.key, *entry.previous);
  } else if (entry.map->HasKey(entry.key)) {
    entry.map->Remove(entry.key);
  }
}

}  // namespace

std::size_t Journal::begin() {
  ++Registry::openJournals;
  return Registry::journalEntries.size();
}

Journal::~Journal() {
  for (; !isCommitted_ && Registry::journalEntries.size() > start_;
       Registry::journalEntries.pop_back())
    undo(Registry::journalEntries.back());
  if (--Registry::openJournals == 0) Registry::journalEntries.clear();
}

void Journal::setValue(const Ref<Dictionary>& map, const Variant& key, const Variant& value) {
  if (Registry::openJournals > 0) {
    Registry::journalEntries.push_back(
        {map, key, map->HasKey(key) ? std::optional(map->Value(key)) : std::nullopt});
  }
  map->Value(key, value);
}

}  // namespace veldrin::Introspection
