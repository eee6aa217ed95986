// SPDX-License-Identifier: MIT
// What further starts of the real program do while an editor runs, which is this one.
#include "desktop/edit/EditControl.h"
#include "desktop/files/FileStore.h"
#include "desktop/handover/Caller.h"
#include "desktop/handover/HandOver.h"
#include "desktop/handover/HandOverFixture.h"
#include "desktop/handover/RequestServer.h"
#include "desktop/handover/Start.h"
#include "desktop/ui/EditWindow.h"
#include "desktop/ui/FileOpenings.h"
#include "desktop/ui/HandedFiles.h"
#include "desktop/ui/MainWindow.h"
#include "desktop/ui/MessageBar.h"
#include "desktop/ui/Page.h"
#include "desktop/ui/Workspace.h"
#include "platform/Application.h"
#include "platform/FileLock.h"
#include "support/SignalCount.h"

#include <QImage>
#include <QMessageBox>

#include <memory>

namespace desktop {
namespace {

class SecondStart : public HandOverFixture {
protected:
  SecondStart() {
    EXPECT_NE(lock_, nullptr);
    EXPECT_TRUE(server_.listen(place()));
    write(QStringLiteral("a.pas"));
    write(QStringLiteral("b.pas"));
    workspace.newFile();
    frame()->show();
  }
  ~SecondStart() override { platform::Application().SetReporter({}); }

  MainWindow* frame() const { return workspace.frameOf(window()); }
  TEditWindow* window() const { return workspace.topWindow(); }
  QStringList titles() const {
    QStringList titles;
    for (const Page* page : window()->pages())
      titles.append(page->title());
    return titles;
  }
  int run(const QStringList& arguments) const { return Start(folder_.path(), arguments).exitCode(); }

