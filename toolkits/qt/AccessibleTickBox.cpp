#include "toolkits/qt/AccessibleTickBox.h"

#include <QAccessibleWidget>

#include "toolkits/qt/QtTickBox.h"

namespace veldrin {
namespace {

class AccessibleTickBox final : public QAccessibleWidget {
 public:
  explicit AccessibleTickBox(QtTickBox& box)
      : QAccessibleWidget(&box, QAccessible::CheckBox, box.spokenName()) {}

  [[nodiscard]] QAccessible::State state() const override {
    QAccessible::State state = QAccessibleWidget::state();
    state.checkable = true;
    state.checked = box() != nullptr && box()->isChecked();
    return state;
  }

  [[nodiscard]] QStringList actionNames() const override {
    return QStringList(toggleAction()) + QAccessibleWidget::actionNames();
  }

  void doAction(const QString& name) override {
    if (name != toggleAction()) return QAccessibleWidget::doAction(name);
    if (box() != nullptr && box()->isEnabled()) box()->click();
  }

 private:
  /// Nil while the widget is being destroyed.
  [[nodiscard]] QCheckBox* box() const { return qobject_cast<QCheckBox*>(widget()); }
};

}  // namespace

QAccessibleInterface* makeAccessibleTickBox(const QString& /*className*/, QObject* object) {
  auto* const box = dynamic_cast<QtTickBox*>(object);
  return box == nullptr ? nullptr : new AccessibleTickBox(*box);
}

}  // namespace veldrin
