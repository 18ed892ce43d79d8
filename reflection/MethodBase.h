#pragma once

#include "reflection/ParameterInfo.h"

namespace veldrin::Introspection {

/// The base class of method and constructor descriptions: parameters, a function and its thunk.
class MethodBase : public Described<MethodBase, MemberInfo> {
 public:
  static constexpr FixedString FullName = "Introspection.MethodBase";
  static void fillTable(ClassTable<MethodBase>& table);

  /// `row` is a `MethodRow` or nil.
  void Constructor(const MemberRow* row, ClassRecord* owner) override;
  /// A new array with the parameters in order.
  [[nodiscard]] virtual Ref<Array<Ref<ParameterInfo>>> GetParameters() const;
  /// Replaces the parameters by a list of type codes, such as "i4&f8". A malformed code becomes a
  /// parameter without a type.
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
