#include <gmock/gmock.h>

#include <cerrno>
#include <csignal>
#include <deque>
#include <functional>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include "daystatus/FormParts.h"
#include "shell/window/PluginEntries.h"
#include "tests/support/RuntimeTest.h"
#include "ui/MenuBar1.h"

namespace veldrin::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

/// Runs the whole process, with a job for its event loop.
class ProcessTest : public PersonTest {
 protected:
  /// Returns the exit status. Checks that the run released all objects.
  int run(std::function<void()> job, const ApplicationParts& parts = VeldrinParts) {
    const std::int64_t before = liveObjectCount();
    toolkit.job = std::move(job);
    const int status = runProcess(host, toolkit, parts);
    EXPECT_EQ(liveObjectCount(), before);
    EXPECT_FALSE(MenuBar1::_implicitInstance);
    EXPECT_FALSE(OutputFile::Calendar());
    return status;
  }

  static Ref<Veldrin> window() { return implicit::Veldrin(); }
};

TEST_F(ProcessTest, FirstEventFindsEverythingInPlace) {
  bool ran = false;
  EXPECT_EQ(run([&] {
              ran = true;
              ASSERT_TRUE(registeredApplication());
              EXPECT_EQ(text(registeredApplication()->classRecord()->name), "App");
              EXPECT_FALSE(registeredApplication()->AutoQuit);
              ASSERT_TRUE(MenuBar1::_implicitInstance);
              EXPECT_EQ(registeredApplication()->MenuBar(), MenuBar1::_implicitInstance);
              ASSERT_EQ(_WindowSupport.Windows.size(), 1U);
              EXPECT_EQ(_WindowSupport.Windows[0]->referenceCount(), 1);
              EXPECT_EQ(_WindowSupport.Windows[0], window());
              EXPECT_EQ(window()->MenuBar(), MenuBar1::_implicitInstance);
              EXPECT_TRUE(window()->isOpen());
              EXPECT_EQ(person->shown("Status"), "6/21/2024\rSunrise = 05:13\rSunset = 21:11");
              EXPECT_TRUE(OutputFile::Calendar());
              EXPECT_THAT(toolkit.steps, ElementsAre("windowOpened"));
            }),
            0);
  EXPECT_TRUE(ran);
  EXPECT_THAT(toolkit.reports, IsEmpty());
  // The end of the program closes an open window.
  EXPECT_THAT(toolkit.steps, ElementsAre("windowOpened", "windowClosed"));
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
  host.stand({2014, 6, 21, 12, 0, 0});
  EXPECT_EQ(run([] {}), 0);
  // The controls open in the order of making. The handler of the chooser selects the current year.
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

TEST_F(ProcessTest, QuitWorksWhereTheWindowIsClosedAndTheMenuBarStays) {
  toolkit.ownMenuBar = true;
  const auto quit = [] {
    const Ref<MenuBar> bar = registeredApplication()->MenuBar();
    EXPECT_TRUE(bar->_Lookup("FileQuit"_s)->userChose());
    EXPECT_THAT(_WindowSupport.Windows, IsEmpty());
  };
  EXPECT_EQ(run([&] {
              const Ref<Dictionary> list = New<Dictionary>();
              list->Value("Veldrin.Veldrin"_s, window());
              _mImplicitWindowList = list;
              person->closeWindow();
              EXPECT_EQ(list->Count(), 0);
              EXPECT_FALSE(_GetImplicitWindow("Veldrin.Veldrin"_s));
              quit();
            }),
            0);
  EXPECT_EQ(run([&] {
              const Ref<Veldrin> view = window();
              const Ref<TextField> field = view->Latitude();
              view->userTurnedTo(false);
              const std::int64_t yields = toolkit.backgroundTasks;
              EXPECT_TRUE(view->_UnifiedClose(false));
              EXPECT_EQ(toolkit.backgroundTasks - yields, std::ssize(FormTable));
              EXPECT_EQ(view->referenceCount(), 1);
              EXPECT_EQ(field->referenceCount(), 1);
              EXPECT_THAT(view->controls(), IsEmpty());
              view->Close();  // has nothing left to do
              quit();
            }),
            0);
  EXPECT_THAT(toolkit.steps, ElementsAre("windowOpened", "windowClosed", "quit", "windowOpened",
                                         "windowClosed", "quit"));
}

TEST_F(ProcessTest, EndsWithItsLastWindowUnlessTheMenuBarOutlivesThat) {
  for (const bool ownMenuBar : {false, true}) {
    for (const bool autoQuit : {false, true}) {
      toolkit.ownMenuBar = ownMenuBar;
      EXPECT_EQ(run([&] {
                  registeredApplication()->AutoQuit = autoQuit;
                  person->closeWindow();
                }),
                0);
      EXPECT_EQ(toolkit.steps.back(), ownMenuBar && !autoQuit ? "windowClosed" : "quit");
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
       [](Object*, bool quitting) {
         heard += quitting ? "(asked) " : "(asked alone) ";
         return refusalsOfTheWindow-- > 0;
       }},
      {view, "Activate"_s, [](Object*) { heard += "(active) "; }},
      {view, "Deactivate"_s, [](Object*) { heard += "(inactive) "; }},
      {view, "Close"_s, [](Object*) { heard += "(closed) "; }}};
  EXPECT_EQ(run([&] {
              window()->userTurnedTo(false);
              heard += "| ";
              window()->userTurnedTo(true);
              window()->userTurnedTo(true);
              toolkit.saveAnswers.emplace_back(nullptr);
              person->press("GenerateButton");  // around its dialog
              person->closeWindow();
              person->command("FileQuit");
              person->command("FileQuit");
              EXPECT_EQ(person->title(), "Veldrin");
              EXPECT_THAT(toolkit.steps, ElementsAre("windowOpened"));
              person->command("FileQuit");
            }),
            0);
  EXPECT_THAT(heard, testing::HasSubstr("| (active) (inactive) (active) (asked alone) CancelClose "
                                        "CancelClose (asked) CancelClose (asked) (inactive) "
                                        "(closed) Close "));
  EXPECT_THAT(heard, StartsWith("Open "));
}

TEST_F(ProcessTest, ApplicationMayHandleExceptions) {
  initializeClasses();
  static int closed;
  closed = 0;
  const BoundEvent closes(App::__Lookup(), "Close"_s, [](Object*) { ++closed; });
  const BoundEvent takes(
      App::__Lookup(), "UnhandledException"_s,
      [](Object*, const Ref<RuntimeException>& exception) { return exception->ErrorNumber == 7; });
  const struct {
    void (*raise)();
    std::string_view reported;
  } rows[] = {{[] {}, ""},
              {[] { Raise<IOException>(7); }, ""},
              {[] { Raise<EndException>(); }, ""},
              {[] { Raise<ThreadEndException>(); }, ""},
              {[] { Raise<ThreadAlreadyRunningException>(); }, "ThreadAlreadyRunningException"},
              {[] { Raise<OutOfBoundsException>(8); }, "OutOfBoundsException"}};
  for (const auto& row : rows) {
    const auto call = [&] {
      registeredApplication()->_CallFunctionWithExceptionHandling(
          reinterpret_cast<void*>(row.raise));
    };
    for (const std::function<void()>& job : {std::function<void()>(row.raise), {call}}) {
      const std::size_t before = toolkit.reports.size();
      EXPECT_EQ(run(job), row.reported.empty() ? 0 : 1);
      EXPECT_EQ(std::exchange(closed, 0), 1);
      std::string reported;
      for (std::size_t report = before; report < toolkit.reports.size(); ++report) {
        reported += text(toolkit.reports[report].className);
      }
      EXPECT_EQ(reported, row.reported);
    }
  }
}

TEST_F(ProcessTest, ASignalClosesTheWindowsAndStopsAYearRunBetweenTwoEvents) {
  initializeClasses();
  static int closed;
  closed = 0;
  const BoundEvent bound(Veldrin::__Lookup(), "Close"_s, [](Object*) { ++closed; });
  const Ref<MemoryItem> item = New<MemoryItem>();
  for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
    std::signal(signal, SIG_DFL);  // the parent process may ignore it
    // While idle, and during a year run.
    EXPECT_EQ(run([&] { std::raise(signal); }), 128 + signal);
    EXPECT_EQ(toolkit.steps.back(), "quit");
    EXPECT_EQ(run([&] {
                toolkit.saveAnswers.emplace_back(item);
                toolkit.onBackgroundTask = [&] {
                  if (item->content->size() > 1000) std::raise(signal);
                  if (item->content->size() > 1000) toolkit.onBackgroundTask = nullptr;
                };
                person->press("GenerateButton");
              }),
              128 + signal);
    EXPECT_EQ(toolkit.steps.back(), "quit");
    EXPECT_TRUE(item->content->ends_with("END:VEVENT\r\n"));
    EXPECT_LT(item->content->size(), 2000U);
    item->content->clear();
    // While the window closes.
    EXPECT_EQ(run([&] {
                toolkit.onBackgroundTask = [&, raised = false]() mutable {
                  if (!std::exchange(raised, true)) std::raise(signal);
                };
                person->closeWindow();
                toolkit.onBackgroundTask = nullptr;
              }),
              128 + signal);
    EXPECT_EQ(toolkit.steps.back(), "quit");
  }
  EXPECT_EQ(closed, 9);
  ASSERT_EQ(toolkit.reports.size(), 3U);
  EXPECT_EQ(text(toolkit.reports[0].sentence),
            "/memory/item.ics is incomplete: stopped by SIGTERM");
  // A refused signal is forgotten.
  const BoundEvent refuses(App::__Lookup(), "CancelClose"_s, [](Object*) { return true; });
  EXPECT_EQ(run([] { std::raise(SIGTERM); }), 0);
}

