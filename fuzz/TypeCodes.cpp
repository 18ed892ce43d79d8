#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "fuzz/Fuzz.h"
#include "reflection/ClassInfo.h"
#include "reflection/Introspection.h"
#include "reflection/MethodInfo.h"
#include "reflection/NewInfo.h"
#include "shell/objects/Failure.h"
#include "shell/objects/TypeCodeGrammar.h"

// Any bytes as a type code, as a list of parameters, as a signature and as the name of whatever is
// found by its name.

namespace veldrin::fuzz {
namespace {

void checkGrammar(std::string_view text) {
  std::string joined;
  for (std::string_view rest = text; !rest.empty();) {
    const std::string_view parameter = takeParameter(rest);
    require(!parameter.empty(), "a parameter has letters");
    joined += parameter;
  }
  require(joined == text, "the parameters are the whole list");

  if (const auto parts = splitSignature(text)) {
    require("%" + std::string(parts->result) + "%" + std::string(parts->parameters) == text,
            "a signature is its two parts");
  }
  if (const auto parts = readTypeCode(text)) {
    const bool isArray = parts->kind == CodeKind::Array;
    require(isArray ? parts->rank >= 1 && parts->rank <= MaximumRank : parts->rank == 0,
            "an array and nothing else has a rank");
    require(parts->kind == CodeKind::Other || !parts->inner.empty(), "there is a name inside");
    require(text.find(parts->inner) != std::string_view::npos, "the name stands in the code");
  }
}

/// Looks up every type that the text names, read in all three ways.
void describe(const String& text) {
  const bool isCode = readTypeCode(text.view()).has_value();
  require(isCode || !Introspection::GetInfoFromTypeCode(text), "what is no code has no type");

  MethodRow row;
  row.signature = text;
  const auto method = Introspection::NewInfo<Introspection::MethodInfoImp>(&row, nullptr);
  static_cast<void>(method->ReturnType());
  method->ParseParameterList(text);
  const auto parameters = method->GetParameters();
  for (const auto& parameter : parameters->elements) {
    static_cast<void>(parameter->ParameterType());
  }
}

std::string lowered(std::string_view text) {
  std::string all(text);
  for (char& each : all) each = static_cast<char>(each >= 'A' && each <= 'Z' ? each | 0x20 : each);
  return all;
}

/// Whatever is found under a name bears it, and what bears it is found.
void lookUp(const String& name) {
  bool isClass = false;
  for (const ClassRecord* record = RuntimeGetClassList(); record != nullptr;
       record = record->nextClass) {
    isClass = isClass || record->name == name;
    const PropertyRow* const found = FindProperty(*record, name.view());
    bool borne = false;
    for (const PropertyRow& row : record->propertyRows) {
      borne = borne || lowered(row.name.view()) == lowered(name.view());
    }
    require((found != nullptr) == borne, "a property is found by its name");
    require(found == nullptr || lowered(found->name.view()) == lowered(name.view()),
            "the property that is found bears the name");
  }
  const Ref<Introspection::ClassInfo> info = Introspection::ClassInfo::Lookup(name);
  require(!info || info->QualifiedName() == (isClass ? name : "Object"_s),
          "a class is found by its name, and the root in the place of others");
  require(!info || info == Introspection::ClassInfo::Lookup(name), "a class is described once");
}

}  // namespace
}  // namespace veldrin::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace veldrin;
  fuzz::World::one();
  const fuzz::NothingStays nothingStays;
  const std::string text(data, data + size);
  fuzz::checkGrammar(text);
  try {
    fuzz::describe(String(text));
    fuzz::lookUp(String(text));
  } catch (const Raised& raised) {
    fuzz::require(RuntimeObjectIsa(raised.exception.get(), StackOverflowException::__Lookup()),
                  "only depth raises");
  }
  Introspection::finalizeReflection();
  return 0;
}
