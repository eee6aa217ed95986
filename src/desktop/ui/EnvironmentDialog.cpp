// SPDX-License-Identifier: MIT
#include "desktop/ui/EnvironmentDialog.h"

#include "desktop/edit/EditControl.h"
#include "desktop/ui/Appearance.h"
#include "desktop/ui/ModalDialog.h"
#include "desktop/ui/MonospacedFonts.h"
#include "desktop/ui/SearchPathDialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFontDatabase>
#include <QFormLayout>
#include <QFrame>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QSpinBox>
#include <QTextDocument>
#include <QVBoxLayout>

#include <algorithm>

namespace desktop {

namespace {

QSpinBox* makeNumber(const char* name, SettingLimits limits) {
  auto* const number = new QSpinBox;
  number->setObjectName(QLatin1StringView(name));
  number->setRange(limits.first, limits.last);
  number->setAccelerated(true);
  return number;
}

QCheckBox* makeCheck(const char* name, const QString& text) {
  auto* const check = new QCheckBox(text);
  check->setObjectName(QLatin1StringView(name));
  return check;
}

QComboBox* makeChoice(const char* name) {
  auto* const choice = new QComboBox;
  choice->setObjectName(QLatin1StringView(name));
  return choice;
}

// A control that shows a sample of source and takes no part in the dialog otherwise.
TEditControl* makePreview() {
  auto* const preview = new TEditControl;
  preview->setObjectName(QStringLiteral("Preview"));
  preview->setAccessibleName(EnvironmentDialog::tr("Preview"));
  auto* const sample = new QTextDocument(preview);
  sample->setPlainText(
      QStringLiteral("procedure TStack.Push(Item: Pointer);\nbegin // Il1 O0 {}[]()\n\tif Count = 16 then\n"
                     "\t\traise EFull.Create('no room');\n\tFItems[Count] := Item;\nend;"));
  preview->setGutterWidth(0);
  preview->showDocument(sample);
  preview->setReadOnly(true);
  preview->setTextInteractionFlags(Qt::NoTextInteraction);
  preview->setFocusPolicy(Qt::NoFocus);
  preview->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  preview->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  preview->setMinimumSize(380, 96);
  return preview;
}

// Chooses the item that stands for `data`; the first if there is none.
void choose(QComboBox& choice, const QVariant& data) {
  choice.setCurrentIndex(std::max(choice.findData(data), 0));
}

} // namespace

EnvironmentDialog::EnvironmentDialog(const EnvironmentValues& values, const QList<SearchFolder>& folders,
                                     const Appearance& appearance, QWidget* parent)
    : QDialog(parent), given_(values), folders_(folders), appearance_(appearance) {
  setObjectName(QStringLiteral("EnvironmentDialog"));
  setWindowTitle(tr("Environment Options"));
  auto* const layout = new QVBoxLayout(this);
  layout->addWidget(makeTextGroup(), 1);
  layout->addWidget(makeEditingGroup());
  auto* const buttons =
      new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel | QDialogButtonBox::RestoreDefaults);
  QPushButton* const defaults = buttons->button(QDialogButtonBox::RestoreDefaults);
  defaults->setToolTip(tr("Shows the usual settings; the search path stays"));
  layout->addWidget(buttons);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  connect(defaults, &QPushButton::clicked, this, &EnvironmentDialog::restoreDefaults);
  showValues(values);
  showFolders();
  connect(family_, &QComboBox::currentIndexChanged, this, &EnvironmentDialog::updatePreview);
  connect(points_, &QSpinBox::valueChanged, this, &EnvironmentDialog::updatePreview);
  connect(tabWidth_, &QSpinBox::valueChanged, this, &EnvironmentDialog::updatePreview);
  connect(colours_, &QComboBox::currentIndexChanged, this, &EnvironmentDialog::updatePreview);
  updatePreview();
}

QGroupBox* EnvironmentDialog::makeTextGroup() {
  family_ = makeChoice("FontFamily");
  family_->addItem(tr("Usual (%1)").arg(Appearance::usualFamily()), QString());
  if (!given_.fontFamily.isEmpty() && !QFontDatabase::hasFamily(given_.fontFamily))
    family_->addItem(tr("%1 (not installed)").arg(given_.fontFamily), given_.fontFamily);
  for (const QString& family : monospacedFamilies())
    family_->addItem(family, family);
  points_ = makeNumber("FontPoints", environmentLimits.fontPoints);
  points_->setSuffix(tr(" pt"));
  tabWidth_ = makeNumber("TabWidth", environmentLimits.tabWidth);
  tabWidth_->setToolTip(tr("Columns between the stops of tab characters"));
  colours_ = makeChoice("Colours");
  colours_->addItem(tr("Light"), static_cast<int>(Colours::Light));
  colours_->addItem(tr("Dark"), static_cast<int>(Colours::Dark));
  colours_->addItem(tr("Follow the desktop"), static_cast<int>(Colours::Desktop));
  addInColours_ = makeCheck("AddInColours", tr("Colours of &add-ins go with light and dark"));
  addInColours_->setToolTip(tr("Those that you have chosen yourself stay"));
  preview_ = makePreview();

  auto* const numbers = new QHBoxLayout;
  numbers->addWidget(points_);
  auto* const tabLabel = new QLabel(tr("&Tab width:"));
  tabLabel->setBuddy(tabWidth_);
  numbers->addSpacing(12);
  numbers->addWidget(tabLabel);
  numbers->addWidget(tabWidth_);
  numbers->addStretch();
  auto* const form = new QFormLayout;
  form->addRow(tr("&Font:"), family_);
  auto* const sizeLabel = new QLabel(tr("&Size:"));
  sizeLabel->setBuddy(points_);
  form->addRow(sizeLabel, numbers);
  form->addRow(tr("&Colours:"), colours_);
  form->addRow(QString(), addInColours_);
  auto* const group = new QGroupBox(tr("Text"));
  auto* const layout = new QVBoxLayout(group);
  layout->addLayout(form);
  auto* const frame = new QFrame;
  frame->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
  auto* const framed = new QVBoxLayout(frame);
  framed->setContentsMargins(4, 4, 4, 4);
  framed->addWidget(preview_);
  layout->addWidget(frame, 1);
  return group;
}

