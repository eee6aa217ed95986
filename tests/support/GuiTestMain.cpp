// SPDX-License-Identifier: MIT
// The main function of every test program that needs Qt's widgets: an application without a screen, in a plain style
// that looks the same on every machine, empty folders in place of the user's settings and data, and warnings of Qt
// that fail the test.
#include "support/QtWarnings.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QTemporaryDir>

int main(int argc, char** argv) {
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
    qputenv("QT_QPA_PLATFORM", "offscreen");
  const QTemporaryDir home;
  qputenv("XDG_CONFIG_HOME", home.filePath(QStringLiteral("config")).toLocal8Bit());
  qputenv("XDG_DATA_HOME", home.filePath(QStringLiteral("data")).toLocal8Bit());
  qputenv("XDG_STATE_HOME", home.filePath(QStringLiteral("state")).toLocal8Bit());
  qputenv("XDG_RUNTIME_DIR", home.path().toLocal8Bit());
  testing::InitGoogleTest(&argc, argv);
  QGuiApplication::setHighDpiScaleFactorRoundingPolicy(Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
  QApplication application(argc, argv);
  QApplication::setStyle(QStringLiteral("Fusion"));
  QApplication::setQuitOnLastWindowClosed(false);
  support::failTestsOnQtWarnings();
  return RUN_ALL_TESTS();
}
