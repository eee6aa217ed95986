// SPDX-License-Identifier: MIT
#include "desktop/Program.h"

#include "desktop/edit/EditControl.h"
#include "desktop/files/EnvironmentSettings.h"
#include "desktop/ide/IdeServices.h"
#include "desktop/ui/EditWindow.h"
#include "desktop/ui/MainWindow.h"
#include "desktop/ui/MessageBar.h"
#include "desktop/ui/OpenPages.h"
#include "desktop/ui/Page.h"
#include "desktop/ui/RecentFiles.h"
#include "desktop/ui/Screenshot.h"
#include "desktop/ui/StartTimes.h"
#include "platform/Application.h"
#include "platform/Errors.h"
#include "platform/ota/Services.h"
#include "platform/UserFiles.h"

#include <QCoreApplication>
#include <QScreen>
#include <QStandardPaths>

#include <chrono>
#include <cstdio>

namespace desktop {

namespace {

constexpr int failed = 2;

int complain(const QString& reason) {
  std::fprintf(stderr, "virelle: %s\n", qPrintable(reason));
  return failed;
}

// Makes a window smaller that would reach over the edges of its screen, and leaves room for its frame.
void fitOnScreen(QWidget& window) {
  constexpr double share = 0.9;
  const QSize room = window.screen()->availableSize();
  const bool fits = window.width() <= room.width() && window.height() <= room.height();
  if (!fits && !window.isMaximized() && !window.isFullScreen())
    window.resize(window.size().boundedTo(room * share));
}

} // namespace

Program::Program(const CommandLine& commandLine)
    : commandLine_(commandLine), session_(workspace_, platform::StateFile(QStringLiteral("session.json"))),
      recovery_(workspace_, platform::StateFile(QStringLiteral("recovery"))), packages_(loader_) {
  platform::Application().SetProgramDirectory(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
                                              QStringLiteral("/virelle/"));
  platform::Application().SetShowSplash(commandLine.showSplash && commandLine.screenshot.isEmpty());
  platform::SetBorlandIDEServices(std::make_shared<IdeServices>(workspace_));
  workspace_.setPackages(&packages_);
  openSettings();
}

Program::~Program() {
  loader_.unloadAll();
  // The event loop has ended, so what the packages' stops have thrown would otherwise be lost.
  platform::Application().SetReporter({});
  platform::Application().ReportPending();
  platform::SetBorlandIDEServices(nullptr);
}

int Program::edit() {
  // The first thing to be painted is the file, add-ins included.
  if (commandLine_.keepSession)
    session_.restore();
  workspace_.recentFiles().open(platform::StateFile(QStringLiteral("recent-files.json")));
  const bool isComplete = openFiles();
  if (commandLine_.wait && !isComplete)
    complain(workspace_.topWindow()->messageBar()->messages().join(QStringLiteral("; ")));
  if (commandLine_.wait && files_.pages().isEmpty())
    return failed;
  StartTimes::watch(*workspace_.frameOf(workspace_.topWindow()));
  showFrames();
  session_.restoreViews();
  files_.placeCarets(commandLine_.files.isEmpty() ? commandLine_.caret : std::nullopt);
  for (const QString& reason : loadPackages())
    workspace_.topWindow()->messageBar()->addMessage(MessageBar::Kind::Warning, reason);
  recovery_.offer();
  addInColours_.startAsking();
  if (commandLine_.wait)
    endWithPages();
  const int code = QCoreApplication::exec();
  // The pages are still there, and each unsaved one has been asked about.
  handedFiles_.reset();
  session_.save();
  recovery_.discard();
  return commandLine_.wait && !isComplete ? failed : code;
}

int Program::takeScreenshot() {
  MainWindow* const frame = workspace_.frameOf(workspace_.topWindow());
  if (files_.openExisting(commandLine_.files.constFirst(), commandLine_.caret) == nullptr)
    return complain(workspace_.topWindow()->messageBar()->messages().join(QStringLiteral("; ")));
  frame->show();
  frame->activateWindow();
  files_.placeCarets();
  const QStringList reasons = loadPackages();
  if (!reasons.isEmpty())
    return complain(reasons.join(QStringLiteral("; ")));
  const QString problem = saveScreenshot(*frame, commandLine_.screenshot);
  return problem.isEmpty() ? 0 : complain(QStringLiteral("%1: %2").arg(commandLine_.screenshot, problem));
}

bool Program::openFiles() {
  bool isComplete = true;
  for (const QString& file : commandLine_.files) {
    const auto caret = &file == &commandLine_.files.constFirst() ? commandLine_.caret : std::nullopt;
    // Who waits for the files to be closed needs their pages now.
    const bool opened = commandLine_.wait ? files_.open(file, caret) != nullptr : files_.openSoon(file, caret);
    isComplete = opened && isComplete;
  }
  if (!files_.show() && workspace_.topWindow()->pages().isEmpty())
    workspace_.newFile();
  return isComplete;
}

void Program::showFrames() {
  for (const TEditWindow* window : workspace_.windows()) {
    MainWindow* const frame = workspace_.frameOf(window);
    fitOnScreen(*frame);
    frame->show();
  }
}

void Program::endWithPages() {
  QList<Page*> pages;
  for (const TEditWindow* window : workspace_.windows())
    pages += window->pages();
  if (pages.isEmpty()) {
    QCoreApplication::exit(0);
    return;
  }
  auto* const open = new OpenPages(pages, &workspace_);
  const auto lookAgain = [this, open] {
    delete open;
    endWithPages();
  };
  QObject::connect(open, &OpenPages::allClosed, open, lookAgain, Qt::QueuedConnection);
}

QStringList Program::loadPackages() {
  QStringList paths = commandLine_.packages;
  if (paths.isEmpty()) {
    const QString folder = QCoreApplication::applicationDirPath();
    const QString addIn = PackageLoader::findAddIn(folder);
    if (!addIn.isEmpty())
      paths = {addIn};
    else if (commandLine_.loadPackages)
      return {QCoreApplication::translate("Program", "The add-in Quorvane5.so was not found near %1.").arg(folder)};
  }
  QStringList reasons;
  for (const QString& path : paths) {
    packages_.add(path);
    const QString reason = commandLine_.loadPackages ? packages_.load(path) : QString();
    if (!reason.isEmpty())
      reasons.append(reason);
  }
  return reasons;
}

void Program::openSettings() {
  const QStringList problems = {
      workspace_.settings().open(platform::ConfigFile(QStringLiteral("environment.json"))),
      workspace_.searchPath().open(platform::ConfigFile(QStringLiteral("search-path.json"))),
  };
  for (const QString& problem : problems) {
    if (!problem.isEmpty())
      workspace_.topWindow()->messageBar()->addMessage(MessageBar::Kind::Warning, problem);
  }
  followRecoveryInterval();
}

void Program::followRecoveryInterval() {
  if (commandLine_.recoveryInterval)
    return recovery_.setInterval(*commandLine_.recoveryInterval);
  const auto follow = [this] {
    recovery_.setInterval(std::chrono::seconds(workspace_.settings().values().recoverySeconds));
  };
  follow();
  QObject::connect(&workspace_.settings(), &EnvironmentSettings::changed, &recovery_, follow);
}

} // namespace desktop
