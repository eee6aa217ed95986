// SPDX-License-Identifier: MIT
#include "platform/Registry.h"

#include "platform/RegistryFixture.h"
#include "platform/UserFiles.h"
#include "support/PrintQt.h"

#include <optional>

namespace platform {
namespace {

using Registry = RegistryTest;

TEST_F(Registry, AFreshUserHasNoKeys) {
  TRegistry registry;
  EXPECT_FALSE(registry.KeyExists(Key));
  EXPECT_FALSE(registry.OpenKey(Key, false));
  EXPECT_FALSE(registry.ValueExists("LineWidth"));
  EXPECT_TRUE(Lines.empty());
}

TEST_F(Registry, LookingMakesNoFile) {
  {
    TRegistry registry;
    registry.KeyExists(Key);
    registry.OpenKey(Key, false);
    registry.CloseKey();
  }
  EXPECT_FALSE(QDir(Folder()).exists());
}

TEST_F(Registry, KeepsNumbersBooleansAndTexts) {
  TRegistry writer;
  ASSERT_TRUE(writer.OpenKey(Key, true));
  writer.WriteInteger("LineWidth", 2);
  writer.WriteInteger("None", -1);
  writer.WriteBool("On", true);
  writer.WriteBool("Off", false);
  writer.WriteString("MarkerHotKey", "Shift+Alt+0");
  writer.WriteString("Path", "C:\\\"\xC3\xA4\"\n");
  writer.CloseKey();

  TRegistry reader;
  ASSERT_TRUE(reader.OpenKey(Key, false));
  EXPECT_EQ(reader.ReadInteger("LineWidth"), 2);
  EXPECT_EQ(reader.ReadInteger("None"), -1);
  EXPECT_TRUE(reader.ReadBool("On"));
  EXPECT_FALSE(reader.ReadBool("Off"));
  EXPECT_EQ(reader.ReadString("MarkerHotKey"), "Shift+Alt+0");
  EXPECT_EQ(reader.ReadString("Path"), "C:\\\"\xC3\xA4\"\n");
}

TEST_F(Registry, WritesTheFileInTheOrderOfTheCalls) {
  {
    TRegistry registry;
    registry.OpenKey(Key, true);
    registry.WriteBool("LineNumbers", true);
    registry.WriteInteger("LineWidth", 2);
    registry.WriteInteger("ParenColor", 0xC0C0C0);
    registry.WriteInteger("LineWidth", 3);
  }
  EXPECT_EQ(FileBytes(),
            FileWith("\"LineNumbers\"=dword:00000001\n\"LineWidth\"=dword:00000003\n\"ParenColor\"=dword:00c0c0c0\n"));
}

TEST_F(Registry, ABooleanIsANumberThatIsNotZero) {
  SetFile(FileWith("\"a\"=dword:00000002\n"));
  TRegistry registry;
  registry.OpenKey(Key, false);
  EXPECT_TRUE(registry.ReadBool("a"));
}

TEST_F(Registry, DoesNotMindTheCaseOfNames) {
  WriteNumber("LineWidth", 2);
  TRegistry registry;
  EXPECT_TRUE(registry.KeyExists("SOFTWARE\\vantrel"));
  ASSERT_TRUE(registry.OpenKey("SoftWare\\VANTREL\\qvide", false));
  EXPECT_EQ(registry.ReadInteger("linewidth"), 2);
  registry.WriteInteger("LINEWIDTH", 4);
  registry.CloseKey();
  EXPECT_EQ(FileBytes(), FileWith("\"LineWidth\"=dword:00000004\n"));
}

TEST_F(Registry, OpensKeysBelowTheOpenOne) {
  SetFile(FileWith("\"a\"=dword:00000001\n"));
  TRegistry registry;
  ASSERT_TRUE(registry.OpenKey("SoftWare", false));
  EXPECT_EQ(registry.CurrentPath(), "SoftWare");
  EXPECT_FALSE(registry.OpenKey("Pelinor", false));
  EXPECT_EQ(registry.CurrentPath(), "SoftWare");
  EXPECT_TRUE(registry.KeyExists("Vantrel\\QVIDE"));
  ASSERT_TRUE(registry.OpenKey("Vantrel\\QVIDE", false));
  EXPECT_EQ(registry.ReadInteger("a"), 1);
}

TEST_F(Registry, OpensKeysFromTheRootByABackslashInFront) {
  SetFile(FileWith("[HKEY_CURRENT_USER\\Other]\n"));
  TRegistry registry;
  ASSERT_TRUE(registry.OpenKey(Key, false));
  EXPECT_FALSE(registry.KeyExists("Other"));
  ASSERT_TRUE(registry.OpenKey("\\Other", false));
  EXPECT_EQ(registry.CurrentPath(), "Other");
}

TEST_F(Registry, GoesBackToTheRootWhenTheKeyIsClosed) {
  TRegistry registry;
  ASSERT_TRUE(registry.OpenKey(Key, true));
  registry.CloseKey();
  EXPECT_EQ(registry.CurrentPath(), "");
  EXPECT_TRUE(registry.OpenKey(Key, false));
}

TEST_F(Registry, MakesAKeyWithoutValues) {
  {
    TRegistry registry;
    ASSERT_TRUE(registry.OpenKey(Key, true));
  }
  EXPECT_EQ(FileBytes(), FileWith(""));
}

TEST_F(Registry, AKeyThatIsMadeInTwoStepsIsMadeOnce) {
  {
    TRegistry registry;
    ASSERT_TRUE(registry.OpenKey("Software", true));
    ASSERT_TRUE(registry.OpenKey("Vantrel\\QVIDE", true));
    registry.WriteInteger("a", 1);
  }
  EXPECT_EQ(FileBytes(), FileWith("\"a\"=dword:00000001\n"));
}

TEST_F(Registry, KeepsWhatIsWrittenToSeveralKeysBeforeClosing) {
  TRegistry registry;
  ASSERT_TRUE(registry.OpenKey("A", true));
  registry.WriteInteger("x", 1);
  ASSERT_TRUE(registry.OpenKey("\\B", true));
  registry.WriteInteger("x", 2);
  ASSERT_TRUE(registry.OpenKey("\\A", false));
  EXPECT_EQ(registry.ReadInteger("x"), 1);
  registry.CloseKey();
  ASSERT_TRUE(registry.OpenKey("B", false));
  EXPECT_EQ(registry.ReadInteger("x"), 2);
}

TEST_F(Registry, OthersSeeWhatIsWrittenAfterTheKeyIsClosed) {
  TRegistry registry;
  registry.OpenKey(Key, true);
  registry.WriteInteger("a", 1);
  EXPECT_TRUE(registry.ValueExists("a"));
  EXPECT_EQ(ReadNumber("a"), -1);
  registry.CloseKey();
  EXPECT_EQ(ReadNumber("a"), 1);
}

TEST_F(Registry, ListsTheNamesOfValues) {
  SetFile(FileWith("\"b\"=dword:00000001\n@=\"x\"\n\"A\"=\"y\"\n"));
  TRegistry registry;
  registry.OpenKey(Key, false);
  EXPECT_EQ(registry.GetValueNames(), (std::vector<std::string>{"", "A", "b"}));
}

TEST_F(Registry, AMissingValueCannotBeRead) {
  WriteNumber("a", 1);
  TRegistry registry;
  registry.OpenKey(Key, false);
  const std::string missing = "There is no value \"b\" of the key HKEY_CURRENT_USER\\Software\\Vantrel\\QVIDE";
  EXPECT_EQ(MessageOf([&] { registry.ReadInteger("b"); }), missing);
  EXPECT_EQ(MessageOf([&] { registry.ReadBool("b"); }), missing);
  EXPECT_EQ(MessageOf([&] { registry.ReadString("b"); }), missing);
}

TEST_F(Registry, AValueCannotBeReadAsAnotherType) {
  SetFile(FileWith("\"number\"=dword:00000001\n\"text\"=\"1\"\n\"bytes\"=hex:01\n\"damaged\"=dword:\n"));
  TRegistry registry;
  registry.OpenKey(Key, false);
  const auto message = [](const std::string& name, const char* type) {
    return "The value \"" + name + "\" of the key HKEY_CURRENT_USER\\Software\\Vantrel\\QVIDE is no " + type;
  };
  EXPECT_EQ(MessageOf([&] { registry.ReadString("number"); }), message("number", "text"));
  for (const char* name : {"text", "bytes", "damaged"}) {
    EXPECT_TRUE(registry.ValueExists(name));
    EXPECT_EQ(MessageOf([&] { registry.ReadInteger(name); }), message(name, "number"));
    EXPECT_EQ(MessageOf([&] { registry.ReadBool(name); }), message(name, "number"));
  }
  EXPECT_EQ(MessageOf([&] { registry.ReadString("bytes"); }), message("bytes", "text"));
}

TEST_F(Registry, ANameWithControlCharactersCannotBeWritten) {
  TRegistry registry;
  registry.OpenKey(Key, true);
  EXPECT_THROW(registry.WriteInteger("a\nb", 1), ERegistryException);
  EXPECT_THROW(registry.OpenKey("a\nb", true), ERegistryException);
}

TEST_F(Registry, AKeyThatTheFileCouldNotHoldCannotBeMade) {
  TRegistry registry;
  EXPECT_EQ(MessageOf([&] { registry.OpenKey("a] ;b", true); }),
            "The end of a name in the registry looks like a comment: HKEY_CURRENT_USER\\a] ;b");
  EXPECT_EQ(registry.CurrentPath(), "");
  registry.CloseKey();
  EXPECT_FALSE(QDir(Folder()).exists());
}

TEST_F(Registry, MakesAKeyThatAnotherProgramHasTakenAwayMeanwhile) {
  SetFile(FileWith("\"a\"=dword:00000001\n"));
  TRegistry registry;
  ASSERT_TRUE(registry.KeyExists(Key));
  ASSERT_TRUE(registry.OpenKey(Key, true));
  registry.WriteInteger("b", 2);
  SetFile("");
  registry.CloseKey();
  EXPECT_EQ(FileBytes(), FileWith("\"b\"=dword:00000002\n"));
}

TEST_F(Registry, DoesNotReadTheFileBeforeItWrites) {
  ASSERT_TRUE(QDir().mkpath(File())); // what reading it would say is told below
  TRegistry registry;
  registry.OpenKey(Key, true);
  registry.WriteInteger("a", 1);
  EXPECT_EQ(Lines, std::vector<std::string>{});
  EXPECT_TRUE(registry.ValueExists("a"));
  EXPECT_EQ(Lines.size(), 1U);
  EXPECT_THROW(registry.CloseKey(), ERegistryException);
}

TEST_F(Registry, OpeningAKeyThatIsThereWritesNothing) {
  SetFile(FileWith("\"a\"=dword:00000001\n"));
  {
    TRegistry registry;
    ASSERT_TRUE(registry.OpenKey(Key, true));
    EXPECT_EQ(registry.ReadInteger("a"), 1);
  }
  EXPECT_EQ(Files(), QStringList{QStringLiteral("registry.reg")}) << "not even a lock";
}

TEST_F(Registry, ReadsAnExportOfAnotherMachineAndKeepsItsEncoding) {
  QDir().mkpath(Folder());
  ASSERT_TRUE(QFile::copy(QStringLiteral(VIRELLE_TEST_DATA "/registry/export.reg"), File()));
  QFile::setPermissions(File(), QFile::ReadOwner | QFile::WriteOwner);
  const std::string before = FileBytes();
  {
    TRegistry registry;
    ASSERT_TRUE(registry.OpenKey(Key, false));
    EXPECT_EQ(registry.ReadInteger("ParenColor"), 0xC0C0C0);
    EXPECT_EQ(registry.ReadString("StorageDir"), "C:\\Users\\J\xC3\xB6rg\\Templates\\");
    registry.WriteInteger("LineWidth", 5);
  }
  std::string after = FileBytes();
  ASSERT_EQ(after.size(), before.size());
  const auto [beforeChange, afterChange] = std::ranges::mismatch(before, after);
  EXPECT_EQ(*afterChange, '5');
  *afterChange = *beforeChange;
  EXPECT_EQ(after, before);
}

TEST_F(Registry, SettingsAreBelowTheHomeDirectoryOtherwise) {
  const support::EnvironmentVariable noConfigHome("XDG_CONFIG_HOME", std::nullopt);
  const support::EnvironmentVariable home("HOME", QFile::encodeName(Home.path()));
  EXPECT_EQ(ConfigFile(QStringLiteral("registry.reg")), Home.filePath(QStringLiteral(".config/virelle/registry.reg")));
}

TEST_F(Registry, WithoutAHomeDirectoryThereIsNothingToReadAndWritingFails) {
  const support::EnvironmentVariable noConfigHome("XDG_CONFIG_HOME", std::nullopt);
  const support::EnvironmentVariable noHome("HOME", std::nullopt);
  EXPECT_EQ(ConfigFile(QStringLiteral("registry.reg")), QString());
  TRegistry registry;
  EXPECT_FALSE(registry.OpenKey(Key, false));
  EXPECT_TRUE(Lines.empty());
  registry.OpenKey(Key, true);
  EXPECT_EQ(MessageOf([&] { registry.CloseKey(); }), "The registry cannot be written: there is no home directory");
}

} // namespace
} // namespace platform
