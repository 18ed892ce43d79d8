#pragma once

#include <cstddef>
#include <cstdint>
#include <unordered_map>

#include "shell/objects/Described.h"

namespace veldrin {

/// Two values.
class Pair final : public Described<Pair, Object> {
 public:
  static constexpr FixedString FullName = "Pair";
  static void fillTable(ClassTable<Pair>& table);

  /// Nil before `Constructor` has run.
  [[nodiscard]] Variant Left() const { return left_; }
  [[nodiscard]] Variant Right() const { return right_; }
  void Constructor(const Variant& left, const Variant& right);

 private:
  Variant left_;
  Variant right_;
};

/// A map of variants, in no particular order. Keys: texts compare by bytes, numbers by type and
/// value, objects by identity. All NaN keys of one type are equal.
class Dictionary : public Described<Dictionary, Object> {
 public:
  static constexpr FixedString FullName = "Dictionary";
  static void fillTable(ClassTable<Dictionary>& table);

  /// Adds the pairs; the left values are the keys.
  virtual void Constructor(const Ref<Array<Ref<Pair>>>& pairs);

  /// The value of a key. Raises `KeyNotFoundException` if the key is absent.
  [[nodiscard]] virtual Variant Value(const Variant& key) const;
  virtual void Value(const Variant& key, const Variant& value);
  /// The value of a key, or `otherwise` if the key is absent.
  [[nodiscard]] virtual Variant Lookup(const Variant& key, const Variant& otherwise) const;
  /// Whether the key is present, even with a nil value.
  [[nodiscard]] virtual bool HasKey(const Variant& key) const { return entries_.contains(key); }
  /// Removes a key and its value. Raises `KeyNotFoundException` if the key is absent.
  virtual void Remove(const Variant& key);
  virtual void Clear();
  [[nodiscard]] std::int32_t Count() const { return static_cast<std::int32_t>(entries_.size()); }
  /// A new array with all keys.
  [[nodiscard]] virtual Ref<Array<Variant>> Keys() const;
  /// A new array with all values, in the order of `Keys()`.
  [[nodiscard]] virtual Ref<Array<Variant>> Values() const;

 private:
  struct KeyHash {
    std::size_t operator()(const Variant& key) const;
  };
  struct KeysAreEqual {
    bool operator()(const Variant& one, const Variant& other) const;
  };

  std::unordered_map<Variant, Variant, KeyHash, KeysAreEqual> entries_;
};

}  // namespace veldrin
