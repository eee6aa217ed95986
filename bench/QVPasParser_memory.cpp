// SPDX-License-Identifier: MIT
// How much memory a parse takes at its peak, as a multiple of the text: everything that it has from the heap at one
// time, the text itself and the outline included. Prints a JSON object of the largest multiple by text.
#include <malloc.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <new>
#include <string>

#include "Outlines.h"
#include "support/PascalUnits.h"

namespace {

std::size_t Live = 0;
std::size_t Peak = 0;

} // namespace

// The heap as it is, with a count of what it has given out.
void* operator new(std::size_t size) {
  void* block = std::malloc(size);
  if (block == nullptr)
    throw std::bad_alloc();
  Live += malloc_usable_size(block);
  Peak = std::max(Peak, Live);
  return block;
}

void operator delete(void* block) noexcept {
  Live -= malloc_usable_size(block);
  std::free(block);
}

void operator delete(void* block, std::size_t) noexcept {
  operator delete(block);
}

namespace {

namespace fs = std::filesystem;

// Below this the parser's own few kilobytes are more than the text.
constexpr std::size_t LeastSize = 32768;

std::size_t PeakOfFile(const fs::path& path) {
  const std::string name = path.string();
  const std::size_t before = Live;
  Peak = Live;
  bench::FillOutlineOfFile(name);
  return Peak - before;
}

// As the thread of an editor does it: it has the text, with room for the NUL.
std::size_t PeakOfText(const std::string& source) {
  const std::size_t before = Live;
  Peak = Live;
  std::string text;
  text.reserve(source.size() + 1);
  text += source;
  bench::FillOutline(text);
  return Peak - before;
}

double Multiple(std::size_t peak, std::size_t size) {
  return static_cast<double>(peak) / static_cast<double>(size);
}

} // namespace

int main() {
  double units = 0;
  double files = 0;
  for (const fs::path& path : bench::SoundUnitPaths()) {
    const std::string text = support::ReadFile(path);
    if (text.size() < LeastSize)
      continue;
    units = std::max(units, Multiple(PeakOfText(text), text.size()));
    files = std::max(files, Multiple(PeakOfFile(path), text.size()));
  }
  std::cout << "{\"sound-units\": " << units << ", \"sound-units from disk\": " << files;
  for (const bench::TCorpus& corpus : bench::LengthTexts())
    for (const std::string& text : corpus.Texts)
      std::cout << ", \"" << corpus.Name << "\": " << Multiple(PeakOfText(text), text.size());
  std::cout << "}\n";
  return 0;
}
