// SPDX-License-Identifier: MIT
#include "Outlines.h"

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

std::vector<TCorpus> MakeOutlineTexts() {
  TCorpus sound{"sound-units", {}};
  TCorpus walked{"units", {}};
  TCorpus generated{"generated", {}};
  for (const TCorpus& corpus : OrdinaryTexts())
    for (const std::string& text : corpus.Texts) {
      const TWalk walk = WalkOver(text);
      if (corpus.Name == generated.Name) {
        generated.Texts.push_back(text);
        continue;
      }
      walked.Texts.push_back(text.substr(0, walk.End));
      if (walk.Errors == 0)
        sound.Texts.push_back(text);
    }
  return {sound, walked, generated};
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
  static const std::vector<TCorpus> corpora = MakeOutlineTexts();
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
