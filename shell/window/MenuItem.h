#pragma once

#include <vector>

#include "shell/objects/Described.h"
#include "shell/window/Live.h"

namespace veldrin {

/// A menu item, a menu (an item with children) or a menu bar (the root).
class MenuItem : public Described<MenuItem, Object> {
 public:
  static constexpr FixedString FullName = "MenuItem";
  static void fillTable(ClassTable<MenuItem>& table);

  /// The handler of "Action" returns true for handled.
  struct Events {
    static constexpr Event<bool()> Action{"Action"_s};
  };

  /// Does nothing.
  virtual void Constructor() {}

  /// Adds the item as the last child. Raises `NilObjectException` for nil, and `RuntimeException`
  /// if the item is this item or one of its ancestors.
  virtual void Append(const Ref<MenuItem>& item);
  /// The direct child of that name, or nil.
  [[nodiscard]] virtual Ref<MenuItem> Child(const String& name) const;
  /// The item of that name at any depth below this one, or nil.
  [[nodiscard]] virtual Ref<MenuItem> _Lookup(const String& name) const;
  /// Sets `Enabled`, which lasts until the next refresh.
  virtual void Enable() { Enabled(true); }

  [[nodiscard]] const std::vector<Ref<MenuItem>>& children() const { return children_; }
  /// Whether the other item is this item or a descendant of it.
  [[nodiscard]] bool contains(const MenuItem& item) const;
  [[nodiscard]] bool isSeparator() const { return Text() == "-"; }

  /// The user has chosen the item. Offers it to `Session::handleMenuCommand`, then to its own
  /// "Action". Returns true if one of them handled it or the item is disabled. If false, the
  /// toolkit does the editing command of the item's name, if any.
  bool userChose();

  /// A property whose changes are reported to the toolkit while the item is in a visible menu bar.
  template <class T>
  using Live = LiveProperty<MenuItem, T>;

  String Name;
  bool AutoEnable = true;                ///< each refresh sets `Enabled` to it
  Live<String> Text{*this};              ///< "&" precedes the mnemonic; "-" makes a separator
  Live<String> KeyboardShortcut{*this};  ///< such as "Cmd+Q"
  Live<bool> Checked{*this};             ///< shown with a tick
  /// Lasts until the next refresh, at the latest when the menu opens. Then `AutoEnable`, the menu
  /// handlers and the handlers of "EnableMenuItems" decide.
  Live<bool> Enabled{*this, true};

 private:
  template <class Owner, class T>
  friend class veldrin::LiveProperty;

  /// Tells the toolkit of a change made by the program.
  void changed() const;

  std::vector<Ref<MenuItem>> children_;
};

/// The item that ends the application when it is chosen.
class QuitMenuItem : public Described<QuitMenuItem, MenuItem> {
 public:
  static constexpr FixedString FullName = "QuitMenuItem";
  static void fillTable(ClassTable<QuitMenuItem>& table);

  /// The handler of "Action". Always returns true.
  virtual bool Event_Action();
};

/// Ends the application. Always returns true (handled), even if the application or a window
/// refuses.
bool QuitMenuAction(MenuItem& item);

/// The root of a tree of menu items.
class MenuBar : public Described<MenuBar, MenuItem> {
 public:
  static constexpr FixedString FullName = "MenuBar";
};

}  // namespace veldrin
