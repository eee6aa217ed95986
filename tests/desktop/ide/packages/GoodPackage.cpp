// SPDX-License-Identifier: MIT
// A package of two units that tells the debugger output what is called. One of its Register procedures fails, and so
// does one of its stops.
#include "desktop/ide/packages/EntryPoint.h"

#include "platform/Debug.h"
#include "platform/Errors.h"
#include "platform/Package.h"

#include <stdexcept>

namespace {

using platform::OutputDebugString;

constexpr const char* kRequires[] = {"vcl50"};

constexpr platform::TContainedUnit kContains[] = {
    {"Second", [] { OutputDebugString("register Second"); }},
    {"Plain", nullptr},
    {"First",
     [] {
       OutputDebugString("register First");
       throw platform::Exception("no form to register");
     }},
};

platform::TUnitEntry Units[] = {
    {"First", [] { OutputDebugString("start First"); }, [] { OutputDebugString("stop First"); }},
    {"Second", [] { OutputDebugString("start Second"); },
     [] {
       OutputDebugString("stop Second");
       throw platform::Exception("cannot stop");
     }},
};

const platform::TPackageInfoTable kTable = {u"A good package — ж", kRequires, kContains, Units};

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

// Throw exceptions of types that the host knows.
ENTRY_POINT void RaiseAssertionFailed() {
  platform::Require(false, "GoodPackage", "raised in the package");
}
ENTRY_POINT void RaiseEViewClosed() {
  throw platform::EViewClosed();
}
ENTRY_POINT void RaiseOutOfRange() {
  throw std::out_of_range("raised in the package");
}
