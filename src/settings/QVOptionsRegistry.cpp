// SPDX-License-Identifier: MIT
#include "settings/QVOptionsRegistry.h"

namespace quorvane {

namespace {

// What `read` returns, or nothing if the value is missing or has another type.
template <class TRead> auto IfReadable(TRead read) -> std::optional<decltype(read())> {
  try {
    return read();
  } catch (const platform::ERegistryException&) {
    return std::nullopt;
  }
}

} // namespace

std::optional<std::int32_t> TQVOptionsRegistry::ReadInteger(std::string_view name) {
  return IfReadable([&] { return registry_.ReadInteger(name); });
}

std::optional<bool> TQVOptionsRegistry::ReadBool(std::string_view name) {
  return IfReadable([&] { return registry_.ReadBool(name); });
}

std::optional<std::string> TQVOptionsRegistry::ReadString(std::string_view name) {
  return IfReadable([&] { return registry_.ReadString(name); });
}

} // namespace quorvane
