#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "reflection/Introspection.h"
#include "reflection/MethodInfo.h"
#include "reflection/NewInfo.h"
#include "reflection/ReflectionClasses.h"
#include "shell/Classes.h"
#include "shell/objects/Failure.h"
#include "shell/objects/TypeCodeGrammar.h"

// Feeds any bytes as a type code, as a list of parameters and as a signature. A fault is a crash, a
// loop, a report of a sanitizer, or one of the rules below broken.

namespace veldrin {
namespace {

void require(bool holds) {
  if (!holds) std::abort();
}

void checkGrammar(std::string_view text) {
  std::string joined;
  for (std::string_view rest = text; !rest.empty();) {
    const std::string_view parameter = takeParameter(rest);
    require(!parameter.empty());
    joined += parameter;
  }
  require(joined == text);

  if (const auto parts = splitSignature(text)) {
    require("%" + std::string(parts->result) + "%" + std::string(parts->parameters) == text);
  }
  if (const auto parts = readTypeCode(text)) {
    const bool isArray = parts->kind == CodeKind::Array;
    require(isArray ? parts->rank >= 1 && parts->rank <= MaximumRank : parts->rank == 0);
    require(parts->kind == CodeKind::Other || !parts->inner.empty());
    require(text.find(parts->inner) != std::string_view::npos);
  }
}

/// Looks up every type that the text names, read in all three ways.
void describe(const String& text) {
  const bool isCode = readTypeCode(text.view()).has_value();
  require(isCode || !Introspection::GetInfoFromTypeCode(text));

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

}  // namespace
}  // namespace veldrin

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace veldrin;
  measureStack();
  initializeShellClasses();
  initializeReflectionClasses();
  const std::string text(data, data + size);
  checkGrammar(text);
  try {
    describe(String(text));
  } catch (const Raised& raised) {
    require(RuntimeObjectIsa(raised.exception.get(), StackOverflowException::__Lookup()));
  }
  Introspection::finalizeReflection();
  return 0;
}
