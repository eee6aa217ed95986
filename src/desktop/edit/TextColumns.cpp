// SPDX-License-Identifier: MIT
#include "desktop/edit/TextColumns.h"

#include <algorithm>

namespace desktop {

namespace {

// Walks along a line character by character.
class Walker {
public:
  Walker(QStringView line, int tabWidth, LinePlace from = {})
      : line_(line), tabWidth_(std::max(tabWidth, 1)), unit_(from.unit), cell_(from.column - 1) {}

  bool atEnd() const { return unit_ >= line_.size(); }
  qsizetype unit() const { return unit_; }
  int charIndex() const { return charIndex_; }
  int column() const { return cell_ + 1; }

  // The unit and the column that follow the current character.
  qsizetype nextUnit() const {
    const bool pair = line_[unit_].isHighSurrogate() && unit_ + 1 < line_.size() && line_[unit_ + 1].isLowSurrogate();
    return unit_ + (pair ? 2 : 1);
  }
  int nextColumn() const { return column() + (line_[unit_] == u'\t' ? tabWidth_ - cell_ % tabWidth_ : 1); }

  void step() {
    cell_ = nextColumn() - 1;
    unit_ = nextUnit();
    ++charIndex_;
  }

private:
  QStringView line_;
  int tabWidth_;
  qsizetype unit_;
  int charIndex_ = 0; // from the place where it began
  int cell_;
};

Walker walkToUnit(QStringView line, qsizetype unit, int tabWidth, LinePlace from = {}) {
  Walker walker(line, tabWidth, from);
  while (!walker.atEnd() && walker.nextUnit() <= unit)
    walker.step();
  return walker;
}

Walker walkToChar(QStringView line, int charIndex, int tabWidth) {
  Walker walker(line, tabWidth);
  while (!walker.atEnd() && walker.charIndex() < charIndex)
    walker.step();
  return walker;
}

Walker walkToColumn(QStringView line, int column, int tabWidth) {
  Walker walker(line, tabWidth);
  while (!walker.atEnd() && walker.nextColumn() <= column)
    walker.step();
  return walker;
}

} // namespace

int charIndexOfUnit(QStringView line, qsizetype unit) {
  const Walker walker = walkToUnit(line, unit, 1);
  const qsizetype beyond = walker.atEnd() ? std::max<qsizetype>(unit - line.size(), 0) : 0;
  return walker.charIndex() + static_cast<int>(beyond);
}

qsizetype unitOfCharIndex(QStringView line, int charIndex) {
  return walkToChar(line, charIndex, 1).unit();
}

int columnOfCharIndex(QStringView line, int charIndex, int tabWidth) {
  if (charIndex < 0)
    return charIndex + 1;
  const Walker walker = walkToChar(line, charIndex, tabWidth);
  return walker.column() + std::max(charIndex - walker.charIndex(), 0);
}

int charIndexOfColumn(QStringView line, int column, int tabWidth) {
  const Walker walker = walkToColumn(line, column, tabWidth);
  const int beyond = walker.atEnd() ? std::max(column - walker.column(), 0) : 0;
  return walker.charIndex() + beyond;
}

int columnOfUnit(QStringView line, qsizetype unit, int tabWidth) {
  return walkToUnit(line, unit, tabWidth).column();
}

qsizetype unitOfColumn(QStringView line, int column, int tabWidth) {
  return walkToColumn(line, column, tabWidth).unit();
}

LinePlace walkOn(QStringView line, LinePlace from, qsizetype unit, int tabWidth) {
  const Walker walker = walkToUnit(line, unit, tabWidth, from);
  return {walker.unit(), walker.column()};
}

} // namespace desktop
