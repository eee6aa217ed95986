// SPDX-License-Identifier: MIT
// The menus of the toolbar: sections and used units, and the buttons that open them.
#include "toolbar/QVLocalVars.h"

#include "support/SignalCount.h"
#include "ToolbarFixture.h"

#include <QTest>
#include <QTimer>

namespace quorvane {
namespace {

using platform::TOTAEditPos;
using support::SignalCount;

class QVLocalVarsMenus : public ToolbarTest {};

// The menu of sections.

TEST_F(QVLocalVarsMenus, ListsTheSectionsWithTheirLines) {
  Toolbar->UpdateToolBar(*AnOutline());
  EXPECT_EQ(Captions(SectionsMenu()),
            (QStringList{QStringLiteral("Top Of File"), QStringLiteral("Interface Section"),
                         QStringLiteral("Interface Uses Clause"), QStringLiteral("Implementation Section"),
                         QStringLiteral("Implementation Uses Clause"), QStringLiteral("End Of File")}));
  EXPECT_EQ(Item(SectionsMenu(), "Interface Section").data().toInt(), 2);
  EXPECT_EQ(Item(SectionsMenu(), "Interface Uses Clause").data().toInt(), 4);
  EXPECT_EQ(Item(SectionsMenu(), "Implementation Section").data().toInt(), 20);
  EXPECT_EQ(Item(SectionsMenu(), "Implementation Uses Clause").data().toInt(), 22);
}

TEST_F(QVLocalVarsMenus, OffersNoImplementationUsesClauseWhereThereIsNone) {
  const auto info = AnOutline();
  info->SetImplementationUsesLine(-1);
  Toolbar->UpdateToolBar(*info);
  EXPECT_EQ(Captions(SectionsMenu()),
            (QStringList{QStringLiteral("Top Of File"), QStringLiteral("Interface Section"),
                         QStringLiteral("Interface Uses Clause"), QStringLiteral("Implementation Section"),
                         QStringLiteral("End Of File")}));
}

TEST_F(QVLocalVarsMenus, OffersAProgramNoInterfaceItems) {
  TQVPasInfo program;
  program.SetImplementationLine(0);
  program.SetImplementationUsesLine(2);
  Toolbar->UpdateToolBar(program);
  EXPECT_EQ(Captions(SectionsMenu()),
            (QStringList{QStringLiteral("Top Of File"), QStringLiteral("Implementation Section"),
                         QStringLiteral("Implementation Uses Clause"), QStringLiteral("End Of File")}));
}

TEST_F(QVLocalVarsMenus, OffersTopAndEndOfAFileWithoutSections) {
  Toolbar->UpdateToolBar(TQVPasInfo());
  EXPECT_EQ(Captions(SectionsMenu()), (QStringList{QStringLiteral("Top Of File"), QStringLiteral("End Of File")}));
}

TEST_F(QVLocalVarsMenus, TakesASectionInTheFirstLineForOne) {
  Toolbar->BuildMenus(0, 5, -1, -1);
  EXPECT_EQ(Captions(SectionsMenu()),
            (QStringList{QStringLiteral("Top Of File"), QStringLiteral("Interface Section"),
                         QStringLiteral("Implementation Section"), QStringLiteral("End Of File")}));
}

TEST_F(QVLocalVarsMenus, BuildsNoMenusForSectionsThatStandBothInTheFirstLine) {
  const auto info = AnOutline();
  info->SetInterfaceLine(0);
  info->SetImplementationLine(0);
  Toolbar->UpdateToolBar(*info);
  EXPECT_TRUE(SectionsMenu().isEmpty());
  EXPECT_TRUE(UnitsMenu().isEmpty());
}

TEST_F(QVLocalVarsMenus, ANewUsedUnitShowsOnlyWhenASectionHasMoved) {
  Toolbar->UpdateToolBar(*AnOutline());
  const QStringList sections = Captions(SectionsMenu());
  const QStringList units = Captions(UnitsMenu());
  const auto next = AnOutline();
  next->AddInterfaceUses("Types");
  next->SetImplementationUsesLine(-1);
  Toolbar->UpdateToolBar(*next);
  EXPECT_EQ(Captions(SectionsMenu()), sections);
  EXPECT_EQ(Captions(UnitsMenu()), units);
  next->SetImplementationLine(21);
  Toolbar->UpdateToolBar(*next);
  EXPECT_FALSE(Captions(SectionsMenu()).contains(QStringLiteral("Implementation Uses Clause")));
  EXPECT_TRUE(Captions(UnitsMenu()).contains(QStringLiteral("Types")));
}

TEST_F(QVLocalVarsMenus, LeavesTheSectionsMenuAloneWhenItIsBuiltForTheSameSections) {
  Toolbar->BuildMenus(2, 20, 22, 4);
  const QList<QAction*> items = SectionsMenu().actions();
  Toolbar->BuildMenus(2, 20, -1, -1);
  EXPECT_EQ(SectionsMenu().actions(), items);
}

TEST_F(QVLocalVarsMenus, AMenuThatIsOpenIsFilledAnewWhenItCloses) {
  Show();
  Toolbar->UpdateToolBar(*AnOutline());
  SectionsMenu().popup(QPoint(10, 10));
  ASSERT_TRUE(support::waitUntil([this] { return SectionsMenu().isVisible(); }));
  const QList<QAction*> open = SectionsMenu().actions();
  const auto next = AnOutline();
  next->SetInterfaceLine(3);
  Toolbar->UpdateToolBar(*next);
  next->SetInterfaceLine(4);
  Toolbar->UpdateToolBar(*next);
  EXPECT_EQ(SectionsMenu().actions(), open);
  EXPECT_EQ(Item(SectionsMenu(), "Interface Section").data().toInt(), 2);
  SectionsMenu().close();
  ASSERT_TRUE(support::waitUntil([&] { return SectionsMenu().actions() != open; }));
  EXPECT_EQ(SectionsMenu().actions().size(), 6);
  EXPECT_EQ(Item(SectionsMenu(), "Interface Section").data().toInt(), 4);
}

// Counts the items that a menu is given.
class ItemCount : public QObject {
public:
  explicit ItemCount(QMenu& menu) { menu.installEventFilter(this); }
  int Count = 0;

protected:
  bool eventFilter(QObject*, QEvent* event) override {
    Count += event->type() == QEvent::ActionAdded;
    return false;
  }
};

TEST_F(QVLocalVarsMenus, AMenuThatIsOpenIsFilledOnceHoweverManyOutlinesCame) {
  Show();
  Toolbar->UpdateToolBar(*AnOutline());
  SectionsMenu().popup(QPoint(10, 10));
  ASSERT_TRUE(support::waitUntil([this] { return SectionsMenu().isVisible(); }));
  const auto next = AnOutline();
  for (int line = 3; line < 10; ++line) {
    next->SetInterfaceLine(line);
    Toolbar->UpdateToolBar(*next);
  }
  const ItemCount items(SectionsMenu());
  SectionsMenu().close();
  support::settle();
  EXPECT_EQ(Item(SectionsMenu(), "Interface Section").data().toInt(), 9);
  EXPECT_EQ(items.Count, 6);
}

TEST_F(QVLocalVarsMenus, AnItemChosenInAMenuThatWaitsForItsFillingStillGoesToItsLine) {
  Show();
  Toolbar->UpdateToolBar(*AnOutline());
  SectionsMenu().popup(QPoint(10, 10));
  ASSERT_TRUE(support::waitUntil([this] { return SectionsMenu().isVisible(); }));
  const auto next = AnOutline();
  next->SetInterfaceLine(3);
  Toolbar->UpdateToolBar(*next);
  SectionsMenu().setActiveAction(&Item(SectionsMenu(), "Implementation Section"));
  QTest::keyClick(&SectionsMenu(), Qt::Key_Return);
  EXPECT_EQ(View->Cursor, (TOTAEditPos{1, 21}));
  ASSERT_TRUE(support::waitUntil([this] { return Item(SectionsMenu(), "Interface Section").data().toInt() == 3; }));
}

TEST_F(QVLocalVarsMenus, ASectionPutsItsLineAtTheTop) {
  Show();
  Toolbar->UpdateToolBar(*AnOutline());
  Focus(Methods());
  Item(SectionsMenu(), "Interface Uses Clause").trigger();
  EXPECT_EQ(View->Cursor, (TOTAEditPos{1, 5}));
  EXPECT_EQ(View->TopPos, (TOTAEditPos{1, 5}));
  EXPECT_EQ(View->Paints, 1);
  EXPECT_TRUE(Editor().hasFocus());
}

TEST_F(QVLocalVarsMenus, TopOfFileMovesTheCaretAndScrollsNoMoreThanItMust) {
  Show();
  Toolbar->UpdateToolBar(*AnOutline());
  Focus(Methods());
  View->Cursor = {5, 40};
  View->TopPos = {1, 35};
  Item(SectionsMenu(), "Top Of File").trigger();
  EXPECT_EQ(View->Cursor, (TOTAEditPos{1, 1}));
  EXPECT_EQ(View->TopPos, (TOTAEditPos{1, 35})) << "the view follows the caret by itself";
  EXPECT_GT(View->Moves, 0);
  EXPECT_EQ(View->Paints, 1);
  EXPECT_TRUE(Editor().hasFocus());
}

TEST_F(QVLocalVarsMenus, EndOfFileMovesTheCaretBehindTheText) {
  Show();
  Toolbar->UpdateToolBar(*AnOutline());
  Focus(Methods());
  Item(SectionsMenu(), "End Of File").trigger();
  EXPECT_EQ(View->Cursor, (TOTAEditPos{1, 101}));
  EXPECT_EQ(View->TopPos, (TOTAEditPos{1, 1})) << "the view follows the caret by itself";
  EXPECT_GT(View->Moves, 0);
  EXPECT_EQ(View->Paints, 1);
  EXPECT_TRUE(Editor().hasFocus());
}

TEST_F(QVLocalVarsMenus, TopAndEndOfFileDoNothingWithoutAView) {
  Toolbar->UpdateToolBar(*AnOutline());
  Services->TopView = nullptr;
  Item(SectionsMenu(), "Top Of File").trigger();
  Item(SectionsMenu(), "End Of File").trigger();
  EXPECT_EQ(View->Moves, 0);
}

TEST_F(QVLocalVarsMenus, ASectionWithoutAViewIsReportedToTheApplication) {
  Toolbar->UpdateToolBar(*AnOutline());
  Services->TopView = nullptr;
  Item(SectionsMenu(), "Interface Section").trigger();
  EXPECT_EQ(TakeReported().size(), 1U);
}

// The buttons.

struct PlaceOnButton {
  const char* Name;
  double Across; // from the left edge, 0 to 1
};

class QVLocalVarsButtons : public ToolbarTest, public testing::WithParamInterface<PlaceOnButton> {};
INSTANTIATE_TEST_SUITE_P(All, QVLocalVarsButtons,
                         testing::Values(PlaceOnButton{"Image", 0.25}, PlaceOnButton{"Arrow", 0.9}),
                         [](const auto& place) { return std::string(place.param.Name); });

TEST_P(QVLocalVarsButtons, OpenTheirMenusWhereverTheyAreClicked) {
  Show();
  Toolbar->UpdateToolBar(*AnOutline());
  for (QToolButton* button : {&SectionsButton(), &UnitsButton()}) {
    QMenu* const menu = button->menu();
    int shown = 0;
    QTimer closing; // the click returns when the menu has closed
    QObject::connect(&closing, &QTimer::timeout, menu, [&] {
      shown += menu->isVisible();
      menu->close();
    });
    closing.start(1);
    const QPoint place(static_cast<int>(button->width() * GetParam().Across), button->height() / 2);
    QTest::mouseClick(button, Qt::LeftButton, {}, place);
    EXPECT_TRUE(support::waitUntil([&] { return shown > 0; }));
  }
}

// The menu of used units.

TEST_F(QVLocalVarsMenus, ListsTheUsedUnitsInOrderTheImplementationsInAColumnOfTheirOwn) {
  Toolbar->UpdateToolBar(*AnOutline());
  EXPECT_EQ(Captions(UnitsMenu()), (QStringList{QStringLiteral("SysUtils"), QStringLiteral("Classes"),
                                                QStringLiteral("Math"), QStringLiteral("Strings")}));
  EXPECT_EQ(UnitsMenu().BarBreak(), &Item(UnitsMenu(), "Math"));
}

TEST_F(QVLocalVarsMenus, BeginsTheColumnAlsoWhenTheInterfaceUsesNothing) {
  Toolbar->BuildUnitsMenu({}, {"Math", "Strings"});
  EXPECT_EQ(UnitsMenu().BarBreak(), UnitsMenu().actions().constFirst());
}

TEST_F(QVLocalVarsMenus, BeginsNoColumnWhenTheImplementationUsesNothing) {
  Toolbar->BuildUnitsMenu({"SysUtils"}, {});
  EXPECT_EQ(UnitsMenu().BarBreak(), nullptr);
}

TEST_F(QVLocalVarsMenus, ExplainsTheItemsOfTheUsedUnits) {
  Toolbar->UpdateToolBar(*AnOutline());
  EXPECT_EQ(Item(UnitsMenu(), "SysUtils").toolTip(), QStringLiteral("Open Unit SysUtils.pas"));
  EXPECT_EQ(Item(UnitsMenu(), "Strings").toolTip(), QStringLiteral("Open Unit Strings.pas"));
  EXPECT_TRUE(UnitsMenu().toolTipsVisible());
}

TEST_F(QVLocalVarsMenus, BuildingTheUnitsMenuAgainReplacesItsItems) {
  Toolbar->BuildUnitsMenu({"SysUtils"}, {"Math"});
  Toolbar->BuildUnitsMenu({"Types"}, {});
  EXPECT_EQ(Captions(UnitsMenu()), QStringList{QStringLiteral("Types")});
  EXPECT_EQ(UnitsMenu().BarBreak(), nullptr);
}

} // namespace
} // namespace quorvane
