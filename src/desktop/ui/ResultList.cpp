// SPDX-License-Identifier: MIT
#include "desktop/ui/ResultList.h"

#include "desktop/edit/EditControl.h"
#include "desktop/edit/TextColumns.h"
#include "desktop/files/SourceDocument.h"
#include "desktop/ui/EditWindow.h"
#include "desktop/ui/Page.h"
#include "desktop/ui/Workspace.h"

#include <QTextBlock>

#include <algorithm>
#include <utility>

namespace desktop {

namespace {

// Every edit takes time for each cursor of its document, and a command may make a hundred thousand edits.
constexpr int mostCursors = 1'000;

} // namespace

struct ResultList::Spot {
  QTextBlock block;
  int unit;
};

ResultList::ResultList(Workspace& workspace) : QAbstractTableModel(&workspace), workspace_(workspace) {
  connect(&workspace, &Workspace::pageOpened, this, [this](Page* page) {
    follow(page);
    adopt(page);
  });
}

ResultList::~ResultList() = default;

int ResultList::begin(const QString& title, std::function<void()> stop, const QString& folder) {
  this->stop();
  beginResetModel();
  rows_.clear();
  cursors_.clear();
  endResetModel();
  ++run_;
  running_ = true;
  stop_ = std::move(stop);
  title_ = title;
  summary_.clear();
  folder_ = folder;
  Q_EMIT stateChanged();
  return run_;
}

void ResultList::append(int run, const std::vector<FoundPlace>& places) {
  if (run != run_ || !running_ || places.empty())
    return;
  const QList<Page*> open = pages();
  beginInsertRows({}, count(), count() + static_cast<int>(places.size()) - 1);
  SourceDocument* document = nullptr;
  const QString* name = nullptr; // whose document that is
  for (const FoundPlace& place : places) {
    if (name == nullptr || *name != place.fileName) {
      const auto page = std::ranges::find_if(
          open, [&place](const Page* each) { return each->document()->fileName() == place.fileName; });
      document = page != open.end() ? (*page)->document() : nullptr;
      name = &place.fileName;
    }
    rows_.push_back({place});
    if (document != nullptr)
      track(rows_.back(), *document);
  }
  endInsertRows();
}

void ResultList::showProgress(int run, const QString& text) {
  if (run != run_ || !running_)
    return;
  summary_ = text;
  Q_EMIT stateChanged();
}

bool ResultList::finish(int run, const QString& summary) {
  if (run != run_ || !running_)
    return false;
  running_ = false;
  stop_ = {};
  summary_ = summary;
  Q_EMIT stateChanged();
  Q_EMIT finished();
  return true;
}

void ResultList::stop() {
  if (const std::function<void()> stop = std::exchange(stop_, {}))
    stop();
}

FoundPlace ResultList::place(int row) const {
  return present(rows_.at(static_cast<std::size_t>(row)));
}

Page* ResultList::page(int row) const {
  const SourceDocument* const document = rows_.at(static_cast<std::size_t>(row)).document;
  return document == nullptr ? nullptr : pageOf(document);
}

QList<Page*> ResultList::pages() const {
  QList<Page*> all;
  for (const TEditWindow* window : workspace_.windows())
    all += window->pages();
  return all;
}

Page* ResultList::pageOf(const QTextDocument* document) const {
  const QList<Page*> open = pages();
  const auto found = std::ranges::find_if(open, [document](const Page* page) { return page->document() == document; });
  return found != open.end() ? *found : nullptr;
}

void ResultList::follow(Page* page) {
  const SourceDocument* const document = page->document();
  connect(document, &QTextDocument::contentsChanged, this, &ResultList::update);
  connect(document, &QTextDocument::contentsChange, this,
          [this, document, lines = document->blockCount()](int position, int removed, int added) mutable {
            const int growth = document->blockCount() - std::exchange(lines, document->blockCount());
            const int last = document->characterCount() - 1;
            const QTextBlock first = document->findBlock(std::min(position, last));
            const int end = document->findBlock(std::min(position + added, last)).blockNumber() + 1;
            // What is put in front of a line moves all of it.
            const bool isInFront = removed == 0 && position == first.position();
            const int begin = first.blockNumber() + (isInFront ? 0 : 1);
            shift(document, begin, isInFront ? begin : end - growth, growth);
          });
  connect(document, &SourceDocument::fileNameChanged, this, [this, document] { rename(document); });
  connect(document, &QTextDocument::modificationChanged, this, [this, document](bool modified) {
    if (!modified)
      keep(document);
  });
  connect(page->window(), &TEditWindow::pageAboutToClose, page, [this, page](const Page* closing) {
    if (closing == page)
      release(page);
  });
}

// The places that were found before the file was opened.
void ResultList::adopt(Page* page) {
  SourceDocument& document = *page->document();
  for (Row& row : rows_) {
    if (row.place.fileName == document.fileName())
      track(row, document);
  }
  update();
}

// A file that is shorter than it was has its end instead.
void ResultList::track(Row& row, SourceDocument& document) {
  const QTextBlock wanted = document.findBlockByNumber(std::max(row.place.line - 1, 0));
  const QTextBlock block = wanted.isValid() ? wanted : document.lastBlock();
  row.document = &document;
  row.line = block.blockNumber() + 1;
  row.cursor = {};
  int& cursors = cursors_[&document];
  if (cursors == mostCursors)
    return;
  ++cursors;
  row.cursor = QTextCursor(&document);
  row.cursor.setPosition(block.position() + std::clamp(row.place.unit, 0, block.length() - 1));
}

// An edit of the lines from the first to the last one, as they were counted before, has made so many more of them.
void ResultList::shift(const SourceDocument* document, int firstLine, int lastLine, int growth) {
  if (growth == 0)
    return;
  for (Row& row : rows_) {
    if (row.document != document || !row.cursor.isNull() || row.line <= firstLine)
      continue;
    row.line = row.line > lastLine ? row.line + growth : std::min(row.line, std::max(lastLine + growth, firstLine));
  }
}

ResultList::Spot ResultList::spotOf(const Row& row) {
  if (!row.cursor.isNull())
    return {row.cursor.block(), row.cursor.positionInBlock()};
  const QTextBlock wanted = row.document->findBlockByNumber(row.line - 1);
  const QTextBlock block = wanted.isValid() ? wanted : row.document->lastBlock();
  return {block, std::clamp(row.place.unit, 0, block.length() - 1)};
}

// The text is that of the file now: its places are kept for when the page has been closed.
void ResultList::keep(const SourceDocument* document) {
  const Page* const page = pageOf(document);
  const int tabWidth = page != nullptr ? page->window()->editor()->tabWidth() : 1;
  QTextBlock block; // of the row before, and its place there
  LinePlace at;
  for (Row& row : rows_) {
    if (row.document != document)
      continue;
    const Spot spot = spotOf(row);
    if (spot.block != block || spot.unit < at.unit)
      at = {};
    block = spot.block;
    at = walkOn(block.text(), at, spot.unit, tabWidth);
    row.place.line = block.blockNumber() + 1;
    row.place.unit = spot.unit;
    row.place.column = at.column;
  }
}

// What was edited and not saved goes with the page, and the places are where they were before.
void ResultList::release(Page* page) {
  const SourceDocument* const document = page->document();
  disconnect(document, nullptr, this, nullptr);
  if (!document->isModified())
    keep(document);
  for (Row& row : rows_) {
    if (row.document == document) {
      row.document = nullptr;
      row.cursor = {};
    }
  }
  cursors_.erase(document);
  update();
}

void ResultList::rename(const SourceDocument* document) {
  for (Row& row : rows_) {
    if (row.document == document)
      row.place.fileName = document->fileName();
  }
  update();
}

void ResultList::update() {
  if (!rows_.empty())
    Q_EMIT dataChanged(index(0, 0), index(count() - 1, ColumnCount - 1));
}

FoundPlace ResultList::present(const Row& row) const {
  FoundPlace place = row.place;
  if (row.document == nullptr)
    return place;
  const Spot spot = spotOf(row);
  const Page* const page = pageOf(row.document);
  place.line = spot.block.blockNumber() + 1;
  place.unit = spot.unit;
  if (page != nullptr)
    place.column = columnOfUnit(spot.block.text(), place.unit, page->window()->editor()->tabWidth());
  return place;
}

} // namespace desktop
