// SPDX-License-Identifier: MIT
#include "AddinFixture.h"
#include "platform/Errors.h"

namespace quorvane {
namespace {

using platform::TOTACharPos;
using platform::TOTAEditPos;

// A text area of 40 columns of 9 pixels and 30 lines of 16, right of a gutter of 24.
class QVEditorGeometry : public ProxyTest {
protected:
  QVEditorGeometry() {
    Buffer->LeftGutterWidth = 24;
    View->ViewSize = {40, 30};
    Editor().Width = 24 + 40 * 9;
    Editor().LinesInWindow = 31;
    Editor().PublishedClientHeight = 480;
  }
};

TEST_F(QVEditorGeometry, ReadersGiveThePublishedValuesUnchanged) {
  fakes::FakeEditControl& editor = Editor();
  editor.CaretX = 3;
  editor.CaretY = 5;
  editor.TopLine = 7;
  editor.LinesInWindow = 11;
  editor.LineCount = 100'000;
  editor.CharXIndex = 13;
  editor.CursorAttribute = 17;
  editor.BlockBegin = (19LL << 32) | 1;
  editor.BlockAfter = (23LL << 32) | 2;
  editor.SearchBegin = (29LL << 32) | 3;
  editor.SearchAfter = (31LL << 32) | 4;
  editor.BorderStyle = 1;
  editor.LineText = QStringLiteral("begin");
  editor.HotlinkText = QStringLiteral("TObject");
  editor.Left = -4;
  editor.Top = 28;
  editor.Width = 641;
  editor.Height = 482;
  editor.Tag = 37;
  editor.HelpContext = 41;
  editor.Cursor = -4;
  editor.Hint = QStringLiteral("a hint");
  editor.HelpKeyword = QStringLiteral("editor");
  EXPECT_EQ(Proxy->EdGetCaretX(), 3);
  EXPECT_EQ(Proxy->EdGetCaretY(), 5);
  EXPECT_EQ(Proxy->EdGetTopLine(), 7);
  EXPECT_EQ(Proxy->EdGetLinesInWindow(), 11);
  EXPECT_EQ(Proxy->EdGetLineCount(), 100'000);
  EXPECT_EQ(Proxy->EdGetCharXIndex(), 13);
  EXPECT_EQ(Proxy->EdGetCursorAttribute(), 17);
  EXPECT_EQ(Proxy->EdGetBlockBegin(), (19LL << 32) | 1);
  EXPECT_EQ(Proxy->EdGetBlockAfter(), (23LL << 32) | 2);
  EXPECT_EQ(Proxy->EdGetSearchBegin(), (29LL << 32) | 3);
  EXPECT_EQ(Proxy->EdGetSearchAfter(), (31LL << 32) | 4);
  EXPECT_EQ(Proxy->EdGetBorderStyle(), 1);
  EXPECT_EQ(Proxy->EdGetLineText(), QStringLiteral("begin"));
  EXPECT_EQ(Proxy->EdGetHotlinkText(), QStringLiteral("TObject"));
  EXPECT_EQ(Proxy->EdGetLeft(), -4);
  EXPECT_EQ(Proxy->EdGetTop(), 28);
  EXPECT_EQ(Proxy->EdGetWidth(), 641);
  EXPECT_EQ(Proxy->EdGetHeight(), 482);
  EXPECT_EQ(Proxy->EdGetTag(), 37);
  EXPECT_EQ(Proxy->EdGetHelpContext(), 41);
  EXPECT_EQ(Proxy->EdGetCursor(), -4);
  EXPECT_EQ(Proxy->EdGetName(), QStringLiteral("Editor"));
  EXPECT_EQ(Proxy->EdGetHint(), QStringLiteral("a hint"));
  EXPECT_EQ(Proxy->EdGetHelpKeyword(), QStringLiteral("editor"));
}

TEST_F(QVEditorGeometry, CaretIsNarrowedToSixteenBits) {
  Editor().CaretX = 40'000;
  Editor().CaretY = 70'000;
  EXPECT_EQ(Proxy->EdGetCaretX(), 40'000 - 65'536);
  EXPECT_EQ(Proxy->EdGetCaretY(), 70'000 - 65'536);
}

TEST_F(QVEditorGeometry, EveryReaderAssertsThatThereIsAControl) {
  using Reader = void (*)(const TQVEditorProxy&);
  const Reader readers[] = {
      [](const TQVEditorProxy& proxy) { proxy.EdGetCaretX(); },
      [](const TQVEditorProxy& proxy) { proxy.EdGetCaretY(); },
      [](const TQVEditorProxy& proxy) { proxy.EdGetTopLine(); },
      [](const TQVEditorProxy& proxy) { proxy.EdGetLinesInWindow(); },
      [](const TQVEditorProxy& proxy) { proxy.EdGetLineCount(); },
      [](const TQVEditorProxy& proxy) { proxy.EdGetCharXIndex(); },
      [](const TQVEditorProxy& proxy) { proxy.EdGetCursorAttribute(); },
      [](const TQVEditorProxy& proxy) { proxy.EdGetBlockBegin(); },
      [](const TQVEditorProxy& proxy) { proxy.EdGetBlockAfter(); },
      [](const TQVEditorProxy& proxy) { proxy.EdGetSearchBegin(); },
      [](const TQVEditorProxy& proxy) { proxy.EdGetSearchAfter(); },
      [](const TQVEditorProxy& proxy) { proxy.EdGetBorderStyle(); },
      [](const TQVEditorProxy& proxy) { proxy.EdGetLineText(); },
      [](const TQVEditorProxy& proxy) { proxy.EdGetHotlinkText(); },
      [](const TQVEditorProxy& proxy) { proxy.EdGetLeft(); },
      [](const TQVEditorProxy& proxy) { proxy.EdGetTop(); },
      [](const TQVEditorProxy& proxy) { proxy.EdGetWidth(); },
      [](const TQVEditorProxy& proxy) { proxy.EdGetHeight(); },
      [](const TQVEditorProxy& proxy) { proxy.EdGetTag(); },
      [](const TQVEditorProxy& proxy) { proxy.EdGetHelpContext(); },
      [](const TQVEditorProxy& proxy) { proxy.EdGetCursor(); },
      [](const TQVEditorProxy& proxy) { proxy.EdGetName(); },
      [](const TQVEditorProxy& proxy) { proxy.EdGetHint(); },
      [](const TQVEditorProxy& proxy) { proxy.EdGetHelpKeyword(); },
      [](const TQVEditorProxy& proxy) { proxy.EdGetLineHeight(); },
      [](const TQVEditorProxy& proxy) { proxy.EdGetColWidth(); },
      [](const TQVEditorProxy& proxy) {
        proxy.CursorToPixel(TOTAEditPos{1, 1}, TQVCellEdge::Top);
      },
  };
  Window->DropEditor();
  for (const Reader read : readers) {
    const auto assertion = AssertionOf([&] { read(*Proxy); });
    EXPECT_EQ(assertion.Text(), "Assertion failure");
    EXPECT_EQ(assertion.Unit(), "QVEditorProxy");
    EXPECT_GT(assertion.Line(), 0U);
  }
}

TEST_F(QVEditorGeometry, CanvasIsNoneWithoutAControl) {
  Window->DropEditor();
  EXPECT_EQ(Proxy->EdGetCanvas(), nullptr);
}

TEST_F(QVEditorGeometry, CanvasOverrideStandsBeforeTheControlsCanvas) {
  platform::TBitmap other(10, 10, Editor().Canvas());
  Proxy->CanvasOverride = &other.Canvas();
  EXPECT_EQ(Proxy->EdGetCanvas(), &other.Canvas());
}

TEST_F(QVEditorGeometry, LineHeightSpreadsTheClientHeightOverTheLinesButOne) {
  EXPECT_EQ(Proxy->EdGetLineHeight(), 16);
  Editor().PublishedClientHeight = 509;
  EXPECT_EQ(Proxy->EdGetLineHeight(), 16);
}

TEST_F(QVEditorGeometry, LineHeightOfASingleLineIsADivisionByZero) {
  Editor().LinesInWindow = 1;
  EXPECT_THROW(Proxy->EdGetLineHeight(), platform::EDivByZero);
  EXPECT_THROW(Proxy->CursorToPixel(TOTAEditPos{1, 1}, TQVCellEdge::Top), platform::EDivByZero);
}

TEST_F(QVEditorGeometry, ColumnWidthSpreadsTheTextAreaOverTheColumns) {
  EXPECT_EQ(Proxy->EdGetColWidth(), 9);
  Editor().Width += 39;
  EXPECT_EQ(Proxy->EdGetColWidth(), 9);
}

TEST_F(QVEditorGeometry, ColumnWidthOfNoColumnsIsADivisionByZero) {
  View->ViewSize = {0, 30};
  EXPECT_THROW(Proxy->EdGetColWidth(), platform::EDivByZero);
}

TEST_F(QVEditorGeometry, WhatNeedsAViewAssertsIt) {
  Services->TopView = nullptr;
  EXPECT_EQ(AssertionOf([this] { Proxy->EdGetColWidth(); }).Unit(), "QVEditorProxy");
  EXPECT_EQ(AssertionOf([this] { Proxy->CursorToPixel(TOTAEditPos{1, 1}, TQVCellEdge::Top); }).Unit(), "QVEditorProxy");
  EXPECT_EQ(AssertionOf([this] { Proxy->CursorToPixel(TOTACharPos{0, 1}, TQVCellEdge::Top); }).Unit(), "QVEditorProxy");
  EXPECT_EQ(AssertionOf([this] { Proxy->LinearPos(); }).Unit(), "QVEditorProxy");
}

struct Place {
  const char* Name;
  TOTAEditPos Position;
  TOTAEditPos TopLeft;
  TQVCellEdge Edge;
  QPoint Pixel;
};

class QVEditorGeometryPixels : public QVEditorGeometry, public testing::WithParamInterface<Place> {};
INSTANTIATE_TEST_SUITE_P(
    Places, QVEditorGeometryPixels,
    testing::Values(Place{"FirstCellScrolledFullyLeft", {1, 1}, {1, 1}, TQVCellEdge::Top, {24, 0}},
                    Place{"BottomOfTheFirstCell", {1, 1}, {1, 1}, TQVCellEdge::Bottom, {24, 16}},
                    Place{"CellInTheMiddle", {4, 3}, {1, 1}, TQVCellEdge::Top, {24 + 27, 32}},
                    Place{"LeftmostColumnOfAScrolledView", {5, 1}, {5, 1}, TQVCellEdge::Top, {24, 0}},
                    Place{"ColumnLeftOfItInTheGutter", {4, 1}, {5, 1}, TQVCellEdge::Top, {15, 0}},
                    Place{"LineAboveTheTopLine", {1, 7}, {1, 10}, TQVCellEdge::Top, {24, -48}},
                    Place{"BottomOfALineAboveTheTopLine", {1, 7}, {1, 10}, TQVCellEdge::Bottom, {24, -32}},
                    Place{"LineBeyondSixteenBits", {1, 100'000}, {1, 99'999}, TQVCellEdge::Top, {24, 16}}),
    [](const auto& place) { return std::string(place.param.Name); });

TEST_P(QVEditorGeometryPixels, CellsStandSideBySideFromTheGutterOn) {
  View->TopPos = GetParam().TopLeft;
  Editor().TopLine = GetParam().TopLeft.Line;
  EXPECT_EQ(Proxy->CursorToPixel(GetParam().Position, GetParam().Edge), GetParam().Pixel);
}

TEST_F(QVEditorGeometry, CharacterPositionsStandWhereTheHostExpandsTheTabs) {
  Buffer->Text = "\tx(\r\n";
  EXPECT_EQ(Proxy->CursorToPixel(TOTACharPos{0, 1}, TQVCellEdge::Top), QPoint(24, 0));
  EXPECT_EQ(Proxy->CursorToPixel(TOTACharPos{1, 1}, TQVCellEdge::Top), QPoint(24 + 8 * 9, 0));
  EXPECT_EQ(Proxy->CursorToPixel(TOTACharPos{2, 1}, TQVCellEdge::Bottom), QPoint(24 + 9 * 9, 16));
}

TEST_F(QVEditorGeometry, LinearPositionIsTheCaretsIndexInTheText) {
  Buffer->Text = "unit a;\r\n\tx := 1;\r\n";
  View->Cursor = {1, 1};
  EXPECT_EQ(Proxy->LinearPos(), 0);
  View->Cursor = {9, 2};
  EXPECT_EQ(Proxy->LinearPos(), 10);
  EXPECT_EQ(Buffer->Text.at(10), 'x');
}

} // namespace
} // namespace quorvane
