// SPDX-License-Identifier: MIT
#include "Outlines.h"

#include <algorithm>
#include <iterator>
#include <memory>

#include "analysis/QVPasParser.h"
#include "support/PascalUnits.h"

namespace bench {
namespace {

using namespace quorvane;

class TTypingThread : public IQVParseThread {
public:
  std::int32_t CaretPos() const override { return 1000; }
  std::int32_t StillCount() const override { return 0; }
  bool IsEnding() const override { return false; }
  void Synchronize(const std::function<void()>& call) override { call(); }
  void UnderlineErr(std::int32_t, std::int32_t, std::int32_t) override {}
  void ShowMessage(const std::string&) override {}
};

std::int64_t Fill(const std::string& name, std::string* text) {
  TTypingThread thread;
  const auto info = std::make_shared<TQVPasInfo>();
  TQVPasParser parser;
  parser.SetPasInfo(info);
  parser.SetThread(&thread);
  parser.InitDefines();
  try {
    parser.Run(name, text);
  } catch (const ESyntaxError&) {
    // Bad texts end like this; the outline so far counts.
  }
  return static_cast<std::int64_t>(info->GetMethods().size() + info->GetClasses().size());
}

// How a text parses: the number of errors, and where the parse ends.
struct TWalk {
  int Errors = 0;
  std::size_t End = 0;
};

TWalk WalkOver(std::string text) {
  TWalk walk;
  TQVPasParser parser;
  parser.SetPasInfo(std::make_shared<TQVPasInfo>());
  const TParserMessageEvent skip = parser.OnMessage();
  parser.SetOnMessage([&](TzkSimplePasPar& sender, const std::string& msg, std::int32_t x, std::int32_t y) {
    ++walk.Errors;
    skip(sender, msg, x, y);
  });
  try {
    parser.Run({}, &text);
  } catch (const ESyntaxError&) {
    ++walk.Errors;
  }
  walk.End = static_cast<std::size_t>(parser.Lexer().RunPos());
  return walk;
}

// The texts, each cut where its parse ends.
TCorpus Walked(const TCorpus& corpus) {
  TCorpus walked{corpus.Name, {}};
  for (const std::string& text : corpus.Texts)
    walked.Texts.push_back(text.substr(0, WalkOver(text).End));
  return walked;
}

// Those that parse without an error.
TCorpus Sound(const TCorpus& corpus) {
  TCorpus sound{"sound-" + corpus.Name, {}};
  for (const std::string& text : corpus.Texts)
    if (WalkOver(text).Errors == 0)
      sound.Texts.push_back(text);
  return sound;
}

constexpr std::size_t Megabyte = 1U << 20U;

std::string Unit(const std::string& piece) {
  std::string text = "unit U; interface implementation ";
  while (text.size() < Megabyte)
    text += piece;
  return text;
}

// Routines at the deepest level there may be, so that each has a long path.
std::string NestedRoutines() {
  std::string outer;
  for (int level = 2; level < TzkSimplePasPar::MaxNesting / TzkSimplePasPar::LevelsOfBlock; ++level)
    outer += "procedure P" + std::to_string(level) + "; ";
  std::string text = "unit U; interface implementation " + outer;
  for (int count = 0; text.size() < Megabyte; ++count)
    text += "procedure Q" + std::to_string(count) + "; begin end;\n";
  return text;
}

// Constructs inside of each other, but not so deep that it ends the parse, again and again.
std::string DeepConstructs(const std::string& opener, const std::string& closer) {
  constexpr int Depth = 1000;
  std::string openers;
  std::string closers;
  for (int level = 0; level < Depth; ++level) {
    openers += opener;
    closers += closer;
  }
  return "procedure P; begin " + openers + " x " + closers + " end;\n";
}

// A text that is nested too deep ends where it has hardly begun, and tells nothing.
bool IsWalkedOver(const TCorpus& corpus) {
  return std::ranges::all_of(corpus.Texts,
                             [](const std::string& text) { return WalkOver(text).End > text.size() / 2; });
}

std::vector<TCorpus> MakeWorstTexts() {
  std::vector<TCorpus> corpora;
  std::ranges::copy_if(WorstTexts(), std::back_inserter(corpora), IsWalkedOver);
  corpora.push_back({"deep-brackets", {Unit(DeepConstructs("(", ")"))}});
  corpora.push_back({"deep-begins", {Unit(DeepConstructs("begin ", " end"))}});
  corpora.push_back({"nested-routines", {NestedRoutines()}});
  corpora.push_back({"conditionals", {Unit("{$IFDEF A}var x: T;{$ELSE}{$IFDEF B}var{$ENDIF}")}});
  corpora.push_back({"hints", {Unit("deprecated;")}});
  corpora.push_back({"errors", {Unit("var x y;\n")}});
  return corpora;
}

} // namespace

std::int64_t FillOutline(std::string& text) {
  const std::int64_t names = Fill({}, &text);
  text.pop_back(); // the NUL that the parse has added
  return names;
}

std::int64_t FillOutlineOfFile(const std::string& name) {
  return Fill(name, nullptr);
}

const std::vector<TCorpus>& OutlineTexts() {
  static const std::vector<TCorpus> corpora = [] {
    const std::vector<TCorpus>& ordinary = OrdinaryTexts();
    return std::vector<TCorpus>{Sound(ordinary[0]), Walked(ordinary[0]), ordinary[1]};
  }();
  return corpora;
}

const std::vector<TCorpus>& WorstOutlineTexts() {
  static const std::vector<TCorpus> corpora = MakeWorstTexts();
  return corpora;
}

std::vector<std::filesystem::path> SoundUnitPaths() {
  std::vector<std::filesystem::path> paths;
  for (const std::filesystem::path& path : SampleOfUnitPaths())
    if (WalkOver(support::ReadFile(path)).Errors == 0)
      paths.push_back(path);
  return paths;
}

} // namespace bench
