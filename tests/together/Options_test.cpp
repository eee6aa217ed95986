// SPDX-License-Identifier: MIT
// The options dialog of the package in the real host: its place in the menus, and what OK does to the open editors.
#include "together/PackageFixture.h"

#include "support/HostPaints.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QTest>

#include <algorithm>

namespace desktop {
namespace {

class OptionsInHost : public PackageFixture {
protected:
  OptionsInHost() {
    QFile::remove(stored());
    open("begin f(x) end.\n");
    second = workspace.newWindow();
    activate(second);
    activate(window());
    loader.load(package);
    editor()->setCaret(1, 8);
    editor()->setFocus();
    support::settle();
  }
  ~OptionsInHost() override {
    loader.unloadAll();
    QFile::remove(stored());
  }

  // The registry's file.
  static QString stored() { return qEnvironmentVariable("XDG_CONFIG_HOME") + QStringLiteral("/virelle/registry.reg"); }
  static QByteArray storedBytes() {
    QFile file(stored());
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
  }

  static QMenu* toolsMenu(const QWidget* frame) {
    return qobject_cast<QMenu*>(platform::FindComponent(*frame, QStringLiteral("ToolsMenu")));
  }
  // The texts of the Tools menu of a window as the user sees them.
  QStringList tools(const TEditWindow* of) const {
    QMenu* const menu = toolsMenu(workspace.frameOf(of));
    Q_EMIT menu->aboutToShow();
    QStringList texts;
    for (const QAction* action : menu->actions())
      texts.append(action->text().remove(u'&'));
    return texts;
  }
  // Opens the dialog from the menu of the main form, clicks the boxes with these names, and then OK.
  void toggleAndOK(const QStringList& boxes) {
    const QList<QAction*> actions = toolsMenu(frame())->actions();
    const auto item = std::ranges::find(actions, QStringLiteral("Virelle Options..."), &QAction::text);
    ASSERT_NE(item, actions.end());
    const support::ModalAnswer<QDialog> answer([&](QDialog& dialog) {
      EXPECT_EQ(platform::ClassName(dialog), QStringLiteral("TQVOptionsForm"));
      for (const QString& name : boxes) {
        if (auto* const box = dialog.findChild<QAbstractButton*>(name))
          box->click();
        else
          ADD_FAILURE() << "no box " << name.toStdString();
      }
      dialog.findChild<QAbstractButton*>(QStringLiteral("btnOK"))->click();
    });
    (*item)->trigger();
    support::settle();
  }

  // Fails the test, and closes the dialog, if that is still there.
  static void expectClosed(QDialog& dialog) {
    EXPECT_FALSE(dialog.isVisible());
    dialog.close();
  }
  static bool shows(const TEditWindow* of, const char* component) {
    const auto* const control = qobject_cast<QWidget*>(platform::FindComponent(*of, QLatin1StringView(component)));
    return control != nullptr && control->isVisibleTo(of);
  }
  // Whether an action of a window has this shortcut.
  static bool hasShortcut(const TEditWindow* of, const QKeySequence& keys) {
    return std::ranges::count(of->actionList()->Actions(), keys, &QAction::shortcut) == 1;
  }

