#pragma once

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

  /// The one description of arrays of that rank and type, made now if nobody needed it before.
  /// Raises `NilObjectException` for a nil type.
  static Ref<TypeInfo> Lookup(std::int32_t rank, const Ref<TypeInfo>& element);
  /// "()", with a comma for each dimension above the first.
  static String RankSuffix(std::int32_t rank);
  /// Releases what `Lookup` has kept.
  static void finalizeArrayMap();

  /// Describes such arrays, and is from now on what `Lookup` finds for them. Raises
  /// `NilObjectException` for a nil type.
  void Constructor(std::int32_t rank, const Ref<TypeInfo>& element);
  [[nodiscard]] std::int32_t GetArrayRank() const override { return mArrayRank; }
  [[nodiscard]] Ref<TypeInfo> GetElementType() const override { return mElementType; }

 private:
  static inline Ref<Dictionary> mArrayMap;  ///< by full name; nil until the first use

  std::int32_t mArrayRank = 0;
  Ref<TypeInfo> mElementType;
};

}  // namespace veldrin::Introspection
