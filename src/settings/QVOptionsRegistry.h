// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Registry.h"
#include "settings/model/QVOptionsStore.h"

namespace quorvane {

// The registry of the platform as the options see it. Reading throws nothing for what stands in the registry; what
// cannot be written throws as platform::TRegistry says.
class TQVOptionsRegistry final : public IQVRegistry {
public:
  bool KeyExists(std::string_view key) override { return registry_.KeyExists(key); }
  bool OpenKey(std::string_view key, bool canCreate) override { return registry_.OpenKey(key, canCreate); }
  void CloseKey() override { registry_.CloseKey(); }

  bool ValueExists(std::string_view name) override { return registry_.ValueExists(name); }
  std::optional<std::int32_t> ReadInteger(std::string_view name) override;
  std::optional<bool> ReadBool(std::string_view name) override;
  std::optional<std::string> ReadString(std::string_view name) override;
  void WriteInteger(std::string_view name, std::int32_t value) override { registry_.WriteInteger(name, value); }
  void WriteBool(std::string_view name, bool value) override { registry_.WriteBool(name, value); }
  void WriteString(std::string_view name, std::string_view value) override { registry_.WriteString(name, value); }

private:
  platform::TRegistry registry_;
};

} // namespace quorvane
