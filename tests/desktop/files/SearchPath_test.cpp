// SPDX-License-Identifier: MIT
#include "desktop/files/SearchPath.h"

#include "desktop/files/FileFixture.h"
#include "support/PrintQt.h"

#include <QFileInfo>

namespace desktop {
namespace {

class SearchPathTest : public FileTest {
protected:
  QString file() const { return path("virelle/search-path.json"); }
  QString damagedFile() const { return file() + QStringLiteral(".damaged"); }
  void writeFile(const std::string& bytes) const {
    QDir(folder()).mkdir(QStringLiteral("virelle"));
    write(bytes, "virelle/search-path.json");
  }

  const QList<SearchFolder> two_ = {{QStringLiteral("/home/me/my units"), true},
                                    {QString::fromUtf8("/srv/\xC3\xA4 \"x\"\n"), false}};
};

TEST_F(SearchPathTest, IsEmptyWithoutAFile) {
  SearchPath path;
  EXPECT_EQ(path.open(file()), QString());
  EXPECT_TRUE(path.folders().isEmpty());
  EXPECT_FALSE(QFileInfo::exists(file()));
}

TEST_F(SearchPathTest, ComesBackAsItWasKept) {
  SearchPath path;
  path.open(file());
  EXPECT_EQ(path.setFolders(two_), QString());
  EXPECT_EQ(path.folders(), two_);
  SearchPath again;
  EXPECT_EQ(again.open(file()), QString());
  EXPECT_EQ(again.folders(), two_);
}

TEST_F(SearchPathTest, AnEmptyListIsKeptToo) {
  SearchPath path;
  path.open(file());
  path.setFolders(two_);
  path.setFolders({});
  SearchPath again;
  EXPECT_EQ(again.open(file()), QString());
  EXPECT_TRUE(again.folders().isEmpty());
}

TEST_F(SearchPathTest, WithoutAFileChangesHoldForThisRun) {
  SearchPath path;
  EXPECT_EQ(path.setFolders(two_), QString());
  EXPECT_EQ(path.folders(), two_);
}

TEST_F(SearchPathTest, ReadsWhatAUserWouldWrite) {
  writeFile(R"({"folders": [{"path": "/a/../b//c/"}, {"path": "/d", "subfolders": true}]})");
  SearchPath path;
  EXPECT_EQ(path.open(file()), QString());
  EXPECT_EQ(path.folders(), (QList<SearchFolder>{{QStringLiteral("/b/c"), false}, {QStringLiteral("/d"), true}}));
}

TEST_F(SearchPathTest, AFileThatIsNoListIsPutAsideAndToldOf) {
  for (const std::string bytes : {"", "{", "[]", R"({"folders": "/a"})", "\xFF\xFE\x01"}) {
    writeFile(bytes);
    SearchPath path;
    EXPECT_EQ(path.open(file()),
              QStringLiteral("The search path in %1 is damaged; it was renamed to %2.").arg(file(), damagedFile()))
        << bytes;
    EXPECT_TRUE(path.folders().isEmpty());
    EXPECT_EQ(read(damagedFile()), bytes);
    EXPECT_FALSE(QFileInfo::exists(file()));
  }
}

TEST_F(SearchPathTest, AFileOfSenselessSizeIsDamaged) {
  writeFile(R"({"folders": []})" + std::string(2 << 20, ' '));
  SearchPath path;
  EXPECT_NE(path.open(file()), QString());
  EXPECT_TRUE(QFileInfo::exists(damagedFile()));
}

TEST_F(SearchPathTest, WhatCanBeUnderstoodOfADamagedFileIsUsedAndKept) {
  const std::string bytes = R"({"folders": [{"path": "/a"}, {"path": "relative"}, 7, {"path": "/b", "subfolders": 1},
                                            {"path": "/c", "subfolders": true}]})";
  writeFile(bytes);
  SearchPath path;
  EXPECT_NE(path.open(file()), QString());
  const QList<SearchFolder> understood = {{QStringLiteral("/a"), false}, {QStringLiteral("/c"), true}};
  EXPECT_EQ(path.folders(), understood);
  EXPECT_EQ(read(damagedFile()), bytes);
  SearchPath again;
  EXPECT_EQ(again.open(file()), QString());
  EXPECT_EQ(again.folders(), understood);
}

TEST_F(SearchPathTest, ChangesAfterADamageAreKept) {
  writeFile("damaged");
  SearchPath path;
  path.open(file());
  EXPECT_EQ(path.setFolders(two_), QString());
  SearchPath again;
  EXPECT_EQ(again.open(file()), QString());
  EXPECT_EQ(again.folders(), two_);
}

TEST_F(SearchPathTest, AFileThatCannotBeReadIsLeftAlone) {
  QDir(folder()).mkpath(file()); // a folder of that name
  SearchPath path;
  const QString problem = path.open(file());
  EXPECT_TRUE(problem.startsWith(QStringLiteral("The search path in %1 could not be read").arg(file())));
  EXPECT_EQ(path.setFolders(two_), QString());
  EXPECT_TRUE(QFileInfo(file()).isDir());
}

TEST_F(SearchPathTest, AFolderThatCannotBeMadeIsToldOfAndTheListHoldsForThisRun) {
  write("a file in the way", "virelle");
  SearchPath path;
  EXPECT_EQ(path.open(file()), QString());
  EXPECT_TRUE(path.setFolders(two_).startsWith(QStringLiteral("The search path could not be kept: ")));
  EXPECT_EQ(path.folders(), two_);
}

} // namespace
} // namespace desktop
