#pragma once

#include "shell/window/ApplicationSession.h"
#include "shell/window/Toolkit.h"

namespace veldrin {

/// Takes up the state of this room: the toolkit and the session in force. At its end it closes the
/// windows that are still open, without asking anything, and gives up the application and the
/// plug-in entries.
class WindowRoom {
 public:
  /// `toolkit` must outlive this.
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
