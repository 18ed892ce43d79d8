#include <gmock/gmock.h>

#include <cerrno>
#include <csignal>
#include <functional>
#include <new>
#include <string>
#include <system_error>
#include <utility>

#include "apps/ProgramMain.h"
#include "shell/host/StopSignal.h"
#include "tests/support/ProcessTest.h"

namespace veldrin::test {
namespace {

using testing::IsEmpty;

using FailureTest = ProcessTest;

TEST_F(FailureTest, TheApplicationMayHandleAnException) {
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

TEST_F(FailureTest, AStopSignalClosesTheWindowAndEndsAYearRun) {
  initializeClasses();
  static int closed;
  const BoundEvent bound(Veldrin::__Lookup(), "Close"_s, [](Object*) { ++closed; });
  const Ref<MemoryItem> item = New<MemoryItem>();
  const struct {
    const char* when;
    std::size_t bytes;  // in the file before the signal
    std::function<void()> job;
  } rows[] = {{"idle", 0, [&] { toolkit.backgroundTask(); }},
              {"during a year run", 1000, [&] { person->press("GenerateButton"); }},
              {"during a year run whose exception is dropped", 1000,
               [&] {
                 registeredApplication()->_CallFunctionWithExceptionHandling(
                     reinterpret_cast<void*>(+[] { window()->GenerateButton()->userPressed(); }));
               }},
              {"while the window closes", 0, [&] { person->closeWindow(); }}};
  for (const auto& [signal, sentence] :
       {std::pair(SIGTERM, "/memory/item.ics is incomplete: stopped by SIGTERM"),
        {SIGINT, "/memory/item.ics is incomplete: stopped by SIGINT"},
        {SIGHUP, "/memory/item.ics is incomplete: stopped by SIGHUP"}}) {
    std::signal(signal, SIG_DFL);  // the parent process may have ignored the signal
    for (const auto& row : rows) {
      SCOPED_TRACE(std::string(sentence) + " " + row.when);
      closed = 0;
      toolkit.reports.clear();
      item->content->clear();
      EXPECT_EQ(run([&, raised = signal] {
                  toolkit.saveAnswers.assign(1, item);
                  toolkit.onBackgroundTask = [&, raised] {
                    if (item->content->size() < row.bytes) return;
                    std::raise(raised);
                    toolkit.onBackgroundTask = nullptr;
                  };
                  row.job();
                }),
                128 + signal);
      EXPECT_EQ(closed, 1);
      EXPECT_EQ(toolkit.steps.back(), "quit");
      ASSERT_EQ(toolkit.reports.size(), row.bytes == 0 ? 0U : 1U);
      if (row.bytes == 0) continue;
      EXPECT_EQ(text(toolkit.reports[0].sentence), sentence);
      EXPECT_TRUE(item->content->ends_with("END:VEVENT\r\n") && item->content->size() < 2000);
    }
  }
  {
    const StopSignalGuard guard;
    std::raise(SIGTERM);
    EXPECT_EQ(raisedBy([] { raiseStop(); }), "EndException");
    EXPECT_FALSE(isStopPending());
  }
  // If "CancelClose" refuses, the signal has no effect.
  const BoundEvent refuses(App::__Lookup(), "CancelClose"_s, [](Object*) { return true; });
  EXPECT_EQ(run([] { std::raise(SIGTERM); }), 0);
}

TEST_F(FailureTest, AnExceptionOfAHandlerIsReportedOnceAndEndsTheRun) {
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
  host.setClock({2014, 6, 21, 12, 0, 0}, -7.0);
  for (const auto& row : rows) {
    SCOPED_TRACE(std::string(row.handler) + " without " + row.missing);
    const std::size_t reportsBefore = toolkit.reports.size();
    testing::internal::CaptureStderr();
    EXPECT_EQ(run([&] {
                person->press("ForwardOneDay");  // takes the focus from the field
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
    // The calls are printed only for a fault of the program, and a full disk is not one.
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

TEST_F(FailureTest, AFailureAtTheStartIsReportedAndFinalized) {
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
    const BoundEvent bound(TextField::__Lookup(), "Open"_s,
                           [](Object*) { Raise<OutOfBoundsException>(7); });
    EXPECT_EQ(run(loop, parts), 1);
  }
  ASSERT_EQ(toolkit.reports.size(), 1U);
  EXPECT_EQ(text(toolkit.reports[0].className), "OutOfBoundsException");
  EXPECT_EQ(toolkit.reports[0].errorNumber, 7);
  EXPECT_THAT(toolkit.steps, IsEmpty());

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

TEST_F(FailureTest, AProgramReportsAnyExceptionInOneSentence) {
  const struct {
    int (*body)();
    int status;
    std::string_view told;
  } rows[] = {{[] { return 3; }, 3, ""},
              {[]() -> int { throw FatalFault("No."); }, 1, "name: No.\n"},
              {[]() -> int { Raise<IOException>(5); }, 1, "name: IOException\n"},
              {[]() -> int { throw std::bad_alloc(); }, 1, "name: There is not enough memory.\n"},
              {[]() -> int { throw 7; }, 1, "name: An unknown error occurred.\n"}};
  for (const auto& row : rows) {
    testing::internal::CaptureStderr();
    EXPECT_EQ(runProgram("name", row.body), row.status);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), row.told);
  }
}

}  // namespace
}  // namespace veldrin::test
