// SPDX-License-Identifier: MIT
// Nesting far deeper than any stack would hold.
#include "analysis/QVLiteParse.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

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

struct TWord {
  std::string Text;
  TptTokenKind Kind;
};

// One level of a nest: the words that open it, each with a blank after it, and the word that closes it.
struct TLevel {
  std::vector<TWord> Opener;
  TWord Closer;
  bool IsCloserAnnounced = true;
};

bool IsAt(const TQVLitePasElement& element, const TWord& word, int start) {
  return element.Kind == word.Kind && element.Text == word.Text && element.Column == start &&
         element.Position == start + static_cast<int>(word.Text.size());
}

int StepOf(const TWord& word) {
  return static_cast<int>(word.Text.size()) + 1;
}

// Whether these are the elements of a level whose opener and closer start at those places.
bool IsLevel(std::span<const TQVLitePasElement> elements, const TLevel& level, int openerStart, int closerStart) {
  if (elements.size() != level.Opener.size() + (level.IsCloserAnnounced ? 1U : 0U))
    return false;
  int start = openerStart;
  for (std::size_t index = 0; index < level.Opener.size(); ++index) {
    if (!IsAt(elements[index], level.Opener[index], start))
      return false;
    start += StepOf(level.Opener[index]);
  }
  return !level.IsCloserAnnounced || IsAt(elements.back(), level.Closer, closerStart);
}

// Compares every announcement of a text with the level that stands at its place counted from the inside. `before` is
// never closed.
void ExpectNest(const std::string& before, const TLevel& level) {
  std::string opener;
  for (const TWord& word : level.Opener)
    opener += word.Text + " ";
  const std::string text = before + Repeated(opener, Depth) + Repeated(level.Closer.Text + " ", Depth);
  const auto first = static_cast<int>(before.size());
  const auto openerStep = static_cast<int>(opener.size());
  int count = 0;
  int wrong = 0;
  const auto check = [&](std::span<const TQVLitePasElement> elements) {
    const int openerStart = first + (Depth - 1 - count) * openerStep;
    const int closerStart = first + Depth * openerStep + count * StepOf(level.Closer);
    wrong += IsLevel(elements, level, openerStart, closerStart) ? 0 : 1;
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
  ExpectNest("", {.Opener = {{"(", ptRoundOpen}}, .Closer = {")", ptRoundClose}});
}

TEST(DeepNesting, OfBlocksIsAnnouncedFromTheInsideOut) {
  ExpectNest("", {.Opener = {{"begin", ptBegin}}, .Closer = {"end", ptEnd}});
}

TEST(DeepNesting, OfCasesIsAnnouncedFromTheInsideOut) {
  ExpectNest("begin ", {.Opener = {{"case", ptCase}, {"of", ptCase}}, .Closer = {"end", ptEnd}});
}

TEST(DeepNesting, OfTriesIsAnnouncedFromTheInsideOut) {
  ExpectNest("begin ", {.Opener = {{"try", ptTry}, {"finally", ptFinally}}, .Closer = {"end", ptEnd}});
  ExpectNest("begin ", {.Opener = {{"try", ptTry}, {"except", ptExcept}}, .Closer = {"end", ptEnd}});
}

TEST(DeepNesting, OfIfsIsAnnouncedFromTheInsideOut) {
  ExpectNest("begin ",
             {.Opener = {{"if", ptIf}, {"then", ptThen}}, .Closer = {";", ptSemiColon}, .IsCloserAnnounced = false});
  ExpectNest("begin ", {.Opener = {{"if", ptIf}, {"then", ptThen}, {"else", ptElse}},
                        .Closer = {";", ptSemiColon},
                        .IsCloserAnnounced = false});
}

TEST(DeepNesting, OfRepeatsIsAnnouncedFromTheInsideOut) {
  ExpectNest("begin ", {.Opener = {{"repeat", ptRepeat}}, .Closer = {"until", ptRepeat}});
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

TEST(DeepNesting, LeavesTheParserFitForTheNextText) {
  const std::string text = Repeated("(", Depth);
  int count = 0;
  TQVLitePasParser parser;
  parser.SetOnRound([&](auto) { ++count; });
  for (int i = 1; i <= 3; ++i) {
    parser.ParseFull(text.c_str());
    parser.ParseFull("(a)");
    EXPECT_EQ(count, i);
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
