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

} // namespace platform
