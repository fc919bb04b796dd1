#import "addressbook/emailContact.h"

@implementation emailContact

@synthesize personName;
@synthesize personEmaild;

- (void)dealloc {
  [personName release];
  [personEmaild release];
  [super dealloc];
}

@end
