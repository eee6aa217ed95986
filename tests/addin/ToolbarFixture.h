// SPDX-License-Identifier: MIT
// What the tests of the navigation toolbar share: an editor window in memory with the toolbar on it.
#pragma once

#include "AddinFixture.h"
#include "analysis/QVPasInfo.h"
#include "support/PrintQt.h"
#include "support/Wait.h"
#include "toolbar/QVColumnMenu.h"
#include "toolbar/QVLocalVars.h"
#include "toolbar/QVNameCombo.h"

#include <QAction>
#include <QToolButton>

#include <memory>

namespace platform {

// Lets gtest print positions.
inline void PrintTo(const TOTAEditPos& position, std::ostream* out) {
  *out << "column " << position.Col << " of line " << position.Line;
}

} // namespace platform

namespace quorvane {

// The captions of a menu, in order.
inline QStringList Captions(const QMenu& menu) {
  QStringList captions;
  for (const QAction* action : menu.actions())
    captions.append(action->text());
  return captions;
}

// The entries of a list as "NAME LINE", in order.
inline QStringList Entries(const QComboBox& combo) {
  QStringList entries;
  for (int index = 0; index < combo.count(); ++index)
    entries.append(combo.itemText(index) + u' ' + combo.itemData(index, TQVNameModel::LineRole).toString());
  return entries;
}

// A unit with two sections, two types and three routines, the caret in one of them.
inline std::shared_ptr<TQVPasInfo> AnOutline() {
  auto info = std::make_shared<TQVPasInfo>();
  info->SetInterfaceLine(2);
  info->SetInterfaceUsesLine(4);
  info->SetImplementationLine(20);
  info->SetImplementationUsesLine(22);
  info->AddInterfaceUses("SysUtils");
  info->AddInterfaceUses("Classes");
  info->AddImplementationUses("Math");
  info->AddImplementationUses("Strings");
  info->AddClass("TBird", 7);
  info->AddClass("TAnt", 12);
  info->AddMethod("TBird.Sing", 30);
  info->AddMethod("TAnt.Walk", 40);
  info->AddMethod("Main", 50);
  info->SetCurrentClass("TAnt");
  info->SetCurrentProc("Walk");
  return info;
}

// A host with one editor window that holds the top view, of a file of 100 lines, and a toolbar on that window.
class ToolbarTest : public AddinTest {
protected:
  ToolbarTest() {
    for (int line = 0; line < 100; ++line)
      Buffer->Text += "text\r\n";
    Services->TopView = View;
    Toolbar->SetParent(&Window);
  }

  TQVNameCombo& Classes() { return *Toolbar->findChild<TQVNameCombo*>(QStringLiteral("Classes")); }
  TQVNameCombo& Methods() { return *Toolbar->findChild<TQVNameCombo*>(QStringLiteral("Methods")); }
  QToolButton& SectionsButton() { return *Toolbar->findChild<QToolButton*>(QStringLiteral("Sections")); }
  QToolButton& UnitsButton() { return *Toolbar->findChild<QToolButton*>(QStringLiteral("UsedUnits")); }
  TQVColumnMenu& SectionsMenu() { return *qobject_cast<TQVColumnMenu*>(SectionsButton().menu()); }
  TQVColumnMenu& UnitsMenu() { return *qobject_cast<TQVColumnMenu*>(UnitsButton().menu()); }

  QAction& Item(QMenu& menu, const char* caption) {
    const QString wanted = QString::fromLatin1(caption);
    for (QAction* action : menu.actions()) {
      if (action->text() == wanted)
        return *action;
    }
    throw std::runtime_error(std::string("no item ") + caption);
  }

  // Puts the window on the screen, with the keyboard in the edit control.
  void Show() {
    Window.resize(800, 300);
    Toolbar->setGeometry(0, 0, 800, Toolbar->sizeHint().height());
    Editor().setGeometry(0, 100, 800, 200);
    Toolbar->show();
    Window.show();
    Window.activateWindow();
    Editor().setFocus();
    ASSERT_TRUE(support::waitUntil([this] { return Window.isActiveWindow() && Editor().hasFocus(); }));
  }
  void Focus(QWidget& widget) {
    widget.setFocus();
    ASSERT_TRUE(support::waitUntil([&] { return widget.hasFocus(); }));
  }

  fakes::FakeEditControl& Editor() { return Window.Editor(); }

  fakes::TEditWindow Window;
  std::shared_ptr<fakes::FakeBuffer> Buffer = std::make_shared<fakes::FakeBuffer>(QStringLiteral("/home/me/unit1.pas"));
  std::shared_ptr<fakes::FakeView> View = std::make_shared<fakes::FakeView>(Buffer, &Window);
  TQVEditorToolbar* Toolbar = new TQVEditorToolbar(&Window);
};

} // namespace quorvane
