#import <AppKit/AppKit.h>

#include <gtest/gtest.h>

#include <set>

namespace {

NSDictionary *attributesWith(NSTextAttachment *attachment) {
  return @{NSAttachmentAttributeName : attachment, NSToolTipAttributeName : @"tip"};
}

NSTextAttachment *attachment() {
  return [[[NSTextAttachment alloc] initWithFileWrapper:nil] autorelease];
}

}  // namespace

TEST(AttachmentHash, TellsAttributesOfManyAttachmentsApart) {
  NSMutableArray *const all = [NSMutableArray array];
  std::set<NSUInteger> hashes;
  for (int i = 0; i < 100; ++i) {
    [all addObject:attributesWith(attachment())];
    hashes.insert([[all lastObject] hash]);
  }
  EXPECT_EQ(hashes.size(), 100u);
}

TEST(AttachmentHash, IsThatOfEqualAttributesWhateverHoldsThem) {
  NSDictionary *const attributes = attributesWith(attachment());
  NSAttributedString *const text =
      [[[NSAttributedString alloc] initWithString:@"x" attributes:attributes] autorelease];
  NSDictionary *const ofText = [text attributesAtIndex:0 effectiveRange:nullptr];
  ASSERT_TRUE([ofText isEqual:attributes]);
  EXPECT_EQ([ofText hash], [attributes hash]);
  EXPECT_EQ([[[attributes mutableCopy] autorelease] hash], [attributes hash]);
}

TEST(AttachmentHash, LeavesOtherDictionariesFindable) {
  NSDictionary *const key = @{@"a" : @1};
  NSDictionary *const table = @{key : @"value"};
  EXPECT_EQ([table objectForKey:[[key mutableCopy] autorelease]], @"value");
}
