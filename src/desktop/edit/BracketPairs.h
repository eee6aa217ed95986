// SPDX-License-Identifier: MIT
#pragma once

#include <QTextBlock>
#include <QTextCursor>

#include <functional>
#include <vector>

namespace desktop {

// Typing round and square brackets, braces and quotes as pairs, in code and not in comments or strings.
//
// An opening one brings its partner when nothing but a blank, a closing bracket or the end of the line follows, and is
// put round a selection. A closing one that came in this way is stepped over when it is typed, for as long as the caret
// stays between the two. Every function is one undo step. Clear before the document goes.
class BracketPairs {
public:
  // Whether a character that is typed before the one at `unit` of a line stands in code.
  using IsCode = std::function<bool(const QTextBlock& line, int unit)>;

  explicit BracketPairs(IsCode isCode);

  // Types `character` at the cursor. False, and nothing is changed, when it is to be typed as any other character.
  bool type(QTextCursor& cursor, char32_t character);
  // Takes both of the empty pair that the cursor stands in; false when it stands in none.
  bool takeBack(QTextCursor& cursor) const;

  // Forgets the pairs that `caret` does not stand in any more.
  void follow(const QTextCursor& caret);
  void clear() { pairs_.clear(); }

private:
  // A pair that was put in; each cursor stands before its character.
  struct Pair {
    QTextCursor opening;
    QTextCursor closing;
  };

  bool stepOver(QTextCursor& cursor, QChar character);
  bool surround(QTextCursor& cursor, QChar opening, QChar closing) const;
  bool open(QTextCursor& cursor, QChar opening, QChar closing);
  bool isCodeAt(const QTextCursor& cursor) const { return isCode_(cursor.block(), cursor.positionInBlock()); }

  IsCode isCode_;
  std::vector<Pair> pairs_; // the innermost last
};

} // namespace desktop
