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
enum class ProcessFault {
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

/// One row of the matrix: what may be wrong with the agent, and what each reader of a reply makes
/// of it.
struct Fault {
  const char *name;
  FaultKind kind;
  ProcessFault processFault;
  /// The script's entry for the operation in question. value: what the agent answers in health.
  NSDictionary *(*entry)(id value);
  Outcome link;
  Outcome action;
  Outcome list;
  /// How many entries the address book comes to have, which has kHealthyContacts in health.
  NSUInteger contacts;
  /// Of a fault that is enormous: an entry that is read sooner, for the columns of a check in which
  /// only its kind matters, and the column in which each check has the real size. Else null.
  NSDictionary *(*smallerEntry)(id value) = nullptr;
  Column columnOfRealSize = {};
};

constexpr NSUInteger kHealthyContacts = 2;

/// All rows.
const std::vector<Fault> &allFaults();

/// Those that the agent's process suffers during a call or by its reply: they can befall any of
/// several calls in a row.
std::vector<Fault> faultsOfACall();

/// All but that there never was an agent: nobody who has none has a list of which a row could be
/// used.
std::vector<Fault> faultsAfterAList();

/// What comes of the fault in a column, which is all that the column's tests see of it. Not for
/// Refresh and LaunchWithFault, which are about Fault::contacts, nor for MenuSend, which asks the
/// agent for nothing.
Outcome outcomeIn(Column column, const Fault &fault);

/// Whether a column cannot tell one from the other: the same kind, the same processFault, and the
/// same comes of it there.
bool isOfTheSameKind(Column column, const Fault &one, const Fault &other);

/// The faults that can befall a column.
std::vector<Fault> faultsOf(Column column);

/// Of the faults that can befall a column one of each kind: the one that the columns before it have
/// least often.
std::vector<Fault> oneOfEachKind(Column column);

/// One test of a column. Its fault has the entry of the size that this check has there.
struct Cell {
  Column column;
  Fault fault;
};

/// Those of a column: oneOfEachKind, or all faultsOf it in a thorough check.
std::vector<Cell> testedCellsOf(Column column);

/// How long the application waits in this cell for agents that never answer, with nothing for the
/// processor to do.
int secondsOfWaiting(const Cell &cell);

/// The fault's name, and "waits N s" where it does: by that, tests are divided among processes
/// (cmake/ListTestSuites.cmake).
void PrintTo(const Cell &cell, std::ostream *out);

/// The agent that a fault befalls. One that comes out of it in health serves the next test of the
/// process as well: starting it takes longer than most tests.
class FaultyAgent {
 public:
  FaultyAgent() = default;
  FaultyAgent(const FaultyAgent &) = delete;
  FaultyAgent &operator=(const FaultyAgent &) = delete;
  ~FaultyAgent();

  /// In health, with a script for everything that has to be asked before the operation in question.
  void begin(const Fault &fault, NSDictionary *healthyScript);

  /// From now on the operation has the fault. earlierCalls: calls of the operation in health before
  /// that; afterwards it is in health again.
  void injectFault(NSString *operation, id value, NSUInteger earlierCalls = 0);

  /// The application is done: what is to come after it.
  void injectFaultAfterwards();

  /// The agent is in health again; it is another one when the former has gone.
  void recover(NSString *operation, id value);

  /// The calls of an operation that the present agent has had in this test.
  NSUInteger callsOf(NSString *operation) const;

 private:
  const Fault *fault_ = nullptr;
  NSDictionary *healthyScript_ = nil;
  void startAnother(const AgentProcess::Options &options = {});

  std::unique_ptr<AgentProcess> process_;
  /// How many calls the process had before this test.
  NSUInteger formerCalls_ = 0;
  bool hasRecovered_ = false;
  std::unique_ptr<ChildProcess> waker_;
};
