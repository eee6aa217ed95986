// SPDX-License-Identifier: MIT
// INI files on the disk: what is seen of other writers, and what becomes of a file when something is wrong.
#include "platform/Application.h"
#include "platform/Debug.h"
#include "platform/IniFile.h"
#include "support/FileSizeLimit.h"
#include "support/LowerRights.h"
#include "support/PrintQt.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <array>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

namespace platform {
namespace {

using TNames = std::vector<std::string>;

class IniFile : public testing::Test {
protected:
  IniFile()
      : sinkBefore_(SetDebugSink([this](std::string_view line) { Lines.emplace_back(line); })),
        programDirectoryBefore_(Application().ProgramDirectory()) {}
  ~IniFile() override {
    Application().SetProgramDirectory(programDirectoryBefore_);
    SetDebugSink(sinkBefore_);
  }

  std::string Path(const char* name = "templates.ini") const {
    return Home.filePath(QLatin1String(name)).toStdString();
  }
  void SetFile(std::string_view bytes) const {
    QFile file(QString::fromStdString(Path()));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_EQ(file.write(bytes.data(), static_cast<qint64>(bytes.size())), static_cast<qint64>(bytes.size()));
  }
  std::string FileBytes() const {
    QFile file(QString::fromStdString(Path()));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << Path();
    return file.readAll().toStdString();
  }

  // Writing and erasing fail for `reason` and leave the file as it is, with nothing of the attempt beside it.
  void ExpectFailure(const std::string& path, const std::string& reason) const {
    TIniFile file(path);
    const std::string message = "The file " + path + " cannot be written: " + reason;
    EXPECT_EQ(MessageOf([&file] { file.WriteString("a", "code", "new"); }), message);
    EXPECT_EQ(MessageOf([&file] { file.EraseSection("a"); }), message);
    EXPECT_FALSE(QFileInfo::exists(QString::fromStdString(path + ".new")));
  }

  // The message of the EIniFileException that `call` raises; empty if it raises none.
  template <class TCall> static std::string MessageOf(TCall call) {
    try {
      call();
    } catch (const EIniFileException& error) {
      return error.what();
    }
    return {};
  }

