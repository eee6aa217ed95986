// SPDX-License-Identifier: MIT
// Nesting far deeper than any stack would hold.
#include "analysis/QVLiteParse.h"

#include <gtest/gtest.h>

namespace quorvane {
namespace {

constexpr int Depth = 1'000'000;

std::string Repeated(const std::string& text, int count) {
  std::string result;
  result.reserve(text.size() * static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i)
    result += text;
  return result;
}

// Compares every announcement of a text with the one that stands at its place counted from the inside.
void ExpectNest(const std::string& opener, const std::string& closer, TptTokenKind kind, TptTokenKind closerKind) {
  const std::string text = Repeated(opener + " ", Depth) + Repeated(closer + " ", Depth);
  const auto openerStep = static_cast<int>(opener.size()) + 1;
  const auto closerStep = static_cast<int>(closer.size()) + 1;
  int count = 0;
  int wrong = 0;
  const auto check = [&](std::span<const TQVLitePasElement> elements) {
    const int openerStart = (Depth - 1 - count) * openerStep;
    const int closerStart = Depth * openerStep + count * closerStep;
    const TQVLitePasElement& first = elements.front();
    const TQVLitePasElement& last = elements.back();
    const bool isRight = first.Kind == kind && first.Column == openerStart &&
                         first.Position == openerStart + openerStep - 1 && first.Text == opener &&
                         last.Kind == closerKind && last.Column == closerStart &&
                         last.Position == closerStart + closerStep - 1 && last.Text == closer;
    wrong += isRight ? 0 : 1;
    ++count;
  };
  TQVLitePasParser parser;
  parser.SetOnBlock(check);
  parser.SetOnRound(check);
  parser.ParseFull(text.c_str());
  EXPECT_EQ(count, Depth);
  EXPECT_EQ(wrong, 0);
}

TEST(DeepNesting, OfParenthesesIsAnnouncedFromTheInsideOut) {
  ExpectNest("(", ")", ptRoundOpen, ptRoundClose);
}

TEST(DeepNesting, OfBlocksIsAnnouncedFromTheInsideOut) {
  ExpectNest("begin", "end", ptBegin, ptEnd);
}

TEST(DeepNesting, ThatNeverClosesAnnouncesNothing) {
  for (const char* opener : {"(", "begin ", "begin case ", "begin if ", "begin repeat ", "begin try "}) {
    const std::string text = Repeated(opener, Depth);
    int count = 0;
    TQVLitePasParser parser;
    parser.SetOnBlock([&](auto) { ++count; });
    parser.SetOnRound([&](auto) { ++count; });
    parser.ParseFull(text.c_str());
    EXPECT_EQ(count, 0) << opener;
  }
}

TEST(DeepNesting, OfBracketsRightBesideEachOtherIsAnnouncedInFull) {
  const std::string text = Repeated("(", Depth) + Repeated(")", Depth);
  int count = 0;
  TQVLitePasParser parser;
  parser.SetOnRound([&](auto) { ++count; });
  parser.ParseFull(text.c_str());
  EXPECT_EQ(count, Depth);
}

} // namespace
} // namespace quorvane
