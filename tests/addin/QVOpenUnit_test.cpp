// SPDX-License-Identifier: MIT
// Opening a used unit: its file is looked for on a real disk.
#include "toolbar/QVUnitFinder.h"
#include "ToolbarFixture.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace quorvane {
namespace {

using platform::TOTASearchFolder;

// A tree of files in a folder that goes with the test.
class TreeOfFiles {
public:
  QString Path(const char* name = "") const {
    return QDir::cleanPath(QDir(QDir(folder_.path()).canonicalPath()).filePath(QString::fromUtf8(name)));
  }
  QString Folder(const char* name) const {
    EXPECT_TRUE(QDir().mkpath(Path(name)));
    return Path(name);
  }
  QString File(const char* name) const {
    EXPECT_TRUE(QDir().mkpath(QFileInfo(Path(name)).absolutePath()));
    QFile file(Path(name));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    return Path(name);
  }

private:
  QTemporaryDir folder_;
};

class QVUnitFinder : public testing::Test {
protected:
  QString Find(const char* unitName, const std::vector<TOTASearchFolder>& path = {}) {
    return Finder.Find(QString::fromUtf8(unitName), Tree.Path("project/main.pas"), path).FileName;
  }

  TreeOfFiles Tree;
  TQVUnitFinder Finder;
};

TEST_F(QVUnitFinder, LooksBesideTheCurrentFileFirst) {
  const QString beside = Tree.File("project/tools.pas");
  Tree.File("lib/tools.pas");
  EXPECT_EQ(Find("Tools", {{Tree.Path("lib"), false}}), beside);
}

TEST_F(QVUnitFinder, LooksAlongThePathInItsOrder) {
  Tree.File("a/other.pas");
  const QString first = Tree.File("b/tools.pas");
  Tree.File("c/tools.pas");
  EXPECT_EQ(Find("tools", {{Tree.Path("a"), false}, {Tree.Path("b"), false}, {Tree.Path("c"), false}}), first);
}

TEST_F(QVUnitFinder, PrefersPasToPpAndPpToDpr) {
  const QString program = Tree.File("project/tools.dpr");
  EXPECT_EQ(Find("tools"), program);
  const QString pp = Tree.File("project/tools.pp");
  EXPECT_EQ(Find("tools"), pp);
  const QString pas = Tree.File("project/tools.pas");
  EXPECT_EQ(Find("tools"), pas);
}

TEST_F(QVUnitFinder, PrefersANearerFolderToABetterExtension) {
  const QString near = Tree.File("project/tools.dpr");
  Tree.File("lib/tools.pas");
  EXPECT_EQ(Find("tools", {{Tree.Path("lib"), false}}), near);
}

TEST_F(QVUnitFinder, ComparesNamesWithoutCase) {
  const QString file = Tree.File("project/TOOLS.PAS");
  EXPECT_EQ(Find("tOOls"), file);
}

TEST_F(QVUnitFinder, PrefersTheSpellingOfTheUnit) {
  Tree.File("project/TOOLS.pas");
  const QString exact = Tree.File("project/Tools.pas");
  EXPECT_EQ(Find("Tools"), exact);
}

TEST_F(QVUnitFinder, FindsUnitsWithDotsInTheirNames) {
  const QString file = Tree.File("project/system.tools.pas");
  EXPECT_EQ(Find("System.Tools"), file);
}

TEST_F(QVUnitFinder, DoesNotTakeAPartOfANameForIt) {
  Tree.File("project/tools2.pas");
  Tree.File("project/mytools.pas");
  Tree.File("project/tools.pas.bak");
  Tree.Folder("project/tools.pas");
  EXPECT_EQ(Find("tools"), QString());
}

TEST_F(QVUnitFinder, LooksIntoSubfoldersOnlyWhereThePathSaysSo) {
  const QString file = Tree.File("lib/deep/er/tools.pas");
  EXPECT_EQ(Find("tools", {{Tree.Path("lib"), false}}), QString());
  EXPECT_EQ(Find("tools", {{Tree.Path("lib"), true}}), file);
}

TEST_F(QVUnitFinder, PrefersWhatIsNearToTheRootOfATree) {
  Tree.File("lib/a/b/tools.pas");
  const QString near = Tree.File("lib/z/tools.pas");
  EXPECT_EQ(Find("tools", {{Tree.Path("lib"), true}}), near);
}

TEST_F(QVUnitFinder, EntersNoHiddenFolders) {
  Tree.File("lib/.git/tools.pas");
  EXPECT_EQ(Find("tools", {{Tree.Path("lib"), true}}), QString());
}

TEST_F(QVUnitFinder, FollowsNoLinksToFolders) {
  Tree.File("elsewhere/tools.pas");
  Tree.Folder("lib/sub");
  ASSERT_TRUE(QFile::link(Tree.Path("elsewhere"), Tree.Path("lib/link")));
  ASSERT_TRUE(QFile::link(Tree.Path("lib"), Tree.Path("lib/sub/circle")));
  EXPECT_EQ(Find("tools", {{Tree.Path("lib"), true}}), QString());
}

TEST_F(QVUnitFinder, FollowsALinkThatIsItselfAFolderOfThePath) {
  Tree.File("elsewhere/tools.pas");
  ASSERT_TRUE(QFile::link(Tree.Path("elsewhere"), Tree.Path("lib")));
  EXPECT_EQ(Find("tools", {{Tree.Path("lib"), true}}), Tree.Path("lib/tools.pas"));
}

TEST_F(QVUnitFinder, FindsAUnitThatCameIntoATreeThatWasSearched) {
  Tree.File("lib/sub/other.pas");
  const std::vector<TOTASearchFolder> path{{Tree.Path("lib"), true}};
  EXPECT_EQ(Find("tools", path), QString());
  const QString file = Tree.File("lib/sub/tools.pas");
  EXPECT_EQ(Find("tools", path), file);
}

TEST_F(QVUnitFinder, FindsWhereAUnitWentThatWasFoundBefore) {
  const QString file = Tree.File("lib/sub/tools.pas");
  const std::vector<TOTASearchFolder> path{{Tree.Path("lib"), true}};
  EXPECT_EQ(Find("tools", path), file);
  ASSERT_TRUE(QFile::remove(file));
  const QString moved = Tree.File("lib/sub2/tools.pas");
  EXPECT_EQ(Find("tools", path), moved);
}

TEST_F(QVUnitFinder, FindsABetterFileThatCameBesideOneThatWasFoundBefore) {
  const QString pp = Tree.File("lib/sub/tools.pp");
  const std::vector<TOTASearchFolder> path{{Tree.Path("lib"), true}};
  EXPECT_EQ(Find("tools", path), pp);
  const QString pas = Tree.File("lib/sub/tools.pas");
  EXPECT_EQ(Find("tools", path), pas);
}

TEST_F(QVUnitFinder, FindsANearerFileThatCameAfterOneThatWasFoundBefore) {
  const QString far = Tree.File("lib/b/sub/tools.pas");
  const std::vector<TOTASearchFolder> path{{Tree.Path("lib"), true}};
  EXPECT_EQ(Find("tools", path), far);
  const QString near = Tree.File("lib/a/tools.pas");
  EXPECT_EQ(Find("tools", path), near);
}

TEST_F(QVUnitFinder, FindsAFileThatIsALink) {
  const QString file = Tree.File("elsewhere/original.pas");
  Tree.Folder("lib/sub");
  ASSERT_TRUE(QFile::link(file, Tree.Path("lib/sub/tools.pas")));
  EXPECT_EQ(Find("tools", {{Tree.Path("lib"), true}}), Tree.Path("lib/sub/tools.pas"));
}

TEST_F(QVUnitFinder, ReadsATreeUpToItsLimitNearestFirst) {
  Finder = TQVUnitFinder(3);
  const QString near = Tree.File("lib/b/near.pas");
  Tree.File("lib/a/x/far.pas");
  const std::vector<TOTASearchFolder> path{{Tree.Path("lib"), true}};
  EXPECT_EQ(Find("near", path), near);
  EXPECT_EQ(Find("far", path), QString());
}

TEST_F(QVUnitFinder, NamesTheFoldersItSearchedEachOnce) {
  Tree.Folder("project");
  const auto result =
      Finder.Find(QStringLiteral("tools"), Tree.Path("project/main.pas"),
                  {{Tree.Path("missing"), false}, {Tree.Path("project"), false}, {Tree.Path("lib") + u'/', true}});
  EXPECT_EQ(result.FileName, QString());
  EXPECT_EQ(result.Folders, (QStringList{Tree.Path("project"), Tree.Path("missing"), Tree.Path("lib")}));
}

TEST_F(QVUnitFinder, SearchesTheTreeOfAFolderThatWasSearchedAlone) {
  Tree.Folder("project");
  const QString file = Tree.File("project/sub/tools.pas");
  EXPECT_EQ(Find("tools", {{Tree.Path("project"), false}, {Tree.Path("project"), true}}), file);
}

TEST_F(QVUnitFinder, LooksAlongThePathAloneForAFileWithoutAFolder) {
  const auto result = Finder.Find(QStringLiteral("tools"), QStringLiteral("unit1.pas"), {{Tree.Path("lib"), false}});
  EXPECT_EQ(result.Folders, QStringList{Tree.Path("lib")});
}

// From the menu.

class OpenUnit : public ToolbarTest {
protected:
  OpenUnit() {
    Buffer->FileName = Tree.Path("project/main.pas");
    Tree.Folder("project");
    Toolbar->BuildUnitsMenu({"Tools"}, {});
  }
  void Choose() { UnitsMenu().actions().constFirst()->trigger(); }

