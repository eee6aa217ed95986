// SPDX-License-Identifier: MIT
// The file in which the registry is kept.
#pragma once

#include "platform/registry/RegistryDocument.h"
#include "platform/SafeFile.h"

#include <QString>

#include <utility>
#include <vector>

namespace platform {

// The file of the user's registry, registry.reg in the folder of settings: a registry export, so that it can be read
// and edited, and an export from another machine can be put in its place (see RegistryDocument.h). SafeFile.h says how
// it is kept whole. Any thread.
class TRegistryFile {
public:
  // For a file at `path`, which need not exist. An empty path is no place: there is nothing to be read and writing
  // fails.
  explicit TRegistryFile(QString path) : file_(std::move(path)) {}

  // The file's contents; empty if there are none. If they cannot be read they count as empty, and a line in the
  // debugger output says why, as it does for a damaged file (TRegistryDocument::Damaged), of which the rest is read.
  // Never throws but for lack of memory.
  TRegistryDocument Read() const;

  // Writes values, each to its key, into the file as it is now. A damaged file is kept under a name that ends
  // in ".damaged", and a line in the debugger output says so. Waits for other writers, but not for long. Raises
  // ERegistryException if the file cannot be written; it is then as it was.
  void Write(const std::vector<TRegistryKeyWrites>& writes) const;

private:
  TSafeFile file_;
};

} // namespace platform
