// SPDX-License-Identifier: MIT
// The scanner that turns Pascal source into tokens.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "lexer/zkPasLexTypes.h"

namespace quorvane {

class TzkBasePasLex;
struct TKeyword;
struct TWordSum;

// A place in the text: X is a column, the distance from the start of the line, and Y a line, both from 0. Right after a
// line break X is negative: the break already belongs to the line that it starts.
struct TzkPoint {
  std::int32_t X = 0;
  std::int32_t Y = 0;
};

// Hears of an error in the text: the lexer, the message, and the position of the token as GetPosXY gives it.
using TMessageEvent = std::function<void(TzkBasePasLex& sender, std::string_view msg, std::int32_t x, std::int32_t y)>;

// Hears that a compiler directive has been scanned; the sender stands on it.
using TDirectiveEvent = std::function<void(TzkBasePasLex& sender)>;

// A table-driven scanner over a NUL-terminated text that it does not own. The first character of a token selects a
// character procedure from a table of 256; the procedure moves the run position over the token and sets its kind.
//
// Give it a text with SetOrigin, or one line with SetLine: the first token is ready on return. Then call Next until the
// kind is ptNull; at the end of the text Next stays there. A comment that is open at the end of a line is carried over
// by the comment state, so a text may be scanned whole or line by line, each line with the state that the one before
// left.
//
// Bad input is reported through OnMessage and scanning goes on; the lexer itself never throws. Token text is not copied
// while scanning. Positions are character indexes from 0, lines count from 0, characters are bytes. One lexer serves
// one thread at a time; different lexers are independent of each other.
class TzkBasePasLex {
public:
  TzkBasePasLex();

  TzkBasePasLex(const TzkBasePasLex&) = delete;
  TzkBasePasLex& operator=(const TzkBasePasLex&) = delete;

  // Scans the first token of one line, keeping the comment state. The line's characters are read in place: the string
  // must outlive the scan and stay unchanged, so a temporary is refused.
  virtual void SetLine(const std::string& line);
  void SetLine(std::string&& line) = delete;

  // Starts over on a text that ends with a NUL and must outlive the scan, and scans its first token. Null stands for no
  // text and scans as an empty one.
  virtual void SetOrigin(const char* text);

  // Set the handler of a directive kind; an empty one is not called. It runs before the Next that scanned the directive
  // returns, may read all of the lexer's state, and may call Next: the outer Next then ends on the inner token. Where
  // the inner Next meets a directive, the handler runs again inside of itself, so each of the directives that stand
  // right beside each other then takes its share of the stack. While a handler runs, its event must not be set or
  // unset.
  virtual void SetOnCompDirect(TDirectiveEvent event);
  virtual void SetOnDefineDirect(TDirectiveEvent event);
  virtual void SetOnElseDirect(TDirectiveEvent event);
  virtual void SetOnEndIfDirect(TDirectiveEvent event);
  virtual void SetOnIfDefDirect(TDirectiveEvent event);
  virtual void SetOnIfNDefDirect(TDirectiveEvent event);
  virtual void SetOnIfOptDirect(TDirectiveEvent event);
  virtual void SetOnIncludeDirect(TDirectiveEvent event);
  virtual void SetOnResourceDirect(TDirectiveEvent event);
  virtual void SetOnUnDefDirect(TDirectiveEvent event);

  virtual ~TzkBasePasLex() = default;

  const TDirectiveEvent& OnCompDirect() const { return FOnCompDirect; }
  const TDirectiveEvent& OnDefineDirect() const { return FOnDefineDirect; }
  const TDirectiveEvent& OnElseDirect() const { return FOnElseDirect; }
  const TDirectiveEvent& OnEndIfDirect() const { return FOnEndIfDirect; }
  const TDirectiveEvent& OnIfDefDirect() const { return FOnIfDefDirect; }
  const TDirectiveEvent& OnIfNDefDirect() const { return FOnIfNDefDirect; }
  const TDirectiveEvent& OnIfOptDirect() const { return FOnIfOptDirect; }
  const TDirectiveEvent& OnIncludeDirect() const { return FOnIncludeDirect; }
  const TDirectiveEvent& OnResourceDirect() const { return FOnResourceDirect; }
  const TDirectiveEvent& OnUnDefDirect() const { return FOnUnDefDirect; }

  // Hears of bad input, during the scan of its token. While the handler runs, the event must not be set or unset.
  const TMessageEvent& OnMessage() const { return FOnMessage; }
  void SetOnMessage(TMessageEvent event);

  // Back to the start of the text, outside of any comment. Scans nothing.
  void Init();

  // Back to the start of the text, with the comment state kept. Scans nothing.
  void InitLine();

  // Scans the token that starts at a character index. The line number and line start are not moved along.
  void SetRunPos(std::int32_t runPos);

  TCommentState GetCommentState() const { return FCommentState; }
  void SetCommentState(TCommentState state) { FCommentState = state; }

