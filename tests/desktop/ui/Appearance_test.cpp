// SPDX-License-Identifier: MIT
#include "desktop/ui/Appearance.h"

#include "desktop/files/EnvironmentSettings.h"
#include "desktop/ui/UiFixture.h"

#include <QApplication>

namespace desktop {
namespace {

class AppearanceTest : public UiFixture {
protected:
  ~AppearanceTest() override { QApplication::setPalette(QPalette()); }

  EnvironmentSettings& settings() const { return workspace.settings(); }
  Appearance& appearance() const { return workspace.appearance(); }
};

TEST_F(AppearanceTest, WhatTheViewMenuChangesIsThereInTheNextRun) {
  const QString file = path(QStringLiteral("environment.json"));
  settings().open(file);
  for (const char* name : {"ViewBlanksCommand", "ViewRightMarginCommand", "ViewDarkCommand", "ViewLargerTextCommand"})
    action(QString::fromLatin1(name))->trigger();
  EXPECT_EQ(settings().save(), QString());
  Workspace next;
  EXPECT_EQ(next.settings().open(file), QString());
  const TEditControl& editor = *next.topWindow()->editor();
  EXPECT_TRUE(editor.showsBlanks());
  EXPECT_EQ(editor.rightMargin(), 80);
  EXPECT_EQ(editor.colorScheme(), darkScheme());
  EXPECT_EQ(editor.editorFontPoints(), 11);
  next.appearance().resetFontPoints();
  EXPECT_EQ(editor.editorFontPoints(), 10);
}

TEST_F(AppearanceTest, TheMenusShowWhatTheSettingsSay) {
  EnvironmentValues values;
  values.showBlanks = true;
  values.colours = Colours::Desktop;
  settings().setValues(values);
  EXPECT_TRUE(action(QStringLiteral("ViewBlanksCommand"))->isChecked());
  EXPECT_TRUE(action(QStringLiteral("ViewDesktopColoursCommand"))->isChecked());
}

TEST_F(AppearanceTest, ZoomNeverLeavesTheLimitsOfTheSize) {
  EnvironmentValues values;
  values.fontPoints = 72;
  values.zoomPoints = 60;
  settings().setValues(values);
  EXPECT_EQ(editor()->editorFontPoints(), 72);
  appearance().setFontPoints(1);
  EXPECT_EQ(editor()->editorFontPoints(), 6);
}

// Styles frame them darker than the window, which cannot be seen on a dark one.
TEST_F(AppearanceTest, FieldsAndEmptyBoxesStandOffADarkWindow) {
  constexpr int apart = 14; // of 255
  appearance().setColours(Colours::Dark);
  const QPalette palette = QApplication::palette();
  EXPECT_GE(palette.color(QPalette::Base).lightness(), palette.color(QPalette::Window).lightness() + apart);
}

TEST_F(AppearanceTest, AColouringOfTheDesktopThatChangesIsFollowed) {
  frame()->show();
  appearance().setColours(Colours::Desktop);
  EXPECT_EQ(editor()->colorScheme(), lightScheme());
  QApplication::setPalette(QPalette(QColor(50, 50, 50), QColor(40, 40, 40)));
  EXPECT_TRUE(support::waitUntil([this] { return editor()->colorScheme() == darkScheme(); }));
}

TEST_F(AppearanceTest, ChosenColoursStayWhenTheDesktopChangesIts) {
  frame()->show();
  QApplication::setPalette(QPalette(QColor(50, 50, 50), QColor(40, 40, 40)));
  EXPECT_TRUE(support::waitUntil([this] { return frame()->palette().color(QPalette::Window).lightness() > 128; }))
      << "a light text does not stand in a dark window";
  EXPECT_EQ(editor()->colorScheme(), lightScheme());
}

} // namespace
} // namespace desktop
