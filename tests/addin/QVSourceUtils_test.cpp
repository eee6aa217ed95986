// SPDX-License-Identifier: MIT
#include "host/QVSourceUtils.h"

#include "AddinFixture.h"
#include "platform/Errors.h"

#include <stdexcept>

namespace quorvane {
namespace {

using fakes::FakeBuffer;
using fakes::ReadRequest;

struct FileName {
  const char* Name;
  bool IsPascal;
};

class QVSourceUtilsNames : public testing::TestWithParam<FileName> {};
INSTANTIATE_TEST_SUITE_P(Names, QVSourceUtilsNames,
                         testing::Values(FileName{"/home/me/unit1.pas", true}, FileName{"project1.dpr", true},
                                         FileName{"UNIT1.PAS", true}, FileName{"Project1.Dpr", true},
                                         FileName{"a.b.pas", true}, FileName{".pas", true},
                                         FileName{"package.dpk", false}, FileName{"defs.inc", false},
                                         FileName{"unit1.dfm", false}, FileName{"unit1.pp", false},
                                         FileName{"unit1.pas.txt", false}, FileName{"unit1.pas ", false},
                                         FileName{"unit1.", false}, FileName{"pas", false}, FileName{"", false},
                                         FileName{"/home/me.pas/unit1", false}));

TEST_P(QVSourceUtilsNames, PascalFilesAreToldByTheirExtensionInAnyCase) {
  EXPECT_EQ(IsPascalFile(QString::fromLatin1(GetParam().Name)), GetParam().IsPascal);
}

std::shared_ptr<FakeBuffer> BufferOf(std::size_t size) {
  std::string text(size, ' ');
  for (std::size_t index = 0; index < size; ++index)
    text[index] = static_cast<char>('a' + index % 26);
  return std::make_shared<FakeBuffer>(QStringLiteral("unit1.pas"), text);
}

struct Source {
  std::size_t Size;
  std::vector<ReadRequest> Requests;
};

class QVSourceUtilsReads : public testing::TestWithParam<Source> {};
INSTANTIATE_TEST_SUITE_P(Sizes, QVSourceUtilsReads,
                         testing::Values(Source{0, {{0, 32767, 0}}}, Source{1, {{0, 32767, 1}}},
                                         Source{32766, {{0, 32767, 32766}}},
                                         Source{32767, {{0, 32767, 32767}, {32767, 32767, 0}}},
                                         Source{32768, {{0, 32767, 32767}, {32767, 32767, 1}}},
                                         Source{65534, {{0, 32767, 32767}, {32767, 32767, 32767}, {65534, 32767, 0}}}),
                         [](const auto& source) { return std::to_string(source.param.Size) + "Bytes"; });

TEST_P(QVSourceUtilsReads, ReadsInChunksUntilOneIsNotFull) {
  const auto buffer = BufferOf(GetParam().Size);
  std::string text = "what was there before";
  GetSourceFromReader(buffer->CreateReader(), text);
  EXPECT_EQ(text, buffer->Text);
  EXPECT_EQ(buffer->Requests, GetParam().Requests);
}

TEST(QVSourceUtils, ReadKeepsNulCharacters) {
  const auto buffer = std::make_shared<FakeBuffer>(QStringLiteral("unit1.pas"), std::string("a\0b", 3));
  std::string text;
  GetSourceFromReader(buffer->CreateReader(), text);
  EXPECT_EQ(text, std::string("a\0b", 3));
}

TEST(QVSourceUtils, ReadingAgainKeepsTheRoomOfTheText) {
  const auto buffer = BufferOf(100'000);
  std::string text;
  GetSourceFromReader(buffer->CreateReader(), text);
  const char* const storage = text.data();
  GetSourceFromReader(buffer->CreateReader(), text);
  EXPECT_EQ(text.data(), storage);
}

TEST(QVSourceUtils, ReadWithoutAReaderIsAnAssertion) {
  std::string text;
  const auto assertion = AssertionOf([&] { GetSourceFromReader(nullptr, text); });
  EXPECT_EQ(assertion.Text(), "Assertion failure");
  EXPECT_EQ(assertion.Unit(), "QVSourceUtils");
}

TEST(QVSourceUtils, ReadThatFailsPassesItsErrorOn) {
  const auto buffer = BufferOf(10);
  buffer->ReadError = std::make_exception_ptr(std::runtime_error("disk on fire"));
  std::string text = "before";
  EXPECT_THROW(GetSourceFromReader(buffer->CreateReader(), text), std::runtime_error);
  EXPECT_EQ(text, "");
}

} // namespace
} // namespace quorvane
