#pragma once

#include <QMenuBar>
#include <vector>

#include "shell/window/MenuItem.h"
#include "toolkits/qt/Delivery.h"
#include "toolkits/qt/Editing.h"

namespace veldrin {

/// The menus of a window. An item that no handler handles performs the editing command of its name.
class QtMenus {
 public:
  QtMenus(QMenuBar& bar, Delivery& delivery, const Editing& editing)
      : bar_(bar), delivery_(delivery), editing_(editing) {}

  /// Updates the menus from the tree; nil hides the bar.
  void follow(const Ref<MenuBar>& root);

  /// Whether an item has the shortcut. If so, refreshes which items are enabled.
  [[nodiscard]] bool hasShortcut(const QKeySequence& keys) const;

 private:
  /// An item and its position in the tree.
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

  static void addPlaces(const MenuItem& menu, int depth, std::vector<Place>& places);
  /// Builds the menus again. A menu that stays keeps its widget, because it may be opening now.
  void rebuild(const Ref<MenuBar>& root);
  /// Fills the menu of an item. Its widget is taken from `oldEntries`, or is new.
  QAction* buildMenu(const Ref<MenuItem>& item, std::vector<Entry>& oldEntries);
  void addAction(QMenu& menu, const Ref<MenuItem>& item);
  [[nodiscard]] QMenu* takeMenu(const Ref<MenuItem>& item, std::vector<Entry>& oldEntries);
  void update(const Entry& entry) const;
  void refresh() const;
  void choose(const Entry& entry) const;

  QMenuBar& bar_;
  Delivery& delivery_;
  const Editing& editing_;
  std::vector<Place> places_;
  std::vector<Entry> entries_;
};

}  // namespace veldrin
