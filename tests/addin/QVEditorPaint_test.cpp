// SPDX-License-Identifier: MIT
#include "AddinFixture.h"
#include "editor/QVMarkerStack.h"
#include "platform/Errors.h"

#include <numeric>

namespace quorvane {
namespace {

using platform::TOTACharPos;
using platform::TOTAEditPos;

const Lines kDrawn{"Drawing Parens"};

struct Cell {
  int Column;
  int Row;
};

class QVEditorPaint : public ProxyTest {
protected:
  ~QVEditorPaint() override { QVMarkerStackManager = nullptr; }

  // The picture of the host with the ground of some cells in `color`.
  QImage HostWithMarks(std::initializer_list<Cell> cells, platform::TColor color) {
    QImage picture = PictureOfTheHost();
    const qreal ratio = picture.devicePixelRatio();
    const QSize size = Editor().CellSize();
    const auto edge = [ratio](int logical) { return qRound(logical * ratio); };
    const QRgb fill = platform::ToQColor(color, {}, {}).rgb();
    for (const Cell& cell : cells) {
      const int left = Buffer->LeftGutterWidth + (cell.Column - 1) * size.width();
      const int top = (cell.Row - 1) * size.height();
      for (int y = edge(top); y < edge(top + size.height()); ++y) {
        for (int x = edge(left); x < edge(left + size.width()); ++x) {
          if (picture.pixelColor(x, y) == QColor(Qt::white))
            picture.setPixel(x, y, fill);
        }
      }
    }
    return picture;
  }

