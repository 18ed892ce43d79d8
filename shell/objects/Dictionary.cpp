#include "shell/objects/Dictionary.h"

#include <utility>
#include <vector>

#include "shell/objects/Failure.h"
#include "shell/objects/NewArray.h"

namespace veldrin {

void Pair::fillTable(ClassTable<Pair>& table) {
  table.method<&Pair::Constructor>("Constructor"_s);
  table.readOnlyProperty<&Pair::Left>("Left"_s);
  table.readOnlyProperty<&Pair::Right>("Right"_s);
}

void Pair::Constructor(const Variant& left, const Variant& right) {
  left_ = left;
  right_ = right;
}

void Dictionary::fillTable(ClassTable<Dictionary>& table) {
  using Read = Variant (Dictionary::*)(const Variant&) const;
  using Write = void (Dictionary::*)(const Variant&, const Variant&);
  table.plainMethod<&Dictionary::Constructor>("Constructor"_s, Public, Flags::VariableArguments);
  table.plainMethod<static_cast<Read>(&Dictionary::Value)>("Value"_s);
  table.plainMethod<static_cast<Write>(&Dictionary::Value)>("Value"_s, Public, Flags::Assigns);
  table.plainMethod<&Dictionary::Lookup>("Lookup"_s);
  table.plainMethod<&Dictionary::HasKey>("HasKey"_s);
  table.plainMethod<&Dictionary::Remove>("Remove"_s);
  table.plainMethod<&Dictionary::Clear>("Clear"_s);
  table.plainMethod<&Dictionary::Keys>("Keys"_s);
  table.plainMethod<&Dictionary::Values>("Values"_s);
  table.readOnlyProperty<&Dictionary::Count>("Count"_s);
}

void Dictionary::Constructor(const Ref<Array<Ref<Pair>>>& pairs) {
  for (const Ref<Pair>& pair : pairs->elements) Value(pair->Left(), pair->Right());
}

Variant Dictionary::Value(const Variant& key) const {
  const auto found = entries_.find(key);
  if (found == entries_.end()) Raise<KeyNotFoundException>();
  return found->second;
}

void Dictionary::Value(const Variant& key, const Variant& value) {
  // Release the old value last: its destructor may use this dictionary.
  const Variant old = std::exchange(entries_[key], value);
}

void Dictionary::Clear() {
  const auto old = std::exchange(entries_, {});
}

Variant Dictionary::Lookup(const Variant& key, const Variant& otherwise) const {
  const auto found = entries_.find(key);
  return found == entries_.end() ? otherwise : found->second;
}

void Dictionary::Remove(const Variant& key) {
  // Extract, then release, for the same reason.
  if (entries_.extract(key).empty()) Raise<KeyNotFoundException>();
}

Ref<Array<Variant>> Dictionary::Keys() const {
  std::vector<Variant> keys;
  for (const auto& [key, value] : entries_) keys.push_back(key);
  return newArray(std::move(keys));
}

Ref<Array<Variant>> Dictionary::Values() const {
  std::vector<Variant> values;
  for (const auto& [key, value] : entries_) values.push_back(value);
  return newArray(std::move(values));
}

}  // namespace veldrin
