#include <unistd.h>

#include <cerrno>
#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <new>
#include <string>
#include <string_view>
#include <system_error>

#include "almanac/FileReplacement.h"
#include "apps/CalendarOptions.h"
#include "apps/PlainText.h"
#include "apps/StandardDescriptors.h"
#include "apps/VeldrinParts.h"
#include "daystatus/Veldrin.h"
#include "shell/ParseDate.h"
#include "shell/SystemHost.h"
#include "shell/Text.h"
#include "toolkits/headless/HeadlessToolkit.h"

namespace veldrin {
namespace {

constexpr int Failed = 1;

/// The standard output as a file; nil where it cannot be had, by the `errno` that says why.
std::unique_ptr<WritableFile> openStandardOutput() {
  const int descriptor = ::dup(STDOUT_FILENO);
  return descriptor < 0 ? nullptr : openDescriptor(descriptor);
}

/// The standard output as a place to save to.
class StandardOutput final : public Described<StandardOutput, FolderItem> {
 public:
  static constexpr FixedString FullName = "StandardOutput";

  [[nodiscard]] String AbsolutePath() const override { return "standard output"_s; }

  std::unique_ptr<WritableFile> create() override {
    std::unique_ptr<WritableFile> file = openStandardOutput();
    LastErrorCode = file ? 0 : errno;
    return file;
  }
};

/// Says a sentence on the error stream, which is the last resort: nothing can be done if it fails.
void complain(const std::string& sentence) {
  static_cast<void>(std::fprintf(stderr, "veldrin-calendar: %s\n", onOneLine(sentence).c_str()));
}

/// Says that memory has run out, without any.
int complainOfMemory() {
  static_cast<void>(std::fputs("veldrin-calendar: There is not enough memory.\n", stderr));
  return Failed;
}

/// What the host calls an error.
std::string reasonOf(std::int32_t error) {
  return std::generic_category().message(error);
}

void complainOfWriting(const std::string& where, std::int32_t error) {
  complain("Writing to " + where + " failed: " + reasonOf(error) + ".");
}

/// Prints on the standard output; false where that fails, which has been said by then.
bool print(const std::string& text) {
  const std::unique_ptr<WritableFile> file = openStandardOutput();
  const std::int32_t error = file ? file->write(text, {}) : errno;
  if (error != 0) complainOfWriting("standard output", error);
  return error == 0;
}

/// Chooses a year, which brings the bounds of that year, also where its row is selected already:
/// the form opens on its first row whatever the present year is, with the bounds of the present
/// one.
void chooseYear(const Ref<PopupMenu>& chooser, const String& year) {
  std::int32_t row = 0;
  while (row < chooser->ListCount() && !(chooser->List(row) == year)) ++row;
  if (row == chooser->ListCount()) chooser->AddRow(year);
  if (row == chooser->ListIndex()) {
    chooser->raiseEvent("Change"_s);
  } else {
    chooser->userChose(row);
  }
}

void fill(const Ref<TextField>& field, const std::optional<std::string>& text) {
  if (!text || field->Text() == *text) return;
  field->userTyped(String(*text));
  field->userLeft();
}

void tick(const Ref<CheckBox>& box, bool ticked) {
  if (box->Value() != ticked) box->userTicked(ticked);
}

/// What a person would do in the window before pressing the button.
void fillIn(const Ref<Veldrin>& window, const CalendarRequest& request) {
  const Ref<Date> today = New<Date>();
  chooseYear(window->WhichYear(), Str(request.year.value_or(today->Year())));
  fill(window->Latitude(), request.latitude);
  fill(window->Longitude(), request.longitude);
  fill(window->TimeZone(), request.timeZone);
  fill(window->DSTStart(), request.firstBound);
  fill(window->DSTEnd(), request.secondBound);
  tick(window->DaylightSavings(), request.daylightSaving);
  tick(window->DownUnderFlag(), request.downUnder);
}

/// The three lines of the panel on the day, a line feed between them.
std::string statusOf(const Ref<Veldrin>& window, const std::string& day) {
  ParseDate(String(day), window->statusDate);
  window->Latitude()->userLeft();
  std::string lines(window->Status()->Text().view());
  for (char& character : lines) character = character == '\r' ? '\n' : character;
  return lines + "\n";
}

Ref<FolderItem> itemOf(const std::string& output) {
  if (output == "-") return New<StandardOutput>();
  return FolderItem::atPath(String(output));
}

/// The moment that a document is stamped with: that of SOURCE_DATE_EPOCH in whole seconds, by which
/// a build is the same at any time, or else the present one. A value that is no such number, or is
/// past the year 9999, counts as none.
std::int64_t stampOf(const Host& host) {
  constexpr std::int64_t LastSecond = 253402300799;
  const char* const setting = std::getenv("SOURCE_DATE_EPOCH");
  if (setting == nullptr) return host.now();
  const std::string_view text(setting);
  std::int64_t seconds = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), seconds);
  const bool whole = error == std::errc() && end == text.data() + text.size();
  return whole && seconds >= 0 && seconds <= LastSecond ? seconds : host.now();
}

