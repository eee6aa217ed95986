// SPDX-License-Identifier: MIT
// The lock that keeps writers of the registry's file apart.
#include "platform/RegistryFixture.h"
#include "support/PrintQt.h"

#include <QFileInfo>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <memory>
#include <thread>

namespace {
std::atomic<int> failureOfLocks = 0; // the error that taking a lock ends with; none if 0
} // namespace

// Comes before the C library's: no file system at hand is without locks.
extern "C" __attribute__((visibility("default"))) int flock(int file, int operation) noexcept {
  if (failureOfLocks != 0) {
    errno = failureOfLocks;
    return -1;
  }
  return static_cast<int>(::syscall(SYS_flock, file, operation));
}

namespace platform {
namespace {

// The lock of a program that is writing.
class OtherWriter {
public:
  explicit OtherWriter(const QString& lockFile)
      : file_(::open(QFile::encodeName(lockFile).constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0666)) {
    EXPECT_EQ(::flock(file_, LOCK_EX | LOCK_NB), 0);
  }
  ~OtherWriter() { ::close(file_); }
  OtherWriter(const OtherWriter&) = delete;
  OtherWriter& operator=(const OtherWriter&) = delete;

  // Whether this process has the file open a second time.
  bool IsWaitedFor() const {
    struct stat own = {};
    ::fstat(file_, &own);
    const auto isLockFile = [&own](const QString& name) {
      struct stat file = {};
      return ::fstat(name.toInt(), &file) == 0 && file.st_dev == own.st_dev && file.st_ino == own.st_ino;
    };
    return std::ranges::count_if(
               QDir(QStringLiteral("/proc/self/fd")).entryList(QDir::NoDotAndDotDot | QDir::AllEntries | QDir::System),
               isLockFile) > 1;
  }

private:
  int file_;
};

class RegistryLock : public RegistryTest {
protected:
  // While another program writes `others` into the file under the lock on `lockFile`, a value waits to be written.
  void WriteWhileAnotherDoes(const QString& lockFile, const std::string& others) {
    auto other = std::make_unique<OtherWriter>(lockFile);
    std::atomic<bool> written = false;
    std::jthread writer([&written] {
      WriteNumber("a", 1);
      written = true;
    });
    while (!other->IsWaitedFor() && !written)
      std::this_thread::yield();
    SetFile(others);
    other.reset();
  }
};

TEST_F(RegistryLock, WaitsForAnotherWriterAndKeepsWhatItHasWritten) {
  SetFile(FileWith(""));
  WriteWhileAnotherDoes(File(".lock"), FileWith("\"b\"=dword:00000002\n"));
  EXPECT_EQ(FileBytes(), FileWith("\"b\"=dword:00000002\n\"a\"=dword:00000001\n"));
}

TEST_F(RegistryLock, DoesNotWaitForEverForAnotherWriter) {
  SetFile(FileWith("\"a\"=dword:00000001\n"));
  const OtherWriter other(File(".lock"));
  EXPECT_EQ(MessageOf([] { WriteNumber("a", 2); }),
            "The registry in " + File().toStdString() + " cannot be written: another program is writing it");
  EXPECT_EQ(ReadNumber("a"), 1);
}

TEST_F(RegistryLock, IsOneForAllLinksToTheFile) {
  const QString target = Home.filePath(QStringLiteral("shared.reg"));
  ASSERT_TRUE(QDir().mkpath(Folder()));
  ASSERT_TRUE(QFile::link(target, File()));
  for (const char* others : {"", "\"b\"=dword:00000002\n"}) { // the first time there is no file yet
    WriteWhileAnotherDoes(target + QStringLiteral(".lock"), FileWith(others));
    EXPECT_EQ(FileBytes(), FileWith(others + std::string("\"a\"=dword:00000001\n")));
  }
  EXPECT_EQ(Files(), QStringList{QStringLiteral("registry.reg")}) << "nothing stands beside the link";
}

TEST_F(RegistryLock, IsDoneWithoutWhereThereAreNone) {
  for (const int error : {ENOLCK, ENOTSUP, ENOSYS}) {
    SetFile(FileWith(""));
    Lines.clear();
    failureOfLocks = error;
    WriteNumber("a", 1);
    failureOfLocks = 0;
    EXPECT_EQ(ReadNumber("a"), 1);
    EXPECT_EQ(Lines, std::vector<std::string>{File(".lock").toStdString() +
                                              " cannot be locked: " + qt_error_string(error).toStdString() +
                                              "; writing goes on without a lock"});
  }
}

TEST_F(RegistryLock, ThatFailsOtherwiseKeepsTheFileAsItIs) {
  SetFile(FileWith("\"a\"=dword:00000001\n"));
  failureOfLocks = EIO;
  EXPECT_EQ(MessageOf([] { WriteNumber("a", 2); }),
            "The registry in " + File().toStdString() + " cannot be written: " + qt_error_string(EIO).toStdString());
  failureOfLocks = 0;
  EXPECT_EQ(ReadNumber("a"), 1);
  EXPECT_TRUE(Lines.empty());
}

} // namespace
} // namespace platform
