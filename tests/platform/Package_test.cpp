// SPDX-License-Identifier: MIT
#include "platform/Application.h"
#include "platform/Errors.h"
#include "platform/Package.h"

#include <gtest/gtest.h>

#include <QCoreApplication>

#include <array>
#include <string>
#include <vector>

using namespace platform;

namespace {

std::vector<std::string> calls;

void Call(const char* name) {
  calls.emplace_back(name);
}

void Fail() {
  throw Exception("no room");
}

constexpr std::array kContains = {
    TContainedUnit{"B", [] { Call("register B"); }},
    TContainedUnit{"A", nullptr},
    TContainedUnit{"C", [] { Call("register C"); }},
};

std::array<TUnitEntry, 3> Units() {
  return {TUnitEntry{"A", [] { Call("start A"); }, [] { Call("stop A"); }},
          TUnitEntry{"B", nullptr, [] { Call("stop B"); }}, TUnitEntry{"C", [] { Call("start C"); }, nullptr}};
}

TPackageInfoTable Table(std::span<TUnitEntry> units) {
  return {u"Test", {}, kContains, units};
}

class Package : public testing::Test {
protected:
  void SetUp() override { calls.clear(); }
};

} // namespace

TEST_F(Package, StartsInOrderAndStopsInReverse) {
  auto units = Units();
  InitializePackage(Table(units));
  FinalizePackage(Table(units));
  EXPECT_EQ(calls, (std::vector<std::string>{"start A", "start C", "stop B", "stop A"}));
}

TEST_F(Package, RegistersInTheOrderOfItsContents) {
  auto units = Units();
  RegisterPackage(Table(units));
  EXPECT_EQ(calls, (std::vector<std::string>{"register B", "register C"}));
}

TEST_F(Package, SecondStartDoesNothingAndOnlyTheLastStopStops) {
  auto units = Units();
  InitializePackage(Table(units));
  InitializePackage(Table(units));
  FinalizePackage(Table(units));
  EXPECT_EQ(calls, (std::vector<std::string>{"start A", "start C"}));
  FinalizePackage(Table(units));
  EXPECT_EQ(calls, (std::vector<std::string>{"start A", "start C", "stop B", "stop A"}));
}

TEST_F(Package, StartsAgainAfterTheLastStop) {
  auto units = Units();
  InitializePackage(Table(units));
  FinalizePackage(Table(units));
  calls.clear();
  InitializePackage(Table(units));
  EXPECT_EQ(calls, (std::vector<std::string>{"start A", "start C"}));
}

TEST_F(Package, FailedStartStopsTheUnitsStartedBeforeAndNamesTheUnit) {
  auto units = Units();
  units[2].Start = Fail;
  try {
    InitializePackage(Table(units));
    FAIL() << "nothing was raised";
  } catch (const EPackageError& error) {
    EXPECT_EQ(error.Unit(), "C");
    EXPECT_STREQ(error.what(), "Unit C: no room");
  }
  EXPECT_EQ(calls, (std::vector<std::string>{"start A", "stop B", "stop A"}));
}

TEST_F(Package, CanBeStartedAfterAFailedStart) {
  auto units = Units();
  units[2].Start = Fail;
  EXPECT_THROW(InitializePackage(Table(units)), EPackageError);
  units[2].Start = [] { Call("start C"); };
  calls.clear();
  InitializePackage(Table(units));
  EXPECT_EQ(calls, (std::vector<std::string>{"start A", "start C"}));
}

TEST_F(Package, ARegisterThatFailsDoesNotKeepTheOthersFromRegistering) {
  constexpr std::array contains = {TContainedUnit{"A", Fail}, TContainedUnit{"B", [] { Call("register B"); }}};
  QString reported;
  Application().SetReporter([&](const QString& message, int) { reported = message; });
  EXPECT_NO_THROW(RegisterPackage({u"Test", {}, contains, {}}));
  QCoreApplication::processEvents();
  Application().SetReporter({});
  EXPECT_EQ(calls, std::vector<std::string>{"register B"});
  EXPECT_EQ(reported, QStringLiteral("no room"));
}

TEST_F(Package, AStopThatFailsDoesNotKeepTheOthersFromStopping) {
  auto units = Units();
  units[1].Stop = Fail;
  QString reported;
  Application().SetReporter([&](const QString& message, int) { reported = message; });
  InitializePackage(Table(units));
  EXPECT_NO_THROW(FinalizePackage(Table(units)));
  QCoreApplication::processEvents();
  Application().SetReporter({});
  EXPECT_EQ(calls, (std::vector<std::string>{"start A", "start C", "stop A"}));
  EXPECT_EQ(reported, QStringLiteral("no room"));
}