/// Writes the calendar of `--standard`; returns the error number of the host, or 0.
std::int32_t writeStandard(const Ref<Veldrin>& window, const Host& host, AlmanacOptions options,
                           const std::string& output, FolderItem& item) {
  options.stamp = stampOf(host);
  const std::string document = almanac(window, options);
  return output == "-" ? writeThrough(item, document) : replaceFile(output, document);
}

int run(SystemHost& host, const CalendarRequest& request) {
  HeadlessToolkit toolkit;
  std::string status;
  std::string path;
  std::int32_t error = 0;
  std::int32_t errorOfOpening = 0;
  toolkit.job = [&] {
    const Ref<Veldrin> window = implicit::Veldrin();
    fillIn(window, request);
    if (request.statusDate) {
      status = statusOf(window, *request.statusDate);
      return;
    }
    const Ref<FolderItem> item = itemOf(request.output);
    path = item->AbsolutePath().view();
    if (request.standard) {
      error = writeStandard(window, host, *request.standard, request.output, *item);
      return;
    }
    toolkit.saveAnswers.push_back(item);
    window->GenerateButton()->userPressed();
    errorOfOpening = item->LastErrorCode;
  };
  int exitStatus = runProcess(host, toolkit, VeldrinParts);
  // A failure that could not even be reported is one of memory.
  if (exitStatus == Failed && toolkit.messages().empty() && toolkit.reports().empty()) {
    return complainOfMemory();
  }
  for (const String& message : toolkit.messages()) {
    const std::string sentence(message.view());
    complain(errorOfOpening == 0 ? sentence : sentence + ": " + reasonOf(errorOfOpening));
    exitStatus = Failed;
  }
  for (const String& report : toolkit.reports()) complain(std::string(report.view()));
  if (error != 0) {
    complainOfWriting(path, error);
    exitStatus = Failed;
  }
  if (!status.empty() && !print(status)) exitStatus = Failed;
  return exitStatus;
}

int calendarMain(int count, const char* const* arguments) {
  SystemHost host;
  const auto read = readCommandLine(count, arguments, host.shortDateForm());
  if (const auto* const request = std::get_if<CalendarRequest>(&read)) return run(host, *request);
  const auto& exit = std::get<CalendarExit>(read);
  if (exit.status != 0) {
    static_cast<void>(std::fputs(exit.text.c_str(), stderr));
    return exit.status;
  }
  return print(exit.text) ? 0 : Failed;
}

}  // namespace
}  // namespace veldrin

int main(int count, char** arguments) {
  veldrin::openStandardDescriptors();
  try {
    return veldrin::calendarMain(count, arguments);
  } catch (const std::bad_alloc&) {
    // Outside of the runtime nothing turns it into a report.
    return veldrin::complainOfMemory();
  }
}
