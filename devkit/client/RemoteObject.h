#import <Foundation/Foundation.h>

#include <chrono>
#include <variant>

#include "devkit/client/Failure.h"

namespace devkit {

/// How long to look for somebody on a name.
struct Timeouts {
  /// For the name to appear.
  std::chrono::duration<double> wait;
  /// For whoever has the name to answer at all.
  std::chrono::duration<double> timeout;
};

/// The vended object on a name of this host, as an autoreleased proxy that knows the protocol:
/// calls then cost one round trip instead of three. The look-up ends in time whatever the other
/// side does; calls to the proxy afterwards wait as long as they take. `who` names the other side
/// in a sentence.
std::variant<id, Failure> lookUp(NSString *name, Protocol *protocol, const char *who,
                                 const Timeouts &timeouts);

/// What an exception of a call to the proxy means.
Failure failureOf(NSException *exception, id proxy, const char *who);

}  // namespace devkit
