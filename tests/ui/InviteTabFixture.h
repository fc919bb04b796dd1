#pragma once

#import "tests/ui/WindowFixtures.h"

extern NSString *const kGrant;
extern NSString *const kUserInfo;

/// Records the notifications "UserAddedToShareFolder" during its lifetime.
@interface PostCounter : NSObject {
 @public
  int posts;
  /// Also records the sheet on this window at each post.
  NSWindow *window;
  std::vector<bool> hadSheet;
}
@end

/// The agent's replies when it grants access, and when it refuses.
NSDictionary *granted();
NSDictionary *refused();

/// The share window on its invite tab, opened as the plug-in opens it.
struct InviteTabFixture : Windows {
  BrisvaleTabController *controller = nil;
  NSWindow *window = nil;
  PostCounter *counter = [[PostCounter alloc] init];

  ~InviteTabFixture() override { [counter release]; }

  /// Colleagues that the address book knows.
  void knowColleagues(NSArray *addresses);

  /// What the agent does at an operation: an entry of its script, or several.
  void answer(NSString *operation, id entries);
  void grants(id entries) { answer(kGrant, entries); }

  void open();
  NSTokenField *recipients() const;
  NSPopUpButton *access() const;
  NSTextView *message() const;
  NSProgressIndicator *spinner() const;

  /// Enters the addresses and presses the button.
  void invite(NSString *addresses);

  bool alertShows(const std::string &wanted) const;
  /// The titles of the alert's buttons.
  std::vector<std::string> alertButtons() const;
  /// Presses the alert's only button.
  void dismissAlert() const;

  NSUInteger calls(NSString *operation) const;
  /// The arguments of one of the calls that gave access, the first being 0.
  NSArray *grantArguments(NSUInteger index) const;

 private:
  NSMutableDictionary *script_ = [NSMutableDictionary dictionary];

  NSArray *views() const;
};
