// SPDX-License-Identifier: MIT
#include "desktop/ui/PackagesDialog.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace desktop {

PackagesDialog::PackagesDialog(const QList<PackageRow>& packages, QWidget* parent) : QDialog(parent) {
  setObjectName(QStringLiteral("PackagesDialog"));
  setWindowTitle(tr("Packages"));
  auto* const list = new QTreeWidget;
  list->setObjectName(QStringLiteral("PackageList"));
  list->setHeaderLabels({tr("Package"), tr("File")});
  list->setRootIsDecorated(false);
  list->setUniformRowHeights(true);
  for (const PackageRow& package : packages) {
    auto* const item = new QTreeWidgetItem(list, {package.description, package.fileName});
    item->setToolTip(1, package.fileName);
  }
  list->header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);

  auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Close);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  auto* const layout = new QVBoxLayout(this);
  layout->addWidget(new QLabel(packages.isEmpty() ? tr("No package is loaded.") : tr("Loaded packages:")));
  layout->addWidget(list);
  layout->addWidget(buttons);
  resize(620, 260);
}

} // namespace desktop
