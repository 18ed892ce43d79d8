#pragma once

#include "shell/window/ApplicationSession.h"
#include "shell/window/Toolkit.h"

namespace veldrin {

/// Puts the toolkit and the session in force. The destructor closes the remaining windows without
/// raising events, and releases the application and the plug-in entries.
class WindowRoom {
 public:
  /// `toolkit` must outlive the object.
  explicit WindowRoom(Toolkit& toolkit) : toolkitInForce_(toolkit), sessionInForce_(session_) {}
  WindowRoom(const WindowRoom&) = delete;
  WindowRoom& operator=(const WindowRoom&) = delete;
  ~WindowRoom();

 private:
  InForce<Toolkit> toolkitInForce_;
  ApplicationSession session_;
  InForce<Session> sessionInForce_;
};

}  // namespace veldrin
