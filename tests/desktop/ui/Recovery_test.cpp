// SPDX-License-Identifier: MIT
#include "desktop/ui/UiFixture.h"

#include "desktop/files/FileStore.h"
#include "desktop/ui/Recovery.h"
#include "support/FileSizeLimit.h"

#include <QDateTime>
#include <QDir>
#include <QPushButton>
#include <QSignalSpy>

#include <chrono>
#include <memory>

namespace desktop {
namespace {

using std::chrono::milliseconds;

class RecoveryTest : public UiFixture {
protected:
  RecoveryTest() { frame()->show(); }

  static constexpr milliseconds soon{1};

  QString place() const { return path(QStringLiteral("state/recovery")); }
  QStringList kept() const { return QDir(place()).entryList({QStringLiteral("*.recovery")}, QDir::Files); }

  // Begins to keep texts.
  void start() { recovery = std::make_unique<Recovery>(workspace, place(), soon); }
  // Types into the page in front and waits until that is on the disk.
  void typeAndKeep(const QString& text) {
    QSignalSpy spy(recovery.get(), &Recovery::kept);
    type(text);
    ASSERT_TRUE(support::waitUntil([&spy] { return !spy.isEmpty(); }));
  }
  // Another editor types into the file and is killed.
  void leaveBehind(const QString& name, const QByteArray& bytes, const QString& typed) const {
    Workspace killed;
    Recovery keeps(killed, place(), soon);
    QSignalSpy spy(&keeps, &Recovery::kept);
    killed.openFile(write(name, bytes));
    killed.topWindow()->editor()->textCursor().insertText(typed);
    ASSERT_TRUE(support::waitUntil([&spy] { return !spy.isEmpty(); }));
    // Its pages never hear that they close.
    for (TEditWindow* each : killed.windows())
      QObject::disconnect(each, nullptr, &keeps, nullptr);
  }
  // Another program writes the file, as it seems so many seconds from now.
  void writeAt(int seconds, const QString& name, const QByteArray& bytes) const {
    QFile file(write(name, bytes));
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    ASSERT_TRUE(file.setFileTime(QDateTime::currentDateTime().addSecs(seconds), QFileDevice::FileModificationTime));
  }
  bool answer(const QString& text) const {
    for (QPushButton* button : window()->messageBar()->findChildren<QPushButton*>()) {
      if (button->text() == text && button->isVisible()) {
        button->click();
        return true;
      }
    }
    return false;
  }
  bool restore() const { return answer(QStringLiteral("&Restore")); }
  QString text() const { return editor()->toPlainText(); }

