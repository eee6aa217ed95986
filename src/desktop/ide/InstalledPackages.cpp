// SPDX-License-Identifier: MIT
#include "desktop/ide/InstalledPackages.h"

#include "platform/Errors.h"

#include <QFileInfo>

#include <algorithm>

namespace desktop {

namespace {

// The name by which the loader knows the package too.
QString fileNameOf(const QString& path) {
  const QString canonical = QFileInfo(path).canonicalFilePath();
  return canonical.isEmpty() ? QFileInfo(path).absoluteFilePath() : canonical;
}

} // namespace

InstalledPackages::InstalledPackages(PackageLoader& loader) : loader_(loader) {}
InstalledPackages::~InstalledPackages() = default;

PackageRow* InstalledPackages::find(const QString& path) {
  const auto found = std::find_if(known_.begin(), known_.end(), [fileName = fileNameOf(path)](const PackageRow& row) {
    return row.fileName == fileName;
  });
  return found == known_.end() ? nullptr : &*found;
}

void InstalledPackages::add(const QString& path) {
  // What a package says of itself is not known before it has been loaded once.
  if (find(path) == nullptr)
    known_.append({QFileInfo(path).completeBaseName(), fileNameOf(path)});
}

QList<PackageRow> InstalledPackages::rows() const {
  QList<PackageRow> rows = known_;
  for (PackageRow& row : rows)
    row.loaded = loader_.loadCount(row.fileName) > 0;
  return rows;
}

QString InstalledPackages::load(const QString& fileName) {
  if (loader_.loadCount(fileName) > 0)
    return {};
  try {
    loader_.load(fileName);
  } catch (const platform::EPackageError& error) {
    return QString::fromUtf8(error.what());
  }
  add(fileName);
  for (const PackageLoader::Loaded& loaded : loader_.loadedPackages()) {
    if (PackageRow* const row = find(loaded.fileName))
      row->description = loaded.description;
  }
  return {};
}

void InstalledPackages::unload(const QString& fileName) {
  while (loader_.unload(fileName)) {
  }
}

} // namespace desktop
