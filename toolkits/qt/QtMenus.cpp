#include "toolkits/qt/QtMenus.h"

#include <QAction>
#include <QMenu>
#include <algorithm>
#include <utility>

#include "shell/objects/Stack.h"
#include "shell/window/ApplicationSession.h"
#include "toolkits/qt/QtText.h"

namespace veldrin {
namespace {

/// "Cmd" is the command key of the platform; Qt calls it Ctrl on all platforms.
QKeySequence shortcutOf(const MenuItem& item) {
  return {toQt(item.KeyboardShortcut()).replace("Cmd+", "Ctrl+")};
}

/// Deletes the object later, because it may be emitting a signal now.
void discard(QObject& removed) {
  removed.setObjectName({});
  if (auto* const action = qobject_cast<QAction*>(&removed)) action->setShortcut({});
  removed.deleteLater();
}

}  // namespace

void QtMenus::follow(const Ref<MenuBar>& root) {
  std::vector<Place> places;
  if (root) addPlaces(*root, 0, places);
  if (places != places_) {
    rebuild(root);
    places_ = std::move(places);
  }
  bar_.setVisible(static_cast<bool>(root));
  for (const Entry& entry : entries_) update(entry);
}

void QtMenus::addPlaces(const MenuItem& menu, int depth, std::vector<Place>& places) {
  RuntimeStackCheck();
  for (const Ref<MenuItem>& item : menu.children()) {
    const bool isMenu = depth == 0 || !item->children().empty();
    places.push_back({item, depth, isMenu, !isMenu && item->isSeparator()});
    addPlaces(*item, depth + 1, places);
  }
}

void QtMenus::rebuild(const Ref<MenuBar>& root) {
  std::vector<Entry> oldEntries = std::exchange(entries_, {});
  for (const Entry& entry : oldEntries) {
    QMenu* const menu = entry.action->menu();
    if (menu == nullptr) continue;
    for (QAction* const action : menu->actions()) {
      menu->removeAction(action);
      if (action->menu() == nullptr) discard(*action);
    }
  }
  QList<QAction*> menus;
  if (root) {
    for (const Ref<MenuItem>& item : root->children()) menus.append(buildMenu(item, oldEntries));
  }
  if (bar_.actions() != menus) {
    bar_.clear();
    bar_.addActions(menus);
  }
  for (const Entry& entry : oldEntries) {
    if (QMenu* const menu = entry.action->menu()) discard(*menu);
  }
}

QAction* QtMenus::buildMenu(const Ref<MenuItem>& item, std::vector<Entry>& oldEntries) {
  QMenu& menu = *takeMenu(item, oldEntries);
  menu.setObjectName(toQt(item->Name));
  entries_.push_back({item, menu.menuAction()});
  for (const Ref<MenuItem>& child : item->children()) {
    if (!child->children().empty()) {
      menu.addAction(buildMenu(child, oldEntries));
    } else if (child->isSeparator()) {
      menu.addSeparator()->setObjectName(toQt(child->Name));
    } else {
      addAction(menu, child);
    }
  }
  return menu.menuAction();
}

void QtMenus::addAction(QMenu& menu, const Ref<MenuItem>& item) {
  QAction* const action = menu.addAction(QString());
  action->setObjectName(toQt(item->Name));
  const Entry entry{item, action};
  entries_.push_back(entry);
  QObject::connect(action, &QAction::triggered, action, [this, entry] { choose(entry); });
}

QMenu* QtMenus::takeMenu(const Ref<MenuItem>& item, std::vector<Entry>& oldEntries) {
  const auto found = std::ranges::find_if(oldEntries, [&](const Entry& entry) {
    return entry.item == item && entry.action->menu() != nullptr;
  });
  if (found != oldEntries.end()) {
    QMenu* const kept = found->action->menu();
    oldEntries.erase(found);
    return kept;
  }
  auto* const made = new QMenu(&bar_);
  QObject::connect(made, &QMenu::aboutToShow, made, [this] { refresh(); });
  return made;
}

void QtMenus::update(const Entry& entry) const {
  const MenuItem& item = *entry.item;
  const EditingCommand* const command = editingCommand(item.Name);
  const Ref<Window> window = frontWindow();
  const bool isBound = window && window->hasMenuHandler(item.Name);
  const bool isPossible = command == nullptr || isBound || editing_.isPossible(*command);
  entry.action->setText(toQt(item.Text()));
  entry.action->setShortcut(shortcutOf(item));
  entry.action->setCheckable(item.Checked());
  entry.action->setChecked(item.Checked());
  entry.action->setEnabled(item.Enabled() && isPossible);
}

void QtMenus::refresh() const {
  delivery_.deliver([] { EnableMenuItems(); });
  for (const Entry& entry : entries_) update(entry);
}

bool QtMenus::hasShortcut(const QKeySequence& keys) const {
  const bool isFound = std::ranges::any_of(
      entries_, [&](const Entry& entry) { return entry.action->shortcut() == keys; });
  // Enabled states may be outdated, since menus refresh only when opened.
  if (isFound) refresh();
  return isFound;
}

void QtMenus::choose(const Entry& entry) const {
  delivery_.deliver([&] {
    const EditingCommand* const command = editingCommand(entry.item->Name);
    if (!entry.item->userChose() && command != nullptr) editing_.carryOut(*command);
  });
  entry.action->setChecked(entry.item->Checked());  // Qt has toggled it
}

}  // namespace veldrin
