#pragma once

namespace devkit {

/// From now on SIGTERM and SIGINT do not end the process but write a byte to a pipe, so that the
/// run loop can end in an orderly way. Returns the descriptor to read from, or -1 when there is no
/// pipe.
int routeTerminationSignals();

}  // namespace devkit
