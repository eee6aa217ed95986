// SPDX-License-Identifier: MIT
#include "desktop/ui/DiskChanges.h"

#include "desktop/edit/EditControl.h"
#include "desktop/files/FileReader.h"
#include "desktop/files/FileStore.h"
#include "desktop/ui/EditWindow.h"
#include "desktop/ui/MessageBar.h"
#include "desktop/ui/Page.h"
#include "desktop/ui/PageReload.h"
#include "desktop/ui/Workspace.h"

#include <QApplication>

#include <algorithm>
#include <utility>

namespace desktop {

DiskChanges::DiskChanges(Workspace& workspace) : workspace_(workspace) {
  for (TEditWindow* window : workspace.windows())
    follow(window);
  connect(&workspace, &Workspace::windowOpened, this, &DiskChanges::follow);
  connect(&watch_, &FileWatch::look, this, &DiskChanges::look);
  // Not every file system tells of changes that are made elsewhere.
  connect(qApp, &QGuiApplication::applicationStateChanged, &watch_, &FileWatch::lookSoon);
}

DiskChanges::~DiskChanges() = default;

void DiskChanges::follow(TEditWindow* window) {
  for (Page* page : window->pages())
    followPage(page);
  connect(window, &TEditWindow::pageAdded, this, &DiskChanges::followPage);
  connect(window, &TEditWindow::pageAboutToClose, this, &DiskChanges::forget);
}

void DiskChanges::followPage(Page* page) {
  changes_.try_emplace(page);
  connect(page->document(), &SourceDocument::fileNameChanged, this, [this, page] {
    settle(*page, changes_.at(page));
    watchFiles();
  });
  // Saving and reverting answer what has been asked.
  connect(page->document(), &QTextDocument::modificationChanged, &watch_, &FileWatch::lookSoon);
  watchFiles();
}

void DiskChanges::forget(Page* page) {
  settle(*page, changes_.at(page));
  disconnect(page->document(), nullptr, this, nullptr);
  disconnect(page->document(), nullptr, &watch_, nullptr);
  changes_.erase(page);
  watchFiles();
}

void DiskChanges::watchFiles() {
  QStringList files;
  for (const auto& [page, change] : changes_) {
    if (!page->document()->isUntitled())
      files.append(page->document()->fileName());
  }
  watch_.setFiles(files);
}

// An add-in holds painting while it has an edit block open.
bool DiskChanges::mayAct() const {
  const QList<TEditWindow*> windows = workspace_.windows();
  return QApplication::activeModalWidget() == nullptr && QApplication::activePopupWidget() == nullptr &&
         std::ranges::none_of(windows, [](const TEditWindow* window) { return window->editor()->isPaintingHeld(); });
}

void DiskChanges::look() {
  if (!mayAct()) {
    watch_.lookSoon();
    return;
  }
  bool all = true;
  for (const TEditWindow* window : workspace_.windows()) {
    for (Page* page : window->pages())
      all = check(*page) && all;
  }
  if (all)
    Q_EMIT settled();
  else
    watch_.lookSoon();
}

bool DiskChanges::check(Page& page) {
  Change& change = changes_.at(&page);
  const SourceDocument& document = *page.document();
  if (document.isUntitled())
    return true;
  const FileStamp now = stampOf(document.fileName());
  if (now == document.fileStamp()) {
    if (change.isGone && !isEdited(page, change))
      takeAsSaved(page, change);
    settle(page, change);
    return true;
  }
  // A file is taken when it is found twice alike: one that is replaced is missing for a moment, one that is written is
  // short at first.
  if (now != change.stamp) {
    change.stamp = now;
    change.isHandled = false;
    return false;
  }
  if (!std::exchange(change.isHandled, true)) {
    if (now == FileStamp())
      tellGone(page, change);
    else
      takeOver(page, change);
  }
  return true;
}

// What was modified only because its file had gone has not been edited.
bool DiskChanges::isEdited(const Page& page, const Change& change) {
  return page.document()->isModified() && !(change.isGone && page.document()->revision() == change.revision);
}

void DiskChanges::takeOver(Page& page, Change& change) {
  SourceDocument& document = *page.document();
  const FileContents contents = readFile(document.fileName());
  if (!contents.error.isEmpty()) {
    page.window()->messageBar()->addMessage(
        MessageBar::Kind::Warning,
        tr("%1 has been changed by another program and cannot be read: %2.").arg(document.fileName(), contents.error));
    return;
  }
  const std::size_t hash = contentHash(contents.view());
  if (hash == document.fileHash()) {
    document.setFileStamp(contents.stamp);
    if (change.isGone && !isEdited(page, change))
      takeAsSaved(page, change);
    settle(page, change);
  } else if (!isEdited(page, change)) {
    settle(page, change);
    reload(page);
  } else if (document.toBytes().Bytes == contents.view() && document.holdsWholeFile()) {
    document.setFileStamp(contents.stamp);
    document.setFileHash(hash);
    takeAsSaved(page, change);
    settle(page, change);
  } else {
    ask(page, change, hash);
  }
}

// The text is that of the file.
void DiskChanges::takeAsSaved(Page& page, Change& change) {
  change.isGone = false;
  page.document()->setModified(false);
}

void DiskChanges::reload(Page& page) {
  const QString problem = reloadPage(page);
  if (!problem.isEmpty())
    page.window()->messageBar()->addMessage(MessageBar::Kind::Warning, problem);
}

void DiskChanges::tellGone(Page& page, Change& change) {
  SourceDocument& document = *page.document();
  settle(page, change);
  change.isHandled = true;
  change.isGone = !document.isModified();
  change.revision = document.revision();
  document.setModified(true);
  page.window()->messageBar()->addMessage(
      MessageBar::Kind::Warning,
      tr("%1 has been removed by another program. Its text is still here; saving creates the file again.")
          .arg(document.fileName()));
}

void DiskChanges::ask(Page& page, Change& change, std::size_t hash) {
  if (change.question != nullptr)
    page.window()->messageBar()->withdraw(change.question);
  const auto keep = [&page, stamp = change.stamp, hash] {
    // The next save goes over that change without asking once more.
    page.document()->setFileStamp(stamp);
    page.document()->setFileHash(hash);
  };
  change.question = page.window()->messageBar()->ask(
      MessageBar::Kind::Warning,
      tr("%1 has been changed by another program, and you have changed it here.").arg(page.document()->fileName()),
      {{tr("&Reload"), [this, &page] { reload(page); }}, {tr("&Keep Mine"), keep}});
}

// There is nothing to be asked or remembered any more.
void DiskChanges::settle(Page& page, Change& change) {
  if (change.question != nullptr)
    page.window()->messageBar()->withdraw(change.question);
  change = {change.stamp, false, false, 0, {}};
}

} // namespace desktop
