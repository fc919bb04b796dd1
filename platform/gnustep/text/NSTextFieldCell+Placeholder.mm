#import <AppKit/AppKit.h>

/// The text that the platform draws for a field that is not being edited.
@interface NSTextFieldCell (Drawing)
- (NSAttributedString *)_drawAttributedString;
@end

/// The platform shows a placeholder only in a field whose value was never set, even to an empty
/// text.
@implementation NSTextFieldCell (Placeholder)

- (NSAttributedString *)drawnPlaceholder {
  if ([self placeholderAttributedString] != nil) return [self placeholderAttributedString];
  NSString *const placeholder = [self placeholderString];
  if (placeholder == nil) return nil;
  NSDictionary *const attributes = @{
    NSFontAttributeName : [self font] ?: [NSFont systemFontOfSize:0],
    NSForegroundColorAttributeName : [NSColor disabledControlTextColor]
  };
  return [[[NSAttributedString alloc] initWithString:placeholder
                                          attributes:attributes] autorelease];
}

- (NSAttributedString *)_drawAttributedString {
  NSAttributedString *const text = [self attributedStringValue];
  if ([text length] == 0) return [self drawnPlaceholder];
  if ([self isEnabled]) return text;
  NSMutableAttributedString *const pale = [[text mutableCopy] autorelease];
  [pale addAttribute:NSForegroundColorAttributeName
               value:[NSColor disabledControlTextColor]
               range:NSMakeRange(0, [pale length])];
  return pale;
}

@end
