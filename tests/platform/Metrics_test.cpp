// SPDX-License-Identifier: MIT
#include "platform/Metrics.h"

#include <gtest/gtest.h>

#include <QScrollBar>

using namespace platform;

TEST(Metrics, EdgeIsTwoPixelsHigh) {
  EXPECT_EQ(GetSystemMetrics(SM_CYEDGE), 2);
}

TEST(Metrics, HorizontalScrollBarIsAsHighAsTheStylesOwn) {
  const QScrollBar bar(Qt::Horizontal);
  EXPECT_EQ(GetSystemMetrics(SM_CYHSCROLL), bar.sizeHint().height());
}

TEST(Metrics, UnknownMeasureIsZero) {
  EXPECT_EQ(GetSystemMetrics(-1), 0);
}
