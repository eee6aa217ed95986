// SPDX-License-Identifier: MIT
#include "desktop/ui/FileCommands.h"

#include "desktop/edit/EditControl.h"
#include "desktop/edit/TextColumns.h"
#include "desktop/edit/TrailingBlanks.h"
#include "desktop/files/EnvironmentSettings.h"
#include "desktop/files/FileStore.h"
#include "desktop/files/SourceDocument.h"
#include "desktop/ui/EditWindow.h"
#include "desktop/ui/FileOpenings.h"
#include "desktop/ui/LongTextNote.h"
#include "desktop/ui/MessageBar.h"
#include "desktop/ui/Page.h"
#include "desktop/ui/PageReload.h"
#include "desktop/ui/Workspace.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QPushButton>
#include <QTextBlock>

#include <algorithm>

namespace desktop {

namespace {

QStringList nameFilters() {
  return {FileCommands::tr("Pascal files (*.pas *.pp *.dpr *.dpk *.lpr *.inc *.PAS *.DPR)"),
          FileCommands::tr("All files (*)")};
}

void tellFailure(const Page* page, const QString& reason) {
  QMessageBox box(QMessageBox::Critical, FileCommands::tr("Cannot Save"), reason, QMessageBox::Ok, page->window());
  box.setInformativeText(FileCommands::tr("Your text is still in the editor; the file is as it was before."));
  box.exec();
}

QString describe(const MissingCharacter& missing) {
  const QString code =
      QStringLiteral("U+%1").arg(static_cast<uint>(missing.character), 4, 16, QLatin1Char('0')).toUpper();
  const char32_t character = missing.character;
  const bool printable = QChar::isPrint(character) && !QChar::isSurrogate(character);
  return printable ? QStringLiteral("\u201c%1\u201d (%2)").arg(QString::fromUcs4(&character, 1), code) : code;
}

SaveResult saveShown(const Page& page, const QString& path) {
  const LongTextNote note(page, FileCommands::tr("Saving %1\u2026").arg(page.title()));
  return desktop::save(*page.document(), path);
}

// The position in the document of a character that was counted in units from the start of its line.
void putCaretAt(Page* page, const MissingCharacter& missing) {
  const QTextBlock block = page->document()->findBlockByNumber(missing.line - 1);
  page->window()->showPage(page);
  EditState state = page->state();
  state.anchor = block.position() + static_cast<int>(unitOfCharIndex(block.text(), missing.index));
  state.caret = state.anchor;
  page->setState(state);
  page->window()->editor()->showCaret();
}

// The caret of a page that is not in front is known by numbers, which an edit does not move.
void trimBlanks(Page& page) {
  SourceDocument& document = *page.document();
  EditState state = page.state();
  const int last = document.characterCount() - 1;
  QTextCursor caret(&document);
  caret.setPosition(std::min(state.anchor, last));
  caret.setPosition(std::min(state.caret, last), QTextCursor::KeepAnchor);
  if (!trimTrailingBlanks(document) || page.isCurrent())
    return;
  state.anchor = caret.anchor();
  state.caret = caret.position();
  page.setState(state);
}

} // namespace

FileCommands::FileCommands(Workspace& workspace) : QObject(&workspace), workspace_(workspace) {}

void FileCommands::open(TEditWindow* window) {
  QFileDialog dialog(window, tr("Open"), workspace_.currentFolder());
  dialog.setFileMode(QFileDialog::ExistingFiles);
  dialog.setNameFilters(nameFilters());
  if (dialog.exec() != QDialog::Accepted)
    return;
  const TEditWindow::ManyPages many(window);
  for (const QString& path : dialog.selectedFiles())
    workspace_.openings().open(window, path);
}

bool FileCommands::save(Page* page) {
  if (page->document()->isUntitled())
    return saveAs(page);
  if (changedOnDisk(*page->document())) {
    switch (askToOverwrite(page)) {
    case Answer::Proceed:
      break;
    case Answer::SaveAs:
      return saveAs(page);
    case Answer::Cancel:
      return false;
    }
  }
  return write(page, page->document()->fileName());
}

bool FileCommands::saveAs(Page* page) {
  const QString path = chooseName(page);
  if (path.isEmpty())
    return false;
  const Page* const other = workspace_.findPage(path);
  if (other != nullptr && other != page) {
    tellFailure(page, tr("%1 is open on another page.").arg(path));
    return false;
  }
  return write(page, path);
}

bool FileCommands::saveAll() {
  for (const TEditWindow* window : workspace_.windows()) {
    for (Page* page : window->pages()) {
      if (!page->document()->isModified())
        continue;
      if (page->document()->isUntitled())
        workspace_.showPage(page); // whoever is asked for a name wants to see for what
      if (!save(page))
        return false;
    }
  }
  return true;
}

bool FileCommands::revert(Page* page) {
  if (page->document()->isModified()) {
    QMessageBox box(QMessageBox::Warning, tr("Revert"),
                    tr("Read %1 again and give up the changes to it?").arg(page->title()), QMessageBox::NoButton,
                    page->window());
    box.setInformativeText(tr("Undo brings them back."));
    const QPushButton* const proceed = box.addButton(tr("&Revert"), QMessageBox::DestructiveRole);
    box.setDefaultButton(box.addButton(QMessageBox::Cancel));
    box.exec();
    if (box.clickedButton() != proceed)
      return false;
  }
  const QString problem = reloadPage(*page);
  if (!problem.isEmpty())
    page->window()->messageBar()->addMessage(MessageBar::Kind::Error, problem);
  return problem.isEmpty();
}

QString FileCommands::chooseName(const Page* page) {
  QFileDialog dialog(page->window(), tr("Save As"), workspace_.currentFolder());
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setFileMode(QFileDialog::AnyFile);
  dialog.setNameFilters(nameFilters());
  dialog.setDefaultSuffix(QStringLiteral("pas"));
  dialog.selectFile(page->document()->fileName());
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
    return {};
  return dialog.selectedFiles().constFirst();
}

FileCommands::Answer FileCommands::askToOverwrite(const Page* page) {
  const QString& path = page->document()->fileName();
  const bool gone = !QFileInfo::exists(path);
  QMessageBox box(QMessageBox::Warning, tr("Changed on Disk"),
                  gone ? tr("%1 has been removed by another program since it was opened.").arg(path)
                       : tr("%1 has been changed by another program since it was opened.").arg(path),
                  QMessageBox::NoButton, page->window());
  box.setInformativeText(gone ? tr("Saving creates it again.") : tr("Saving puts your text in place of that change."));
  const QPushButton* const proceed = box.addButton(gone ? tr("&Save") : tr("&Overwrite"), QMessageBox::DestructiveRole);
  const QPushButton* const saveAs = box.addButton(tr("Save &As..."), QMessageBox::ActionRole);
  box.setDefaultButton(box.addButton(QMessageBox::Cancel));
  box.exec();
  if (box.clickedButton() == proceed)
    return Answer::Proceed;
  return box.clickedButton() == saveAs ? Answer::SaveAs : Answer::Cancel;
}

bool FileCommands::write(Page* page, const QString& path) {
  const SourceDocument& text = *page->document();
  if (workspace_.settings().values().trimTrailingBlanks && !text.isReadOnlyText() && !text.isPlain())
    trimBlanks(*page);
  const SaveResult result = saveShown(*page, path);
  if (result.ok())
    return true;
  if (!result.missing) {
    tellFailure(page, result.error);
    return false;
  }
  QMessageBox box(QMessageBox::Warning, tr("Character Cannot Be Saved"),
                  tr("The encoding %1 of %2 has no character %3, which stands in line %4.")
                      .arg(page->document()->encodingName(), QFileInfo(path).fileName(), describe(*result.missing))
                      .arg(result.missing->line),
                  QMessageBox::NoButton, page->window());
  box.setInformativeText(tr("Nothing has been written."));
  const QPushButton* const utf8 = box.addButton(tr("Save as &UTF-8"), QMessageBox::AcceptRole);
  const QPushButton* const show = box.addButton(tr("&Go to Character"), QMessageBox::RejectRole);
  box.setDefaultButton(box.addButton(QMessageBox::Cancel));
  box.exec();
  if (box.clickedButton() == show)
    putCaretAt(page, *result.missing);
  return box.clickedButton() == utf8 && writeAsUtf8(page, path);
}

bool FileCommands::writeAsUtf8(Page* page, const QString& path) {
  SourceDocument& document = *page->document();
  const quorvane::TEncoding before = document.encoding();
  document.setEncoding({quorvane::TEncodingKind::Utf8});
  const SaveResult result = saveShown(*page, path);
  if (result.ok())
    return true;
  document.setEncoding(before);
  tellFailure(page, result.error);
  return false;
}

bool FileCommands::mayClose(const QList<Page*>& pages) {
  for (Page* page : pages) {
    if (!page->document()->isModified())
      continue;
    page->window()->showPage(page);
    QMessageBox box(QMessageBox::Warning, tr("Unsaved Changes"),
                    tr("Save the changes to %1 before closing?").arg(page->title()),
                    QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, page->window());
    box.setInformativeText(tr("Without saving, the changes are lost."));
    box.setDefaultButton(QMessageBox::Save);
    const int answer = box.exec();
    if (answer == QMessageBox::Save ? !save(page) : answer != QMessageBox::Discard)
      return false;
  }
  return true;
}

bool FileCommands::close(Page* page) {
  if (!mayClose({page}))
    return false;
  page->window()->closePage(page);
  return true;
}

bool FileCommands::closeOthers(Page* page) {
  QList<Page*> others = page->window()->pages();
  others.removeOne(page);
  if (!mayClose(others))
    return false;
  const TEditWindow::ManyPages many(page->window());
  for (Page* other : others)
    other->window()->closePage(other);
  return true;
}

} // namespace desktop
