#import "tests/platform/tokenfield/TokenRecipients.h"

@implementation RecipientField

- (void)dealloc {
  [toolTips release];
  toolTips = nil;
  [super dealloc];
}

- (NSToolTipTag)addToolTipRect:(NSRect)rect owner:(id)owner userData:(void *)data {
  const NSToolTipTag tag = [super addToolTipRect:rect owner:owner userData:data];
  if (toolTips == nil) toolTips = [[NSMutableDictionary alloc] init];
  [toolTips setObject:[owner description] forKey:[NSNumber numberWithInteger:tag]];
  return tag;
}

- (void)removeToolTip:(NSToolTipTag)tag {
  [toolTips removeObjectForKey:[NSNumber numberWithInteger:tag]];
  [super removeToolTip:tag];
}

- (BOOL)performKeyEquivalent:(NSEvent *)event {
  (void)event;
  return NO;
}

@end

@implementation RecipientDelegate

- (id)init {
  self = [super init];
  selectedItem = -1;
  asked = [[NSMutableArray alloc] init];
  askedIndexes = [[NSMutableArray alloc] init];
  return self;
}

- (void)dealloc {
  [book release];
  [asked release];
  [askedIndexes release];
  [refused release];
  [super dealloc];
}

- (NSArray *)tokenField:(NSTokenField *)tokenField
    completionsForSubstring:(NSString *)substring
               indexOfToken:(NSInteger)tokenIndex
        indexOfSelectedItem:(NSInteger *)selectedIndex {
  (void)tokenField;
  [asked addObject:substring];
  [askedIndexes addObject:[NSNumber numberWithInteger:tokenIndex]];
  *selectedIndex = selectedItem;
  if ([book isKindOfClass:[CountingArray class]]) return book;
  NSMutableArray *const found = [NSMutableArray array];
  for (NSString *entry in book) {
    if ([[entry lowercaseString] hasPrefix:[substring lowercaseString]]) [found addObject:entry];
  }
  return found;
}

- (id)tokenField:(NSTokenField *)tokenField
    representedObjectForEditingString:(NSString *)editingString {
  (void)tokenField;
  NSArray *const parts = [editingString
      componentsSeparatedByCharactersInSet:[NSCharacterSet
                                               characterSetWithCharactersInString:@"<>"]];
  return [parts count] == 1 ? nil : [parts objectAtIndex:1];
}

- (NSArray *)tokenField:(NSTokenField *)tokenField
       shouldAddObjects:(NSArray *)objects
                atIndex:(NSUInteger)index {
  (void)tokenField;
  (void)index;
  NSMutableArray *const accepted = [NSMutableArray array];
  for (id object in objects) {
    if (![refused containsObject:object]) [accepted addObject:object];
  }
  return accepted;
}

- (void)controlTextDidChange:(NSNotification *)notification {
  (void)notification;
  ++changes;
}

@end

@implementation ClickCounter

- (void)clicked:(id)sender {
  (void)sender;
  ++clicks;
}

@end

@implementation CountingArray

- (NSUInteger)count {
  return length;
}

- (id)objectAtIndex:(NSUInteger)index {
  ++reads;
  return [NSString
      stringWithFormat:@"Person %lu<p%lu@example.org>", (unsigned long)index, (unsigned long)index];
}

@end

@implementation Witness

+ (Witness *)witnessOf:(int *)alive {
  Witness *const witness = [[[self alloc] init] autorelease];
  witness->_alive = alive;
  ++*alive;
  return witness;
}

- (void)dealloc {
  --*_alive;
  [super dealloc];
}

@end
