// SPDX-License-Identifier: MIT
#include "desktop/files/RecoveryFolder.h"

#include "desktop/files/FileWriter.h"
#include "platform/FileError.h"
#include "platform/FileLock.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QUuid>

#include <chrono>
#include <new>
#include <utility>

namespace desktop {

namespace {

const auto ending = QLatin1StringView(".recovery");
const auto lockEnding = QLatin1StringView(".lock");
constexpr qint64 longestNote = 1 << 20;

QString message(const char* text) {
  return QCoreApplication::translate("Recovery", text);
}

// The file's first `most` bytes, or all; none if it cannot be read.
QByteArray bytesOf(const QString& path, std::optional<qint64> most = std::nullopt) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly))
    return {};
  return most ? file.readLine(*most) : file.readAll();
}

std::string_view view(const QByteArray& bytes) {
  return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
}

QString writeRecovery(const QString& path, const RecoveryNote& note, const TextSnapshot& text) try {
  return writeFile(path, recoveryBytes(note, text.text()));
} catch (const std::bad_alloc&) {
  return message("there is not enough memory");
}

} // namespace

// The files of one editor, as long as somebody holds their lock.
class OrphanedText::Run {
public:
  // The files' paths begin with `prefix`. Raises EFileError if somebody else holds the lock.
  explicit Run(QString prefix) : prefix_(std::move(prefix)), lock_(lockPath(), std::chrono::milliseconds(0)) {}
  // The lock's file goes with the last of the files, and only with it: one that is missing could be made twice.
  ~Run() {
    if (files().isEmpty())
      QFile::remove(lockPath());
  }
  Run(const Run&) = delete;
  Run& operator=(const Run&) = delete;

  const QString& prefix() const { return prefix_; }
  // The paths of all its files but the lock's own.
  QStringList files() const {
    const QFileInfo info(prefix_);
    QStringList paths;
    for (const QFileInfo& file : info.dir().entryInfoList({info.fileName() + QStringLiteral("-*")}, QDir::Files))
      paths.append(file.filePath());
    return paths;
  }

private:
  QString lockPath() const { return prefix_ + lockEnding; }

  QString prefix_;
  platform::TFileLock lock_;
};

std::optional<RecoveredText> OrphanedText::read() const try {
  return readRecovery(view(bytesOf(path_)));
} catch (const std::bad_alloc&) {
  return std::nullopt;
}

void OrphanedText::discard() const {
  QFile::remove(path_);
}

RecoveryFolder::RecoveryFolder(QString path) : path_(std::move(path)) {}

RecoveryFolder::~RecoveryFolder() = default;

QString RecoveryFolder::newName() {
  return QString::number(++lastNumber_);
}

QString RecoveryFolder::pathOf(const QString& name) const {
  return run_->prefix() + u'-' + name + ending;
}

// Takes the lock unless it is held. Returns why that is not possible.
QString RecoveryFolder::beginRun() try {
  if (run_ != nullptr)
    return {};
  if (path_.isEmpty())
    return message("there is no home directory");
  if (!QDir().mkpath(path_))
    return message("the folder %1 cannot be made").arg(path_);
  QFile::setPermissions(path_, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
  run_ = std::make_shared<Run>(QDir(path_).filePath(QUuid::createUuid().toString(QUuid::Id128)));
  return {};
} catch (const platform::EFileError& error) {
  return QString::fromStdString(error.what());
}

void RecoveryFolder::write(const QString& name, const RecoveryNote& note, const TextSnapshot& text) {
  if (const QString problem = beginRun(); !problem.isEmpty()) {
    Q_EMIT written(name, problem);
    return;
  }
  names_.insert(name);
  tasks_.add([this, run = run_, name, path = pathOf(name), note, text] {
    const QString problem = writeRecovery(path, note, text);
    QMetaObject::invokeMethod(
        this, [this, name, problem] { Q_EMIT written(name, problem); }, Qt::QueuedConnection);
  });
}

void RecoveryFolder::remove(const QString& name) {
  if (!names_.remove(name))
    return;
  tasks_.add([run = run_, path = pathOf(name)] { QFile::remove(path); });
  if (!names_.isEmpty())
    return;
  // The thread is the last to hold the run, whose lock has to outlive the files.
  tasks_.add([run = std::exchange(run_, nullptr)] {});
}

// Locks of editors that were killed before they had written anything. One that is young may belong to an editor that
// is about to take it.
void RecoveryFolder::removeOldLocks() const {
  constexpr std::chrono::hours old{24};
  const QDateTime youngest = QDateTime::currentDateTime().addDuration(-old);
  for (const QFileInfo& lock : QDir(path_).entryInfoList({u'*' + lockEnding}, QDir::Files)) {
    if (lock.lastModified() > youngest)
      continue;
    try {
      const Run run(lock.filePath().chopped(lockEnding.size()));
    } catch (const platform::EFileError&) {
      // Somebody has it.
    }
  }
}

std::vector<OrphanedText> RecoveryFolder::takeOrphans() const {
  std::vector<OrphanedText> orphans;
  QSet<QString> prefixes;
  if (path_.isEmpty())
    return orphans;
  removeOldLocks();
  for (const QFileInfo& file : QDir(path_).entryInfoList({QStringLiteral("*-*")}, QDir::Files, QDir::Name))
    prefixes.insert(file.filePath().left(file.filePath().lastIndexOf(u'-')));
  for (const QString& prefix : prefixes)
    takeFilesOf(prefix, orphans);
  return orphans;
}

void RecoveryFolder::takeFilesOf(const QString& prefix, std::vector<OrphanedText>& orphans) const try {
  const auto run = std::make_shared<Run>(prefix);
  for (const QString& path : run->files()) {
    if (!path.endsWith(ending)) {
      QFile::remove(path); // its editor was killed while it wrote
      continue;
    }
    OrphanedText orphan;
    orphan.run_ = run;
    orphan.path_ = path;
    if (std::optional<RecoveryNote> note = readRecoveryNote(view(bytesOf(path, longestNote)))) {
      orphan.note_ = *std::move(note);
      orphans.push_back(orphan);
    } else {
      QFile::rename(path, QString(path).replace(prefix + u'-', prefix + QStringLiteral(".damaged.")));
    }
  }
} catch (const platform::EFileError&) {
  // A running editor has the lock, or this user may not look: not ours.
}

bool RecoveryFolder::adopt(const OrphanedText& orphan, const QString& name) {
  if (!beginRun().isEmpty() || !QFile::rename(orphan.path_, pathOf(name)))
    return false;
  names_.insert(name);
  return true;
}

} // namespace desktop
