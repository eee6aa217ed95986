// SPDX-License-Identifier: MIT
#include "desktop/ui/UiFixture.h"

#include "desktop/ui/Appearance.h"
#include "desktop/ui/EnvironmentDialog.h"
#include "desktop/ui/GoToLineDialog.h"
#include "desktop/ui/PackageList.h"
#include "desktop/ui/PackagesDialog.h"
#include "desktop/ui/SearchPathDialog.h"
#include "platform/Actions.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPointer>
#include <QSet>
#include <QSpinBox>
#include <QTreeWidget>
#include <QWindow>

#include <memory>

namespace desktop {
namespace {

class WindowCommandsTest : public UiFixture {
protected:
  QMenu* menu(const QString& name) const { return qobject_cast<QMenu*>(platform::FindComponent(*frame(), name)); }
  bool enabled(const char* name) const { return action(QString::fromLatin1(name))->isEnabled(); }
  void trigger(const char* name) const { action(QString::fromLatin1(name))->trigger(); }
};

QStringList texts(const QList<QAction*>& actions) {
  QStringList found;
  for (const QAction* action : actions)
    found.append(action->isSeparator() ? QStringLiteral("-") : action->text());
  return found;
}

TEST_F(WindowCommandsTest, MenusStandInTheirUsualOrder) {
  EXPECT_EQ(
      texts(frame()->menuBar()->actions()),
      (QStringList{QStringLiteral("&File"), QStringLiteral("&Edit"), QStringLiteral("&Search"), QStringLiteral("&View"),
                   QStringLiteral("&Component"), QStringLiteral("&Tools"), QStringLiteral("&Help")}));
}

TEST_F(WindowCommandsTest, FileMenuHoldsItsCommands) {
  EXPECT_EQ(texts(menu(QStringLiteral("FileMenu"))->actions()),
            (QStringList{QStringLiteral("&New"), QStringLiteral("New Edit &Window"), QStringLiteral("&Open..."),
                         QStringLiteral("Open &Recent"), QStringLiteral("Reopen Close&d Tab"), QStringLiteral("-"),
                         QStringLiteral("&Save"), QStringLiteral("Save &As..."), QStringLiteral("Sa&ve All"),
                         QStringLiteral("Rever&t..."), QStringLiteral("-"), QStringLiteral("&Close"),
                         QStringLiteral("E&xit")}));
}

TEST_F(WindowCommandsTest, ANewWindowIsAsLargeAsTheOneThatOpensIt) {
  frame()->resize(640, 480);
  trigger("FileNewWindowCommand");
  ASSERT_EQ(workspace.windows().size(), 2);
  EXPECT_EQ(workspace.frameOf(workspace.topWindow())->size(), QSize(640, 480));
  EXPECT_EQ(frame()->size(), QSize(640, 480));
}

TEST_F(WindowCommandsTest, EditMenuHoldsItsCommands) {
  EXPECT_EQ(texts(menu(QStringLiteral("EditMenu"))->actions()),
            (QStringList{QStringLiteral("&Undo"), QStringLiteral("&Redo"), QStringLiteral("-"), QStringLiteral("Cu&t"),
                         QStringLiteral("&Copy"), QStringLiteral("&Paste"), QStringLiteral("-"),
                         QStringLiteral("Select &All"), QStringLiteral("-"), QStringLiteral("&Indent Block"),
                         QStringLiteral("U&nindent Block"), QStringLiteral("Co&mment Block"),
                         QStringLiteral("Unc&omment Block"), QStringLiteral("-"), QStringLiteral("&Duplicate Lines"),
                         QStringLiteral("Move &Lines Up"), QStringLiteral("Move Lines Do&wn")}));
}

TEST_F(WindowCommandsTest, SearchMenuHoldsItsCommands) {
  EXPECT_EQ(texts(menu(QStringLiteral("SearchMenu"))->actions()),
            (QStringList{QStringLiteral("&Find..."), QStringLiteral("Find &Next"), QStringLiteral("Find &Previous"),
                         QStringLiteral("Next &Word at Caret"), QStringLiteral("Previous W&ord at Caret"),
                         QStringLiteral("&Replace..."), QStringLiteral("-"), QStringLiteral("Find &in Files..."),
                         QStringLiteral("-"), QStringLiteral("&Go to Line Number..."),
                         QStringLiteral("Op&en Unit at Caret"), QStringLiteral("-"), QStringLiteral("&Check File"),
                         QStringLiteral("Ne&xt Result"), QStringLiteral("Previous Res&ult")}));
}

TEST_F(WindowCommandsTest, SearchMenuShowsWhatAddInsListForIt) {
  QMenu* const search = menu(QStringLiteral("SearchMenu"));
  const QStringList own = texts(search->actions());
  auto drop = std::make_unique<platform::TAction>(nullptr);
  drop->setText(QStringLiteral("Drop Marker"));
  drop->Category = QStringLiteral("Search");
  drop->SetShortCut(platform::scShift | platform::scAlt | platform::VirtualKey(Qt::Key_Insert));
  auto pick = std::make_unique<platform::TAction>(nullptr);
  pick->setText(QStringLiteral("Pick Up Marker"));
  pick->Category = QStringLiteral("Search");
  platform::TAction elsewhere(nullptr);
  QAction foreign;
  for (QAction* action : {static_cast<QAction*>(drop.get()), static_cast<QAction*>(&elsewhere), &foreign,
                          static_cast<QAction*>(pick.get())})
    window()->actionList()->Add(action);
  for (int opened = 0; opened < 2; ++opened) {
    Q_EMIT search->aboutToShow();
    EXPECT_EQ(texts(search->actions()), own + QStringList({QStringLiteral("-"), QStringLiteral("Drop Marker"),
                                                           QStringLiteral("Pick Up Marker")}));
  }
  EXPECT_EQ(search->actions()[own.size() + 1]->shortcut().toString(), QStringLiteral("Alt+Shift+Ins"));
  drop.reset();
  EXPECT_FALSE(texts(search->actions()).contains(QStringLiteral("Drop Marker")));
  window()->actionList()->Remove(pick.get());
  Q_EMIT search->aboutToShow();
  EXPECT_EQ(texts(search->actions()), own) << "as if they had never been there";
}

TEST_F(WindowCommandsTest, SearchMenuOfEachWindowShowsTheActionsOfItsOwnList) {
  TEditWindow* const other = workspace.newWindow();
  platform::TAction action(nullptr);
  action.setText(QStringLiteral("Other"));
  action.Category = QStringLiteral("Search");
  other->actionList()->Add(&action);
  QMenu* const search = menu(QStringLiteral("SearchMenu"));
  Q_EMIT search->aboutToShow();
  EXPECT_FALSE(texts(search->actions()).contains(action.text()));
  auto* const others =
      qobject_cast<QMenu*>(platform::FindComponent(*workspace.frameOf(other), QStringLiteral("SearchMenu")));
  Q_EMIT others->aboutToShow();
  EXPECT_TRUE(texts(others->actions()).contains(action.text()));
}

TEST_F(WindowCommandsTest, KeysRunWhatAddInsListAlsoWhenItIsInAMenu) {
  openText(QStringLiteral("unit.pas"), "abc");
  activate(window());
  platform::TAction action(nullptr);
  action.Category = QStringLiteral("Search");
  action.SetShortCut(platform::scShift | platform::scAlt | platform::VirtualKey(Qt::Key_Insert));
  int runs = 0;
  action.OnExecute = [&runs] { ++runs; };
  window()->actionList()->Add(&action);
  Q_EMIT menu(QStringLiteral("SearchMenu"))->aboutToShow();
  ASSERT_TRUE(support::waitUntil([this] { return editor()->hasFocus(); }));
  QKeyEvent press(QEvent::KeyPress, Qt::Key_Insert, Qt::ShiftModifier | Qt::AltModifier);
  QCoreApplication::sendEvent(frame()->windowHandle(), &press);
  support::settle();
  EXPECT_EQ(runs, 1);
  EXPECT_TRUE(editor()->insertMode());
  EXPECT_EQ(editor()->toPlainText(), QStringLiteral("abc"));
}

TEST_F(WindowCommandsTest, NoShortcutIsGivenTwice) {
  QSet<QString> seen;
  for (const QAction* each : frame()->findChildren<QAction*>()) {
    for (const QKeySequence& keys : each->shortcuts()) {
      EXPECT_FALSE(seen.contains(keys.toString())) << keys.toString().toStdString();
      seen.insert(keys.toString());
    }
  }
  EXPECT_GT(seen.size(), 15);
}

TEST_F(WindowCommandsTest, NoMnemonicIsGivenTwiceInAMenu) {
  for (const QMenu* each : frame()->findChildren<QMenu*>()) {
    QSet<QChar> seen;
    for (const QAction* item : each->actions()) {
      const qsizetype mark = item->text().indexOf(u'&');
      if (mark < 0)
        continue;
      const QChar letter = item->text().at(mark + 1).toLower();
      EXPECT_FALSE(seen.contains(letter)) << item->text().toStdString();
      seen.insert(letter);
    }
  }
}

TEST_F(WindowCommandsTest, AnAddInPutsItsItemDirectlyAboveTheGalleryItem) {
  QMenu* const tools = menu(QStringLiteral("ToolsMenu"));
  QAction* const gallery = action(QStringLiteral("ToolsGalleryItem"));
  ASSERT_NE(tools, nullptr);
  ASSERT_TRUE(tools->actions().contains(gallery));
  QAction item(QStringLiteral("Options..."));
  tools->insertAction(gallery, &item);
  EXPECT_EQ(tools->actions().indexOf(&item) + 1, tools->actions().indexOf(gallery));
}

TEST_F(WindowCommandsTest, FurtherWindowsShowTheToolsOfTheMainForm) {
  TEditWindow* const other = workspace.newWindow();
  QAction item(QStringLiteral("Options..."));
  QMenu* const tools = menu(QStringLiteral("ToolsMenu"));
  tools->insertAction(action(QStringLiteral("ToolsGalleryItem")), &item);
  auto* const mirror =
      qobject_cast<QMenu*>(platform::FindComponent(*workspace.frameOf(other), QStringLiteral("ToolsMenu")));
  ASSERT_NE(mirror, nullptr);
  Q_EMIT mirror->aboutToShow();
  EXPECT_EQ(mirror->actions(), tools->actions());
}

// One package that is always loaded.
class OnePackage : public PackageList {
public:
  QList<PackageRow> rows() const override { return {{QStringLiteral("An add-in"), QStringLiteral("/x/y.so"), true}}; }
  QString load(const QString&) override { return {}; }
  void unload(const QString&) override {}
};

TEST_F(WindowCommandsTest, ThePackagesCommandListsThePackages) {
  OnePackage packages;
  workspace.setPackages(&packages);
  const support::ModalAnswer<PackagesDialog> answer([](PackagesDialog& dialog) {
    const auto* const list = dialog.findChild<QTreeWidget*>();
    ASSERT_EQ(list->topLevelItemCount(), 1);
    EXPECT_EQ(list->topLevelItem(0)->text(0), QStringLiteral("An add-in"));
    EXPECT_EQ(list->topLevelItem(0)->text(1), QStringLiteral("/x/y.so"));
    EXPECT_EQ(list->topLevelItem(0)->checkState(0), Qt::Checked);
    support::clickButton(dialog, QStringLiteral("Close"));
  });
  trigger("ComponentPackagesCommand");
}

TEST_F(WindowCommandsTest, TheGalleryItemEditsTheSearchPath) {
  const QList<SearchFolder> before = {{path(QStringLiteral("a")), false}};
  workspace.searchPath().setFolders(before);
  {
    const support::ModalAnswer<SearchPathDialog> answer([](SearchPathDialog& dialog) {
      dialog.findChild<QTreeWidget*>()->topLevelItem(0)->setCheckState(1, Qt::Checked);
      support::clickButton(dialog, QStringLiteral("Cancel"));
    });
    trigger("ToolsGalleryItem");
  }
  EXPECT_EQ(workspace.searchPath().folders(), before);
  const support::ModalAnswer<SearchPathDialog> answer([](SearchPathDialog& dialog) {
    dialog.findChild<QTreeWidget*>()->topLevelItem(0)->setCheckState(1, Qt::Checked);
    support::clickButton(dialog, QStringLiteral("OK"));
  });
  trigger("ToolsGalleryItem");
  EXPECT_EQ(workspace.searchPath().folders(), (QList<SearchFolder>{{path(QStringLiteral("a")), true}}));
}

TEST_F(WindowCommandsTest, ASearchPathThatCannotBeKeptIsToldInTheWindow) {
  write(QStringLiteral("folder"), "a file in the way");
  workspace.searchPath().open(path(QStringLiteral("folder/search-path.json")));
  const support::ModalAnswer<SearchPathDialog> answer(
      [](SearchPathDialog& dialog) { support::clickButton(dialog, QStringLiteral("OK")); });
  trigger("ToolsGalleryItem");
  ASSERT_EQ(messages().size(), 1);
  EXPECT_TRUE(messages().constFirst().startsWith(QStringLiteral("The search path could not be kept: ")));
}

TEST_F(WindowCommandsTest, AddInsFindAndExecuteTheGoToCommandOfTheMainFormForTheTopWindow) {
  openText(QStringLiteral("a.pas"), "1\n2\n3\n");
  activate(window());
  TEditWindow* const other = workspace.newWindow();
  activate(other);
  other->editor()->textCursor().insertText(QStringLiteral("1\n2\n3\n4"));
  auto* const command = dynamic_cast<platform::TAction*>(
      platform::FindComponent(*platform::Application().MainForm(), QStringLiteral("SearchGoToCommand")));
  ASSERT_NE(command, nullptr);
  const support::ModalAnswer<GoToLineDialog> answer([](GoToLineDialog& dialog) {
    dialog.findChild<QSpinBox*>()->setValue(2);
    dialog.accept();
  });
  command->trigger();
  EXPECT_EQ(other->editor()->caretRow(), 2);
  EXPECT_EQ(editor()->caretRow(), 1);
}

TEST_F(WindowCommandsTest, TheGoToCommandOfAnEmptyMainFormServesTheWindowOnTop) {
  workspace.newFile();
  activate(window());
  TEditWindow* const other = workspace.newWindow();
  activate(other);
  other->editor()->textCursor().insertText(QStringLiteral("1\n2\n3\n4"));
  ASSERT_TRUE(frame()->close());
  ASSERT_EQ(window()->currentPage(), nullptr);
  ASSERT_TRUE(enabled("SearchGoToCommand"));
  const support::ModalAnswer<GoToLineDialog> answer([](GoToLineDialog& dialog) {
    dialog.findChild<QSpinBox*>()->setValue(3);
    dialog.accept();
  });
  trigger("SearchGoToCommand");
  EXPECT_EQ(other->editor()->caretRow(), 3);
}

class DialogInAFurtherWindow : public WindowCommandsTest {
protected:
  DialogInAFurtherWindow() {
    workspace.setPackages(&packages_);
    activate(window());
    TEditWindow* const further = workspace.newWindow();
    activate(further);
    further_ = workspace.frameOf(further);
  }

