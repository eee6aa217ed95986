// SPDX-License-Identifier: MIT
// Cells, published geometry and positions. Run at several scale factors.
#include "desktop/edit/EditFixture.h"

#include <QScrollBar>
#include <QTextBlock>
#include <QTextLayout>

namespace desktop {
namespace {

class EditControlGeometry : public EditFixture {
protected:
  int value(const char* property) const { return control.property(property).toInt(); }
};

TEST_F(EditControlGeometry, PublishesValuesThatGiveTheTrueCell) {
  show(QStringLiteral("x\n").repeated(100));
  for (const int points : {6, 7, 8, 9, 10, 11, 12, 13, 14, 17, 20, 24, 36}) {
    control.setEditorFont(QStringLiteral("DejaVu Sans Mono"), points);
    for (const QSize size : {QSize(640, 400), QSize(333, 177), QSize(801, 613), QSize(40, 20), QSize(1, 1)}) {
      control.resize(size);
      support::settle();
      const int columns = control.viewSize().width();
      ASSERT_GE(columns, 1);
      ASSERT_GE(value("LinesInWindow"), 2);
      EXPECT_EQ((value("Width") - control.gutterWidth()) / columns, control.cellSize().width()) << points;
      EXPECT_EQ((control.ClientWidth() - control.gutterWidth()) / columns, control.cellSize().width()) << points;
      EXPECT_EQ(control.ClientHeight() / (value("LinesInWindow") - 1), control.cellSize().height()) << points;
    }
  }
}

TEST_F(EditControlGeometry, KeepsACaretInSightWhenItGetsSmaller) {
  show(QStringLiteral("x\n").repeated(100));
  control.resize(600, 30 * control.cellSize().height());
  support::settle();
  control.setCaret(25, 1);
  ASSERT_EQ(control.topLine(), 1);
  control.resize(600, 15 * control.cellSize().height());
  support::settle();
  EXPECT_LE(control.topLine(), 25);
  EXPECT_GT(control.topLine() + control.viewSize().height(), 25);
}

TEST_F(EditControlGeometry, LeavesACaretOutOfSightWhenItGetsSmaller) {
  show(QStringLiteral("x\n").repeated(100));
  control.resize(600, 30 * control.cellSize().height());
  control.setCaret(1, 1);
  control.setTopLine(50);
  support::settle();
  control.resize(600, 15 * control.cellSize().height());
  support::settle();
  EXPECT_EQ(control.topLine(), 50);
}

TEST_F(EditControlGeometry, StartsEveryColumnOnAWholeCellAtAnySize) {
  const QString line = QStringLiteral("if x then { a comment } 'string' 12 ").repeated(10);
  for (const int points : {6, 8, 9, 10, 11, 12, 13, 16, 19, 27}) {
    control.setEditorFont(QStringLiteral("DejaVu Sans Mono"), points);
    show(line);
    const QTextLine laidOut = document.firstBlock().layout()->lineAt(0);
    for (int unit = 0; unit <= line.size(); ++unit)
      ASSERT_EQ(laidOut.cursorToX(unit), unit * control.cellSize().width()) << points << " points, unit " << unit;
  }
}

TEST_F(EditControlGeometry, KeepsBoldAndItalicTextInItsCells) {
  ColorScheme scheme = lightScheme();
  scheme.styles.fill({QColor(Qt::red), true, true});
  control.setColorScheme(scheme);
  show(QStringLiteral("begin abc 12 'x'"));
  const QTextLine laidOut = document.firstBlock().layout()->lineAt(0);
  for (int unit = 0; unit <= 16; ++unit)
    ASSERT_EQ(laidOut.cursorToX(unit), unit * control.cellSize().width());
}

TEST_F(EditControlGeometry, ExpandsTabsToItsStops) {
  show(QStringLiteral("a\tb"));
  control.setTabWidth(4);
  control.setCaret(1, 5);
  EXPECT_EQ(control.textCursor().position(), 2);
  EXPECT_EQ(control.cursorRect().x(), 4 * control.cellSize().width());
  EXPECT_EQ(value("CaretX"), 5);
  EXPECT_EQ(value("CharXIndex"), 2);
  control.setTabWidth(8);
  EXPECT_EQ(control.cursorRect().x(), 8 * control.cellSize().width());
  EXPECT_EQ(value("CaretX"), 9);
}

TEST_F(EditControlGeometry, KeepsEveryLineOnItsRowWhateverGlyphsItHas) {
  show(QStringLiteral("a\n\u4E2D\u6587\n\U0001F600\nb"));
  const int height = control.cellSize().height();
  for (int row = 1; row <= 4; ++row) {
    control.setCaret(row, 1);
    const QTextBlock block = document.findBlockByNumber(row - 1);
    EXPECT_EQ(control.document()->documentLayout()->blockBoundingRect(block).height(), height) << row;
  }
  control.setCaret(4, 1);
  EXPECT_EQ(control.cursorRect().y(), 3 * height);
}

TEST_F(EditControlGeometry, TellsThePositionOfTheCaret) {
  show(QStringLiteral("one\n\ttwo\nthree"));
  control.setCaret(2, 10);
  EXPECT_EQ(value("CaretY"), 2);
  EXPECT_EQ(value("CaretX"), 10);
  EXPECT_EQ(value("CharXIndex"), 2);
  EXPECT_EQ(control.property("LineText").toString(), QStringLiteral("\ttwo"));
  EXPECT_EQ(value("LineCount"), 3);
  EXPECT_EQ(value("TopLine"), 1);
}

TEST_F(EditControlGeometry, ClipsTheCaretToTheText) {
  show(QStringLiteral("one\ntwo"));
  control.setCaret(99, 99);
  EXPECT_EQ(control.caretRow(), 2);
  EXPECT_EQ(control.caretColumn(), 4);
  control.setCaret(-3, -3);
  EXPECT_EQ(control.caretRow(), 1);
  EXPECT_EQ(control.caretColumn(), 1);
}

TEST_F(EditControlGeometry, PutsTheCaretWithoutScrolling) {
  show(QStringLiteral("x\n").repeated(500));
  control.setTopLine(50);
  control.setCaret(400, 1);
  EXPECT_EQ(control.topLine(), 50);
  control.showCaret();
  EXPECT_GT(control.topLine(), 350);
}

TEST_F(EditControlGeometry, ScrollsByWholeCells) {
  show(QStringLiteral("x").repeated(500));
  const int width = control.cellSize().width();
  for (const int unit : {200, 77, 301, 3, 499, 500, 120}) {
    control.setCaret(1, unit + 1);
    control.showCaret();
    EXPECT_EQ(control.horizontalScrollBar()->value() % width, 0) << unit;
    const int x = control.cursorRect().x();
    EXPECT_GE(x, 0) << unit;
    EXPECT_LT(x, control.viewport()->width()) << "the caret can be seen at " << unit;
    EXPECT_EQ(x, (unit + 1 - control.leftColumn()) * width);
  }
  control.horizontalScrollBar()->setValue(width * 3 + 1);
  EXPECT_EQ(control.horizontalScrollBar()->value() % width, 0);
  control.horizontalScrollBar()->setValue(control.horizontalScrollBar()->maximum());
  EXPECT_EQ(control.horizontalScrollBar()->value() % width, 0);
}

TEST_F(EditControlGeometry, TellsTheFirstVisibleLineAndColumn) {
  show((QStringLiteral("x").repeated(300) + u'\n').repeated(300));
  control.setTopLine(17);
  control.setLeftColumn(9);
  EXPECT_EQ(value("TopLine"), 17);
  EXPECT_EQ(control.leftColumn(), 9);
}

TEST_F(EditControlGeometry, HasAtLeastOneCellWithoutASize) {
  TEditControl hidden;
  hidden.resize(0, 0);
  EXPECT_GE(hidden.viewSize().width(), 1);
  EXPECT_GE(hidden.viewSize().height(), 1);
  EXPECT_GE(hidden.property("LinesInWindow").toInt(), 2);
  hidden.Repaint();
  hidden.Canvas().FillRect(QRect(0, 0, 10, 10));
}

TEST_F(EditControlGeometry, GivesCanvasTextTheSizeOfACell) {
  for (const int points : {7, 10, 13, 22}) {
    control.setEditorFont(QStringLiteral("DejaVu Sans Mono"), points);
    EXPECT_EQ(control.Canvas().TextWidth(QStringLiteral("A")), control.cellSize().width()) << points;
    EXPECT_EQ(control.Canvas().TextHeight(QStringLiteral("^q")), control.cellSize().height()) << points;
  }
}

TEST_F(EditControlGeometry, HasASurfaceOfTheWholeClientAreaInDevicePixels) {
  show(QStringLiteral("x"));
  const QSizeF client(control.gutterWidth() + control.viewport()->width(), control.viewport()->height());
  const qreal ratio = control.devicePixelRatioF();
  EXPECT_EQ(control.picture().devicePixelRatio(), ratio);
  EXPECT_EQ(control.picture().width(), std::ceil(client.width() * ratio));
  EXPECT_EQ(control.picture().height(), std::ceil(client.height() * ratio));
}

// A full block fills its cell and no other.
TEST_F(EditControlGeometry, PaintsEachCharacterIntoItsCell) {
  show(QStringLiteral("\n x\u2588 \u2588\u2588\n\t\u2588"));
  const QColor ink = lightScheme().style(SyntaxAttribute::Illegal).color;
  const QColor ground = lightScheme().ground;
  EXPECT_EQ(cellColor(2, 3), ink);
  EXPECT_EQ(cellColor(2, 4), ground);
  EXPECT_EQ(cellColor(2, 5), ink);
  EXPECT_EQ(cellColor(2, 6), ink);
  EXPECT_EQ(cellColor(2, 7), ground);
  EXPECT_EQ(cellColor(1, 3), ground);
  EXPECT_EQ(cellColor(3, 8), ground);
  EXPECT_EQ(cellColor(3, 9), ink);
}

TEST_F(EditControlGeometry, PaintsScrolledTextIntoItsCells) {
  show(QStringLiteral("\n").repeated(40) + QStringLiteral(" ").repeated(100) + QStringLiteral("\u2588") +
       QStringLiteral(" ").repeated(100) + QStringLiteral("\n").repeated(40));
  control.setTopLine(31);
  control.setLeftColumn(91);
  support::settle();
  EXPECT_EQ(cellColor(11, 11), lightScheme().style(SyntaxAttribute::Illegal).color);
  EXPECT_EQ(cellColor(11, 10), lightScheme().ground);
  EXPECT_EQ(cellColor(11, 12), lightScheme().ground);
}

TEST_F(EditControlGeometry, DrawsOnTheCanvasExactlyTheCellsAskedFor) {
  show(QString());
  control.Canvas().Brush.Color = platform::clRed;
  const QRect cell = cellRect(3, 5);
  control.Canvas().FillRect(cell);
  const QImage& picture = control.picture();
  const qreal ratio = picture.devicePixelRatio();
  const auto edge = [ratio](int logical) { return static_cast<int>(std::lround(logical * ratio)); };
  const QRect pixels(QPoint(edge(cell.left()), edge(cell.top())),
                     QPoint(edge(cell.left() + cell.width()) - 1, edge(cell.top() + cell.height()) - 1));
  int red = 0;
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) {
      const bool isRed = picture.pixelColor(x, y) == QColor(Qt::red);
      ASSERT_EQ(isRed, pixels.contains(x, y)) << x << ", " << y;
      red += isRed ? 1 : 0;
    }
  }
  EXPECT_EQ(red, pixels.width() * pixels.height());
}

