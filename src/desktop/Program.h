// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/CommandLine.h"
#include "desktop/ide/InstalledPackages.h"
#include "desktop/ide/PackageLoader.h"
#include "desktop/ui/AddInColours.h"
#include "desktop/ui/DiskChanges.h"
#include "desktop/ui/HandedFiles.h"
#include "desktop/ui/NamedFiles.h"
#include "desktop/ui/Recovery.h"
#include "desktop/ui/Session.h"
#include "desktop/ui/Workspace.h"

#include <QStringList>

#include <optional>

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

  // From now on opens what the callers of `server` ask for, which must outlive the program's run, once edit() is
  // called.
  void serve(RequestServer& server) { handedFiles_.emplace(workspace_, server); }
  // Shows the editor and serves the user. Returns the program's exit code.
  int edit();
  // Writes the picture that the command line asks for. Returns the program's exit code.
  int takeScreenshot();

private:
  // False if a file could not be opened.
  bool openFiles();
  void showFrames();
  // Ends the event loop once no page is open any more.
  void endWithPages();
  // Loads what the command line asks for. Returns why packages could not be loaded, one sentence each.
  QStringList loadPackages();
  void openSettings();
  void followRecoveryInterval();

  const CommandLine& commandLine_;
  Workspace workspace_;
  DiskChanges diskChanges_{workspace_};
  AddInColours addInColours_{workspace_};
  NamedFiles files_{workspace_};
  Session session_;
  Recovery recovery_;
  PackageLoader loader_;
  InstalledPackages packages_;
  std::optional<HandedFiles> handedFiles_; // while this editor opens files for others
};

} // namespace desktop
