#import <Foundation/Foundation.h>

#include <chrono>
#include <variant>

#include "devkit/client/Failure.h"

namespace devkit {

/// Time-outs of a look-up.
struct Timeouts {
  /// For the name to appear.
  std::chrono::duration<double> wait;
  /// For the first reply of the process that has the name.
  std::chrono::duration<double> timeout;
};

/// The object vended under a name of this host, as an autoreleased proxy that knows the protocol:
/// calls then cost one round trip instead of three. The look-up has a time-out; later calls to the
/// proxy have none. `who` names the other side in a sentence.
std::variant<id, Failure> lookUp(NSString *name, Protocol *protocol, const char *who,
                                 const Timeouts &timeouts);

/// What an exception of a call to the proxy means.
Failure failureOf(NSException *exception, id proxy, const char *who);

}  // namespace devkit
