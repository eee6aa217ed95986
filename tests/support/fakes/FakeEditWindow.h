// SPDX-License-Identifier: MIT
// An editor window as a host's screen lists it.
#pragma once

#include "platform/Actions.h"
#include "support/fakes/FakeEditControl.h"

#include <QPointer>
#include <QWidget>

namespace fakes {

// A form with the control "Editor" and the list "ActionList1", listed by the screen while it lives. Its class and its
// name are what add-ins know an editor window by.
class TEditWindow : public QWidget {
  Q_OBJECT
public:
  explicit TEditWindow(const QString& name = QStringLiteral("EditWindow_0"));
  ~TEditWindow() override;

  bool HasEditor() const { return !editor_.isNull(); }
  FakeEditControl& Editor() const { return *editor_; }
  platform::TActionList& Actions() const { return *actions_; }
  // Tells the hooks that the window has become active.
  void Activate();
  // Destroys one part, as no host should.
  void DropEditor() { delete editor_; }
  void DropActions() { delete actions_; }

private:
  QPointer<FakeEditControl> editor_;
  QPointer<platform::TActionList> actions_;
};

// A form of the screen that is no editor window by its class.
class TOtherForm : public QWidget {
  Q_OBJECT
public:
  explicit TOtherForm(const QString& name);
  ~TOtherForm() override;
};

} // namespace fakes
