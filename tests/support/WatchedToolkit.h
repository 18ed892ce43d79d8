#pragma once

#include <gtest/gtest.h>

#include <deque>
#include <functional>
#include <string_view>
#include <utility>
#include <vector>

#include "shell/files/FolderItem.h"
#include "shell/objects/Failure.h"
#include "tests/support/Person.h"

namespace veldrin::test {

/// Records calls and passes them on to the toolkit of a person.
class WatchedToolkit final : public Toolkit {
 public:
  /// A reported exception.
  struct Report {
    String className;
    std::int32_t errorNumber;
    String sentence;
  };

  explicit WatchedToolkit(Person& person) : person_(person), shown_(person.toolkit()) {}

  /// Runs inside the event loop.
  std::function<void()> job;
  /// The results of the next save dialogs; nil for a cancelled one. These dialogs are not shown.
  std::deque<Ref<FolderItem>> saveAnswers;
  /// If set, called when the program changes a control.
  std::function<void(Control&)> onControlChanged;
  /// If set, called at every yield.
  std::function<void()> onBackgroundTask;
  /// Whether the desktop has a global menu bar.
  bool ownMenuBar = false;

  /// The texts of the message boxes and faults, in order.
  std::vector<String> messages;
  /// The reports of uncaught exceptions, in order.
  std::vector<Report> reports;
  /// The number of yields.
  std::int64_t backgroundTasks = 0;
  int menuChanges = 0;
  int windowChanges = 0;
  /// The calls of `windowOpened`, `windowClosed` and `quit`, in order.
  std::vector<std::string_view> steps;

  void windowOpened(Window& window) override {
    steps.emplace_back("windowOpened");
    shown_.windowOpened(window);
  }
  void windowClosed(Window& window) override {
    steps.emplace_back("windowClosed");
    shown_.windowClosed(window);
  }
  void controlChanged(Control& control) override {
    if (onControlChanged) onControlChanged(control);
    shown_.controlChanged(control);
  }
  void windowChanged(Window& window) override {
    ++windowChanges;
    shown_.windowChanged(window);
  }
  void menusChanged() override {
    ++menuChanges;
    shown_.menusChanged();
  }
  [[nodiscard]] bool hasOwnMenuBar() const override { return ownMenuBar; }
  Ref<FolderItem> getSaveFolderItem(const Window* parent, const String& filter,
                                    const String& defaultName) override {
    if (saveAnswers.empty()) return shown_.getSaveFolderItem(parent, filter, defaultName);
    Ref<FolderItem> answer = std::move(saveAnswers.front());
    saveAnswers.pop_front();
    return answer;
  }
  void messageBox(const Window* parent, const String& text) override {
    EXPECT_TRUE(parent == nullptr || parent->isOpen());
    messages.push_back(text);
    shown_.messageBox(parent, text);
  }
  void run() override {
    person_.runLoop(std::exchange(job, [] {}));
  }
  void quit() override {
    steps.emplace_back("quit");
    shown_.quit();
  }
  void backgroundTask() override {
    ++backgroundTasks;
    if (onBackgroundTask) onBackgroundTask();
    shown_.backgroundTask();
  }
  void reportUnhandledException(const RuntimeException& exception,
                                const String& sentence) override {
    reports.push_back({exception.classRecord()->name, exception.ErrorNumber, sentence});
    shown_.reportUnhandledException(exception, sentence);
  }
  void reportFault(const String& sentence) override {
    messages.push_back(sentence);
    shown_.reportFault(sentence);
  }
  void reportOutOfMemory() noexcept override { shown_.reportOutOfMemory(); }

 private:
  Person& person_;
  Toolkit& shown_;
};

}  // namespace veldrin::test
