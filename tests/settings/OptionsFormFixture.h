// SPDX-License-Identifier: MIT
// What the tests of the options dialog share: the real dialog in the Tools menu of a host in memory, over a registry
// file of its own, and hands that use its controls as a user does.
#pragma once

#include "settings/ColorPickerFixture.h"

#include "settings/model/QVOptions.h"
#include "settings/QVHotKey.h"
#include "settings/QVOptionsForm.h"
#include "settings/QVRadioGroup.h"
#include "support/fakes/DebugRecorder.h"
#include "support/fakes/FakeMainForm.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QDir>
#include <QFile>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTabWidget>

#include <functional>

namespace quorvane {

// Options at their defaults, nothing stored, and the unit not yet started.
class OptionsFormTest : public RegistryTest {
protected:
  OptionsFormTest() { ResetOptions(); }
  ~OptionsFormTest() override {
    if (QVOptionsForm)
      StopQVOptions();
    ResetOptions();
  }

  // How the file begins that holds the options alone.
  static inline const QByteArray kHeader = "Windows Registry Editor Version 5.00\n\n"
                                           "[HKEY_CURRENT_USER\\Software\\Vantrel\\QVIDE]\n";

  QString FilePath() const { return Folder.filePath(QStringLiteral("virelle/registry.reg")); }
  // The registry's file; empty if there is none.
  QByteArray Stored() const {
    QFile file(FilePath());
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
  }
  // Makes the file hold these values of the options' key.
  void Store(const QByteArray& values) const {
    ASSERT_TRUE(QDir(Folder.path()).mkpath(QStringLiteral("virelle")));
    QFile file(FilePath());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(kHeader + values);
  }

  // Opens the dialog by its menu item, as the user does; `act` uses it and has to close it, or the test fails.
  void Open(const std::function<void(TQVOptionsForm&)>& act) {
    QAction* const item = MainForm.ToolsItem(QStringLiteral("Virelle Options..."));
    ASSERT_NE(item, nullptr);
    const support::ModalAnswer<TQVOptionsForm> answer([&act](TQVOptionsForm& form) {
      act(form);
      if (form.isVisible()) {
        ADD_FAILURE() << "the dialog was not closed";
        form.done(TQVOptionsForm::mrCancel);
      }
    });
    item->trigger();
  }
  // The same, closing with a button.
  void OpenAnd(const char* button, const std::function<void()>& act = {}) {
    Open([&](TQVOptionsForm&) {
      if (act)
        act();
      Button(button).click();
    });
  }
  void OpenAndOK(const std::function<void()>& act = {}) { OpenAnd("btnOK", act); }
  void OpenAndCancel(const std::function<void()>& act = {}) { OpenAnd("btnCancel", act); }

  template <class TControl> static TControl& Control(const char* name) {
    auto* const control = QVOptionsForm->findChild<TControl*>(QLatin1StringView(name));
    if (control == nullptr)
      throw std::runtime_error(std::string("no control ") + name);
    return *control;
  }
  static QPushButton& Button(const char* name) { return Control<QPushButton>(name); }
  static QTabWidget& Pages() { return Control<QTabWidget>("Pages"); }

  // Hands. Each shows the page of the control first.
  static void Reach(QWidget& control) {
    for (int page = 0; page < Pages().count(); ++page) {
      if (Pages().widget(page)->isAncestorOf(&control))
        Pages().setCurrentIndex(page);
    }
  }
  // Gives a control the focus, in a radio group the checked button, and returns what has it.
  static QWidget* Focus(const char* name) {
    auto& control = Control<QWidget>(name);
    Reach(control);
    if (const auto* group = qobject_cast<const TRadioGroup*>(&control))
      group->findChildren<QAbstractButton*>().at(group->ItemIndex())->setFocus();
    else
      control.setFocus();
    return QVOptionsForm->focusWidget();
  }
  static void Toggle(const char* name) {
    auto& box = Control<QCheckBox>(name);
    Reach(box);
    QTest::keyClick(&box, Qt::Key_Space);
  }
  static void Choose(const char* name, int index) {
    auto& group = Control<TRadioGroup>(name);
    Reach(group);
    QTest::keyClick(group.findChildren<QAbstractButton*>().at(index), Qt::Key_Space);
  }
  static void Type(const char* name, const QString& text) {
    auto& edit = Control<QLineEdit>(name);
    Reach(edit);
    edit.selectAll();
    QTest::keyClick(&edit, Qt::Key_Delete);
    for (const QChar character : text) {
      QKeyEvent press(QEvent::KeyPress, 0, {}, character);
      QCoreApplication::sendEvent(&edit, &press);
    }
  }
  static void Count(const char* name, int number) {
    auto& spin = Control<QSpinBox>(name);
    Reach(spin);
    spin.selectAll();
    QTest::keyClicks(&spin, QString::number(number));
  }
  static void Press(const char* name, Qt::Key key, Qt::KeyboardModifiers modifiers) {
    auto& field = Control<THotKey>(name);
    Reach(field);
    QTest::keyClick(&field, key, modifiers);
  }
  // Picks the fixed colour with that index from the palette.
  static void Pick(const char* name, int index) {
    auto& button = Control<TColorBtn>(name);
    Reach(button);
    QTest::mouseClick(&button, Qt::LeftButton);
    ASSERT_NE(button.Palette(), nullptr);
    QTest::mouseClick(&button.Palette()->Picker().FixedBtn(index), Qt::LeftButton);
    ASSERT_TRUE(support::waitUntil([&] { return button.Palette() == nullptr; }));
  }

  fakes::FakeMainForm MainForm;
  fakes::DebugRecorder Debug;
};

} // namespace quorvane
