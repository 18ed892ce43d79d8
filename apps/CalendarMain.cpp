#include <string>
#include <variant>

#include "apps/AlmanacRun.h"
#include "apps/CalendarOptions.h"
#include "apps/CalendarRun.h"
#include "apps/PlaceOfRequest.h"
#include "apps/ProgramMain.h"
#include "apps/RunOutcome.h"
#include "apps/StandardOutput.h"
#include "places/PlaceFault.h"
#include "shell/files/FileReplacement.h"
#include "shell/files/FilesRoom.h"
#include "shell/host/Complaint.h"
#include "shell/host/PlainText.h"
#include "shell/host/SystemHost.h"

namespace veldrin {
namespace {

constexpr const char* Program = "veldrin-calendar";

/// Prints the output and the complaints. Returns the exit status.
int tell(RunOutcome outcome) {
  if (outcome.isOutOfMemory) {
    complainOfMemory(Program);
    return Failed;
  }
  if (!outcome.output.empty()) {
    const FilesRoom files;
    const Ref<StandardOutput> item = New<StandardOutput>();
    outcome.noteWriting(std::string(item->AbsolutePath().view()),
                        writeThrough(*item, outcome.output));
  }
  for (const std::string& sentence : outcome.complaints) complain(Program, sentence);
  return outcome.status;
}

/// If a file was written for a town, adds a sentence that names the town and the file.
void noteTown(RunOutcome& outcome, const std::string& town, const std::string& file) {
  if (town.empty() || file == "-" || outcome.status != 0) return;
  outcome.output += "The sunrises and sunsets of " + town + " are in " + onOneLine(file) + ".\n";
}

RunOutcome carryOut(Host& host, CalendarRequest request) {
  try {
    if (request.towns) return listTowns(*request.towns);
    const PlaceOfRequest place = lookUpPlace(host, request);
    RunOutcome outcome = request.standard || request.chart ? runAlmanac(host, request, place)
                                                           : runWindow(host, request);
    if (!request.statusDate) noteTown(outcome, place.town, request.chart.value_or(request.output));
    return outcome;
  } catch (const PlaceFault& fault) {
    return {.status = Misused, .complaints = {fault.what()}};
  }
}

int runCalendar(int count, const char* const* arguments) {
  SystemHost host;
  auto read = readCommandLine(count, arguments, host.shortDateForm());
  if (auto* const outcome = std::get_if<RunOutcome>(&read)) return tell(std::move(*outcome));
  return tell(carryOut(host, std::get<CalendarRequest>(std::move(read))));
}

}  // namespace
}  // namespace veldrin

int main(int count, char** arguments) {
  return veldrin::runProgram(veldrin::Program,
                             [&] { return veldrin::runCalendar(count, arguments); });
}
