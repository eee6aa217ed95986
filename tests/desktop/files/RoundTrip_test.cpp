// SPDX-License-Identifier: MIT
// What is in a file stays in it: opening and saving gives the same bytes, and an edit changes no others.
#include "desktop/files/FileFixture.h"

#include <QDirIterator>

#include <algorithm>
#include <string_view>

namespace desktop {
namespace {

using namespace std::string_literals;

// A text in UTF-16 with a byte-order mark.
std::string utf16(std::u16string_view text, bool bigEndian = false) {
  std::string bytes;
  const auto put = [&](char16_t unit) {
    const char low = static_cast<char>(unit & 0xFF);
    const char high = static_cast<char>(unit >> 8);
    bytes += bigEndian ? high : low;
    bytes += bigEndian ? low : high;
  };
  put(0xFEFF);
  std::for_each(text.begin(), text.end(), put);
  return bytes;
}

struct Sample {
  const char* name;
  std::string bytes;
  std::string x = "x"s; // the bytes of an x in its encoding
};

std::string allBytes() {
  std::string bytes;
  for (int byte = 0; byte < 256; ++byte)
    bytes += static_cast<char>(byte);
  return bytes;
}

// They begin with the byte-order mark of UTF-16.
std::string allBytesBackwards() {
  const std::string bytes = allBytes();
  return {bytes.rbegin(), bytes.rend()};
}

const std::vector<Sample>& samples() {
  static const std::vector<Sample> all = {
      {"Empty", ""},
      {"OneLineEnd", "\n"},
      {"Lf", "unit A;\nend.\n"},
      {"CrLf", "unit A;\r\nend.\r\n"},
      {"Cr", "unit A;\rend.\r"},
      {"NoFinalLineEnd", "unit A;\nend."},
      {"MixedLineEnds", "a\r\nb\nc\rd\r\r\ne\n\rf\n\n\r\r\n\r\ng"},
      {"EmptyLinesOfEachKind", "\n\r\r\n\r\n\n\n\r\r"},
      {"Tabs", "\tbegin\t\tend\t\n"},
      {"TrailingBlanks", "begin   \n   \n"},
      {"NoBreakSpaceUtf8", "a\xC2\xA0z\n"},
      {"NoBreakSpaceCodePage", "a\xA0z\n"},
      {"NextLineUtf8", "a\xC2\x85z\n"},
      {"NextLineCodePage", "a\x85z\n"},
      {"Nul", "a\0b\0\0\nc\0"s},
      {"Substitute", "end.\x1A"s},
      {"FormFeed", "\f\nunit A;\f\n"},
      {"VerticalTab", "a\vb\n"},
      {"LineSeparator", "a\xE2\x80\xA8z\n"},
      {"ObjectReplacement", "a\xEF\xBF\xBCz\n"},
      {"Replacement", "a\xEF\xBF\xBDz\n"},
      {"Umlauts", "\xC3\xA4\xC3\xB6\n"},
      {"BeyondTheBasicPlane", "{\xF0\x9F\x98\x80}\n"},
      {"CombiningMarks", "e\xCC\x81\n"},
      {"RightToLeft", "\xD7\xA9\xD7\x9C\xE2\x80\x8F\n"},
      {"MarkedUtf8", "\xEF\xBB\xBFunit A;\r\n"},
      {"MarkInTheMiddle", "a\xEF\xBB\xBF z\n"},
      {"OnlyMark", "\xEF\xBB\xBF"},
      {"CodePage1252", "Gr\xFC\xDF"
                       "e\r\n"},
      {"UndefinedInTheCodePage", "\x81\x8D\x8F\x90\x9D\n"},
      {"AllBytes", allBytes()},
      {"AllBytesBackwards", allBytesBackwards(), "x\0"s},
      {"Utf16LE", utf16(u"unit Ä;\r\nend.\r\n"), "x\0"s},
      {"Utf16BE", utf16(u"unit Ä;\nend.", true), "\0x"s},
      {"LoneHighSurrogate", utf16(u"a\xD83Dz\r\n"), "x\0"s},
      {"LoneLowSurrogate", utf16(u"a\xDE00\n\xDE00\xD83D"), "x\0"s},
      {"Utf16Nul", utf16(std::u16string_view(u"a\0b\n", 4)), "x\0"s},
  };
  return all;
}

class RoundTripTest : public FileTest, public testing::WithParamInterface<Sample> {};

TEST_P(RoundTripTest, OpensForEditing) {
  const auto document = openBytes(GetParam().bytes);
  EXPECT_FALSE(document->isReadOnlyText()) << document->readOnlyReason().toStdString();
  EXPECT_FALSE(document->isPlain());
}

TEST_P(RoundTripTest, SavesUnchangedBytes) {
  const auto document = openBytes(GetParam().bytes);
  saveOver(*document);
  EXPECT_EQ(read(path()), GetParam().bytes);
}

TEST_P(RoundTripTest, SavesUnchangedBytesAfterALetterIsTypedAndUndone) {
  const auto document = openBytes(GetParam().bytes);
  type(*document, document->blockCount() / 2, 0, QStringLiteral("x"));
  document->undo();
  saveOver(*document);
  EXPECT_EQ(read(path()), GetParam().bytes);
}

TEST_P(RoundTripTest, SavesOnlyTheTypedLetterChanged) {
  const auto document = openBytes(GetParam().bytes);
  // The text before the line, in the file's encoding, is as long as its part of the file.
  const int line = document->blockCount() / 2;
  std::u16string before;
  for (QTextBlock block = document->begin(); block.blockNumber() < line; block = block.next()) {
    before += block.text().toStdU16String();
    before += quorvane::LineEndText(document->lineEndOf(block));
  }
  const std::size_t offset = quorvane::Encode(before, document->encoding()).Bytes.size();
  type(*document, line, 0, QStringLiteral("x"));
  saveOver(*document);
  std::string expected = GetParam().bytes;
  expected.insert(offset, GetParam().x);
  EXPECT_EQ(read(path()), expected);
}

TEST_P(RoundTripTest, SavesUnchangedBytesAfterEverythingWasRemovedAndBroughtBack) {
  const auto document = openBytes(GetParam().bytes);
  QTextCursor all(document.get());
  all.select(QTextCursor::Document);
  all.removeSelectedText();
  if (document->isUndoAvailable())
    document->undo();
  saveOver(*document);
  EXPECT_EQ(read(path()), GetParam().bytes);
}

INSTANTIATE_TEST_SUITE_P(Samples, RoundTripTest, testing::ValuesIn(samples()),
                         [](const auto& sample) { return std::string(sample.param.name); });

// Characters that a text document takes for the end of a paragraph or the border of a frame, and bytes that are no
// text.
class UnholdableTest : public FileTest, public testing::WithParamInterface<Sample> {};

TEST_P(UnholdableTest, OpensReadOnlyAndSaysWhere) {
  const auto document = openBytes(GetParam().bytes);
  EXPECT_TRUE(document->isReadOnlyText());
  EXPECT_EQ(document->readOnlyReason().toStdString(), GetParam().x);
}

TEST_P(UnholdableTest, RefusesToBeSavedUnderAnyName) {
  const auto document = openBytes(GetParam().bytes);
  EXPECT_FALSE(save(*document, path()).ok());
  EXPECT_FALSE(save(*document, path("copy.pas")).ok());
  EXPECT_EQ(read(path()), GetParam().bytes);
  EXPECT_FALSE(QFile::exists(path("copy.pas")));
}

constexpr auto noLine = "The file is read-only here: its line 2 has a character that cannot be shown within a line.";

INSTANTIATE_TEST_SUITE_P(Samples, UnholdableTest,
                         testing::Values(Sample{"ParagraphSeparator", "a\nb\xE2\x80\xA9z\n", noLine},
                                         Sample{"FrameStart", "a\nb\xEF\xB7\x90z\n", noLine},
                                         Sample{"FrameEnd", "a\nb\xEF\xB7\x91z\n", noLine},
                                         Sample{"ParagraphSeparatorUtf16", utf16(u"a\r\nb\u2029z"), noLine},
                                         Sample{"DamagedMarkedUtf8",
                                                "\xEF\xBB\xBF"
                                                "a\xFFz",
                                                "The file is read-only here: its byte 5 is no UTF-8 with BOM."},
                                         Sample{"HalfAnUtf16Unit", utf16(u"ab") + "c",
                                                "The file is read-only here: its byte 7 is no UTF-16LE with BOM."}),
                         [](const auto& sample) { return std::string(sample.param.name); });

// A body of real sources, one file in `step` of all there are.
class RealFilesTest : public FileTest {
protected:
  static std::vector<QString> sources(int step) {
    std::vector<QString> found;
    QDirIterator files(QStringLiteral("/usr/share/fpcsrc"), {QStringLiteral("*.pas"), QStringLiteral("*.pp")},
                       QDir::Files, QDirIterator::Subdirectories | QDirIterator::FollowSymlinks);
    while (files.hasNext())
      found.push_back(files.next());
    std::sort(found.begin(), found.end());
    std::vector<QString> sampled;
    for (std::size_t index = 0; index < found.size(); index += static_cast<std::size_t>(step))
      sampled.push_back(found[index]);
    return sampled;
  }
};

TEST_F(RealFilesTest, SavesUnchangedBytesAfterALetterIsTypedAndUndone) {
  const std::vector<QString> files = sources(23);
  if (files.empty())
    GTEST_SKIP() << "the package fpc-source is not installed";
  for (const QString& file : files) {
    const std::string bytes = read(file);
    const auto document = openBytes(bytes);
    ASSERT_FALSE(document->isReadOnlyText()) << file.toStdString();
    type(*document, document->blockCount() / 2, 0, QStringLiteral("x"));
    document->undo();
    saveOver(*document);
    ASSERT_EQ(read(path()), bytes) << file.toStdString();
  }
}

TEST_F(RealFilesTest, SavesOnlyTheTypedLetterChanged) {
  const std::vector<QString> files = sources(29);
  if (files.empty())
    GTEST_SKIP() << "the package fpc-source is not installed";
  for (const QString& file : files) {
    const std::string bytes = read(file);
    const auto document = openBytes(bytes);
    type(*document, document->blockCount() / 2, 0, QStringLiteral("x"));
    saveOver(*document);
    const std::string saved = read(path());
    ASSERT_EQ(saved.size(), bytes.size() + 1) << file.toStdString();
    const auto changed = std::mismatch(bytes.begin(), bytes.end(), saved.begin());
    ASSERT_EQ(*changed.second, 'x') << file.toStdString();
    ASSERT_TRUE(std::equal(changed.first, bytes.end(), changed.second + 1)) << file.toStdString();
  }
}

} // namespace
} // namespace desktop
