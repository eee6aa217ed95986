// SPDX-License-Identifier: MIT
#include "settings/QVTemplateEditor.h"

#include "editor/QVEditorProxy.h"
#include "host/QVImages.h"
#include "host/QVLog.h"
#include "host/QVSourceUtils.h"
#include "platform/Application.h"
#include "platform/Debug.h"
#include "platform/Errors.h"
#include "platform/Registry.h"
#include "settings/model/QVOptionsStore.h"
#include "settings/model/QVOptionTable.h"
#include "settings/QVButtonPanel.h"
#include "settings/QVShowModal.h"
#include "settings/QVTemplateEditorFile.h"
#include "settings/QVTemplateEditorList.h"

#include <QInputDialog>
#include <QLabel>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QShortcut>
#include <QSplitter>
#include <QToolBar>
#include <QToolButton>
#include <QVBoxLayout>

#include <optional>
#include <utility>

namespace quorvane {

TQVTemplateEditorForm* QVTemplateEditorForm = nullptr;

namespace {

constexpr QSize kDesignedSize(531, 313);
constexpr int kListWidth = 153;
constexpr int kImageSize = 16;

// Assertions name the line that they have always had, which users and their reports know.
constexpr unsigned kNoFileForChoice = 122;
constexpr unsigned kNoFileForText = 132;

// What the edit control says stands at the caret.
constexpr int kCommentAttribute = 1;
constexpr int kStringAttribute = 5;

void Assert(bool condition, unsigned line) {
  platform::Require(condition, "QVTemplateEditor", "Assertion failure", line);
}

// The directory in the settings, none if there is none. Makes the settings' key if it is missing.
std::optional<std::string> StorageDir() {
  const std::string_view name = RowOf(TQVOption::StorageDir).Value;
  platform::TRegistry registry;
  if (!registry.OpenKey(QVOptionsKey, true) || !registry.ValueExists(name))
    return std::nullopt;
  try {
    return registry.ReadString(name);
  } catch (const platform::ERegistryException& error) {
    platform::OutputDebugString(std::string("QVTemplateEditor: ") + error.what());
    return std::nullopt;
  }
}

QFont FixedFont() {
  QFont font; // of which only what is set here differs from the dialog's
  font.setFamily(QStringLiteral("Courier New"));
  font.setStyleHint(QFont::TypeWriter);
  font.setFixedPitch(true);
  return font;
}

// The text of a memo with CR LF for each line break, be it one of Return or one of Shift+Return. Read as it is: Qt's
// plain text would have blanks for those that do not break.
QString TextOf(const QPlainTextEdit& memo) {
  QString text = memo.document()->toRawText();
  text.replace(QChar::LineSeparator, QChar::ParagraphSeparator);
  return text.replace(QChar::ParagraphSeparator, QStringLiteral("\r\n"));
}

int ShowMessage(QMessageBox::Icon icon, const QString& text, QMessageBox::StandardButtons buttons, QWidget& form) {
  QMessageBox box(icon, form.windowTitle(), text, buttons, &form);
  box.setTextFormat(Qt::PlainText); // a name may look like something else
  return box.exec();
}

// Asks a question with the name of a template in it.
bool Confirmed(const QString& question, const QString& name, QWidget& form) {
  return ShowMessage(QMessageBox::Warning, question.arg(name), QMessageBox::Yes | QMessageBox::No, form) ==
         QMessageBox::Yes;
}

// Asks for the name of a template. None if the user cancels or leaves it empty, and after a message if it cannot be the
// name of one.
std::optional<QString> AskName(const QString& title, QString prompt, const QString& preset, QWidget& form) {
  QInputDialog dialog(&form);
  dialog.setWindowTitle(title);
  dialog.setLabelText(prompt.replace(u'&', QStringLiteral("&&"))); // none of them marks a key
  for (QLabel* label : dialog.findChildren<QLabel*>())
    label->setTextFormat(Qt::PlainText);
  dialog.setTextValue(preset);
  if (dialog.exec() != QDialog::Accepted || dialog.textValue().isEmpty())
    return std::nullopt;
  const std::string name = TrimmedTemplateName(dialog.textValue().toStdString());
  if (const std::optional<std::string> error = TemplateNameError(name)) {
    ShowMessage(QMessageBox::Warning, QString::fromStdString(*error), QMessageBox::Ok, form);
    return std::nullopt;
  }
  return QString::fromStdString(name);
}

} // namespace

struct TQVTemplateEditorForm::TFile {
  explicit TFile(std::string_view fileName) : Ini(fileName) {}

