#pragma once

#include <vector>

#include "shell/objects/Described.h"
#include "shell/window/Live.h"

namespace veldrin {

/// An item of a menu, a menu of items, or the root of them all, which is the menu bar.
class MenuItem : public Described<MenuItem, Object> {
 public:
  static constexpr FixedString FullName = "MenuItem";
  static void fillTable(ClassTable<MenuItem>& table);

  /// The handler of "Action" answers true for handled.
  struct Events {
    static constexpr Event<bool()> Action{"Action"_s};
  };

  /// Readies a new item.
  virtual void Constructor() {}

  /// Adds the item at the end of this one's children. Raises `NilObjectException` for nil, and
  /// `RuntimeException` for an item that this one is itself or lies below.
  void Append(const Ref<MenuItem>& item);
  /// The direct child of that name, or nil.
  [[nodiscard]] Ref<MenuItem> Child(const String& name) const;
  /// The item of that name at any depth below this one, or nil.
  [[nodiscard]] Ref<MenuItem> _Lookup(const String& name) const;
  /// Enables the item until the next time that items are enabled afresh.
  void Enable() { Enabled(true); }

  /// The children in their order on the screen.
  [[nodiscard]] const std::vector<Ref<MenuItem>>& children() const { return children_; }
  /// Whether the other is this item or lies below it at any depth.
  [[nodiscard]] bool contains(const MenuItem& item) const;
  /// Whether the item is a line between others.
  [[nodiscard]] bool isSeparator() const { return Text() == "-"; }

  /// A person has chosen the item. It is offered to `_HandleMenuCommand` of the window in front and
  /// of the application, to the handler that the window has bound to its name, and to its own
  /// "Action", until one of them has handled it. True where one has, and for an item that is not
  /// enabled; else what the toolkit does with the item by itself comes next.
  bool userChose();

  /// A property that the toolkit is told of while the item is in a bar that shows.
  template <class T>
  using Live = LiveProperty<MenuItem, T>;

  String Name;
  bool AutoEnable = true;    ///< enabled by the toolkit, as far as the command can be carried out
  Live<String> Text{*this};  ///< "&" marks the letter of the mnemonic; "-" makes a separator
  Live<String> KeyboardShortcut{*this};  ///< such as "Cmd+Q"
  Live<bool> Checked{*this};             ///< shown with a tick
  /// Until the items are enabled afresh, as they are before their menu opens: there `AutoEnable`
  /// has the say, and whoever hears of "EnableMenuItems".
  Live<bool> Enabled{*this, true};

 private:
  template <class Owner, class T>
  friend class veldrin::LiveProperty;

  /// Tells the toolkit of a change made by the program.
  void changed() const;

  std::vector<Ref<MenuItem>> children_;
};

/// The item that ends the application when it is chosen.
class QuitMenuItem final : public Described<QuitMenuItem, MenuItem> {
 public:
  static constexpr FixedString FullName = "QuitMenuItem";
  static void fillTable(ClassTable<QuitMenuItem>& table);

  /// The handler of "Action". Always true, for handled.
  bool Event_Action();
};

/// Ends the application, as the item that quits does. Always true, for handled, even if the
/// application or a window has refused.
bool QuitMenuAction(MenuItem& item);

/// The root of a tree of menus.
class MenuBar : public Described<MenuBar, MenuItem> {
 public:
  static constexpr FixedString FullName = "MenuBar";
};

}  // namespace veldrin
