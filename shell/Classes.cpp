#include "shell/Classes.h"

#include "shell/files/FileType.h"
#include "shell/files/FolderItem.h"
#include "shell/files/TextOutputStream.h"
#include "shell/objects/Dictionary.h"
#include "shell/values/Date.h"
#include "shell/window/Application.h"
#include "shell/window/CheckBox.h"
#include "shell/window/DragItem.h"
#include "shell/window/PaneChild.h"
#include "shell/window/Placard.h"
#include "shell/window/PopupMenu.h"
#include "shell/window/PushButton.h"
#include "shell/window/StaticText.h"
#include "shell/window/TextField.h"
#include "shell/window/Window.h"

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