  // Runs a command of a window, and closes the further window when the command's dialog is up.
  template <class TDialog> void closeUnderDialogOf(const MainWindow* frame, const char* command) {
    QPointer<TDialog> shown;
    const support::ModalAnswer<TDialog> answer([&](TDialog& dialog) {
      shown = &dialog;
      EXPECT_TRUE(further_->close());
    });
    qobject_cast<QAction*>(platform::FindComponent(*frame, QString::fromLatin1(command)))->trigger();
    EXPECT_TRUE(further_.isNull());
    EXPECT_TRUE(shown.isNull());
  }

  QPointer<MainWindow> further_;

private:
  OnePackage packages_;
};

TEST_F(DialogInAFurtherWindow, ForALineNumberGoesWithTheWindow) {
  closeUnderDialogOf<GoToLineDialog>(further_, "SearchGoToCommand");
}

TEST_F(DialogInAFurtherWindow, OfThePackagesGoesWithTheWindow) {
  closeUnderDialogOf<PackagesDialog>(further_, "ComponentPackagesCommand");
}

TEST_F(DialogInAFurtherWindow, OfTheSettingsGoesWithTheWindow) {
  closeUnderDialogOf<EnvironmentDialog>(frame(), "ToolsEnvironmentCommand");
}

TEST_F(DialogInAFurtherWindow, OfTheSearchPathGoesWithTheWindow) {
  closeUnderDialogOf<SearchPathDialog>(frame(), "ToolsGalleryItem"); // the main form's, in the menus of all windows
}

TEST_F(WindowCommandsTest, GoesToALineNumber) {
  openText(QStringLiteral("a.pas"), "1\n2\n3\n4\n");
  const support::ModalAnswer<GoToLineDialog> answer([](GoToLineDialog& dialog) {
    auto* const line = dialog.findChild<QSpinBox*>();
    EXPECT_EQ(line->minimum(), 1);
    EXPECT_EQ(line->maximum(), 5);
    EXPECT_EQ(line->value(), 1);
    line->setValue(4);
    dialog.accept();
  });
  trigger("SearchGoToCommand");
  EXPECT_EQ(editor()->caretRow(), 4);
}

TEST_F(WindowCommandsTest, ACancelledGoToLeavesTheCaret) {
  openText(QStringLiteral("a.pas"), "1\n2\n3\n4\n");
  editor()->setCaret(3, 1);
  const support::ModalAnswer<GoToLineDialog> answer([](GoToLineDialog& dialog) {
    dialog.findChild<QSpinBox*>()->setValue(1);
    dialog.reject();
  });
  trigger("SearchGoToCommand");
  EXPECT_EQ(editor()->caretRow(), 3);
}

TEST_F(WindowCommandsTest, WithoutAPageOnlyWhatNeedsNoneIsEnabled) {
  for (const char* name : {"FileSaveCommand", "FileSaveAsCommand", "FileCloseCommand", "EditUndoCommand",
                           "EditPasteCommand", "EditSelectAllCommand", "SearchFindCommand", "SearchGoToCommand"})
    EXPECT_FALSE(enabled(name)) << name;
  for (const char* name : {"FileNewCommand", "FileNewWindowCommand", "FileOpenCommand", "FileExitCommand",
                           "ToolsGalleryItem", "HelpAboutCommand"})
    EXPECT_TRUE(enabled(name)) << name;
}

TEST_F(WindowCommandsTest, SaveIsEnabledWhileThereIsSomethingToSave) {
  openText(QStringLiteral("a.pas"), "");
  EXPECT_FALSE(enabled("FileSaveCommand"));
  type(QStringLiteral("x"));
  EXPECT_TRUE(enabled("FileSaveCommand"));
  trigger("FileSaveCommand");
  EXPECT_FALSE(enabled("FileSaveCommand"));
  EXPECT_EQ(read(QStringLiteral("a.pas")), "x");
}

TEST_F(WindowCommandsTest, UndoAndRedoFollowTheText) {
  openText(QStringLiteral("a.pas"), "");
  EXPECT_FALSE(enabled("EditUndoCommand"));
  type(QStringLiteral("x"));
  EXPECT_TRUE(enabled("EditUndoCommand"));
  EXPECT_FALSE(enabled("EditRedoCommand"));
  trigger("EditUndoCommand");
  EXPECT_FALSE(enabled("EditUndoCommand"));
  EXPECT_TRUE(enabled("EditRedoCommand"));
  trigger("EditRedoCommand");
  EXPECT_EQ(editor()->toPlainText(), QStringLiteral("x"));
}

TEST_F(WindowCommandsTest, CutAndCopyNeedASelectionAndPasteNeedsText) {
  openText(QStringLiteral("a.pas"), "one two");
  QApplication::clipboard()->clear();
  EXPECT_FALSE(enabled("EditCutCommand"));
  EXPECT_FALSE(enabled("EditPasteCommand"));
  select(0, 4);
  EXPECT_TRUE(enabled("EditCutCommand"));
  trigger("EditCutCommand");
  EXPECT_EQ(editor()->toPlainText(), QStringLiteral("two"));
  ASSERT_TRUE(support::waitUntil([this] { return enabled("EditPasteCommand"); }));
  trigger("EditPasteCommand");
  EXPECT_EQ(editor()->toPlainText(), QStringLiteral("one two"));
  trigger("EditSelectAllCommand");
  EXPECT_EQ(editor()->textCursor().selectedText(), QStringLiteral("one two"));
}

TEST_F(WindowCommandsTest, AReadOnlyTextCanBeCopiedButNotChanged) {
  openText(QStringLiteral("a.pas"), "a\xE2\x80\xA9z");
  select(0, 1);
  EXPECT_TRUE(enabled("EditCopyCommand"));
  EXPECT_FALSE(enabled("EditCutCommand"));
  EXPECT_FALSE(enabled("EditPasteCommand"));
}

TEST_F(WindowCommandsTest, WhileTheFindBarHasTheFocusTheEditMenuIsForItsText) {
  openText(QStringLiteral("a.pas"), "text");
  activate(window());
  window()->findBar()->open();
  auto* const line = window()->findBar()->findChild<QLineEdit*>(QStringLiteral("FindText"));
  ASSERT_TRUE(line->hasFocus());
  line->setText(QStringLiteral("needle"));
  trigger("EditSelectAllCommand");
  EXPECT_EQ(line->selectedText(), QStringLiteral("needle"));
  EXPECT_FALSE(editor()->textCursor().hasSelection());
}

TEST_F(WindowCommandsTest, WhileABoxOfAToolbarHasTheFocusTheEditMenuIsForItsText) {
  openText(QStringLiteral("a.pas"), "text");
  auto* const box = new QComboBox(window());
  box->setEditable(true);
  activate(window());
  box->show();
  box->setFocus();
  ASSERT_TRUE(box->hasFocus());
  box->setEditText(QStringLiteral("needle"));
  trigger("EditSelectAllCommand");
  EXPECT_EQ(box->lineEdit()->selectedText(), QStringLiteral("needle"));
  EXPECT_FALSE(editor()->textCursor().hasSelection());
  Q_EMIT menu(QStringLiteral("EditMenu"))->aboutToShow();
  trigger("EditCutCommand");
  EXPECT_EQ(box->currentText(), QString());
  EXPECT_EQ(editor()->toPlainText(), QStringLiteral("text"));
}

TEST_F(WindowCommandsTest, ABoxWithoutATextOfItsOwnLeavesTheEditMenuToTheSource) {
  openText(QStringLiteral("a.pas"), "text");
  auto* const box = new QComboBox(window());
  activate(window());
  box->show();
  box->setFocus();
  ASSERT_TRUE(box->hasFocus());
  trigger("EditSelectAllCommand");
  EXPECT_EQ(editor()->textCursor().selectedText(), QStringLiteral("text"));
}

TEST_F(WindowCommandsTest, TabsAreSteppedThroughInARound) {
  Page* const first = openText(QStringLiteral("a.pas"), "");
  EXPECT_FALSE(enabled("ViewNextTabCommand"));
  Page* const second = openText(QStringLiteral("b.pas"), "");
  EXPECT_TRUE(enabled("ViewNextTabCommand"));
  trigger("ViewNextTabCommand");
  EXPECT_EQ(window()->currentPage(), first);
  trigger("ViewPreviousTabCommand");
  EXPECT_EQ(window()->currentPage(), second);
}

TEST_F(WindowCommandsTest, ColoursAreChosenFromTheViewMenu) {
  frame()->show();
  ASSERT_EQ(workspace.appearance().colours(), Appearance::Colours::Light);
  EXPECT_TRUE(action(QStringLiteral("ViewLightCommand"))->isChecked());
  trigger("ViewDarkCommand");
  EXPECT_TRUE(workspace.appearance().isDark());
  EXPECT_EQ(editor()->colorScheme(), darkScheme());
  EXPECT_TRUE(support::waitUntil([this] { return frame()->palette().color(QPalette::Window).lightness() < 128; }));
  trigger("ViewLightCommand");
  EXPECT_EQ(editor()->colorScheme(), lightScheme());
  EXPECT_TRUE(support::waitUntil([this] { return frame()->palette().color(QPalette::Window).lightness() > 128; }));
}

TEST_F(WindowCommandsTest, MenusAndListsStandOutFromDarkText) {
  frame()->show();
  trigger("ViewDarkCommand");
  constexpr int apart = 8; // steps of lightness that an eye tells apart on a dark screen
  const int text = editor()->colorScheme().ground.lightness();
  EXPECT_GE(QApplication::palette().color(QPalette::Base).lightness(), text + apart);
}

TEST_F(WindowCommandsTest, AllWindowsShareTheColours) {
  TEditWindow* const other = workspace.newWindow();
  trigger("ViewDarkCommand");
  EXPECT_EQ(other->editor()->colorScheme(), darkScheme());
  const auto* const choice =
      qobject_cast<QAction*>(platform::FindComponent(*workspace.frameOf(other), QStringLiteral("ViewDarkCommand")));
  EXPECT_TRUE(choice->isChecked());
  EXPECT_EQ(workspace.newWindow()->editor()->colorScheme(), darkScheme());
  trigger("ViewLightCommand");
}

TEST_F(WindowCommandsTest, TextGrowsShrinksAndGoesBackToItsUsualSize) {
  const int usual = editor()->editorFontPoints();
  trigger("ViewLargerTextCommand");
  trigger("ViewLargerTextCommand");
  EXPECT_EQ(editor()->editorFontPoints(), usual + 2);
  trigger("ViewSmallerTextCommand");
  EXPECT_EQ(editor()->editorFontPoints(), usual + 1);
  trigger("ViewUsualTextCommand");
  EXPECT_EQ(editor()->editorFontPoints(), usual);
}

TEST_F(WindowCommandsTest, TextNeverGetsTooSmallToRead) {
  workspace.appearance().setFontPoints(-5);
  EXPECT_EQ(editor()->editorFontPoints(), 6);
}

TEST_F(WindowCommandsTest, TheWheelWithCtrlZoomsTheTextOfAllWindows) {
  TEditWindow* const other = workspace.newWindow();
  const int usual = editor()->editorFontPoints();
  Q_EMIT editor()->zoomWanted(3);
  EXPECT_EQ(other->editor()->editorFontPoints(), usual + 3);
  trigger("ViewUsualTextCommand");
  EXPECT_EQ(editor()->editorFontPoints(), usual);
}

TEST_F(WindowCommandsTest, BlanksAndTheRightMarginAreShownInAllWindowsAlike) {
  TEditWindow* const other = workspace.newWindow();
  trigger("ViewBlanksCommand");
  trigger("ViewRightMarginCommand");
  for (const TEditWindow* const each : {window(), other, workspace.newWindow()}) {
    EXPECT_TRUE(each->editor()->showsBlanks());
    EXPECT_EQ(each->editor()->rightMargin(), 80);
  }
  auto* const others =
      qobject_cast<QAction*>(platform::FindComponent(*workspace.frameOf(other), QStringLiteral("ViewBlanksCommand")));
  EXPECT_TRUE(others->isChecked());
  others->trigger();
  EXPECT_FALSE(editor()->showsBlanks());
  EXPECT_FALSE(action(QStringLiteral("ViewBlanksCommand"))->isChecked());
}

} // namespace
} // namespace desktop
