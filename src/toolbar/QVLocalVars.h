// SPDX-License-Identifier: MIT
// The navigation toolbar: the outline of the unit above its text.
#pragma once

#include "analysis/QVPasInfo.h"
#include "platform/Actions.h"
#include "platform/ota/Editor.h"
#include "platform/UnitFinder.h"

#include <QString>
#include <QToolBar>

#include <memory>
#include <string>
#include <vector>

class QAction;
class QToolButton;

namespace quorvane {

class TQVColumnMenu;
class TQVNameCombo;

// Shows the outline of the unit in one editor window: a list of its types, a list of its routines, a menu of its
// sections and a menu of the units it uses. Choosing a type, a routine or a section puts the caret on its line and that
// line at the top of the view; choosing a unit opens its file.
//
// A toolbar is a component of its editor form, named like its class, and lives and dies with the form; a form has at
// most one. Whoever creates it places it with SetParent. The proxy of the window brings every new outline by
// UpdateViewToolBar, also those that tell nothing new, so a refresh touches only what differs. What the user is busy
// with stays as it is: a list that has the keyboard focus (its drop-down included) until it loses it, an open menu
// until it closes.
//
// Two actions in the action list of the form, for the host's menu "Search", open the lists. They are enabled while the
// toolbar is shown. Escape in a list goes back to the text.
//
// Lines count from 0 here, and a negative line is that of an element which is not there. A broken contract is an
// EAssertionFailed that names the unit QVLocalVars. Main thread only.
class TQVEditorToolbar final : public QToolBar {
  Q_OBJECT
public:
  // A toolbar without its controls, owned by `owner`.
  explicit TQVEditorToolbar(QWidget* owner);
  ~TQVEditorToolbar() override;

  // Puts the toolbar into `parent`. The first time, its controls are placed on it.
  void SetParent(QWidget* parent);

  // The lists; a name is appended with its line.
  void AddClass(const QString& name, int line);
  void AddMethod(const QString& name, int line);
  void ClearClasses();
  void ClearMethods();
  // The texts of the lists, and the entries of these names as those that the lists open at.
  void SetCurrentClass(const QString& name);
  void SetCurrentProc(const QString& name);

  // Shows an outline. The list of routines opens at the routine of the caret, which the text names without its class. A
  // list that has the focus follows the lines alone, and only while its names are still those of the outline, so that
  // what is chosen in it is found. The menus follow only when one of the section lines is another than in the outline
  // before: a change in the uses clauses alone shows in them when a section has moved. Intended.
  void UpdateToolBar(const IQVPasInfo& info);
  // Fills the sections menu. Does nothing when interface and implementation line are those of the last time; at first
  // both are 0.
  void BuildMenus(int interfaceLine, int implementationLine, int implementationUsesLine, int interfaceUsesLine);
  // Fills the units menu, the two clauses side by side.
  void BuildUnitsMenu(const std::vector<std::string>& interfaceUses,
                      const std::vector<std::string>& implementationUses);

  // Goes to the entry that the text of the list `sender` names, and nowhere if there is none. Every change of the text
  // comes here, so typing goes to a name as soon as it is complete, although a longer one may begin with it; what is
  // typed on goes into the text. Intended.
  void ComboGotoLine(QObject* sender);
  // Goes to the line that the menu item `sender` carries.
  void GotoSectionClick(QObject* sender);
  // These bring the caret into view with the least scrolling, and do nothing without a view.
  void GotoTopOfFile(QObject* sender);
  void GotoBottomOfFile(QObject* sender);
  // Opens the file of the unit that the menu item `sender` names: beside the current file or on the host's search path.
  // A unit that is not found is reported to the user.
  void OpenUnit(QObject* sender);

protected:
  bool event(QEvent* event) override;
  // Flat: the ground of the window and an edge below.
  void paintEvent(QPaintEvent* event) override;

private:
  using THandler = void (TQVEditorToolbar::*)(QObject* sender);

  TQVNameCombo* NewCombo(const QString& name, int width, const QString& hint);
  QToolButton* NewMenuButton(const QString& name, TQVColumnMenu* menu, const QString& hint);
  void AddOpener(TQVNameCombo* combo, const QString& text, platform::TShortCut shortCut);
  // A menu of the toolbar and how it is filled.
  struct TFilledMenu {
    TQVColumnMenu* Menu;
    void (TQVEditorToolbar::*Fill)();
    bool IsWaiting = false; // until it has closed
  };

  // Fills the menu at once or, while it is open, when it has closed.
  void FillWhenClosed(TFilledMenu& menu);
  void FillSectionsMenu();
  void FillUnitsMenu();
  QAction* AddItem(TQVColumnMenu* menu, const QString& caption, THandler handler);

  TQVNameCombo* FMethodsCombo;
  TQVNameCombo* FClassesCombo;
  TFilledMenu FSectionsMenu;
  TFilledMenu FUnitsMenu;
  QToolButton* FSectionsButton;
  QToolButton* FUnitsButton;
  std::vector<platform::TAction*> FOpeners; // of the lists

  // What the menus show, or will show when they have closed.
  int FInterfaceLine = 0;
  int FInterfaceUsesLine = 0;
  int FImplementationLine = 0;
  int FImplementationUsesLine = 0;
  std::vector<std::string> FInterfaceUses;
  std::vector<std::string> FImplementationUses;

  platform::TUnitFinder FUnitFinder;
};

// The toolbar of the editor form that shows `view`, which must not be null; null when there is no form or no toolbar.
TQVEditorToolbar* GetEditorToolbar(const std::shared_ptr<platform::IOTAEditView>& view);
// The toolbar of the form that owns `control`, which must not be null; null when there is none.
TQVEditorToolbar* GetEditorToolbar(const QObject* control);
// The toolbar of the editor form `form`, or null.
TQVEditorToolbar* ToolbarOn(const QObject& form);
// Shows `info` in the toolbar of the view's form, if there is one.
void UpdateViewToolBar(const std::shared_ptr<platform::IOTAEditView>& view, const std::shared_ptr<IQVPasInfo>& info);

// Show the toolbars of all editor windows if OptShowNavBar is set, and hide them if it is not; the wrong one of the two
// does nothing.
void ShowNavBars();
void HideNavBars();

} // namespace quorvane
