// SPDX-License-Identifier: MIT
// Eight editor windows with the whole add-in.
#include "together/LiveFixture.h"

#include "platform/Component.h"

#include <QPointer>

#include <algorithm>
#include <numeric>
#include <vector>

namespace together {
namespace {

using desktop::MainWindow;
using desktop::TEditWindow;

class EightWindows : public LiveFixture {
protected:
  static constexpr int count = 8;

  static std::string routine(int window) { return "R" + std::to_string(window); }
  // A routine with brackets in its heading and an error in its body.
  static QByteArray textOf(int window) {
    return "unit unit1;\ninterface\nimplementation\nprocedure " + QByteArray::fromStdString(routine(window)) +
           "(x: T);\nbegin\n  if a b;\nend;\nend.\n";
  }

  void openAll() {
    markInMagenta();
    openLive(textOf(0), "unit0.pas");
    putCaret(4, 13);
    ASSERT_TRUE(comes(window(), routine(0)));
    for (int index = 1; index < count; ++index) {
      TEditWindow* const further = workspace.newWindow();
      activate(further);
      ASSERT_NE(openText(QStringLiteral("unit%1.pas").arg(index), textOf(index)), nullptr);
      further->editor()->setCaret(4, 13); // at the bracket
      ASSERT_TRUE(comes(further, routine(index))) << index;
    }
    ASSERT_EQ(workspace.windows().size(), count);
  }

  static qsizetype countOn(const TEditWindow* window, const char* name) {
    return window->findChildren<QObject*>(QLatin1String(name), Qt::FindDirectChildrenOnly).size();
  }
};

TEST_F(EightWindows, HaveOneToolbarOneGutterAndOneProxyEach) {
  ASSERT_NO_FATAL_FAILURE(openAll());
  for (TEditWindow* each : workspace.windows())
    activate(each);
  for (const TEditWindow* each : workspace.windows()) {
    for (const char* name : {"TQVEditorToolbar", "TQVLineNumbers", "TQVEditorProxy"})
      EXPECT_EQ(countOn(each, name), 1) << name << " of " << each->objectName().toStdString();
  }
}

TEST_F(EightWindows, OnlyTheOneOnTopGetsOutlinesAndMarks) {
  ASSERT_NO_FATAL_FAILURE(openAll());
  for (TEditWindow* top : workspace.windows()) {
    activate(top);
    // An outline of the window that was on top before may be on its way to be thrown away.
    ASSERT_TRUE(runCycles(1));
    std::vector<std::shared_ptr<quorvane::IQVPasInfo>> before;
    for (const TEditWindow* each : workspace.windows())
      before.push_back(proxyOf(each)->GetPasInfo());
    ASSERT_TRUE(runCycles(2));
    support::settle();
    for (int index = 0; index < count; ++index) {
      const TEditWindow* const each = workspace.windows().at(index);
      EXPECT_TRUE(holds(each, routine(index))) << index;
      EXPECT_EQ(proxyOf(each)->GetPasInfo() != before.at(static_cast<std::size_t>(index)), each == top) << index;
      EXPECT_EQ(markedPixelsOf(*each->editor()) > 0, each == top) << index;
    }
  }
}

TEST_F(EightWindows, TheOneOnTopAloneHasItsErrorUnderlined) {
  ASSERT_NO_FATAL_FAILURE(openAll());
  TEditWindow* const top = workspace.topWindow();
  // A caret has rested after a hundred cycles.
  ASSERT_TRUE(runCycles(105));
  EXPECT_GT(redPixelsOf(*top->editor()), 0);
  activate(window());
  support::settle();
  EXPECT_EQ(redPixelsOf(*top->editor()), 0) << "it is no longer on top";
  ASSERT_TRUE(runCycles(105));
  for (const TEditWindow* each : workspace.windows())
    EXPECT_EQ(redPixelsOf(*each->editor()) > 0, each == window());
}

// The orders in which the windows close, by their numbers.
class EightWindowsClosing : public EightWindows, public testing::WithParamInterface<std::vector<int>> {};

INSTANTIATE_TEST_SUITE_P(Orders, EightWindowsClosing,
                         testing::Values(std::vector{0, 1, 2, 3, 4, 5, 6}, std::vector{7, 6, 5, 4, 3, 2, 1},
                                         std::vector{3, 4, 2, 5, 1, 6, 0}, std::vector{0, 7, 1, 6, 2, 5, 3}));

TEST_P(EightWindowsClosing, LeaveTheThreadToTheLast) {
  ASSERT_NO_FATAL_FAILURE(openAll());
  const QList<TEditWindow*> windows = workspace.windows();
  QList<QPointer<QObject>> proxies;
  for (const int index : GetParam()) {
    proxies.append(proxyOf(windows.at(index)));
    workspace.frameOf(windows.at(index))->close();
    ASSERT_TRUE(runCycles(1));
  }
  const std::vector<int>& closed = GetParam();
  const int last = count * (count - 1) / 2 - std::accumulate(closed.begin(), closed.end(), 0);
  TEditWindow* const left = windows.at(last);
  support::settle();
  // The first one is the main form, which is only hidden.
  for (std::size_t index = 0; index < closed.size(); ++index)
    EXPECT_EQ(proxies.at(static_cast<qsizetype>(index)).isNull(), closed[index] != 0) << closed[index];
  activate(left);
  const auto before = proxyOf(left)->GetPasInfo();
  EXPECT_TRUE(support::waitUntil([&] { return proxyOf(left)->GetPasInfo() != before; }));
  EXPECT_TRUE(holds(left, routine(last)));
}

TEST_F(EightWindows, AllClosedAtOnceAndTheMainOneOpenedAgainIsStillEquippedOnce) {
  ASSERT_NO_FATAL_FAILURE(openAll());
  const QList<TEditWindow*> windows = workspace.windows();
  for (const TEditWindow* each : windows)
    workspace.frameOf(each)->close();
  ASSERT_TRUE(support::waitUntil([this] { return workspace.windows().size() <= 2; }));
  TEditWindow* const again = workspace.newWindow();
  activate(again);
  ASSERT_NE(openText(QStringLiteral("again.pas"), unitOf("Again")), nullptr);
  EXPECT_TRUE(comes(again, "Again"));
  for (const char* name : {"TQVEditorToolbar", "TQVLineNumbers", "TQVEditorProxy"})
    EXPECT_EQ(countOn(again, name), 1) << name;
}

} // namespace
} // namespace together
