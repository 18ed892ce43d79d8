#pragma once

#include <QLineEdit>
#include <QObject>
#include <QPointer>

#include "shell/objects/String.h"

namespace veldrin {

/// An editing command of the menus, which goes by the name of its item.
struct EditingCommand {
  StringConstant item;
  bool (*possible)(const QLineEdit& field);
  void (*carryOut)(QLineEdit& field);
};

/// The command of the item of that name, or nil.
const EditingCommand* editingCommand(const String& item);

/// Whether the widget is a menu or a menu bar, which borrow the focus and give it back.
bool isMenu(const QWidget* widget);

/// Knows the field that the editing commands act on: the one with the focus, also while a menu has
/// taken the focus from it.
class Editing {
 public:
  Editing();

  [[nodiscard]] bool possible(const EditingCommand& command) const;
  void carryOut(const EditingCommand& command) const;

 private:
  void focusMoved(QWidget* widget);

  QPointer<QLineEdit> field_;
  QObject context_;  ///< ends the connection with this object
};

}  // namespace veldrin
