// SPDX-License-Identifier: MIT
#include "desktop/edit/HotLink.h"

#include "EditFixture.h"
#include "support/PrintQt.h"

#include <QMouseEvent>
#include <QScrollBar>
#include <QTextBlock>

namespace desktop {
namespace {

class HotLinkTest : public EditFixture {
protected:
  // Line 2 has a link, "word".
  void showText() {
    show(QStringLiteral("first\nsome word here\nthird"));
    link->setFinder([](const QTextBlock& line, int unit) -> std::optional<UnitSpan> {
      if (line.blockNumber() != 1 || unit < 5 || unit >= 9)
        return std::nullopt;
      return UnitSpan{5, 4};
    });
    connection =
        QObject::connect(link, &HotLink::activated, link, [this](int position) { activated.push_back(position); });
  }

  // The middle of a cell in the viewport; row and column from 1.
  QPointF cell(int row, int column) const {
    const QSize size = control.cellSize();
    return {(column - 0.5) * size.width(), (row - 0.5) * size.height()};
  }
  void mouse(QEvent::Type type, int row, int column, Qt::KeyboardModifiers modifiers) {
    const QPointF at = cell(row, column);
    const bool moves = type == QEvent::MouseMove;
    QMouseEvent event(type, at, control.viewport()->mapToGlobal(at), moves ? Qt::NoButton : Qt::LeftButton,
                      type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton, modifiers);
    QApplication::sendEvent(control.viewport(), &event);
  }
  void move(int row, int column, Qt::KeyboardModifiers modifiers = Qt::ControlModifier) {
    mouse(QEvent::MouseMove, row, column, modifiers);
  }
  void click(int row, int column, Qt::KeyboardModifiers modifiers) {
    mouse(QEvent::MouseButtonPress, row, column, modifiers);
    mouse(QEvent::MouseButtonRelease, row, column, modifiers);
  }
  Qt::CursorShape pointer() const { return control.viewport()->cursor().shape(); }
  QRect wordCells() const {
    const QSize size = control.cellSize();
    return {5 * size.width(), size.height(), 4 * size.width(), size.height()};
  }

  HotLink* link = control.hotLink();
  std::vector<int> activated;
  QMetaObject::Connection connection;
};

TEST_F(HotLinkTest, IsShownWhileCtrlIsHeldOverIt) {
  showText();
  move(2, 6);
  EXPECT_EQ(link->area(), wordCells());
  EXPECT_EQ(link->text(), QStringLiteral("word"));
  EXPECT_EQ(control.property("HotlinkText").toString(), QStringLiteral("word"));
  EXPECT_EQ(pointer(), Qt::PointingHandCursor);
  move(2, 6, Qt::NoModifier);
  EXPECT_EQ(link->area(), QRect());
  EXPECT_EQ(pointer(), Qt::IBeamCursor);
}

TEST_F(HotLinkTest, ReachesFromItsFirstCellToItsLast) {
  showText();
  for (const int column : {6, 9}) {
    move(2, column);
    EXPECT_FALSE(link->area().isEmpty()) << column;
  }
  for (const int column : {5, 10, 15, 40}) {
    move(2, column);
    EXPECT_TRUE(link->area().isEmpty()) << column;
  }
}

TEST_F(HotLinkTest, IsNotThereBelowTheText) {
  show(QStringLiteral("word"));
  link->setFinder([](const QTextBlock&, int) -> std::optional<UnitSpan> { return UnitSpan{0, 4}; });
  move(1, 2);
  EXPECT_FALSE(link->area().isEmpty());
  move(3, 2);
  EXPECT_TRUE(link->area().isEmpty());
}

TEST_F(HotLinkTest, ComesAndGoesWithTheKeyUnderAMouseThatRests) {
  showText();
  move(2, 6, Qt::NoModifier);
  pressOnly(Qt::Key_Control);
  EXPECT_EQ(link->area(), wordCells());
  release(Qt::Key_Control, {}, Qt::ControlModifier);
  EXPECT_EQ(link->area(), QRect());
}

TEST_F(HotLinkTest, IsNotForOtherModifiersWithCtrl) {
  showText();
  move(2, 6, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_TRUE(link->area().isEmpty());
}

TEST_F(HotLinkTest, IsUnderlinedOnTheScreenAndNotInThePicture) {
  showText();
  const QImage picture = control.picture().copy();
  move(2, 6);
  const QImage shown = control.viewport()->grab().toImage();
  const QRect cells = wordCells();
  const auto isLine = [&](int x) {
    return shown.pixelColor(QPoint(x, cells.bottom()) * shown.devicePixelRatio()) == control.colorScheme().text;
  };
  EXPECT_TRUE(isLine(cells.left() + 1));
  EXPECT_TRUE(isLine(cells.right() - 1));
  EXPECT_FALSE(isLine(cells.left() - 2));
  EXPECT_FALSE(isLine(cells.right() + 2));
  EXPECT_EQ(control.picture(), picture);
}

TEST_F(HotLinkTest, CausesNoPaintMessage) {
  showText();
  MessageRecorder recorder(control);
  move(2, 6);
  support::settle();
  move(2, 1);
  support::settle();
  EXPECT_EQ(recorder.messages().size(), 0U);
}

TEST_F(HotLinkTest, IsActivatedByAClickThatLeavesTheCaret) {
  showText();
  control.setCaret(3, 2);
  click(2, 7, Qt::ControlModifier);
  EXPECT_EQ(activated, std::vector<int>{11});
  EXPECT_EQ(control.caretRow(), 3);
  EXPECT_TRUE(link->area().isEmpty());
}

TEST_F(HotLinkTest, IsNotActivatedWithoutCtrl) {
  showText();
  click(2, 7, Qt::NoModifier);
  EXPECT_TRUE(activated.empty());
  EXPECT_EQ(control.caretRow(), 2);
}

TEST_F(HotLinkTest, IsNotActivatedByAButtonThatComesUpElsewhere) {
  showText();
  mouse(QEvent::MouseButtonPress, 2, 7, Qt::ControlModifier);
  mouse(QEvent::MouseButtonRelease, 3, 2, Qt::ControlModifier);
  EXPECT_TRUE(activated.empty());
  EXPECT_FALSE(control.textCursor().hasSelection());
}

TEST_F(HotLinkTest, EndsWhenTheTextChanges) {
  showText();
  move(2, 6);
  document.setPlainText(QStringLiteral("x"));
  EXPECT_TRUE(link->area().isEmpty());
  EXPECT_EQ(pointer(), Qt::IBeamCursor);
}

TEST_F(HotLinkTest, EndsWhenTheTextIsScrolled) {
  showText();
  document.setPlainText(QStringLiteral("first\nsome word here\n") + QString(200, u'\n'));
  move(2, 6);
  ASSERT_FALSE(link->area().isEmpty());
  control.verticalScrollBar()->setValue(5);
  EXPECT_TRUE(link->area().isEmpty());
}

TEST_F(HotLinkTest, EndsWithItsDocument) {
  showText();
  move(2, 6);
  control.showDocument(nullptr);
  EXPECT_TRUE(link->area().isEmpty());
}

TEST_F(HotLinkTest, EndsWhenTheMouseLeaves) {
  showText();
  move(2, 6);
  QEvent leave(QEvent::Leave);
  QApplication::sendEvent(control.viewport(), &leave);
  EXPECT_TRUE(link->area().isEmpty());
}

} // namespace
} // namespace desktop
