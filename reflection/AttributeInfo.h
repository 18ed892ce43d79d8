#pragma once

#include "reflection/InfoList.h"
#include "shell/objects/Described.h"

namespace veldrin::Introspection {

/// An attribute of a class or member: a name and an optional value.
class AttributeInfo : public Described<AttributeInfo, Object> {
 public:
  static constexpr FixedString FullName = "Introspection.AttributeInfo";
  static void fillTable(ClassTable<AttributeInfo>& table);

  /// Copies the row; does nothing for nil.
  void Constructor(const AttributeRow* row);

  String Name;
  Variant Value;  ///< a text, or nil
};

/// The concrete class, created from rows.
class AttributeInfoImp final : public Described<AttributeInfoImp, AttributeInfo> {
 public:
  static constexpr FixedString FullName = "Introspection.AttributeInfoImp";
  static void fillTable(ClassTable<AttributeInfoImp>& table) {
    table.plainMethod<&AttributeInfoImp::Constructor>("Constructor"_s, PublicHidden);
  }

  void Constructor(const AttributeRow* row) { AttributeInfo::Constructor(row); }
};

/// Whether one of the attributes is "Hidden".
bool IsHidden(const InfoList<AttributeInfo>& attributes);

}  // namespace veldrin::Introspection
