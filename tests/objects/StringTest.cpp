#include "shell/objects/String.h"

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "shell/objects/BlockPool.h"
#include "tests/support/ValuesTest.h"

namespace veldrin::test {
namespace {

constexpr auto LongText = [] {
  FixedString<300> text;
  for (std::size_t index = 0; index < 300; ++index) {
    text.characters[index] = static_cast<char>(index % 7);
  }
  return text;
}();

/// Checks the text, and the layout of the text block.
void expectText(const String& string, std::string_view expected) {
  ASSERT_EQ(string.view(), expected);
  ASSERT_NE(string.record(), nullptr);
  const StringRecord& record = *string.record();
  const std::size_t prefix = std::min<std::size_t>(expected.size(), 255);
  EXPECT_EQ(static_cast<unsigned char>(record.data[0]), prefix);
  EXPECT_EQ(std::string_view(record.data + 1 + expected.size(), 4),
            std::string_view("\0\0\0\0", 4));
  EXPECT_GE(static_cast<std::size_t>(record.allocation), expected.size() + 5);
}

TEST(StringTest, EqualLiteralsShareARecord) {
  const StringConstant first = "one text"_s;
  const StringConstant second = "one text"_s;
  EXPECT_EQ(first.record(), second.record());
  EXPECT_NE(first.record(), "one text"_ascii.record());
  EXPECT_NE(first.record(), "one text "_s.record());
  EXPECT_EQ(String("one text"_ascii).encoding(), 0x600U);
  EXPECT_EQ(String(first).encoding(), 0x8000100U);
}

TEST(StringTest, CopiesKeepTheCountsBalanced) {
  for (const String& original : {String("a constant"_s), String("a run-time string")}) {
    StringRecord* const record = original.record();
    const std::int32_t before = record->count;
    {
      std::vector<String> copies(10, original);
      copies.front() = String("another"_s);
      const String& itself = copies[1];
      copies[1] = itself;
      const String taken = std::move(copies[2]);
      const String sum = copies[3] + " in a sum"_s + original;
      RuntimeLockUnlockStrings(record, record);
      RuntimeLockUnlockStrings(nullptr, nullptr);
      EXPECT_EQ(record->count, before + 9);
    }
    EXPECT_EQ(record->count, before);
  }
  EXPECT_EQ("a constant"_s.record()->count, 1);
}

TEST(StringTest, TheBlockOfAReleasedTextIsUsedAgain) {
  if (!detail::Pooled) GTEST_SKIP() << "the sanitizer has a heap of its own";
  for (const std::size_t length : {1U, 60U}) {
    const auto usedAddress = [length] {
      return reinterpret_cast<std::uintptr_t>(String(std::string(length, 'x')).record());
    };
    EXPECT_EQ(usedAddress(), usedAddress()) << length;
  }
}

TEST(StringTest, TextBlockHasASaturatingPrefixAndATerminator) {
  const StringConstant constant = ConstantText<LongText>;
  expectText(constant, LongText.view());
  EXPECT_EQ(constant.record()->length, 300);
  EXPECT_EQ(constant.record()->allocation, 305);
  for (const std::size_t length : {1U, 254U, 255U, 256U, 449U, 70000U}) {
    SCOPED_TRACE(length);
    const std::string expected(length, '\0');
    const String string(expected);
    expectText(string, expected);
    EXPECT_EQ(string.record()->allocation, string.record()->length + 5);
  }
  expectText(String("", Encoding::ASCII), "");
}

TEST(StringTest, ConcatenationKeepsTheOperands) {
  const std::string zeros("\0a\0", 3);
  EXPECT_EQ(String(), String(""_s));
  const String operands[] = {String(), "a"_s, String("run-"), String(zeros),
                             String(std::string(254, 'x'))};
  for (const String& left : operands) {
    for (const String& right : operands) {
      const std::string first = text(left);
      const std::string second = text(right);
      SCOPED_TRACE(testing::PrintToString(first + second));
      EXPECT_EQ(text(RuntimeAddString(left, right)), first + second);
      EXPECT_EQ(text(left), first);
      EXPECT_EQ(text(right), second);
    }
    // Both operands are the same variable, and the left one is moved.
    String twice = String(text(left));
    twice = RuntimeAddString(std::move(twice), twice);  // NOLINT(bugprone-use-after-move)
    EXPECT_EQ(text(twice), text(left) + text(left));
  }
}

TEST(StringTest, ConcatenationIsASCIIIfBothOperandsAreOrOneIsEmpty) {
  const String nil;
  const String ascii("run", Encoding::ASCII);
  const struct {
    String left, right;
    std::uint32_t encoding;
  } rows[] = {{"a"_ascii, "b"_ascii, Encoding::ASCII}, {"a"_ascii, "b"_s, Encoding::UTF8},
              {"a"_s, "b"_ascii, Encoding::UTF8},      {nil, "b"_ascii, Encoding::ASCII},
              {"a"_ascii, nil, Encoding::ASCII},       {"a"_ascii, ""_s, Encoding::ASCII},
              {""_ascii, "b"_s, Encoding::UTF8}};
  for (const auto& row : rows) {
    EXPECT_EQ((row.left + row.right).encoding(), row.encoding);
    EXPECT_EQ((ascii + row.left + row.right).encoding(), row.encoding);  // appends in place
  }
}

TEST(StringTest, AppendingNeverChangesOtherStrings) {
  std::vector<std::pair<String, std::string>> held;
  std::string expected;
  String sum;
  for (int term = 0; term < 300; ++term) {
    const std::string piece(static_cast<std::size_t>(term % 9), static_cast<char>('a' + term % 26));
    sum = std::move(sum) + String(piece);
    expected += piece;
    if (term % 5 == 1) held.emplace_back(sum, expected);
  }
  expectText(sum, expected);
  for (const auto& [string, then] : held) expectText(string, then);
}

TEST(StringTest, ATextLongerThanTheLimitRaises) {
  // The view is invalid, but only its length is read.
  const std::string_view tooLong("", 0x7FFFFFFF - 4);
  EXPECT_EQ(raisedBy([&] { const String string(tooLong); }), "OutOfMemoryException");
}

}  // namespace
}  // namespace veldrin::test
