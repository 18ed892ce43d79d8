#pragma once

#include <QAction>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTest>
#include <string_view>
#include <utility>

#include "tests/qt/QtPerson.h"
#include "tests/support/RuntimeTest.h"

namespace veldrin::test {

/// The open window as widgets, for what only a desktop has.
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