TEST_F(ProcessTest, ExceptionOutOfAHandlerIsReportedOnceAndEndsTheRun) {
  const auto press = [&](const char* name) { return [&, name] { person->press(name); }; };
  const auto tick = [&](const char* name) {
    return [&, name] { person->tick(name, !person->isTicked(name)); };
  };
  const auto leave = [&](const char* name) { return [&, name] { person->leave(name); }; };
  const struct {
    const char* handler;
    const char* missing;  ///< a control that the handler needs
    std::function<void()> event;
    std::string_view exception = "NilObjectException";
    std::int32_t number = 0;
    std::string sentence = "NilObjectException";
  } rows[] = {
      {"BackOneDay_Action", "Status", press("BackOneDay")},
      {"ForwardOneDay_Action", "Latitude", press("ForwardOneDay")},
      {"GenerateButton_Action", "Longitude", press("GenerateButton"), "NilObjectException", 0,
       "/memory/item.ics is incomplete: NilObjectException"},
      {"GenerateButton_Action", "", press("GenerateButton"), "IOException", ENOSPC,
       "/memory/item.ics is incomplete: " + std::generic_category().message(ENOSPC) +
           " (IOException, error 28)"},
      {"WhichYear_Open", "DSTEnd", [] { window()->WhichYear()->raiseEvent("Open"_s); }},
      {"WhichYear_Change", "DSTStart", [&] { person->choose("WhichYear", 1); }},
      {"WhichYear_Change", "TimeZone", [] { window()->WhichYear()->ListIndex(-1); }},
      {"DownUnderFlag_Action", "TimeZone", tick("DownUnderFlag")},
      {"DaylightSavings_Action", "Longitude", tick("DaylightSavings")},
      {"Latitude_LostFocus", "DaylightSavings", leave("Latitude")},
      {"TimeZone_LostFocus", "DownUnderFlag", leave("TimeZone")},
      {"Longitude_LostFocus", "DSTEnd", leave("Longitude")},
  };
  host.stand({2014, 6, 21, 12, 0, 0}, -7.0);
  for (const auto& row : rows) {
    SCOPED_TRACE(std::string(row.handler) + " without " + row.missing);
    const std::size_t reportsBefore = toolkit.reports.size();
    testing::internal::CaptureStderr();
    EXPECT_EQ(run([&] {
                person->press("ForwardOneDay");  // so that no later step leaves a field
                window()->_AddMenuHandler(
                    "FileQuit"_s, RuntimeCreateDelegate(
                                      &Delegate::Invoke, [] {}, window(), DelegateSignature));
                const String missing(std::string_view(row.missing));
                window()->_RemoveControl(RuntimeWindowControlByName<Control>(*window(), missing));
                const Ref<MemoryItem> full = New<MemoryItem>();
                full->linesUntilFull = 100;
                if (row.handler[0] == 'G') toolkit.saveAnswers.emplace_back(full);
                row.event();
              }),
              1);
    // The calls are printed for a fault of the program. A full disk is not one.
    const std::string told = testing::internal::GetCapturedStderr();
    EXPECT_EQ(told.find("  called from ") == std::string::npos, row.exception == "IOException");
    ASSERT_EQ(toolkit.reports.size(), reportsBefore + 1);
    EXPECT_EQ(text(toolkit.reports.back().className), row.exception);
    EXPECT_EQ(toolkit.reports.back().errorNumber, row.number);
    EXPECT_EQ(text(toolkit.reports.back().sentence), row.sentence);
    EXPECT_EQ(toolkit.steps.back(), "windowClosed");
  }
  EXPECT_THAT(toolkit.messages, IsEmpty());
}

