// SPDX-License-Identifier: MIT
// The main function of every test program that needs Qt's widgets: an application without a screen, in a plain style
// that looks the same on every machine, and warnings of Qt that fail the test.
#include "support/QtWarnings.h"

#include <gtest/gtest.h>

#include <QApplication>

int main(int argc, char** argv) {
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
    qputenv("QT_QPA_PLATFORM", "offscreen");
  testing::InitGoogleTest(&argc, argv);
  QGuiApplication::setHighDpiScaleFactorRoundingPolicy(Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
  QApplication application(argc, argv);
  QApplication::setStyle(QStringLiteral("Fusion"));
  QApplication::setQuitOnLastWindowClosed(false);
  support::failTestsOnQtWarnings();
  return RUN_ALL_TESTS();
}