TEST_F(EditControlGeometry, ShowsItsPictureOnTheScreenPixelByPixel) {
  show(QStringLiteral("begin\n  Foo(Bar);\nend."));
  control.clearFocus(); // no caret
  support::settle();
  QImage screen = control.grab().toImage().convertToFormat(QImage::Format_RGB32);
  const QImage& picture = control.picture();
  screen = screen.copy(QRect(QPoint(), picture.size()));
  int differences = 0;
  for (int y = 0; y < picture.height(); ++y)
    for (int x = 0; x < picture.width(); ++x)
      differences += screen.pixel(x, y) == picture.pixel(x, y) ? 0 : 1;
  EXPECT_EQ(differences, 0);
}

TEST_F(EditControlGeometry, HidesTheGutterAtWidthZero) {
  show(QStringLiteral("\u2588"));
  control.setGutterWidth(0);
  support::settle();
  EXPECT_EQ(cellColor(1, 1), lightScheme().style(SyntaxAttribute::Illegal).color);
  EXPECT_EQ(control.ClientWidth() % control.cellSize().width(), 0);
}

TEST_F(EditControlGeometry, PublishesTheValuesOfAControl) {
  QWidget window;
  control.setParent(&window);
  control.setGeometry(7, 9, 300, 200);
  control.setToolTip(QStringLiteral("hint"));
  EXPECT_EQ(value("Left"), 7);
  EXPECT_EQ(value("Top"), 9);
  EXPECT_EQ(value("Height"), 200);
  EXPECT_EQ(control.property("Hint").toString(), QStringLiteral("hint"));
  EXPECT_EQ(control.property("Name").toString(), QStringLiteral("Editor"));
  EXPECT_EQ(value("BorderStyle"), 0);
  EXPECT_EQ(value("Cursor"), static_cast<int>(Qt::IBeamCursor));
  for (const char* settable : {"Tag", "HelpContext"}) {
    EXPECT_TRUE(control.setProperty(settable, 42)) << settable;
    EXPECT_EQ(value(settable), 42) << settable;
  }
  EXPECT_TRUE(control.setProperty("HelpKeyword", QStringLiteral("k")));
  EXPECT_EQ(control.property("HelpKeyword").toString(), QStringLiteral("k"));
  EXPECT_TRUE(control.property("HotlinkText").isValid());
  control.setParent(nullptr);
}

TEST_F(EditControlGeometry, PublishesSelectionAndSearchMatch) {
  show(QStringLiteral("one\ntwo three"));
  const auto packed = [this](const char* name) { return control.property(name).toLongLong(); };
  EXPECT_EQ(packed("BlockBegin"), packed("BlockAfter"));
  QTextCursor cursor(&document);
  cursor.setPosition(1);
  cursor.setPosition(7, QTextCursor::KeepAnchor);
  control.setTextCursor(cursor);
  EXPECT_EQ(packed("BlockBegin"), (1 << 16) + 1);
  EXPECT_EQ(packed("BlockAfter"), (2 << 16) + 3);
  control.setSearchMatch(4, 7);
  EXPECT_EQ(packed("SearchBegin"), 2 << 16);
  EXPECT_EQ(packed("SearchAfter"), (2 << 16) + 3);
}

} // namespace
} // namespace desktop
