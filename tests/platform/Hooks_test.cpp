// SPDX-License-Identifier: MIT
#include "platform/Hooks.h"

#include "platform/Application.h"

#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

using namespace platform;

namespace {

// What the hooks below have been told, and their handles.
std::vector<std::string> calls;
std::array<HHOOK, 3> handles;

template <std::size_t Index> void note(int code, std::uintptr_t wParam, std::intptr_t lParam) {
  calls.push_back(std::to_string(Index) + ":" + std::to_string(code) + "," + std::to_string(wParam) + "," +
                  std::to_string(lParam));
}

template <std::size_t Index> std::intptr_t passOn(int code, std::uintptr_t wParam, std::intptr_t lParam) {
  note<Index>(code, wParam, lParam);
  return 10 * CallNextHookEx(handles[Index], code, wParam, lParam) + static_cast<std::intptr_t>(Index) + 1;
}

template <std::size_t Index> std::intptr_t keep(int code, std::uintptr_t wParam, std::intptr_t lParam) {
  note<Index>(code, wParam, lParam);
  return 7;
}

template <std::size_t Index> std::intptr_t leave(int code, std::uintptr_t wParam, std::intptr_t lParam) {
  note<Index>(code, wParam, lParam);
  UnhookWindowsHookEx(handles[Index]);
  return CallNextHookEx(handles[Index], code, wParam, lParam);
}

template <std::size_t Index> std::intptr_t dropOldest(int code, std::uintptr_t wParam, std::intptr_t lParam) {
  UnhookWindowsHookEx(handles[0]);
  return passOn<Index>(code, wParam, lParam);
}

template <std::size_t Index> std::intptr_t fail(int, std::uintptr_t, std::intptr_t) {
  throw std::runtime_error("no mood for windows");
}

class Hooks : public testing::Test {
protected:
  ~Hooks() override {
    for (HHOOK& handle : handles) {
      UnhookWindowsHookEx(handle);
      handle = nullptr;
    }
    calls.clear();
    Application().SetReporter({});
  }

  static HHOOK install(THookProc proc) { return SetWindowsHookEx(WH_CBT, proc, nullptr, GetCurrentThreadId()); }
  static std::intptr_t activate() { return CallHooks(WH_CBT, HCBT_ACTIVATE, 8, 9); }
};

} // namespace

TEST_F(Hooks, AnswerIsZeroWithoutAHook) {
  EXPECT_EQ(activate(), 0);
}

TEST_F(Hooks, HookGetsTheArgumentsAndItsAnswerComesBack) {
  handles[0] = install(keep<0>);
  ASSERT_TRUE(handles[0]);
  EXPECT_EQ(activate(), 7);
  EXPECT_EQ(calls, std::vector<std::string>{"0:5,8,9"});
}

TEST_F(Hooks, NewestHookIsCalledFirstAndPassesOnToTheOneBeforeIt) {
  handles[0] = install(passOn<0>);
  handles[1] = install(passOn<1>);
  handles[2] = install(passOn<2>);
  EXPECT_EQ(activate(), 123);
  EXPECT_EQ(calls, (std::vector<std::string>{"2:5,8,9", "1:5,8,9", "0:5,8,9"}));
}

TEST_F(Hooks, HookThatDoesNotPassOnEndsTheChain) {
  handles[0] = install(passOn<0>);
  handles[1] = install(keep<1>);
  EXPECT_EQ(activate(), 7);
  EXPECT_EQ(calls, std::vector<std::string>{"1:5,8,9"});
}

TEST_F(Hooks, RemovedHookIsNotCalled) {
  handles[0] = install(passOn<0>);
  handles[1] = install(passOn<1>);
  EXPECT_TRUE(UnhookWindowsHookEx(handles[1]));
  EXPECT_EQ(activate(), 1);
}

TEST_F(Hooks, RemovingAHookFromTheMiddleClosesTheChain) {
  handles[0] = install(passOn<0>);
  handles[1] = install(passOn<1>);
  handles[2] = install(passOn<2>);
  EXPECT_TRUE(UnhookWindowsHookEx(handles[1]));
  EXPECT_EQ(activate(), 13);
}

TEST_F(Hooks, HookMayRemoveItselfWhileItIsCalled) {
  handles[0] = install(passOn<0>);
  handles[1] = install(leave<1>);
  EXPECT_EQ(activate(), 0) << "a removed hook has no next one";
  EXPECT_EQ(activate(), 1);
  EXPECT_EQ(calls, (std::vector<std::string>{"1:5,8,9", "0:5,8,9"}));
}

