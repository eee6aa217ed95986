// SPDX-License-Identifier: MIT
#include "tools/Session.h"

#include "tools/Failure.h"
#include "tools/Input.h"
#include "tools/Json.h"
#include "tools/Process.h"

#include <gtest/gtest.h>

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <new>
#include <stdexcept>
#include <string>
#include <system_error>
#include <unistd.h>
#include <utility>
#include <vector>

namespace quorvane {
namespace {

// Sends a standard stream of this process into a file while it lives.
class TRedirected {
public:
  TRedirected(int stream, std::string path)
      : FStream(stream), FPath(std::move(path)), FOriginal(fcntl(stream, F_DUPFD_CLOEXEC, 0)) {
    const int file = open(FPath.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
    dup2(file, FStream);
    close(file);
  }
  ~TRedirected() {
    dup2(FOriginal, FStream);
    close(FOriginal);
  }
  TRedirected(const TRedirected&) = delete;
  TRedirected& operator=(const TRedirected&) = delete;

  std::string Written() const {
    std::ifstream file(FPath, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  }

private:
  int FStream;
  std::string FPath;
  int FOriginal;
};

class Session : public testing::Test {
protected:
  const TTempDir FDir;
  const TRedirected FOutput{STDOUT_FILENO, FDir.Path("out")};
  const TRedirected FErrors{STDERR_FILENO, FDir.Path("err")};
  TSession FSession;
};

TEST_F(Session, AFileThatFailsSparesTheOthers) {
  TInputOptions options;
  options.Files = {FDir.Write("a", ""), FDir.Write("b", ""), FDir.Write("c", "")};
  ForEachText(options, FSession, [&](const std::string& file, std::string&) {
    FSession.Output().Line() += file;
    if (file == options.Files[1])
      throw std::bad_alloc();
    FSession.Output().EndLine();
  });
  FSession.Output().Flush();
  EXPECT_EQ(FOutput.Written(), options.Files[0] + '\n' + options.Files[2] + '\n');
  EXPECT_EQ(FErrors.Written(), "quorvane: " + options.Files[1] + ": Out of memory\n");
  EXPECT_EQ(FSession.ExitCode(), TExitCode::Trouble);
}

TEST_F(Session, WhatFailsLeavesTheLinesThatItEnded) {
  const std::string reason = FSession.Attempt([this] {
    FSession.Output().Line() += "whole";
    FSession.Output().EndLine();
    TJsonObject object(FSession.Output().Line());
    object.Add("half", 1);
    throw std::runtime_error("reason");
  });
  EXPECT_EQ(reason, "reason");
  EXPECT_EQ(FSession.Output().Line(), "whole\n");
}

TEST_F(Session, WhatFailsAfterAFlushLosesNothingOfTheNextLine) {
  FSession.Output().Line() += "first";
  FSession.Output().EndLine();
  FSession.Output().Flush();
  EXPECT_EQ(FSession.Attempt([this] {
    FSession.Output().Line() += "half";
    throw std::runtime_error("reason");
  }),
            "reason");
  FSession.Output().Line() += "second";
  FSession.Output().EndLine();
  FSession.Output().Flush();
  EXPECT_EQ(FOutput.Written(), "first\nsecond\n");
}

TEST_F(Session, ErrorsOfTheOutputEndTheRun) {
  EXPECT_THROW(FSession.Attempt([] { throw EOutputError("full"); }), EOutputError);
  EXPECT_THROW(FSession.Attempt([] { throw EOutputClosed(); }), EOutputClosed);
}

TEST_F(Session, TroubleStaysOnItsLine) {
  FSession.ReportTrouble("a\nb", "c\033d");
  EXPECT_EQ(FErrors.Written(), "quorvane: a\xE2\x90\x8A"
                               "b: c\xE2\x90\x9B"
                               "d\n");
}

template <typename TException> std::string ReasonOf(const TException& exception) {
  try {
    throw exception;
  } catch (...) {
    return FailureReason();
  }
}

TEST(Failure, HasTheWordsOfItsException) {
  EXPECT_EQ(ReasonOf(std::system_error(ENOENT, std::generic_category(), "here")), "No such file or directory");
  EXPECT_EQ(ReasonOf(std::bad_alloc()), "Out of memory");
  EXPECT_EQ(ReasonOf(std::runtime_error("reason")), "reason");
  EXPECT_EQ(ReasonOf(1), "Unknown");
}

} // namespace
} // namespace quorvane
