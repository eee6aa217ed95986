// SPDX-License-Identifier: MIT
// Packages: add-ins that the host loads into its own process.
//
// A package is a shared object that exports three functions: Initialize starts its units, Finalize stops them in the
// reverse order, GetPackageInfoTable tells what it contains. Its Initialize and Finalize pass the package's table to
// InitializePackage and FinalizePackage below. After the first Initialize the host calls the Register procedure of
// every contained unit that has one, in the order of Contains. Everything here happens on the main thread.
#pragma once

#include "platform/Export.h"

#include <functional>
#include <span>
#include <string_view>

namespace platform {

// A unit's guard against double start: a package that is loaded twice starts each unit once and stops it with the last
// unload. The counter starts at 0, goes down with every start and up with every stop.
class VIRELLE_PLATFORM TUnitCounter {
public:
  // Counts one start. True when it is the first, so that the unit must do its work.
  bool Start() { return counter_-- == 0; }
  // Counts one stop. True when it is the last.
  bool Stop() { return ++counter_ == 0; }
  // Takes back a start whose work has failed.
  void Undo() { ++counter_; }

private:
  int counter_ = 0;
};

// A unit that is started and stopped. An empty function has nothing to do.
struct TUnitEntry {
  const char* Name;
  void (*Start)();
  void (*Stop)();
  TUnitCounter Counter = {};
};

// A unit as the package lists it, with its Register procedure or null.
struct TContainedUnit {
  const char* Name;
  void (*Register)();
};

// What a package contains. All of it lives as long as the package is mapped.
struct TPackageInfoTable {
  std::u16string_view Description;
  std::span<const char* const> Requires;    // host packages that it needs, in their order
  std::span<const TContainedUnit> Contains; // all units, in the order in which Register procedures are called
  std::span<TUnitEntry> Units;              // units with a start or stop, in the order of starting
};

// The exported names and their types.
inline constexpr const char* InitializeName = "Initialize";
inline constexpr const char* FinalizeName = "Finalize";
inline constexpr const char* GetPackageInfoTableName = "GetPackageInfoTable";
using TPackageProcedure = void (*)();
using TPackageInfoFunction = const TPackageInfoTable* (*)();

// Starts the units in order, each guarded by its counter. When one throws, the units started before it are stopped in
// reverse order and EPackageError is raised with the unit's name and the reason.
VIRELLE_PLATFORM void InitializePackage(const TPackageInfoTable& table);
// Stops the units in reverse order. What a stop throws goes to TApplication::HandleException; the others still stop.
VIRELLE_PLATFORM void FinalizePackage(const TPackageInfoTable& table);
// Calls the Register procedures. What one throws goes to TApplication::HandleException; the others are still called.
VIRELLE_PLATFORM void RegisterPackage(const TPackageInfoTable& table);

} // namespace platform
