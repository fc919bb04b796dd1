#pragma once

namespace agent {

/// How long one connection attempt may last from its start. Long enough for an agent that is just
/// being started at login; the waiting is accepted, nothing else runs on the calling thread.
constexpr double kConnectionDeadlineSeconds = 15.0;

/// The pause after a failed try.
constexpr unsigned kPauseBetweenTriesMicroseconds = 100000;

/// One connection attempt: tries until a try succeeds or the deadline has come. Returns whether one
/// did. There is always at least one try, and always a pause after a failed one, also after the
/// last: an attempt that nobody answers lasts the deadline and up to one pause.
///
/// - now(): the current time in seconds, from any origin.
/// - pause(microseconds): waits on the calling thread.
/// - tryOnce(remainingSeconds): makes one try that must not outlast what remains until the
///   deadline; answers whether it succeeded.
///
/// Clock and pause are arguments so that the deadline can be tested without waiting for it.
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
