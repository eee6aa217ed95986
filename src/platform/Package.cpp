// SPDX-License-Identifier: MIT
#include "platform/Package.h"

#include "platform/Application.h"
#include "platform/Errors.h"

#include <algorithm>
#include <exception>
#include <ranges>
#include <string>

namespace platform {

namespace {

void StartUnit(TUnitEntry& unit) {
  if (!unit.Counter.Start() || !unit.Start)
    return;
  try {
    unit.Start();
  } catch (const std::exception& error) {
    unit.Counter.Undo();
    throw EPackageError(unit.Name, error.what());
  } catch (...) {
    unit.Counter.Undo();
    throw EPackageError(unit.Name, "Unknown exception");
  }
}

void StopUnits(std::span<TUnitEntry> units) {
  for (TUnitEntry& unit : units | std::views::reverse) {
    if (unit.Counter.Stop() && unit.Stop)
      Guarded(unit.Stop);
  }
}

} // namespace

void InitializePackage(const TPackageInfoTable& table) {
  for (std::size_t started = 0; started < table.Units.size(); ++started) {
    try {
      StartUnit(table.Units[started]);
    } catch (...) {
      StopUnits(table.Units.first(started));
      throw;
    }
  }
}

void FinalizePackage(const TPackageInfoTable& table) {
  StopUnits(table.Units);
}

void RegisterPackage(const TPackageInfoTable& table) {
  for (const TContainedUnit& unit : table.Contains) {
    if (unit.Register)
      Guarded(unit.Register);
  }
}

} // namespace platform
