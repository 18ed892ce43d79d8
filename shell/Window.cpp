#include "shell/Window.h"

#include <algorithm>
#include <utility>

#include "shell/Runtime.h"
#include "shell/objects/NewArray.h"

namespace veldrin {

void Window::fillTable(ClassTable<Window>& table) {
  for (const StringConstant name : {"Layout"_s,
                                    "CreateControls"_s,
                                    "AddMenuHandlers"_s,
                                    "SetupBindings"_s,
                                    "Open"_s,
                                    "Close"_s,
                                    "CancelClose"_s,
                                    "KeyDown"_s,
                                    "KeyUp"_s,
                                    "MouseMove"_s,
                                    "MouseEnter"_s,
                                    "MouseExit"_s,
                                    "Paint"_s,
                                    "MouseDown"_s,
                                    "MouseDrag"_s,
                                    "MouseUp"_s,
                                    "EnableMenuItems"_s,
                                    "Resized"_s,
                                    "Resizing"_s,
                                    "Moved"_s,
                                    "DropObject"_s,
                                    "Activate"_s,
                                    "Deactivate"_s,
                                    "Minimize"_s,
                                    "Maximize"_s,
                                    "Restore"_s,
                                    "MouseWheel"_s,
                                    "ConstructContextualMenu"_s,
                                    "ContextualMenuAction"_s,
                                    "DragEnter"_s,
                                    "DragExit"_s,
                                    "DragOver"_s}) {
    table.event(name);
  }
  table.method<&Window::Constructor>("Constructor"_s);
  table.slot<&Window::__New>();
  table.method<&Window::_AddControl>("_AddControl"_s);
  table.method<&Window::_RemoveControl>("_RemoveControl"_s);
  table.method<&Window::_UnifiedClose>("_UnifiedClose"_s);
  table.method<&Window::Close>("Close"_s);
  table.method<&Window::_CallActivated>("_CallActivated"_s);
  table.method<&Window::_CallDeactivated>("_CallDeactivated"_s);
  table.method<&Window::_AddMenuHandler>("_AddMenuHandler"_s);
  table.method<&Window::_EnableMenuItems>("_EnableMenuItems"_s);
  table.method<&Window::_HandleMenuCommand>("_HandleMenuCommand"_s);
  table.property<Ref<veldrin::MenuBar>, &Window::MenuBar, &Window::MenuBar>("MenuBar"_s);
  table.property<&Window::Placement>("Placement"_s);
  table.property<&Window::Width>("Width"_s);
  table.property<&Window::Height>("Height"_s);
  table.property<&Window::MinWidth>("MinWidth"_s);
  table.property<&Window::MinHeight>("MinHeight"_s);
  table.property<&Window::MaxWidth>("MaxWidth"_s);
  table.property<&Window::MaxHeight>("MaxHeight"_s);
  table.property<&Window::Frame>("Frame"_s);
  table.property<&Window::Composite>("Composite"_s);
  table.property<&Window::HasBackColor>("HasBackColor"_s);
  table.property<&Window::BackColor>("BackColor"_s);
  table.property<&Window::Title>("Title"_s);
  table.property<&Window::Visible>("Visible"_s);
  table.property<&Window::FullScreen>("FullScreen"_s);
  table.property<&Window::MenuBarVisible>("MenuBarVisible"_s);
  table.property<&Window::CloseButton>("CloseButton"_s);
  table.property<&Window::Resizeable>("Resizeable"_s);
  table.property<&Window::LiveResize>("LiveResize"_s);
  table.property<&Window::MaximizeButton>("MaximizeButton"_s);
  table.property<&Window::MinimizeButton>("MinimizeButton"_s);
  table.property<&Window::MacProcId>("MacProcId"_s);
}

void Window::__Init() {
  Runtime::current()._WindowSupport.Windows.emplace_back(this);
}

void Window::__Exit() {
  if (std::exchange(open_, false)) Runtime::current().toolkit.windowClosed(*this);
  for (const Ref<Control>& control : std::vector(_mControlList)) _RemoveControl(control);
}

void Window::_AddDirtyWindow() {
  Ref<Dictionary>& dirty = Runtime::current()._WindowSupport.mDirtyWindows;
  if (!dirty) dirty = New<Dictionary>();
  dirty->Value(Ref<Object>(this), true);
}

void Window::Constructor() {
  raiseEvent("Layout"_s);
  raiseEvent("CreateControls"_s);
  raiseEvent("AddMenuHandlers"_s);
  raiseEvent("SetupBindings"_s);
  for (const Ref<Control>& control : std::vector(_mControlList)) control->raiseEvent("Open"_s);
  raiseEvent("Open"_s);
  open_ = true;
  Runtime::current().toolkit.windowOpened(*this);
}

void Window::_AddControl(const String& name, const Ref<Object>& control) {
  const Ref<Control> added = CheckCast<Control>(control);
  added->Window(this);
  added->Name = name;
  _mControlNames.push_back(name);
  _mControlList.push_back(added);
}

void Window::_RemoveControl(const Ref<Control>& control) {
  if (control && control->Window() == Ref<Window>(this)) control->Window(nullptr);
  for (std::size_t index = _mControlList.size(); index-- > 0;) {
    if (_mControlList[index] != control) continue;
    const auto place = static_cast<std::ptrdiff_t>(index);
    _mControlNames.erase(_mControlNames.begin() + place);
    _mControlList.erase(_mControlList.begin() + place);
  }
}

namespace {

/// Takes a closed window out of what the runtime knows of open ones.
void leaveRuntime(const Ref<Window>& window) {
  Runtime& runtime = Runtime::current();
  auto& windows = runtime._WindowSupport.Windows;
  for (auto entry = windows.begin(); entry != windows.end(); ++entry) {
    if (*entry == window) {
      windows.erase(entry);
      break;
    }
    RuntimeBackgroundTask();
  }
  const Ref<Dictionary>& implicitWindows = runtime._mImplicitWindowList;
  const String& name = window->classRecord()->name;
  if (implicitWindows && implicitWindows->Lookup(name, Variant()) == Variant(window)) {
    implicitWindows->Remove(name);
  }
}

}  // namespace

bool Window::_UnifiedClose(bool quitting) {
  const Ref<Window> self(this);
  using CancelClose = bool (*)(Object*, bool);
  if (const Function handler = handlerOf("CancelClose"_s);
      handler != nullptr && reinterpret_cast<CancelClose>(handler)(this, quitting)) {
    return false;
  }
  raiseEvent("Close"_s);
  if (std::exchange(open_, false)) Runtime::current().toolkit.windowClosed(*this);
  for (const Ref<Control>& control : std::vector(_mControlList)) {
    control->Close();
    RuntimeBackgroundTask();
  }
  _mControlNames.clear();
  _mControlList.clear();
  _mMenuHandlers = nullptr;  // a handler may be bound to this very window
  leaveRuntime(self);
  return true;
}

void Window::MenuBar(Ref<veldrin::MenuBar> bar) {
  menuBar_ = std::move(bar);
}

void Window::_CallActivated() {
  raiseEvent("Activate"_s);
  EnableMenuItems();
}

void Window::_CallDeactivated() {
  raiseEvent("Deactivate"_s);
  EnableMenuItems();
}

void Window::_AddMenuHandler(const String& name, const Ref<Delegate>& handler) {
  if (!_mMenuHandlers) _mMenuHandlers = New<Dictionary>();
  _mMenuHandlers->Value(name, handler);
}

void Window::_EnableMenuItems(const Ref<Array<Ref<MenuItem>>>& items) {
  raiseEvent("EnableMenuItems"_s);
  for (const Ref<MenuItem>& item : items->elements) {
    if (_mMenuHandlers && _mMenuHandlers->HasKey(item->Name)) item->Enable();
    RuntimeBackgroundTask();
  }
}

Function Window::handlerOf(const String& event) const {
  const ClassRecord& record = *classRecord();
  return record.eventRows.at(static_cast<std::size_t>(FindEvent(record, event))).handler;
}

void Window::raiseEvent(const String& event) {
  RuntimeStackCheck();
  if (const Function handler = handlerOf(event); handler != nullptr) {
    reinterpret_cast<EventHandler>(handler)(this);
  }
}

namespace {

/// The item and all below it that are no separators, each first set to what `AutoEnable` says.
void gatherItems(const MenuItem& item, std::vector<Ref<MenuItem>>& items) {
  RuntimeStackCheck();
  for (const Ref<MenuItem>& child : item.children()) {
    if (child->isSeparator()) continue;
    child->Enabled = child->AutoEnable;
    items.push_back(child);
    gatherItems(*child, items);
  }
}

}  // namespace

void EnableMenuItems() {
  Runtime& runtime = Runtime::current();
  const auto& windows = runtime._WindowSupport.Windows;
  const Ref<Window> window = windows.empty() ? nullptr : windows.back();
  Ref<MenuBar> bar = window ? window->MenuBar() : nullptr;
  if (!bar && runtime.application) bar = runtime.application->MenuBar();
  if (!bar) return;
  std::vector<Ref<MenuItem>> items;
  gatherItems(*bar, items);
  const Ref<Array<Ref<MenuItem>>> all = newArray(std::move(items));
  if (window) window->_EnableMenuItems(all);
  if (runtime.application) runtime.application->_EnableMenuItems(all);
  runtime.toolkit.menuItemsEnabled();
}

Ref<Object> RuntimeWindowControlByName(const Window& window, const String& name) {
  const auto& names = window._mControlNames;
  // The names of the program are constants: nearly always it is the very same record.
  auto found =
      std::find_if(names.begin(), names.end(),
                   [record = name.record()](const String& own) { return own.record() == record; });
  if (found == names.end()) found = std::ranges::find(names, name);
  if (found == names.end()) return nullptr;
  return window._mControlList[static_cast<std::size_t>(found - names.begin())];
}

Ref<Window> _GetImplicitWindow(const String& className) {
  const auto& windows = Runtime::current()._WindowSupport.Windows;
  const auto found = std::ranges::find_if(
      windows, [&](const Ref<Window>& window) { return window->classRecord()->name == className; });
  return found == windows.end() ? nullptr : *found;
}

}  // namespace veldrin
