#pragma once

#include <QMenuBar>
#include <vector>

#include "shell/window/MenuItem.h"
#include "toolkits/qt/Delivery.h"
#include "toolkits/qt/Editing.h"

namespace veldrin {

/// The menus of a window. An item that no handler takes does what its name says to the field that
/// is being edited.
class QtMenus {
 public:
  QtMenus(QMenuBar& bar, Delivery& delivery, const Editing& editing)
      : bar_(bar), delivery_(delivery), editing_(editing) {}

  /// Shows the menus of that tree: which there are, their texts and ticks, and which items can be
  /// chosen now. With nil, no bar.
  void follow(const Ref<MenuBar>& root);

  /// Whether an item has the shortcut; whether that can be chosen is worked out afresh.
  [[nodiscard]] bool hasShortcut(const QKeySequence& keys) const;

 private:
  /// An item, in the place that it has in the tree.
  struct Place {
    Ref<MenuItem> item;
    int depth;
    bool isMenu;
    bool isSeparator;
    bool operator==(const Place&) const = default;
  };
  struct Entry {
    Ref<MenuItem> item;
    QAction* action;
  };

  static void gather(const MenuItem& menu, int depth, std::vector<Place>& places);
  void clear();
  /// Adds the items to the menu, or their menus to the bar where it is nil.
  void fill(QMenu* menu, const MenuItem& items);
  void show(const Entry& entry) const;
  void enable() const;
  void choose(const Entry& entry) const;

  QMenuBar& bar_;
  Delivery& delivery_;
  const Editing& editing_;
  std::vector<Place> places_;
  std::vector<Entry> entries_;
};

}  // namespace veldrin
