#include "shell/values/Text.h"

#include <clocale>
#include <cmath>
#include <limits>
#include <string>

#include "shell/values/Mathematics.h"
#include "tests/support/ValuesTest.h"

namespace veldrin::test {
namespace {

constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();

/// The tests run in two C locales; the German one has a decimal comma.
class TextTest : public testing::TestWithParam<const char*> {
 protected:
  void SetUp() override {
    ASSERT_NE(std::setlocale(LC_ALL, GetParam()), nullptr)
        << GetParam()
        << " is missing: make it with localedef, and set LOCPATH to its parent folder";
  }
  void TearDown() override { std::setlocale(LC_ALL, "C"); }
};

INSTANTIATE_TEST_SUITE_P(Locales, TextTest, testing::Values("C", "de_DE.UTF-8"),
                         [](const auto& locale) {
                           return std::string(locale.index == 0 ? "Plain" : "German");
                         });

TEST_P(TextTest, ValReadsTheNumberAtTheStart) {
  const std::string zeros(1048576, '0');
  const struct {
    std::string text;
    double value;
    std::size_t length;
  } rows[] = {{"+3", 3.0, 2},
              {" \t 47.5 ", 47.5, 7},
              {"47,5", 47.0, 2},
              {"1.2.3", 1.2, 3},
              {"-.5", -0.5, 3},
              {" \u2212.5x", -0.5, 6},
              {"\u22120", -0.0, 4},
              {"1e\u22125", 1.0, 1},
              {"1.5E+2x", 150.0, 6},
              {"1e", 1.0, 1},
              {"1:2", 1.0, 1},
              {"1/2", 1.0, 1},
              {"1e1:", 10.0, 3},
              {"1e-x", 1.0, 1},
              {std::string("1\0002", 3), 1.0, 1},
              {"1e400", Infinity, 5},
              {"-1e-400", -0.0, 7},
              {"1e99999999999999999999", Infinity, 22},
              {"1e-99999999999999999999", 0.0, 23},
              {"-1e9223372036854775807", -Infinity, 22},
              {"0.01e-9223372036854775808", 0.0, 25},
              {"5e-324", std::numeric_limits<double>::denorm_min(), 6},
              {".9007199254740993", 0.9007199254740993, 17},
              {std::string(310, '9'), Infinity, 310},
              {"1" + zeros, Infinity, zeros.size() + 1},
              {"0." + zeros + "1", 0.0, zeros.size() + 3},
              {"0." + zeros + "1e1048577", 1.0, zeros.size() + 11},
              {"1" + zeros + "e-1048576", 1.0, zeros.size() + 10}};
  for (const auto& row : rows) {
    SCOPED_TRACE("\"" + row.text.substr(0, 30) + "\"");
    const double value = Val(String(row.text));
    EXPECT_EQ(value, row.value);
    EXPECT_EQ(std::signbit(value), std::signbit(row.value));
    EXPECT_EQ(readNumber(row.text).value().length, row.length);
  }
  for (const char* none :
       {"", "  ", "-", "- 5", "+-5", ".", "-.", ".e5", "e5", ",5", "nan", "inf", "-infinity", "\n5",
        "\u2212 5", "-\u22125", "\u2212-5", "\u22135", "\xE2\x88"}) {
    EXPECT_EQ(Val(String(none)), 0.0) << none;
    EXPECT_FALSE(readNumber(none).has_value()) << none;
  }
}

TEST_P(TextTest, StrAndChrWritePlainCharacters) {
  EXPECT_EQ(text(Str(2008) + Str(-5) + Str(0)), "2008-50");
  EXPECT_EQ(text(Str(Largest) + Str(Smallest)), "2147483647-2147483648");
  EXPECT_EQ(text(Chr(13) + Chr(0) + Chr(127)), std::string("\r\0\x7F", 3));
  for (const std::int32_t code : {-1, 128, 269, Smallest, Largest}) {
    EXPECT_EQ(raisedBy([&] { Chr(code); }), "OutOfBoundsException") << code;
  }
}

TEST_P(TextTest, FormatPadsWithZeros) {
  const struct {
    double value;
    const char* pattern;
    const char* expected;
  } rows[] = {{-0.0, "00", "00"},
              {7.0, "00", "07"},
              {100.0, "00", "100"},
              {-0.4, "00", "00"},
              {-0.5, "00", "-01"},
              {0.49999999999999994, "00", "00"},
              {2.5, "00", "03"},
              {12.0, "", "12"},
              {9007199254740994.0, "00", "9007199254740994"},
              {NotANumber, "00", "nan"},
              {-Infinity, "00", "-inf"}};
  for (const auto& row : rows) {
    EXPECT_EQ(text(Format(row.value, String(row.pattern))), row.expected)
        << row.value << " as " << row.pattern;
  }
}

TEST(MathematicsTest, ConversionToAnIntegerTruncatesAndSaturates) {
  const struct {
    double value;
    std::int32_t integer, sign;
  } rows[] = {{0.0, 0, 0},
              {5.75, 5, 1},
              {-0.99, 0, -1},
              {2147483646.9, 2147483646, 1},
              {2147483647.5, Largest, 1},
              {-2147483648.5, Smallest, -1},
              {std::numeric_limits<double>::denorm_min(), 0, 1},
              {Infinity, Largest, 1},
              {-Infinity, Smallest, -1},
              {NotANumber, 0, 0}};
  for (const auto& row : rows) {
    EXPECT_EQ(RuntimeCvtReal64ToSInt32(row.value), row.integer) << row.value;
    EXPECT_EQ(Sign(row.value), row.sign) << row.value;
  }
  EXPECT_EQ(RuntimeCvtSInt32ToReal64(Smallest), -2147483648.0);
}

}  // namespace
}  // namespace veldrin::test