  std::unique_ptr<platform::TFileLock> lock_ = lockOf(place());
  RequestServer server_;
  Workspace workspace;
  std::unique_ptr<HandedFiles> handed_ = std::make_unique<HandedFiles>(workspace, server_);
};

const auto a = QStringLiteral("a.pas");
const auto b = QStringLiteral("b.pas");
const auto wait = QStringLiteral("--wait");

TEST_F(SecondStart, HasItsFilesOpenedWithTheFirstInFront) {
  EXPECT_EQ(run({b, a}), 0);
  EXPECT_EQ(titles(), (QStringList{b, a}));
  EXPECT_EQ(window()->currentPage()->title(), b);
  EXPECT_TRUE(frame()->isActiveWindow());
}

TEST_F(SecondStart, PutsCaretsToTheirPlaces) {
  EXPECT_EQ(run({QStringLiteral("a.pas:3:2"), QStringLiteral("b.pas:2")}), 0);
  EXPECT_EQ(window()->editor()->caretRow(), 3);
  EXPECT_EQ(window()->editor()->caretColumn(), 2);
  window()->showPage(window()->pages().constLast());
  EXPECT_EQ(window()->editor()->caretRow(), 2);
  EXPECT_EQ(run({QStringLiteral("--caret"), QStringLiteral("4:3"), b}), 0);
  EXPECT_EQ(window()->currentPage()->title(), b);
  EXPECT_EQ(window()->editor()->caretRow(), 4);
  EXPECT_EQ(window()->editor()->caretColumn(), 3);
}

TEST_F(SecondStart, LeavesTheCaretsOfOtherPagesAlone) {
  workspace.openFile(path(a));
  ASSERT_EQ(window()->editor()->caretRow(), 1);
  // One of these cannot be opened, the other comes later.
  write(QStringLiteral("large.pas"), QByteArray("a line\n").repeated(FileOpenings::largeBytes / 7 + 1));
  for (const QString& name : {QStringLiteral("no/x.pas"), QStringLiteral("large.pas")}) {
    EXPECT_EQ(run({QStringLiteral("--caret"), QStringLiteral("4:2"), name}), 0);
    EXPECT_EQ(window()->currentPage()->title(), a);
    EXPECT_EQ(window()->editor()->caretRow(), 1) << name.toStdString();
  }
  ASSERT_TRUE(support::waitUntil([this] { return workspace.openings().isIdle(); }));
  EXPECT_EQ(window()->currentPage()->title(), QStringLiteral("large.pas"));
  EXPECT_EQ(window()->editor()->caretRow(), 4);
}

TEST_F(SecondStart, PutsTheCaretOfThePageInFrontWhenItNamesNoFile) {
  workspace.openFile(path(a));
  EXPECT_EQ(run({QStringLiteral("--caret"), QStringLiteral("3:1")}), 0);
  EXPECT_EQ(window()->editor()->caretRow(), 3);
}

TEST_F(SecondStart, NamesFilesFromItsOwnFolder) {
  const QString other = write(QStringLiteral("sub/a.pas"), "other\n");
  Start start(path(QStringLiteral("sub")), {a, QStringLiteral("../b.pas")});
  EXPECT_EQ(start.exitCode(), 0);
  EXPECT_EQ(window()->currentPage()->document()->fileName(), other);
  EXPECT_EQ(window()->pages().constLast()->document()->fileName(), path(b));
}

TEST_F(SecondStart, GoesToAPageThatIsOpen) {
  workspace.openFile(path(a));
  workspace.openFile(path(b));
  EXPECT_EQ(run({a}), 0);
  EXPECT_EQ(titles(), (QStringList{a, b}));
  EXPECT_EQ(window()->currentPage()->title(), a);
}

TEST_F(SecondStart, WithoutAFileOnlyShowsTheEditor) {
  workspace.openFile(path(a));
  frame()->setWindowState(Qt::WindowMinimized);
  EXPECT_EQ(run({}), 0);
  EXPECT_EQ(titles(), QStringList{a});
  EXPECT_FALSE(frame()->isMinimized());
}

TEST_F(SecondStart, TakesAnyNameThatAFileCanHave) {
  const QStringList names = {QStringLiteral("two\nlines.pas"), QStringLiteral("quote\"\\.pas"),
                             QStringLiteral("-x.pas"), QStringLiteral("\u00e4\U0001f600.pas"),
                             QStringLiteral("c.pas:1")};
  for (const QString& name : names)
    write(name);
  EXPECT_EQ(run(QStringList{QStringLiteral("--")} + names), 0);
  EXPECT_EQ(titles(), names);
}

TEST_F(SecondStart, OpensTheOthersWhenANameIsNoText) {
  const QStringList script = {QStringLiteral("-c"),
                              QStringLiteral("exec \"$0\" --wait a.pas \"$(printf '\\377/x.pas')\""),
                              QStringLiteral(VIRELLE_BINARY)};
  Start start(folder_.path(), QStringLiteral("/bin/sh"), script);
  ASSERT_TRUE(support::waitUntil([&] { return titles() == QStringList{a}; }));
  EXPECT_FALSE(window()->messageBar()->messages().isEmpty());
  window()->closePage(window()->currentPage());
  EXPECT_EQ(start.exitCode(), 2);
  EXPECT_TRUE(start.errors().contains(QStringLiteral("could not be opened")));
}

TEST_F(SecondStart, BeginsAFileThatIsMissing) {
  EXPECT_EQ(run({QStringLiteral("new.pas")}), 0);
  EXPECT_EQ(titles(), QStringList{QStringLiteral("new.pas")});
  EXPECT_FALSE(QFile::exists(path(QStringLiteral("new.pas")))) << "before it is saved";
  EXPECT_TRUE(save(*window()->currentPage()->document(), path(QStringLiteral("new.pas"))).ok());
  EXPECT_TRUE(QFile::exists(path(QStringLiteral("new.pas"))));
}

TEST_F(SecondStart, OpensAHundredFiles) {
  QStringList names;
  for (int i = 0; i < 100; ++i) {
    names.append(QStringLiteral("unit%1.pas").arg(i));
    write(names.constLast(), "unit;\n");
  }
  EXPECT_EQ(run(names), 0);
  EXPECT_EQ(titles(), names);
  EXPECT_EQ(window()->currentPage()->title(), names.constFirst());
}

TEST_F(SecondStart, ThatWaitsEndsWhenAllItsFilesAreClosed) {
  Start start(folder_.path(), {wait, a, b});
  ASSERT_TRUE(support::waitUntil([&] { return titles() == QStringList({a, b}); }));
  window()->closePage(window()->pages().constFirst());
  support::settle();
  EXPECT_TRUE(start.isRunning()) << "the other is open";
  window()->closePage(window()->pages().constFirst());
  EXPECT_EQ(start.exitCode(), 0);
}

TEST_F(SecondStart, ThatWaitsEndsWhenItsTextHasGoneToAnotherFile) {
  Start start(folder_.path(), {wait, a});
  ASSERT_TRUE(support::waitUntil([&] { return titles() == QStringList{a}; }));
  ASSERT_TRUE(save(*window()->currentPage()->document(), path(QStringLiteral("c.pas"))).ok());
  EXPECT_EQ(start.exitCode(), 0);
}

TEST_F(SecondStart, ThatWaitsKeepsWaitingWhenItsFileIsSaved) {
  Start start(folder_.path(), {wait, a});
  ASSERT_TRUE(support::waitUntil([&] { return titles() == QStringList{a}; }));
  ASSERT_TRUE(save(*window()->currentPage()->document(), path(a)).ok());
  EXPECT_EQ(run({b}), 0) << "which comes behind whatever saving could have told";
  EXPECT_TRUE(start.isRunning());
}

TEST_F(SecondStart, ThatWaitsEndsWithTheEditor) {
  Start start(folder_.path(), {wait, a});
  ASSERT_TRUE(support::waitUntil([&] { return titles() == QStringList{a}; }));
  handed_.reset();
  EXPECT_EQ(start.exitCode(), 0);
}

TEST_F(SecondStart, ThatWaitsSaysSoWhenAFileCannotBeOpened) {
  Start start(folder_.path(), {wait, folder_.path()});
  EXPECT_EQ(start.exitCode(), 2);
  EXPECT_EQ(
      start.errors(),
      QStringLiteral("virelle: %1 could not be opened; the window of the editor says why.\n").arg(folder_.path()));
  EXPECT_EQ(window()->messageBar()->messages().size(), 1);
}

TEST_F(SecondStart, ThatIsStoppedIsForgotten) {
  {
    const Start start(folder_.path(), {wait, a});
    ASSERT_TRUE(support::waitUntil([&] { return titles() == QStringList{a}; }));
  }
  EXPECT_TRUE(support::waitUntil([&] { return server_.findChildren<QObject*>().size() <= 1; }));
  window()->closePage(window()->currentPage());
  EXPECT_EQ(run({b}), 0);
}

TEST_F(SecondStart, WaitsForTheAnswerToAQuestion) {
  const support::SignalCount asked(&server_, &RequestServer::asked);
  QMessageBox box(frame());
  box.open();
  Start start(folder_.path(), {a});
  ASSERT_TRUE(support::waitUntil([&] { return asked.count() == 1; }));
  support::settle();
  EXPECT_FALSE(titles().contains(a));
  EXPECT_TRUE(start.isRunning());
  box.reject();
  EXPECT_EQ(start.exitCode(), 0);
  EXPECT_EQ(titles(), QStringList{a});
}

TEST_F(SecondStart, TakesAPictureByItself) {
  const QString picture = path(QStringLiteral("a.png"));
  EXPECT_EQ(run({QStringLiteral("--no-package"), QStringLiteral("--screenshot"), picture, a}), 0);
  EXPECT_FALSE(QImage(picture).isNull());
  EXPECT_FALSE(titles().contains(a));
}

} // namespace
} // namespace desktop
