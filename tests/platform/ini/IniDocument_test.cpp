// SPDX-License-Identifier: MIT
// What an INI file says.
#include "platform/ini/IniDocument.h"

#include "platform/ini/IniText.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace platform {
namespace {

using namespace std::string_view_literals;

using TNames = std::vector<std::string>;

// The value of a key, "(none)" if it is missing.
std::string ValueOf(std::string_view bytes, std::string_view section = "a", std::string_view key = "code") {
  return TIniDocument(bytes).Value(section, key).value_or("(none)");
}

TNames SectionsOf(std::string_view bytes) {
  return TIniDocument(bytes).Sections();
}

TEST(IniDocument, OfAnEmptyFileHasNoSections) {
  EXPECT_EQ(SectionsOf(""), TNames{});
  EXPECT_EQ(ValueOf(""), "(none)");
  EXPECT_EQ(TIniDocument().Bytes(), "");
}

TEST(IniDocument, ListsSectionsInTheOrderOfTheFile) {
  EXPECT_EQ(SectionsOf("[b]\n[a]\ncode=x\n[C]"), (TNames{"b", "a", "C"}));
}

TEST(IniDocument, ListsASectionOfSeveralPartsOnceAsItIsSpelledFirst) {
  EXPECT_EQ(SectionsOf("[Beg]\n[x]\n[BEG]\n[beg]\n"), (TNames{"Beg", "x"}));
}

TEST(IniDocument, FindsSectionsAndKeysWithoutCase) {
  EXPECT_EQ(ValueOf("[Beg]\nCode=x\n", "bEG", "cODE"), "x");
}

TEST(IniDocument, TakesLettersBeyondAsciiAsTheyAre) {
  EXPECT_EQ(ValueOf("[Gr\u00f6\u00dfe]\ncode=x\n", "gR\u00f6\u00dfE"), "x");
  EXPECT_EQ(ValueOf("[gr\u00f6\u00dfe]\ncode=x\n", "gr\u00d6\u00dfe"), "(none)");
}

TEST(IniDocument, TakesTheFirstOfSeveralSectionsAndKeysOfOneName) {
  EXPECT_EQ(ValueOf("[a]\ncode=1\ncode=2\n[b]\ncode=3\n[A]\ncode=4\nother=5\n"), "1");
  EXPECT_EQ(ValueOf("[a]\ncode=1\n[A]\nother=5\n", "a", "other"), "(none)");
}

TEST(IniDocument, KeepsKeysOfSectionsApart) {
  EXPECT_EQ(ValueOf("code=0\n[b]\ncode=1\n[a]\n"), "(none)");
}

struct TLineCase {
  const char* Line;
  const char* Value;
};

class IniValue : public testing::TestWithParam<TLineCase> {};

TEST_P(IniValue, ReadsAs) {
  EXPECT_EQ(ValueOf("[a]\n" + std::string(GetParam().Line) + "\n"), GetParam().Value);
}

INSTANTIATE_TEST_SUITE_P(Lines, IniValue,
                         testing::Values(TLineCase{"code=x y", "x y"},                 //
                                         TLineCase{" \tcode \t=\t x y \t", "x y"},     //
                                         TLineCase{"code=", ""},                       //
                                         TLineCase{"code=  ", ""},                     //
                                         TLineCase{"code=a=b", "a=b"},                 //
                                         TLineCase{"code=a ; b", "a ; b"},             //
                                         TLineCase{"code=[b]", "[b]"},                 //
                                         TLineCase{"code=begin\\end;", "begin\\end;"}, //
                                         TLineCase{"code=\" x \"", " x "},             //
                                         TLineCase{"code=\"\"", ""},                   //
                                         TLineCase{"code=\"\"x\"\"", "\"x\""},         //
                                         TLineCase{"code=\"a\" + \"b\"", "a\" + \"b"}, //
                                         TLineCase{"code=\"", "\""},                   //
                                         TLineCase{"code=\"x", "\"x"},                 //
                                         TLineCase{"code='x'", "'x'"},                 //
                                         TLineCase{"code=\xC3\xA4", "\u00e4"},         //
                                         TLineCase{"code=\xE4", "\u00e4"},             //
                                         TLineCase{"code=\xE2\x82", "\u00e2\u201a"},   //
                                         TLineCase{";code=x", "(none)"},               //
                                         TLineCase{"  ; code=x", "(none)"},            //
                                         TLineCase{"code", "(none)"},                  //
                                         TLineCase{"=code", "(none)"},                 //
                                         TLineCase{"codes=x", "(none)"},               //
                                         TLineCase{"[code=x", "(none)"}));

struct TSectionCase {
  const char* Line;
  TNames Names;
};

class IniSection : public testing::TestWithParam<TSectionCase> {};

TEST_P(IniSection, ReadsAs) {
  EXPECT_EQ(SectionsOf(GetParam().Line), GetParam().Names);
}

INSTANTIATE_TEST_SUITE_P(Lines, IniSection,
                         testing::Values(TSectionCase{"[a b=c;d]", {"a b=c;d"}},             //
                                         TSectionCase{" \t[ a\t]", {"a"}},                   //
                                         TSectionCase{"[a] behind", {"a"}},                  //
                                         TSectionCase{"[a]]", {"a"}},                        //
                                         TSectionCase{"[[a]", {"[a"}},                       //
                                         TSectionCase{"[\\/:*?\"]", {"\\/:*?\""}},           //
                                         TSectionCase{"[Gr\366\337e]", {"Gr\u00f6\u00dfe"}}, //
                                         TSectionCase{"[]", {}},                             //
                                         TSectionCase{"[ ]", {}},                            //
                                         TSectionCase{"[a", {}},                             //
                                         TSectionCase{"a]", {}},                             //
                                         TSectionCase{"x [a]", {}},                          //
                                         TSectionCase{";[a]", {}}));

class IniLineEnd : public testing::TestWithParam<const char*> {};

TEST_P(IniLineEnd, EndsLines) {
  const std::string end = GetParam();
  const std::string bytes = "[a]" + end + end + "code=x" + end + "[b]" + end + "code=y";
  EXPECT_EQ(SectionsOf(bytes), (TNames{"a", "b"}));
  EXPECT_EQ(ValueOf(bytes, "a"), "x");
  EXPECT_EQ(ValueOf(bytes, "b"), "y");
}

INSTANTIATE_TEST_SUITE_P(All, IniLineEnd, testing::Values("\n", "\r\n", "\r"));

TEST(IniDocument, TakesOtherSeparatorsOfLinesForText) {
  EXPECT_EQ(ValueOf("[a]\ncode=x\u2028y\u0085z\f\v!\n"), "x\u2028y\u0085z\f\v!");
}

TEST(IniDocument, ReadsWhatStandsAroundDamage) {
  const std::string_view bytes = "\x01garbage\n[a]\ncode=1\n\xFF\xFE\0\0[x\n[damaged\ncode=2\n[b]\ncode=3\n"sv;
  EXPECT_EQ(SectionsOf(bytes), (TNames{"a", "b"}));
  EXPECT_EQ(ValueOf(bytes, "a"), "1");
  EXPECT_EQ(ValueOf(bytes, "b"), "3");
}

TEST(IniDocument, GivesTheLinesBelowADamagedSectionToNoOther) {
  EXPECT_EQ(ValueOf("[a]\nother=1\n[damaged\ncode=2\n"), "(none)");
}

TEST(IniDocument, ReadsEachValueThatIsNoUtf8ByItself) {
  const std::string bytes = "[a]\ncode=\xE4\n[b]\ncode=\u00e4\n";
  EXPECT_EQ(ValueOf(bytes, "a"), "\u00e4");
  EXPECT_EQ(ValueOf(bytes, "b"), "\u00e4");
}

TEST(IniDocument, SkipsAByteOrderMark) {
  EXPECT_EQ(ValueOf("\xEF\xBB\xBF[a]\ncode=x\n"), "x");
}

TEST(IniDocument, ReadsUtf16WithAMark) {
  EXPECT_EQ(ValueOf(std::string("\xFF\xFE[\0a\0]\0\n\0c\0o\0d\0e\0=\0\x08\x22", 22)), "\u2208");
  EXPECT_EQ(ValueOf(std::string("\xFE\xFF\0[\0a\0]\0\n\0c\0o\0d\0e\0=\x22\x08", 22)), "\u2208");
}

TEST(IniDocument, TakesBrokenUtf16ForDamage) {
  const TIniDocument odd(std::string("\xFF\xFE[\0a\0]\0\n", 9));
  EXPECT_TRUE(odd.Damaged());
  EXPECT_EQ(odd.Sections(), TNames{});
  EXPECT_TRUE(TIniDocument(std::string("\xFF\xFE[\0\x00\xD8]\0", 8)).Damaged());
  EXPECT_FALSE(TIniDocument("[a]\n\xFF\n").Damaged());
}

TEST(IniDocument, ACopyReadsFromItsOwnText) {
  TIniDocument copy;
  {
    const TIniDocument original("[a]\ncode=x\n");
    copy = original;
  }
  EXPECT_EQ(copy.Value("a", "code"), "x");
}

TEST(IniDocument, ReadsTenThousandSections) {
  std::string bytes;
  for (int number = 0; number < 10'000; ++number)
    bytes += "[t" + std::to_string(number) + "]\ncode=value " + std::to_string(number) + "\n";
  const TIniDocument document(bytes);
  const TNames names = document.Sections();
  ASSERT_EQ(names.size(), 10'000U);
  for (int number = 0; number < 10'000; ++number)
    ASSERT_EQ(document.Value(names[static_cast<std::size_t>(number)], "code"), "value " + std::to_string(number));
}

struct TErrorCase {
  const char* Text;
  const char* Error;
};

TEST(IniText, RefusesSectionNamesThatTheFileCannotHold) {
  for (const TErrorCase& row : {TErrorCase{"", "is blank"},
                                {" \t", "is blank"},
                                {"a\nb", "has a line break"},
                                {"a\rb", "has a line break"},
                                {"a\n", "has a line break"},
                                {"a]b", "has a \"]\""}})
    EXPECT_EQ(SectionNameError(row.Text).value_or("none"), row.Error) << row.Text;
}

TEST(IniText, TakesAllOtherSectionNames) {
  for (const char* name : {"a", " a ", "a=b", "[a", ";a", "\u00e4", "\"a\"", "a\\b"})
    EXPECT_EQ(SectionNameError(name), std::nullopt) << name;
}

TEST(IniText, RefusesKeysThatTheFileCannotHold) {
  for (const TErrorCase& row : {TErrorCase{"", "is blank"},
                                {" ", "is blank"},
                                {"a\nb", "has a line break"},
                                {"a=b", "has an \"=\""},
                                {" [a", "begins with \"[\""},
                                {";a", "begins with \";\""}})
    EXPECT_EQ(KeyNameError(row.Text).value_or("none"), row.Error) << row.Text;
  EXPECT_EQ(KeyNameError("a;[]b"), std::nullopt);
}

TEST(IniText, RefusesValuesOfSeveralLines) {
  EXPECT_EQ(ValueError("a\rb"), "has a line break");
  EXPECT_EQ(ValueError("a\nb"), "has a line break");
  EXPECT_EQ(ValueError(" [a]=;\" "), std::nullopt);
}

} // namespace
} // namespace platform
