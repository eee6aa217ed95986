// SPDX-License-Identifier: MIT
// The parser of whole source files: units, programs, libraries and packages.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <stdexcept>
#include <string>
#include <string_view>

#include "lexer/zkPasLex.h"
#include "parser/zkSimplePasParTypes.h"

namespace quorvane {

class TzkSimplePasPar;

// A syntax error that ends the parse. It may leave the add-in, so its type is visible to the host.
class [[gnu::visibility("default")]] ESyntaxError : public std::runtime_error {
public:
  // An error without a place: its position is (-1, -1).
  explicit ESyntaxError(const std::string& msg);

  // The same, with each "%s" of the format replaced by the argument of its turn; one without an argument stays.
  ESyntaxError(std::string_view format, std::initializer_list<std::string_view> args);

  // An error at a token, in the lexer's coordinates: X is a column, Y a line, both from 0. The parser raises no other.
  ESyntaxError(const std::string& msg, TzkPoint posXY);

  ~ESyntaxError() override;

  TzkPoint PosXY() const {
    return FPosXY;
  }

private:
  TzkPoint FPosXY;
};

// Hears of what is wrong in the source: the parser, the text, and the column and line (both from 0) of the current
// token. It runs while the parse waits, and may move the lexer on; the parse then goes on from there. What it throws
// ends the parse and leaves Run.
using TParserMessageEvent =
    std::function<void(TzkSimplePasPar& sender, const std::string& msg, std::int32_t x, std::int32_t y)>;

// A recursive-descent parser that builds nothing. It walks the tokens of a text and checks them against the grammar;
// every production is an operation of its own that may be overridden, to collect on the way past what is needed. What
// productions there are, and what each walks over, stands in Productions.def.
//
// Create it, set OnMessage, call Run once, and let it go. A wrong token is reported and not consumed, and the walk goes
// on as well as it can. Only three things here end a parse, each by an ESyntaxError that leaves Run: a token that is
// missing at the end of the text, one that ExpectedFatal demands, and nesting that is deeper than MaxNesting.
//
// Every text is walked to an end in time that grows with its length alone, even without a handler that moves on over
// what was reported: a loop whose round consumed nothing ends. One thread at a time.
class TzkSimplePasPar {
public:
  // How deep statements, expressions and types may nest, counted together. Far above what people or generators write,
  // far below what overflows a stack of eight megabytes. A block of a routine counts as many: who collects the names of
  // nested routines has each name once for every level below it, which is to stay within reason.
  static constexpr int MaxNesting = 4000;
  static constexpr int LevelsOfBlock = 20;

  TzkSimplePasPar();
  virtual ~TzkSimplePasPar() = default;

  TzkSimplePasPar(const TzkSimplePasPar&) = delete;
  TzkSimplePasPar& operator=(const TzkSimplePasPar&) = delete;

  const TParserMessageEvent& OnMessage() const { return FOnMessage; }
  void SetOnMessage(TParserMessageEvent event);

  // The lexer of this parser, which stands on the current token. It points into the text only while Run works.
  TzkPasLex& Lexer() { return FLexer; }

  // Parses one text: that of `sourceStream`, which stays the caller's and gets a NUL appended, or, given none, of the
  // file named `unitName`, whose bytes are taken as they are. Give the stream room for one more character to spare a
  // copy of it. Throws ESyntaxError as told above, std::system_error if the file cannot be read, and std::length_error
  // for a text of two gigabytes or more, since positions have 32 bits.
  virtual void Run(const std::string& unitName, std::string* sourceStream);

protected:
  // If the current token is of this kind, by its own kind or by its extended kind, moves on. Else, at the end of the
  // text, raises; else reports the token through OnMessage.
  virtual void Expected(TptTokenKind sym);
  virtual void ExpectedEx(TptTokenKind sym);

  // If the current token is of this kind, moves on; else raises ESyntaxError.
  virtual void ExpectedFatal(TptTokenKind sym);

  // What a compiler directive does, which is to be reported and passed over; none is evaluated. `lex` is the scanner
  // that met it and stands on it: the parser's lexer, or its look-ahead. A directive that stands right behind another
  // is handled when the handler of the first returns, so a long row of them takes no stack; a handler that moves `lex`
  // on and cares for directives on its way calls NextIn.
  virtual void HandlePtCompDirect(TzkBasePasLex& lex);
  virtual void HandlePtDefineDirect(TzkBasePasLex& lex);
  virtual void HandlePtElseDirect(TzkBasePasLex& lex);
  virtual void HandlePtEndIfDirect(TzkBasePasLex& lex);
  virtual void HandlePtIfDefDirect(TzkBasePasLex& lex);
  virtual void HandlePtIfNDefDirect(TzkBasePasLex& lex);
  virtual void HandlePtIfOptDirect(TzkBasePasLex& lex);
  virtual void HandlePtIncludeDirect(TzkBasePasLex& lex);
  virtual void HandlePtResourceDirect(TzkBasePasLex& lex);
  virtual void HandlePtUndefDirect(TzkBasePasLex& lex);

  // Moves on to the next token that is not junk. Productions move on in no other way.
  virtual void NextToken();

  // Moves on over comments, blanks and line breaks from the current token on, each by the operation named for it. Those
  // operations come back here for what follows them; that inner call leaves it to the outer one, so a long row of junk
  // takes no stack.
  virtual void SkipJunk();

