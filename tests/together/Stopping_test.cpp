// SPDX-License-Identifier: MIT
// Taking the package out on bad days: in the middle of a parse, inside a dialog, while windows close, at the end of the
// program, and with all processors busy.
#include "together/PackageFixture.h"

#include "desktop/CommandLine.h"
#include "desktop/ide/InstalledPackages.h"
#include "desktop/Program.h"
#include "desktop/ui/PackagesDialog.h"
#include "support/BusyProcessors.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QDialog>
#include <QFile>
#include <QMenu>
#include <QTimer>
#include <QToolButton>
#include <QTreeWidget>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace desktop {
namespace {

QByteArray hugeUnit(int lines = 60'000) {
  return "unit unit1;\ninterface\nuses helper;\nimplementation\nprocedure Huge;\nbegin\n" +
         QByteArray("  x := y + f(z[1], 2) * 3;\n").repeated(lines) + "end;\nend.\n";
}

// A unit with an error on each line.
QByteArray faultyUnit(int lines) {
  return "unit unit1;\ninterface\nimplementation\nprocedure Faulty;\nbegin\n" +
         QByteArray("  if a b;\n").repeated(lines) + "end;\nend.\n";
}

class Stopping : public PackageFixture {
protected:
  // Loads the package, and remembers its thread.
  void load() {
    const QStringList before = threads();
    loader.load(package);
    QStringList added = threads();
    added.removeIf([&](const QString& each) { return before.contains(each); });
    ASSERT_EQ(added.size(), 1);
    thread_ = added.constFirst();
  }
  // Shows a file with the package at work on it: its outline has come once.
  void openAtWork(const QByteArray& bytes) {
    open(bytes);
    load();
    ASSERT_TRUE(support::waitUntil([this] { return list().count() == 1; }));
  }

  QComboBox& list() const { return *window()->findChild<QComboBox*>(QStringLiteral("Methods")); }
  QToolButton& button(const char* name) const { return *window()->findChild<QToolButton*>(QLatin1String(name)); }

  // The state of the package's thread: R while it runs or could run, S while it waits.
  char threadState() const {
    QFile status(QStringLiteral("/proc/self/task/%1/stat").arg(thread_));
    if (!status.open(QIODevice::ReadOnly))
      return '\0';
    const QByteArray line = status.readAll();
    return line.at(line.lastIndexOf(')') + 2);
  }
  // Lets the thread come to where it waits for the main thread, which serves nothing meanwhile.
  void letThreadWait() const {
    // Its pause of a millisecond is far shorter than so many looks.
    for (int looks = 0; looks < 1000;)
      looks = threadState() == 'S' ? looks + 1 : 0;
  }
  bool runIntoParse() const {
    return support::waitUntil([this] { return threadState() == 'R'; });
  }

