// SPDX-License-Identifier: MIT
// Templates typed into the real editor.
#include "together/MarkerFixture.h"

#include "editor/QVTemplateSource.h"
#include "support/LowerRights.h"

#include <map>

namespace together {
namespace {

using Place = std::array<int, 2>;

// Templates by name. It is the source of the process while it lives.
class TemplateMap : public quorvane::IQVTemplateSource {
public:
  TemplateMap() { quorvane::QVTemplateSource = this; }
  ~TemplateMap() override { quorvane::QVTemplateSource = nullptr; }

  std::map<QString, QString> texts;

  bool IsTemplateName(const QString& name) override { return texts.contains(name.toLower()); }
  QString GetTemplateText(const QString& name, const std::shared_ptr<platform::IOTAEditView>&) override {
    return texts[name];
  }
};

class Templates : public MarkerFixture {
protected:
  void define(const char* name, const QString& text) { templates.texts[QString::fromLatin1(name)] = text; }
  void keys(const char* text) {
    QTest::keyClicks(editor(), QString::fromLatin1(text));
    support::settle();
  }
  QString text() const { return editor()->toPlainText(); }

  TemplateMap templates;
};

TEST_F(Templates, NameAndBlankGiveTheTextWithTheCaretAtItsStop) {
  define("beg", QStringLiteral("begin|\rend;"));
  openWithAddIn("");
  keys("beg ");
  EXPECT_EQ(text(), QStringLiteral("begin\nend;"));
  EXPECT_EQ(caret(), (Place{1, 6}));
}

TEST_F(Templates, ExpandAsEverWhileBracketsAreTypedAsPairs) {
  define("call", QStringLiteral("g(|)['a']"));
  openWithAddIn("");
  editor()->setTypesPairs(true);
  keys("f(call ");
  EXPECT_EQ(text(), QStringLiteral("f(g()['a'])")) << "only the typed bracket has brought its partner";
  EXPECT_EQ(caret(), (Place{1, 5}));
}

TEST_F(Templates, OneUndoTakesTheExpansionBackAndOneRedoBringsIt) {
  define("beg", QStringLiteral("begin|\r~end; {|}"));
  openWithAddIn("  \n");
  putCaret(1, 3);
  keys("beg ");
  const QString expanded = QStringLiteral("  begin\n end; {}\n");
  EXPECT_EQ(text(), expanded);
  editor()->undo();
  EXPECT_EQ(text(), QStringLiteral("  beg\n"));
  editor()->redo();
  EXPECT_EQ(text(), expanded);
}

TEST_F(Templates, StopsAreVisitedInTheirOrderByTheKeyForMarkers) {
  define("forb", QStringLiteral("for | := | to | do\rbegin\r  |\r~~end;"));
  openWithAddIn("  \n");
  putCaret(1, 3);
  keys("forb ");
  EXPECT_EQ(text(), QStringLiteral("  for  :=  to  do\n  begin\n    \n  end;\n"));
  EXPECT_EQ(caret(), (Place{1, 7}));
  for (const Place& next : {Place{1, 11}, Place{1, 15}, Place{3, 5}}) {
    QTest::keyClick(editor(), Qt::Key_Delete, Qt::ShiftModifier | Qt::AltModifier);
    support::settle();
    EXPECT_EQ(caret(), next);
  }
  EXPECT_EQ(stack().Count(), 0);
}

TEST_F(Templates, StopsFollowWhatIsTypedAtEarlierOnes) {
  define("two", QStringLiteral("a|\rb|"));
  openWithAddIn("");
  keys("two ");
  QTest::keyClick(editor(), Qt::Key_Return);
  support::settle();
  proxy().PickupMarker();
  EXPECT_EQ(caret(), (Place{3, 2}));
}

TEST_F(Templates, AMarkerBelowIsCarriedDownByTheExpansion) {
  define("beg", QStringLiteral("begin\r\rend;"));
  openWithAddIn("\nx\n");
  drop(2, 1);
  putCaret(1, 1);
  keys("beg ");
  EXPECT_EQ(rowsOf(services->GetTopBuffer()->GetFileName()), Rows{4});
}

TEST_F(Templates, ExpandInTheMiddleOfALine) {
  define("sl", QStringLiteral("TStringList.Create(|)"));
  openWithAddIn("a := ;\n");
  putCaret(1, 6);
  keys("sl ");
  EXPECT_EQ(text(), QStringLiteral("a := TStringList.Create();\n"));
  EXPECT_EQ(caret(), (Place{1, 25}));
}

TEST_F(Templates, ExpandBehindTabsAndCharactersOfAnyLength) {
  define("sl", QStringLiteral("Create(|)"));
  openWithAddIn(QStringLiteral("\t'\u20AC\U0001F600' + \n").toUtf8());
  editor()->moveCursor(QTextCursor::EndOfLine);
  keys("sl ");
  EXPECT_EQ(text(), QStringLiteral("\t'\u20AC\U0001F600' + Create()\n"));
  EXPECT_EQ(editor()->textCursor().positionInBlock(), 16);
}

TEST_F(Templates, ExpandFarToTheRightInALongLine) {
  define("beg", QStringLiteral("begin"));
  openWithAddIn(QByteArray(70'000, ' ') + "\n");
  editor()->moveCursor(QTextCursor::EndOfLine);
  keys("beg ");
  EXPECT_EQ(text(), QString(70'000, u' ') + QStringLiteral("begin\n"));
}

TEST_F(Templates, TypeCharactersOfAnyAlphabet) {
  const QString letters = QStringLiteral("{ \u00E4\u20AC\u044F\U0001F600 }");
  define("al", letters);
  openWithAddIn("");
  keys("al ");
  EXPECT_EQ(text(), letters);
}

TEST_F(Templates, InsertAlsoWhileTypingOverwrites) {
  define("beg", QStringLiteral("begin"));
  openWithAddIn("    rest\n");
  editor()->setInsertMode(false);
  putCaret(1, 1);
  keys("beg ");
  EXPECT_EQ(text(), QStringLiteral("begin rest\n"));
}

TEST_F(Templates, WithASelectionTheKeyReplacesItAsUsual) {
  define("beg", QStringLiteral("begin"));
  openWithAddIn("begxyz\n");
  select(3, 6);
  keys(" ");
  EXPECT_EQ(text(), QStringLiteral("beg \n"));
  EXPECT_EQ(stack().Count(), 0);
}

TEST_F(Templates, InAFileThatMayOnlyBeReadChangeNothing) {
  define("beg", QStringLiteral("begin|"));
  const QString file = write(QStringLiteral("unit.pas"), "beg\n");
  ASSERT_TRUE(QFile::setPermissions(file, QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther));
  const support::LowerRights lowered(folder_.path());
  ASSERT_NE(workspace.openFile(file), nullptr) << messages().join(u'\n').toStdString();
  ASSERT_TRUE(window()->currentPage()->document()->isReadOnlyText());
  activate(window());
  quorvane::TQVEditorProxy::InjectExistingProxies();
  editor()->setFocus();
  putCaret(1, 4);
  keys(" ");
  EXPECT_EQ(text(), QStringLiteral("beg\n"));
  EXPECT_EQ(caret(), (Place{1, 4}));
  EXPECT_EQ(stack().Count(), 0);
  EXPECT_FALSE(window()->currentPage()->document()->isModified());
}

TEST_F(Templates, ThatNobodyKnowsLeaveTheKeyAsItIs) {
  openWithAddIn("");
  keys("beg x");
  EXPECT_EQ(text(), QStringLiteral("beg x"));
}

struct LongRow {
  const char* name;
  const char* piece;
};

class LongTemplates : public Templates, public testing::WithParamInterface<LongRow> {};
INSTANTIATE_TEST_SUITE_P(Of, LongTemplates,
                         testing::Values(LongRow{"OneLine", "x"}, LongRow{"Lines", "xxxxxxxxx\r"},
                                         LongRow{"EmptyLines", "\r"}, LongRow{"Stops", "|"},
                                         LongRow{"StopsOnOneLine", "xxxx|"}, LongRow{"Tabs", "\t"},
                                         LongRow{"TakenCharacters", "x~"}, LongRow{"Pieces", "xxxxxxxxxxx~\t"},
                                         LongRow{"TakenLineEnds", "x\r~"}),
                         [](const auto& row) { return std::string(row.param.name); });

// What a template of plain characters, tabs, stops and tildes gives in an empty file.
QString typedText(const QString& pieces) {
  QString text;
  qsizetype lineStart = 0;
  for (const QChar character : pieces) {
    if (character == u'~')
      text.chop(1);
    else if (character == u'\t')
      text.append(QString(2 - (text.size() - lineStart) % 2, u' '));
    else if (character == u'\r')
      lineStart = text.append(u'\n').size();
    else if (character != u'|')
      text.append(character);
  }
  return text;
}

TEST_P(LongTemplates, OfAHundredThousandCharactersExpandWholeAsOneStep) {
  const QString piece = QString::fromLatin1(GetParam().piece);
  const QString pieces = piece.repeated(100'000 / piece.size());
  define("long", pieces + u'|');
  openWithAddIn("");
  keys("long ");
  EXPECT_TRUE(text() == typedText(pieces));
  EXPECT_EQ(stack().Count(), pieces.count(u'|'));
  editor()->undo();
  EXPECT_EQ(text(), QStringLiteral("long"));
}

TEST_F(Templates, OfFiftyThousandLinesMayStopOnEachOne) {
  define("long", QStringLiteral("|\r").repeated(50'000));
  openWithAddIn("");
  keys("long ");
  EXPECT_TRUE(text() == QString(50'000, u'\n'));
  EXPECT_EQ(stack().Count(), 49'999);
  EXPECT_EQ(caret(), (Place{1, 1}));
  QTest::keyClick(editor(), Qt::Key_Return);
  support::settle();
  proxy().PickupMarker();
  EXPECT_EQ(caret(), (Place{3, 1}));
}

TEST_F(Templates, OfFiftyThousandLinesThatStopOnEachOneAreUndoneAsOne) {
  define("long", QStringLiteral("|\r").repeated(50'000));
  openWithAddIn("");
  keys("long ");
  editor()->undo();
  EXPECT_EQ(text(), QStringLiteral("long"));
  EXPECT_EQ(rowsOf(services->GetTopBuffer()->GetFileName()), Rows(49'999, 1));
}

} // namespace
} // namespace together
