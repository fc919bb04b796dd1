#import "platform/gnustep/tokenfield/NSTokenField+Tokens.h"

#import "platform/gnustep/interface-files/NSObject+Accessibility.h"
#import "platform/gnustep/tokenfield/FieldToken.h"
#import "platform/gnustep/tokenfield/TokenEditor.h"
#import "platform/gnustep/tokenfield/TokenFieldCell.h"

namespace {

constexpr CGFloat kWheelPoints = 20;

}  // namespace

// Replacing the platform's own methods is the point.
#pragma clang diagnostic ignored "-Wobjc-protocol-method-implementation"
@implementation NSTokenField (Tokens)

- (id)initWithFrame:(NSRect)frame {
  // Not the platform's, which sends the cell two messages that only its class implements.
  return [super initWithFrame:frame];
}

- (id)initWithCoder:(NSCoder *)coder {
  self = [super initWithCoder:coder];
  if (self == nil) return nil;
  if (![_cell isKindOfClass:[TokenFieldCell class]]) [self adoptLookOfCell:_cell];
  [_cell setControlView:self];
  return self;
}

- (void)dealloc {
  [self setCell:nil];
  [super dealloc];
}

/// The platform sets the control view only when it draws the cell, but the field's delegate is
/// asked for every token.
- (void)setCell:(NSCell *)cell {
  if (cell != _cell && [_cell isKindOfClass:[TokenFieldCell class]]) {
    [self abortEditing];
    [_cell removeToolTipsOfView:self];
    [_cell setControlView:nil];
  }
  [super setCell:cell];
  [cell setControlView:self];
}

/// An interface file may contain a token field with the cell of a text field.
- (void)adoptLookOfCell:(NSTextFieldCell *)former {
  TokenFieldCell *const cell = [[[TokenFieldCell alloc] initTextCell:@""] autorelease];
  [cell setFont:[former font]];
  [cell setEditable:[former isEditable]];
  [cell setSelectable:[former isSelectable]];
  [cell setEnabled:[former isEnabled]];
  [cell setBezeled:[former isBezeled]];
  [cell setBordered:[former isBordered]];
  [cell setDrawsBackground:[former drawsBackground]];
  [cell setBackgroundColor:[former backgroundColor]];
  [cell setTextColor:[former textColor]];
  [cell setPlaceholderString:[former placeholderString]];
  [cell setSendsActionOnEndEditing:[former sendsActionOnEndEditing]];
  [cell setTarget:[former target]];
  [cell setAction:[former action]];
  NSString *const value = [[[former stringValue] retain] autorelease];
  [self setCell:cell];
  [self setStringValue:value];
}

- (TokenFieldCell *)tokenCell {
  return static_cast<TokenFieldCell *>(_cell);
}

- (TokenEditor *)tokenEditor {
  return static_cast<TokenEditor *>(_text_object);
}

- (NSString *)title {
  return [self stringValue];
}

- (void)setTitle:(NSString *)title {
  [self setStringValue:title ?: @""];
}

- (void)setObjectValue:(id)object {
  [self abortEditing];
  [_cell setObjectValue:object];
}

#pragma mark - Editing

- (void)selectText:(id)sender {
  if (![self isSelectable] || [self superview] == nil) return;
  if (_text_object != nil) {
    [_text_object selectAll:sender];
    return;
  }
  NSEvent *const event = [_window currentEvent];
  const BOOL byClick =
      sender == self && [event type] == NSLeftMouseDown &&
      NSPointInRect([self convertPoint:[event locationInWindow] fromView:nil], [self bounds]);
  _text_object = [_cell setUpFieldEditorAttributes:[[self tokenCell] fieldEditorForView:self]];
  // A click sets the caret or selects a token itself.
  const NSUInteger selected = byClick ? 0 : [[[self tokenCell] tokenText] length];
  [_cell selectWithFrame:[self bounds]
                  inView:self
                  editor:_text_object
                delegate:self
                   start:0
                  length:static_cast<NSInteger>(selected)];
  [self setNeedsDisplay:YES];
}

- (void)mouseDown:(NSEvent *)event {
  if (![self isSelectable] || ![self isEnabled]) {
    [super mouseDown:event];
    return;
  }
  if (_text_object == nil) [_window makeFirstResponder:self];
  [_text_object mouseDown:event];
}

- (void)validateEditing {
  if (_text_object != nil) [[self tokenCell] takeTextFromEditor];
}

- (void)finishTokens {
  [[self tokenEditor] finishFragments];
  [self validateEditing];
}

- (void)textDidEndEditing:(NSNotification *)notification {
  [self finishTokens];
  [super textDidEndEditing:notification];
  [self setNeedsDisplay:YES];
}

- (void)setEnabled:(BOOL)isEnabled {
  // Disabling aborts editing.
  if (!isEnabled) [self finishTokens];
  [super setEnabled:isEnabled];
}

- (void)scrollWheel:(NSEvent *)event {
  if (_text_object != nil) {
    [super scrollWheel:event];
    return;
  }
  const CGFloat distance = -([event deltaY] + [event deltaX]) * kWheelPoints;
  [[self tokenCell] scrollBy:distance inBounds:[self bounds]];
  [self setNeedsDisplay:YES];
}

#pragma mark - Drawing

- (void)drawRect:(NSRect)rect {
  [super drawRect:rect];
  [[self tokenCell] updateToolTipsOfView:self];
}

#pragma mark - Accessibility

- (NSString *)accessibilityValue {
  return [self stringValue];
}

- (id)accessibilityAttributeValue:(NSString *)attribute {
  return [attribute isEqualToString:NSAccessibilityValueAttribute]
             ? [self stringValue]
             : [super accessibilityAttributeValue:attribute];
}

@end
