// SPDX-License-Identifier: MIT
#include "desktop/ui/Recovery.h"

#include "desktop/edit/EditControl.h"
#include "desktop/files/EnvironmentSettings.h"
#include "desktop/files/FileStore.h"
#include "desktop/files/SourceDocument.h"
#include "desktop/ui/EditWindow.h"
#include "desktop/ui/MessageBar.h"
#include "desktop/ui/Page.h"
#include "desktop/ui/ViewState.h"
#include "desktop/ui/Workspace.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <functional>
#include <utility>

namespace desktop {

static_assert(Recovery::usualInterval < Recovery::longestDelay);
static_assert(std::chrono::seconds(environmentLimits.recoverySeconds.last) <= Recovery::usualInterval);

namespace {

// Whether the file has the very text: then the editor was killed right after saving.
bool isSaved(const OrphanedText& orphan) {
  if (orphan.note().untitled)
    return false;
  const std::optional<RecoveredText> recovered = orphan.read();
  QFile file(orphan.note().fileName);
  if (!recovered || !file.open(QIODevice::ReadOnly))
    return false;
  const quorvane::TEncodedText encoded = savedBytes(*recovered);
  return !encoded.FirstMissing && file.size() == static_cast<qint64>(encoded.Bytes.size()) &&
         file.readAll().toStdString() == encoded.Bytes;
}

QString titlesOf(const std::vector<OrphanedText>& orphans) {
  QStringList titles;
  for (const OrphanedText& orphan : orphans)
    titles.append(QFileInfo(orphan.note().fileName).fileName());
  return titles.join(QStringLiteral(", "));
}

} // namespace

Recovery::Recovery(Workspace& workspace, const QString& folder, std::chrono::milliseconds interval)
    : workspace_(workspace), folder_(folder), interval_(interval) {
  timer_.setObjectName(QStringLiteral("RecoveryTimer"));
  timer_.setSingleShot(true);
  timer_.setTimerType(Qt::PreciseTimer);
  timer_.setInterval(interval);
  connect(&timer_, &QTimer::timeout, this, &Recovery::writeAll);
  connect(&folder_, &RecoveryFolder::written, this, &Recovery::finish);
  const auto followWindow = [this](TEditWindow* window) {
    for (Page* page : window->pages())
      follow(page);
    connect(window, &TEditWindow::pageAdded, this, &Recovery::follow);
    connect(window, &TEditWindow::pageAboutToClose, this, &Recovery::forget);
  };
  for (TEditWindow* window : workspace.windows())
    followWindow(window);
  connect(&workspace, &Workspace::windowOpened, this, followWindow);
}

Recovery::~Recovery() = default;

// A text that is waited with already does not have to wait longer.
void Recovery::setInterval(std::chrono::milliseconds interval) {
  interval_ = interval;
  if (timer_.isActive())
    timer_.start(std::min(timer_.remainingTimeAsDuration(), interval));
  else
    timer_.setInterval(interval);
}

void Recovery::follow(Page* page) {
  texts_.try_emplace(page);
  const SourceDocument* const document = page->document();
  connect(document, &QTextDocument::contentsChanged, this, [this, page] { noteChange(page); });
  connect(document, &SourceDocument::encodingChanged, this, [this, page] { noteChange(page); });
  connect(document, &SourceDocument::fileNameChanged, this, [this, page] { noteChange(page); });
  connect(document, &QTextDocument::modificationChanged, this, [this, page] { update(page); });
  noteChange(page);
}

void Recovery::noteChange(Page* page) {
  texts_.at(page).due = true;
  update(page);
}

void Recovery::update(Page* page) {
  Text& text = texts_.at(page);
  if (!page->document()->isModified()) {
    folder_.remove(std::exchange(text.name, {}));
    text = {};
  } else if (text.due && !timer_.isActive()) {
    timer_.start(interval_);
  }
}

void Recovery::forget(Page* page) {
  disconnect(page->document(), nullptr, this, nullptr);
  folder_.remove(texts_.at(page).name);
  texts_.erase(page);
}

void Recovery::discard() {
  timer_.stop();
  for (auto& [page, text] : texts_) {
    folder_.remove(text.name);
    text = {};
  }
}

void Recovery::writeAll() {
  for (auto& [page, text] : texts_) {
    // A disk that has not taken the last writing yet is not given another.
    if (text.busy && text.due)
      timer_.start(interval_);
    else if (text.due && page->document()->isModified())
      write(page, text);
  }
}

void Recovery::write(Page* page, Text& text) {
  if (text.name.isEmpty())
    text.name = folder_.newName();
  RecoveryNote note = recoveryNoteOf(*page->document());
  note.view = toJson(page->state());
  text.due = false;
  text.busy = true;
  folder_.write(text.name, note, page->document()->snapshot());
}

void Recovery::finish(const QString& name, const QString& problem) {
  const auto found =
      std::find_if(texts_.begin(), texts_.end(), [&name](const auto& each) { return each.second.name == name; });
  if (found == texts_.end())
    return; // saved or closed by now
  auto& [page, text] = *found;
  text.busy = false;
  if (problem.isEmpty()) {
    failing_ = false;
    Q_EMIT kept(page->document()->fileName());
    return;
  }
  text.due = true;
  timer_.start(interval_);
  if (!std::exchange(failing_, true))
    workspace_.topWindow()->messageBar()->addMessage(
        MessageBar::Kind::Warning, tr("Unsaved text cannot be kept for the case of a crash: %1.").arg(problem));
}

void Recovery::offer() {
  std::vector<OrphanedText> orphans = folder_.takeOrphans();
  std::erase_if(orphans, [](const OrphanedText& orphan) {
    const bool saved = isSaved(orphan);
    if (saved)
      orphan.discard();
    return saved;
  });
  const auto older = std::stable_partition(orphans.begin(), orphans.end(),
                                           [](const OrphanedText& orphan) { return !isFileNewer(orphan.note()); });
  askFor({orphans.begin(), older}, tr("The editor did not end in order last time. There is unsaved text of %1."),
         tr("&Restore"), tr("&Discard"));
  askFor({older, orphans.end()},
         tr("The editor did not end in order last time. It has kept text of %1 that is older than the file: "
            "the file was saved later."),
         tr("Restore &Older Text"), tr("D&iscard Older Text"));
}

// The question owns the orphans: while it stands no other editor asks.
void Recovery::askFor(const std::vector<OrphanedText>& orphans, const QString& question, const QString& restoring,
                      const QString& discarding) {
  if (orphans.empty())
    return;
  const auto discard = [orphans] {
    std::for_each(orphans.begin(), orphans.end(), std::mem_fn(&OrphanedText::discard));
  };
  workspace_.topWindow()->messageBar()->ask(
      MessageBar::Kind::Warning, question.arg(titlesOf(orphans)),
      {{restoring, [this, orphans] { restore(orphans); }}, {discarding, discard}});
}

void Recovery::restore(const std::vector<OrphanedText>& orphans) {
  for (const OrphanedText& orphan : orphans) {
    if (const QString problem = restore(orphan); !problem.isEmpty())
      workspace_.topWindow()->messageBar()->addMessage(
          MessageBar::Kind::Warning, tr("The unsaved text of %1 was not restored: %2. It is offered at the next start.")
                                         .arg(orphan.note().fileName, problem));
  }
}

QString Recovery::restore(const OrphanedText& orphan) {
  const Page* const open = workspace_.findPage(orphan.note().fileName);
  if (open != nullptr && open->document()->isModified() && !orphan.note().untitled)
    return tr("the file has been edited since");
  const std::optional<RecoveredText> recovered = orphan.read();
  if (!recovered)
    return tr("its recovery file cannot be read");
  Page* const page = makePage(*recovered);
  // The file changes hands, so that there is no moment without one.
  if (QString name = folder_.newName(); folder_.adopt(orphan, name))
    texts_.at(page).name = std::move(name);
  return {};
}

// The new page takes the place of one that shows the file, or that nobody has written on.
Page* Recovery::makePage(const RecoveredText& recovered) {
  Page* const open = workspace_.findPage(recovered.note.fileName);
  RecoveredText named = recovered;
  // A made-up name that is in use is nobody's loss.
  if (recovered.note.untitled && open != nullptr && open->document()->isModified())
    named.note.fileName = newDocument(QFileInfo(recovered.note.fileName).absolutePath(), [this](const QString& path) {
                            return workspace_.findPage(path) != nullptr;
                          })->fileName();
  const bool inPlace = open != nullptr && !open->document()->isModified();
  TEditWindow* const window = inPlace ? open->window() : workspace_.topWindow();
  if (inPlace)
    window->showPage(open);
  Page* const page = workspace_.addPage(window, restoredDocument(named));
  if (inPlace && window->pages().contains(open))
    window->closePage(open);
  page->setState(editStateOf(recovered.note.view));
  return page;
}

} // namespace desktop
