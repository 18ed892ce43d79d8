#include "ui/PropertyStream.h"

#include <gmock/gmock.h>

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

class PropertyStreamTest : public RuntimeTest {
 protected:
  static void SetUpTestSuite() { initializeClasses(); }
};

TEST_F(PropertyStreamTest, EachStreamHasTheReferenceBytes) {
  const std::vector<FormStream> streams = readForm();
  ASSERT_EQ(FormStreams.size(), streams.size());
  for (std::size_t place = 0; place < streams.size(); ++place) {
    const auto& [kind, name, sizeAndChecksum, bytes] = streams[place];
    SCOPED_TRACE(name);
    const String stream = FormStreams[place];
    const std::string actual = text(stream);
    EXPECT_EQ(std::to_string(actual.size()) + " " + checksumOf(actual), sizeAndChecksum);
    if (!bytes.empty()) {
      EXPECT_EQ(testing::PrintToString(actual), testing::PrintToString(bytes));
    }
    ClassRecord* record = Veldrin::__Lookup();
    for (ClassRecord* const each : controlClasses()) record = each->name == kind ? each : record;
    EXPECT_EQ(unsoundness(record, actual), "");
    EXPECT_EQ(stream.encoding(), 0x08000100U);
    EXPECT_EQ(static_cast<std::uint8_t>(*stream.record()->data), kind == "Placard" ? 218 : 255);
  }
  EXPECT_EQ(WindowStream.record(), FormStreams.back().record());
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
    EXPECT_EQ(unsoundness(row.record, row.stream), "");
  }
  const Ref<TextField> field = New<TextField>();
  field->Name = "Latitude"_s;
  EXPECT_THAT(faultOf(field, "Left \0\0\0\7Border \2"s),
              HasSubstr("of Latitude is damaged at byte 16, key \"Border\""));
  EXPECT_EQ(field->Left(), 0);
  EXPECT_EQ(raisedBy([] { _SetProperties(nullptr, String()); }), "NilObjectException");
}

TEST_F(PropertyStreamTest, EntriesAreAppliedInOrderWithKeysInAnyCase) {
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
  EXPECT_EQ(raisedBy([&] { static_cast<void>(chooser->List(4)); }), "OutOfBoundsException");
  chooser->ListIndex(4);
  EXPECT_EQ(chooser->ListIndex(), -1);
  // A "ListIndex" before its rows exist selects none, and new rows are not selected.
  _SetProperties(chooser, String(entry("ListIndex", 7) + entry("InitialValue", "a\r"_s)));
  EXPECT_EQ(chooser->ListCount(), 1);
  EXPECT_EQ(chooser->ListIndex(), -1);
}

}  // namespace
}  // namespace veldrin::test
