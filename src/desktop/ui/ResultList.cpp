// SPDX-License-Identifier: MIT
#include "desktop/ui/ResultList.h"

#include "desktop/edit/EditControl.h"
#include "desktop/edit/TextColumns.h"
#include "desktop/files/SourceDocument.h"
#include "desktop/ui/EditWindow.h"
#include "desktop/ui/Page.h"
#include "desktop/ui/Workspace.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QIcon>
#include <QStyle>
#include <QTextBlock>

#include <algorithm>
#include <utility>

namespace desktop {

namespace {

QString nameOf(Severity severity) {
  switch (severity) {
  case Severity::Error:
    return ResultList::tr("Error");
  case Severity::Warning:
    return ResultList::tr("Warning");
  case Severity::Information:
    return ResultList::tr("Information");
  case Severity::Match:
    break;
  }
  return ResultList::tr("Match");
}

QIcon iconOf(Severity severity) {
  const QStyle* const style = QApplication::style();
  switch (severity) {
  case Severity::Error:
    return style->standardIcon(QStyle::SP_MessageBoxCritical);
  case Severity::Warning:
    return style->standardIcon(QStyle::SP_MessageBoxWarning);
  case Severity::Information:
    return style->standardIcon(QStyle::SP_MessageBoxInformation);
  case Severity::Match:
    break;
  }
  return {};
}

// A tool tip wraps only what it takes for rich text.
QString wrapping(const QString& plain) {
  return QStringLiteral("<qt>%1</qt>").arg(plain.toHtmlEscaped());
}

} // namespace

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

void ResultList::finish(int run, const QString& summary) {
  if (run != run_ || !running_)
    return;
  running_ = false;
  stop_ = {};
  summary_ = summary;
  Q_EMIT stateChanged();
  Q_EMIT finished();
}

void ResultList::stop() {
  if (const std::function<void()> stop = std::exchange(stop_, {}))
    stop();
}

FoundPlace ResultList::place(int row) const {
  return present(rows_.at(static_cast<std::size_t>(row)));
}

Page* ResultList::page(int row) const {
  const QTextCursor& cursor = rows_.at(static_cast<std::size_t>(row)).cursor;
  return cursor.isNull() ? nullptr : pageOf(cursor.document());
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
  row.cursor = QTextCursor(&document);
  row.cursor.setPosition(block.position() + std::clamp(row.place.unit, 0, block.length() - 1));
}

// The text is that of the file now: its places are kept for when the page has been closed.
void ResultList::keep(const SourceDocument* document) {
  const Page* const page = pageOf(document);
  const int tabWidth = page != nullptr ? page->window()->editor()->tabWidth() : 1;
  QTextBlock block; // of the row before, and its place there
  LinePlace at;
  for (Row& row : rows_) {
    if (row.cursor.isNull() || row.cursor.document() != document)
      continue;
    const int unit = row.cursor.positionInBlock();
    if (row.cursor.block() != block || unit < at.unit)
      at = {};
    block = row.cursor.block();
    at = walkOn(block.text(), at, unit, tabWidth);
    row.place.line = block.blockNumber() + 1;
    row.place.unit = unit;
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
    if (!row.cursor.isNull() && row.cursor.document() == document)
      row.cursor = {};
  }
  update();
}

void ResultList::rename(const SourceDocument* document) {
  for (Row& row : rows_) {
    if (!row.cursor.isNull() && row.cursor.document() == document)
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
  if (row.cursor.isNull())
    return place;
  const QTextBlock block = row.cursor.block();
  const Page* const page = pageOf(row.cursor.document());
  place.line = block.blockNumber() + 1;
  place.unit = row.cursor.positionInBlock();
  if (page != nullptr)
    place.column = columnOfUnit(block.text(), place.unit, page->window()->editor()->tabWidth());
  return place;
}

int ResultList::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : count();
}

int ResultList::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(ColumnCount);
}

QString ResultList::shownFile(const QString& fileName) const {
  const QString prefix = folder_.endsWith(u'/') ? folder_ : folder_ + u'/';
  if (!folder_.isEmpty() && fileName.startsWith(prefix))
    return fileName.mid(prefix.size());
  return folder_.isEmpty() ? QFileInfo(fileName).fileName() : fileName;
}

QString ResultList::spoken(const FoundPlace& place) const {
  return tr("%1: %2, %3, line %4, column %5")
      .arg(nameOf(place.severity), place.text, shownFile(place.fileName))
      .arg(place.line)
      .arg(place.column);
}

QVariant ResultList::display(const FoundPlace& place, int column) const {
  switch (column) {
  case TextColumn:
    return place.text;
  case FileColumn:
    return shownFile(place.fileName);
  case LineColumn:
    return place.line;
  case CellColumn:
    return place.column;
  default:
    return {};
  }
}

QVariant ResultList::data(const QModelIndex& index, int role) const {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid))
    return {};
  const bool isNumber = index.column() == LineColumn || index.column() == CellColumn;
  const Row& row = rows_[static_cast<std::size_t>(index.row())];
  switch (role) {
  case Qt::DisplayRole:
    return display(isNumber ? present(row) : row.place, index.column());
  case Qt::ToolTipRole:
    if (index.column() == TextColumn)
      return wrapping(row.place.text);
    return index.column() == FileColumn ? QVariant(wrapping(QDir::toNativeSeparators(row.place.fileName))) : QVariant();
  case Qt::DecorationRole:
    return index.column() == TextColumn && row.place.severity != Severity::Match ? QVariant(iconOf(row.place.severity))
                                                                                 : QVariant();
  case Qt::TextAlignmentRole:
    return isNumber ? QVariant(int(Qt::AlignRight | Qt::AlignVCenter)) : QVariant();
  case Qt::AccessibleTextRole:
    return index.column() == TextColumn ? QVariant(spoken(present(row))) : QVariant();
  default:
    return {};
  }
}

QVariant ResultList::headerData(int section, Qt::Orientation orientation, int role) const {
  const bool isNumber = section == LineColumn || section == CellColumn;
  if (orientation != Qt::Horizontal)
    return {};
  if (role == Qt::TextAlignmentRole)
    return int((isNumber ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
  if (role != Qt::DisplayRole)
    return {};
  switch (section) {
  case TextColumn:
    return tr("Text");
  case FileColumn:
    return tr("File");
  case LineColumn:
    return tr("Line");
  case CellColumn:
    return tr("Column");
  default:
    return {};
  }
}

} // namespace desktop
