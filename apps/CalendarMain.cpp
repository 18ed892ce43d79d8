#include <string>
#include <variant>

#include "apps/CalendarOptions.h"
#include "apps/CalendarRun.h"
#include "apps/ProgramMain.h"
#include "apps/RunOutcome.h"
#include "apps/StandardOutput.h"
#include "apps/StandardRun.h"
#include "shell/files/FileReplacement.h"
#include "shell/files/FilesRoom.h"
#include "shell/host/SystemHost.h"

namespace veldrin {
namespace {

constexpr const char* Program = "veldrin-calendar";

/// Prints on standard output and says every complaint. Returns the exit status.
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

int runCalendar(int count, const char* const* arguments) {
  SystemHost host;
  auto read = readCommandLine(count, arguments, host.shortDateForm());
  if (auto* const refused = std::get_if<RunOutcome>(&read)) return tell(std::move(*refused));
  const auto& request = std::get<CalendarRequest>(read);
  return tell(request.standard ? runStandard(host, request) : runWindow(host, request));
}

}  // namespace
}  // namespace veldrin

int main(int count, char** arguments) {
  return veldrin::runProgram(veldrin::Program,
                             [&] { return veldrin::runCalendar(count, arguments); });
}
