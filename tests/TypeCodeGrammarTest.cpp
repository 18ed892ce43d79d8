#include "shell/objects/TypeCodeGrammar.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "reflection/Introspection.h"
#include "reflection/ReflectionClasses.h"

namespace veldrin::test {
namespace {

using testing::ElementsAre;

std::vector<std::string> parametersOf(std::string_view list) {
  std::vector<std::string> parameters;
  while (!list.empty()) parameters.emplace_back(takeParameter(list));
  return parameters;
}

TEST(TypeCodeGrammarTest, SignatureFallsIntoResultAndParameters) {
  const auto parts = splitSignature("%o<Introspection.TypeInfo>%i4o<Introspection.TypeInfo>");
  ASSERT_TRUE(parts);
  EXPECT_EQ(parts->result, "o<Introspection.TypeInfo>");
  EXPECT_THAT(parametersOf(parts->parameters), ElementsAre("i4", "o<Introspection.TypeInfo>"));

  const auto bare = splitSignature("%%");
  ASSERT_TRUE(bare);
  EXPECT_EQ(bare->result, "");
  EXPECT_EQ(bare->parameters, "");

  for (const char* const malformed : {"", "%", "f8", "f8%%", "%f8", "%%%", "%f8%i4%"}) {
    EXPECT_FALSE(splitSignature(malformed)) << malformed;
  }
}

TEST(TypeCodeGrammarTest, ParametersComeOffOneByOne) {
  EXPECT_THAT(parametersOf("i4s"), ElementsAre("i4", "s"));
  EXPECT_THAT(parametersOf("&o<Date>&f8"), ElementsAre("&o<Date>", "&f8"));
  EXPECT_THAT(parametersOf("A1o<Pair>"), ElementsAre("A1o<Pair>"));
  EXPECT_THAT(parametersOf("&A12sv"), ElementsAre("&A12s", "v"));
  EXPECT_THAT(parametersOf("o<A.B<C<D>>>?<CString>u1<E>"),
              ElementsAre("o<A.B<C<D>>>", "?<CString>", "u1<E>"));
  // An array of arrays is more than one parameter can be.
  EXPECT_THAT(parametersOf("A1A1s"), ElementsAre("A1A1", "s"));
  // What is no parameter comes off all the same, and never more than there is.
  EXPECT_THAT(parametersOf("f8&"), ElementsAre("f8", "&"));
  EXPECT_THAT(parametersOf("A1"), ElementsAre("A1"));
  EXPECT_THAT(parametersOf("o<Date"), ElementsAre("o<Date"));
  EXPECT_THAT(parametersOf(">>8"), ElementsAre(">", ">8"));
}

TEST(TypeCodeGrammarTest, TypeCodesAreTakenApart) {
  const struct {
    std::string_view code;
    CodeKind kind;
    std::int32_t rank;
    std::string_view inner;
  } rows[] = {
      {"f8", CodeKind::Other, 0, ""},
      {"?<CString>", CodeKind::Other, 0, "CString"},
      {"o<Introspection.TypeInfo>", CodeKind::Object, 0, "Introspection.TypeInfo"},
      {"o<A<B>>", CodeKind::Object, 0, "A<B>"},
      {"u1<FontUnits>", CodeKind::Enumeration, 0, "FontUnits"},
      {"t<S>", CodeKind::Structure, 0, "S"},
      {"A1s", CodeKind::Array, 1, "s"},
      {"A2A1o<Pair>", CodeKind::Array, 2, "A1o<Pair>"},
      {"A1000v", CodeKind::Array, 1000, "v"},
      {"A1%", CodeKind::Array, 1, "%"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.code);
    const auto parts = readTypeCode(row.code);
    ASSERT_TRUE(parts);
    EXPECT_EQ(parts->kind, row.kind);
    EXPECT_EQ(parts->rank, row.rank);
    EXPECT_EQ(parts->inner, row.inner);
  }
}

TEST(TypeCodeGrammarTest, MalformedCodesHaveNoType) {
  initializeReflectionClasses();
  const std::string manyDigits = "A" + std::string(100, '9') + "s";
  const std::string_view codes[] = {
      "",     "&f8",    "%",      "8",       "<Date>",      "o<Date",   "o<",     "o<>",
      "o>",   "o<A<B>", "o<A>>",  "o<A>B",   "f8f8",        "o<Date>8", "A",      "A1",
      "As",   "A0s",    "A1001s", "A<Date>", "A-1s",        "A1A1",     "A1o<",   manyDigits,
      "A1&s", "f 8",    "f8 ",    " f8",     "\xC3\xA4<A>", "i4\n",     "o8Date", "A1A0s",
  };
  for (const std::string_view code : codes) {
    EXPECT_FALSE(Introspection::GetInfoFromTypeCode(String(code))) << code;
  }
  EXPECT_FALSE(Introspection::GetInfoFromTypeCode(String(std::string_view("f8\0", 3))));
  Introspection::finalizeReflection();
}

}  // namespace
}  // namespace veldrin::test
