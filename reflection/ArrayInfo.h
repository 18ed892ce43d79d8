#pragma once

#include <cstdint>

#include "reflection/TypeInfo.h"
#include "shell/objects/Dictionary.h"

namespace veldrin::Introspection {

/// The type of an array: a rank and what it holds. Its name is that of the elements and a pair of
/// brackets, "Int32()" for one dimension and "String(,)" for two.
class ArrayInfo final : public Described<ArrayInfo, TypeInfo> {
 public:
  static constexpr FixedString FullName = "Introspection.ArrayInfo";
  static void fillTable(ClassTable<ArrayInfo>& table);

  void __Exit() { mElementType = nullptr; }

  /// The most dimensions that arrays in arrays can have together. The name of each level holds
  /// those of all inside it, so 1,000 levels of one dimension cost about 5 MB.
  static constexpr std::int32_t MaximumDepth = 1000;

  /// The one description of arrays of that rank and type, made now if nobody needed it before.
  /// Raises `NilObjectException` for a nil type, `OutOfBoundsException` for a rank that is not from
  /// 1 to `MaximumRank`, and `StackOverflowException` beyond `MaximumDepth`.
  static Ref<TypeInfo> Lookup(std::int32_t rank, const Ref<TypeInfo>& element);
  /// "()", with a comma for each dimension above the first. Raises `OutOfBoundsException` likewise.
  static String RankSuffix(std::int32_t rank);
  /// Releases what `Lookup` has kept.
  static void finalizeArrayMap();

  using TypeInfo::Constructor;
  /// Describes such arrays, and is from now on what `Lookup` finds for them. Raises what `Lookup`
  /// raises.
  void Constructor(std::int32_t rank, const Ref<TypeInfo>& element);
  [[nodiscard]] std::int32_t GetArrayRank() const override { return mArrayRank; }
  [[nodiscard]] Ref<TypeInfo> GetElementType() const override { return mElementType; }

 private:
  static inline Ref<Dictionary> mArrayMap;  ///< by full name; nil until the first use

  std::int32_t mArrayRank = 0;
  Ref<TypeInfo> mElementType;
  std::int32_t depth_ = 0;  ///< dimensions of this one and of all arrays in it
};

}  // namespace veldrin::Introspection
