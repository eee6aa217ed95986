// SPDX-License-Identifier: MIT
#include "tools/Process.h"

#include <array>
#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <iterator>
#include <spawn.h>
#include <stdexcept>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>

namespace quorvane {
namespace {

std::string ReadAll(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

void Check(int error) {
  if (error != 0)
    throw std::system_error(error, std::generic_category());
}

// What each of the three standard streams of a child is opened on.
class TRedirections {
public:
  TRedirections() { Check(posix_spawn_file_actions_init(&FActions)); }
  ~TRedirections() { posix_spawn_file_actions_destroy(&FActions); }
  TRedirections(const TRedirections&) = delete;
  TRedirections& operator=(const TRedirections&) = delete;

  void Open(int stream, const std::string& path, int flags) {
    Check(posix_spawn_file_actions_addopen(&FActions, stream, path.c_str(), flags, 0600));
  }
  void Duplicate(int from, int stream) { Check(posix_spawn_file_actions_adddup2(&FActions, from, stream)); }

  const posix_spawn_file_actions_t* Actions() const { return &FActions; }

private:
  posix_spawn_file_actions_t FActions{};
};

using TWords = std::vector<std::string>;

// The words that come before the arguments: the program, or another program that runs it.
const TWords Directly = {QUORVANE_BINARY};
const TWords AsNobody = {"/usr/bin/setpriv", "--reuid=65534", "--clear-groups", "--", QUORVANE_BINARY};

pid_t Start(TWords words, const TWords& arguments, const TRedirections& redirections) {
  words.insert(words.end(), arguments.begin(), arguments.end());
  std::vector<char*> pointers;
  for (std::string& word : words)
    pointers.push_back(word.data());
  pointers.push_back(nullptr);
  pid_t child = 0;
  Check(posix_spawn(&child, words.front().c_str(), redirections.Actions(), nullptr, pointers.data(), environ));
  return child;
}

int ExitCodeOf(pid_t child) {
  int status = 0;
  while (waitpid(child, &status, 0) < 0)
    if (errno != EINTR)
      Check(errno);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

constexpr int WriteFlags = O_WRONLY | O_CREAT | O_TRUNC;

TRunResult RunToTheEnd(const TWords& program, const TWords& arguments, std::string_view input) {
  const TTempDir dir;
  TRedirections redirections;
  redirections.Open(STDIN_FILENO, dir.Write("in", input), O_RDONLY);
  redirections.Open(STDOUT_FILENO, dir.Path("out"), WriteFlags);
  redirections.Open(STDERR_FILENO, dir.Path("err"), WriteFlags);
  const int exitCode = ExitCodeOf(Start(program, arguments, redirections));
  return {exitCode, ReadAll(dir.Path("out")), ReadAll(dir.Path("err"))};
}

} // namespace

TTempDir::TTempDir() {
  std::string path = (std::filesystem::temp_directory_path() / "quorvane-XXXXXX").string();
  if (!mkdtemp(path.data()))
    Check(errno);
  FPath = path;
  // Others may go in, so what a test says of a file's rights is what counts.
  std::filesystem::permissions(FPath, std::filesystem::perms{0755});
}

TTempDir::~TTempDir() {
  std::error_code ignored;
  std::filesystem::remove_all(FPath, ignored);
}

std::string TTempDir::Path(std::string_view name) const {
  return (FPath / name).string();
}

std::string TTempDir::Write(std::string_view name, std::string_view bytes) const {
  std::string path = Path(name);
  std::ofstream file(path, std::ios::binary);
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  file.close();
  if (!file)
    throw std::runtime_error("cannot write " + path);
  return path;
}

TRunResult RunQuorvane(const std::vector<std::string>& arguments, std::string_view input) {
  return RunToTheEnd(Directly, arguments, input);
}

TRunResult RunQuorvaneIn(const TTempDir& dir, const std::vector<std::string>& arguments) {
  return RunToTheEnd({"/usr/bin/env", "-C", dir.Path(""), QUORVANE_BINARY}, arguments, {});
}

TRunResult RunQuorvaneAsNobody(const std::vector<std::string>& arguments) {
  return RunToTheEnd(geteuid() == 0 ? AsNobody : Directly, arguments, {});
}

TRunResult RunQuorvaneWithin(const std::string& limit, const std::vector<std::string>& arguments,
                             std::string_view input) {
  return RunToTheEnd({"/usr/bin/prlimit", limit, "--", QUORVANE_BINARY}, arguments, input);
}

// The limit is one of the user, whose threads are all counted; so the user is one that nobody else is.
TRunResult RunQuorvaneWithThreads(int count, const std::vector<std::string>& arguments) {
  constexpr int UserBase = 1'000'000;
  const std::string user = "--reuid=" + std::to_string(UserBase + getpid());
  return RunToTheEnd({"/usr/bin/prlimit", "--nproc=" + std::to_string(count), "--", "/usr/bin/setpriv", user,
                      "--clear-groups", "--", QUORVANE_BINARY},
                     arguments, {});
}

TRunResult RunQuorvaneInto(const std::string& device, const std::vector<std::string>& arguments) {
  const TTempDir dir;
  TRedirections redirections;
  redirections.Open(STDIN_FILENO, "/dev/null", O_RDONLY);
  redirections.Open(STDOUT_FILENO, device, O_WRONLY);
  redirections.Open(STDERR_FILENO, dir.Path("err"), WriteFlags);
  const int exitCode = ExitCodeOf(Start(Directly, arguments, redirections));
  return {exitCode, {}, ReadAll(dir.Path("err"))};
}

TRunResult RunQuorvaneOnTerminal(const std::vector<std::string>& arguments) {
  const TTempDir dir;
  const int terminal = posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC);
  if (terminal < 0 || grantpt(terminal) != 0 || unlockpt(terminal) != 0)
    Check(errno);
  TRedirections redirections;
  redirections.Open(STDIN_FILENO, "/dev/null", O_RDONLY);
  redirections.Open(STDOUT_FILENO, dir.Path("out"), WriteFlags);
  redirections.Open(STDERR_FILENO, ptsname(terminal), O_RDWR | O_NOCTTY);
  const pid_t child = Start(Directly, arguments, redirections);
  std::string errors;
  // Reading fails once the child has gone.
  std::array<char, 4096> piece{};
  for (ssize_t count = 0; (count = read(terminal, piece.data(), piece.size())) > 0;)
    errors.append(piece.data(), static_cast<std::size_t>(count));
  close(terminal);
  const int exitCode = ExitCodeOf(child);
  return {exitCode, ReadAll(dir.Path("out")), errors};
}

TRunResult RunQuorvaneIntoShortReader(const std::vector<std::string>& arguments) {
  const TTempDir dir;
  std::array<int, 2> ends{};
  if (pipe2(ends.data(), O_CLOEXEC) != 0)
    Check(errno);
  TRedirections redirections;
  redirections.Open(STDIN_FILENO, "/dev/null", O_RDONLY);
  redirections.Duplicate(ends[1], STDOUT_FILENO);
  redirections.Open(STDERR_FILENO, dir.Path("err"), WriteFlags);
  const pid_t child = Start(Directly, arguments, redirections);
  close(ends[1]);
  std::string output(100, '\0');
  const ssize_t count = read(ends[0], output.data(), output.size());
  output.resize(count < 0 ? 0 : static_cast<std::size_t>(count));
  close(ends[0]);
  const int exitCode = ExitCodeOf(child);
  return {exitCode, output, ReadAll(dir.Path("err"))};
}

} // namespace quorvane
