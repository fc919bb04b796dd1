#import "agent/BackgroundTurn.h"

#import <Foundation/Foundation.h>

namespace agent {

namespace {

std::mutex &turn() {
  static std::mutex *const mutex = new std::mutex;  // threads may outlast static destructors
  return *mutex;
}

}  // namespace

BackgroundTurn::BackgroundTurn() : lock_(turn(), std::defer_lock) {
  if (![NSThread isMainThread]) lock_.lock();
}

}  // namespace agent
