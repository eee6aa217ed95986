// SPDX-License-Identifier: MIT
#include "desktop/ui/TextReplace.h"
#include "desktop/ui/TextSearch.h"

#include "support/PrintQt.h"

#include <gtest/gtest.h>

#include <QPlainTextDocumentLayout>

#include <utility>
#include <vector>

namespace desktop {
namespace {

using Spans = std::vector<std::pair<int, int>>; // start and length

Spans matches(const SearchTerms& terms, const QString& line) {
  Spans found;
  EXPECT_TRUE(TextMatcher(terms).forEach(line, [&](const LineMatch& match) {
    found.emplace_back(match.start, match.length);
    return true;
  }));
  return found;
}

SearchTerms plain(const QString& text) {
  return {text, false, false, false};
}

SearchTerms pattern(const QString& text) {
  return {text, false, false, true};
}

bool goOn(int) {
  return true;
}

// The document's text after all matches have been replaced.
QString replaced(const QString& text, const SearchTerms& terms, const QString& with) {
  QTextDocument document(text);
  applyReplacements(document, collectReplacements(document, TextMatcher(terms), SearchRange(), with, goOn).all);
  return document.toPlainText();
}

TEST(TextSearch, FindsATextAsItStandsAndNotAsAPattern) {
  EXPECT_EQ(matches(plain(QStringLiteral("a.b")), QStringLiteral("axb a.b A.B")), (Spans{{4, 3}, {8, 3}}));
}

TEST(TextSearch, MatchesDoNotOverlap) {
  EXPECT_EQ(matches(plain(QStringLiteral("aa")), QStringLiteral("aaaaa")), (Spans{{0, 2}, {2, 2}}));
}

TEST(TextSearch, TakesWholeWordsOnly) {
  const QString line = QStringLiteral("do Undo do_ do1 (do) do");
  EXPECT_EQ(matches({QStringLiteral("do"), false, true, false}, line), (Spans{{0, 2}, {17, 2}, {21, 2}}));
  EXPECT_EQ(matches({QStringLiteral("d."), false, true, true}, line), (Spans{{0, 2}, {17, 2}, {21, 2}}));
}

TEST(TextSearch, AWholeWordIsFoundWithinWhatALongerMatchWouldHaveCovered) {
  EXPECT_EQ(matches({QStringLiteral("a a"), false, true, false}, QStringLiteral("ba a a")), (Spans{{3, 3}}));
}

TEST(TextSearch, KnowsLettersBeyondAscii) {
  EXPECT_EQ(matches(plain(QStringLiteral("äh")), QStringLiteral("Ähre")), (Spans{{0, 2}}));
  EXPECT_EQ(matches({QStringLiteral("h"), false, true, false}, QStringLiteral("äh h")), (Spans{{3, 1}}));
  EXPECT_EQ(matches({QStringLiteral("h"), false, true, true}, QStringLiteral("äh h")), (Spans{{3, 1}}));
}

TEST(TextSearch, PatternsMatchLineByLine) {
  EXPECT_EQ(matches(pattern(QStringLiteral("^\\s*end;?$")), QStringLiteral("  END;")), (Spans{{0, 6}}));
}

TEST(TextSearch, EmptyMatchesAreVisitedOnceEach) {
  EXPECT_EQ(matches(pattern(QStringLiteral("x*")), QStringLiteral("axxb")), (Spans{{0, 0}, {1, 2}, {3, 0}, {4, 0}}));
  EXPECT_EQ(matches(pattern(QStringLiteral("$")), QString()), (Spans{{0, 0}}));
}

TEST(TextSearch, ALoneSurrogateDoesNotHideWhatStandsBesideIt) {
  const QString line = QStringLiteral("one ") + QChar(0xD800) + QStringLiteral(" two");
  EXPECT_EQ(matches(pattern(QStringLiteral("two")), line), (Spans{{6, 3}}));
  EXPECT_EQ(matches(plain(QStringLiteral("two")), line), (Spans{{6, 3}}));
}

TEST(TextSearch, ABadPatternFindsNothingAndSaysWhere) {
  const TextMatcher matcher(pattern(QStringLiteral("a(b")));
  EXPECT_TRUE(matcher.isEmpty());
  EXPECT_EQ(matcher.error(), QStringLiteral("Bad pattern at character 4: missing closing parenthesis"));
}

TEST(TextSearch, TheErrorOfAWholeWordPatternIsThatOfTheUsersText) {
  EXPECT_EQ(TextMatcher({QStringLiteral("a)b("), false, true, true}).error(),
            TextMatcher(pattern(QStringLiteral("a)b("))).error());
}

TEST(TextSearch, GoesBackwardThroughTheMatchesOfALine) {
  QTextDocument document(QStringLiteral("a a a"));
  QTextCursor from(&document);
  from.setPosition(5);
  const TextMatcher matcher(plain(QStringLiteral("a")));
  for (const int expected : {4, 2, 0, 4}) {
    from = findMatch(document, matcher, {}, from, SearchDirection::Backward, goOn).match;
    EXPECT_EQ(from.selectionStart(), expected);
  }
}

TEST(TextSearch, EmptyMatchesAreGoneThroughInBothDirections) {
  QTextDocument document(QStringLiteral("a\nb\nc"));
  QTextCursor from(&document);
  const TextMatcher matcher(pattern(QStringLiteral("^")));
  for (const int expected : {2, 4, 0}) {
    from = findMatch(document, matcher, {}, from, SearchDirection::Forward, goOn).match;
    EXPECT_EQ(from.position(), expected);
  }
  for (const int expected : {4, 2, 0}) {
    from = findMatch(document, matcher, {}, from, SearchDirection::Backward, goOn).match;
    EXPECT_EQ(from.position(), expected);
  }
}

TEST(TextSearch, ARangeHoldsWhatLiesWhollyInItAndFollowsEdits) {
  QTextDocument document(QStringLiteral("aa aa aa"));
  QTextCursor selection(&document);
  selection.setPosition(1);
  selection.setPosition(5, QTextCursor::KeepAnchor);
  const SearchRange range(selection);
  const TextMatcher matcher(plain(QStringLiteral("aa")));
  const auto once = collectReplacements(document, matcher, range, QStringLiteral("aaaa"), goOn);
  ASSERT_EQ(once.all.size(), 1U);
  EXPECT_EQ(once.all.front().position, 3);
  applyReplacements(document, once.all);
  EXPECT_EQ(collectReplacements(document, matcher, range, {}, goOn).all.size(), 2U) << "the new text is in the range";
}

TEST(TextSearch, FindsTheWordAtTheCaret) {
  QTextDocument document(QStringLiteral("x := Max_1;"));
  QTextCursor caret(&document);
  for (const int inside : {5, 7, 10}) {
    caret.setPosition(inside);
    EXPECT_EQ(wordAt(caret).selectedText(), QStringLiteral("Max_1"));
  }
  caret.setPosition(3);
  EXPECT_TRUE(wordAt(caret).isNull());
}

TEST(TextReplace, ReplacesPlainTextLiterally) {
  EXPECT_EQ(replaced(QStringLiteral("a.a\na"), plain(QStringLiteral("a")), QStringLiteral("\\0\\n")),
            QStringLiteral("\\0\\n.\\0\\n\n\\0\\n"));
}

TEST(TextReplace, PutsGroupsAndControlsIntoThePlaceOfAPattern) {
  struct Case {
    const char* with;
    const char* expected;
  };
  const Case cases[] = {
      {"\\2 = \\1", "b = a"}, {"[\\0]", "[a=b]"}, {"\\1\\n\\2", "a\nb"}, {"\\t", "\t"},
      {"\\\\1", "\\1"},       {"\\x", "\\x"},     {"x\\", "x\\"},        {"\\9", ""},
  };
  for (const Case& c : cases)
    EXPECT_EQ(replaced(QStringLiteral("a=b"), pattern(QStringLiteral("(\\w)=(\\w)")), QString::fromLatin1(c.with))
                  .toStdString(),
              c.expected);
}

TEST(TextReplace, FillsEmptyMatches) {
  EXPECT_EQ(replaced(QStringLiteral("a\n\nb"), pattern(QStringLiteral("^")), QStringLiteral("> ")),
            QStringLiteral("> a\n> \n> b"));
}

TEST(TextReplace, ReplacesAHundredThousandMatchesAsOneStep) {
  const QString text = QStringLiteral("x := x + 1;\n").repeated(50'000);
  QTextDocument document(text);
  const auto replacements =
      collectReplacements(document, TextMatcher(plain(QStringLiteral("x"))), {}, QStringLiteral("counter"), goOn);
  ASSERT_EQ(replacements.all.size(), 100'000U);
  applyReplacements(document, replacements.all);
  EXPECT_EQ(document.toPlainText(), QStringLiteral("counter := counter + 1;\n").repeated(50'000));
  document.undo();
  EXPECT_EQ(document.toPlainText(), text);
}

TEST(TextReplace, CanBeStoppedWhileItLooks) {
  QTextDocument document(QStringLiteral("x\n").repeated(5'000));
  int calls = 0;
  const auto stop = [&calls](int) { return ++calls < 2; };
  EXPECT_TRUE(collectReplacements(document, TextMatcher(plain(QStringLiteral("x"))), {}, {}, stop).stopped);
  EXPECT_EQ(calls, 2);
}

TEST(TextReplace, StoppedWhileItReplacesItLeavesTheFirstOnesAsOneStep) {
  const QString line = QStringLiteral("x := x + 1;\n");
  QTextDocument document;
  document.setPlainText(line.repeated(5'000));
  const auto found =
      collectReplacements(document, TextMatcher(plain(QStringLiteral("x"))), {}, QStringLiteral("total"), goOn);
  int calls = 0;
  const int done = applyReplacements(document, found.all, [&calls](int) { return ++calls < 3; });
  ASSERT_GT(done, 0);
  ASSERT_LT(done, 10'000);
  ASSERT_EQ(done % 2, 0);
  EXPECT_EQ(document.toPlainText(),
            QStringLiteral("total := total + 1;\n").repeated(done / 2) + line.repeated(5'000 - done / 2));
  document.undo();
  EXPECT_EQ(document.toPlainText(), line.repeated(5'000));
  EXPECT_FALSE(document.isUndoAvailable());
}

TEST(TextReplace, BetweenTwoLotsOfReplacementsTheDocumentIsLaidOut) {
  QTextDocument document(QStringLiteral("x\n").repeated(5'000));
  document.setDocumentLayout(new QPlainTextDocumentLayout(&document));
  const auto found =
      collectReplacements(document, TextMatcher(plain(QStringLiteral("x"))), {}, QStringLiteral("x\ny"), goOn);
  std::vector<bool> laidOut;
  int reported = 0;
  QObject::connect(&document, &QTextDocument::contentsChange, [&reported] { ++reported; });
  applyReplacements(document, found.all, [&](int done) {
    laidOut.push_back(reported == static_cast<int>(laidOut.size()) + 1 && document.blockCount() == 5'001 + done);
    return true;
  });
  EXPECT_GT(laidOut.size(), 1U);
  EXPECT_EQ(laidOut, std::vector<bool>(laidOut.size(), true));
}

// A pattern that tries every way to part a line of x, since no digit stands behind it.
const char* const runaway = "(x+x+)+\\d";

TEST(TextSearch, APatternThatWouldRunOnIsGivenUpForItsLine) {
  const TextMatcher matcher(pattern(QString::fromLatin1(runaway)));
  const auto anything = [](const LineMatch&) { return true; };
  for (const int length : {40, 4'000, 400'000})
    EXPECT_FALSE(matcher.forEach(QString(length, u'x'), anything)) << length;
  EXPECT_TRUE(matcher.forEach(QStringLiteral("xxx"), anything));
}

TEST(TextSearch, OneThatTakesItsStepsAtEveryPlaceIsGivenUpTooInALongLine) {
  const TextMatcher matcher(pattern(QStringLiteral("(?:x|y)*\\d")));
  EXPECT_FALSE(matcher.forEach(QString(100'000, u'x'), [](const LineMatch&) { return true; }));
}

TEST(TextSearch, MatchesBeforeTheTroubleAreVisited) {
  int visited = 0;
  const QString line = QStringLiteral("xx1 xx2 ") + QString(40, u'x');
  EXPECT_FALSE(TextMatcher(pattern(QString::fromLatin1(runaway))).forEach(line, [&](const LineMatch&) {
    return ++visited > 0;
  }));
  EXPECT_EQ(visited, 2);
}

TEST(TextSearch, PatternsFindTheSameInLongLines) {
  for (const int gap : {3, 2'000, 50'000}) {
    const auto inLine = [gap](const char* text, bool wholeWord = false) {
      return matches({QString::fromLatin1(text), false, wholeWord, true},
                     QStringLiteral("ab ab") + QString(gap, u' ') + QStringLiteral("cab"));
    };
    const int c = 5 + gap;
    EXPECT_EQ(inLine("ab"), (Spans{{0, 2}, {3, 2}, {c + 1, 2}})) << gap;
    EXPECT_EQ(inLine("(?<=c)ab|^ab"), (Spans{{0, 2}, {c + 1, 2}})) << gap;
    EXPECT_EQ(inLine("ab", true), (Spans{{0, 2}, {3, 2}})) << gap;
    EXPECT_EQ(inLine("x*$"), (Spans{{c + 3, 0}})) << gap;
    EXPECT_EQ(inLine("\\b"), (Spans{{0, 0}, {2, 0}, {3, 0}, {5, 0}, {c, 0}, {c + 3, 0}})) << gap;
    EXPECT_EQ(inLine("(*UCP)\\w+"), (Spans{{0, 2}, {3, 2}, {c, 3}})) << gap;
  }
}

TEST(TextSearch, NoCharacterOfALongLineIsCutInTwo) {
  const QString faces = QStringLiteral("\U0001F600").repeated(15'000);
  EXPECT_EQ(matches(pattern(QStringLiteral("x")), u'y' + faces + u'x'), (Spans{{30'001, 1}}));
  EXPECT_EQ(matches(pattern(QStringLiteral("x")), faces + u'x'), (Spans{{30'000, 1}}));
  EXPECT_EQ(matches(pattern(QStringLiteral(".")), faces).size(), 15'000U);
  EXPECT_EQ(matches(pattern(QStringLiteral("(?=.)")), faces).size(), 15'000U);
}

TEST(TextSearch, ALineThatIsGivenUpIsToldAndPassedOver) {
  QTextDocument document(QStringLiteral("one\n") + QString(40, u'x') + QStringLiteral("\nxx1"));
  const SearchHit hit = findMatch(document, TextMatcher(pattern(QString::fromLatin1(runaway))), {},
                                  QTextCursor(&document), SearchDirection::Forward, goOn);
  EXPECT_EQ(hit.givenUp.line, 2);
  EXPECT_EQ(hit.match.selectedText(), QStringLiteral("xx1"));
}

TEST(TextSearch, ASearchCanBeStoppedAfterEachLine) {
  QTextDocument document(QStringLiteral("x\n").repeated(100) + QStringLiteral("y"));
  const SearchHit hit = findMatch(document, TextMatcher(plain(QStringLiteral("y"))), {}, QTextCursor(&document),
                                  SearchDirection::Forward, [](int lines) { return lines < 50; });
  EXPECT_TRUE(hit.stopped);
  EXPECT_TRUE(hit.match.isNull());
}

TEST(TextReplace, StopsAtALineThatIsTooComplex) {
  QTextDocument document(QStringLiteral("xx1\n") + QString(40, u'x') + QStringLiteral("\nxx1"));
  const Replacements found =
      collectReplacements(document, TextMatcher(pattern(QString::fromLatin1(runaway))), {}, {}, goOn);
  EXPECT_EQ(found.givenUp.line, 2);
  EXPECT_EQ(found.all.size(), 1U);
}

} // namespace
} // namespace desktop
