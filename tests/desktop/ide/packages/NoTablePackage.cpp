// SPDX-License-Identifier: MIT
// A package that does not tell what it contains.
#include "desktop/ide/packages/EntryPoint.h"

#include "platform/Package.h"

ENTRY_POINT void Initialize() {}

ENTRY_POINT void Finalize() {}

ENTRY_POINT const platform::TPackageInfoTable* GetPackageInfoTable() {
  return nullptr;
}
