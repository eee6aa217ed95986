// SPDX-License-Identifier: MIT
#include "desktop/files/FileSearch.h"

#include "desktop/files/FileFixture.h"
#include "support/LowerRights.h"
#include "support/PrintQt.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFileInfo>

#include <sys/stat.h>

namespace desktop {
namespace {

using Strings = std::vector<std::string>;

class FileSearchTest : public FileTest {
protected:
  FileSearchTest() {
    search.terms.text = QStringLiteral("needle");
    search.folder = folder();
    search.column = [](QStringView, qsizetype, int, qsizetype unit) { return static_cast<int>(unit) + 1; };
  }

  QString writeIn(const char* name, const std::string& bytes) const {
    QDir().mkpath(QFileInfo(path(name)).path());
    return write(bytes, name);
  }

  // Searches; each match as "name:line:unit", relative to the folder.
  std::vector<std::string> run() {
    FileSearcher searcher(
        search, stop.get_token(), [this](FileMatch&& match) { matches.push_back(std::move(match)); },
        [this](const FileSearchOutcome& sofar) {
          if (sofar.files == stopAfter)
            stop.request_stop();
        });
    matches.clear();
    outcome = searcher.run();
    std::vector<std::string> places;
    for (const FileMatch& match : matches)
      places.push_back(QStringLiteral("%1:%2:%3")
                           .arg(QDir(folder()).relativeFilePath(match.fileName))
                           .arg(match.line)
                           .arg(match.unit)
                           .toStdString());
    return places;
  }

  std::vector<std::string> troubles() const {
    std::vector<std::string> all;
    for (const FileTrouble& trouble : outcome.troubles)
      all.push_back((QDir(folder()).relativeFilePath(trouble.path) + u' ' + trouble.reason).toStdString());
    return all;
  }

