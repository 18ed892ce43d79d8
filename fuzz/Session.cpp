#include <fuzzer/FuzzedDataProvider.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "bench/bare/Bare.h"
#include "calendar/OutputFile.h"
#include "daystatus/Veldrin.h"
#include "fuzz/Fuzz.h"
#include "shell/objects/Failure.h"
#include "shell/values/Date.h"
#include "shell/values/Mathematics.h"
#include "shell/values/ParseDate.h"
#include "shell/values/Text.h"
#include "tests/support/MemoryItem.h"

// Input: random user actions in the window. After each action, the panel and the fields must agree
// with the reference in bench/bare, and so must each written file.

namespace veldrin::fuzz {
namespace {

constexpr bare::Civil Today{2024, 6, 21};

bare::Civil dayBefore(bare::Civil day) {
  bare::Civil before{day.day > 1 || day.month > 1 ? day.year : day.year - 1,
                     day.day > 1     ? day.month
                     : day.month > 1 ? day.month - 1
                                     : 12,
                     day.day > 1 ? day.day - 1 : 28};
  while (bare::nextDay(before) != day) before = bare::nextDay(before);
  return before;
}

std::string shortDate(bare::Civil day) {
  std::string year = std::to_string(std::abs(static_cast<std::int64_t>(day.year)));
  year.insert(0, 4 - std::min<std::size_t>(4, year.size()), '0');
  return std::to_string(day.month) + "/" + std::to_string(day.day) + "/" +
         (day.year < 0 ? "-" : "") + year;
}

/// The expected state of the window.
struct Model {
  std::string latitude = "47.5", longitude = "-122.5", zone = "-8";
  std::string start = shortDate(bare::firstBound(Today.year));
  std::string end = shortDate(bare::lastBound(Today.year));
  bool on = true;
  bool downUnder = false;
  bare::Civil day = Today;
  std::string panel = shownPanel();

  [[nodiscard]] bare::Place place() const {
    return {Val(String(latitude)), Val(String(longitude)), Val(String(zone))};
  }
  [[nodiscard]] bare::Saving saving() const {
    return {on, downUnder, boundOf(start), boundOf(end)};
  }
  /// The panel text for the current inputs.
  [[nodiscard]] std::string shownPanel() const {
    std::string text = bare::status(place(), saving(), day);
    std::ranges::replace(text, '\n', '\r');
    return withPlainNan(std::move(text));
  }
  /// The calendar of a year, complete or cut after some lines.
  struct Document {
    std::string text;
    bool isComplete;
  };
  [[nodiscard]] Document document(std::int32_t year, int lines) const {
    struct Full {};
    std::string text;
    try {
      bare::writeYear(place(), saving(), year, [&](std::string_view line) {
        if (lines-- == 0) throw Full();
        text += line;
      });
    } catch (const Full&) {
      return {withPlainNan(std::move(text)), false};
    }
    return {withPlainNan(std::move(text)), true};
  }

 private:
  static std::optional<bare::Civil> boundOf(const std::string& text) {
    const auto day = readDate(text, {});
    if (!day) return std::nullopt;
    return bare::Civil{static_cast<std::int32_t>(day->year), day->month, day->day};
  }
  /// The window shows NaN without a sign.
  static std::string withPlainNan(std::string text) {
    for (std::size_t at = 0; (at = text.find("-nan", at)) != std::string::npos;) text.erase(at, 1);
    return text;
  }
};

class Session {
 public:
  explicit Session(FuzzedDataProvider& input) : input_(input) {
    OutputFile::_Initialize();
    static_cast<void>(window());
    compare();
  }
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;
  ~Session() { finalizeGlobals(); }

  void step() {
    switch (input_.ConsumeIntegralInRange(0, 7)) {
      case 0:
      case 1:
        type();
        break;
      case 2:
        tick();
        break;
      case 3:
        choose();
        break;
      case 4:
        stepDay();
        break;
      case 5:
        press();
        break;
      case 6:
        command();
        break;
      default:
        window()->Close();
        reopen();
    }
    compare();
  }

 private:
  static Ref<Veldrin> window() { return implicit::Veldrin(); }

  /// Call after closing the window; the next access opens a new one.
  void reopen() {
    require(_WindowSupport.Windows.empty(), "a closed window is not in the list of windows");
    model_ = Model();
  }

  std::string anyText() {
    return input_.ConsumeBool() ? textOf(input_.ConsumeIntegralInRange(-1000, 1000) / 4.0)
                                : input_.ConsumeRandomLengthString(40);
  }
  static std::string textOf(double value) { return std::to_string(value); }

  void type() {
    const Ref<TextField> fields[] = {window()->Latitude(), window()->Longitude(),
                                     window()->TimeZone(), window()->DSTStart(),
                                     window()->DSTEnd()};
    std::string* const texts[] = {&model_.latitude, &model_.longitude, &model_.zone, &model_.start,
                                  &model_.end};
    const auto which = input_.ConsumeIntegralInRange<std::size_t>(0, 4);
    const bool isBound = which >= 3;
    *texts[which] = isBound && input_.ConsumeBool()
                        ? shortDate({input_.ConsumeIntegralInRange(2020, 2028),
                                     input_.ConsumeIntegralInRange(1, 12),
                                     input_.ConsumeIntegralInRange(1, 28)})
                        : anyText();
    fields[which]->userTyped(String(*texts[which]));
    if (input_.ConsumeBool()) {
      fields[which]->userLeft();
      if (!isBound) model_.panel = model_.shownPanel();
    }
  }

