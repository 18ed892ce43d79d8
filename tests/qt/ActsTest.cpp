#include <QAccessible>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDropEvent>
#include <QMenu>
#include <QMimeData>
#include <QPushButton>
#include <QWheelEvent>
#include <functional>
#include <string>

#include "tests/qt/QtPerson.h"

namespace veldrin::test {
namespace {

using ActsOnDesktopTest = QtTest;

constexpr const char* June21 = "6/21/2024\rSunrise = 05:13\rSunset = 21:11";

TEST_F(ActsOnDesktopTest, AFieldLosesTheFocusByKeyMouseOrButton) {
  const struct {
    const char* way;
    std::function<void()> leave;
    const char* day = "6/21/2024";
  } rows[] = {
      {"Tab", [] { QTest::keyClick(&field("Latitude"), Qt::Key_Tab); }},
      {"Shift+Tab", [] { QTest::keyClick(&field("Latitude"), Qt::Key_Backtab); }},
      {"mouse", [] { QTest::mouseClick(&field("DSTStart"), Qt::LeftButton); }},
      {"Alt and mouse",
       [] {
         QTest::keyClick(&field("Latitude"), Qt::Key_Alt);
         QTest::mouseClick(&field("DSTStart"), Qt::LeftButton);
       }},
      {"button", [this] { person->press("ForwardOneDay"); }, "6/22/2024"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.way);
    type("Latitude", "47.5");
    EXPECT_EQ(status(), June21);
    person->type("Latitude", "70");
    EXPECT_EQ(status(), June21);
    row.leave();
    EXPECT_EQ(status(), std::string(row.day) + "\rSunrise = N/A\rSunset = N/A");
  }
}

TEST_F(ActsOnDesktopTest, KeysPressTickAndChoose) {
  // On some desktops Return presses the button that has the focus.
  widget<QPushButton>("BackOneDay").setAutoDefault(true);
  QTest::keyClick(&widget("BackOneDay"), Qt::Key_Return);
  QTest::keyClick(&widget("BackOneDay"), Qt::Key_Space);
  QTest::keyClick(&widget("DaylightSavings"), Qt::Key_Space);
  EXPECT_EQ(status(), "6/20/2024\rSunrise = 04:12\rSunset = 20:11");
  EXPECT_TRUE(QAccessible::queryAccessibleInterface(&widget("DaylightSavings"))->state().checkable);
  QTest::keyClick(&widget("WhichYear"), Qt::Key_Down);
  EXPECT_EQ(person->shown("WhichYear"), "2009");
  EXPECT_EQ(person->shown("DSTEnd"), "11/1/2009");
}

TEST_F(ActsOnDesktopTest, AShortcutChoosesItsMenuItem) {
  static int chosen;
  chosen = 0;
  const Ref<Delegate> count = RuntimeCreateDelegate(
      &Delegate::Invoke, [] { ++chosen; }, nullptr, DelegateSignature);
  QGuiApplication::clipboard()->setText("before");
  field("Latitude").setFocus();
  field("Latitude").selectAll();
  const auto copy = [] { QTest::keyClick(&field("Latitude"), Qt::Key_C, Qt::ControlModifier); };
  window()->_AddMenuHandler("EditCopy"_s, count);
  copy();
  EXPECT_EQ(chosen, 1);
  EXPECT_EQ(QGuiApplication::clipboard()->text(), "before");
  // The handler is called even without a selection to copy.
  field("Latitude").deselect();
  copy();
  EXPECT_EQ(chosen, 2);
  field("Latitude").selectAll();
  window()->_AddMenuHandler("EditCopy"_s, nullptr);
  copy();
  EXPECT_EQ(QGuiApplication::clipboard()->text(), "47.5");
  // The shortcut of a disabled item does nothing.
  window()->EditSelectAll()->AutoEnable = false;
  field("Latitude").deselect();
  QTest::keyClick(&field("Latitude"), Qt::Key_A, Qt::ControlModifier);
  EXPECT_FALSE(field("Latitude").hasSelectedText());
}

TEST_F(ActsOnDesktopTest, ADroppedTextCountsWhenTheFieldLosesTheFocus) {
  widget("BackOneDay").setFocus();
  field("Latitude").setCursorPosition(0);
  QMimeData text;
  text.setText("-");
  QDragEnterEvent enter({1, 1}, Qt::CopyAction, &text, Qt::LeftButton, {});
  QCoreApplication::sendEvent(&field("Latitude"), &enter);
  QDropEvent drop({1.0, 1.0}, Qt::CopyAction, &text, Qt::LeftButton, {});
  QCoreApplication::sendEvent(&field("Latitude"), &drop);
  EXPECT_EQ(person->shown("Latitude"), "-47.5");
  EXPECT_EQ(status(), June21);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  EXPECT_NE(status(), June21);
}

TEST_F(ActsOnDesktopTest, AWheelChangesTheListOnlyIfItHasTheFocus) {
  auto& list = widget("WhichYear");
  for (const char* const year : {"2008", "2009"}) {
    QWheelEvent down({5, 5}, list.mapToGlobal(QPoint(5, 5)), {}, {0, -120}, {}, {},
                     Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&list, &down);
    EXPECT_EQ(person->shown("WhichYear"), year);
    list.setFocus();
  }
}

TEST_F(ActsOnDesktopTest, ChangesByAScreenReaderBehindADialogAreUndone) {
  whenAsked([](QDialog& dialog) {
    widget<QCheckBox>("DownUnderFlag").click();
    widget<QComboBox>("WhichYear").setCurrentIndex(3);
    dialog.reject();
  });
  person->press("GenerateButton");
  EXPECT_FALSE(person->isTicked("DownUnderFlag"));
  EXPECT_EQ(person->shown("WhichYear"), "2008");
  person->tick("DownUnderFlag", true);
  EXPECT_TRUE(window()->DownUnderFlag()->Value());
}

TEST_F(ActsOnDesktopTest, TenThousandPressesMoveTenThousandDays) {
  for (int press = 0; press < 10'000; ++press) widget<QPushButton>("ForwardOneDay").click();
  EXPECT_EQ(status().substr(0, status().find('\r')), "11/7/2051");
}

TEST_F(ActsOnDesktopTest, TheWindowKeepsWorkingAfterALongPaste) {
  const std::string text = std::string(1'000'000, '7') + "\xED\xA0\x80\r\n%s&";
  for (const char* const name : {"Latitude", "DSTStart"}) {
    type(name, text);
    EXPECT_GE(person->shown(name).size(), text.size() - 3);
    QtPerson::window().grab();
  }
  person->press("ForwardOneDay");
  EXPECT_EQ(status().substr(0, 9), "6/22/2024");
}

/// The letters of the items that are enabled when the menu opens: Undo, cuT, Copy, Paste, Delete,
/// select All.
std::string enabledLetters() {
  Q_EMIT QtPerson::widget<QMenu>("EditMenu").aboutToShow();
  std::string letters;
  for (const auto& [name, letter] : {std::pair{"EditUndo", 'U'},
                                     {"EditCut", 'T'},
                                     {"EditCopy", 'C'},
                                     {"EditPaste", 'P'},
                                     {"EditClear", 'D'},
                                     {"EditSelectAll", 'A'}}) {
    if (QtPerson::widget<QAction>(name).isEnabled()) letters += letter;
  }
  return letters;
}

using EditMenuTest = QtTest;

TEST_F(EditMenuTest, ItemsAreEnabledIfTheFieldCanCarryThemOut) {
  QApplication::clipboard()->clear();
  field("Latitude").setFocus();
  field("Latitude").deselect();
  EXPECT_EQ(enabledLetters(), "A");
  field("Latitude").selectAll();
  EXPECT_EQ(enabledLetters(), "TCDA");
  item("EditCut").trigger();
  EXPECT_EQ(enabledLetters(), "UP");
  EXPECT_EQ(window()->Latitude()->Text(), "");
  item("EditPaste").trigger();
  item("EditPaste").trigger();
  EXPECT_EQ(window()->Latitude()->Text(), "47.547.5");
  EXPECT_EQ(enabledLetters(), "UPA");
  item("EditUndo").trigger();
  EXPECT_EQ(window()->Latitude()->Text(), "47.5");
  item("EditSelectAll").trigger();
  EXPECT_EQ(enabledLetters(), "UTCPDA");
  item("EditClear").trigger();
  EXPECT_EQ(field("Latitude").text(), "");
  field("TimeZone").setFocus();
  field("TimeZone").selectAll();
  item("EditCopy").trigger();
  EXPECT_EQ(QApplication::clipboard()->text(), "-8");
  // A change by the program cannot be undone.
  QTest::keyClick(&widget("WhichYear"), Qt::Key_Down);
  field("DSTStart").setFocus();
  field("DSTStart").deselect();
  EXPECT_EQ(enabledLetters(), "PA");
  field("DSTStart").setReadOnly(true);
  EXPECT_EQ(enabledLetters(), "A");
  for (const char* const name : {"BackOneDay", "DownUnderFlag", "WhichYear"}) {
    widget(name).setFocus();
    EXPECT_EQ(enabledLetters(), "") << name;
  }
  EXPECT_TRUE(item("FileQuit").isEnabled());
  EXPECT_TRUE(item("UntitledMenu0").isSeparator());
}

}  // namespace
}  // namespace veldrin::test
