#include "toolkits/qt/Editing.h"

#include <QApplication>
#include <QClipboard>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <algorithm>
#include <iterator>

namespace veldrin {
namespace {

bool canCopy(const QLineEdit& field) {
  return field.hasSelectedText() && field.echoMode() == QLineEdit::Normal;
}

bool canPaste(const QLineEdit& field) {
  const QMimeData* const held = QGuiApplication::clipboard()->mimeData();
  return !field.isReadOnly() && held != nullptr && held->hasText();
}

const EditingCommand Commands[] = {
    {"EditUndo"_s, [](const QLineEdit& field) { return field.isUndoAvailable(); },
     [](QLineEdit& field) { field.undo(); }},
    {"EditCut"_s, [](const QLineEdit& field) { return canCopy(field) && !field.isReadOnly(); },
     [](QLineEdit& field) { field.cut(); }},
    {"EditCopy"_s, canCopy, [](QLineEdit& field) { field.copy(); }},
    {"EditPaste"_s, canPaste, [](QLineEdit& field) { field.paste(); }},
    {"EditClear"_s,
     [](const QLineEdit& field) { return field.hasSelectedText() && !field.isReadOnly(); },
     [](QLineEdit& field) { field.del(); }},
    {"EditSelectAll"_s, [](const QLineEdit& field) { return !field.text().isEmpty(); },
     [](QLineEdit& field) { field.selectAll(); }},
};

}  // namespace

const EditingCommand* editingCommand(const String& item) {
  const auto* const found = std::ranges::find_if(
      Commands, [&](const EditingCommand& command) { return command.item.view() == item.view(); });
  return found == std::end(Commands) ? nullptr : found;
}

bool isMenu(const QWidget* widget) {
  return qobject_cast<const QMenuBar*>(widget) != nullptr ||
         qobject_cast<const QMenu*>(widget) != nullptr;
}

Editing::Editing() {
  QObject::connect(qApp, &QApplication::focusChanged, &context_,
                   [this](QWidget* /*before*/, QWidget* now) { focusMoved(now); });
}

bool Editing::isPossible(const EditingCommand& command) const {
  return field_ != nullptr && command.isPossible(*field_);
}

void Editing::carryOut(const EditingCommand& command) const {
  if (isPossible(command)) command.carryOut(*field_);
}

void Editing::focusMoved(QWidget* widget) {
  // Nil: another program has the focus. A menu: it returns the focus soon.
  if (widget == nullptr || isMenu(widget)) return;
  field_ = qobject_cast<QLineEdit*>(widget);
}

}  // namespace veldrin
