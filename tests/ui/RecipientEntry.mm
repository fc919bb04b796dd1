#include <gtest/gtest.h>

#include "tests/support/Strings.h"
#include "tests/ui/Application.h"
#import "windows/send/SendFileController.h"
#import "windows/share/InviteTabController.h"

namespace {

/// The recipients field's delegate, in the send tab and in the invite tab.
template <class Controller>
struct RecipientEntry : testing::Test {
  ContextMenuAppAppDelegate *delegate = loadedDelegate();
  Controller *controller = [[Controller alloc] init];
  NSTokenField *field = [[NSTokenField alloc] initWithFrame:NSMakeRect(0, 0, 200, 22)];

  RecipientEntry() {
    setBook(@[
      @"Anna<anna@example.org>", @"Dan<dan@example.org>", @"Brian<brian@example.org>",
      @"ANDY<andy@example.org>"
    ]);
  }
  ~RecipientEntry() override {
    setBook(nil);
    [field release];
    [controller release];
  }

  void setBook(NSArray *entries) {
    [delegate setAddressBookForShare:[NSMutableArray arrayWithArray:entries]];
  }

  // NOLINTNEXTLINE(readability-non-const-parameter): the controller writes to it
  NSArray *completions(NSString *substring, NSInteger *selected) {
    return [controller tokenField:field
          completionsForSubstring:substring
                     indexOfToken:0
              indexOfSelectedItem:selected];
  }

  std::string completed(NSString *substring) {
    NSInteger selected = 0;
    return text([completions(substring, &selected) componentsJoinedByString:@" "]);
  }

  id represented(NSString *string) {
    return [controller tokenField:field representedObjectForEditingString:string];
  }

  BOOL isValid(NSString *address) { return [controller validateEmail:address]; }
};

using Controllers = testing::Types<SendFileController, InviteTabController>;

struct ControllerNames {
  template <class Controller>
  static std::string GetName(int index) {
    return index == 0 ? "Send" : "Invite";
  }
};

}  // namespace

TYPED_TEST_SUITE(RecipientEntry, Controllers, ControllerNames);

TYPED_TEST(RecipientEntry, OffersEntriesThatBeginWithTheTextBeforeThoseThatContainIt) {
  EXPECT_EQ(this->completed(@"an"),
            "Anna<anna@example.org> ANDY<andy@example.org> Dan<dan@example.org> "
            "Brian<brian@example.org>");
}

TYPED_TEST(RecipientEntry, FindsPartsOfAnAddressToo) {
  EXPECT_EQ(this->completed(@"Y@EX"), "ANDY<andy@example.org>");
  EXPECT_EQ(this->completed(@"an<D"), "Dan<dan@example.org>");
}

TYPED_TEST(RecipientEntry, OffersNothingForATextThatNoEntryContains) {
  NSInteger selected = 0;
  NSArray *const none = this->completions(@"xyz", &selected);
  EXPECT_NE(none, nil);
  EXPECT_EQ([none count], 0u);
}

TYPED_TEST(RecipientEntry, OffersNothingFromAnEmptyBook) {
  this->setBook(@[]);
  EXPECT_EQ(this->completed(@"an"), "");
}

TYPED_TEST(RecipientEntry, OffersNothingWithoutABook) {
  [this->delegate setAddressBookForShare:nil];
  EXPECT_EQ(this->completed(@"an"), "");
}

TYPED_TEST(RecipientEntry, OffersNothingForNoText) {
  EXPECT_EQ(this->completed(nil), "");
}

TYPED_TEST(RecipientEntry, SelectsNoCompletionWhetherOneIsFoundOrNot) {
  NSString *const substrings[] = {@"an", @"xyz", nil};
  for (NSString *const substring : substrings) {
    NSInteger selected = 7;
    this->completions(substring, &selected);
    EXPECT_EQ(selected, -1) << text(substring);
  }
}

TYPED_TEST(RecipientEntry, TheSelectedIndexNeedNotBeAskedFor) {
  EXPECT_EQ([this->completions(@"an", nullptr) count], 4u);
}

TYPED_TEST(RecipientEntry, TheTokensIndexAndTheFieldDoNotCount) {
  NSInteger selected = 0;
  NSArray *const found = [this->controller tokenField:nil
                              completionsForSubstring:@"dan"
                                         indexOfToken:-5
                                  indexOfSelectedItem:&selected];
  EXPECT_EQ([found count], 1u);
}

TYPED_TEST(RecipientEntry, ATextLongerThanEveryEntryIsNoError) {
  NSString *const longText = [@"Anna<anna@example.org>" stringByPaddingToLength:100
                                                                     withString:@"x"
                                                                startingAtIndex:0];
  EXPECT_EQ(this->completed(longText), "");
}

TYPED_TEST(RecipientEntry, ATokenStandsForTheAddressOfItsEntry) {
  EXPECT_EQ(text(this->represented(@"Anna<anna@example.org>")), "anna@example.org");
}

TYPED_TEST(RecipientEntry, ABareAddressStandsForItself) {
  EXPECT_EQ(this->represented(@"anna@example.org"), nil);
  EXPECT_EQ(this->represented(@""), nil);
  EXPECT_EQ(this->represented(nil), nil);
}

TYPED_TEST(RecipientEntry, BracketsWithNothingInThemStandForTheEmptyText) {
  EXPECT_EQ(text(this->represented(@"<>")), "");
}

TYPED_TEST(RecipientEntry, TheAddressIsWhatFollowsTheFirstBracketOfEitherKind) {
  EXPECT_EQ(text(this->represented(@"A<b<c>d>")), "b");
  EXPECT_EQ(text(this->represented(@"A>b<c")), "b");
  EXPECT_EQ(text(this->represented(@"A<b")), "b");
  EXPECT_EQ(text(this->represented(@"A<")), "");
}

TYPED_TEST(RecipientEntry, AnAddressWithPlusDotUnderlineOrPercentIsValid) {
  EXPECT_TRUE(this->isValid(@"first.last+tag@mail.example.com"));
  EXPECT_TRUE(this->isValid(@"a_b%c@example.io"));
}

TYPED_TEST(RecipientEntry, AnyNumberOfDottedPartsIsValid) {
  EXPECT_TRUE(this->isValid(@"a@b.c.d.info"));
}

TYPED_TEST(RecipientEntry, ATopLevelDomainHasTwoToFourLetters) {
  EXPECT_FALSE(this->isValid(@"user@example"));
  EXPECT_FALSE(this->isValid(@"user@example.c"));
  EXPECT_TRUE(this->isValid(@"user@example.co"));
  EXPECT_TRUE(this->isValid(@"user@example.info"));
  EXPECT_FALSE(this->isValid(@"user@example.museum"));
}

TYPED_TEST(RecipientEntry, AnAddressHasOneAtSign) {
  EXPECT_FALSE(this->isValid(@"user@@example.com"));
  EXPECT_FALSE(this->isValid(@"user.example.com"));
}

TYPED_TEST(RecipientEntry, NothingIsTrimmedFromAnAddress) {
  EXPECT_FALSE(this->isValid(@" user@example.com"));
  EXPECT_FALSE(this->isValid(@"user@example.com "));
  EXPECT_FALSE(this->isValid(@"user@example.com\n"));
}

TYPED_TEST(RecipientEntry, NoAddressIsInvalid) {
  EXPECT_FALSE(this->isValid(@""));
  EXPECT_FALSE(this->isValid(nil));
}
