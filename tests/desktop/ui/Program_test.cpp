// SPDX-License-Identifier: MIT
// The editor's binary as others start it.
#include "support/PrintQt.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QImage>
#include <QMap>
#include <QProcess>
#include <QProcessEnvironment>
#include <QTemporaryDir>

namespace desktop {
namespace {

struct Outcome {
  int code = -1;
  QString output;
  QString error;
};

class ProgramTest : public testing::Test {
protected:
  // Runs the editor in an environment that has no display, with these variables on top.
  Outcome run(const QStringList& arguments, const QMap<QString, QString>& variables = {}) const {
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "QT_SCALE_FACTOR"})
      environment.remove(QString::fromLatin1(name));
    for (auto variable = variables.begin(); variable != variables.end(); ++variable)
      environment.insert(variable.key(), variable.value());
    process.setProcessEnvironment(environment);
    process.setWorkingDirectory(folder_.path());
    process.start(QStringLiteral(VIRELLE_BINARY), arguments);
    Outcome outcome;
    if (!process.waitForFinished(120'000) || process.exitStatus() != QProcess::NormalExit) {
      ADD_FAILURE() << "did not end by itself: " << process.errorString().toStdString();
      return outcome;
    }
    outcome.code = process.exitCode();
    outcome.output = QString::fromUtf8(process.readAllStandardOutput());
    outcome.error = QString::fromUtf8(process.readAllStandardError());
    return outcome;
  }

  QString path(const QString& name) const { return folder_.filePath(name); }
  QString writeSource() const {
    QFile file(path(QStringLiteral("a.pas")));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("unit a;\n\n{ a comment }\n\nend.\n");
    return file.fileName();
  }
  QStringList screenshot(const QStringList& more) const {
    return QStringList{QStringLiteral("--no-package"), QStringLiteral("--screenshot"),
                       path(QStringLiteral("out.png"))} +
           more;
  }

