#pragma once

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QMainWindow>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <deque>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tests/support/RuntimeTest.h"
#include "toolkits/qt/QtToolkit.h"

namespace veldrin::test {

/// Uses the widgets with keys and mouse. Qt's platform "offscreen" needs no screen.
class QtPerson final : public Person {
 public:
  using Answer = std::function<void(QDialog&)>;

  /// The toolkit of the process; Qt allows one application object.
  static inline QtToolkit* theToolkit = nullptr;

  QtPerson();
  ~QtPerson() override;

  static QMainWindow& window();

  template <class Widget = QWidget>
  static Widget& widget(std::string_view name) {
    return *window().findChild<Widget*>(QString::fromStdString(std::string(name)));
  }

  /// Adds an answer; each dialog takes the next one. Without an answer left, a message is closed
  /// and a question fails the test.
  void whenAsked(Answer answer) { answers_.push_back(std::move(answer)); }

  Toolkit& toolkit() override { return *theToolkit; }
  void turnToWindow() override { QApplication::setActiveWindow(&window()); }
  void runLoop(const std::function<void()>& job) override;
  void type(std::string_view field, std::string_view text) override;
  void leave(std::string_view field) override;
  void press(std::string_view button) override;
  void tick(std::string_view box, bool ticked) override;
  void choose(std::string_view list, int row) override;
  void command(std::string_view menuItem) override;
  void closeWindow() override { window().close(); }
  std::string shown(std::string_view control) override;
  bool isTicked(std::string_view box) override;
  std::string looks(std::string_view control) override;
  std::string menuLooks(std::string_view item) override;
  std::string title() override { return window().windowTitle().toStdString(); }

 private:
  void attend();
  Answer nextAnswer();

  std::deque<Answer> answers_;
  bool isScheduled_ = false;
  std::vector<QDialog*> attended_;  ///< whose answers are running, the outermost first
  QTimer watch_;
};

/// The widgets of the open window, for tests that need Qt.
class QtTest : public WindowTest {
 protected:
  using Answer = QtPerson::Answer;

  template <class Widget = QWidget>
  static Widget& widget(std::string_view name) {
    return QtPerson::widget<Widget>(name);
  }
  static QLineEdit& field(std::string_view name) { return widget<QLineEdit>(name); }
  static QAction& item(std::string_view name) { return widget<QAction>(name); }

  void whenAsked(Answer answer) const {
    dynamic_cast<QtPerson&>(*person).whenAsked(std::move(answer));
  }

  QTemporaryDir folder;
};

}  // namespace veldrin::test
