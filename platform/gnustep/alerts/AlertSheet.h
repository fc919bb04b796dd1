#import <AppKit/AppKit.h>

/// The delegate of the sheet of an alert. Retained by the sheet; retains the alert and its
/// delegate.
@interface AlertSheet : NSObject {
 @private
  NSAlert *_alert;
  id _delegate;
  SEL _didEndSelector;
}

/// delegate nil or selector NULL: no message is sent.
- (id)initWithAlert:(NSAlert *)alert delegate:(id)delegate didEndSelector:(SEL)selector;

/// The did-end selector of the sheet; sends the delegate's selector with the alert instead of the
/// panel.
- (void)panelDidEnd:(NSWindow *)panel
         returnCode:(NSInteger)returnCode
        contextInfo:(void *)contextInfo;

@end
