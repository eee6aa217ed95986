// SPDX-License-Identifier: MIT
// Real Pascal units to run whole files through the lexer and the parsers: those of the package fpc-source, where it is
// installed. They are input only.
#pragma once

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace support {

inline constexpr const char* NoPascalUnits = "no Pascal units under /usr/share/fpcsrc; install fpc-source to run this";

// The paths of all units, in a fixed order; empty where none are installed.
inline std::vector<std::filesystem::path> PascalUnits() {
  namespace fs = std::filesystem;
  std::vector<fs::path> paths;
  const fs::path root = "/usr/share/fpcsrc";
  if (!fs::is_directory(root))
    return paths;
  for (const fs::directory_entry& entry : fs::recursive_directory_iterator(root)) {
    const fs::path extension = entry.path().extension();
    if (entry.is_regular_file() && (extension == ".pas" || extension == ".pp"))
      paths.push_back(entry.path());
  }
  std::ranges::sort(paths);
  return paths;
}

inline std::string ReadFile(const std::filesystem::path& path) {
  std::string text(std::filesystem::file_size(path), '\0');
  std::ifstream file(path, std::ios::binary);
  file.read(text.data(), static_cast<std::streamsize>(text.size()));
  text.resize(static_cast<std::size_t>(file.gcount()));
  return text;
}

} // namespace support
