#import <Foundation/Foundation.h>

/// The running applications at the moment of its making, as ApplicationProcess objects. Those that
/// ran when somebody last looked and still do come first; the rest of the process table is only
/// read when somebody goes on past them. So the question whether a certain application runs, asked
/// again and again while it does, costs one look at its own process. Any thread, one at a time.
@interface RunningApplicationList : NSArray {
 @private
  NSMutableArray *_found;
  BOOL _isComplete;
}
@end
