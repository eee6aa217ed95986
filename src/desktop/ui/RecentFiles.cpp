// SPDX-License-Identifier: MIT
#include "desktop/ui/RecentFiles.h"

#include "desktop/files/FileWriter.h"
#include "desktop/files/SourceDocument.h"
#include "desktop/ui/Page.h"
#include "desktop/ui/Workspace.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <optional>
#include <string_view>

namespace desktop {

namespace {

constexpr qint64 mostBytes = 1 << 20; // of a file that an editor can have written

const auto filesKey = QLatin1StringView("files");

// Nothing if there is no such file, or none that can be read.
std::optional<QStringList> readList(const QString& fileName) {
  QFile file(fileName);
  if (fileName.isEmpty() || !file.open(QIODevice::ReadOnly))
    return std::nullopt;
  QStringList paths;
  for (const QJsonValue path : QJsonDocument::fromJson(file.read(mostBytes))[filesKey].toArray()) {
    if (QDir::isAbsolutePath(path.toString()) && !paths.contains(path.toString()))
      paths.append(path.toString());
  }
  return paths.mid(0, RecentFiles::most);
}

QStringList withFirst(QStringList paths, const QString& first) {
  paths.removeAll(first);
  paths.prepend(first);
  return paths.mid(0, RecentFiles::most);
}

} // namespace

RecentFiles::RecentFiles(Workspace& workspace) : QObject(&workspace) {
  timer_.setSingleShot(true);
  connect(&timer_, &QTimer::timeout, this, &RecentFiles::merge);
  connect(&workspace, &Workspace::pageOpened, this, [this](const Page* page) {
    const SourceDocument* const document = page->document();
    connect(document, &SourceDocument::fileNameChanged, this, [this, document] { add(document->fileName()); });
    if (!document->isUntitled())
      add(document->fileName());
  });
}

RecentFiles::~RecentFiles() {
  if (timer_.isActive())
    merge();
}

void RecentFiles::open(const QString& fileName) {
  fileName_ = fileName;
  files_.clear();
  added_.clear();
  merge();
}

QStringList RecentFiles::files() {
  merge();
  return files_;
}

void RecentFiles::clear() {
  timer_.stop();
  files_.clear();
  added_.clear();
  write();
}

void RecentFiles::add(const QString& path) {
  added_ = withFirst(added_, path);
  if (!timer_.isActive())
    timer_.start();
}

void RecentFiles::merge() {
  timer_.stop();
  const std::optional<QStringList> kept = readList(fileName_);
  QStringList merged = kept.value_or(files_);
  for (auto path = added_.crbegin(); path != added_.crend(); ++path)
    merged = withFirst(merged, *path);
  files_ = merged;
  added_.clear();
  if (kept ? *kept != files_ : !files_.isEmpty())
    write();
}

void RecentFiles::write() const {
  if (fileName_.isEmpty())
    return;
  QDir().mkpath(QFileInfo(fileName_).absolutePath());
  const QByteArray bytes = QJsonDocument(QJsonObject{{filesKey, QJsonArray::fromStringList(files_)}}).toJson();
  (void)writeFile(fileName_, std::string_view(bytes.constData(), static_cast<std::size_t>(bytes.size())));
}

} // namespace desktop
