#pragma once

#include <QApplication>
#include <memory>
#include <span>
#include <vector>

#include "shell/window/Toolkit.h"
#include "toolkits/qt/Delivery.h"
#include "toolkits/qt/Editing.h"
#include "toolkits/qt/NoDisplay.h"
#include "toolkits/qt/QtWindow.h"

namespace veldrin {

/// The toolkit of a desktop. There can be one at a time, as there can be one `QApplication`.
class QtToolkit final : public Toolkit {
 public:
  /// The names must outlive the toolkit.
  explicit QtToolkit(std::span<const SpokenName> names);
  ~QtToolkit() override;

  void windowOpened(Window& window) override;
  void windowClosed(Window& window) override;
  void controlChanged(Control& control) override;
  void windowChanged(Window& window) override;
  void menusChanged() override;
  [[nodiscard]] bool hasOwnMenuBar() const override;
  Ref<FolderItem> getSaveFolderItem(const String& filter, const String& defaultName) override;
  void messageBox(const String& text) override;
  void run() override;
  void quit() override;
  void backgroundTask() override;
  void reportUnhandledException(const RuntimeException& exception, const String& sentence) override;
  void reportFault(const String& sentence) override;
  void reportLost() noexcept override;

 private:
  /// Qt's application object, with the C library's numbers left as they were.
  class Application : public QApplication {
   public:
    explicit Application(const NoDisplay& watch);
  };

  [[nodiscard]] QWidget* front() const;
  void turnTo(bool active);
  void report(const QString& reason);

  std::span<const SpokenName> names_;
  Application application_;
  Delivery delivery_;
  Editing editing_;
  std::vector<std::unique_ptr<QtWindow>> windows_;
  bool running_ = false;  ///< the event loop is
  bool ended_ = false;
};

}  // namespace veldrin
