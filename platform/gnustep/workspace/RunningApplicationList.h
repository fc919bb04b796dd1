#import <Foundation/Foundation.h>

/// The running applications at the time when each is first asked for, as ApplicationProcess
/// objects. Those of the last reading that are still running come first; the process table is only
/// read when the enumeration goes on past them. So repeated checks whether an application is
/// running take one system call while it is. Any thread, one at a time.
@interface RunningApplicationList : NSArray {
 @private
  NSMutableArray *_found;
  NSArray *_lastSeen;
  NSUInteger _checked;
  BOOL _isComplete;
}
@end
