// SPDX-License-Identifier: MIT
// How the benchmarks fill an outline, and the units that are fit for it.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "PascalTexts.h"

namespace bench {

// One parse as in an editor whose user is typing: parser and outline are made for it and freed after it, and no error
// is painted. Returns the number of names. The text is as it was on return.
std::int64_t FillOutline(std::string& text);

// The same for a file, which the parser reads by itself.
std::int64_t FillOutlineOfFile(const std::string& name);

// The texts that outlines are measured on: "sound-units", those of the sample of units that parse without an error;
// "units", all of them, each cut where its parse ends, so that a lexer walks no further; "generated", a unit of 100,000
// lines.
const std::vector<TCorpus>& OutlineTexts();

// Texts of a megabyte or so that are as unlike a program as can be, without those that are nested too deep to be
// parsed.
const std::vector<TCorpus>& WorstOutlineTexts();

// The files of "sound-units".
std::vector<std::filesystem::path> SoundUnitPaths();

} // namespace bench
