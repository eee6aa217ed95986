// SPDX-License-Identifier: MIT
#include "desktop/ide/IdeFixture.h"

#include "platform/Message.h"

namespace desktop {
namespace {

using platform::TOTACharPos;
using platform::TOTAEditPos;

class PageViewTest : public IdeFixture {
protected:
  TOTACharPos toChar(std::int16_t column, std::int32_t line = 1) {
    TOTAEditPos editPos{column, line};
    TOTACharPos charPos;
    services->GetTopView()->ConvertPos(true, editPos, charPos);
    EXPECT_EQ(editPos, (TOTAEditPos{column, line})); // what is converted stays
    return charPos;
  }
  TOTAEditPos toEdit(std::int16_t index, std::int32_t line = 1) {
    TOTAEditPos editPos;
    TOTACharPos charPos{index, line};
    services->GetTopView()->ConvertPos(false, editPos, charPos);
    EXPECT_EQ(charPos, (TOTACharPos{index, line}));
    return editPos;
  }

  // A hundred lines of two hundred characters.
  static QByteArray field() { return (QByteArray(200, 'x') + '\n').repeated(100); }

  // A window in which 20 lines and 60 columns can be seen.
  void makeSmall() {
    const QSize cell = editor()->cellSize();
    const QSize wanted(editor()->gutterWidth() + 60 * cell.width(), 20 * cell.height());
    frame()->resize(frame()->size() + wanted - editor()->viewport()->size() - QSize(editor()->gutterWidth(), 0));
    ASSERT_TRUE(support::waitUntil([this] { return editor()->viewSize() == QSize(60, 20); }));
  }
  // Whether, in a small window, `line` is the last one that can be seen, or the last but one: the text widget takes a
  // line that touches the edge for one that is cut off.
  static bool isAtTheBottom(int line, platform::IOTAEditView& view) {
    const int row = line - view.GetTopPos().Line + 1;
    return view.GetLeftColumn() == 1 && (row == 20 || row == 19);
  }
};

TEST_F(PageViewTest, ConvertsColumnsToCharactersOneByOne) {
  open("abc");
  EXPECT_EQ(toChar(1), (TOTACharPos{0, 1}));
  EXPECT_EQ(toChar(3), (TOTACharPos{2, 1}));
  EXPECT_EQ(toEdit(0), (TOTAEditPos{1, 1}));
  EXPECT_EQ(toEdit(2), (TOTAEditPos{3, 1}));
}

TEST_F(PageViewTest, CountsEachCellBeyondTheLineEndAsACharacter) {
  open("\tabc\n");
  EXPECT_EQ(toChar(12), (TOTACharPos{4, 1}));
  EXPECT_EQ(toChar(20), (TOTACharPos{12, 1}));
  EXPECT_EQ(toEdit(12), (TOTAEditPos{20, 1}));
  EXPECT_EQ(toChar(5, 2), (TOTACharPos{4, 2}));
  EXPECT_EQ(toChar(5, 77), (TOTACharPos{4, 77}));
}

TEST_F(PageViewTest, ExpandsTabsToTheirStops) {
  open("a\tb\t\tc");
  EXPECT_EQ(toEdit(1), (TOTAEditPos{2, 1}));
  EXPECT_EQ(toEdit(2), (TOTAEditPos{9, 1}));
  EXPECT_EQ(toEdit(5), (TOTAEditPos{25, 1}));
  editor()->setTabWidth(4);
  EXPECT_EQ(toEdit(2), (TOTAEditPos{5, 1}));
  EXPECT_EQ(toEdit(5), (TOTAEditPos{13, 1}));
}

TEST_F(PageViewTest, CountsACellInsideATabAsTheTab) {
  open("a\tb");
  for (std::int16_t column = 2; column <= 8; ++column)
    EXPECT_EQ(toChar(column), (TOTACharPos{1, 1})) << column;
  EXPECT_EQ(toChar(9), (TOTACharPos{2, 1}));
}

TEST_F(PageViewTest, CountsASurrogatePairAsOneCharacter) {
  open("\xF0\x9F\x98\x80\xF0\x9F\x98\x80z");
  EXPECT_EQ(toEdit(1), (TOTAEditPos{2, 1}));
  EXPECT_EQ(toEdit(2), (TOTAEditPos{3, 1}));
  EXPECT_EQ(toChar(3), (TOTACharPos{2, 1}));
  EXPECT_EQ(services->GetTopView()->CharPosToPos({2, 1}), 2);
}

TEST_F(PageViewTest, GivesTheCursorAsScreenColumnFromOne) {
  const auto view = open("one\n\t\xF0\x9F\x98\x80x");
  EXPECT_EQ(view->GetCursorPos(), (TOTAEditPos{1, 1}));
  editor()->setCaret(2, 10);
  EXPECT_EQ(view->GetCursorPos(), (TOTAEditPos{10, 2}));
  EXPECT_EQ(view->GetPosition()->GetRow(), 2);
  EXPECT_EQ(view->GetPosition()->GetColumn(), 10);
}

TEST_F(PageViewTest, MovesTheCursorWithoutScrolling) {
  const auto view = open(field());
  makeSmall();
  view->SetCursorPos({150, 60});
  EXPECT_EQ(view->GetCursorPos(), (TOTAEditPos{150, 60}));
  EXPECT_EQ(view->GetTopPos(), (TOTAEditPos{1, 1}));
  EXPECT_EQ(view->GetLeftColumn(), 1);
}

TEST_F(PageViewTest, ClipsTheCursorToTheText) {
  const auto view = open("abc\nde");
  view->SetCursorPos({99, 99});
  EXPECT_EQ(view->GetCursorPos(), (TOTAEditPos{3, 2}));
  view->SetCursorPos({-5, -5});
  EXPECT_EQ(view->GetCursorPos(), (TOTAEditPos{1, 1}));
}

TEST_F(PageViewTest, ScrollsToTheCursorOnRequest) {
  const auto view = open(field());
  makeSmall();
  view->SetCursorPos({150, 60});
  view->MoveViewToCursor();
  EXPECT_GT(view->GetTopPos().Line, 60 - 20);
  EXPECT_LE(view->GetTopPos().Line, 60);
  EXPECT_GT(view->GetLeftColumn(), 150 - 60);
  EXPECT_LE(view->GetLeftColumn(), 150);
}

TEST_F(PageViewTest, MovesAPositionIntoSight) {
  const auto view = open(field());
  makeSmall();
  view->GetPosition()->Move(80, 3);
  EXPECT_EQ(view->GetCursorPos(), (TOTAEditPos{3, 80}));
  EXPECT_LE(view->GetTopPos().Line, 80);
  EXPECT_GT(view->GetTopPos().Line, 80 - 20);
}

TEST_F(PageViewTest, GivesTheFirstVisibleCellAndTheSizeOfTheView) {
  const auto view = open(field());
  makeSmall();
  EXPECT_EQ(view->GetViewSize(), QSize(60, 20));
  editor()->setTopLine(12);
  editor()->setLeftColumn(5);
  EXPECT_EQ(view->GetTopPos(), (TOTAEditPos{5, 12}));
  EXPECT_EQ(view->GetLeftColumn(), 5);
}

TEST_F(PageViewTest, ScrollsAPlaceToTheTopLeftWithoutMovingTheCursor) {
  const auto view = open(field());
  makeSmall();
  view->SetTopLeft(40, 11);
  EXPECT_EQ(view->GetTopPos(), (TOTAEditPos{11, 40}));
  EXPECT_EQ(view->GetCursorPos(), (TOTAEditPos{1, 1}));
}

TEST_F(PageViewTest, ScrollsNoFurtherThanTheTextReaches) {
  const auto view = open(field());
  makeSmall();
  view->SetTopLeft(1000, 1);
  EXPECT_TRUE(isAtTheBottom(101, *view));
  view->SetTopLeft(-5, -5);
  EXPECT_EQ(view->GetTopPos(), (TOTAEditPos{1, 1}));
}

TEST_F(PageViewTest, ScrollsAPageBehindOthersToThePlaceWithWhichItComesBack) {
  const auto view = open(field());
  makeSmall();
  Page* const page = window()->currentPage();
  open("other", "other.pas");
  view->SetTopLeft(40, 11);
  EXPECT_EQ(view->GetTopPos(), (TOTAEditPos{11, 40}));
  window()->showPage(page);
  EXPECT_EQ(view->GetTopPos(), (TOTAEditPos{11, 40}));
}

TEST_F(PageViewTest, GoesToTheStartOfALineAndShowsIt) {
  const auto view = open(field());
  makeSmall();
  view->GetPosition()->Move(3, 9);
  view->GetPosition()->GotoLine(50);
  EXPECT_EQ(view->GetCursorPos(), (TOTAEditPos{1, 50}));
  EXPECT_TRUE(isAtTheBottom(50, *view));
}

TEST_F(PageViewTest, GoesToTheLastLineForOneBeyondTheText) {
  const auto view = open("a\nb");
  view->GetPosition()->GotoLine(10);
  EXPECT_EQ(view->GetCursorPos(), (TOTAEditPos{1, 2}));
  view->GetPosition()->GotoLine(0);
  EXPECT_EQ(view->GetCursorPos(), (TOTAEditPos{1, 1}));
}

TEST_F(PageViewTest, GoesBehindTheLastCharacterAndScrollsNoMoreThanNeeded) {
  const auto view = open(field() + "\tend");
  makeSmall();
  view->GetPosition()->MoveEOF();
  EXPECT_EQ(view->GetCursorPos(), (TOTAEditPos{12, 101}));
  EXPECT_TRUE(isAtTheBottom(101, *view));
}

TEST_F(PageViewTest, GoesToTheEndOfAPageBehindOthers) {
  const auto view = open("one\ntwo");
  open("other", "other.pas");
  view->GetPosition()->MoveEOF();
  EXPECT_EQ(view->GetCursorPos(), (TOTAEditPos{4, 2}));
}

TEST_F(PageViewTest, KeepsTheCursorOfAPageBehindOthers) {
  const auto behind = open(field(), "a.pas");
  makeSmall();
  behind->GetPosition()->Move(60, 150);
  const TOTAEditPos top = behind->GetTopPos();
  const auto front = open("short", "b.pas");
  EXPECT_EQ(behind->GetCursorPos(), (TOTAEditPos{150, 60}));
  EXPECT_EQ(behind->GetTopPos(), top);
  EXPECT_EQ(front->GetCursorPos(), (TOTAEditPos{1, 1}));
}

TEST_F(PageViewTest, MovesTheCursorOfAPageBehindOthers) {
  const auto behind = open(field(), "a.pas");
  makeSmall();
  open("short", "b.pas");
  behind->SetCursorPos({999, 60});
  EXPECT_EQ(behind->GetCursorPos(), (TOTAEditPos{201, 60}));
  EXPECT_EQ(behind->GetTopPos(), (TOTAEditPos{1, 1}));
  behind->MoveViewToCursor();
  const TOTAEditPos top = behind->GetTopPos();
  EXPECT_EQ(top, (TOTAEditPos{142, 41}));
  window()->showPage(window()->pages().constFirst());
  EXPECT_EQ(behind->GetCursorPos(), (TOTAEditPos{201, 60}));
  EXPECT_EQ(behind->GetTopPos(), top);
}

TEST_F(PageViewTest, CountsTwoBytesForEveryLineEnd) {
  const auto view = open("abc\nd\r\n\re");
  EXPECT_EQ(view->CharPosToPos({0, 1}), 0);
  EXPECT_EQ(view->CharPosToPos({3, 1}), 3);
  EXPECT_EQ(view->CharPosToPos({0, 2}), 5);
  EXPECT_EQ(view->CharPosToPos({0, 3}), 8);
  EXPECT_EQ(view->CharPosToPos({0, 4}), 10);
  EXPECT_EQ(view->CharPosToPos({1, 4}), 11);
}

TEST_F(PageViewTest, ClipsLinearPositionsToTheText) {
  const auto view = open("abc\nde");
  EXPECT_EQ(view->CharPosToPos({99, 1}), 3);
  EXPECT_EQ(view->CharPosToPos({-1, 2}), 5);
  EXPECT_EQ(view->CharPosToPos({1, 0}), 0);
  EXPECT_EQ(view->CharPosToPos({1, 3}), 7);
  EXPECT_EQ(view->PosToCharPos(-1), (TOTACharPos{0, 1}));
  EXPECT_EQ(view->PosToCharPos(99), (TOTACharPos{2, 2}));
}

TEST_F(PageViewTest, TakesBothBytesOfALineEndAsTheEndOfTheLine) {
  const auto view = open("abc\nde");
  EXPECT_EQ(view->PosToCharPos(3), (TOTACharPos{3, 1}));
  EXPECT_EQ(view->PosToCharPos(4), (TOTACharPos{3, 1}));
  EXPECT_EQ(view->PosToCharPos(5), (TOTACharPos{0, 2}));
}

TEST_F(PageViewTest, BringsLinearPositionsBack) {
  const auto view = open("a\tb\xF0\x9F\x98\x80\n\n\xC3\xA4x\n");
  const std::string text = textOf(*view->GetBuffer());
  for (int position = 0; position <= static_cast<int>(text.size()); ++position) {
    if (position > 0 && text[static_cast<std::size_t>(position) - 1] == '\r')
      continue; // inside a line end
    EXPECT_EQ(view->CharPosToPos(view->PosToCharPos(position)), position);
  }
}

// Counts the paint messages that come to the control.
class PaintCounter {
public:
  explicit PaintCounter(TEditControl& control) : control_(control), before_(control.WindowProc()) {
    control.SetWindowProc(platform::TWndMethod::Of<&PaintCounter::receive>(*this));
  }
  ~PaintCounter() { control_.SetWindowProc(before_); }
  PaintCounter(const PaintCounter&) = delete;
  PaintCounter& operator=(const PaintCounter&) = delete;

  void receive(platform::TMessage& message) {
    paints += message.Msg == platform::WM_PAINT;
    before_(message);
  }

  int paints = 0;

private:
  TEditControl& control_;
  platform::TWndMethod before_;
};

TEST_F(PageViewTest, PaintsAtOnce) {
  const auto view = open("abc");
  support::settle();
  const PaintCounter counter(*editor());
  view->Paint();
  EXPECT_EQ(counter.paints, 1);
}

TEST_F(PageViewTest, PaintsNothingForAPageBehindOthers) {
  const auto behind = open("abc", "a.pas");
  open("abc", "b.pas");
  support::settle();
  const PaintCounter counter(*editor());
  behind->Paint();
  EXPECT_EQ(counter.paints, 0);
}

} // namespace
} // namespace desktop
