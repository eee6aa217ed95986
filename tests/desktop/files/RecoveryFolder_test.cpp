// SPDX-License-Identifier: MIT
#include "desktop/files/FileFixture.h"

#include "desktop/files/RecoveryFolder.h"
#include "support/FileSizeLimit.h"
#include "support/LowerRights.h"
#include "support/PrintQt.h"
#include "support/Wait.h"

#include <QDateTime>
#include <QDir>

#include <memory>

namespace desktop {
namespace {

using quorvane::TCodePage;
using quorvane::TLineEnd;

// A text that one editor keeps in a folder, and other editors that look into it.
class RecoveryFolderTest : public FileTest {
protected:
  QString place() const { return path("state/recovery"); }
  QStringList files() const { return QDir(place()).entryList(QDir::Files | QDir::Hidden); }

  // Keeps the document's text and waits until it is on the disk. Returns what was wrong.
  static QString keep(RecoveryFolder& folder, const QString& name, const SourceDocument& document) {
    QStringList problems;
    const auto connection =
        QObject::connect(&folder, &RecoveryFolder::written, &folder,
                         [&problems](const QString&, const QString& problem) { problems.append(problem); });
    folder.write(name, recoveryNoteOf(document), document.snapshot());
    EXPECT_TRUE(support::waitUntil([&problems] { return !problems.isEmpty(); }));
    QObject::disconnect(connection);
    return problems.isEmpty() ? QString() : problems.constFirst();
  }

  // Keeps the document's text as an editor that is killed then.
  void leaveBehind(const SourceDocument& document) const {
    RecoveryFolder killed(place());
    EXPECT_EQ(keep(killed, killed.newName(), document), QString());
  }

