#import "tests/ui/RecordingTextView.h"

@implementation RecordingTextView

- (id)initWithFrame:(NSRect)frame {
  self = [super initWithFrame:frame];
  notes = [[NSMutableArray alloc] init];
  ownUndoManager = [[NSUndoManager alloc] init];
  return self;
}

- (void)dealloc {
  [ownUndoManager release];
  [notes release];
  [super dealloc];
}

- (void)note:(NSString *)note from:(id)sender {
  [notes addObject:note];
  lastSender = sender;
}

- (void)selectAll:(id)sender {
  [self note:@"selectAll:" from:sender];
}
- (void)cut:(id)sender {
  [self note:@"cut:" from:sender];
}
- (void)copy:(id)sender {
  [self note:@"copy:" from:sender];
}
- (void)paste:(id)sender {
  [self note:@"paste:" from:sender];
}
- (void)recordUndo:(id)unused {
  [self note:@"undo" from:unused];
}
- (NSUndoManager *)undoManager {
  return ownUndoManager;
}

@end
