// SPDX-License-Identifier: MIT
// What the tests of the registry's text share.
#pragma once

#include "platform/registry/RegistryDocument.h"
#include "text/Utf8.h"

#include <string>
#include <string_view>
#include <vector>

namespace platform {

inline std::string Utf8(std::u16string_view text) {
  return quorvane::EncodeUtf8(text).value_or("(no text)");
}

// The key that the tests write into.
inline const std::u16string testKey = u"HKEY_CURRENT_USER\\Software\\Vantrel\\QVIDE";

// A file with that key and these lines below it.
inline std::string TestFile(std::string_view lines) {
  return "Windows Registry Editor Version 5.00\n\n[HKEY_CURRENT_USER\\Software\\Vantrel\\QVIDE]\n" + std::string(lines);
}

// A value of the tests' key; nothing if it is missing, too.
inline TRegistryValue ValueOf(const TRegistryDocument& document, std::u16string_view name,
                              std::u16string_view key = testKey) {
  const TRegistryValues values = document.Values(key);
  const auto found = values.find(name);
  return found == values.end() ? TRegistryValue() : found->second;
}

// The file after writing into it.
inline std::string Written(std::string_view bytes, const std::vector<TRegistryWrite>& writes,
                           const std::u16string& key = testKey) {
  TRegistryDocument document(bytes);
  document.Write({key, writes});
  return document.Bytes();
}

} // namespace platform
