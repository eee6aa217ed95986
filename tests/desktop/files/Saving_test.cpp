// SPDX-License-Identifier: MIT
#include "desktop/files/FileFixture.h"
#include "support/FileSizeLimit.h"
#include "support/LowerRights.h"

#include <QDir>
#include <QFileInfo>

#include <sys/stat.h>
#include <unistd.h>

namespace desktop {
namespace {

using SavingTest = FileTest;

struct stat statusOf(const QString& path) {
  struct stat status = {};
  EXPECT_EQ(::lstat(QFile::encodeName(path).constData(), &status), 0);
  return status;
}

class FailedSaveTest : public FileTest {
protected:
  // `document` has an x typed at its start; saving it to its file fails for `reason` and loses nothing.
  void expectFailure(SourceDocument& document, const std::string& fileBytes, const std::string& reason) const {
    const std::string name = document.fileName().toStdString();
    const QStringList filesBefore = QDir(folder()).entryList(QDir::Files);
    const SaveResult result = save(document, document.fileName());
    EXPECT_EQ(result.error.toStdString(), "Cannot save " + name + ": " + reason + ".");
    EXPECT_TRUE(document.isModified());
    EXPECT_TRUE(document.toPlainText().startsWith(QLatin1Char('x')));
    EXPECT_TRUE(document.isUndoAvailable());
    if (!fileBytes.empty()) {
      EXPECT_EQ(read(document.fileName()), fileBytes);
      EXPECT_EQ(QDir(folder()).entryList(QDir::Files), filesBefore);
    }
  }
};

TEST_F(FailedSaveTest, KeepsFileAndTextWhenTheDiskIsFull) {
  const std::string bytes(100'000, 'a');
  const auto document = openBytes(bytes);
  type(*document, 0, 0, QStringLiteral("x"));
  const support::FileSizeLimit limit(50'000);
  expectFailure(*document, bytes, "File too large");
}

TEST_F(FailedSaveTest, KeepsASmallFileWhenTheDiskIsFull) {
  const auto document = openBytes("unit a;");
  type(*document, 0, 0, QStringLiteral("x"));
  const support::FileSizeLimit limit(4);
  expectFailure(*document, "unit a;", "File too large");
}

TEST_F(FailedSaveTest, KeepsFileAndTextOfAFileWithTwoNamesWhenTheDiskIsFull) {
  const std::string bytes(100'000, 'a');
  const auto document = openBytes(bytes);
  ASSERT_EQ(::link(QFile::encodeName(path()).constData(), QFile::encodeName(path("other.pas")).constData()), 0);
  type(*document, 0, 0, QStringLiteral("x"));
  const support::FileSizeLimit limit(100'000); // room for the backup
  expectFailure(*document, bytes, "File too large");
  EXPECT_EQ(read(path("other.pas")), bytes);
}

TEST_F(FailedSaveTest, LeavesAFileWithTwoNamesAloneWhenThereIsNoRoomForABackup) {
  const std::string bytes(100'000, 'a');
  const auto document = openBytes(bytes);
  ASSERT_EQ(::link(QFile::encodeName(path()).constData(), QFile::encodeName(path("other.pas")).constData()), 0);
  type(*document, 0, 0, QStringLiteral("x"));
  const support::FileSizeLimit limit(50'000);
  expectFailure(*document, bytes, "no backup can be made: File too large");
}

TEST_F(FailedSaveTest, KeepsTheTextWhenTheFolderIsGone) {
  ASSERT_TRUE(QDir(folder()).mkdir(QStringLiteral("sub")));
  const auto document = open(write("a", "sub/unit.pas"));
  type(*document, 0, 0, QStringLiteral("x"));
  ASSERT_TRUE(QDir(path("sub")).removeRecursively());
  expectFailure(*document, "", "No such file or directory");
}

TEST_F(FailedSaveTest, KeepsFileAndTextWhenTheFileMayNotBeWritten) {
  const auto document = openBytes("a");
  type(*document, 0, 0, QStringLiteral("x"));
  QFile::setPermissions(path(), QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther);
  const support::LowerRights lower(folder());
  expectFailure(*document, "a", "Permission denied");
}

TEST_F(FailedSaveTest, KeepsTheTextWhenAFolderHasTheName) {
  const auto document = openBytes("a");
  type(*document, 0, 0, QStringLiteral("x"));
  ASSERT_TRUE(QDir(folder()).mkdir(QStringLiteral("sub")));
  const SaveResult result = save(*document, path("sub"));
  EXPECT_EQ(result.error.toStdString(), "Cannot save " + path("sub").toStdString() + ": it is no regular file.");
  EXPECT_EQ(document->fileName(), path());
  EXPECT_TRUE(document->isModified());
}

TEST_F(FailedSaveTest, NamesTheCharacterThatTheEncodingLacks) {
  const auto document = openBytes("\xE4\nab\r\n");
  type(*document, 1, 1, QString::fromUtf8("\xF0\x9F\x98\x80"));
  const SaveResult result = save(*document, path());
  EXPECT_EQ(result.error.toStdString(),
            "Cannot save " + path().toStdString() + ": line 2 has the character U+1F600, which windows-1252 lacks.");
  ASSERT_TRUE(result.missing);
  EXPECT_EQ(result.missing->character, U'\U0001F600');
  EXPECT_EQ(result.missing->line, 2);
  EXPECT_EQ(result.missing->index, 1);
  EXPECT_EQ(read(path()), "\xE4\nab\r\n");
  EXPECT_TRUE(document->isModified());
}

TEST_F(SavingTest, CountsCharactersBeforeTheMissingOne) {
  const auto document = openBytes("a");
  type(*document, 0, 1, QString::fromUtf8("\xF0\x9F\x98\x80") + QChar(0xDC00));
  const SaveResult result = save(*document, path());
  ASSERT_TRUE(result.missing);
  EXPECT_EQ(result.missing->character, char32_t{0xDC00});
  EXPECT_EQ(result.missing->line, 1);
  EXPECT_EQ(result.missing->index, 2);
}

TEST_F(SavingTest, WritesAMissingCharacterAfterAChangeOfEncoding) {
  const auto document = openBytes("\xE4\n");
  type(*document, 0, 1, QString::fromUtf8("\xD0\x96"));
  ASSERT_FALSE(save(*document, path()).ok());
  document->setEncoding(quorvane::TEncoding{});
  saveOver(*document);
  EXPECT_EQ(read(path()), "\xC3\xA4\xD0\x96\n");
}

TEST_F(SavingTest, WritesWhatWasTypedIntoAnAsciiFileAsUtf8) {
  const auto document = openBytes("a\n");
  type(*document, 0, 1, QString::fromUtf8("\xC3\xA4"));
  saveOver(*document);
  EXPECT_EQ(read(path()), "a\xC3\xA4\n");
}

TEST_F(SavingTest, KeepsTheModeOfTheFile) {
  const auto document = openBytes("a");
  ASSERT_EQ(::chmod(QFile::encodeName(path()).constData(), 0751), 0);
  type(*document, 0, 0, QStringLiteral("x"));
  saveOver(*document);
  EXPECT_EQ(statusOf(path()).st_mode & 07777, 0751U);
}

TEST_F(SavingTest, GivesANewFileTheUsualMode) {
  const mode_t old = ::umask(027);
  const auto document = newDocument(folder(), [](const QString&) { return false; });
  saveOver(*document);
  ::umask(old);
  EXPECT_EQ(statusOf(document->fileName()).st_mode & 07777, 0640U);
}

TEST_F(SavingTest, ReplacesTheFileInOneStep) {
  const auto document = openBytes("a");
  const auto before = statusOf(path()).st_ino;
  type(*document, 0, 0, QStringLiteral("x"));
  saveOver(*document);
  EXPECT_NE(statusOf(path()).st_ino, before);
  EXPECT_EQ(QDir(folder()).entryList(QDir::Files), QStringList{QStringLiteral("unit.pas")});
}

TEST_F(SavingTest, WritesThroughASymbolicLink) {
  ASSERT_TRUE(QDir(folder()).mkdir(QStringLiteral("real")));
  write("a", "real/unit.pas");
  ASSERT_TRUE(QFile::link(QStringLiteral("real/unit.pas"), path("link.pas")));
  ASSERT_TRUE(QFile::link(QStringLiteral("link.pas"), path("second.pas")));
  const auto document = open(path("second.pas"));
  EXPECT_EQ(document->fileName(), path("second.pas"));
  type(*document, 0, 0, QStringLiteral("x"));
  saveOver(*document);
  EXPECT_TRUE(S_ISLNK(statusOf(path("second.pas")).st_mode));
  EXPECT_TRUE(S_ISLNK(statusOf(path("link.pas")).st_mode));
  EXPECT_EQ(read(path("real/unit.pas")), "xa");
}

TEST_F(SavingTest, KeepsAllNamesOfAHardLinkedFile) {
  const auto document = openBytes("aaaa\n");
  ASSERT_EQ(::link(QFile::encodeName(path()).constData(), QFile::encodeName(path("other.pas")).constData()), 0);
  type(*document, 0, 0, QStringLiteral("xy"));
  saveOver(*document);
  EXPECT_EQ(read(path("other.pas")), "xyaaaa\n");
  QTextCursor all(document.get());
  all.select(QTextCursor::Document);
  all.insertText(QStringLiteral("b"));
  saveOver(*document);
  EXPECT_EQ(read(path("other.pas")), "b");
  EXPECT_EQ(statusOf(path()).st_ino, statusOf(path("other.pas")).st_ino);
  EXPECT_EQ(QDir(folder()).entryList(QDir::Files).size(), 2);
}

TEST_F(SavingTest, WritesAFileInAFolderThatTakesNoOthers) {
  ASSERT_TRUE(QDir(folder()).mkdir(QStringLiteral("closed")));
  const QString file = write("a", "closed/unit.pas");
  ASSERT_EQ(::chmod(QFile::encodeName(file).constData(), 0666), 0);
  ASSERT_EQ(::chmod(QFile::encodeName(path("closed")).constData(), 0555), 0);
  {
    const support::LowerRights lower(folder());
    const auto document = open(file);
    type(*document, 0, 0, QStringLiteral("x"));
    saveOver(*document);
  }
  EXPECT_EQ(read(file), "xa");
  ASSERT_EQ(::chmod(QFile::encodeName(path("closed")).constData(), 0755), 0);
}

TEST_F(SavingTest, KeepsTheOwnerOfSomebodyElsesFile) {
  if (::geteuid() != 0)
    GTEST_SKIP() << "only the administrator can give a file away";
  const auto document = openBytes("a");
  ASSERT_EQ(::chown(QFile::encodeName(path()).constData(), 65534, 65534), 0);
  type(*document, 0, 0, QStringLiteral("x"));
  saveOver(*document);
  EXPECT_EQ(statusOf(path()).st_uid, 65534U);
  EXPECT_EQ(read(path()), "xa");
}

} // namespace
} // namespace desktop
