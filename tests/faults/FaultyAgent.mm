#include <csignal>

#import "tests/faults/Fault.h"

namespace {

/// While the application waits: it gives up after 15.
constexpr double kLateSeconds = 0.6;
const std::string kStoppedSeconds = "0.6";

NSDictionary *scriptWith(NSDictionary *script, NSString *operation, id entries) {
  NSMutableDictionary *const more = [NSMutableDictionary dictionaryWithDictionary:script];
  [more setObject:entries forKey:operation];
  return more;
}

NSDictionary *healthyEntry(id value) {
  return [NSDictionary dictionaryWithObject:success(value) forKey:@"reply"];
}

}  // namespace

void FaultyAgent::begin(const Fault &fault, NSDictionary *healthyScript) {
  fault_ = &fault;
  healthyScript_ = healthyScript;
  if (fault.strike == Strike::Absent) return;
  process_ = std::make_unique<AgentProcess>();
  process_->setScript(healthyScript);
}

void FaultyAgent::strike(NSString *operation, id value, NSUInteger earlierCalls) {
  NSMutableArray *const entries = [NSMutableArray array];
  for (NSUInteger i = 0; i < earlierCalls; ++i) [entries addObject:healthyEntry(value)];
  [entries addObject:fault_->entry(value)];
  [entries addObject:healthyEntry(value)];
  NSDictionary *const script = scriptWith(healthyScript_, operation, entries);
  switch (fault_->strike) {
    case Strike::Absent:
      return;
    case Strike::None:
    case Strike::DiesDuring:
    case Strike::KilledAfter:
      break;
    case Strike::KilledBefore:
      process_.reset();
      return;
    case Strike::Restarted:
      process_.reset();
      process_ = std::make_unique<AgentProcess>();
      break;
    case Strike::StartsLate:
      process_.reset();
      process_ = std::make_unique<AgentProcess>(
          AgentProcess::Options{.registerAfterSeconds = kLateSeconds});
      break;
    case Strike::StoppedAndContinued:
      process_->setScript(script);
      process_->process().signal(SIGSTOP);
      waker_ = std::make_unique<ChildProcess>(
          std::vector<std::string>{"/bin/sh", "-c",
                                   "sleep " + kStoppedSeconds + "; kill -CONT " +
                                       std::to_string(process_->process().pid())});
      return;
  }
  process_->setScript(script);
}

void FaultyAgent::strikeAfterwards() {
  if (fault_->strike == Strike::KilledAfter) process_.reset();
}

void FaultyAgent::recover(NSString *operation, id value) {
  if (waker_ != nullptr) waker_->waitForEnd();
  if (fault_->strike == Strike::DiesDuring) process_.reset();
  if (process_ == nullptr) process_ = std::make_unique<AgentProcess>();
  process_->setScript(scriptWith(healthyScript_, operation, healthyEntry(value)));
}

NSUInteger FaultyAgent::callsOf(NSString *operation) const {
  if (process_ == nullptr) return 0;
  NSCountedSet *const all =
      [[[NSCountedSet alloc] initWithArray:process_->operations()] autorelease];
  return [all countForObject:operation];
}
