#import <AppKit/AppKit.h>

/// Who is to be told of the end of an alert shown as a sheet. Lives with the sheet and keeps both
/// the alert and its delegate alive.
@interface AlertSheet : NSObject {
 @private
  NSAlert *_alert;
  id _delegate;
  SEL _didEndSelector;
}

/// delegate nil or selector NULL: nobody is told.
- (id)initWithAlert:(NSAlert *)alert delegate:(id)delegate didEndSelector:(SEL)selector;

/// The sheet's own did-end selector; passes the alert on instead of its panel.
- (void)panelDidEnd:(NSWindow *)panel
         returnCode:(NSInteger)returnCode
        contextInfo:(void *)contextInfo;

@end
