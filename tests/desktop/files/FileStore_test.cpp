// SPDX-License-Identifier: MIT
#include "desktop/files/FileFixture.h"
#include "support/LowerRights.h"

#include <QDir>
#include <QFileInfo>

#include <sys/stat.h>

namespace desktop {
namespace {

using FileStoreTest = FileTest;

std::string errorOf(const QString& path) {
  const LoadResult result = load(path);
  EXPECT_EQ(result.document, nullptr);
  return result.error.toStdString();
}

TEST_F(FileStoreTest, RefusesAMissingFileByNameAndReason) {
  EXPECT_EQ(errorOf(path("no.pas")), "Cannot open " + path("no.pas").toStdString() + ": No such file or directory.");
}

TEST_F(FileStoreTest, RefusesAFolder) {
  EXPECT_EQ(errorOf(folder()), "Cannot open " + folder().toStdString() + ": it is a folder.");
}

TEST_F(FileStoreTest, RefusesAPipeWithoutWaitingForIt) {
  ASSERT_EQ(::mkfifo(QFile::encodeName(path("pipe.pas")).constData(), 0600), 0);
  EXPECT_EQ(errorOf(path("pipe.pas")), "Cannot open " + path("pipe.pas").toStdString() + ": it is no regular file.");
}

TEST_F(FileStoreTest, RefusesADevice) {
  EXPECT_EQ(errorOf(QStringLiteral("/dev/zero")), "Cannot open /dev/zero: it is no regular file.");
}

TEST_F(FileStoreTest, RefusesAnUnreadableFileByNameAndReason) {
  const QString file = write("a");
  QFile::setPermissions(file, {});
  const support::LowerRights lower(folder());
  EXPECT_EQ(errorOf(file), "Cannot open " + file.toStdString() + ": Permission denied.");
}

TEST_F(FileStoreTest, OpensAFileThatMayNotBeWrittenReadOnly) {
  const QString file = write("a");
  QFile::setPermissions(file, QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther);
  const support::LowerRights lower(folder());
  const auto document = open(file);
  EXPECT_TRUE(document->isReadOnlyText());
  EXPECT_EQ(document->readOnlyReason(), QStringLiteral("The file may not be written."));
}

TEST_F(FileStoreTest, MakesACopyOfAReadOnlyFileWritable) {
  const QString file = write("a");
  QFile::setPermissions(file, QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther);
  const support::LowerRights lower(folder());
  const auto document = open(file);
  const SaveResult result = save(*document, path("copy.pas"));
  ASSERT_TRUE(result.ok()) << result.error.toStdString();
  EXPECT_FALSE(document->isReadOnlyText());
  EXPECT_EQ(read(path("copy.pas")), "a");
}

TEST_F(FileStoreTest, MakesPathsAbsoluteAndClean) {
  write("a");
  const auto document = open(folder() + QStringLiteral("/./x/../unit.pas"));
  EXPECT_EQ(document->fileName(), path());
  EXPECT_FALSE(document->isUntitled());
}

TEST_F(FileStoreTest, GivesANewDocumentTheFirstFreeName) {
  write("", "Unit1.pas");
  const QString taken = path("Unit2.pas");
  const auto document = newDocument(folder(), [&](const QString& name) { return name == taken; });
  EXPECT_EQ(document->fileName(), path("Unit3.pas"));
  EXPECT_TRUE(document->isUntitled());
  EXPECT_FALSE(document->isModified());
}

TEST_F(FileStoreTest, TakesTheNameUnderWhichADocumentIsSaved) {
  const auto document = newDocument(folder(), [](const QString&) { return false; });
  type(*document, 0, 0, QStringLiteral("unit A;"));
  int renamed = 0;
  QObject::connect(document.get(), &SourceDocument::fileNameChanged, [&] { ++renamed; });
  ASSERT_TRUE(save(*document, path("A.pas")).ok());
  EXPECT_EQ(document->fileName(), path("A.pas"));
  EXPECT_FALSE(document->isUntitled());
  EXPECT_FALSE(document->isModified());
  EXPECT_EQ(renamed, 1);
  EXPECT_EQ(read(path("A.pas")), "unit A;");
}

TEST_F(FileStoreTest, NoticesThatAnotherProgramHasWrittenTheFile) {
  const QString file = write("a");
  const auto document = open(file);
  EXPECT_FALSE(changedOnDisk(*document));
  write("ab");
  EXPECT_TRUE(changedOnDisk(*document));
  saveOver(*document);
  EXPECT_FALSE(changedOnDisk(*document));
  QFile::remove(file);
  EXPECT_TRUE(changedOnDisk(*document));
}

TEST_F(FileStoreTest, NeverSeesAnUntitledDocumentChangedOnDisk) {
  const auto document = newDocument(folder(), [](const QString&) { return false; });
  write("x", "Unit1.pas");
  EXPECT_FALSE(changedOnDisk(*document));
}

} // namespace
} // namespace desktop
