// SPDX-License-Identifier: MIT
// A package whose Initialize does not use the host's and lets out what no host expects.
#include "desktop/ide/packages/EntryPoint.h"

#include "platform/Package.h"

namespace {

const platform::TPackageInfoTable kTable = {u"A raising package", {}, {}, {}};

} // namespace

ENTRY_POINT void Initialize() {
  throw 42;
}

ENTRY_POINT void Finalize() {}

ENTRY_POINT const platform::TPackageInfoTable* GetPackageInfoTable() {
  return &kTable;
}
