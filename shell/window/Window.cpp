#include "shell/window/Window.h"

#include <algorithm>
#include <utility>

#include "shell/objects/ScopedFlag.h"
#include "shell/window/BackgroundTask.h"
#include "shell/window/Session.h"
#include "shell/window/Toolkit.h"

namespace veldrin {

void Window::fillTable(ClassTable<Window>& table) {
  using E = Events;
  table.event(E::Layout, E::CreateControls, E::AddMenuHandlers, E::SetupBindings, E::Open, E::Close,
              E::CancelClose, E::KeyDown, E::KeyUp, E::MouseMove, E::MouseEnter, E::MouseExit,
              E::Paint, E::MouseDown, E::MouseDrag, E::MouseUp, E::EnableMenuItems, E::Resized,
              E::Resizing, E::Moved, E::DropObject, E::Activate, E::Deactivate, E::Minimize,
              E::Maximize, E::Restore, E::MouseWheel, E::ConstructContextualMenu,
              E::ContextualMenuAction, E::DragEnter, E::DragExit, E::DragOver);
  table.method<&Window::Constructor>("Constructor"_s);
  table.method<&Window::__New>("__New"_s);
  table.method<&Window::_AddControl>("_AddControl"_s);
  table.method<&Window::_RemoveControl>("_RemoveControl"_s);
  table.method<&Window::_UnifiedClose>("_UnifiedClose"_s);
  table.method<&Window::Close>("Close"_s);
  table.method<&Window::_CallActivated>("_CallActivated"_s);
  table.method<&Window::_CallDeactivated>("_CallDeactivated"_s);
  table.method<&Window::_AddMenuHandler>("_AddMenuHandler"_s);
  table.method<&Window::_EnableMenuItems>("_EnableMenuItems"_s);
  table.method<&Window::_HandleMenuCommand>("_HandleMenuCommand"_s);
  table.method<&Window::_AddDirtyWindow>("_AddDirtyWindow"_s);
  table.property<&Window::_mMenuHandlers>("_mMenuHandlers"_s, Private);
  table.property<&Window::MenuBar>("MenuBar"_s);
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
  InForce<Toolkit>::get();  // throws now, not later, if there is no toolkit
  _WindowSupport.Windows.emplace_back(this);
}

void Window::__Exit() {
  if (std::exchange(isOpen_, false)) InForce<Toolkit>::get().windowClosed(*this);
  while (!_mControlList.empty()) _RemoveControl(_mControlList.back());
}

void Window::changed() {
  if (isOpen_) InForce<Toolkit>::get().windowChanged(*this);
}

void Window::_AddDirtyWindow() {
  if (isClosed_) return;
  Ref<Dictionary>& dirty = _WindowSupport.mDirtyWindows;
  if (!dirty) dirty = New<Dictionary>();
  dirty->Value(Ref<Object>(this), true);
}

void Window::Constructor() {
  const Ref<Window> self(this);
  try {
    raiseOpeningEvents();
    if (isClosed_) return;
    isOpen_ = true;
    InForce<Toolkit>::get().windowOpened(*this);
  } catch (...) {
    discard();
    throw;
  }
}

void Window::raiseOpeningEvents() {
  using E = Events;
  for (const auto& event : {E::Layout, E::CreateControls, E::AddMenuHandlers, E::SetupBindings}) {
    if (!isClosed_) callHandler(*this, event);
  }
  for (const Ref<Control>& control : std::vector(_mControlList)) {
    if (!isClosed_) control->raiseEvent(Control::Events::Open);
  }
  if (!isClosed_) callHandler(*this, E::Open);
}

void Window::_AddControl(const String& name, const Ref<Object>& control) {
  const Ref<Control> added = CheckCast<Control>(control);
  const Ref<Window> before = added->Window();
  if (before && before.get() != this) before->_RemoveControl(added);
  // Reserve first, so that a failed allocation leaves both lists unchanged.
  _mControlNames.reserve(_mControlNames.size() + 1);
  _mControlList.reserve(_mControlList.size() + 1);
  added->moveTo(this);
  added->Name = name;
  const auto same = std::ranges::find(_mControlNames, name);
  lookUpCache_ = {};
  _mControlNames.push_back(same == _mControlNames.end() ? name : String(*same));
  _mControlList.push_back(added);
}

void Window::_RemoveControl(const Ref<Control>& control) {
  // NOLINTNEXTLINE(performance-unnecessary-copy-initialization): `control` may refer into the list.
  const Ref<Control> removed = control;
  lookUpCache_ = {};
  if (removed && removed->Window().get() == this) removed->moveTo(nullptr);
  for (std::size_t index = _mControlList.size(); index-- > 0;) {
    if (_mControlList[index] != removed) continue;
    const auto place = static_cast<std::ptrdiff_t>(index);
    _mControlNames.erase(_mControlNames.begin() + place);
    _mControlList.erase(_mControlList.begin() + place);
  }
  if (removed && isOpen_) InForce<Toolkit>::get().controlChanged(*removed);
}

namespace {

/// Removes a closed window from `Windows`, `mDirtyWindows` and `_mImplicitWindowList`.
void removeFromWindowSupport(const Ref<Window>& window) {
  auto& windows = _WindowSupport.Windows;
  for (auto entry = windows.begin(); entry != windows.end(); ++entry) {
    if (*entry == window) {
      windows.erase(entry);
      break;
    }
    yieldToToolkit();
  }
  const Ref<Dictionary>& dirty = _WindowSupport.mDirtyWindows;
  if (dirty && dirty->HasKey(Ref<Object>(window))) dirty->Remove(Ref<Object>(window));
  const String& name = window->classRecord()->name;
  if (_mImplicitWindowList && _mImplicitWindowList->Lookup(name, Variant()) == Variant(window)) {
    _mImplicitWindowList->Remove(name);
  }
}

}  // namespace

bool Window::_UnifiedClose(bool quitting) {
  const Ref<Window> self(this);
  if (isClosed_ || isClosing_) return isClosed_;
  const ScopedFlag closing(isClosing_);
  if (callHandler(*this, Events::CancelClose, quitting)) return false;
  setActive(false);
  callHandler(*this, Events::Close);
  if (std::exchange(isOpen_, false)) InForce<Toolkit>::get().windowClosed(*this);
  for (const Ref<Control>& control : std::vector(_mControlList)) {
    control->Close();
    yieldToToolkit();  // ignores a stop signal, so the closing continues
  }
  discard();
  if (!quitting) InForce<Session>::get().windowClosed();
  return true;
}

void Window::discard() {
  isClosed_ = true;
  if (std::exchange(isOpen_, false)) InForce<Toolkit>::get().windowClosed(*this);
  while (!_mControlList.empty()) _RemoveControl(_mControlList.back());
  _mMenuHandlers = nullptr;  // a handler bound to this window would keep it alive
  removeFromWindowSupport(Ref<Window>(this));
}

void Window::_CallActivated() {
  isActive_ = true;
  callHandler(*this, Events::Activate);
  EnableMenuItems();
}

void Window::_CallDeactivated() {
  isActive_ = false;
  callHandler(*this, Events::Deactivate);
  EnableMenuItems();
}

void Window::setActive(bool active) {
  if (active == isActive_) return;
  active ? _CallActivated() : _CallDeactivated();
}

void Window::_AddMenuHandler(const String& name, const Ref<Delegate>& handler) {
  if (!_mMenuHandlers) _mMenuHandlers = New<Dictionary>();
  _mMenuHandlers->Value(name, handler);
}

bool Window::callMenuHandler(const String& name) {
  if (!_mMenuHandlers) return false;
  const auto handler = fromVariant<Ref<Delegate>>(_mMenuHandlers->Lookup(name, Variant()));
  if (!handler) return false;
  handler->call();
  return true;
}

bool Window::hasMenuHandler(const String& name) const {
  return _mMenuHandlers && _mMenuHandlers->HasKey(name);
}

void Window::_EnableMenuItems(const Ref<Array<Ref<MenuItem>>>& items) {
  callHandler(*this, Events::EnableMenuItems);
  for (const Ref<MenuItem>& item : items->elements) {
    if (hasMenuHandler(item->Name)) item->Enable();
    RuntimeBackgroundTask();
  }
}

void removeAllWindows() {
  // Must not allocate, because memory may be exhausted.
  auto& windows = _WindowSupport.Windows;
  while (!windows.empty()) Ref<Window>(windows.back())->discard();
}

Ref<Window> frontWindow() {
  const auto& windows = _WindowSupport.Windows;
  const auto active =
      std::ranges::find_if(windows, [](const auto& each) { return each->isActive(); });
  if (active != windows.end()) return *active;
  return windows.empty() ? nullptr : windows.back();
}

Ref<Object> RuntimeWindowControlByName(const Window& window, const String& name) {
  const auto& names = window._mControlNames;
  // Most names are constants: repeated look-ups usually pass the same `StringRecord`.
  const auto address = reinterpret_cast<std::uintptr_t>(name.record());
  std::uint8_t& hint =
      window.lookUpCache_[address / alignof(StringRecord) % window.lookUpCache_.size()];
  if (hint != 0 && names[hint - 1U].record() == name.record()) {
    return window._mControlList[hint - 1U];
  }
  // Search from the end: the newest control of a name counts.
  const auto found = std::find(names.rbegin(), names.rend(), name);
  if (found == names.rend()) return nullptr;
  const auto place = static_cast<std::size_t>(names.rend() - found);
  if (place <= UINT8_MAX) hint = static_cast<std::uint8_t>(place);
  return window._mControlList[place - 1];
}

Ref<Window> _GetImplicitWindow(const String& className) {
  const auto& windows = _WindowSupport.Windows;
  const auto found = std::ranges::find_if(
      windows, [&](const Ref<Window>& window) { return window->classRecord()->name == className; });
  return found == windows.end() ? nullptr : *found;
}

}  // namespace veldrin
