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

// How many marks a parser keeps memory for between two parses: 16 MB of them. To ask for the memory anew takes twice as
// long as the parse itself, so a text that nests as deep as this is still parsed quickly at each repaint; one that
// nests deeper is paid for each time, and does not hold its memory for as long as the parser lives.
constexpr std::size_t MarksKept = std::size_t{1024} * 1024;

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
  ClearMarks();
  FLexer.SetOrigin(text);
  FLexer.Init();
  try {
    DoTop();
  } catch (const EEndOfFile&) {
    // This is how every parse ends; what is still open is dropped.
  }
  ClearMarks();
}

void TQVLitePasParser::ClearMarks() {
  FMarks.clear();
  if (FMarks.capacity() > MarksKept)
    FMarks.shrink_to_fit();
  FConstruct = TConstruct::Top;
}

void TQVLitePasParser::ParseTo(const char*, std::int32_t, std::int32_t) {
  throw EParserError("TQVLitePasParser.ParseTo(..) is unimplemented");
}

void TQVLitePasParser::RaiseEndOfFile() {
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
  if (const std::size_t middles = Tables.Row(construct).MiddleCount; middles != 0)
    FMarks.insert(FMarks.end(), middles, {.Construct = construct});
  if (construct == TConstruct::If)
    FMarks.back().Position = NotSeen;
}

// Where a middle keyword occurs more than once, the last one counts.
void TQVLitePasParser::TakeMiddle(std::size_t number) {
  const std::size_t opener = FMarks.size() - Tables.Row(FConstruct).MiddleCount - 1;
  FMarks[opener + number] = Record();
}

void TQVLitePasParser::Close() {
  const TConstruct construct = FConstruct;
  const TQVLitePasEvent& event = construct == TConstruct::Rounds ? FOnRound : FOnBlock;
  const std::size_t middles = Tables.Row(construct).MiddleCount;
  const std::size_t opener = FMarks.size() - middles - 1;
  const auto element = [this, opener](std::size_t number) { return ElementOf(FMarks[opener + number]); };
  if (!event) {
    Leave(opener);
  } else if (construct != TConstruct::If) {
    if (middles == 0)
      Announce(event, opener, std::array{element(0), ElementOf(Record())});
    else
      Announce(event, opener, std::array{element(0), element(1), ElementOf(Record())});
  } else if (FMarks.back().Position == NotSeen) {
    Announce(event, opener, std::array{element(0), element(1)});
  } else {
    Announce(event, opener, std::array{element(0), element(1), element(2)});
  }
}

// The event comes last: it may use this parser for another text.
void TQVLitePasParser::Announce(const TQVLitePasEvent& event, std::size_t opener,
                                std::span<const TQVLitePasElement> elements) {
  Leave(opener);
  event(elements);
}

void TQVLitePasParser::Leave(std::size_t opener) {
  FMarks.resize(opener);
  FConstruct = FMarks.empty() ? TConstruct::Top : FMarks.back().Construct;
}

TQVLitePasElement TQVLitePasParser::ElementOf(TMark mark) const {
  return {.Position = mark.Position,
          .Line = mark.Line,
          .Column = mark.Column,
          .Kind = mark.Kind,
          .Text = std::string(FLexer.Origin() + mark.Position - mark.Length, mark.Length)};
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
