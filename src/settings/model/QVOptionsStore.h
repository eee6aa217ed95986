// SPDX-License-Identifier: MIT
// How the options get from the registry into the controls, from the controls into the globals, and back to the
// registry. The dialog loads once when it is created, applies then and after each OK, and saves once when it is
// destroyed: from its controls, not from the globals, so that what was edited and then cancelled is saved too. That is
// intended.
//
// Main thread only.
#pragma once

#include "settings/model/QVOptionValues.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace quorvane {

// The key of all options, under HKEY_CURRENT_USER.
inline constexpr std::string_view QVOptionsKey = "Software\\Vantrel\\QVIDE";

// What the options need of a registry whose root is HKEY_CURRENT_USER. Names are compared without case; strings are
// UTF-8. What an implementation throws passes through to the caller.
class IQVRegistry {
public:
  virtual ~IQVRegistry() = default;

  virtual bool KeyExists(std::string_view key) = 0;
  // Makes `key` the one that the members below work on. False if it could not be opened, and then none is open.
  virtual bool OpenKey(std::string_view key, bool canCreate) = 0;
  // Called once for each OpenKey that gave true, unless something was thrown in between.
  virtual void CloseKey() = 0;

  virtual bool ValueExists(std::string_view name) = 0;
  // Empty if the value is missing or has another type.
  virtual std::optional<std::int32_t> ReadInteger(std::string_view name) = 0;
  virtual std::optional<bool> ReadBool(std::string_view name) = 0;
  virtual std::optional<std::string> ReadString(std::string_view name) = 0;
  virtual void WriteInteger(std::string_view name, std::int32_t value) = 0;
  virtual void WriteBool(std::string_view name, bool value) = 0;
  virtual void WriteString(std::string_view name, std::string_view value) = 0;
};

// Takes one line of text that says what could not be read or saved.
using TQVReport = std::function<void(std::string_view line)>;

// Reads every stored value that exists into `values`, in the order of the table, and StorageDir straight into
// OptStorageDir; what is not stored stays as it is, and without the key nothing is read. A value that cannot be read,
// having another type or, for a character's code, being none of one byte, stays as it is too, and `report` is told,
// once for each such value.
void LoadOptions(IQVRegistry& registry, TQVOptionValues& values, const TQVReport& report);

// Copies the controls into the globals. An empty template key becomes a blank first, in `values` too, so the caller
// shows it again afterwards. OptStorageDir is left alone.
void ApplyOptions(TQVOptionValues& values);

// Writes all values but TemplateKey and StorageDir, creating the key if needed. If it could not be opened, nothing is
// written and `report` is told.
void SaveOptions(const TQVOptionValues& values, IQVRegistry& registry, const TQVReport& report);

} // namespace quorvane