  QTemporaryDir folder_;
};

TEST_F(ProgramTest, TellsItsOptionsWithoutADisplay) {
  const Outcome outcome = run({QStringLiteral("--help")});
  EXPECT_EQ(outcome.code, 0);
  for (const char* option : {"--screenshot", "--caret", "--scale", "--package", "--no-package", "--no-splash",
                             "--no-session", "--new", "--wait", "--recovery-interval", "--version", "FILE"})
    EXPECT_TRUE(outcome.output.contains(QString::fromLatin1(option))) << option;
  EXPECT_TRUE(outcome.error.isEmpty()) << outcome.error.toStdString();
}

TEST_F(ProgramTest, TellsItsVersionWithoutADisplay) {
  const Outcome outcome = run({QStringLiteral("--version")});
  EXPECT_EQ(outcome.code, 0);
  EXPECT_EQ(outcome.output, QStringLiteral("virelle " VIRELLE_VERSION "\n"));
}

TEST_F(ProgramTest, WritesAPictureOfTheWholeWindowWithoutADisplay) {
  const Outcome outcome = run(screenshot({writeSource()}));
  EXPECT_EQ(outcome.code, 0) << outcome.error.toStdString();
  const QImage picture(path(QStringLiteral("out.png")));
  EXPECT_EQ(picture.size(), QSize(1000, 700));
}

TEST_F(ProgramTest, ThePictureIsScaledInDevicePixels) {
  const QString source = writeSource();
  for (const double scale : {1.5, 2.0}) {
    const Outcome outcome = run(screenshot({QStringLiteral("--scale"), QString::number(scale), source}));
    EXPECT_EQ(outcome.code, 0) << outcome.error.toStdString();
    EXPECT_EQ(QImage(path(QStringLiteral("out.png"))).size(), QSize(1000, 700) * scale);
  }
}

TEST_F(ProgramTest, TheCaretOptionMovesTheCaret) {
  const QString source = writeSource();
  ASSERT_EQ(run(screenshot({source})).code, 0);
  const QImage atStart(path(QStringLiteral("out.png")));
  ASSERT_EQ(run(screenshot({QStringLiteral("--caret"), QStringLiteral("3:4"), source})).code, 0);
  EXPECT_NE(QImage(path(QStringLiteral("out.png"))), atStart);
}

TEST_F(ProgramTest, NumbersBehindAFilesNameMoveTheCaretThere) {
  const QString source = writeSource();
  ASSERT_EQ(run(screenshot({QStringLiteral("--caret"), QStringLiteral("3:4"), source})).code, 0);
  const QImage wanted(path(QStringLiteral("out.png")));
  const Outcome outcome = run(screenshot({source + QStringLiteral(":3:4")}));
  ASSERT_EQ(outcome.code, 0) << outcome.error.toStdString();
  EXPECT_EQ(QImage(path(QStringLiteral("out.png"))), wanted);
}

TEST_F(ProgramTest, AMissingFileIsNamedOnStandardErrorWithCode2) {
  const QString missing = path(QStringLiteral("missing.pas"));
  const Outcome outcome = run(screenshot({missing}));
  EXPECT_EQ(outcome.code, 2);
  EXPECT_TRUE(outcome.error.contains(QStringLiteral("virelle: "))) << outcome.error.toStdString();
  EXPECT_TRUE(outcome.error.contains(missing));
  EXPECT_FALSE(QFile::exists(path(QStringLiteral("out.png"))));
}

TEST_F(ProgramTest, APictureThatCannotBeWrittenIsNamedOnStandardErrorWithCode2) {
  const QString nowhere = path(QStringLiteral("no/out.png"));
  const Outcome outcome = run({QStringLiteral("--no-package"), QStringLiteral("--screenshot"), nowhere, writeSource()});
  EXPECT_EQ(outcome.code, 2);
  EXPECT_TRUE(outcome.error.contains(nowhere)) << outcome.error.toStdString();
}

TEST_F(ProgramTest, APackageThatCannotBeLoadedIsNamedOnStandardErrorWithCode2) {
  const QString package = path(QStringLiteral("none.so"));
  const Outcome outcome = run({QStringLiteral("--package"), package, QStringLiteral("--screenshot"),
                               path(QStringLiteral("out.png")), writeSource()});
  EXPECT_EQ(outcome.code, 2);
  EXPECT_TRUE(outcome.error.contains(package)) << outcome.error.toStdString();
}

TEST_F(ProgramTest, KeepsTheSearchPathBesideTheUsersOtherSettings) {
  const QString folder = path(QStringLiteral("config/virelle"));
  ASSERT_TRUE(QDir().mkpath(folder));
  QFile file(folder + QStringLiteral("/search-path.json"));
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write("damaged");
  file.close();
  EXPECT_EQ(
      run(screenshot({writeSource()}), {{QStringLiteral("XDG_CONFIG_HOME"), path(QStringLiteral("config"))}}).code, 0);
  EXPECT_TRUE(QFile::exists(folder + QStringLiteral("/search-path.json.damaged")));
}

TEST_F(ProgramTest, TakingAPictureLeavesTheSessionAlone) {
  const QString state = path(QStringLiteral("state"));
  EXPECT_EQ(run(screenshot({writeSource()}), {{QStringLiteral("XDG_STATE_HOME"), state}}).code, 0);
  EXPECT_FALSE(QFile::exists(state));
}

TEST_F(ProgramTest, WrongArgumentsAreToldWithCode2) {
  const QString source = writeSource();
  const QList<QStringList> wrong = {
      {QStringLiteral("--no-such-option")},
      screenshot({}),
      screenshot({source, source}),
      screenshot({QStringLiteral("--caret"), QStringLiteral("x"), source}),
      screenshot({QStringLiteral("--caret"), QStringLiteral("0:1"), source}),
      screenshot({QStringLiteral("--caret"), QStringLiteral("1:2x"), source}),
      screenshot({QStringLiteral("--scale"), QStringLiteral("0"), source}),
      {QStringLiteral("--scale"), QStringLiteral("2"), source},
      {QStringLiteral("--wait")},
      screenshot({QStringLiteral("--wait"), source}),
      {QStringLiteral("--package"), QStringLiteral("p.so"), QStringLiteral("--no-package"), source},
  };
  for (const QStringList& arguments : wrong) {
    const Outcome outcome = run(arguments);
    EXPECT_EQ(outcome.code, 2) << arguments.join(QStringLiteral(" ")).toStdString();
    EXPECT_FALSE(outcome.error.isEmpty()) << arguments.join(QStringLiteral(" ")).toStdString();
  }
}

} // namespace
} // namespace desktop
