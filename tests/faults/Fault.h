#pragma once

#import <Foundation/Foundation.h>

#include <memory>
#include <ostream>
#include <vector>

#include "tests/support/AgentProcess.h"

/// What is wrong, in a word.
enum class FaultKind {
  Health,
  OfTheProcess,
  UnreadableReply,
  Refusal,
  UnusualError,
  UnusualValue,
  Enormous,
};

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
  FaultKind kind;
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

/// Whether one shows the same as the other: the same kind, with the same outcomes.
bool isOfTheSameKind(const Fault &one, const Fault &other);

void PrintTo(const Fault &fault, std::ostream *out);

/// All rows.
const std::vector<Fault> &allFaults();

/// Those that the agent's process suffers during a call or by its reply: they can befall any of
/// several calls in a row.
std::vector<Fault> faultsOfACall();

/// All but that there never was an agent: nobody who has none has a list of which a row could be
/// used.
std::vector<Fault> faultsAfterAList();

/// What the application does. Each is a column of the matrix.
enum class Column {
  DirectCopy,
  CopyTab,
  Send,
  Invite,
  InviteLater,
  InviteQuestion,
  InviteQuestionLater,
  List,
  Change,
  Remove,
  Refresh,
  LaunchWithFault,
  MenuCopyLink,
  MenuSend,
  MenuShare,
};
inline constexpr int kColumns = 15;

/// The faults that can befall a column.
std::vector<Fault> faultsOf(Column column);

/// Those of which the column has a cell: of faults of the same kind one, in each column another
/// one, unless every case is gone through.
std::vector<Fault> testedFaultsOf(Column column);

/// As testedFaultsOf, whatever the check: what is left of all faults.
std::vector<Fault> oneOfEachKind(Column column);

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
