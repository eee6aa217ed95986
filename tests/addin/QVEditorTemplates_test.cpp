// SPDX-License-Identifier: MIT
// Templates: the key, the text that is typed, the caret stops.
#include "editor/QVEditorProxy.h"

#include "editor/QVTemplateSource.h"
#include "host/QVStatManager.h"
#include "MarkerFixture.h"

#include <map>
#include <stdexcept>

namespace quorvane {
namespace {

using platform::TOTAEditPos;

// Templates by their lower-case names. It is the source of the process while it lives.
class TTemplates : public IQVTemplateSource {
public:
  TTemplates() { QVTemplateSource = this; }
  ~TTemplates() override { QVTemplateSource = nullptr; }

  std::map<QString, QString> Texts;
  bool Suitable = true; // whether the caret stands where templates may expand
  Lines Asked;          // the names of the texts asked for

  bool IsTemplateName(const QString& name) override { return Texts.contains(name.toLower()); }
  QString GetTemplateText(const QString& name, const std::shared_ptr<platform::IOTAEditView>& view) override {
    EXPECT_NE(view, nullptr);
    Asked.push_back(name.toStdString());
    const auto found = Texts.find(name);
    return found == Texts.end() || !Suitable ? QString() : found->second;
  }
};

class TStatClient : public IQVEditorStatClient {
public:
  std::u32string Typed;
  void CharTyped(char32_t character) override { Typed.push_back(character); }
};

class QVEditorTemplates : public MarkerTest {
protected:
  QVEditorTemplates() {
    Templates.Texts[QStringLiteral("beg")] = QStringLiteral("begin|\rend;");
    Templates.Texts[QStringLiteral("two")] = QStringLiteral("for | := | do");
    Templates.Texts[QStringLiteral("plain")] = QStringLiteral("writeln");
  }
  ~QVEditorTemplates() override { QVEditorStatClient = nullptr; }

  // The text up to "^", where the caret is, and behind it.
  void Put(const std::string& text) {
    const std::size_t caret = text.find('^');
    Buffer->Text = text.substr(0, caret) + text.substr(caret + 1);
    platform::TOTACharPos character = View->PosToCharPos(static_cast<std::int32_t>(caret));
    View->ConvertPos(false, View->Cursor, character);
  }
  // The text with the caret in it.
  std::string Text() const {
    TOTAEditPos cell = View->Cursor;
    platform::TOTACharPos character;
    View->ConvertPos(true, cell, character);
    std::string text = Buffer->Text;
    return text.insert(static_cast<std::size_t>(View->CharPosToPos(character)), "^");
  }

  // Types a character as the host does, which by itself puts it into the text.
  void Type(char32_t character) {
    Editor().LineText = QString::fromLatin1(Buffer->Line(View->Cursor.Line));
    TOTAEditPos cell = View->Cursor;
    platform::TOTACharPos at;
    View->ConvertPos(true, cell, at);
    Editor().CharXIndex = at.CharIndex;
    Editor().OnMessage = [this](platform::TMessage& message) {
      if (message.Msg == platform::WM_CHAR)
        View->GetPosition()->InsertCharacter(static_cast<char32_t>(message.WParam));
    };
    Editor().Send(platform::WM_CHAR, character);
  }

