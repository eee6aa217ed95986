// SPDX-License-Identifier: MIT
// What becomes of the registry's file when something is wrong with it or with its place.
#include "platform/RegistryFixture.h"
#include "support/FileSizeLimit.h"
#include "support/LowerRights.h"
#include "support/PrintQt.h"

#include <QFileInfo>

#include <sys/stat.h>

#include <atomic>
#include <thread>
#include <utility>

namespace platform {
namespace {

class RegistryFile : public RegistryTest {
protected:
  // Writing fails for `reason`, and the file stays as it is, alone in its folder but for its lock.
  void ExpectFailure(const std::string& reason) {
    const std::string before = FileBytes();
    EXPECT_EQ(MessageOf([] { WriteNumber("a", 2); }),
              "The registry in " + File().toStdString() + " cannot be written: " + reason);
    EXPECT_EQ(FileBytes(), before);
    EXPECT_FALSE(QFileInfo::exists(File(".new")));
    EXPECT_FALSE(QFileInfo::exists(File(".damaged")));
  }

  const QStringList fileAndLock_{QStringLiteral("registry.reg"), QStringLiteral("registry.reg.lock")};
};

TEST_F(RegistryFile, LeavesNothingBesideIt) {
  WriteNumber("a", 1);
  EXPECT_EQ(Files(), fileAndLock_);
}

TEST_F(RegistryFile, OtherValuesThatWereWrittenMeanwhileStay) {
  SetFile(FileWith("\"a\"=dword:00000001\n\"b\"=dword:00000001\n"));
  TRegistry first;
  TRegistry second;
  ASSERT_TRUE(first.OpenKey(Key, false));
  ASSERT_TRUE(second.OpenKey(Key, false));
  EXPECT_EQ(second.ReadInteger("b"), 1);
  first.WriteInteger("a", 2);
  first.WriteInteger("c", 2);
  second.WriteInteger("b", 3);
  first.CloseKey();
  second.CloseKey();
  EXPECT_EQ(FileBytes(), FileWith("\"a\"=dword:00000002\n\"b\"=dword:00000003\n\"c\"=dword:00000002\n"));
}

TEST_F(RegistryFile, IsNotWrittenWhenNothingChanges) {
  SetFile(FileWith("\"a\"=dword:00000001\n"));
  struct stat before = {};
  ASSERT_EQ(::stat(QFile::encodeName(File()).constData(), &before), 0);
  WriteNumber("a", 1);
  struct stat after = {};
  ASSERT_EQ(::stat(QFile::encodeName(File()).constData(), &after), 0);
  EXPECT_EQ(after.st_ino, before.st_ino);
}

TEST_F(RegistryFile, KeepsItsPermissions) {
  SetFile(FileWith(""));
  ASSERT_TRUE(QFile::setPermissions(File(), QFile::ReadOwner | QFile::WriteOwner));
  const QFile::Permissions before = QFile::permissions(File());
  WriteNumber("a", 1);
  EXPECT_EQ(QFile::permissions(File()), before);
}

TEST_F(RegistryFile, OneOfOnesOwnIsNobodyElsesWhileItIsWritten) {
  SetFile(FileWith(""));
  ASSERT_TRUE(QFile::setPermissions(File(), QFile::ReadOwner | QFile::WriteOwner));
  const QByteArray newFile = QFile::encodeName(File(".new"));
  std::atomic<int> looks = 0;
  std::atomic<mode_t> seen = 0;
  std::jthread other([&](const std::stop_token& stop) {
    for (struct stat file = {}; !stop.stop_requested();) {
      if (::stat(newFile.constData(), &file) != 0)
        continue;
      seen |= file.st_mode;
      ++looks;
    }
  });
  for (int number = 1; looks < 100; ++number)
    WriteNumber("a", number);
  other.request_stop();
  other.join();
  EXPECT_EQ(seen & 0077U, 0U);
}

TEST_F(RegistryFile, MayBeALinkAndStaysOne) {
  SetFile(FileWith(""));
  const QString target = Home.filePath(QStringLiteral("elsewhere.reg"));
  ASSERT_TRUE(QFile::rename(File(), target));
  ASSERT_TRUE(QFile::link(target, File()));
  WriteNumber("a", 1);
  EXPECT_TRUE(QFileInfo(File()).isSymLink());
  EXPECT_EQ(ReadNumber("a"), 1);
  EXPECT_EQ(QFileInfo(File()).canonicalFilePath(), QFileInfo(target).canonicalFilePath());
}

TEST_F(RegistryFile, ALinkToNothingStaysOneToo) {
  ASSERT_TRUE(QDir().mkpath(Folder()));
  const QString target = Home.filePath(QStringLiteral("elsewhere.reg"));
  const QString between = Home.filePath(QStringLiteral("between.reg"));
  ASSERT_TRUE(QFile::link(QStringLiteral("elsewhere.reg"), between)); // by a name that counts from its own folder
  ASSERT_TRUE(QFile::link(between, File()));
  WriteNumber("a", 1);
  EXPECT_TRUE(QFileInfo(File()).isSymLink());
  EXPECT_TRUE(QFileInfo(between).isSymLink());
  EXPECT_TRUE(QFileInfo(target).isFile());
  EXPECT_EQ(ReadNumber("a"), 1);
}

TEST_F(RegistryFile, ALinkThatLeadsToItselfIsLeftAlone) {
  ASSERT_TRUE(QDir().mkpath(Folder()));
  ASSERT_TRUE(QFile::link(File(), File()));
  EXPECT_EQ(ReadNumber("a"), -1);
  EXPECT_EQ(MessageOf([] { WriteNumber("a", 2); }),
            "The registry in " + File().toStdString() + " cannot be written: Too many levels of symbolic links");
  EXPECT_TRUE(QFileInfo(File()).isSymLink());
}

TEST_F(RegistryFile, OneThatIsDamagedIsKeptBesideTheNewOne) {
  const std::string damage("\x7F\x45LF\0\0\1", 7);
  SetFile(damage);
  EXPECT_EQ(ReadNumber("a"), -1);
  EXPECT_EQ(FileBytes(), damage);
  EXPECT_EQ(std::exchange(Lines, {}), std::vector<std::string>{"The registry in " + File().toStdString() +
                                                               " is damaged; what cannot be read is left out"});

  WriteNumber("a", 1);
  EXPECT_EQ(FileBytes(), FileWith("\"a\"=dword:00000001\n"));
  EXPECT_EQ(FileBytes(".damaged"), damage);
  EXPECT_EQ(Lines, std::vector<std::string>{"The registry in " + File().toStdString() + " is damaged; it was kept as " +
                                            File(".damaged").toStdString()});
}

TEST_F(RegistryFile, EachOneThatIsDamagedIsKept) {
  SetFile("first");
  WriteNumber("a", 1);
  SetFile("second");
  WriteNumber("a", 1);
  EXPECT_EQ(FileBytes(".damaged"), "first");
  EXPECT_EQ(FileBytes(".damaged2"), "second");
}

TEST_F(RegistryFile, OneThatIsEmptyIsAFreshUsers) {
  SetFile("");
  EXPECT_EQ(ReadNumber("a"), -1);
  WriteNumber("a", 1);
  EXPECT_EQ(FileBytes(), FileWith("\"a\"=dword:00000001\n"));
  EXPECT_EQ(Files(), fileAndLock_);
}

TEST_F(RegistryFile, OneOf50MegabytesIsReadAndWritten) {
  std::string bytes = FileWith("\"a\"=dword:00000001\n\n");
  while (bytes.size() < 50'000'000)
    bytes += "[HKEY_CURRENT_USER\\Software\\Some\\Other\\Key]\n\"Name\"=\"Value\"\n\n";
  SetFile(bytes);
  EXPECT_EQ(ReadNumber("a"), 1);
  WriteNumber("a", 2);
  bytes.replace(bytes.find("dword:00000001"), 14, "dword:00000002");
  EXPECT_TRUE(FileBytes() == bytes);
}

TEST_F(RegistryFile, OneThatIsTooLargeIsRefusedAndLeftAlone) {
  SetFile(FileWith("\"a\"=dword:00000001\n"));
  constexpr qint64 size = (64LL << 20) + 1;
  ASSERT_TRUE(QFile::resize(File(), size));
  EXPECT_EQ(ReadNumber("a"), -1);
  EXPECT_EQ(Lines, std::vector<std::string>{"The registry in " + File().toStdString() +
                                            " cannot be read: it is larger than 64 MB"});
  EXPECT_EQ(MessageOf([] { WriteNumber("a", 2); }),
            "The registry in " + File().toStdString() + " cannot be written: it is larger than 64 MB");
  EXPECT_EQ(QFileInfo(File()).size(), size);
  EXPECT_EQ(Files(), fileAndLock_);
}

TEST_F(RegistryFile, OneThatMayNotBeReadCountsAsEmptyAndIsLeftAlone) {
  SetFile(FileWith("\"a\"=dword:00000001\n"));
  ASSERT_TRUE(QFile::setPermissions(File(), {}));
  {
    const support::LowerRights lower(Home.path());
    const support::LowerRights lowerInFolder(Folder());
    EXPECT_EQ(ReadNumber("a"), -1);
    EXPECT_EQ(Lines, std::vector<std::string>{"The registry in " + File().toStdString() +
                                              " cannot be read: Permission denied"});
    EXPECT_NE(MessageOf([] { WriteNumber("a", 2); }), "");
  }
  ASSERT_TRUE(QFile::setPermissions(File(), QFile::ReadOwner));
  EXPECT_EQ(FileBytes(), FileWith("\"a\"=dword:00000001\n"));
}

TEST_F(RegistryFile, OneThatMayNotBeWrittenIsLeftAlone) {
  SetFile(FileWith("\"a\"=dword:00000001\n"));
  ASSERT_TRUE(QFile::setPermissions(File(), QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther));
  ASSERT_TRUE(QFile::setPermissions(Folder(), QFile::Permissions(0x7777)));
  const support::LowerRights lower(Home.path());
  ExpectFailure("Permission denied");
}

TEST_F(RegistryFile, InAFolderThatMayNotBeWrittenItIsLeftAlone) {
  SetFile(FileWith("\"a\"=dword:00000001\n"));
  ASSERT_TRUE(QFile::setPermissions(Folder(), QFile::Permissions(0x5555)));
  {
    const support::LowerRights lower(Home.path());
    EXPECT_EQ(ReadNumber("a"), 1);
    ExpectFailure(File(".lock").toStdString() + ": Permission denied");
  }
  ASSERT_TRUE(QFile::setPermissions(Folder(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
}

TEST_F(RegistryFile, OnAFullDiskItIsLeftAlone) {
  SetFile(FileWith("\"a\"=dword:00000001\n; " + std::string(100'000, 'x') + "\n"));
  const support::FileSizeLimit limit(50'000);
  ExpectFailure("File too large");
}

TEST_F(RegistryFile, OneThatIsDamagedIsLeftAloneOnAFullDisk) {
  SetFile(std::string(100'000, 'x'));
  const support::FileSizeLimit limit(50'000);
  ExpectFailure("it is damaged, and cannot be kept as " + File(".damaged").toStdString());
}

TEST_F(RegistryFile, AFolderInItsPlaceIsLeftAlone) {
  ASSERT_TRUE(QDir().mkpath(File()));
  EXPECT_EQ(ReadNumber("a"), -1);
  EXPECT_EQ(MessageOf([] { WriteNumber("a", 2); }),
            "The registry in " + File().toStdString() + " cannot be written: it is no regular file");
}

TEST_F(RegistryFile, AFileInPlaceOfTheFolderIsLeftAlone) {
  QFile file(Folder());
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  EXPECT_EQ(ReadNumber("a"), -1);
  EXPECT_EQ(MessageOf([] { WriteNumber("a", 2); }), "The registry in " + File().toStdString() +
                                                        " cannot be written: the folder " + Folder().toStdString() +
                                                        " cannot be made");
}

TEST_F(RegistryFile, AFailureAtTheEndOfTheObjectGoesToTheDebuggerOutput) {
  ASSERT_TRUE(QDir().mkpath(File()));
  {
    TRegistry registry;
    registry.OpenKey(Key, true);
    registry.WriteInteger("a", 1);
    Lines.clear();
  }
  EXPECT_EQ(Lines, std::vector<std::string>{"The registry in " + File().toStdString() +
                                            " cannot be written: it is no regular file"});
}

TEST_F(RegistryFile, ChangesThatCouldNotBeWrittenAreGivenUp) {
  ASSERT_TRUE(QDir().mkpath(File()));
  TRegistry registry;
  registry.OpenKey(Key, true);
  EXPECT_THROW(registry.CloseKey(), ERegistryException);
  ASSERT_TRUE(QDir().rmdir(File()));
  registry.CloseKey();
  EXPECT_FALSE(QFileInfo::exists(File()));
}

TEST_F(RegistryFile, WhatAKilledProgramHasLeftBehindDoesNotMatter) {
  SetFile(FileWith(""));
  for (const char* ending : {".lock", ".new"}) {
    QFile file(File(ending));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("12345 virelle");
  }
  WriteNumber("a", 1);
  EXPECT_EQ(FileBytes(), FileWith("\"a\"=dword:00000001\n"));
  EXPECT_EQ(Files(), fileAndLock_);
}

} // namespace
} // namespace platform
