// SPDX-License-Identifier: MIT
// The package as a host sees it: a shared object with three functions. Nothing of the add-in is linked here.
#include "platform/Actions.h"
#include "platform/Application.h"
#include "platform/Component.h"
#include "platform/Errors.h"
#include "platform/Package.h"
#include "support/fakes/DebugRecorder.h"
#include "support/fakes/FakeEditWindow.h"
#include "support/fakes/FakeServices.h"
#include "support/fakes/FakeSource.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QPlainTextEdit>
#include <QProcess>

#include <dlfcn.h>

#include <algorithm>
#include <string>
#include <vector>

namespace {

using fakes::TEditWindow;
using Lines = std::vector<std::string>;

const Lines kStopLines = {
    "zkSimplePasPar Finalized",
    "kzSimplePasParTypes Finalized",
    "QVOptions Finalized",
    "QVEditorProxy Finalized",
    "QVEditorDraw",
    "QVLiteParse Finalized",
    "zkPasLex Finalized",
    "zkPasLexTypes Finalized",
    "QVIDEHackUtils Finalized",
    "QVSourceUtils Finalized",
    "QVPasInfo Finalized",
};

QList<QWidget*> LogForms() {
  QList<QWidget*> forms = QApplication::topLevelWidgets();
  forms.removeIf([](const QWidget* form) { return platform::ClassName(*form) != QStringLiteral("TQVLogForm"); });
  return forms;
}

QObject* ProxyOf(const QWidget& form) {
  return platform::FindComponent(form, QStringLiteral("TQVEditorProxy"));
}

// Loads the library, which stays mapped as with a host that has unloaded it. Each test starts and stops it itself, in
// balance.
class Quorvane5 : public testing::Test {
protected:
  Quorvane5() {
    void* library = dlopen(QUORVANE5_PATH, RTLD_NOW | RTLD_LOCAL);
    if (!library)
      throw std::runtime_error(dlerror());
    Initialize = Resolve<platform::TPackageProcedure>(library, platform::InitializeName);
    Finalize = Resolve<platform::TPackageProcedure>(library, platform::FinalizeName);
    Table = Resolve<platform::TPackageInfoFunction>(library, platform::GetPackageInfoTableName)();
  }

  template <class TFunction> static TFunction Resolve(void* library, const char* name) {
    void* symbol = dlsym(library, name);
    if (!symbol)
      throw std::runtime_error(dlerror());
    return reinterpret_cast<TFunction>(symbol);
  }

  void Register() { platform::RegisterPackage(*Table); }

