// SPDX-License-Identifier: MIT
// A package whose second unit cannot start.
#include "desktop/ide/packages/EntryPoint.h"

#include "platform/Debug.h"
#include "platform/Errors.h"
#include "platform/Package.h"

namespace {

using platform::OutputDebugString;

constexpr platform::TContainedUnit kContains[] = {{"First", [] { OutputDebugString("register First"); }}};

platform::TUnitEntry Units[] = {
    {"First", [] { OutputDebugString("start First"); }, [] { OutputDebugString("stop First"); }},
    {"Second", [] { throw platform::Exception("no room"); }, [] { OutputDebugString("stop Second"); }},
    {"Third", [] { OutputDebugString("start Third"); }, [] { OutputDebugString("stop Third"); }},
};

const platform::TPackageInfoTable kTable = {u"A failing package", {}, kContains, Units};

} // namespace

ENTRY_POINT void Initialize() {
  platform::InitializePackage(kTable);
}

ENTRY_POINT void Finalize() {
  platform::FinalizePackage(kTable);
}

ENTRY_POINT const platform::TPackageInfoTable* GetPackageInfoTable() {
  return &kTable;
}
