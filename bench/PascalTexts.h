// SPDX-License-Identifier: MIT
// The texts that the benchmarks run over, and how a benchmark is registered for each of them.
#pragma once

#include <benchmark/benchmark.h>

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace bench {

// A text, or several that are run over one after the other.
struct TCorpus {
  std::string Name;
  std::vector<std::string> Texts;
};

// A unit of about so many lines, without an error of syntax: routines with all the statements there are, strings,
// numbers, comments and directives, and every keyword of the language. Always the same for the same number of lines.
std::string GeneratedUnit(int lines);

// The files that "units" below is read from.
std::vector<std::filesystem::path> SampleOfUnitPaths();

// Ordinary texts: "units", a sample of the units of fpc-source, empty where that is not installed; "generated", a unit
// of 100,000 lines.
const std::vector<TCorpus>& OrdinaryTexts();

// The generated unit at 10,000 and at 400,000 lines.
const std::vector<TCorpus>& LengthTexts();

// Texts of a megabyte or so that are as unlike a program as can be.
const std::vector<TCorpus>& WorstTexts();

// Runs a function over each text of a corpus and tells the bytes per second. What the function returns is kept from
// being optimised away. It may lengthen a text by one character if it takes that away again; there is room for it.
template <typename TScan> void RunOver(benchmark::State& state, const TCorpus& corpus, TScan scan) {
  std::vector<std::string> texts = corpus.Texts;
  std::int64_t bytes = 0;
  for (std::string& text : texts) {
    text.reserve(text.size() + 1);
    bytes += static_cast<std::int64_t>(text.size());
  }
  for (auto _ : state)
    for (std::string& text : texts)
      benchmark::DoNotOptimize(scan(text));
  state.SetBytesProcessed(state.iterations() * bytes);
}

// Registers "NAME/TEXT" for each corpus that has texts.
template <typename TScan> void Register(const std::string& name, const std::vector<TCorpus>& corpora, TScan scan) {
  for (const TCorpus& corpus : corpora)
    if (!corpus.Texts.empty())
      benchmark::RegisterBenchmark((name + "/" + corpus.Name).c_str(),
                                   [&corpus, scan](benchmark::State& state) { RunOver(state, corpus, scan); });
}

} // namespace bench