  TreeOfFiles Tree;
};

TEST_F(OpenUnit, OpensTheFileThatWasFound) {
  const QString file = Tree.File("lib/sub/tools.pas");
  Services->SearchPath = {{Tree.Path("lib"), true}};
  Choose();
  EXPECT_EQ(Services->OpenedFiles, QStringList{file});
  EXPECT_TRUE(Services->Messages.isEmpty());
}

TEST_F(OpenUnit, ReadsThroughTheAccessKeysOfADesktop) {
  const QString file = Tree.File("project/tools.pas");
  UnitsMenu().actions().constFirst()->setText(QStringLiteral("T&ools"));
  Choose();
  EXPECT_EQ(Services->OpenedFiles, QStringList{file});
}

TEST_F(OpenUnit, NamesUnitAndFoldersWhenItIsNotFoundAndChangesNothingElse) {
  Services->SearchPath = {{Tree.Path("lib"), true}};
  Choose();
  EXPECT_TRUE(Services->OpenedFiles.isEmpty());
  EXPECT_EQ(Services->Messages, QStringList{QStringLiteral("Unit Tools was not found. Folders searched: ") +
                                            Tree.Path("project") + QStringLiteral(", ") + Tree.Path("lib")});
  EXPECT_EQ(View->Cursor, (platform::TOTAEditPos{1, 1}));
  EXPECT_EQ(View->Paints, 0);
}

TEST_F(OpenUnit, SaysSoWhenThereIsNoFolderToSearch) {
  Services->TopView = nullptr;
  Choose();
  EXPECT_EQ(Services->Messages, QStringList{QStringLiteral("Unit Tools was not found: there is no folder to search.")});
}

TEST_F(OpenUnit, LeavesItToTheHostToSayWhyAFileCannotBeOpened) {
  Tree.File("project/tools.pas");
  Services->CanOpen = false;
  Choose();
  EXPECT_EQ(Services->OpenedFiles.size(), 1);
  EXPECT_TRUE(Services->Messages.isEmpty());
}

TEST_F(OpenUnit, DoesNoHarmInAHostWithoutServices) {
  Tree.File("project/tools.pas");
  platform::SetBorlandIDEServices(nullptr);
  EXPECT_NO_THROW(Choose());
  EXPECT_EQ(TakeReported(), Lines{});
}

TEST_F(OpenUnit, ItemsMayBeReplacedWhileOneOfThemIsAtWork) {
  QAction* const item = UnitsMenu().actions().constFirst();
  QObject::connect(item, &QAction::triggered, Toolbar, [this] { Toolbar->BuildUnitsMenu({"Other"}, {}); });
  Choose();
  EXPECT_EQ(Captions(UnitsMenu()), QStringList{QStringLiteral("Other")});
}

} // namespace
} // namespace quorvane
