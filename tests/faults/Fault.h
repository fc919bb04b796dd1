#pragma once

#import <Foundation/Foundation.h>

#include <memory>
#include <ostream>
#include <vector>

#include "tests/support/AgentProcess.h"

/// What befalls the agent's process, besides what it answers.
enum class Strike {
  None,
  Absent,               // there never was one
  StartsLate,           // runs, and registers its name only while the application waits for it
  KilledBefore,         // was there before, and has been killed
  DiesDuring,           // kills itself in the call, as the script's entry says
  KilledAfter,          // is killed as soon as the application is done
  Restarted,            // has been killed, and another one has started
  StoppedAndContinued,  // stands still when it is called, and goes on
};

/// What comes of it for somebody who waits for a link, for an action, for an access list.
enum class Outcome {
  Succeeds,
  SucceedsWithoutLink,  // the agent reports success and gives no link
  Refused,
  NoReply,
  Nobody,  // an access list without anybody in it
};

/// One row of the matrix: what may be wrong with the agent, and what each reader of a reply makes
/// of it.
struct Fault {
  const char *name;
  Strike strike;
  /// The script's entry for the operation in question. value: what the agent answers in health.
  NSDictionary *(*entry)(id value);
  Outcome link;
  Outcome action;
  Outcome list;
  /// How many entries the address book comes to have, which has kHealthyContacts in health.
  NSUInteger contacts;
};

constexpr NSUInteger kHealthyContacts = 2;

void PrintTo(const Fault &fault, std::ostream *out);

/// All rows.
const std::vector<Fault> &allFaults();

/// Those that the agent's process suffers during a call or by its reply: they can befall any of
/// several calls in a row.
std::vector<Fault> faultsOfACall();

/// The agent that a fault befalls.
class FaultyAgent {
 public:
  /// In health, with a script for everything that has to be asked before the operation in question.
  void begin(const Fault &fault, NSDictionary *healthyScript);

  /// From now on the operation has the fault. earlierCalls: calls of the operation in health before
  /// that; afterwards it is in health again.
  void strike(NSString *operation, id value, NSUInteger earlierCalls = 0);

  /// The application is done: what is to come after it.
  void strikeAfterwards();

  /// The agent is in health again; it is another one when the former has gone.
  void recover(NSString *operation, id value);

  /// The calls of an operation that the present agent has had.
  NSUInteger callsOf(NSString *operation) const;

 private:
  const Fault *fault_ = nullptr;
  NSDictionary *healthyScript_ = nil;
  std::unique_ptr<AgentProcess> process_;
  std::unique_ptr<ChildProcess> waker_;
};
