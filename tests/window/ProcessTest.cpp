#include <gmock/gmock.h>

#include <cerrno>
#include <deque>
#include <string>
#include <utility>

#include "daystatus/FormParts.h"
#include "reflection/Registry.h"
#include "shell/window/Dialogs.h"
#include "shell/window/PluginEntries.h"
#include "tests/support/ProcessTest.h"

namespace veldrin::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

TEST_F(ProcessTest, StartAndEndRunTheirStepsInOrder) {
  static std::string steps;
  static const WatchedToolkit* shown;
  steps.clear();
  shown = &toolkit;
  ApplicationParts parts;
  parts.initialize = [] {
    steps += "initialize ";
    EXPECT_TRUE(InForce<Host>::exists() && InForce<Toolkit>::exists() && pluginEntries().empty());
    VeldrinParts.initialize();
  };
  parts.initFileTypes = [] {
    steps += "initFileTypes ";
    EXPECT_TRUE(pluginEntries().size() == 29U && !OutputFile::Calendar());
    VeldrinParts.initFileTypes();
  };
  parts.menuBar = [] {
    steps += "menuBar ";
    EXPECT_TRUE(OutputFile::Calendar() && !registeredApplication());
    return VeldrinParts.menuBar();
  };
  parts.makeView = [] {
    steps += "makeView ";
    EXPECT_TRUE(registeredApplication() && _WindowSupport.Windows.empty());
    VeldrinParts.makeView();
  };
  parts.finalize = [] {
    steps += "finalize";
    EXPECT_THAT(shown->steps, ElementsAre("windowOpened"));  // the window is still open
    VeldrinParts.finalize();
    EXPECT_TRUE(registeredApplication());
  };
  initializeClasses();
  try {
    InForce<Session>::get();
    FAIL() << "there is a session before the process";
  } catch (const FatalFault& fault) {
    EXPECT_STREQ(fault.what(), "The program uses a session before there is one.");
  }
  const BoundEvent bound[] = {{App::__Lookup(), "Open"_s, [](Object*) { steps += "Open "; }},
                              {App::__Lookup(), "Close"_s, [](Object*) { steps += "Close "; }}};
  const auto firstEvent = [&] {
    steps += "run ";
    const Ref<Application> application = registeredApplication();
    EXPECT_EQ(text(application->classRecord()->name), "App");
    EXPECT_FALSE(application->AutoQuit);
    EXPECT_EQ(application->MenuBar(), MenuBar1::_implicitInstance);
    ASSERT_EQ(_WindowSupport.Windows.size(), 1U);
    EXPECT_EQ(_WindowSupport.Windows[0]->referenceCount(), 1);
    EXPECT_EQ(_WindowSupport.Windows[0], window());
    EXPECT_EQ(person->shown("Status"), "6/21/2024\rSunrise = 05:13\rSunset = 21:11");
    EXPECT_THAT(toolkit.steps, ElementsAre("windowOpened"));
  };
  EXPECT_EQ(run(firstEvent, parts), 0);
  EXPECT_EQ(steps, "initialize initFileTypes menuBar makeView Open run Close finalize");
  EXPECT_THAT(toolkit.reports, IsEmpty());
  EXPECT_THAT(toolkit.steps, ElementsAre("windowOpened", "windowClosed"));
}

/// The names of the destroyed sentinels, in order.
std::string released;

/// A key, an item or an object in a global. Appends its name to `released` when it is destroyed.
class Sentinel final : public Described<Sentinel, MenuItem> {
 public:
  static constexpr FixedString FullName = "Sentinel";
  static Ref<Sentinel> named(const StringConstant& name) {
    Ref<Sentinel> made = New<Sentinel>();
    made->Name = name;
    return made;
  }
  void Destructor() {
    EXPECT_TRUE(OutputFile::Calendar()) << text(Name);  // released last
    released += text(Name) + " ";
  }
};

