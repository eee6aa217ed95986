// SPDX-License-Identifier: MIT
#include "desktop/files/FileFixture.h"

#include <QLocale>

namespace desktop {
namespace {

using LimitsTest = FileTest;

// A file of `size` bytes in lines of 64, without a byte of disk for a hole where it can be helped.
std::string lines(std::size_t size) {
  std::string bytes(size, 'a');
  for (std::size_t index = 63; index < size; index += 64)
    bytes[index] = '\n';
  return bytes;
}

TEST_F(LimitsTest, TreatsALineOfTheLimitAsSource) {
  EXPECT_FALSE(openBytes("a\n" + std::string(plainLineCharacters, 'b') + "\n")->isPlain());
}

TEST_F(LimitsTest, TreatsALineOverTheLimitAsPlainText) {
  const auto document = openBytes("a\n" + std::string(plainLineCharacters + 1, 'b') + "\n");
  EXPECT_TRUE(document->isPlain());
  EXPECT_EQ(document->plainReason(),
            QStringLiteral("The file has a line of over 100,000 characters and is shown as plain text."));
  EXPECT_FALSE(document->isReadOnlyText());
}

TEST_F(LimitsTest, CountsASurrogatePairAsOneCharacter) {
  std::string line;
  for (std::size_t index = 0; index < plainLineCharacters; ++index)
    line += "\xF0\x9F\x98\x80";
  EXPECT_FALSE(openBytes(line)->isPlain());
}

TEST_F(LimitsTest, SavesALineOfAMillionCharactersUnchanged) {
  const std::string bytes = "a\r\n" + std::string(1'000'000, 'b') + "\nc";
  const auto document = openBytes(bytes);
  EXPECT_TRUE(document->isPlain());
  type(*document, 1, 500'000, QStringLiteral("x"));
  document->undo();
  saveOver(*document);
  EXPECT_EQ(read(path()), bytes);
}

TEST_F(LimitsTest, TreatsAFileOverTheLimitAsPlainTextAndKeepsIt) {
  const std::string bytes = lines(static_cast<std::size_t>(plainFileBytes) + 1);
  const auto document = openBytes(bytes);
  EXPECT_TRUE(document->isPlain());
  EXPECT_EQ(document->plainReason(), QStringLiteral("The file is over 64 MB and is shown as plain text."));
  type(*document, 1000, 0, QStringLiteral("x"));
  document->undo();
  saveOver(*document);
  EXPECT_TRUE(read(path()) == bytes);
}

TEST_F(LimitsTest, RefusesAFileThatIsTooLargeToOpen) {
  const QString file = write("a");
  ASSERT_TRUE(QFile::resize(file, largestFileBytes + 1)); // a hole: takes no room on the disk
  const LoadResult result = load(file);
  EXPECT_EQ(result.document, nullptr);
  EXPECT_EQ(result.error.toStdString(), "Cannot open " + file.toStdString() + ": it is over 256 MB.");
}

TEST_F(LimitsTest, RefusesAFileOfMoreLinesThanMemoryIsGoodFor) {
  const QString file = write(std::string(mostLines, '\n'));
  QFile longer(file);
  ASSERT_TRUE(longer.open(QIODevice::Append));
  longer.write("\r\n");
  longer.close();
  const LoadResult result = load(file);
  EXPECT_EQ(result.document, nullptr);
  EXPECT_EQ(result.error.toStdString(), "Cannot open " + file.toStdString() + ": it has more than " +
                                            QLocale().toString(qlonglong{mostLines}).toStdString() + " lines.");
}

} // namespace
} // namespace desktop
