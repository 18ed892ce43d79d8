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

}  // namespace

void QtMenus::follow(const Ref<MenuBar>& root) {
  std::vector<Place> places;
  if (root) addPlaces(*root, 0, places);
  if (places != places_) {
    clear();
    if (root) fill(nullptr, *root);
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

void QtMenus::clear() {
  entries_.clear();
  for (QAction* const action : bar_.actions()) {
    bar_.removeAction(action);
    // Delete later: one of its items may be the sender of the current event.
    action->menu()->setObjectName({});
    for (QAction* const inside : action->menu()->findChildren<QAction*>()) inside->setShortcut({});
    for (QObject* const inside : action->menu()->findChildren<QObject*>())
      inside->setObjectName({});
    action->menu()->deleteLater();
  }
}

void QtMenus::fill(QMenu* menu, const MenuItem& items) {
  for (const Ref<MenuItem>& item : items.children()) {
    if (menu == nullptr || !item->children().empty()) {
      QMenu* const made = menu == nullptr ? bar_.addMenu(QString()) : menu->addMenu(QString());
      made->setObjectName(toQt(item->Name));
      entries_.push_back({item, made->menuAction()});
      QObject::connect(made, &QMenu::aboutToShow, made, [this] { refresh(); });
      fill(made, *item);
    } else if (item->isSeparator()) {
      menu->addSeparator()->setObjectName(toQt(item->Name));
    } else {
      QAction* const action = menu->addAction(QString());
      action->setObjectName(toQt(item->Name));
      const Entry entry{item, action};
      entries_.push_back(entry);
      QObject::connect(action, &QAction::triggered, action, [this, entry] { choose(entry); });
    }
  }
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
  const bool has = std::ranges::any_of(
      entries_, [&](const Entry& entry) { return entry.action->shortcut() == keys; });
  // Enabled states may be outdated, since menus refresh only when opened.
  if (has) refresh();
  return has;
}

void QtMenus::choose(const Entry& entry) const {
  delivery_.deliver([&] {
    const EditingCommand* const command = editingCommand(entry.item->Name);
    if (!entry.item->userChose() && command != nullptr) editing_.carryOut(*command);
  });
  entry.action->setChecked(entry.item->Checked());  // Qt has toggled it
}

}  // namespace veldrin
