// SPDX-License-Identifier: MIT
#include "desktop/ui/WindowCommands.h"

#include "desktop/edit/EditControl.h"
#include "desktop/files/EnvironmentSettings.h"
#include "desktop/files/SourceDocument.h"
#include "desktop/ui/Appearance.h"
#include "desktop/ui/ClosedPages.h"
#include "desktop/ui/EditWindow.h"
#include "desktop/ui/EnvironmentDialog.h"
#include "desktop/ui/FileCheck.h"
#include "desktop/ui/FileCommands.h"
#include "desktop/ui/FilesSearch.h"
#include "desktop/ui/FindBar.h"
#include "desktop/ui/GoToLineDialog.h"
#include "desktop/ui/MainWindow.h"
#include "desktop/ui/MessageBar.h"
#include "desktop/ui/ModalDialog.h"
#include "desktop/ui/PackagesDialog.h"
#include "desktop/ui/Page.h"
#include "desktop/ui/ResultList.h"
#include "desktop/ui/ResultsPanel.h"
#include "desktop/ui/ResultWalk.h"
#include "desktop/ui/SearchPathDialog.h"
#include "desktop/ui/UnitLinks.h"
#include "desktop/ui/Workspace.h"
#include "platform/Application.h"
#include "platform/Component.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPointer>

#include <algorithm>

