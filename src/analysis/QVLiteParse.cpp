// SPDX-License-Identifier: MIT
#include "analysis/QVLiteParse.h"

#include <algorithm>
#include <array>
#include <initializer_list>
#include <utility>

namespace quorvane {
namespace {

// The position of an "else" that has not been seen.
constexpr std::int32_t NotSeen = -1;

// The kind that the element of a token carries.
constexpr TptTokenKind ElementKind(TptTokenKind kind) {
  switch (kind) {
  case ptOf:
    return ptCase;
  case ptUntil:
    return ptRepeat;
  default:
    return kind;
  }
}

} // namespace

// What a token means to the construct that it stands in.
enum class TQVLitePasParser::TStep : std::uint8_t {
  Nothing,
  DoCompoundStatement,
  DoCase,
  DoIf,
  DoRepeat,
  DoTry,
  DoRounds,
  TakeFirstMiddle,
  TakeSecondMiddle,
  Close
};

// All that tells one construct from another.
struct TQVLitePasParser::TTables {
  struct TRow {
    std::array<TStep, TokenKindCount> Steps{};
    std::uint8_t MiddleCount = 0;
  };

  std::array<TRow, 7> Rows{};

  constexpr TTables() {
    using enum TConstruct;
    using enum TStep;
    for (const TConstruct construct : {CompoundStatement, Case, If, Repeat, Try})
      Add(construct, {{ptRoundOpen, DoRounds},
                      {ptTry, DoTry},
                      {ptBegin, DoCompoundStatement},
                      {ptCase, DoCase},
                      {ptRepeat, DoRepeat}});
    // A case does not look at the ifs in it.
    for (const TConstruct construct : {CompoundStatement, If, Repeat, Try})
      Add(construct, {{ptIf, DoIf}});
    Add(Top, {{ptBegin, DoCompoundStatement}, {ptRoundOpen, DoRounds}});
    Add(CompoundStatement, {{ptEnd, Close}});
    Add(Case, {{ptOf, TakeFirstMiddle}, {ptEnd, Close}});
    Add(If, {{ptThen, TakeFirstMiddle}, {ptElse, TakeSecondMiddle}, {ptSemiColon, Close}});
    Add(Repeat, {{ptUntil, Close}});
    Add(Try, {{ptExcept, TakeFirstMiddle}, {ptFinally, TakeFirstMiddle}, {ptEnd, Close}});
    Add(Rounds, {{ptRoundOpen, DoRounds}, {ptRoundClose, Close}});
    Row(Case).MiddleCount = 1;
    Row(If).MiddleCount = 2;
    Row(Try).MiddleCount = 1;
  }

  constexpr const TRow& Row(TConstruct construct) const { return Rows[static_cast<std::size_t>(construct)]; }

private:
  constexpr TRow& Row(TConstruct construct) { return Rows[static_cast<std::size_t>(construct)]; }

