// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>
#include <QList>
#include <QString>

namespace desktop {

// A package as the user sees it.
struct PackageRow {
  QString description;
  QString fileName;
};

// Lists the packages that are loaded.
class PackagesDialog : public QDialog {
  Q_OBJECT

public:
  explicit PackagesDialog(const QList<PackageRow>& packages, QWidget* parent = nullptr);
};

} // namespace desktop
