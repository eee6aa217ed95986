// SPDX-License-Identifier: MIT
// Output of one JSON value a line, read back.
#pragma once

#include <nlohmann/json.hpp>

#include <sstream>
#include <string>
#include <vector>

namespace quorvane {

// The value of each line; throws if one is no JSON.
inline std::vector<nlohmann::json> JsonLines(const std::string& output) {
  std::vector<nlohmann::json> lines;
  std::istringstream stream(output);
  for (std::string line; std::getline(stream, line);)
    lines.push_back(nlohmann::json::parse(line));
  return lines;
}

} // namespace quorvane
