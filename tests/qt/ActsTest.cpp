#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <functional>
#include <string>

#include "tests/support/QtTest.h"

namespace veldrin::test {
namespace {

using ActsOnDesktopTest = QtTest;

constexpr const char* June21 = "6/21/2024\rSunrise = 05:13\rSunset = 21:11";
constexpr const char* PolarDay = "6/21/2024\rSunrise = N/A\rSunset = N/A";

TEST_F(ActsOnDesktopTest, ATypedPlaceCountsOnceTheFieldIsLeft) {
  const struct {
    const char* way;
    std::function<void()> leave;
  } rows[] = {
      {"Tab", [] { QTest::keyClick(&field("Latitude"), Qt::Key_Tab); }},
      {"Shift+Tab", [] { QTest::keyClick(&field("Latitude"), Qt::Key_Backtab); }},
      {"mouse", [] { click("DSTStart"); }},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.way);
    EXPECT_EQ(status(), June21);
    type("Latitude", "70");
    EXPECT_EQ(status(), June21);
    row.leave();
    EXPECT_EQ(status(), PolarDay);
    type("Latitude", "47.5");
    row.leave();
  }
  type("Latitude", "70");
  click("ForwardOneDay");
  EXPECT_EQ(status(), "6/22/2024\rSunrise = N/A\rSunset = N/A");
}

TEST_F(ActsOnDesktopTest, AFieldKeepsItsSelectionAndIsNotLeftForAMenu) {
  type("Latitude", "70");
  field("Latitude").selectAll();
  for (const Qt::FocusReason reason : {Qt::MenuBarFocusReason, Qt::PopupFocusReason}) {
    QFocusEvent toMenu(QEvent::FocusOut, reason);
    QCoreApplication::sendEvent(&field("Latitude"), &toMenu);
    EXPECT_EQ(field("Latitude").selectedText().toStdString(), "70");
    EXPECT_EQ(status(), June21);
  }
}

TEST_F(ActsOnDesktopTest, ButtonsStepTheDayByMouseAndByBlankOnly) {
  click("ForwardOneDay");
  click("ForwardOneDay");
  EXPECT_EQ(status().substr(0, 9), "6/23/2024");
  QTest::keyClick(&widget("BackOneDay"), Qt::Key_Space);
  EXPECT_EQ(status().substr(0, 9), "6/22/2024");
  for (const char* const name : {"BackOneDay", "ForwardOneDay", "GenerateButton", "Latitude"}) {
    widget(name).setFocus();
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape}) {
      QTest::keyClick(&widget(name), key);
    }
  }
  EXPECT_EQ(status().substr(0, 9), "6/22/2024");
  for (int press = 0; press < 10'000; ++press) widget<QPushButton>("ForwardOneDay").click();
  EXPECT_EQ(status().substr(0, status().find('\r')), "11/8/2051");
  EXPECT_EQ(widget<QLabel>("Status").text().replace('\n', '\r').toStdString(), status());
}

TEST_F(ActsOnDesktopTest, TickAndChoiceCountAtOnce) {
  click("DaylightSavings");
  EXPECT_FALSE(implicit::Veldrin()->DaylightSavings()->Value());
  EXPECT_EQ(status(), "6/21/2024\rSunrise = 04:13\rSunset = 20:11");
  QTest::keyClick(&widget("DaylightSavings"), Qt::Key_Space);
  EXPECT_EQ(status(), June21);
  auto& chooser = widget<QComboBox>("WhichYear");
  EXPECT_EQ(chooser.count(), 13);
  QTest::keyClick(&chooser, Qt::Key_Down);
  EXPECT_EQ(chooser.currentText(), "2009");
  EXPECT_EQ(field("DSTStart").text(), "3/8/2009");
  EXPECT_EQ(field("DSTEnd").text(), "11/1/2009");
}

TEST_F(ActsOnDesktopTest, WhateverIsPastedTheWindowAnswers) {
  QApplication::clipboard()->setText(QString(1'000'000, '7') + QString(QChar(0xD800)) + "\r\n%s&");
  for (const char* const name : {"Latitude", "DSTStart"}) {
    field(name).setFocus();
    field(name).selectAll();
    QTest::keyClick(&field(name), Qt::Key_V, Qt::ControlModifier);
    EXPECT_GE(field(name).text().size(), 1'000'000);
    window().grab();
  }
  click("ForwardOneDay");
  EXPECT_EQ(status().substr(0, 9), "6/22/2024");
}

TEST_F(ActsOnDesktopTest, CtrlQAndTheCloseBoxEndTheProgram) {
  const std::function<void()> ways[] = {
      [] { QTest::keyClick(&field("Latitude"), Qt::Key_Q, Qt::ControlModifier); },
      [] { window().close(); },
  };
  for (const auto& way : ways) {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    static_cast<void>(implicit::Veldrin());
    QApplication::setActiveWindow(&window());
    type("Latitude", "12");
    QTimer::singleShot(0, &window(), way);
    toolkit.run();
    EXPECT_TRUE(runtime._WindowSupport.Windows.empty());
  }
}

}  // namespace
}  // namespace veldrin::test
