// SPDX-License-Identifier: MIT
#include "desktop/edit/LineColours.h"

#include <QString>

#include <algorithm>

namespace desktop {

using namespace quorvane;

namespace {

constexpr TTokenKindSet visibilities{ptAutomated, ptPrivate, ptProtected, ptPublic, ptPublished};
constexpr TTokenKindSet routineDirectives{ptAbstract, ptAssembler, ptCdecl,       ptDynamic,  ptExport,   ptExternal,
                                          ptFar,      ptForward,   ptMessage,     ptNear,     ptOverload, ptOverride,
                                          ptPascal,   ptRegister,  ptReintroduce, ptSafeCall, ptStdcall,  ptVirtual};

// One byte a unit: what the lexer tells apart is ASCII; anything beyond Latin-1 is a character that no token has.
void toBytes(QStringView line, std::string& bytes) {
  bytes.resize(static_cast<std::size_t>(line.size()));
  std::transform(line.begin(), line.end(), bytes.begin(),
                 [](QChar unit) { return static_cast<char>(unit.unicode() < 0x100 ? unit.unicode() : 0xBF); });
}

SyntaxAttribute attributeOfKind(TptTokenKind kind) {
  switch (TokenGroup(kind)) {
  case TTokenGroup::Reserved:
    return SyntaxAttribute::ReservedWord;
  case TTokenGroup::Word:
    return SyntaxAttribute::Identifier;
  case TTokenGroup::Symbol:
    return SyntaxAttribute::Symbol;
  case TTokenGroup::Literal:
    if (kind == ptIdentifier)
      return SyntaxAttribute::Identifier;
    return kind == ptStringConst || kind == ptAsciiChar ? SyntaxAttribute::String : SyntaxAttribute::Number;
  case TTokenGroup::Junk:
    return kind == ptSpace || kind == ptCRLF || kind == ptCRLFCo ? SyntaxAttribute::Blank : SyntaxAttribute::Comment;
  case TTokenGroup::Directive:
    return SyntaxAttribute::Directive;
  case TTokenGroup::Special:
    break;
  }
  return SyntaxAttribute::Illegal;
}

} // namespace

SyntaxAttribute LineScanner::currentAttribute(TptTokenKind previous) const {
  const bool reservedHere = (previous == ptNull && visibilities.Contains(lexer_.ExID())) ||
                            (previous == ptSemiColon && routineDirectives.Contains(lexer_.ExID()));
  return reservedHere ? SyntaxAttribute::ReservedWord : attributeOfKind(lexer_.TokenID());
}

TCommentState LineScanner::scan(QStringView line, TCommentState start, std::vector<ColourRun>* runs) {
  toBytes(line, bytes_);
  const auto size = static_cast<std::int32_t>(bytes_.size());
  lexer_.SetCommentState(start);
  lexer_.SetLine(bytes_);
  TptTokenKind previous = ptNull; // the last token of the line that was no junk
  while (lexer_.TokenID() != ptNull || lexer_.TokenPos() < size) {
    if (lexer_.TokenID() == ptNull) {
      lexer_.SetRunPos(lexer_.TokenPos() + 1);
      continue;
    }
    const SyntaxAttribute attribute = currentAttribute(previous);
    if (runs != nullptr && attribute != SyntaxAttribute::Blank)
      runs->push_back({lexer_.TokenPos(), lexer_.GetTokenLen(), attribute});
    if (!lexer_.GetIsJunk())
      previous = lexer_.TokenID();
    lexer_.Next();
  }
  return lexer_.GetCommentState();
}

SyntaxAttribute LineScanner::attributeAt(QStringView line, TCommentState start, int unit) {
  const bool atEnd = unit >= line.size();
  // At the end a letter stands in for the character to come: it tells whether a comment or a string is open there.
  const QString extended = atEnd ? line.toString() + u'x' : QString();
  std::vector<ColourRun> runs;
  scan(atEnd ? QStringView(extended) : line, start, &runs);
  const int wanted = atEnd ? static_cast<int>(line.size()) : std::max(unit, 0);
  const auto run = std::find_if(runs.begin(), runs.end(), [wanted](const ColourRun& candidate) {
    return candidate.start <= wanted && wanted < candidate.start + candidate.length;
  });
  const SyntaxAttribute attribute = run == runs.end() ? SyntaxAttribute::Blank : run->attribute;
  const bool open = attribute == SyntaxAttribute::Comment || attribute == SyntaxAttribute::String ||
                    attribute == SyntaxAttribute::Directive;
  return atEnd && !open ? SyntaxAttribute::Blank : attribute;
}

} // namespace desktop
