#include <gmock/gmock.h>

#include <cerrno>
#include <functional>
#include <string>
#include <vector>

#include "tests/support/BoundEvent.h"
#include "tests/support/RuntimeTest.h"
#include "ui/MenuBar1.h"

namespace veldrin::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

/// Runs the whole process, with a job for its event loop.
class ProcessTest : public testing::Test {
 protected:
  ProcessTest() { host.stand({2024, 6, 21, 12, 0, 0}, -7.0); }

  /// The exit status. However the run goes, everything is given up at its end.
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

  FakeHost host;
  const std::unique_ptr<Person> person = newPerson();
  WatchedToolkit toolkit{*person};
};

TEST_F(ProcessTest, FirstEventFindsEverythingInPlace) {
  bool ran = false;
  EXPECT_EQ(run([&] {
              ran = true;
              const Runtime& runtime = Runtime::current();
              ASSERT_TRUE(runtime.application);
              EXPECT_EQ(text(runtime.application->classRecord()->name), "App");
              EXPECT_FALSE(runtime.application->AutoQuit);
              ASSERT_TRUE(MenuBar1::_implicitInstance);
              EXPECT_EQ(runtime.application->MenuBar(), MenuBar1::_implicitInstance);
              ASSERT_EQ(runtime._WindowSupport.Windows.size(), 1U);
              EXPECT_EQ(runtime._WindowSupport.Windows[0]->referenceCount(), 1);
              EXPECT_EQ(runtime._WindowSupport.Windows[0], window());
              EXPECT_EQ(window()->MenuBar(), MenuBar1::_implicitInstance);
              EXPECT_TRUE(window()->isOpen());
              EXPECT_EQ(person->shown("Status"), "6/21/2024\rSunrise = 05:13\rSunset = 21:11");
              EXPECT_TRUE(OutputFile::Calendar());
              EXPECT_THAT(toolkit.steps(), ElementsAre("windowOpened"));
            }),
            0);
  EXPECT_TRUE(ran);
  EXPECT_THAT(toolkit.reports(), IsEmpty());
  // The end of the program takes an open window down as well.
  EXPECT_THAT(toolkit.steps(), ElementsAre("windowOpened", "windowClosed"));
}

TEST_F(ProcessTest, OpeningRaisesTheEventsInOrder) {
  static std::string events;
  static Function create;
  events.clear();
  initializeClasses();
  ClassRecord* const record = Veldrin::__Lookup();
  create = record->eventRows[1].handler;
  // A year in parentheses is what the chooser shows by then.
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
         EXPECT_TRUE(view.MenuBar() == implicit::MenuBar1() && view.Title == "Veldrin");
         note("CreateControls", static_cast<Window*>(object));
         reinterpret_cast<EventHandler>(create)(object);
       }},
      {record, "AddMenuHandlers"_s,
       [](Object* object) { note("AddMenuHandlers", static_cast<Window*>(object)); }},
      {record, "SetupBindings"_s,
       [](Object* object) { note("SetupBindings", static_cast<Window*>(object)); }},
      {record, "Open"_s,
       [](Object* object) {
         const auto& view = static_cast<Veldrin&>(*object);
         EXPECT_TRUE(view.Pi == 0.0 && view.statusDate);  // made by the chooser's "Change"
         note("Open", static_cast<Window*>(object));
       }},
      {Placard::__Lookup(), "Open"_s, opened},
      {StaticText::__Lookup(), "Open"_s, opened},
      {PushButton::__Lookup(), "Open"_s, opened},
      {PopupMenu::__Lookup(), "Open"_s, opened},
      {TextField::__Lookup(), "Open"_s, opened},
      {CheckBox::__Lookup(), "Open"_s, opened}};
  host.stand({2014, 6, 21, 12, 0, 0});
  EXPECT_EQ(run([] {}), 0);
  EXPECT_EQ(events,
            "CreateControls AddMenuHandlers(2008) SetupBindings(2008) Placard3(2008) Status(2008) "
            "BackOneDay(2008) ForwardOneDay(2008) GenerateButton(2008) Placard2(2014) DSTEnd(2014) "
            "StaticText6(2014) DSTStart(2014) StaticText5(2014) DownUnderFlag(2014) "
            "DaylightSavings(2014) Placard1(2014) StaticText1(2014) Latitude(2014) TimeZone(2014) "
            "Longitude(2014) StaticText2(2014) StaticText4(2014) StaticText7(2014) Open(2014) ");
}