  // The kind of the current token; ptNull before the first.
  TptTokenKind TokenID() const { return FTokenID; }

  // The kind of the directive or predefined-type word that an identifier is, else ptUnknown.
  TptTokenKind ExID() const { return FExID; }

  // Index of the token's first character, and the index just past it.
  std::int32_t TokenPos() const { return FTokenPos; }
  std::int32_t RunPos() const { return FRun; }

  // The line of the run position, and the index at which that line starts.
  std::int32_t LineNumber() const { return FLineNumber; }
  std::int32_t LinePos() const { return FLinePos; }

  // The text as given; null when there is none.
  const char* Origin() const { return FOrigin == NoText ? nullptr : FOrigin; }

  // A copy of the token's characters, and how many they are.
  std::string GetToken() const;
  std::int32_t GetTokenLen() const { return FRun - FTokenPos; }

  TzkPoint GetPosXY() const { return {FTokenPos - FLinePos, FLineNumber}; }

  // The extended kind where an identifier has one, else the kind of the token.
  TptTokenKind GetGenID() const;

  // What the token is, by the sets of zkPasLexTypes. A line break inside a comment is junk but no space.
  bool GetIsJunk() const { return IsTokenIDJunk(FTokenID); }
  bool GetIsSpace() const { return FTokenID == ptCRLF || FTokenID == ptSpace; }
  bool GetIsOrdIdent() const;
  bool GetIsOrdinalType() const;
  bool GetIsRealType() const;
  bool GetIsStringType() const;
  bool GetIsVarantType() const;
  bool GetIsAddOperator() const { return AddOperators.Contains(FTokenID); }
  bool GetIsMulOperator() const { return MulOperators.Contains(FTokenID); }
  bool GetIsRelativeOperator() const { return RelativeOperators.Contains(FTokenID); }
  bool GetIsCompilerDirective() const { return CompilerDirectives.Contains(FTokenID); }

  // Scans one token.
  void Next() {
    FExID = ptUnknown;
    FTokenPos = FRun;
    if (FCommentState == csNo) [[likely]]
      FProcTable[CharAt(FRun)](*this);
    else
      NextInComment();
  }

  // Scan on, by at least one token, to one that is not junk, or not space.
  void NextNoJunk();
  void NextNoSpace();

  // Scans on to the next token of a kind, or to the end of the text. At the end it does nothing.
  void NextID(TptTokenKind kind);

  // The first character from the run position on that is no blank or line break; NUL at the end of the text. Nothing
  // moves.
  char CharAhead();

  // Whether only blanks stand before the token on its line. True as well for a token that one character at index 0 and
  // blanks precede; that is intended.
  bool FirstInLine() const;

  // The characters of a ptStringConst between its quotes, doubled quotes as they are; empty for any other token, so
  // also for the literal of one character.
  std::string GetStringContent() const;

  // "endif" for ptEndIfDirect, the text between the delimiters in upper case for ptCompDirect, else empty.
  std::string GetCompilerDirective() const;

  // What follows the name of a directive, in upper case; meant for directive tokens, empty where nothing follows. A
  // directive that is not closed on its line loses its last character, since a closing delimiter is taken off
  // regardless.
  std::string GetDirectiveParam();

protected:
  // Puts the lexer before the first token of a text, or of none if null. Keeps the comment state and scans nothing.
  void GiveText(const char* text);

  // Puts a saved state back. The text is not scanned.
  void Restore(const TzkPasLexStatus& status);

private:
  // Stands in for the text that has not been given yet, so that scanning needs no test for it.
  static constexpr char NoText[] = "";

  using TCharProc = void (*)(TzkBasePasLex& lex);
  using TIdentFunc = TptTokenKind (*)(TzkBasePasLex& lex, TWordSum sum);
  using TProcTable = std::array<TCharProc, 256>;
  using TIdentFuncTable = std::array<TIdentFunc, 192>;

  // What a lexer copies when it is made. The procedures are plain functions over the lexer, not pointers to members: a
  // call is then one jump.
  static const TProcTable CharProcs;
  static const TIdentFuncTable IdentFuncs;

  // The character procedures, by what their tokens start with.
  static void NullProc(TzkBasePasLex& lex);
  static void SpaceProc(TzkBasePasLex& lex);
  static void LineFeedProc(TzkBasePasLex& lex);
  static void CarriageReturnProc(TzkBasePasLex& lex);
  static void CharCodeProc(TzkBasePasLex& lex);
  static void HexNumberProc(TzkBasePasLex& lex);
  static void StringProc(TzkBasePasLex& lex);
  static void NumberProc(TzkBasePasLex& lex);
  static void IdentProc(TzkBasePasLex& lex);
  static void BraceOpenProc(TzkBasePasLex& lex);
  static void BraceCloseProc(TzkBasePasLex& lex);
  static void RoundOpenProc(TzkBasePasLex& lex);
  static void PointProc(TzkBasePasLex& lex);
  static void SlashProc(TzkBasePasLex& lex);
  static void ColonProc(TzkBasePasLex& lex);
  static void LowerProc(TzkBasePasLex& lex);
  static void GreaterProc(TzkBasePasLex& lex);
  static void AddressProc(TzkBasePasLex& lex);
  template <TptTokenKind Kind> static void SingleCharProc(TzkBasePasLex& lex);
  static void UnknownProc(TzkBasePasLex& lex);

