#include "reflection/AttributeInfo.h"

#include <algorithm>

namespace veldrin::Introspection {

void AttributeInfo::fillTable(ClassTable<AttributeInfo>& table) {
  table.property<&AttributeInfo::Name>("Name"_s);
  table.property<&AttributeInfo::Value>("Value"_s);
  table.plainMethod<&AttributeInfo::Constructor>("Constructor"_s, PublicHidden);
}

void AttributeInfo::Constructor(const AttributeRow* row) {
  if (row == nullptr) return;
  Name = row->name;
  if (row->hasValue) Value = row->value;
}

bool IsHidden(const InfoList<AttributeInfo>& attributes) {
  return std::ranges::any_of(itemsOf(attributes), [](const Ref<AttributeInfo>& attribute) {
    return attribute->Name == "Hidden";
  });
}

}  // namespace veldrin::Introspection