  // The lines that a paint logs about marks.
  Lines MarksLogged() {
    Editor().Send(platform::WM_PAINT);
    Lines lines = LogForm.Take();
    std::erase(lines, "Editor: WM_PAINT");
    return lines;
  }
};

// When there is a pass.

TEST_F(QVEditorPaint, HostPaintsFirstAndTheMarksGoOnTop) {
  Show("f(a);", 20, 5, 0);
  PutCaret(2, 1);
  QImage atHostPaint;
  Editor().OnMessage = [&](platform::TMessage&) {
    EXPECT_EQ(Passes(), 0U);
    Editor().Canvas().Brush.Color = platform::clWhite;
    Editor().Canvas().FillRect({0, 0, Editor().Width, Editor().PublishedClientHeight});
    atHostPaint = Editor().Picture().copy();
  };
  Editor().Send(platform::WM_PAINT);
  EXPECT_EQ(Passes(), 1U);
  EXPECT_NE(Editor().Picture(), atHostPaint);
}

TEST_F(QVEditorPaint, FileThatIsNotPascalIsPaintedByTheHostAlone) {
  OptLinesInGutter = true;
  for (const char* name : {"package.dpk", "defs.inc", "unit1.dfm", "notes.txt"}) {
    Buffer->FileName = QLatin1String(name);
    Show("f(a);", 20, 5, 30);
    PutCaret(2, 1);
    EXPECT_EQ(PictureAfterPaint(), PictureOfTheHost()) << name;
    PressHotKey();
    EXPECT_EQ(Editor().Picture(), PictureOfTheHost()) << name;
  }
  EXPECT_EQ(Passes(), 0U);
}

TEST_F(QVEditorPaint, WindowWithoutTheTopViewIsPaintedByTheHostAlone) {
  Show("f(a);", 20, 5, 0);
  PutCaret(2, 1);
  fakes::TEditWindow other(QStringLiteral("EditWindow_1"));
  const QPointer<TQVEditorProxy> otherProxy = new TQVEditorProxy(&other);
  other.Editor().Send(platform::WM_PAINT);
  EXPECT_EQ(other.Editor().TakeReceived(), std::vector<unsigned>{platform::WM_PAINT});
  EXPECT_EQ(Passes(), 0U);
  Editor().Send(platform::WM_PAINT);
  EXPECT_EQ(Passes(), 1U);

  Services->TopView = std::make_shared<fakes::FakeView>(Buffer, &other);
  EXPECT_EQ(PictureAfterPaint(), PictureOfTheHost());
  EXPECT_EQ(Passes(), 1U);
  other.Editor().Send(platform::WM_PAINT);
  EXPECT_EQ(Passes(), 2U);
}

TEST_F(QVEditorPaint, WithoutATopViewTheHostPaintsAlone) {
  Services->TopView = nullptr;
  Editor().Send(platform::WM_PAINT);
  PressHotKey();
  EXPECT_EQ(Editor().TakeReceived(), std::vector<unsigned>{platform::WM_PAINT});
  EXPECT_EQ(Passes(), 0U);
}

TEST_F(QVEditorPaint, HotKeyPaintsWithoutTellingTheHost) {
  OptMarkerLive = false;
  Show("f(a);", 20, 5, 0);
  PutCaret(2, 1);
  Editor().Send(platform::WM_PAINT);
  const QImage marked = HostWithMarks({{2, 1}, {4, 1}}, OptParenMatchColor);
  EXPECT_NE(Editor().Picture(), marked);
  Editor().TakeReceived();

  PressHotKey();

  EXPECT_EQ(Editor().TakeReceived(), std::vector<unsigned>{});
  EXPECT_EQ(Editor().Picture(), marked);
}

TEST_F(QVEditorPaint, HotKeyPressedTwicePaintsOnce) {
  OptMarkerLive = false;
  PressHotKey();
  PressHotKey();
  EXPECT_EQ(Passes(), 1U);
}

TEST_F(QVEditorPaint, MarksOnDemandGoWithTheNextScroll) {
  OptMarkerLive = false;
  Show("f(a);", 20, 5, 0);
  PutCaret(2, 1);
  Editor().Send(platform::WM_PAINT);
  const QImage host = Editor().Picture().copy();
  PressHotKey();
  EXPECT_NE(Editor().Picture(), host);
  Editor().Send(platform::WM_VSCROLL);
  EXPECT_EQ(Editor().Picture(), host);
}

TEST_F(QVEditorPaint, PaintThatComesWhileDrawingOnDemandLeavesTheMarksInPlace) {
  Show("f((a));", 20, 5, 0);
  PutCaret(2, 1);
  const QImage marked = HostWithMarks({{2, 1}, {6, 1}}, OptParenMatchColor);
  for (const bool live : {false, true}) {
    OptMarkerLive = live;
    Editor().Send(platform::WM_PAINT);
    bool pending = true;
    Editor().OnBeginDrawing = [this, &pending] {
      if (std::exchange(pending, false))
        Editor().Send(platform::WM_PAINT);
    };
    PressHotKey();
    Editor().OnBeginDrawing = nullptr;
    EXPECT_FALSE(pending);
    EXPECT_EQ(Editor().Picture(), marked) << "live: " << live;
  }
}

// The buffer.

TEST_F(QVEditorPaint, BufferOfExactlyOneChunkNeedsASecondEmptyRead) {
  Buffer->Text = std::string(32764, ' ') + "(a)";
  PutCaret(32765, 1);
  Editor().Send(platform::WM_PAINT);
  EXPECT_EQ(Buffer->Requests, (std::vector<fakes::ReadRequest>{{0, 32767, 32767}, {32767, 32767, 0}}));
  EXPECT_EQ(LogForm.Take().back(), kDrawn.front());
}

TEST_F(QVEditorPaint, BracketsBeyondTheFirstChunkAreFound) {
  Buffer->Text = std::string(20'000, '\n') + std::string(20'000, ' ') + "(a)";
  PutCaret(20'001, 20'001);
  EXPECT_EQ(MarksLogged(), kDrawn);
  EXPECT_EQ(Buffer->Requests.size(), 2U);
}

TEST_F(QVEditorPaint, EveryPassReadsTheBufferAnew) {
  Show("f(a);", 20, 5, 0);
  PutCaret(2, 1);
  EXPECT_EQ(MarksLogged(), kDrawn);
  Buffer->Text = "f a ;";
  EXPECT_EQ(MarksLogged(), Lines{});
}

TEST_F(QVEditorPaint, ErrorOfTheReaderPassesThroughAfterTheHostHasPainted) {
  Buffer->ReadError = std::make_exception_ptr(platform::EViewClosed());
  EXPECT_THROW(Editor().Send(platform::WM_PAINT), platform::EViewClosed);
  EXPECT_EQ(Editor().TakeReceived(), std::vector<unsigned>{platform::WM_PAINT});
}

TEST_F(QVEditorPaint, ErrorWhileParsingIsSwallowedAndThePassGoesOn) {
  OptLinesInGutter = true;
  Show("f(a);\n", 20, 5, 40);
  PutCaret(2, 1);
  View->ViewSize = {0, 5};
  EXPECT_NO_THROW(Editor().Send(platform::WM_PAINT));
  EXPECT_EQ(LogForm.Take().back(), kDrawn.front());
  QImage gutter = Editor().Pixels({0, 0, 40, 20});
  const QImage drawn = gutter;
  gutter.fill(Qt::white);
  EXPECT_NE(drawn, gutter) << "the line numbers are missing";
}

TEST_F(QVEditorPaint, PassAfterASwallowedErrorIsWhole) {
  Show("f(a);", 20, 5, 0);
  PutCaret(2, 1);
  View->ViewSize = {0, 5};
  Editor().Send(platform::WM_PAINT);
  View->ViewSize = {20, 5};
  const QImage marked = HostWithMarks({{2, 1}, {4, 1}}, OptParenMatchColor);
  EXPECT_EQ(PictureAfterPaint(), marked);
}

// The bracket pair.

struct CaretCase {
  const char* Name;
  const char* Text;
  Cell Caret;
  std::size_t Pairs; // how many pairs are drawn
};

class QVEditorPaintCaret : public QVEditorPaint, public testing::WithParamInterface<CaretCase> {};
INSTANTIATE_TEST_SUITE_P(
    Carets, QVEditorPaintCaret,
    testing::Values(CaretCase{"JustBeforeTheOpening", "f(a);", {2, 1}, 1}, CaretCase{"InFrontOfIt", "f(a);", {1, 1}, 0},
                    CaretCase{"JustAfterTheOpening", "f(a);", {3, 1}, 0},
                    CaretCase{"JustBeforeTheClosing", "f(a);", {4, 1}, 0},
                    CaretCase{"JustAfterTheClosing", "f(a);", {5, 1}, 1}, CaretCase{"OneFartherOn", "f(a);", {6, 1}, 0},
                    CaretCase{"OnAnotherLine", "f(a);\n\n", {2, 2}, 0},
                    CaretCase{"BetweenTheBracketsOfAnEmptyPair", "f();", {3, 1}, 0},
                    CaretCase{"BeforeTwoOpeningOnes", "f((a));", {2, 1}, 1},
                    CaretCase{"AfterTwoClosingOnes", "f((a)) ;", {7, 1}, 1},
                    CaretCase{"BetweenAdjacentPairsTheOnlyOneReported", "(a)(b)", {4, 1}, 1},
                    CaretCase{"ClosingAtTheEndOfALaterLine", "f(a,\r\n  b)", {5, 2}, 1},
                    CaretCase{"OpeningOnAnEarlierLine", "f(a,\r\n  b)", {2, 1}, 1},
                    CaretCase{"UnmatchedOpening", "f(a;", {2, 1}, 0}, CaretCase{"UnmatchedClosing", "f a);", {5, 1}, 0},
                    CaretCase{"InAString", "s := '(a)';", {7, 1}, 0}, CaretCase{"InAComment", "{ (a) }", {3, 1}, 0},
                    // The screen column is compared with the index in the line, tabs or not.
                    CaretCase{"BehindATabAtItsIndex", "\tf(a);", {3, 1}, 1},
                    CaretCase{"BehindATabOnItsCell", "\tf(a);", {10, 1}, 0}),
    [](const auto& caret) { return std::string(caret.param.Name); });

TEST_P(QVEditorPaintCaret, TouchesAPairJustBeforeItsOpeningAndJustAfterItsClosingBracket) {
  Show(GetParam().Text, 20, 5, 0);
  PutCaret(GetParam().Caret.Column, GetParam().Caret.Row);
  EXPECT_EQ(MarksLogged().size(), GetParam().Pairs);
}

TEST_F(QVEditorPaint, CaretBeyondSixteenBitsIsComparedAsItIsNarrowed) {
  Show(std::string(4, '\n') + "f(a);", 20, 5, 0);
  PutCaret(2, 5 + 65'536);
  EXPECT_EQ(MarksLogged(), kDrawn);
  PutCaret(2 + 65'536, 5);
  EXPECT_EQ(MarksLogged(), kDrawn);
}

TEST_F(QVEditorPaint, LinesBeyondSixteenBitsAreNotTouched) {
  Show(std::string(39'999, '\n') + "f(a);", 20, 5, 0);
  PutCaret(2, 40'000);
  EXPECT_EQ(MarksLogged(), Lines{});
}

TEST_F(QVEditorPaint, NothingIsColouredNorLoggedWithoutTheOption) {
  OptMarkParens = false;
  Show("f(a);", 20, 5, 0);
  PutCaret(2, 1);
  const QImage host = PictureOfTheHost();
  EXPECT_EQ(PictureAfterPaint(), host);
  LogForm.Take();
  EXPECT_EQ(MarksLogged(), Lines{});
}

class QVEditorPaintAtRatio : public QVEditorPaint, public testing::WithParamInterface<qreal> {};
INSTANTIATE_TEST_SUITE_P(Ratios, QVEditorPaintAtRatio, testing::Values(1.0, 1.5, 2.0));

TEST_P(QVEditorPaintAtRatio, BothCellsOfThePairAreColouredAndNothingElse) {
  Show("begin\r\n  f(a, b);\r\nend.", 20, 5, 30, GetParam());
  PutCaret(4, 2);
  const QImage marked = HostWithMarks({{4, 2}, {9, 2}}, OptParenMatchColor);
  EXPECT_EQ(PictureAfterPaint(), marked);
  PutCaret(10, 2);
  EXPECT_EQ(PictureAfterPaint(), marked);
  PutCaret(6, 2);
  EXPECT_EQ(PictureAfterPaint(), HostWithMarks({}, 0));
}

TEST_P(QVEditorPaintAtRatio, PairOverTwoLinesIsColouredOnBoth) {
  OptParenMatchColor = 0x3399FF;
  Show("f(a,\r\n  b)", 20, 5, 0, GetParam());
  PutCaret(5, 2);
  const QImage marked = HostWithMarks({{2, 1}, {4, 2}}, OptParenMatchColor);
  EXPECT_EQ(PictureAfterPaint(), marked);
}

TEST_F(QVEditorPaint, MarksBehindATabGoToTheCellsThatTheHostShows) {
  Show("\tf(a);", 20, 5, 0);
  PutCaret(3, 1);
  const QImage marked = HostWithMarks({{10, 1}, {12, 1}}, OptParenMatchColor);
  EXPECT_EQ(PictureAfterPaint(), marked);
}

TEST_F(QVEditorPaint, MarksFollowTheScrolledView) {
  Show("\n\n\nf(a);", 20, 5, 0);
  Editor().TopLine = 3;
  View->TopPos = {2, 3};
  PutCaret(2, 4);
  const QImage marked = HostWithMarks({{1, 2}, {3, 2}}, OptParenMatchColor);
  EXPECT_EQ(PictureAfterPaint(), marked);
}

TEST_F(QVEditorPaint, CanvasOverrideGetsTheMarksInsteadOfTheControl) {
  Show("f(a);", 20, 5, 0);
  PutCaret(2, 1);
  const QImage host = PictureOfTheHost();
  platform::TBitmap other(Editor().Width, Editor().PublishedClientHeight, Editor().Canvas());
  Proxy->CanvasOverride = &other.Canvas();
  EXPECT_EQ(PictureAfterPaint(), host);
  Proxy->CanvasOverride = nullptr;
  const QRect whole(0, 0, Editor().Width, Editor().PublishedClientHeight);
  Editor().Canvas().CopyRect(whole, other.Canvas(), whole);
  EXPECT_EQ(platform::ToTColor(Editor().Cell(2, 1).pixelColor(0, 0)), OptParenMatchColor);
  EXPECT_EQ(platform::ToTColor(Editor().Cell(4, 1).pixelColor(0, 0)), OptParenMatchColor);
}

// Of nested pairs only the one whose opening bracket is right of the caret, or whose closing bracket is left of it.
TEST_F(QVEditorPaint, OfNestedPairsOnlyTheOneAtTheCaretIsMarked) {
  Show("f((a)) ;", 20, 5, 0);
  const Cell outer[] = {{2, 1}, {6, 1}};
  const Cell inner[] = {{3, 1}, {5, 1}};
  const QImage outerMarked = HostWithMarks({outer[0], outer[1]}, OptParenMatchColor);
  const QImage innerMarked = HostWithMarks({inner[0], inner[1]}, OptParenMatchColor);
  PutCaret(2, 1);
  EXPECT_EQ(PictureAfterPaint(), outerMarked) << "before two opening ones";
  PutCaret(3, 1);
  EXPECT_EQ(PictureAfterPaint(), innerMarked) << "between the opening ones";
  PutCaret(6, 1);
  EXPECT_EQ(PictureAfterPaint(), innerMarked) << "between the closing ones";
  PutCaret(7, 1);
  EXPECT_EQ(PictureAfterPaint(), outerMarked) << "after two closing ones";
}

TEST_F(QVEditorPaint, TabsAndTrailingBlanksShowAFullCell) {
  Show("a\tb  ", 30, 5, 0);
  for (const int index : {1, 3, 4}) {
    const TOTACharPos position{static_cast<std::int16_t>(index), 1};
    TOTAEditPos cell;
    TOTACharPos character = position;
    View->ConvertPos(false, cell, character);
    (void)PictureAfterPaint();
    Proxy->DrawCursorBlockAt(position, 1, TQVCellColor::Paren);
    QImage full = Editor().Cell(cell.Col, 1);
    full.fill(platform::ToQColor(OptParenMatchColor, {}, {}).rgb());
    EXPECT_EQ(Editor().Cell(cell.Col, 1), full) << "character " << index;
  }
}

TEST_F(QVEditorPaint, BlocksAreNotPaintedWhateverTheirOptions) {
  OptMarkBlocks = true;
  OptMarkAllBlocks = true;
  OptBlockBrackets = true;
  OptUnevenBrackets = true;
  OptLineWidth = 9;
  Show("begin\r\n  if a then b else c;\r\nend.", 30, 5, 0);
  PutCaret(1, 1);
  EXPECT_EQ(PictureAfterPaint(), PictureOfTheHost());
}

// The cell highlight by itself.

TEST_F(QVEditorPaint, CellsTakeTheBlockColourOfTheIndex) {
  Show("", 20, 5, 0);
  for (int index = 0; index < 6; ++index) {
    Proxy->BlockColorIndex = index;
    const QImage expected = HostWithMarks({{3, 2}, {4, 2}}, OptBlockHiliteColors[static_cast<std::size_t>(index % 4)]);
    Proxy->BlockColorIndex = index;
    Proxy->DrawCursorBlockAt(TOTAEditPos{3, 2}, 2, TQVCellColor::Block);
    EXPECT_EQ(Editor().Picture(), expected) << index;
  }
}

TEST_F(QVEditorPaint, EveryPassBeginsWithTheFirstBlockColour) {
  Proxy->BlockColorIndex = 3;
  Editor().Send(platform::WM_PAINT);
  EXPECT_EQ(Proxy->BlockColorIndex, 0);
}

TEST_F(QVEditorPaint, CellsAtACharacterPositionStandWhereTheHostShowsIt) {
  Show("\tx", 20, 5, 0);
  const QImage expected = HostWithMarks({{9, 1}}, OptParenMatchColor);
  Proxy->DrawCursorBlockAt(TOTACharPos{1, 1}, 1, TQVCellColor::Paren);
  EXPECT_EQ(Editor().Picture(), expected);
}

TEST_F(QVEditorPaint, CellsWithoutAControlAreAnAssertion) {
  Window->DropEditor();
  const auto assertion = AssertionOf([this] { Proxy->DrawCursorBlockAt(TOTAEditPos{1, 1}, 1, TQVCellColor::Paren); });
  EXPECT_EQ(assertion.Unit(), "QVEditorProxy");
}

// Markers.

class ListedMarkers : public IQVMarkerStack {
public:
  struct Request {
    QString FileName;
    int First;
    int Last;
  };
  mutable std::vector<Request> Requests;
  std::vector<std::array<int, 3>> Markers;
  void Push(const std::shared_ptr<platform::IOTAEditView>&) override {}
  void Pop() override {}
  void Enumerate(const QString& fileName, int first, int last, const TQVMarkerStackCallback& callback) const override {
    Requests.push_back({fileName, first, last});
    for (const auto& [row, col, count] : Markers)
      callback(row, col, count);
  }
  int Count() const override { return static_cast<int>(Markers.size()); }
  void ReverseTop(int) override {}
  void Resume(const std::shared_ptr<platform::IOTAEditView>&) override {}
};

class QVEditorPaintMarkers : public QVEditorPaint {
protected:
  QVEditorPaintMarkers() { QVMarkerStackManager = Stack; }

  // Writes a number as a marker's is to be, with its corner at a pixel, by hand, over the host's picture.
  QImage HostWithNumber(QPoint corner, int value) { return HostWithNumbers(corner, {value}); }
  QImage HostWithNumbers(QPoint corner, const std::vector<int>& values) {
    PictureOfTheHost();
    platform::TCanvas canvas = Editor().Canvas();
    canvas.Brush.Style = platform::bsClear;
    canvas.Font.Color = 0x008000;
    canvas.Font.Face.setPointSize(8);
    for (const int value : values)
      canvas.TextOut(corner.x(), corner.y(), QString::number(value));
    return Editor().Picture().copy();
  }

  std::shared_ptr<ListedMarkers> Stack = std::make_shared<ListedMarkers>();
};

TEST_F(QVEditorPaintMarkers, AreAskedForByFileAndVisibleLines) {
  Show("", 20, 5, 0);
  Editor().TopLine = 11;
  Editor().Send(platform::WM_PAINT);
  ASSERT_EQ(Stack->Requests.size(), 1U);
  EXPECT_EQ(Stack->Requests[0].FileName, Buffer->FileName);
  EXPECT_EQ(Stack->Requests[0].First, 11);
  EXPECT_EQ(Stack->Requests[0].Last, 11 + Editor().LinesInWindow);
}

TEST_F(QVEditorPaintMarkers, ShowTheirNumbersInThePass) {
  Show("begin\r\nend.", 20, 5, 30);
  const QSize cell = Editor().CellSize();
  const QImage expected =
      HostWithNumber({30 + 2 * cell.width() - cell.width() / 2, 2 * cell.height() - cell.height() / 2}, 7);
  Stack->Markers = {{2, 3, 7}};
  EXPECT_EQ(PictureAfterPaint(), expected);
}

TEST_F(QVEditorPaintMarkers, OnTheFirstLineAtColumnOneBeginHalfAColumnLeftOfTheText) {
  Show("begin", 20, 5, 30);
  const QSize cell = Editor().CellSize();
  const QImage expected = HostWithNumber({30 - cell.width() / 2, cell.height() - cell.height() / 2}, 1);
  EXPECT_NE(PictureOfTheHost(), expected);
  Proxy->PaintSubInteger(1, 1, 1);
  EXPECT_EQ(Editor().Picture(), expected);
}

TEST_F(QVEditorPaintMarkers, BehindATabStandWhereTheHostShowsTheCharacter) {
  Show("\tx", 20, 5, 0);
  const QSize cell = Editor().CellSize();
  const QImage expected = HostWithNumber({8 * cell.width() - cell.width() / 2, cell.height() - cell.height() / 2}, 12);
  PictureOfTheHost();
  Proxy->PaintSubInteger(1, 2, 12);
  EXPECT_EQ(Editor().Picture(), expected);
}

TEST_F(QVEditorPaintMarkers, TakeTheirColumnsAsCellsOfTheScreen) {
  Show("\tx", 20, 5, 0);
  const QSize cell = Editor().CellSize();
  const QImage expected = HostWithNumber({8 * cell.width() - cell.width() / 2, cell.height() - cell.height() / 2}, 3);
  Stack->Markers = {{1, 9, 3}};
  EXPECT_EQ(PictureAfterPaint(), expected);
}

TEST_F(QVEditorPaintMarkers, ShowNoNumberWhereTheTextHasNoLine) {
  Show("begin\r\nend.", 20, 5, 0);
  const QImage host = PictureOfTheHost();
  Stack->Markers = {{3, 1, 7}};
  EXPECT_EQ(PictureAfterPaint(), host);
}

TEST_F(QVEditorPaintMarkers, ShowNoNumberAtAColumnThatIsNoPosition) {
  Show("begin", 20, 5, 0);
  const QImage host = PictureOfTheHost();
  Stack->Markers = {{1, 65536 + 3, 7}};
  EXPECT_EQ(PictureAfterPaint(), host);
}

TEST_F(QVEditorPaintMarkers, ShowAllTheNumbersOfAFewAtOnePlaceTheLastOnTop) {
  Show("begin", 20, 5, 0);
  const QSize cell = Editor().CellSize();
  const QPoint corner(2 * cell.width() - cell.width() / 2, cell.height() - cell.height() / 2);
  const QImage expected = HostWithNumbers(corner, {1, 4, 7});
  Stack->Markers = {{1, 3, 1}, {1, 3, 4}, {1, 3, 7}};
  EXPECT_EQ(PictureAfterPaint(), expected);
}

// Of the first only bits can be made out between the digits of the others, but those can.
TEST_F(QVEditorPaintMarkers, ShowEveryNumberOfManyAtOnePlace) {
  Show("begin", 20, 5, 0);
  const QSize cell = Editor().CellSize();
  const QPoint corner(2 * cell.width() - cell.width() / 2, cell.height() - cell.height() / 2);
  std::vector<int> all(200);
  std::iota(all.begin(), all.end(), 1);
  const QImage expected = HostWithNumbers(corner, all);
  for (const int count : all)
    Stack->Markers.push_back({1, 3, count});
  EXPECT_EQ(PictureAfterPaint(), expected);
}

TEST_F(QVEditorPaintMarkers, ReachIntoTheViewFromWhatIsLeftOfIt) {
  Show(std::string(60, 'x'), 20, 5, 0);
  View->TopPos.Col = 11;
  const QSize cell = Editor().CellSize();
  const QImage expected =
      HostWithNumber({-2 * cell.width() - cell.width() / 2, cell.height() - cell.height() / 2}, 12345678);
  EXPECT_NE(PictureOfTheHost(), expected);
  Stack->Markers = {{1, 9, 12345678}};
  EXPECT_EQ(PictureAfterPaint(), expected);
}

// Line numbers in the host's gutter.

class QVEditorPaintLineNumbers : public QVEditorPaint {
protected:
  QVEditorPaintLineNumbers() { OptLinesInGutter = true; }

  // Whether anything is written in the gutter beside a line of the window, from 1.
  bool IsNumbered(int row) {
    const QSize cell = Editor().CellSize();
    const QImage pixels = Editor().Pixels({0, (row - 1) * cell.height(), Buffer->LeftGutterWidth, cell.height()});
    QImage white = pixels;
    white.fill(Qt::white);
    return pixels != white;
  }
};

TEST_F(QVEditorPaintLineNumbers, ArePaintedForTheLinesOfTheFileAndTheCaretsIsBold) {
  Show(std::string(9, '\n'), 20, 40, 40);
  PutCaret(1, 3);
  QImage expected;
  {
    PictureOfTheHost();
    platform::TCanvas canvas = Editor().Canvas();
    canvas.Brush.Style = platform::bsClear;
    canvas.Font.Color = OptLineNumberColor;
    for (int line = 1; line <= 10; ++line) {
      canvas.Font.Face = QFont(QStringLiteral("DejaVu Sans Mono"), 8);
      canvas.Font.Face.setBold(line == 3);
      const QString text = QString::number(line);
      canvas.TextOut(40 - canvas.TextWidth(text + u'A'), (line - 1) * Editor().CellSize().height(), text);
    }
    expected = Editor().Picture().copy();
  }
  EXPECT_EQ(PictureAfterPaint(), expected);
  for (int row = 1; row <= 40; ++row)
    EXPECT_EQ(IsNumbered(row), row <= 10) << row;
}

TEST_F(QVEditorPaintLineNumbers, CaretBeyondSixteenBitsIsNotBold) {
  Show(std::string(50'000, '\n'), 20, 5, 60);
  Editor().TopLine = 40'000;
  View->TopPos.Line = 40'000;
  PutCaret(1, 40'001);
  const QImage away = PictureAfterPaint();
  PutCaret(1, 1);
  EXPECT_EQ(PictureAfterPaint(), away);
}

TEST_F(QVEditorPaintLineNumbers, TakeTheHostsFontTwoPointsSmallerAndTheOptionsColour) {
  Show("\n", 20, 5, 60);
  PutCaret(1, 2);
  Services->Options->FontSize = 14;
  OptLineNumberColor = 0x0000FF;
  PictureOfTheHost();
  platform::TCanvas canvas = Editor().Canvas();
  canvas.Brush.Style = platform::bsClear;
  canvas.Font.Color = 0x0000FF;
  for (int line = 1; line <= 2; ++line) {
    canvas.Font.Face = QFont(QStringLiteral("DejaVu Sans Mono"), 12);
    canvas.Font.Face.setBold(line == 2);
    const QString text = QString::number(line);
    canvas.TextOut(60 - canvas.TextWidth(text + u'A'), (line - 1) * Editor().CellSize().height(), text);
  }
  const QImage expected = Editor().Picture().copy();
  EXPECT_EQ(PictureAfterPaint(), expected);
}

TEST_F(QVEditorPaintLineNumbers, AreLeftToTheSeparateGutterWhenSoConfigured) {
  Show("\n\n", 20, 5, 40);
  OptLinesInGutter = false;
  EXPECT_EQ(PictureAfterPaint(), PictureOfTheHost());
}

TEST_F(QVEditorPaintLineNumbers, AreNoneWithoutTheOption) {
  Show("\n\n", 20, 5, 40);
  OptShowLineNumbers = false;
  EXPECT_EQ(PictureAfterPaint(), PictureOfTheHost());
}

TEST_F(QVEditorPaintLineNumbers, AreWrittenOnceWhenAPaintComesWhileDrawingOnDemand) {
  Show("\n\n", 20, 5, 40);
  const QImage once = PictureAfterPaint();
  PictureOfTheHost();
  Editor().OnBeginDrawing = [this, pending = true]() mutable {
    if (std::exchange(pending, false))
      Editor().Send(platform::WM_PAINT);
  };
  PressHotKey();
  EXPECT_EQ(Editor().Picture(), once);
}

TEST_F(QVEditorPaintLineNumbers, WithoutAViewAreAnAssertion) {
  Services->TopView = nullptr;
  EXPECT_EQ(AssertionOf([this] { Proxy->PaintLineNumbers(Editor().Canvas()); }).Unit(), "QVEditorProxy");
}

TEST_F(QVEditorPaintLineNumbers, OfASingleLineWindowAreADivisionByZero) {
  Show("\n\n", 20, 5, 40);
  Editor().LinesInWindow = 1;
  EXPECT_THROW(Editor().Send(platform::WM_PAINT), platform::EDivByZero);
}

} // namespace
} // namespace quorvane
