#pragma once

#include <cstdint>

#include "reflection/MemberInfo.h"

namespace veldrin::Introspection {

class ConstructorInfo;
class MethodInfo;
class PropertyInfo;

/// The description of a type. The module's functions in `reflection/Introspection.h` find the one
/// of a type code, of a class or of an object.
class TypeInfo : public Described<TypeInfo, MemberInfo> {
 public:
  static constexpr FixedString FullName = "Introspection.TypeInfo";
  static void fillTable(ClassTable<TypeInfo>& table);

  TypeInfo();
  ~TypeInfo() override;

  /// Gives up the base and the lists. The end of the process does so ahead of time, to break the
  /// rings of types that are described by each other.
  void __Exit();

  using MemberInfo::Constructor;
  /// Takes the full name; the member's name is what stands behind its last dot.
  void Constructor(const String& fullName);
  /// The dimensions of an array; 0 for any other type.
  [[nodiscard]] virtual std::int32_t GetArrayRank() const { return 0; }
  /// A new array with the constructors of a class, in the order of its rows; empty for other types,
  /// as the two below.
  [[nodiscard]] virtual Ref<Array<Ref<ConstructorInfo>>> GetConstructors() const;
  /// The type of an array's elements; nil for any other type.
  [[nodiscard]] virtual Ref<TypeInfo> GetElementType() const { return nullptr; }
  /// A new array with the methods that are no constructors, inherited ones first.
  [[nodiscard]] virtual Ref<Array<Ref<MethodInfo>>> GetMethods() const;
  /// A new array with the properties, inherited ones first.
  [[nodiscard]] virtual Ref<Array<Ref<PropertyInfo>>> GetProperties() const;
  /// False, but for classes.
  [[nodiscard]] virtual bool IsSubclassOf(const Ref<TypeInfo>& /*other*/) const { return false; }

  /// The property "FullName": the plain name where there is no full one.
  [[nodiscard]] String QualifiedName() const {
    return mFullyQualifiedName.isEmpty() ? mNameValue : mFullyQualifiedName;
  }
  /// The base of a class; nil where it has none, or a hidden one.
  [[nodiscard]] Ref<TypeInfo> BaseType() const { return mBasetype; }
  [[nodiscard]] bool HasElementType() const { return mHasElementTypeValue; }
  [[nodiscard]] bool IsArray() const { return mIsArrayValue; }
  [[nodiscard]] bool IsClass() const { return mIsClassTypeValue; }
  [[nodiscard]] bool IsEnum() const { return mIsEnumTypeValue; }
  [[nodiscard]] bool IsInterface() const { return mIsInterfaceTypeValue; }
  [[nodiscard]] bool IsPointer() const { return mIsPointerTypeValue; }
  [[nodiscard]] bool IsPrimitive() const { return mIsPrimitiveTypeValue; }
  /// Whether assigning it copies it. A text cannot change, so it counts as a value.
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
