// SPDX-License-Identifier: MIT
#include "desktop/ide/PackageLoader.h"

#include "platform/Application.h"
#include "platform/Errors.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <dlfcn.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>

namespace desktop {

using platform::EPackageError;

// A package that has been mapped. It stays so: its handle is never closed.
struct PackageLoader::Package {
  QString fileName; // canonical
  platform::TPackageProcedure initialize = nullptr;
  platform::TPackageProcedure finalize = nullptr;
  const platform::TPackageInfoTable* info = nullptr;
  int loads = 0;
};

namespace {

QString canonical(const QString& path) {
  const QFileInfo file(path);
  return file.exists() ? file.canonicalFilePath() : QDir::cleanPath(file.absoluteFilePath());
}

// `reason` as the fault of the package file `fileName`. The dynamic loader mostly says the name itself.
EPackageError fault(const QString& fileName, std::string_view reason) {
  const std::string prefix = fileName.toStdString() + ": ";
  return EPackageError({}, reason.starts_with(prefix) ? std::string(reason) : prefix + std::string(reason));
}

// A mapped file that is let go again unless it turns out to be a package.
class Mapping {
public:
  explicit Mapping(const QString& fileName)
      : fileName_(fileName), handle_(::dlopen(QFile::encodeName(fileName).constData(), RTLD_NOW | RTLD_LOCAL)) {
    if (handle_ == nullptr)
      throw fault(fileName, ::dlerror());
  }
  ~Mapping() {
    if (handle_ != nullptr)
      ::dlclose(handle_);
  }
  Mapping(const Mapping&) = delete;
  Mapping& operator=(const Mapping&) = delete;

  template <class TFunction> TFunction resolve(const char* name) const {
    void* const symbol = ::dlsym(handle_, name);
    if (symbol == nullptr)
      throw fault(fileName_, std::string("it exports no function ") + name);
    return reinterpret_cast<TFunction>(symbol);
  }

  void keep() { handle_ = nullptr; }

private:
  QString fileName_;
  void* handle_;
};

// Calls a function of the package; what it throws becomes an error that names the file.
template <class TFunction> auto callPackage(const QString& fileName, TFunction function) {
  try {
    return function();
  } catch (const EPackageError& error) {
    throw EPackageError(fileName.toStdString(), error);
  } catch (const std::exception& error) {
    throw fault(fileName, error.what());
  } catch (...) {
    throw fault(fileName, "Unknown exception");
  }
}

} // namespace

PackageLoader::PackageLoader() = default;

PackageLoader::~PackageLoader() {
  unloadAll();
}

PackageLoader::Package* PackageLoader::find(const QString& path) const {
  const QString fileName = canonical(path);
  const auto found = std::find_if(packages_.begin(), packages_.end(),
                                  [&](const auto& package) { return package->fileName == fileName; });
  return found == packages_.end() ? nullptr : found->get();
}

std::unique_ptr<PackageLoader::Package> PackageLoader::map(const QString& path) {
  auto package = std::make_unique<Package>();
  package->fileName = canonical(path);
  Mapping mapping(package->fileName);
  package->initialize = mapping.resolve<platform::TPackageProcedure>(platform::InitializeName);
  package->finalize = mapping.resolve<platform::TPackageProcedure>(platform::FinalizeName);
  const auto getInfo = mapping.resolve<platform::TPackageInfoFunction>(platform::GetPackageInfoTableName);
  package->info = callPackage(package->fileName, getInfo);
  if (package->info == nullptr)
    throw fault(package->fileName, "it has no table of its units");
  mapping.keep();
  return package;
}

void PackageLoader::start(const Package& package) {
  callPackage(package.fileName, package.initialize);
}

void PackageLoader::stop(Package& package) {
  --package.loads;
  platform::Guarded(package.finalize);
}

void PackageLoader::load(const QString& path) {
  Package* package = find(path);
  if (package == nullptr)
    package = packages_.emplace_back(map(path)).get();
  start(*package);
  if (package->loads++ > 0)
    return;
  const auto place =
      std::find_if(packages_.begin(), packages_.end(), [&](const auto& each) { return each.get() == package; });
  std::rotate(place, place + 1, packages_.end());
  platform::RegisterPackage(*package->info);
}

bool PackageLoader::unload(const QString& path) {
  Package* const package = find(path);
  if (package == nullptr || package->loads == 0)
    return false;
  stop(*package);
  return true;
}

void PackageLoader::unloadAll() {
  for (auto package = packages_.rbegin(); package != packages_.rend(); ++package) {
    while ((*package)->loads > 0)
      stop(**package);
  }
}

int PackageLoader::loadCount(const QString& path) const {
  const Package* const package = find(path);
  return package == nullptr ? 0 : package->loads;
}

std::vector<PackageLoader::Loaded> PackageLoader::loadedPackages() const {
  std::vector<Loaded> loaded;
  for (const auto& package : packages_) {
    if (package->loads > 0)
      loaded.push_back(
          {package->fileName, QString::fromUtf16(package->info->Description.data(),
                                                 static_cast<qsizetype>(package->info->Description.size()))});
  }
  return loaded;
}

QString PackageLoader::findAddIn(const QString& binaryFolder) {
  const QDir folder(binaryFolder);
  for (const QString& name : {QStringLiteral("Quorvane5.so"), QStringLiteral("../lib/virelle/Quorvane5.so")}) {
    if (folder.exists(name))
      return QDir::cleanPath(folder.absoluteFilePath(name));
  }
  return {};
}

} // namespace desktop
