// SPDX-License-Identifier: MIT
// Loads packages into the process and takes them out again.
//
// A package may be loaded several times; the loads are counted. Every load calls its Initialize, but only the load that
// starts the package has its units register themselves. Every unload calls Finalize. A package stays mapped after its
// last unload, since queued deletions and type information of it may still be alive; loading it again starts it anew.
// Main thread only.
#pragma once

#include "platform/Package.h"

#include <QString>

#include <memory>
#include <vector>

namespace desktop {

class PackageLoader {
public:
  PackageLoader();
  PackageLoader(const PackageLoader&) = delete;
  PackageLoader& operator=(const PackageLoader&) = delete;
  // Unloads what is still loaded, as unloadAll does.
  ~PackageLoader();

  // Loads the package at `path`. When it cannot be loaded or started nothing has changed and platform::EPackageError is
  // raised, whose message names the file and the reason.
  void load(const QString& path);
  // Takes back one load of the package at `path`. False when it is not loaded.
  bool unload(const QString& path);
  // Takes back every load, the package started last first.
  void unloadAll();

  // How often the package at `path` is loaded at present.
  int loadCount(const QString& path) const;

  struct Loaded {
    QString fileName;    // canonical
    QString description; // the package's own
  };
  // The packages loaded at present, in the order in which they were started.
  std::vector<Loaded> loadedPackages() const;

  // Where the add-in of this program is: beside the binary in `binaryFolder`, else in ../lib/virelle; empty when it is
  // in neither place.
  static QString findAddIn(const QString& binaryFolder);

private:
  struct Package;

  Package* find(const QString& path) const;
  static std::unique_ptr<Package> map(const QString& path);
  static void start(const Package& package);
  static void stop(Package& package);

  std::vector<std::unique_ptr<Package>> packages_; // mapped, in the order of their latest start
};

} // namespace desktop
