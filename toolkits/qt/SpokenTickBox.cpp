#include "toolkits/qt/SpokenTickBox.h"

#include <QAccessibleWidget>

#include "toolkits/qt/QtTickBox.h"

namespace veldrin {
namespace {

class SpokenTickBox final : public QAccessibleWidget {
 public:
  explicit SpokenTickBox(QtTickBox& box)
      : QAccessibleWidget(&box, QAccessible::CheckBox, box.spokenName()), box_(box) {}

  [[nodiscard]] QAccessible::State state() const override {
    QAccessible::State state = QAccessibleWidget::state();
    state.checkable = true;
    state.checked = box_.isChecked();
    return state;
  }

  [[nodiscard]] QStringList actionNames() const override {
    return QStringList(toggleAction()) + QAccessibleWidget::actionNames();
  }

  void doAction(const QString& name) override {
    if (name != toggleAction()) return QAccessibleWidget::doAction(name);
    if (box_.isEnabled()) box_.click();
  }

 private:
  QtTickBox& box_;  ///< the widget of this object, which goes after it
};

}  // namespace

QAccessibleInterface* spokenTickBox(const QString& /*kind*/, QObject* object) {
  auto* const box = dynamic_cast<QtTickBox*>(object);
  return box == nullptr ? nullptr : new SpokenTickBox(*box);
}

}  // namespace veldrin
