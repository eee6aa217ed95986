// SPDX-License-Identifier: MIT
// The light parser told the long way round: one procedure per construct, each calling the others. Slow, deep on the
// stack, and easy to believe. The real parser is compared with it.
#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include "analysis/QVLiteParse.h"

namespace support {

// One announcement; the flag tells parentheses from blocks.
struct TLiteEvent {
  bool IsRound = false;
  std::vector<quorvane::TQVLitePasElement> Elements;
};

inline bool operator==(const TLiteEvent& a, const TLiteEvent& b) {
  const auto isSame = [](const quorvane::TQVLitePasElement& x, const quorvane::TQVLitePasElement& y) {
    return x.Position == y.Position && x.Line == y.Line && x.Column == y.Column && x.Kind == y.Kind && x.Text == y.Text;
  };
  return a.IsRound == b.IsRound && std::ranges::equal(a.Elements, b.Elements, isSame);
}

// What the real parser announces.
inline std::vector<TLiteEvent> Announced(quorvane::TQVLitePasParser& parser, const std::string& text) {
  std::vector<TLiteEvent> events;
  parser.SetOnBlock([&](auto elements) { events.push_back({false, {elements.begin(), elements.end()}}); });
  parser.SetOnRound([&](auto elements) { events.push_back({true, {elements.begin(), elements.end()}}); });
  parser.ParseFull(text.c_str());
  return events;
}

class TLitePasReference {
public:
  std::vector<TLiteEvent> Parse(const std::string& text) {
    FEvents.clear();
    FLexer.SetOrigin(text.c_str());
    FLexer.Init();
    try {
      DoTop();
    } catch (const EndOfText&) {
    }
    return FEvents;
  }

private:
  using TKind = quorvane::TptTokenKind;
  using TElement = quorvane::TQVLitePasElement;
  struct EndOfText {};

  void NextToken() {
    FLexer.Next();
    if (FLexer.TokenID() == quorvane::ptNull)
      throw EndOfText();
  }

  TElement Record(TKind kind) const {
    return {FLexer.RunPos(), FLexer.LineNumber() + 1, FLexer.TokenPos() - FLexer.LinePos(), kind, FLexer.GetToken()};
  }

  void Announce(bool isRound, std::vector<TElement> elements) {
    FEvents.push_back({isRound, std::move(elements)});
    NextToken();
  }

  void DoTop() {
    do {
      NextToken();
      if (FLexer.TokenID() == quorvane::ptBegin)
        DoCompoundStatement();
      else if (FLexer.TokenID() == quorvane::ptRoundOpen)
        DoRounds();
    } while (FLexer.TokenID() != quorvane::ptNull);
  }

  // What all constructs but parentheses look for. False where the token opens nothing.
  bool DoNested(bool withIf) {
    switch (FLexer.TokenID()) {
    case quorvane::ptRoundOpen:
      DoRounds();
      return true;
    case quorvane::ptTry:
      DoTry();
      return true;
    case quorvane::ptBegin:
      DoCompoundStatement();
      return true;
    case quorvane::ptCase:
      DoCase();
      return true;
    case quorvane::ptRepeat:
      DoRepeat();
      return true;
    case quorvane::ptIf:
      if (withIf)
        DoIf();
      return withIf;
    default:
      return false;
    }
  }

  void DoCompoundStatement() {
    const TElement opener = Record(quorvane::ptBegin);
    do {
      NextToken();
      DoNested(true);
    } while (FLexer.TokenID() != quorvane::ptEnd);
    Announce(false, {opener, Record(quorvane::ptEnd)});
  }

  void DoCase() {
    const TElement opener = Record(quorvane::ptCase);
    TElement middle;
    do {
      NextToken();
      if (!DoNested(false) && FLexer.TokenID() == quorvane::ptOf)
        middle = Record(quorvane::ptCase);
    } while (FLexer.TokenID() != quorvane::ptEnd);
    Announce(false, {opener, middle, Record(quorvane::ptEnd)});
  }

  void DoIf() {
    const TElement opener = Record(quorvane::ptIf);
    TElement thenElement;
    TElement elseElement;
    elseElement.Position = -1;
    while (FLexer.TokenID() != quorvane::ptSemiColon) {
      NextToken();
      if (DoNested(true))
        continue;
      if (FLexer.TokenID() == quorvane::ptThen)
        thenElement = Record(quorvane::ptThen);
      else if (FLexer.TokenID() == quorvane::ptElse)
        elseElement = Record(quorvane::ptElse);
    }
    if (elseElement.Position != -1)
      Announce(false, {opener, thenElement, elseElement});
    else
      Announce(false, {opener, thenElement});
  }

  void DoRepeat() {
    const TElement opener = Record(quorvane::ptRepeat);
    do {
      NextToken();
      DoNested(true);
    } while (FLexer.TokenID() != quorvane::ptUntil);
    Announce(false, {opener, Record(quorvane::ptRepeat)});
  }

  void DoTry() {
    const TElement opener = Record(quorvane::ptTry);
    TElement middle;
    do {
      NextToken();
      if (DoNested(true))
        continue;
      if (FLexer.TokenID() == quorvane::ptExcept || FLexer.TokenID() == quorvane::ptFinally)
        middle = Record(FLexer.TokenID());
    } while (FLexer.TokenID() != quorvane::ptEnd);
    Announce(false, {opener, middle, Record(quorvane::ptEnd)});
  }

  void DoRounds() {
    const TElement opener = Record(quorvane::ptRoundOpen);
    do {
      NextToken();
      if (FLexer.TokenID() == quorvane::ptRoundOpen)
        DoRounds();
    } while (FLexer.TokenID() != quorvane::ptRoundClose);
    Announce(true, {opener, Record(quorvane::ptRoundClose)});
  }

  quorvane::TzkPasLex FLexer;
  std::vector<TLiteEvent> FEvents;
};

} // namespace support
