#include <QClipboard>
#include <QMenu>
#include <string>

#include "tests/qt/QtTest.h"

namespace veldrin::test {
namespace {

class EditMenuTest : public QtTest {
 protected:
  void SetUp() override {
    QtTest::SetUp();
    QApplication::clipboard()->clear();
  }

  /// The letters of the items that can be chosen when the menu opens: Undo, cuT, Copy, Paste,
  /// Delete, select All.
  static std::string enabled() {
    Q_EMIT widget<QMenu>("EditMenu").aboutToShow();
    std::string letters;
    for (const auto& [name, letter] : {std::pair{"EditUndo", 'U'},
                                       {"EditCut", 'T'},
                                       {"EditCopy", 'C'},
                                       {"EditPaste", 'P'},
                                       {"EditClear", 'D'},
                                       {"EditSelectAll", 'A'}}) {
      if (item(name).isEnabled()) letters += letter;
    }
    return letters;
  }
};

TEST_F(EditMenuTest, ItemsAreEnabledAsFarAsTheFieldCanCarryThemOut) {
  field("Latitude").setFocus();
  field("Latitude").deselect();
  EXPECT_EQ(enabled(), "A");
  field("Latitude").selectAll();
  EXPECT_EQ(enabled(), "TCDA");
  item("EditCut").trigger();
  EXPECT_EQ(enabled(), "UP");
  EXPECT_EQ(implicit::Veldrin()->Latitude()->Text(), "");
  item("EditPaste").trigger();
  item("EditPaste").trigger();
  EXPECT_EQ(implicit::Veldrin()->Latitude()->Text(), "47.547.5");
  EXPECT_EQ(enabled(), "UPA");
  item("EditUndo").trigger();
  EXPECT_EQ(implicit::Veldrin()->Latitude()->Text(), "47.5");
  item("EditSelectAll").trigger();
  EXPECT_EQ(enabled(), "UTCPDA");
  item("EditClear").trigger();
  EXPECT_EQ(field("Latitude").text(), "");
  field("TimeZone").setFocus();
  field("TimeZone").selectAll();
  item("EditCopy").trigger();
  EXPECT_EQ(QApplication::clipboard()->text(), "-8");
  // A text that the program sets is nothing to undo.
  QTest::keyClick(&widget("WhichYear"), Qt::Key_Down);
  field("DSTStart").setFocus();
  field("DSTStart").deselect();
  EXPECT_EQ(enabled(), "PA");
  for (const char* const name : {"BackOneDay", "DownUnderFlag", "WhichYear"}) {
    widget(name).setFocus();
    EXPECT_EQ(enabled(), "") << name;
  }
  EXPECT_TRUE(item("FileQuit").isEnabled());
}

TEST_F(EditMenuTest, ShortcutsAreThoseOfTheForm) {
  const struct {
    const char* name;
    const char* text;
    const char* shortcut;
  } rows[] = {{"FileQuit", "&Quit", "Ctrl+Q"},
              {"EditUndo", "&Undo", "Ctrl+Z"},
              {"EditCut", "Cu&t", "Ctrl+X"},
              {"EditCopy", "&Copy", "Ctrl+C"},
              {"EditPaste", "&Paste", "Ctrl+V"},
              {"EditClear", "&Delete", ""},
              {"EditSelectAll", "Select &All", "Ctrl+A"}};
  for (const auto& row : rows) {
    EXPECT_EQ(item(row.name).text(), row.text);
    EXPECT_EQ(item(row.name).shortcut(), QKeySequence(row.shortcut)) << row.name;
  }
  EXPECT_TRUE(item("UntitledMenu0").isSeparator());
  EXPECT_TRUE(item("UntitledMenu1").isSeparator());
}

}  // namespace
}  // namespace veldrin::test
