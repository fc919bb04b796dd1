#import <AppKit/AppKit.h>

#include "app/BVSyncEngine.h"

int main(int argc, char *argv[]) {
  // A probe of the sync engine library and nothing more: the application starts in any case, and
  // every later query begins and ends the library for itself.
  if (BvInitialize() == 0) BvUninitialize();
  return NSApplicationMain(argc, const_cast<const char **>(argv));
}
