#include "shell/objects/TypeCodeGrammar.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "reflection/Introspection.h"
#include "reflection/ReflectionClasses.h"

namespace veldrin::test {
namespace {

TEST(TypeCodeGrammarTest, ASignatureHasAResultAndParameters) {
  const auto parts = splitSignature("%o<Introspection.TypeInfo>%i4o<Introspection.TypeInfo>");
  ASSERT_TRUE(parts);
  EXPECT_EQ(parts->result, "o<Introspection.TypeInfo>");
  EXPECT_EQ(parts->parameters, "i4o<Introspection.TypeInfo>");
  const auto bare = splitSignature("%%");
  EXPECT_TRUE(bare && bare->result.empty() && bare->parameters.empty());
  for (const char* const malformed : {"", "%", "f8", "f8%%", "%f8", "%%%", "%f8%i4%"}) {
    EXPECT_FALSE(splitSignature(malformed)) << malformed;
  }
}

TEST(TypeCodeGrammarTest, ParametersAreTakenOneByOne) {
  for (const std::string parameters :
       {"i4,s", "&o<Date>,&f8", "A1o<Pair>", "&A12s,v", "o<A.B<C<D>>>,?<CString>,u1<E>",
        "A1A1,s",                           // an array of arrays is split wrongly
        "f8,&", "A1", "o<Date", ">,>8"}) {  // malformed text is used up too
    std::string list = parameters;
    std::erase(list, ',');
    std::string taken;
    for (std::string_view rest = list; !rest.empty();) {
      taken.append(taken.empty() ? "" : ",").append(takeParameter(rest));
    }
    EXPECT_EQ(taken, parameters);
  }
}

TEST(TypeCodeGrammarTest, ATypeCodeHasAKindARankAndAName) {
  const struct {
    std::string_view code;
    CodeKind kind;
    std::int32_t rank;
    std::string_view inner;
  } rows[] = {
      {"f8", CodeKind::Other, 0, ""},
      {"?<CString>", CodeKind::Other, 0, "CString"},
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
      "",     "&f8",    "%",      "8",       "<Date>",      "o<Date",   "o<",     "A1001i4",
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
