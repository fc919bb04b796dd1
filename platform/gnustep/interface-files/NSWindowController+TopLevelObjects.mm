#import <AppKit/AppKit.h>

/// A window controller that owns all top-level objects of its interface file and lets them go with
/// itself, as the Mac's does. The platform's own leaves every one of them behind.
@interface NSWindowController (TopLevelObjects)
@end

@implementation NSWindowController (TopLevelObjects)

// The category's method is the one that counts: the platform's stays unused.
#pragma clang diagnostic push
#pragma clang diagnostic ignored "-Wobjc-protocol-method-implementation"
- (void)loadWindow {
  if ([self isWindowLoaded]) return;
  NSMutableArray *const loaded = [[NSMutableArray alloc] init];
  NSString *const path = [self windowNibPath];
  BOOL isLoaded = NO;
  // What the loader leaves in the pool refers to the owner, and an owner may end before the event
  // in which it was loaded.
  @autoreleasepool {
    // Without a file the platform's loader raises; the Mac's says that there is none.
    NSDictionary *const context = [NSDictionary
        dictionaryWithObjectsAndKeys:_owner, NSNibOwner, loaded, NSNibTopLevelObjects, nil];
    isLoaded = path != nil && [NSBundle loadNibFile:path
                                  externalNameTable:context
                                           withZone:[self zone]];
  }
  // The loader has given each of them to us with a reference, which dealloc releases.
  _top_level_objects = loaded;
  _wcFlags.nib_is_loaded = isLoaded;
  if (!isLoaded) NSLog(@"%@: could not load nib named %@", [self class], [self windowNibName]);
}
#pragma clang diagnostic pop

@end
