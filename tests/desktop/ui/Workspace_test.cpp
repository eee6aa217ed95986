// SPDX-License-Identifier: MIT
#include "desktop/ui/UiFixture.h"

#include "platform/Errors.h"
#include "platform/Message.h"
#include "support/SignalCount.h"

#include <QDialog>
#include <QDir>
#include <QDropEvent>
#include <QMimeData>
#include <QUrl>

namespace desktop {
namespace {

using WorkspaceTest = UiFixture;

// Stands in an edit control's window procedure and counts its paints.
class PaintCounter {
public:
  explicit PaintCounter(TEditControl* editor) : editor_(editor), inner_(editor->WindowProc()) {
    editor->SetWindowProc(platform::TWndMethod::Of<&PaintCounter::procedure>(*this));
  }
  ~PaintCounter() { editor_->SetWindowProc(inner_); }
  PaintCounter(const PaintCounter&) = delete;
  PaintCounter& operator=(const PaintCounter&) = delete;

  int paints = 0;

private:
  void procedure(platform::TMessage& message) {
    paints += message.Msg == platform::WM_PAINT ? 1 : 0;
    inner_(message);
  }

  TEditControl* editor_;
  platform::TWndMethod inner_;
};

TEST_F(WorkspaceTest, TheFrameOfTheFirstWindowIsTheMainForm) {
  EXPECT_EQ(platform::Application().MainForm(), frame());
  const std::vector<QWidget*> forms = platform::Screen().Forms();
  EXPECT_NE(std::find(forms.begin(), forms.end(), frame()), forms.end());
  EXPECT_EQ(frame()->centralWidget(), window());
}

TEST_F(WorkspaceTest, AFileThatIsOpenIsBroughtToTheFrontInsteadOfOpenedAgain) {
  Page* const first = openText(QStringLiteral("a.pas"), "");
  openText(QStringLiteral("b.pas"), "");
  EXPECT_EQ(workspace.openFile(path(QStringLiteral("a.pas"))), first);
  EXPECT_EQ(window()->currentPage(), first);
  EXPECT_EQ(window()->pages().size(), 2);
}

TEST_F(WorkspaceTest, OtherNamesOfAnOpenFileAreTheSameFile) {
  Page* const page = openText(QStringLiteral("a.pas"), "");
  ASSERT_TRUE(QFile::link(path(QStringLiteral("a.pas")), path(QStringLiteral("link.pas"))));
  EXPECT_EQ(workspace.openFile(path(QStringLiteral("link.pas"))), page);
  EXPECT_EQ(workspace.openFile(folder_.path() + QStringLiteral("/./x/../a.pas")), page);
  EXPECT_EQ(workspace.openFile(QDir::current().relativeFilePath(path(QStringLiteral("a.pas")))), page);
}

TEST_F(WorkspaceTest, AFileThatIsOpenInAnotherWindowComesToTheFrontThere) {
  Page* const page = openText(QStringLiteral("a.pas"), "");
  activate(window());
  TEditWindow* const other = workspace.newWindow();
  activate(other);
  EXPECT_EQ(workspace.openFile(path(QStringLiteral("a.pas"))), page);
  EXPECT_TRUE(support::waitUntil([this] { return workspace.topWindow() == window(); }));
}

TEST_F(WorkspaceTest, AMissingFileIsToldInTheWindowAndNothingElseChanges) {
  Page* const page = openText(QStringLiteral("a.pas"), "");
  const QString missing = path(QStringLiteral("missing.pas"));
  EXPECT_EQ(workspace.openFile(missing), nullptr);
  ASSERT_EQ(messages().size(), 1);
  EXPECT_TRUE(messages().constFirst().contains(missing)) << messages().constFirst().toStdString();
  EXPECT_EQ(workspace.topPage(), page);
}

TEST_F(WorkspaceTest, AFolderIsNoFileAndIsToldAsSuch) {
  EXPECT_EQ(workspace.openFile(folder_.path()), nullptr);
  ASSERT_EQ(messages().size(), 1);
  EXPECT_TRUE(messages().constFirst().contains(folder_.path()));
}

TEST_F(WorkspaceTest, APageThatNobodyWroteOnMakesRoomForAFile) {
  workspace.newFile();
  Page* const page = openText(QStringLiteral("a.pas"), "");
  EXPECT_EQ(window()->pages(), QList<Page*>{page});
}

TEST_F(WorkspaceTest, APageThatWasWrittenOnStaysBesideTheFile) {
  workspace.newFile();
  type(QStringLiteral("x"));
  openText(QStringLiteral("a.pas"), "");
  EXPECT_EQ(window()->pages().size(), 2);
}

TEST_F(WorkspaceTest, NewPagesHaveNamesOfTheirOwnThatEndInPas) {
  const Page* const first = workspace.newFile();
  const Page* const second = workspace.newFile();
  EXPECT_TRUE(first->document()->isUntitled());
  EXPECT_TRUE(first->title().endsWith(QStringLiteral(".pas")));
  EXPECT_TRUE(QFileInfo(first->document()->fileName()).isAbsolute());
  EXPECT_NE(first->title(), second->title());
}

TEST_F(WorkspaceTest, TheWindowActivatedLastIsTheTopWindow) {
  workspace.newFile();
  activate(window());
  TEditWindow* const other = workspace.newWindow();
  activate(other);
  EXPECT_EQ(workspace.topWindow(), other);
  EXPECT_EQ(workspace.topPage(), other->currentPage());
  activate(window());
  EXPECT_EQ(workspace.topWindow(), window());
}

TEST_F(WorkspaceTest, TheTopWindowStaysOnTopWhileADialogHasTheFocus) {
  workspace.newFile();
  TEditWindow* const other = workspace.newWindow();
  activate(other);
  QDialog dialog(frame());
  dialog.show();
  dialog.activateWindow();
  ASSERT_TRUE(support::waitUntil([&dialog] { return dialog.isActiveWindow(); }));
  EXPECT_EQ(workspace.topWindow(), other);
}

TEST_F(WorkspaceTest, AWindowThatStopsBeingOnTopIsPaintedAnewAndSoIsTheNewOne) {
  workspace.newFile();
  TEditWindow* const other = workspace.newWindow();
  activate(other);
  activate(window());
  support::settle();
  PaintCounter ofFirst(window()->editor());
  PaintCounter ofOther(other->editor());
  const support::SignalCount changes(&workspace, &Workspace::topWindowChanged);
  // The signal alone, so that nothing but the change of the top window is behind the paints.
  Q_EMIT other->activated();
  EXPECT_EQ(changes.count(), 1);
  EXPECT_TRUE(support::waitUntil([&] { return ofFirst.paints > 0 && ofOther.paints > 0; }));
}

TEST_F(WorkspaceTest, AFurtherWindowIsDestroyedWhenItIsClosed) {
  workspace.newFile();
  activate(window());
  const QPointer<TEditWindow> other = workspace.newWindow();
  activate(other);
  EXPECT_TRUE(workspace.frameOf(other)->close());
  EXPECT_EQ(workspace.windows(), QList<TEditWindow*>{window()});
  EXPECT_EQ(workspace.topWindow(), window());
  EXPECT_TRUE(support::waitUntil([&other] { return other.isNull(); }));
}

TEST_F(WorkspaceTest, TheMainFormIsOnlyHiddenWhileAnotherWindowIsOpenAndIsUsedForTheNextOne) {
  workspace.newFile();
  activate(window());
  TEditWindow* const other = workspace.newWindow();
  activate(other);
  EXPECT_TRUE(frame()->close());
  EXPECT_EQ(platform::Application().MainForm(), frame());
  EXPECT_TRUE(window()->pages().isEmpty());
  EXPECT_EQ(workspace.topWindow(), other);
  EXPECT_EQ(workspace.newWindow(), window());
  EXPECT_TRUE(frame()->isVisible());
  EXPECT_EQ(window()->pages().size(), 1);
}

TEST_F(WorkspaceTest, TheLastWindowKeepsItsPagesWhenItIsClosedSinceTheProgramEnds) {
  workspace.newFile();
  frame()->show();
  EXPECT_TRUE(frame()->close());
  EXPECT_EQ(window()->pages().size(), 1);
}

TEST_F(WorkspaceTest, AWindowWithUnsavedTextStaysWhenTheUserCancels) {
  workspace.newFile();
  frame()->show();
  type(QStringLiteral("x"));
  const MessageBoxAnswer answer(clicking(QStringLiteral("Cancel")));
  EXPECT_FALSE(frame()->close());
  EXPECT_TRUE(frame()->isVisible());
}

TEST_F(WorkspaceTest, ExceptionsAreShownInTheTopWindowWithTheirCount) {
  for (int time = 0; time < 3; ++time)
    platform::Guarded([] { throw platform::Exception("Out of paint"); });
  ASSERT_TRUE(support::waitUntil([this] { return !messages().isEmpty(); }));
  EXPECT_EQ(messages(), QStringList{QStringLiteral("An error occurred: Out of paint (3 times)")});
}

TEST_F(WorkspaceTest, TellsOfWindowsAndPagesThatOpen) {
  const support::SignalCount windows(&workspace, &Workspace::windowOpened);
  const support::SignalCount pages(&workspace, &Workspace::pageOpened);
  workspace.newFile();
  workspace.newWindow();
  EXPECT_EQ(windows.count(), 1);
  EXPECT_EQ(pages.count(), 2);
}

TEST_F(WorkspaceTest, TheTitleNamesThePageInFrontAndMarksIt) {
  openText(QStringLiteral("a.pas"), "");
  EXPECT_EQ(frame()->windowTitle(), QStringLiteral("a.pas[*] \u2013 Virelle"));
  EXPECT_FALSE(frame()->isWindowModified());
  type(QStringLiteral("x"));
  EXPECT_TRUE(frame()->isWindowModified());
  window()->closePage(window()->currentPage());
  EXPECT_EQ(frame()->windowTitle(), QStringLiteral("Virelle"));
}

TEST_F(WorkspaceTest, FilesDroppedOnTheTextAreOpened) {
  workspace.newFile();
  QMimeData data;
  data.setUrls({QUrl::fromLocalFile(write(QStringLiteral("a.pas"), "dropped"))});
  QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QCoreApplication::sendEvent(editor()->viewport(), &enter);
  QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QCoreApplication::sendEvent(editor()->viewport(), &drop);
  EXPECT_TRUE(drop.isAccepted());
  EXPECT_EQ(editor()->toPlainText(), QStringLiteral("dropped"));
}

TEST_F(WorkspaceTest, EveryFileOfADropOnTheWindowIsOpenedAndNothingElse) {
  TEditWindow* const other = workspace.newWindow();
  MainWindow* const target = workspace.frameOf(other);
  QMimeData data;
  data.setUrls({QUrl::fromLocalFile(write(QStringLiteral("a.pas"), "a")),
                QUrl(QStringLiteral("https://example.org/x.pas")),
                QUrl::fromLocalFile(write(QStringLiteral("b.pas"), "b"))});
  QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, Qt::ShiftModifier);
  QCoreApplication::sendEvent(target, &enter);
  QDropEvent drop(QPointF(5, 5), Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, Qt::ShiftModifier);
  QCoreApplication::sendEvent(target, &drop);
  ASSERT_EQ(other->pages().size(), 2) << "in the window that they were dropped on";
  EXPECT_EQ(other->pages()[0]->title(), QStringLiteral("a.pas"));
  EXPECT_EQ(other->pages()[1]->title(), QStringLiteral("b.pas"));
  EXPECT_EQ(drop.dropAction(), Qt::CopyAction) << "nobody may remove the files";
}

} // namespace
} // namespace desktop
