#import "platform/gnustep/alerts/AlertPanel.h"

#include <algorithm>
#include <cmath>

#import "platform/gnustep/alerts/AlertIcon.h"
#import "platform/gnustep/alerts/AlertTextBlock.h"

namespace {

// In points, as the Mac lays its alerts out.
constexpr CGFloat kWidth = 420;
constexpr CGFloat kIconSide = 64;
constexpr CGFloat kIconLeft = 24;
constexpr CGFloat kTextLeft = kIconLeft + kIconSide + 16;
constexpr CGFloat kTop = 16;
constexpr CGFloat kRight = 20;
constexpr CGFloat kBottom = 20;
constexpr CGFloat kAboveButtons = 16;
constexpr CGFloat kButtonHeight = 28;
constexpr CGFloat kButtonGap = 12;
constexpr CGFloat kSmallestButtonWidth = 86;
constexpr CGFloat kButtonPadding = 16;

/// The share of the screen's height for the texts: leaves room for the buttons and for the parent
/// of a sheet.
constexpr CGFloat kTallestTexts = 0.5;

/// The share of the free height that is below the panel.
constexpr CGFloat kPartOfRoomBelow = 2.0 / 3;

NSString *const kEscape = @"\x1b";

NSRect screenOf(NSWindow *window) {
  return [([window screen] ?: [NSScreen mainScreen]) visibleFrame];
}

CGFloat widthOf(NSButton *button) {
  return std::max(kSmallestButtonWidth, std::ceil([[button cell] cellSize].width) + kButtonPadding);
}

/// All buttons side by side with their gaps.
CGFloat widthOfRow(NSArray *buttons) {
  CGFloat width = -kButtonGap;
  for (NSButton *button in buttons) width += kButtonGap + widthOf(button);
  return width;
}

}  // namespace

@implementation AlertPanel

- (id)init {
  self = [super initWithContentRect:NSMakeRect(0, 0, kWidth, kIconSide)
                          styleMask:NSTitledWindowMask | NSClosableWindowMask
                            backing:NSBackingStoreBuffered
                              defer:YES];
  if (self) {
    [self setReleasedWhenClosed:NO];
    [self setHidesOnDeactivate:NO];
    // Window managers show a text of their own for an empty title.
    [self setTitle:@" "];
  }
  return self;
}

/// A little above the middle of the screen, where the Mac shows alerts.
- (void)center {
  const NSRect screen = screenOf(self);
  const NSSize size = [self frame].size;
  [self setFrameOrigin:NSMakePoint(std::floor(NSMidX(screen) - size.width / 2),
                                   std::floor(NSMinY(screen) + (NSHeight(screen) - size.height) *
                                                                   kPartOfRoomBelow))];
}

- (void)setContents:(const AlertContents &)contents {
  NSView *const view = [[[NSView alloc] initWithFrame:[[self contentView] frame]] autorelease];
  [self setContentView:view];
  const CGFloat scale = [self userSpaceScaleFactor];
  const NSSize pixels = screenOf(self).size;
  const NSSize screen = NSMakeSize(pixels.width / scale, pixels.height / scale);
  const CGFloat widest = screen.width - 2 * kRight;
  const CGFloat wanted = kRight + widthOfRow(contents.buttons) + kRight;
  const CGFloat width = std::min(widest, std::max(kWidth, wanted));

  AlertTextBlock *const texts = [[[AlertTextBlock alloc]
      initWithMessage:contents.message
          information:contents.information
                width:width - kTextLeft - kRight
            maxHeight:std::floor(screen.height * kTallestTexts)] autorelease];
  const CGFloat belowTexts = kBottom + kButtonHeight + kAboveButtons;
  const CGFloat middle = std::max(kIconSide, NSHeight([texts frame]));
  [self setContentSize:NSMakeSize(width, kTop + middle + belowTexts)];

  const CGFloat top = belowTexts + middle;
  const NSRect iconFrame = NSMakeRect(kIconLeft, top - kIconSide, kIconSide, kIconSide);
  [view addSubview:[[[AlertIcon alloc] initWithFrame:iconFrame image:contents.icon] autorelease]];
  [texts setFrameOrigin:NSMakePoint(kTextLeft, top - NSHeight([texts frame]))];
  [view addSubview:texts];
  [self layOutButtons:contents.buttons width:width - 2 * kRight];
}

/// From the right to the left. When they do not fit, all have the same width and truncate their
/// titles.
- (void)layOutButtons:(NSArray *)buttons width:(CGFloat)width {
  const NSUInteger count = [buttons count];
  const bool fit = widthOfRow(buttons) <= width;
  const CGFloat share = std::floor((width + kButtonGap) / count) - kButtonGap;
  CGFloat right = kRight + width;
  for (NSUInteger i = 0; i < count; ++i) {
    NSButton *const button = [buttons objectAtIndex:i];
    const CGFloat own = fit ? widthOf(button) : share;
    [button setTarget:self];
    [button setAction:@selector(buttonPressed:)];
    [button setBezelStyle:NSRoundedBezelStyle];
    [[button cell] setLineBreakMode:NSLineBreakByTruncatingTail];
    [button setFrame:NSMakeRect(right - own, kBottom, own, kButtonHeight)];
    [button setNextKeyView:[buttons objectAtIndex:(i + 1) % count]];
    [[self contentView] addSubview:button];
    right -= own + kButtonGap;
  }
  NSButton *const first = [buttons objectAtIndex:0];
  [self setDefaultButtonCell:[first cell]];
  [self setInitialFirstResponder:first];
  [self makeFirstResponder:first];
}

/// Window managers show a close button although alerts on the Mac have none. Without the style mask
/// for it, it would end the program; so the panel has it, and the button presses Cancel or the only
/// button.
- (void)performClose:(id)sender {
  NSMutableArray *const buttons = [NSMutableArray array];
  NSButton *answer = nil;
  for (NSButton *button in [[self contentView] subviews]) {
    if (![button isKindOfClass:[NSButton class]]) continue;
    [buttons addObject:button];
    if ([[button keyEquivalent] isEqualToString:kEscape]) answer = button;
  }
  if ([buttons count] == 1) answer = [buttons objectAtIndex:0];
  [answer performClick:sender];
}

/// The platform's panels with a close button would close without ending the session.
- (void)keyDown:(NSEvent *)event {
  if (![[event charactersIgnoringModifiers] isEqualToString:kEscape]) [super keyDown:event];
}

- (void)buttonPressed:(NSButton *)sender {
  if ([NSApp modalWindow] == self) {
    [NSApp stopModalWithCode:[sender tag]];
  } else {
    [NSApp endSheet:self returnCode:[sender tag]];
  }
}

@end
