#import "platform/gnustep/AlertPanel.h"

#include <algorithm>
#include <cmath>

#import "platform/gnustep/AlertIcon.h"
#import "platform/gnustep/AlertTextBlock.h"

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

/// Of the screen, for the texts: leaves room for the buttons and for the window that the panel hangs
/// from.
constexpr CGFloat kTallestTexts = 0.5;

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
                          styleMask:NSTitledWindowMask
                            backing:NSBackingStoreBuffered
                              defer:YES];
  if (self) {
    [self setReleasedWhenClosed:NO];
    [self setHidesOnDeactivate:NO];
    [self setTitle:@""];
  }
  return self;
}

- (void)setContents:(const AlertContents &)contents {
  NSView *const view = [[[NSView alloc] initWithFrame:[[self contentView] frame]] autorelease];
  [self setContentView:view];
  const NSSize screen = screenOf(self).size;
  const CGFloat widest = screen.width - 2 * kRight;
  const CGFloat wanted = kRight + widthOfRow(contents.buttons) + kRight;
  const CGFloat width = std::min(widest, std::max(kWidth, wanted));

  AlertTextBlock *const texts =
      [[[AlertTextBlock alloc] initWithMessage:contents.message
                                   information:contents.information
                                         width:width - kTextLeft - kRight
                                     maxHeight:std::floor(screen.height * kTallestTexts)]
          autorelease];
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

/// From the right to the left. When there is too little room for all of them, each gets an equal
/// share and truncates its title.
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

- (void)buttonPressed:(NSButton *)sender {
  if ([NSApp modalWindow] == self) {
    [NSApp stopModalWithCode:[sender tag]];
  } else {
    [NSApp endSheet:self returnCode:[sender tag]];
  }
}

@end
