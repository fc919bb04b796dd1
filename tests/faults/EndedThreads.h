#pragma once

#import <Foundation/Foundation.h>

#include <atomic>

/// Counts the background threads that have ended while it lives.
@interface EndedThreads : NSObject {
 @public
  std::atomic<int> count;
}
@end
