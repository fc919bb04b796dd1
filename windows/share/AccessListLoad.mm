#import "windows/share/AccessListLoad.h"

#import "agent/AccessEntries.h"
#import "agent/BVDataModelController.h"
#import "agent/BackgroundTurn.h"
#import "agent/ResultDictionary.h"
#import "windows/share/AccessRules.h"

@implementation AccessListLoad

@synthesize number;
@synthesize pathOrId;
@synthesize isFileId;
@synthesize people;
@synthesize isAnswered;

- (id)init {
  if ((self = [super init])) people = [[NSMutableArray alloc] init];
  return self;
}

- (void)dealloc {
  [pathOrId release];
  [people release];
  [super dealloc];
}

- (void)askAgent {
  const agent::BackgroundTurn turn;
  if (!turn.mayAsk()) return;
  BVDataModelController *const link = [[[BVDataModelController alloc] init] autorelease];
  // The formatter takes the first anonymous argument for a part of the name.
  // clang-format off
  NSDictionary *const reply = [link getAccess:pathOrId:isFileId];
  // clang-format on
  if ([reply count] == 0) return;
  isAnswered = agent::visitAccessEntries([reply objectForKey:agent::kValueKey],
                                         [self](const agent::AccessEntry &entry) {
                                           if (SharedWith *const row = rowFor(entry)) {
                                             [people addObject:row];
                                           }
                                         });
}

@end
