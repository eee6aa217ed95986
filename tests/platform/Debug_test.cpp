// SPDX-License-Identifier: MIT
#include "platform/Debug.h"

#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <vector>

using namespace platform;

TEST(Debug, SinkReceivesWholeLines) {
  std::vector<std::string> lines;
  const TDebugSink before = SetDebugSink([&](std::string_view line) { lines.emplace_back(line); });
  OutputDebugString("QVLog Finalized");
  SetDebugSink(before);
  EXPECT_EQ(lines, std::vector<std::string>{"QVLog Finalized"});
}

TEST(Debug, LinesOfManyThreadsArriveOneAtATime) {
  int lines = 0; // without a lock of its own: the thread sanitizer would see two calls at once
  const TDebugSink before = SetDebugSink([&](std::string_view) { ++lines; });
  {
    std::vector<std::jthread> threads;
    for (int i = 0; i < 4; ++i) {
      threads.emplace_back([] {
        for (int line = 0; line < 250; ++line)
          OutputDebugString("line");
      });
    }
  }
  SetDebugSink(before);
  EXPECT_EQ(lines, 1000);
}

TEST(Debug, WithoutASinkLinesGoToStandardError) {
  const TDebugSink before = SetDebugSink({});
  testing::internal::CaptureStderr();
  OutputDebugString("to the terminal");
  const std::string output = testing::internal::GetCapturedStderr();
  SetDebugSink(before);
  EXPECT_EQ(output, "to the terminal\n");
}