TEST_F(ProcessTest, FinalizeReleasesTheGlobalsInOrder) {
  using Introspection::Registry;
  released.clear();
  const auto fillGlobals = [] {
    const auto map = [](const StringConstant& name) {
      Ref<Dictionary> made = New<Dictionary>();
      made->Value(Sentinel::named(name), true);
      return made;
    };
    _mImplicitWindowList = map("implicit windows"_s);
    _WindowSupport.mDirtyWindows = map("dirty windows"_s);
    window()->_AddMenuHandler(
        "FileQuit"_s, RuntimeCreateDelegate(&Delegate::IM_Invoke, nullptr,
                                            Sentinel::named("windows"_s), DelegateSignature));
    Registry::mArrayMap = map("arrays"_s);
    Registry::sClassFQNToRefMap = map("class names"_s);
    Registry::sClassRefMap = map("classes"_s);
    MenuBar1::_implicitInstance->Append(Sentinel::named("menu bar"_s));
    registeredApplication()->MenuBar(nullptr);  // the application also refers to the bar
  };
  EXPECT_EQ(run(fillGlobals), 0);
  EXPECT_EQ(released,
            "implicit windows dirty windows windows arrays class names classes menu bar ");
}

TEST_F(ProcessTest, OpeningRaisesTheEventsInOrder) {
  static std::string events;
  static Function create;
  events.clear();
  initializeClasses();
  ClassRecord* const record = Veldrin::__Lookup();
  create = record->eventRows[1].handler;
  // In parentheses: the year that the chooser shows at that moment.
  static const auto note = [](std::string_view what, Window* view) {
    const Ref<PopupMenu> chooser = static_cast<Veldrin&>(*view).WhichYear();
    events.append(what).append(chooser ? "(" + text(chooser->Text()) + ") " : " ");
  };
  const auto opened = [](Object* object) {
    const auto& control = static_cast<Control&>(*object);
    note(control.Name.view(), control.Window().get());
  };
  const BoundEvent bound[] = {
      {record, "CreateControls"_s,
       [](Object* object) {
         const auto& view = static_cast<Veldrin&>(*object);
         EXPECT_TRUE(view.MenuBar() == implicit::MenuBar1() && view.Title() == "Veldrin");
         note("CreateControls", static_cast<Window*>(object));
         reinterpret_cast<EventHandler>(create)(object);
       }},
      {record, "AddMenuHandlers"_s,
       [](Object* object) { note("AddMenuHandlers", static_cast<Window*>(object)); }},
      {record, "SetupBindings"_s,
       [](Object* object) { note("SetupBindings", static_cast<Window*>(object)); }},
      {record, "Open"_s, [](Object* object) {
         const auto& view = static_cast<Veldrin&>(*object);
         EXPECT_TRUE(view.Pi == 0.0 && view.statusDate);  // made by the chooser's "Change"
         note("Open", static_cast<Window*>(object));
       }}};
  std::deque<BoundEvent> ofControls;
  for (ClassRecord* const kind : controlClasses()) {
    ofControls.emplace_back(kind, "Open"_s, opened);
  }
  host.setClock({2014, 6, 21, 12, 0, 0});
  EXPECT_EQ(run([] {}), 0);
  // Controls open in the order of creation. "WhichYear" selects the current year when it opens.
  std::string expected = "CreateControls AddMenuHandlers(2008) SetupBindings(2008) ";
  std::string year = "(2008) ";
  for (const ControlRow& row : FormTable) {
    if (row.name == "WhichYear") {
      year = "(2014) ";
    } else {
      expected += std::string(row.name) + year;
    }
  }
  EXPECT_EQ(events, expected + "Open(2014) ");
}

TEST_F(ProcessTest, TheLastWindowEndsTheApplicationUnlessTheMenuBarStays) {
  for (const bool ownMenuBar : {false, true}) {
    for (const bool autoQuit : {false, true}) {
      toolkit.ownMenuBar = ownMenuBar;
      EXPECT_EQ(run([&] {
                  registeredApplication()->AutoQuit = autoQuit;
                  _mImplicitWindowList = New<Dictionary>();
                  _mImplicitWindowList->Value("Veldrin.Veldrin"_s, window());
                  const Ref<Veldrin> view = window();
                  const Ref<TextField> field = view->Latitude();
                  view->setActive(false);
                  const std::int64_t yields = toolkit.backgroundTasks;
                  EXPECT_TRUE(view->_UnifiedClose(false));
                  EXPECT_EQ(toolkit.backgroundTasks - yields, std::ssize(FormTable));
                  EXPECT_EQ(_mImplicitWindowList->Count(), 0);
                  EXPECT_EQ(view->referenceCount() + field->referenceCount(), 2);
                  EXPECT_TRUE(view->controls().empty() && _WindowSupport.Windows.empty());
                  view->Close();  // does nothing
                  const bool hasQuit = !ownMenuBar || autoQuit;
                  EXPECT_EQ(toolkit.steps.back(), hasQuit ? "quit" : "windowClosed");
                  const Ref<MenuBar> bar = registeredApplication()->MenuBar();
                  EXPECT_TRUE(bar->_Lookup("FileQuit"_s)->userChose());
                  EXPECT_EQ(toolkit.steps.back(), "quit");
                }),
                0);
    }
  }
}

