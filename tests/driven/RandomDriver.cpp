// SPDX-License-Identifier: MIT
// random_driver [--seed N] [--events N]: the whole editor with its add-in in the hands of a random user, off-screen.
//
// It is started again whenever it ends before its time, and finds its session and its recovery files. Exit code 1 if
// anything was found that must not be; a finding is printed with the acts before it. An editor that serves no event for
// a minute is aborted. The same seed does the same things as far as the threads of the editor do.
#include "driven/RandomUser.h"
#include "driven/Watchdog.h"
#include "driven/Witness.h"

#include "desktop/CommandLine.h"
#include "desktop/Program.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <cstdio>

namespace {

constexpr std::chrono::minutes longestWait{1};

void write(const QString& path, const QByteArray& bytes) {
  QFile file(path);
  if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
    qFatal("no room for the files");
}

void writeFiles(const QString& folder) {
  QByteArray unit =
      "unit Unit;\n\ninterface\n\nuses\n  Other, Missing;\n\ntype\n  TThing = class\n    procedure Draw;\n"
      "  end;\n\nimplementation\n\nuses\n  Last;\n\n";
  for (int i = 0; i < 20; ++i)
    unit += "procedure P" + QByteArray::number(i) +
            ";\nbegin\n  if (a > 1) and (b[2] < f(3)) then\n    x := 'text';\nend;\n\n";
  write(folder + QStringLiteral("/Unit.pas"), unit + "end.\n");
  write(folder + QStringLiteral("/Other.pas"), "unit Other;\r\ninterface\r\nimplementation\r\nend.\r\n");
  write(folder + QStringLiteral("/Last.pas"), "unit Last;\ninterface\nimplementation\nbegin\n  s := '\xE4';\nend.\n");
  write(folder + QStringLiteral("/Notes.txt"), "nothing to parse (here)\n");
}

// The user's own folders, all within one.
void moveHome(const QString& folder) {
  for (const char* const name : {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_STATE_HOME", "XDG_CACHE_HOME"}) {
    const QString place = folder + u'/' + QLatin1StringView(name).toString().toLower();
    QDir().mkpath(place);
    qputenv(name, QFile::encodeName(place));
  }
  QDir().mkpath(folder + QStringLiteral("/xdg_data_home/virelle"));
  write(folder + QStringLiteral("/xdg_data_home/virelle/templates.ini"),
        "[beg]\ncode=begin\\  |\\~~end;|\n[ifb]\ncode=if | then\\begin\\  |\\~~end;\n"
        "[tryf]\ncode=try\\  |\\~~finally\\  |\\~~end;\n[proc]\ncode=procedure |;\\begin\\  |\\~~end;\n");
}

int run(std::uint64_t seed, int events, const QString& folder) {
  driven::Witness witness;
  driven::Watchdog watchdog(longestWait, [&] { witness.complain(QStringLiteral("no event is served any more")); });
  driven::RandomUser user(seed, events, folder, witness, watchdog);
  int starts = 0;
  while (!user.isDone() && witness.isContent()) {
    desktop::CommandLine line;
    line.packages = {QStringLiteral(ADD_IN_FILE)};
    line.showSplash = starts % 4 == 3;
    line.files = {folder + QStringLiteral("/Unit.pas"), folder + QStringLiteral("/Other.pas")};
    desktop::Program program(line);
    witness.takeReports();
    user.start();
    program.edit();
    watchdog.beat();
    ++starts;
  }
  if (!driven::editWindows().isEmpty())
    witness.complain(QStringLiteral("there are windows after the end"));
  std::printf("seed %llu: %d events left, %d starts: %s\nseen: %s\n", static_cast<unsigned long long>(seed),
              user.eventsLeft(), starts, witness.isContent() ? "nothing found" : "FINDINGS",
              qPrintable(witness.summary()));
  return witness.isContent() ? 0 : 1;
}

} // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QTemporaryDir home;
  const QString folder = QDir(home.path()).canonicalPath() + QStringLiteral("/files");
  QDir().mkpath(folder);
  moveHome(folder);
  writeFiles(folder);
  QDir::setCurrent(folder);

  QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
  QCoreApplication::setAttribute(Qt::AA_DontUseNativeMenuBar);
  QApplication application(argc, argv);
  QApplication::setStyle(QStringLiteral("Fusion"));
  QCommandLineParser parser;
  const QCommandLineOption seed(QStringLiteral("seed"), QString(), QStringLiteral("N"), QStringLiteral("1"));
  const QCommandLineOption events(QStringLiteral("events"), QString(), QStringLiteral("N"), QStringLiteral("3000"));
  parser.addOptions({seed, events});
  parser.process(application);
  return run(parser.value(seed).toULongLong(), parser.value(events).toInt(), folder);
}
