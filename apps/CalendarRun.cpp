#include "apps/CalendarRun.h"

#include "apps/ProgramMain.h"
#include "apps/StandardOutput.h"
#include "apps/VeldrinParts.h"
#include "daystatus/Veldrin.h"
#include "shell/values/ParseDate.h"
#include "shell/values/Text.h"
#include "toolkits/headless/HeadlessToolkit.h"

namespace veldrin {
namespace {

/// Chooses a year; the handler of "Change" then writes the bounds of that year. Raises "Change"
/// even if the row is already selected, because the form may open with the bounds of another year.
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

void tick(const Ref<CheckBox>& box, bool isTicked) {
  if (box->Value() != isTicked) box->userTicked(isTicked);
}

/// Sets the controls of the window.
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

/// The three lines of the status panel for a day, each ended by a line feed.
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

}  // namespace

RunOutcome runWindow(Host& host, const CalendarRequest& request) {
  HeadlessToolkit toolkit;
  RunOutcome outcome;
  std::int32_t errorOfOpening = 0;
  toolkit.job = [&] {
    const Ref<Veldrin> window = implicit::Veldrin();
    fillIn(window, request);
    if (request.statusDate) {
      outcome.output = statusOf(window, *request.statusDate);
      return;
    }
    const Ref<FolderItem> item = itemOf(request.output);
    toolkit.saveAnswers.push_back(item);
    window->GenerateButton()->userPressed();
    errorOfOpening = item->LastErrorCode;
  };
  outcome.status = runProcess(host, toolkit, VeldrinParts);
  outcome.isOutOfMemory = toolkit.isOutOfMemory();
  for (const String& message : toolkit.messages()) {
    const std::string sentence(message.view());
    outcome.complaints.push_back(errorOfOpening == 0 ? sentence
                                                     : sentence + ": " + reasonOf(errorOfOpening));
    outcome.status = Failed;
  }
  for (const String& report : toolkit.reports()) outcome.complaints.emplace_back(report.view());
  return outcome;
}

}  // namespace veldrin
