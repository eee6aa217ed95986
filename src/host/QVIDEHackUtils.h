// SPDX-License-Identifier: MIT
// Finding the host's editor windows and what is on top in them.
//
// The host's classes are unknown to the add-in, so an editor window is recognised by names alone: the class name of the
// form, the prefix of the form's name, and the names of the components on it. Main thread only.
#pragma once

#include "platform/Application.h"
#include "platform/ota/Editor.h"
#include "platform/ota/Module.h"

#include <QObject>
#include <QString>
#include <QWidget>

#include <memory>

namespace quorvane {

// The names that make up the contract with the host's editor window.
inline const QString EditorFormClassName = QStringLiteral("TEditWindow");
inline const QString EditControlName = QStringLiteral("Editor");
inline const QString EditorActionListName = QStringLiteral("ActionList1");

// Whether `form` is an editor window: its class is named exactly "TEditWindow", and its own name begins with
// "EditWindow_". A form of that class with another name is none.
bool IsEditorForm(const QWidget& form);

// Calls `act` with each editor window, in the order of the screen's forms. `act` may free what is on the window.
template <class TAct> void ForEachEditorForm(TAct&& act) {
  for (QWidget* form : platform::Screen().Forms()) {
    if (IsEditorForm(*form))
      act(*form);
  }
}

// The form that shows `view`, or null when it is in no window or the window has no form.
QWidget* FormOf(platform::IOTAEditView& view);

// The first editor window in the order of the screen's forms. Assertion failure when there is none.
QWidget* GetEditorForm();

// The edit control of that window, owned by the window. Assertion failure when the window or its control is missing.
QObject* GetEditControl();

// The view on top, or null when there is none.
std::shared_ptr<platform::IOTAEditView> GetTopView();

// The first form editor among the files of the current module, or null when there is no module or no such file.
std::shared_ptr<platform::IOTAFormEditor> GetActiveFormEditor();

// The form designer of that form editor, or null.
std::shared_ptr<platform::IFormDesigner> GetActiveFormDesigner();

} // namespace quorvane
