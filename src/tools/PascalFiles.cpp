// SPDX-License-Identifier: MIT
#include "tools/PascalFiles.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <system_error>

namespace quorvane {
namespace {

namespace fs = std::filesystem;

constexpr std::array<std::string_view, 4> Extensions = {".pas", ".pp", ".dpr", ".dpk"};

bool HasPascalName(const fs::path& path) {
  std::string extension = path.extension().string();
  std::ranges::transform(extension, extension.begin(), [](char character) {
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a') : character;
  });
  return std::ranges::find(Extensions, extension) != Extensions.end();
}

class TWalk {
public:
  TWalk(std::vector<std::string>& files, const TOnFolderTrouble& onTrouble) : FFiles(files), FOnTrouble(onTrouble) {}

  void Folder(const fs::path& folder) {
    for (const fs::directory_entry& entry : Entries(folder)) {
      std::error_code ignored;
      if (entry.is_directory(ignored)) {
        if (!entry.is_symlink(ignored))
          Folder(entry.path());
      } else if (HasPascalName(entry.path()) && entry.is_regular_file(ignored)) {
        FFiles.push_back(entry.path().string());
      }
    }
  }

private:
  std::vector<fs::directory_entry> Entries(const fs::path& folder) const {
    std::vector<fs::directory_entry> entries;
    std::error_code error;
    for (fs::directory_iterator next(folder, error); !error && next != fs::directory_iterator(); next.increment(error))
      entries.push_back(*next);
    if (error)
      FOnTrouble(folder.string(), error.message());
    std::ranges::sort(entries, {}, &fs::directory_entry::path);
    return entries;
  }

  std::vector<std::string>& FFiles;
  const TOnFolderTrouble& FOnTrouble;
};

} // namespace

std::vector<std::string> FindPascalFiles(const std::vector<std::string>& names, const TOnFolderTrouble& onTrouble) {
  std::vector<std::string> files;
  TWalk walk(files, onTrouble);
  for (const std::string& name : names) {
    std::error_code ignored;
    if (fs::is_directory(name, ignored))
      walk.Folder(name);
    else
      files.push_back(name);
  }
  return files;
}

} // namespace quorvane
