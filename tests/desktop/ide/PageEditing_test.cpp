// SPDX-License-Identifier: MIT
// What add-ins type, and groups of it that are undone as one.
#include "desktop/ide/IdeFixture.h"

#include "platform/Errors.h"
#include "platform/Message.h"

#include <QTextBlock>

namespace desktop {
namespace {

using platform::TOTAEditPos;

class PageEditingTest : public IdeFixture {
protected:
  void openAt(const QByteArray& bytes, int row, int column) {
    view = open(bytes);
    ASSERT_NE(view, nullptr);
    buffer = view->GetBuffer();
    position = view->GetPosition();
    position->Move(row, column);
  }
  void typeIn(const char32_t* text) {
    for (; *text != 0; ++text)
      position->InsertCharacter(*text);
  }
  std::string text() const { return editor()->toPlainText().toStdString(); }
  std::pair<int, int> caret() const { return {position->GetRow(), position->GetColumn()}; }
  using At = std::pair<int, int>;

  std::shared_ptr<platform::IOTAEditView> view;
  std::shared_ptr<platform::IOTAEditBuffer> buffer;
  std::shared_ptr<platform::IOTAEditPosition> position;
};

TEST_F(PageEditingTest, TypesAtTheCaretAndMovesIt) {
  openAt("ac\n", 1, 2);
  typeIn(U"b\u20AC\U0001F600");
  EXPECT_EQ(text(), "ab\u20AC\U0001F600c\n");
  EXPECT_EQ(caret(), At(1, 5));
  EXPECT_EQ(editor()->caretColumn(), 5);
}

TEST_F(PageEditingTest, BeginsALineWithTheIndentationOfTheOneBefore) {
  openAt("  begin", 1, 8);
  typeIn(U"\rx");
  EXPECT_EQ(text(), "  begin\n  x");
  EXPECT_EQ(caret(), At(2, 4));
}

TEST_F(PageEditingTest, PutsATabAsTheKeyDoes) {
  openAt("a", 1, 2);
  typeIn(U"\t");
  EXPECT_EQ(text(), "a ");
}

TEST_F(PageEditingTest, TreatsASelectionAsTheKeysDo) {
  openAt("one\ntwo", 1, 1);
  select(0, 3);
  typeIn(U"1");
  EXPECT_EQ(text(), "1\ntwo");
  select(0, 5);
  typeIn(U"\t");
  EXPECT_EQ(text(), "  1\n  two");
  select(2, 9);
  position->BackspaceDelete(1);
  EXPECT_EQ(text(), "  ");
}

TEST_F(PageEditingTest, InsertsAlsoWhileTheUserOverwrites) {
  openAt("abc", 1, 1);
  editor()->setInsertMode(false);
  typeIn(U"x");
  EXPECT_EQ(text(), "xabc");
}

TEST_F(PageEditingTest, IgnoresWhatCannotBeTyped) {
  openAt("abc", 1, 2);
  for (const char32_t character : {U'\0', U'\n', U'\x1B', U'\x7F', char32_t(0xD800), char32_t(0x110000)})
    position->InsertCharacter(character);
  EXPECT_EQ(text(), "abc");
  EXPECT_FALSE(buffer->GetIsModified());
}

TEST_F(PageEditingTest, DeletesOneCharacterForEachBackspace) {
  openAt("a\n    b\U0001F600", 2, 7);
  position->BackspaceDelete(1);
  EXPECT_EQ(text(), "a\n    b") << "a character of two units is one";
  position->BackspaceDelete(2);
  EXPECT_EQ(text(), "a\n   ") << "indentation goes blank by blank";
  position->BackspaceDelete(4);
  EXPECT_EQ(text(), "a") << "a line end is one character";
  EXPECT_EQ(caret(), At(1, 2));
  position->BackspaceDelete(0);
  position->BackspaceDelete(-3);
  EXPECT_EQ(text(), "a");
  position->BackspaceDelete(1000);
  EXPECT_EQ(text(), "");
}

TEST_F(PageEditingTest, ChangesNoTextThatCanOnlyBeRead) {
  openAt(QByteArray("abc\xE2\x80\xA9") + "d", 1, 4); // a character that the document cannot hold
  ASSERT_TRUE(buffer->GetIsReadOnly());
  const std::string before = text();
  typeIn(U"x\r");
  position->BackspaceDelete(2);
  EXPECT_EQ(text(), before);
  EXPECT_EQ(caret(), At(1, 4));
  EXPECT_FALSE(buffer->GetIsModified());
}

TEST_F(PageEditingTest, TellsAWritableTextFromOneThatIsNot) {
  openAt("abc", 1, 1);
  EXPECT_FALSE(buffer->GetIsReadOnly());
}

TEST_F(PageEditingTest, SendsNoMessagesForWhatItTypes) {
  openAt("abc", 1, 1);
  std::vector<unsigned> sent;
  struct Recorder {
    std::vector<unsigned>& sent;
    platform::TWndMethod earlier;
    void Proc(platform::TMessage& message) {
      sent.push_back(message.Msg);
      earlier(message);
    }
  } recorder{sent, editor()->WindowProc()};
  editor()->SetWindowProc(platform::TWndMethod::Of<&Recorder::Proc>(recorder));
  typeIn(U"x\r");
  position->BackspaceDelete(1);
  editor()->SetWindowProc(recorder.earlier);
  for (const unsigned code : {platform::WM_CHAR, platform::WM_KEYDOWN, platform::CN_KEYDOWN})
    EXPECT_EQ(std::ranges::count(sent, code), 0) << code;
}

TEST_F(PageEditingTest, ScrollsToWhatItTypes) {
  openAt(QByteArray("x\n").repeated(300), 250, 1);
  editor()->setTopLine(1);
  typeIn(U"y");
  EXPECT_GT(view->GetTopPos().Line, 150);
}

TEST_F(PageEditingTest, TypesIntoAPageBehindOthers) {
  openAt("  one", 1, 6);
  openText(QStringLiteral("other.pas"), "other");
  typeIn(U"\rtwo");
  position->BackspaceDelete(1);
  EXPECT_EQ(textOf(*buffer), "  one\r\n  tw");
  EXPECT_EQ(caret(), At(2, 5));
  EXPECT_EQ(text(), "other");
  buffer->Show();
  EXPECT_EQ(editor()->caretRow(), 2);
  EXPECT_EQ(editor()->caretColumn(), 5);
}

TEST_F(PageEditingTest, UndoesAGroupInOneStep) {
  openAt("  beg", 1, 6);
  const std::string typed = "  begin\n  end;";
  {
    const auto group = buffer->BeginUndoGroup();
    position->BackspaceDelete(3);
    typeIn(U"begin\r");
    position->BackspaceDelete(1);
    typeIn(U" end;");
  }
  EXPECT_EQ(text(), typed);
  editor()->undo();
  EXPECT_EQ(text(), "  beg");
  editor()->redo();
  EXPECT_EQ(text(), typed);
  editor()->undo();
  editor()->undo();
  EXPECT_EQ(text(), "  beg") << "there is nothing else to undo";
}

TEST_F(PageEditingTest, KeepsAGroupApartFromTypingAroundIt) {
  openAt("", 1, 1);
  typeIn(U"ab");
  {
    const auto group = buffer->BeginUndoGroup();
    typeIn(U"c");
  }
  typeIn(U"d");
  EXPECT_EQ(text(), "abcd");
  editor()->undo();
  EXPECT_EQ(text(), "abc");
  editor()->undo();
  EXPECT_EQ(text(), "ab");
}

TEST_F(PageEditingTest, TakesGroupsInsideAGroupAsPartsOfIt) {
  openAt("", 1, 1);
  {
    const auto outer = buffer->BeginUndoGroup();
    typeIn(U"a");
    {
      const auto inner = buffer->BeginUndoGroup();
      typeIn(U"b");
    }
    typeIn(U"c");
  }
  editor()->undo();
  EXPECT_EQ(text(), "");
}

TEST_F(PageEditingTest, LeavesNothingToUndoAfterAGroupWithoutEdits) {
  openAt("x", 1, 1);
  typeIn(U"a");
  {
    const auto group = buffer->BeginUndoGroup();
    position->Move(1, 2);
  }
  editor()->undo();
  EXPECT_EQ(text(), "x");
}

TEST_F(PageEditingTest, AnswersInsideAGroupForTheTextAsItIs) {
  openAt("one\ntwo", 2, 4);
  (void)textOf(*buffer);
  const auto group = buffer->BeginUndoGroup();
  typeIn(U"\r\tx");
  EXPECT_EQ(caret(), At(3, 4));
  EXPECT_EQ(textOf(*buffer), "one\r\ntwo\r\n  x");
  EXPECT_EQ(view->GetCursorPos(), (TOTAEditPos{4, 3}));
  EXPECT_EQ(view->CharPosToPos({2, 3}), 12);
  EXPECT_EQ(view->PosToCharPos(12), (platform::TOTACharPos{2, 3}));
  position->BackspaceDelete(2);
  EXPECT_EQ(textOf(*buffer), "one\r\ntwo\r\n ");
  EXPECT_EQ(caret(), At(3, 2));
}

TEST_F(PageEditingTest, MovesTheCaretInsideAGroup) {
  openAt("one\ntwo", 1, 1);
  {
    const auto group = buffer->BeginUndoGroup();
    typeIn(U"a\r");
    position->Move(3, 2);
    EXPECT_EQ(caret(), At(3, 2));
    typeIn(U"b");
    position->Move(2, 3);
  }
  EXPECT_EQ(text(), "a\none\ntbwo");
  EXPECT_EQ(caret(), At(2, 3));
  EXPECT_EQ(editor()->caretRow(), 2);
  EXPECT_EQ(editor()->caretColumn(), 3);
}

TEST_F(PageEditingTest, ScrollsToTheCaretWhenAGroupEnds) {
  openAt(QByteArray("x\n").repeated(300), 1, 1);
  {
    const auto group = buffer->BeginUndoGroup();
    position->Move(250, 1);
    typeIn(U"y");
  }
  EXPECT_GT(view->GetTopPos().Line, 150);
}

TEST_F(PageEditingTest, GroupsEditsOfAPageBehindOthers) {
  openAt("one", 1, 4);
  Page* const first = window()->currentPage();
  openText(QStringLiteral("other.pas"), "other");
  {
    const auto group = buffer->BeginUndoGroup();
    typeIn(U"a\rb");
  }
  EXPECT_EQ(caret(), At(2, 2));
  first->document()->undo();
  EXPECT_EQ(textOf(*buffer), "one");
}

// Painting colours lines that are new, and the document then forgets what it has not yet reported.
TEST_F(PageEditingTest, KeepsTextAndColoursRightWhenAPaintIsAskedForInsideAGroup) {
  openAt("{ a }\nbegin end\nxyz\n", 3, 4);
  (void)textOf(*buffer);
  support::settle();
  {
    const auto group = buffer->BeginUndoGroup();
    position->Move(1, 3);
    position->BackspaceDelete(2);
    typeIn(U"  ");
    position->Move(2, 7);
    position->BackspaceDelete(1);
    typeIn(U"\r");
    view->Paint();
    position->Move(4, 4);
    position->BackspaceDelete(1);
    typeIn(U"Z");
    view->Paint();
  }
  EXPECT_EQ(textOf(*buffer), "  a }\r\nbegin\r\nend\r\nxyZ\r\n");
  support::settle();
  const auto formats = editor()->document()->firstBlock().layout()->formats();
  EXPECT_TRUE(std::ranges::none_of(formats, [](const auto& range) { return range.start == 0; }))
      << "the line is no comment any more";
}

TEST_F(PageEditingTest, PaintsOnceAfterAGroup) {
  openAt("abc", 1, 1);
  support::settle();
  int paints = 0;
  struct Counter {
    int& paints;
    platform::TWndMethod earlier;
    void Proc(platform::TMessage& message) {
      paints += message.Msg == platform::WM_PAINT ? 1 : 0;
      earlier(message);
    }
  } counter{paints, editor()->WindowProc()};
  editor()->SetWindowProc(platform::TWndMethod::Of<&Counter::Proc>(counter));
  {
    const auto group = buffer->BeginUndoGroup();
    typeIn(U"one\rtwo");
    view->Paint();
    support::settle();
    EXPECT_EQ(paints, 0);
  }
  support::settle();
  EXPECT_EQ(paints, 1);
  editor()->SetWindowProc(counter.earlier);
}

TEST_F(PageEditingTest, OutlivesThePageThatIsClosedInsideAGroup) {
  openAt("abc", 1, 1);
  openText(QStringLiteral("other.pas"), "other");
  auto group = buffer->BeginUndoGroup();
  typeIn(U"x");
  window()->closePage(window()->findPage(path(QStringLiteral("unit.pas"))));
  EXPECT_THROW(position->InsertCharacter(U'y'), platform::EViewClosed);
  EXPECT_THROW(position->BackspaceDelete(1), platform::EViewClosed);
  EXPECT_THROW((void)position->GetColumn(), platform::EViewClosed);
  EXPECT_THROW((void)buffer->BeginUndoGroup(), platform::EViewClosed);
  group.reset();
  EXPECT_EQ(text(), "other");
  type(QStringLiteral("x"));
  support::settle();
  EXPECT_EQ(text(), "xother");
}

TEST_F(PageEditingTest, RefusesAClosedPage) {
  openAt("abc", 1, 1);
  window()->closePage(window()->currentPage());
  EXPECT_THROW(position->InsertCharacter(U'y'), platform::EViewClosed);
  EXPECT_THROW(position->BackspaceDelete(1), platform::EViewClosed);
  EXPECT_THROW((void)buffer->BeginUndoGroup(), platform::EViewClosed);
  EXPECT_THROW((void)buffer->GetIsReadOnly(), platform::EViewClosed);
  EXPECT_THROW((void)buffer->GetEditLineTracker(), platform::EViewClosed);
  EXPECT_THROW(buffer->Show(), platform::EViewClosed);
}

TEST_F(PageEditingTest, KnowsTheColumnAfterEverythingThatAGroupDoes) {
  openAt("ab\tcd\n", 1, 1);
  const auto group = buffer->BeginUndoGroup();
  const auto expectColumn = [this](int column) {
    EXPECT_EQ(position->GetColumn(), column);
    EXPECT_EQ(position->GetColumn(), column) << "asked again";
  };
  expectColumn(1);
  typeIn(U"x\U0001F600");
  expectColumn(3);
  typeIn(U"\x1B");
  expectColumn(3);
  position->Move(1, 9);
  expectColumn(9);
  typeIn(U"y");
  expectColumn(10);
  typeIn(U"\t");
  expectColumn(11);
  position->BackspaceDelete(3);
  expectColumn(5); // the tab is gone
  typeIn(U"\r");
  expectColumn(1);
  EXPECT_EQ(textOf(*buffer), "x\xBF"
                             "ab\r\ncd\r\n");
}

TEST_F(PageEditingTest, CountsAnewAfterAGroupHasReplacedASelection) {
  openAt("abcd", 1, 1);
  select(1, 4);
  const auto group = buffer->BeginUndoGroup();
  EXPECT_EQ(position->GetColumn(), 5);
  typeIn(U"x");
  EXPECT_EQ(position->GetColumn(), 3);
}

TEST_F(PageEditingTest, TypesALongGroup) {
  openAt("", 1, 1);
  {
    const auto group = buffer->BeginUndoGroup();
    for (int line = 0; line < 2000; ++line)
      typeIn(U"  if Condition then Run(Something, Or, Another);\r");
  }
  EXPECT_EQ(editor()->document()->blockCount(), 2001);
  editor()->undo();
  EXPECT_EQ(text(), "");
}

} // namespace
} // namespace desktop
