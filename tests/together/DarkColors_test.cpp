// SPDX-License-Identifier: MIT
// The add-in's colours for dark ground on the host's dark scheme, and its designed ones on the light one.
#include "together/TogetherFixture.h"

#include "desktop/edit/ColorScheme.h"
#include "desktop/ui/Appearance.h"
#include "platform/Color.h"
#include "settings/model/QVDarkColors.h"

#include <QApplication>

#include <algorithm>

namespace together {
namespace {

// As the guidelines for accessible contents measure it, from 1 to 21.
double luminance(const QColor& color) {
  const auto linear = [](double part) {
    return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}
double contrast(const QColor& one, const QColor& other) {
  const auto [dark, light] = std::minmax({luminance(one), luminance(other)});
  return (light + 0.05) / (dark + 0.05);
}

class DarkColors : public TogetherFixture, public testing::WithParamInterface<bool> {
protected:
  DarkColors() {
    workspace.appearance().setColours(GetParam() ? desktop::Colours::Dark : desktop::Colours::Light);
    quorvane::FollowGround(values_, GetParam());
  }
  QColor colour(quorvane::TQVOption option) const { return platform::ToQColor(values_.Number(option), {}, {}); }

  static constexpr double readable = 4.5; // contrast of text
  quorvane::TQVOptionValues values_;
};

TEST_P(DarkColors, LineNumbersReadInBothGutters) {
  const QColor numbers = colour(quorvane::TQVOption::LineNumberColor);
  EXPECT_GE(contrast(numbers, editor()->colorScheme().gutterGround), readable);
  EXPECT_GE(contrast(numbers, QApplication::palette().color(QPalette::Button)), readable);
}

TEST_P(DarkColors, BracketsReadOnTheirGroundAndStandOut) {
  const QColor ground = colour(quorvane::TQVOption::ParenColor);
  const desktop::ColorScheme& scheme = editor()->colorScheme();
  EXPECT_GE(contrast(ground, scheme.style(desktop::SyntaxAttribute::Symbol).color), readable);
  EXPECT_GE(contrast(ground, scheme.ground), 1.8);
}

TEST_P(DarkColors, PlainTextReadsOnTheGroundsOfBlocks) {
  for (const auto option : {quorvane::TQVOption::BlockColor1, quorvane::TQVOption::BlockColor2,
                            quorvane::TQVOption::BlockColor3, quorvane::TQVOption::BlockColor4})
    EXPECT_GE(contrast(colour(option), editor()->colorScheme().text), readable) << static_cast<int>(option);
}

INSTANTIATE_TEST_SUITE_P(OnGround, DarkColors, testing::Bool(),
                         [](const auto& ground) { return ground.param ? "Dark" : "Light"; });

} // namespace
} // namespace together
