#include <QLabel>
#include <algorithm>
#include <clocale>
#include <string>

#include "daystatus/FormParts.h"
#include "tests/qt/QtPerson.h"
#include "tests/support/Programs.h"

namespace veldrin::test {
namespace {

using FormOnDesktopTest = QtTest;

TEST_F(FormOnDesktopTest, TheWindowCanBeClosedAndMinimizedAndKeepsItsSize) {
  EXPECT_EQ(QtPerson::window().minimumSize(), QtPerson::window().maximumSize());
  const Qt::WindowFlags flags = QtPerson::window().windowFlags();
  EXPECT_TRUE(flags.testFlag(Qt::WindowCloseButtonHint));
  EXPECT_TRUE(flags.testFlag(Qt::WindowMinimizeButtonHint));
  EXPECT_FALSE(flags.testFlag(Qt::WindowMaximizeButtonHint));
}

TEST_F(FormOnDesktopTest, EveryTextFitsAtUsualFontSizes) {
  const QFont before = QApplication::font();
  for (const int points : {9, 10, 11, 16}) {
    QFont font = before;
    font.setPointSize(points);
    QApplication::setFont(font);
    QCoreApplication::processEvents();
    for (const ControlRow& row : FormTable) {
      const auto* const label =
          QtPerson::window().findChild<QLabel*>(QString::fromStdString(std::string(row.name)));
      if (label == nullptr) continue;
      const QSize text = label->fontMetrics().size(0, label->text());
      EXPECT_LE(text.width(), row.width) << row.name << " at " << points;
      EXPECT_LE(text.height(), row.height + 2) << row.name << " at " << points;
    }
    EXPECT_GE(QFontInfo(widget("Latitude").font()).pixelSize(), 11);
    EXPECT_EQ(widget("StaticText7").font().pointSizeF(), 9.0);
  }
  QApplication::setFont(before);
}

TEST_F(FormOnDesktopTest, FramesAreVisibleOnADarkDesktop) {
  const QPalette before = QApplication::palette();
  for (const QColor& ground : {QColor(42, 46, 50), QColor(Qt::black)}) {
    QApplication::setPalette(QPalette(ground, ground));
    QCoreApplication::processEvents();
    const QImage picture = QtPerson::window().centralWidget()->grab().toImage();
    const QRect panel = widget("Placard1").geometry();
    for (const QPoint at :
         {QPoint(panel.left(), panel.center().y()), QPoint(panel.right(), panel.center().y()),
          QPoint(panel.center().x(), panel.top()), QPoint(panel.center().x(), panel.bottom())}) {
      EXPECT_GT(picture.pixelColor(at).lightnessF() - ground.lightnessF(), 0.25F)
          << "the panel at " << at.x() << ' ' << at.y() << " on " << ground.name().toStdString();
    }
    for (const char* const name : {"Longitude", "DownUnderFlag"}) {
      // The first pixels from the left edge, in the middle row.
      const QRect place = widget(name).geometry();
      float brightest = 0.0F;
      for (int x = place.left(); x < place.left() + 3; ++x) {
        brightest = std::max(brightest, picture.pixelColor(x, place.center().y()).lightnessF());
      }
      EXPECT_GT(brightest - ground.lightnessF(), 0.25F)
          << name << " on " << ground.name().toStdString();
    }
  }
  QApplication::setPalette(before);
}

TEST_F(FormOnDesktopTest, TheIconIsThereAtTheSizesOfPanelsAndLists) {
  for (const int size : {16, 32, 48, 128}) {
    const QImage picture = QtPerson::window().windowIcon().pixmap(size).toImage();
    ASSERT_EQ(picture.size(), QSize(size, size));
    EXPECT_EQ(picture.pixelColor(size / 2, size / 2), QColor("#ffd75e")) << "the sun at " << size;
    EXPECT_EQ(picture.pixelColor(0, 0).alpha(), 0) << "the corner at " << size;
  }
}

TEST_F(FormOnDesktopTest, NumbersOfTheCLibraryKeepTheirPoint) {
  EXPECT_STREQ(std::setlocale(LC_NUMERIC, nullptr), "C");
}

TEST(NoDisplayTest, TheProgramSaysSoInOneSentenceAndEndsWithStatus1) {
  // No display is set; no display answers.
  for (const std::string setting : {"unset DISPLAY", "export DISPLAY=:4242"}) {
    SCOPED_TRACE(setting);
    const Outcome run = runScript("unset QT_QPA_PLATFORM WAYLAND_DISPLAY XDG_SESSION_TYPE; " +
                                  setting + "; exec '" VELDRIN "'");
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.output + run.errors,
              "veldrin: there is no display to show a window on; "
              "veldrin-calendar writes a calendar without one\n");
  }
}

TEST_F(FormOnDesktopTest, AChangedFieldKeepsItsSelectionAndUndo) {
  const Ref<TextField> field = window()->Latitude();
  QLineEdit& shown = QtTest::field("Latitude");
  shown.setFocus();
  QTest::keyClicks(&shown, "12");
  shown.setSelection(0, 1);
  field->Top(field->Top() + 1);
  field->Bold(true);
  EXPECT_EQ(shown.selectedText(), "1");
  EXPECT_TRUE(shown.isUndoAvailable());
  // Invalid UTF-8 stays as the program has set it.
  field->Text(String("\xFF"));
  EXPECT_EQ(text(field->Text()), "\xFF");
  const double points = shown.font().pointSizeF();
  for (const float size : {5.0F, 1e30F, 0.0F}) {
    field->TextSize(size);
    EXPECT_LE(shown.font().pointSizeF(), size == 5.0F ? 5.0 : 2 * points) << size;
  }
  EXPECT_EQ(shown.font().pointSizeF(), points);
}

TEST_F(FormOnDesktopTest, ARemovedControlDisappears) {
  {
    const BoundEvent bound(TextField::__Lookup(), "Open"_s, [](Object* opened) {
      const Ref<Control> field = CheckCast<Control>(Ref<Object>(opened));
      if (text(field->Name) == "Latitude") field->Window()->_AddControl("Second"_s, field);
    });
    reopen();
  }
  const QWidget& shown = widget("Second");
  ASSERT_TRUE(shown.isVisible());
  EXPECT_EQ(QtPerson::window().findChildren<QLineEdit*>("Second").size(), 1);
  window()->_RemoveControl(window()->Latitude());
  EXPECT_FALSE(shown.isVisible());
  // "&" in a label is an ordinary character.
  const Ref<StaticText> label = control<"StaticText2">(*window());
  label->Text("R&D"_s);
  EXPECT_EQ(widget<QLabel>("StaticText2").text(), "R&&D");
}

TEST_F(FormOnDesktopTest, TheWindowRaisesTheEventsOfTheDesktop) {
  static std::string heard;
  heard.clear();
  ClassRecord* const record = Veldrin::__Lookup();
  const BoundEvent bound[] = {
      {record, "KeyDown"_s, [](Object*, const String& key) { return heard += text(key), true; }},
      {record, "Moved"_s, [](Object*) { heard += " moved"; }},
      {record, "Minimize"_s, [](Object*) { heard += " small"; }},
      {record, "Restore"_s, [](Object*) { heard += " large"; }},
      {PushButton::__Lookup(), "LostFocus"_s, [](Object*) { heard += " left"; }}};
  widget("BackOneDay").setFocus();
  QTest::keyClicks(&widget("BackOneDay"), "x");
  widget("WhichYear").setFocus();
  QtPerson::window().move(30, 40);
  QtPerson::window().showMinimized();
  QtPerson::window().showNormal();
  EXPECT_EQ(heard, "x left moved small large");
}

}  // namespace
}  // namespace veldrin::test
