#include "ui/MenuBar1.h"

#include <optional>
#include <span>

namespace veldrin {
namespace {

/// A menu or a menu item. The tables below list the items of each menu.
struct ItemRow {
  ClassRecord* (*itemClass)();
  StringConstant name;
  StringConstant text;
  std::optional<StringConstant> shortcut;  ///< nullopt for a separator: leaves the property unset
};

ClassRecord* item() {
  return MenuItem::__Lookup();
}
ClassRecord* quitItem() {
  return QuitMenuItem::__Lookup();
}

constexpr ItemRow FileItems[] = {
    {quitItem, "FileQuit"_s, "&Quit"_s, "Cmd+Q"_s},
};

// The framework fixes the names: `UntitledMenu1` precedes `UntitledMenu0`, and the text of
// `EditClear` is "Delete".
constexpr ItemRow EditItems[] = {
    {item, "EditUndo"_s, "&Undo"_s, "Cmd+Z"_s},
    {item, "UntitledMenu1"_s, "-"_s, std::nullopt},
    {item, "EditCut"_s, "Cu&t"_s, "Cmd+X"_s},
    {item, "EditCopy"_s, "&Copy"_s, "Cmd+C"_s},
    {item, "EditPaste"_s, "&Paste"_s, "Cmd+V"_s},
    {item, "EditClear"_s, "&Delete"_s, ""_s},
    {item, "UntitledMenu0"_s, "-"_s, std::nullopt},
    {item, "EditSelectAll"_s, "Select &All"_s, "Cmd+A"_s},
};

Ref<MenuItem> makeItem(const ItemRow& row) {
  Ref<MenuItem> made = CheckCast<MenuItem>(RuntimeNewObject(row.itemClass()));
  made->Constructor();
  made->Name = row.name;
  made->AutoEnable = true;
  made->Text(row.text);
  if (row.shortcut) made->KeyboardShortcut(*row.shortcut);
  return made;
}

void buildMenu(MenuBar& bar, const ItemRow& menu, std::span<const ItemRow> rows) {
  bar.Append(makeItem(menu));
  for (const ItemRow& row : rows) bar.Child(menu.name)->Append(makeItem(row));
}

}  // namespace

void MenuBar1::fillTable(ClassTable<MenuBar1>& table) {
  table.attributes(Public.attributes);
  table.method<&MenuBar1::Untitled0>("Untitled0"_s);
  table.method<&MenuBar1::Untitled1>("Untitled1"_s);
  table.overriding<&MenuBar1::Constructor>("Constructor"_s);
}

void MenuBar1::Constructor() {
  Untitled0();
  Untitled1();
}

void MenuBar1::Untitled0() {
  buildMenu(*this, {item, "FileMenu"_s, "&File"_s, ""_s}, FileItems);
}

void MenuBar1::Untitled1() {
  buildMenu(*this, {item, "EditMenu"_s, "&Edit"_s, ""_s}, EditItems);
}

Ref<MenuBar1> implicit::MenuBar1() {
  auto& instance = veldrin::MenuBar1::_implicitInstance;
  if (!instance) {
    const Ref<veldrin::MenuBar1> bar = New<veldrin::MenuBar1>();
    bar->Constructor();
    instance = bar;
  }
  return instance;
}

}  // namespace veldrin
