#include <gmock/gmock.h>

#include <functional>
#include <string>
#include <string_view>

#include "shell/window/Dialogs.h"
#include "tests/support/RuntimeTest.h"
#include "ui/MenuBar1.h"

namespace veldrin::test {
namespace {

using LiveTest = WindowTest;

TEST_F(LiveTest, ADialogSurvivesAWindowThatClosesInDeactivate) {
  const BoundEvent closes(Veldrin::__Lookup(), "Deactivate"_s,
                          [](Object* object) { static_cast<Window&>(*object).Close(); });
  window()->setActive(true);
  MsgBox("The window is closed."_s);
  EXPECT_THAT(toolkit.messages, testing::SizeIs(1));
  EXPECT_TRUE(_WindowSupport.Windows.empty());
}

TEST_F(LiveTest, APropertySetThroughTheTableIsShown) {
  int changes = 0;
  toolkit.onControlChanged = [&](Control&) { ++changes; };
  const struct {
    const char *control, *property;
    Variant value;
    std::string looks;
  } rows[] = {
      {"BackOneDay", "Left", 40, "- @ 40 345 27 20"},
      {"BackOneDay", "Top", 346, "- @ 40 346 27 20"},
      {"BackOneDay", "Width", 50, "- @ 40 346 50 20"},
      {"BackOneDay", "Height", 30, "- @ 40 346 50 30"},
      {"BackOneDay", "Caption", "Back"_s, "Back @ 40 346 50 30"},
      {"BackOneDay", "Bold", true, "Back @ 40 346 50 30 bold"},
      {"BackOneDay", "Enabled", false, "Back @ 40 346 50 30 bold off"},
      {"BackOneDay", "Visible", false, "Back @ 40 346 50 30 hidden bold off"},
      {"StaticText1", "Text", "North"_s, "North @ 56 28 100 20"},
      {"Latitude", "Text", "12"_s, "12 @ 174 26 101 22"},
      {"Latitude", "ReadOnly", true, "12 @ 174 26 101 22"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(std::string(row.control) + "." + row.property);
    const Ref<Object> control = RuntimeWindowControlByName(*window(), String(row.control));
    const int before = changes;
    setValue(control, row.property, row.value);
    setValue(control, row.property, row.value);  // the same value: no call
    EXPECT_EQ(changes, before + 1);
    EXPECT_EQ(person->looks(row.control), row.looks);
  }
  const std::string times = status();
  setValue(window()->DownUnderFlag(), "Value", true);  // the program's change raises no event
  EXPECT_TRUE(person->isTicked("DownUnderFlag"));
  EXPECT_EQ(status(), times);
  setValue(window(), "Title", "Sun"_s);
  EXPECT_EQ(person->title(), "Sun");
  EXPECT_EQ(toolkit.windowChanges, 1);
  window()->Close();
  const int before = changes;
  window()->Latitude()->Text("of a window that opens"_s);
  EXPECT_EQ(changes, before + 1);
}

TEST_F(LiveTest, AFieldHoldsNoMoreCharactersThanItsLimit) {
  const Ref<TextField> field = window()->Latitude();
  const struct {
    std::int32_t limit;
    std::string text, held;
  } rows[] = {{0, "1234", "1234"},
              {-1, "1234", "1234"},
              {3, "12", "12"},
              {3, "1234", "123"},
              {2, "\u00E4\u00F6\u00FC", "\u00E4\u00F6"},
              {2, "1\U0001F305\U0001F306", "1\U0001F305"}};
  for (const auto& row : rows) {
    const std::function<void()> ways[] = {[&] { person->type("Latitude", row.text); },
                                          [&] { field->Text(String(row.text)); },
                                          [&] {
                                            field->LimitText(0);
                                            field->Text(String(row.text));
                                            field->LimitText(row.limit);
                                          }};
    for (const auto& way : ways) {
      field->LimitText(row.limit);
      field->Text(""_s);
      way();
      EXPECT_EQ(text(field->Text()), row.held);
      EXPECT_EQ(person->shown("Latitude"), row.held);
    }
  }
}

TEST_F(LiveTest, MenusFollowTheirItems) {
  const Ref<Veldrin> view = window();
  const Ref<MenuItem> quit = view->FileQuit();
  EXPECT_EQ(person->menuLooks("FileQuit"), "&Quit");
  setValue(quit, "Text", "E&nd"_s);
  setValue(quit, "Checked", true);
  EXPECT_EQ(person->menuLooks("FileQuit"), "E&nd ticked");
  setValue(quit, "Enabled", false);
  EXPECT_EQ(person->menuLooks("FileQuit"), "E&nd ticked off");
  person->command("FileQuit");
  EXPECT_TRUE(view->isOpen());
  // Three levels deep, below an item that had no children.
  Ref<MenuItem> menu = view->FileMenu();
  for (const char* const name : {"Deep", "Deeper", "Deepest"}) {
    const Ref<MenuItem> item = New<MenuItem>();
    item->Name = String(name);
    item->Text(String(name));
    menu->Append(item);
    menu = item;
    EXPECT_EQ(person->menuLooks(name), name);
  }
  const int changes = toolkit.menuChanges;
  const Ref<MenuBar> other = New<MenuBar>();
  EXPECT_EQ(raisedBy([&] { menu->Append(nullptr); }), "NilObjectException");
  EXPECT_EQ(raisedBy([&] { menu->Append(view->FileMenu()); }), "RuntimeException");
  other->Append(menu);
  EXPECT_EQ(toolkit.menuChanges, changes);  // the window does not show `other` yet
  view->MenuBar(other);
  EXPECT_EQ(person->menuLooks("Deep"), "");
  EXPECT_EQ(person->menuLooks("Deepest"), "Deepest");
  view->MenuBar(implicit::MenuBar1());
}

TEST_F(LiveTest, DisabledControlsIgnoreTheUser) {
  const Ref<Veldrin> view = window();
  type("Latitude", "47.5");
  const std::string before = status();
  for (const char* const name :
       {"ForwardOneDay", "DownUnderFlag", "DaylightSavings", "WhichYear"}) {
    setValue(RuntimeWindowControlByName(*view, String(name)), "Enabled", false);
  }
  person->type("Latitude", "12");
  setValue(view->Latitude(), "Enabled", false);  // while it has the focus
  view->ForwardOneDay()->userPressed();
  view->DownUnderFlag()->userTicked(true);
  view->DaylightSavings()->userTicked(false);
  view->WhichYear()->userChose(3);
  view->Latitude()->userTyped("13"_s);
  view->Latitude()->userLeft();
  person->press("ForwardOneDay");
  EXPECT_EQ(status(), before);
  EXPECT_FALSE(person->isTicked("DownUnderFlag"));
  EXPECT_EQ(person->shown("WhichYear"), "2008");
  EXPECT_EQ(person->shown("Latitude"), "12");
  view->WhichYear()->ListIndex(3);  // a change by the program works
  EXPECT_NE(status(), before);
}

/// The receivers that a command was offered to, in order. The receiver `taker` handles it.
std::string asked;
std::string_view taker;

bool ask(std::string_view who) {
  asked.append(who).append(" ");
  return who == taker;
}

template <class Base, FixedString Name>
class Asked final : public Described<Asked<Base, Name>, Base> {
 public:
  static constexpr FixedString FullName = Name;
  bool _HandleMenuCommand(const Ref<MenuItem>& /*item*/) override { return ask(Name.view()); }
};
using AskedWindow = Asked<Window, "window">;
using AskedApplication = Asked<Application, "application">;

using CommandTest = RuntimeTest;

TEST_F(CommandTest, ACommandIsOfferedToReceiversInOrder) {
  _RuntimeRegisterAppObject(New<AskedApplication>());
  const struct {
    std::string_view taker, asked;
    bool hasHandler, isClosed;
  } rows[] = {{"window", "window ", true, false},
              {"application", "window application ", true, false},
              {"", "window application handler ", true, false},
              {"", "window application ", false, true}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.asked);
    const Ref<AskedWindow> view = New<AskedWindow>();
    view->Width(100);
    view->Height(50);
    view->MenuBar(implicit::MenuBar1());
    view->Constructor();
    person->turnToWindow();
    if (row.hasHandler) {
      const auto handler = [](Object* object) {
        EXPECT_TRUE(RuntimeObjectIsa(object, AskedWindow::__Lookup()));
        ask("handler");
      };
      view->_AddMenuHandler(
          "FileQuit"_s,
          RuntimeCreateDelegate(&Delegate::IM_Invoke, reinterpret_cast<Function>(+handler), view,
                                DelegateSignature));
    }
    asked.clear();
    taker = row.taker;
    person->command("FileQuit");
    EXPECT_EQ(asked, row.asked);
    EXPECT_EQ(view->isOpen(), !row.isClosed);
    view->Close();
  }
  MenuBar1::_implicitInstance = nullptr;
}

}  // namespace
}  // namespace veldrin::test
