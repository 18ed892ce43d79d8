#pragma once

#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <string>

#include "tests/support/Documents.h"

namespace veldrin::test {

/// A new folder. The destructor deletes it with its content.
class TemporaryFolder {
 public:
  TemporaryFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "veldrin-XXXXXX").string();
    if (::mkdtemp(name.data()) == nullptr) throw std::runtime_error("no folder for the test");
    path = name;
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  ~TemporaryFolder() { std::filesystem::remove_all(path); }

  std::filesystem::path path;
};

struct Outcome {
  int status;  ///< the exit status; -1 if a signal ended the script
  std::string output;
  std::string errors;
};

/// Runs a shell script and waits for its end.
inline Outcome runScript(const std::string& script) {
  const TemporaryFolder folder;
  const std::string output = (folder.path / "output").string();
  const std::string errors = (folder.path / "errors").string();
  const std::string command = "{ " + script + "\n} >" + output + " 2>" + errors;
  const int status = std::system(command.c_str());
  return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, readFile(output), readFile(errors)};
}

}  // namespace veldrin::test
