// SPDX-License-Identifier: MIT
#include "desktop/ui/EnvironmentDialog.h"

#include "desktop/files/EnvironmentSettings.h"
#include "desktop/ui/Appearance.h"
#include "desktop/ui/SearchPathDialog.h"
#include "desktop/ui/UiFixture.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QFontDatabase>
#include <QFontInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>
#include <QSpinBox>
#include <QTreeWidget>

namespace desktop {
namespace {

class EnvironmentDialogTest : public UiFixture {
protected:
  template <class TControl> static TControl& control(const QDialog& dialog, const char* name) {
    return *dialog.findChild<TControl*>(QString::fromLatin1(name));
  }
  static void choose(QComboBox& choice, const QVariant& data) { choice.setCurrentIndex(choice.findData(data)); }
  // Changes everything there is.
  static void fill(const EnvironmentDialog& dialog) {
    auto& families = control<QComboBox>(dialog, "FontFamily");
    families.setCurrentIndex(families.count() - 1);
    control<QSpinBox>(dialog, "FontPoints").setValue(14);
    control<QSpinBox>(dialog, "TabWidth").setValue(3);
    choose(control<QComboBox>(dialog, "Colours"), static_cast<int>(Colours::Dark));
    control<QCheckBox>(dialog, "AddInColours").setChecked(true);
    control<QCheckBox>(dialog, "BracketPairs").setChecked(true);
    control<QCheckBox>(dialog, "TrimTrailingBlanks").setChecked(true);
    control<QSpinBox>(dialog, "RecoverySeconds").setValue(2);
  }
  // What fill() makes of the defaults.
  static EnvironmentValues filled() {
    EnvironmentValues values;
    values.fontPoints = 14;
    values.tabWidth = 3;
    values.colours = Colours::Dark;
    values.addInColours = true;
    values.bracketPairs = true;
    values.trimTrailingBlanks = true;
    values.recoverySeconds = 2;
    return values;
  }
  // The dialog over the settings of the workspace, not shown.
  std::unique_ptr<EnvironmentDialog> make(const EnvironmentValues& values = {}) const {
    return std::make_unique<EnvironmentDialog>(values, QList<SearchFolder>(), workspace.appearance());
  }
  // Chooses the command; `act` uses the dialog, which is then closed by the button `button`.
  void run(const QString& button, const std::function<void(EnvironmentDialog&)>& act) {
    const support::ModalAnswer<EnvironmentDialog> answer([&](EnvironmentDialog& dialog) {
      act(dialog);
      support::clickButton(dialog, button);
    });
    action(QStringLiteral("ToolsEnvironmentCommand"))->trigger();
  }
};

TEST_F(EnvironmentDialogTest, GivesTheValuesBackAsTheyWere) {
  EnvironmentValues values = filled();
  values.showBlanks = true;
  values.zoomPoints = 3;
  EXPECT_EQ(make(values)->values(), values);
  EXPECT_EQ(make()->values(), EnvironmentValues());
}

TEST_F(EnvironmentDialogTest, EveryControlChangesItsValue) {
  const auto dialog = make();
  fill(*dialog);
  EnvironmentValues values = filled();
  values.fontFamily = control<QComboBox>(*dialog, "FontFamily").currentText();
  EXPECT_NE(values.fontFamily, QString());
  EXPECT_EQ(dialog->values(), values);
}

TEST_F(EnvironmentDialogTest, NumbersStayInTheirLimits) {
  const auto dialog = make();
  for (const auto& [name, limits] :
       {std::pair("FontPoints", environmentLimits.fontPoints), std::pair("TabWidth", environmentLimits.tabWidth),
        std::pair("RecoverySeconds", environmentLimits.recoverySeconds)}) {
    EXPECT_EQ(control<QSpinBox>(*dialog, name).minimum(), limits.first) << name;
    EXPECT_EQ(control<QSpinBox>(*dialog, name).maximum(), limits.last) << name;
  }
}

TEST_F(EnvironmentDialogTest, OnlyMonospacedFontsAreOffered) {
  const auto dialog = make();
  const auto& families = control<QComboBox>(*dialog, "FontFamily");
  ASSERT_GT(families.count(), 1);
  EXPECT_EQ(families.itemText(0), QStringLiteral("Usual (%1)").arg(Appearance::usualFamily()));
  for (int row = 1; row < families.count(); ++row) {
    const QFontMetricsF metrics{QFont(families.itemText(row))};
    EXPECT_EQ(metrics.horizontalAdvance(u'i'), metrics.horizontalAdvance(u'W')) << families.itemText(row).toStdString();
  }
}

TEST_F(EnvironmentDialogTest, AFontThatIsNotInstalledIsNamedAndKept) {
  EnvironmentValues values;
  values.fontFamily = QStringLiteral("No Such Font");
  const auto dialog = make(values);
  EXPECT_EQ(control<QComboBox>(*dialog, "FontFamily").currentText(), QStringLiteral("No Such Font (not installed)"));
  EXPECT_EQ(dialog->values(), values);
  workspace.settings().setValues(values);
  EXPECT_EQ(editor()->editorFontFamily(), Appearance::usualFamily());
}

TEST_F(EnvironmentDialogTest, ThePreviewShowsWhatIsChosen) {
  const auto dialog = make();
  const auto& preview = control<TEditControl>(*dialog, "Preview");
  EXPECT_EQ(preview.colorScheme(), lightScheme());
  EXPECT_EQ(preview.editorFontFamily(), Appearance::usualFamily());
  fill(*dialog);
  EXPECT_EQ(preview.colorScheme(), darkScheme());
  EXPECT_EQ(preview.editorFontFamily(), control<QComboBox>(*dialog, "FontFamily").currentText());
  EXPECT_EQ(preview.editorFontPoints(), 14);
  EXPECT_EQ(preview.tabWidth(), 3);
  EXPECT_EQ(editor()->colorScheme(), lightScheme()) << "the windows wait for OK";
}

TEST_F(EnvironmentDialogTest, DefaultsAreShownWithoutBeingAccepted) {
  const auto dialog = make(filled());
  support::clickButton(*dialog, QStringLiteral("Restore Defaults"));
  EXPECT_EQ(dialog->values(), EnvironmentValues());
  EXPECT_EQ(dialog->result(), 0);
}

TEST_F(EnvironmentDialogTest, AnotherSizeOfTheFontIsTheSizeThatIsSeen) {
  EnvironmentValues values;
  values.zoomPoints = 4;
  const auto dialog = make(values);
  EXPECT_EQ(dialog->values().zoomPoints, 4);
  control<QSpinBox>(*dialog, "FontPoints").setValue(11);
  EXPECT_EQ(dialog->values().zoomPoints, 0);
}

TEST_F(EnvironmentDialogTest, OKChangesAllWindowsAtOnceAndIsKept) {
  workspace.settings().open(path(QStringLiteral("environment.json")));
  const TEditWindow* const other = workspace.newWindow();
  run(QStringLiteral("OK"), fill);
  for (const TEditWindow* each : {const_cast<const TEditWindow*>(window()), other}) {
    EXPECT_EQ(each->editor()->editorFontPoints(), 14);
    EXPECT_EQ(each->editor()->tabWidth(), 3);
    EXPECT_EQ(each->editor()->colorScheme(), darkScheme());
  }
  const QJsonObject kept = QJsonDocument::fromJson(read(QStringLiteral("environment.json"))).object();
  EXPECT_EQ(kept[QStringLiteral("tabWidth")].toInt(), 3);
  EXPECT_EQ(kept[QStringLiteral("recoverySeconds")].toInt(), 2);
  EXPECT_TRUE(messages().isEmpty());
}

TEST_F(EnvironmentDialogTest, CancelChangesNothing) {
  workspace.settings().open(path(QStringLiteral("environment.json")));
  workspace.searchPath().setFolders({{path(QStringLiteral("a")), false}});
  run(QStringLiteral("Cancel"), [](EnvironmentDialog& dialog) {
    fill(dialog);
    const support::ModalAnswer<SearchPathDialog> answer([](SearchPathDialog& paths) {
      paths.findChild<QTreeWidget*>()->topLevelItem(0)->setCheckState(1, Qt::Checked);
      support::clickButton(paths, QStringLiteral("OK"));
    });
    control<QAbstractButton>(dialog, "EditSearchPath").click();
    EXPECT_TRUE(dialog.folders().constFirst().withSubfolders);
  });
  EXPECT_EQ(workspace.settings().values(), EnvironmentValues());
  EXPECT_EQ(editor()->colorScheme(), lightScheme());
  EXPECT_FALSE(workspace.searchPath().folders().constFirst().withSubfolders);
  EXPECT_FALSE(QFile::exists(path(QStringLiteral("environment.json"))));
}

TEST_F(EnvironmentDialogTest, OKTakesTheSearchPathToo) {
  workspace.searchPath().setFolders({{path(QStringLiteral("a")), false}});
  run(QStringLiteral("OK"), [](EnvironmentDialog& dialog) {
    EXPECT_EQ(control<QLabel>(dialog, "FolderCount").text(), QStringLiteral("one folder"));
    const support::ModalAnswer<SearchPathDialog> answer([](SearchPathDialog& paths) {
      delete paths.findChild<QTreeWidget*>()->topLevelItem(0);
      support::clickButton(paths, QStringLiteral("OK"));
    });
    control<QAbstractButton>(dialog, "EditSearchPath").click();
    EXPECT_EQ(control<QLabel>(dialog, "FolderCount").text(), QStringLiteral("no folder"));
  });
  EXPECT_TRUE(workspace.searchPath().folders().isEmpty());
}

TEST_F(EnvironmentDialogTest, WhatCannotBeKeptIsToldAndHoldsForThisRun) {
  write(QStringLiteral("folder"), "a file in the way");
  workspace.settings().open(path(QStringLiteral("folder/environment.json")));
  run(QStringLiteral("OK"), fill);
  ASSERT_EQ(messages().size(), 1);
  EXPECT_TRUE(messages().constFirst().startsWith(QStringLiteral("The settings could not be kept in ")));
  EXPECT_EQ(editor()->tabWidth(), 3);
}

TEST_F(EnvironmentDialogTest, FitsOnASmallScreen) {
  const auto dialog = make();
  dialog->ensurePolished();
  const QSize size = dialog->sizeHint();
  EXPECT_LE(size.width(), 780);
  EXPECT_LE(size.height(), 560) << "title bar and panel take the rest of 600";
}

TEST_F(EnvironmentDialogTest, EveryControlIsReachedByTabAndHasANameAndAKeyOfItsOwn) {
  const auto dialog = make();
  QSet<QChar> keys;
  for (const char* name : {"FontFamily", "FontPoints", "TabWidth", "Colours", "AddInColours", "BracketPairs",
                           "TrimTrailingBlanks", "RecoverySeconds", "EditSearchPath"}) {
    QWidget* const each = dialog->findChild<QWidget*>(QString::fromLatin1(name));
    ASSERT_NE(each, nullptr) << name;
    EXPECT_TRUE(each->focusPolicy() & Qt::TabFocus) << name;
    QString text;
    if (const auto* const button = qobject_cast<QAbstractButton*>(each))
      text = button->text();
    for (const QLabel* label : dialog->findChildren<QLabel*>())
      text = label->buddy() == each ? label->text() : text;
    const qsizetype mark = text.indexOf(u'&');
    ASSERT_GE(mark, 0) << name;
    EXPECT_FALSE(keys.contains(text[mark + 1].toLower())) << name;
    keys.insert(text[mark + 1].toLower());
  }
  EXPECT_EQ(dialog->findChild<QWidget*>(QStringLiteral("Preview"))->focusPolicy(), Qt::NoFocus);
}

TEST_F(EnvironmentDialogTest, TabGoesThroughTheControlsInTheOrderInWhichTheyStand) {
  const auto dialog = make();
  dialog->show();
  QStringList order;
  const QWidget* each = dialog->findChild<QWidget*>(QStringLiteral("FontFamily"));
  for (int step = 0; step < 60; ++step, each = each->nextInFocusChain()) {
    if ((each->focusPolicy() & Qt::TabFocus) && !each->objectName().startsWith(QStringLiteral("qt_")) &&
        !order.contains(each->objectName()) && !each->objectName().isEmpty())
      order.append(each->objectName());
  }
  EXPECT_EQ(order.mid(0, 9),
            (QStringList{QStringLiteral("FontFamily"), QStringLiteral("FontPoints"), QStringLiteral("TabWidth"),
                         QStringLiteral("Colours"), QStringLiteral("AddInColours"), QStringLiteral("BracketPairs"),
                         QStringLiteral("TrimTrailingBlanks"), QStringLiteral("RecoverySeconds"),
                         QStringLiteral("EditSearchPath")}));
}

} // namespace
} // namespace desktop
