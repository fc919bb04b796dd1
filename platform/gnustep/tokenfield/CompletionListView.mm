#import "platform/gnustep/tokenfield/CompletionListView.h"

#include "platform/gnustep/theme/ThemeDrawing.h"
#import "platform/gnustep/tokenfield/FieldToken.h"
#import "platform/gnustep/tokenfield/PillText.h"

namespace {

constexpr CGFloat kRowPadding = 6;
constexpr CGFloat kTextIndent = 8;

}  // namespace

@implementation CompletionListView

+ (CGFloat)rowHeightForFont:(NSFont *)font {
  return ceil([font ascender] - [font descender]) + kRowPadding;
}

- (id)initWithFrame:(NSRect)frame {
  self = [super initWithFrame:frame];
  if (self == nil) return nil;
  _selectedRow = -1;
  return self;
}

- (void)dealloc {
  [_items release];
  [_font release];
  [super dealloc];
}

- (BOOL)isFlipped {
  return YES;
}

- (BOOL)acceptsFirstMouse:(NSEvent *)event {
  (void)event;
  return YES;
}

- (void)setTarget:(id)target action:(SEL)action {
  _target = target;
  _action = action;
}

- (CGFloat)rowHeight {
  return [CompletionListView rowHeightForFont:_font];
}

- (void)setItems:(NSArray *)items font:(NSFont *)font {
  [_items autorelease];
  _items = [items retain];
  [_font autorelease];
  _font = [font retain];
  _selectedRow = -1;
  [self setFrameSize:NSMakeSize(NSWidth([self frame]), [items count] * [self rowHeight])];
  [self setNeedsDisplay:YES];
}

- (NSArray *)items {
  return _items;
}

- (NSRect)rectOfRow:(NSInteger)row {
  return NSMakeRect(0, row * [self rowHeight], NSWidth([self bounds]), [self rowHeight]);
}

- (void)selectRow:(NSInteger)row {
  if (row == _selectedRow) return;
  if (_selectedRow >= 0) [self setNeedsDisplayInRect:[self rectOfRow:_selectedRow]];
  _selectedRow = row;
  if (row >= 0) [self setNeedsDisplayInRect:[self rectOfRow:row]];
}

- (void)setSelectedRow:(NSInteger)row {
  [self selectRow:row];
  if (row >= 0) [self scrollRectToVisible:[self rectOfRow:row]];
}

- (NSInteger)selectedRow {
  return _selectedRow;
}

#pragma mark - Drawing

- (void)drawRect:(NSRect)rect {
  [theme::color(theme::kSurface) set];
  NSRectFill(rect);
  const NSInteger count = static_cast<NSInteger>([_items count]);
  const NSInteger first = MAX(0, static_cast<NSInteger>(floor(NSMinY(rect) / [self rowHeight])));
  const NSInteger end = MIN(count, static_cast<NSInteger>(ceil(NSMaxY(rect) / [self rowHeight])));
  for (NSInteger row = first; row < end; ++row) [self drawRow:row];
}

- (void)drawRow:(NSInteger)row {
  const NSRect place = [self rectOfRow:row];
  const BOOL isSelected = row == _selectedRow;
  if (isSelected) {
    [theme::color(theme::kAccent) set];
    NSRectFill(place);
  }
  NSMutableParagraphStyle *const style = [[[NSMutableParagraphStyle alloc] init] autorelease];
  [style setLineBreakMode:NSLineBreakByClipping];
  // Also a name from right to left, so that the names stand below each other.
  [style setAlignment:NSLeftTextAlignment];
  NSDictionary *const attributes = [NSDictionary
      dictionaryWithObjectsAndKeys:_font, NSFontAttributeName, style, NSParagraphStyleAttributeName,
                                   theme::color(isSelected ? theme::kOnAccent : theme::kText),
                                   NSForegroundColorAttributeName, nil];
  NSString *const item = [_items objectAtIndex:static_cast<NSUInteger>(row)];
  const NSRect text = NSMakeRect(kTextIndent, NSMinY(place) + kRowPadding / 2,
                                 NSWidth(place) - 2 * kTextIndent, NSHeight(place));
  [stringOf(pill_text::onOneLine(utf16Of(item))) drawInRect:text withAttributes:attributes];
}

#pragma mark - Mouse

- (NSInteger)rowForEvent:(NSEvent *)event {
  const NSPoint point = [self convertPoint:[event locationInWindow] fromView:nil];
  if (!NSPointInRect(point, [self visibleRect])) return -1;
  const NSInteger row = static_cast<NSInteger>(floor(point.y / [self rowHeight]));
  return row < static_cast<NSInteger>([_items count]) ? row : -1;
}

- (void)mouseMoved:(NSEvent *)event {
  const NSInteger row = [self rowForEvent:event];
  if (row >= 0) [self selectRow:row];
}

- (void)mouseDown:(NSEvent *)event {
  [self selectRow:[self rowForEvent:event]];
}

- (void)mouseDragged:(NSEvent *)event {
  [self selectRow:[self rowForEvent:event]];
}

- (void)mouseUp:(NSEvent *)event {
  [self selectRow:[self rowForEvent:event]];
  if (_selectedRow >= 0) [_target performSelector:_action withObject:self];
}

@end
