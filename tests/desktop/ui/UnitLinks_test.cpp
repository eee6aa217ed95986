// SPDX-License-Identifier: MIT
#include "desktop/ui/UnitLinks.h"

#include "UiFixture.h"

#include <QDir>
#include <QMouseEvent>
#include <QTextBlock>

namespace desktop {
namespace {

class UnitLinksTest : public UiFixture {
protected:
  void makeFolder(const QString& name) { ASSERT_TRUE(QDir().mkpath(path(name))); }

  // Puts the caret behind the first `before` of the text, and runs the command.
  void openAt(const QString& before) {
    const QTextCursor found = editor()->document()->find(before, 0, QTextDocument::FindCaseSensitively);
    ASSERT_FALSE(found.isNull());
    editor()->setTextCursor(QTextCursor(editor()->document()));
    QTextCursor caret = editor()->textCursor();
    caret.setPosition(found.selectionEnd());
    editor()->setTextCursor(caret);
    action(QStringLiteral("SearchOpenUnitCommand"))->trigger();
  }
  QString shownFile() const { return window()->currentPage()->document()->fileName(); }
  QString canonical(const QString& name) const { return QDir(QDir(folder_.path()).canonicalPath()).filePath(name); }
  QString shownName() const { return window()->currentPage()->title(); }
};

TEST_F(UnitLinksTest, OpensTheUnitAtTheCaretFromTheFolderOfTheText) {
  write(QStringLiteral("tools.pas"), "unit Tools;");
  openText(QStringLiteral("main.pas"), "unit Main;\ninterface\nuses SysUtils, Tools;\n");
  openAt(QStringLiteral("SysUtils, To"));
  EXPECT_EQ(shownName(), QStringLiteral("tools.pas"));
  EXPECT_EQ(messages(), QStringList());
}

TEST_F(UnitLinksTest, TakesTheEndsOfANameForTheName) {
  write(QStringLiteral("tools.pas"), "unit Tools;");
  Page* const main = openText(QStringLiteral("main.pas"), "uses A,Tools;");
  for (const char* const before : {"A,", "A,Tools"}) {
    window()->showPage(main);
    openAt(QString::fromLatin1(before));
    EXPECT_EQ(shownName(), QStringLiteral("tools.pas")) << before;
  }
}

TEST_F(UnitLinksTest, OpensADottedNameFromAnyPartOfIt) {
  write(QStringLiteral("system.tools.pas"), "unit System.Tools;");
  Page* const main = openText(QStringLiteral("main.pas"), "uses System.Tools;");
  for (const char* const before : {"uses Sys", "System.Too"}) {
    window()->showPage(main);
    openAt(QString::fromLatin1(before));
    EXPECT_EQ(shownName(), QStringLiteral("system.tools.pas")) << before;
  }
}

TEST_F(UnitLinksTest, LooksAlongTheSearchPath) {
  makeFolder(QStringLiteral("lib/deep"));
  write(QStringLiteral("lib/deep/tools.pas"), "unit Tools;");
  workspace.searchPath().setFolders({{path(QStringLiteral("lib")), true}});
  openText(QStringLiteral("main.pas"), "uses Tools;");
  openAt(QStringLiteral("Tools"));
  EXPECT_EQ(shownName(), QStringLiteral("tools.pas"));
}

TEST_F(UnitLinksTest, OpensTheFileBehindInWhateverItsSlashesAndItsCase) {
  makeFolder(QStringLiteral("Forms"));
  write(QStringLiteral("Forms/MainForm.pas"), "unit Main;");
  write(QStringLiteral("main.pas"), "unit Main;");
  openText(QStringLiteral("project.dpr"), "program P;\nuses Main in 'forms\\mainform.pas' {Form1};\n");
  openAt(QStringLiteral("uses Main"));
  EXPECT_EQ(shownName(), QStringLiteral("MainForm.pas"));
}

TEST_F(UnitLinksTest, LooksForTheNameWhenTheFileBehindInIsNotThere) {
  write(QStringLiteral("main.pas"), "unit Main;");
  openText(QStringLiteral("project.dpr"), "program P;\nuses Main in 'gone\\Main.pas';\n");
  openAt(QStringLiteral("uses Main"));
  EXPECT_EQ(shownName(), QStringLiteral("main.pas"));
}

TEST_F(UnitLinksTest, BringsAUnitThatIsOpenToTheFront) {
  Page* const tools = openText(QStringLiteral("tools.pas"), "unit Tools;");
  openText(QStringLiteral("main.pas"), "uses Tools;");
  openAt(QStringLiteral("Tools"));
  EXPECT_EQ(window()->currentPage(), tools);
  EXPECT_EQ(window()->pages().size(), 2);
}

TEST_F(UnitLinksTest, NamesTheUnitAndTheFoldersWhenItIsNotFound) {
  openText(QStringLiteral("main.pas"), "uses Tools;");
  openAt(QStringLiteral("Tools"));
  const QString folder = QFileInfo(shownFile()).absolutePath();
  EXPECT_EQ(messages(), QStringList{QStringLiteral("Unit Tools was not found. Folders searched: ") + folder});
}

TEST_F(UnitLinksTest, SaysSoWhenTheCaretIsOnNoUnit) {
  openText(QStringLiteral("main.pas"), "uses Tools; begin Tools; end.");
  openAt(QStringLiteral("begin Too"));
  EXPECT_EQ(messages(), QStringList{QStringLiteral("The caret is not on a unit of a uses clause.")});
}

TEST_F(UnitLinksTest, FollowsTheTextAsItIsTyped) {
  write(QStringLiteral("tools.pas"), "unit Tools;");
  openText(QStringLiteral("main.pas"), "uses Other;");
  openAt(QStringLiteral("Other")); // not there
  select(5, 10);
  type(QStringLiteral("Tools"));
  openAt(QStringLiteral("Tools"));
  EXPECT_EQ(shownName(), QStringLiteral("tools.pas"));
}

TEST_F(UnitLinksTest, CountsCharactersThatTakeTwoUnits) {
  write(QStringLiteral("tools.pas"), "unit Tools;");
  openText(QStringLiteral("main.pas"), "uses {\xF0\x9F\x98\x80\xF0\x9F\x98\x80\xF0\x9F\x98\x80} Tools;");
  openAt(QStringLiteral("Tools"));
  EXPECT_EQ(shownName(), QStringLiteral("tools.pas"));
}

TEST_F(UnitLinksTest, OpensTheUnitThatIsClickedWithCtrl) {
  write(QStringLiteral("tools.pas"), "unit Tools;");
  openText(QStringLiteral("main.pas"), "unit Main;\nuses SysUtils, Tools;\n");
  activate(window());
  const QSize cell = editor()->cellSize();
  const QPointF at(17.5 * cell.width(), 1.5 * cell.height());
  for (const QEvent::Type type : {QEvent::MouseMove, QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
    QMouseEvent event(type, at, editor()->viewport()->mapToGlobal(at),
                      type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton, Qt::NoButton, Qt::ControlModifier);
    QApplication::sendEvent(editor()->viewport(), &event);
    if (type == QEvent::MouseMove) {
      EXPECT_EQ(editor()->property("HotlinkText").toString(), QStringLiteral("Tools"));
    }
  }
  EXPECT_EQ(shownName(), QStringLiteral("tools.pas"));
}

TEST_F(UnitLinksTest, IsForPascalFilesOnly) {
  openText(QStringLiteral("notes.txt"), "uses Tools;");
  EXPECT_FALSE(action(QStringLiteral("SearchOpenUnitCommand"))->isEnabled());
  openText(QStringLiteral("main.pas"), "uses Tools;");
  EXPECT_TRUE(action(QStringLiteral("SearchOpenUnitCommand"))->isEnabled());
}

} // namespace
} // namespace desktop
