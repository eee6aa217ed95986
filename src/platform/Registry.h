// SPDX-License-Identifier: MIT
// The registry: the user's settings as keys that hold named values, kept from one run to the next.
#pragma once

#include "platform/Errors.h"
#include "platform/Export.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

// A value that is missing or of another type than the one asked for, or a registry that could not be written.
class VIRELLE_PLATFORM ERegistryException : public Exception {
public:
  using Exception::Exception;
  ~ERegistryException() override;
};

// A way into the registry, below HKEY_CURRENT_USER. One opens a key, reads and writes its values, and closes it:
//
//   TRegistry registry;
//   if (registry.OpenKey("Software\\Vantrel\\QVIDE", false) && registry.ValueExists("LineWidth"))
//     width = registry.ReadInteger("LineWidth");
//
// Keys are paths with "\" between their parts. All texts are UTF-8. The case of ASCII letters in the names of keys and
// values does not count; a name stays as its first writer has spelled it.
//
// The registry is a file (see RegistryFile.h). It is read when the object is first used and again after each CloseKey.
// What cannot be read counts as empty, with a line in the debugger output. What is written is seen by this object at
// once and by everybody else after CloseKey, which changes the file in one step: only the values written here are
// changed in it, so that those which other programs have written meanwhile stay. An object is for one thread; several
// objects, threads and processes may use the registry at the same time.
class VIRELLE_PLATFORM TRegistry {
public:
  // With the root key open.
  TRegistry();
  // Closes the key. A registry that could not be written is told in the debugger output only.
  ~TRegistry();

  TRegistry(const TRegistry&) = delete;
  TRegistry& operator=(const TRegistry&) = delete;

  // Whether `key` exists: a path below the open key, or below the root if it begins with "\". A key exists as soon as a
  // key below it does.
  bool KeyExists(std::string_view key) const;

  // Opens `key`, a path as in KeyExists, in place of the open one; what was written there stays. A missing key is made
  // if `canCreate` says so; otherwise the result is false and the key before stays open. Raises ERegistryException for
  // a key to be made that the file could not hold: with control characters, or with "]" and then, blanks apart, ";".
  bool OpenKey(std::string_view key, bool canCreate);

  // Saves all that was written since the last call and goes back to the root key. Raises ERegistryException if the
  // registry cannot be written; then the changes are given up and the registry is as it was.
  void CloseKey();

  // The open key's path below the root, without a "\" in front; empty for the root.
  std::string CurrentPath() const;

  // Whether the open key has a value of this name, of whatever type. The empty name is the key's default value.
  bool ValueExists(std::string_view name) const;
  // The names of the open key's values in alphabetical order, its default value's empty one included.
  std::vector<std::string> GetValueNames() const;

  // Reads a value of the open key. Each raises ERegistryException if the value is missing or of another type. A Boolean
  // is an integer, and every one but 0 is true.
  std::int32_t ReadInteger(std::string_view name) const;
  bool ReadBool(std::string_view name) const;
  std::string ReadString(std::string_view name) const;

  // Writes a value of the open key, whatever type it had before. Each raises ERegistryException for a name with control
  // characters, which the file could not hold.
  void WriteInteger(std::string_view name, std::int32_t value);
  void WriteBool(std::string_view name, bool value);
  void WriteString(std::string_view name, std::string_view value);

private:
  struct TState;
  std::unique_ptr<TState> state_;
};

} // namespace platform