  // The keyword functions: for a hash that no word has, and for a hash that some have.
  static TptTokenKind NoKeyword(TzkBasePasLex& lex, TWordSum sum);
  static TptTokenKind Keyword(TzkBasePasLex& lex, TWordSum sum);

  unsigned char CharAt(std::int32_t index) const { return static_cast<unsigned char>(FOrigin[index]); }
  std::string TextBetween(std::int32_t first, std::int32_t end) const;

  // Scan on in a comment: the procedures of a comment that continues from the line before, and the way to its end.
  void NextInComment();
  void RunToBraceEnd();
  void RunToRoundEnd();

  void TakeLineEnd(std::int32_t length);
  void Take(std::int32_t length, TptTokenKind kind) {
    FRun += length;
    FTokenID = kind;
  }

  // Run over identifier characters and sum them up; compare the token, given its sum, with a word of the same hash.
  TWordSum KeyHash();
  bool KeyComp(TWordSum sum, const TKeyword& keyword) const;
  TptTokenKind IdentKind();
  TptTokenKind GetDirectiveKind();

  void Report(std::string_view msg);
  void CallDirectiveEvent();

  TCommentState FCommentState = csNo;
  const char* FOrigin;
  TProcTable FProcTable;
  std::int32_t FRun = 0;
  std::int32_t FAheadRun = 0;
  std::int32_t FParamRun = 0;
  TIdentFuncTable FIdentFuncTable;
  std::int32_t FTokenPos = 0;
  std::int32_t FLineNumber = 0;
  TptTokenKind FTokenID = ptNull;
  std::int32_t FLinePos = 0;
  TptTokenKind FExID = ptUnknown;
  TMessageEvent FOnMessage;
  TDirectiveEvent FOnCompDirect;
  TDirectiveEvent FOnElseDirect;
  TDirectiveEvent FOnEndIfDirect;
  TDirectiveEvent FOnIfDefDirect;
  TDirectiveEvent FOnIfNDefDirect;
  TDirectiveEvent FOnResourceDirect;
  TDirectiveEvent FOnIncludeDirect;
  TDirectiveEvent FOnDefineDirect;
  TDirectiveEvent FOnIfOptDirect;
  TDirectiveEvent FOnUnDefDirect;
};

// A lexer with a second scanner of its own, to look ahead without moving. Both share the text, the line and the
// directive handlers, so a directive that is met while looking ahead is announced by the scanner that met it, and both
// announce one that the text starts with. A handler may look ahead if it is the lexer itself that calls it; inside of a
// call by the second scanner it would start that scanner over again without end. Messages come from the main scanner
// only.
class TzkPasLex : public TzkBasePasLex {
public:
  void SetLine(const std::string& line) override;
  void SetLine(std::string&& line) = delete;
  void SetOrigin(const char* text) override;
  void SetOnCompDirect(TDirectiveEvent event) override;
  void SetOnDefineDirect(TDirectiveEvent event) override;
  void SetOnElseDirect(TDirectiveEvent event) override;
  void SetOnEndIfDirect(TDirectiveEvent event) override;
  void SetOnIfDefDirect(TDirectiveEvent event) override;
  void SetOnIfNDefDirect(TDirectiveEvent event) override;
  void SetOnIfOptDirect(TDirectiveEvent event) override;
  void SetOnIncludeDirect(TDirectiveEvent event) override;
  void SetOnResourceDirect(TDirectiveEvent event) override;
  void SetOnUnDefDirect(TDirectiveEvent event) override;

  // Puts the second scanner on the first token after the current one that is not junk.
  void InitAhead();

  // Moves the second scanner on to its next token that is not junk.
  void AheadNext();

  // The token of the second scanner: its text, kind, extended kind and general kind.
  std::string GetAheadToken() const { return FAheadLex.GetToken(); }
  TptTokenKind GetAheadTokenID() const { return FAheadLex.TokenID(); }
  TptTokenKind GetAheadExID() const { return FAheadLex.ExID(); }
  TptTokenKind GetAheadGenID() const { return FAheadLex.GetGenID(); }

  // Saves the state at the current token.
  void GetStatus(TzkPasLexStatus& status) const;

  // Puts a saved state back: the token is current again without being scanned again. The second scanner starts over on
  // the text.
  void SetStatus(const TzkPasLexStatus& status);

private:
  struct TAheadLex : TzkBasePasLex {
    using TzkBasePasLex::GiveText;
  };

  TAheadLex FAheadLex;
};

} // namespace quorvane
