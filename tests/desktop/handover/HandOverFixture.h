// SPDX-License-Identifier: MIT
// A place of the test's own at which editors meet.
#pragma once

#include "desktop/handover/EditorPlace.h"
#include "support/EnvironmentVariable.h"
#include "support/PrintQt.h"
#include "support/Wait.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace desktop {

class HandOverFixture : public testing::Test {
protected:
  QString path(const QString& name) const { return folder_.filePath(name); }
  QString write(const QString& name, const QByteArray& bytes = "one\ntwo\nthree\nfour\n") const {
    QFile file(path(name));
    EXPECT_TRUE(QDir().mkpath(QFileInfo(file).path()));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_EQ(file.write(bytes), bytes.size());
    return path(name);
  }
  static EditorPlace place() { return editorPlace().value(); }

  QTemporaryDir folder_;
  support::EnvironmentVariable runtime_{"XDG_RUNTIME_DIR", path(QStringLiteral("run")).toUtf8()};
  support::EnvironmentVariable state_{"XDG_STATE_HOME", path(QStringLiteral("state")).toUtf8()};
  support::EnvironmentVariable config_{"XDG_CONFIG_HOME", path(QStringLiteral("config")).toUtf8()};
  support::EnvironmentVariable startupId_{"DESKTOP_STARTUP_ID", {}};
};

} // namespace desktop
