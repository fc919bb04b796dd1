#import <AppKit/AppKit.h>

/// What the controllers of all four tabs have in common. The windows' interface files create them.
/// Main thread.
@interface TabController : NSObject

/// Shows the alert as a sheet on the window, with this controller as its delegate.
- (void)showAlert:(NSAlert *)alert;

/// Shows the success sheet with the text for `key`; killModalWindow: ends it three seconds later.
- (void)showSuccessModalWindow:(NSString *)key;

/// The success sheet's timer: ends the sheet; the window stays open.
- (void)killModalWindow:(NSTimer *)timer;

/// Closes the window; this controller lives on until its action has returned.
- (void)closeWindow;

/// To be called when the window closes. Releases the window and clears every outlet: what outlives
/// the window, as the timer of a success sheet does, then uses nothing of it. Subclasses also stop
/// the busy indicator's animation, which no action does.
- (void)disconnectFromWindow;

@end

/// What each tab controller has as properties, and each with attributes of its own.
@interface TabController (Outlets)

/// The window with the tab, nil once it has been closed. Alerts and the success sheet go there.
- (NSWindow *)ourMainWindow;
- (void)setOurMainWindow:(NSWindow *)window;

/// The success sheet and the text in it.
- (NSWindow *)modalWindow;
- (void)setModalWindow:(NSWindow *)window;
- (NSTextField *)modalWindowText;
- (void)setModalWindowText:(NSTextField *)text;

@end

/// A tab with a field for recipients: a token field, whose delegate it is, and a message, whose
/// delegate it is too.
@interface RecipientTabController : TabController <NSTokenFieldDelegate, NSTextViewDelegate>

/// Prepares both. To be called when the interface file has been loaded.
- (void)prepareRecipients:(NSTokenField *)recipients message:(NSTextView *)message;

/// Whether the address looks like one (see Recipients.h).
- (BOOL)validateEmail:(NSString *)address;

@end
