// SPDX-License-Identifier: MIT
#include "desktop/ui/AlignLayout.h"

#include "support/Wait.h"

#include <gtest/gtest.h>

#include <QDialog>
#include <QPointer>
#include <QToolBar>

namespace desktop {
namespace {

using platform::TAlign;

// A child of a fixed size hint.
class Block : public QWidget {
public:
  Block(QWidget* parent, TAlign align, QSize hint) : QWidget(parent), hint_(hint) { platform::SetAlign(*this, align); }
  QSize sizeHint() const override { return hint_; }

private:
  QSize hint_;
};

class AlignLayoutTest : public testing::Test {
protected:
  AlignLayoutTest() {
    new AlignLayout(&form);
    form.resize(200, 100);
  }

  void layOut() {
    form.show();
    support::settle();
  }

  QWidget form;
};

TEST_F(AlignLayoutTest, CutsTopBottomLeftRightInThisOrderAndLeavesTheRestToTheClient) {
  Block client(&form, TAlign::alClient, {10, 10});
  Block right(&form, TAlign::alRight, {30, 1});
  Block left(&form, TAlign::alLeft, {20, 1});
  Block bottom(&form, TAlign::alBottom, {1, 15});
  Block top(&form, TAlign::alTop, {1, 10});
  layOut();
  EXPECT_EQ(top.geometry(), QRect(0, 0, 200, 10));
  EXPECT_EQ(bottom.geometry(), QRect(0, 85, 200, 15));
  EXPECT_EQ(left.geometry(), QRect(0, 10, 20, 75));
  EXPECT_EQ(right.geometry(), QRect(170, 10, 30, 75));
  EXPECT_EQ(client.geometry(), QRect(20, 10, 150, 75));
}

TEST_F(AlignLayoutTest, OrdersTheTopByTheGivenTop) {
  Block lower(&form, TAlign::alTop, {1, 10});
  Block upper(&form, TAlign::alTop, {1, 20});
  lower.move(0, 5);
  upper.move(0, 4);
  layOut();
  EXPECT_EQ(upper.y(), 0);
  EXPECT_EQ(lower.y(), 20);
}

TEST_F(AlignLayoutTest, OrdersTheBottomFromTheLowestUp) {
  Block upper(&form, TAlign::alBottom, {1, 10});
  Block lower(&form, TAlign::alBottom, {1, 20});
  upper.move(0, 4);
  lower.move(0, 5);
  layOut();
  EXPECT_EQ(lower.y(), 80);
  EXPECT_EQ(upper.y(), 70);
}

TEST_F(AlignLayoutTest, OrdersTheSidesByTheGivenLeft) {
  Block secondLeft(&form, TAlign::alLeft, {10, 1});
  Block firstLeft(&form, TAlign::alLeft, {20, 1});
  Block innerRight(&form, TAlign::alRight, {10, 1});
  Block outerRight(&form, TAlign::alRight, {20, 1});
  secondLeft.move(9, 0);
  firstLeft.move(8, 0);
  innerRight.move(8, 0);
  outerRight.move(9, 0);
  layOut();
  EXPECT_EQ(firstLeft.x(), 0);
  EXPECT_EQ(secondLeft.x(), 20);
  EXPECT_EQ(outerRight.x(), 180);
  EXPECT_EQ(innerRight.x(), 170);
}

TEST_F(AlignLayoutTest, KeepsTheOrderOfJoiningAmongEqualPlaces) {
  Block first(&form, TAlign::alTop, {1, 10});
  Block second(&form, TAlign::alTop, {1, 10});
  first.move(0, 7);
  second.move(0, 7);
  layOut();
  EXPECT_LT(first.y(), second.y());
}

TEST_F(AlignLayoutTest, PutsANewControlAtTheTopOfAnotherOneBelowAllThatLieHigher) {
  Block tabs(&form, TAlign::alTop, {1, 24});
  Block client(&form, TAlign::alClient, {1, 1});
  layOut();
  Block toolbar(&form, TAlign::alTop, {1, 30});
  toolbar.move(0, client.y());
  toolbar.show();
  support::settle();
  EXPECT_EQ(tabs.y(), 0);
  EXPECT_EQ(toolbar.geometry(), QRect(0, 24, 200, 30));
  EXPECT_EQ(client.geometry(), QRect(0, 54, 200, 46));
}

TEST_F(AlignLayoutTest, HiddenControlsTakeNoRoomAndComeBackToTheirPlace) {
  Block first(&form, TAlign::alTop, {1, 10});
  Block second(&form, TAlign::alTop, {1, 20});
  first.move(0, 1);
  second.move(0, 2);
  layOut();
  first.hide();
  support::settle();
  EXPECT_EQ(second.y(), 0);
  first.show();
  support::settle();
  EXPECT_EQ(first.y(), 0);
  EXPECT_EQ(second.y(), 10);
}

TEST_F(AlignLayoutTest, AControlThatIsMovedLaterChangesItsPlace) {
  Block first(&form, TAlign::alTop, {1, 10});
  Block second(&form, TAlign::alTop, {1, 10});
  second.move(0, 3);
  layOut();
  ASSERT_EQ(first.y(), 0);
  first.move(0, 50);
  support::settle();
  EXPECT_EQ(second.y(), 0);
  EXPECT_EQ(first.y(), 10);
}

TEST_F(AlignLayoutTest, FollowsAnAlignmentThatIsChanged) {
  Block gutter(&form, TAlign::alLeft, {35, 1});
  layOut();
  platform::SetAlign(gutter, TAlign::alRight);
  support::settle();
  EXPECT_EQ(gutter.geometry(), QRect(165, 0, 35, 100));
}

TEST_F(AlignLayoutTest, LeavesControlsWithoutAlignmentAlone) {
  Block floating(&form, TAlign::alNone, {1, 1});
  floating.setGeometry(11, 12, 13, 14);
  layOut();
  EXPECT_EQ(floating.geometry(), QRect(11, 12, 13, 14));
}

TEST_F(AlignLayoutTest, LeavesDialogsAlone) {
  Block client(&form, TAlign::alClient, {1, 1});
  QDialog dialog(&form);
  platform::SetAlign(dialog, TAlign::alTop);
  dialog.resize(50, 50);
  dialog.show();
  layOut();
  EXPECT_EQ(dialog.size(), QSize(50, 50));
  EXPECT_EQ(client.geometry(), QRect(0, 0, 200, 100));
}

TEST_F(AlignLayoutTest, UsesThePresentSizeOfAControlWithoutAHint) {
  QWidget gutter(&form);
  platform::SetAlign(gutter, TAlign::alLeft);
  gutter.resize(35, 7);
  layOut();
  EXPECT_EQ(gutter.geometry(), QRect(0, 0, 35, 100));
}

TEST_F(AlignLayoutTest, GivesToolBarsTheirHeight) {
  auto* const bar = new QToolBar(&form);
  bar->addAction(QStringLiteral("Units"));
  platform::SetAlign(*bar, TAlign::alTop);
  layOut();
  EXPECT_EQ(bar->geometry(), QRect(0, 0, 200, bar->sizeHint().height()));
}

TEST_F(AlignLayoutTest, ForgetsControlsThatAreDestroyed) {
  auto* const top = new Block(&form, TAlign::alTop, {1, 10});
  Block client(&form, TAlign::alClient, {1, 1});
  layOut();
  ASSERT_EQ(client.y(), 10);
  delete top;
  support::settle();
  EXPECT_EQ(client.geometry(), QRect(0, 0, 200, 100));
}

TEST_F(AlignLayoutTest, AsksForTheRoomThatAllControlsNeed) {
  Block top(&form, TAlign::alTop, {80, 10});
  Block left(&form, TAlign::alLeft, {20, 40});
  Block client(&form, TAlign::alClient, {100, 30});
  form.ensurePolished();
  form.show();
  EXPECT_EQ(form.layout()->sizeHint(), QSize(120, 50));
}

} // namespace
} // namespace desktop
