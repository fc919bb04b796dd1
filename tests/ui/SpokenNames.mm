#import "platform/gnustep/runtime/MethodReplacement.h"
#include "tests/ui/PermissionsTab.h"
#include "tests/ui/WindowFixtures.h"
#import "text/LocalizedText.h"

namespace {

bool answersNothing = false;

constinit platform::ReplacedMethod<id(NSString *)> platformAttributeValue;

id attributeValue(id element, SEL selector, NSString *attribute) {
  return answersNothing ? nil : platformAttributeValue(element, selector, attribute);
}

/// While one of these lives, what an interface file says of an element cannot be read back from it,
/// as on the Mac, where another element may have it, or none.
class MacAccessibility {
 public:
  MacAccessibility() {
    platformAttributeValue.install([NSObject class], @selector(accessibilityAttributeValue:),
                                   attributeValue);
    answersNothing = true;
  }
  ~MacAccessibility() { answersNothing = false; }
  MacAccessibility(const MacAccessibility &) = delete;
  MacAccessibility &operator=(const MacAccessibility &) = delete;
};

std::string nameOf(id element) {
  return text([element accessibilityAttributeValue:NSAccessibilityDescriptionAttribute]);
}

/// The spoken names of the element in an outlet, and of its cell where it has one.
std::vector<std::string> namesOf(id controller, NSString *outlet) {
  id const element = [controller valueForKey:outlet];
  std::vector<std::string> names = {nameOf(element)};
  if ([element isKindOfClass:[NSControl class]]) names.push_back(nameOf([element cell]));
  return names;
}

void expectName(id controller, NSString *outlet, NSString *key) {
  for (const std::string &name : namesOf(controller, outlet)) {
    EXPECT_EQ(name, text(localizedText(key))) << text(outlet);
  }
}

struct SpokenNames : Windows {
  SendAndCopyTabController *openSendWithoutReading() {
    const MacAccessibility mac;
    return openSend(0);
  }
  BrisvaleTabController *openShareWithoutReading() {
    const MacAccessibility mac;
    return openShare(0);
  }
};

struct SpokenNamesInRows : PermissionsTab {};

}  // namespace

TEST_F(SpokenNames, AreSetInTheSendTab) {
  SendFileController *const tab = [openSendWithoutReading() sendFile];
  expectName(tab, @"mailList", @"recipientsLabelTextKey");
  expectName(tab, @"mailSubject", @"subjectLabelTextKey");
  expectName(tab, @"mailContent", @"messageLabelTextKey");
  expectName(tab, @"noOfDownloads", @"downloadsLabelTextKey");
  expectName(tab, @"spinner", @"busyDescriptionKey");
}

TEST_F(SpokenNames, AreSetInTheCopyLinkTab) {
  CopyLinkController *const tab = [openSendWithoutReading() sendCopyFile];
  expectName(tab, @"noOfDownloads", @"downloadsLabelTextKey");
  expectName(tab, @"spinGear", @"busyDescriptionKey");
}

TEST_F(SpokenNames, AreSetInTheInviteTab) {
  InviteTabController *const tab = [openShareWithoutReading() sendInviteTab];
  expectName(tab, @"mailList", @"recipientsLabelTextKey");
  expectName(tab, @"accessType", @"accessLabelTextKey");
  expectName(tab, @"mailContent", @"messageLabelTextKey");
  expectName(tab, @"spinGear", @"busyDescriptionKey");
}

TEST_F(SpokenNames, AreSetInThePermissionsTab) {
  PermissionTabController *const tab = [openShareWithoutReading() givePermissionTab];
  expectName(tab, @"collectionViewForAllEntries", @"usersTextKey");
  expectName(tab, @"spinGear", @"busyDescriptionKey");
}

TEST_F(SpokenNamesInRows, AreSetInEachRow) {
  answerList(people(2));
  {
    const MacAccessibility mac;
    openLoaded();
    rowView(1);
  }
  for (NSUInteger row = 0; row < 2; ++row) {
    EXPECT_EQ(nameOf(accessIn(row)), text(localizedText(@"personAccessDescriptionKey"))) << row;
    EXPECT_EQ(nameOf([accessIn(row) cell]), text(localizedText(@"personAccessDescriptionKey")))
        << row;
  }
}