TEST_F(Hooks, HookMayRemoveAnOlderOneWhileItIsCalled) {
  handles[0] = install(passOn<0>);
  handles[1] = install(passOn<1>);
  handles[2] = install(dropOldest<2>);
  EXPECT_EQ(activate(), 23);
  EXPECT_EQ(calls, (std::vector<std::string>{"2:5,8,9", "1:5,8,9"}));
}

TEST_F(Hooks, RemovingTwiceAnswersFalse) {
  handles[0] = install(keep<0>);
  EXPECT_TRUE(UnhookWindowsHookEx(handles[0]));
  EXPECT_FALSE(UnhookWindowsHookEx(handles[0]));
  EXPECT_FALSE(UnhookWindowsHookEx(nullptr));
}

TEST_F(Hooks, EmptyHandleHasNoNextHook) {
  handles[0] = install(keep<0>);
  EXPECT_EQ(CallNextHookEx(nullptr, HCBT_ACTIVATE, 8, 9), 0);
}

TEST_F(Hooks, HandleIsNotUsedAgain) {
  const HHOOK first = install(keep<0>);
  UnhookWindowsHookEx(first);
  handles[0] = install(keep<0>);
  EXPECT_NE(handles[0], first);
}

TEST_F(Hooks, KindThatIsNotServedCannotBeHooked) {
  EXPECT_FALSE(SetWindowsHookEx(WH_CBT + 1, keep<0>, nullptr, GetCurrentThreadId()));
  EXPECT_EQ(CallHooks(WH_CBT + 1, 0, 0, 0), 0);
}

TEST_F(Hooks, NoProcedureCannotBeHooked) {
  EXPECT_FALSE(SetWindowsHookEx(WH_CBT, nullptr, nullptr, GetCurrentThreadId()));
}

TEST_F(Hooks, ForeignThreadCannotBeHooked) {
  EXPECT_FALSE(SetWindowsHookEx(WH_CBT, keep<0>, nullptr, GetCurrentThreadId() + 1));
}

TEST_F(Hooks, ThreadOtherThanTheMainOneCannotHookItself) {
  HHOOK handle = install(keep<0>);
  UnhookWindowsHookEx(handle);
  std::thread([&handle] { handle = install(keep<0>); }).join();
  EXPECT_FALSE(handle);
}

TEST_F(Hooks, ThreadsHaveDifferentIds) {
  std::uint32_t other = 0;
  std::thread([&other] { other = GetCurrentThreadId(); }).join();
  EXPECT_NE(other, GetCurrentThreadId());
  EXPECT_EQ(GetCurrentThreadId(), GetCurrentThreadId());
}

TEST_F(Hooks, WhatAHookThrowsIsReportedAndAnswersZero) {
  std::vector<QString> reports;
  Application().SetReporter([&reports](const QString& message, int) { reports.push_back(message); });
  handles[0] = install(fail<0>);
  EXPECT_EQ(activate(), 0);
  Application().ReportPending();
  EXPECT_EQ(reports, std::vector<QString>{QStringLiteral("no mood for windows")});
}

TEST_F(Hooks, OlderHookThatThrowsDoesNotStopTheNewerOne) {
  Application().SetReporter([](const QString&, int) {});
  handles[0] = install(fail<0>);
  handles[1] = install(passOn<1>);
  EXPECT_EQ(activate(), 2);
  Application().ReportPending();
}

TEST(FindControl, FindsTheControlBehindItsHandle) {
  QWidget first;
  QWidget second;
  EXPECT_EQ(FindControl(WindowHandle(first)), &first);
  EXPECT_EQ(FindControl(WindowHandle(second)), &second);
}

TEST(FindControl, HandleOfAControlStaysTheSame) {
  QWidget control;
  const std::uintptr_t handle = WindowHandle(control);
  EXPECT_NE(handle, 0U);
  QWidget other;
  EXPECT_NE(WindowHandle(other), handle);
  EXPECT_EQ(WindowHandle(control), handle);
}

TEST(FindControl, FindsNothingForADestroyedControl) {
  auto control = std::make_unique<QWidget>();
  const std::uintptr_t handle = WindowHandle(*control);
  control.reset();
  EXPECT_EQ(FindControl(handle), nullptr);
  const QWidget other;
  EXPECT_EQ(FindControl(handle), nullptr);
}

TEST(FindControl, FindsNothingForAnUnknownHandle) {
  EXPECT_EQ(FindControl(0), nullptr);
  EXPECT_EQ(FindControl(~std::uintptr_t{0}), nullptr);
}
