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
  NSMutableArray *const loaded = [NSMutableArray array];
  NSDictionary *const context = [NSDictionary
      dictionaryWithObjectsAndKeys:_owner, NSNibOwner, loaded, NSNibTopLevelObjects, nil];
  if (![NSBundle loadNibFile:[self windowNibPath] externalNameTable:context withZone:[self zone]]) {
    NSLog(@"%@: could not load nib named %@", [self class], [self windowNibName]);
    return;
  }
  _wcFlags.nib_is_loaded = YES;
  // The loader has given each of them to us with a reference, which dealloc releases.
  _top_level_objects = [loaded retain];
}
#pragma clang diagnostic pop

@end
