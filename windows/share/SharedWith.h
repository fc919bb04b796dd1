#import <Foundation/Foundation.h>

#include <cstdint>

/// One person with access to a folder: a row of the permissions tab. All fields start empty, zero
/// or NO.
@interface SharedWith : NSObject {
 @private
  NSString *personName;
  NSString *permission;
  NSString *useremail;
  BOOL isNotOwner;
  std::int64_t accessPermission;
}

/// What the row shows: the capitalized first and last name, or the address when there is no name.
@property (nonatomic, retain) NSString *personName;

/// The title of the row's access level in the user's language; what the row's pop-up shows.
@property (nonatomic, retain) NSString *permission;

/// The person's address, by which the agent knows them.
@property (nonatomic, retain) NSString *useremail;

/// YES for every row that is listed: owners are not.
@property (assign) BOOL isNotOwner;

/// 1: read and write; 0: read only. Nothing else.
@property (nonatomic, assign) std::int64_t accessPermission;

@end
