#include "toolkits/qt/QtChooser.h"

#include <QSignalBlocker>
#include <QStyleOptionComboBox>
#include <QWheelEvent>
#include <utility>

#include "toolkits/qt/QtText.h"

namespace veldrin {

QtChooser::QtChooser(Ref<PopupMenu> chooser, Delivery& delivery, QWidget& parent)
    : QComboBox(&parent), QtControl(chooser, chooser.get()), chooser_(std::move(chooser)) {
  setFocusPolicy(Qt::StrongFocus);
  connect(this, &QComboBox::currentIndexChanged, this, [this, &delivery](int row) {
    delivery.deliver(*chooser_, [&] { chooser_->userChose(row); });
    followOwnProperties();  // undoes a choice that was not delivered
  });
}

void QtChooser::setSpokenName(const QString& name) {
  QtControl::setSpokenName(name);
  setAccessibleDescription(name);
}

void QtChooser::followOwnProperties() {
  const QSignalBlocker blocker(this);
  QStringList rows;
  for (std::int32_t row = 0; row < chooser_->ListCount(); ++row) {
    rows.append(toQt(chooser_->List(row)));
  }
  QStringList shown;
  for (int row = 0; row < count(); ++row) shown.append(itemText(row));
  if (rows != shown) {
    clear();
    addItems(rows);
  }
  setCurrentIndex(chooser_->ListIndex());
}

bool QtChooser::showsAllText(const QFont& font) const {
  QStyleOptionComboBox option;
  initStyleOption(&option);
  option.fontMetrics = QFontMetrics(font);
  const QRect box =
      style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, this);
  for (int row = 0; row < count(); ++row) {
    if (!textFits(font, itemText(row), box.size())) return false;
  }
  return true;
}

void QtChooser::wheelEvent(QWheelEvent* event) {
  // If the list has no focus, scrolling over it must not change the choice: a new year overwrites
  // typed dates.
  if (hasFocus()) return QComboBox::wheelEvent(event);
  event->ignore();
}

}  // namespace veldrin
