#pragma once

#include <deque>
#include <functional>
#include <string_view>
#include <utility>
#include <vector>

#include "shell/files/FolderItem.h"
#include "shell/objects/Failure.h"
#include "tests/support/Person.h"

namespace veldrin::test {

/// Stands before the toolkit of a person, passes everything on to it, and keeps what was asked.
class WatchedToolkit final : public Toolkit {
 public:
  /// An exception that was reported, by its class and number.
  struct Report {
    String className;
    std::int32_t errorNumber;
    String sentence;
  };

  explicit WatchedToolkit(Person& person) : person_(person), shown_(person.toolkit()) {}

  /// What a person does while the event loop runs.
  std::function<void()> job;
  /// Answers to the save dialogs to come, nil for cancelled. No dialog is shown while there are
  /// any.
  std::deque<Ref<FolderItem>> saveAnswers;
  /// Called for every change made by the program, where it is set.
  std::function<void(Control&)> onControlChanged;
  /// Called at every yield, where it is set.
  std::function<void()> onBackgroundTask;
  /// Whether the desktop has a menu bar of its own.
  bool ownMenuBar = false;

  /// What the message boxes said, in order.
  std::vector<String> messages;
  /// The exceptions that nothing caught.
  std::vector<Report> reports;
  /// How often a loop has yielded.
  std::int64_t backgroundTasks = 0;
  /// How often something of the menus has changed, and something of a window.
  int toldOfMenus = 0;
  int toldOfWindows = 0;
  /// What became of windows and the loop, in order, by the toolkit's own names for it.
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
    ++toldOfWindows;
    shown_.windowChanged(window);
  }
  void menusChanged() override {
    ++toldOfMenus;
    shown_.menusChanged();
  }
  [[nodiscard]] bool hasOwnMenuBar() const override { return ownMenuBar; }
  Ref<FolderItem> getSaveFolderItem(const String& filter, const String& defaultName) override {
    if (saveAnswers.empty()) return shown_.getSaveFolderItem(filter, defaultName);
    Ref<FolderItem> answer = std::move(saveAnswers.front());
    saveAnswers.pop_front();
    return answer;
  }
  void messageBox(const String& text) override {
    messages.push_back(text);
    shown_.messageBox(text);
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
  void reportLost() noexcept override { shown_.reportLost(); }

 private:
  Person& person_;
  Toolkit& shown_;
};

}  // namespace veldrin::test
