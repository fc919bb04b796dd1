// Which cells of the matrix are tested.
#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>

#import "tests/faults/Fault.h"

namespace {

std::vector<Column> allColumns() {
  std::vector<Column> columns;
  for (int column = 0; column < kColumns; ++column) columns.push_back(static_cast<Column>(column));
  return columns;
}

}  // namespace

TEST(Matrix, EachFaultIsInAColumnOfEachCheck) {
  std::set<std::string> tested;
  for (const Column column : allColumns()) {
    for (const Fault &fault : oneOfEachKind(column)) tested.insert(fault.name);
  }
  for (const Fault &fault : allFaults()) EXPECT_TRUE(tested.contains(fault.name)) << fault.name;
}

TEST(Matrix, EachColumnHasEachKindOfFaultThatCanOccurInIt) {
  for (const Column column : allColumns()) {
    const std::vector<Fault> tested = oneOfEachKind(column);
    for (const Fault &fault : faultsOf(column)) {
      EXPECT_TRUE(std::any_of(tested.begin(), tested.end(), [&](const Fault &other) {
        return isOfTheSameKind(column, fault, other);
      })) << fault.name;
    }
  }
}

TEST(Matrix, WhatIsEnormousHasItsRealSizeInAColumnOfEachCheck) {
  for (const Fault &fault : allFaults()) {
    if (fault.smallerEntry == nullptr) continue;
    const std::vector<Cell> cells = testedCellsOf(fault.columnOfRealSize);
    EXPECT_TRUE(std::any_of(cells.begin(), cells.end(), [&](const Cell &cell) {
      return std::string(cell.fault.name) == fault.name && cell.fault.entry == fault.entry;
    })) << fault.name;
  }
}

TEST(Matrix, AColumnTellsApartFaultsOfWhichItIsToSeeSomethingElse) {
  for (const Column column : allColumns()) {
    for (const Fault &one : faultsOf(column)) {
      for (const Fault &other : faultsOf(column)) {
        if (outcomeIn(column, one) == outcomeIn(column, other)) continue;
        EXPECT_FALSE(isOfTheSameKind(column, one, other)) << one.name << " and " << other.name;
      }
    }
  }
}
