// SPDX-License-Identifier: MIT
// The package as the editor loads it, from its file, into the real host.
#include "together/PackageFixture.h"

#include <QComboBox>
#include <QImage>

#include <algorithm>
#include <string>
#include <vector>

namespace desktop {
namespace {

using PackageInHost = PackageFixture;

TEST_F(PackageInHost, AttachesToEveryOpenWindow) {
  open("f(x);\n");
  TEditWindow* const second = workspace.newWindow();
  loader.load(package);
  EXPECT_EQ(equipmentOf(window()), equipment);
  EXPECT_EQ(equipmentOf(second), equipment);
}

TEST_F(PackageInHost, AttachesToAWindowOpenedLaterWhenItBecomesActive) {
  open("f(x);\n");
  loader.load(package);
  TEditWindow* const second = workspace.newWindow();
  activate(second);
  EXPECT_EQ(equipmentOf(second), equipment);
}

TEST_F(PackageInHost, MarksTheBracketsAtTheCaret) {
  open("f(x);\n");
  editor()->setCaret(1, 3);
  editor()->Repaint();
  const QImage before = editor()->picture().copy();
  loader.load(package);
  support::settle();
  editor()->Repaint();
  const QImage inside = editor()->picture().copy();
  // The controls of the package have made the text's place smaller.
  EXPECT_EQ(inside, before.copy(inside.rect())) << "the caret is inside the brackets";
  editor()->setCaret(1, 2);
  support::settle();
  EXPECT_NE(editor()->picture(), inside);
}

// What a gutter shows beside a row, from 0, of so many pixels.
QImage besideRow(QWidget& gutter, int row, int height) {
  return gutter.grab(QRect(0, row * height, gutter.width(), height)).toImage();
}

TEST_F(PackageInHost, UnloadingLeavesEveryEditorAsItWasHoweverOften) {
  open("unit unit1;\ninterface\nimplementation\nprocedure Walk;\nbegin\nend;\nend.\n");
  TEditWindow* const second = workspace.newWindow();
  activate(second);
  support::settle();
  struct State {
    platform::TWndMethod procedure;
    QStringList components;
    QRect place;
    qsizetype actions;
    bool operator==(const State&) const = default;
  };
  const auto stateOf = [](const TEditWindow* each) {
    return State{each->editor()->WindowProc(), componentsOf(each), each->editor()->geometry(),
                 each->actionList()->Actions().size()};
  };
  const State first = stateOf(window());
  const State other = stateOf(second);
  const qsizetype threads = threadCount();
  for (int round = 0; round < 100; ++round) {
    loader.load(package);
    ASSERT_EQ(equipmentOf(window()), equipment) << round;
    ASSERT_EQ(equipmentOf(second), equipment) << round;
    ASSERT_NE(editor()->WindowProc(), first.procedure) << round;
    ASSERT_EQ(threadCount(), threads + 1) << round;
    support::settle();
    loader.unload(package);
    support::settle();
    ASSERT_EQ(stateOf(window()), first) << round;
    ASSERT_EQ(stateOf(second), other) << round;
    ASSERT_TRUE(support::waitUntil([&] { return threadCount() == threads; })) << round;
  }
  // What is loaded after all that works, still and again.
  loader.load(package);
  activate(window());
  const auto* const methods = window()->findChild<QComboBox*>(QStringLiteral("Methods"));
  ASSERT_NE(methods, nullptr);
  ASSERT_TRUE(support::waitUntil([&] { return methods->count() == 1; }));
  EXPECT_EQ(methods->itemText(0), QStringLiteral("Walk"));
  auto* const numbers = qobject_cast<QWidget*>(platform::FindComponent(*window(), equipment.at(2)));
  ASSERT_NE(numbers, nullptr);
  const int height = editor()->cellSize().height();
  EXPECT_NE(besideRow(*numbers, 0, height), besideRow(*numbers, 10, height)) << "which is behind the end of the text";
  loader.unload(package);
  support::settle();
  EXPECT_EQ(stateOf(window()), first);
  // No hook is left either.
  TEditWindow* const third = workspace.newWindow();
  activate(third);
  EXPECT_EQ(equipmentOf(third), QStringList());
}

TEST_F(PackageInHost, LoadingTwiceAttachesOnceAndTheLastUnloadDetaches) {
  open("f(x);\n");
  const platform::TWndMethod own = editor()->WindowProc();
  loader.load(package);
  const platform::TWndMethod attached = editor()->WindowProc();
  QObject* const proxy = proxyOf(window());
  loader.load(package);
  EXPECT_EQ(editor()->WindowProc(), attached);
  EXPECT_EQ(proxyOf(window()), proxy);
  loader.unload(package);
  EXPECT_EQ(editor()->WindowProc(), attached) << "one load is left";
  loader.unload(package);
  EXPECT_EQ(editor()->WindowProc(), own);
}

TEST_F(PackageInHost, CanBeLoadedAgainAfterTheLastUnload) {
  open("f(x);\n");
  loader.load(package);
  loader.unload(package);
  loader.load(package);
  EXPECT_EQ(equipmentOf(window()), equipment);
}

TEST_F(PackageInHost, WritesItsStopLinesInOrder) {
  open("f(x);\n");
  loader.load(package);
  debug.Take();
  loader.unload(package);
  std::vector<std::string> lines = debug.Take();
  // The parse thread writes when it pleases.
  std::erase_if(lines,
                [](const std::string& line) { return line == "Execute Parse Thread" || line == "Exit Parse Thread"; });
  EXPECT_EQ(lines, (std::vector<std::string>{"QVThread.Terminage",
                                             "QVThread.Free",
                                             "QVParse Thread Finalized",
                                             "zkSimplePasPar Finalized",
                                             "kzSimplePasParTypes Finalized",
                                             "QVEditorToolbar Finalized",
                                             "QVOptions Finalized",
                                             "QVLocalVars Finalized",
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
                                             "QVColorPicker Finalized"}));
}

TEST_F(PackageInHost, AClosedWindowTakesItsProxyAlong) {
  open("f(x);\n");
  TEditWindow* const second = workspace.newWindow();
  activate(second);
  loader.load(package);
  const QPointer<QObject> proxy = proxyOf(second);
  ASSERT_FALSE(proxy.isNull());
  workspace.frameOf(second)->close();
  ASSERT_TRUE(support::waitUntil([&] { return workspace.windows().size() == 1; }));
  support::settle();
  EXPECT_TRUE(proxy.isNull());
  editor()->Repaint();
}

} // namespace
} // namespace desktop
