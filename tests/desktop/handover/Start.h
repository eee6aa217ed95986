// SPDX-License-Identifier: MIT
#pragma once

#include "support/Wait.h"

#include <QProcess>
#include <QString>
#include <QStringList>

namespace desktop {

// A further start of the program. Killed at the end, should it still run.
class Start {
public:
  Start(const QString& folder, const QStringList& arguments)
      : Start(folder, QStringLiteral(VIRELLE_BINARY), arguments) {}
  Start(const QString& folder, const QString& program, const QStringList& arguments) {
    process_.setWorkingDirectory(folder);
    process_.start(program, arguments);
  }
  ~Start() {
    process_.kill();
    process_.waitForFinished();
  }
  Start(const Start&) = delete;
  Start& operator=(const Start&) = delete;

  bool isRunning() const { return process_.state() != QProcess::NotRunning; }
  // Serves events until it ends. -1 if it does not, or not by itself.
  int exitCode() {
    const bool ended = support::waitUntil([this] { return !isRunning(); });
    return ended && process_.exitStatus() == QProcess::NormalExit ? process_.exitCode() : -1;
  }
  qint64 processId() const { return process_.processId(); }
  // What it has written to standard error since the last call.
  QString errors() { return QString::fromUtf8(process_.readAllStandardError()); }

private:
  QProcess process_;
};

} // namespace desktop
