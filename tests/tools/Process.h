// SPDX-License-Identifier: MIT
// Runs the built command line as a user or a script does.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace quorvane {

// A directory of its own for one test, removed with all that it holds.
class TTempDir {
public:
  TTempDir();
  ~TTempDir();
  TTempDir(const TTempDir&) = delete;
  TTempDir& operator=(const TTempDir&) = delete;

  // The path of a name in the directory.
  std::string Path(std::string_view name) const;

  // Writes a file and returns its path.
  std::string Write(std::string_view name, std::string_view bytes) const;

private:
  std::filesystem::path FPath;
};

struct TRunResult {
  int ExitCode = -1; // -1 if a signal ended the program
  std::string Output;
  std::string Errors;
};

// Runs quorvane to its end with these arguments; `input` is its standard input. Throws if it cannot be started.
TRunResult RunQuorvane(const std::vector<std::string>& arguments, std::string_view input = {});

// The same in a directory, for names of files that are given without one.
TRunResult RunQuorvaneIn(const TTempDir& dir, const std::vector<std::string>& arguments);

// The same without the rights of the administrator, for whom no file is unreadable.
TRunResult RunQuorvaneAsNobody(const std::vector<std::string>& arguments);

// The same within limits of the process, as options of prlimit set them.
TRunResult RunQuorvaneWithin(const std::string& limit, const std::vector<std::string>& arguments,
                             std::string_view input = {});

// The same with so many threads at most, the one that starts the program among them. Only the administrator can do it.
TRunResult RunQuorvaneWithThreads(int count, const std::vector<std::string>& arguments);

// The same with the standard output sent to a device such as /dev/full; Output of the result is empty.
TRunResult RunQuorvaneInto(const std::string& device, const std::vector<std::string>& arguments);

// The same with a standard output whose reader takes some bytes and goes away; Output holds those bytes.
TRunResult RunQuorvaneIntoShortReader(const std::vector<std::string>& arguments);

// The same with a terminal as standard error; Errors holds what was written to it, control characters included.
TRunResult RunQuorvaneOnTerminal(const std::vector<std::string>& arguments);

} // namespace quorvane
