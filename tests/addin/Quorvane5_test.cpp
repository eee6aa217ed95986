// SPDX-License-Identifier: MIT
// The package as a host sees it: a shared object with three functions. Nothing of the add-in is linked here.
#include "addin/LoadedPackage.h"

#include "platform/Actions.h"
#include "platform/Application.h"
#include "platform/Component.h"
#include "platform/Errors.h"
#include "platform/Hooks.h"
#include "support/fakes/FakeEditWindow.h"
#include "support/fakes/FakeServices.h"
#include "support/fakes/FakeSource.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QPlainTextEdit>
#include <QProcess>

#include <algorithm>
#include <string>
#include <vector>

namespace {

using fakes::TEditWindow;
using package::kThreadLines;
using package::Lines;

const Lines kStopLines = {
    "QVThread.Terminage",
    "QVThread.Free",
    "QVParse Thread Finalized",
    "zkSimplePasPar Finalized",
    "kzSimplePasParTypes Finalized",
    "QVEditorToolbar Finalized",
    "QVOptions Finalized",
    "QVLocalVars Finalized",
    "QVEditorProxy Finalized",
    "QVEditorDraw",
    "QVMarkerStack Finalized",
    "QVTemplateEditor",
    "QVLiteParse Finalized",
    "zkPasLex Finalized",
    "zkPasLexTypes Finalized",
    "QVIDEHackUtils Finalized",
    "QVSourceUtils Finalized",
    "QVPasInfo Finalized",
    "QVColorPicker Finalized",
};

QObject* ProxyOf(const QWidget& form) {
  return platform::FindComponent(form, QStringLiteral("TQVEditorProxy"));
}

bool HasControls(const QWidget& form) {
  return platform::FindComponent(form, QStringLiteral("TQVEditorToolbar")) != nullptr &&
         platform::FindComponent(form, QStringLiteral("TQVLineNumbers")) != nullptr;
}

// Whether nothing but what the window came with is left on it.
bool IsBare(const TEditWindow& window) {
  return window.children() == QObjectList{&window.Editor(), &window.Actions()};
}

using Quorvane5 = package::LoadedPackage;

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
  EXPECT_EQ(names,
            (Lines{"Quorvane5",       "QVStatManager",       "SysInit",       "QVVirelleSplash", "QVTemplateEditor",
                   "QVLog",           "QVSourceUtils",       "QVOTAServices", "QVOptions",       "QVEditorProxy",
                   "QVEditorDraw",    "QVMarkerStack",       "QVLocalVars",   "QVIDEHackUtils",  "QVPasInfo",
                   "QVEditorToolbar", "QVLiteParse",         "zkPasLexTypes", "zkPasLex",        "QVColorPicker",
                   "QVParseThread",   "zkSimplePasParTypes", "zkSimplePasPar"}));
}

TEST_F(Quorvane5, ListsItsUnitsInStartOrder) {
  Lines names;
  for (const platform::TUnitEntry& unit : Table->Units)
    names.emplace_back(unit.Name);
  EXPECT_EQ(names, (Lines{"QVColorPicker",    "QVPasInfo",       "QVOTAServices",
                          "QVSourceUtils",    "QVIDEHackUtils",  "QVLog",
                          "zkPasLexTypes",    "zkPasLex",        "QVLiteParse",
                          "QVTemplateEditor", "QVStatManager",   "QVMarkerStack",
                          "QVEditorDraw",     "QVEditorProxy",   "QVLocalVars",
                          "QVOptions",        "QVEditorToolbar", "zkSimplePasParTypes",
                          "zkSimplePasPar",   "QVParseThread",   "QVVirelleSplash"}));
}

TEST_F(Quorvane5, ProxiesRegisterBeforeToolbarsAndTheThreadLast) {
  Lines names;
  for (const platform::TContainedUnit& unit : Table->Contains) {
    if (unit.Register != nullptr)
      names.emplace_back(unit.Name);
  }
  EXPECT_EQ(names, (Lines{"QVEditorProxy", "QVEditorToolbar", "QVColorPicker", "QVParseThread"}));
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
  EXPECT_EQ(TakeLines(), Lines{});
  EXPECT_EQ(FormsOf(QStringLiteral("TQVLogForm")).size(), 1);
  EXPECT_EQ(ProxyOf(first), nullptr);

  Register();
  EXPECT_EQ(TakeLines(), (Lines{"RedefineHotKey", "Done RedefineHotKey", "RedefineHotKey", "Done RedefineHotKey"}));
  EXPECT_NE(ProxyOf(first), nullptr);
  EXPECT_NE(ProxyOf(second), nullptr);
  EXPECT_NE(first.Editor().WindowProc(), firstProc);
  EXPECT_TRUE(HasControls(first));
  EXPECT_TRUE(HasControls(second));

  Finalize();
  EXPECT_EQ(TakeLines(), (Lines{
                             "QVThread.Terminage",
                             "QVThread.Free",
                             "QVParse Thread Finalized",
                             "zkSimplePasPar Finalized",
                             "kzSimplePasParTypes Finalized",
                             "QVEditorToolbar Finalized",
                             "QVOptions Finalized",
                             "QVLocalVars Finalized",
                             "Enter TQVEditorProxy.Destroy",
                             "Exit TQVEditorProxy.Destroy",
                             "Enter TQVEditorProxy.Destroy",
                             "Exit TQVEditorProxy.Destroy",
                             "QVEditorProxy Finalized",
                             "QVEditorDraw",
                             "QVMarkerStack Finalized",
                             "QVTemplateEditor",
                             "QVLiteParse Finalized",
                             "zkPasLex Finalized",
                             "zkPasLexTypes Finalized",
                             "QVIDEHackUtils Finalized",
                             "QVSourceUtils Finalized",
                             "QVPasInfo Finalized",
                             "QVColorPicker Finalized",
                         }));
  EXPECT_EQ(FormsOf(QStringLiteral("TQVLogForm")).size(), 0);
  EXPECT_TRUE(IsBare(first));
  EXPECT_TRUE(IsBare(second));
  EXPECT_EQ(first.Editor().WindowProc(), firstProc);
  EXPECT_EQ(second.Editor().WindowProc(), secondProc);
  EXPECT_TRUE(first.Actions().Actions().isEmpty());
}