TEST_F(ProcessTest, FailureAtTheStartIsReportedAndStillFinalised) {
  static int finalized = 0;
  finalized = 0;
  ApplicationParts parts = VeldrinParts;
  parts.finalize = [] {
    ++finalized;
    VeldrinParts.finalize();
  };
  const auto loop = [] { FAIL() << "the event loop was entered"; };
  initializeClasses();
  {
    // The opening fails half way.
    const BoundEvent bound(TextField::__Lookup(), "Open"_s,
                           [](Object*) { Raise<OutOfBoundsException>(7); });
    EXPECT_EQ(run(loop, parts), 1);
  }
  ASSERT_EQ(toolkit.reports.size(), 1U);
  EXPECT_EQ(text(toolkit.reports[0].className), "OutOfBoundsException");
  EXPECT_EQ(toolkit.reports[0].errorNumber, 7);
  EXPECT_THAT(toolkit.steps, IsEmpty());

  // Other exceptions of a step are reported, too.
  const struct {
    void (*step)();
    std::string_view exception, sentence;
  } rows[] = {{[] { throw FatalFault("The form is damaged."); }, "", "The form is damaged."},
              {[] { throw std::range_error("no such place"); }, "", "no such place"},
              {[] { throw 7; }, "", "An unknown error occurred."},
              {[] { std::get_new_handler()(); }, "OutOfMemoryException", ""},
              {[] { RuntimeRaiseException(nullptr); }, "NilObjectException", ""}};
  for (const auto& row : rows) {
    for (auto* const step : {&parts.makeView, &parts.initialize}) {
      const auto kept = std::exchange(*step, row.step);
      const std::size_t told = toolkit.reports.size() + toolkit.messages.size();
      finalized = 0;
      EXPECT_EQ(run(loop, parts), 1);
      ASSERT_EQ(toolkit.reports.size() + toolkit.messages.size(), told + 1);
      EXPECT_EQ(row.exception.empty() ? text(toolkit.messages.back())
                                      : text(toolkit.reports.back().className),
                row.exception.empty() ? row.sentence : row.exception);
      EXPECT_EQ(finalized, 1);
      EXPECT_EQ(std::get_new_handler(), nullptr);
      *step = kept;
    }
  }

  // A failed run does not affect the next one.
  EXPECT_EQ(run([] {}), 0);
}

TEST_F(ProcessTest, PlacardValueIsTheOnePluginEntryThatThisBuildHas) {
  run([] {
    const std::vector<Function>& entries = pluginEntries();
    ASSERT_EQ(entries.size(), 29U);
    for (std::size_t entry = 0; entry < entries.size(); ++entry) {
      EXPECT_EQ(entries[entry] != nullptr, entry == 25) << entry;
    }
    // It takes an index, which is not an offset in the object.
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
