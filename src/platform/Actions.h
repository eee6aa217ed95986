// SPDX-License-Identifier: MIT
// Actions, action lists and shortcuts.
#pragma once

#include "platform/Export.h"

#include <QAction>
#include <QKeySequence>
#include <QList>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QWidget>

#include <cstdint>
#include <functional>

namespace platform {

// A shortcut: a virtual key code in the low byte, with the modifiers below. 0 is no shortcut.
using TShortCut = std::uint16_t;

inline constexpr TShortCut scShift = 0x2000;
inline constexpr TShortCut scCtrl = 0x4000;
inline constexpr TShortCut scAlt = 0x8000;

// The virtual key code of a Qt key (A-Z, 0-9, F1-F24, the editing and cursor keys), or 0 for a key that has none.
VIRELLE_PLATFORM std::uint8_t VirtualKey(int qtKey);
// The Qt key of a virtual key code, or 0.
VIRELLE_PLATFORM int QtKey(std::uint8_t virtualKey);
// The key sequence that fires `shortCut`; empty for 0 or an unknown key.
VIRELLE_PLATFORM QKeySequence ToKeySequence(TShortCut shortCut);

// An action of an add-in. When it fires, OnExecute is called; what that throws goes to TApplication::HandleException.
class VIRELLE_PLATFORM TAction : public QAction {
public:
  explicit TAction(QObject* owner);
  ~TAction() override;

  std::function<void()> OnExecute;

  // The menu in which the host shows the action, with its shortcut, while it is in the list "ActionList1" of an editor
  // window: "Search", or empty for none. The action may fire while the window has no page. Set it, and the text, before
  // the action is added.
  QString Category;

  // 0 takes the shortcut away.
  void SetShortCut(TShortCut shortCut);
  TShortCut ShortCut() const { return shortCut_; }

private:
  TShortCut shortCut_ = 0;
};

// A named list of actions that belongs to a form: the shortcuts of its actions fire while the focus is in that form. It
// does not own the actions; one that is destroyed leaves the list.
//
// Shortcuts are Qt's, but for one kind: where it takes Shift to type a digit, as on French keyboards, Qt sees in
// Shift+Alt+0 an Alt+0 only. Such a press fires the TAction with Shift in its shortcut, if Qt has not used it up.
class VIRELLE_PLATFORM TActionList : public QObject {
public:
  // A list named `name` owned by `form`, which serves the shortcuts.
  TActionList(QWidget* form, const QString& name);
  ~TActionList() override;

  void Add(QAction* action);
  void Remove(QAction* action);
  // The actions in the order they were added.
  QList<QAction*> Actions() const;
  // The action whose object name is `name`, or null.
  QAction* Find(const QString& name) const;

protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  bool Fire(TShortCut shortCut) const;

  QPointer<QWidget> form_;
  QList<QPointer<QAction>> actions_;
};

} // namespace platform
