// SPDX-License-Identifier: MIT
// How the package comes up in the real editor: its splash window, and what happens when one of its units cannot start.
#include "together/PackageFixture.h"

#include "desktop/CommandLine.h"
#include "desktop/ide/InstalledPackages.h"
#include "desktop/Program.h"
#include "platform/Errors.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QImage>
#include <QPointer>
#include <QScreen>
#include <QTimer>
#include <QTimerEvent>

#include <dlfcn.h>

#include <algorithm>
#include <chrono>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace desktop {
namespace {

QWidgetList splashes() {
  QWidgetList forms = QApplication::topLevelWidgets();
  forms.removeIf(
      [](const QWidget* form) { return platform::ClassName(*form) != QStringLiteral("TVirelleSplashForm"); });
  return forms;
}

// The table of the mapped package, which its starts go by.
platform::TPackageInfoTable tableOf(const char* fileName) {
  void* const library = dlopen(fileName, RTLD_NOW | RTLD_LOCAL); // stays mapped, as it does with the loader
  if (library == nullptr)
    throw std::runtime_error(dlerror());
  const auto table =
      reinterpret_cast<platform::TPackageInfoFunction>(dlsym(library, platform::GetPackageInfoTableName));
  return *table();
}

// While it lives, one unit of the package cannot start.
class BrokenUnit {
public:
  explicit BrokenUnit(std::string_view name) {
    const std::span<platform::TUnitEntry> units = tableOf(ADD_IN_FILE).Units;
    const auto found = std::ranges::find(units, name, [](const auto& unit) { return std::string_view(unit.Name); });
    if (found == units.end())
      throw std::invalid_argument("no such unit");
    unit_ = &*found;
    start_ = unit_->Start;
    unit_->Start = [] { throw std::runtime_error("no room"); };
  }
  ~BrokenUnit() { unit_->Start = start_; }
  BrokenUnit(const BrokenUnit&) = delete;
  BrokenUnit& operator=(const BrokenUnit&) = delete;

private:
  platform::TUnitEntry* unit_ = nullptr;
  void (*start_)() = nullptr;
};

class Starting : public PackageFixture {
protected:
  Starting() { platform::Application().SetShowSplash(true); }
  ~Starting() override { qDeleteAll(splashes()); }
};

TEST_F(Starting, ShowsTheSplashOnTopOfTheEditorForFiveSeconds) {
  open("f(x);\n");
  loader.load(package);
  ASSERT_EQ(splashes().size(), 1);
  const QPointer<QWidget> splash = splashes().constFirst();
  EXPECT_TRUE(splash->isVisible());
  EXPECT_TRUE(splash->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
  EXPECT_EQ(splash->size(), QSize(406, 256));
  EXPECT_EQ(splash->geometry().center(), frame()->screen()->geometry().center());
  QTimer& timer = *splash->findChild<QTimer*>(QStringLiteral("Timer1"));
  ASSERT_TRUE(timer.isActive());
  EXPECT_EQ(timer.interval(), 5000);
  QTimerEvent event(timer.timerId());
  QCoreApplication::sendEvent(&timer, &event);
  support::settle();
  EXPECT_TRUE(splash.isNull());
  EXPECT_EQ(equipmentOf(window()), equipment) << "the package stays";
}

TEST_F(Starting, LeavesTheFocusWithTheText) {
  open("f(x);\n");
  editor()->setFocus();
  ASSERT_TRUE(editor()->hasFocus());
  loader.load(package);
  support::settle();
  ASSERT_EQ(splashes().size(), 1);
  EXPECT_TRUE(editor()->hasFocus());
  EXPECT_TRUE(frame()->isActiveWindow());
  QTimer& timer = *splashes().constFirst()->findChild<QTimer*>(QStringLiteral("Timer1"));
  QTimerEvent event(timer.timerId());
  QCoreApplication::sendEvent(&timer, &event);
  support::settle();
  EXPECT_TRUE(editor()->hasFocus());
  EXPECT_TRUE(frame()->isActiveWindow());
}

TEST_F(Starting, WithASplashOfAnEarlierLoadShowsAnother) {
  open("f(x);\n");
  loader.load(package);
  loader.unload(package);
  EXPECT_EQ(splashes().size(), 1) << "which stays to the end of its time";
  loader.load(package);
  EXPECT_EQ(splashes().size(), 2);
}

TEST_F(Starting, LeavesTheEditorAsItWasWhicheverUnitFails) {
  open("f(x);\n");
  const platform::TWndMethod own = editor()->WindowProc();
  const QStringList components = componentsOf(window());
  InstalledPackages installed(loader);
  for (const platform::TUnitEntry& unit : tableOf(ADD_IN_FILE).Units) {
    const BrokenUnit broken(unit.Name);
    EXPECT_EQ(installed.load(package), QStringLiteral("%1: Unit %2: no room").arg(package, QLatin1String(unit.Name)));
    EXPECT_EQ(loader.loadCount(package), 0) << unit.Name;
    EXPECT_EQ(componentsOf(window()), components) << unit.Name;
    EXPECT_EQ(editor()->WindowProc(), own) << unit.Name;
    EXPECT_TRUE(splashes().isEmpty()) << unit.Name;
  }
  type(QStringLiteral("g(y);\n"));
  EXPECT_EQ(editor()->toPlainText(), QStringLiteral("g(y);\nf(x);\n"));
  EXPECT_EQ(installed.load(package), QString());
  EXPECT_EQ(equipmentOf(window()), equipment);
}

// The whole program.

class ProgramStart : public testing::Test {
protected:
  ProgramStart() {
    QFile file(file_);
    if (!file.open(QIODevice::WriteOnly) || file.write("unit a;\ninterface\nimplementation\nend.\n") < 0)
      throw std::runtime_error("no room for the file");
  }
  ~ProgramStart() override {
    qDeleteAll(splashes());
    platform::Application().SetReporter({});
    platform::Application().SetShowSplash(true);
  }

  // What main would make of these arguments, the package of this build added.
  CommandLine commandLine(std::vector<std::string> arguments) const {
    arguments.insert(arguments.begin(), {"virelle", "--package", ADD_IN_FILE, file_.toStdString()});
    std::vector<char*> pointers;
    pointers.reserve(arguments.size());
    for (std::string& argument : arguments)
      pointers.push_back(argument.data());
    int exitCode = -1;
    const auto line = readCommandLine(static_cast<int>(pointers.size()), pointers.data(), exitCode);
    if (!line)
      throw std::invalid_argument("the command line was refused");
    return *line;
  }

  // Starts the editor, calls `look` from its event loop with its window, and ends it.
  template <class TLook> void edit(const CommandLine& line, TLook&& look) {
    Program program(line);
    QTimer::singleShot(0, qApp, [&] {
      for (const QWidget* form : platform::Screen().Forms())
        if (const auto* const window = qobject_cast<const TEditWindow*>(form))
          look(*window);
      QCoreApplication::exit(7);
    });
    EXPECT_EQ(program.edit(), 7);
  }

  fakes::DebugRecorder debug_;
  QTemporaryDir folder_;
  QString file_ = folder_.filePath(QStringLiteral("a.pas"));
};

TEST_F(ProgramStart, TakesWhatStandsBehindThePackageForAFile) {
  const CommandLine line = commandLine({});
  EXPECT_EQ(line.packages, QStringList{QStringLiteral(ADD_IN_FILE)});
  EXPECT_EQ(line.files, QStringList{file_});
}

TEST_F(ProgramStart, OpensEveryFileAtItsPlaceAndShowsTheFirst) {
  QFile other(folder_.filePath(QStringLiteral("b.pas")));
  ASSERT_TRUE(other.open(QIODevice::WriteOnly));
  ASSERT_EQ(other.write("1\n2\n3\n"), 6);
  other.close();
  edit(commandLine({other.fileName().toStdString() + ":2:2", "--no-session"}), [](const TEditWindow& window) {
    ASSERT_EQ(window.pages().size(), 2);
    EXPECT_EQ(window.currentPage()->title(), QStringLiteral("a.pas"));
    EXPECT_EQ(window.pages()[1]->title(), QStringLiteral("b.pas"));
    EXPECT_EQ(window.pages()[1]->state().caret, 3);
  });
}

TEST_F(ProgramStart, OpensNoWindowThatIsLargerThanItsScreen) {
  edit(commandLine({"--no-session"}), [](const TEditWindow& window) {
    const QSize room = window.screen()->availableSize();
    ASSERT_LT(room.width(), 1000) << "the usual width";
    EXPECT_LE(window.window()->width(), room.width());
    EXPECT_LE(window.window()->height(), room.height());
  });
}

TEST_F(ProgramStart, ShowsTheSplash) {
  edit(commandLine({}), [](const TEditWindow&) { EXPECT_EQ(splashes().size(), 1); });
}

TEST_F(ProgramStart, LeavesTheSplashOutWhenAsked) {
  edit(commandLine({"--no-splash"}), [](const TEditWindow& window) {
    EXPECT_TRUE(splashes().isEmpty());
    EXPECT_NE(platform::FindComponent(window, QStringLiteral("TQVEditorProxy")), nullptr) << "the package is there";
  });
}

TEST_F(ProgramStart, ShowsNoSplashWhenItTakesAPicture) {
  const QString picture = folder_.filePath(QStringLiteral("a.png"));
  const CommandLine line = commandLine({"--screenshot", picture.toStdString()});
  Program program(line);
  EXPECT_EQ(program.takeScreenshot(), 0);
  EXPECT_FALSE(QImage(picture).isNull());
  EXPECT_TRUE(splashes().isEmpty());
}

TEST_F(ProgramStart, NamesAUnitThatCannotStartAndGoesOnWithoutThePackage) {
  const BrokenUnit broken("QVMarkerStack");
  edit(commandLine({}), [](const TEditWindow& window) {
    EXPECT_TRUE(window.messageBar()->messages().contains(QStringLiteral(ADD_IN_FILE ": Unit QVMarkerStack: no room")))
        << window.messageBar()->messages().join(u'\n').toStdString();
    EXPECT_EQ(platform::FindComponent(window, QStringLiteral("TQVEditorProxy")), nullptr);
    window.editor()->textCursor().insertText(QStringLiteral("x"));
    EXPECT_TRUE(window.editor()->toPlainText().startsWith(QStringLiteral("xunit a;")));
    window.editor()->document()->undo();
  });
}

TEST_F(ProgramStart, TellsOfSettingsThatCannotBeUsedOnce) {
  const QString settings = qEnvironmentVariable("XDG_CONFIG_HOME") + QStringLiteral("/virelle/environment.json");
  QDir().mkpath(QFileInfo(settings).path());
  QFile file(settings);
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write(R"({"tabWidth": 99, "fontPoints": 13})");
  file.close();
  const QString told = QStringLiteral("have values that cannot be used, and the usual ones hold for tabWidth");
  edit(commandLine({}), [&](const TEditWindow& window) {
    EXPECT_EQ(window.messageBar()->messages().filter(told).size(), 1);
    EXPECT_EQ(window.editor()->tabWidth(), 8);
    EXPECT_EQ(window.editor()->editorFontPoints(), 13);
  });
  edit(commandLine({}), [&](const TEditWindow& window) {
    EXPECT_TRUE(window.messageBar()->messages().filter(told).isEmpty());
    EXPECT_EQ(window.editor()->editorFontPoints(), 13);
  });
  QFile::remove(settings);
}

TEST_F(ProgramStart, OnlyAnIntervalThatIsGivenGoesBeforeTheSettings) {
  EXPECT_EQ(commandLine({}).recoveryInterval, std::nullopt);
  EXPECT_EQ(commandLine({"--recovery-interval", "2.5"}).recoveryInterval, std::chrono::milliseconds(2500));
}

} // namespace
} // namespace desktop
