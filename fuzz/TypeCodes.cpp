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

// Input: one text, used as a type code, a parameter list, a signature, a class name and a property
// name.

namespace veldrin::fuzz {
namespace {

void checkGrammar(std::string_view text) {
  std::string joined;
  for (std::string_view rest = text; !rest.empty();) {
    const std::string_view parameter = takeParameter(rest);
    require(!parameter.empty(), "a parameter is not empty");
    joined += parameter;
  }
  require(joined == text, "the joined parameters equal the list");

  if (const auto parts = splitSignature(text)) {
    require("%" + std::string(parts->result) + "%" + std::string(parts->parameters) == text,
            "the joined parts equal the signature");
  }
  if (const auto parts = readTypeCode(text)) {
    const bool isArray = parts->kind == CodeKind::Array;
    require(isArray ? parts->rank >= 1 && parts->rank <= MaximumRank : parts->rank == 0,
            "only an array has a rank");
    require(parts->kind == CodeKind::Other || !parts->inner.empty(), "the name is not empty");
    require(text.find(parts->inner) != std::string_view::npos, "the name is part of the code");
  }
}

/// Looks up the text as a type code, and the types in it, read as a signature and as parameters.
void checkTypes(const String& text) {
  const bool isCode = readTypeCode(text.view()).has_value();
  require(isCode || !Introspection::GetInfoFromTypeCode(text), "a malformed code has no type");

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

/// Checks that FindProperty and Lookup find what has that name; else Lookup finds the root.
void checkNames(const String& name) {
  bool isClass = false;
  for (const ClassRecord* record = RuntimeGetClassList(); record != nullptr;
       record = record->nextClass) {
    isClass = isClass || record->name == name;
    const PropertyRow* const found = FindProperty(*record, name.view());
    bool exists = false;
    for (const PropertyRow& row : record->propertyRows) {
      exists = exists || lowered(row.name.view()) == lowered(name.view());
    }
    require((found != nullptr) == exists, "FindProperty finds an existing property");
    require(found == nullptr || lowered(found->name.view()) == lowered(name.view()),
            "FindProperty returns a property of that name");
  }
  const Ref<Introspection::ClassInfo> info = Introspection::ClassInfo::Lookup(name);
  require(!info || info->QualifiedName() == (isClass ? name : "Object"_s),
          "Lookup returns the class of that name, else the root");
  require(!info || info == Introspection::ClassInfo::Lookup(name),
          "Lookup returns the same description again");
}

}  // namespace
}  // namespace veldrin::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace veldrin;
  fuzz::World::instance();
  const fuzz::ObjectLeakGuard objectLeakGuard;
  const std::string text(data, data + size);
  fuzz::checkGrammar(text);
  try {
    fuzz::checkTypes(String(text));
    fuzz::checkNames(String(text));
  } catch (const Raised& raised) {
    fuzz::require(RuntimeObjectIsa(raised.exception.get(), StackOverflowException::__Lookup()),
                  "only StackOverflowException is raised");
  }
  Introspection::finalizeReflection();
  return 0;
}
