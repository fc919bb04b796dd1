#pragma once

namespace agent {

/// Runs body, then restore, and returns what body returned. Runs restore also when a platform
/// exception ends body, which then passes on to the caller.
///
/// This and not the destructor of a local object restores whatever outlives a function: time-outs,
/// a lock, a flag. On 32-bit Intel Macs a platform exception is a longjmp to the nearest @try,
/// which skips destructors. (tools/lint/mac_32_bit.py finds a local object whose destructor does
/// more than free memory.)
///
/// restore raises nothing. Any thread.
template <class Body, class Restore>
auto restoringAfterwards(const Body &body, const Restore &restore) -> decltype(body()) {
  @try {
    return body();
  } @finally {
    restore();
  }
}

}  // namespace agent
