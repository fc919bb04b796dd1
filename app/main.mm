#import <AppKit/AppKit.h>

#include "app/BVSyncEngine.h"

int main(int argc, char *argv[]) {
  // Only probes the sync engine library: the application starts in any case, and every later query
  // initialises and uninitialises the library itself.
  if (BvInitialize() == 0) BvUninitialize();
  return NSApplicationMain(argc, const_cast<const char **>(argv));
}
