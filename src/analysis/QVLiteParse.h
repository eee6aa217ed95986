// SPDX-License-Identifier: MIT
// The light parser: block structure quickly enough for every repaint of an editor.
#pragma once

#include <cstdint>
#include <exception>
#include <functional>
#include <span>
#include <stdexcept>
#include <string>
#include <vector>

#include "lexer/zkPasLex.h"

namespace quorvane {

// One keyword or bracket. The element of a middle keyword that is missing keeps the values below.
struct TQVLitePasElement {
  std::int32_t Position = 0; // character index just past the token, from 0
  std::int32_t Line = 0;     // from 1
  std::int32_t Column = 0;   // of the token's first character, from 0
  // The kind of the token, but ptCase for the "of" of a case and ptRepeat for the "until" of a repeat, so that any
  // element tells its construct.
  TptTokenKind Kind = ptAbsolute;
  std::string Text; // the token as written
};

// Hears of one construct that has been closed: its two or three elements in the order of the source. They live during
// the call.
using TQVLitePasEvent = std::function<void(std::span<const TQVLitePasElement> elements)>;

// Part of the interface of this unit, used by none of its operations.
enum TQVLitePasState : unsigned char { stTop, stLineComment, stBraceComment, stParenComment, stString, stOther };

// Raised where the text ends, and caught by ParseFull.
class [[gnu::visibility("default")]] EEndOfFile : public std::exception {
public:
  const char* what() const noexcept override;
};

// What cannot be parsed. It may leave the add-in, so its type is visible to the host.
class [[gnu::visibility("default")]] EParserError : public std::runtime_error {
public:
  using std::runtime_error::runtime_error;
  ~EParserError() override;
};

// Finds pairs of parentheses and the keywords that open, divide and close blocks, without building a tree or checking
// the syntax. It looks for "begin" and "(" in the text and from there on for what may stand inside of each; all other
// tokens, and all that strings and comments hold, pass unseen.
//
// A construct is announced when it closes, so inner ones come first, and one that is still open at the end of the text
// is never announced. The token right after the closer of a nested construct is tested for the end of the construct
// around it and for nothing else, so of "begin (a)(b) end" only the first pair is announced; that is intended.
//
// Open constructs are kept on a stack of the parser's own, which grows on the heap: text that nests without end costs
// memory in proportion and nothing else. One parser serves one thread at a time.
class TQVLitePasParser {
public:
  // Set what hears of closed begin, case, if, repeat and try constructs, and of closed pairs of parentheses; an empty
  // event is not called. Both run during ParseFull. What they throw leaves ParseFull. While an event runs, it must not
  // be set or unset.
  void SetOnBlock(TQVLitePasEvent event);
  void SetOnRound(TQVLitePasEvent event);

  const TQVLitePasEvent& OnBlock() const { return FOnBlock; }
  const TQVLitePasEvent& OnRound() const { return FOnRound; }

  // The lexer of this parser. Inside an event it stands on the token that closed the construct. After ParseFull it must
  // not be asked for any text, as it still points into the one that has been parsed.
  TzkPasLex& Lexer() { return FLexer; }

  // Parses a text that ends with a NUL and stays as it is during the call. Called inside an event it ends the outer
  // parse; its text must then stay until the outer call returns.
  void ParseFull(const char* text);

  // Not implemented: always throws EParserError.
  [[noreturn]] void ParseTo(const char* text, std::int32_t a, std::int32_t b);

  // Scans one token, of whatever kind; throws EEndOfFile where that is the end of the text.
  void NextToken() {
    FLexer.Next();
    if (FLexer.TokenID() == ptNull) [[unlikely]]
      RaiseEndOfFile();
  }

  // What the parser does about these, which is nothing: they hold no structure that is announced.
  void DoBraceComment() {}
  void DoLineComment() {}
  void DoParenComment() {}
  void DoString() {}
  void DoOther() {}
  void DoFor() {}
  void DoWith() {}

private:
  enum class TConstruct : std::uint8_t { Top, CompoundStatement, Case, If, Repeat, Try, Rounds };
  enum class TStep : std::uint8_t;
  struct TTables;

  // A token of an open construct; its text is cut out of the source only when the construct is announced.
  struct TMark {
    std::int32_t Position = 0;
    std::int32_t Line = 0;
    std::int32_t Column = 0;
    TptTokenKind Kind = ptAbsolute;
    std::uint8_t Length = 0;
    TConstruct Construct = TConstruct::Top;
  };

  static const TTables Tables;

  [[noreturn]] static void RaiseEndOfFile();

  void ClearMarks();

  // The operations of the constructs. DoTop walks the whole text; each of the others opens its construct on the token
  // at the lexer.
  [[noreturn]] void DoTop();
  void DoCompoundStatement() { Open(TConstruct::CompoundStatement); }
  void DoCase() { Open(TConstruct::Case); }
  void DoIf() { Open(TConstruct::If); }
  void DoRepeat() { Open(TConstruct::Repeat); }
  void DoTry() { Open(TConstruct::Try); }
  void DoRounds() { Open(TConstruct::Rounds); }

  TStep StepAtToken() const;
  void Dispatch(TStep step);
  void Open(TConstruct construct);
  void TakeMiddle(std::size_t number);
  void Close();
  void Announce(const TQVLitePasEvent& event, std::size_t opener, std::span<const TQVLitePasElement> elements);
  void Leave(std::size_t opener);

  TMark Record() const;
  TQVLitePasElement ElementOf(TMark mark) const;

  TQVLitePasEvent FOnBlock;
  TQVLitePasEvent FOnRound;
  TzkPasLex FLexer;
  TConstruct FConstruct = TConstruct::Top; // the innermost open construct
  std::vector<TMark> FMarks;               // of each open construct its opener, then a mark for each middle it may have
};

// Stands for the parser of form files.
class TQVLiteDFMParser {};

} // namespace quorvane
