// SPDX-License-Identifier: MIT
#include "desktop/ui/FindInFilesDialog.h"

#include "desktop/files/FileSearch.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QFormLayout>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QRegularExpression>
#include <QVBoxLayout>

#include <algorithm>

namespace desktop {

namespace {

QLineEdit* makeLine(const QString& name, const QString& text) {
  auto* const line = new QLineEdit(text);
  line->setObjectName(name);
  return line;
}

QCheckBox* makeOption(const QString& name, const QString& text, bool checked) {
  auto* const option = new QCheckBox(text);
  option->setObjectName(name);
  option->setChecked(checked);
  return option;
}

} // namespace

QStringList FindInFilesRequest::patterns() const {
  static const QRegularExpression separators(QStringLiteral("\\s*[;,]\\s*"));
  return names.trimmed().split(separators, Qt::SkipEmptyParts);
}

FindInFilesDialog::FindInFilesDialog(const FindInFilesRequest& request, QWidget* parent)
    : QDialog(parent), baseFolder_(request.folder), text_(makeLine(QStringLiteral("FilesText"), request.terms.text)),
      folder_(makeLine(QStringLiteral("FilesFolder"), QDir::toNativeSeparators(request.folder))),
      names_(makeLine(QStringLiteral("FilesNames"), request.names)),
      matchCase_(makeOption(QStringLiteral("FilesMatchCase"), tr("&Match case"), request.terms.matchCase)),
      wholeWord_(makeOption(QStringLiteral("FilesWholeWord"), tr("&Whole words"), request.terms.wholeWord)),
      regularExpression_(makeOption(QStringLiteral("FilesRegularExpression"), tr("&Regular expression"),
                                    request.terms.regularExpression)),
      subfolders_(makeOption(QStringLiteral("FilesSubfolders"), tr("Search &subfolders"), request.subfolders)),
      problem_(new QLabel) {
  setObjectName(QStringLiteral("FindInFilesDialog"));
  setWindowTitle(tr("Find in Files"));
  problem_->setObjectName(QStringLiteral("FilesProblem"));
  problem_->setTextFormat(Qt::PlainText);
  problem_->setWordWrap(true);
  problem_->hide();
  auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Cancel);
  find_ = buttons->addButton(tr("&Find"), QDialogButtonBox::AcceptRole);
  find_->setObjectName(QStringLiteral("FilesFind"));
  auto* const layout = new QVBoxLayout(this);
  layout->addLayout(makeFields());
  layout->addLayout(makeOptions());
  layout->addWidget(problem_);
  layout->addStretch();
  layout->addWidget(buttons);
  find_->setDefault(true); // only in the dialog there is a default
  resize(560, sizeHint().height());
  text_->selectAll();
  connect(buttons, &QDialogButtonBox::accepted, this, &FindInFilesDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  for (const QLineEdit* const line : {text_, folder_, names_})
    connect(line, &QLineEdit::textChanged, this, &FindInFilesDialog::showEntered);
  showEntered();
}

QLayout* FindInFilesDialog::makeFields() {
  names_->setToolTip(tr("Wildcards with a semicolon between them; every file if there is none"));
  auto* const browse = new QPushButton(tr("&Browse..."));
  browse->setObjectName(QStringLiteral("FilesBrowse"));
  browse->setAutoDefault(false); // Enter begins the search
  connect(browse, &QPushButton::clicked, this, &FindInFilesDialog::browse);
  auto* const folderRow = new QHBoxLayout;
  folderRow->addWidget(folder_, 1);
  folderRow->addWidget(browse);
  auto* const folderLabel = new QLabel(tr("In f&older:"));
  folderLabel->setBuddy(folder_);
  auto* const form = new QFormLayout;
  form->addRow(tr("&Text to find:"), text_);
  form->addRow(folderLabel, folderRow);
  form->addRow(tr("File &names:"), names_);
  return form;
}

QLayout* FindInFilesDialog::makeOptions() {
  auto* const options = new QGridLayout;
  options->addWidget(matchCase_, 0, 0);
  options->addWidget(wholeWord_, 0, 1);
  options->addWidget(regularExpression_, 1, 0);
  options->addWidget(subfolders_, 1, 1);
  options->setColumnStretch(2, 1);
  options->setHorizontalSpacing(24);
  return options;
}

// A "~" at the start is the user's own folder, as in a shell.
QString FindInFilesDialog::folder() const {
  QString entered = QDir::fromNativeSeparators(folder_->text().trimmed());
  if (entered == QStringLiteral("~") || entered.startsWith(QStringLiteral("~/")))
    entered.replace(0, 1, QDir::homePath());
  return QDir::cleanPath(QDir(baseFolder_).absoluteFilePath(entered));
}

FindInFilesRequest FindInFilesDialog::request() const {
  FindInFilesRequest request;
  request.terms = {text_->text(), matchCase_->isChecked(), wholeWord_->isChecked(), regularExpression_->isChecked()};
  request.folder = folder();
  request.names = names_->text().trimmed();
  request.subfolders = subfolders_->isChecked();
  return request;
}

void FindInFilesDialog::accept() {
  const QString badPattern = TextMatcher(request().terms).error();
  const QStringList wildcards = request().patterns();
  const auto bad =
      std::ranges::find_if(wildcards, [](const QString& each) { return !fileNamePattern(each).isValid(); });
  if (!badPattern.isEmpty())
    complain(text_, badPattern);
  else if (bad != wildcards.end())
    complain(names_, tr("There can be no file with the name %1").arg(*bad));
  else if (!QFileInfo(folder()).isDir())
    complain(folder_, tr("There is no folder %1").arg(QDir::toNativeSeparators(folder())));
  else
    QDialog::accept();
}

void FindInFilesDialog::complain(QLineEdit* field, const QString& problem) {
  problem_->setText(problem);
  problem_->show();
  field->setFocus(Qt::OtherFocusReason);
  field->selectAll();
}

// What was wrong may have been mended.
void FindInFilesDialog::showEntered() {
  if (const QString line = firstLineOf(text_->text()); line != text_->text())
    text_->setText(line);
  problem_->hide();
  find_->setEnabled(!text_->text().isEmpty() && !folder_->text().trimmed().isEmpty());
}

void FindInFilesDialog::browse() {
  // It goes with this dialog, which may be while it is open.
  const QPointer<QFileDialog> dialog = new QFileDialog(this, tr("Folder to Search"), folder());
  dialog->setFileMode(QFileDialog::Directory);
  dialog->setOption(QFileDialog::ShowDirsOnly);
  const bool isChosen = dialog->exec() == QDialog::Accepted;
  if (!dialog)
    return;
  if (isChosen && !dialog->selectedFiles().isEmpty())
    folder_->setText(QDir::toNativeSeparators(QDir::cleanPath(dialog->selectedFiles().constFirst())));
  delete dialog;
}

} // namespace desktop
