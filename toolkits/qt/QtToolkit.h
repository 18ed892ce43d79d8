#pragma once

#include <QApplication>
#include <memory>
#include <span>
#include <vector>

#include "shell/window/Toolkit.h"
#include "toolkits/qt/Delivery.h"
#include "toolkits/qt/DisplayErrorGuard.h"
#include "toolkits/qt/Editing.h"
#include "toolkits/qt/QtWindow.h"

namespace veldrin {

/// The toolkit for Qt Widgets. Only one may exist at a time, like `QApplication`.
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
  Ref<FolderItem> getSaveFolderItem(const Window* parent, const String& filter,
                                    const String& defaultName) override;
  void messageBox(const Window* parent, const String& text) override;
  void run() override;
  void quit() override;
  void backgroundTask() override;
  void reportUnhandledException(const RuntimeException& exception, const String& sentence) override;
  void reportFault(const String& sentence) override;
  void reportOutOfMemory() noexcept override;

 private:
  /// Sets the properties of the application, and restores the C library's numeric locale "C".
  class QtApplication : public QApplication {
   public:
    explicit QtApplication(const DisplayErrorGuard& guard);
  };

  /// The widget that shows the window, or nullptr.
  [[nodiscard]] QWidget* widgetOf(const Window* window) const;
  void reportActivation(bool isActive);

  std::span<const SpokenName> names_;
  QtApplication application_;
  Delivery delivery_;
  Editing editing_;
  std::vector<std::unique_ptr<QtWindow>> windows_;
  bool isRunning_ = false;  ///< the event loop is running
  bool hasQuit_ = false;
};

}  // namespace veldrin
