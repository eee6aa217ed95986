// SPDX-License-Identifier: MIT
#include "PascalTexts.h"

#include <algorithm>
#include <array>
#include <random>

#include "lexer/zkPasLexTables.h"
#include "support/PascalUnits.h"

namespace bench {
namespace {

using namespace quorvane;

constexpr std::size_t Megabyte = 1U << 20U;

// One unit in so many is enough for a steady figure.
constexpr std::size_t UnitStep = 16;

std::vector<std::string> SampleOfUnits() {
  std::vector<std::string> texts;
  for (const std::filesystem::path& path : SampleOfUnitPaths()) {
    std::string text = support::ReadFile(path);
    text.resize(std::min(text.find('\0'), text.size()));
    texts.push_back(std::move(text));
  }
  return texts;
}

std::string Repeated(const std::string& piece) {
  std::string text;
  while (text.size() < Megabyte)
    text += piece;
  return text;
}

// Brackets in an order that nothing foretells.
std::string BracketsAtRandom() {
  std::mt19937 random{1};
  std::string text(Megabyte, '(');
  for (char& c : text)
    if (random() % 2 == 0)
      c = ')';
  return text;
}

// The symbols that are one character whatever follows, in an order that nothing foretells.
std::string PunctuationAtRandom() {
  constexpr auto Symbols = std::to_array<char>({
#define PT_SINGLE_CHAR(character, kind) character,
#include "lexer/TokenKinds.def"
  });
  std::mt19937 random{1};
  std::string text(Megabyte, ' ');
  for (char& c : text)
    c = Symbols[random() % Symbols.size()];
  return text;
}

// Writes routines until there are enough lines. The generator is fixed, so the text is the same on every machine.
class TUnitWriter {
public:
  std::string Write(int lines) {
    Line("{ Generated. }");
    Line("unit Generated;");
    Line("{$IFDEF Debug}{$R+}{$ENDIF}");
    Line("interface");
    Line("implementation");
    WriteKeywords();
    while (FLines < lines)
      WriteRoutine();
    Line("end.");
    return std::move(FText);
  }

private:
  std::size_t Below(std::size_t limit) { return FRandom() % limit; }

  std::string Name() {
    static const std::vector<std::string> parts = {"Get",  "Item", "Count", "Value", "Line",   "Text", "Has",   "Node",
                                                   "Next", "Size", "Index", "Check", "Buffer", "x",    "Width", "List"};
    std::string name = parts[Below(parts.size())];
    for (std::size_t more = Below(3); more > 0; --more)
      name += parts[Below(parts.size())];
    return name;
  }

  std::string Type() {
    static const std::vector<std::string> types = {"Integer", "string",  "Boolean", "Byte",
                                                   "Double",  "TObject", "PChar"};
    return types[Below(types.size())];
  }

  std::string Operand() {
    switch (Below(6)) {
    case 0:
      return std::to_string(Below(1000));
    case 1:
      return std::string("'").append(Name()) + " ''" + Name() + "'' " + Name() + "'";
    case 2:
      return Name() + "(" + Name() + ", $" + std::to_string(Below(100)) + ")";
    case 3:
      return Name() + "^." + Name() + "[" + Name() + "]";
    default:
      return Name();
    }
  }

  std::string Condition() {
    static const std::vector<std::string> operators = {" = ", " <> ", " < ", " >= ", " in ", " is "};
    return Operand() + operators[Below(operators.size())] + Operand();
  }

  void Line(const std::string& text) {
    FText.append(FIndent * 2, ' ').append(text).append("\n");
    ++FLines;
  }

  // Every keyword once, in its own spelling and among names; they make no sense, so they stand where a compiler would
  // not look.
  void WriteKeywords() {
    Line("{$IFDEF Debug}{$ELSE}");
    for (const TKeyword& keyword : Keywords)
      Line("// " + Name() + "\n" + std::string(keyword.Word) + " " + Name());
    Line("{$ENDIF}");
  }

