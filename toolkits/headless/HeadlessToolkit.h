#pragma once

#include <deque>
#include <functional>
#include <vector>

#include "shell/files/FolderItem.h"
#include "shell/window/Toolkit.h"

namespace veldrin {

/// A toolkit without a display. It answers save dialogs from a list, stores messages, and runs a
/// job instead of an event loop. The job acts as the user, through the controls.
class HeadlessToolkit final : public Toolkit {
 public:
  /// Called once by `run()`.
  std::function<void()> job;
  /// The answers to the next save dialogs; nil, or an empty list, means cancelled.
  std::deque<Ref<FolderItem>> saveAnswers;

  /// Whether the simulated desktop has a global menu bar.
  bool ownMenuBar = false;

  /// The texts of all message boxes and faults, in order.
  [[nodiscard]] const std::vector<String>& messages() const { return messages_; }
  /// The reports of uncaught exceptions, in order.
  [[nodiscard]] const std::vector<String>& reports() const { return reports_; }

  /// Whether there was not enough memory for a report.
  [[nodiscard]] bool isOutOfMemory() const { return isOutOfMemory_; }

  void windowOpened(Window& /*window*/) override {}
  void windowClosed(Window& /*window*/) override {}
  void controlChanged(Control& /*control*/) override {}
  void windowChanged(Window& /*window*/) override {}
  void menusChanged() override {}
  [[nodiscard]] bool hasOwnMenuBar() const override { return ownMenuBar; }
  Ref<FolderItem> getSaveFolderItem(const Window* parent, const String& filter,
                                    const String& defaultName) override;
  void messageBox(const Window* /*parent*/, const String& text) override {
    messages_.push_back(text);
  }
  void run() override;
  void quit() override {}
  void backgroundTask() override {}
  void reportUnhandledException(const RuntimeException& /*exception*/,
                                const String& sentence) override {
    reports_.push_back(sentence);
  }
  void reportFault(const String& sentence) override { messages_.push_back(sentence); }
  void reportOutOfMemory() noexcept override { isOutOfMemory_ = true; }

 private:
  std::vector<String> messages_;
  std::vector<String> reports_;
  bool isOutOfMemory_ = false;
};

}  // namespace veldrin
