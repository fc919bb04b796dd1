#import <AppKit/AppKit.h>

/// The contents of an alert's panel.
struct AlertContents {
  NSImage *icon;
  NSString *message;
  NSString *information;
  /// At least one. The first is the default one; the others stand to the left of it.
  NSArray *buttons;
};

/// The panel of an alert, as a sheet or for a modal session: the icon at the left, the texts beside
/// it, the buttons below. Texts that would make it too tall for the screen scroll. Main thread
/// only.
@interface AlertPanel : NSPanel

/// Replaces the contents and lays them out. The panel becomes the target of the buttons and ends
/// its sheet or modal session with the tag of the button that is pressed.
- (void)setContents:(const AlertContents &)contents;

@end
