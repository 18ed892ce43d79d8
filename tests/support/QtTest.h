#pragma once

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <algorithm>
#include <cstdlib>
#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "apps/SpokenNames.h"
#include "apps/VeldrinParts.h"
#include "calendar/OutputFile.h"
#include "daystatus/Veldrin.h"
#include "shell/Runtime.h"
#include "tests/support/FakeHost.h"
#include "toolkits/qt/QtToolkit.h"

namespace veldrin::test {

/// The one toolkit of the process, as there can be one application object.
inline QtToolkit* theToolkit = nullptr;

/// The window on a desktop that has no screen, pressed as a person would press it. The host stands
/// at 2024-06-21 12:00, in a zone 8 hours west with its daylight-saving hour.
class QtTest : public testing::Test {
 protected:
  using Answer = std::function<void(QDialog&)>;

  QtTest() {
    host.stand({2024, 6, 21, 12, 0, 0}, -7.0);
    OutputFile::_Initialize();
    static_cast<void>(implicit::Veldrin());
    QApplication::setActiveWindow(&window());
    watch.callOnTimeout([this] { attend(); });
    watch.start(1);
  }

  ~QtTest() override {
    EXPECT_TRUE(answers.empty()) << answers.size() << " dialogs have not come";
    finalizeGlobals();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }

  static QMainWindow& window() {
    for (QWidget* const widget : QApplication::topLevelWidgets()) {
      if (auto* const found = qobject_cast<QMainWindow*>(widget)) return *found;
    }
    throw std::logic_error("no window");
  }

  template <class Widget = QWidget>
  static Widget& widget(std::string_view name) {
    return *window().findChild<Widget*>(
        QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size())));
  }

  static std::string status() { return std::string(implicit::Veldrin()->Status()->Text().view()); }
  static QLineEdit& field(std::string_view name) { return widget<QLineEdit>(name); }
  static QAction& item(std::string_view name) { return widget<QAction>(name); }

  static void click(std::string_view name) {
    QTest::mouseClick(&widget(name), Qt::LeftButton, {}, {10, 10});
  }

  /// Puts the text in the place of what is in the field, which keeps the focus.
  static void type(std::string_view name, const QString& text) {
    field(name).setFocus();
    field(name).selectAll();
    QTest::keyClicks(&field(name), text);
  }

  /// Answers a dialog to come, in the order in which they come. One that comes with no answer to it
  /// fails the test.
  void whenAsked(Answer answer) { answers.push_back(std::move(answer)); }

  FakeHost host;
  QtToolkit& toolkit = *theToolkit;
  Runtime runtime{host, toolkit};
  QTemporaryDir folder;

 private:
  void attend() {
    auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (dialog == nullptr || !dialog->isVisible() || scheduled) return;
    if (std::ranges::find(attended, dialog) != attended.end()) return;
    scheduled = true;
    Answer answer = [](QDialog& unexpected) {
      ADD_FAILURE() << "a dialog that nobody expects";
      unexpected.reject();
    };
    if (!answers.empty()) {
      answer = std::move(answers.front());
      answers.pop_front();
    }
    // Behind this call, since the answer may open a dialog of its own.
    QTimer::singleShot(0, dialog, [this, dialog, answer] {
      scheduled = false;
      attended.push_back(dialog);
      answer(*dialog);
      attended.pop_back();
    });
  }

  std::deque<Answer> answers;
  bool scheduled = false;          ///< an answer waits for its turn
  std::vector<QDialog*> attended;  ///< whose answers are being given, each inside the one before
  QTimer watch;
};

}  // namespace veldrin::test
