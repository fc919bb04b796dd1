#pragma once

#import <Foundation/Foundation.h>

#import "agent/RestoringAfterwards.h"

/// Suspends the plug-in's requests, adding each connection that it changes to `suspended`, and
/// resumes them: only through withRequestsSuspended.
void suspendRequests(NSMutableArray *suspended);
void resumeRequests(NSArray *suspended);

/// Runs body with the requests of the plug-in suspended, and returns its result: they wait,
/// whichever mode the run loop runs in. Every operation of the plug-in, every action of the context
/// menu and every action of a window that asks the agent or uses the clipboard runs in it, because
/// the platform may run the default mode inside its own calls. A request that is served there would
/// close the window, or write to the clipboard, that the action further up the stack is using.
///
/// May be nested; the requests are served when the outermost suspension has ended, by an exception
/// too. Main thread.
template <class Body>
auto withRequestsSuspended(const Body &body) -> decltype(body()) {
  NSMutableArray *const suspended = [NSMutableArray array];
  return agent::restoringAfterwards(
      [&] {
        suspendRequests(suspended);
        return body();
      },
      [&] { resumeRequests(suspended); });
}
