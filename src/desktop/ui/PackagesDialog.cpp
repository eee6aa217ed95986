// SPDX-License-Identifier: MIT
#include "desktop/ui/PackagesDialog.h"

#include "desktop/ui/PackageList.h"

#include <QDialogButtonBox>
#include <QFileDialog>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace desktop {

namespace {

enum Column { PackageColumn, FileColumn };

} // namespace

PackagesDialog::PackagesDialog(PackageList& packages, QWidget* parent)
    : QDialog(parent), packages_(packages), list_(new QTreeWidget), problem_(new QLabel) {
  setObjectName(QStringLiteral("PackagesDialog"));
  setWindowTitle(tr("Packages"));
  list_->setObjectName(QStringLiteral("PackageList"));
  list_->setHeaderLabels({tr("Package"), tr("File")});
  list_->setRootIsDecorated(false);
  list_->setUniformRowHeights(true);
  list_->header()->setSectionResizeMode(PackageColumn, QHeaderView::ResizeToContents);
  problem_->setObjectName(QStringLiteral("PackageProblem"));
  problem_->setTextFormat(Qt::PlainText);
  problem_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  problem_->setWordWrap(true);
  problem_->hide();

  auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Close);
  QPushButton* const addButton = buttons->addButton(tr("&Add..."), QDialogButtonBox::ActionRole);
  addButton->setAutoDefault(false);
  auto* const layout = new QVBoxLayout(this);
  layout->addWidget(new QLabel(tr("Packages that are checked are loaded:")));
  layout->addWidget(list_);
  layout->addWidget(problem_);
  layout->addWidget(buttons);
  resize(620, 260);
  showRows();
  connect(list_, &QTreeWidget::itemChanged, this, &PackagesDialog::onItemChanged);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  connect(addButton, &QPushButton::clicked, this, &PackagesDialog::add);
}

// Rows are only ever added, so that an item lives on while its own change is handled.
void PackagesDialog::showRows() {
  const QSignalBlocker blocker(list_);
  const QList<PackageRow> rows = packages_.rows();
  for (int row = 0; row < rows.size(); ++row) {
    QTreeWidgetItem* item = list_->topLevelItem(row);
    if (item == nullptr)
      item = new QTreeWidgetItem(list_);
    item->setText(PackageColumn, rows[row].description);
    item->setText(FileColumn, rows[row].fileName);
    item->setToolTip(FileColumn, rows[row].fileName);
    item->setCheckState(PackageColumn, rows[row].loaded ? Qt::Checked : Qt::Unchecked);
  }
}

void PackagesDialog::onItemChanged(QTreeWidgetItem* item, int column) {
  if (column != PackageColumn)
    return;
  const QString fileName = item->text(FileColumn);
  if (item->checkState(PackageColumn) == Qt::Checked) {
    load(fileName);
    return;
  }
  problem_->hide();
  packages_.unload(fileName);
  showRows();
}

void PackagesDialog::add() {
  QFileDialog dialog(this, tr("Add Package"));
  dialog.setFileMode(QFileDialog::ExistingFile);
  dialog.setNameFilters({tr("Packages (*.so)"), tr("All files (*)")});
  if (dialog.exec() == QDialog::Accepted && !dialog.selectedFiles().isEmpty())
    load(dialog.selectedFiles().constFirst());
}

void PackagesDialog::load(const QString& fileName) {
  const QString problem = packages_.load(fileName);
  problem_->setText(problem);
  problem_->setVisible(!problem.isEmpty());
  showRows();
}

} // namespace desktop
