#include "reflection/AttributeInfo.h"

#include <algorithm>

namespace veldrin::Introspection {

void AttributeInfo::fillTable(ClassTable<AttributeInfo>& table) {
  table.property<&AttributeInfo::Name>("Name"_s);
  table.property<&AttributeInfo::Value>("Value"_s);
}

void AttributeInfo::Constructor(const AttributeRow& row) {
  Name = row.name;
  if (row.hasValue) Value = row.value;
}

bool IsHidden(const std::vector<Ref<AttributeInfo>>& attributes) {
  return std::ranges::any_of(
      attributes, [](const Ref<AttributeInfo>& attribute) { return attribute->Name == "Hidden"; });
}

}  // namespace veldrin::Introspection