TEST_F(Quorvane5, ItsOptionsDialogLivesFromTheStartToTheStop) {
  const QStringList before = MainForm.ToolsTexts();
  Initialize();
  EXPECT_EQ(FormsOf(QStringLiteral("TQVOptionsForm")).size(), 1);
  EXPECT_EQ(MainForm.ToolsTexts().size(), before.size() + 1);
  Finalize();
  EXPECT_EQ(FormsOf(QStringLiteral("TQVOptionsForm")).size(), 0);
  EXPECT_EQ(MainForm.ToolsTexts(), before);
}

TEST_F(Quorvane5, ItsTemplateEditorLivesFromTheStartToTheStop) {
  Initialize();
  EXPECT_EQ(FormsOf(QStringLiteral("TQVTemplateEditorForm")).size(), 1);
  Finalize();
  EXPECT_EQ(FormsOf(QStringLiteral("TQVTemplateEditorForm")).size(), 0);
}

TEST_F(Quorvane5, DoesNotStartWithoutTheMenuOfItsOptions) {
  platform::Application().SetMainForm(nullptr);
  try {
    Initialize();
    ADD_FAILURE() << "a host without a main form was accepted";
  } catch (const platform::EPackageError& error) {
    EXPECT_EQ(error.Unit(), "QVOptions");
    EXPECT_NE(std::string(error.what()).find("Assertion failure (QVOptions, line 293)"), std::string::npos)
        << error.what();
  }
  EXPECT_EQ(FormsOf(QStringLiteral("TQVLogForm")).size(), 0) << "what had started has stopped again";
}

TEST_F(Quorvane5, ItsThreadLivesFromTheStartToTheStop) {
  Initialize();
  Finalize();
  Lines lines = Debug.Take();
  // The thread is free to begin late, but has ended when the stop has waited for it.
  std::erase_if(lines, [](const std::string& line) {
    return std::ranges::count(kThreadLines, line) == 0 && line != "QVParse Thread Finalized";
  });
  EXPECT_EQ(lines, (Lines{"Execute Parse Thread", "Exit Parse Thread", "QVParse Thread Finalized"}));
}

TEST_F(Quorvane5, WindowOpenedWhileItIsLoadedIsEquippedWhenItBecomesActive) {
  Initialize();
  Register();
  const auto activate = [](TEditWindow& window) {
    platform::CallHooks(platform::WH_CBT, platform::HCBT_ACTIVATE, platform::WindowHandle(window), 0);
  };
  TEditWindow window;
  activate(window);
  EXPECT_TRUE(HasControls(window));
  EXPECT_NE(ProxyOf(window), nullptr);
  Finalize();
  EXPECT_TRUE(IsBare(window));
  activate(window);
  EXPECT_TRUE(IsBare(window)) << "the hook has gone";
}

TEST_F(Quorvane5, LoadedTwiceStartsOnceAndStopsWithTheLastUnload) {
  const TEditWindow window;
  Initialize();
  Register();
  Initialize();
  EXPECT_EQ(FormsOf(QStringLiteral("TQVLogForm")).size(), 1);
  TakeLines();

  Finalize();
  EXPECT_EQ(TakeLines(), Lines{});
  EXPECT_EQ(FormsOf(QStringLiteral("TQVLogForm")).size(), 1);
  EXPECT_NE(ProxyOf(window), nullptr);
  EXPECT_TRUE(HasControls(window));

  Finalize();
  EXPECT_EQ(TakeLines().size(), kStopLines.size() + 2);
  EXPECT_EQ(FormsOf(QStringLiteral("TQVLogForm")).size(), 0);
  EXPECT_TRUE(IsBare(window));
}

TEST_F(Quorvane5, CanBeLoadedAgainAfterItWasUnloaded) {
  for (int round = 0; round < 3; ++round) {
    const TEditWindow window;
    Initialize();
    Register();
    EXPECT_EQ(FormsOf(QStringLiteral("TQVLogForm")).size(), 1);
    EXPECT_NE(ProxyOf(window), nullptr);
    EXPECT_TRUE(HasControls(window));
    Finalize();
    EXPECT_TRUE(IsBare(window));
  }
}

TEST_F(Quorvane5, StopsWithoutEditorWindows) {
  Initialize();
  Register();
  Finalize();
  EXPECT_EQ(TakeLines(), kStopLines);
}

TEST_F(Quorvane5, LogFormBelongsToTheApplicationUntilItIsFreed) {
  Initialize();
  ASSERT_EQ(FormsOf(QStringLiteral("TQVLogForm")).size(), 1);
  delete FormsOf(QStringLiteral("TQVLogForm")).constFirst();
  EXPECT_NO_THROW(Finalize());
}

TEST_F(Quorvane5, WindowClosedBeforeTheUnloadTakesItsProxyAlong) {
  auto window = std::make_unique<TEditWindow>();
  Initialize();
  Register();
  TakeLines();
  window.reset();
  EXPECT_EQ(TakeLines(), (Lines{"Enter TQVEditorProxy.Destroy", "Exit TQVEditorProxy.Destroy"}));
  Finalize();
  EXPECT_EQ(TakeLines(), kStopLines);
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