  std::unique_ptr<Recovery> recovery;
};

TEST_F(RecoveryTest, TheUsualIntervalLeavesTimeToWriteWithinTenSeconds) {
  EXPECT_EQ(Recovery::longestDelay, std::chrono::seconds(10));
  EXPECT_EQ(Recovery::usualInterval, std::chrono::seconds(8));
  recovery = std::make_unique<Recovery>(workspace, place());
  const auto* const timer = recovery->findChild<QTimer*>(QStringLiteral("RecoveryTimer"));
  ASSERT_NE(timer, nullptr);
  EXPECT_FALSE(timer->isActive()) << "nothing is to be kept";
  openText(QStringLiteral("a.pas"), "a");
  EXPECT_FALSE(timer->isActive()) << "nothing is to be kept";
  type(QStringLiteral("x"));
  ASSERT_TRUE(timer->isActive());
  EXPECT_EQ(timer->intervalAsDuration(), Recovery::usualInterval);
  EXPECT_TRUE(timer->isSingleShot());
  support::settle();
  const int left = timer->remainingTime();
  type(QStringLiteral("y"));
  EXPECT_LE(timer->remainingTime(), left) << "going on typing does not put it off";
}

TEST_F(RecoveryTest, ANewIntervalHoldsAtOnceButPutsNothingOff) {
  recovery = std::make_unique<Recovery>(workspace, place());
  const auto* const timer = recovery->findChild<QTimer*>(QStringLiteral("RecoveryTimer"));
  openText(QStringLiteral("a.pas"), "a");
  type(QStringLiteral("x"));
  recovery->setInterval(std::chrono::seconds(2));
  EXPECT_TRUE(timer->isActive());
  EXPECT_LE(timer->remainingTimeAsDuration(), std::chrono::seconds(2));
  recovery->setInterval(std::chrono::seconds(8));
  EXPECT_LE(timer->remainingTimeAsDuration(), std::chrono::seconds(2));
}

TEST_F(RecoveryTest, KeepsUnsavedTextAndLeavesItsFileAlone) {
  start();
  openText(QStringLiteral("a.pas"), "unit a;");
  typeAndKeep(QStringLiteral("new "));
  EXPECT_EQ(kept().size(), 1);
  EXPECT_EQ(read(QStringLiteral("a.pas")), "unit a;");
}

TEST_F(RecoveryTest, FollowsPagesOfEveryWindowThatWereOpenBeforeOrComeLater) {
  openText(QStringLiteral("a.pas"), "a");
  start();
  typeAndKeep(QStringLiteral("x"));
  TEditWindow* const second = workspace.newWindow();
  QSignalSpy spy(recovery.get(), &Recovery::kept);
  second->editor()->textCursor().insertText(QStringLiteral("y"));
  EXPECT_TRUE(support::waitUntil([&spy] { return !spy.isEmpty(); }));
  EXPECT_EQ(kept().size(), 2);
}

TEST_F(RecoveryTest, WritesOnlyWhatHasChanged) {
  start();
  openText(QStringLiteral("a.pas"), "a");
  typeAndKeep(QStringLiteral("x"));
  openText(QStringLiteral("b.pas"), "b");
  QSignalSpy spy(recovery.get(), &Recovery::kept);
  typeAndKeep(QStringLiteral("y"));
  support::settle();
  ASSERT_EQ(spy.size(), 1);
  EXPECT_EQ(spy.at(0).at(0).toString(), path(QStringLiteral("b.pas")));
}

TEST_F(RecoveryTest, NothingIsKeptOfWhatWasSavedUndoneOrClosed) {
  start();
  Page* page = openText(QStringLiteral("a.pas"), "a");
  typeAndKeep(QStringLiteral("x"));
  ASSERT_TRUE(workspace.files().save(page));
  EXPECT_TRUE(support::waitUntil([this] { return kept().isEmpty(); }));
  typeAndKeep(QStringLiteral("y"));
  editor()->undo();
  EXPECT_TRUE(support::waitUntil([this] { return kept().isEmpty(); }));
  typeAndKeep(QStringLiteral("z"));
  page->window()->closePage(page);
  EXPECT_TRUE(support::waitUntil([this] { return kept().isEmpty(); }));
}

TEST_F(RecoveryTest, DiscardingTakesAllFilesAway) {
  start();
  openText(QStringLiteral("a.pas"), "a");
  typeAndKeep(QStringLiteral("x"));
  recovery->discard();
  recovery.reset();
  EXPECT_TRUE(QDir(place()).isEmpty());
}

TEST_F(RecoveryTest, OffersNothingWhenNothingWasLeftBehind) {
  start();
  recovery->offer();
  EXPECT_EQ(messages(), QStringList());
}

TEST_F(RecoveryTest, RestoresWhatWasTypedBeforeTheKill) {
  leaveBehind(QStringLiteral("a.pas"), "unit a;", QStringLiteral("new "));
  start();
  recovery->offer();
  ASSERT_EQ(messages().size(), 1);
  EXPECT_TRUE(messages().constFirst().contains(QStringLiteral("a.pas")));
  workspace.newFile();
  ASSERT_TRUE(restore());
  EXPECT_EQ(text(), QStringLiteral("new unit a;"));
  EXPECT_EQ(editor()->textCursor().position(), 4);
  EXPECT_TRUE(workspace.topPage()->document()->isModified());
  EXPECT_EQ(read(QStringLiteral("a.pas")), "unit a;") << "the file is as it was until it is saved";
  EXPECT_EQ(messages(), QStringList());
  EXPECT_EQ(window()->pages().size(), 1) << "an empty page makes room";

  ASSERT_TRUE(workspace.files().save(workspace.topPage()));
  EXPECT_EQ(read(QStringLiteral("a.pas")), "new unit a;");
  EXPECT_TRUE(support::waitUntil([this] { return kept().isEmpty(); }));
}

TEST_F(RecoveryTest, ARestoredTextIsStillKeptWithoutAPause) {
  leaveBehind(QStringLiteral("a.pas"), "unit a;", QStringLiteral("new "));
  recovery = std::make_unique<Recovery>(workspace, place());
  recovery->offer();
  ASSERT_TRUE(restore());
  EXPECT_EQ(kept().size(), 1) << "long before the interval ends";
}

TEST_F(RecoveryTest, ARestoredTextTakesThePlaceOfItsFilesPage) {
  leaveBehind(QStringLiteral("b.pas"), "b", QStringLiteral("x"));
  for (const char* name : {"a.pas", "c.pas"})
    write(QString::fromLatin1(name), "b");
  for (const char* name : {"a.pas", "b.pas", "c.pas"})
    workspace.openFile(path(QString::fromLatin1(name)));
  start();
  recovery->offer();
  ASSERT_TRUE(restore());
  const QList<Page*> pages = window()->pages();
  ASSERT_EQ(pages.size(), 3);
  EXPECT_EQ(pages[1]->title(), QStringLiteral("b.pas"));
  EXPECT_EQ(window()->currentPage(), pages[1]);
  EXPECT_EQ(text(), QStringLiteral("xb"));
}

TEST_F(RecoveryTest, ATextThatIsBeingEditedIsNotReplaced) {
  leaveBehind(QStringLiteral("a.pas"), "a", QStringLiteral("x"));
  start();
  workspace.openFile(path(QStringLiteral("a.pas")));
  recovery->offer();
  type(QStringLiteral("other "));
  ASSERT_TRUE(restore());
  EXPECT_EQ(text(), QStringLiteral("other a"));
  ASSERT_EQ(messages().size(), 1);
  EXPECT_TRUE(messages().constFirst().contains(QStringLiteral("was not restored")));
  support::settle(); // the question goes, and with it what it holds
  EXPECT_EQ(RecoveryFolder(place()).takeOrphans().size(), 1U) << "the next start offers it";
}

TEST_F(RecoveryTest, AnUntitledTextComesBackUnderAFreeName) {
  {
    Workspace killed;
    Recovery keeps(killed, place(), soon);
    QSignalSpy spy(&keeps, &Recovery::kept);
    killed.newFile();
    killed.topWindow()->editor()->textCursor().insertText(QStringLiteral("lost?"));
    ASSERT_TRUE(support::waitUntil([&spy] { return !spy.isEmpty(); }));
    QObject::disconnect(killed.topWindow(), nullptr, &keeps, nullptr);
  }
  start();
  Page* const other = workspace.newFile();
  type(QStringLiteral("other"));
  recovery->offer();
  ASSERT_TRUE(restore());
  EXPECT_EQ(text(), QStringLiteral("lost?"));
  EXPECT_TRUE(workspace.topPage()->document()->isUntitled());
  EXPECT_NE(workspace.topPage()->document()->fileName(), other->document()->fileName());
  EXPECT_EQ(window()->pages().size(), 2);
}

TEST_F(RecoveryTest, SavingARestoredTextAsksWhenItsFileWasChangedSince) {
  leaveBehind(QStringLiteral("a.pas"), "a", QStringLiteral("x"));
  writeAt(60, QStringLiteral("a.pas"), "changed by another program");
  start();
  recovery->offer();
  ASSERT_TRUE(answer(QStringLiteral("Restore &Older Text")));
  const MessageBoxAnswer cancel(clicking(QStringLiteral("Cancel")));
  EXPECT_FALSE(workspace.files().save(workspace.topPage()));
  EXPECT_EQ(read(QStringLiteral("a.pas")), "changed by another program");
}

TEST_F(RecoveryTest, DiscardedTextsAreNotOfferedAgain) {
  leaveBehind(QStringLiteral("a.pas"), "a", QStringLiteral("x"));
  start();
  recovery->offer();
  ASSERT_TRUE(answer(QStringLiteral("&Discard")));
  support::settle();
  EXPECT_TRUE(QDir(place()).isEmpty());
}

TEST_F(RecoveryTest, AQuestionThatIsNotAnsweredIsAskedAgainAtTheNextStart) {
  leaveBehind(QStringLiteral("a.pas"), "a", QStringLiteral("x"));
  start();
  recovery->offer();
  window()->messageBar()->clear();
  support::settle();
  recovery->offer();
  EXPECT_EQ(messages().size(), 1);
}

TEST_F(RecoveryTest, MessagesDoNotPushTheQuestionAway) {
  leaveBehind(QStringLiteral("a.pas"), "a", QStringLiteral("x"));
  start();
  recovery->offer();
  for (int i = 0; i < 10; ++i)
    window()->messageBar()->addMessage(MessageBar::Kind::Information, QString::number(i));
  EXPECT_TRUE(restore());
}

TEST_F(RecoveryTest, ATextThatWasSavedJustBeforeTheKillIsNotOffered) {
  leaveBehind(QStringLiteral("a.pas"), "a", QStringLiteral("x"));
  write(QStringLiteral("a.pas"), "xa");
  start();
  recovery->offer();
  support::settle();
  EXPECT_EQ(messages(), QStringList());
  EXPECT_TRUE(QDir(place()).isEmpty());
}

TEST_F(RecoveryTest, ATextThatWasKeptBeforeItsFileWasSavedIsOfferedAsTheOlderOne) {
  leaveBehind(QStringLiteral("a.pas"), "a", QStringLiteral("x"));
  writeAt(60, QStringLiteral("a.pas"), "xya");
  start();
  recovery->offer();
  ASSERT_EQ(messages(),
            QStringList{QStringLiteral("The editor did not end in order last time. It has kept text of a.pas "
                                       "that is older than the file: the file was saved later.")});
  EXPECT_FALSE(restore()) << "that would be for newer texts";
  ASSERT_TRUE(answer(QStringLiteral("Restore &Older Text")));
  EXPECT_EQ(text(), QStringLiteral("xa"));
  EXPECT_EQ(read(QStringLiteral("a.pas")), "xya") << "nothing is lost of the newer one";
}

TEST_F(RecoveryTest, AnOlderTextCanBeDiscarded) {
  leaveBehind(QStringLiteral("a.pas"), "a", QStringLiteral("x"));
  writeAt(60, QStringLiteral("a.pas"), "xya");
  start();
  recovery->offer();
  ASSERT_TRUE(answer(QStringLiteral("D&iscard Older Text")));
  support::settle();
  EXPECT_TRUE(QDir(place()).isEmpty());
}

TEST_F(RecoveryTest, ATextThatWasKeptAfterItsFileHadBeenChangedIsTheNewerOne) {
  leaveBehind(QStringLiteral("a.pas"), "a", QStringLiteral("x"));
  writeAt(-3600, QStringLiteral("a.pas"), "changed by another program");
  start();
  recovery->offer();
  ASSERT_EQ(messages(),
            QStringList{QStringLiteral("The editor did not end in order last time. There is unsaved text of "
                                       "a.pas.")});
  EXPECT_TRUE(restore());
}

TEST_F(RecoveryTest, OlderAndNewerTextsAreAskedAboutApart) {
  leaveBehind(QStringLiteral("a.pas"), "a", QStringLiteral("x"));
  leaveBehind(QStringLiteral("b.pas"), "b", QStringLiteral("x"));
  writeAt(60, QStringLiteral("b.pas"), "newer");
  start();
  recovery->offer();
  ASSERT_EQ(messages().size(), 2);
  EXPECT_TRUE(messages().at(0).contains(QStringLiteral("a.pas")));
  EXPECT_TRUE(messages().at(1).contains(QStringLiteral("b.pas")));
  ASSERT_TRUE(restore());
  EXPECT_EQ(window()->pages().size(), 1);
  EXPECT_EQ(text(), QStringLiteral("xa"));
}

TEST_F(RecoveryTest, ATextWhoseFileHasGoneIsTheNewerOne) {
  leaveBehind(QStringLiteral("a.pas"), "a", QStringLiteral("x"));
  ASSERT_TRUE(QFile::remove(path(QStringLiteral("a.pas"))));
  start();
  recovery->offer();
  EXPECT_TRUE(restore());
}

TEST_F(RecoveryTest, AFullDiskIsToldOnceAndTriedAgain) {
  start();
  openText(QStringLiteral("a.pas"), "a");
  {
    const support::FileSizeLimit full(0);
    type(QStringLiteral("x"));
    ASSERT_TRUE(support::waitUntil([this] { return !messages().isEmpty(); }));
    type(QStringLiteral("y"));
    support::settle();
  }
  QSignalSpy spy(recovery.get(), &Recovery::kept);
  EXPECT_TRUE(support::waitUntil([&spy] { return !spy.isEmpty(); }));
  ASSERT_EQ(messages().size(), 1);
  EXPECT_FALSE(messages().constFirst().contains(QStringLiteral("times")));
  EXPECT_EQ(text(), QStringLiteral("xya"));
}

} // namespace
} // namespace desktop
