#pragma once

#include <QMenuBar>
#include <vector>

#include "shell/MenuItem.h"
#include "toolkits/qt/Delivery.h"
#include "toolkits/qt/Editing.h"

namespace veldrin {

/// The menus of a window. An item that no handler takes does what its name says to the field that
/// is being edited.
class QtMenus {
 public:
  QtMenus(QMenuBar& bar, const MenuItem& root, Delivery& delivery, const Editing& editing);

  /// Shows which items can be chosen now.
  void enable() const;

 private:
  struct Entry {
    Ref<MenuItem> item;
    QAction* action;
    const EditingCommand* command;  ///< nil for an item that is none
  };

  void fill(QMenu& menu, const MenuItem& items);
  void choose(const Entry& entry) const;

  std::vector<Entry> entries_;
  Delivery& delivery_;
  const Editing& editing_;
};

}  // namespace veldrin
