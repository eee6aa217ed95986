// SPDX-License-Identifier: MIT
#include "desktop/CommandLine.h"

#include "desktop/ui/Recovery.h"

#include <QFile>

#include <CLI/CLI.hpp>

#include <charconv>
#include <chrono>
#include <string>
#include <vector>

namespace desktop {

namespace {

constexpr int usageError = 2;

// Both numbers of "LINE:COL", or nothing if it is not two positive numbers.
std::optional<CaretPlace> parseCaret(const std::string& text) {
  CaretPlace place;
  const char* const end = text.data() + text.size();
  const auto [colon, lineError] = std::from_chars(text.data(), end, place.line);
  if (lineError != std::errc() || colon == end || *colon != ':')
    return std::nullopt;
  const auto [rest, columnError] = std::from_chars(colon + 1, end, place.column);
  if (columnError != std::errc() || rest != end || place.line < 1 || place.column < 1)
    return std::nullopt;
  return place;
}

std::string checkCaret(const std::string& text) {
  return parseCaret(text) ? std::string() : "must be LINE:COL, two numbers from 1";
}

QStringList decoded(const std::vector<std::string>& names) {
  QStringList decodedNames;
  for (const std::string& name : names)
    decodedNames.append(QFile::decodeName(name.c_str()));
  return decodedNames;
}

} // namespace

std::optional<CommandLine> readCommandLine(int argc, char** argv, int& exitCode) {
  CLI::App app("Virelle: a Pascal source editor", "virelle");
  app.set_version_flag("--version", "virelle " VIRELLE_VERSION, "Print the version and exit");
  std::vector<std::string> files;
  std::vector<std::string> packages;
  std::string screenshot;
  std::string caret;
  CommandLine line;
  bool noPackage = false;
  bool noSplash = false;
  bool noSession = false;
  const double longest = std::chrono::duration<double>(Recovery::usualInterval).count();
  double recoverySeconds = longest;
  app.add_option("FILE", files, "Files to open; FILE:LINE or FILE:LINE:COLUMN puts the caret there");
  CLI::Option* const picture =
      app.add_option("--screenshot", screenshot,
                     "Write a picture of the whole window with FILE to this PNG file and exit; "
                     "needs no display");
  picture->type_name("OUT.png");
  app.add_option("--caret", caret, "Put the caret there first; both count from 1")
      ->type_name("LINE:COL")
      ->check(checkCaret);
  app.add_option("--scale", line.scale, "Device pixels per pixel of the picture")
      ->type_name("N")
      ->needs(picture)
      ->check(CLI::Range(0.5, 8.0));
  CLI::Option* const package = app.add_option("--package", packages, "Load this package instead of the editor's own")
                                   ->type_name("PATH")
                                   ->expected(1)
                                   ->allow_extra_args(false) // a file may come right behind it
                                   ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
  app.add_flag("--no-package", noPackage, "Load no package")->excludes(package);
  app.add_flag("--no-splash", noSplash, "Start without the picture that packages greet with");
  app.add_flag("--no-session", noSession, "Neither open what was open last time nor remember what is open");
  bool startNew = false;
  app.add_flag("--new", startNew, "Start another editor, whether one is running or not");
  app.add_flag("--wait", line.wait, "Return when the files are closed, as programs want it that start $EDITOR")
      ->excludes(picture);
  CLI::Option* const interval =
      app.add_option("--recovery-interval", recoverySeconds,
                     "Keep unsaved text so often for the case of a crash, whatever the settings say")
          ->type_name("SECONDS")
          ->check(CLI::Range(0.01, longest));
  try {
    app.parse(argc, argv);
    if (!screenshot.empty() && files.size() != 1)
      throw CLI::ValidationError("--screenshot", "needs exactly one FILE");
    if (line.wait && files.empty())
      throw CLI::ValidationError("--wait", "needs a FILE");
  } catch (const CLI::ParseError& error) {
    const int code = app.exit(error);
    exitCode = code == 0 ? 0 : usageError;
    return std::nullopt;
  }
  line.files = decoded(files);
  line.packages = decoded(packages);
  line.screenshot = QFile::decodeName(screenshot.c_str());
  if (!caret.empty())
    line.caret = parseCaret(caret);
  line.loadPackages = !noPackage;
  line.showSplash = !noSplash && !line.wait;
  // An editor that somebody waits for comes up with their files alone, and goes with them.
  line.keepSession = !noSession && !line.wait;
  // What tells how an editor is to be cannot be told to one that runs already.
  line.handOver = screenshot.empty() && !startNew && !noSession && !noPackage && packages.empty() && interval->empty();
  if (app.count("--recovery-interval") > 0)
    line.recoveryInterval =
        std::chrono::round<std::chrono::milliseconds>(std::chrono::duration<double>(recoverySeconds));
  return line;
}

} // namespace desktop
