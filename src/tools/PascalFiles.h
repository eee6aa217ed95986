// SPDX-License-Identifier: MIT
// The files that the arguments of a command stand for.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace quorvane {

// Hears of a folder that cannot be read, and why.
using TOnFolderTrouble = std::function<void(const std::string& folder, const std::string& reason)>;

// Each name with every folder replaced by the Pascal files (.pas, .pp, .dpr, .dpk, in any case) in it and below it, in
// the order of their names. A folder behind a symbolic link is walked only if it is named itself, so the walk ends.
// Other names stay as they are, whatever is there. A file that is reached in several ways stands there as often.
std::vector<std::string> FindPascalFiles(const std::vector<std::string>& names, const TOnFolderTrouble& onTrouble);

} // namespace quorvane
