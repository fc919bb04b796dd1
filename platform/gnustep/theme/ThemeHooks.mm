#import "platform/gnustep/theme/ThemeHooks.h"

#import <AppKit/AppKit.h>

#import "platform/gnustep/runtime/MethodReplacement.h"
#import "platform/gnustep/theme/ButtonShape.h"
#import "platform/gnustep/theme/QuietTheme.h"
#include "platform/gnustep/theme/ThemeDrawing.h"
#import "platform/gnustep/theme/ThemeImages.h"
#import "platform/gnustep/theme/WindowLook.h"

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
constinit platform::ReplacedMethod<void()> platformInitBackendWindow;

bool isThemeActive() {
  return [[GSTheme theme] isKindOfClass:[QuietTheme class]];
}

#pragma mark - NSButtonCell

NSColor *textColorOfButton(id self, SEL selector) {
  if (isThemeActive() && [self isEnabled] && theme::isDefaultButton(self)) {
    return theme::color(theme::kOnAccent);
  }
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

/// Draws the arrows of a pop-up button at its right edge, for which the platform passes the frame
/// of the title.
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
    // Other images are the tick of the selected item, which is only for the open menu.
    if (isArrow) drawPopUpArrows(self, glyph, view);
    return;
  }
  if (glyph == Glyph::None) {
    platformDrawImage(self, selector, image, frame, view);
    return;
  }
  // The platform draws the arrows of the button in the selected item of its menu, too.
  if (isArrow && [self isKindOfClass:[NSMenuItemCell class]]) return;
  const NSSize size = [image size];
  const NSRect rect = theme::onPixels(NSMakeRect(
      NSMidX(frame) - size.width / 2, NSMidY(frame) - size.height / 2, size.width, size.height));
  theme::drawGlyph(glyph, rect, glyphState(self, view), [view isFlipped]);
}

#pragma mark - NSTextFieldCell

/// A field with round corners is not opaque: drawn alone, it would leave traces of its former
/// border there.
BOOL isFieldOpaque(id self, SEL selector) {
  if (isThemeActive() && [self isBezeled]) return NO;
  return platformIsOpaque(self, selector);
}

#pragma mark - NSTextView

/// The view whose border shows the keyboard focus of a text view: the field that it edits, or its
/// scroll view; nil for neither.
NSView *viewWithFocusLine(NSTextView *text) {
  id const field = [text isFieldEditor] ? (id)[text delegate] : nil;
  return [field isKindOfClass:[NSView class]] ? field : [text enclosingScrollView];
}

/// With the background, which is visible at the round corners of a field.
void redrawFocusLine(NSView *view) {
  [[view superview] setNeedsDisplayInRect:NSInsetRect([view frame], -1, -1)];
}

BOOL becomeFirstResponder(id self, SEL selector) {
  const BOOL became = platformBecomeFirstResponder(self, selector);
  redrawFocusLine(viewWithFocusLine(self));
  return became;
}

BOOL resignFirstResponder(id self, SEL selector) {
  // Before, because the field editor loses its delegate; redrawn afterwards, because the platform
  // draws the field while it still has its editor.
  NSView *const view = [[viewWithFocusLine(self) retain] autorelease];
  const BOOL resigned = platformResignFirstResponder(self, selector);
  redrawFocusLine(view);
  return resigned;
}

/// At the Tab key a field removes its editor before that resigns first responder.
void textDidEndEditing(id self, SEL selector, NSNotification *notification) {
  NSView *const field = [[static_cast<NSView *>(self) retain] autorelease];
  platformTextDidEndEditing(self, selector, notification);
  redrawFocusLine(field);
}

#pragma mark - Tool tips

void drawToolTip(id self, SEL selector, NSRect rect) {
  platformDrawToolTip(self, selector, rect);
  if (!isThemeActive()) return;
  // Covers the platform's black border.
  [theme::color(theme::kLine) set];
  NSFrameRect([self bounds]);
}

#pragma mark - NSWindow

void initBackendWindow(id self, SEL selector) {
  platformInitBackendWindow(self, selector);
  if (isThemeActive()) giveLookToWindow(self);
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
  platformInitBackendWindow.install([NSWindow class], NSSelectorFromString(@"_initBackendWindow"),
                                    initBackendWindow);
}
