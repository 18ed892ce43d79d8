#pragma once

#include <cstdint>

#include "reflection/MemberInfo.h"

namespace veldrin::Introspection {

class ConstructorInfo;
class MethodInfo;
class PropertyInfo;

/// The description of a type. Obtain one by the functions in `reflection/Introspection.h`.
class TypeInfo : public Described<TypeInfo, MemberInfo> {
 public:
  static constexpr FixedString FullName = "Introspection.TypeInfo";
  static void fillTable(ClassTable<TypeInfo>& table);

  TypeInfo();
  ~TypeInfo() override;

  /// Releases the base class and the member lists. `ClassInfo::breakCycles` calls it too.
  void __Exit();

  using MemberInfo::Constructor;
  /// Sets the full name; `Name` becomes the part after the last dot.
  void Constructor(const String& fullName);
  /// The number of dimensions of an array; 0 for any other type.
  [[nodiscard]] virtual std::int32_t GetArrayRank() const { return 0; }
  /// A new array with the constructors of a class, in row order; empty for other types.
  [[nodiscard]] virtual Ref<Array<Ref<ConstructorInfo>>> GetConstructors() const;
  /// The type of an array's elements; nil for any other type.
  [[nodiscard]] virtual Ref<TypeInfo> GetElementType() const { return nullptr; }
  /// A new array with the methods except constructors, inherited ones first.
  [[nodiscard]] virtual Ref<Array<Ref<MethodInfo>>> GetMethods() const;
  /// A new array with the properties, inherited ones first.
  [[nodiscard]] virtual Ref<Array<Ref<PropertyInfo>>> GetProperties() const;
  /// Always false for a type that is not a class.
  [[nodiscard]] virtual bool IsSubclassOf(const Ref<TypeInfo>& /*other*/) const { return false; }

  /// The property "FullName"; `Name` if there is no full name.
  [[nodiscard]] String QualifiedName() const {
    return mFullyQualifiedName.isEmpty() ? mNameValue : mFullyQualifiedName;
  }
  /// The base class; nil if there is none or it is hidden.
  [[nodiscard]] Ref<TypeInfo> BaseType() const { return mBasetype; }
  [[nodiscard]] bool HasElementType() const { return mHasElementTypeValue; }
  [[nodiscard]] bool IsArray() const { return mIsArrayValue; }
  [[nodiscard]] bool IsClass() const { return mIsClassTypeValue; }
  [[nodiscard]] bool IsEnum() const { return mIsEnumTypeValue; }
  [[nodiscard]] bool IsInterface() const { return mIsInterfaceTypeValue; }
  [[nodiscard]] bool IsPointer() const { return mIsPointerTypeValue; }
  [[nodiscard]] bool IsPrimitive() const { return mIsPrimitiveTypeValue; }
  /// Whether assignment copies the value. True for `String`, which is immutable.
  [[nodiscard]] bool IsValueType() const { return mIsValueTypeValue; }

 protected:
  Ref<TypeInfo> mBasetype;
  InfoList<ConstructorInfo> mConstructorList;
  String mFullyQualifiedName;
  bool mHasElementTypeValue = false;
  bool mIsArrayValue = false;
  bool mIsByRefTypeValue = false;
  bool mIsClassTypeValue = false;
  bool mIsEnumTypeValue = false;
  bool mIsInterfaceTypeValue = false;
  bool mIsPointerTypeValue = false;
  bool mIsPrimitiveTypeValue = false;
  bool mIsValueTypeValue = false;
  InfoList<MethodInfo> mMethodList;
  InfoList<PropertyInfo> mPropertyList;
};

}  // namespace veldrin::Introspection
