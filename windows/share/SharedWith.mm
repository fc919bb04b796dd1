#import "windows/share/SharedWith.h"

@implementation SharedWith

@synthesize personName;
@synthesize permission;
@synthesize useremail;
@synthesize isNotOwner;
@synthesize accessPermission;

- (void)dealloc {
  [personName release];
  [permission release];
  [useremail release];
  [super dealloc];
}

@end
