#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "reflection/AttributeInfo.h"

namespace veldrin::Introspection {

/// What descriptions of types, properties, methods and constructors have in common: a name, the
/// class it stands in, its attributes, and who may see it.
class MemberInfo : public Described<MemberInfo, Object> {
 public:
  static constexpr FixedString FullName = "Introspection.MemberInfo";
  static void fillTable(ClassTable<MemberInfo>& table);

  /// False for what is hidden from reflection, which then lists it nowhere.
  [[nodiscard]] virtual bool CanAccess() const { return !IsHidden(mAttributeData); }
  /// Describes a row of the class, of the kind that the description is for; nil is a member without
  /// one, of which only the class is known.
  virtual void Constructor(const MemberRow* row, ClassRecord* owner);
  /// Takes out the attributes that stand for something else: "__Scope" becomes the member's scope.
  virtual void FilterAttributes();
  /// A new array with the attributes, in their order; "__Scope" and "__Shared" are not among them.
  [[nodiscard]] virtual Ref<Array<Ref<AttributeInfo>>> GetAttributes() const;

  [[nodiscard]] const String& Name() const { return mNameValue; }
  [[nodiscard]] bool IsGlobal() const { return mScopeData == "Global"; }
  [[nodiscard]] bool IsPrivate() const { return mScopeData == "Private"; }
  [[nodiscard]] bool IsProtected() const { return mScopeData == "Protected"; }
  /// Also true for a member that says nothing of its scope.
  [[nodiscard]] bool IsPublic() const { return mScopeData.isEmpty() || mScopeData == "Public"; }

 protected:
  /// Makes the attributes of these rows and filters them.
  void takeAttributes(std::span<const AttributeRow> rows);
  /// Takes all attributes of that name out; whether there was one. `value` gets what the first of
  /// them holds.
  bool takeOut(std::string_view name, Variant* value = nullptr);
  /// Raises `IllegalCastException` for an object that is no instance of the owner; nil passes.
  void requireInstance(const Ref<Object>& object) const;

  InfoList<AttributeInfo> mAttributeData;
  std::int32_t mAttributes = 0;  ///< the row's flags
  String mNameValue;
  ClassRecord* mOwnerClassRef = nullptr;
  String mScopeData;  ///< "Public", "Private", "Protected", "Global" or empty
};

}  // namespace veldrin::Introspection
