#pragma once

#import <AppKit/AppKit.h>

/// A subclass as in an application: it handles key equivalents without calling super.
@interface RecipientField : NSTokenField {
 @public
  /// The texts of the tool tips that it has.
  NSMutableDictionary *toolTips;
}
@end

/// A delegate that completes from a list and recognises addresses written as "Name<address>".
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

/// An array of a hundred thousand entries that counts how many of them are read.
@interface CountingArray : NSArray {
 @public
  NSUInteger length;
  NSUInteger reads;
}
@end

/// Counts its instances.
@interface Witness : NSObject {
 @private
  int *_alive;
}
+ (Witness *)witnessOf:(int *)alive;
@end
