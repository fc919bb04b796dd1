#import <AppKit/AppKit.h>

#import "platform/gnustep/tokenfield/CompletionList.h"

@class TokenEditor;

/// Completes the text that is typed in a token editor: asks the field's delegate once for each
/// change, shows the completions in a list below the field, and inserts the one that the user
/// chooses. Main thread only.
@interface TokenCompletion : NSObject <CompletionListUser> {
 @private
  TokenEditor *_editor;
  CompletionList *_list;
  BOOL _isAboutToAsk;
}

/// editor: the owner; not retained.
- (id)initWithEditor:(TokenEditor *)editor;

/// To be called before the editor is deallocated.
- (void)invalidate;

/// Asks after the field's completion delay, unless another change or close comes first, and after
/// all key events in the queue, which change the text again.
- (void)textChanged;

/// Asks without delay.
- (void)askNow;

/// Handles the keys of an open list: up and down, by rows and pages, Return, Tab, Escape. YES when
/// the command has been handled; Tab is also handled by the editor. Updates a list that is not for
/// the last change first.
- (BOOL)handleCommand:(SEL)command;

- (void)close;
- (BOOL)isListOpen;

@end
