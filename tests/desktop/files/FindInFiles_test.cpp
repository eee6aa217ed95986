// SPDX-License-Identifier: MIT
#include "desktop/files/FindInFiles.h"

#include "desktop/files/FileFixture.h"
#include "support/PrintQt.h"
#include "support/Wait.h"

#include <QThread>

#include <atomic>

namespace desktop {
namespace {

class FindInFilesTest : public FileTest {
protected:
  FindInFilesTest() { follow(*finder); }

  void follow(FindInFiles& one) {
    QObject::connect(&one, &FindInFiles::found, &one, [this](const std::vector<FileMatch>& matches) {
      EXPECT_EQ(QThread::currentThread(), QCoreApplication::instance()->thread());
      EXPECT_EQ(finished, 0);
      for (const FileMatch& match : matches)
        texts.append(match.text);
    });
    QObject::connect(&one, &FindInFiles::finished, &one,
                     [this](const FileSearchOutcome& result, const QString& trouble) {
                       ++finished;
                       outcome = result;
                       EXPECT_EQ(trouble, QString());
                     });
  }

  FileSearch searchFor(const QString& text) const {
    FileSearch search;
    search.terms.text = text;
    search.folder = folder();
    search.column = [](QStringView, qsizetype, int, qsizetype) { return 1; };
    return search;
  }

  // One that waits at its first match, in its thread, as long as `gate` is closed.
  FileSearch waitingSearchFor(const QString& text) {
    FileSearch search = searchFor(text);
    search.column = [this](QStringView, qsizetype, int, qsizetype) {
      reached = true;
      isClosed.wait(true);
      return 1;
    };
    return search;
  }

  void openGate() {
    isClosed = false;
    isClosed.notify_all();
  }

  std::atomic<bool> isClosed = false;
  std::atomic<bool> reached = false;
  std::unique_ptr<FindInFiles> finder = std::make_unique<FindInFiles>();
  QStringList texts;
  int finished = 0;
  FileSearchOutcome outcome;
};

TEST_F(FindInFilesTest, HandsOverTheMatchesAndThenTheOutcome) {
  write("one two\nneedle\n", "a.pas");
  write("needle 2\n", "b.pas");
  finder->start(searchFor(QStringLiteral("needle")));
  ASSERT_TRUE(support::waitUntil([this] { return finished == 1; }));
  EXPECT_EQ(texts, QStringList({QStringLiteral("needle"), QStringLiteral("needle 2")}));
  EXPECT_EQ(outcome.matches, 2);
  EXPECT_FALSE(outcome.stopped);
}

TEST_F(FindInFilesTest, HandsOverAsManyAsASearchCanFind) {
  std::string many;
  for (int i = 0; i < 10'001; ++i)
    many += "needle\n";
  write(many, "a.pas");
  finder->start(searchFor(QStringLiteral("needle")));
  ASSERT_TRUE(support::waitUntil([this] { return finished == 1; }));
  EXPECT_EQ(texts.size(), mostFileMatches);
  EXPECT_TRUE(outcome.isFull);
}

TEST_F(FindInFilesTest, StopEndsTheSearchWithWhatItHas) {
  write("needle 1\nneedle 2\n", "a.pas");
  isClosed = true;
  finder->start(waitingSearchFor(QStringLiteral("needle")));
  ASSERT_TRUE(support::waitUntil([this] { return reached.load(); }));
  finder->stop();
  openGate();
  ASSERT_TRUE(support::waitUntil([this] { return finished == 1; }));
  EXPECT_EQ(texts, QStringList({QStringLiteral("needle 1")}));
  EXPECT_TRUE(outcome.stopped);
}

TEST_F(FindInFilesTest, ANewSearchEndsTheOneBeforeWhichSaysNothingAnyMore) {
  write("needle\nthread\n", "a.pas");
  isClosed = true;
  finder->start(waitingSearchFor(QStringLiteral("needle")));
  ASSERT_TRUE(support::waitUntil([this] { return reached.load(); }));
  finder->start(searchFor(QStringLiteral("thread")));
  openGate();
  ASSERT_TRUE(support::waitUntil([this] { return finished == 1; }));
  support::settle();
  EXPECT_EQ(texts, QStringList({QStringLiteral("thread")}));
  EXPECT_EQ(finished, 1);
}

TEST_F(FindInFilesTest, WhatASearchHasPostedBeforeItIsReplacedIsDropped) {
  write("needle\nthread\n", "a.pas");
  finder->start(searchFor(QStringLiteral("needle")));
  finder->start(searchFor(QStringLiteral("thread")));
  ASSERT_TRUE(support::waitUntil([this] { return finished == 1; }));
  support::settle();
  EXPECT_EQ(texts, QStringList({QStringLiteral("thread")}));
}

TEST_F(FindInFilesTest, CanBeDestroyedWhileItSearches) {
  for (int i = 0; i < 50; ++i)
    write("needle\n", ("f" + std::to_string(i)).c_str());
  isClosed = true;
  finder->start(waitingSearchFor(QStringLiteral("needle")));
  ASSERT_TRUE(support::waitUntil([this] { return reached.load(); }));
  openGate();
  finder.reset();
  support::settle();
  EXPECT_EQ(finished, 0);
}

} // namespace
} // namespace desktop
