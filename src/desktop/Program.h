// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/CommandLine.h"
#include "desktop/ide/InstalledPackages.h"
#include "desktop/ide/PackageLoader.h"
#include "desktop/ui/AddInColours.h"
#include "desktop/ui/DiskChanges.h"
#include "desktop/ui/Recovery.h"
#include "desktop/ui/Session.h"
#include "desktop/ui/Workspace.h"

#include <QStringList>

#include <utility>
#include <vector>

namespace desktop {

// One run of the editor: the workspace, what brings its state back, the services for add-ins and the packages, from the
// first window to the last.
//
// Packages are loaded when the first window and its files are there, so that they find them, and are taken out before
// any window goes.
class Program {
public:
  explicit Program(const CommandLine& commandLine);
  ~Program();
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;

  // Shows the editor and serves the user. Returns the program's exit code.
  int edit();
  // Writes the picture that the command line asks for. Returns the program's exit code.
  int takeScreenshot();

private:
  // Opens what the argument `file` names; null if that is not possible.
  Page* open(const QString& file);
  void openFiles();
  void showFrames();
  void placeCarets();
  // Loads what the command line asks for. Returns why packages could not be loaded, one sentence each.
  QStringList loadPackages();
  void openSettings();
  void followRecoveryInterval();

  const CommandLine& commandLine_;
  Workspace workspace_;
  DiskChanges diskChanges_{workspace_};
  AddInColours addInColours_{workspace_};
  std::vector<std::pair<Page*, CaretPlace>> carets_; // that have yet to be put into pages just opened
  Session session_;
  Recovery recovery_;
  PackageLoader loader_;
  InstalledPackages packages_;
};

} // namespace desktop
