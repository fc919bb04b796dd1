#include "tests/fuzz/Target.h"

#import <Foundation/Foundation.h>

namespace fuzz {

void run(void (*target)(std::string_view), std::string_view input) {
  @autoreleasepool {
    @try {
      target(input);
    } @catch (NSException *exception) {
      broken([[NSString stringWithFormat:@"no exception: %@: %@", [exception name],
                                         [exception reason]] UTF8String]);
    }
  }
}

}  // namespace fuzz
