// SPDX-License-Identifier: MIT
// A library that lacks one of a package's functions.
#include "desktop/ide/packages/EntryPoint.h"

#include "platform/Package.h"

ENTRY_POINT void Initialize() {}

ENTRY_POINT const platform::TPackageInfoTable* GetPackageInfoTable() {
  return nullptr;
}
