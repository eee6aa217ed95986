// SPDX-License-Identifier: MIT
// What the editor was asked to do when it was started.
#pragma once

#include "desktop/files/FileArgument.h"

#include <QString>
#include <QStringList>

#include <chrono>
#include <optional>

namespace desktop {

struct CommandLine {
  QStringList files;
  QString screenshot; // the file to be written; empty when the editor is to be used
  std::optional<CaretPlace> caret;
  double scale = 1;
  QStringList packages; // in place of the editor's own add-in, if there are any
  bool loadPackages = true;
  bool showSplash = true;
  bool keepSession = true; // open what was open, and write it down
  bool handOver = true;    // let the editor open the files that runs already, if there is one
  bool wait = false;       // end when the files are closed
  std::optional<std::chrono::milliseconds> recoveryInterval; // in place of the one in the settings
};

// Reads the arguments of main. When there is nothing more to do (help, version, an error) it has written what there is
// to say, and the exit code is in `exitCode`. Needs neither an application object nor a display.
std::optional<CommandLine> readCommandLine(int argc, char** argv, int& exitCode);

} // namespace desktop
