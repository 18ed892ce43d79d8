#include "shell/Classes.h"

#include "shell/Application.h"
#include "shell/CheckBox.h"
#include "shell/Date.h"
#include "shell/DragItem.h"
#include "shell/FileType.h"
#include "shell/FolderItem.h"
#include "shell/PaneChild.h"
#include "shell/Placard.h"
#include "shell/PopupMenu.h"
#include "shell/PushButton.h"
#include "shell/StaticText.h"
#include "shell/TextField.h"
#include "shell/TextOutputStream.h"
#include "shell/Window.h"
#include "shell/objects/Dictionary.h"

namespace veldrin {

void initializeShellClasses() {
  DragItem::__ctblinit();
  Window::__ctblinit();
  buildExceptionClasses();
  Control::__ctblinit();
  RectControl::__ctblinit();
  Placard::__ctblinit();
  StaticText::__ctblinit();
  PushButton::__ctblinit();
  PopupMenu::__ctblinit();
  TextField::__ctblinit();
  CheckBox::__ctblinit();
  _PaneChild::__ctblinit();
  MenuItem::__ctblinit();
  QuitMenuItem::__ctblinit();
  MenuBar::__ctblinit();
  Application::__ctblinit();
  Date::__ctblinit();
  Pair::__ctblinit();
  Dictionary::__ctblinit();
  Delegate::__ctblinit();
  FileType::__ctblinit();
  FolderItem::__ctblinit();
  Writeable::__ctblinit();
  TextOutputStream::__ctblinit();
}

}  // namespace veldrin