namespace desktop {

void WindowCommands::newFile() {
  workspace_.newFileIn(window_);
}

void WindowCommands::newWindow() {
  // This window's size is one that fits on the screen.
  const QSize size = frame_->normalGeometry().size();
  MainWindow* const frame = workspace_.frameOf(workspace_.newWindow());
  if (!frame->isMaximized() && !frame->isFullScreen())
    frame->resize(size);
}

void WindowCommands::open() {
  workspace_.files().open(window_);
}

void WindowCommands::save() {
  workspace_.files().save(page());
}

void WindowCommands::saveAs() {
  workspace_.files().saveAs(page());
}

void WindowCommands::saveAll() {
  workspace_.files().saveAll();
}

void WindowCommands::revert() {
  workspace_.files().revert(page());
}

void WindowCommands::reopenTab() {
  workspace_.closedPages().reopen(window_);
}

void WindowCommands::close() {
  workspace_.files().close(page());
}

void WindowCommands::exit() {
  workspace_.exit();
}

void WindowCommands::undo() {
  focusedLine() != nullptr ? focusedLine()->undo() : editor_->undo();
}

void WindowCommands::redo() {
  focusedLine() != nullptr ? focusedLine()->redo() : editor_->redo();
}

void WindowCommands::cut() {
  focusedLine() != nullptr ? focusedLine()->cut() : editor_->cut();
}

void WindowCommands::copy() {
  focusedLine() != nullptr ? focusedLine()->copy() : editor_->copy();
}

void WindowCommands::paste() {
  focusedLine() != nullptr ? focusedLine()->paste() : editor_->paste();
}

void WindowCommands::selectAll() {
  focusedLine() != nullptr ? focusedLine()->selectAll() : editor_->selectAll();
}

void WindowCommands::indentBlock() {
  editor_->indentBlock();
}

void WindowCommands::unindentBlock() {
  editor_->unindentBlock();
}

void WindowCommands::commentBlock() {
  editor_->commentBlock();
}

void WindowCommands::uncommentBlock() {
  editor_->uncommentBlock();
}

void WindowCommands::duplicateBlock() {
  editor_->duplicateBlock();
}

void WindowCommands::moveBlockUp() {
  editor_->moveBlockUp();
}

void WindowCommands::moveBlockDown() {
  editor_->moveBlockDown();
}

void WindowCommands::find() {
  window_->findBar()->open();
}

void WindowCommands::findNext() {
  window_->findBar()->findNext();
}

void WindowCommands::findPrevious() {
  window_->findBar()->findPrevious();
}

void WindowCommands::findNextWord() {
  window_->findBar()->findWord(SearchDirection::Forward);
}

void WindowCommands::findPreviousWord() {
  window_->findBar()->findWord(SearchDirection::Backward);
}

void WindowCommands::replace() {
  window_->findBar()->openReplace();
}

void WindowCommands::findInFiles() {
  workspace_.filesSearch().ask(window_);
}

void WindowCommands::goToLine() {
  // Add-ins execute the command of the main form for whichever window is on top.
  if (workspace_.topPage() == nullptr)
    return;
  const QPointer<TEditWindow> window = workspace_.topWindow();
  TEditControl* const editor = window->editor();
  ModalDialog<GoToLineDialog> dialog(editor->caretRow(), editor->lineCount(), workspace_.frameOf(window));
  if (!dialog.run() || !window)
    return;
  editor->setCaret(dialog->line(), 1);
  editor->showCaret();
  editor->setFocus(Qt::OtherFocusReason);
}

void WindowCommands::checkFile() {
  workspace_.fileCheck().start(window_);
}

void WindowCommands::nextResult() {
  workspace_.resultWalk().goToNext(window_);
}

void WindowCommands::previousResult() {
  workspace_.resultWalk().goToPrevious(window_);
}

void WindowCommands::showResults() {
  frame_->resultsPanel()->enter();
}

void WindowCommands::openUnit() {
  unitLinks_->openAtCaret();
}

void WindowCommands::zoom(int steps) {
  workspace_.appearance().setFontPoints(workspace_.appearance().fontPoints() + steps);
}

void WindowCommands::largerText() {
  zoom(1);
}

void WindowCommands::smallerText() {
  zoom(-1);
}

void WindowCommands::usualText() {
  workspace_.appearance().resetFontPoints();
}

void WindowCommands::nextTab() {
  stepTab(1);
}

void WindowCommands::previousTab() {
  stepTab(-1);
}

void WindowCommands::showPackages() {
  if (workspace_.packages() != nullptr)
    ModalDialog<PackagesDialog>(*workspace_.packages(), QApplication::activeWindow()).run();
}

void WindowCommands::editEnvironment() {
  const QPointer<WindowCommands> self = this;
  EnvironmentSettings& settings = workspace_.settings();
  ModalDialog<EnvironmentDialog> dialog(settings.values(), workspace_.searchPath().folders(), workspace_.appearance(),
                                        QApplication::activeWindow());
  if (!dialog.run() || !self)
    return;
  settings.setValues(dialog->values());
  reportUnkept(settings.save());
  if (dialog->folders() != workspace_.searchPath().folders())
    keepSearchPath(dialog->folders());
}

void WindowCommands::editSearchPath() {
  const QPointer<WindowCommands> self = this;
  ModalDialog<SearchPathDialog> dialog(workspace_.searchPath().folders(), QApplication::activeWindow());
  if (dialog.run() && self)
    keepSearchPath(dialog->folders());
}

void WindowCommands::keepSearchPath(const QList<SearchFolder>& folders) {
  reportUnkept(workspace_.searchPath().setFolders(folders));
}

void WindowCommands::reportUnkept(const QString& problem) {
  if (!problem.isEmpty() && workspace_.topWindow() != nullptr)
    workspace_.topWindow()->messageBar()->addMessage(MessageBar::Kind::Error, problem);
}

void WindowCommands::about() {
  QMessageBox::about(frame_, tr("About Virelle"),
                     tr("<h3>Virelle %1</h3><p>A Pascal source editor that loads packages into its own process.</p>"
                        "<p>Qt %2</p>")
                         .arg(QCoreApplication::applicationVersion(), QString::fromLatin1(qVersion())));
}

Page* WindowCommands::page() const {
  return window_->currentPage();
}

void WindowCommands::stepTab(int step) {
  const QList<Page*> pages = window_->pages();
  const qsizetype count = pages.size();
  window_->showPage(pages[(pages.indexOf(page()) + step + count) % count]);
}

QLineEdit* WindowCommands::focusedLine() const {
  QWidget* const focused = frame_->focusWidget();
  // An editable box has the focus of its line editor.
  if (const auto* const box = qobject_cast<QComboBox*>(focused))
    return box->lineEdit();
  return qobject_cast<QLineEdit*>(focused);
}

void WindowCommands::follow() {
  connect(editor_, &TEditControl::zoomWanted, this, &WindowCommands::zoom);
  connect(window_, &TEditWindow::currentPageChanged, this, &WindowCommands::update);
  connect(window_, &TEditWindow::pageChanged, this, &WindowCommands::update);
  connect(editor_, &QPlainTextEdit::undoAvailable, this, &WindowCommands::update);
  connect(editor_, &QPlainTextEdit::redoAvailable, this, &WindowCommands::update);
  connect(editor_, &QPlainTextEdit::copyAvailable, this, &WindowCommands::update);
  connect(&workspace_, &Workspace::topWindowChanged, this, &WindowCommands::update);
  connect(&workspace_.closedPages(), &ClosedPages::changed, this, &WindowCommands::update);
  connect(&workspace_.results(), &ResultList::rowsInserted, this, &WindowCommands::update);
  connect(&workspace_.results(), &ResultList::modelReset, this, &WindowCommands::update);
  connect(QApplication::clipboard(), &QClipboard::dataChanged, this, &WindowCommands::update);
  connect(qApp, &QApplication::focusChanged, this, &WindowCommands::update);
  update();
}

void WindowCommands::update() {
  const Page* const shown = page();
  const bool open = shown != nullptr;
  const bool writable = open && !shown->document()->isReadOnlyText();
  const QLineEdit* const line = focusedLine();
  const bool selected = line != nullptr ? line->hasSelectedText() : open && editor_->textCursor().hasSelection();

  enable("FileSaveCommand", open && (shown->document()->isModified() || shown->document()->isUntitled()));
  enable("FileSaveAsCommand", open && shown->document()->holdsWholeFile());
  const QList<TEditWindow*> windows = workspace_.windows();
  enable("FileSaveAllCommand", std::ranges::any_of(windows, [](const TEditWindow* each) {
           const QList<Page*> pages = each->pages();
           return std::ranges::any_of(pages, [](const Page* one) { return one->document()->isModified(); });
         }));
  enable("FileRevertCommand", open && !shown->document()->isUntitled());
  enable("FileReopenCommand", !workspace_.closedPages().isEmpty());
  enable("FileCloseCommand", open);
  enable("EditUndoCommand",
         line != nullptr ? line->isUndoAvailable() : writable && editor_->document()->isUndoAvailable());
  enable("EditRedoCommand",
         line != nullptr ? line->isRedoAvailable() : writable && editor_->document()->isRedoAvailable());
  enable("EditCutCommand", selected && (line != nullptr || writable));
  enable("EditCopyCommand", selected);
  enable("EditPasteCommand", line != nullptr || (writable && editor_->canPaste()));
  enable("EditSelectAllCommand", line != nullptr || open);
  for (const char* const name : {"SearchFindCommand", "SearchNextCommand", "SearchPreviousCommand",
                                 "SearchNextWordCommand", "SearchPreviousWordCommand"})
    enable(name, open);
  enable("SearchReplaceCommand", writable);
  for (const char* const name :
       {"EditIndentCommand", "EditUnindentCommand", "EditCommentCommand", "EditUncommentCommand",
        "EditDuplicateCommand", "EditMoveUpCommand", "EditMoveDownCommand"})
    enable(name, writable && line == nullptr);
  enable("SearchGoToCommand", open || workspace_.topPage() != nullptr);
  enable("SearchOpenUnitCommand", open && shown->isPascal());
  enable("SearchCheckCommand", open);
  for (const char* const name : {"SearchNextResultCommand", "SearchPreviousResultCommand"})
    enable(name, workspace_.results().count() > 0);
  for (const char* const name : {"ViewNextTabCommand", "ViewPreviousTabCommand"})
    enable(name, window_->pages().size() > 1);
}

void WindowCommands::enable(const char* name, bool enabled) {
  static_cast<QAction*>(platform::FindComponent(*frame_, QLatin1StringView(name)))->setEnabled(enabled);
}

} // namespace desktop
