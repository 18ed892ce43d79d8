#include "shell/objects/StringImage.h"

#include <gmock/gmock.h>

#include <span>
#include <vector>

#include "tests/support/ValuesTest.h"

namespace veldrin::test {
namespace {

using Image = std::vector<std::uint8_t>;
using testing::ElementsAreArray;

constexpr std::uint32_t Address = 0x1000;

/// The image of "hi" and "(  )" at 0x1000.
const Image Golden = {
    0x01, 0,   0,   0,   0x28, 0x10, 0, 0, 0x07, 0, 0, 0, 0x02, 0, 0, 0, 0x00, 0x01, 0x00, 0x08,  //
    0x01, 0,   0,   0,   0x2F, 0x10, 0, 0, 0x09, 0, 0, 0, 0x04, 0, 0, 0, 0x00, 0x06, 0x00, 0x00,  //
    0x02, 'h', 'i', 0,   0,    0,    0,                                                           //
    0x04, '(', ' ', ' ', ')',  0,    0, 0, 0};

void putWord(Image& image, std::size_t offset, std::uint32_t value) {
  for (std::size_t byte = 0; byte < 4; ++byte) {
    image.at(offset + byte) = static_cast<std::uint8_t>(value >> (8 * byte));
  }
}

TEST(StringImageTest, WritesAndReadsTheGoldenBytes) {
  const std::vector<String> strings = {"hi"_s, "(  )"_ascii};
  EXPECT_THAT(writeStringImage(strings, Address), ElementsAreArray(Golden));
  const auto [read, error] = readStringImage(Golden, Address);
  EXPECT_THAT(read, ElementsAreArray(strings));
  EXPECT_TRUE(read[0].encoding() == Encoding::UTF8 && read[1].encoding() == Encoding::ASCII);
  EXPECT_TRUE(writeStringImage({}, Address).empty());
  EXPECT_FALSE(readStringImage({}, Address).error.has_value());
}

TEST(StringImageTest, ACorruptImageReportsTheOffset) {
  const struct {
    const char* what;
    std::size_t wordOffset;
    std::uint32_t value;
    std::size_t errorOffset;
  } rows[] = {{"count 0", 0, 0, 0},
              {"no record before the blocks", 4, Address, 4},
              {"huge offset, a multiple of the record size", 4, Address + 20 * 0x0CCCCCCCU, 4},
              {"huge length", 12, 0xFFFFFFFF, 12},
              {"length + 5 overflows 32 bits", 12, 0xFFFFFFFB, 12},
              {"length that contradicts the allocation", 32, 3, 28},
              {"terminator", 43, 0x01000000, 46}};
  for (const auto& row : rows) {
    Image image = Golden;
    putWord(image, row.wordOffset, row.value);
    const auto [strings, error] = readStringImage(image, Address);
    ASSERT_TRUE(error.has_value()) << row.what;
    EXPECT_EQ(error->offset, row.errorOffset) << row.what << ": " << error->what;
    EXPECT_FALSE(error->what.empty());
    EXPECT_TRUE(strings.empty()) << row.what;
  }
  for (std::size_t length = 1; length < Golden.size(); ++length) {
    const auto [strings, error] = readStringImage(std::span(Golden).first(length), Address);
    ASSERT_TRUE(error.has_value()) << length;
    EXPECT_TRUE(error->offset <= length && !error->what.empty()) << length;
  }
  Image longer = Golden;
  longer.push_back(0);
  EXPECT_EQ(readStringImage(longer, Address).error.value().offset, Golden.size());
  EXPECT_EQ(readStringImage(Golden, Address + 1).error.value().offset, 4U);
}

TEST(StringImageTest, TheWriterRejectsUnrepresentableStrings) {
  const std::vector<String> strings = {"hi"_s, "ho"_s};
  const std::vector<String> latin = {String("hi", 0x201)};
  EXPECT_EQ(raisedBy([&] { writeStringImage(strings, 0xFFFFFFF0); }), "OutOfMemoryException");
  EXPECT_EQ(raisedBy([&] { writeStringImage(latin, 0); }), "UnsupportedFormatException");
}

}  // namespace
}  // namespace veldrin::test
