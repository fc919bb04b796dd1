#pragma once

#import <AppKit/AppKit.h>

/// A subclass as an application has it: it answers key equivalents without asking its superclass.
@interface RecipientField : NSTokenField {
 @public
  /// The texts of the tool tips that it has.
  NSMutableDictionary *toolTips;
}
@end

/// Completes from a list and knows addresses written as "Name<address>".
@interface RecipientDelegate : NSObject <NSTokenFieldDelegate> {
 @public
  NSArray *book;
  NSInteger selectedItem;
  NSMutableArray *asked;
  NSMutableArray *askedIndexes;
  NSUInteger changes;
  NSSet *refused;
}
@end

/// Counts clicks.
@interface ClickCounter : NSObject {
 @public
  int clicks;
}
- (void)clicked:(id)sender;
@end

/// What an array of a hundred thousand entries costs: how many of them were read.
@interface CountingArray : NSArray {
 @public
  NSUInteger length;
  NSUInteger reads;
}
@end

/// Counts itself while it lives.
@interface Witness : NSObject {
 @private
  int *_alive;
}
+ (Witness *)witnessOf:(int *)alive;
@end
