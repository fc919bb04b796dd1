#import "platform/gnustep/images/ImageTypes.h"

#import <AppKit/AppKit.h>

void useOwnImageReadersOnly() {
  Class const foreign = NSClassFromString(@"GSImageMagickImageRep");
  if (foreign != Nil) [NSImageRep unregisterImageRepClass:foreign];
}
