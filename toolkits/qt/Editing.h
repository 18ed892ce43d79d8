#pragma once

#include <QLineEdit>
#include <QObject>
#include <QPointer>

#include "shell/objects/String.h"

namespace veldrin {

/// An editing command, identified by the name of its menu item.
struct EditingCommand {
  StringConstant item;
  bool (*isPossible)(const QLineEdit& field);
  void (*carryOut)(QLineEdit& field);
};

/// The command of the menu item with this name, or nil.
const EditingCommand* editingCommand(const String& item);

/// Whether the widget is a menu or a menu bar, which takes the focus temporarily.
bool isMenu(const QWidget* widget);

/// Applies editing commands to the field that has the focus, or had it before a menu took it.
class Editing {
 public:
  Editing();

  [[nodiscard]] bool isPossible(const EditingCommand& command) const;
  void carryOut(const EditingCommand& command) const;

 private:
  void focusMoved(QWidget* widget);

  QPointer<QLineEdit> field_;
  QObject context_;  ///< its destructor disconnects the signal
};

}  // namespace veldrin
