#import "windows/share/PersonRowView.h"

#import "windows/share/SharedWith.h"

@implementation PersonRowView

@synthesize person;

- (void)dealloc {
  [person release];
  [super dealloc];
}

- (void)setPerson:(SharedWith *)newPerson {
  if (newPerson == person) return;
  [person release];
  person = [newPerson retain];
  for (NSView *control in [self subviews]) {
    if ([control isKindOfClass:[NSTextField class]]) [control setToolTip:[person useremail]];
  }
}

@end
