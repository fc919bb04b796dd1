#pragma once

#import <Foundation/Foundation.h>

#include <vector>

/// For its lifetime records what is the case when the application is about to hide.
@interface HidingObserver : NSObject {
 @public
  int hidings;
  /// The delegate's context-menu flag at the last one.
  BOOL flag;
  /// The controllers of the windows that could be seen then, which may have gone since.
  std::vector<const void *> controllers;
}
@end
