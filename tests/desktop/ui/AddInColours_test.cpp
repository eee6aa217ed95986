// SPDX-License-Identifier: MIT
#include "desktop/ui/AddInColours.h"

#include "desktop/files/EnvironmentSettings.h"
#include "desktop/ui/Appearance.h"
#include "desktop/ui/UiFixture.h"
#include "platform/ColorFollowers.h"

#include <QPushButton>

#include <optional>

namespace desktop {
namespace {

// An add-in with one colour, for light ground at first.
class OneColour : public platform::IColorFollower {
public:
  OneColour() { platform::ColorFollowers().Add(*this); }
  ~OneColour() override { platform::ColorFollowers().Remove(*this); }
  bool WouldFollow(bool dark) const override { return dark != isDark; }
  void Follow(bool dark) override { isDark = dark; }

  bool isDark = false;
};

class AddInColoursTest : public UiFixture {
protected:
  void setDark(bool dark) { workspace.appearance().setColours(dark ? Colours::Dark : Colours::Light); }
  bool follows() const { return workspace.settings().values().addInColours; }
  QPushButton* answer() const {
    for (QPushButton* button : window()->messageBar()->findChildren<QPushButton*>()) {
      if (button->text() == QStringLiteral("&Adapt Colours"))
        return button;
    }
    return nullptr;
  }

  AddInColours colours{workspace};
};

TEST_F(AddInColoursTest, TheUserIsAskedWhenDarkIsChosen) {
  const OneColour colour;
  colours.startAsking();
  EXPECT_TRUE(messages().isEmpty());
  setDark(true);
  EXPECT_EQ(messages().size(), 1);
  EXPECT_FALSE(colour.isDark) << "not unasked";
}

TEST_F(AddInColoursTest, TheAnswerAdaptsThemNowAndFromThenOn) {
  const OneColour colour;
  colours.startAsking();
  setDark(true);
  ASSERT_NE(answer(), nullptr);
  answer()->click();
  EXPECT_TRUE(colour.isDark);
  EXPECT_TRUE(messages().isEmpty());
  setDark(false);
  EXPECT_FALSE(colour.isDark);
  setDark(true);
  EXPECT_TRUE(colour.isDark);
  EXPECT_TRUE(messages().isEmpty());
}

TEST_F(AddInColoursTest, TheUserIsAskedOnceOnly) {
  const OneColour colour;
  colours.startAsking();
  setDark(true);
  setDark(false);
  EXPECT_TRUE(messages().isEmpty()) << "there is no reason any more";
  setDark(true);
  EXPECT_TRUE(messages().isEmpty());
  EXPECT_TRUE(workspace.settings().values().addInColoursAsked) << "in the next run neither";
}

TEST_F(AddInColoursTest, NobodyIsAskedWithoutReason) {
  colours.startAsking();
  setDark(true);
  EXPECT_TRUE(messages().isEmpty()) << "no add-in";
  setDark(false);
  OneColour colour;
  colour.isDark = true;
  setDark(true);
  EXPECT_TRUE(messages().isEmpty()) << "colours that fit";
  EXPECT_FALSE(workspace.settings().values().addInColoursAsked);
}

TEST_F(AddInColoursTest, AnAddInThatComesLaterIsAskedAbout) {
  colours.startAsking();
  setDark(true);
  const OneColour colour;
  EXPECT_EQ(messages().size(), 1);
}

TEST_F(AddInColoursTest, NobodyIsAskedBeforeItIsTime) {
  const OneColour colour;
  setDark(true);
  EXPECT_TRUE(messages().isEmpty());
  colours.startAsking();
  EXPECT_EQ(messages().size(), 1);
}

TEST_F(AddInColoursTest, AnAddInThatComesFollowsWhenTheSettingsSaySo) {
  workspace.settings().set(&EnvironmentValues::addInColours, true);
  setDark(true);
  const OneColour colour;
  EXPECT_TRUE(colour.isDark);
  EXPECT_TRUE(messages().isEmpty());
}

TEST_F(AddInColoursTest, TheSettingAnswersTheQuestionToo) {
  const OneColour colour;
  colours.startAsking();
  setDark(true);
  workspace.settings().set(&EnvironmentValues::addInColours, true);
  EXPECT_TRUE(colour.isDark);
  EXPECT_TRUE(messages().isEmpty());
}

TEST_F(AddInColoursTest, TurnedOffInTheDarkTheyAreNotLeftForTheLight) {
  const OneColour colour;
  colours.startAsking();
  workspace.settings().set(&EnvironmentValues::addInColours, true);
  setDark(true);
  ASSERT_TRUE(colour.isDark);
  EnvironmentValues values = workspace.settings().values();
  values.addInColours = false;
  values.colours = Colours::Light;
  workspace.settings().setValues(values);
  EXPECT_FALSE(colour.isDark);
  setDark(true);
  EXPECT_FALSE(colour.isDark);
  EXPECT_TRUE(messages().isEmpty()) << "who has turned it off knows of it";
}

TEST_F(AddInColoursTest, AnAnswerThatComesWhenTheEditorEndsIsNoMatter) {
  const OneColour colour;
  std::optional<AddInColours> more(std::in_place, workspace);
  more->startAsking();
  setDark(true);
  more.reset();
  ASSERT_NE(answer(), nullptr);
  answer()->click();
  EXPECT_FALSE(follows());
}

} // namespace
} // namespace desktop
