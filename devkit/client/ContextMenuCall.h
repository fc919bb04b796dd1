#import <Foundation/Foundation.h>

#include <optional>

#include "devkit/client/Failure.h"
#include "devkit/client/Usage.h"

namespace devkit {

/// Does what the plug-in in the file manager does when the user chooses a command: finds the item,
/// its server id, and the application, and calls the operation. Returns when the application has
/// finished, with nothing when all went well.
std::optional<Failure> perform(const Request &request);

}  // namespace devkit
