#import "platform/gnustep/screen/ScreenScaleDefaults.h"

#import <Foundation/Foundation.h>

#include "platform/gnustep/screen/ScreenScale.h"

namespace {

NSString *const kScale = @"GSScaleFactor";
NSString *const kHinting = @"GSFontHinting";
/// Neither the widths of glyphs nor their shapes are rounded to the pixels of the unscaled font,
/// which would leave gaps in enlarged words. (Of the two digits the first stands for the widths.)
constexpr int kNoHinting = 0x11;

}  // namespace

void adoptScreenScale() {
  NSUserDefaults *const defaults = [NSUserDefaults standardUserDefaults];
  if ([defaults objectForKey:kScale] == nil) {
    const double scale = platform::screenScaleOfDesktop();
    // The platform's own default is 1, too, and costs no look at the defaults.
    if (scale == 1) return;
    [defaults registerDefaults:@{kScale : @(scale)}];
  }
  if ([defaults doubleForKey:kScale] != 1) [defaults registerDefaults:@{kHinting : @(kNoHinting)}];
}
