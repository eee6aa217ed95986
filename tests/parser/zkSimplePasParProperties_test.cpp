// SPDX-License-Identifier: MIT
// What holds for every text, Pascal or not, whatever is done about reports.
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <memory>

#include "analysis/QVPasInfo.h"
#include "analysis/QVPasParser.h"
#include "parser/ParserProbe.h"
#include "support/PascalSoup.h"
#include "support/PascalUnits.h"

namespace quorvane {
namespace {

using support::AnySoup;
using support::BlockSoup;

// Words, names and punctuation with blanks between, so that most of it is scanned as it was meant.
rc::Gen<std::string> TokenSoup() {
  return rc::gen::scale(
      3.0, support::SoupOf(rc::gen::map(support::AnyPiece(), [](const std::string& piece) { return piece + ' '; })));
}

// A file of any kind with soup in a place where declarations, members, statements or arguments are expected.
rc::Gen<std::string> SoupInAFile() {
  const std::vector<std::string> beginnings = {"",
                                               "unit a; interface ",
                                               "unit a; interface implementation ",
                                               "unit a; interface type b = class ",
                                               "unit a; interface type b = interface ",
                                               "unit a; interface type b = record ",
                                               "program a; begin ",
                                               "program a; procedure b; begin c := ",
                                               "program a; var b: ",
                                               "program a; const b: c = ",
                                               "package a; contains ",
                                               "begin case a of ",
                                               "begin try a except on ",
                                               "begin a("};
  const auto join = [](const std::pair<std::string, std::string>& parts) { return parts.first + parts.second; };
  return rc::gen::map(
      rc::gen::pair(rc::gen::elementOf(beginnings), rc::gen::oneOf(AnySoup(), BlockSoup(), TokenSoup())), join);
}

// Far more reports of a token than any walk makes, each level of which says what it misses.
constexpr std::size_t ReportsOfACharacter = 100;

RC_GTEST_PROP(AnyFile, IsParsedToAnEndWithoutAHandler, ()) {
  const std::string text = *SoupInAFile();
  TReporter parser(TOnReport::NoHandler);
  parser.Parse(text);
  RC_ASSERT(parser.Reports().size() == (parser.HasEndedEarly() ? 1U : 0U));
}

RC_GTEST_PROP(AnyFile, IsParsedToAnEndWithAHandlerThatDoesNothing, ()) {
  const std::string text = *SoupInAFile();
  TReporter parser(TOnReport::Stay);
  parser.Parse(text);
  RC_ASSERT(parser.Reports().size() <= ReportsOfACharacter * (text.size() + 1));
}

RC_GTEST_PROP(AnyFile, IsParsedToAnEndWithAHandlerThatMovesOn, ()) {
  const std::string text = *SoupInAFile();
  TReporter parser(TOnReport::ToSemicolon);
  parser.Parse(text);
  RC_ASSERT(parser.Reports().size() <= ReportsOfACharacter * (text.size() + 1));
}

RC_GTEST_PROP(AnyFile, EndsAlikeWithAHandlerThatDoesNothingAndWithoutOne, ()) {
  const std::string text = *SoupInAFile();
  TReporter silent(TOnReport::NoHandler);
  TReporter heard(TOnReport::Stay);
  silent.Parse(text);
  heard.Parse(text);
  RC_ASSERT(silent.HasEndedEarly() == heard.HasEndedEarly());
  if (silent.HasEndedEarly())
    RC_ASSERT(silent.Reports().back() == heard.Reports().back());
}

RC_GTEST_PROP(AnyFile, ParsesAlikeWhateverWasParsedBefore, ()) {
  const std::string earlier = *SoupInAFile();
  const std::string text = *SoupInAFile();
  TReporter used;
  TReporter fresh;
  const std::size_t before = used.Parse(earlier).size();
  used.Parse(text);
  fresh.Parse(text);
  RC_ASSERT(TReports(used.Reports().begin() + static_cast<std::ptrdiff_t>(before), used.Reports().end()) ==
            fresh.Reports());
}

// Whether the outline parser came to an end at all is what is tried.
void ParseForAnOutline(std::string text) {
  TQVPasParser parser;
  parser.SetPasInfo(std::make_shared<TQVPasInfo>());
  try {
    parser.Run("", &text);
  } catch (const ESyntaxError&) {
    return;
  }
}

RC_GTEST_PROP(AnyFile, IsParsedToAnEndForAnOutline, ()) {
  ParseForAnOutline(*SoupInAFile());
}

class Prefixes : public testing::TestWithParam<const char*> {
protected:
  template <class TParse> static void ForEach(TParse parse) {
    const std::string text = support::ReadFile(std::string(VIRELLE_TEST_DATA "/parser/") + GetParam());
    ASSERT_FALSE(text.empty());
    for (std::size_t length = 0; length <= text.size(); ++length)
      parse(text.substr(0, length));
  }
};

TEST_P(Prefixes, AreParsedToAnEndWithoutAHandler) {
  ForEach([](const std::string& text) { TReporter(TOnReport::NoHandler).Parse(text); });
}

TEST_P(Prefixes, AreParsedToAnEndWithAHandlerThatDoesNothing) {
  ForEach([](const std::string& text) { TReporter(TOnReport::Stay).Parse(text); });
}

TEST_P(Prefixes, AreParsedToAnEndWithAHandlerThatMovesOn) {
  ForEach([](const std::string& text) { TReporter(TOnReport::ToSemicolon).Parse(text); });
}

TEST_P(Prefixes, AreParsedToAnEndForAnOutline) {
  ForEach(ParseForAnOutline);
}

std::string NameOfSample(const testing::TestParamInfo<const char*>& info) {
  std::string name = info.param;
  std::ranges::replace(name, '.', '_');
  return name;
}

INSTANTIATE_TEST_SUITE_P(Samples, Prefixes,
                         testing::Values("Classes.pas", "Declarations.pas", "Design.dpk", "Fragment.inc", "Headed.dpr",
                                         "Headless.dpr", "Junk.pas", "Shared.dpr", "Statements.pas"),
                         NameOfSample);

} // namespace
} // namespace quorvane
