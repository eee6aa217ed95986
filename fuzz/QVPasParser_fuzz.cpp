// SPDX-License-Identifier: MIT
// Any bytes as a text for the parser of whole files: it comes to an end, with and without somebody who listens, and
// what is in the outline is in the text.
#include "analysis/QVPasParser.h"

#include <algorithm>
#include <cctype>
#include <functional>
#include <memory>
#include <set>
#include <string>
#include <string_view>

#include "CountingParser.h"
#include "Require.h"

namespace {

using namespace quorvane;
using fuzz::Require;

std::int32_t LinesIn(std::string_view text) {
  return 1 + static_cast<std::int32_t>(std::ranges::count_if(text, [](char c) { return c == '\n' || c == '\r'; }));
}

std::string Folded(std::string name) {
  for (char& c : name)
    if (c >= 'A' && c <= 'Z')
      c = static_cast<char>(c - 'A' + 'a');
  return name;
}

// A thread that has the editor at rest, so that every error is painted. It holds the caret somewhere in the text.
class TThread : public IQVParseThread {
public:
  TThread(std::int32_t caret, std::string_view text) : FCaret(caret), FText(text), FLines(LinesIn(text)) {}

  std::int32_t CaretPos() const override { return FCaret; }
  std::int32_t StillCount() const override { return 5000; }
  bool IsEnding() const override { return false; }
  void Synchronize(const std::function<void()>& call) override { call(); }
  void UnderlineErr(std::int32_t col, std::int32_t line, std::int32_t length) override {
    const auto size = static_cast<std::int32_t>(FText.size());
    Require(line >= 1 && line <= FLines, "an error is painted on a line of the text");
    Require(col >= -2 && col <= size, "an error is painted where the text is");
    Require(length >= 2 && length <= size + 2, "an error is as long as a token");
  }
  void ShowMessage(const std::string&) override { Require(false, "nobody shows a message"); }

private:
  std::int32_t FCaret;
  std::string_view FText;
  std::int32_t FLines;
};

class TOutlineCheck {
public:
  TOutlineCheck(const TQVPasInfo& info, std::string_view text) : FInfo(info), FText(text), FLines(LinesIn(text)) {}

  void Run() const {
    RequireNames(FInfo.GetClasses());
    RequireNames(FInfo.GetMethods());
    for (const auto& [name, line] : FInfo.GetClasses())
      Require(FText.find(name) != std::string_view::npos, "a type has a name of the text");
    for (const std::string& name : FInfo.GetInterfaceUses())
      Require(FText.find(name) != std::string_view::npos, "a used unit has a name of the text");
    for (const std::string& name : FInfo.GetImplementationUses())
      Require(FText.find(name) != std::string_view::npos, "a used unit has a name of the text");
    for (const std::int32_t line : {FInfo.GetInterfaceLine(), FInfo.GetImplementationLine(),
                                    FInfo.GetInterfaceUsesLine(), FInfo.GetImplementationUsesLine()})
      Require(line >= -1 && line < FLines, "a section is on a line of the text or nowhere");
    RequireRoutineAtCaret();
  }

private:
  void RequireNames(const TQVNameList& names) const {
    std::set<std::string> folded;
    for (const auto& [name, line] : names) {
      Require(folded.insert(Folded(std::string(name))).second, "no name is there twice");
      Require(line >= 0 && line < FLines, "a name is on a line of the text");
    }
  }

  void RequireRoutineAtCaret() const {
    const std::string routine = Folded(FInfo.GetCurrentProc());
    Require(!routine.empty() || FInfo.GetCurrentClass().empty() || !FInfo.GetMethods().empty(),
            "a class at the caret comes with a routine");
    Require(routine.empty() || std::ranges::any_of(FInfo.GetMethods(),
                                                   [&](const auto& method) {
                                                     const std::string name = Folded(std::string(method.first));
                                                     return name == routine || name.ends_with("." + routine);
                                                   }),
            "the routine at the caret is one of the routines");
  }

  const TQVPasInfo& FInfo;
  std::string_view FText;
  std::int32_t FLines;
};

// The outline with a thread, which is what an editor has, and without one, which is what the command line has: only
// the routine at the caret may tell them apart.
void RequireSoundOutline(const std::string& text, std::size_t caret) {
  TThread thread(static_cast<std::int32_t>(caret), text);
  const auto info = std::make_shared<TQVPasInfo>();
  fuzz::TCountingParser<TQVPasParser> parser;
  parser.SetPasInfo(info);
  parser.SetThread(&thread);
  parser.InitDefines();
  const std::string fatal = parser.ParseToEnd(text);
  TOutlineCheck(*info, text).Run();

  const auto bare = std::make_shared<TQVPasInfo>();
  fuzz::TCountingParser<TQVPasParser> alone;
  alone.SetPasInfo(bare);
  Require(alone.ParseToEnd(text) == fatal, "a parse ends the same with and without a thread");
  Require(bare->GetClasses() == info->GetClasses() && bare->GetMethods() == info->GetMethods(),
          "an outline is the same with and without a thread");
  Require(bare->GetCurrentProc().empty(), "without a caret there is no routine at it");
}

// Nobody moves the parser on over what it reports, so it must come to an end by itself.
void RequireEndWithoutHelp(const std::string& text) {
  fuzz::TCountingParser<TzkSimplePasPar> deaf;
  const std::string fatal = deaf.ParseToEnd(text);

  fuzz::TCountingParser<TzkSimplePasPar> idle;
  idle.SetOnMessage([lines = LinesIn(text)](TzkSimplePasPar&, const std::string& msg, std::int32_t, std::int32_t y) {
    Require(!msg.empty(), "a report has a text");
    Require(y >= 0 && y < lines, "a report is on a line of the text");
  });
  Require(idle.ParseToEnd(text) == fatal, "a parse ends the same whether somebody listens or not");
  Require(idle.Steps() == deaf.Steps(), "listening changes nothing in the walk");
}

void RequireAll(const std::string& text, std::size_t place) {
  RequireSoundOutline(text, text.empty() ? 0 : place % text.size());
  RequireEndWithoutHelp(text);
}

// One text in so many is repeated to this length, so that what is slow shows even where the counted steps do not: in
// the scanners, the names and the messages. The time limit of the fuzzer then ends it.
constexpr std::size_t LongEvery = 16;
constexpr std::size_t LongSize = std::size_t{64} * 1024;

std::string Repeated(const std::string& piece) {
  std::string text;
  while (!piece.empty() && text.size() < LongSize)
    text += piece;
  return text;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  // What is tried on a text depends on the text alone, so a finding can be run again.
  const std::size_t choice = std::hash<std::string>{}(text);
  RequireAll(text, choice / LongEvery);
  RequireAll(text.substr(0, size == 0 ? 0 : choice / 7 % size), choice);
  if (choice % LongEvery == 0)
    RequireAll(Repeated(text), choice / LongEvery);
  return 0;
}
