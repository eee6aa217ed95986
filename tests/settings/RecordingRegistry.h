// SPDX-License-Identifier: MIT
// A registry in memory that writes down what it was asked.
#pragma once

#include "settings/model/QVOptionsStore.h"

#include <algorithm>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace quorvane::fakes {

// Holds the values of one key. A Boolean is an integer that is 0 or 1, as in a real registry, and names have no case.
class RecordingRegistry : public IQVRegistry {
public:
  using TStored = std::variant<std::int32_t, std::string>;

  // Lets the key exist with these values.
  void Store(std::string_view name, TStored value) {
    HasKey = true;
    Values[Folded(name)] = std::move(value);
  }
  // The stored value, or nothing.
  std::optional<TStored> Stored(std::string_view name) const {
    const auto found = Values.find(Folded(name));
    return found == Values.end() ? std::nullopt : std::optional(found->second);
  }

  bool KeyExists(std::string_view key) override {
    Note("key?", key);
    return HasKey;
  }
  bool OpenKey(std::string_view key, bool canCreate) override {
    Note(canCreate ? "open or create" : "open", key);
    if (!CanOpen || (!HasKey && !canCreate))
      return false;
    HasKey = true;
    return true;
  }
  void CloseKey() override { Calls.emplace_back("close"); }
  bool ValueExists(std::string_view name) override {
    Note("value?", name);
    return Stored(name).has_value();
  }
  std::optional<std::int32_t> ReadInteger(std::string_view name) override {
    Note("read integer", name);
    return Read<std::int32_t>(name);
  }
  std::optional<bool> ReadBool(std::string_view name) override {
    Note("read Boolean", name);
    const auto number = Read<std::int32_t>(name);
    return number ? std::optional(*number != 0) : std::nullopt;
  }
  std::optional<std::string> ReadString(std::string_view name) override {
    Note("read string", name);
    return Read<std::string>(name);
  }
  void WriteInteger(std::string_view name, std::int32_t value) override {
    Note("write integer", name);
    Values[Folded(name)] = value;
  }
  void WriteBool(std::string_view name, bool value) override {
    Note("write Boolean", name);
    Values[Folded(name)] = value ? 1 : 0;
  }
  void WriteString(std::string_view name, std::string_view value) override {
    Note("write string", name);
    Values[Folded(name)] = std::string(value);
  }

  bool HasKey = false;
  bool CanOpen = true;
  std::map<std::string, TStored> Values;
  std::vector<std::string> Calls; // "value? LineWidth", "read integer LineWidth", ...

private:
  void Note(std::string_view what, std::string_view name) {
    Calls.push_back(std::string(what) + ' ' + std::string(name));
  }
  template <class T> std::optional<T> Read(std::string_view name) const {
    const auto stored = Stored(name);
    const T* value = stored ? std::get_if<T>(&*stored) : nullptr;
    return value ? std::optional(*value) : std::nullopt;
  }
  static std::string Folded(std::string_view name) {
    std::string folded(name);
    std::ranges::transform(folded, folded.begin(), [](char c) { return c >= 'A' && c <= 'Z' ? char(c + 32) : c; });
    return folded;
  }
};

} // namespace quorvane::fakes
