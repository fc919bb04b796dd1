#import "windows/ApplicationState.h"

#import <AppKit/AppKit.h>

id<ApplicationState> applicationState() {
  id const delegate = [NSApp delegate];
  return delegate;
}
