#pragma once

#include "reflection/TypeInfo.h"

namespace veldrin::Introspection {

/// A parameter of a method: its type and whether it is passed by reference.
class ParameterInfo : public Described<ParameterInfo, Object> {
 public:
  static constexpr FixedString FullName = "Introspection.ParameterInfo";
  static void fillTable(ClassTable<ParameterInfo>& table);

  /// `code` is a parameter of a signature, such as "&f8".
  void Constructor(const String& code);

  [[nodiscard]] bool IsByRef() const { return mByRefValue; }
  /// The type, looked up on first use; nil for a malformed or unknown type code.
  [[nodiscard]] Ref<TypeInfo> ParameterType() const;

 private:
  bool mByRefValue = false;
  String mParamTypeCode;
  mutable Ref<TypeInfo> mParamTypeValue;
};

/// The concrete class, created from signatures.
class ParameterInfoImp final : public Described<ParameterInfoImp, ParameterInfo> {
 public:
  static constexpr FixedString FullName = "Introspection.ParameterInfoImp";
  static void fillTable(ClassTable<ParameterInfoImp>& table) {
    table.plainMethod<&ParameterInfoImp::Constructor>("Constructor"_s);
  }

  void Constructor(const String& code) { ParameterInfo::Constructor(code); }
};

}  // namespace veldrin::Introspection
