// SPDX-License-Identifier: MIT
#include "tools/OutlineCommand.h"

#include "analysis/QVPasInfo.h"
#include "analysis/QVUnitParse.h"
#include "tools/Input.h"
#include "tools/OutlineText.h"

#include <CLI/Error.hpp>
#include <CLI/Validators.hpp>

#include <cstdint>
#include <functional>
#include <limits>
#include <memory>
#include <optional>
#include <string>

namespace quorvane {
namespace {

struct TOutlineOptions : TInputOptions {
  std::optional<std::int32_t> Caret; // an index from 0 into the text as it is served
  bool Json = false;
};

// A thread of which nothing is there but the caret.
class TFixedCaret : public IQVParseThread {
public:
  explicit TFixedCaret(std::int32_t caret) : FCaret(caret) {}

  std::int32_t CaretPos() const override { return FCaret; }
  std::int32_t StillCount() const override { return 0; }
  bool IsEnding() const override { return false; }
  void Synchronize(const std::function<void()>& call) override { call(); }
  void UnderlineErr(std::int32_t, std::int32_t, std::int32_t) override {}
  void ShowMessage(const std::string&) override {}

private:
  std::int32_t FCaret;
};

TFileOutline OutlineOf(const std::string& file, std::string& text, const std::optional<std::int32_t>& caret) {
  TFileOutline outline;
  outline.File = file;
  outline.HasCaret = caret.has_value();
  std::optional<TFixedCaret> thread;
  if (caret)
    thread.emplace(*caret);
  ParseUnit(text, outline.Info, thread ? &*thread : nullptr, [&outline](const TSyntaxReport& report) {
    if (report.IsFatal)
      outline.Fatal = report.Msg;
  });
  return outline;
}

void WriteOutlines(const TOutlineOptions& options, TSession& session) {
  if (options.Caret && options.Files.size() != 1)
    throw CLI::ValidationError("--caret", "needs exactly one FILE");
  ForEachText(options, session, [&](const std::string& file, std::string& text) {
    const TFileOutline outline = OutlineOf(file, text, options.Caret);
    if (options.Json)
      WriteOutlineAsJson(outline, session.Output());
    else
      WriteOutlineAsTree(outline, session.Output());
  });
}

} // namespace

void AddOutlineCommand(CLI::App& program, TSession& session) {
  CLI::App* command = program.add_subcommand("outline", "Show the types, routines and used units of Pascal files");
  command->footer(
      "Files are taken as the editor serves them: decoded, one byte a character, lines ending in CR LF.\n"
      "The tree counts lines from 1. With --json each file is one object on a line of its own, and its lines\n"
      "count from 0, with -1 for what is not there; \"fatal\" is the message that ended the parse early, and\n"
      "what was found before it is told all the same. Of every conditional the first branch is taken, and a\n"
      "program's own uses clause is not listed. Several files follow each other.");
  const auto options = std::make_shared<TOutlineOptions>();
  AddDecodedInputOptions(*command, *options, "Pascal files; - is standard input");
  command
      ->add_option(
          "--caret", options->Caret,
          "Name the routine that holds the caret at this character of the served text, counted from 0; for one "
          "FILE")
      ->type_name("N")
      ->check(CLI::Range(0, std::numeric_limits<std::int32_t>::max()).description(""));
  command->add_flag("--json", options->Json, "Write JSON Lines instead of a tree");
  command->callback([options, &session] { WriteOutlines(*options, session); });
}

} // namespace quorvane
