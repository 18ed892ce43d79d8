#include "reflection/Journal.h"

#include <optional>
#include <vector>

namespace veldrin::Introspection {
namespace {

struct Entry {
  Ref<Dictionary> map;
  Variant key;
  std::optional<Variant> before;  ///< nullopt if the key was new
};

std::vector<Entry> entries;
int journals = 0;

void undo(const Entry& entry) {
  if (entry.before) {
    entry.map->Value(entry.key, *entry.before);
  } else if (entry.map->HasKey(entry.key)) {
    entry.map->Remove(entry.key);
  }
}

}  // namespace

std::size_t Journal::begin() {
  ++journals;
  return entries.size();
}

Journal::~Journal() {
  for (; !kept_ && entries.size() > start_; entries.pop_back()) undo(entries.back());
  if (--journals == 0) entries.clear();
}

void Journal::setValue(const Ref<Dictionary>& map, const Variant& key, const Variant& value) {
  if (journals > 0) {
    entries.push_back({map, key, map->HasKey(key) ? std::optional(map->Value(key)) : std::nullopt});
  }
  map->Value(key, value);
}

}  // namespace veldrin::Introspection
