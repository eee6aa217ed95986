// SPDX-License-Identifier: MIT
// Opening a used unit from the menu: its file is looked for on a real disk.
#include "support/TreeOfFiles.h"
#include "ToolbarFixture.h"

namespace quorvane {
namespace {

using support::TreeOfFiles;

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
