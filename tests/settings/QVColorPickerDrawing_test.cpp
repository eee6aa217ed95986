// SPDX-License-Identifier: MIT
// Runs at several device pixel ratios: everything that looks at pixels reckons with the ratio.
#include "ColorPickerFixture.h"

#include <algorithm>
#include <cmath>

namespace quorvane {
namespace {

class QVColorPickerDrawing : public ColorPickerTest {
protected:
  static QImage Shot(QWidget& widget) { return widget.grab().toImage().convertToFormat(QImage::Format_RGB32); }
  // How many pixels of `image` have exactly that colour.
  static int Count(const QImage& image, const QColor& color) {
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x)
        count += image.pixelColor(x, y) == color;
    }
    return count;
  }
  // How many pixels of the two pictures differ.
  static int Differences(const QImage& one, const QImage& other) {
    int count = 0;
    for (int y = 0; y < one.height(); ++y) {
      for (int x = 0; x < one.width(); ++x)
        count += one.pixel(x, y) != other.pixel(x, y);
    }
    return count;
  }
};

TEST_F(QVColorPickerDrawing, FillsTheSwatchOfTheButton) {
  Button.SetActiveColor(kUncommon);
  Button.SetGlyphType(gtCustom);
  Show();
  const QImage shot = Shot(Button);
  const double ratio = shot.devicePixelRatio();
  EXPECT_GT(Count(shot, QColor(0x56, 0x34, 0x12)), 15 * 12 * ratio * ratio);
}

TEST_F(QVColorPickerDrawing, LeavesRoomForTheGlyphAboveTheSwatch) {
  Button.SetActiveColor(kUncommon);
  Button.SetGlyphType(gtCustom);
  Show();
  const int alone = Count(Shot(Button), QColor(0x56, 0x34, 0x12));
  for (const TGlyphType type : {gtForeground, gtBackground, gtLines}) {
    Button.SetGlyphType(type);
    const int beside = Count(Shot(Button), QColor(0x56, 0x34, 0x12));
    EXPECT_GT(beside, 0);
    EXPECT_LT(beside, alone / 2);
  }
}

TEST_F(QVColorPickerDrawing, TellsTheGlyphsApart) {
  Show();
  std::vector<QImage> shots;
  for (const TGlyphType type : {gtForeground, gtBackground, gtLines, gtCustom}) {
    Button.SetGlyphType(type);
    shots.push_back(Shot(Button));
  }
  for (std::size_t one = 0; one < shots.size(); ++one) {
    for (std::size_t other = 0; other < one; ++other)
      EXPECT_GT(Differences(shots[one], shots[other]), 10) << one << " and " << other;
  }
}

TEST_F(QVColorPickerDrawing, ShowsAGlyphOfTheButtonsOwn) {
  QPixmap glyph(32, 32);
  glyph.fill(QColor(9, 99, 199));
  Button.SetGlyphType(gtCustom);
  Button.SetGlyph(QIcon(glyph));
  Show();
  EXPECT_GT(Count(Shot(Button), QColor(9, 99, 199)), 20);
}

TEST_F(QVColorPickerDrawing, DrawsNoColourAsADiagonalLine) {
  Button.SetGlyphType(gtCustom);
  Button.SetActiveColor(platform::clNone);
  Show();
  const QImage shot = Shot(Button);
  const double ratio = shot.devicePixelRatio();
  const auto isInkedNear = [&](double x, double y) {
    for (int dy = -2; dy <= 2; ++dy) {
      for (int dx = -2; dx <= 2; ++dx) {
        if (qGray(shot.pixel(static_cast<int>(x * ratio) + dx, static_cast<int>(y * ratio) + dy)) < 170)
          return true;
      }
    }
    return false;
  };
  // From the lower left to the upper right of the swatch, and nowhere near the other two corners.
  const double left = 4;
  const double right = Button.width() - 12 - 1 - 4;
  const double top = 4;
  const double bottom = Button.height() - 4;
  EXPECT_TRUE(isInkedNear(left + 3, bottom - 3));
  EXPECT_TRUE(isInkedNear((left + right) / 2, (top + bottom) / 2));
  EXPECT_TRUE(isInkedNear(right - 3, top + 3));
  EXPECT_FALSE(isInkedNear(left + 4, top + 4));
  EXPECT_FALSE(isInkedNear(right - 4, bottom - 4));
}

