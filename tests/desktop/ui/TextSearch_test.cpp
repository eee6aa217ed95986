// SPDX-License-Identifier: MIT
#include "desktop/ui/TextReplace.h"
#include "desktop/ui/TextSearch.h"

#include "support/PrintQt.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace desktop {
namespace {

using Spans = std::vector<std::pair<int, int>>; // start and length

Spans matches(const SearchTerms& terms, const QString& line) {
  Spans found;
  TextMatcher(terms).forEach(line, [&](const LineMatch& match) {
    found.emplace_back(match.start, match.length);
    return true;
  });
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
  const auto replacements = collectReplacements(document, TextMatcher(terms), SearchRange(), with, goOn);
  applyReplacements(document, replacements.value());
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
    from = findMatch(document, matcher, {}, from, SearchDirection::Backward).match;
    EXPECT_EQ(from.selectionStart(), expected);
  }
}

TEST(TextSearch, EmptyMatchesAreGoneThroughInBothDirections) {
  QTextDocument document(QStringLiteral("a\nb\nc"));
  QTextCursor from(&document);
  const TextMatcher matcher(pattern(QStringLiteral("^")));
  for (const int expected : {2, 4, 0}) {
    from = findMatch(document, matcher, {}, from, SearchDirection::Forward).match;
    EXPECT_EQ(from.position(), expected);
  }
  for (const int expected : {4, 2, 0}) {
    from = findMatch(document, matcher, {}, from, SearchDirection::Backward).match;
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
  ASSERT_EQ(once->size(), 1U);
  EXPECT_EQ(once->front().position, 3);
  applyReplacements(document, *once);
  EXPECT_EQ(collectReplacements(document, matcher, range, {}, goOn)->size(), 2U) << "the new text is in the range";
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
  ASSERT_EQ(replacements->size(), 100'000U);
  applyReplacements(document, *replacements);
  EXPECT_EQ(document.toPlainText(), QStringLiteral("counter := counter + 1;\n").repeated(50'000));
  document.undo();
  EXPECT_EQ(document.toPlainText(), text);
}

TEST(TextReplace, CanBeStoppedWhileItLooks) {
  QTextDocument document(QStringLiteral("x\n").repeated(5'000));
  int calls = 0;
  const auto stop = [&calls](int) { return ++calls < 2; };
  EXPECT_FALSE(collectReplacements(document, TextMatcher(plain(QStringLiteral("x"))), {}, {}, stop).has_value());
  EXPECT_EQ(calls, 2);
}

} // namespace
} // namespace desktop
