#import <Foundation/Foundation.h>

/// One contact of an address book. The spelling of the second property is the interface's own.
@interface emailContact : NSObject {
 @private
  NSString *personName;
  NSString *personEmaild;
}

/// The display name as the agent gives it; nil when it gives none.
@property (retain) NSString *personName;

/// The e-mail address; nil when the agent gives none.
@property (retain) NSString *personEmaild;

@end
