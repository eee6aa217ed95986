// SPDX-License-Identifier: MIT
#include "toolbar/QVColumnMenu.h"

#include "support/SignalCount.h"
#include "ToolbarFixture.h"

#include <QHelpEvent>
#include <QScreen>
#include <QTest>
#include <QToolTip>

namespace quorvane {
namespace {

class QVColumnMenu : public ToolbarTest {
protected:
  // `first` items, and then `second` items behind a bar, named by their numbers from 0.
  void Fill(int first, int second) {
    for (int index = 0; index < first + second; ++index) {
      QAction* const item = Menu.addAction(QStringLiteral("Item%1").arg(index));
      QObject::connect(item, &QAction::triggered, item, [this, index] { Chosen.push_back(index); });
      if (index == first)
        Menu.SetBarBreak(item);
    }
  }
  void Open() {
    Show();
    Menu.popup(Window.mapToGlobal(QPoint(20, 20)));
    ASSERT_TRUE(support::waitUntil([this] { return Menu.isVisible(); }));
  }
  QAction* At(int index) { return Menu.actions().at(index); }
  QRect RectOf(int index) { return Menu.ItemRect(At(index)); }

  TQVColumnMenu Menu{&Window};
  std::vector<int> Chosen;
};

TEST_F(QVColumnMenu, PutsTheSecondColumnBesideTheFirst) {
  Fill(2, 3);
  Open();
  EXPECT_EQ(RectOf(0).left(), RectOf(1).left());
  EXPECT_EQ(RectOf(0).bottom() + 1, RectOf(1).top());
  EXPECT_EQ(RectOf(2).top(), RectOf(0).top());
  EXPECT_GT(RectOf(2).left(), RectOf(0).right() + 1) << "there is room for the bar";
  EXPECT_EQ(RectOf(4).left(), RectOf(2).left());
  EXPECT_GT(RectOf(4).top(), RectOf(1).top());
  EXPECT_TRUE(Menu.rect().contains(RectOf(4)));
}

TEST_F(QVColumnMenu, DrawsABarBetweenTheColumns) {
  Fill(2, 2);
  Open();
  const QImage picture = Menu.grab().toImage();
  const qreal ratio = picture.devicePixelRatio();
  const int y = static_cast<int>(RectOf(1).center().y() * ratio);
  const int from = static_cast<int>((RectOf(1).right() + 1) * ratio);
  const int to = static_cast<int>(RectOf(2).left() * ratio);
  ASSERT_LT(from, to);
  int inked = 0;
  for (int x = from; x < to; ++x)
    inked += picture.pixelColor(x, y) != picture.pixelColor(from, y);
  EXPECT_GE(inked, 1);
  EXPECT_LE(inked, 2 * ratio);
}

TEST_F(QVColumnMenu, IsAPlainMenuWithoutABar) {
  Fill(3, 0);
  Open();
  for (int index = 0; index < 3; ++index)
    EXPECT_EQ(RectOf(index), Menu.actionGeometry(At(index)));
  QTest::mouseMove(&Menu, RectOf(1).center());
  QTest::mouseClick(&Menu, Qt::LeftButton, {}, RectOf(1).center());
  EXPECT_EQ(Chosen, std::vector<int>{1});
}

TEST_F(QVColumnMenu, LeavesTheFirstColumnEmptyWhenItsFirstItemBeginsTheSecond) {
  Fill(0, 2);
  Open();
  TQVColumnMenu plain(&Window);
  plain.addAction(QStringLiteral("Item0"));
  EXPECT_GT(RectOf(0).left(), plain.actionGeometry(plain.actions().constFirst()).left());
}

TEST_F(QVColumnMenu, BreaksColumnsWhereTheScreenEnds) {
  Fill(1, 0);
  const int rows = Menu.screen()->availableSize().height() / Menu.actionGeometry(At(0)).height();
  const int last = rows + rows / 2;
  Menu.Clear();
  Fill(last + 1, 2);
  Open();
  EXPECT_LE(Menu.height(), Menu.screen()->availableSize().height());
  EXPECT_LE(Menu.width(), Menu.screen()->availableSize().width());
  EXPECT_EQ(RectOf(last).left(), RectOf(0).right() + 1);
  for (int index = 0; index < Menu.actions().size(); ++index)
    ASSERT_TRUE(Menu.rect().contains(RectOf(index))) << index;
}

TEST_F(QVColumnMenu, IsAPlainMenuWhenItsColumnsDoNotFitTheScreen) {
  Fill(2000, 2000);
  EXPECT_EQ(RectOf(2000), Menu.actionGeometry(At(2000)));
  EXPECT_EQ(Menu.actions().size(), 4000);
}

TEST_F(QVColumnMenu, FindsTheItemUnderAPoint) {
  Fill(2, 2);
  Open();
  for (int index = 0; index < 4; ++index)
    EXPECT_EQ(Menu.ItemAt(RectOf(index).center()), At(index));
  EXPECT_EQ(Menu.ItemAt(QPoint(RectOf(0).right() + 3, RectOf(0).center().y())), nullptr);
}

TEST_F(QVColumnMenu, AClickInTheSecondColumnChoosesAndCloses) {
  Fill(2, 2);
  Open();
  QTest::mouseMove(&Menu, RectOf(3).center());
  EXPECT_EQ(Menu.activeAction(), At(3));
  QTest::mouseClick(&Menu, Qt::LeftButton, {}, RectOf(3).center());
  EXPECT_EQ(Chosen, std::vector<int>{3});
  EXPECT_FALSE(Menu.isVisible());
}

TEST_F(QVColumnMenu, TheReleaseOfTheButtonThatOpenedItChoosesNothing) {
  Fill(2, 2);
  Open();
  QTest::mouseRelease(&Menu, Qt::LeftButton, {}, RectOf(1).center());
  EXPECT_EQ(Chosen, std::vector<int>{});
  EXPECT_TRUE(Menu.isVisible());
}

TEST_F(QVColumnMenu, AClickOnTheBarChoosesNothing) {
  Fill(2, 2);
  Open();
  QTest::mouseClick(&Menu, Qt::LeftButton, {}, QPoint(RectOf(0).right() + 3, RectOf(0).center().y()));
  EXPECT_EQ(Chosen, std::vector<int>{});
  EXPECT_TRUE(Menu.isVisible());
}

TEST_F(QVColumnMenu, UpAndDownWalkThroughAllItemsInOrder) {
  Fill(2, 2);
  Open();
  for (int index = 0; index < 4; ++index) {
    QTest::keyClick(&Menu, Qt::Key_Down);
    EXPECT_EQ(Menu.activeAction(), At(index));
  }
  QTest::keyClick(&Menu, Qt::Key_Up);
  EXPECT_EQ(Menu.activeAction(), At(2));
}

TEST_F(QVColumnMenu, LeftAndRightGoToTheItemBeside) {
  Fill(3, 2);
  Open();
  QTest::keyClick(&Menu, Qt::Key_Right);
  EXPECT_EQ(Menu.activeAction(), At(0)) << "from nowhere to the first";
  QTest::keyClick(&Menu, Qt::Key_Down);
  QTest::keyClick(&Menu, Qt::Key_Right);
  EXPECT_EQ(Menu.activeAction(), At(4));
  QTest::keyClick(&Menu, Qt::Key_Right);
  EXPECT_EQ(Menu.activeAction(), At(4)) << "there is nothing further right";
  QTest::keyClick(&Menu, Qt::Key_Left);
  EXPECT_EQ(Menu.activeAction(), At(1));
  QTest::keyClick(&Menu, Qt::Key_Down);
  QTest::keyClick(&Menu, Qt::Key_Right);
  EXPECT_EQ(Menu.activeAction(), At(4)) << "the nearest of a shorter column";
}

TEST_F(QVColumnMenu, EnterChoosesAndEscapeDoesNot) {
  Fill(1, 1);
  Open();
  QTest::keyClick(&Menu, Qt::Key_Right);
  QTest::keyClick(&Menu, Qt::Key_Right);
  QTest::keyClick(&Menu, Qt::Key_Return);
  EXPECT_EQ(Chosen, std::vector<int>{1});
  EXPECT_FALSE(Menu.isVisible());
  Open();
  QTest::keyClick(&Menu, Qt::Key_Down);
  QTest::keyClick(&Menu, Qt::Key_Escape);
  EXPECT_FALSE(Menu.isVisible());
  EXPECT_EQ(Chosen.size(), 1U);
}

TEST_F(QVColumnMenu, MarksTheActiveItemWhereItStands) {
  Fill(1, 1);
  Open();
  const auto picture = [&](int index) { return Menu.grab(RectOf(index)).toImage(); };
  const QImage first = picture(0);
  const QImage second = picture(1);
  QTest::mouseMove(&Menu, RectOf(1).center());
  EXPECT_EQ(picture(0), first);
  EXPECT_NE(picture(1), second);
}

TEST_F(QVColumnMenu, ShowsTheHintOfTheItemUnderTheMouse) {
  Fill(1, 1);
  Menu.setToolTipsVisible(true);
  At(1)->setToolTip(QStringLiteral("Open Unit Item1.pas"));
  Open();
  const QPoint place = RectOf(1).center();
  QHelpEvent help(QEvent::ToolTip, place, Menu.mapToGlobal(place));
  QCoreApplication::sendEvent(&Menu, &help);
  EXPECT_EQ(QToolTip::text(), QStringLiteral("Open Unit Item1.pas"));
  QToolTip::hideText();
}

TEST_F(QVColumnMenu, FollowsItsItems) {
  Fill(1, 1);
  const QSize before = Menu.sizeHint();
  Menu.addAction(QStringLiteral("An item with quite a long caption"));
  EXPECT_GT(Menu.sizeHint().width(), before.width());
  EXPECT_GT(Menu.sizeHint().height(), before.height());
}

TEST_F(QVColumnMenu, IsEmptyAndWithoutABarWhenCleared) {
  Fill(1, 1);
  Menu.Clear();
  EXPECT_TRUE(Menu.isEmpty());
  EXPECT_EQ(Menu.BarBreak(), nullptr);
}

} // namespace
} // namespace quorvane
