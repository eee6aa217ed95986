// SPDX-License-Identifier: MIT
// What the views of the list show of each row.
#include "desktop/ui/ResultList.h"

#include "desktop/ui/ToolTip.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QIcon>
#include <QStyle>

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

} // namespace

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
  // All at once: the text may itself hold what looks like a place for the next.
  return tr("%1: %2, %3, line %4, column %5")
      .arg(nameOf(place.severity), place.text, shownFile(place.fileName), QString::number(place.line),
           QString::number(place.column));
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
      return toolTipOf(row.place.text);
    return index.column() == FileColumn ? QVariant(toolTipOf(QDir::toNativeSeparators(row.place.fileName)))
                                        : QVariant();
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
