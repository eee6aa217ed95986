// SPDX-License-Identifier: MIT
#include "platform/registry/RegistryDocument.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace platform {
namespace {

constexpr std::u16string_view rootStart = u"HKEY_";

// Whether a text is, or at least holds, a part of a registry export. Nobody exports zeros: they are what is left of a
// file after a crash, or text in another encoding.
bool IsExport(std::u16string_view text) {
  if (text.find(u'\0') != std::u16string_view::npos)
    return false;
  for (std::size_t begin = 0; begin < text.size();) {
    const std::u16string_view line = LineAt(text, begin);
    if (IsHeaderLine(line))
      return true;
    const std::optional<TRegistryKeyLine> key = ParseKeyLine(line);
    if (key && StartsWithName(key->Path, rootStart))
      return true;
    begin += line.size();
  }
  return IsBlankLine(text);
}

// A file that was cut in the middle of a character is still UTF-8, not some code page, if characters before it say so.
quorvane::TDecodedText DecodeCut(std::string_view bytes) {
  constexpr std::size_t longestPart = 3;
  quorvane::TDecodedText decoded = quorvane::Decode(bytes);
  if (decoded.Encoding.Kind != quorvane::TEncodingKind::CodePage)
    return decoded;
  quorvane::TDecodedText utf8 = quorvane::DecodeAs(bytes, {});
  const std::size_t lost = utf8.FirstLostByte.value_or(0);
  const bool atEnd = lost + longestPart >= bytes.size();
  const bool saysSo = std::ranges::any_of(bytes.substr(0, lost), [](char byte) { return (byte & 0x80) != 0; });
  return atEnd && saysSo ? std::move(utf8) : std::move(decoded);
}

bool EndsWithBlankLine(std::u16string_view text) {
  return text.ends_with(u"\n\n") || text.ends_with(u"\n\r\n");
}

} // namespace

TRegistryDocument::TRegistryDocument(std::string_view bytes) {
  quorvane::TDecodedText decoded = DecodeCut(bytes);
  if (!IsExport(decoded.Text)) {
    damaged_ = true;
    return;
  }
  damaged_ = decoded.FirstLostByte.has_value();
  text_ = std::move(decoded.Text);
  encoding_ = decoded.Encoding;
  FindSections();
}

void TRegistryDocument::FindSections() {
  sections_.clear();
  const std::u16string_view text = text_;
  for (std::size_t begin = 0; begin < text.size();) {
    const std::u16string_view line = LineAt(text, begin);
    const std::size_t next = begin + line.size();
    if (const std::optional<TRegistryKeyLine> key = ParseKeyLine(line)) {
      const std::size_t path = key->Path.empty() ? 0 : static_cast<std::size_t>(key->Path.data() - text.data());
      sections_.push_back({path, key->Path.size(), key->Deleted, next, next});
    } else if (!sections_.empty()) {
      sections_.back().End = next;
    }
    begin = next;
  }
}

std::u16string_view TRegistryDocument::PathOf(const TSection& section) const {
  return std::u16string_view(text_).substr(section.PathBegin, section.PathSize);
}

bool TRegistryDocument::HasKey(std::u16string_view key) const {
  bool has = false;
  for (const TSection& section : sections_) {
    const std::u16string_view path = PathOf(section);
    if (section.Deleted)
      has = has && !IsAtOrBelow(key, path);
    else
      has = has || IsAtOrBelow(path, key);
  }
  return has;
}

std::vector<TRegistryDocument::TSection> TRegistryDocument::SectionsOf(std::u16string_view key) const {
  std::vector<TSection> found;
  for (const TSection& section : sections_) {
    if (section.Deleted && IsAtOrBelow(key, PathOf(section)))
      found.clear();
    else if (!section.Deleted && SameName(PathOf(section), key))
      found.push_back(section);
  }
  return found;
}

template <class TVisit> void TRegistryDocument::ForEachValue(const TSection& section, TVisit visit) const {
  for (std::size_t begin = section.Begin; begin < section.End;) {
    const std::optional<TRegistryValueLine> value = ParseValueLine(text_, begin);
    if (value)
      visit(*value);
    begin = value ? value->DataEnd : begin;
    begin += LineAt(text_, begin).size();
  }
}

TRegistryValues TRegistryDocument::Values(std::u16string_view key) const {
  TRegistryValues values;
  for (const TSection& section : SectionsOf(key)) {
    ForEachValue(section, [&values](const TRegistryValueLine& line) {
      if (line.Deleted)
        values.erase(line.Name);
      else
        values.insert_or_assign(line.Name, line.Value);
    });
  }
  return values;
}