  // The package has gone, and everything works without it.
  void expectGone() {
    EXPECT_EQ(loader.loadCount(package), 0);
    for (const TEditWindow* each : workspace.windows())
      EXPECT_EQ(equipmentOf(each), QStringList()) << each->objectName().toStdString();
    EXPECT_TRUE(support::waitUntil([this] { return !threads().contains(thread_); }));
    support::settle();
    editor()->Repaint();
  }
  // It can be loaded again, and works.
  void expectBack() {
    loader.load(package);
    ASSERT_NE(openText(QStringLiteral("again.pas"),
                       "unit again;\ninterface\nimplementation\nprocedure A;begin end;\nprocedure B;begin end;\nend."),
              nullptr);
    EXPECT_TRUE(support::waitUntil([this] { return list().count() == 2; }));
  }

private:
  QString thread_;
};

TEST_F(Stopping, InTheMiddleOfAParse) {
  ASSERT_NO_FATAL_FAILURE(openAtWork(hugeUnit()));
  ASSERT_TRUE(runIntoParse());
  loader.unload(package);
  expectGone();
  expectBack();
}

TEST_F(Stopping, WhileTheThreadWaitsForTheMainOne) {
  ASSERT_NO_FATAL_FAILURE(openAtWork(hugeUnit(1000)));
  letThreadWait();
  loader.unload(package);
  expectGone();
  expectBack();
}

TEST_F(Stopping, WhileErrorsAreUnderlined) {
  open(faultyUnit(2000));
  ASSERT_NO_FATAL_FAILURE(load());
  // Under the first of the faulty lines; looking at the whole picture after every event would take long.
  const auto isRed = [this] {
    const QSize cell = editor()->cellSize();
    const int y = 6 * cell.height() - 2;
    const QImage row = editor()->picture().copy(0, y, 20 * cell.width(), 5);
    for (int x = 0; x < row.width(); ++x)
      if (row.pixelColor(x, 0) == QColor(255, 0, 0))
        return true;
    return false;
  };
  ASSERT_TRUE(support::waitUntil(isRed, 300));
  for (int round = 0; round < 3; ++round) {
    letThreadWait(); // nearly always with an error
    QCoreApplication::processEvents();
  }
  letThreadWait();
  loader.unload(package);
  EXPECT_EQ(equipmentOf(window()), QStringList());
  editor()->Repaint();
  EXPECT_FALSE(isRed());
}

TEST_F(Stopping, InsideAModalDialog) {
  ASSERT_NO_FATAL_FAILURE(openAtWork(hugeUnit()));
  QDialog dialog(frame());
  QTimer::singleShot(0, &dialog, [&] {
    EXPECT_TRUE(runIntoParse());
    loader.unload(package);
    expectGone();
    dialog.reject();
  });
  dialog.exec();
  expectBack();
}

TEST_F(Stopping, ByTheListOfPackages) {
  InstalledPackages installed(loader);
  installed.add(package);
  ASSERT_NO_FATAL_FAILURE(openAtWork(hugeUnit()));
  {
    const support::ModalAnswer<PackagesDialog> answer([this](PackagesDialog& dialog) {
      EXPECT_TRUE(runIntoParse());
      dialog.findChild<QTreeWidget*>()->topLevelItem(0)->setCheckState(0, Qt::Unchecked);
      dialog.reject();
    });
    PackagesDialog(installed, frame()).exec();
  }
  expectGone();
  expectBack();
}

TEST_F(Stopping, WhileAMenuOfTheToolbarIsOpen) {
  ASSERT_NO_FATAL_FAILURE(openAtWork(hugeUnit(1000)));
  QTimer::singleShot(0, &workspace, [&] {
    EXPECT_TRUE(button("Sections").menu()->isVisible());
    loader.unload(package);
  });
  button("Sections").click();
  expectGone();
  expectBack();
}

TEST_F(Stopping, WhileAListOfTheToolbarIsOpen) {
  ASSERT_NO_FATAL_FAILURE(openAtWork(hugeUnit(1000)));
  list().showPopup();
  ASSERT_TRUE(support::waitUntil([this] { return list().view()->isVisible(); }));
  loader.unload(package);
  expectGone();
  expectBack();
}

TEST_F(Stopping, WithTheKeyboardInAListOfTheToolbar) {
  ASSERT_NO_FATAL_FAILURE(openAtWork(hugeUnit(1000)));
  list().setFocus();
  loader.unload(package);
  expectGone();
  expectBack();
}

TEST_F(Stopping, WhileAFileCloses) {
  ASSERT_NO_FATAL_FAILURE(openAtWork(hugeUnit()));
  Page* const page = window()->currentPage();
  const QObject here;
  QObject::connect(window(), &TEditWindow::pageAboutToClose, &here, [this] { loader.unload(package); });
  ASSERT_TRUE(runIntoParse());
  window()->closePage(page);
  expectGone();
}

TEST_F(Stopping, WhileAFileHasJustClosed) {
  ASSERT_NO_FATAL_FAILURE(openAtWork(hugeUnit()));
  Page* const page = window()->currentPage();
  const QObject here;
  QObject::connect(page, &QObject::destroyed, &here, [this] { loader.unload(package); });
  ASSERT_TRUE(runIntoParse());
  window()->closePage(page);
  expectGone();
  expectBack();
}

TEST_F(Stopping, WhileAWindowCloses) {
  ASSERT_NO_FATAL_FAILURE(openAtWork("unit unit1;\ninterface\nimplementation\nprocedure Small;begin end;\nend.\n"));
  TEditWindow* const second = workspace.newWindow();
  activate(second);
  ASSERT_NE(openText(QStringLiteral("huge.pas"), hugeUnit()), nullptr);
  ASSERT_TRUE(
      support::waitUntil([&] { return second->findChild<QComboBox*>(QStringLiteral("Methods"))->count() == 1; }));
  const QObject here;
  bool asked = false;
  QObject::connect(second, &TEditWindow::currentPageChanged, &here, [&](const Page* page) {
    if (page == nullptr && !std::exchange(asked, true))
      loader.unload(package);
  });
  ASSERT_TRUE(runIntoParse());
  workspace.frameOf(second)->close();
  EXPECT_TRUE(asked);
  ASSERT_TRUE(support::waitUntil([this] { return workspace.windows().size() == 1; }));
  expectGone();
  expectBack();
}

TEST_F(Stopping, WhileTheControlOfAClosingWindowIsDestroyed) {
  ASSERT_NO_FATAL_FAILURE(openAtWork("unit unit1;\ninterface\nimplementation\nprocedure Small;begin end;\nend.\n"));
  TEditWindow* const second = workspace.newWindow();
  activate(second);
  const QObject here;
  QObject::connect(second->editor(), &QObject::destroyed, &here, [this] { loader.unload(package); });
  workspace.frameOf(second)->close();
  ASSERT_TRUE(support::waitUntil([this] { return loader.loadCount(package) == 0; }));
  expectGone();
  expectBack();
}

TEST_F(Stopping, WithAllWindowsClosedAtOnce) {
  ASSERT_NO_FATAL_FAILURE(openAtWork(hugeUnit()));
  for (int further = 0; further < 3; ++further)
    activate(workspace.newWindow());
  activate(window());
  ASSERT_TRUE(runIntoParse());
  for (const TEditWindow* each : workspace.windows())
    workspace.frameOf(each)->close();
  loader.unload(package); // the frames that have closed are not destroyed yet
  expectGone();
}

TEST_F(Stopping, InEveryOrderWithTheEventsThatWait) {
  open(hugeUnit(2000));
  for (int round = 0; round < 30; ++round) {
    loader.load(package);
    for (int served = 0; served < round; ++served)
      QCoreApplication::processEvents();
    loader.unload(package);
    ASSERT_EQ(equipmentOf(window()), QStringList()) << round;
  }
}

TEST_F(Stopping, WithAllProcessorsBusyInTheMiddleOfAParse) {
  ASSERT_NO_FATAL_FAILURE(openAtWork(hugeUnit()));
  ASSERT_TRUE(runIntoParse());
  {
    const support::BusyProcessors busy;
    loader.unload(package);
  }
  expectGone();
}

TEST_F(Stopping, WithAllProcessorsBusyInsideAModalDialog) {
  ASSERT_NO_FATAL_FAILURE(openAtWork(hugeUnit()));
  QDialog dialog(frame());
  QTimer::singleShot(0, &dialog, [&] {
    const support::BusyProcessors busy;
    loader.unload(package);
    dialog.reject();
  });
  dialog.exec();
  expectGone();
}

// The whole program.

class Quitting : public testing::Test {
protected:
  ~Quitting() override { platform::Application().SetReporter({}); }

  QTemporaryDir folder_;
  fakes::DebugRecorder debug_;
};

TEST_F(Quitting, EndsTheThreadAtWork) {
  QFile file(folder_.filePath(QStringLiteral("unit.pas")));
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write(hugeUnit());
  file.close();
  CommandLine commandLine;
  commandLine.files = {file.fileName()};
  commandLine.packages = {QStringLiteral(ADD_IN_FILE)};
  {
    Program program(commandLine);
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, &look, [] {
      for (const QWidget* form : platform::Screen().Forms()) {
        const auto* const list = form->findChild<QComboBox*>(QStringLiteral("Methods"));
        if (list != nullptr && list->count() == 1)
          QCoreApplication::exit(7);
      }
    });
    look.start(1);
    EXPECT_EQ(program.edit(), 7);
  }
  const std::vector<std::string> lines = debug_.Take();
  const auto freed = std::find(lines.begin(), lines.end(), "QVThread.Free");
  const auto left = std::find(lines.begin(), lines.end(), "Exit Parse Thread");
  const auto stopped = std::find(lines.begin(), lines.end(), "QVParse Thread Finalized");
  EXPECT_TRUE(freed < stopped && left < stopped && stopped != lines.end());
}

} // namespace
} // namespace desktop
