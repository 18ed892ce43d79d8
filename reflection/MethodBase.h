#pragma once

#include "reflection/ParameterInfo.h"

namespace veldrin::Introspection {

/// What methods and constructors have in common: parameters, and a function that can be called
/// through the thunk of its signature.
class MethodBase : public Described<MethodBase, MemberInfo> {
 public:
  static constexpr FixedString FullName = "Introspection.MethodBase";
  static void fillTable(ClassTable<MethodBase>& table);

  /// Describes a `MethodRow` of the class; nil is a member without one.
  void Constructor(const MemberRow* row, ClassRecord* owner) override;
  /// A new array with the parameters, from the first to the last.
  [[nodiscard]] virtual Ref<Array<Ref<ParameterInfo>>> GetParameters() const;
  /// Reads the parameters off a list of codes, in place of those there are. What is no parameter is
  /// one without a type.
  virtual void ParseParameterList(const String& text);

 protected:
  Invoker mInvoker = nullptr;
  InfoList<ParameterInfo> mParamList;
  String mReturnTypeCode;  ///< empty for a method without a result
  mutable Ref<TypeInfo> mReturnTypeValue;
  String mSignature;
  Function mVector = nullptr;
};

}  // namespace veldrin::Introspection