TEST_F(ProcessTest, EventsOfApplicationAndWindowAreRaisedInOrder) {
  initializeClasses();
  static std::string heard;
  static bool applicationRefuses;
  static int refusalsOfTheWindow;
  heard.clear();
  applicationRefuses = true;
  refusalsOfTheWindow = 2;
  ClassRecord* const app = App::__Lookup();
  ClassRecord* const view = Veldrin::__Lookup();
  const BoundEvent bound[] = {
      {app, "Open"_s, [](Object*) { heard += window()->isOpen() ? "Open " : "too early "; }},
      {app, "Close"_s, [](Object*) { heard += "Close "; }},
      {app, "CancelClose"_s,
       [](Object*) {
         heard += "CancelClose ";
         return std::exchange(applicationRefuses, false);
       }},
      {view, "CancelClose"_s,
       [](Object* object, bool quitting) {
         heard += quitting ? "(asked) " : "(asked alone) ";
         static_cast<Window&>(*object).Close();  // ignored, because the window is closing
         return refusalsOfTheWindow-- > 0;
       }},
      {view, "Activate"_s, [](Object*) { heard += "(active) "; }},
      {view, "Deactivate"_s, [](Object*) { heard += "(inactive) "; }},
      {view, "Close"_s,
       [](Object* object) {
         static_cast<Window&>(*object).Close();
         heard += static_cast<Window&>(*object).isOpen() ? "(closes) " : "(closed) ";
       }},
      {PushButton::__Lookup(), "Close"_s, [](Object* object) {
         auto& button = static_cast<Control&>(*object);
         button.Close();  // ignored, because the control is closing
         heard += text(button.Name) + (button.Window()->isOpen() ? " is early " : " ");
       }}};
  EXPECT_EQ(run([&] {
              window()->setActive(false);
              heard += "| ";
              window()->setActive(true);
              window()->setActive(true);
              const Ref<MemoryItem> item = New<MemoryItem>();
              item->errorOfCreate = EACCES;
              toolkit.saveAnswers.emplace_back(item);
              person->press("GenerateButton");  // asks for a file and shows a message box
              MsgBox("outside of a handler"_s);
              person->closeWindow();
              person->command("FileQuit");
              person->command("FileQuit");
              EXPECT_EQ(person->title(), "Veldrin");
              EXPECT_THAT(toolkit.steps, ElementsAre("windowOpened"));
              person->command("FileQuit");
            }),
            0);
  EXPECT_THAT(heard, testing::HasSubstr("| (active) (inactive) (active) (inactive) (active) "
                                        "(inactive) (active) (asked alone) CancelClose "
                                        "CancelClose (asked) CancelClose (asked) (inactive) "
                                        "(closes) BackOneDay ForwardOneDay GenerateButton Close "));
  EXPECT_THAT(heard, StartsWith("Open "));
}

TEST_F(ProcessTest, PlacardValueIsTheOnlyPluginEntryFound) {
  run([] {
    const std::vector<Function>& entries = pluginEntries();
    ASSERT_EQ(entries.size(), 29U);
    for (std::size_t entry = 0; entry < entries.size(); ++entry) {
      EXPECT_EQ(entries[entry] != nullptr, entry == 25) << entry;
    }
    // The second argument is an index, not an offset in the object.
    const Ref<Placard> panel = control<"Placard1">(*window());
    reinterpret_cast<void (*)(Object*, std::int32_t, bool)>(entries[25])(panel.get(), 0, true);
    EXPECT_TRUE(panel->Value() && panel->classRecord() == Placard::__Lookup());
  });
  EXPECT_NE(RuntimeLookupPluginEntrypoint("Placard.Value.Set"_s), nullptr);
  for (const char* name : {"", "_", ".", ".Set", "..Set", "Value.Set", "Placard.Value",
                           "Placard.Value.Set ", "Placard.Missing.Set", "Placard.Window.Set",
                           "Placard.Index.Set", "Missing.Value.Set", "BevelButton.Value.Set"}) {
    EXPECT_EQ(RuntimeLookupPluginEntrypoint(String(std::string_view(name))), nullptr) << name;
  }
}

}  // namespace
}  // namespace veldrin::test