  void tick() {
    const bool isTicked = input_.ConsumeBool();
    const bool isSavings = input_.ConsumeBool();
    (isSavings ? model_.on : model_.downUnder) = isTicked;
    (isSavings ? window()->DaylightSavings() : window()->DownUnderFlag())->userTicked(isTicked);
    model_.panel = model_.shownPanel();
  }

  void choose() {
    const Ref<PopupMenu> years = window()->WhichYear();
    if (input_.ConsumeBool()) years->AddRow(String(anyText()));
    const auto row = input_.ConsumeIntegralInRange<std::int32_t>(-2, years->ListCount() + 1);
    const bool isRow = row >= 0 && row < years->ListCount();
    const bool hasMoved = (isRow ? row : -1) != years->ListIndex();
    years->userChose(row);
    require(years->ListIndex() == (isRow ? row : -1), "an invalid row selects none");
    require(years->Text() == (isRow ? years->List(row) : String()),
            "the text equals the selected row");
    if (!hasMoved) return;
    if (isRow) {
      const std::int32_t chosen = year();
      model_.start = shortDate(bare::firstBound(chosen));
      model_.end = shortDate(bare::lastBound(chosen));
    }
    model_.panel = model_.shownPanel();
  }

  static std::int32_t year() {
    return RuntimeCvtReal64ToSInt32(Val(window()->WhichYear()->Text()));
  }

  void stepDay() {
    const bool isBack = input_.ConsumeBool();
    model_.day = isBack ? dayBefore(model_.day) : bare::nextDay(model_.day);
    (isBack ? window()->BackOneDay() : window()->ForwardOneDay())->userPressed();
    model_.panel = model_.shownPanel();
  }

  /// Presses the year button. The dialog is cancelled, or the file cannot be created, is full after
  /// some lines, or becomes complete.
  void press() {
    constexpr std::int32_t LastYear = 9999;
    if (presses_++ == 4 || year() < 1 || year() > LastYear) return;
    auto& toolkit = World::instance().toolkit;
    const std::size_t messages = toolkit.messages().size();
    const Ref<test::MemoryItem> item = New<test::MemoryItem>();
    const bool isCancelled = input_.ConsumeIntegralInRange(0, 9) == 0;
    const bool isCreated = input_.ConsumeIntegralInRange(0, 9) != 0;
    item->errorOfCreate = isCreated ? 0 : EACCES;
    item->linesUntilFull =
        input_.ConsumeIntegralInRange(0, input_.ConsumeIntegralInRange(0, 7) == 0 ? 3000 : 40);
    toolkit.saveAnswers.emplace_back(isCancelled ? Ref<test::MemoryItem>() : item);
    bool hasRaised = false;
    try {
      window()->GenerateButton()->userPressed();
    } catch (const Raised& failure) {
      hasRaised = true;
      require(RuntimeObjectIsa(failure.exception.get(), IOException::__Lookup()),
              "only IOException is raised");
    }
    require(toolkit.saveAnswers.empty(), "a press shows one save dialog");
    const bool hasTold = toolkit.messages().size() == messages + 1;
    require(hasTold == (!isCancelled && !isCreated) &&
                (hasTold || toolkit.messages().size() == messages),
            "one message if the file cannot be created, else none");
    require(!hasTold || toolkit.messages().back() == "Cannot write to /memory/item.ics",
            "the message contains the path");
    const bool isWritten = !isCancelled && isCreated;
    const Model::Document expected = model_.document(year(), isWritten ? item->linesUntilFull : 0);
    requireSame(*item->content, expected.text, "the file equals the reference");
    require(hasRaised == (isWritten && !expected.isComplete), "an incomplete file raises");
  }

  void command() {
    const char* const names[] = {"FileQuit",  "EditUndo",  "EditCut",       "EditCopy",
                                 "EditPaste", "EditClear", "EditSelectAll", "UntitledMenu0"};
    const std::string name = input_.PickValueInArray(names);
    const Ref<MenuItem> item = window()->MenuBar()->_Lookup(String(name));
    require(item.get() != nullptr, "the item exists");
    if (input_.ConsumeBool()) window()->_CallActivated();
    if (input_.ConsumeBool()) window()->_CallDeactivated();
    require(item->userChose() == (name == "FileQuit"), "only the quit item has a handler");
    if (name == "FileQuit") reopen();
  }

  void compare() {
    const Ref<Veldrin> shown = window();
    requireSame(shown->Status()->Text().view(), model_.panel, "the panel equals the reference");
    requireSame(shown->Latitude()->Text().view(), model_.latitude, "a field keeps its text");
    requireSame(shown->Longitude()->Text().view(), model_.longitude, "a field keeps its text");
    requireSame(shown->TimeZone()->Text().view(), model_.zone, "a field keeps its text");
    requireSame(shown->DSTStart()->Text().view(), model_.start,
                "a date field has the default of the year or the typed text");
    requireSame(shown->DSTEnd()->Text().view(), model_.end,
                "a date field has the default of the year or the typed text");
  }

  FuzzedDataProvider& input_;
  Model model_;
  int presses_ = 0;
};

}  // namespace
}  // namespace veldrin::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace veldrin;
  fuzz::World::instance();
  const fuzz::ObjectLeakGuard objectLeakGuard;
  FuzzedDataProvider input(data, size);
  fuzz::Session session(input);
  for (int steps = 0; steps < 40 && input.remaining_bytes() > 0; ++steps) session.step();
  return 0;
}
