#pragma once

#include <deque>
#include <functional>
#include <string_view>
#include <vector>

#include "shell/FolderItem.h"
#include "shell/Toolkit.h"

namespace veldrin {

/// A toolkit with no screen: it answers dialogs from a script, keeps what was said, and runs a
/// given job as its event loop. The job presses what a person would press, through the controls.
class HeadlessToolkit final : public Toolkit {
 public:
  /// An exception that was reported, by its class and number.
  struct Report {
    String className;
    std::int32_t errorNumber;
  };

  /// What the event loop does. It ends when the job does.
  std::function<void()> job;
  /// The answers of the save dialogs to come, nil for cancelled; with none left a dialog cancels.
  std::deque<Ref<FolderItem>> saveAnswers;
  /// Called for every change made by the program, where it is set.
  std::function<void(Control&)> onControlChanged;

  /// What the message boxes said, in order.
  [[nodiscard]] const std::vector<String>& messages() const { return messages_; }
  /// The exceptions that nothing caught.
  [[nodiscard]] const std::vector<Report>& reports() const { return reports_; }
  /// How often a loop has yielded.
  [[nodiscard]] std::int64_t backgroundTasks() const { return backgroundTasks_; }
  /// What became of windows, menu items and the loop, in order, by the toolkit's own names for it.
  [[nodiscard]] const std::vector<std::string_view>& steps() const { return steps_; }

  void windowOpened(Window& /*window*/) override { steps_.emplace_back("windowOpened"); }
  void windowClosed(Window& /*window*/) override { steps_.emplace_back("windowClosed"); }
  void controlChanged(Control& control) override;
  void menuItemsEnabled() override { steps_.emplace_back("menuItemsEnabled"); }
  Ref<FolderItem> getSaveFolderItem(const String& filter, const String& defaultName) override;
  void messageBox(const String& text) override { messages_.push_back(text); }
  void run() override;
  void quit() override { steps_.emplace_back("quit"); }
  void backgroundTask() override { ++backgroundTasks_; }
  void reportUnhandledException(const RuntimeException& exception) override;
  void reportFault(const String& sentence) override { messages_.push_back(sentence); }

 private:
  std::vector<String> messages_;
  std::vector<Report> reports_;
  std::vector<std::string_view> steps_;
  std::int64_t backgroundTasks_ = 0;
};

}  // namespace veldrin
