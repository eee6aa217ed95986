// SPDX-License-Identifier: MIT
#include "desktop/handover/EditorPlace.h"

#include "platform/UserFiles.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QSysInfo>
#include <QUrl>

#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace desktop {

namespace {

// One that several machines may share is divided by their names: sockets and displays are known to one machine only.
QString folderPath() {
  const QString runtime = qEnvironmentVariable("XDG_RUNTIME_DIR");
  if (QDir::isAbsolutePath(runtime))
    return QDir::cleanPath(runtime) + QStringLiteral("/virelle");
  return platform::StateFile(QStringLiteral("run-") + QSysInfo::machineHostName());
}

// Makes the folder if it is missing, and sees to it that it is this user's alone.
bool isPrivate(const QString& folder) {
  const QByteArray name = QFile::encodeName(folder);
  if (!QDir().mkpath(QFileInfo(folder).path()))
    return false;
  ::mkdir(name.constData(), S_IRWXU); // one that is there is as good
  struct stat status = {};
  if (::lstat(name.constData(), &status) != 0 || !S_ISDIR(status.st_mode) || status.st_uid != ::geteuid())
    return false;
  return (status.st_mode & ACCESSPERMS) == S_IRWXU || ::chmod(name.constData(), S_IRWXU) == 0;
}

// Qt's off-screen platform and its like have nothing to do with the displays that the environment may name, too.
QString displayName() {
  const QString platform = qEnvironmentVariable("QT_QPA_PLATFORM").section(u':', 0, 0).section(u';', 0, 0);
  if (!platform.isEmpty() && platform != QStringLiteral("xcb") && !platform.startsWith(QStringLiteral("wayland")))
    return platform;
  const QString wayland = qEnvironmentVariable("WAYLAND_DISPLAY");
  if (!wayland.isEmpty())
    return wayland;
  QString x11 = qEnvironmentVariable("DISPLAY");
  const qsizetype screen = x11.indexOf(u'.', x11.lastIndexOf(u':'));
  return screen < 0 ? x11 : x11.left(screen);
}

} // namespace

std::optional<EditorPlace> editorPlace() {
  const QString folder = folderPath();
  if (folder.isEmpty() || !isPrivate(folder))
    return std::nullopt;
  const QByteArray settings = platform::StateFile(QString()).toUtf8() + '\n' + platform::ConfigFile(QString()).toUtf8();
  constexpr qsizetype digits = 8;
  const QByteArray profile = QCryptographicHash::hash(settings, QCryptographicHash::Sha1).toHex().left(digits);
  const QString path =
      QStringLiteral("%1/%2-%3")
          .arg(folder, QString::fromLatin1(QUrl::toPercentEncoding(displayName())), QString::fromLatin1(profile));
  const EditorPlace place{path + QStringLiteral(".socket"), path + QStringLiteral(".lock")};
  if (QFile::encodeName(place.socket).size() >= static_cast<qsizetype>(sizeof sockaddr_un::sun_path))
    return std::nullopt;
  return place;
}

} // namespace desktop
