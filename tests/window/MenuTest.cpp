#include <functional>
#include <string>

#include "tests/support/RuntimeTest.h"
#include "ui/MenuBar1.h"

namespace veldrin::test {
namespace {

using MenuTest = WindowTest;

/// The wanted items below an item, such as "FileMenu(FileQuit)".
template <class Wanted>
std::string tree(const MenuItem& item, const Wanted& wanted) {
  std::string all;
  for (const Ref<MenuItem>& child : item.children()) {
    if (!wanted(*child)) continue;
    all.append(all.empty() ? "" : " ").append(child->Name.view());
    if (!child->children().empty()) all += "(" + tree(*child, wanted) + ")";
  }
  return all;
}

TEST_F(MenuTest, TheBarHasTheItemsThatTheAccessorsReturn) {
  const Ref<Veldrin> view = window();
  const Ref<MenuBar> bar = view->MenuBar();
  EXPECT_EQ(bar, implicit::MenuBar1());
  EXPECT_EQ(tree(*bar, [](const MenuItem&) { return true; }),
            "FileMenu(FileQuit) EditMenu(EditUndo UntitledMenu1 EditCut EditCopy EditPaste "
            "EditClear UntitledMenu0 EditSelectAll)");
  const auto quit = [](const Veldrin& each) -> Ref<MenuItem> { return each.FileQuit(); };
  const struct {
    const char *name, *text, *shortcut;
    std::function<Ref<MenuItem>(const Veldrin&)> get;
  } rows[] = {{"FileMenu", "&File", "", &Veldrin::FileMenu},
              {"FileQuit", "&Quit", "Cmd+Q", quit},
              {"EditMenu", "&Edit", "", &Veldrin::EditMenu},
              {"EditUndo", "&Undo", "Cmd+Z", &Veldrin::EditUndo},
              {"UntitledMenu1", "-", nullptr, &Veldrin::UntitledMenu1},
              {"EditCut", "Cu&t", "Cmd+X", &Veldrin::EditCut},
              {"EditCopy", "&Copy", "Cmd+C", &Veldrin::EditCopy},
              {"EditPaste", "&Paste", "Cmd+V", &Veldrin::EditPaste},
              {"EditClear", "&Delete", "", &Veldrin::EditClear},
              {"UntitledMenu0", "-", nullptr, &Veldrin::UntitledMenu0},
              {"EditSelectAll", "Select &All", "Cmd+A", &Veldrin::EditSelectAll}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const Ref<MenuItem> item = row.get(*view);
    ASSERT_TRUE(item);
    EXPECT_EQ(text(item->Name), row.name);
    EXPECT_EQ(text(item->classRecord()->name),
              item == view->FileQuit() ? "QuitMenuItem" : "MenuItem");
    EXPECT_EQ(text(item->Text()), row.text);
    EXPECT_TRUE(item->AutoEnable);
    // Every item except a separator has a shortcut string, which may be empty.
    EXPECT_EQ(item->isSeparator(), row.shortcut == nullptr);
    EXPECT_EQ(item->KeyboardShortcut().record() == nullptr, row.shortcut == nullptr);
    EXPECT_EQ(text(item->KeyboardShortcut()), row.shortcut == nullptr ? "" : row.shortcut);
  }
  EXPECT_FALSE(bar->Child("EditCut"_s) || bar->_Lookup("editcut"_s));

  view->MenuBar(New<MenuBar>());
  EXPECT_FALSE(view->EditCut());
  const Ref<MenuItem> impostor = New<MenuItem>();
  impostor->Name = "FileQuit"_s;
  view->MenuBar()->Append(impostor);
  EXPECT_EQ(raisedBy([&] { quit(*view); }), "IllegalCastException");
  view->MenuBar(nullptr);
  for (const auto& row : rows) {
    EXPECT_EQ(raisedBy([&] { row.get(*view); }), "NilObjectException") << row.name;
  }
}

TEST_F(MenuTest, ItemsAreEnabledByAutoEnableOrByAHandler) {
  const Ref<Veldrin> view = window();
  const auto enabled = [&] {
    return tree(*view->EditMenu(),
                [](const MenuItem& item) { return item.Enabled() && !item.isSeparator(); });
  };
  const int times = toolkit.menuChanges;
  view->EditCut()->Enabled(false);
  EnableMenuItems();
  EXPECT_EQ(enabled(), "EditUndo EditCut EditCopy EditPaste EditClear EditSelectAll");
  for (const auto& item : {view->EditCut(), view->EditPaste(), view->EditClear()}) {
    item->AutoEnable = false;
  }
  view->_AddMenuHandler("EditPaste"_s, nullptr);
  view->_CallActivated();
  EXPECT_EQ(enabled(), "EditUndo EditCopy EditPaste EditSelectAll");
  view->EditClear()->Enable();  // until the next refresh
  const std::int64_t yields = toolkit.backgroundTasks;
  view->_CallDeactivated();
  EXPECT_EQ(enabled(), "EditUndo EditCopy EditPaste EditSelectAll");
  EXPECT_EQ(toolkit.backgroundTasks - yields, 9);  // one per item, except separators
  EXPECT_TRUE(view->FileQuit()->Enabled());
  EXPECT_EQ(toolkit.menuChanges - times, 5);  // three refreshes, two changed items
  // Without a menu bar or a window, a refresh does nothing.
  view->MenuBar(nullptr);
  EnableMenuItems();
  view->Close();
  EnableMenuItems();
  EXPECT_EQ(toolkit.menuChanges - times, 5);
}

}  // namespace
}  // namespace veldrin::test
