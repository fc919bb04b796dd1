#pragma once

#import <Foundation/Foundation.h>

#include <vector>

/// While one of these lives, requests of the plug-in are suspended: they wait, whichever mode the
/// run loop runs in. Every operation of the plug-in, every action of the context menu and every
/// action of a window that asks the agent or uses the clipboard has one, because the platform may
/// run the default mode inside its own calls. A request that is served there would close the
/// window, or write to the clipboard, that the action further up the stack is using.
///
/// May be nested; the requests are served when the outermost suspension has ended. Main thread.
class RequestSuspension {
 public:
  RequestSuspension();
  ~RequestSuspension();
  RequestSuspension(const RequestSuspension &) = delete;
  RequestSuspension &operator=(const RequestSuspension &) = delete;

 private:
  std::vector<NSConnection *> suspended_;  // retained: the listening ones and one for each client
};
