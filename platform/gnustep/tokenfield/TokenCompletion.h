#import <AppKit/AppKit.h>

#import "platform/gnustep/tokenfield/CompletionList.h"

@class TokenEditor;

/// Completion of what is typed in a token editor: asks the field's delegate once for each change,
/// shows its answer in a list below the field, and puts in what the user chooses. Never changes the
/// text otherwise. Main thread only.
@interface TokenCompletion : NSObject <CompletionListUser> {
 @private
  TokenEditor *_editor;
  CompletionList *_list;
  BOOL _isAboutToAsk;
}

/// editor: the owner; not retained.
- (id)initWithEditor:(TokenEditor *)editor;

/// The editor goes away.
- (void)invalidate;

/// Asks after the field's completion delay, unless another change or close comes first. While
/// typed keys are waiting it waits, too: their answer is the one that counts.
- (void)textChanged;

/// Asks without delay.
- (void)askNow;

/// The keys that an open list takes: up and down, by rows and pages, Return, Tab, Escape. YES when
/// the command is done with; Tab also goes on to the editor. A list that is not of the last change
/// is brought up to date first.
- (BOOL)handleCommand:(SEL)command;

- (void)close;
- (BOOL)isListOpen;

@end
