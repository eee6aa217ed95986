// SPDX-License-Identifier: MIT
// The machinery around the productions: the entry, access to tokens, and what is expected of them.
#include "parser/zkSimplePasPar.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <limits>
#include <memory>
#include <system_error>
#include <typeinfo>
#include <utility>

#include "parser/zkSimplePasParSets.h"

namespace quorvane {
namespace {

constexpr std::string_view ExpectedFormat = "Expected '%s' found '%s'";
constexpr std::string_view EndOfFile = "end of file";

// The tokens before which a semicolon may be left out.
constexpr TTokenKindSet Closers{ptElse, ptEnd, ptExcept, ptFinalization, ptFinally, ptRoundClose, ptUntil};

// The format with each "%s" replaced by the argument of its turn.
std::string Format(std::string_view format, std::initializer_list<std::string_view> args) {
  constexpr std::string_view Placeholder = "%s";
  std::string text;
  for (const std::string_view arg : args) {
    const std::size_t place = format.find(Placeholder);
    if (place == std::string_view::npos)
      break;
    text += format.substr(0, place);
    text += arg;
    format.remove_prefix(place + Placeholder.size());
  }
  text += format;
  return text;
}

constexpr char LowerCase(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

constexpr bool IsBlank(char c) {
  return c >= '\1' && c <= ' ';
}

struct TFileCloser {
  void operator()(std::FILE* file) const { std::fclose(file); }
};

} // namespace

ESyntaxError::ESyntaxError(const std::string& msg) : ESyntaxError(msg, TzkPoint{-1, -1}) {}

ESyntaxError::ESyntaxError(std::string_view format, std::initializer_list<std::string_view> args)
    : ESyntaxError(Format(format, args)) {}

ESyntaxError::ESyntaxError(const std::string& msg, TzkPoint posXY) : std::runtime_error(msg), FPosXY(posXY) {}

ESyntaxError::~ESyntaxError() = default;

TzkSimplePasPar::TzkSimplePasPar() {
  BindDirectiveEvents();
}

void TzkSimplePasPar::SetOnMessage(TParserMessageEvent event) {
  FOnMessage = std::move(event);
}

void TzkSimplePasPar::Run(const std::string& unitName, std::string* sourceStream) {
  FIsSkippingJunk = false;
  FWalksPlainly = IsJunkPlain();
  FNesting = 0;
  FFormatMode = 0;
  FDirectiveRuns = {};
  std::string loaded;
  FOwnsStream = sourceStream == nullptr;
  FSourceStream = FOwnsStream ? &loaded : sourceStream;
  if (FOwnsStream)
    LoadFile(unitName, loaded);
  CheckSize();
  TerminateStream();
  FLexer.SetOrigin(FSourceStream->c_str());
  try {
    ParseFile();
  } catch (...) {
    LeaveText();
    throw;
  }
  LeaveText();
}

// A text that has been loaded here goes now.
void TzkSimplePasPar::LeaveText() {
  if (FOwnsStream)
    FLexer.SetOrigin(nullptr);
  FSourceStream = nullptr;
}

void TzkSimplePasPar::LoadFile(const std::string& name, std::string& text) {
  const std::unique_ptr<std::FILE, TFileCloser> file(std::fopen(name.c_str(), "rb"));
  if (!file)
    throw std::system_error(errno, std::generic_category(), name);
  // Room for all of it at once, since a string that grows by itself takes up to three times the memory.
  std::error_code unknown;
  if (const std::uintmax_t size = std::filesystem::file_size(name, unknown); !unknown)
    text.reserve(static_cast<std::size_t>(size) + 1);
  std::array<char, std::size_t{64} * 1024> piece{};
  while (const std::size_t count = std::fread(piece.data(), 1, piece.size(), file.get()))
    text.append(piece.data(), count);
  if (std::ferror(file.get()) != 0)
    throw std::system_error(errno, std::generic_category(), name);
}

void TzkSimplePasPar::CheckSize() const {
  if (FSourceStream->size() >= std::numeric_limits<std::int32_t>::max())
    throw std::length_error("The text is too long to be parsed");
}

void TzkSimplePasPar::TerminateStream() {
  // Asked for exactly, since a string that grows by itself takes twice the memory.
  FSourceStream->reserve(FSourceStream->size() + 1);
  FSourceStream->push_back('\0');
}

TptTokenKind TzkSimplePasPar::GetExID() const {
  return FLexer.ExID();
}

TptTokenKind TzkSimplePasPar::GetTokenID() const {
  return FLexer.TokenID();
}

TptTokenKind TzkSimplePasPar::GetGenID() const {
  return FLexer.GetGenID();
}

void TzkSimplePasPar::Expected(TptTokenKind sym) {
  if (FLexer.TokenID() == sym)
    NextToken();
  else
    ReportExpected(sym);
}

void TzkSimplePasPar::ExpectedEx(TptTokenKind sym) {
  if (FLexer.ExID() == sym)
    NextToken();
  else
    ReportExpected(sym);
}

void TzkSimplePasPar::ExpectedFatal(TptTokenKind sym) {
  if (FLexer.TokenID() == sym) {
    NextToken();
    return;
  }
  const bool isAtEnd = FLexer.TokenID() == ptNull;
  throw ESyntaxError(ExpectedText(sym, isAtEnd ? EndOfFile : TokenText()), FLexer.GetPosXY());
}

void TzkSimplePasPar::ReportExpected(TptTokenKind sym) {
  if (TokenID() == ptNull)
    ExpectedFatal(sym);
  else if (FOnMessage)
    Report(ExpectedText(sym, TokenText()));
}

std::string TzkSimplePasPar::ExpectedText(TptTokenKind sym, std::string_view found) const {
  return Format(ExpectedFormat, {TokenName(sym), found});
}

void TzkSimplePasPar::SynError(TzkParseError error) {
  if (!FOnMessage)
    return;
  std::string msg(ParserErrorName(error));
  msg += " found ";
  msg += TokenText();
  Report(msg);
}

void TzkSimplePasPar::Report(const std::string& msg) {
  const TzkPoint place = FLexer.GetPosXY();
  FOnMessage(*this, msg, place.X, place.Y);
}

void TzkSimplePasPar::RaiseTooDeep() {
  throw ESyntaxError("Nested more than " + std::to_string(MaxNesting) + " levels deep", FLexer.GetPosXY());
}

std::string_view TzkSimplePasPar::TokenText() const {
  return {FLexer.Origin() + FLexer.TokenPos(), static_cast<std::size_t>(FLexer.GetTokenLen())};
}

bool TzkSimplePasPar::IsWord(std::string_view word) const {
  return FLexer.TokenID() == ptIdentifier && std::ranges::equal(TokenText(), word, {}, LowerCase);
}

void TzkSimplePasPar::SEMICOLON() {
  if (!Closers.Contains(TokenID()))
    Expected(ptSemiColon);
}

bool TzkSimplePasPar::IsJunkPlain() const {
  return typeid(*this) == typeid(TzkSimplePasPar);
}

void TzkSimplePasPar::NextToken() {
  FLexer.Next();
  if (!FWalksPlainly)
    SkipJunk();
  else
    while (FLexer.GetIsJunk())
      FLexer.Next();
}

void TzkSimplePasPar::SkipJunk() {
  if (FIsSkippingJunk || !FLexer.GetIsJunk())
    return;
  FIsSkippingJunk = true;
  do {
    switch (FLexer.TokenID()) {
    case ptAnsiComment:
      SkipAnsiComment();
      break;
    case ptBorComment:
      SkipBorComment();
      break;
    case ptSlashesComment:
      SkipSlashesComment();
      break;
    case ptSpace:
      SkipSpace();
      break;
    case ptCRLF:
      SkipCRLF();
      break;
    case ptCRLFCo:
      SkipCRLFco();
      break;
    default:
      FLexer.Next();
    }
  } while (FLexer.GetIsJunk());
  FIsSkippingJunk = false;
}

void TzkSimplePasPar::SkipAnsiComment() {
  do
    Expected(ptAnsiComment);
  while (FLexer.TokenID() == ptAnsiComment);
}

void TzkSimplePasPar::SkipBorComment() {
  do
    Expected(ptBorComment);
  while (FLexer.TokenID() == ptBorComment);
}

void TzkSimplePasPar::SkipSlashesComment() {
  Expected(ptSlashesComment);
}

void TzkSimplePasPar::SkipSpace() {
  do
    Expected(ptSpace);
  while (FLexer.TokenID() == ptSpace);
}

void TzkSimplePasPar::SkipCRLF() {
  do
    Expected(ptCRLF);
  while (FLexer.TokenID() == ptCRLF);
}

void TzkSimplePasPar::SkipCRLFco() {
  do
    Expected(ptCRLFCo);
  while (FLexer.TokenID() == ptCRLFCo);
}

TptTokenKind TzkSimplePasPar::AheadID() {
  FLexer.InitAhead();
  return FLexer.GetAheadTokenID();
}

TptTokenKind TzkSimplePasPar::AheadExID() {
  FLexer.InitAhead();
  return FLexer.GetAheadExID();
}

TptTokenKind TzkSimplePasPar::AheadGenID() {
  FLexer.InitAhead();
  return FLexer.GetAheadGenID();
}

// Asked for at the start of every other statement, so the text is looked at before it is scanned: only a comment or a
// directive may hide what comes next.
bool TzkSimplePasPar::IsColonAhead() {
  const char* next = FLexer.Origin() + FLexer.RunPos();
  while (IsBlank(*next))
    ++next;
  switch (*next) {
  case ':':
    return next[1] != '=';
  case '{':
    return AheadID() == ptColon;
  case '(':
    return next[1] == '*' && AheadID() == ptColon;
  case '/':
    return next[1] == '/' && AheadID() == ptColon;
  default:
    return false;
  }
}

TptTokenKind TzkSimplePasPar::SecondAheadID() {
  FLexer.InitAhead();
  FLexer.AheadNext();
  return FLexer.GetAheadTokenID();
}

} // namespace quorvane
