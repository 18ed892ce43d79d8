#include <QLabel>
#include <clocale>
#include <set>
#include <string>
#include <string_view>

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

/// The properties that differ from the defaults: alignment, font, colours, and kind of field.
std::string look(std::string_view name) {
  const QWidget& shown = QtPerson::widget(name);
  const bool isField = qobject_cast<const QLineEdit*>(&shown) != nullptr;
  std::string text;
  const auto add = [&](bool isSo, const QString& word) {
    if (isSo) text += (text.empty() ? "" : " ") + word.toStdString();
  };
  const auto alignment = shown.property("alignment").value<Qt::Alignment>();
  add(alignment.testFlag(Qt::AlignRight), "right");
  add(alignment.testFlag(Qt::AlignHCenter), "centre");
  const QFont& font = shown.font();
  add(font.family() != QApplication::font().family(), font.family());
  add(font.bold(), "bold");
  add(font.italic(), "italic");
  add(font.underline(), "underline");
  for (const auto role : {isField ? QPalette::Text : QPalette::WindowText,
                          isField ? QPalette::Base : QPalette::Window}) {
    const QColor colour = shown.palette().color(role);
    add(colour != QApplication::palette().color(role), colour.name());
  }
  add(isField && !shown.property("frame").toBool(), "frameless");
  add(shown.property("readOnly").toBool(), "read-only");
  add(shown.property("echoMode").toInt() == QLineEdit::Password, "password");
  const QString cue = shown.property("placeholderText").toString();
  add(!cue.isEmpty(), cue);
  return text;
}

TEST_F(FormOnDesktopTest, ControlsLookAsTheFormAndTheProgramSay) {
  const std::set<std::string_view> right{"StaticText1", "StaticText2", "StaticText4", "StaticText5",
                                         "StaticText6"};
  for (const ControlRow& row : FormTable) {
    const std::string expected = row.name == "Status"       ? "centre"
                                 : right.contains(row.name) ? "right"
                                                            : "";
    EXPECT_EQ(look(row.name), expected) << row.name;
  }
  const struct {
    const char *control, *property;
    Variant value;
    std::string look;
  } rows[] = {{"StaticText1", "TextAlign", 0, ""},
              {"StaticText1", "TextAlign", 3, ""},
              {"StaticText1", "Bold", true, "bold"},
              {"StaticText1", "Italic", true, "bold italic"},
              {"StaticText1", "TextColor", Color{0, 0, 255}, "bold italic #0000ff"},
              {"Latitude", "Alignment", 2, "centre"},
              {"Latitude", "Alignment", 3, "right"},
              {"Latitude", "Alignment", 4, ""},
              {"Latitude", "TextColor", Color{1, 2, 3}, "#010203"},
              {"Latitude", "BackColor", Color{4, 5, 6}, "#010203 #040506"},
              {"Latitude", "TextColor", Black, "#040506"},
              {"Latitude", "BackColor", White, ""},
              {"Latitude", "Border", false, "frameless"},
              {"Latitude", "ReadOnly", true, "frameless read-only"},
              {"Latitude", "Password", true, "frameless read-only password"},
              {"Latitude", "CueText", "north"_s, "frameless read-only password north"},
              {"GenerateButton", "Underline", true, "underline"},
              {"GenerateButton", "TextFont", "Courier"_s, "Courier underline"},
              {"DownUnderFlag", "Bold", true, "bold"}};
  for (const auto& row : rows) {
    setValue(RuntimeWindowControlByName(*window(), String(row.control)), row.property, row.value);
    EXPECT_EQ(look(row.control), row.look) << row.control << '.' << row.property;
  }
}

TEST_F(FormOnDesktopTest, FramesAreVisibleOnADarkDesktopAndOnePixelWide) {
  const QPalette before = QApplication::palette();
  for (const QColor& ground : {QColor(42, 46, 50), QColor(Qt::black)}) {
    SCOPED_TRACE(ground.name().toStdString());
    QApplication::setPalette(QPalette(ground, ground));
    QCoreApplication::processEvents();
    const QImage picture = QtPerson::window().centralWidget()->grab().toImage();
    const auto isLine = [&](int x, int y) {
      return picture.pixelColor(x, y).lightnessF() - ground.lightnessF() > 0.25F;
    };
    for (const char* const name : {"Placard1", "Placard2", "Placard3"}) {
      const QRect panel = widget(name).geometry();
      const QRect inside = panel.adjusted(1, 1, -1, -1);
      const QRect around = panel.adjusted(-1, -1, 1, 1);
      for (int y = around.top(); y <= around.bottom(); ++y) {
        for (int x = around.left(); x <= around.right(); ++x) {
          if (inside.adjusted(1, 1, -1, -1).contains(x, y)) continue;
          const bool isEdge = panel.contains(x, y) && !inside.contains(x, y);
          ASSERT_EQ(isLine(x, y), isEdge) << name << " at " << x << ' ' << y;
        }
      }
    }
    for (const char* const name : {"Longitude", "DownUnderFlag"}) {
      const QRect place = widget(name).geometry();
      const int y = place.center().y();
      const int x = place.left();
      EXPECT_TRUE(isLine(x, y) || isLine(x + 1, y) || isLine(x + 2, y)) << name;
    }
  }
  QApplication::setPalette(before);
}

TEST_F(FormOnDesktopTest, TheIconHasTheSizesOfPanelsAndLists) {
  for (const int size : {16, 32, 48, 128}) {
    const QImage picture = QtPerson::window().windowIcon().pixmap(size).toImage();
    ASSERT_EQ(picture.size(), QSize(size, size));
    EXPECT_EQ(picture.pixelColor(size / 2, size / 2), QColor("#ffd75e")) << "the sun at " << size;
    EXPECT_EQ(picture.pixelColor(0, 0).alpha(), 0) << "the corner at " << size;
  }
}

TEST_F(FormOnDesktopTest, NumbersOfTheCLibraryHaveADecimalPoint) {
  EXPECT_STREQ(std::setlocale(LC_NUMERIC, nullptr), "C");
}

TEST(DisplayErrorGuardTest, OneSentenceAndStatus1) {
  // No display is set, or the display does not answer.
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
  // The control keeps invalid UTF-8 unchanged.
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
  QEvent activation(QEvent::WindowActivate);  // raises neither "Moved" nor another of these
  QApplication::sendEvent(&QtPerson::window(), &activation);
  EXPECT_EQ(heard, "x left moved small large");
}

}  // namespace
}  // namespace veldrin::test
