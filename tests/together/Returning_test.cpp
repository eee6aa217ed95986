// SPDX-License-Identifier: MIT
// One run of the whole program after the other.
#include "desktop/CommandLine.h"
#include "desktop/edit/EditControl.h"
#include "desktop/Program.h"
#include "desktop/ui/EditWindow.h"
#include "desktop/ui/MainWindow.h"
#include "desktop/ui/MessageBar.h"
#include "desktop/ui/Page.h"
#include "platform/Application.h"
#include "support/EnvironmentVariable.h"
#include "support/PrintQt.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>
#include <QTimer>

#include <functional>

namespace desktop {
namespace {

class Returning : public testing::Test {
protected:
  Returning() {
    for (const char* name : {"a.pas", "b.pas", "c.pas"}) {
      QFile file(path(name));
      EXPECT_TRUE(file.open(QIODevice::WriteOnly));
      file.write("one\ntwo\nthree\nfour\n");
    }
  }
  ~Returning() override { platform::Application().SetReporter({}); }

  QString path(const char* name) const { return folder_.filePath(QString::fromLatin1(name)); }

  static CommandLine waitingFor(const QStringList& files) {
    CommandLine commandLine;
    commandLine.files = files;
    commandLine.keepSession = false;
    commandLine.loadPackages = false;
    commandLine.wait = true;
    return commandLine;
  }
  // Runs the program with these files, does `work` with its first window, and ends it in order.
  static void run(const QStringList& files, const std::function<void(TEditWindow&)>& work, bool keepSession = true) {
    CommandLine commandLine;
    commandLine.files = files;
    commandLine.keepSession = keepSession;
    commandLine.loadPackages = false;
    Program program(commandLine);
    bool done = false;
    QTimer::singleShot(0, [&] {
      done = true;
      work(*qobject_cast<MainWindow*>(platform::Application().MainForm())->editWindow());
      QCoreApplication::exit(0);
    });
    EXPECT_EQ(program.edit(), 0);
    EXPECT_TRUE(done);
  }
  static QStringList titles(const TEditWindow& window) {
    QStringList titles;
    for (const Page* page : window.pages())
      titles.append(page->title());
    return titles;
  }

  QTemporaryDir folder_;
  support::EnvironmentVariable state_{"XDG_STATE_HOME", path("state").toUtf8()};
};

TEST_F(Returning, EverythingIsAsItWasLeft) {
  run({path("a.pas"), path("b.pas")}, [](TEditWindow& window) {
    EXPECT_EQ(window.currentPage()->title(), QStringLiteral("a.pas"));
    window.editor()->setCaret(3, 2);
  });
  run({}, [](const TEditWindow& window) {
    EXPECT_EQ(titles(window), (QStringList{QStringLiteral("a.pas"), QStringLiteral("b.pas")}));
    EXPECT_EQ(window.currentPage()->title(), QStringLiteral("a.pas"));
    EXPECT_EQ(window.editor()->caretRow(), 3);
    EXPECT_EQ(window.editor()->caretColumn(), 2);
  });
}

TEST_F(Returning, AFileOnTheCommandLineComesToTheFrontOfTheSession) {
  run({path("a.pas"), path("b.pas")}, [](const TEditWindow&) {});
  run({path("c.pas")}, [](const TEditWindow& window) {
    EXPECT_EQ(titles(window).size(), 3);
    EXPECT_EQ(window.currentPage()->title(), QStringLiteral("c.pas"));
  });
  run({path("b.pas")}, [](const TEditWindow& window) {
    EXPECT_EQ(titles(window).size(), 3) << "open once";
    EXPECT_EQ(window.currentPage()->title(), QStringLiteral("b.pas"));
  });
}

TEST_F(Returning, ALineOnTheCommandLineGoesBeforeTheCaretOfTheSession) {
  run({path("a.pas")}, [](TEditWindow& window) { window.editor()->setCaret(2, 1); });
  run({path("a.pas") + QStringLiteral(":4:3")}, [](const TEditWindow& window) {
    EXPECT_EQ(window.editor()->caretRow(), 4);
    EXPECT_EQ(window.editor()->caretColumn(), 3);
  });
}

TEST_F(Returning, WithoutASessionNothingIsTakenUpOrWritten) {
  run({path("a.pas")}, [](const TEditWindow&) {});
  run(
      {path("b.pas")},
      [](const TEditWindow& window) { EXPECT_EQ(titles(window), QStringList{QStringLiteral("b.pas")}); }, false);
  run({}, [](const TEditWindow& window) { EXPECT_EQ(titles(window), QStringList{QStringLiteral("a.pas")}); });
}

TEST_F(Returning, AnEditorThatSomebodyWaitsForEndsWithItsLastPage) {
  const CommandLine commandLine = waitingFor({path("a.pas"), path("b.pas")});
  Program program(commandLine);
  QTimer::singleShot(0, [&] {
    TEditWindow& window = *qobject_cast<MainWindow*>(platform::Application().MainForm())->editWindow();
    ASSERT_EQ(titles(window), (QStringList{QStringLiteral("a.pas"), QStringLiteral("b.pas")}));
    window.closePage(window.pages().constFirst());
    QTimer::singleShot(0, [&window] {
      ASSERT_EQ(titles(window), QStringList{QStringLiteral("b.pas")});
      window.closePage(window.pages().constFirst());
    });
  });
  EXPECT_EQ(program.edit(), 0);
}

TEST_F(Returning, AnEditorThatSomebodyWaitsForDoesNotComeUpForNothing) {
  const CommandLine commandLine = waitingFor({folder_.path()});
  Program program(commandLine);
  EXPECT_EQ(program.edit(), 2);
}

TEST_F(Returning, AnEditorThatSomebodyWaitsForTellsInTheEndThatAFileWasMissing) {
  const CommandLine commandLine = waitingFor({path("a.pas"), folder_.path()});
  Program program(commandLine);
  QTimer::singleShot(0, [&] {
    TEditWindow& window = *qobject_cast<MainWindow*>(platform::Application().MainForm())->editWindow();
    window.closePage(window.currentPage());
  });
  EXPECT_EQ(program.edit(), 2);
}

TEST_F(Returning, AFileThatWasNeverSavedDoesNotComeBack) {
  run({path("a.pas"), path("new.pas")}, [](const TEditWindow& window) { EXPECT_EQ(titles(window).size(), 2); });
  run({}, [](const TEditWindow& window) {
    EXPECT_EQ(titles(window), QStringList{QStringLiteral("a.pas")});
    EXPECT_TRUE(window.messageBar()->messages().isEmpty());
  });
}

} // namespace
} // namespace desktop