  QTemporaryDir Home;
  std::vector<std::string> Lines;

private:
  TDebugSink sinkBefore_;
  QString programDirectoryBefore_;
};

TEST_F(IniFile, ThatIsMissingIsEmpty) {
  TIniFile file(Path());
  EXPECT_EQ(file.FileName(), Path());
  EXPECT_EQ(file.ReadSections(), TNames{});
  EXPECT_EQ(file.ReadString("a", "code", "default"), "default");
  EXPECT_FALSE(QFileInfo::exists(QString::fromStdString(Path())));
  EXPECT_EQ(Lines, TNames{});
}

TEST_F(IniFile, IsMadeByTheFirstWrite) {
  TIniFile file(Path());
  file.WriteString("beg", "code", "begin\\end;");
  EXPECT_EQ(FileBytes(), "[beg]\ncode=begin\\end;\n");
}

TEST_F(IniFile, HoldsAWriteAtOnce) {
  TIniFile file(Path());
  for (const char* value : {"1", "2", " 3 "}) {
    file.WriteString("a", "code", value);
    EXPECT_EQ(TIniFile(Path()).ReadString("a", "code", "(none)"), value);
    EXPECT_EQ(file.ReadString("a", "code", "(none)"), value);
  }
  file.EraseSection("a");
  EXPECT_EQ(FileBytes(), "");
  EXPECT_EQ(file.ReadString("a", "code", "(none)"), "(none)");
}

TEST_F(IniFile, KeepsWhatOthersHaveWrittenMeanwhile) {
  TIniFile first(Path());
  TIniFile second(Path());
  first.WriteString("a", "code", "1");
  second.WriteString("b", "code", "2");
  first.WriteString("c", "code", "3");
  second.EraseSection("a");
  EXPECT_EQ(FileBytes(), "[b]\ncode=2\n[c]\ncode=3\n");
}

TEST_F(IniFile, ShowsWhatOthersHaveWrittenWhenSectionsAreListed) {
  TIniFile file(Path());
  EXPECT_EQ(file.ReadSections(), TNames{});
  SetFile("[a]\ncode=1\n");
  EXPECT_EQ(file.ReadString("a", "code", "(none)"), "(none)");
  EXPECT_EQ(file.ReadSections(), TNames{"a"});
  EXPECT_EQ(file.ReadString("a", "code", "(none)"), "1");
}

TEST_F(IniFile, ShowsWhatOthersHaveWrittenAfterAWriteOfItsOwn) {
  TIniFile file(Path());
  EXPECT_EQ(file.ReadSections(), TNames{});
  SetFile("[a]\ncode=1\n");
  file.WriteString("b", "code", "2");
  EXPECT_EQ(file.ReadString("a", "code", "(none)"), "1");
}

TEST_F(IniFile, LosesNoWriteOfSeveralThreads) {
  constexpr int count = 50;
  {
    std::array<std::jthread, 4> writers;
    for (std::size_t writer = 0; writer < writers.size(); ++writer)
      writers[writer] = std::jthread([this, writer] {
        TIniFile file(Path());
        for (int number = 0; number < count; ++number)
          file.WriteString(std::to_string(writer) + '/' + std::to_string(number), "code", "x");
      });
  }
  EXPECT_EQ(TIniFile(Path()).ReadSections().size(), 4U * count);
}

TEST_F(IniFile, OneThatNeedsNoChangeIsNotTouched) {
  SetFile("[a]\ncode=1\n");
  ASSERT_TRUE(QFile::setPermissions(QString::fromStdString(Path()), QFile::ReadOwner | QFile::WriteOwner));
  QFile opened(QString::fromStdString(Path()));
  ASSERT_TRUE(opened.open(QIODevice::ReadWrite));
  TIniFile file(Path());
  file.WriteString("a", "code", "1");
  file.EraseSection("b");
  // It is still the file that was opened before.
  ASSERT_TRUE(opened.resize(0));
  EXPECT_EQ(FileBytes(), "");
}

TEST_F(IniFile, InAMissingFolderFailsAndNamesIt) {
  ExpectFailure(Path("missing/templates.ini"), "there is no folder " + Path("missing"));
  EXPECT_FALSE(QFileInfo::exists(QString::fromStdString(Path("missing"))));
}

TEST_F(IniFile, MakesTheFolderOfTheProgram) {
  Application().SetProgramDirectory(Home.filePath(QStringLiteral("data/virelle/")));
  TIniFile(Path("data/virelle/templates.ini")).WriteString("a", "code", "1");
  EXPECT_TRUE(QFileInfo::exists(Home.filePath(QStringLiteral("data/virelle/templates.ini"))));
}

TEST_F(IniFile, DoesNotMakeAFolderInThatOfTheProgram) {
  Application().SetProgramDirectory(Home.filePath(QStringLiteral("virelle/")));
  ExpectFailure(Path("virelle/sub/templates.ini"), "there is no folder " + Path("virelle/sub"));
}

TEST_F(IniFile, WithoutANameFails) {
  TIniFile file("");
  EXPECT_EQ(file.ReadSections(), TNames{});
  EXPECT_EQ(MessageOf([&file] { file.WriteString("a", "b", "c"); }), "The file  cannot be written: it has no name");
}

TEST_F(IniFile, OneThatMayNotBeWrittenIsLeftAlone) {
  SetFile("[a]\ncode=old\n");
  ASSERT_TRUE(
      QFile::setPermissions(QString::fromStdString(Path()), QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther));
  ASSERT_TRUE(QFile::setPermissions(Home.path(), QFile::Permissions(0x7777)));
  const support::LowerRights lower(Home.path());
  ExpectFailure(Path(), "Permission denied");
  EXPECT_EQ(FileBytes(), "[a]\ncode=old\n");
}

TEST_F(IniFile, InAFolderThatMayNotBeWrittenIsLeftAlone) {
  SetFile("[a]\ncode=old\n");
  ASSERT_TRUE(QFile::setPermissions(Home.path(), QFile::Permissions(0x5555)));
  {
    const support::LowerRights lower(Home.path());
    EXPECT_EQ(TIniFile(Path()).ReadString("a", "code", "(none)"), "old");
    ExpectFailure(Path(), Path() + ".lock: Permission denied");
    EXPECT_EQ(FileBytes(), "[a]\ncode=old\n");
  }
  ASSERT_TRUE(QFile::setPermissions(Home.path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
}

TEST_F(IniFile, OneThatMayNotBeReadCountsAsEmptyAndIsLeftAlone) {
  SetFile("[a]\ncode=old\n");
  ASSERT_TRUE(QFile::setPermissions(QString::fromStdString(Path()), {}));
  {
    const support::LowerRights lower(Home.path());
    EXPECT_EQ(TIniFile(Path()).ReadSections(), TNames{});
    EXPECT_EQ(Lines, TNames{"The file " + Path() + " cannot be read: Permission denied"});
    ExpectFailure(Path(), "Permission denied");
  }
  ASSERT_TRUE(QFile::setPermissions(QString::fromStdString(Path()), QFile::ReadOwner));
  EXPECT_EQ(FileBytes(), "[a]\ncode=old\n");
}

TEST_F(IniFile, OnAFullDiskIsLeftAlone) {
  const std::string bytes = "[a]\ncode=old\n; " + std::string(100'000, 'x') + "\n[b]\n";
  SetFile(bytes);
  const support::FileSizeLimit limit(50'000);
  TIniFile file(Path());
  EXPECT_EQ(MessageOf([&file] { file.WriteString("a", "code", "new"); }),
            "The file " + Path() + " cannot be written: File too large");
  EXPECT_EQ(FileBytes(), bytes);
  EXPECT_EQ(file.ReadString("a", "code", "(none)"), "old");
  EXPECT_FALSE(QFileInfo::exists(QString::fromStdString(Path() + ".new")));
}

TEST_F(IniFile, AFolderInItsPlaceIsLeftAlone) {
  ASSERT_TRUE(QDir().mkpath(QString::fromStdString(Path())));
  EXPECT_EQ(TIniFile(Path()).ReadSections(), TNames{});
  EXPECT_EQ(Lines, TNames{"The file " + Path() + " cannot be read: it is no regular file"});
  ExpectFailure(Path(), "it is no regular file");
}

TEST_F(IniFile, MarkedAsUtf16ThatItIsNotIsLeftAlone) {
  const std::string bytes = "\xFF\xFE[a]\n1";
  SetFile(bytes);
  EXPECT_EQ(TIniFile(Path()).ReadSections(), TNames{});
  ExpectFailure(Path(), "it is marked as UTF-16 and is none");
  EXPECT_EQ(FileBytes(), bytes);
}

TEST_F(IniFile, HasANameBeyondAscii) {
  const std::string path = Path("Vorlagen f\u00fcr \u2208.ini");
  TIniFile(path).WriteString("a", "code", "1");
  EXPECT_TRUE(QFileInfo::exists(QString::fromStdString(path)));
  EXPECT_EQ(TIniFile(path).ReadString("a", "code", "(none)"), "1");
}

TEST_F(IniFile, RefusesWhatItCannotHold) {
  TIniFile file(Path());
  EXPECT_EQ(MessageOf([&file] { file.WriteString(" ", "code", "x"); }), "The name of a section is blank");
  EXPECT_EQ(MessageOf([&file] { file.WriteString("a]b", "code", "x"); }), "The name of a section has a \"]\"");
  EXPECT_EQ(MessageOf([&file] { file.WriteString("a", "b=c", "x"); }), "The name of a key has an \"=\"");
  EXPECT_EQ(MessageOf([&file] { file.WriteString("a", "code", "x\ny"); }), "A value has a line break");
  EXPECT_FALSE(QFileInfo::exists(QString::fromStdString(Path())));
}

TEST_F(IniFile, HoldsAValueOfAHundredThousandCharacters) {
  std::string value;
  while (value.size() < 100'000)
    value += "line \u00e4\\";
  TIniFile(Path()).WriteString("a", "code", value);
  EXPECT_EQ(TIniFile(Path()).ReadString("a", "code", "(none)"), value);
}

} // namespace
} // namespace platform
