#import "platform/gnustep/theme/ThemeHooks.h"

#import <AppKit/AppKit.h>

#import "platform/gnustep/runtime/MethodReplacement.h"
#import "platform/gnustep/theme/ButtonShape.h"
#import "platform/gnustep/theme/QuietTheme.h"
#include "platform/gnustep/theme/ThemeDrawing.h"
#import "platform/gnustep/theme/ThemeImages.h"

using theme::Glyph;
using theme::GlyphState;

namespace {

constinit platform::ReplacedMethod<NSColor *()> platformTextColor;
constinit platform::ReplacedMethod<void(NSImage *, NSRect, NSView *)> platformDrawImage;
constinit platform::ReplacedMethod<BOOL()> platformIsOpaque;
constinit platform::ReplacedMethod<BOOL()> platformBecomeFirstResponder;
constinit platform::ReplacedMethod<BOOL()> platformResignFirstResponder;
constinit platform::ReplacedMethod<void(NSNotification *)> platformTextDidEndEditing;
constinit platform::ReplacedMethod<void(NSRect)> platformDrawToolTip;

bool isThemeActive() {
  return [[GSTheme theme] isKindOfClass:[QuietTheme class]];
}

#pragma mark - NSButtonCell

NSColor *textColorOfButton(id self, SEL selector) {
  if (isThemeActive() && theme::isDefaultButton(self)) return theme::color(theme::kOnAccent);
  return platformTextColor(self, selector);
}

GlyphState glyphState(NSButtonCell *cell, NSView *view) {
  GlyphState state;
  state.isEnabled = [cell isEnabled];
  const bool isInMenu = [cell isKindOfClass:[NSMenuItemCell class]];
  state.isPressed = !isInMenu && [cell isHighlighted];
  state.isOnAccent = isInMenu && [cell isHighlighted];
  state.isMixed = !isInMenu && [cell state] == NSMixedState;
  state.hasFocus =
      !isInMenu && [cell showsFirstResponder] && [[view window] firstResponder] == view;
  return state;
}

/// The arrows of a pop-up button; the platform gives its titles as if they were its pictures.
void drawPopUpArrows(NSPopUpButtonCell *cell, Glyph glyph, NSView *view) {
  constexpr double kArrowsSide = 16;
  constexpr double kArrowsMargin = 4;
  const NSRect visible = theme::visibleButtonRect([view bounds], cell);
  GlyphState state;
  state.isEnabled = [cell isEnabled];
  const NSRect rect = NSMakeRect(NSMaxX(visible) - kArrowsSide - kArrowsMargin,
                                 NSMidY(visible) - kArrowsSide / 2, kArrowsSide, kArrowsSide);
  theme::drawGlyph(glyph, theme::onPixels(rect), state, [view isFlipped]);
}

void drawImageOfButton(id self, SEL selector, NSImage *image, NSRect frame, NSView *view) {
  const bool isOurs = isThemeActive() && [image isKindOfClass:[ThemeImage class]];
  const Glyph glyph = isOurs ? [static_cast<ThemeImage *>(image) glyph] : Glyph::None;
  const bool isArrow = glyph == Glyph::PopUpArrows || glyph == Glyph::PullDownArrow;
  if (isThemeActive() && [self isKindOfClass:[NSPopUpButtonCell class]]) {
    // What is not the arrows is the selected item's tick, which belongs into the open menu.
    if (isArrow) drawPopUpArrows(self, glyph, view);
    return;
  }
  if (glyph == Glyph::None) {
    platformDrawImage(self, selector, image, frame, view);
    return;
  }
  // The platform gives the selected item of a pop-up menu the arrows of the button.
  if (isArrow && [self isKindOfClass:[NSMenuItemCell class]]) return;
  const NSSize size = [image size];
  const NSRect rect = theme::onPixels(NSMakeRect(
      NSMidX(frame) - size.width / 2, NSMidY(frame) - size.height / 2, size.width, size.height));
  theme::drawGlyph(glyph, rect, glyphState(self, view), [view isFlipped]);
}

#pragma mark - NSTextFieldCell

/// A field with round corners shows what is behind it; drawn anew alone, it would keep traces of
/// its former line there.
BOOL isFieldOpaque(id self, SEL selector) {
  if (isThemeActive() && [self isBezeled]) return NO;
  return platformIsOpaque(self, selector);
}

#pragma mark - NSTextView

/// What shows by its line that the text view has the keyboard: the field that it edits for, or the
/// scroll view that it lies in; nil for neither.
NSView *viewWithFocusLine(NSTextView *text) {
  id const field = [text isFieldEditor] ? (id)[text delegate] : nil;
  return [field isKindOfClass:[NSView class]] ? field : [text enclosingScrollView];
}

/// With what lies around it: a field shows its surroundings at its round corners.
void redrawFocusLine(NSView *view) {
  [[view superview] setNeedsDisplayInRect:NSInsetRect([view frame], -1, -1)];
}

BOOL becomeFirstResponder(id self, SEL selector) {
  const BOOL became = platformBecomeFirstResponder(self, selector);
  redrawFocusLine(viewWithFocusLine(self));
  return became;
}

BOOL resignFirstResponder(id self, SEL selector) {
  // Asked before, because a field editor has no delegate any more afterwards; redrawn after,
  // because the platform draws the field anew in between, when it still has its editor.
  NSView *const view = [[viewWithFocusLine(self) retain] autorelease];
  const BOOL resigned = platformResignFirstResponder(self, selector);
  redrawFocusLine(view);
  return resigned;
}

/// A field that is left by Tab gives its editor back before that gives the keyboard back.
void textDidEndEditing(id self, SEL selector, NSNotification *notification) {
  NSView *const field = [[static_cast<NSView *>(self) retain] autorelease];
  platformTextDidEndEditing(self, selector, notification);
  redrawFocusLine(field);
}

#pragma mark - Tool tips

void drawToolTip(id self, SEL selector, NSRect rect) {
  platformDrawToolTip(self, selector, rect);
  if (!isThemeActive()) return;
  // Over the platform's black frame.
  [theme::color(theme::kLine) set];
  NSFrameRect([self bounds]);
}

}  // namespace

void installThemeHooks() {
  platformTextColor.install([NSButtonCell class], @selector(textColor), textColorOfButton);
  platformDrawImage.install([NSButtonCell class], @selector(drawImage:withFrame:inView:),
                            drawImageOfButton);
  platformBecomeFirstResponder.install([NSTextView class], @selector(becomeFirstResponder),
                                       becomeFirstResponder);
  platformResignFirstResponder.install([NSTextView class], @selector(resignFirstResponder),
                                       resignFirstResponder);
  platformTextDidEndEditing.install([NSTextField class], @selector(textDidEndEditing:),
                                    textDidEndEditing);
  platformIsOpaque.install([NSTextFieldCell class], @selector(isOpaque), isFieldOpaque);
  platformDrawToolTip.install(NSClassFromString(@"GSTTView"), @selector(drawRect:), drawToolTip);
}
