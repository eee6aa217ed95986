// SPDX-License-Identifier: MIT
#include "desktop/ui/SearchPathDialog.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace desktop {

namespace {

enum Column { FolderColumn, SubfoldersColumn };
constexpr int pathRole = Qt::UserRole;

QString pathOf(const QTreeWidgetItem& item) {
  return item.data(FolderColumn, pathRole).toString();
}

} // namespace

SearchPathDialog::SearchPathDialog(const QList<SearchFolder>& folders, QWidget* parent)
    : QDialog(parent), list_(new QTreeWidget) {
  setObjectName(QStringLiteral("SearchPathDialog"));
  setWindowTitle(tr("Search Path"));
  list_->setObjectName(QStringLiteral("FolderList"));
  list_->setHeaderLabels({tr("Folder"), tr("With Subfolders")});
  list_->setRootIsDecorated(false);
  list_->setUniformRowHeights(true);
  list_->header()->setStretchLastSection(false);
  list_->header()->setSectionResizeMode(FolderColumn, QHeaderView::Stretch);
  list_->header()->setSectionResizeMode(SubfoldersColumn, QHeaderView::ResizeToContents);
  for (const SearchFolder& folder : folders)
    addRow(folder);
  list_->setCurrentItem(list_->topLevelItem(0));

  auto* const buttons = new QVBoxLayout;
  buttons->addWidget(makeButton("AddFolder", tr("&Add..."), &SearchPathDialog::add));
  buttons->addWidget(remove_ = makeButton("RemoveFolder", tr("&Remove"), &SearchPathDialog::remove));
  buttons->addWidget(up_ = makeButton("FolderUp", tr("&Up"), &SearchPathDialog::moveUp));
  buttons->addWidget(down_ = makeButton("FolderDown", tr("&Down"), &SearchPathDialog::moveDown));
  buttons->addStretch();
  auto* const row = new QHBoxLayout;
  row->addWidget(list_);
  row->addLayout(buttons);
  auto* const answers = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
  auto* const layout = new QVBoxLayout(this);
  layout->addWidget(new QLabel(tr("Units are looked for beside the current file and then in these folders:")));
  layout->addLayout(row);
  layout->addWidget(answers);
  resize(620, 300);
  connect(answers, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(answers, &QDialogButtonBox::rejected, this, &QDialog::reject);
  connect(list_, &QTreeWidget::currentItemChanged, this, &SearchPathDialog::enableButtons);
  enableButtons();
}

QPushButton* SearchPathDialog::makeButton(const char* name, const QString& text, void (SearchPathDialog::*run)()) {
  auto* const button = new QPushButton(text);
  button->setObjectName(QLatin1StringView(name));
  button->setAutoDefault(false); // Enter accepts the list
  connect(button, &QPushButton::clicked, this, run);
  return button;
}

QTreeWidgetItem* SearchPathDialog::addRow(const SearchFolder& folder) {
  auto* const item = new QTreeWidgetItem(list_);
  const QString shown = QDir::toNativeSeparators(folder.path);
  item->setData(FolderColumn, pathRole, folder.path);
  item->setText(FolderColumn, shown);
  item->setToolTip(FolderColumn, shown);
  item->setCheckState(SubfoldersColumn, folder.withSubfolders ? Qt::Checked : Qt::Unchecked);
  if (!QFileInfo(folder.path).isDir()) {
    item->setText(FolderColumn, tr("%1 (missing)").arg(shown));
    item->setForeground(FolderColumn, palette().brush(QPalette::PlaceholderText));
  }
  return item;
}

QList<SearchFolder> SearchPathDialog::folders() const {
  QList<SearchFolder> folders;
  for (int row = 0; row < list_->topLevelItemCount(); ++row) {
    const QTreeWidgetItem& item = *list_->topLevelItem(row);
    folders.append({pathOf(item), item.checkState(SubfoldersColumn) == Qt::Checked});
  }
  return folders;
}

void SearchPathDialog::add() {
  const QTreeWidgetItem* const current = list_->currentItem();
  QFileDialog dialog(this, tr("Add Folder"), current != nullptr ? pathOf(*current) : QString());
  dialog.setFileMode(QFileDialog::Directory);
  dialog.setOption(QFileDialog::ShowDirsOnly);
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
    return;
  const QString path = QDir::cleanPath(QDir(dialog.selectedFiles().constFirst()).absolutePath());
  for (int row = 0; row < list_->topLevelItemCount(); ++row) {
    if (pathOf(*list_->topLevelItem(row)) == path)
      return list_->setCurrentItem(list_->topLevelItem(row));
  }
  list_->setCurrentItem(addRow({path}));
}

void SearchPathDialog::remove() {
  delete list_->currentItem();
  enableButtons();
}

void SearchPathDialog::moveUp() {
  moveRow(-1);
}

void SearchPathDialog::moveDown() {
  moveRow(1);
}

void SearchPathDialog::moveRow(int step) {
  const int row = list_->indexOfTopLevelItem(list_->currentItem());
  QTreeWidgetItem* const item = list_->takeTopLevelItem(row);
  list_->insertTopLevelItem(row + step, item);
  list_->setCurrentItem(item);
}

void SearchPathDialog::enableButtons() {
  const int row = list_->indexOfTopLevelItem(list_->currentItem());
  remove_->setEnabled(row >= 0);
  up_->setEnabled(row > 0);
  down_->setEnabled(row >= 0 && row + 1 < list_->topLevelItemCount());
}

} // namespace desktop
