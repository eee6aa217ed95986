// SPDX-License-Identifier: MIT
// The outline parser against its lexer alone, over ordinary, long and bad texts.
#include "analysis/QVPasParser.h"

#include "PascalTexts.h"

namespace {

using namespace quorvane;

// Walks as the parser's lexer does, and does nothing else.
std::int64_t CountTokens(std::string& text) {
  static TzkPasLex lexer;
  std::int64_t count = 0;
  for (lexer.SetOrigin(text.c_str()); lexer.TokenID() != ptNull; lexer.Next())
    ++count;
  return count;
}

// A thread whose user is typing, so that no error is painted.
class TTypingThread : public IQVParseThread {
public:
  std::int32_t CaretPos() const override { return 1000; }
  std::int32_t StillCount() const override { return 0; }
  void Synchronize(const std::function<void()>& call) override { call(); }
  void UnderlineErr(std::int32_t, std::int32_t, std::int32_t) override {}
  void ShowMessage(const std::string&) override {}
};

// One parse as in an editor: parser and outline are made for it and freed after it.
std::int64_t FillOutline(std::string& text) {
  TTypingThread thread;
  const auto info = std::make_shared<TQVPasInfo>();
  {
    TQVPasParser parser;
    parser.SetPasInfo(info);
    parser.SetThread(&thread);
    parser.InitDefines();
    try {
      parser.Run({}, &text);
    } catch (const ESyntaxError&) {
      // Bad texts end like this; the outline so far counts.
    }
  }
  text.pop_back(); // the NUL that the parse has added
  return static_cast<std::int64_t>(info->GetMethods().size() + info->GetClasses().size());
}

const bool Registered = [] {
  bench::Register("Lexer", bench::OrdinaryTexts(), CountTokens);
  bench::Register("OutlineParser", bench::OrdinaryTexts(), FillOutline);
  bench::Register("OutlineParser", bench::LengthTexts(), FillOutline);
  bench::Register("OutlineParser", bench::WorstTexts(), FillOutline);
  return true;
}();

} // namespace
