// SPDX-License-Identifier: MIT
// The package as the editor loads it, from its file, into the real host.
#include "desktop/ide/IdeFixture.h"

#include "desktop/ide/PackageLoader.h"
#include "platform/Actions.h"
#include "platform/Debug.h"
#include "platform/ota/Services.h"

#include <QImage>

namespace desktop {
namespace {

const QString package = QStringLiteral(ADD_IN_FILE);
const QString proxyName = QStringLiteral("TQVEditorProxy");

class PackageInHost : public IdeFixture {
protected:
  PackageInHost() {
    platform::SetBorlandIDEServices(services);
    debugBefore_ = platform::SetDebugSink([this](std::string_view line) { lines.emplace_back(line); });
    platform::Application().SetReporter(
        [](const QString& message, int) { ADD_FAILURE() << "reported: " << message.toStdString(); });
  }
  ~PackageInHost() override {
    loader.unloadAll();
    platform::SetDebugSink(debugBefore_);
    platform::SetBorlandIDEServices(nullptr);
    platform::Application().ReportPending();
    platform::Application().SetReporter({});
  }

  static QObject* proxyOf(const TEditWindow* window) { return platform::FindComponent(*window, proxyName); }

  PackageLoader loader;
  std::vector<std::string> lines;

private:
  platform::TDebugSink debugBefore_;
};

TEST_F(PackageInHost, AttachesToEveryOpenWindow) {
  open("f(x);\n");
  TEditWindow* const second = workspace.newWindow();
  loader.load(package);
  EXPECT_NE(proxyOf(window()), nullptr);
  EXPECT_NE(proxyOf(second), nullptr);
}

TEST_F(PackageInHost, MarksTheBracketsAtTheCaret) {
  open("f(x);\n");
  editor()->setCaret(1, 3);
  editor()->Repaint();
  const QImage before = editor()->picture().copy();
  loader.load(package);
  editor()->Repaint();
  EXPECT_EQ(editor()->picture(), before) << "the caret is inside the brackets";
  editor()->setCaret(1, 2);
  support::settle();
  EXPECT_NE(editor()->picture(), before);
}

TEST_F(PackageInHost, UnloadingLeavesEveryEditorAsItWas) {
  open("f(x);\n");
  TEditWindow* const second = workspace.newWindow();
  const platform::TWndMethod first = editor()->WindowProc();
  const platform::TWndMethod other = second->editor()->WindowProc();
  const qsizetype actions = window()->actionList()->Actions().size();
  loader.load(package);
  EXPECT_NE(editor()->WindowProc(), first);
  loader.unload(package);
  EXPECT_EQ(editor()->WindowProc(), first);
  EXPECT_EQ(second->editor()->WindowProc(), other);
  EXPECT_EQ(proxyOf(window()), nullptr);
  EXPECT_EQ(proxyOf(second), nullptr);
  EXPECT_EQ(window()->actionList()->Actions().size(), actions);
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
  EXPECT_NE(proxyOf(window()), nullptr);
}

TEST_F(PackageInHost, WritesItsStopLinesInOrder) {
  open("f(x);\n");
  loader.load(package);
  lines.clear();
  loader.unload(package);
  EXPECT_EQ(lines, (std::vector<std::string>{
                       "zkSimplePasPar Finalized", "kzSimplePasParTypes Finalized", "QVOptions Finalized",
                       "Enter TQVEditorProxy.Destroy", "Exit TQVEditorProxy.Destroy", "QVEditorProxy Finalized",
                       "QVEditorDraw", "QVLiteParse Finalized", "zkPasLex Finalized", "zkPasLexTypes Finalized",
                       "QVIDEHackUtils Finalized", "QVSourceUtils Finalized", "QVPasInfo Finalized"}));
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
