#import <AppKit/AppKit.h>

/// What an alert shows, for its panel.
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

/// Lays the contents out in place of the former ones. The buttons' targets become the panel, which
/// ends itself when one is pressed: its sheet or modal session returns the button's tag.
- (void)setContents:(const AlertContents &)contents;

@end