  static std::unique_ptr<SourceDocument> restored(const OrphanedText& orphan) {
    const std::optional<RecoveredText> recovered = orphan.read();
    return recovered ? restoredDocument(*recovered) : nullptr;
  }
};

TEST_F(RecoveryFolderTest, GivesTheTextBackWithAllThatBelongsToItsFile) {
  const std::unique_ptr<SourceDocument> document = openBytes("unit a;\r\n\xE9\r\n");
  type(*document, 0, 4, QStringLiteral("\u00E9\nx"));
  leaveBehind(*document);

  const std::vector<OrphanedText> orphans = RecoveryFolder(place()).takeOrphans();
  ASSERT_EQ(orphans.size(), 1U);
  const std::unique_ptr<SourceDocument> back = restored(orphans.front());
  ASSERT_NE(back, nullptr);
  EXPECT_EQ(back->fileName(), document->fileName());
  EXPECT_FALSE(back->isUntitled());
  EXPECT_TRUE(back->isModified());
  EXPECT_EQ(back->fileStamp(), document->fileStamp());
  EXPECT_EQ(back->encoding(), quorvane::CodePageEncoding(TCodePage::Windows1252));
  EXPECT_EQ(back->toBytes().Bytes, document->toBytes().Bytes);
  EXPECT_EQ(back->usualLineEnd(), TLineEnd::CrLf);
}

TEST_F(RecoveryFolderTest, KeepsMixedLineEnds) {
  const std::unique_ptr<SourceDocument> document = openBytes("a\r\nb\nc\rd");
  type(*document, 1, 1, QStringLiteral("!"));
  leaveBehind(*document);
  EXPECT_EQ(restored(RecoveryFolder(place()).takeOrphans().at(0))->toBytes().Bytes, "a\r\nb!\nc\rd");
}

TEST_F(RecoveryFolderTest, KeepsCharactersThatTheFilesEncodingLacks) {
  const std::unique_ptr<SourceDocument> document = openBytes("\xE9");
  type(*document, 0, 0, QStringLiteral("\u4E2D"));
  ASSERT_TRUE(document->toBytes().FirstMissing);
  leaveBehind(*document);
  const auto back = restored(RecoveryFolder(place()).takeOrphans().at(0));
  EXPECT_EQ(back->text(), document->text());
  EXPECT_EQ(back->encoding(), document->encoding());
}

TEST_F(RecoveryFolderTest, KeepsALoneSurrogate) {
  const std::unique_ptr<SourceDocument> document = openBytes("ab");
  type(*document, 0, 1, QString(QChar(0xD800)));
  leaveBehind(*document);
  EXPECT_EQ(restored(RecoveryFolder(place()).takeOrphans().at(0))->text(), document->text());
}

TEST_F(RecoveryFolderTest, KeepsAByteOrderMark) {
  const std::unique_ptr<SourceDocument> document = openBytes("\xEF\xBB\xBFunit a;");
  type(*document, 0, 0, QStringLiteral("x"));
  leaveBehind(*document);
  EXPECT_EQ(restored(RecoveryFolder(place()).takeOrphans().at(0))->toBytes().Bytes, "\xEF\xBB\xBFxunit a;");
}

TEST_F(RecoveryFolderTest, KeepsATextWithoutAFile) {
  SourceDocument document(path("Unit1.pas"), true);
  type(document, 0, 0, QStringLiteral("unit Unit1;"));
  leaveBehind(document);
  const auto back = restored(RecoveryFolder(place()).takeOrphans().at(0));
  EXPECT_TRUE(back->isUntitled());
  EXPECT_EQ(back->text(), u"unit Unit1;");
}

TEST_F(RecoveryFolderTest, TheTextOfARunningEditorIsNotOffered) {
  const std::unique_ptr<SourceDocument> document = openBytes("a");
  RecoveryFolder running(place());
  ASSERT_EQ(keep(running, running.newName(), *document), QString());
  EXPECT_TRUE(RecoveryFolder(place()).takeOrphans().empty());
  EXPECT_TRUE(running.takeOrphans().empty());
}

TEST_F(RecoveryFolderTest, WhatOneEditorOffersNoOtherDoes) {
  leaveBehind(*openBytes("a"));
  RecoveryFolder folder(place());
  {
    const std::vector<OrphanedText> orphans = folder.takeOrphans();
    ASSERT_EQ(orphans.size(), 1U);
    EXPECT_TRUE(RecoveryFolder(place()).takeOrphans().empty());
  }
  EXPECT_EQ(folder.takeOrphans().size(), 1U) << "not answered, so offered again";
}

TEST_F(RecoveryFolderTest, NothingStaysOfWhatWasRemoved) {
  const std::unique_ptr<SourceDocument> document = openBytes("a");
  {
    RecoveryFolder folder(place());
    const QString first = folder.newName();
    const QString second = folder.newName();
    ASSERT_EQ(keep(folder, first, *document), QString());
    ASSERT_EQ(keep(folder, second, *document), QString());
    EXPECT_EQ(files().size(), 3) << "two texts and the lock";
    folder.remove(first);
    folder.remove(second);
  }
  EXPECT_EQ(files(), QStringList());
}

TEST_F(RecoveryFolderTest, RemovingComesAfterTheWritingBeforeIt) {
  const std::unique_ptr<SourceDocument> document = openBytes(std::string(1'000'000, 'a'));
  {
    RecoveryFolder folder(place());
    const QString name = folder.newName();
    folder.write(name, recoveryNoteOf(*document), document->snapshot());
    folder.remove(name);
  }
  EXPECT_EQ(files(), QStringList());
}

TEST_F(RecoveryFolderTest, ATextCanBeKeptAgainAfterTheLastWasRemoved) {
  const std::unique_ptr<SourceDocument> document = openBytes("a");
  RecoveryFolder folder(place());
  const QString name = folder.newName();
  ASSERT_EQ(keep(folder, name, *document), QString());
  folder.remove(name);
  EXPECT_EQ(keep(folder, name, *document), QString());
  EXPECT_TRUE(RecoveryFolder(place()).takeOrphans().empty()) << "locked anew";
}

TEST_F(RecoveryFolderTest, DiscardedTextsAreGoneWithTheirLock) {
  leaveBehind(*openBytes("a"));
  {
    const std::vector<OrphanedText> orphans = RecoveryFolder(place()).takeOrphans();
    ASSERT_EQ(orphans.size(), 1U);
    orphans.front().discard();
  }
  EXPECT_EQ(files(), QStringList());
}

TEST_F(RecoveryFolderTest, AnAdoptedTextIsTheNewEditors) {
  leaveBehind(*openBytes("text"));
  RecoveryFolder folder(place());
  const QString name = folder.newName();
  {
    const std::vector<OrphanedText> orphans = folder.takeOrphans();
    ASSERT_EQ(orphans.size(), 1U);
    ASSERT_TRUE(folder.adopt(orphans.front(), name));
  }
  EXPECT_EQ(files().size(), 2) << files().join(u' ').toStdString();
  EXPECT_TRUE(RecoveryFolder(place()).takeOrphans().empty());
}

TEST_F(RecoveryFolderTest, ADamagedFileIsPutAsideAndHidesNoOther) {
  leaveBehind(*openBytes("first"));
  const QString whole = QDir(place()).entryList({QStringLiteral("*.recovery")}).constFirst();
  const QString damaged = QString(whole).replace(QStringLiteral("-1."), QStringLiteral("-2."));
  QFile file(QDir(place()).filePath(damaged));
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write("{\"file\"");
  file.close();
  EXPECT_EQ(RecoveryFolder(place()).takeOrphans().size(), 1U);
  EXPECT_FALSE(files().contains(damaged));
  EXPECT_EQ(files().filter(QStringLiteral(".damaged.")).size(), 1);
}

TEST_F(RecoveryFolderTest, ATextThatIsNotWholeIsNotGivenBack) {
  const std::unique_ptr<SourceDocument> document = openBytes("some text");
  const std::string bytes = recoveryBytes(recoveryNoteOf(*document), document->text());
  ASSERT_TRUE(readRecovery(bytes));
  for (std::size_t length = 0; length < bytes.size(); ++length)
    EXPECT_FALSE(readRecovery(std::string_view(bytes).substr(0, length))) << length;
}

TEST_F(RecoveryFolderTest, WhatWasLeftInTheMidstOfWritingIsCleanedAway) {
  leaveBehind(*openBytes("a"));
  const QString whole = QDir(place()).entryList({QStringLiteral("*.recovery")}).constFirst();
  QFile file(QDir(place()).filePath(whole + QStringLiteral(".AbCdEf")));
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.close();
  EXPECT_EQ(RecoveryFolder(place()).takeOrphans().size(), 1U);
  EXPECT_FALSE(file.exists());
}

TEST_F(RecoveryFolderTest, ALockThatAnEditorLeftWithoutATextGoesAfterADay) {
  const auto document = openBytes("a\n");
  RecoveryFolder running(place());
  EXPECT_EQ(keep(running, running.newName(), *document), QString());
  ASSERT_EQ(files().size(), 2);
  const auto makeOld = [](const QString& name) {
    QFile lock(name);
    ASSERT_TRUE(lock.open(QIODevice::ReadWrite));
    ASSERT_TRUE(lock.setFileTime(QDateTime::currentDateTime().addDays(-2), QFileDevice::FileModificationTime));
  };
  for (const QString& name : files().filter(QStringLiteral(".lock")))
    makeOld(place() + u'/' + name); // that of the running editor
  makeOld(place() + QStringLiteral("/left.lock"));
  write("", "state/recovery/young.lock");

  EXPECT_TRUE(RecoveryFolder(place()).takeOrphans().empty());
  EXPECT_FALSE(files().contains(QStringLiteral("left.lock")));
  EXPECT_TRUE(files().contains(QStringLiteral("young.lock")));
  EXPECT_EQ(files().size(), 3) << "the text, its lock and the young one";
}

TEST_F(RecoveryFolderTest, OnlyTheUserMayReadTheTexts) {
  leaveBehind(*openBytes("a"));
  const QFile::Permissions others =
      QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup | QFile::ReadOther | QFile::WriteOther | QFile::ExeOther;
  EXPECT_FALSE(QFile::permissions(place()) & others);
}

TEST_F(RecoveryFolderTest, AFullDiskIsToldAndTheEarlierTextStays) {
  const std::unique_ptr<SourceDocument> document = openBytes("early");
  {
    RecoveryFolder folder(place());
    const QString name = folder.newName();
    ASSERT_EQ(keep(folder, name, *document), QString());
    type(*document, 0, 0, QString(100'000, u'x'));
    const support::FileSizeLimit full(4096);
    EXPECT_NE(keep(folder, name, *document), QString());
  }
  EXPECT_EQ(restored(RecoveryFolder(place()).takeOrphans().at(0))->text(), u"early");
}

TEST_F(RecoveryFolderTest, AFolderThatCannotBeMadeIsTold) {
  const std::unique_ptr<SourceDocument> document = openBytes("a");
  RecoveryFolder inFile(write("", "file") + QStringLiteral("/recovery"));
  EXPECT_NE(keep(inFile, inFile.newName(), *document), QString());
  RecoveryFolder nowhere((QString()));
  EXPECT_NE(keep(nowhere, nowhere.newName(), *document), QString());
  EXPECT_TRUE(nowhere.takeOrphans().empty());
}

TEST_F(RecoveryFolderTest, AReadOnlyFolderIsTold) {
  const std::unique_ptr<SourceDocument> document = openBytes("a");
  ASSERT_TRUE(QDir().mkpath(path("state")));
  ASSERT_TRUE(QFile::setPermissions(path("state"), QFile::ReadOwner | QFile::ExeOwner));
  const support::LowerRights lower(folder());
  RecoveryFolder readOnly(path("state/more"));
  EXPECT_NE(keep(readOnly, readOnly.newName(), *document), QString());
  EXPECT_TRUE(readOnly.takeOrphans().empty());
}

} // namespace
} // namespace desktop