TEST_F(QVColorPickerDrawing, MarksThePressedCellByMoreThanColour) {
  for (const platform::TColor color : {platform::clBlack, platform::clWhite, kRed, platform::clNone}) {
    TColBtn cell(&Window);
    cell.SetActiveColor(color);
    Show();
    cell.show();
    const QImage raised = Shot(cell);
    cell.SetDown(true);
    const QImage pressed = Shot(cell);
    // A tick within the swatch, in whichever of black and white reads on it.
    const double ratio = pressed.devicePixelRatio();
    const QRect inside(QPoint(static_cast<int>(6 * ratio), static_cast<int>(6 * ratio)),
                       QPoint(static_cast<int>(14 * ratio), static_cast<int>(14 * ratio)));
    EXPECT_GT(Differences(raised.copy(inside), pressed.copy(inside)), 5 * ratio) << color;
  }
}

TEST_F(QVColorPickerDrawing, PutsTheEdgesOfASwatchOnWholePixels) {
  Open();
  TColBtn& cell = Picker().FixedBtn(23); // magenta, in the last column
  const QColor fill(0xFF, 0, 0xFF);
  const QImage shot = Shot(*Dialog);
  const double ratio = shot.devicePixelRatio();
  const QRect area(QPointF(cell.geometry().topLeft() * ratio).toPoint(), (QSizeF(cell.size()) * ratio).toSize());
  const QImage picture = shot.copy(area);
  const int y = picture.height() / 2;
  // Along a line, the fill begins and ends at once: no pixel between it and the frame has a mixture of both.
  int first = 0;
  while (first < picture.width() && picture.pixelColor(first, y) != fill)
    ++first;
  int last = picture.width() - 1;
  while (last >= 0 && picture.pixelColor(last, y) != fill)
    --last;
  ASSERT_LT(first, last);
  const QColor edge = picture.pixelColor(first - 1, y);
  EXPECT_EQ(picture.pixelColor(last + 1, y), edge);
  for (int x = first; x <= last; ++x)
    EXPECT_EQ(picture.pixelColor(x, y), fill) << x;
  EXPECT_NEAR(last - first + 1, 10 * ratio, 1);
}

TEST_F(QVColorPickerDrawing, ShowsWhichCellHasTheFocus) {
  Open();
  TColBtn& cell = Picker().FixedBtn(20);
  const QImage without = Shot(cell);
  Press(Qt::Key_Right);
  Press(Qt::Key_Right);
  ASSERT_TRUE(cell.hasFocus());
  const QImage with = Shot(cell);
  EXPECT_GT(Differences(without, with), 50 * with.devicePixelRatio());
}

TEST_F(QVColorPickerDrawing, ShowsThatTheButtonHasTheFocus) {
  QWidget other(&Window);
  other.setFocusPolicy(Qt::StrongFocus);
  Show();
  other.show();
  const QImage with = Shot(Button);
  other.setFocus();
  EXPECT_GT(Differences(with, Shot(Button)), 50 * with.devicePixelRatio());
}

TEST_F(QVColorPickerDrawing, ReadsOnDarkGroundToo) {
  QPalette dark;
  dark.setColor(QPalette::Button, QColor(40, 40, 40));
  dark.setColor(QPalette::Window, QColor(40, 40, 40));
  dark.setColor(QPalette::ButtonText, QColor(240, 240, 240));
  Window.setPalette(dark);
  Show();
  QWidget* const button = &Button;
  const QImage shot = Shot(*button);
  EXPECT_GT(Count(shot, QColor(240, 240, 240)), 10) << "glyph and arrow have the palette's ink";
}

TEST_F(QVColorPickerDrawing, FitsCaptionsOfALargeFontIntoTheirButtons) {
  QFont large = QApplication::font();
  large.setPointSize(40);
  Window.setFont(large);
  Open();
  TColBtn& button = Picker().OtherBtn();
  const QImage shot = Shot(button);
  // The rows at the upper and lower edge hold nothing but the panel: no letter is cut off.
  for (const int y : {0, shot.height() - 1}) {
    for (int x = shot.width() / 4; x < shot.width() * 3 / 4; ++x)
      EXPECT_EQ(shot.pixel(x, y), shot.pixel(shot.width() / 4, y)) << x << ", " << y;
  }
}

} // namespace
} // namespace quorvane
