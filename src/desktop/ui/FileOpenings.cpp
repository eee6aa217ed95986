// SPDX-License-Identifier: MIT
#include "desktop/ui/FileOpenings.h"

#include "desktop/edit/CellLayout.h"
#include "desktop/edit/EditControl.h"
#include "desktop/files/SourceDocument.h"
#include "desktop/ui/EditWindow.h"
#include "desktop/ui/MessageBar.h"
#include "desktop/ui/Page.h"
#include "desktop/ui/Workspace.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QTextBlock>

#include <algorithm>
#include <utility>

namespace desktop {

namespace {

constexpr std::chrono::milliseconds progressInterval{100};

int revisionOf(const Page* page) {
  return page != nullptr ? page->document()->revision() : 0;
}

// Showing a document for the first time makes a layout for each of its lines.
void prepare(SourceDocument& document, const DocumentLook& look) {
  CellLayout::install(document, look);
  for (QTextBlock block = document.begin(); block.isValid(); block = block.next())
    (void)block.layout();
}

} // namespace

struct FileOpenings::Opening {
  QString path;
  QPointer<TEditWindow> window;
  Place place = Place::Front;
  // What was in front when it began, to see whether that is still so.
  QPointer<Page> front;
  int frontRevision = 0;
  std::vector<Opened> opened;
  std::shared_ptr<LoadControl> control;
  QElapsedTimer running;
  QPointer<QWidget> row; // null as long as there is none

  void noteFront() {
    front = window->currentPage();
    frontRevision = revisionOf(front);
  }
  bool mayComeToFront() const {
    const Page* const present = window != nullptr ? window->currentPage() : nullptr;
    return place == Place::Front && present == front && revisionOf(present) == frontRevision;
  }
};

bool FileOpenings::isLarge(const QString& path) {
  return QFileInfo(path).size() >= largeBytes;
}

FileOpenings::FileOpenings(Workspace& workspace) : QObject(&workspace), workspace_(workspace) {
  timer_.setInterval(progressInterval);
  connect(&timer_, &QTimer::timeout, this, &FileOpenings::showProgress);
}

FileOpenings::~FileOpenings() = default;

Page* FileOpenings::open(TEditWindow* window, const QString& path, const Opened& opened, Place place) {
  const QString absolute = QDir::cleanPath(QFileInfo(path).absoluteFilePath());
  if (isLarge(absolute) && workspace_.findPage(absolute) == nullptr) {
    begin(window, absolute, opened, place);
    return nullptr;
  }
  Page* const page = workspace_.openFileIn(window, absolute);
  if (page != nullptr && opened)
    opened(page);
  return page;
}

FileOpenings::Opening* FileOpenings::find(const QString& path) const {
  const QFileInfo wanted(path);
  const auto found = std::ranges::find_if(openings_, [&wanted](const auto& opening) {
    return opening->path == wanted.filePath() || QFileInfo(opening->path) == wanted;
  });
  return found == openings_.end() ? nullptr : found->get();
}

void FileOpenings::begin(TEditWindow* window, const QString& path, const Opened& opened, Place place) {
  Opening* opening = find(path);
  const bool isNew = opening == nullptr;
  if (isNew)
    opening = openings_.emplace_back(std::make_unique<Opening>()).get();
  if (isNew || place == Place::Front) {
    opening->place = place;
    opening->window = window;
    opening->noteFront();
  }
  if (opened)
    opening->opened.push_back(opened);
  if (!isNew)
    return;
  opening->path = path;
  opening->running.start();
  opening->control = loader_.load(
      path, [look = window->editor()->look()](SourceDocument& document) { prepare(document, look); },
      [this, opening](LoadResult result) { finish(opening, std::move(result)); });
  timer_.start();
  Q_EMIT changed();
}

QStringList FileOpenings::pending(const TEditWindow* window) const {
  QStringList paths;
  for (const auto& opening : openings_) {
    if (opening->window == window)
      paths.append(opening->path);
  }
  return paths;
}

void FileOpenings::showProgress() {
  for (const auto& each : openings_) {
    Opening* const opening = each.get();
    if (opening->row == nullptr && opening->window != nullptr && opening->running.elapsed() >= quietTime.count())
      opening->row = opening->window->messageBar()->showProgress(tr("Opening %1").arg(opening->path),
                                                                 [this, opening] { stop(opening); });
    if (opening->row != nullptr)
      MessageBar::setProgress(*opening->row, static_cast<int>(opening->control->done() * 100));
  }
}

std::unique_ptr<FileOpenings::Opening> FileOpenings::take(const Opening* opening) {
  const auto found = std::ranges::find(openings_, opening, &std::unique_ptr<Opening>::get);
  std::unique_ptr<Opening> taken = std::move(*found);
  openings_.erase(found);
  if (openings_.empty())
    timer_.stop();
  if (taken->row != nullptr && taken->window != nullptr)
    taken->window->messageBar()->withdraw(taken->row);
  return taken;
}

void FileOpenings::stop(const Opening* opening) {
  take(opening)->control->stop();
  Q_EMIT changed();
}

void FileOpenings::stop(const TEditWindow* window) {
  for (const QString& path : pending(window))
    stop(find(path));
}

void FileOpenings::finish(const Opening* opening, LoadResult result) {
  const std::unique_ptr<Opening> taken = take(opening);
  // Who waits for several files has not gone on with something else because the first of them is there.
  std::vector<Opening*> unaffected;
  for (const auto& other : openings_) {
    if (other->mayComeToFront())
      unaffected.push_back(other.get());
  }
  Page* const page = taken->window != nullptr ? show(*taken, std::move(result)) : nullptr;
  for (Opening* other : unaffected) {
    if (other->window != nullptr)
      other->noteFront();
  }
  if (page != nullptr) {
    for (const Opened& opened : taken->opened)
      opened(page);
  }
  Q_EMIT changed();
}

Page* FileOpenings::show(const Opening& opening, LoadResult result) {
  const bool toFront = opening.mayComeToFront();
  // It may have been opened, or another page saved under its name, in the meantime.
  if (Page* const open = workspace_.findPage(opening.path)) {
    if (toFront)
      workspace_.showPage(open);
    return open;
  }
  const QPointer<Page> before = opening.window->currentPage();
  Page* const page = workspace_.addLoaded(opening.window, opening.path, std::move(result));
  if (page != nullptr && !toFront && before != nullptr)
    opening.window->showPage(before);
  return page;
}

} // namespace desktop
