// SPDX-License-Identifier: MIT
#include "AddinFixture.h"
#include "platform/Errors.h"

namespace quorvane {
namespace {

using Codes = std::vector<unsigned>;

const char* const kRefreshLine = "Editor: WM_VSCROLL, WMLBUTTONCBLCLK, WM_HSCROLL, WM_KEYUP, or WM_SETFOCUS";

// A row of the message table: what the host receives and what is logged, when the marks are live and when they are on
// demand; whether the proxy's own pass runs when live; and whether the hot key may paint again afterwards.
struct Row {
  const char* Name;
  unsigned Code;
  Codes ReceivedLive;
  Codes ReceivedOnDemand;
  Lines Log;
  std::size_t PassesLive;
  int Repaints;
  bool Refreshes;
};

Lines WithPaint(const char* line) {
  return {line, "Editor: WM_PAINT"};
}

Row RefreshRow(const char* name, unsigned code) {
  return {name, code, {code, platform::WM_PAINT}, {code, platform::WM_PAINT}, WithPaint(kRefreshLine), 1, 1, true};
}

Row ForwardedRow(const char* name, unsigned code, const Lines& log) {
  return {name, code, {code}, {code}, log, 0, 0, false};
}

const Row kTable[] = {
    RefreshRow("SetFocus", platform::WM_SETFOCUS),
    RefreshRow("KeyUp", platform::WM_KEYUP),
    RefreshRow("HScroll", platform::WM_HSCROLL),
    RefreshRow("VScroll", platform::WM_VSCROLL),
    RefreshRow("LButtonDblClk", platform::WM_LBUTTONDBLCLK),
    {"Paint", platform::WM_PAINT, {platform::WM_PAINT}, {platform::WM_PAINT}, {"Editor: WM_PAINT"}, 1, 0, true},
    {"EraseBkgnd", platform::WM_ERASEBKGND, {platform::WM_ERASEBKGND}, {}, {"Editor: WM_ERASEBKGND"}, 1, 0, false},
    ForwardedRow("KeyDown", platform::WM_KEYDOWN, {"Editor: WM_KEYDOWN"}),
    ForwardedRow("Char", platform::WM_CHAR, {}),
    ForwardedRow("CNKeyDown", platform::CN_KEYDOWN, {"Editor: CN_KEYDOWN: K"}),
    ForwardedRow("KillFocus", platform::WM_KILLFOCUS, {}),
    ForwardedRow("User", platform::WM_USER, {}),
    ForwardedRow("Unknown", 0x7FFF, {}),
};

class QVEditorMessages : public ProxyTest, public testing::WithParamInterface<Row> {};
INSTANTIATE_TEST_SUITE_P(Table, QVEditorMessages, testing::ValuesIn(kTable),
                         [](const auto& row) { return std::string(row.param.Name); });

TEST_P(QVEditorMessages, ReachTheHostOnceAndAreLoggedWhileMarksAreLive) {
  Editor().Send(GetParam().Code, 'K');
  EXPECT_EQ(Editor().TakeReceived(), GetParam().ReceivedLive);
  EXPECT_EQ(LogForm.Take(), GetParam().Log);
  EXPECT_EQ(Editor().Repaints, GetParam().Repaints);
  EXPECT_EQ(Editor().Invalidations, 0);
  EXPECT_EQ(Passes(), GetParam().PassesLive);
}

TEST_P(QVEditorMessages, NeverPaintMarksByThemselvesWhileMarksAreOnDemand) {
  OptMarkerLive = false;
  Editor().Send(GetParam().Code, 'K');
  EXPECT_EQ(Editor().TakeReceived(), GetParam().ReceivedOnDemand);
  EXPECT_EQ(LogForm.Take(), GetParam().Log);
  EXPECT_EQ(Editor().Repaints, GetParam().Repaints);
  EXPECT_EQ(Passes(), 0U);
}

TEST_P(QVEditorMessages, LetTheHotKeyPaintAgainOnlyAfterAPaintOrRefresh) {
  OptMarkerLive = false;
  PressHotKey();
  ASSERT_EQ(Passes(), 1U);
  Editor().Send(GetParam().Code);
  PressHotKey();
  EXPECT_EQ(Passes(), GetParam().Refreshes ? 2U : 1U);
}

TEST_P(QVEditorMessages, AreHandedOnAsTheSameRecord) {
  if (GetParam().ReceivedLive.front() != GetParam().Code)
    FAIL() << "the table says that the host does not get it";
  Editor().OnMessage = [](platform::TMessage& message) {
    message.Result = static_cast<std::intptr_t>(message.WParam) + 1;
  };
  EXPECT_EQ(Editor().Send(GetParam().Code, 41).Result, 42);
}

class QVEditorMessage : public ProxyTest {};

TEST_F(QVEditorMessage, EraseWhileMarksAreOnDemandKeepsItsResult) {
  OptMarkerLive = false;
  Editor().OnMessage = [](platform::TMessage& message) { message.Result = 1; };
  EXPECT_EQ(Editor().Send(platform::WM_ERASEBKGND).Result, 0);
}

TEST_F(QVEditorMessage, EraseWhileMarksAreLiveReachesTheHostBeforeTheMarks) {
  std::size_t passesBefore = 1;
  Editor().OnMessage = [&](platform::TMessage&) { passesBefore = Passes(); };
  Editor().Send(platform::WM_ERASEBKGND);
  EXPECT_EQ(passesBefore, 0U);
  EXPECT_EQ(Passes(), 1U);
}

TEST_F(QVEditorMessage, DestroyPutsTheWindowProcedureBackBeforeTheHostGetsIt) {
  platform::TWndMethod during;
  Editor().OnMessage = [&](platform::TMessage&) { during = Editor().WindowProc(); };
  Editor().Send(platform::WM_DESTROY);
  EXPECT_EQ(during, HostProc);
  EXPECT_EQ(Editor().TakeReceived(), Codes{platform::WM_DESTROY});
  EXPECT_EQ(LogForm.Take(), Lines{"Editor: WM_DESTROY"});
  EXPECT_FALSE(Proxy.isNull());
}

TEST_F(QVEditorMessage, KeyCodeIsLoggedAsOneCharacter) {
  Editor().Send(platform::CN_KEYDOWN, 0x141);
  EXPECT_EQ(LogForm.Take(), Lines{"Editor: CN_KEYDOWN: A"});
}

TEST_F(QVEditorMessage, RefreshAfterMarksWereDrawnMeanwhileKeepsThemWhileOnDemand) {
  OptMarkerLive = false;
  Editor().OnMessage = [this](platform::TMessage& message) {
    if (message.Msg == platform::WM_KEYUP)
      PressHotKey();
  };
  Editor().Send(platform::WM_KEYUP);
  EXPECT_EQ(Passes(), 1U);
  EXPECT_EQ(Editor().Repaints, 0);
}

TEST_F(QVEditorMessage, RefreshAfterMarksWereDrawnMeanwhileRepaintsWhileLive) {
  Editor().OnMessage = [this](platform::TMessage& message) {
    if (message.Msg == platform::WM_KEYUP)
      PressHotKey();
  };
  Editor().Send(platform::WM_KEYUP);
  EXPECT_EQ(Editor().Repaints, 1);
}

TEST_F(QVEditorMessage, ErrorOfTheHostPassesThrough) {
  Editor().OnMessage = [](platform::TMessage&) { throw platform::EViewClosed(); };
  EXPECT_THROW(Editor().Send(platform::WM_KEYUP), platform::EViewClosed);
  EXPECT_EQ(Editor().Repaints, 0);
  Editor().OnMessage = nullptr;
}

TEST_F(QVEditorMessage, ProxyMayBeFreedWhileTheHostActs) {
  for (const unsigned code : {platform::WM_KEYUP, platform::WM_PAINT, platform::WM_ERASEBKGND, platform::WM_CHAR}) {
    if (!Proxy)
      Proxy = new TQVEditorProxy(Window.get());
    Editor().OnMessage = [this](platform::TMessage&) { delete Proxy; };
    Editor().Send(code);
    EXPECT_TRUE(Proxy.isNull());
  }
  EXPECT_EQ(Editor().Repaints, 0);
  EXPECT_EQ(Passes(), 0U);
}

} // namespace
} // namespace quorvane
