// SPDX-License-Identifier: MIT
// The store of code templates over a real INI text.
#include "settings/model/QVTemplateStore.h"

#include "settings/IniTemplateFile.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace quorvane {
namespace {

using TNames = std::vector<std::string>;

// A store that has loaded the templates of these lines.
struct TLoadedStore {
  explicit TLoadedStore(std::string_view bytes = {}) : File(bytes), Store(File) { Store.LoadTemplates(); }
  TLoadedStore(const TLoadedStore&) = delete;
  TLoadedStore& operator=(const TLoadedStore&) = delete;

  std::string Bytes() const { return File.Document.Bytes(); }

  IniTemplateFile File;
  TQVTemplateStore Store;
};

TEST(QVTemplateStore, IsEmptyWithoutAFile) {
  const TLoadedStore loaded;
  EXPECT_EQ(loaded.Store.Names(), TNames{});
  EXPECT_FALSE(loaded.Store.IsTemplateName("beg"));
  EXPECT_EQ(loaded.Store.GetTemplateContent("beg"), "");
  EXPECT_EQ(loaded.Store.GetTemplateText("beg"), "");
}

TEST(QVTemplateStore, StoresATextOfTwoLinesOnOne) {
  TLoadedStore loaded;
  loaded.Store.SetTemplateContent("beg", "begin\r\nend;");
  EXPECT_EQ(loaded.Bytes(), "[beg]\ncode=begin\\end;\n");
  EXPECT_EQ(loaded.Store.GetTemplateContent("beg"), "begin\\end;");
  EXPECT_EQ(loaded.Store.GetTemplateText("beg"), "begin\rend;");
}

TEST(QVTemplateStore, ABackslashExpandsToACarriageReturnAndShowsAsALineBreak) {
  TLoadedStore loaded("[x]\ncode=a\\b\n");
  EXPECT_EQ(loaded.Store.GetTemplateText("x"), "a\rb");
  EXPECT_EQ(TemplateMemoText(loaded.Store.GetTemplateContent("x")), "a\r\nb");
}

TEST(QVTemplateStore, ConvertsAllLineBreaks) {
  EXPECT_EQ(StoredTemplateText("\r\na\r\n\r\nb\r\n"), "\\a\\\\b\\");
  EXPECT_EQ(TemplateMemoText("\\a\\\\b\\"), "\r\na\r\n\r\nb\r\n");
  EXPECT_EQ(TemplateExpansionText("\\a\\\\b\\"), "\ra\r\rb\r");
}

TEST(QVTemplateStore, TakesHalvesOfALineBreakForWholeOnes) {
  EXPECT_EQ(StoredTemplateText("a\nb\rc\n\rd"), "a\\b\\c\\\\d");
}

TEST(QVTemplateStore, ABackslashOfTheTextComesBackAsALineBreak) {
  EXPECT_EQ(TemplateMemoText(StoredTemplateText("C:\\x")), "C:\r\nx");
}

RC_GTEST_PROP(QVTemplateStore, ATextWithoutBackslashesComesBack, ()) {
  const auto parts = *rc::gen::container<TNames>(
      rc::gen::elementOf(TNames{"\r\n", " ", "\t", "\"", "|", "~", "[", "]", "=", ";", "x", "\u00e4", "\u2208"}));
  std::string text;
  for (const std::string& part : parts)
    text += part;
  TLoadedStore loaded("[old]\r\ncode=1");
  loaded.Store.SetTemplateContent("x", text);
  RC_ASSERT(TemplateMemoText(loaded.Store.GetTemplateContent("x")) == text);
  RC_ASSERT(!loaded.Store.DiffersFromTemplate("x", text));
  RC_ASSERT(loaded.Store.GetTemplateContent("old") == "1");
}

TEST(QVTemplateStore, KeepsBlanksAtBothEndsOfAText) {
  TLoadedStore loaded;
  loaded.Store.SetTemplateContent("x", "  begin ");
  EXPECT_EQ(loaded.Store.GetTemplateText("x"), "  begin ");
}

TEST(QVTemplateStore, KeepsQuotesAtBothEndsOfAText) {
  TLoadedStore loaded;
  for (const char* text : {"\"x\"", "\"", "\"\"", "'x'", "\" \""}) {
    loaded.Store.SetTemplateContent("x", text);
    EXPECT_EQ(loaded.Store.GetTemplateText("x"), text);
  }
}

TEST(QVTemplateStore, TellsWhetherATextIsTheStoredOne) {
  const TLoadedStore loaded("[beg]\ncode=Begin\\end;\n");
  EXPECT_FALSE(loaded.Store.DiffersFromTemplate("beg", "Begin\r\nend;"));
  EXPECT_TRUE(loaded.Store.DiffersFromTemplate("beg", "begin\r\nend;"));
  EXPECT_TRUE(loaded.Store.DiffersFromTemplate("beg", "Begin\r\nend; "));
  EXPECT_TRUE(loaded.Store.DiffersFromTemplate("missing", "x"));
  EXPECT_FALSE(loaded.Store.DiffersFromTemplate("missing", ""));
}

TEST(QVTemplateStore, ListsNamesAlphabeticallyWithoutCase) {
  const TLoadedStore loaded("[proc]\n[Beg]\n[\u00e4]\n[CLS]\n[a_b]\n[aZ]\n[z]\n[BEG]\n");
  EXPECT_EQ(loaded.Store.Names(), (TNames{"a_b", "aZ", "Beg", "CLS", "proc", "z", "\u00e4"}));
}

TEST(QVTemplateStore, FindsNamesWithoutCase) {
  const TLoadedStore loaded("[beg]\ncode=x\n[PROC]\ncode=y\n");
  EXPECT_TRUE(loaded.Store.IsTemplateName("Beg"));
  EXPECT_TRUE(loaded.Store.IsTemplateName("proc"));
  EXPECT_FALSE(loaded.Store.IsTemplateName("be"));
  EXPECT_FALSE(loaded.Store.IsTemplateName("begi"));
  EXPECT_FALSE(loaded.Store.IsTemplateName(""));
  EXPECT_EQ(loaded.Store.GetTemplateText("proc"), "y");
  EXPECT_EQ(loaded.Store.IndexOf("Proc"), 1U);
}

TEST(QVTemplateStore, KnowsNamesAsLastLoaded) {
  TLoadedStore loaded("[beg]\ncode=x\n");
  loaded.File.Document.Write("other", "code", "y");
  EXPECT_FALSE(loaded.Store.IsTemplateName("other"));
  loaded.Store.LoadTemplates();
  EXPECT_TRUE(loaded.Store.IsTemplateName("other"));
}

TEST(QVTemplateStore, AddsAnEmptyTemplate) {
  TLoadedStore loaded("[beg]\ncode=x\n");
  loaded.Store.AddTemplate("aaa");
  EXPECT_EQ(loaded.Store.Names(), (TNames{"aaa", "beg"}));
  EXPECT_EQ(loaded.Bytes(), "[beg]\ncode=x\n[aaa]\ncode=\n");
}

TEST(QVTemplateStore, AddingATemplateThatIsThereEmptiesIt) {
  TLoadedStore loaded("[beg]\ncode=x\n");
  loaded.Store.AddTemplate("Beg");
  EXPECT_EQ(loaded.Bytes(), "[beg]\ncode=\n");
}

TEST(QVTemplateStore, RenamingLeavesTheTemplateUnderBothNames) {
  TLoadedStore loaded("[beg]\ncode= \"  x \"\n");
  loaded.Store.RenameTemplate("beg", "begin");
  EXPECT_EQ(loaded.Store.Names(), (TNames{"beg", "begin"}));
  EXPECT_EQ(loaded.Store.GetTemplateContent("beg"), "  x ");
  EXPECT_EQ(loaded.Store.GetTemplateContent("begin"), "  x ");
}

TEST(QVTemplateStore, RenamingToTheNameOfAThirdTemplateReplacesItsText) {
  TLoadedStore loaded("[beg]\ncode=1\n[begin]\ncode=2\n");
  loaded.Store.RenameTemplate("beg", "begin");
  EXPECT_EQ(loaded.Bytes(), "[beg]\ncode=1\n[begin]\ncode=1\n");
}

TEST(QVTemplateStore, RenamingToTheSameNameChangesNothing) {
  TLoadedStore loaded("[beg]\ncode=x\n");
  loaded.Store.RenameTemplate("beg", "BEG");
  EXPECT_EQ(loaded.Bytes(), "[beg]\ncode=x\n");
}

TEST(QVTemplateStore, DeletesATemplateWithAllItsSections) {
  TLoadedStore loaded("[beg]\ncode=x\n[a]\n[BEG]\ncode=y\n");
  loaded.Store.DeleteTemplate("beg");
  EXPECT_EQ(loaded.Store.Names(), TNames{"a"});
  EXPECT_EQ(loaded.Bytes(), "[a]\n");
}

TEST(QVTemplateStore, ADeletedTemplateCanBeWrittenBack) {
  TLoadedStore loaded("[beg]\ncode=x\n");
  loaded.Store.DeleteTemplate("beg");
  loaded.Store.SetTemplateContent("beg", "y");
  EXPECT_EQ(loaded.Bytes(), "[beg]\ncode=y\n");
}

TEST(QVTemplateStore, TakesTheFirstOfSeveralSectionsOfOneName) {
  TLoadedStore loaded("[beg]\ncode=first\n[beg]\ncode=second\n");
  EXPECT_EQ(loaded.Store.Names(), TNames{"beg"});
  EXPECT_EQ(loaded.Store.GetTemplateText("beg"), "first");
  loaded.Store.SetTemplateContent("beg", "new");
  EXPECT_EQ(loaded.Bytes(), "[beg]\ncode=new\n[beg]\ncode=second\n");
}

TEST(QVTemplateStore, KeepsADamagedFileAroundAWrite) {
  TLoadedStore loaded("; mine\r\n[beg]\r\ncode=x\r\n[dam\xFF aged\r\n\x01\r\n[end]\rcode=y");
  EXPECT_EQ(loaded.Store.Names(), (TNames{"beg", "end"}));
  loaded.Store.SetTemplateContent("beg", "new");
  EXPECT_EQ(loaded.Bytes(), "; mine\r\n[beg]\r\ncode=new\r\n[dam\xFF aged\r\n\x01\r\n[end]\rcode=y");
}

TEST(QVTemplateStore, HoldsNamesThatAreNoIdentifiers) {
  TLoadedStore loaded;
  for (const char* name : {"a=b", "two words", "\u00fcber", "[", ";x", "C:\\x"}) {
    EXPECT_EQ(TemplateNameError(name), std::nullopt) << name;
    loaded.Store.AddTemplate(name);
    loaded.Store.SetTemplateContent(name, "text");
    EXPECT_TRUE(loaded.Store.IsTemplateName(name)) << name;
    EXPECT_EQ(loaded.Store.GetTemplateText(name), "text") << name;
  }
}

TEST(QVTemplateStore, RefusesNamesThatTheFileCannotHold) {
  EXPECT_EQ(TemplateNameError(""), "The name of a template cannot be blank.");
  EXPECT_EQ(TemplateNameError("a\nb"), "The name of a template cannot have a line break.");
  EXPECT_EQ(TemplateNameError("a\rb"), "The name of a template cannot have a line break.");
  EXPECT_EQ(TemplateNameError("a]"), "The name of a template cannot have a \"]\".");
}

TEST(QVTemplateStore, TrimsNames) {
  EXPECT_EQ(TrimmedTemplateName(" \tmy name\r\n"), "my name");
  EXPECT_EQ(TrimmedTemplateName("beg"), "beg");
  EXPECT_EQ(TrimmedTemplateName(" \r\n\t"), "");
  EXPECT_EQ(TrimmedTemplateName(""), "");
}

TEST(QVTemplateStore, HoldsATextOfAHundredThousandCharacters) {
  std::string text;
  while (text.size() < 100'000)
    text += "begin |\r\n";
  TLoadedStore loaded;
  loaded.Store.SetTemplateContent("long", text);
  EXPECT_EQ(TemplateMemoText(loaded.Store.GetTemplateContent("long")), text);
  EXPECT_EQ(std::ranges::count(loaded.Bytes(), '\n'), 2);
}

TEST(QVTemplateStore, HoldsTenThousandTemplates) {
  std::string bytes;
  for (int number = 0; number < 10'000; ++number)
    bytes += "[T" + std::to_string(number) + "]\ncode=text " + std::to_string(number) + "\n";
  const TLoadedStore loaded(bytes);
  ASSERT_EQ(loaded.Store.Names().size(), 10'000U);
  for (int number = 0; number < 10'000; ++number) {
    const std::string name = "t" + std::to_string(number);
    ASSERT_TRUE(loaded.Store.IsTemplateName(name));
    ASSERT_EQ(loaded.Store.GetTemplateText(name), "text " + std::to_string(number));
  }
}

TEST(QVTemplateFileName, IsInTheProgramDirectoryUnlessADirectoryIsSet) {
  EXPECT_EQ(TemplateFileName(std::nullopt, "/home/me/virelle/"), "/home/me/virelle/templates.ini");
  EXPECT_EQ(TemplateFileName("", "/home/me/virelle/"), "/home/me/virelle/templates.ini");
}

TEST(QVTemplateFileName, JoinsTheDirectoryAsItStands) {
  EXPECT_EQ(TemplateFileName("/home/me/t/", "/p/"), "/home/me/t/templates.ini");
  EXPECT_EQ(TemplateFileName("/home/me/t", "/p/"), "/home/me/ttemplates.ini");
}

TEST(QVTemplateFileName, CountsFromTheProgramDirectoryIfItIsNotAbsolute) {
  EXPECT_EQ(TemplateFileName("sub/", "/p/"), "/p/sub/templates.ini");
  EXPECT_EQ(TemplateFileName("../sub/", "/p/"), "/p/../sub/templates.ini");
  EXPECT_EQ(TemplateFileName("my", "/p/"), "/p/mytemplates.ini");
}

TEST(QVTemplateFileName, TakesABackslashForACharacterOfTheName) {
  EXPECT_EQ(TemplateFileName("C:\\Templates", "/p/"), "/p/C:\\Templatestemplates.ini");
  EXPECT_EQ(TemplateFileName("C:\\Templates\\", "/p/"), "/p/C:\\Templates\\templates.ini");
}

} // namespace
} // namespace quorvane
