// SPDX-License-Identifier: MIT
// Any bytes as a registry's file: it comes back as it was, and so do values that are written into it.
#include "platform/registry/RegistryDocument.h"

#include "Require.h"

#include <cstdint>
#include <string>

namespace {

using namespace platform;
using fuzz::Require;

const std::u16string key = u"HKEY_CURRENT_USER\\Software\\Vantrel\\QVIDE";

void RequireWritten(TRegistryDocument document) {
  const TRegistryValues before = document.Values(key);
  document.Write({key, {{u"a", 0x1fU}, {u"b", u"a \"text\"\\"}}});
  const TRegistryDocument reread(document.Bytes());
  Require(!reread.Damaged(), "what was written is a registry's file");
  Require(reread.HasKey(key), "a written key is there");
  TRegistryValues after = reread.Values(key);
  Require(after[u"a"] == TRegistryValue(0x1fU), "a written number comes back");
  Require(after[u"b"] == TRegistryValue(u"a \"text\"\\"), "a written text comes back");
  for (const auto& [name, value] : before)
    if (!SameName(name, u"a") && !SameName(name, u"b"))
      Require(value == TRegistryValue() || after[name] == value, "other values stay");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  const TRegistryDocument document(bytes);
  Require(document.Damaged() || document.Bytes() == bytes, "a file comes back as it was");
  RequireWritten(document);
  return 0;
}
