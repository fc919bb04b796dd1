#import "tests/ui/InviteTabFixture.h"

NSString *const kGrant = @"grantAccess:::::::::";
NSString *const kUserInfo = @"getUserInfo::";

@implementation PostCounter

- (id)init {
  if ((self = [super init])) {
    [[NSNotificationCenter defaultCenter] addObserver:self
                                             selector:@selector(count:)
                                                 name:@"UserAddedToShareFolder"
                                               object:nil];
  }
  return self;
}

- (void)dealloc {
  [[NSNotificationCenter defaultCenter] removeObserver:self];
  [super dealloc];
}

- (void)count:(NSNotification *)notification {
  if ([notification object] != nil) return;
  ++posts;
  hadSheet.push_back([window attachedSheet] != nil);
}

@end

namespace {

/// The first of the views that is of this class.
template <class View>
View *firstOf(NSArray *views, Class cls) {
  for (NSView *view in views) {
    if ([view isKindOfClass:cls]) return static_cast<View *>(view);
  }
  return nil;
}

void addButtonTitles(NSView *view, std::vector<std::string> &titles) {
  if ([view isKindOfClass:[NSButton class]] && ![view isHidden]) {
    titles.push_back(text([static_cast<NSButton *>(view) title]));
  }
  for (NSView *subview in [view subviews]) addButtonTitles(subview, titles);
}

}  // namespace

NSDictionary *granted() {
  return @{
    @"reply" : success(@{@"userfname" : @"anna", @"userlname" : @"meier", @"useremail" : @"a@x.de"})
  };
}

NSDictionary *refused() {
  return @{@"reply" : refusal(1, @"no")};
}

void InviteTabFixture::knowColleagues(NSArray *addresses) {
  NSMutableArray *const records = [NSMutableArray array];
  for (NSString *address in addresses) {
    [records addObject:@{@"name" : @"A Colleague", @"primaryemail" : address}];
  }
  answer(@"getEmployeeAddressBook", @{@"reply" : success(records)});
  [delegate getAddressBookForShareFolder];
}

void InviteTabFixture::answer(NSString *operation, id entries) {
  [script_ setObject:entries forKey:operation];
  agent.setScript(script_);
}

void InviteTabFixture::open() {
  controller = openShare(1, @"folder-1");
  window = [controller window];
  counter->window = window;
}

NSArray *InviteTabFixture::views() const {
  return [[[[controller shareFolderTab] tabViewItemAtIndex:1] view] subviews];
}

NSTokenField *InviteTabFixture::recipients() const {
  return firstOf<NSTokenField>(views(), [NSTokenField class]);
}

NSPopUpButton *InviteTabFixture::access() const {
  return firstOf<NSPopUpButton>(views(), [NSPopUpButton class]);
}

NSTextView *InviteTabFixture::message() const {
  return [firstOf<NSScrollView>(views(), [NSScrollView class]) documentView];
}

NSProgressIndicator *InviteTabFixture::spinner() const {
  return firstOf<NSProgressIndicator>(views(), [NSProgressIndicator class]);
}

void InviteTabFixture::invite(NSString *addresses) {
  [recipients() setStringValue:addresses];
  [button(window, @"Invite") performClick:nil];
  handlePostedEvents();
}

bool InviteTabFixture::alertShows(const std::string &wanted) const {
  const auto texts =
      [window attachedSheet] == nil ? std::vector<std::string>{} : textsIn([window attachedSheet]);
  return std::find(texts.begin(), texts.end(), wanted) != texts.end();
}

std::vector<std::string> InviteTabFixture::alertButtons() const {
  std::vector<std::string> titles;
  addButtonTitles([[window attachedSheet] contentView], titles);
  return titles;
}

void InviteTabFixture::dismissAlert() const {
  [button([window attachedSheet], @"OK") performClick:nil];
  handlePostedEvents();
}

NSUInteger InviteTabFixture::calls(NSString *operation) const {
  NSCountedSet *const all = [[[NSCountedSet alloc] initWithArray:agent.operations()] autorelease];
  return [all countForObject:operation];
}

NSArray *InviteTabFixture::grantArguments(NSUInteger index) const {
  NSUInteger seen = 0;
  for (NSDictionary *call in agent.calls()) {
    if (![[call objectForKey:@"operation"] isEqualToString:kGrant]) continue;
    if (seen++ == index) return [call objectForKey:@"arguments"];
  }
  return nil;
}
