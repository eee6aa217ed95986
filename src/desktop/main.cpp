// SPDX-License-Identifier: MIT
#include "desktop/CommandLine.h"
#include "desktop/handover/HandOver.h"
#include "desktop/handover/RequestServer.h"
#include "desktop/Program.h"
#include "platform/FileLock.h"

#include <QApplication>
#include <QDir>
#include <QIcon>

#include <cstdio>
#include <memory>
#include <optional>
#include <utility>

namespace {

constexpr int failed = 2;

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

void tell(const QString& message) {
  std::fprintf(stderr, "virelle: %s\n", qPrintable(message));
}

desktop::OpenRequest requestOf(const desktop::CommandLine& commandLine) {
  return {QDir::currentPath(),
          commandLine.files,
          commandLine.caret,
          commandLine.wait,
          qgetenv("DESKTOP_STARTUP_ID"),
          qgetenv("XDG_ACTIVATION_TOKEN")};
}

// The exit code, if an editor that runs already has done what was asked for. If there is none, `lock` is that of the
// place where other processes look for one.
std::optional<int> handOver(const desktop::CommandLine& commandLine, const desktop::EditorPlace& place,
                            std::unique_ptr<platform::TFileLock>& lock) {
  using Kind = desktop::HandOverOutcome::Kind;
  const desktop::OpenRequest request = requestOf(commandLine);
  if (!QDir::isAbsolutePath(request.folder)) // it has been removed
    return std::nullopt;
  desktop::HandOverOutcome outcome = desktop::handOver(request, place);
  for (const QString& problem : std::as_const(outcome.problems))
    tell(problem);
  switch (outcome.kind) {
  case Kind::NoEditor:
    lock = std::move(outcome.lock);
    return std::nullopt;
  case Kind::NoAnswer:
    tell(QStringLiteral("the editor that is running does not answer; starting another one"));
    return std::nullopt;
  case Kind::Opened:
    return 0;
  case Kind::Closed:
    return outcome.problems.isEmpty() ? 0 : failed;
  case Kind::Lost:
    break;
  }
  tell(QStringLiteral("the editor has ended before the file was closed"));
  return failed;
}

int run(const desktop::CommandLine& commandLine, char** argv, const desktop::EditorPlace* place) {
  prepareQt(commandLine);
  // Qt must not take arguments for its own that may be names of files.
  int noArguments = 1;
  QApplication application(noArguments, argv);
  QGuiApplication::setWindowIcon(
      QIcon::fromTheme(desktopId(), QIcon::fromTheme(QStringLiteral("accessories-text-editor"))));
  desktop::RequestServer server;
  const bool listens = place != nullptr && server.listen(*place);
  desktop::Program program(commandLine);
  if (listens)
    program.serve(server);
  return commandLine.screenshot.isEmpty() ? program.edit() : program.takeScreenshot();
}

} // namespace

int main(int argc, char** argv) {
  int exitCode = 0;
  const std::optional<desktop::CommandLine> commandLine = desktop::readCommandLine(argc, argv, exitCode);
  if (!commandLine)
    return exitCode;
  // The lock is given back last of all: who gets it is to find the session free.
  std::unique_ptr<platform::TFileLock> lock;
  const auto place = commandLine->screenshot.isEmpty() ? desktop::editorPlace() : std::nullopt;
  if (place && commandLine->handOver) {
    if (const std::optional<int> code = handOver(*commandLine, *place, lock))
      return *code;
  }
  // The editor that has the session is the one that opens files for all.
  const bool isForAll = place && commandLine->keepSession;
  if (!isForAll)
    lock.reset();
  else if (lock == nullptr)
    lock = desktop::lockOf(*place);
  return run(*commandLine, argv, lock != nullptr ? &*place : nullptr);
}
