#include "shell/objects/Dictionary.h"

#include <cmath>
#include <functional>
#include <string_view>
#include <type_traits>
#include <utility>
#include <variant>
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
  table.method<&Dictionary::Constructor>("Constructor"_s, Public, Flags::VariableArguments);
  table.method<static_cast<Read>(&Dictionary::Value)>("Value"_s);
  table.method<static_cast<Write>(&Dictionary::Value)>("Value"_s, Public, Flags::Assigns);
  table.method<&Dictionary::Lookup>("Lookup"_s);
  table.method<&Dictionary::HasKey>("HasKey"_s);
  table.method<&Dictionary::Remove>("Remove"_s);
  table.method<&Dictionary::Clear>("Clear"_s);
  table.method<&Dictionary::Keys>("Keys"_s);
  table.method<&Dictionary::Values>("Values"_s);
  table.readOnlyProperty<&Dictionary::Count>("Count"_s);
}

bool Dictionary::KeysAreEqual::operator()(const Variant& one, const Variant& other) const {
  const auto isNaN = [](const auto& held) {
    if constexpr (std::is_floating_point_v<std::remove_cvref_t<decltype(held)>>) {
      return std::isnan(held);
    }
    return false;
  };
  return one == other || (one.storage().index() == other.storage().index() &&
                          std::visit(isNaN, one.storage()) && std::visit(isNaN, other.storage()));
}

std::size_t Dictionary::KeyHash::operator()(const Variant& key) const {
  return std::visit(
      [](const auto& held) -> std::size_t {
        using Held = std::remove_cvref_t<decltype(held)>;
        if constexpr (std::is_same_v<Held, String>) {
          return std::hash<std::string_view>()(held.view());
        } else if constexpr (std::is_same_v<Held, Ref<Object>>) {
          return std::hash<const Object*>()(held.get());
        } else if constexpr (std::is_same_v<Held, Currency>) {
          return std::hash<std::int64_t>()(held.tenThousandths);
        } else if constexpr (std::is_same_v<Held, Color>) {
          return std::hash<int>()(held.red << 16 | held.green << 8 | held.blue);
        } else if constexpr (std::is_floating_point_v<Held>) {
          return std::isnan(held) ? 0 : std::hash<Held>()(held);
        } else {
          return std::hash<Held>()(held);
        }
      },
      key.storage());
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
  // Extract first: the destructor of the released value may use this dictionary.
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
