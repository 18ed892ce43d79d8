#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "apps/ProgramMain.h"
#include "apps/VeldrinParts.h"
#include "shell/host/Complaint.h"
#include "shell/objects/ClassRecord.h"
#include "ui/FormStreams.h"

namespace veldrin {
namespace {

constexpr const char* Program = "veldrin-inspect";

constexpr std::string_view Help =
    R"(Usage: veldrin-inspect COMMAND
Shows the class tables.

Commands:
  classes       prints the full name of each class, in the order in which they were built
  class NAME    prints the class with this full name, without its inherited members
  form DIR      writes the property streams of the window and of its controls into the folder, one
                file for each; the file has the name of the window or control

The command "class" always prints all of these headings. Below a heading it prints one line for each
row, in the order of the table:
  base:         the base class
  attributes:   name, and value if there is one
  events:       name of each event that the class handles
  properties:   name and type code
  methods:      name and signature

Exit status: 0 for success, 1 if a file or the output cannot be written, 2 for a wrong command or an
unknown class.
)";

/// The result of a command: its output, or an error message and the exit status.
struct Answer {
  std::string output;
  std::string error;
  int status = 0;
};

Answer failure(std::string message, int status = Misused) {
  return {.output = {}, .error = std::move(message), .status = status};
}

void addLine(std::string& text, std::string_view first, std::string_view second = {}) {
  text.append(first);
  if (!second.empty()) text.append(" ").append(second);
  text.append("\n");
}

/// All classes, in the order in which they were built.
std::vector<const ClassRecord*> allClasses() {
  std::vector<const ClassRecord*> classes;
  for (const ClassRecord* record = RuntimeGetClassList(); record != nullptr;
       record = record->nextClass) {
    classes.push_back(record);
  }
  std::ranges::reverse(classes);
  return classes;
}

/// Whether the class handles the event with another handler than its base class.
bool hasOwnHandler(const ClassRecord& record, std::size_t index) {
  const Function handler = record.eventRows[index].handler;
  if (handler == nullptr) return false;
  const ClassRecord* const base = record.baseClass;
  const bool isInherited = base != nullptr && index < base->eventRows.size();
  return !isInherited || base->eventRows[index].handler != handler;
}

Answer showClasses(std::span<const std::string_view> /*arguments*/) {
  Answer answer;
  for (const ClassRecord* record : allClasses()) addLine(answer.output, record->name.view());
  return answer;
}

std::string describe(const ClassRecord& record) {
  std::string text = "base:\n";
  if (record.baseClass != nullptr) addLine(text, record.baseClass->name.view());
  text += "attributes:\n";
  for (const AttributeRow& row : record.attributeRows) {
    addLine(text, row.name.view(), row.value.view());
  }
  text += "events:\n";
  for (std::size_t index = 0; index < record.eventRows.size(); ++index) {
    if (hasOwnHandler(record, index)) addLine(text, record.eventRows[index].name.view());
  }
  text += "properties:\n";
  for (const PropertyRow& row : record.ownProperties()) {
    addLine(text, row.name.view(), row.type.view());
  }
  text += "methods:\n";
  for (const MethodRow& row : record.ownMethods()) {
    addLine(text, row.name.view(), row.signature.view());
  }
  return text;
}

Answer showClass(std::span<const std::string_view> arguments) {
  const auto classes = allClasses();
  const auto found = std::ranges::find_if(
      classes, [&](const ClassRecord* record) { return record->name == arguments.front(); });
  if (found != classes.end()) return {.output = describe(**found), .error = {}, .status = 0};
  return failure("There is no class \"" + std::string(arguments.front()) + "\".");
}

Answer writeForm(std::span<const std::string_view> arguments) {
  const std::filesystem::path folder(arguments.front());
  for (std::size_t index = 0; index < FormStreams.size(); ++index) {
    const bool isWindow = index == FormNames.size();
    const std::filesystem::path path =
        folder / (isWindow ? std::string_view("Veldrin") : FormNames[index].view());
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    const std::string_view stream = FormStreams[index].view();
    file.write(stream.data(), static_cast<std::streamsize>(stream.size()));
    file.close();
    if (!file) return failure("Cannot write to " + path.string(), Failed);
  }
  return {};
}

Answer showHelp(std::span<const std::string_view> /*arguments*/) {
  return {.output = std::string(Help), .error = {}, .status = 0};
}

struct Command {
  std::string_view name;
  std::size_t argumentCount;
  Answer (*run)(std::span<const std::string_view> arguments);
};

constexpr std::array Commands{
    Command{"classes", 0, showClasses},
    Command{"class", 1, showClass},
    Command{"form", 1, writeForm},
    Command{"--help", 0, showHelp},
};

Answer run(std::span<const std::string_view> words) {
  if (words.empty()) return failure("A command is missing; see --help.");
  const auto* const command = std::ranges::find(Commands, words.front(), &Command::name);
  if (command == Commands.end()) {
    return failure("There is no command \"" + std::string(words.front()) + "\"; see --help.");
  }
  if (words.size() - 1 != command->argumentCount) {
    return failure("The command \"" + std::string(command->name) +
                   "\" takes a different number of arguments; see --help.");
  }
  return command->run(words.subspan(1));
}

int inspectMain(std::span<char*> words) {
  initializeClasses();
  const std::vector<std::string_view> arguments(words.begin(), words.end());
  const Answer answer = run(arguments);
  if (!answer.error.empty()) {
    complain(Program, answer.error);
    return answer.status;
  }
  const std::size_t written = std::fwrite(answer.output.data(), 1, answer.output.size(), stdout);
  if (std::fflush(stdout) != 0 || written != answer.output.size()) {
    complain(Program, "The output cannot be written.");
    return Failed;
  }
  return 0;
}

}  // namespace
}  // namespace veldrin

int main(int count, char** arguments) {
  const std::span words(arguments, static_cast<std::size_t>(count));
  return veldrin::runProgram(veldrin::Program,
                             [&] { return veldrin::inspectMain(words.subspan(1)); });
}
