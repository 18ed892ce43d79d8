#pragma once

#include "shell/window/ApplicationSession.h"
#include "shell/window/Toolkit.h"

namespace veldrin {

/// Puts the toolkit and the session in force. The destructor removes the windows that are still
/// open, without raising events, and releases the application and the plug-in entries.
class WindowRoom {
 public:
  /// `toolkit` must outlive the object.
  explicit WindowRoom(Toolkit& toolkit) : toolkit_(toolkit), inForce_(session_) {}
  WindowRoom(const WindowRoom&) = delete;
  WindowRoom& operator=(const WindowRoom&) = delete;
  ~WindowRoom();

 private:
  InForce<Toolkit> toolkit_;
  ApplicationSession session_;
  InForce<Session> inForce_;
};

}  // namespace veldrin
