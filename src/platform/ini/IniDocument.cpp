// SPDX-License-Identifier: MIT
#include "platform/ini/IniDocument.h"

#include "platform/ini/IniText.h"
#include "text/Utf8.h"

#include <utility>

namespace platform {
namespace {

constexpr std::string_view utf8Mark = "\xEF\xBB\xBF";

bool EndsWithLineEnd(std::string_view text) {
  return text.ends_with('\n') || text.ends_with('\r');
}

} // namespace

TIniDocument::TIniDocument(std::string_view bytes) : text_(bytes) {
  const std::optional<quorvane::TEncoding> marked = quorvane::MarkedEncoding(bytes);
  if (marked && marked->Kind != quorvane::TEncodingKind::Utf8) {
    const quorvane::TDecodedText decoded = quorvane::DecodeAs(bytes, *marked);
    std::optional<std::string> text = quorvane::EncodeUtf8(decoded.Text);
    damaged_ = decoded.FirstLostByte || !text;
    if (damaged_)
      return;
    encoding_ = *marked;
    text_ = *std::move(text);
  }
  FindSections();
}

void TIniDocument::FindSections() {
  sections_.clear();
  firstOfName_.clear();
  for (std::size_t begin = ContentBegin(); begin < text_.size();) {
    const std::string_view line = LineAt(text_, begin);
    const std::size_t next = begin + line.size();
    if (const std::optional<std::string_view> name = ParseSectionLine(line)) {
      sections_.push_back({Utf8Of(*name), begin, next, next});
      if (!name->empty())
        firstOfName_.emplace(FoldedName(sections_.back().Name), sections_.size() - 1);
    } else if (!sections_.empty()) {
      sections_.back().End = next;
    }
    begin = next;
  }
}

std::size_t TIniDocument::ContentBegin() const {
  return text_.starts_with(utf8Mark) ? utf8Mark.size() : 0;
}

std::vector<std::string> TIniDocument::Sections() const {
  std::vector<std::string> names;
  for (const TSection& section : sections_)
    if (FindSection(section.Name) == &section)
      names.push_back(section.Name);
  return names;
}

const TIniDocument::TSection* TIniDocument::FindSection(std::string_view name) const {
  const auto found = firstOfName_.find(FoldedName(TrimmedBlanks(name)));
  return found == firstOfName_.end() ? nullptr : &sections_[found->second];
}

std::optional<TIniDocument::TPlace> TIniDocument::FindValue(const TSection& section, std::string_view key) const {
  const std::string folded = FoldedName(TrimmedBlanks(key));
  for (std::size_t begin = section.Begin; begin < section.End;) {
    const std::string_view line = LineAt(text_, begin);
    const std::optional<TIniKeyLine> found = ParseKeyLine(line);
    if (found && FoldedName(Utf8Of(found->Name)) == folded) {
      const std::size_t value = begin + static_cast<std::size_t>(found->Value.data() - line.data());
      return TPlace{value, value + found->Value.size()};
    }
    begin += line.size();
  }
  return std::nullopt;
}

std::optional<std::string> TIniDocument::Value(std::string_view section, std::string_view key) const {
  const TSection* found = FindSection(section);
  const std::optional<TPlace> place = found != nullptr ? FindValue(*found, key) : std::nullopt;
  if (!place)
    return std::nullopt;
  return Utf8Of(UnquotedValue(std::string_view(text_).substr(place->Begin, place->End - place->Begin)));
}

void TIniDocument::Write(std::string_view section, std::string_view key, std::string_view value) {
  const TSection* found = FindSection(section);
  const std::optional<TPlace> place = found != nullptr ? FindValue(*found, key) : std::nullopt;
  if (place) {
    if (Value(section, key) == value)
      return;
    text_.replace(place->Begin, place->End - place->Begin, WrittenValue(value));
  } else {
    const std::string line = std::string(TrimmedBlanks(key)) + '=' + WrittenValue(value);
    if (found != nullptr)
      AddKey(*found, line);
    else
      AddSection(TrimmedBlanks(section), line);
  }
  FindSections();
}

// Behind the last line of the section that is not blank.
void TIniDocument::AddKey(const TSection& section, std::string_view line) {
  std::size_t place = section.Begin;
  for (std::size_t begin = section.Begin; begin < section.End;) {
    const std::string_view old = LineAt(text_, begin);
    begin += old.size();
    if (!IsBlankLine(old))
      place = begin;
  }
  std::string added(line);
  if (EndsWithLineEnd(std::string_view(text_).substr(0, place)))
    added.append(NewLineEnd());
  else
    added.insert(0, NewLineEnd());
  text_.insert(place, added);
}

// At the end of the file.
void TIniDocument::AddSection(std::string_view name, std::string_view line) {
  const std::string_view lineEnd = NewLineEnd();
  std::string added;
  if (text_.size() > ContentBegin() && !EndsWithLineEnd(text_))
    added.append(lineEnd);
  added.append("[").append(name).append("]").append(lineEnd).append(line).append(lineEnd);
  text_.append(added);
}

void TIniDocument::Erase(std::string_view section) {
  const std::string folded = FoldedName(TrimmedBlanks(section));
  if (!firstOfName_.contains(folded))
    return;
  std::string text;
  std::size_t begin = 0;
  for (const TSection& candidate : sections_) {
    if (FoldedName(candidate.Name) != folded)
      continue;
    text.append(text_, begin, candidate.Line - begin);
    begin = candidate.End;
  }
  text.append(text_, begin);
  text_ = std::move(text);
  FindSections();
}

std::string_view TIniDocument::NewLineEnd() const {
  const std::string_view first = LineEndOf(LineAt(text_, 0));
  return first.empty() ? "\n" : first;
}

std::string TIniDocument::Bytes() const {
  if (encoding_.Kind == quorvane::TEncodingKind::Utf8)
    return text_;
  return quorvane::Encode(quorvane::DecodeUtf8(text_), encoding_).Bytes;
}

} // namespace platform
