#include "ui/PropertyStream.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <string>
#include <vector>

#include "tests/support/Form.h"
#include "tests/support/RuntimeTest.h"
#include "tests/support/SoundStream.h"
#include "ui/FormStreams.h"

namespace veldrin::test {
namespace {

using namespace std::string_literals;
using testing::HasSubstr;
using testing::StartsWith;

/// One of the 22 streams, with the class that it is for.
struct Target {
  ClassRecord* record = nullptr;
  std::string bytes;
};

class PropertyStreamTest : public RuntimeTest {
 protected:
  static void SetUpTestSuite() { initializeClasses(); }

  static std::vector<Target> targets() {
    std::vector<Target> all;
    for (const FormObject& object : readForm()) {
      Target& target = all.emplace_back();
      target.record = RuntimeGetClassList();
      while (!(target.record->name == object.kind)) target.record = target.record->nextClass;
      for (const FormEntry& each : object.entries) target.bytes += entry(each.key, each.value);
    }
    return all;
  }

  static void expectSound(ClassRecord* record, const std::string& stream) {
    ASSERT_EQ(unsoundness(record, stream), "");
  }
};

TEST_F(PropertyStreamTest, EveryByteIsThatOfTheForm) {
  const std::vector<Target> all = targets();
  ASSERT_EQ(FormStreams.size(), all.size());
  for (std::size_t place = 0; place < all.size(); ++place) {
    const String stream = FormStreams[place];
    EXPECT_EQ(testing::PrintToString(text(stream)), testing::PrintToString(all[place].bytes));
    EXPECT_EQ(stream.encoding(), 0x08000100U);
    const bool panel = all[place].record == Placard::__Lookup();
    EXPECT_EQ(static_cast<std::uint8_t>(*stream.record()->data), panel ? 218 : 255);
  }
  EXPECT_EQ(WindowStream.record(), FormStreams.back().record());
  EXPECT_THAT(
      text(FormStreams.front()),
      StartsWith(
          "Name \0\0\0\10Placard3Index \x80\0\0\0Left \0\0\0\x15Top \0\0\1\0Width \0\0\1\x35"s));
}

TEST_F(PropertyStreamTest, EveryTruncationAndEveryFlippedByteIsReadSoundly) {
  for (const Target& target : targets()) {
    for (std::size_t place = 0; place < target.bytes.size(); ++place) {
      SCOPED_TRACE(text(target.record->name) + " at byte " + std::to_string(place));
      ASSERT_NO_FATAL_FAILURE(expectSound(target.record, target.bytes.substr(0, place)));
      for (const int mask : {0x01, 0x80, 0xFF}) {
        std::string flipped = target.bytes;
        flipped[place] = static_cast<char>(flipped[place] ^ mask);
        ASSERT_NO_FATAL_FAILURE(expectSound(target.record, flipped));
      }
    }
  }
}

TEST_F(PropertyStreamTest, FaultNamesTheKeyAndTheByte) {
  const struct {
    ClassRecord* record;
    std::string stream, key;
    std::size_t offset;
  } rows[] = {
      {TextField::__Lookup(), "Border \1Colour \0\0\0"s, "Colour", 8},
      {TextField::__Lookup(), "Border"s, "Border", 0},
      {TextField::__Lookup(), " "s, "", 0},
      {TextField::__Lookup(), "Border\0 \1"s, "Border?", 0},
      {TextField::__Lookup(), std::string(1000, 'k'), std::string(40, 'k'), 0},
      {TextField::__Lookup(), "Border \2"s, "Border", 7},
      {TextField::__Lookup(), "Border "s, "Border", 7},
      {TextField::__Lookup(), "Left \0\0\1"s, "Left", 5},
      {TextField::__Lookup(), "Text \xFF\xFF\xFF\xFF"s, "Text", 9},
      {TextField::__Lookup(), "Text \0\0\0\0Text \x7F\xFF\xFF\xFFx"s, "Text", 18},
      {TextField::__Lookup(), "TextSize \0\0\0\0"s, "TextSize", 0},
      {PopupMenu::__Lookup(), "ListCount \0\0\0\1"s, "ListCount", 0},
      {Placard::__Lookup(), "Caption \0\0\0\0"s, "Caption", 0},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(testing::PrintToString(row.stream));
    const StreamContents contents = readPropertyStream(*row.record, row.stream);
    ASSERT_TRUE(contents.fault);
    EXPECT_EQ(contents.fault->key, row.key);
    EXPECT_EQ(contents.fault->offset, row.offset);
    expectSound(row.record, row.stream);
  }
  const Ref<TextField> field = New<TextField>();
  field->Name = "Latitude"_s;
  EXPECT_THAT(faultOf(field, "Left \0\0\0\7Border \2"s),
              HasSubstr("of Latitude is damaged at byte 16, key \"Border\""));
  EXPECT_EQ(field->Left(), 0);
  EXPECT_EQ(raisedBy([] { _SetProperties(nullptr, String()); }), "NilObjectException");
}

TEST_F(PropertyStreamTest, EntriesAreAppliedInOrderWithoutRegardToTheCaseOfTheirKeys) {
  const Ref<StaticText> label = New<StaticText>();
  _SetProperties(label, String());
  const std::string content = "a b\0\x80\xFF Left \0\0\0\1"s;
  _SetProperties(label, String("lEFT \xFF\xFF\xFF\xFEMULTILINE \1textcolor \0\x80\xFF"s +
                               entry("teXt", String(content)) + "Left \0\0\1\xA4"s));
  EXPECT_TRUE(label->MultiLine());
  EXPECT_EQ(label->TextColor(), (Color{0, 0x80, 0xFF}));
  EXPECT_EQ(text(label->Text()), content);
  EXPECT_EQ(label->Left(), 420);
  const Ref<PopupMenu> chooser = New<PopupMenu>();
  _SetProperties(chooser, String(entry("InitialValue", "a\rb\r\rc"_s) + entry("ListIndex", 3)));
  EXPECT_EQ(text(chooser->Text()), "c");
  // The other way round the row is none yet, and of new rows none is selected.
  _SetProperties(chooser, String(entry("ListIndex", 7) + entry("InitialValue", "a\r"_s)));
  EXPECT_EQ(chooser->ListCount(), 1);
  EXPECT_EQ(chooser->ListIndex(), -1);
}

}  // namespace
}  // namespace veldrin::test
