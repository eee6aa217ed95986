// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/ide/PackageLoader.h"
#include "desktop/ui/PackageList.h"

#include <QList>
#include <QString>

namespace desktop {

// The packages that this run of the program knows, loaded or not. Main thread only.
class InstalledPackages : public PackageList {
public:
  // `loader` must outlive the list.
  explicit InstalledPackages(PackageLoader& loader);
  ~InstalledPackages() override;

  // Lists the package at `path` without loading it.
  void add(const QString& path);

  QList<PackageRow> rows() const override;
  QString load(const QString& fileName) override;
  // Takes back every load that the package has, whoever asked for it.
  void unload(const QString& fileName) override;

private:
  PackageRow* find(const QString& path);

  PackageLoader& loader_;
  QList<PackageRow> known_; // their loaded is left as it is; the loader knows
};

} // namespace desktop
