#pragma once

namespace agent {

/// How long one connection attempt may last. Long enough for an agent that is just being started at
/// login. The calling thread is blocked all the time, which is accepted.
constexpr double kConnectionDeadlineSeconds = 15.0;

/// The pause after a failed try.
constexpr unsigned kPauseBetweenTriesMicroseconds = 100000;

/// One connection attempt: tries until a try succeeds or the deadline has passed. Returns whether
/// one succeeded. There is always at least one try, and a pause after each failed one, the last
/// included: an attempt that fails lasts up to one pause longer than the deadline.
///
/// - now(): the current time in seconds, from any origin.
/// - pause(microseconds): waits on the calling thread.
/// - tryOnce(remainingSeconds): makes one try that must not outlast what remains until the
///   deadline; answers whether it succeeded.
///
/// Clock and pause are arguments so that the deadline can be tested in no time.
template <class Now, class Pause, class TryOnce>
bool attemptConnection(Now now, Pause pause, TryOnce tryOnce) {
  const double start = now();
  const double deadline = start + kConnectionDeadlineSeconds;
  for (double current = start;;) {
    if (tryOnce(deadline - current)) return true;
    pause(kPauseBetweenTriesMicroseconds);
    current = now();
    if (!(current < deadline)) return false;
  }
}

}  // namespace agent
