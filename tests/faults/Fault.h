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

/// A fault of the agent's process, in addition to its reply.
enum class ProcessFault {
  None,
  Absent,               // there never was one
  StartsLate,           // runs, and registers its name only while the application waits for it
  KilledBefore,         // was there before, and has been killed
  DiesDuring,           // kills itself in the call, as the script's entry says
  KilledAfter,          // is killed as soon as the application is done
  Restarted,            // has been killed, and another one has started
  StoppedAndContinued,  // is stopped when it is called, and continued
};

/// The result for the caller who waits for a link, for an action, for an access list.
enum class Outcome {
  Succeeds,
  SucceedsWithoutLink,  // the agent reports success and gives no link
  Refused,
  NoReply,
  Nobody,  // an empty access list
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

/// One row of the matrix: a fault of the agent, and the result of it for each reader of a reply.
struct Fault {
  const char *name;
  FaultKind kind;
  ProcessFault processFault;
  /// The script's entry for the operation in question. value: the reply of a healthy agent.
  NSDictionary *(*entry)(id value);
  Outcome link;
  Outcome action;
  Outcome list;
  /// How many entries the address book gets, which has kHealthyContacts with a healthy agent.
  NSUInteger contacts;
  /// Of a fault that is enormous: an entry that is read sooner, for the columns of a check in which
  /// only its kind matters, and the column in which each check has the real size. Else null.
  NSDictionary *(*smallerEntry)(id value) = nullptr;
  Column columnOfRealSize = {};
};

constexpr NSUInteger kHealthyContacts = 2;

/// All rows.
const std::vector<Fault> &allFaults();

/// The faults of the process during a call and those of its reply: they can occur in any of several
/// calls in a row.
std::vector<Fault> faultsOfACall();

/// All but the agent that never ran: without an agent there is no list with a row to use.
std::vector<Fault> faultsAfterAList();

/// The result of the fault in a column, which is all that the column's tests see of it. Not for
/// Refresh and LaunchWithFault, which are about Fault::contacts, nor for MenuSend, which asks the
/// agent for nothing.
Outcome outcomeIn(Column column, const Fault &fault);

/// Whether a column cannot distinguish two faults: they have the same kind, the same processFault
/// and the same result there.
bool isOfTheSameKind(Column column, const Fault &one, const Fault &other);

/// The faults that can occur in a column.
std::vector<Fault> faultsOf(Column column);

/// One of each kind of the faults that can occur in a column: the one that the columns before it
/// have least often.
std::vector<Fault> oneOfEachKind(Column column);

/// One test of a column. Its fault has the entry of the size that this check has there.
struct Cell {
  Column column;
  Fault fault;
};

/// Those of a column: oneOfEachKind, or all faultsOf it in a thorough check.
std::vector<Cell> testedCellsOf(Column column);

/// How long the application waits in this cell for agents that never reply, without using the
/// processor.
int secondsOfWaiting(const Cell &cell);

/// The fault's name, and "waits N s" where it does: by that, tests are divided among processes
/// (cmake/ListTestSuites.cmake).
void PrintTo(const Cell &cell, std::ostream *out);

/// The agent with a fault. If it is healthy afterwards, it serves the next test of the process as
/// well: starting it takes longer than most tests.
class FaultyAgent {
 public:
  FaultyAgent() = default;
  FaultyAgent(const FaultyAgent &) = delete;
  FaultyAgent &operator=(const FaultyAgent &) = delete;
  ~FaultyAgent();

  /// A healthy agent, with a script for every call before the operation in question.
  void begin(const Fault &fault, NSDictionary *healthyScript);

  /// From now on the operation has the fault. earlierCalls: healthy calls of the operation before
  /// that; afterwards it is healthy again.
  void injectFault(NSString *operation, id value, NSUInteger earlierCalls = 0);

  /// The application is done: injects the faults that come after that.
  void injectFaultAfterwards();

  /// Makes the agent healthy again; starts another one if it has ended.
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
