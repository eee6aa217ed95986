// SPDX-License-Identifier: MIT
#include "analysis/QVPasInfo.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>
#include <stdexcept>
#include <thread>
#include <type_traits>
#include <vector>

#include "Outlines.h"

namespace quorvane {
namespace {

using support::Listed;

TEST(PasInfo, IsEmptyAtFirst) {
  const TQVPasInfo info;
  EXPECT_EQ(info.GetCurrentClass(), "");
  EXPECT_EQ(info.GetCurrentProc(), "");
  EXPECT_TRUE(info.GetMethods().empty());
  EXPECT_TRUE(info.GetClasses().empty());
  EXPECT_TRUE(info.GetInterfaceUses().empty());
  EXPECT_TRUE(info.GetImplementationUses().empty());
  EXPECT_EQ(info.GetElementCount(), 0);
  EXPECT_EQ(info.GetHash(), 0);
}

TEST(PasInfo, HasNoLineUntilItIsSet) {
  const TQVPasInfo info;
  EXPECT_EQ(info.GetInterfaceLine(), -1);
  EXPECT_EQ(info.GetImplementationLine(), -1);
  EXPECT_EQ(info.GetInterfaceUsesLine(), -1);
  EXPECT_EQ(info.GetImplementationUsesLine(), -1);
}

TEST(PasInfo, KeepsEachLineApart) {
  TQVPasInfo info;
  info.SetInterfaceLine(1);
  info.SetImplementationLine(2);
  info.SetInterfaceUsesLine(3);
  info.SetImplementationUsesLine(4);
  EXPECT_EQ(info.GetInterfaceLine(), 1);
  EXPECT_EQ(info.GetImplementationLine(), 2);
  EXPECT_EQ(info.GetInterfaceUsesLine(), 3);
  EXPECT_EQ(info.GetImplementationUsesLine(), 4);
}

TEST(PasInfo, KeepsTheRoutineAtTheCaret) {
  TQVPasInfo info;
  info.SetCurrentClass("TFoo.TBar");
  info.SetCurrentProc("Outer.Inner");
  EXPECT_EQ(info.GetCurrentClass(), "TFoo.TBar");
  EXPECT_EQ(info.GetCurrentProc(), "Outer.Inner");
}

TEST(PasInfo, KeepsTypesAndRoutinesApart) {
  TQVPasInfo info;
  info.AddClass("TFoo", 1);
  info.AddMethod("TFoo.Bar", 2);
  EXPECT_EQ(Listed(info.GetClasses()), "TFoo@1");
  EXPECT_EQ(Listed(info.GetMethods()), "TFoo.Bar@2");
}

TEST(PasInfo, KeepsUsedUnitsInTheirOrder) {
  TQVPasInfo info;
  for (const char* name : {"Windows", "Classes", "windows", "Classes"})
    info.AddInterfaceUses(name);
  info.AddImplementationUses("SysUtils");
  EXPECT_EQ(Listed(info.GetInterfaceUses()), "Windows Classes windows Classes");
  EXPECT_EQ(Listed(info.GetImplementationUses()), "SysUtils");
}

TEST(PasInfo, HandsOutTheListsThemselves) {
  TQVPasInfo info;
  const TQVNameList& classes = info.GetClasses();
  const std::vector<std::string>& uses = info.GetInterfaceUses();
  info.AddClass("TFoo", 1);
  info.AddInterfaceUses("Classes");
  EXPECT_EQ(Listed(classes), "TFoo@1");
  EXPECT_EQ(Listed(uses), "Classes");
}

TEST(NameList, IsSortedWithoutCase) {
  TQVPasInfo info;
  std::int32_t line = 0;
  for (const char* name : {"beta", "Gamma", "ALPHA", "Delta", "alphabet"})
    info.AddMethod(name, line++);
  EXPECT_EQ(Listed(info.GetMethods()), "ALPHA@2 alphabet@4 beta@0 Delta@3 Gamma@1");
}

TEST(NameList, KeepsTheFirstOfNamesThatDifferInCaseAlone) {
  TQVPasInfo info;
  info.AddClass("TFoo", 3);
  info.AddClass("tfoo", 5);
  info.AddClass("TFOO", 1);
  info.AddMethod("Paint", 7);
  info.AddMethod("Paint", 9);
  EXPECT_EQ(Listed(info.GetClasses()), "TFoo@3");
  EXPECT_EQ(Listed(info.GetMethods()), "Paint@7");
}

// The underscore stands between the capital and the small letters.
TEST(NameList, SortsTheUnderscoreBeforeLettersOfEitherCase) {
  TQVPasInfo info;
  for (const char* name : {"A_B", "AAB", "aab2", "AZB", "a_", "A1"})
    info.AddMethod(name, 0);
  EXPECT_EQ(Listed(info.GetMethods()), "A1@0 a_@0 A_B@0 AAB@0 aab2@0 AZB@0");
}

TEST(NameList, SortsAPointBeforeDigitsAndLetters) {
  TQVPasInfo info;
  for (const char* name : {"TFoo1.Bar", "TFooBar", "TFoo.Zap", "TFoo"})
    info.AddMethod(name, 0);
  EXPECT_EQ(Listed(info.GetMethods()), "TFoo@0 TFoo.Zap@0 TFoo1.Bar@0 TFooBar@0");
}

TEST(NameList, SortsOtherBytesBehindAsciiByTheirCode) {
  TQVPasInfo info;
  for (const char* name : {"\xE4", "\x80", "z", "\xFF", "\xC4"})
    info.AddMethod(name, 0);
  EXPECT_EQ(Listed(info.GetMethods()), "z@0 \x80@0 \xC4@0 \xE4@0 \xFF@0");
}

TEST(NameList, FoldsAsciiLettersOnly) {
  TQVPasInfo info;
  for (const char* name : {"\xE4", "\xC4", "{", "Z", "a", "A", "[", "@"})
    info.AddMethod(name, 0);
  EXPECT_EQ(Listed(info.GetMethods()), "@@0 [@0 a@0 Z@0 {@0 \xC4@0 \xE4@0");
}

TEST(NameList, FindsANameInAnyCase) {
  TQVNameList names;
  names.Add("TFoo.Bar", 1);
  names.Add("alpha", 2);
  EXPECT_TRUE(names.contains("tfoo.BAR"));
  EXPECT_FALSE(names.contains("TFoo"));
  EXPECT_FALSE(names.contains("TFoo.Barn"));
}

TEST(NameList, TakesNamesBetweenReadings) {
  TQVNameList names;
  names.Add("b", 1);
  EXPECT_EQ(Listed(names), "b@1");
  names.Add("A", 2);
  names.Add("B", 3);
  names.Add("a", 4);
  EXPECT_EQ(Listed(names), "A@2 b@1");
  EXPECT_EQ(names.size(), 2U);
}

TEST(PasInfo, HandsOutElementsAsTheyWereAdded) {
  TQVPasInfo info;
  info.AddElement(1, 2, 30, 5, qvBlockStart);
  info.AddElement(6, 7, 80, 9, qvRoundEnd);
  ASSERT_EQ(info.GetElementCount(), 2);
  const std::shared_ptr<IQVDrawElement> element = info.GetElement(1);
  EXPECT_EQ(element->GetLine(), 6);
  EXPECT_EQ(element->GetCol(), 7);
  EXPECT_EQ(element->GetLinearPos(), 80);
  EXPECT_EQ(element->GetLength(), 9);
  EXPECT_EQ(element->GetElementType(), qvRoundEnd);
  EXPECT_EQ(info.GetElement(0)->GetElementType(), qvBlockStart);
}

TEST(PasInfo, HasNoElementOutOfRange) {
  TQVPasInfo info;
  info.AddElement(1, 2, 3, 4, qvBlockMiddle);
  EXPECT_THROW(info.GetElement(1), std::out_of_range);
  EXPECT_THROW(info.GetElement(-1), std::out_of_range);
}

TEST(PasInfo, LeavesElementsToWhoHoldsThem) {
  auto info = std::make_unique<TQVPasInfo>();
  info->AddElement(1, 2, 3, 4, qvBlockEnd);
  const std::shared_ptr<IQVDrawElement> element = info->GetElement(0);
  info.reset();
  EXPECT_EQ(element.use_count(), 1);
  EXPECT_EQ(element->GetLine(), 1);
}

TEST(PasInfo, FreesItsElements) {
  auto info = std::make_unique<TQVPasInfo>();
  info->AddElement(1, 2, 3, 4, qvRoundStart);
  const std::weak_ptr<IQVDrawElement> element = info->GetElement(0);
  info.reset();
  EXPECT_TRUE(element.expired());
}

TEST(ElementTypes, CountInTheirOrder) {
  EXPECT_EQ(qvBlockStart, 0);
  EXPECT_EQ(qvBlockMiddle, 1);
  EXPECT_EQ(qvBlockEnd, 2);
  EXPECT_EQ(qvRoundStart, 3);
  EXPECT_EQ(qvRoundEnd, 4);
}

TEST(PasInfoHash, SumsTheFourNumbersOfEveryElement) {
  TQVPasInfo info;
  info.AddElement(1, 20, 300, 4000, qvRoundEnd);
  EXPECT_EQ(info.GetHash(), 4321);
  info.AddElement(-1, 0, 0, 1, qvBlockStart);
  EXPECT_EQ(info.GetHash(), 4321);
  info.AddElement(0, 0, 0, 79, qvBlockStart);
  EXPECT_EQ(info.GetHash(), 4400);
}

TEST(PasInfoHash, WrapsAroundAt32Bits) {
  constexpr std::int32_t Max = std::numeric_limits<std::int32_t>::max();
  TQVPasInfo info;
  info.AddElement(Max, 1, 0, 0, qvBlockStart);
  EXPECT_EQ(info.GetHash(), std::numeric_limits<std::int32_t>::min());
  info.AddElement(Max, Max, Max, Max, qvBlockStart);
  EXPECT_EQ(info.GetHash(), Max - 3);
}

TEST(PasInfoHash, LeavesTypesAndNamesOut) {
  TQVPasInfo info;
  info.AddElement(0, 0, 0, 0, qvRoundEnd);
  info.AddClass("TFoo", 3);
  info.AddMethod("Bar", 4);
  info.AddInterfaceUses("Classes");
  info.SetInterfaceLine(5);
  EXPECT_EQ(info.GetHash(), 0);
}

TEST(IsSameInfo, ComparesHashes) {
  TQVPasInfo one;
  TQVPasInfo other;
  EXPECT_TRUE(one.IsSameInfo(&other));
  one.AddElement(1, 2, 3, 4, qvBlockStart);
  EXPECT_FALSE(one.IsSameInfo(&other));
  EXPECT_FALSE(other.IsSameInfo(&one));
  other.AddElement(4, 3, 2, 1, qvRoundEnd);
  EXPECT_TRUE(one.IsSameInfo(&other));
}

TEST(IsSameInfo, IsFalseForNone) {
  const TQVPasInfo info;
  EXPECT_FALSE(info.IsSameInfo(nullptr));
}

// Means nothing without the thread sanitizer but that all references are counted.
TEST(PasInfo, IsSharedBetweenThreads) {
  auto info = std::make_shared<TQVPasInfo>();
  info->AddMethod("Foo", 1);
  info->AddElement(1, 2, 3, 4, qvBlockStart);
  info->GetMethods().Settle();
  std::shared_ptr<const IQVPasInfo> shared = info;
  info.reset();
  std::array<bool, 4> wereRight{};
  {
    std::vector<std::jthread> readers;
    readers.reserve(wereRight.size());
    for (bool& wasRight : wereRight) {
      readers.emplace_back([shared, &wasRight] {
        wasRight = true;
        for (int round = 0; round < 1000; ++round) {
          std::shared_ptr<const IQVPasInfo> mine = shared;
          const std::shared_ptr<IQVDrawElement> element = mine->GetElement(0);
          wasRight = wasRight && element->GetLength() == 4 && mine->GetMethods().contains("foo");
          mine.reset();
        }
      });
    }
  }
  EXPECT_EQ(wereRight, (std::array{true, true, true, true}));
  EXPECT_EQ(shared.use_count(), 1);
  EXPECT_EQ(shared->GetElement(0).use_count(), 2);
}

} // namespace
} // namespace quorvane
