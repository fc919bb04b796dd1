#include <gtest/gtest.h>

#include <csignal>

#import "tests/faults/Fault.h"

namespace {

/// During the application's wait, which ends after 15 seconds.
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

/// The healthy agent that the last test has left, if any.
std::unique_ptr<AgentProcess> &leftInHealth() {
  static std::unique_ptr<AgentProcess> process;
  return process;
}

}  // namespace

FaultyAgent::~FaultyAgent() {
  const bool isHealthy =
      hasRecovered_ || (fault_ != nullptr && fault_->processFault == ProcessFault::None);
  if (isHealthy && !testing::Test::HasFailure()) leftInHealth() = std::move(process_);
}

void FaultyAgent::startAnother(const AgentProcess::Options &options) {
  process_ = std::make_unique<AgentProcess>(options);
  formerCalls_ = 0;
}

void FaultyAgent::begin(const Fault &fault, NSDictionary *healthyScript) {
  fault_ = &fault;
  healthyScript_ = healthyScript;
  process_ = std::move(leftInHealth());
  if (fault.processFault == ProcessFault::Absent) {
    process_.reset();
    return;
  }
  if (process_ == nullptr) startAnother();
  formerCalls_ = [process_->operations() count];
  process_->setScript(healthyScript);
}

void FaultyAgent::injectFault(NSString *operation, id value, NSUInteger earlierCalls) {
  NSMutableArray *const entries = [NSMutableArray array];
  for (NSUInteger i = 0; i < earlierCalls; ++i) [entries addObject:healthyEntry(value)];
  [entries addObject:fault_->entry(value)];
  [entries addObject:healthyEntry(value)];
  NSDictionary *const script = scriptWith(healthyScript_, operation, entries);
  switch (fault_->processFault) {
    case ProcessFault::Absent:
      return;
    case ProcessFault::None:
    case ProcessFault::DiesDuring:
    case ProcessFault::KilledAfter:
      break;
    case ProcessFault::KilledBefore:
      process_.reset();
      return;
    case ProcessFault::Restarted:
      process_.reset();
      startAnother();
      break;
    case ProcessFault::StartsLate:
      process_.reset();
      startAnother({.registerAfterSeconds = kLateSeconds});
      break;
    case ProcessFault::StoppedAndContinued:
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

void FaultyAgent::injectFaultAfterwards() {
  if (fault_->processFault == ProcessFault::KilledAfter) process_.reset();
}

void FaultyAgent::recover(NSString *operation, id value) {
  if (waker_ != nullptr) waker_->waitForEnd();
  if (fault_->processFault == ProcessFault::DiesDuring) process_.reset();
  if (process_ == nullptr) startAnother();
  hasRecovered_ = true;
  process_->setScript(scriptWith(healthyScript_, operation, healthyEntry(value)));
}

NSUInteger FaultyAgent::callsOf(NSString *operation) const {
  if (process_ == nullptr) return 0;
  NSArray *const all = process_->operations();
  const NSRange since = NSMakeRange(formerCalls_, [all count] - formerCalls_);
  NSCountedSet *const counted =
      [[[NSCountedSet alloc] initWithArray:[all subarrayWithRange:since]] autorelease];
  return [counted countForObject:operation];
}
