// SPDX-License-Identifier: MIT
// Outlines of real units from disk against universal-ctags over the same files. Both read the files and write down what
// is in them; ctags knows routines only.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <exception>
#include <fstream>
#include <iostream>
#include <stdexcept>
#include <string>
#include <vector>

#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include "Outlines.h"

namespace {

namespace fs = std::filesystem;

// Names of files, one a line, in a file that is gone with the program.
class TFileList {
public:
  explicit TFileList(const std::vector<fs::path>& paths) {
    const int handle = ::mkstemp(FName.data());
    if (handle < 0)
      throw std::runtime_error("no list of files can be written");
    ::close(handle);
    std::ofstream list(FName);
    for (const fs::path& path : paths)
      list << path.string() << '\n';
  }
  ~TFileList() { fs::remove(FName); }
  TFileList(const TFileList&) = delete;
  TFileList& operator=(const TFileList&) = delete;

  const std::string& Name() const { return FName; }

private:
  std::string FName = (fs::temp_directory_path() / "outlines.XXXXXX").string();
};

double Seconds(const timeval& time) {
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
}

// Runs ctags over the files of a list, with all that it would do besides switched off. Returns the time of the
// processor that it took, in seconds, or a negative number where it cannot be run.
double RunCtags(const std::string& list) {
  std::array<std::string, 8> words = {
      "ctags", "--options=NONE", "--language-force=Pascal", "--sort=no", "-f", "-", "-L", list};
  std::array<char*, words.size() + 1> arguments{}; // and a null at the end
  std::ranges::transform(words, arguments.begin(), [](std::string& word) { return word.data(); });
  posix_spawn_file_actions_t actions;
  ::posix_spawn_file_actions_init(&actions);
  for (const int stream : {STDOUT_FILENO, STDERR_FILENO})
    ::posix_spawn_file_actions_addopen(&actions, stream, "/dev/null", O_WRONLY, 0);
  pid_t child = 0;
  const int failure = ::posix_spawnp(&child, "ctags", &actions, nullptr, arguments.data(), environ);
  ::posix_spawn_file_actions_destroy(&actions);
  int status = 0;
  rusage usage{};
  if (failure != 0 || ::wait4(child, &status, 0, &usage) != child || status != 0)
    return -1;
  return Seconds(usage.ru_utime) + Seconds(usage.ru_stime);
}

void Ctags(benchmark::State& state, const TFileList& list, std::int64_t bytes) {
  for (auto _ : state) {
    const double seconds = RunCtags(list.Name());
    if (seconds < 0) {
      state.SkipWithError("ctags cannot be run");
      break;
    }
    state.SetIterationTime(seconds);
  }
  state.SetBytesProcessed(state.iterations() * bytes);
}

void Outlines(benchmark::State& state, const std::vector<fs::path>& paths, std::int64_t bytes) {
  for (auto _ : state)
    for (const fs::path& path : paths)
      benchmark::DoNotOptimize(bench::FillOutlineOfFile(path.string()));
  state.SetBytesProcessed(state.iterations() * bytes);
}

void RunAll(int argc, char** argv) {
  const std::vector<fs::path> paths = bench::SoundUnitPaths();
  const TFileList all(paths);
  const TFileList none({});
  std::int64_t bytes = 0;
  for (const fs::path& path : paths)
    bytes += static_cast<std::int64_t>(fs::file_size(path));
  if (!paths.empty() && RunCtags(none.Name()) >= 0) {
    benchmark::RegisterBenchmark("Outlines", [&](benchmark::State& state) { Outlines(state, paths, bytes); });
    benchmark::RegisterBenchmark("Ctags", [&](benchmark::State& state) { Ctags(state, all, bytes); })->UseManualTime();
    benchmark::RegisterBenchmark("CtagsStart", [&](benchmark::State& state) {
      Ctags(state, none, 0);
    })->UseManualTime();
  }
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
}

} // namespace

int main(int argc, char** argv) {
  try {
    RunAll(argc, argv);
  } catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return 1;
  }
  return 0;
}
