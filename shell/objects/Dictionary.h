#pragma once

#include <cstdint>
#include <unordered_map>

#include "shell/objects/Described.h"

namespace veldrin {

/// Two values that belong together.
class Pair final : public Described<Pair, Object> {
 public:
  static constexpr FixedString FullName = "Pair";
  static void fillTable(ClassTable<Pair>& table);

  /// The two values, nil before `Constructor` has run.
  [[nodiscard]] Variant Left() const { return left_; }
  [[nodiscard]] Variant Right() const { return right_; }
  /// Takes the two values.
  void Constructor(const Variant& left, const Variant& right);

 private:
  Variant left_;
  Variant right_;
};

/// A map from values to values. Texts are told apart letter by letter, numbers by type and value,
/// objects by identity. The order of the keys is not fixed.
class Dictionary final : public Described<Dictionary, Object> {
 public:
  static constexpr FixedString FullName = "Dictionary";
  static void fillTable(ClassTable<Dictionary>& table);

  /// Fills a new dictionary with the pairs, the left values the keys.
  void Constructor(const Ref<Array<Ref<Pair>>>& pairs);

  /// The value of a key. Raises `KeyNotFoundException` where there is none.
  [[nodiscard]] Variant Value(const Variant& key) const;
  /// Sets the value of a key.
  void Value(const Variant& key, const Variant& value);
  /// The value of a key, or the default.
  [[nodiscard]] Variant Lookup(const Variant& key, const Variant& otherwise) const;
  /// Whether there is a value of the key, be it nil.
  [[nodiscard]] bool HasKey(const Variant& key) const { return entries_.contains(key); }
  /// Takes a key away. Raises `KeyNotFoundException` where there is none.
  void Remove(const Variant& key);
  /// Takes all keys away.
  void Clear();
  /// The number of keys.
  [[nodiscard]] std::int32_t Count() const { return static_cast<std::int32_t>(entries_.size()); }
  /// A new array with all keys, and one with all values in the same order.
  [[nodiscard]] Ref<Array<Variant>> Keys() const;
  [[nodiscard]] Ref<Array<Variant>> Values() const;

 private:
  std::unordered_map<Variant, Variant, VariantHash> entries_;
};

}  // namespace veldrin
