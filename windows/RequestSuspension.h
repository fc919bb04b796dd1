#pragma once

#import <Foundation/Foundation.h>

#include <vector>

/// While one of these lives, calls to the object that is vended to the plug-in wait, whatever run
/// loop mode runs meanwhile. Every operation of the plug-in, every action of the context menu and
/// every action of a window that asks the agent or uses the clipboard keeps one: the platform may
/// run the default mode inside its own calls, and a call that is served there would close the
/// window, or write the clipboard, that the action further up the stack is working on.
///
/// Pauses may be nested; the calls are served when the outermost one has ended. Main thread.
class RequestSuspension {
 public:
  RequestSuspension();
  ~RequestSuspension();
  RequestSuspension(const RequestSuspension &) = delete;
  RequestSuspension &operator=(const RequestSuspension &) = delete;

 private:
  std::vector<NSConnection *> paused_;  // retained: those that listen and one for each client
};
