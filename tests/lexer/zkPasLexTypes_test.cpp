// SPDX-License-Identifier: MIT
#include "lexer/zkPasLexTypes.h"

#include <gtest/gtest.h>

#include <cctype>
#include <set>
#include <string>
#include <vector>

namespace quorvane {
namespace {

std::vector<TptTokenKind> AllKinds() {
  std::vector<TptTokenKind> kinds;
  kinds.reserve(TokenKindCount);
  for (int ordinal = 0; ordinal < TokenKindCount; ++ordinal)
    kinds.push_back(static_cast<TptTokenKind>(ordinal));
  return kinds;
}

std::vector<TptTokenKind> Members(const TTokenKindSet& set) {
  std::vector<TptTokenKind> members;
  for (const TptTokenKind kind : AllKinds())
    if (set.Contains(kind))
      members.push_back(kind);
  return members;
}

int CountOf(TTokenGroup group) {
  int count = 0;
  for (const TptTokenKind kind : AllKinds())
    count += TokenGroup(kind) == group ? 1 : 0;
  return count;
}

using TKinds = std::vector<TptTokenKind>;

TEST(TokenKinds, Are191KindsInOneByte) {
  EXPECT_EQ(TokenKindCount, 191);
  EXPECT_EQ(sizeof(TptTokenKind), 1U);
}

TEST(TokenKinds, KeepTheirOrdinals) {
  const std::vector<std::pair<TptTokenKind, int>> ordinals = {
      {ptAbsolute, 0},      {ptAnd, 4},       {ptAsm, 10},          {ptByte, 20},       {ptColon, 30},
      {ptDefault, 40},      {ptDownto, 50},   {ptExport, 60},       {ptForward, 70},    {ptImplementation, 80},
      {ptIntegerConst, 90}, {ptMessage, 100}, {ptNull, 110},        {ptPacked, 120},    {ptProtected, 130},
      {ptReintroduce, 140}, {ptSet, 150},     {ptSquareClose, 160}, {ptThreadvar, 170}, {ptVariant, 180},
      {ptXor, 190}};
  for (const auto& [kind, ordinal] : ordinals)
    EXPECT_EQ(static_cast<int>(kind), ordinal) << ptTokenName(kind);
}

TEST(TokenKinds, StandInAlphabeticalOrderRegardlessOfCase) {
  const auto lower = [](TptTokenKind kind) {
    std::string name(TokenName(kind));
    for (char& c : name)
      c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return name;
  };
  for (int ordinal = 1; ordinal < TokenKindCount; ++ordinal) {
    const std::string before = lower(static_cast<TptTokenKind>(ordinal - 1));
    const std::string name = lower(static_cast<TptTokenKind>(ordinal));
    EXPECT_LT(before, name);
  }
}

TEST(TokenKinds, EachHasANameOfItsOwn) {
  std::set<std::string_view> names;
  for (const TptTokenKind kind : AllKinds())
    names.insert(ptTokenName(kind));
  EXPECT_EQ(names.size(), 191U);
}

TEST(TokenName, IsTheFullNameWithoutItsPrefixForEveryKind) {
  for (const TptTokenKind kind : AllKinds()) {
    EXPECT_EQ(ptTokenName(kind).substr(0, 2), "pt");
    EXPECT_EQ(TokenName(kind), ptTokenName(kind).substr(2));
  }
}

TEST(TokenName, NamesBegin) {
  EXPECT_EQ(TokenName(ptBegin), "Begin");
  EXPECT_EQ(ptTokenName(ptBegin), "ptBegin");
}

TEST(TokenGroups, HoldTheirShareOfTheKinds) {
  EXPECT_EQ(CountOf(TTokenGroup::Reserved), 64);
  EXPECT_EQ(CountOf(TTokenGroup::Word), 72);
  EXPECT_EQ(CountOf(TTokenGroup::Symbol), 27);
  EXPECT_EQ(CountOf(TTokenGroup::Literal), 5);
  EXPECT_EQ(CountOf(TTokenGroup::Junk), 6);
  EXPECT_EQ(CountOf(TTokenGroup::Directive), 10);
  EXPECT_EQ(CountOf(TTokenGroup::Special), 7);
}

TEST(IsTokenIDJunk, HoldsForCommentsBlanksAndLineBreaksOnly) {
  EXPECT_EQ(Members(JunkTokens), (TKinds{ptAnsiComment, ptBorComment, ptCRLF, ptCRLFCo, ptSlashesComment, ptSpace}));
  for (const TptTokenKind kind : AllKinds())
    EXPECT_EQ(IsTokenIDJunk(kind), TokenGroup(kind) == TTokenGroup::Junk) << ptTokenName(kind);
}

TEST(IsTokenIDJunk, DoesNotHoldForDirectivesAndTheEnd) {
  EXPECT_FALSE(IsTokenIDJunk(ptCompDirect));
  EXPECT_FALSE(IsTokenIDJunk(ptNull));
}

TEST(TokenKindSets, OrdinalTypesHoldPCharAndLeaveOutCardinalAndTheSizedBooleans) {
  EXPECT_EQ(Members(OrdinalTypeIdents), (TKinds{ptBoolean, ptByte, ptChar, ptDWORD, ptInt64, ptInteger, ptLongint,
                                                ptLongword, ptPChar, ptShortint, ptSmallint, ptWideChar, ptWord}));
}

TEST(TokenKindSets, RealTypesAreSeven) {
  EXPECT_EQ(Members(RealTypeIdents), (TKinds{ptComp, ptCurrency, ptDouble, ptExtended, ptReal, ptReal48, ptSingle}));
}

TEST(TokenKindSets, AsMultipliesAndRelates) {
  EXPECT_EQ(Members(MulOperators), (TKinds{ptAnd, ptAs, ptDiv, ptMod, ptShl, ptShr, ptSlash, ptStar}));
  EXPECT_EQ(Members(RelativeOperators),
            (TKinds{ptAs, ptEqual, ptGreater, ptGreaterEqual, ptIn, ptIs, ptLower, ptLowerEqual, ptNotEqual}));
}

TEST(TokenKindSets, AddOperatorsAreFour) {
  EXPECT_EQ(Members(AddOperators), (TKinds{ptMinus, ptOr, ptPlus, ptXor}));
}

TEST(TokenKindSets, CompilerDirectivesAreTheDirectiveGroup) {
  for (const TptTokenKind kind : AllKinds())
    EXPECT_EQ(CompilerDirectives.Contains(kind), TokenGroup(kind) == TTokenGroup::Directive) << ptTokenName(kind);
}

TEST(CommentStates, KeepTheirOrdinals) {
  EXPECT_EQ(csAnsi, 0);
  EXPECT_EQ(csBor, 1);
  EXPECT_EQ(csNo, 2);
  EXPECT_EQ(sizeof(TCommentState), 1U);
}

} // namespace
} // namespace quorvane