void TRegistryDocument::Write(const TRegistryKeyWrites& writes) {
  std::map<std::u16string_view, std::optional<TRegistryValueLine>, TNoCaseLess> lines;
  for (const TRegistryWrite& write : writes.Writes)
    lines.emplace(write.Name, std::nullopt);
  const std::vector<TSection> sections = SectionsOf(writes.Key);
  for (const TSection& section : sections) {
    ForEachValue(section, [&lines](const TRegistryValueLine& line) {
      if (const auto found = lines.find(line.Name); found != lines.end())
        found->second = line;
    });
  }

  std::vector<TChange> changes;
  std::vector<std::u16string> newLines;
  for (const TRegistryWrite& write : writes.Writes) {
    const std::optional<TRegistryValueLine>& line = lines.at(write.Name);
    if (!line)
      newLines.push_back(FormatName(write.Name) + u'=' + FormatValue(write.Value));
    else if (line->Value != write.Value)
      changes.push_back({line->DataBegin, line->DataEnd, FormatValue(write.Value)});
  }
  if (!sections.empty() && !newLines.empty())
    changes.push_back(AddedTo(sections.back(), newLines));
  if (sections.empty() && (!newLines.empty() || !HasKey(writes.Key)))
    changes.push_back(AddedKey(writes.Key, newLines));
  HideCutValue(changes);
  Apply(std::move(changes));
}

// A value in the middle of which the file ends would be whole, but another, with a line end behind it.
void TRegistryDocument::HideCutValue(std::vector<TChange>& changes) const {
  if (sections_.empty() || changes.empty() || changes.back().Begin != text_.size())
    return;
  std::optional<std::size_t> cut;
  ForEachValue(sections_.back(), [&cut](const TRegistryValueLine& line) {
    if (line.Cut)
      cut = line.DataBegin;
  });
  if (!cut || std::ranges::find(changes, *cut, &TChange::Begin) != changes.end())
    return;
  const std::size_t line = text_.rfind(u'\n', *cut) + 1;
  changes.push_back({line, line, u";"});
}

// Behind the last line of the section that is not blank.
TRegistryDocument::TChange TRegistryDocument::AddedTo(const TSection& section,
                                                      const std::vector<std::u16string>& lines) const {
  std::size_t place = section.Begin;
  for (std::size_t begin = section.Begin; begin < section.End;) {
    const std::u16string_view line = LineAt(text_, begin);
    begin += line.size();
    if (!IsBlankLine(line))
      place = begin;
  }
  TChange change{place, place, {}};
  if (text_[place - 1] != u'\n')
    change.NewText = LineEnd();
  for (const std::u16string& line : lines)
    change.NewText.append(line).append(LineEnd());
  return change;
}

// At the end of the file, with a blank line in front as exports have it.
TRegistryDocument::TChange TRegistryDocument::AddedKey(std::u16string_view key,
                                                       const std::vector<std::u16string>& lines) const {
  TChange change{text_.size(), text_.size(), {}};
  std::u16string& added = change.NewText;
  if (!text_.empty() && !text_.ends_with(u'\n'))
    added.append(LineEnd());
  if (IsBlankLine(text_))
    added.append(RegistryHeader).append(LineEnd());
  if (!EndsWithBlankLine(text_))
    added.append(LineEnd());
  added.append(u"[").append(Spelled(key)).append(u"]").append(LineEnd());
  for (const std::u16string& line : lines)
    added.append(line).append(LineEnd());
  return change;
}

void TRegistryDocument::Apply(std::vector<TChange> changes) {
  if (changes.empty())
    return;
  std::ranges::stable_sort(changes, {}, &TChange::Begin); // a value at the end of the file, then what is added
  std::u16string text;
  std::size_t begin = 0;
  for (const TChange& change : changes) {
    text.append(text_, begin, change.Begin - begin).append(change.NewText);
    begin = change.End;
  }
  text.append(text_, begin);
  text_ = std::move(text);
  FindSections();
}

std::u16string_view TRegistryDocument::LineEnd() const {
  return LineAt(text_, 0).ends_with(u"\r\n") ? u"\r\n" : u"\n";
}

std::u16string TRegistryDocument::Spelled(std::u16string_view key) const {
  std::u16string_view best;
  for (const TSection& section : sections_) {
    const std::u16string_view path = PathOf(section);
    const std::size_t common = CommonParts(path, key);
    if (!section.Deleted && common > best.size())
      best = path.substr(0, common);
  }
  return std::u16string(best).append(key.substr(best.size()));
}

std::string TRegistryDocument::Bytes() const {
  quorvane::TEncodedText encoded = quorvane::Encode(text_, encoding_);
  if (encoded.FirstMissing)
    encoded = quorvane::Encode(text_, {});
  return std::move(encoded.Bytes);
}

} // namespace platform