  FileSearch search;
  std::stop_source stop;
  int stopAfter = -1; // files
  std::vector<FileMatch> matches;
  FileSearchOutcome outcome;
};

TEST_F(FileSearchTest, FindsEveryMatchInTheOrderOfFilesAndLines) {
  writeIn("b.pas", "x\nneedle Needle\r\n\rneedle");
  writeIn("a.pas", "needle");
  writeIn("sub/a.pas", "needle");
  writeIn("c.pas", "nothing");
  EXPECT_EQ(run(), (Strings{"a.pas:1:0", "b.pas:2:0", "b.pas:2:7", "b.pas:4:0", "sub/a.pas:1:0"}));
  EXPECT_EQ(outcome.files, 4);
  EXPECT_EQ(outcome.withMatch, 3);
  EXPECT_EQ(outcome.matches, 5);
}

TEST_F(FileSearchTest, SubfoldersCanBeLeftOutAndHiddenOnesAre) {
  writeIn("sub/a.pas", "needle");
  writeIn(".git/a.pas", "needle");
  writeIn("a.pas", "needle");
  EXPECT_EQ(run(), (Strings{"a.pas:1:0", "sub/a.pas:1:0"}));
  search.subfolders = false;
  EXPECT_EQ(run(), (Strings{"a.pas:1:0"}));
}

TEST_F(FileSearchTest, NamesAreChosenByWildcardsInAnyCase) {
  writeIn("a.pas", "needle");
  writeIn("B.PAS", "needle");
  writeIn("c.inc", "needle");
  writeIn("d.txt", "needle");
  writeIn("pas", "needle");
  search.patterns = {QStringLiteral("*.pas"), QStringLiteral("?.inc")};
  EXPECT_EQ(run(), (Strings{"B.PAS:1:0", "a.pas:1:0", "c.inc:1:0"}));
}

TEST_F(FileSearchTest, HeedsCaseWholeWordsAndPatterns) {
  writeIn("a.pas", "needles\nNEEDLE\nneedle");
  search.terms.matchCase = true;
  EXPECT_EQ(run(), (Strings{"a.pas:1:0", "a.pas:3:0"}));
  search.terms.wholeWord = true;
  EXPECT_EQ(run(), (Strings{"a.pas:3:0"}));
  search.terms = {QStringLiteral("^n\\w+s$"), false, false, true};
  EXPECT_EQ(run(), (Strings{"a.pas:1:0"}));
}

TEST_F(FileSearchTest, FilesAreDecodedAsTheEditorDoes) {
  writeIn("1252.pas", "\xE4 needle");
  writeIn("utf16.pas", std::string("\xFF\xFE"
                                   "n\0e\0e\0d\0l\0e\0\n\0",
                                   16));
  writeIn("utf8.pas", "\xEF\xBB\xBF\xC3\xA4 needle");
  EXPECT_EQ(run(), (Strings{"1252.pas:1:2", "utf16.pas:1:0", "utf8.pas:1:2"}));
  search.terms.text = QStringLiteral("Ä");
  EXPECT_EQ(run(), (Strings{"1252.pas:1:0", "utf8.pas:1:0"}));
}

TEST_F(FileSearchTest, ABinaryFileIsPassedOver) {
  writeIn("a.dcu", std::string("needle\0needle", 13));
  EXPECT_EQ(run(), Strings());
  EXPECT_EQ(outcome.files, 0);
  EXPECT_EQ(troubles(), Strings());
}

TEST_F(FileSearchTest, TheColumnIsAskedForWithTheWholeLine) {
  writeIn("a.pas", "\t\tneedle");
  search.column = [](QStringView line, qsizetype, int, qsizetype unit) {
    return static_cast<int>(100 * line.size() + unit);
  };
  run();
  EXPECT_EQ(matches.at(0).column, 802);
}

TEST_F(FileSearchTest, ALineIsWalkedOverOnceForTheColumnsOfItsMatches) {
  writeIn("a.pas", "needle needle needle\nneedle");
  std::vector<std::pair<qsizetype, int>> begins;
  search.column = [&begins](QStringView, qsizetype from, int column, qsizetype unit) {
    begins.emplace_back(from, column);
    return static_cast<int>(10 * unit);
  };
  run();
  EXPECT_EQ(begins, (std::vector<std::pair<qsizetype, int>>{{0, 1}, {0, 0}, {7, 70}, {0, 1}}));
}

TEST_F(FileSearchTest, WhatIsNoWildcardNamesNoFile) {
  writeIn("a.pas", "needle");
  for (const char* const name : {"[a", "sub/*.pas"}) {
    EXPECT_FALSE(fileNamePattern(QString::fromLatin1(name)).isValid()) << name;
    search.patterns = {QString::fromLatin1(name)};
    EXPECT_EQ(run(), Strings()) << name;
  }
}

TEST_F(FileSearchTest, TheTextOfALongLineIsCutBetweenCharacters) {
  const QString faces = QStringLiteral("\U0001F600").repeated(400);
  writeIn("a.pas", (faces + QStringLiteral("needle") + faces).toStdString());
  writeIn("b.pas", (u'x' + faces + QStringLiteral("needle") + faces).toStdString());
  writeIn("c.pas", (faces + QStringLiteral("xneedle") + faces).toStdString());
  run();
  for (const FileMatch& match : matches)
    EXPECT_TRUE(match.text.isValidUtf16()) << match.text.toStdString();
  EXPECT_EQ(matches.size(), 3U);
}

TEST_F(FileSearchTest, TheTextIsTheLineWithoutItsIndentation) {
  writeIn("a.pas", " \t x := needle(\t1);\x01");
  run();
  EXPECT_EQ(matches.at(0).text, QStringLiteral("x := needle( 1); "));
}

TEST_F(FileSearchTest, OfALongLineTheTextIsThePartAroundTheMatch) {
  writeIn("a.pas", std::string(5'000, 'x').append("needle").append(5'000, 'y'));
  run();
  EXPECT_EQ(matches.at(0).text, u'…' + QString(100, u'x') + QStringLiteral("needle") + QString(194, u'y') + u'…');
}

TEST_F(FileSearchTest, LinksInACircleAndSecondNamesAreVisitedOnce) {
  writeIn("sub/a.pas", "needle");
  ASSERT_TRUE(QFile::link(folder(), path("sub/up")));
  ASSERT_TRUE(QFile::link(path("sub"), path("zub")));
  ASSERT_TRUE(QFile::link(path("sub/a.pas"), path("sub/b.pas")));
  EXPECT_EQ(run(), (Strings{"sub/a.pas:1:0"}));
}

TEST_F(FileSearchTest, APipeIsNotWaitedFor) {
  ASSERT_EQ(::mkfifo(QFile::encodeName(path("a.pas")).constData(), 0600), 0);
  writeIn("b.pas", "needle");
  EXPECT_EQ(run(), (Strings{"b.pas:1:0"}));
}

TEST_F(FileSearchTest, WhatCannotBeReadIsTold) {
  writeIn("closed/a.pas", "needle");
  writeIn("b.pas", "needle");
  writeIn("c.pas", "needle");
  QFile::setPermissions(path("closed"), {});
  QFile::setPermissions(path("b.pas"), {});
  {
    const support::LowerRights lowered(folder());
    EXPECT_EQ(run(), (Strings{"c.pas:1:0"}));
  }
  QFile::setPermissions(path("closed"), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
  EXPECT_EQ(troubles(),
            (Strings{"b.pas could not be read: Permission denied", "closed could not be read: Permission denied"}));
  EXPECT_EQ(outcome.troubleCount, 2);
}

TEST_F(FileSearchTest, AFolderThatIsNotThereIsTold) {
  search.folder = path("missing");
  EXPECT_EQ(run(), Strings());
  EXPECT_EQ(troubles(), (Strings{"missing could not be read: No such file or directory"}));
}

TEST_F(FileSearchTest, AFileOverTheLimitIsNotReadButTold) {
  QFile file(path("a.pas"));
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  ASSERT_TRUE(file.resize(largestSearchedFile + 1));
  EXPECT_EQ(run(), Strings());
  EXPECT_EQ(troubles(), (Strings{"a.pas is over 64 MB and was not searched"}));
}

TEST_F(FileSearchTest, AFileThatThePatternIsTooComplexForIsTold) {
  writeIn("a.pas", std::string(40, 'x').append("\nxx1"));
  search.terms = {QStringLiteral("(x+x+)+\\d"), false, false, true};
  EXPECT_EQ(run(), (Strings{"a.pas:2:0"}));
  EXPECT_EQ(troubles(), (Strings{"a.pas has lines that the pattern is too complex for"}));
}

TEST_F(FileSearchTest, OfVeryManyTroublesTheFirstAreNamedAndAllAreCounted) {
  for (int i = 0; i < 150; ++i)
    writeIn(("f" + std::to_string(i)).c_str(), std::string(40, 'x'));
  search.terms = {QStringLiteral("(x+x+)+\\d"), false, false, true};
  run();
  EXPECT_EQ(outcome.troubles.size(), mostFileTroubles);
  EXPECT_EQ(outcome.troubleCount, 150);
}

TEST_F(FileSearchTest, EndsWhenItHasFoundEnough) {
  std::string many;
  for (int i = 0; i < 6'000; ++i)
    many += "needle needle\n";
  writeIn("a.pas", many);
  writeIn("b.pas", "needle");
  EXPECT_EQ(run().size(), 10'000U);
  EXPECT_TRUE(outcome.isFull);
  EXPECT_FALSE(outcome.stopped);
}

TEST_F(FileSearchTest, CanBeStoppedAfterAFile) {
  writeIn("a.pas", "needle");
  writeIn("b.pas", "needle");
  stopAfter = 1;
  EXPECT_EQ(run(), (Strings{"a.pas:1:0"}));
  EXPECT_TRUE(outcome.stopped);
}

TEST_F(FileSearchTest, CanBeStoppedWithinALine) {
  writeIn("a.pas", "needle needle needle");
  FileSearcher searcher(
      search, stop.get_token(),
      [this](FileMatch&& match) {
        matches.push_back(std::move(match));
        stop.request_stop();
      },
      [](const FileSearchOutcome&) {});
  EXPECT_TRUE(searcher.run().stopped);
  EXPECT_EQ(matches.size(), 1U);
}

TEST_F(FileSearchTest, AnOpenTextIsSearchedInPlaceOfItsFile) {
  const QString name = writeIn("a.pas", "needle");
  const auto document = open(name);
  type(*document, 0, 0, QStringLiteral("x\n\nx "));
  search.open = {{name, document->snapshot()}};
  EXPECT_EQ(run(), (Strings{"a.pas:3:2"}));
}

TEST_F(FileSearchTest, AnOpenFileHasTheNameUnderWhichItIsOpen) {
  writeIn("sub/a.pas", "needle");
  ASSERT_TRUE(QFile::link(path("sub/a.pas"), path("z.pas")));
  search.open = {{path("z.pas"), {}}};
  EXPECT_EQ(run(), (Strings{"z.pas:1:0"}));
}

TEST_F(FileSearchTest, OpenTextsWithoutAFileAreSearchedWhereTheyWouldBe) {
  QDir().mkpath(path("sub"));
  const TextSnapshot text(QStringLiteral("needle"), quorvane::TLineEnd::Lf);
  search.open = {{path("Unit1.pas"), text},
                 {path("sub/Unit2.pas"), text},
                 {path("Unit3.txt"), text},
                 {folder() + QStringLiteral("x/Unit4.pas"), text}};
  search.patterns = {QStringLiteral("*.pas")};
  EXPECT_EQ(run(), (Strings{"Unit1.pas:1:0", "sub/Unit2.pas:1:0"}));
  search.subfolders = false;
  EXPECT_EQ(run(), (Strings{"Unit1.pas:1:0"}));
}

} // namespace
} // namespace desktop
