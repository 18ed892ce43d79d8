#pragma once

#include <cstdint>

#include "reflection/TypeInfo.h"

namespace veldrin::Introspection {

/// An array type: a rank and an element type. Its name is "Int32()" for one dimension, "String(,)"
/// for two.
class ArrayInfo final : public Described<ArrayInfo, TypeInfo> {
 public:
  static constexpr FixedString FullName = "Introspection.ArrayInfo";
  static void fillTable(ClassTable<ArrayInfo>& table);

  void __Exit() { mElementType = nullptr; }

  /// The maximum total number of dimensions of nested arrays. Each level stores its full name, so
  /// 1,000 levels of one dimension use about 5 MB.
  static constexpr std::int32_t MaximumTotalRank = 1000;

  /// The shared description of an array type, created on first use. Raises `NilObjectException` for
  /// a nil element, `OutOfBoundsException` for a rank outside 1 to `MaximumRank`,
  /// `StackOverflowException` beyond `MaximumTotalRank`.
  static Ref<TypeInfo> Lookup(std::int32_t rank, const Ref<TypeInfo>& element);
  /// "()", with a comma for each dimension after the first. Raises `OutOfBoundsException` for a
  /// rank outside 1 to `MaximumRank`.
  static String RankSuffix(std::int32_t rank);
  /// Releases the descriptions that `Lookup` keeps.
  static void finalizeArrayMap();

  using TypeInfo::Constructor;
  /// Initialises the description and registers it: `Lookup` returns it from now on. Raises the
  /// exceptions of `Lookup`.
  void Constructor(std::int32_t rank, const Ref<TypeInfo>& element);
  [[nodiscard]] std::int32_t GetArrayRank() const override { return mArrayRank; }
  [[nodiscard]] Ref<TypeInfo> GetElementType() const override { return mElementType; }

 private:
  std::int32_t mArrayRank = 0;
  Ref<TypeInfo> mElementType;
  std::int32_t totalRank_ = 0;  ///< total dimensions, nested arrays included
};

}  // namespace veldrin::Introspection
