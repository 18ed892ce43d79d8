#pragma once

#include "reflection/TypeInfo.h"

namespace veldrin::Introspection {

/// A parameter of a method: its type, and whether the method can write to the caller's variable.
class ParameterInfo : public Described<ParameterInfo, Object> {
 public:
  static constexpr FixedString FullName = "Introspection.ParameterInfo";
  static void fillTable(ClassTable<ParameterInfo>& table);

  /// Takes a parameter as a signature writes it, such as "&f8".
  void Constructor(const String& code);

  [[nodiscard]] bool IsByRef() const { return mByRefValue; }
  /// The type, looked up on the first read; nil where the code names none.
  [[nodiscard]] Ref<TypeInfo> ParameterType() const;

 private:
  bool mByRefValue = false;
  String mParamTypeCode;
  mutable Ref<TypeInfo> mParamTypeValue;
};

/// A parameter as it is made from a signature.
class ParameterInfoImp final : public Described<ParameterInfoImp, ParameterInfo> {
 public:
  static constexpr FixedString FullName = "Introspection.ParameterInfoImp";
  static void fillTable(ClassTable<ParameterInfoImp>& table) {
    table.plainMethod<&ParameterInfoImp::Constructor>("Constructor"_s);
  }

  void Constructor(const String& code) { ParameterInfo::Constructor(code); }
};

}  // namespace veldrin::Introspection