  fakes::DebugRecorder Debug;
  platform::TPackageProcedure Initialize = nullptr;
  platform::TPackageProcedure Finalize = nullptr;
  const platform::TPackageInfoTable* Table = nullptr;
};

TEST_F(Quorvane5, DescribesItself) {
  EXPECT_EQ(Table->Description, u"Virelle for Delphi 5");
}

TEST_F(Quorvane5, RequiresItsHostPackagesInOrder) {
  const Lines required(Table->Requires.begin(), Table->Requires.end());
  EXPECT_EQ(required, (Lines{"VclSmp50", "vclx50", "dsnide50", "vcl50"}));
}

TEST_F(Quorvane5, ListsItsUnitsInContainsOrder) {
  Lines names;
  for (const platform::TContainedUnit& unit : Table->Contains)
    names.emplace_back(unit.Name);
  EXPECT_EQ(names, (Lines{"Quorvane5", "QVStatManager", "SysInit", "QVLog", "QVSourceUtils", "QVOTAServices",
                          "QVOptions", "QVEditorProxy", "QVEditorDraw", "QVIDEHackUtils", "QVPasInfo", "QVLiteParse",
                          "zkPasLexTypes", "zkPasLex", "zkSimplePasParTypes", "zkSimplePasPar"}));
}

TEST_F(Quorvane5, ListsItsUnitsInStartOrder) {
  Lines names;
  for (const platform::TUnitEntry& unit : Table->Units)
    names.emplace_back(unit.Name);
  EXPECT_EQ(names, (Lines{"QVPasInfo", "QVOTAServices", "QVSourceUtils", "QVIDEHackUtils", "QVLog", "zkPasLexTypes",
                          "zkPasLex", "QVLiteParse", "QVStatManager", "QVEditorDraw", "QVEditorProxy", "QVOptions",
                          "zkSimplePasParTypes", "zkSimplePasPar"}));
}

TEST_F(Quorvane5, OnlyTheProxyRegisters) {
  for (const platform::TContainedUnit& unit : Table->Contains)
    EXPECT_EQ(unit.Register != nullptr, std::string_view(unit.Name) == "QVEditorProxy") << unit.Name;
}

TEST_F(Quorvane5, ExportsNothingButItsThreeEntryPoints) {
  QProcess nm;
  nm.start(QStringLiteral(NM_PATH), {QStringLiteral("-D"), QStringLiteral("--defined-only"),
                                     QStringLiteral("--format=just-symbols"), QStringLiteral(QUORVANE5_PATH)});
  ASSERT_TRUE(nm.waitForFinished()) << nm.errorString().toStdString();
  QStringList symbols = QString::fromLocal8Bit(nm.readAllStandardOutput()).split(u'\n', Qt::SkipEmptyParts);
  symbols.sort();
  EXPECT_EQ(symbols, (QStringList{QStringLiteral("Finalize"), QStringLiteral("GetPackageInfoTable"),
                                  QStringLiteral("Initialize")}));
}

TEST_F(Quorvane5, StartsRegistersAndStopsInOrder) {
  const TEditWindow first;
  const TEditWindow second(QStringLiteral("EditWindow_1"));
  const platform::TWndMethod firstProc = first.Editor().WindowProc();
  const platform::TWndMethod secondProc = second.Editor().WindowProc();

  Initialize();
  EXPECT_EQ(Debug.Take(), Lines{});
  EXPECT_EQ(LogForms().size(), 1);
  EXPECT_EQ(ProxyOf(first), nullptr);

  Register();
  EXPECT_EQ(Debug.Take(), (Lines{"RedefineHotKey", "Done RedefineHotKey", "RedefineHotKey", "Done RedefineHotKey"}));
  EXPECT_NE(ProxyOf(first), nullptr);
  EXPECT_NE(ProxyOf(second), nullptr);
  EXPECT_NE(first.Editor().WindowProc(), firstProc);

  Finalize();
  EXPECT_EQ(Debug.Take(), (Lines{
                              "zkSimplePasPar Finalized",
                              "kzSimplePasParTypes Finalized",
                              "QVOptions Finalized",
                              "Enter TQVEditorProxy.Destroy",
                              "Exit TQVEditorProxy.Destroy",
                              "Enter TQVEditorProxy.Destroy",
                              "Exit TQVEditorProxy.Destroy",
                              "QVEditorProxy Finalized",
                              "QVEditorDraw",
                              "QVLiteParse Finalized",
                              "zkPasLex Finalized",
                              "zkPasLexTypes Finalized",
                              "QVIDEHackUtils Finalized",
                              "QVSourceUtils Finalized",
                              "QVPasInfo Finalized",
                          }));
  EXPECT_EQ(LogForms().size(), 0);
  EXPECT_EQ(ProxyOf(first), nullptr);
  EXPECT_EQ(ProxyOf(second), nullptr);
  EXPECT_EQ(first.Editor().WindowProc(), firstProc);
  EXPECT_EQ(second.Editor().WindowProc(), secondProc);
  EXPECT_TRUE(first.Actions().Actions().isEmpty());
}

TEST_F(Quorvane5, LoadedTwiceStartsOnceAndStopsWithTheLastUnload) {
  const TEditWindow window;
  Initialize();
  Register();
  Initialize();
  EXPECT_EQ(LogForms().size(), 1);
  Debug.Take();

  Finalize();
  EXPECT_EQ(Debug.Take(), Lines{});
  EXPECT_EQ(LogForms().size(), 1);
  EXPECT_NE(ProxyOf(window), nullptr);

  Finalize();
  EXPECT_EQ(Debug.Take().size(), kStopLines.size() + 2);
  EXPECT_EQ(LogForms().size(), 0);
  EXPECT_EQ(ProxyOf(window), nullptr);
}

TEST_F(Quorvane5, CanBeLoadedAgainAfterItWasUnloaded) {
  for (int round = 0; round < 3; ++round) {
    const TEditWindow window;
    Initialize();
    Register();
    EXPECT_EQ(LogForms().size(), 1);
    EXPECT_NE(ProxyOf(window), nullptr);
    Finalize();
    EXPECT_EQ(ProxyOf(window), nullptr);
  }
}

TEST_F(Quorvane5, StopsWithoutEditorWindows) {
  Initialize();
  Register();
  Finalize();
  EXPECT_EQ(Debug.Take(), kStopLines);
}

TEST_F(Quorvane5, LogFormBelongsToTheApplicationUntilItIsFreed) {
  Initialize();
  ASSERT_EQ(LogForms().size(), 1);
  delete LogForms().constFirst();
  EXPECT_NO_THROW(Finalize());
}

TEST_F(Quorvane5, WindowClosedBeforeTheUnloadTakesItsProxyAlong) {
  auto window = std::make_unique<TEditWindow>();
  Initialize();
  Register();
  Debug.Take();
  window.reset();
  EXPECT_EQ(Debug.Take(), (Lines{"Enter TQVEditorProxy.Destroy", "Exit TQVEditorProxy.Destroy"}));
  Finalize();
  EXPECT_EQ(Debug.Take(), kStopLines);
}

TEST_F(Quorvane5, AssertionsAreCaughtByTheirTypeInTheHost) {
  TEditWindow window;
  window.DropActions();
  Initialize();
  const auto proxy = std::ranges::find(Table->Contains, std::string_view("QVEditorProxy"),
                                       [](const auto& unit) { return std::string_view(unit.Name); });
  ASSERT_NE(proxy, Table->Contains.end());
  try {
    proxy->Register();
    ADD_FAILURE() << "a window without an action list was accepted";
  } catch (const platform::EAssertionFailed& assertion) {
    EXPECT_EQ(assertion.Unit(), "QVEditorProxy");
    EXPECT_EQ(assertion.Text(), "Assertion failure");
  }
  Finalize();
}

TEST_F(Quorvane5, MarksTheBracketPairInTheHostsWindow) {
  TEditWindow window;
  const auto buffer = std::make_shared<fakes::FakeBuffer>(QStringLiteral("/home/me/unit1.pas"), "begin f(a) end.");
  const auto view = std::make_shared<fakes::FakeView>(buffer, &window);
  const auto services = std::make_shared<fakes::FakeServices>();
  services->TopView = view;
  const fakes::InstalledServices installed(services);
  view->ViewSize = {80, 30};
  window.Editor().SetUp(80, 30, 0);
  window.Editor().CaretX = 8;
  Initialize();
  Register();
  window.Editor().Send(platform::WM_PAINT);
  for (int column = 1; column <= 15; ++column) {
    const platform::TColor ground = platform::ToTColor(window.Editor().Cell(column, 1).pixelColor(0, 0));
    EXPECT_EQ(ground, column == 8 || column == 10 ? platform::clSilver : platform::clWhite) << column;
  }
  Finalize();
}

} // namespace
