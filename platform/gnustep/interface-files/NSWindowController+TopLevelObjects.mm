#import <AppKit/AppKit.h>

/// A window controller owns the top-level objects of its interface file and releases them in
/// dealloc, as on the Mac. The platform leaks them.
@interface NSWindowController (TopLevelObjects)
@end

@implementation NSWindowController (TopLevelObjects)

// Replacing the platform's own method is the point.
#pragma clang diagnostic push
#pragma clang diagnostic ignored "-Wobjc-protocol-method-implementation"
- (void)loadWindow {
  if ([self isWindowLoaded]) return;
  NSMutableArray *const loaded = [[NSMutableArray alloc] init];
  NSString *const path = [self windowNibPath];
  BOOL isLoaded = NO;
  // Objects that the loader autoreleases refer to the owner, which may be deallocated before the
  // end of the event.
  @autoreleasepool {
    // Without a file the platform's loader raises; the Mac's says that there is none.
    NSDictionary *const context = [NSDictionary
        dictionaryWithObjectsAndKeys:_owner, NSNibOwner, loaded, NSNibTopLevelObjects, nil];
    isLoaded = path != nil && [NSBundle loadNibFile:path
                                  externalNameTable:context
                                           withZone:[self zone]];
  }
  // The loader has retained each of them for the caller, and dealloc releases them.
  _top_level_objects = loaded;
  _wcFlags.nib_is_loaded = isLoaded;
  if (!isLoaded) NSLog(@"%@: could not load nib named %@", [self class], [self windowNibName]);
}
#pragma clang diagnostic pop

@end
