// SPDX-License-Identifier: MIT
#include "desktop/ui/UnitLinks.h"

#include "desktop/edit/EditControl.h"
#include "desktop/edit/TextColumns.h"
#include "desktop/files/SourceDocument.h"
#include "desktop/ui/EditWindow.h"
#include "desktop/ui/MessageBar.h"
#include "desktop/ui/Page.h"
#include "desktop/ui/Workspace.h"
#include "platform/UnitFinder.h"

#include <QDir>
#include <QFileInfo>
#include <QTextBlock>

#include <algorithm>

namespace desktop {

namespace {

std::size_t servedPosition(const SourceDocument& document, const QTextBlock& line, int unit) {
  return document.servedLineStart(line.blockNumber()) + static_cast<std::size_t>(charIndexOfUnit(line.text(), unit));
}

// The units of `line` that a range of the served text covers.
UnitSpan unitsIn(const SourceDocument& document, const QTextBlock& line, const TextRange& range) {
  const QString text = line.text();
  const std::size_t start = document.servedLineStart(line.blockNumber());
  const auto unitAt = [&](std::size_t position) {
    return static_cast<int>(unitOfCharIndex(text, static_cast<int>(std::max(position, start) - start)));
  };
  const int first = unitAt(range.begin);
  return {first, unitAt(range.end) - first};
}

// The file at a path that may be spelled in another case; empty when there is none.
QString fileInAnyCase(const QString& path) {
  QString found = QStringLiteral("/");
  for (const QString& name : path.split(u'/', Qt::SkipEmptyParts)) {
    const QDir folder(found);
    if (!folder.exists(name)) {
      const QStringList entries = folder.entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
      const auto entry = std::ranges::find_if(
          entries, [&](const QString& candidate) { return candidate.compare(name, Qt::CaseInsensitive) == 0; });
      if (entry == entries.end())
        return {};
      found = folder.filePath(*entry);
    } else {
      found = folder.filePath(name);
    }
  }
  return QFileInfo(found).isFile() ? found : QString();
}

} // namespace

UnitLinks::UnitLinks(TEditWindow* window, Workspace& workspace)
    : QObject(window), window_(window), workspace_(workspace) {
  HotLink* const link = window->editor()->hotLink();
  link->setFinder([this](const QTextBlock& line, int unit) { return linkAt(line, unit); });
  connect(link, &HotLink::activated, this, &UnitLinks::openAt);
}

UnitLinks::~UnitLinks() = default;

// What the units of the text in front are is found out again only when it has changed.
void UnitLinks::refresh() {
  const Page* const page = window_->currentPage();
  const SourceDocument* const shown = page != nullptr && page->isPascal() ? page->document() : nullptr;
  if (document_ == shown && (shown == nullptr || revision_ == shown->revision()))
    return;
  document_ = shown;
  revision_ = shown != nullptr ? shown->revision() : 0;
  units_ = shown != nullptr ? findUsedUnits(*shown->servedText()) : std::vector<UsedUnit>();
}

// Null when the character is no part of a unit's name.
const UsedUnit* UnitLinks::unitAt(const QTextBlock& line, int unit) {
  refresh();
  if (document_.isNull())
    return nullptr;
  const std::size_t position = servedPosition(*document_, line, unit);
  const auto found = std::ranges::find_if(units_, [position](const UsedUnit& candidate) {
    return candidate.place.begin <= position && position < candidate.place.end;
  });
  return found == units_.end() ? nullptr : &*found;
}

std::optional<UnitSpan> UnitLinks::linkAt(const QTextBlock& line, int unit) {
  const UsedUnit* const used = unitAt(line, unit);
  return used != nullptr ? std::optional(unitsIn(*document_, line, used->place)) : std::nullopt;
}

void UnitLinks::openAt(int position) {
  const QTextBlock line = window_->editor()->document()->findBlock(position);
  if (const UsedUnit* const used = unitAt(line, position - line.position()))
    open(*used);
}

void UnitLinks::openAtCaret() {
  const QTextCursor caret = window_->editor()->textCursor();
  const int unit = caret.positionInBlock();
  const UsedUnit* used = unitAt(caret.block(), unit);
  if (used == nullptr && unit > 0)
    used = unitAt(caret.block(), unit - 1);
  if (used != nullptr)
    open(*used);
  else
    window_->messageBar()->addMessage(MessageBar::Kind::Information,
                                      tr("The caret is not on a unit of a uses clause."));
}

void UnitLinks::open(const UsedUnit& unit) {
  const QString stated = statedFile(unit);
  if (!stated.isEmpty()) {
    workspace_.openFileIn(window_, stated);
    return;
  }
  std::vector<platform::TOTASearchFolder> path;
  for (const SearchFolder& folder : workspace_.searchPath().folders())
    path.push_back({folder.path, folder.withSubfolders});
  const QString name = QString::fromLatin1(unit.name);
  const auto result = platform::TUnitFinder().Find(name, document_->fileName(), path);
  if (!result.FileName.isEmpty())
    workspace_.openFileIn(window_, result.FileName);
  else
    window_->messageBar()->addMessage(MessageBar::Kind::Information,
                                      platform::UnitNotFoundMessage(name, result.Folders));
}

// The file that stands behind "in"; empty when none does, or when it is not there.
QString UnitLinks::statedFile(const UsedUnit& unit) const {
  if (unit.file.isEmpty())
    return {};
  const QTextBlock line = document_->findBlockByNumber(document_->lineOfServedPosition(unit.file.begin));
  const UnitSpan span = unitsIn(*document_, line, unit.file);
  QString path = line.text().mid(span.start, span.length);
  path.replace(QStringLiteral("''"), QStringLiteral("'")).replace(u'\\', u'/');
  return fileInAnyCase(QDir::cleanPath(QFileInfo(document_->fileName()).absoluteDir().absoluteFilePath(path)));
}

} // namespace desktop
