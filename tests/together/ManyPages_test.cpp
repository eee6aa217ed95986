// SPDX-License-Identifier: MIT
// Switching between pages, Pascal and other, while the parse thread is at work.
#include "together/LiveFixture.h"

#include <QAbstractItemView>
#include <QMenu>
#include <QToolButton>

#include <string>
#include <vector>

namespace together {
namespace {

using desktop::Page;

// Texts that are no Pascal.

class OtherTextOnTop : public LiveFixture {
protected:
  // A parsed unit, and on top of it a text with a pair of brackets at the caret.
  void openNotes() {
    markInMagenta();
    openLive("unit unit1;\ninterface\nuses helper;\nimplementation\nprocedure Walk;\nbegin\nend;\nend.\n");
    ASSERT_TRUE(comes(window(), "Walk"));
    ASSERT_TRUE(support::waitUntil([this] { return methodsOf(window()).count() == 1 && !sections().isEmpty(); }));
    unit = window()->currentPage();
    notes = openText(QStringLiteral("notes.txt"), text);
    ASSERT_NE(notes, nullptr);
    putCaret(1, 1);
    outline = proxyOf(window())->GetPasInfo();
  }

  QMenu& menu(const char* button) const {
    return *toolbarOf(window()).findChild<QToolButton*>(QLatin1String(button))->menu();
  }
  QMenu& sections() const { return menu("Sections"); }

  const QByteArray text = "(a)\nprocedure Notes;\nif a b;\n\n\n\n\n\n";
  Page* unit = nullptr;
  Page* notes = nullptr;
  std::shared_ptr<quorvane::IQVPasInfo> outline;
};

TEST_F(OtherTextOnTop, IsNeitherParsedNorMarked) {
  ASSERT_NO_FATAL_FAILURE(openNotes());
  ASSERT_TRUE(runCycles(150));
  EXPECT_EQ(thread->hops, 0);
  EXPECT_EQ(proxyOf(window())->GetPasInfo(), outline);
  EXPECT_EQ(markedPixels(), 0);
  EXPECT_EQ(redPixelsOf(*editor()), 0);
}

TEST_F(OtherTextOnTop, IsNotMarkedByTheHotKeyEither) {
  quorvane::OptMarkerLive = false;
  ASSERT_NO_FATAL_FAILURE(openNotes());
  window()->actionList()->Actions().constFirst()->trigger();
  EXPECT_EQ(markedPixels(), 0);
}

TEST_F(OtherTextOnTop, IsNotChangedByWhatTheToolbarIsAskedFor) {
  ASSERT_NO_FATAL_FAILURE(openNotes());
  auto& methods = methodsOf(window());
  methods.setFocus();
  methods.showPopup();
  ASSERT_TRUE(support::waitUntil([&] { return methods.view()->isVisible(); }));
  QTest::keyClick(methods.view(), Qt::Key_Home);
  QTest::keyClick(methods.view(), Qt::Key_Return);
  for (QAction* action : sections().actions())
    action->trigger();
  for (QAction* action : menu("UsedUnits").actions())
    action->trigger();
  ASSERT_TRUE(runCycles(3));
  EXPECT_EQ(window()->currentPage(), notes);
  EXPECT_EQ(editor()->toPlainText(), QString::fromLatin1(text));
  EXPECT_FALSE(notes->document()->isModified());
  EXPECT_EQ(messages().size(), 1) << "only that the unit helper was not found";
}

TEST_F(OtherTextOnTop, GivesWayToTheUnitThatIsParsedAgain) {
  ASSERT_NO_FATAL_FAILURE(openNotes());
  ASSERT_TRUE(runCycles(2));
  window()->showPage(unit);
  EXPECT_TRUE(support::waitUntil([this] { return proxyOf(window())->GetPasInfo() != outline; }));
  EXPECT_TRUE(holds(window(), "Walk"));
}

TEST_F(OtherTextOnTop, WithNoPageAtAllTheToolbarChangesNothing) {
  ASSERT_NO_FATAL_FAILURE(openNotes());
  window()->closePage(notes);
  window()->closePage(unit);
  ASSERT_TRUE(runCycles(2));
  // Items for a line expect a view and say so; those for the ends of the file do without one.
  platform::Application().ReportPending();
  std::vector<std::string> reported;
  platform::Application().SetReporter([&](const QString& message, int) { reported.push_back(message.toStdString()); });
  for (QAction* action : sections().actions())
    action->trigger();
  for (QAction* action : menu("UsedUnits").actions())
    action->trigger();
  platform::Application().ReportPending();
  EXPECT_EQ(reported.size(), 1U);
  ASSERT_TRUE(runCycles(2));
  EXPECT_TRUE(window()->pages().isEmpty());
}

// Many units.

class FiftyPages : public LiveFixture {
protected:
  static constexpr int count = 50;

  static QByteArray routine(int page) { return "R" + QByteArray::number(page); }

  void openAll() {
    // Every seventh takes its time.
    const auto textOf = [](int page) { return hugeUnitOf(routine(page), page % 7 == 3 ? 4000 : 10); };
    openLive(textOf(0), "unit0.pas");
    for (int page = 1; page < count; ++page)
      ASSERT_NE(openText(QStringLiteral("unit%1.pas").arg(page), textOf(page)), nullptr);
    ASSERT_EQ(window()->pages().size(), count);
    // Whatever is handed over is the outline of the page that is on top then.
    thread->onEnded = [this, last = proxyOf(window())->GetPasInfo()]() mutable {
      const auto outline = proxyOf(window())->GetPasInfo();
      if (outline == last)
        return;
      last = outline;
      const auto page = static_cast<int>(window()->pages().indexOf(window()->currentPage()));
      EXPECT_TRUE(holds(window(), routine(page).toStdString())) << page;
    };
  }
};

TEST_F(FiftyPages, EachGetsItsOutlineWhenItComesOnTop) {
  ASSERT_NO_FATAL_FAILURE(openAll());
  const QList<Page*> pages = window()->pages();
  for (int page = 0; page < count; ++page) {
    window()->showPage(pages.at(page));
    ASSERT_TRUE(comes(window(), routine(page).toStdString())) << page;
    const auto& names = methodsOf(window()).Names();
    ASSERT_EQ(names.rowCount(), 1) << page;
    ASSERT_EQ(names.IndexOf(QString::fromLatin1(routine(page))), 0) << page;
  }
}

TEST_F(FiftyPages, NoneGetsTheOutlineOfAnotherHoweverQuicklyTheyChange) {
  ASSERT_NO_FATAL_FAILURE(openAll());
  const QList<Page*> pages = window()->pages();
  int page = 0;
  for (int change = 0; change < 150; ++change) {
    page = (page * 3 + change + 1) % count;
    window()->showPage(pages.at(page));
    // Now and then in the middle of a cycle, and now and then with the thread waiting already.
    if (change % 3 == 0)
      QCoreApplication::processEvents();
    else if (change % 10 == 0)
      letThreadWait();
  }
  EXPECT_TRUE(comes(window(), routine(page).toStdString()));
}

TEST_F(FiftyPages, ClosingThemAllWhileTheThreadRunsLeavesNone) {
  ASSERT_NO_FATAL_FAILURE(openAll());
  while (!window()->pages().isEmpty()) {
    window()->closePage(window()->currentPage());
    QCoreApplication::processEvents();
  }
  ASSERT_TRUE(runCycles(2));
  EXPECT_EQ(services->GetTopView(), nullptr);
}

} // namespace
} // namespace together