  // Whether the operations named Skip, Expected and SkipJunk are those of this class, so that walking over junk can do
  // without calling them: true for an object of exactly this class. A class that overrides none of them says the same
  // of itself; one derived from it need not know. Asked for once, by Run.
  virtual bool IsJunkPlain() const;

  // What IsJunkPlain has said.
  bool WalksPlainly() const { return FWalksPlainly; }

  // Ends the source with a NUL, which the lexer stops at.
  virtual void TerminateStream();

  // The separator of statements: demanded, but before a token that closes something.
  virtual void SEMICOLON();

  // The extended, the own and the general kind of the current token, straight from the lexer.
  virtual TptTokenKind GetExID() const;
  virtual TptTokenKind GetTokenID() const;
  virtual TptTokenKind GetGenID() const;

  TptTokenKind ExID() const { return GetExID(); }
  TptTokenKind TokenID() const { return GetTokenID(); }
  TptTokenKind GenID() const { return GetGenID(); }

#define ZK_PRODUCTION(name) virtual void name();
#include "parser/Productions.def"

  // Reports that no alternative of a production fits the current token. Consumes and raises nothing.
  virtual void SynError(TzkParseError error);

  // The text of the current token, in place: it lives as long as the source.
  std::string_view TokenText() const;

  // Whether the current token is this identifier, given in lower case, whatever its own case.
  bool IsIdentifier(std::string_view word) const {
    constexpr char toLower = 0x20; // of a letter; nothing else becomes one by it that a word starts with
    return static_cast<std::size_t>(FLexer.GetTokenLen()) == word.size() &&
           (FLexer.Origin()[FLexer.TokenPos()] | toLower) == word.front() && IsWord(word);
  }

  // For a directive handler that moves its scanner on by more than one token: scans one, and handles the directives
  // that are met.
  void NextIn(TzkBasePasLex& lex);

  // One or more levels of nesting for as long as it lives. Raises ESyntaxError where that is too deep. Every production
  // that can come back to itself holds one, or calls one that does.
  class TNesting {
  public:
    explicit TNesting(TzkSimplePasPar& parser, int levels = 1) : FParser(parser), FLevels(levels) {
      if (FParser.FNesting + levels > MaxNesting)
        FParser.RaiseTooDeep();
      FParser.FNesting += levels;
    }
    ~TNesting() { FParser.FNesting -= FLevels; }
    TNesting(const TNesting&) = delete;
    TNesting& operator=(const TNesting&) = delete;

  private:
    TzkSimplePasPar& FParser;
    int FLevels;
  };

private:
  using TDirectiveHandler = void (TzkSimplePasPar::*)(TzkBasePasLex& lex);

  // What one of the two scanners is at with its directives.
  struct TDirectiveRun {
    bool IsRunning = false;              // a handler is at work
    TDirectiveHandler Waiting = nullptr; // of a directive that was met meanwhile
    std::int32_t WaitingPos = 0;         // where that one starts
  };

  // What a name that may be called means to its arguments.
  enum class TCallee : std::uint8_t { Other, SystemUnit, TakesWidths };

  class TRounds;
  class TWidths;

  template <TDirectiveHandler Handler> TDirectiveEvent EventOf();
  void BindDirectiveEvents();
  TDirectiveRun& RunOf(const TzkBasePasLex& lex) {
    return FDirectiveRuns[&lex == &FLexer ? 0 : 1];
  }
  void HandleDirective(TzkBasePasLex& lex, TDirectiveHandler handler);
  void HandleWaiting(TzkBasePasLex& lex);
  void ReportDirective(TzkBasePasLex& lex);

  void Report(const std::string& msg);
  std::string ExpectedText(TptTokenKind sym, std::string_view found) const;
  void ReportExpected(TptTokenKind sym);
  [[noreturn]] void RaiseTooDeep();
  void LoadFile(const std::string& name, std::string& text);
  void CheckSize() const;
  void LeaveText();

  // The tokens after the current one that are not junk; nothing moves. The kind of the first, its extended and its
  // general kind, and the kind of the one after it.
  TptTokenKind AheadID();
  TptTokenKind AheadExID();
  TptTokenKind AheadGenID();
  TptTokenKind SecondAheadID();

  // Whether the current token is an identifier of the length of the word, and is the word.
  bool IsWord(std::string_view word) const;

  // Parts that several productions share.
  void TypeIdList();
  void MethodHeading();
  void RestOfExpression();
  void Arguments(bool areWidthsTaken);
  void Subscript();
  bool IsColonAhead();
  bool IsAtCharacters() const;
  TCallee Callee() const;

  TParserMessageEvent FOnMessage;
  TzkPasLex FLexer;
  bool FOwnsStream = false;
  std::string* FSourceStream = nullptr;

  // Whether Expression takes the width specifiers of Write, WriteLn and Str: 1 if so.
  std::uint8_t FFormatMode = 0;
  TCallee FCallee = TCallee::Other; // the name that Variable walked over
  bool FIsDeclaringType = false;    // between the name of a type and its end
  bool FIsSkippingJunk = false;
  bool FWalksPlainly = false;
  int FNesting = 0;
  std::array<TDirectiveRun, 2> FDirectiveRuns;
};

} // namespace quorvane
