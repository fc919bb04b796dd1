// The rows of each column of the matrix, and how long they take.
#include <algorithm>
#include <iterator>
#include <map>
#include <string>

#include "agent/ConnectionAttempt.h"
#import "tests/faults/Fault.h"
#include "tests/support/Thorough.h"

namespace {

template <class Condition>
std::vector<Fault> faultsThat(Condition condition) {
  std::vector<Fault> faults;
  std::copy_if(allFaults().begin(), allFaults().end(), std::back_inserter(faults), condition);
  return faults;
}

}  // namespace

std::vector<Fault> faultsOfACall() {
  return faultsThat([](const Fault &fault) {
    return fault.processFault == ProcessFault::None ||
           fault.processFault == ProcessFault::DiesDuring;
  });
}

std::vector<Fault> faultsAfterAList() {
  return faultsThat([](const Fault &fault) { return fault.processFault != ProcessFault::Absent; });
}

namespace {

bool diesWhenValueIsRead(const Fault &fault) {
  return [[fault.entry([NSDictionary dictionary]) objectForKey:@"die"] isEqual:@"whenValueIsRead"];
}

}  // namespace

Outcome outcomeIn(Column column, const Fault &fault) {
  switch (column) {
    case Column::DirectCopy:
    case Column::CopyTab:
    case Column::MenuCopyLink:
      return fault.link;
    case Column::Invite:
    case Column::InviteLater:
      // The person in the reply is read before the next one is invited.
      return diesWhenValueIsRead(fault) ? Outcome::NoReply : fault.action;
    case Column::Send:
    case Column::Change:
    case Column::Remove:
      return fault.action;
    case Column::InviteQuestion:
    case Column::InviteQuestionLater:
    case Column::List:
    case Column::MenuShare:
      return fault.list;
    case Column::Refresh:
    case Column::LaunchWithFault:
    case Column::MenuSend:
      break;
  }
  return Outcome::Succeeds;
}

bool isOfTheSameKind(Column column, const Fault &one, const Fault &other) {
  if (one.kind != other.kind || one.processFault != other.processFault) return false;
  const bool isAboutBooks = column == Column::Refresh || column == Column::LaunchWithFault;
  return isAboutBooks ? one.contacts == other.contacts
                      : outcomeIn(column, one) == outcomeIn(column, other);
}

std::vector<Fault> faultsOf(Column column) {
  switch (column) {
    case Column::InviteLater:
    case Column::InviteQuestionLater:
      return faultsOfACall();
    case Column::Change:
    case Column::Remove:
      return faultsAfterAList();
    default:
      return allFaults();
  }
}

namespace {

/// How many columns have a fault, by its name.
using Uses = std::map<std::string, int>;

std::vector<Fault> chosenOf(Column column, Uses &uses) {
  std::vector<Fault> left = faultsOf(column);
  std::vector<Fault> chosen;
  while (!left.empty()) {
    const Fault first = left.front();
    const auto others = std::stable_partition(left.begin(), left.end(), [&](const Fault &fault) {
      return isOfTheSameKind(column, fault, first);
    });
    const auto rarest = std::min_element(
        left.begin(), others,
        [&](const Fault &one, const Fault &other) { return uses[one.name] < uses[other.name]; });
    ++uses[rarest->name];
    chosen.push_back(*rarest);
    left.erase(left.begin(), others);
  }
  return chosen;
}

/// How many connection attempts, one after the other, find no agent from beginning to end. A killed
/// agent is missing for the operation itself; one that never ran, also for the calls before it.
int failedAttempts(Column column, ProcessFault processFault) {
  struct Attempts {
    int whenAbsent;
    int whenKilledBefore;
    int afterDeath;
  };
  const auto attempts = [column]() -> Attempts {
    switch (column) {
      case Column::DirectCopy:
      case Column::List:
      case Column::Refresh:
      case Column::MenuCopyLink:
      case Column::MenuShare:
      case Column::Change:
      case Column::Remove:
        return {1, 1, 0};
      case Column::CopyTab:
      case Column::Send:
      case Column::Invite:
        return {2, 1, 0};
      case Column::InviteQuestion:
        return {3, 2, 1};
      case Column::InviteQuestionLater:
        return {0, 0, 2};
      case Column::LaunchWithFault:
        return {2, 2, 1};
      case Column::InviteLater:
      case Column::MenuSend:
        break;
    }
    return {0, 0, 0};
  }();
  switch (processFault) {
    case ProcessFault::Absent:
      return attempts.whenAbsent;
    case ProcessFault::KilledBefore:
      return attempts.whenKilledBefore;
    case ProcessFault::DiesDuring:
      return attempts.afterDeath;
    default:
      return 0;
  }
}

}  // namespace

std::vector<Fault> oneOfEachKind(Column column) {
  Uses uses;
  for (int before = 0; before < static_cast<int>(column); ++before) {
    chosenOf(static_cast<Column>(before), uses);
  }
  return chosenOf(column, uses);
}

std::vector<Cell> testedCellsOf(Column column) {
  std::vector<Cell> cells;
  for (Fault fault : isThorough() ? faultsOf(column) : oneOfEachKind(column)) {
    const bool isSmaller = !isThorough() && fault.columnOfRealSize != column;
    if (fault.smallerEntry != nullptr && isSmaller) fault.entry = fault.smallerEntry;
    cells.push_back({column, fault});
  }
  return cells;
}

int secondsOfWaiting(const Cell &cell) {
  return failedAttempts(cell.column, cell.fault.processFault) *
         static_cast<int>(agent::kConnectionDeadlineSeconds);
}

void PrintTo(const Cell &cell, std::ostream *out) {
  *out << cell.fault.name;
  const int seconds = secondsOfWaiting(cell);
  if (seconds > 0) *out << ", waits " << seconds << " s";
}
