#import "tests/platform/tokenfield/TokenFieldFixture.h"

/// The owner of TokenFields.xib.
@interface TokenFieldOwner : NSObject {
 @public
  IBOutlet NSWindow *window;
  IBOutlet NSTokenField *custom;
  IBOutlet NSTokenField *plain;
  IBOutlet NSTokenField *fromTextField;
}
@end

@implementation TokenFieldOwner
@end

namespace {

/// The fields of the interface file, in a window on the screen.
class Loading : public TokenField {
 protected:
  void SetUp() override {
    TokenField::SetUp();
    owner = [[TokenFieldOwner alloc] init];
    ASSERT_TRUE([NSBundle loadNibNamed:@"TokenFields" owner:owner]);
    [owner->window orderFront:nil];
  }

  void TearDown() override {
    [owner->window close];
    [owner->window release];
    [owner release];
    TokenField::TearDown();
  }

  /// Types into a loaded field.
  void typeInto(NSTokenField *loaded, NSString *characters) {
    [owner->window makeKeyAndOrderFront:nil];
    ASSERT_TRUE(eventually([this] { return [owner->window isKeyWindow] != NO; }));
    [owner->window makeFirstResponder:loaded];
    [static_cast<NSTextView *>([loaded currentEditor]) insertText:characters];
  }

  TokenFieldOwner *owner = nil;
};

}  // namespace

TEST_F(Loading, AFieldOfASubclassHasTokens) {
  typeInto(owner->custom, @"a@b.c,d@e.f");
  EXPECT_TRUE([owner->custom isKindOfClass:[RecipientField class]]);
  EXPECT_EQ([[owner->custom objectValue] count], 2u);
}

TEST_F(Loading, AFieldOfThePlatformsClassHasTokens) {
  typeInto(owner->plain, @"x@y.z,");
  EXPECT_EQ(text([owner->plain stringValue]), "x@y.z");
}

TEST_F(Loading, AFieldOfASubclassWithATextFieldsCellHasTokens) {
  EXPECT_EQ(text([owner->fromTextField stringValue]), "x@y.z,u@v.w");
  EXPECT_EQ([[owner->fromTextField objectValue] count], 2u);
  typeInto(owner->fromTextField, @"a@b.c,d@e.f,");
  EXPECT_EQ([[owner->fromTextField objectValue] count], 2u);
}

TEST_F(Loading, ATitleInTheFileIsTheValue) {
  EXPECT_EQ(text([owner->plain stringValue]), "a@b.c,d@e.f");
  EXPECT_EQ([[owner->plain objectValue] count], 2u);
}

TEST_F(Loading, TheFilesLookIsKept) {
  EXPECT_TRUE([owner->custom isEditable]);
  EXPECT_TRUE([[owner->custom cell] isBezeled]);
  EXPECT_EQ([[owner->custom font] pointSize], 13);
  EXPECT_EQ(text([[owner->custom cell] placeholderString]), "Recipients");
  EXPECT_TRUE([[owner->fromTextField cell] isBezeled]);
}

TEST_F(Loading, ALoadedFieldHasTheDefaultTokenizingCharacters) {
  EXPECT_TRUE([[owner->custom tokenizingCharacterSet] characterIsMember:',']);
}

TEST_F(Loading, ALoadedFieldIsReleasedWithItsWindowWhileItIsEdited) {
  typeInto(owner->custom, @"a@b.c,d@e");
  [owner->window close];
  EXPECT_EQ(text([owner->custom stringValue]), "a@b.c,d@e");
}
