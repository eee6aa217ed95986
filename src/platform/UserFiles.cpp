// SPDX-License-Identifier: MIT
#include "platform/UserFiles.h"

#include <QDir>
#include <QStandardPaths>

namespace platform {

QString ConfigFile(const QString& name) {
  const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
  // Qt takes the root directory for the home of somebody who has none.
  const bool homeless =
      qEnvironmentVariableIsEmpty("HOME") && QDir::cleanPath(folder) == QDir::rootPath() + QStringLiteral(".config");
  return folder.isEmpty() || homeless ? QString() : folder + QStringLiteral("/virelle/") + name;
}

// This Qt does not know the place yet.
QString StateFile(const QString& name) {
  QString folder = qEnvironmentVariable("XDG_STATE_HOME");
  if (!QDir::isAbsolutePath(folder)) {
    if (qEnvironmentVariableIsEmpty("HOME"))
      return {};
    folder = QDir::homePath() + QStringLiteral("/.local/state");
  }
  return QDir::cleanPath(folder) + QStringLiteral("/virelle/") + name;
}

} // namespace platform
