#include <QCheckBox>
#include <QComboBox>
#include <QDropEvent>
#include <QMimeData>
#include <QPushButton>
#include <QWheelEvent>
#include <functional>
#include <string>

#include "tests/qt/QtTest.h"

namespace veldrin::test {
namespace {

using ActsOnDesktopTest = QtTest;

constexpr const char* June21 = "6/21/2024\rSunrise = 05:13\rSunset = 21:11";

TEST_F(ActsOnDesktopTest, AFieldIsLeftByKeyByMouseAndByAButton) {
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

TEST_F(ActsOnDesktopTest, KeysPressTickAndChooseButReturnAndEscapeDoNothing) {
  QTest::keyClick(&widget("BackOneDay"), Qt::Key_Space);
  EXPECT_EQ(status().substr(0, 9), "6/20/2024");
  for (const char* const name : {"BackOneDay", "ForwardOneDay", "GenerateButton", "Latitude"}) {
    widget(name).setFocus();
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape}) {
      QTest::keyClick(&widget(name), key);
    }
  }
  EXPECT_EQ(status().substr(0, 9), "6/20/2024");
  QTest::keyClick(&widget("DaylightSavings"), Qt::Key_Space);
  EXPECT_EQ(status(), "6/20/2024\rSunrise = 04:12\rSunset = 20:11");
  QTest::keyClick(&widget("WhichYear"), Qt::Key_Down);
  EXPECT_EQ(person->shown("WhichYear"), "2009");
  EXPECT_EQ(person->shown("DSTEnd"), "11/1/2009");
}

TEST_F(ActsOnDesktopTest, WhatIsDroppedIsLeftLikeWhatIsTyped) {
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

TEST_F(ActsOnDesktopTest, AWheelChoosesOnlyInTheListThatHasTheFocus) {
  auto& list = widget("WhichYear");
  for (const char* const year : {"2008", "2009"}) {
    QWheelEvent down({5, 5}, list.mapToGlobal(QPoint(5, 5)), {}, {0, -120}, {}, {},
                     Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&list, &down);
    EXPECT_EQ(person->shown("WhichYear"), year);
    list.setFocus();
  }
}

TEST_F(ActsOnDesktopTest, WhatAScreenReaderDoesBehindADialogIsTakenBack) {
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

TEST_F(ActsOnDesktopTest, AnyNumberOfPressesIsAnswered) {
  for (int press = 0; press < 10'000; ++press) widget<QPushButton>("ForwardOneDay").click();
  EXPECT_EQ(status().substr(0, status().find('\r')), "11/7/2051");
}

TEST_F(ActsOnDesktopTest, WhateverIsPastedTheWindowAnswers) {
  const std::string text = std::string(1'000'000, '7') + "\xED\xA0\x80\r\n%s&";
  for (const char* const name : {"Latitude", "DSTStart"}) {
    type(name, text);
    EXPECT_GE(person->shown(name).size(), text.size() - 3);
    QtPerson::window().grab();
  }
  person->press("ForwardOneDay");
  EXPECT_EQ(status().substr(0, 9), "6/22/2024");
}

}  // namespace
}  // namespace veldrin::test
