// SPDX-License-Identifier: MIT
// An outline in words.
#pragma once

#include "analysis/QVPasInfo.h"
#include "tools/Output.h"

#include <memory>
#include <optional>
#include <string>

namespace quorvane {

struct TFileOutline {
  std::string File;
  std::shared_ptr<IQVPasInfo> Info = std::make_shared<TQVPasInfo>();
  std::optional<std::string> Fatal; // the message that ended the parse early
  bool HasCaret = false;            // whether a caret was given
};

// One object on a line; lines count from 0, as in the outline.
void WriteOutlineAsJson(const TFileOutline& outline, TOutput& output);

// An indented tree in UTF-8; lines count from 1. What is not there is left out.
void WriteOutlineAsTree(const TFileOutline& outline, TOutput& output);

} // namespace quorvane
