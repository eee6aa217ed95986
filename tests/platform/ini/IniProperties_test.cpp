// SPDX-License-Identifier: MIT
// What holds for every INI file, however damaged, and every change.
#include "platform/ini/IniDocument.h"
#include "platform/ini/IniText.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace platform {
namespace {

const std::vector<std::string> sectionNames = {"a", "b", "a b=c", "gr\u00f6\u00dfe", "[x"};
const std::vector<std::string> keys = {"code", "other", "\u00e4"};

// One line or a piece of one, good or damaged, without a line end.
rc::Gen<std::string> Piece() {
  return rc::gen::weightedOneOf<std::string>(
      {{4, rc::gen::elementOf(
               std::vector<std::string>{"[a]", "[B]", " [ a b=c ] x", "[gr\u00f6\u00dfe]", "[gr\366\337e]", "[[x]"})},
       {4, rc::gen::elementOf(std::vector<std::string>{"code=1", "Code = 2 ", "code=\" 3 \"", "other=\xE4\xC3",
                                                       "\u00e4=\u00f6", "\xE4=4", "code="})},
       {2, rc::gen::elementOf(std::vector<std::string>{"", " ", "; [a]", ";code=5", "[", "[]", "[a", "=", "]"})},
       {1, rc::gen::container<std::string>(rc::gen::suchThat<char>([](char c) { return c != '\r' && c != '\n'; }))}});
}

rc::Gen<std::string> FileBytes() {
  const auto line =
      rc::gen::map(rc::gen::pair(Piece(), rc::gen::elementOf(std::vector<std::string>{"\n", "\r\n", "\r"})),
                   [](const auto& parts) { return parts.first + parts.second; });
  const auto lines = rc::gen::map(rc::gen::container<std::vector<std::string>>(line), [](const auto& parts) {
    std::string text;
    for (const std::string& part : parts)
      text += part;
    return text;
  });
  // The last line may have no end, and the first a mark.
  auto bytes = rc::gen::map(
      rc::gen::tuple(rc::gen::elementOf(std::vector<std::string>{"", "", "", "\xEF\xBB\xBF"}), lines, Piece()),
      [](const auto& parts) { return std::get<0>(parts) + std::get<1>(parts) + std::get<2>(parts); });
  return rc::gen::suchThat(std::move(bytes), [](const std::string& text) {
    return !text.starts_with("\xFF\xFE") && !text.starts_with("\xFE\xFF"); // the marks of UTF-16
  });
}

rc::Gen<std::string> Value() {
  return rc::gen::map(rc::gen::container<std::vector<std::string>>(rc::gen::elementOf(std::vector<std::string>{
                          " ", "\t", "\"", "'", "\\", "=", "[", "]", ";", "|", "x", "\u00e4", "\u2208", "\U0001F600"})),
                      [](const std::vector<std::string>& parts) {
                        std::string text;
                        for (const std::string& part : parts)
                          text += part;
                        return text;
                      });
}

// All that a document says but for one section or, if `key` is not empty, one key of it.
std::vector<std::string> AllBut(const TIniDocument& document, std::string_view section, std::string_view key) {
  std::vector<std::string> all;
  for (const std::string& name : sectionNames)
    for (const std::string& other : keys)
      if (name != section || (!key.empty() && other != key))
        all.push_back(document.Value(name, other).value_or("(none)"));
  return all;
}

// The bytes of `text` that lie between the start and the end which it has in common with `other`.
std::string_view Differing(std::string_view text, std::string_view other) {
  const auto begin = static_cast<std::size_t>(std::ranges::mismatch(text, other).in1 - text.begin());
  text.remove_prefix(begin);
  other.remove_prefix(begin);
  while (!text.empty() && !other.empty() && text.back() == other.back()) {
    text.remove_suffix(1);
    other.remove_suffix(1);
  }
  return text;
}

RC_GTEST_PROP(IniProperties, AFileThatIsOnlyReadKeepsItsBytes, ()) {
  const std::string bytes = *FileBytes();
  RC_ASSERT(TIniDocument(bytes).Bytes() == bytes);
}

RC_GTEST_PROP(IniProperties, BytesMarkedAsUtf16AreKeptToo, (const std::string& bytes)) {
  for (const char* mark : {"\xFF\xFE", "\xFE\xFF"})
    RC_ASSERT(TIniDocument(mark + bytes).Bytes() == mark + bytes);
}

RC_GTEST_PROP(IniProperties, AWrittenValueComesBackAndNothingElseChanges, ()) {
  const std::string bytes = *FileBytes();
  const std::string section = *rc::gen::elementOf(sectionNames);
  const std::string key = *rc::gen::elementOf(keys);
  const std::string value = *Value();
  TIniDocument document(bytes);
  const std::vector<std::string> before = AllBut(document, section, key);
  document.Write(section, key, value);

  const std::string written = document.Bytes();
  const TIniDocument again(written);
  RC_ASSERT(again.Value(section, key) == value);
  RC_ASSERT(document.Value(section, key) == value);
  RC_ASSERT(AllBut(again, section, key) == before);
  // At most a part of one line has gone.
  RC_ASSERT(Differing(bytes, written).find_first_of("\r\n") == std::string_view::npos);
}

RC_GTEST_PROP(IniProperties, WritingTwiceIsWritingOnce, ()) {
  TIniDocument document(*FileBytes());
  const std::string section = *rc::gen::elementOf(sectionNames);
  const std::string value = *Value();
  document.Write(section, "code", value);
  const std::string once = document.Bytes();
  document.Write(section, "code", value);
  RC_ASSERT(document.Bytes() == once);
}

RC_GTEST_PROP(IniProperties, AnErasedSectionIsAwayAndNothingElseChanges, ()) {
  TIniDocument document(*FileBytes());
  const std::string section = *rc::gen::elementOf(sectionNames);
  const std::vector<std::string> before = AllBut(document, section, {});
  std::vector<std::string> names = document.Sections();
  std::erase_if(names, [&section](const std::string& name) { return FoldedName(name) == section; });
  document.Erase(section);

  const TIniDocument again(document.Bytes());
  RC_ASSERT(AllBut(again, section, {}) == before);
  for (const std::string& key : keys)
    RC_ASSERT(!again.Value(section, key));
  RC_ASSERT(again.Sections() == names);
}

RC_GTEST_PROP(IniProperties, ANewSectionThatIsErasedAgainLeavesAtMostALineEnd, ()) {
  const std::string bytes = *FileBytes();
  TIniDocument document(bytes);
  document.Write("not there", "code", *Value());
  document.Erase("not there");
  const std::string left = document.Bytes();
  RC_ASSERT(left.starts_with(bytes));
  // A last line without an end has got one.
  const std::string added = left.substr(bytes.size());
  RC_ASSERT(added.empty() || added == "\n" || added == "\r\n" || added == "\r");
}

} // namespace
} // namespace platform