  void WriteRoutine() {
    Line("");
    if (Below(2) == 0)
      Line("{ " + Name() + " " + Name() + " gives the " + Name() + " of a " + Name() +
           ", or nil where there is none. }");
    Line("function T" + Name() + "." + Name() + "(const " + Name() + ": " + Type() + "; var " + Name() + ": " + Type() +
         "): " + Type() + ";");
    Line("var");
    ++FIndent;
    Line(Name() + ", " + Name() + ": " + Type() + "; // " + Name());
    --FIndent;
    WriteBlock("begin", "end;", 0);
  }

  void WriteBlock(const std::string& opener, const std::string& closer, int depth) {
    Line(opener);
    ++FIndent;
    for (std::size_t count = 2 + Below(5); count > 0; --count)
      WriteStatement(depth);
    --FIndent;
    Line(closer);
  }

  void WriteStatement(int depth) {
    switch (depth < 4 ? Below(12) : 12) {
    case 0:
      WriteBlock("if " + Condition() + " then begin", "end;", depth + 1);
      break;
    case 1:
      Line("if not (" + Condition() + ") then Exit else " + Name() + " := " + Operand() + ";");
      break;
    case 2:
      WriteBlock("repeat", "until " + Condition() + ";", depth + 1);
      break;
    case 3:
      WriteBlock("try", "finally " + Name() + ".Free; end;", depth + 1);
      break;
    case 4:
      Line("case " + Name() + " of");
      Line("  1..9: " + Name() + ";");
      Line("  #13: " + Name() + " := 1.5E3;");
      Line("end;");
      break;
    case 5:
      WriteBlock("for " + Name() + " := 0 to " + Operand() + " - 1 do begin", "end; // for", depth + 1);
      break;
    default:
      Line(Name() + " := " + Operand() + " + " + Operand() + ";");
    }
  }

  std::mt19937 FRandom{20000};
  std::string FText;
  std::size_t FIndent = 0;
  int FLines = 0;
};

} // namespace

std::string GeneratedUnit(int lines) {
  return TUnitWriter().Write(lines);
}

std::vector<std::filesystem::path> SampleOfUnitPaths() {
  const std::vector<std::filesystem::path> all = support::PascalUnits();
  std::vector<std::filesystem::path> sample;
  for (std::size_t index = 0; index < all.size(); index += UnitStep)
    sample.push_back(all[index]);
  return sample;
}

const std::vector<TCorpus>& OrdinaryTexts() {
  static const std::vector<TCorpus> corpora = {{"units", SampleOfUnits()}, {"generated", {GeneratedUnit(100'000)}}};
  return corpora;
}

const std::vector<TCorpus>& LengthTexts() {
  static const std::vector<TCorpus> corpora = {{"lines:10000", {GeneratedUnit(10'000)}},
                                               {"lines:400000", {GeneratedUnit(400'000)}}};
  return corpora;
}

const std::vector<TCorpus>& WorstTexts() {
  static const std::vector<TCorpus> corpora = {
      {"opening-brackets", {std::string(Megabyte, '(')}},
      {"bracket-pairs", {Repeated("()")}},
      {"bracket-pairs-apart", {Repeated("() ")}},
      {"nested-brackets", {std::string(Megabyte / 2, '(') + std::string(Megabyte / 2, ')')}},
      {"brackets-at-random", {BracketsAtRandom()}},
      {"punctuation-at-random", {PunctuationAtRandom()}},
      {"nested-begins", {Repeated("begin ")}},
      {"nested-ifs", {Repeated("begin if ")}},
      {"begin-end-pairs", {Repeated("begin end ")}},
      {"endless-comment", {"{" + std::string(Megabyte, ' ')}},
      {"endless-comment-of-stars", {"(*" + std::string(Megabyte, '*')}},
      {"endless-comment-of-lines", {"{" + std::string(Megabyte, '\n')}},
      {"quotes", {std::string(Megabyte, '\'')}},
      {"quotes-on-lines", {Repeated("'\n")}},
      {"line-ends", {std::string(Megabyte, '\n')}},
      {"semicolons", {std::string(Megabyte, ';')}},
      {"unknown-characters", {std::string(Megabyte, '|')}},
      {"directives", {Repeated("{$}")}},
      {"one-word", {std::string(Megabyte, 'a')}}};
  return corpora;
}

} // namespace bench
