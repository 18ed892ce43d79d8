#include "toolkits/qt/QtMenus.h"

#include <QAction>
#include <QMenu>

#include "toolkits/qt/QtText.h"

namespace veldrin {
namespace {

/// "Cmd" is the platform's command key, which Qt calls Ctrl everywhere.
QKeySequence shortcutOf(const MenuItem& item) {
  return {toQt(item.KeyboardShortcut).replace("Cmd+", "Ctrl+")};
}

}  // namespace

QtMenus::QtMenus(QMenuBar& bar, const MenuItem& root, Delivery& delivery, const Editing& editing)
    : delivery_(delivery), editing_(editing) {
  for (const Ref<MenuItem>& item : root.children()) {
    QMenu* const menu = bar.addMenu(toQt(item->Text));
    menu->setObjectName(toQt(item->Name));
    entries_.push_back({item, menu->menuAction(), nullptr});
    fill(*menu, *item);
    QObject::connect(menu, &QMenu::aboutToShow, menu, [this] { enable(); });
  }
}

void QtMenus::fill(QMenu& menu, const MenuItem& items) {
  for (const Ref<MenuItem>& item : items.children()) {
    if (item->isSeparator()) {
      menu.addSeparator()->setObjectName(toQt(item->Name));
      continue;
    }
    QAction* const action = menu.addAction(toQt(item->Text));
    action->setObjectName(toQt(item->Name));
    action->setShortcut(shortcutOf(*item));
    const Entry entry{item, action, editingCommand(item->Name)};
    entries_.push_back(entry);
    QObject::connect(action, &QAction::triggered, action, [this, entry] { choose(entry); });
  }
}

void QtMenus::enable() const {
  for (const Entry& entry : entries_) {
    const bool possible = entry.command == nullptr || editing_.possible(*entry.command);
    entry.action->setEnabled(entry.item->Enabled && possible);
  }
}

void QtMenus::choose(const Entry& entry) const {
  delivery_.deliver([&] {
    if (!entry.item->userChose() && entry.command != nullptr) editing_.carryOut(*entry.command);
  });
}

}  // namespace veldrin
