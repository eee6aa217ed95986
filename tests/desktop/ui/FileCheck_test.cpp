// SPDX-License-Identifier: MIT
#include "desktop/ui/ResultsFixture.h"

#include "desktop/ui/FileCheck.h"
#include "text/ShownText.h"
#include "tools/UnitCheck.h"

#include <QDirIterator>

namespace desktop {
namespace {

QByteArray unitWith(const QByteArray& statements) {
  return "unit A;\ninterface\nimplementation\nprocedure P;\nbegin\n" + statements + "end;\nend.\n";
}

class FileCheckTest : public ResultsFixture {
protected:
  // Checks the page in front and waits for the result.
  void check() const {
    workspace.fileCheck().start(window());
    ASSERT_TRUE(support::waitUntil([this] { return !list().isRunning(); }));
  }
  // "LINE:COLUMN TEXT" of every row.
  QStringList found() const {
    QStringList rows;
    const QStringList places = shownPlaces();
    for (int row = 0; row < list().count(); ++row)
      rows.append(places[row] + u' ' + shown(row, ResultList::TextColumn));
    return rows;
  }
};

// What the command line says of a file, with columns in characters.
QStringList toldByCommandLine(const QString& file) {
  QStringList rows;
  for (const quorvane::TShownFinding& finding : quorvane::CheckFile(file.toStdString(), {}).Findings)
    rows.append(QStringLiteral("%1:%2 %3")
                    .arg(finding.Line)
                    .arg(finding.Column)
                    .arg(QString::fromStdString(quorvane::ShownServed(finding.Message))));
  return rows;
}

TEST_F(FileCheckTest, ListsTheErrorsOfThePageInFront) {
  openText(QStringLiteral("A.pas"), unitWith("  if a b;\n  c;\n  while d e;\n"));
  check();
  EXPECT_EQ(found(), (QStringList{QStringLiteral("6:8 Expected 'Then' found 'b'"),
                                  QStringLiteral("8:11 Expected 'Do' found 'e'")}));
  EXPECT_EQ(list().title(), QStringLiteral("Check of A.pas"));
  EXPECT_EQ(
      list().summary(),
      QStringLiteral("2 errors in the 11 lines of the editor's text, with the first branch of every conditional"));
}

TEST_F(FileCheckTest, SaysThatThereAreNoErrors) {
  openText(QStringLiteral("A.pas"), unitWith("  c;\n"));
  check();
  EXPECT_EQ(list().count(), 0);
  EXPECT_EQ(list().summary(),
            QStringLiteral("No errors found in the 9 lines of the editor's text, with the first branch "
                           "of every conditional"));
  EXPECT_EQ(status(QStringLiteral("Remark")), QStringLiteral("No errors found in A.pas"));
}

TEST_F(FileCheckTest, SaysHowManyErrorsThereAreInTheStatusBar) {
  openText(QStringLiteral("A.pas"), unitWith("  if a b;\n"));
  check();
  EXPECT_EQ(status(QStringLiteral("Remark")), QStringLiteral("1 error found in A.pas, F8 goes to the first"));
}

TEST_F(FileCheckTest, ChecksTheBufferAndNotTheFile) {
  openText(QStringLiteral("A.pas"), unitWith("  c;\n"));
  editor()->setCaret(6, 3);
  type(QStringLiteral("if a "));
  check();
  EXPECT_EQ(found(), QStringList(QStringLiteral("6:8 Expected 'Then' found 'c'")));
}

TEST_F(FileCheckTest, ChecksAPageWithoutAFile) {
  Page* const page = workspace.newFile();
  page->document()->setPlainText(QString::fromLatin1(unitWith("  if a b;\n")));
  check();
  EXPECT_EQ(found(), QStringList(QStringLiteral("6:8 Expected 'Then' found 'b'")));
  walk().goToNext(window());
  EXPECT_EQ(caret(), QStringLiteral("6:8"));
}

TEST_F(FileCheckTest, CountsColumnsAsTheStatusBarDoes) {
  openText(QStringLiteral("A.pas"), unitWith("\tx := '\xC3\xA4\xF0\x9F\x98\x80'; if a b; if c d;\n"));
  check();
  EXPECT_EQ(shownPlaces(), (QStringList{QStringLiteral("6:25"), QStringLiteral("6:33")}));
  walk().goToNext(window());
  EXPECT_EQ(status(QStringLiteral("CaretPosition")), QStringLiteral("Line 6, Column 25"));
  EXPECT_EQ(editor()->document()->characterAt(editor()->textCursor().position()), u'b');
}

TEST_F(FileCheckTest, SaysOfEveryFileWhatTheCommandLineSays) {
  QStringList files;
  for (QDirIterator it(QStringLiteral(VIRELLE_TEST_DATA), QDir::Files, QDirIterator::Subdirectories); it.hasNext();) {
    const QString file = it.next();
    if (file.endsWith(QStringLiteral(".pas")) || file.endsWith(QStringLiteral(".dpr")) ||
        file.endsWith(QStringLiteral(".dpk")) || file.endsWith(QStringLiteral(".inc")))
      files.append(file);
  }
  const QByteArray whole = unitWith("if a b; repeat c end; case\nx:= $ '\x01\n (* \t");
  for (qsizetype length = 0; length < whole.size(); length += 3)
    files.append(write(QStringLiteral("cut%1.pas").arg(length), whole.left(length)));
  files.append(write(QStringLiteral("bytes.pas"), unitWith("if \xE4 \xFF\xFE b;\r if c d;\r\n if e f;\n")));
  files.append(write(QStringLiteral("nul.pas"), unitWith("if a b;") + QByteArray(1, '\0') + "x"));
  files.append(write(QStringLiteral("utf16.pas"), QByteArray("\xFF\xFEi\0f\0 \0a\0 \0b\0;\0", 16)));
  ASSERT_GT(files.size(), 30);
  int rows = 0;
  for (const QString& file : files) {
    Page* const page = workspace.openFile(file);
    ASSERT_NE(page, nullptr);
    page->window()->editor()->setTabWidth(1); // which makes a column of each character
    check();
    const QStringList told = toldByCommandLine(file);
    EXPECT_EQ(found(), told) << file.toStdString();
    rows += static_cast<int>(told.size());
    window()->closePage(page);
  }
  EXPECT_GT(rows, 50);
}

TEST_F(FileCheckTest, CallsAnEmptyFileUnfinished) {
  const QString file = write(QStringLiteral("empty.pas"), {});
  workspace.openFile(file);
  check();
  EXPECT_EQ(found(), toldByCommandLine(file));
  EXPECT_EQ(list().count(), 1);
}

TEST_F(FileCheckTest, DoesNotCheckWhatIsNoPascal) {
  openText(QStringLiteral("notes.txt"), "if a b;\n");
  workspace.fileCheck().start(window());
  EXPECT_FALSE(list().isRunning());
  EXPECT_FALSE(panel()->isVisible());
  EXPECT_EQ(messages(),
            QStringList(QStringLiteral("notes.txt is not treated as Pascal source, so it cannot be checked.")));
}

TEST_F(FileCheckTest, LeavesTheLastResultWhenThereIsNothingToCheck) {
  openText(QStringLiteral("A.pas"), unitWith("  if a b;\n"));
  check();
  openText(QStringLiteral("notes.txt"), "text");
  workspace.fileCheck().start(window());
  EXPECT_EQ(list().count(), 1);
}

TEST_F(FileCheckTest, DoesNothingWithoutAPage) {
  workspace.fileCheck().start(window());
  EXPECT_FALSE(list().isRunning());
  EXPECT_FALSE(action(QStringLiteral("SearchCheckCommand"))->isEnabled());
}

TEST_F(FileCheckTest, TheCommandShowsThePanelAndLeavesTheFocus) {
  activate(window());
  openText(QStringLiteral("A.pas"), unitWith("  if a b;\n"));
  EXPECT_EQ(action(QStringLiteral("SearchCheckCommand"))->shortcut(), QKeySequence(Qt::Key_F9));
  action(QStringLiteral("SearchCheckCommand"))->trigger();
  ASSERT_TRUE(support::waitUntil([this] { return !list().isRunning(); }));
  EXPECT_TRUE(panel()->isVisible());
  EXPECT_TRUE(editor()->hasFocus());
}

TEST_F(FileCheckTest, ANewerCheckEndsTheOlder) {
  openText(QStringLiteral("B.pas"), unitWith(QByteArray("  if a b;\n").repeated(20'000)));
  Page* const big = window()->currentPage();
  openText(QStringLiteral("A.pas"), unitWith("  while a b;\n"));
  Page* const small = window()->currentPage();
  window()->showPage(big);
  workspace.fileCheck().start(window());
  window()->showPage(small);
  check();
  EXPECT_EQ(found(), QStringList(QStringLiteral("6:11 Expected 'Do' found 'b'")));
  EXPECT_EQ(list().title(), QStringLiteral("Check of A.pas"));
}

TEST_F(FileCheckTest, ATextThatIsChangedMeanwhileIsCheckedAgain) {
  openText(QStringLiteral("A.pas"), unitWith("  c;\n"));
  workspace.fileCheck().start(window());
  // No event has been served in between, so whatever the thread has found is about the old text.
  editor()->setCaret(6, 3);
  type(QStringLiteral("if a "));
  ASSERT_TRUE(support::waitUntil([this] { return !list().isRunning(); }));
  EXPECT_EQ(found(), QStringList(QStringLiteral("6:8 Expected 'Then' found 'c'")));
}

TEST_F(FileCheckTest, StoppingEndsItWithoutPlaces) {
  openText(QStringLiteral("A.pas"), unitWith("  if a b;\n"));
  workspace.fileCheck().start(window());
  list().stop();
  EXPECT_FALSE(list().isRunning());
  EXPECT_EQ(list().summary(), QStringLiteral("Stopped"));
  check(); // the stopped thread ends before or meanwhile
  EXPECT_EQ(list().count(), 1);
}

TEST_F(FileCheckTest, ClosingThePageEndsIt) {
  openText(QStringLiteral("A.pas"), unitWith(QByteArray("  if a b;\n").repeated(20'000)));
  workspace.fileCheck().start(window());
  window()->closePage(window()->currentPage());
  ASSERT_TRUE(support::waitUntil([this] { return !list().isRunning(); }));
  EXPECT_EQ(list().count(), 0);
  EXPECT_EQ(list().summary(), QStringLiteral("A.pas was closed before it was checked"));
}

TEST_F(FileCheckTest, ClosingTheWindowEndsIt) {
  openText(QStringLiteral("A.pas"), "text");
  activate(window());
  TEditWindow* const other = workspace.newWindow();
  workspace.openFileIn(other, write(QStringLiteral("B.pas"), unitWith(QByteArray("  if a b;\n").repeated(20'000))));
  workspace.fileCheck().start(other);
  workspace.frameOf(other)->close();
  ASSERT_TRUE(support::waitUntil([this] { return !list().isRunning(); }));
  EXPECT_EQ(list().summary(), QStringLiteral("B.pas was closed before it was checked"));
}

TEST(FileCheckAtTheEnd, TheWorkspaceMayGoWhileACheckRuns) {
  const QTemporaryDir folder;
  QFile file(folder.filePath(QStringLiteral("A.pas")));
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write(unitWith(QByteArray("  if a b;\n").repeated(50'000)));
  file.close();
  QPointer<FileCheck> check;
  {
    Workspace workspace;
    workspace.openFile(file.fileName());
    check = &workspace.fileCheck();
    check->start(workspace.topWindow());
    ASSERT_TRUE(workspace.results().isRunning());
  }
  EXPECT_TRUE(check.isNull());
  support::settle();
}

TEST_F(FileCheckTest, ListsTenThousandFindingsAndSaysHowManyAreLeftOut) {
  activate(window());
  openText(QStringLiteral("A.pas"), unitWith(QByteArray("  if a b;\n").repeated(12'000)));
  check();
  EXPECT_EQ(list().count(), 10'000);
  EXPECT_TRUE(list().summary().endsWith(QStringLiteral("; 2,000 errors more left out")))
      << list().summary().toStdString();
  walk().goToPrevious(window());
  EXPECT_EQ(caret(), QStringLiteral("10005:8"));
}

TEST_F(FileCheckTest, ListsTenThousandFindingsOfOneLine) {
  openText(QStringLiteral("A.pas"), unitWith(QByteArray("if a b;").repeated(12'000) + "\n"));
  check();
  EXPECT_EQ(list().count(), 10'000);
  EXPECT_EQ(shown(9'999, ResultList::CellColumn), QString::number(9'999 * 7 + 6));
}

TEST_F(FileCheckTest, ChecksTheDeepestNesting) {
  openText(QStringLiteral("A.pas"), unitWith("x := " + QByteArray("(\n").repeated(100'000) + ";\n"));
  check();
  ASSERT_GT(list().count(), 0);
  EXPECT_EQ(shown(list().count() - 1, ResultList::TextColumn), QStringLiteral("Nested more than 4000 levels deep"));
}

TEST_F(FileCheckTest, ShowsSignsForControlCharacters) {
  openText(QStringLiteral("A.pas"), unitWith("if a '\x01';\n"));
  check();
  EXPECT_EQ(found(), QStringList(QStringLiteral("6:6 Expected 'Then' found ''\u2401''")));
}

} // namespace
} // namespace desktop
