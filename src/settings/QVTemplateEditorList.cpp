// SPDX-License-Identifier: MIT
#include "settings/QVTemplateEditorList.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QScopedValueRollback>

#include <algorithm>

namespace quorvane {

TQVTemplateList::TQVTemplateList(QWidget* parent) : QListWidget(parent) {
  setSelectionMode(SingleSelection);
  setEditTriggers(NoEditTriggers);
  setUniformItemSizes(true); // or thousands of names are measured one by one
}

void TQVTemplateList::SetNames(const QStringList& names) {
  const QScopedValueRollback silence(silent_, true);
  clear();
  addItems(names);
}

int TQVTemplateList::SelectedRow() const {
  const QModelIndexList indexes = selectedIndexes();
  return indexes.isEmpty() ? -1 : indexes.constFirst().row();
}

void TQVTemplateList::SelectRow(int row) {
  const QScopedValueRollback silence(silent_, true);
  clearSelection();
  setCurrentRow(row, QItemSelectionModel::ClearAndSelect);
}

QString TQVTemplateList::SelectedName() const {
  const QListWidgetItem* const selected = item(SelectedRow());
  return selected ? selected->text() : QString();
}

void TQVTemplateList::keyPressEvent(QKeyEvent* event) {
  const bool moves = event->key() == Qt::Key_Up || event->key() == Qt::Key_Down;
  // The frame of the focus is on a name that is not selected; the first key does that, instead of passing it over.
  if (moves && SelectedRow() < 0 && count() > 0)
    setCurrentRow(std::max(currentRow(), 0), QItemSelectionModel::ClearAndSelect);
  else
    QListWidget::keyPressEvent(event);
}

void TQVTemplateList::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton)
    return; // only a click that chooses may select
  pressed_ = true;
  QListWidget::mousePressEvent(event);
}

void TQVTemplateList::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton)
    return;
  QListWidget::mouseReleaseEvent(event);
  pressed_ = false;
  Click();
}

void TQVTemplateList::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
  QListWidget::selectionChanged(selected, deselected);
  if (!pressed_ && !silent_)
    Click();
}

QItemSelectionModel::SelectionFlags TQVTemplateList::selectionCommand(const QModelIndex& index,
                                                                      const QEvent* event) const {
  const QItemSelectionModel::SelectionFlags usual = QListWidget::selectionCommand(index, event);
  const bool deselects = !index.isValid() || usual.testFlag(QItemSelectionModel::Deselect);
  return deselects ? QItemSelectionModel::NoUpdate : usual;
}

void TQVTemplateList::Click() {
  if (OnClick && SelectedRow() >= 0)
    OnClick();
}

} // namespace quorvane
