// SPDX-License-Identifier: MIT
#include "desktop/ui/ResultsFixture.h"

#include "desktop/ui/CloseButton.h"

#include <QApplication>
#include <QClipboard>
#include <QIdentityProxyModel>
#include <QKeyEvent>
#include <QTest>
#include <QToolButton>

#include <set>

namespace desktop {
namespace {

class ResultsPanelTest : public ResultsFixture {
protected:
  void SetUp() override {
    activate(window());
    openText(QStringLiteral("a.pas"), "one\ntwo\nthree\n");
  }
  void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const {
    QKeyEvent event(QEvent::KeyPress, key, modifiers);
    QApplication::sendEvent(QApplication::focusWidget(), &event);
  }
  QString label(const char* name) const { return panel()->findChild<QLabel*>(QString::fromLatin1(name))->text(); }
  QToolButton* stopButton() const { return panel()->findChild<QToolButton*>(QStringLiteral("StopResults")); }
  void listTwo() const { listPlaces({placeIn(QStringLiteral("a.pas"), 1), placeIn(QStringLiteral("a.pas"), 2)}); }
  void click(int row, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const {
    QTest::mouseClick(view()->viewport(), Qt::LeftButton, modifiers, view()->visualRect(list().index(row, 0)).center());
  }
};

TEST_F(ResultsPanelTest, IsClosedAtFirst) {
  EXPECT_FALSE(panel()->isVisible());
}

TEST_F(ResultsPanelTest, OpeningItLeavesTheFocusInTheText) {
  panel()->open();
  EXPECT_TRUE(panel()->isVisible());
  EXPECT_TRUE(editor()->hasFocus());
}

TEST_F(ResultsPanelTest, TheCommandTakesTheFocusToTheFirstRow) {
  listTwo();
  action(QStringLiteral("ViewResultsCommand"))->trigger();
  EXPECT_TRUE(view()->hasFocus());
  EXPECT_EQ(view()->currentIndex().row(), 0);
}

TEST_F(ResultsPanelTest, EnterGoesToTheRow) {
  listTwo();
  panel()->enter();
  press(Qt::Key_Down);
  press(Qt::Key_Return);
  EXPECT_EQ(caret(), QStringLiteral("2:1"));
  EXPECT_TRUE(editor()->hasFocus());
}

TEST_F(ResultsPanelTest, AClickGoesToTheRow) {
  listTwo();
  panel()->open();
  support::settle();
  click(1);
  EXPECT_EQ(caret(), QStringLiteral("2:1"));
  EXPECT_TRUE(editor()->hasFocus());
}

TEST_F(ResultsPanelTest, RowsAreSelectedByClicksWithoutLeavingTheList) {
  listTwo();
  panel()->enter();
  support::settle();
  click(1, Qt::ControlModifier);
  EXPECT_TRUE(view()->hasFocus());
  EXPECT_EQ(view()->selectionModel()->selectedRows().size(), 2);
}

TEST_F(ResultsPanelTest, ShowsTheRowThatWasGoneTo) {
  listTwo();
  panel()->open();
  walk().goToNext(window());
  walk().goToNext(window());
  EXPECT_EQ(view()->currentIndex().row(), 1);
}

TEST_F(ResultsPanelTest, EscapeGivesTheFocusBackAndLeavesThePanel) {
  panel()->enter();
  press(Qt::Key_Escape);
  EXPECT_TRUE(editor()->hasFocus());
  EXPECT_TRUE(panel()->isVisible());
}

TEST_F(ResultsPanelTest, ShiftEscapeClosesThePanelAsWell) {
  panel()->enter();
  press(Qt::Key_Escape, Qt::ShiftModifier);
  EXPECT_TRUE(editor()->hasFocus());
  EXPECT_FALSE(panel()->isVisible());
}

TEST_F(ResultsPanelTest, EscapeLeavesItsButtonsToo) {
  panel()->open();
  const int run = list().begin(QStringLiteral("Search"));
  stopButton()->setFocus();
  ASSERT_TRUE(stopButton()->hasFocus());
  press(Qt::Key_Escape);
  EXPECT_TRUE(editor()->hasFocus());
  list().finish(run, QStringLiteral("Stopped"));
}

TEST_F(ResultsPanelTest, TheButtonClosesThePanel) {
  panel()->enter();
  panel()->findChild<CloseButton*>(QStringLiteral("CloseResults"))->click();
  EXPECT_FALSE(panel()->isVisible());
  EXPECT_TRUE(editor()->hasFocus());
}

TEST_F(ResultsPanelTest, TellsWhatIsLookedForAndWhatItCameTo) {
  EXPECT_EQ(label("ResultsSummary"), QStringLiteral("Nothing has been looked for yet"));
  const int run = list().begin(QStringLiteral("Search"));
  list().showProgress(run, QStringLiteral("3 files"));
  EXPECT_EQ(label("ResultsTitle"), QStringLiteral("Search"));
  EXPECT_EQ(label("ResultsSummary"), QStringLiteral("3 files"));
  list().finish(run, QStringLiteral("Nothing found"));
  EXPECT_EQ(label("ResultsSummary"), QStringLiteral("Nothing found"));
}

TEST_F(ResultsPanelTest, ALongTextThatIsLookedForDoesNotWidenTheWindow) {
  panel()->open();
  support::settle();
  const int before = frame()->minimumSizeHint().width();
  const QString title(1'000, u'm');
  const int run = list().begin(title);
  list().finish(run, QString(1'000, u'm'));
  support::settle();
  EXPECT_LE(frame()->minimumSizeHint().width(), std::max(before, 700));
  EXPECT_TRUE(panel()->findChild<QLabel*>(QStringLiteral("ResultsTitle"))->toolTip().contains(title));
}

TEST_F(ResultsPanelTest, ToolTipsShowWhatLooksLikeMarkupAsItIs) {
  const int run = list().begin(QStringLiteral("<b>a</b>"));
  list().finish(run, QStringLiteral("a & b"));
  EXPECT_EQ(panel()->findChild<QLabel*>(QStringLiteral("ResultsTitle"))->toolTip(),
            QStringLiteral("<qt>&lt;b&gt;a&lt;/b&gt;</qt>"));
  EXPECT_EQ(panel()->findChild<QLabel*>(QStringLiteral("ResultsSummary"))->toolTip(), QStringLiteral("a & b"));
}

TEST_F(ResultsPanelTest, ARunIsStoppedByItsButton) {
  int stopped = 0;
  panel()->open();
  const int run = list().begin(QStringLiteral("Search"), [&stopped] { ++stopped; });
  ASSERT_TRUE(stopButton()->isVisible());
  stopButton()->click();
  EXPECT_EQ(stopped, 1);
  list().finish(run, QStringLiteral("Stopped"));
  EXPECT_FALSE(stopButton()->isVisible());
}

TEST_F(ResultsPanelTest, CopiesTheSelectedRows) {
  listTwo();
  panel()->enter();
  press(Qt::Key_A, Qt::ControlModifier);
  press(Qt::Key_C, Qt::ControlModifier);
  const QString file = placeIn(QStringLiteral("a.pas"), 1).fileName;
  EXPECT_EQ(QApplication::clipboard()->text(),
            QStringLiteral("%1:1:1: place in line 1\n%1:2:1: place in line 2\n").arg(file));
}

TEST_F(ResultsPanelTest, CopiesNamesAndTextsWithPercentSignsAsTheyAre) {
  FoundPlace place = placeIn(QStringLiteral("a%2%4.pas"), 3);
  place.text = QStringLiteral("'%1'");
  listPlaces({place});
  panel()->enter();
  press(Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->text(), place.fileName + QStringLiteral(":3:1: '%1'\n"));
}

TEST_F(ResultsPanelTest, TakesItsOwnKeysFromTheWindowsCommands) {
  panel()->enter();
  for (const Qt::Key key : {Qt::Key_C, Qt::Key_A}) {
    QKeyEvent event(QEvent::ShortcutOverride, key, Qt::ControlModifier);
    event.ignore();
    QApplication::sendEvent(view(), &event);
    EXPECT_TRUE(event.isAccepted()) << key;
  }
}

TEST_F(ResultsPanelTest, EveryWindowShowsTheSameList) {
  TEditWindow* const other = workspace.newWindow();
  listTwo();
  const ResultsPanel* const otherPanel = workspace.frameOf(other)->resultsPanel();
  EXPECT_EQ(otherPanel->findChild<QTreeView*>(QStringLiteral("ResultsView"))->model()->rowCount(), 2);
  EXPECT_FALSE(otherPanel->isVisible());
}

TEST_F(ResultsPanelTest, OutlivesTheClosingOfAnotherWindow) {
  TEditWindow* const other = workspace.newWindow();
  listTwo();
  workspace.frameOf(other)->close();
  support::settle();
  walk().goToNext(window());
  EXPECT_EQ(caret(), QStringLiteral("1:1"));
}

TEST_F(ResultsPanelTest, HasNamesForThoseWhoDoNotSee) {
  EXPECT_EQ(view()->accessibleName(), QStringLiteral("Results"));
  EXPECT_EQ(panel()->findChild<CloseButton*>(QStringLiteral("CloseResults"))->accessibleName(),
            QStringLiteral("Close (Shift+Escape)"));
}

// Notes the rows whose texts it was asked for.
class AskedModel : public QIdentityProxyModel {
public:
  QVariant data(const QModelIndex& index, int role) const override {
    if (role == Qt::DisplayRole)
      rows.insert(index.row());
    return QIdentityProxyModel::data(index, role);
  }
  mutable std::set<int> rows;
};

TEST_F(ResultsPanelTest, AsksOnlyForTheRowsInSight) {
  AskedModel asked;
  asked.setSourceModel(&list());
  view()->setModel(&asked);
  std::vector<FoundPlace> places;
  for (int i = 0; i < 100'000; ++i)
    places.push_back(placeIn(QStringLiteral("other.pas"), i + 1));
  panel()->open();
  listPlaces(places);
  support::settle();
  view()->scrollToBottom();
  support::settle();
  EXPECT_TRUE(asked.rows.contains(99'999));
  insertAt(window()->currentPage(), 1, 0, QStringLiteral("x"));
  support::settle();
  EXPECT_LT(asked.rows.size(), 200U);
  view()->setModel(&list());
}

} // namespace
} // namespace desktop
