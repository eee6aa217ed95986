// SPDX-License-Identifier: MIT
#include "host/QVImages.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>
#include <QPalette>
#include <QPixmap>
#include <QScopeGuard>

#include <algorithm>
#include <cmath>
#include <set>

namespace quorvane {
namespace {

QImage Picture(int index, int size, QIcon::Mode mode = QIcon::Normal) {
  return Images(index).pixmap(QSize(size, size), 1, mode).toImage().convertToFormat(QImage::Format_ARGB32);
}

double Luminance(const QColor& color) {
  const auto linear = [](double part) {
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

double Contrast(const QColor& one, const QColor& other) {
  const auto [dark, light] = std::minmax({Luminance(one), Luminance(other)});
  return (light + 0.05) / (dark + 0.05);
}

std::set<QRgb> ColorsOf(const QImage& picture) {
  std::set<QRgb> colors;
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x)
      colors.insert(picture.pixel(x, y));
  }
  return colors;
}

class QVImages : public testing::TestWithParam<int> {};
INSTANTIATE_TEST_SUITE_P(All, QVImages, testing::Range(0, static_cast<int>(qvImageCount)));

TEST_P(QVImages, AreSharpAtEveryRatioOfAScreen) {
  for (const int size : {16, 24, 32}) {
    // Two inks and the ground: nothing is blended.
    EXPECT_EQ(ColorsOf(Picture(GetParam(), size)).size(), 3U) << size;
  }
}

TEST(QVImagesList, HasSectionsThatAreTheSameSeenInAMirror) {
  for (const int size : {16, 24, 32}) {
    const QImage picture = Picture(qvSectionsImage, size);
    EXPECT_EQ(picture, picture.mirrored(true, false)) << size;
  }
}

TEST_P(QVImages, CanBeReadOnLightAndDarkGrounds) {
  const QPalette before = QApplication::palette();
  const auto restore = qScopeGuard([&] { QApplication::setPalette(before); });
  for (const QColor ground : {QColor(0xEF, 0xEF, 0xEF), QColor(0x35, 0x35, 0x35)}) {
    const QColor text = Luminance(ground) > 0.5 ? Qt::black : Qt::white;
    QApplication::setPalette(QPalette(text, ground, text, Qt::black, Qt::gray, text, text, ground, ground));
    for (const QRgb color : ColorsOf(Picture(GetParam(), 16))) {
      if (qAlpha(color) != 0) {
        EXPECT_GE(Contrast(QColor(color), ground), 3.0);
      }
    }
  }
}

TEST_P(QVImages, AreFainterWhenDisabled) {
  const auto strongest = [](const QImage& picture) {
    int alpha = 0;
    for (const QRgb color : ColorsOf(picture))
      alpha = std::max(alpha, qAlpha(color));
    return alpha;
  };
  EXPECT_EQ(strongest(Picture(GetParam(), 16)), 255);
  EXPECT_LT(strongest(Picture(GetParam(), 16, QIcon::Disabled)), 255);
}

TEST(QVImagesList, AreNullForUnknownIndexes) {
  EXPECT_TRUE(Images(-1).isNull());
  EXPECT_TRUE(Images(qvImageCount).isNull());
}

} // namespace
} // namespace quorvane
