#pragma once

#include <deque>
#include <functional>
#include <vector>

#include "shell/files/FolderItem.h"
#include "shell/window/Toolkit.h"

namespace veldrin {

/// A toolkit with no screen: it answers dialogs from a script, keeps what was said, and runs a
/// given job as its event loop. The job presses what a person would press, through the controls.
class HeadlessToolkit final : public Toolkit {
 public:
  /// What the event loop does, once. It ends when the job does.
  std::function<void()> job;
  /// The answers of the save dialogs to come, nil for cancelled; with none left a dialog cancels.
  std::deque<Ref<FolderItem>> saveAnswers;

  /// Whether the desktop that this stands for has a menu bar of its own.
  bool ownMenuBar = false;

  /// What the message boxes said, in order.
  [[nodiscard]] const std::vector<String>& messages() const { return messages_; }
  /// What the exceptions that nothing caught were reported as, in order.
  [[nodiscard]] const std::vector<String>& reports() const { return reports_; }

  /// Whether a report could not even be made, for lack of memory.
  [[nodiscard]] bool hasLostReport() const { return hasLostReport_; }

  void windowOpened(Window& /*window*/) override {}
  void windowClosed(Window& /*window*/) override {}
  void controlChanged(Control& /*control*/) override {}
  void windowChanged(Window& /*window*/) override {}
  void menusChanged() override {}
  [[nodiscard]] bool hasOwnMenuBar() const override { return ownMenuBar; }
  Ref<FolderItem> getSaveFolderItem(const String& filter, const String& defaultName) override;
  void messageBox(const String& text) override { messages_.push_back(text); }
  void run() override;
  void quit() override {}
  void backgroundTask() override {}
  void reportUnhandledException(const RuntimeException& /*exception*/,
                                const String& sentence) override {
    reports_.push_back(sentence);
  }
  void reportFault(const String& sentence) override { messages_.push_back(sentence); }
  void reportLost() noexcept override { hasLostReport_ = true; }

 private:
  std::vector<String> messages_;
  std::vector<String> reports_;
  bool hasLostReport_ = false;
};

}  // namespace veldrin
