#include "tests/qt/QtPerson.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <algorithm>
#include <exception>
#include <stdexcept>

namespace veldrin::test {

std::unique_ptr<Person> newPerson() {
  return std::make_unique<QtPerson>();
}

QtPerson::QtPerson() {
  watch_.callOnTimeout([this] { attend(); });
  watch_.start(1);
}

QtPerson::~QtPerson() {
  EXPECT_TRUE(answers_.empty()) << answers_.size() << " dialogs did not open";
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

QMainWindow& QtPerson::window() {
  QMainWindow* shown = nullptr;
  for (QWidget* const widget : QApplication::topLevelWidgets()) {
    auto* const found = qobject_cast<QMainWindow*>(widget);
    if (found == nullptr || !found->isVisible()) continue;
    if (shown != nullptr) throw std::logic_error("two windows");
    shown = found;
  }
  if (shown == nullptr) throw std::logic_error("no window");
  return *shown;
}

void QtPerson::runLoop(const std::function<void()>& job) {
  std::exception_ptr raised;
  QTimer::singleShot(0, &watch_, [&] {
    turnToWindow();
    try {
      job();
    } catch (...) {
      raised = std::current_exception();
    }
    QCoreApplication::exit();
  });
  theToolkit->run();
  if (raised) std::rethrow_exception(raised);
}

void QtPerson::type(std::string_view field, std::string_view text) {
  auto& edited = widget<QLineEdit>(field);
  edited.setFocus();
  edited.selectAll();
  QTest::keyClick(&edited, Qt::Key_Delete);
  const QString wanted = QString::fromStdString(std::string(text));
  constexpr std::size_t LongestTyped = 40;
  const bool isTypeable =
      std::ranges::all_of(text, [](char letter) { return letter >= ' ' && letter <= '~'; });
  if (isTypeable && text.size() <= LongestTyped) return QTest::keyClicks(&edited, wanted);
  QApplication::clipboard()->setText(wanted);
  QTest::keyClick(&edited, Qt::Key_V, Qt::ControlModifier);
}

void QtPerson::leave(std::string_view field) {
  widget(field).setFocus();
  QTest::keyClick(&widget(field), Qt::Key_Tab);
}

void QtPerson::press(std::string_view button) {
  QTest::mouseClick(&widget<QPushButton>(button), Qt::LeftButton);
}

void QtPerson::tick(std::string_view box, bool ticked) {
  if (isTicked(box) == ticked) return;
  QTest::mouseClick(&widget<QCheckBox>(box), Qt::LeftButton, {}, {10, 10});
}

void QtPerson::choose(std::string_view list, int row) {
  auto& chooser = widget<QComboBox>(list);
  chooser.setFocus();
  chooser.showPopup();
  chooser.view()->setCurrentIndex(chooser.model()->index(row, 0));
  QTest::keyClick(chooser.view(), Qt::Key_Return);
}

void QtPerson::command(std::string_view menuItem) {
  widget<QAction>(menuItem).trigger();
}

std::string QtPerson::shown(std::string_view control) {
  const QWidget* const found = &widget(control);
  if (const auto* const field = qobject_cast<const QLineEdit*>(found)) {
    return field->displayText().toStdString();
  }
  if (const auto* const list = qobject_cast<const QComboBox*>(found)) {
    return list->currentText().toStdString();
  }
  return dynamic_cast<const QLabel&>(*found).text().replace('\n', '\r').toStdString();
}

bool QtPerson::isTicked(std::string_view box) {
  return widget<QCheckBox>(box).isChecked();
}

std::string QtPerson::looks(std::string_view control) {
  const QWidget& found = widget(control);
  const auto* const button = qobject_cast<const QPushButton*>(&found);
  const QRect place = found.geometry();
  return described(button != nullptr ? button->text().toStdString() : shown(control),
                   {place.left(), place.top(), place.width(), place.height()}, found.isVisible(),
                   found.font().bold()) +
         described("", found.isEnabled());
}

std::string QtPerson::menuLooks(std::string_view item) {
  const QString name = QString::fromStdString(std::string(item));
  const auto* const menu = window().findChild<QMenu*>(name);
  const QAction* const action =
      menu != nullptr ? menu->menuAction() : window().findChild<QAction*>(name);
  if (action == nullptr) return "";
  return described(action->text().toStdString(), action->isEnabled(), action->isChecked());
}

QtPerson::Answer QtPerson::nextAnswer() {
  if (answers_.empty()) {
    return [](QDialog& unexpected) {
      const auto* const box = qobject_cast<QMessageBox*>(&unexpected);
      const bool isMessage = box != nullptr && box->standardButtons() == QMessageBox::Ok;
      EXPECT_TRUE(isMessage) << "an unexpected question";
      unexpected.reject();
    };
  }
  Answer answer = std::move(answers_.front());
  answers_.pop_front();
  return answer;
}

void QtPerson::attend() {
  auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
  if (dialog == nullptr || !dialog->isVisible() || isScheduled_) return;
  if (std::ranges::find(attended_, dialog) != attended_.end()) return;
  isScheduled_ = true;
  // Deferred, because the answer may open another dialog.
  QTimer::singleShot(0, dialog, [this, dialog, answer = nextAnswer()] {
    isScheduled_ = false;
    attended_.push_back(dialog);
    answer(*dialog);
    attended_.pop_back();
  });
}

}  // namespace veldrin::test
