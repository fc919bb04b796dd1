#import "platform/gnustep/alerts/AlertText.h"

#include <cmath>

namespace {

constexpr CGFloat kEndless = 1e6;

}  // namespace

@implementation AlertText

+ (AlertText *)textWithString:(NSString *)text font:(NSFont *)font {
  AlertText *const field = [[[AlertText alloc] initWithFrame:NSZeroRect] autorelease];
  [field setEditable:NO];
  [field setSelectable:NO];
  [field setBezeled:NO];
  [field setBordered:NO];
  [field setDrawsBackground:NO];
  [field setFont:font];
  [field setStringValue:text ?: @""];
  return field;
}

- (NSAttributedString *)wrappedText {
  NSMutableParagraphStyle *const style = [[[NSMutableParagraphStyle alloc] init] autorelease];
  [style setLineBreakMode:NSLineBreakByWordWrapping];
  [style setAlignment:NSNaturalTextAlignment];
  NSDictionary *const attributes = [NSDictionary
      dictionaryWithObjectsAndKeys:[self font], NSFontAttributeName, style,
                                   NSParagraphStyleAttributeName, [NSColor controlTextColor],
                                   NSForegroundColorAttributeName, nil];
  return [[[NSAttributedString alloc] initWithString:[self stringValue]
                                          attributes:attributes] autorelease];
}

- (CGFloat)heightForWidth:(CGFloat)width {
  if ([[self stringValue] length] == 0) return 0;
  const NSRect bounds =
      [[self wrappedText] boundingRectWithSize:NSMakeSize(width, kEndless)
                                       options:NSStringDrawingUsesLineFragmentOrigin];
  return std::ceil(NSHeight(bounds));
}

- (BOOL)isFlipped {
  return YES;
}

- (void)drawRect:(NSRect)dirty {
  (void)dirty;
  [[self wrappedText] drawInRect:[self bounds]];
}

@end