TEST_F(ProcessTest, StartsInAnyYear) {
  const struct {
    CivilMoment now;
    std::string_view row, start, end, day;
  } rows[] = {
      {{2006, 1, 1, 0, 0, 0}, "2008", "3/12/2006", "11/5/2006", "1/1/2006\r"},
      {{2008, 3, 9, 12, 0, 0}, "2008", "3/9/2008", "11/2/2008", "3/9/2008\r"},
      {{2014, 12, 31, 23, 59, 59}, "2014", "3/9/2014", "11/2/2014", "12/31/2014\r"},
      {{2020, 2, 29, 8, 0, 0}, "2020", "3/8/2020", "11/1/2020", "2/29/2020\r"},
      {{2028, 2, 29, 12, 0, 0}, "2008", "3/12/2028", "11/5/2028", "2/29/2028\r"},
      {{2030, 7, 1, 12, 0, 0}, "2008", "3/10/2030", "11/3/2030", "7/1/2030\r"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.now.year);
    host.stand(row.now, -8.0);
    EXPECT_EQ(run([&] {
                EXPECT_EQ(person->shown("WhichYear"), row.row);
                EXPECT_EQ(person->shown("DSTStart"), row.start);
                EXPECT_EQ(person->shown("DSTEnd"), row.end);
                EXPECT_THAT(person->shown("Status"),
                            StartsWith(std::string(row.day) + "Sunrise = 0"));
              }),
              0);
  }
}

TEST_F(ProcessTest, QuitWorksWithTheWindowOpenOrClosed) {
  const auto quit = [] {
    const Ref<MenuBar> bar = Runtime::current().application->MenuBar();
    EXPECT_TRUE(bar->_Lookup("FileQuit"_s)->userChose());
    EXPECT_THAT(Runtime::current()._WindowSupport.Windows, IsEmpty());
  };
  EXPECT_EQ(run([&] { person->command("FileQuit"); }), 0);
  EXPECT_EQ(run([&] {
              const Ref<Dictionary> list = New<Dictionary>();
              list->Value("Veldrin.Veldrin"_s, window());
              Runtime::current()._mImplicitWindowList = list;
              person->closeWindow();
              EXPECT_EQ(list->Count(), 0);
              EXPECT_FALSE(_GetImplicitWindow("Veldrin.Veldrin"_s));
              EXPECT_EQ(toolkit.steps().back(), "windowClosed");
              quit();
            }),
            0);
  EXPECT_EQ(run([&] {
              const Ref<Veldrin> view = window();
              const Ref<TextField> field = view->Latitude();
              const std::int64_t yields = toolkit.backgroundTasks();
              EXPECT_TRUE(view->_UnifiedClose(false));
              EXPECT_EQ(toolkit.backgroundTasks() - yields, 21);
              EXPECT_EQ(view->referenceCount(), 1);
              EXPECT_EQ(field->referenceCount(), 1);
              EXPECT_FALSE(field->Window());
              EXPECT_THAT(view->controls(), IsEmpty());
              view->Close();  // has nothing left to do
              quit();
            }),
            0);
  std::string steps;
  for (const std::string_view step : toolkit.steps()) steps.append(step).append(" ");
  EXPECT_EQ(steps,
            "windowOpened windowClosed quit windowOpened windowClosed quit windowOpened "
            "windowClosed quit ");
}

