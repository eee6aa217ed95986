// SPDX-License-Identifier: MIT
// The whole life of the package, step by step: which procedure is called when, what it brings or takes away, and every
// line that the main thread writes meanwhile.
#include "addin/LoadedPackage.h"

#include "platform/Errors.h"
#include "support/fakes/FakeEditWindow.h"
#include "support/Wait.h"

#include <QPointer>
#include <QTimer>
#include <QTimerEvent>

#include <array>
#include <functional>
#include <iterator>
#include <memory>
#include <optional>
#include <span>
#include <stdexcept>
#include <utility>

namespace {

using fakes::TEditWindow;
using package::Lines;
using package::LoadedPackage;

constexpr std::size_t kUnits = 21;

// What is observed while a call of the package is on its way goes through here, because the procedures of a unit are
// plain functions.
struct TObserver {
  std::function<Lines()> State; // all that the package has brought so far
  std::array<platform::TUnitEntry, kUnits> Units = {};
};
std::optional<TObserver> observer;

// Calls a procedure of a unit and writes a line for it, followed by what it has brought (+) and taken away (-).
void Observe(const char* step, const char* unit, void (*procedure)()) {
  platform::OutputDebugString(std::string(step) + ' ' + unit);
  const Lines before = observer->State();
  if (procedure)
    procedure();
  const Lines after = observer->State();
  Lines gone;
  Lines brought;
  std::ranges::set_difference(before, after, std::back_inserter(gone));
  std::ranges::set_difference(after, before, std::back_inserter(brought));
  for (const std::string& each : gone)
    platform::OutputDebugString("- " + each);
  for (const std::string& each : brought)
    platform::OutputDebugString("+ " + each);
}

template <std::size_t Unit> void ObservedStart() {
  Observe("start", observer->Units[Unit].Name, observer->Units[Unit].Start);
}
template <std::size_t Unit> void ObservedStop() {
  Observe("stop", observer->Units[Unit].Name, observer->Units[Unit].Stop);
}

class PackageLifeCycle : public LoadedPackage {
protected:
  PackageLifeCycle() {
    if (Table->Units.size() != kUnits)
      throw std::logic_error("the package has another number of units");
    observer.emplace();
    std::ranges::copy(Table->Units, observer->Units.begin());
    observer->State = [this] { return State(); };
  }
  ~PackageLifeCycle() override {
    for (std::size_t unit = 0; unit < kUnits; ++unit) {
      Table->Units[unit].Start = observer->Units[unit].Start;
      Table->Units[unit].Stop = observer->Units[unit].Stop;
    }
    observer.reset();
  }

  void ObserveUnits() { ObserveUnits(std::make_index_sequence<kUnits>()); }

  // Registers as a host does, each unit observed.
  void ObservedRegister() const {
    for (const platform::TContainedUnit& unit : Table->Contains) {
      if (unit.Register)
        Observe("register", unit.Name, unit.Register);
    }
  }

  // What the package has brought: its forms, its items in the host's menu, and its additions to the editor window.
  Lines State() const {
    Lines state;
    for (const QWidget* form : QApplication::topLevelWidgets()) {
      if (form->parent() == nullptr && QByteArray(form->metaObject()->className()).startsWith("quorvane::"))
        state.push_back((form->isVisible() ? "visible " : "hidden ") + platform::ClassName(*form).toStdString());
    }
    for (const QString& item : MainForm.ToolsTexts()) {
      if (item != QStringLiteral("First") && item != QStringLiteral("Gallery"))
        state.push_back("menu item " + item.toStdString());
    }
    for (const char* name : {"TQVEditorProxy", "TQVEditorToolbar", "TQVLineNumbers"}) {
      if (platform::FindComponent(Window, QString::fromLatin1(name)) != nullptr)
        state.push_back("component " + std::string(name));
    }
    if (Window.Editor().WindowProc() != HostProc)
      state.emplace_back("window procedure");
    for (const QAction* action : Window.Actions().Actions())
      state.push_back("action " + action->text().toStdString());
    std::ranges::sort(state);
    return state;
  }