  TQVTemplateIniFile Ini;
  TQVTemplateStore Store{Ini};
};

TQVTemplateEditorForm::TQVTemplateEditorForm() {
  setObjectName(QStringLiteral("QVTemplateEditorForm"));
  setWindowTitle(QStringLiteral("Code Template Editor"));
  setWindowFlag(Qt::WindowContextHelpButtonHint, false);
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  layout->addWidget(NewToolBar());
  layout->addWidget(NewEditor(), 1);
  layout->addWidget(NewButtonPanel(*this, {"OKBtn", "OK", mrOk}, {"CancelBtn", "Cancel", mrCancel}));
  AddListKeys();
  resize(kDesignedSize);
  platform::Guarded([this] { FormCreate(); });
  UpdateButtons();
}

TQVTemplateEditorForm::~TQVTemplateEditorForm() {
  if (QVTemplateEditorForm == this)
    QVTemplateEditorForm = nullptr;
  if (QVTemplateSource == this)
    QVTemplateSource = nullptr;
}

QWidget* TQVTemplateEditorForm::NewToolBar() {
  auto* const bar = new QToolBar(this);
  bar->setIconSize({kImageSize, kImageSize});
  const auto addButton = [&](const char* name, const QString& hint, void (TQVTemplateEditorForm::*click)()) {
    auto* const button = new QToolButton(bar);
    button->setObjectName(QLatin1StringView(name));
    button->setToolTip(hint);
    button->setAccessibleName(hint);
    connect(button, &QToolButton::clicked, this, click);
    return button;
  };
  AddTemplateBtn =
      addButton("AddTemplateBtn", QStringLiteral("Create New Template"), &TQVTemplateEditorForm::AddTemplateBtnClick);
  AddTemplateBtn->setIcon(Images(qvAddTemplateImage));
  bar->addWidget(AddTemplateBtn);
  DeleteTemplateBtn =
      addButton("DeleteTemplateBtn", QStringLiteral("Delete Template"), &TQVTemplateEditorForm::DeleteTemplateBtnClick);
  DeleteTemplateBtn->setIcon(Images(qvDeleteTemplateImage));
  bar->addWidget(DeleteTemplateBtn);
  TemplateRenameBtn =
      addButton("TemplateRenameBtn", QStringLiteral("Rename Template"), &TQVTemplateEditorForm::TemplateRenameBtnClick);
  TemplateRenameBtn->setIcon(Images(qvRenameTemplateImage));
  bar->addWidget(TemplateRenameBtn);
  auto* const examples = addButton("AddExamplesBtn", QStringLiteral("Add templates to begin with"),
                                   &TQVTemplateEditorForm::AddExamplesBtnClick);
  examples->setText(QStringLiteral("Add Examples"));
  examples->setAccessibleName(examples->text());
  Examples = bar->addWidget(examples);
  return bar;
}

QWidget* TQVTemplateEditorForm::NewEditor() {
  auto* const splitter = new QSplitter(this);
  TemplateList = new TQVTemplateList(splitter);
  TemplateList->setObjectName(QStringLiteral("TemplateList"));
  TemplateList->setAccessibleName(QStringLiteral("Templates"));
  TemplateList->setFont(FixedFont());
  TemplateMemo = new QPlainTextEdit(splitter);
  TemplateMemo->setObjectName(QStringLiteral("TemplateMemo"));
  TemplateMemo->setAccessibleName(QStringLiteral("Text of the Template"));
  TemplateMemo->setFont(FixedFont());
  TemplateMemo->setLineWrapMode(QPlainTextEdit::NoWrap);
  TemplateMemo->setTabChangesFocus(true); // or the keyboard would not get out of it
  splitter->setChildrenCollapsible(false);
  splitter->setStretchFactor(1, 1);
  splitter->setSizes({kListWidth, kDesignedSize.width() - kListWidth - splitter->handleWidth()});
  return splitter;
}

void TQVTemplateEditorForm::AddListKeys() {
  const auto press = [this](Qt::Key key, QToolButton* button) {
    auto* const shortcut = new QShortcut(key, TemplateList);
    shortcut->setContext(Qt::WidgetShortcut);
    connect(shortcut, &QShortcut::activated, button, &QToolButton::click);
  };
  press(Qt::Key_Insert, AddTemplateBtn);
  press(Qt::Key_Delete, DeleteTemplateBtn);
  press(Qt::Key_F2, TemplateRenameBtn);
  TemplateList->OnClick = [this] {
    // A text that could not be saved stays, and its template with it.
    if (!Attempt([this] { TemplateListClick(); }))
      SelectName(CurrentName);
  };
}

void TQVTemplateEditorForm::FormCreate() {
  const std::string fileName = TemplateFileName(StorageDir(), platform::Application().ProgramDirectory().toStdString());
  if (!fileName.starts_with('/')) { // it would depend on the working directory
    platform::OutputDebugString("QVTemplateEditor: there is no directory for templates");
    return;
  }
  File = std::make_unique<TFile>(fileName);
  LoadTemplates();
}

TQVTemplateEditorForm::TModalResult TQVTemplateEditorForm::ShowModal() {
  TemplateMemo->clear();
  LoadTemplates();
  TemplateList->setFocus();
  return ShowModalAboveActive(*this) == mrOk ? mrOk : mrCancel;
}

void TQVTemplateEditorForm::done(int result) {
  if (result == mrCancel || Attempt([this] { CheckSaveTemplate(); }))
    QDialog::done(result);
}

void TQVTemplateEditorForm::LoadTemplates() {
  if (File)
    File->Store.LoadTemplates();
  ShowNames();
}

void TQVTemplateEditorForm::ShowNames() {
  QStringList names;
  if (File) {
    for (const std::string& name : File->Store.Names())
      names.append(QString::fromStdString(name));
  }
  TemplateList->SetNames(names);
  UpdateButtons();
}

void TQVTemplateEditorForm::SetCurrentName(const QString& name) {
  CurrentName = name;
  UpdateButtons();
}

void TQVTemplateEditorForm::SelectName(const QString& name) {
  const std::optional<std::size_t> index = File ? File->Store.IndexOf(name.toStdString()) : std::nullopt;
  TemplateList->SelectRow(index ? static_cast<int>(*index) : -1);
}

void TQVTemplateEditorForm::UpdateButtons() {
  AddTemplateBtn->setEnabled(File != nullptr);
  DeleteTemplateBtn->setEnabled(!CurrentName.isEmpty());
  TemplateRenameBtn->setEnabled(!CurrentName.isEmpty());
  TemplateMemo->setEnabled(!CurrentName.isEmpty()); // nobody would ask for a text without a template
  Examples->setVisible(File && TemplateList->count() == 0);
}

QString TQVTemplateEditorForm::GetTemplateContent(const QString& name) const {
  return File ? QString::fromStdString(File->Store.GetTemplateContent(name.toStdString())) : QString();
}

void TQVTemplateEditorForm::SetTemplateContent(const QString& name, const QString& text) {
  if (!File)
    throw platform::EIniFileException("There is no file for templates.");
  File->Store.SetTemplateContent(name.toStdString(), text.toStdString());
}

bool TQVTemplateEditorForm::IsTemplateName(const QString& name) {
  Log(QStringLiteral("Template Name Check: ") + name);
  return File && File->Store.IsTemplateName(name.toStdString());
}

bool TQVTemplateEditorForm::ValidateTemplate(const QString&,
                                             const std::shared_ptr<platform::IOTAEditView>& view) const {
  const TQVEditorProxy* const proxy = TQVEditorProxy::GetProxy(view);
  if (!proxy)
    return false;
  const int attribute = proxy->EdGetCursorAttribute();
  return attribute != kCommentAttribute && attribute != kStringAttribute &&
         IsPascalFile(view->GetBuffer()->GetFileName());
}

QString TQVTemplateEditorForm::GetTemplateText(const QString& name,
                                               const std::shared_ptr<platform::IOTAEditView>& view) {
  Log(QStringLiteral("Template Text Request: ") + name);
  Assert(File != nullptr, kNoFileForText);
  if (!ValidateTemplate(name, view))
    return {};
  return QString::fromStdString(File->Store.GetTemplateText(name.toStdString()));
}

void TQVTemplateEditorForm::TemplateListClick() {
  Assert(File != nullptr, kNoFileForChoice);
  CheckSaveTemplate();
  SetCurrentName(TemplateList->SelectedName());
  TemplateMemo->setPlainText(QString::fromStdString(TemplateMemoText(GetTemplateContent(CurrentName).toStdString())));
}

void TQVTemplateEditorForm::CheckSaveTemplate() {
  if (CurrentName.isEmpty() || !File)
    return;
  const QString text = TextOf(*TemplateMemo);
  if (!File->Store.DiffersFromTemplate(CurrentName.toStdString(), text.toStdString()))
    return;
  if (Confirmed(QStringLiteral("Save Changes To Template %1?"), CurrentName, *this))
    SetTemplateContent(CurrentName, text);
}

void TQVTemplateEditorForm::AddTemplateBtnClick() {
  const std::optional<QString> name =
      AskName(QStringLiteral("New Template"), QStringLiteral("New Template Name:"), QString(), *this);
  if (!name)
    return;
  const bool added = Attempt([&] {
    File->Store.AddTemplate(name->toStdString());
    ShowNames();
    SelectName(*name);
    TemplateListClick();
  });
  if (!added)
    SelectName(CurrentName);
}

void TQVTemplateEditorForm::DeleteTemplateBtnClick() {
  if (!Confirmed(QStringLiteral("Delete Template %1?"), CurrentName, *this))
    return;
  const bool deleted = Attempt([this] {
    const int row = TemplateList->SelectedRow();
    File->Store.DeleteTemplate(CurrentName.toStdString());
    ShowNames();
    TemplateList->SelectRow(row == 0 ? 0 : row - 1);
    // The deleted template is still the current one, so it asks whether to save the text, which would write it back.
    TemplateListClick();
  });
  if (!deleted)
    SelectName(CurrentName);
}

void TQVTemplateEditorForm::TemplateRenameBtnClick() {
  const std::optional<QString> name = AskName(
      QStringLiteral("Rename Template"), QStringLiteral("Rename Template %1").arg(CurrentName), CurrentName, *this);
  if (!name)
    return;
  Attempt([&] {
    File->Store.RenameTemplate(CurrentName.toStdString(), name->toStdString());
    ShowNames();
  });
  SelectName(CurrentName);
}

void TQVTemplateEditorForm::AddExamplesBtnClick() {
  Attempt([this] { File->Store.AddExamples(); });
  LoadTemplates(); // some may be there even if others could not be written
  TemplateList->setFocus();
}

template <class TAct> bool TQVTemplateEditorForm::Attempt(TAct act) {
  try {
    act();
    return true;
  } catch (const platform::EIniFileException& error) {
    ShowMessage(QMessageBox::Critical, QString::fromUtf8(error.what()), QMessageBox::Ok, *this);
  } catch (...) {
    platform::Application().HandleException(std::current_exception());
  }
  return false;
}

void StartQVTemplateEditor() {
  QVTemplateEditorForm = new TQVTemplateEditorForm;
  platform::Application().InsertComponent(QVTemplateEditorForm);
  QVTemplateSource = QVTemplateEditorForm;
}

void StopQVTemplateEditor() {
  delete QVTemplateEditorForm;
  platform::OutputDebugString("QVTemplateEditor");
}

} // namespace quorvane
