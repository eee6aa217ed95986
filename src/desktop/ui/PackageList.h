// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QString>

namespace desktop {

// A package as the user sees it.
struct PackageRow {
  QString description;
  QString fileName;
  bool loaded = false;

  friend bool operator==(const PackageRow&, const PackageRow&) = default;
};

// The packages that the user may load and unload while the program runs.
class PackageList {
public:
  PackageList() = default;
  PackageList(const PackageList&) = delete;
  PackageList& operator=(const PackageList&) = delete;
  virtual ~PackageList() = default;

  // In the order in which they became known.
  virtual QList<PackageRow> rows() const = 0;
  // Loads the package at `fileName`, which is listed from then on. Does nothing if it is loaded. Returns why it could
  // not be loaded, for the user, or an empty string.
  virtual QString load(const QString& fileName) = 0;
  // Takes the package at `fileName` out of the process. Does nothing if it is not loaded.
  virtual void unload(const QString& fileName) = 0;
};

} // namespace desktop