  TEditWindow Window;
  const platform::TWndMethod HostProc = Window.Editor().WindowProc();

private:
  template <std::size_t... Unit> void ObserveUnits(std::index_sequence<Unit...>) {
    ((Table->Units[Unit].Start = ObservedStart<Unit>, Table->Units[Unit].Stop = ObservedStop<Unit>), ...);
  }
};

// The stops of the units, the one that starts first last: its name, and the lines that it writes while no editor window
// is open.
struct TStop {
  std::string Unit;
  Lines Written;
};
const std::vector<TStop> kStops = {
    {"QVVirelleSplash", {}},
    {"QVParseThread", {"QVThread.Terminage", "QVThread.Free", "QVParse Thread Finalized"}},
    {"zkSimplePasPar", {"zkSimplePasPar Finalized"}},
    {"zkSimplePasParTypes", {"kzSimplePasParTypes Finalized"}},
    {"QVEditorToolbar", {"QVEditorToolbar Finalized"}},
    {"QVOptions", {"QVOptions Finalized"}},
    {"QVLocalVars", {"QVLocalVars Finalized"}},
    {"QVEditorProxy", {"QVEditorProxy Finalized"}},
    {"QVEditorDraw", {"QVEditorDraw"}},
    {"QVMarkerStack", {"QVMarkerStack Finalized"}},
    {"QVStatManager", {}},
    {"QVTemplateEditor", {"QVTemplateEditor"}},
    {"QVLiteParse", {"QVLiteParse Finalized"}},
    {"zkPasLex", {"zkPasLex Finalized"}},
    {"zkPasLexTypes", {"zkPasLexTypes Finalized"}},
    {"QVLog", {}},
    {"QVIDEHackUtils", {"QVIDEHackUtils Finalized"}},
    {"QVSourceUtils", {"QVSourceUtils Finalized"}},
    {"QVOTAServices", {}},
    {"QVPasInfo", {"QVPasInfo Finalized"}},
    {"QVColorPicker", {"QVColorPicker Finalized"}},
};

TEST_F(PackageLifeCycle, IsThisFromTheFirstStartToTheLastStop) {
  ObserveUnits();
  Initialize();
  EXPECT_EQ(TakeLines(), (Lines{
                             "start QVColorPicker",     "start QVPasInfo",
                             "start QVOTAServices",     "start QVSourceUtils",
                             "start QVIDEHackUtils",    "start QVLog",
                             "+ hidden TQVLogForm",     "start zkPasLexTypes",
                             "start zkPasLex",          "start QVLiteParse",
                             "start QVTemplateEditor",  "+ hidden TQVTemplateEditorForm",
                             "start QVStatManager",     "start QVMarkerStack",
                             "start QVEditorDraw",      "start QVEditorProxy",
                             "start QVLocalVars",       "start QVOptions",
                             "+ hidden TQVOptionsForm", "+ menu item Virelle Options...",
                             "start QVEditorToolbar",   "start zkSimplePasParTypes",
                             "start zkSimplePasPar",    "start QVParseThread",
                             "start QVVirelleSplash",   "+ visible TVirelleSplashForm",
                         }));

  ObservedRegister();
  EXPECT_EQ(TakeLines(), (Lines{
                             "register QVEditorProxy",
                             "RedefineHotKey",
                             "Done RedefineHotKey",
                             "+ action ",
                             "+ action Drop Marker",
                             "+ action Pick Up Marker",
                             "+ component TQVEditorProxy",
                             "+ window procedure",
                             "register QVEditorToolbar",
                             "+ action Go to Routine...",
                             "+ action Go to Type...",
                             "+ component TQVEditorToolbar",
                             "+ component TQVLineNumbers",
                             "register QVColorPicker",
                             "register QVParseThread",
                         }));

  Finalize();
  EXPECT_EQ(TakeLines(), (Lines{
                             "stop QVVirelleSplash",
                             "stop QVParseThread",
                             "QVThread.Terminage",
                             "QVThread.Free",
                             "QVParse Thread Finalized",
                             "stop zkSimplePasPar",
                             "zkSimplePasPar Finalized",
                             "stop zkSimplePasParTypes",
                             "kzSimplePasParTypes Finalized",
                             "stop QVEditorToolbar",
                             "QVEditorToolbar Finalized",
                             "- action Go to Routine...",
                             "- action Go to Type...",
                             "- component TQVEditorToolbar",
                             "- component TQVLineNumbers",
                             "stop QVOptions",
                             "QVOptions Finalized",
                             "- hidden TQVOptionsForm",
                             "- menu item Virelle Options...",
                             "stop QVLocalVars",
                             "QVLocalVars Finalized",
                             "stop QVEditorProxy",
                             "Enter TQVEditorProxy.Destroy",
                             "Exit TQVEditorProxy.Destroy",
                             "QVEditorProxy Finalized",
                             "- action ",
                             "- action Drop Marker",
                             "- action Pick Up Marker",
                             "- component TQVEditorProxy",
                             "- window procedure",
                             "stop QVEditorDraw",
                             "QVEditorDraw",
                             "stop QVMarkerStack",
                             "QVMarkerStack Finalized",
                             "stop QVStatManager",
                             "stop QVTemplateEditor",
                             "QVTemplateEditor",
                             "- hidden TQVTemplateEditorForm",
                             "stop QVLiteParse",
                             "QVLiteParse Finalized",
                             "stop zkPasLex",
                             "zkPasLex Finalized",
                             "stop zkPasLexTypes",
                             "zkPasLexTypes Finalized",
                             "stop QVLog",
                             "- hidden TQVLogForm",
                             "stop QVIDEHackUtils",
                             "QVIDEHackUtils Finalized",
                             "stop QVSourceUtils",
                             "QVSourceUtils Finalized",
                             "stop QVOTAServices",
                             "stop QVPasInfo",
                             "QVPasInfo Finalized",
                             "stop QVColorPicker",
                             "QVColorPicker Finalized",
                         }));
  EXPECT_EQ(State(), Lines{"visible TVirelleSplashForm"}) << "which stays to the end of its time";
}

TEST_F(PackageLifeCycle, SplashOfThePackageGoesWithItsTimerAlone) {
  Initialize();
  ASSERT_EQ(FormsOf(QStringLiteral("TVirelleSplashForm")).size(), 1);
  const QPointer<QWidget> splash = FormsOf(QStringLiteral("TVirelleSplashForm")).constFirst();
  Finalize();
  support::settle();
  ASSERT_FALSE(splash.isNull());
  auto* const timer = splash->findChild<QTimer*>(QStringLiteral("Timer1"));
  ASSERT_TRUE(timer->isActive());
  EXPECT_EQ(timer->interval(), 5000);
  QTimerEvent event(timer->timerId());
  QCoreApplication::sendEvent(timer, &event);
  support::settle();
  EXPECT_TRUE(splash.isNull());
}

TEST_F(PackageLifeCycle, EverythingLivesUntilTheLastOfTwoLoadsIsTakenBack) {
  Initialize();
  Register();
  const Lines loaded = State();
  TakeLines();
  Initialize();
  EXPECT_EQ(State(), loaded) << "there is one of each";
  Finalize();
  EXPECT_EQ(State(), loaded);
  EXPECT_EQ(TakeLines(), Lines{});
  Finalize();
  EXPECT_EQ(State(), Lines{"visible TVirelleSplashForm"});
}

TEST_F(PackageLifeCycle, WhicheverUnitCannotStartTheOnesBeforeItStopAndItIsNamed) {
  for (std::size_t failing = 0; failing < kUnits; ++failing) {
    platform::TUnitEntry& unit = Table->Units[failing];
    unit.Start = [] { throw std::runtime_error("no room"); };
    try {
      Initialize();
      ADD_FAILURE() << unit.Name << " has started";
    } catch (const platform::EPackageError& error) {
      EXPECT_EQ(error.Unit(), unit.Name);
      EXPECT_EQ(error.what(), "Unit " + std::string(unit.Name) + ": no room");
    }
    Lines expected;
    for (const TStop& stop : std::span(kStops).last(failing))
      expected.insert(expected.end(), stop.Written.begin(), stop.Written.end());
    EXPECT_EQ(TakeLines(), expected) << unit.Name;
    EXPECT_EQ(State(), Lines{}) << unit.Name;
    unit.Start = observer->Units[failing].Start;
  }
}

TEST_F(PackageLifeCycle, GoesOnAsUsualAfterAUnitThatCouldNotStart) {
  for (std::size_t failing = 0; failing < kUnits; ++failing) {
    Table->Units[failing].Start = [] { throw std::runtime_error("no room"); };
    EXPECT_THROW(Initialize(), platform::EPackageError);
    Table->Units[failing].Start = observer->Units[failing].Start;
  }
  TakeLines();
  Initialize();
  Finalize();
  Lines expected;
  for (const TStop& stop : kStops)
    expected.insert(expected.end(), stop.Written.begin(), stop.Written.end());
  EXPECT_EQ(TakeLines(), expected);
}

} // namespace