  constexpr void Add(TConstruct construct, std::initializer_list<std::pair<TptTokenKind, TStep>> steps) {
    for (const auto& [kind, step] : steps)
      Row(construct).Steps[kind] = step;
  }
};

constinit const TQVLitePasParser::TTables TQVLitePasParser::Tables;

const char* EEndOfFile::what() const noexcept {
  return "End of file";
}

EParserError::~EParserError() = default;

void TQVLitePasParser::SetOnBlock(TQVLitePasEvent event) {
  FOnBlock = std::move(event);
}

void TQVLitePasParser::SetOnRound(TQVLitePasEvent event) {
  FOnRound = std::move(event);
}

void TQVLitePasParser::ParseFull(const char* text) {
  FMarks.clear();
  FConstruct = TConstruct::Top;
  FLexer.SetOrigin(text);
  FLexer.Init();
  try {
    DoTop();
  } catch (const EEndOfFile&) {
    // This is how every parse ends; what is still open is dropped.
  }
}

void TQVLitePasParser::ParseTo(const char*, std::int32_t, std::int32_t) {
  throw EParserError("TQVLitePasParser.ParseTo(..) is unimplemented");
}

void TQVLitePasParser::NextToken() {
  FLexer.Next();
  if (FLexer.TokenID() == ptNull) [[unlikely]]
    throw EEndOfFile();
}

void TQVLitePasParser::DoTop() {
  for (;;) {
    NextToken();
    const TStep step = StepAtToken();
    if (step == TStep::Nothing) [[likely]]
      continue;
    if (step != TStep::Close) {
      Dispatch(step);
      continue;
    }
    // The token after a closer may close the construct around it, but it opens nothing.
    do {
      Close();
      NextToken();
    } while (StepAtToken() == TStep::Close);
  }
}

TQVLitePasParser::TStep TQVLitePasParser::StepAtToken() const {
  return Tables.Row(FConstruct).Steps[FLexer.TokenID()];
}

void TQVLitePasParser::Dispatch(TStep step) {
  switch (step) {
  case TStep::DoCompoundStatement:
    DoCompoundStatement();
    break;
  case TStep::DoCase:
    DoCase();
    break;
  case TStep::DoIf:
    DoIf();
    break;
  case TStep::DoRepeat:
    DoRepeat();
    break;
  case TStep::DoTry:
    DoTry();
    break;
  case TStep::DoRounds:
    DoRounds();
    break;
  case TStep::TakeFirstMiddle:
    TakeMiddle(1);
    break;
  case TStep::TakeSecondMiddle:
    TakeMiddle(2);
    break;
  case TStep::Nothing:
  case TStep::Close:
    break;
  }
}

void TQVLitePasParser::Open(TConstruct construct) {
  FConstruct = construct;
  FMarks.push_back(Record());
  for (int middle = 0; middle < Tables.Row(construct).MiddleCount; ++middle)
    FMarks.push_back({.Construct = construct});
  if (construct == TConstruct::If)
    FMarks.back().Position = NotSeen;
}

// Where a middle keyword occurs more than once, the last one counts.
void TQVLitePasParser::TakeMiddle(std::size_t number) {
  const std::size_t opener = FMarks.size() - Tables.Row(FConstruct).MiddleCount - 1;
  FMarks[opener + number] = Record();
}

void TQVLitePasParser::Close() {
  const std::size_t markCount = Tables.Row(FConstruct).MiddleCount + std::size_t{1};
  std::array<TMark, 3> marks;
  std::copy_n(FMarks.end() - static_cast<std::ptrdiff_t>(markCount), markCount, marks.begin());
  std::size_t count = markCount;
  if (FConstruct != TConstruct::If)
    marks[count++] = Record();
  else if (marks.back().Position == NotSeen)
    --count;
  const TQVLitePasEvent& event = FConstruct == TConstruct::Rounds ? FOnRound : FOnBlock;
  FMarks.resize(FMarks.size() - markCount);
  FConstruct = FMarks.empty() ? TConstruct::Top : FMarks.back().Construct;
  if (event)
    Announce(std::span(marks).first(count), event);
}

void TQVLitePasParser::Announce(std::span<const TMark> marks, const TQVLitePasEvent& event) const {
  std::array<TQVLitePasElement, 3> elements;
  for (std::size_t index = 0; index < marks.size(); ++index) {
    const TMark& mark = marks[index];
    TQVLitePasElement& element = elements[index];
    element.Position = mark.Position;
    element.Line = mark.Line;
    element.Column = mark.Column;
    element.Kind = mark.Kind;
    element.Text.assign(FLexer.Origin() + mark.Position - mark.Length, mark.Length);
  }
  event(std::span(elements).first(marks.size()));
}

TQVLitePasParser::TMark TQVLitePasParser::Record() const {
  return {.Position = FLexer.RunPos(),
          .Line = FLexer.LineNumber() + 1,
          .Column = FLexer.GetPosXY().X,
          .Kind = ElementKind(FLexer.TokenID()),
          .Length = static_cast<std::uint8_t>(FLexer.GetTokenLen()),
          .Construct = FConstruct};
}

} // namespace quorvane
