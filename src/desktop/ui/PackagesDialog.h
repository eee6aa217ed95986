// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>
#include <QString>

class QLabel;
class QTreeWidget;
class QTreeWidgetItem;

namespace desktop {

class PackageList;

// Lists packages with a check each, which loads and unloads the package at once. Further ones can be added by their
// files. Why a package could not be loaded is said below the list.
class PackagesDialog : public QDialog {
  Q_OBJECT

public:
  // `packages` must outlive the dialog.
  explicit PackagesDialog(PackageList& packages, QWidget* parent = nullptr);

private:
  void showRows();
  void onItemChanged(QTreeWidgetItem* item, int column);
  void add();
  void load(const QString& fileName);

  PackageList& packages_;
  QTreeWidget* list_;
  QLabel* problem_;
};

} // namespace desktop
