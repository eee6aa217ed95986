// SPDX-License-Identifier: MIT
// The options dialog.
#pragma once

#include "platform/ColorFollowers.h"
#include "settings/model/QVOptionValues.h"

#include <QDialog>

class QAction;
class QTabWidget;

namespace quorvane {

// The dialog in which the user sets every option, and the owner of the options' state: its controls hold it. Creating
// the dialog loads the registry into the controls, puts an item for it into the host's Tools menu and derives the
// globals; destroying it saves the controls and takes the item out. In between the user opens it by that item as often
// as he likes: OK derives the globals anew and has every open editor follow.
//
// Cancel leaves the globals as they are, but does not turn the controls back: what was edited shows again the next
// time, and is saved in the end. That is intended. So is that the page last shown stays.
//
// The colours among them go with the host's scheme when the host asks for it: their controls change as if the user had
// chosen the colours and pressed OK, and nothing else is applied with them.
//
// The names of the controls are those of the options' table. Enter is OK wherever the focus is on the pages, and Escape
// is Cancel. The dialog has its own size, as large as fonts and style need it, and cannot be resized. Main thread only.
class TQVOptionsForm final : public QDialog, private platform::IColorFollower {
  Q_OBJECT
public:
  // What showing the dialog returns.
  enum TModalResult { mrOk = 1, mrCancel = 2 };

  // Raises EAssertionFailed, unit QVOptions, if the host has no main form, or that has no menu "ToolsMenu" or no item
  // "ToolsGalleryItem"; then nothing is saved.
  TQVOptionsForm();
  // What cannot be saved goes to TApplication::HandleException. Clears QVOptionsForm if it is this form.
  ~TQVOptionsForm() override;

  // Shows the dialog until the user closes it.
  TModalResult ShowModal();
  // Copies the controls into the globals, an empty template key becoming a blank first, and has every editor window
  // follow: line numbers, toolbar, hot key, and a paint.
  void SetGlobalVars();

  // The close button and Escape are Cancel.
  void reject() override { done(mrCancel); }
  void setVisible(bool visible) override;

protected:
  bool event(QEvent* event) override;
  // Takes Enter from the buttons and groups of the pages: it is the dialog's.
  bool eventFilter(QObject* watched, QEvent* event) override;
  void changeEvent(QEvent* event) override;

private:
  void BuildPages();
  QWidget* NewBottomPanel();
  void FormCreate();
  void FormDestroy();
  void InsertMenuItem();
  void MenuClick();
  void EditTemplatesBtnClick();
  void Apply();
  bool WouldFollow(bool dark) const override;
  void Follow(bool dark) override;
  QSize Room() const;
  void FitContents();

  QTabWidget* Pages;
  TQVOptionValues Applied;     // what the globals were derived from
  QAction* MenuItem = nullptr; // owned
};

// The one dialog, or null while the unit is not started.
extern TQVOptionsForm* QVOptionsForm;

// Start and stop of the unit: the start creates the dialog, owned by the application, and the stop frees it. A start
// that fails leaves no dialog, no menu item and no storage folder.
void StartQVOptions();
void StopQVOptions();

} // namespace quorvane
