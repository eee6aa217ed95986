// SPDX-License-Identifier: MIT
// The template editor, which is also the store of templates that the running program asks.
#pragma once

#include "editor/QVTemplateSource.h"
#include "platform/ota/Editor.h"

#include <QDialog>
#include <QString>

#include <memory>

class QAction;
class QPlainTextEdit;
class QToolButton;

namespace quorvane {

class TQVTemplateList;

// The dialog in which the user edits code templates, and the templates themselves: whoever expands a name asks this
// form, shown or not. It works on one file, templates.ini, whose place and format settings/model/QVTemplateStore.h has.
//
// The file's place is settled when the form is created: by the value "StorageDir" of the options' registry key, which
// the form reads itself, or else by the program directory. Every change is in the file at once. What other programs
// change there is seen when the dialog is shown the next time.
//
// The dialog shows the names on the left and on the right the text of one of them, the current template. Before it
// shows another one, and when it is closed by OK, it asks whether to save what was typed; Cancel, Escape and the close
// button discard it. Some of what it does may surprise, and is intended:
//
// - A new template under a name that exists empties that one.
// - After deleting, the text of the deleted template counts as typed: the dialog asks whether to save it, and Yes
//   brings the template back, though the list shows it only when it is loaded again.
// - Renaming copies: the template stays under its old name too, which remains the current one. A third template that
//   has the new name gets the text unasked.
// - The current template is kept from one showing to the next, while the text begins empty. So the first choice, or OK,
//   asks whether to save the empty text, unless the template has none.
//
// A write that fails is told; then the dialog goes on with the text that was typed. Main thread only.
class TQVTemplateEditorForm final : public QDialog, public IQVTemplateSource {
  Q_OBJECT
public:
  // What showing the dialog returns.
  enum TModalResult { mrOk = 1, mrCancel = 2 };

  // Opens the file. What goes wrong goes to TApplication::HandleException, and then the form has no file and no
  // templates; so it is too when there is no program directory that the file could be in.
  TQVTemplateEditorForm();
  // Clears QVTemplateEditorForm if it is this form, and likewise QVTemplateSource.
  ~TQVTemplateEditorForm() override;

  // Shows the dialog until the user closes it: with the templates as they are in the file now, none chosen, and no
  // text.
  TModalResult ShowModal();

  // Fills the list from the file; no name is selected then.
  void LoadTemplates();
  // The stored value of a template; empty if there is no such template.
  QString GetTemplateContent(const QString& name) const;
  // Stores a text with line breaks. Raises platform::EIniFileException if it cannot.
  void SetTemplateContent(const QString& name, const QString& text);

  // Whether the list has this name, in whatever case. Logs the name.
  bool IsTemplateName(const QString& name) override;
  // Whether templates expand at the caret of `view`: it shows a Pascal file, and the caret is neither in a comment nor
  // in a string. The name does not matter. False for a view whose window has no proxy.
  bool ValidateTemplate(const QString& name, const std::shared_ptr<platform::IOTAEditView>& view) const;
  // The text to type for the template `name`, line ends as carriage returns; empty where ValidateTemplate does not
  // hold. Logs the name. EAssertionFailed, line 132, without a file.
  QString GetTemplateText(const QString& name, const std::shared_ptr<platform::IOTAEditView>& view) override;

  // What a choice in the list leads to: the selected template becomes the current one, after the question whether to
  // save the text of the one before. EAssertionFailed, line 122, without a file.
  void TemplateListClick();

  // Closes the dialog, after the question whether to save the text unless it is cancelled. It stays open if saving
  // fails.
  void done(int result) override;
  // The close button and Escape are Cancel.
  void reject() override { done(mrCancel); }

private:
  struct TFile;

  QWidget* NewToolBar();
  QWidget* NewEditor();
  void AddListKeys();

  void FormCreate();
  void ShowNames();
  void SetCurrentName(const QString& name);
  // Selects a name of the list, or none if the list does not have it. The current template stays.
  void SelectName(const QString& name);
  void UpdateButtons();

  void CheckSaveTemplate();
  void AddTemplateBtnClick();
  void DeleteTemplateBtnClick();
  void TemplateRenameBtnClick();
  void AddExamplesBtnClick();

  // Calls `act` and tells what it throws: in a message if the file could not be written. True if it threw nothing.
  template <class TAct> bool Attempt(TAct act);

  std::unique_ptr<TFile> File; // null when it could not be opened
  QString CurrentName;         // of the template whose text the memo shows; empty until one is chosen

  QToolButton* AddTemplateBtn = nullptr;
  QToolButton* DeleteTemplateBtn = nullptr;
  QToolButton* TemplateRenameBtn = nullptr;
  QAction* Examples = nullptr; // shows and hides its button
  TQVTemplateList* TemplateList = nullptr;
  QPlainTextEdit* TemplateMemo = nullptr;
};

// The one form, or null while the unit is not started.
extern TQVTemplateEditorForm* QVTemplateEditorForm;

// Start and stop of the unit: the start creates the form, owned by the application, and makes it the source of
// templates; the stop frees it.
void StartQVTemplateEditor();
void StopQVTemplateEditor();

} // namespace quorvane
