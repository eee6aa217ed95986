// SPDX-License-Identifier: MIT
#include "desktop/CommandLine.h"
#include "desktop/Program.h"

#include <QApplication>
#include <QIcon>

#include <cstdio>

namespace {

// The name by which the desktop knows the editor: that of its desktop entry and of its icon.
QString desktopId() {
  return QStringLiteral("org.virelle.Virelle");
}

// The off-screen platform remarks on each window that it has no window manager; whoever asked for a picture knows.
void dropPlatformRemarks(QtMsgType type, const QMessageLogContext& context, const QString& message) {
  if (!message.startsWith(QStringLiteral("This plugin does not support")))
    std::fprintf(stderr, "%s\n", qPrintable(qFormatLogMessage(type, context, message)));
}

// What Qt reads from the environment when the application object is made.
void prepareQt(const desktop::CommandLine& commandLine) {
  if (!commandLine.screenshot.isEmpty()) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_SCALE_FACTOR", QByteArray::number(commandLine.scale));
    qInstallMessageHandler(dropPlatformRemarks);
  }
  QGuiApplication::setHighDpiScaleFactorRoundingPolicy(Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
  QCoreApplication::setApplicationName(QStringLiteral("virelle"));
  QCoreApplication::setApplicationVersion(QStringLiteral(VIRELLE_VERSION));
  QGuiApplication::setDesktopFileName(desktopId());
}

} // namespace

int main(int argc, char** argv) {
  int exitCode = 0;
  const std::optional<desktop::CommandLine> commandLine = desktop::readCommandLine(argc, argv, exitCode);
  if (!commandLine)
    return exitCode;
  prepareQt(*commandLine);
  // Qt must not take arguments for its own that may be names of files.
  int noArguments = 1;
  QApplication application(noArguments, argv);
  QGuiApplication::setWindowIcon(
      QIcon::fromTheme(desktopId(), QIcon::fromTheme(QStringLiteral("accessories-text-editor"))));
  desktop::Program program(*commandLine);
  return commandLine->screenshot.isEmpty() ? program.edit() : program.takeScreenshot();
}
