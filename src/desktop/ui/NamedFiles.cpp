// SPDX-License-Identifier: MIT
#include "desktop/ui/NamedFiles.h"

#include "desktop/edit/EditControl.h"
#include "desktop/files/SourceDocument.h"
#include "desktop/ui/EditWindow.h"
#include "desktop/ui/FileOpenings.h"
#include "desktop/ui/MessageBar.h"
#include "desktop/ui/Page.h"
#include "desktop/ui/Workspace.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include <memory>

namespace desktop {

namespace {

// Whether `file` could be made. A link that leads nowhere stays as it is.
bool isFree(const QFileInfo& file) {
  return !file.fileName().isEmpty() && !file.exists() && !file.isSymbolicLink() &&
         QFileInfo(file.absolutePath()).isDir();
}

FileArgument argumentOf(const QString& name, const std::optional<CaretPlace>& caret) {
  FileArgument argument = readFileArgument(name);
  if (!argument.caret)
    argument.caret = caret;
  return argument;
}

// The page that was in front of its window stays there.
void putCaret(Page& page, const CaretPlace& place) {
  TEditWindow* const window = page.window();
  Page* const front = window->currentPage();
  window->showPage(&page);
  window->editor()->setCaret(place.line, place.column);
  window->editor()->showCaret();
  window->showPage(front);
}

} // namespace

NamedFiles::NamedFiles(Workspace& workspace) : workspace_(workspace) {}

Page* NamedFiles::open(const QString& name, const std::optional<CaretPlace>& caret) {
  const FileArgument argument = argumentOf(name, caret);
  Page* const page = isFree(QFileInfo(argument.path)) ? begin(argument.path) : workspace_.openFile(argument.path);
  return add(page, argument.caret);
}

Page* NamedFiles::openExisting(const QString& name, const std::optional<CaretPlace>& caret) {
  const FileArgument argument = argumentOf(name, caret);
  return add(workspace_.openFile(argument.path), argument.caret);
}

bool NamedFiles::openSoon(const QString& name, const std::optional<CaretPlace>& caret) {
  const FileArgument argument = argumentOf(name, caret);
  if (!FileOpenings::isLarge(argument.path) || workspace_.findPage(argument.path) != nullptr)
    return open(name, caret) != nullptr;
  if (pages_.isEmpty() && largeFirst_.isEmpty())
    largeFirst_ = argument.path;
  workspace_.openings().open(workspace_.topWindow(), argument.path, [place = argument.caret](Page* page) {
    if (place)
      putCaret(*page, *place);
  });
  return true;
}

Page* NamedFiles::add(Page* page, const std::optional<CaretPlace>& caret) {
  if (page != nullptr && !pages_.contains(page))
    pages_.append(page);
  if (page != nullptr && caret)
    carets_.emplace_back(page, *caret);
  return page;
}

Page* NamedFiles::begin(const QString& path) {
  const QString absolute = QDir::cleanPath(QFileInfo(path).absoluteFilePath());
  if (Page* const open = workspace_.findPage(absolute)) {
    workspace_.showPage(open);
    return open;
  }
  TEditWindow* const window = workspace_.topWindow();
  Page* const page = workspace_.addPage(window, std::make_unique<SourceDocument>(absolute));
  window->messageBar()->addMessage(
      MessageBar::Kind::Information,
      QCoreApplication::translate("NamedFiles", "%1 is a new file; saving creates it.").arg(absolute));
  return page;
}

QList<Page*> NamedFiles::pages() const {
  QList<Page*> pages;
  for (const QPointer<Page>& page : pages_) {
    if (page != nullptr)
      pages.append(page);
  }
  return pages;
}

bool NamedFiles::show() const {
  const QList<Page*> all = pages();
  if (!all.isEmpty())
    workspace_.showPage(all.constFirst());
  if (!largeFirst_.isEmpty())
    workspace_.openings().open(workspace_.topWindow(), largeFirst_);
  return !all.isEmpty();
}

void NamedFiles::placeCarets(const std::optional<CaretPlace>& caret) {
  Page* const front = workspace_.topPage();
  if (caret && front != nullptr)
    carets_.emplace_back(front, *caret);
  for (const auto& [page, place] : carets_) {
    if (page != nullptr)
      putCaret(*page, place);
  }
  carets_.clear();
  if (front != nullptr)
    front->window()->showPage(front);
}

} // namespace desktop
