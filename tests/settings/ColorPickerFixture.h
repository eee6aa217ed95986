// SPDX-License-Identifier: MIT
// What the tests of the colour picker share: a window with a colour button, and a registry of their own.
#pragma once

#include "platform/Application.h"
#include "platform/Registry.h"
#include "settings/QVColorPicker.h"
#include "settings/QVColorPickerCell.h"
#include "settings/QVColorPickerColors.h"
#include "settings/QVColorPickerDlg.h"
#include "settings/QVColorPickerPanel.h"
#include "support/EnvironmentVariable.h"
#include "support/ModalAnswer.h"
#include "support/PrintQt.h"
#include "support/Wait.h"

#include <gtest/gtest.h>

#include <QColorDialog>
#include <QFile>
#include <QPointer>
#include <QTemporaryDir>
#include <QTest>

#include <string>
#include <utility>
#include <vector>

namespace quorvane {

// An empty registry, in a folder of its own, while it lives. What add-ins leave to the application's exception handling
// fails the test, unless the test takes it.
class RegistryTest : public testing::Test {
protected:
  RegistryTest() : configHome_("XDG_CONFIG_HOME", QFile::encodeName(Folder.path())) {
    UserColors.fill(platform::clWhite);
    platform::Application().SetReporter(
        [this](const QString& message, int) { reported_.push_back(message.toStdString()); });
  }
  ~RegistryTest() override {
    EXPECT_EQ(TakeReported(), std::vector<std::string>{});
    platform::Application().SetReporter(nullptr);
  }

  // The messages of the exceptions since the start or the last call.
  std::vector<std::string> TakeReported() {
    platform::Application().ReportPending();
    return std::exchange(reported_, {});
  }
  // Writes a text below "SoftWare" and `key`.
  static void WriteText(const std::string& key, const std::string& name, const std::string& text) {
    platform::TRegistry registry;
    registry.OpenKey("SoftWare\\" + key, true);
    registry.WriteString(name, text);
    registry.CloseKey();
  }
  // The text of a value below "SoftWare" and `key`, "-" if there is none.
  static std::string ReadText(const std::string& key, const std::string& name) {
    platform::TRegistry registry;
    if (!registry.OpenKey("SoftWare\\" + key, false) || !registry.ValueExists(name))
      return "-";
    return registry.ReadString(name);
  }

  QTemporaryDir Folder;

private:
  support::EnvironmentVariable configHome_;
  std::vector<std::string> reported_;
};

// A window with a colour button and another widget that takes the focus.
class ColorPickerTest : public RegistryTest {
protected:
  static constexpr platform::TColor kRed = 0x0000FF;
  static constexpr platform::TColor kUncommon = 0x123456; // neither fixed nor, at first, the user's

  ColorPickerTest() {
    Window.setGeometry(100, 100, 300, 200);
    Button.setGeometry(20, 20, 44, 24);
    Button.OnClick = [this] { ++Clicks; };
    Button.SetActiveColor(kRed);
  }

  void Show() {
    Window.show();
    Window.activateWindow();
    Button.setFocus();
    ASSERT_TRUE(support::waitUntil([this] { return Window.isActiveWindow() && Button.hasFocus(); }));
  }
  // Opens the palette with a click and waits until it is active.
  void Open() {
    if (!Window.isVisible())
      Show();
    QTest::mouseClick(&Button, Qt::LeftButton);
    ASSERT_NE(Button.Palette(), nullptr);
    Dialog = Button.Palette();
    ASSERT_TRUE(support::waitUntil([this] { return Dialog->isActiveWindow() && Picker().FocusCell().hasFocus(); }));
  }
  TColorPicker& Picker() { return Dialog->Picker(); }
  // Types a key where the focus is.
  void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(QApplication::focusWidget(), key, modifiers);
  }
  // Whether the palette is closed and freed.
  bool IsGone() {
    support::settle();
    return !Dialog;
  }
  // The cells that are pressed.
  std::vector<TColBtn*> Pressed() {
    std::vector<TColBtn*> pressed;
    for (TColBtn* cell : Picker().findChildren<TColBtn*>()) {
      if (cell->Down())
        pressed.push_back(cell);
    }
    return pressed;
  }

  QWidget Window;
  TColorBtn Button{&Window};
  QPointer<TColPickDlg> Dialog;
  int Clicks = 0;
};

} // namespace quorvane
