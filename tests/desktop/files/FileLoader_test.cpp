// SPDX-License-Identifier: MIT
#include "desktop/files/FileLoader.h"

#include "desktop/files/FileFixture.h"
#include "support/PrintQt.h"
#include "support/Wait.h"

#include <QPlainTextDocumentLayout>
#include <QThread>

#include <atomic>
#include <memory>
#include <optional>
#include <thread>
#include <utility>

namespace desktop {
namespace {

class FileLoaderTest : public FileTest {
protected:
  // What loading the file gives; nothing if that did not end.
  std::optional<LoadResult> loaded(const QString& file, FileLoader::Prepare prepare = {}) {
    std::optional<LoadResult> loaded;
    loader_.load(file, std::move(prepare), [&loaded](LoadResult result) { loaded = std::move(result); });
    EXPECT_TRUE(support::waitUntil([&loaded] { return loaded.has_value(); }));
    return loaded;
  }

  // So long that it is inserted in many slices, with characters of every kind where slices may end.
  static std::string manyLines(const std::string& lineEnd) {
    std::string text;
    for (int line = 0; line < 30'000; ++line)
      text += "line " + std::to_string(line) + " \xC3\xA9 \xF0\x9F\x98\x80\xF0\x9F\x98\x80\xF0\x9F\x98\x80" + lineEnd;
    return text;
  }

  FileLoader loader_;
};

TEST_F(FileLoaderTest, HandsTheDocumentToTheThreadOfTheLoader) {
  const std::optional<LoadResult> result = loaded(write("unit a;\r\nend."));
  ASSERT_TRUE(result && result->document != nullptr);
  SourceDocument& document = *result->document;
  EXPECT_EQ(document.thread(), QThread::currentThread());
  EXPECT_EQ(document.documentLayout()->thread(), QThread::currentThread());
  EXPECT_EQ(document.toBytes().Bytes, "unit a;\r\nend.");
  EXPECT_FALSE(document.isModified());
  EXPECT_FALSE(document.isUndoAvailable());
}

TEST_F(FileLoaderTest, TheServedTextFollowsEditsOfALoadedDocument) {
  const std::optional<LoadResult> result = loaded(write("unit a;\nend."));
  ASSERT_TRUE(result && result->document != nullptr);
  EXPECT_EQ(*result->document->servedText(), "unit a;\r\nend.");
  type(*result->document, 1, 0, QStringLiteral("x"));
  EXPECT_EQ(*result->document->servedText(), "unit a;\r\nxend.");
}

TEST_F(FileLoaderTest, GivesLongTextsBackByteForByte) {
  for (const char* lineEnd : {"\n", "\r\n", "\r", "\r\r\n"}) {
    const std::string bytes = manyLines(lineEnd);
    const std::optional<LoadResult> result = loaded(write(bytes));
    ASSERT_TRUE(result && result->document != nullptr);
    EXPECT_TRUE(result->document->toBytes().Bytes == bytes);
    EXPECT_TRUE(result->document->readOnlyReason().isEmpty()) << result->document->readOnlyReason().toStdString();
  }
}

TEST_F(FileLoaderTest, GivesALongLineBackByteForByte) {
  std::string bytes;
  while (bytes.size() < 3'000'000)
    bytes += "\xF0\x9F\x98\x80";
  const std::optional<LoadResult> result = loaded(write(bytes));
  ASSERT_TRUE(result && result->document != nullptr);
  EXPECT_TRUE(result->document->toBytes().Bytes == bytes);
}

TEST_F(FileLoaderTest, PreparesTheDocumentInItsOwnThread) {
  std::atomic<bool> elsewhere = false;
  const auto prepare = [&elsewhere, home = QThread::currentThread()](SourceDocument& document) {
    elsewhere = QThread::currentThread() != home && document.thread() == QThread::currentThread();
  };
  ASSERT_TRUE(loaded(write("a"), prepare));
  EXPECT_TRUE(elsewhere);
}

TEST_F(FileLoaderTest, TellsWhyAFileCannotBeOpened) {
  const std::optional<LoadResult> result = loaded(path("missing.pas"));
  ASSERT_TRUE(result);
  EXPECT_EQ(result->document, nullptr);
  EXPECT_TRUE(result->error.contains(path("missing.pas"))) << result->error.toStdString();
}

TEST_F(FileLoaderTest, AStoppedLoadingIsNotHeardOfAgain) {
  bool heard = false;
  loader_.load(write(manyLines("\n")), {}, [&heard](const LoadResult&) { heard = true; })->stop();
  for (int other = 0; other < 4; ++other) // in the same threads, after it
    ASSERT_TRUE(loaded(write("b", "b.pas")));
  EXPECT_FALSE(heard);
}

TEST_F(FileLoaderTest, TellsHowFarItIs) {
  std::shared_ptr<LoadControl> control;
  bool done = false;
  control = loader_.load(write(manyLines("\n")), {}, [&done](const LoadResult&) { done = true; });
  EXPECT_TRUE(support::waitUntil([&] { return control->done() > 0.1; })) << "beyond reading and decoding";
  EXPECT_TRUE(support::waitUntil([&done] { return done; }));
  EXPECT_EQ(control->done(), 1);
}

TEST_F(FileLoaderTest, LoadsTwoFilesAtATimeAndFurtherOnesLater) {
  std::atomic<int> running = 0;
  std::atomic<int> most = 0;
  std::atomic<bool> go = false;
  int done = 0;
  const QString file = write("a");
  for (int i = 0; i < 5; ++i) {
    const auto hold = [&](SourceDocument&) {
      const int now = ++running;
      if (now > most)
        most = now;
      while (!go)
        std::this_thread::yield();
      --running;
    };
    loader_.load(file, hold, [&done](const LoadResult&) { ++done; });
  }
  EXPECT_TRUE(support::waitUntil([&running] { return running == 2; }));
  go = true;
  EXPECT_TRUE(support::waitUntil([&done] { return done == 5; }));
  EXPECT_EQ(most, 2);
}

TEST_F(FileLoaderTest, EndsInTheMidstOfLoading) {
  bool heard = false;
  {
    FileLoader ending;
    for (int i = 0; i < 4; ++i)
      ending.load(write(manyLines("\n")), {}, [&heard](const LoadResult&) { heard = true; });
  }
  support::settle();
  EXPECT_FALSE(heard);
}

TEST(LoadControl, LoadingThatIsStoppedGivesNeitherADocumentNorAnError) {
  QTemporaryDir folder;
  QFile file(folder.filePath(QStringLiteral("a.pas")));
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write("a");
  file.close();
  LoadControl control;
  control.stop();
  const LoadResult result = load(file.fileName(), quorvane::DefaultCodePage, &control);
  EXPECT_EQ(result.document, nullptr);
  EXPECT_EQ(result.error, QString());
}

} // namespace
} // namespace desktop