TEST_F(ProcessTest, HandlerOfCancelCloseCanRefuse) {
  initializeClasses();
  static bool told = false;
  EXPECT_EQ(run([&] {
              const Ref<Veldrin> view = window();
              const BoundEvent bound(Veldrin::__Lookup(), "CancelClose"_s,
                                     [](Object*, bool quitting) {
                                       told = quitting;
                                       return true;
                                     });
              EXPECT_FALSE(view->_UnifiedClose(false));
              EXPECT_FALSE(told);
              person->command("FileQuit");
              EXPECT_TRUE(told && view->isOpen());
              EXPECT_THAT(toolkit.steps(), ElementsAre("windowOpened"));
            }),
            0);
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
  } rows[] = {
      {"BackOneDay_Action", "Status", press("BackOneDay")},
      {"ForwardOneDay_Action", "Latitude", press("ForwardOneDay")},
      {"GenerateButton_Action", "Longitude", press("GenerateButton")},
      {"GenerateButton_Action", "", press("GenerateButton"), "IOException", ENOSPC},
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
    const std::size_t reportsBefore = toolkit.reports().size();
    EXPECT_EQ(run([&] {
                person->press("ForwardOneDay");  // no field is left by what follows
                const String missing(std::string_view(row.missing));
                window()->_RemoveControl(RuntimeWindowControlByName<Control>(*window(), missing));
                const Ref<MemoryItem> full = New<MemoryItem>();
                full->linesUntilFull = 100;
                if (row.handler[0] == 'G') toolkit.saveAnswers.emplace_back(full);
                row.event();
              }),
              1);
    ASSERT_EQ(toolkit.reports().size(), reportsBefore + 1);
    EXPECT_EQ(text(toolkit.reports().back().className), row.exception);
    EXPECT_EQ(toolkit.reports().back().errorNumber, row.number);
    EXPECT_EQ(toolkit.steps().back(), "windowClosed");
  }
  EXPECT_THAT(toolkit.messages(), IsEmpty());
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
    // Half of the opening stands by then.
    const BoundEvent bound(TextField::__Lookup(), "Open"_s,
                           [](Object*) { Raise<OutOfBoundsException>(7); });
    EXPECT_EQ(run(loop, parts), 1);
  }
  ASSERT_EQ(toolkit.reports().size(), 1U);
  EXPECT_EQ(text(toolkit.reports()[0].className), "OutOfBoundsException");
  EXPECT_EQ(toolkit.reports()[0].errorNumber, 7);
  EXPECT_THAT(toolkit.steps(), IsEmpty());

  parts.makeView = [] { throw FatalFault("The form is damaged."); };
  EXPECT_EQ(run(loop, parts), 1);
  EXPECT_EQ(toolkit.reports().size(), 1U);
  ASSERT_EQ(toolkit.messages().size(), 1U);
  EXPECT_EQ(text(toolkit.messages()[0]), "The form is damaged.");
  EXPECT_EQ(finalized, 2);

  // A run leaves nothing to the next.
  EXPECT_EQ(run([] {}), 0);
}

TEST_F(ProcessTest, PlacardValueIsTheOnePluginEntryThatThisBuildHas) {
  run([] {
    const std::vector<Function>& entries = Runtime::current().pluginEntries;
    ASSERT_EQ(entries.size(), 29U);
    for (std::size_t entry = 0; entry < entries.size(); ++entry) {
      EXPECT_EQ(entries[entry] != nullptr, entry == 25) << entry;
    }
    EXPECT_EQ(entries[25], FindProperty(*Placard::__Lookup(), "Value")->setter);
  });
  EXPECT_NE(RuntimeLookupPluginEntrypoint("Placard.Value.Set"_s), nullptr);
  for (const char* name : {"", "_", ".", ".Set", "..Set", "Value.Set", "Placard.Value",
                           "Placard.Value.Set ", "Placard.Missing.Set", "Placard.Window.Set",
                           "Missing.Value.Set", "BevelButton.Value.Set"}) {
    EXPECT_EQ(RuntimeLookupPluginEntrypoint(String(std::string_view(name))), nullptr) << name;
  }
}

using ApplicationTest = RuntimeTest;

TEST_F(ApplicationTest, CallsUnderTheRulesOfFailure) {
  static int calls = 0;
  calls = 0;
  const Ref<App> application = New<App>();
  const auto call = [&](void (*function)()) {
    application->_CallFunctionWithExceptionHandling(reinterpret_cast<void*>(function));
    return toolkit.reports().size();
  };
  EXPECT_EQ(call([] { ++calls; }), 0U);
  EXPECT_EQ(calls, 1);
  EXPECT_EQ(call([] { Raise<EndException>(); }), 0U);
  EXPECT_EQ(call([] { Raise<ThreadEndException>(); }), 0U);
  EXPECT_EQ(runtime.exitStatus, 0);
  EXPECT_EQ(call([] { Raise<ThreadAlreadyRunningException>(); }), 1U);
  EXPECT_EQ(runtime.exitStatus, 1);
  EXPECT_EQ(call([] { Raise<IOException>(28); }), 2U);
  EXPECT_EQ(text(toolkit.reports()[1].className), "IOException");
  EXPECT_EQ(toolkit.reports()[1].errorNumber, 28);

  // A handler that answers true takes the exception, one that answers false does not.
  using Handler = bool (*)(Object*, const Ref<RuntimeException>&);
  for (const Handler handler :
       {Handler([](Object*, const Ref<RuntimeException>& failure) {
          return failure->ErrorNumber != 0;
        }),
        Handler([](Object*, const Ref<RuntimeException>&) { return true; })}) {
    const BoundEvent bound(App::__Lookup(), "UnhandledException"_s, handler);
    EXPECT_EQ(call([] { Raise<IOException>(28); }), toolkit.reports().size());
    call([] { Raise<IOException>(0); });
  }
  EXPECT_EQ(toolkit.reports().size(), 3U);
}

}  // namespace
}  // namespace veldrin::test