  TTemplates Templates;
};

// The key.

TEST_F(QVEditorTemplates, TheNameAndTheKeyGiveTheTextWithTheCaretAtItsFirstStop) {
  Put("x\r\nbeg^");
  Type(U' ');
  EXPECT_EQ(Text(), "x\r\nbegin^\r\nend;");
}

TEST_F(QVEditorTemplates, TheKeyExpandsANameInAnyCase) {
  Put("BEG^");
  Type(U' ');
  EXPECT_EQ(Text(), "begin^\r\nend;");
  EXPECT_EQ(Templates.Asked, Lines{"beg"});
}

TEST_F(QVEditorTemplates, TheKeyExpandsTheNameBehindAnythingThatBelongsToNoName) {
  for (const std::string before : {"(", "\t", "+", "\xE4", "x ", "1;"}) {
    Put(before + "plain^)");
    Type(U' ');
    EXPECT_EQ(Text(), before + "writeln^)");
  }
}

struct OrdinaryRow {
  const char* Name;
  const char* Before;
};

class QVEditorOrdinaryKey : public QVEditorTemplates, public testing::WithParamInterface<OrdinaryRow> {};
INSTANTIATE_TEST_SUITE_P(Behind, QVEditorOrdinaryKey,
                         testing::Values(OrdinaryRow{"Nothing", "^"}, OrdinaryRow{"ABlank", "beg ^"},
                                         OrdinaryRow{"ALongerName", "xbeg^"}, OrdinaryRow{"AnUnderscore", "_beg^"},
                                         OrdinaryRow{"ADigit", "1beg^"}, OrdinaryRow{"AnUnknownName", "begi^"},
                                         OrdinaryRow{"TheStartOfAName", "be^g"}, OrdinaryRow{"ALineEnd", "beg\r\n^"}),
                         [](const auto& row) { return std::string(row.param.Name); });

TEST_P(QVEditorOrdinaryKey, IsTypedAsUsual) {
  Put(GetParam().Before);
  std::string expected = Text();
  expected.insert(expected.find('^'), " ");
  Type(U' ');
  EXPECT_EQ(Text(), expected);
  EXPECT_EQ(Buffer->GroupsOpened, 0);
}

TEST_F(QVEditorTemplates, OnlyTheKeyExpands) {
  Put("beg^");
  Type(U';');
  EXPECT_EQ(Text(), "beg;^");
  EXPECT_TRUE(Templates.Asked.empty());
}

TEST_F(QVEditorTemplates, AnotherKeyMayBeChosen) {
  OptTemplateKey = '\xA7';
  Put("beg^");
  Type(U' ');
  EXPECT_EQ(Text(), "beg ^");
  Put("beg^");
  Type(U'\xA7');
  EXPECT_EQ(Text(), "begin^\r\nend;");
}

TEST_F(QVEditorTemplates, TheKeyIsOrdinaryWhileTemplatesAreOff) {
  OptEnableTemplates = false;
  Put("beg^");
  Type(U' ');
  EXPECT_EQ(Text(), "beg ^");
  EXPECT_TRUE(Templates.Asked.empty());
}

TEST_F(QVEditorTemplates, TheKeyIsOrdinaryWhereNoTemplateMayExpand) {
  Templates.Suitable = false; // as in a comment or a string
  Put("beg^");
  Type(U' ');
  EXPECT_EQ(Text(), "beg ^");
}

TEST_F(QVEditorTemplates, TheKeyIsOrdinaryWithASelection) {
  Editor().BlockBegin = (1 << 16) | 1;
  Editor().BlockAfter = (1 << 16) | 3;
  Put("beg^");
  Type(U' ');
  EXPECT_EQ(Text(), "beg ^");
}

TEST_F(QVEditorTemplates, TheKeyIsOrdinaryInAWindowThatIsNotOnTop) {
  Put("beg^");
  Services->TopView = nullptr;
  Type(U' ');
  EXPECT_EQ(Text(), "beg ^");
}

TEST_F(QVEditorTemplates, TheKeyIsOrdinaryWithoutTemplates) {
  QVTemplateSource = nullptr;
  Put("beg^");
  Type(U' ');
  EXPECT_EQ(Text(), "beg ^");
}

TEST_F(QVEditorTemplates, TheKeyStillReachesTheHostInATextThatIsOnlyRead) {
  Buffer->ReadOnly = true;
  Put("beg^");
  Type(U' ');
  EXPECT_EQ(Text(), "beg^");
  EXPECT_EQ(Editor().TakeReceived(), std::vector<unsigned>{platform::WM_CHAR});
  EXPECT_EQ(Stack().Count(), 0);
}

TEST_F(QVEditorTemplates, TheKeyThatExpandedNeverReachesTheHost) {
  Put("plain^");
  Type(U' ');
  EXPECT_EQ(Editor().TakeReceived(), std::vector<unsigned>{});
}

// The expansion.

TEST_F(QVEditorTemplates, ExpandingSaysThatItDid) {
  Put("plain^");
  EXPECT_TRUE(Proxy->DoTemplate(QStringLiteral("plain")));
  EXPECT_EQ(Text(), "writeln^");
}

TEST_F(QVEditorTemplates, WhatDoesNotExpandLeavesTheTextAlone) {
  Put("other^");
  EXPECT_FALSE(Proxy->DoTemplate(QStringLiteral("other")));
  OptEnableTemplates = false;
  EXPECT_FALSE(Proxy->DoTemplate(QStringLiteral("plain")));
  EXPECT_EQ(Text(), "other^");
  EXPECT_EQ(Templates.Asked, (Lines{"other", "plain"}));
}

TEST_F(QVEditorTemplates, ATextThatIsOnlyReadStaysAndGetsNoMarkers) {
  Buffer->ReadOnly = true;
  Put("beg^");
  EXPECT_FALSE(Proxy->DoTemplate(QStringLiteral("beg")));
  EXPECT_EQ(Text(), "beg^");
  EXPECT_EQ(Stack().Count(), 0);
}

TEST_F(QVEditorTemplates, ATextWithoutStopsLeavesTheCaretBehindItAndDropsNoMarker) {
  Put("(plain^)");
  Type(U' ');
  EXPECT_EQ(Text(), "(writeln^)");
  EXPECT_EQ(Stack().Count(), 0);
}

TEST_F(QVEditorTemplates, FurtherStopsAreVisitedOneByOneInTheirOrder) {
  Put("two^");
  Type(U' ');
  EXPECT_EQ(Text(), "for ^ :=  do");
  EXPECT_EQ(Stack().Count(), 1);
  Proxy->PickupMarker();
  EXPECT_EQ(Text(), "for  := ^ do");
  EXPECT_EQ(Stack().Count(), 0);
}

TEST_F(QVEditorTemplates, StopsLieAboveTheMarkersThatWereThereBefore) {
  Put("x\r\ntwo^");
  PutCaret(1, 1);
  Proxy->DropMarker();
  PutCaret(4, 2);
  Type(U' ');
  Proxy->PickupMarker();
  EXPECT_EQ(Text(), "x\r\nfor  := ^ do");
  Proxy->PickupMarker();
  EXPECT_EQ(Text(), "^x\r\nfor  :=  do");
}

TEST_F(QVEditorTemplates, ANewLineBeginsWithTheIndentationOfTheHost) {
  Put("  beg^");
  Type(U' ');
  EXPECT_EQ(Text(), "  begin^\r\n  end;");
}

TEST_F(QVEditorTemplates, ATildeBehindALineEndTakesOneCharacterOfTheIndentation) {
  Templates.Texts[QStringLiteral("beg")] = QStringLiteral("begin\r~end;");
  Put("    beg^");
  Type(U' ');
  EXPECT_EQ(Text(), "    begin\r\n   end;^");
}

TEST_F(QVEditorTemplates, ATildeTakesTheCharacterBeforeIt) {
  Templates.Texts[QStringLiteral("beg")] = QStringLiteral("ab~c~~d");
  Put("(beg^)");
  Type(U' ');
  EXPECT_EQ(Text(), "(d^)");
}

TEST_F(QVEditorTemplates, AStopIsRecordedBehindTheIndentation) {
  Templates.Texts[QStringLiteral("beg")] = QStringLiteral("begin\r  |\r~~end;");
  Put("  beg^");
  Type(U' ');
  EXPECT_EQ(Text(), "  begin\r\n    ^\r\n  end;");
}

TEST_F(QVEditorTemplates, AStopAtTheVeryStartAndEndIsOneToo) {
  Templates.Texts[QStringLiteral("beg")] = QStringLiteral("|ab|");
  Put("beg^");
  Type(U' ');
  EXPECT_EQ(Text(), "^ab");
  Proxy->PickupMarker();
  EXPECT_EQ(Text(), "ab^");
}

TEST_F(QVEditorTemplates, StopsWithoutAMarkerStackLeaveTheCaretAtTheLast) {
  QVMarkerStackManager = nullptr;
  Put("two^");
  Type(U' ');
  EXPECT_EQ(Text(), "for  := ^ do");
}

TEST_F(QVEditorTemplates, EveryCharacterOfTheTextIsLoggedWithItsPosition) {
  Templates.Texts[QStringLiteral("beg")] = QStringLiteral("a|b~\r");
  Put("beg^");
  Type(U' ');
  Lines lines = LogForm.Take();
  ASSERT_GE(lines.size(), 5U);
  lines.resize(5);
  EXPECT_EQ(lines, (Lines{"Editor Template Position: Row 1 Col 2", "Editor Template Position: Row 1 Col 2",
                          "Editor Template Position: Row 1 Col 3", "Editor Template Position: Row 1 Col 2",
                          "Editor Template Position: Row 2 Col 1"}));
}

TEST_F(QVEditorTemplates, TheStatisticsHearOfEachTypedCharacterAndOfNothingElse) {
  const auto client = std::make_shared<TStatClient>();
  QVEditorStatClient = client;
  Templates.Texts[QStringLiteral("beg")] = QStringLiteral("a|b~\r\u20AC\U0001F600");
  Put("beg^");
  Type(U'x');
  Put("beg^");
  Type(U' ');
  EXPECT_EQ(client->Typed, U"ab\r\u20AC\U0001F600");
}

TEST_F(QVEditorTemplates, TheStatisticsHearOfNoControlCharacterThatTheHostIgnores) {
  const auto client = std::make_shared<TStatClient>();
  QVEditorStatClient = client;
  Templates.Texts[QStringLiteral("beg")] = QStringLiteral("a\x01\x1F\x7F\u0080\u009F\u00A0\n\t\rb");
  Put("beg^");
  Type(U' ');
  EXPECT_EQ(client->Typed, U"a\u00A0\t\rb");
}

TEST_F(QVEditorTemplates, NameAndTextAreOneStepOfUndo) {
  Put("two^");
  int open = 0;
  int opened = 0;
  struct TWatch : TStatClient {
    std::function<void()> OnTyped;
    void CharTyped(char32_t) override { OnTyped(); }
  };
  const auto client = std::make_shared<TWatch>();
  client->OnTyped = [&] {
    open = std::max(open, Buffer->OpenGroups);
    opened = Buffer->GroupsOpened;
  };
  QVEditorStatClient = client;
  Type(U' ');
  EXPECT_EQ(opened, 1);
  EXPECT_EQ(open, 1);
  EXPECT_EQ(Buffer->OpenGroups, 0);
}

TEST_F(QVEditorTemplates, ThePictureIsRenewedOnceHoweverManyStops) {
  Templates.Texts[QStringLiteral("beg")] = QStringLiteral("|").repeated(50);
  Put("beg^");
  Type(U' ');
  EXPECT_EQ(Editor().Repaints, 1);
  EXPECT_EQ(Stack().Count(), 49);
}

TEST_F(QVEditorTemplates, ExpandingLetsTheHotKeyPaintAgain) {
  OptMarkerLive = false;
  Put("plain^");
  PressHotKey();
  ASSERT_EQ(Passes(), 1U);
  Type(U' ');
  PressHotKey();
  EXPECT_EQ(Passes(), 2U);
}

TEST_F(QVEditorTemplates, WhatAnExpansionTypesStartsNoOther) {
  struct TAgain : TStatClient {
    TQVEditorProxy* Proxy = nullptr;
    int Expanded = 0;
    void CharTyped(char32_t) override { Expanded += Proxy->DoTemplate(QStringLiteral("plain")); }
  };
  const auto client = std::make_shared<TAgain>();
  client->Proxy = Proxy;
  QVEditorStatClient = client;
  Put("plain^");
  Type(U' ');
  EXPECT_EQ(client->Expanded, 0);
  EXPECT_EQ(Text(), "writeln^");
}

TEST_F(QVEditorTemplates, AnErrorInTheMiddleClosesTheUndoStepAndLetsTheNextOneExpand) {
  struct TFailing : TStatClient {
    void CharTyped(char32_t) override { throw std::runtime_error("full"); }
  };
  QVEditorStatClient = std::make_shared<TFailing>();
  Put("two^");
  EXPECT_THROW(Type(U' '), std::runtime_error);
  EXPECT_EQ(Buffer->OpenGroups, 0);
  EXPECT_EQ(Stack().Count(), 0);
  QVEditorStatClient = nullptr;
  Put("plain^");
  Type(U' ');
  EXPECT_EQ(Text(), "writeln^");
}

} // namespace
} // namespace quorvane
