// SPDX-License-Identifier: MIT
#include "platform/UnitFinder.h"

#include "support/PrintQt.h"
#include "support/TreeOfFiles.h"

namespace platform {
namespace {

using support::TreeOfFiles;

class UnitFinder : public testing::Test {
protected:
  QString Find(const char* unitName, const std::vector<TOTASearchFolder>& path = {}) {
    return Finder.Find(QString::fromUtf8(unitName), Tree.Path("project/main.pas"), path).FileName;
  }

  TreeOfFiles Tree;
  TUnitFinder Finder;
};

TEST_F(UnitFinder, LooksBesideTheCurrentFileFirst) {
  const QString beside = Tree.File("project/tools.pas");
  Tree.File("lib/tools.pas");
  EXPECT_EQ(Find("Tools", {{Tree.Path("lib"), false}}), beside);
}

TEST_F(UnitFinder, LooksAlongThePathInItsOrder) {
  Tree.File("a/other.pas");
  const QString first = Tree.File("b/tools.pas");
  Tree.File("c/tools.pas");
  EXPECT_EQ(Find("tools", {{Tree.Path("a"), false}, {Tree.Path("b"), false}, {Tree.Path("c"), false}}), first);
}

TEST_F(UnitFinder, PrefersPasToPpAndPpToDpr) {
  const QString program = Tree.File("project/tools.dpr");
  EXPECT_EQ(Find("tools"), program);
  const QString pp = Tree.File("project/tools.pp");
  EXPECT_EQ(Find("tools"), pp);
  const QString pas = Tree.File("project/tools.pas");
  EXPECT_EQ(Find("tools"), pas);
}

TEST_F(UnitFinder, PrefersANearerFolderToABetterExtension) {
  const QString near = Tree.File("project/tools.dpr");
  Tree.File("lib/tools.pas");
  EXPECT_EQ(Find("tools", {{Tree.Path("lib"), false}}), near);
}

TEST_F(UnitFinder, ComparesNamesWithoutCase) {
  const QString file = Tree.File("project/TOOLS.PAS");
  EXPECT_EQ(Find("tOOls"), file);
}

TEST_F(UnitFinder, PrefersTheSpellingOfTheUnit) {
  Tree.File("project/TOOLS.pas");
  const QString exact = Tree.File("project/Tools.pas");
  EXPECT_EQ(Find("Tools"), exact);
}

TEST_F(UnitFinder, FindsUnitsWithDotsInTheirNames) {
  const QString file = Tree.File("project/system.tools.pas");
  EXPECT_EQ(Find("System.Tools"), file);
}

TEST_F(UnitFinder, DoesNotTakeAPartOfANameForIt) {
  Tree.File("project/tools2.pas");
  Tree.File("project/mytools.pas");
  Tree.File("project/tools.pas.bak");
  Tree.Folder("project/tools.pas");
  EXPECT_EQ(Find("tools"), QString());
}

TEST_F(UnitFinder, LooksIntoSubfoldersOnlyWhereThePathSaysSo) {
  const QString file = Tree.File("lib/deep/er/tools.pas");
  EXPECT_EQ(Find("tools", {{Tree.Path("lib"), false}}), QString());
  EXPECT_EQ(Find("tools", {{Tree.Path("lib"), true}}), file);
}

TEST_F(UnitFinder, PrefersWhatIsNearToTheRootOfATree) {
  Tree.File("lib/a/b/tools.pas");
  const QString near = Tree.File("lib/z/tools.pas");
  EXPECT_EQ(Find("tools", {{Tree.Path("lib"), true}}), near);
}

TEST_F(UnitFinder, EntersNoHiddenFolders) {
  Tree.File("lib/.git/tools.pas");
  EXPECT_EQ(Find("tools", {{Tree.Path("lib"), true}}), QString());
}

TEST_F(UnitFinder, FollowsNoLinksToFolders) {
  Tree.File("elsewhere/tools.pas");
  Tree.Folder("lib/sub");
  ASSERT_TRUE(QFile::link(Tree.Path("elsewhere"), Tree.Path("lib/link")));
  ASSERT_TRUE(QFile::link(Tree.Path("lib"), Tree.Path("lib/sub/circle")));
  EXPECT_EQ(Find("tools", {{Tree.Path("lib"), true}}), QString());
}

TEST_F(UnitFinder, FollowsALinkThatIsItselfAFolderOfThePath) {
  Tree.File("elsewhere/tools.pas");
  ASSERT_TRUE(QFile::link(Tree.Path("elsewhere"), Tree.Path("lib")));
  EXPECT_EQ(Find("tools", {{Tree.Path("lib"), true}}), Tree.Path("lib/tools.pas"));
}

TEST_F(UnitFinder, FindsAUnitThatCameIntoATreeThatWasSearched) {
  Tree.File("lib/sub/other.pas");
  const std::vector<TOTASearchFolder> path{{Tree.Path("lib"), true}};
  EXPECT_EQ(Find("tools", path), QString());
  const QString file = Tree.File("lib/sub/tools.pas");
  EXPECT_EQ(Find("tools", path), file);
}

TEST_F(UnitFinder, FindsWhereAUnitWentThatWasFoundBefore) {
  const QString file = Tree.File("lib/sub/tools.pas");
  const std::vector<TOTASearchFolder> path{{Tree.Path("lib"), true}};
  EXPECT_EQ(Find("tools", path), file);
  ASSERT_TRUE(QFile::remove(file));
  const QString moved = Tree.File("lib/sub2/tools.pas");
  EXPECT_EQ(Find("tools", path), moved);
}

TEST_F(UnitFinder, FindsABetterFileThatCameBesideOneThatWasFoundBefore) {
  const QString pp = Tree.File("lib/sub/tools.pp");
  const std::vector<TOTASearchFolder> path{{Tree.Path("lib"), true}};
  EXPECT_EQ(Find("tools", path), pp);
  const QString pas = Tree.File("lib/sub/tools.pas");
  EXPECT_EQ(Find("tools", path), pas);
}

TEST_F(UnitFinder, FindsANearerFileThatCameAfterOneThatWasFoundBefore) {
  const QString far = Tree.File("lib/b/sub/tools.pas");
  const std::vector<TOTASearchFolder> path{{Tree.Path("lib"), true}};
  EXPECT_EQ(Find("tools", path), far);
  const QString near = Tree.File("lib/a/tools.pas");
  EXPECT_EQ(Find("tools", path), near);
}

TEST_F(UnitFinder, FindsAFileThatIsALink) {
  const QString file = Tree.File("elsewhere/original.pas");
  Tree.Folder("lib/sub");
  ASSERT_TRUE(QFile::link(file, Tree.Path("lib/sub/tools.pas")));
  EXPECT_EQ(Find("tools", {{Tree.Path("lib"), true}}), Tree.Path("lib/sub/tools.pas"));
}

TEST_F(UnitFinder, ReadsATreeUpToItsLimitNearestFirst) {
  Finder = TUnitFinder(3);
  const QString near = Tree.File("lib/b/near.pas");
  Tree.File("lib/a/x/far.pas");
  const std::vector<TOTASearchFolder> path{{Tree.Path("lib"), true}};
  EXPECT_EQ(Find("near", path), near);
  EXPECT_EQ(Find("far", path), QString());
}

TEST_F(UnitFinder, NamesTheFoldersItSearchedEachOnce) {
  Tree.Folder("project");
  const auto result =
      Finder.Find(QStringLiteral("tools"), Tree.Path("project/main.pas"),
                  {{Tree.Path("missing"), false}, {Tree.Path("project"), false}, {Tree.Path("lib") + u'/', true}});
  EXPECT_EQ(result.FileName, QString());
  EXPECT_EQ(result.Folders, (QStringList{Tree.Path("project"), Tree.Path("missing"), Tree.Path("lib")}));
}

TEST_F(UnitFinder, SearchesTheTreeOfAFolderThatWasSearchedAlone) {
  Tree.Folder("project");
  const QString file = Tree.File("project/sub/tools.pas");
  EXPECT_EQ(Find("tools", {{Tree.Path("project"), false}, {Tree.Path("project"), true}}), file);
}

TEST_F(UnitFinder, LooksAlongThePathAloneForAFileWithoutAFolder) {
  const auto result = Finder.Find(QStringLiteral("tools"), QStringLiteral("unit1.pas"), {{Tree.Path("lib"), false}});
  EXPECT_EQ(result.Folders, QStringList{Tree.Path("lib")});
}

TEST(UnitNotFound, NamesTheFoldersOrSaysThatThereIsNone) {
  EXPECT_EQ(UnitNotFoundMessage(QStringLiteral("Tools"), {QStringLiteral("/a"), QStringLiteral("/b")}),
            QStringLiteral("Unit Tools was not found. Folders searched: /a, /b"));
  EXPECT_EQ(UnitNotFoundMessage(QStringLiteral("Tools"), {}),
            QStringLiteral("Unit Tools was not found: there is no folder to search."));
}

} // namespace
} // namespace platform
