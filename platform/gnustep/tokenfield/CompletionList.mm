#import "platform/gnustep/tokenfield/CompletionList.h"

#import "platform/gnustep/tokenfield/CompletionListView.h"

/// Becomes neither the key nor the main window.
@interface CompletionPanel : NSPanel
@end

@implementation CompletionPanel

- (BOOL)canBecomeKeyWindow {
  return NO;
}

- (BOOL)canBecomeMainWindow {
  return NO;
}

- (BOOL)worksWhenModal {
  return YES;
}

@end

namespace {

constexpr NSUInteger kVisibleRows = 10;
constexpr CGFloat kMinimumWidth = 220;
constexpr CGFloat kGap = 2;
constexpr CGFloat kBorder = 1;

}  // namespace

@implementation CompletionList

+ (NSUInteger)visibleRows {
  return kVisibleRows;
}

- (id)initWithUser:(id<CompletionListUser>)user {
  self = [super init];
  if (self == nil) return nil;
  _user = user;
  const NSRect frame = NSMakeRect(0, 0, kMinimumWidth, kMinimumWidth);
  _panel = [[CompletionPanel alloc] initWithContentRect:frame
                                              styleMask:NSBorderlessWindowMask
                                                backing:NSBackingStoreBuffered
                                                  defer:YES];
  [_panel setLevel:NSPopUpMenuWindowLevel];
  [_panel setReleasedWhenClosed:NO];
  [_panel setHidesOnDeactivate:NO];
  [_panel setExcludedFromWindowsMenu:YES];
  [_panel setAcceptsMouseMovedEvents:YES];
  NSScrollView *const scrollView = [[[NSScrollView alloc] initWithFrame:frame] autorelease];
  [scrollView setBorderType:NSLineBorder];
  [scrollView setHasVerticalScroller:YES];
  _rows = [[CompletionListView alloc] initWithFrame:frame];
  [_rows setAutoresizingMask:NSViewWidthSizable];
  [_rows setTarget:self action:@selector(rowClicked:)];
  [scrollView setDocumentView:_rows];
  [_panel setContentView:scrollView];
  return self;
}

- (void)dealloc {
  [self close];
  [_rows setTarget:nil action:NULL];
  [_rows release];
  [_panel release];
  [super dealloc];
}

#pragma mark - Opening and closing

- (void)showItems:(NSArray *)items
         selected:(NSInteger)selected
             font:(NSFont *)font
            below:(NSView *)view {
  if (![self isOpen]) {
    _view = view;
    [self watchWindow:[view window]];
  }
  const NSUInteger rows = MIN([items count], kVisibleRows);
  NSScrollView *const scrollView = static_cast<NSScrollView *>([_panel contentView]);
  [scrollView setHasVerticalScroller:[items count] > kVisibleRows];
  const CGFloat points = rows * [CompletionListView rowHeightForFont:font] + 2 * kBorder;
  const CGFloat height = points * [[view window] userSpaceScaleFactor];
  [_panel setFrame:[self frameWithHeight:height] display:NO];
  [_rows setFrameSize:NSMakeSize([scrollView contentSize].width, NSHeight([_rows frame]))];
  [_rows setItems:items font:font];
  [_rows scrollPoint:NSZeroPoint];
  const BOOL exists = selected >= 0 && selected < static_cast<NSInteger>([items count]);
  [_rows setSelectedRow:exists ? selected : -1];
  if (![_panel isVisible]) [_panel orderFrontRegardless];
  [_panel displayIfNeeded];
}

/// Below the view, or above it where it does not fit, and within the screen, whose unit the height
/// has: pixels.
- (NSRect)frameWithHeight:(CGFloat)height {
  const NSRect inWindow = [_view convertRect:[_view bounds] toView:nil];
  const NSPoint corner = [[_view window] convertBaseToScreen:inWindow.origin];
  const NSRect screen = [[[_view window] screen] visibleFrame];
  const CGFloat scale = [[_view window] userSpaceScaleFactor];
  const CGFloat width = MAX(kMinimumWidth * scale, NSWidth(inWindow));
  const CGFloat left = MAX(NSMinX(screen), MIN(corner.x, NSMaxX(screen) - width));
  CGFloat bottom = corner.y - kGap * scale - height;
  if (bottom < NSMinY(screen)) bottom = corner.y + NSHeight(inWindow) + kGap * scale;
  return NSMakeRect(left, bottom, width, height);
}

- (void)close {
  if (![self isOpen]) return;
  [[NSNotificationCenter defaultCenter] removeObserver:self];
  _view = nil;
  [_panel orderOut:nil];
  [_rows setItems:nil font:[NSFont systemFontOfSize:0]];
}

- (BOOL)isOpen {
  return _view != nil;
}

- (void)watchWindow:(NSWindow *)window {
  NSNotificationCenter *const center = [NSNotificationCenter defaultCenter];
  NSString *const ends[] = {
      NSWindowDidMoveNotification,      NSWindowDidResizeNotification,
      NSWindowDidResignKeyNotification, NSWindowWillBeginSheetNotification,
      NSWindowWillCloseNotification,    NSWindowWillMiniaturizeNotification,
  };
  for (NSString *const name : ends) {
    [center addObserver:self selector:@selector(closeAfterNotification:) name:name object:window];
  }
  [center addObserver:self
             selector:@selector(closeAfterNotification:)
                 name:NSApplicationWillHideNotification
               object:NSApp];
}

- (void)closeAfterNotification:(NSNotification *)notification {
  (void)notification;
  [self close];
}

#pragma mark - Choosing

- (NSString *)selectedItem {
  const NSInteger row = [_rows selectedRow];
  return row < 0 ? nil : [[_rows items] objectAtIndex:static_cast<NSUInteger>(row)];
}

- (void)moveSelectionBy:(NSInteger)rows {
  const NSInteger last = static_cast<NSInteger>([[_rows items] count]) - 1;
  const NSInteger current = [_rows selectedRow];
  // Without a selection, moving down selects the first row and moving up nothing.
  if (current < 0 && rows < 0) return;
  [_rows setSelectedRow:MAX(0, MIN(current + rows, last))];
  [_panel displayIfNeeded];
}

- (void)rowClicked:(CompletionListView *)rows {
  (void)rows;
  [_user completionList:self choseItem:[self selectedItem]];
}

@end