  TEditWindow* second = nullptr;
};

TEST_F(OptionsInHost, MenuItemStandsDirectlyAboveTheHostsGalleryItemInEveryWindow) {
  const QStringList expected = {QStringLiteral("Virelle Options..."), QStringLiteral("Search Path..."),
                                QStringLiteral("Environment Options...")};
  EXPECT_EQ(tools(window()), expected);
  EXPECT_EQ(tools(second), expected);
}

TEST_F(OptionsInHost, OKHidesAndShowsTheToolbarOfEveryWindowAtOnce) {
  toggleAndOK({QStringLiteral("ShowNavBarCheck")});
  EXPECT_FALSE(shows(window(), "TQVEditorToolbar"));
  EXPECT_FALSE(shows(second, "TQVEditorToolbar"));
  EXPECT_TRUE(shows(window(), "TQVLineNumbers"));
  toggleAndOK({QStringLiteral("ShowNavBarCheck")});
  EXPECT_TRUE(shows(window(), "TQVEditorToolbar"));
  EXPECT_TRUE(shows(second, "TQVEditorToolbar"));
}

TEST_F(OptionsInHost, OKHidesAndShowsTheLineNumbersOfEveryWindowAtOnce) {
  toggleAndOK({QStringLiteral("ShowLineNumbersCheck")});
  EXPECT_FALSE(shows(window(), "TQVLineNumbers"));
  EXPECT_FALSE(shows(second, "TQVLineNumbers"));
  EXPECT_TRUE(shows(window(), "TQVEditorToolbar"));
  toggleAndOK({QStringLiteral("ShowLineNumbersCheck")});
  EXPECT_TRUE(shows(window(), "TQVLineNumbers"));
  EXPECT_TRUE(shows(second, "TQVLineNumbers"));
}

TEST_F(OptionsInHost, LineNumbersOutOfTheSecondGutterHideIt) {
  toggleAndOK({QStringLiteral("SecondGutterCheck")});
  EXPECT_FALSE(shows(window(), "TQVLineNumbers"));
  EXPECT_FALSE(shows(second, "TQVLineNumbers"));
}

TEST_F(OptionsInHost, OKMovesTheLineNumbersToTheOtherSide) {
  const auto left = [this] {
    return qobject_cast<QWidget*>(platform::FindComponent(*window(), QStringLiteral("TQVLineNumbers")))->x();
  };
  ASSERT_LT(left(), editor()->x());
  toggleAndOK({QStringLiteral("LineNumbersLeftCheck")});
  EXPECT_GT(left(), editor()->x());
}

TEST_F(OptionsInHost, OKPaintsTheMarksAnewAtOnce) {
  const QImage marked = editor()->picture().copy();
  toggleAndOK({QStringLiteral("MarkParensCheck")});
  const QImage plain = editor()->picture().copy();
  EXPECT_NE(plain, marked);
  toggleAndOK({QStringLiteral("MarkParensCheck")});
  EXPECT_EQ(editor()->picture(), marked);
}

TEST_F(OptionsInHost, OKPaintsEveryOpenEditor) {
  loader.unload(package);
  const support::HostPaints first(*editor());
  const support::HostPaints other(*second->editor());
  loader.load(package);
  support::settle();
  const int firstBefore = first.count;
  const int otherBefore = other.count;
  toggleAndOK({});
  EXPECT_GT(first.count, firstBefore);
  EXPECT_GT(other.count, otherBefore);
  loader.unload(package);
}

TEST_F(OptionsInHost, OKGivesEveryWindowTheNewHotKey) {
  ASSERT_TRUE(hasShortcut(window(), QKeySequence(Qt::SHIFT | Qt::ALT | Qt::Key_0)));
  const QList<QAction*> actions = toolsMenu(frame())->actions();
  const support::ModalAnswer<QDialog> answer([](QDialog& dialog) {
    auto* const field = dialog.findChild<QWidget*>(QStringLiteral("MarkerActivateHotkey"));
    QTest::keyClick(field, Qt::Key_M, Qt::ControlModifier | Qt::AltModifier);
    QTest::keyClick(field, Qt::Key_Return);
    expectClosed(dialog);
  });
  actions.constFirst()->trigger();
  EXPECT_TRUE(hasShortcut(window(), QKeySequence(Qt::CTRL | Qt::ALT | Qt::Key_M)));
  EXPECT_FALSE(hasShortcut(window(), QKeySequence(Qt::SHIFT | Qt::ALT | Qt::Key_0)));
  EXPECT_TRUE(hasShortcut(second, QKeySequence(Qt::CTRL | Qt::ALT | Qt::Key_M)));
}

// The field knows the key by its place. In the editor a keyboard offers the digit besides the sign; off-screen there is
// no layout that could, so there the key is the digit.
TEST_F(OptionsInHost, AHotKeyTakenByTheSignOfAnotherLayoutFiresForItsDigit) {
  const support::ModalAnswer<QDialog> answer([](QDialog& dialog) {
    dialog.findChild<QWidget*>(QStringLiteral("MarkerActivationGroup"))
        ->findChildren<QAbstractButton*>()
        .at(1)
        ->click();
    auto* const field = dialog.findChild<QLineEdit*>(QStringLiteral("MarkerActivateHotkey"));
    QTest::keyClick(field, Qt::Key_M, Qt::ControlModifier);
    EXPECT_EQ(field->text(), QStringLiteral("Ctrl+M"));
    constexpr quint32 placeOfZero = 19;
    QKeyEvent german(QEvent::KeyPress, Qt::Key_Equal, Qt::ShiftModifier | Qt::AltModifier, placeOfZero, 0, 0,
                     QStringLiteral("="));
    QCoreApplication::sendEvent(field, &german);
    EXPECT_EQ(field->text(), QStringLiteral("Shift+Alt+0"));
    QTest::keyClick(field, Qt::Key_Return);
    expectClosed(dialog);
  });
  toolsMenu(frame())->actions().constFirst()->trigger();
  activate(window());
  editor()->setFocus();
  support::settle();
  const QImage unmarked = editor()->picture().copy();
  QTest::keyPress(editor(), Qt::Key_M, Qt::ControlModifier);
  support::settle();
  EXPECT_EQ(editor()->picture(), unmarked);
  QTest::keyPress(editor(), Qt::Key_0, Qt::ShiftModifier | Qt::AltModifier);
  support::settle();
  EXPECT_NE(editor()->picture(), unmarked);
}

TEST_F(OptionsInHost, EditOpensTheTemplateEditorAboveTheDialog) {
  QString opened;
  const support::ModalAnswer<QDialog> answer([&](QDialog& dialog) {
    {
      const support::ModalAnswer<QDialog> editor([&](QDialog& above) {
        opened = platform::ClassName(above);
        above.reject();
      });
      dialog.findChild<QAbstractButton*>(QStringLiteral("EditTemplatesBtn"))->click();
    }
    EXPECT_TRUE(dialog.isVisible());
    dialog.reject();
  });
  toolsMenu(frame())->actions().constFirst()->trigger();
  EXPECT_EQ(opened, QStringLiteral("TQVTemplateEditorForm"));
}

TEST_F(OptionsInHost, AWindowOpenedLaterHasTheHotKeyOfTheOptions) {
  loader.unload(package);
  ASSERT_TRUE(storedBytes().contains("\"MarkerHotKey\"=\"Shift+Alt+0\"\n"));
  QFile file(stored());
  const QByteArray changed = storedBytes().replace("\"Shift+Alt+0\"", "\"Ctrl+F12\"");
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write(changed);
  file.close();
  loader.load(package);
  TEditWindow* const third = workspace.newWindow();
  activate(third);
  EXPECT_TRUE(hasShortcut(third, QKeySequence(Qt::CTRL | Qt::Key_F12)));
}

TEST_F(OptionsInHost, WhatWasSwitchedOffStaysSoWhenThePackageIsLoadedAgain) {
  toggleAndOK({QStringLiteral("ShowNavBarCheck")});
  loader.unload(package);
  loader.load(package);
  EXPECT_FALSE(shows(window(), "TQVEditorToolbar"));
  EXPECT_TRUE(shows(window(), "TQVLineNumbers"));
}

TEST_F(OptionsInHost, LoadingAndUnloadingAHundredTimesSavesEachTimeAndLeavesNothing) {
  loader.unload(package);
  const QByteArray designed = storedBytes();
  EXPECT_TRUE(designed.contains("\"LineNumbers\"=dword:00000001\n"));
  const qsizetype windows = QApplication::topLevelWidgets().size();
  const QStringList own = {QStringLiteral("Search Path..."), QStringLiteral("Environment Options...")};
  for (int round = 0; round < 100; ++round) {
    QFile::remove(stored());
    loader.load(package);
    ASSERT_EQ(tools(window()).size(), 3) << round;
    loader.unload(package);
    ASSERT_EQ(storedBytes(), designed) << round;
    ASSERT_EQ(tools(window()), own) << round;
    ASSERT_EQ(tools(second), own) << round;
    support::settle();
    ASSERT_EQ(QApplication::topLevelWidgets().size(), windows) << round;
  }
}

} // namespace
} // namespace desktop