QGroupBox* EnvironmentDialog::makeEditingGroup() {
  bracketPairs_ = makeCheck("BracketPairs", tr("Type &brackets and quotes as pairs"));
  trimTrailingBlanks_ = makeCheck("TrimTrailingBlanks", tr("&Remove trailing blanks when saving"));
  recoverySeconds_ = makeNumber("RecoverySeconds", environmentLimits.recoverySeconds);
  recoverySeconds_->setSuffix(tr(" s"));
  recoverySeconds_->setToolTip(tr("For the case of a crash; --recovery-interval on the command line goes first"));
  folderCount_ = new QLabel;
  folderCount_->setObjectName(QStringLiteral("FolderCount"));
  auto* const edit = new QPushButton(tr("Search &Path..."));
  edit->setObjectName(QStringLiteral("EditSearchPath"));
  edit->setAutoDefault(false); // Enter accepts the dialog
  connect(edit, &QPushButton::clicked, this, &EnvironmentDialog::editFolders);

  auto* const path = new QHBoxLayout;
  path->addWidget(folderCount_);
  path->addWidget(edit);
  path->addStretch();
  auto* const interval = new QHBoxLayout;
  interval->addWidget(recoverySeconds_);
  interval->addStretch();
  auto* const intervalLabel = new QLabel(tr("&Keep unsaved text every:"));
  intervalLabel->setBuddy(recoverySeconds_);
  auto* const group = new QGroupBox(tr("Editing and Files"));
  auto* const form = new QFormLayout(group);
  form->addRow(bracketPairs_);
  form->addRow(trimTrailingBlanks_);
  form->addRow(intervalLabel, interval);
  form->addRow(tr("Used units are looked for in:"), path);
  return group;
}

void EnvironmentDialog::showValues(const EnvironmentValues& values) {
  choose(*family_, values.fontFamily);
  points_->setValue(values.fontPoints);
  tabWidth_->setValue(values.tabWidth);
  choose(*colours_, static_cast<int>(values.colours));
  addInColours_->setChecked(values.addInColours);
  bracketPairs_->setChecked(values.bracketPairs);
  trimTrailingBlanks_->setChecked(values.trimTrailingBlanks);
  recoverySeconds_->setValue(values.recoverySeconds);
}

EnvironmentValues EnvironmentDialog::values() const {
  EnvironmentValues values = given_;
  values.fontFamily = family_->currentData().toString();
  values.fontPoints = points_->value();
  if (values.fontPoints != given_.fontPoints)
    values.zoomPoints = 0;
  values.tabWidth = tabWidth_->value();
  values.colours = static_cast<Colours>(colours_->currentData().toInt());
  values.addInColours = addInColours_->isChecked();
  values.bracketPairs = bracketPairs_->isChecked();
  values.trimTrailingBlanks = trimTrailingBlanks_->isChecked();
  values.recoverySeconds = recoverySeconds_->value();
  return values;
}

void EnvironmentDialog::restoreDefaults() {
  showValues(EnvironmentValues());
}

void EnvironmentDialog::updatePreview() {
  const EnvironmentValues chosen = values();
  preview_->setColorScheme(appearance_.isDarkWith(chosen.colours) ? darkScheme() : lightScheme());
  preview_->setEditorFont(chosen.fontFamily.isEmpty() ? Appearance::usualFamily() : chosen.fontFamily,
                          chosen.fontPoints);
  preview_->setTabWidth(chosen.tabWidth);
}

void EnvironmentDialog::editFolders() {
  const QPointer<EnvironmentDialog> self = this;
  ModalDialog<SearchPathDialog> dialog(folders_, this);
  if (!dialog.run() || !self)
    return;
  folders_ = dialog->folders();
  showFolders();
}

void EnvironmentDialog::showFolders() {
  folderCount_->setText(folders_.isEmpty()     ? tr("no folder")
                        : folders_.size() == 1 ? tr("one folder")
                                               : tr("%1 folders").arg(folders_.size()));
}

} // namespace desktop
