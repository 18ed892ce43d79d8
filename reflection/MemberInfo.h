#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "reflection/AttributeInfo.h"

namespace veldrin::Introspection {

/// The base class of descriptions of types, properties, methods and constructors: name, owner
/// class, attributes and scope.
class MemberInfo : public Described<MemberInfo, Object> {
 public:
  static constexpr FixedString FullName = "Introspection.MemberInfo";
  static void fillTable(ClassTable<MemberInfo>& table);

  /// False for a hidden class or member; reflection never lists these.
  [[nodiscard]] virtual bool CanAccess() const { return !IsHidden(mAttributeData); }
  /// Initialises the description from a row of the matching kind; for a nil row sets only the
  /// owner.
  virtual void Constructor(const MemberRow* row, ClassRecord* owner);
  /// Removes the attribute "__Scope" and stores its value as the scope.
  virtual void FilterAttributes();
  /// A new array with the attributes, without "__Scope" and "__Shared".
  [[nodiscard]] virtual Ref<Array<Ref<AttributeInfo>>> GetAttributes() const;

  [[nodiscard]] const String& Name() const { return mNameValue; }
  [[nodiscard]] bool IsGlobal() const { return mScopeData == "Global"; }
  [[nodiscard]] bool IsPrivate() const { return mScopeData == "Private"; }
  [[nodiscard]] bool IsProtected() const { return mScopeData == "Protected"; }
  /// Also true if there is no scope.
  [[nodiscard]] bool IsPublic() const { return mScopeData.isEmpty() || mScopeData == "Public"; }

 protected:
  /// Replaces the attributes by these rows and filters them.
  void setAttributes(std::span<const AttributeRow> rows);
  /// Removes all attributes of that name and returns whether there was one. `value` receives the
  /// value of the first.
  bool removeAttribute(std::string_view name, Variant* value = nullptr);
  /// Raises `IllegalCastException` if the object is not an instance of the owner; accepts nil.
  void requireInstance(const Ref<Object>& object) const;

  InfoList<AttributeInfo> mAttributeData;
  std::int32_t mAttributes = 0;  ///< the row's flags
  String mNameValue;
  ClassRecord* mOwnerClassRef = nullptr;
  String mScopeData;  ///< "Public", "Private", "Protected", "Global" or empty
};

}  // namespace veldrin::Introspection
