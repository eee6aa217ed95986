// SPDX-License-Identifier: MIT
#include "settings/QVOptionPages.h"

#include "host/QVImages.h"
#include "platform/Actions.h"
#include "settings/model/QVOptionTable.h"
#include "settings/QVColorPicker.h"
#include "settings/QVHotKey.h"
#include "settings/QVOptionControls.h"
#include "settings/QVRadioGroup.h"
#include "settings/QVScrollPage.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpressionValidator>
#include <QSpinBox>
#include <QVBoxLayout>

namespace quorvane {

namespace {

// A group of the page with a layout of its own, from the top.
QGroupBox* AddGroup(TQVScrollPage& page, const char* name, const QString& caption) {
  auto* const group = new QGroupBox(caption, &page.Contents());
  group->setObjectName(QLatin1StringView(name));
  auto* const layout = new QVBoxLayout(group);
  layout->setContentsMargins(9, 4, 9, 4); // closer than usual, as there is much to show
  layout->setSpacing(3);
  page.AddGroup(group);
  return group;
}

QVBoxLayout& LayoutOf(QGroupBox* group) {
  return *static_cast<QVBoxLayout*>(group->layout());
}

// A line of controls that begins at the left.
QHBoxLayout* AddLine(QGroupBox* group) {
  auto* const line = new QHBoxLayout;
  line->setSpacing(6);
  LayoutOf(group).addLayout(line);
  return line;
}

template <class TControl> TControl* Named(TControl* control, TQVOption option) {
  control->setObjectName(ControlName(option));
  return control;
}

QCheckBox* NewCheck(TQVOption option, const QString& caption, QGroupBox* group) {
  return Named(new QCheckBox(caption, group), option);
}

void AddCheck(TQVOption option, const QString& caption, QGroupBox* group) {
  LayoutOf(group).addWidget(NewCheck(option, caption, group));
}

// `accessibleName` says more than the label to those who cannot see beside what it stands.
TColorBtn* NewColorButton(TQVOption option, const QString& accessibleName, QGroupBox* group) {
  auto* const button = Named(new TColorBtn(group), option);
  button->setAccessibleName(accessibleName);
  button->SetFlat(false);
  button->SetDropDownFlat(true);
  button->SetAutomaticColor(platform::clBlack);
  button->SetAutoBtnCaption(QStringLiteral("Automatic"));
  button->SetOtherBtnCaption(QStringLiteral("&Other colors..."));
  button->SetDDArrowWidth(12);
  button->SetGlyphType(gtCustom); // all swatch: the label says what the colour is for
  return button;
}

TRadioGroup* NewRadioGroup(TQVOption option, const QString& caption, const QStringList& items, QGroupBox* group) {
  return Named(new TRadioGroup(caption, items, group), option);
}

QSpinBox* NewSpin(TQVOption option, QGroupBox* group) {
  auto* const spin = Named(new QSpinBox(group), option);
  const TQVLimits& limits = RowOf(option).Limits;
  spin->setRange(limits.First, limits.Last);
  return spin;
}

// Puts a label and, after it, the control that it names.
void AddLabelled(QHBoxLayout* line, const char* name, const QString& caption, QWidget* control) {
  auto* const label = new QLabel(caption, control->parentWidget());
  label->setObjectName(QLatin1StringView(name));
  label->setBuddy(control);
  line->addWidget(label);
  line->addWidget(control);
}

void AddCodeTemplates(TQVScrollPage& page) {
  QGroupBox* const group = AddGroup(page, "gbCodeTemplates", QStringLiteral("Code Templates"));
  QHBoxLayout* const first = AddLine(group);
  first->addWidget(NewCheck(TQVOption::EnableTemplates,
                            QStringLiteral("Enable Code Templates (Does Not Disable Native Templates)"), group),
                   1);
  auto* const edit = new QPushButton(QStringLiteral("Edit..."), group);
  edit->setObjectName(QStringLiteral("EditTemplatesBtn"));
  edit->setAutoDefault(false); // Enter is OK wherever the focus is
  first->addWidget(edit);

  QHBoxLayout* const second = AddLine(group);
  auto* const key = Named(new QLineEdit(group), TQVOption::TemplateKey);
  // One byte a character.
  key->setValidator(new QRegularExpressionValidator(QRegularExpression(QStringLiteral("[\\x{01}-\\x{FF}]*")), key));
  AddLabelled(second, "lblTemplateKey", QStringLiteral("Template Key:"), key);
  second->setStretchFactor(key, 1);
  second->addStretch(6);
}

void AddLineNumbers(TQVScrollPage& page) {
  QGroupBox* const group = AddGroup(page, "LineNumbersBox", QStringLiteral("Line Numbers"));
  AddCheck(TQVOption::LineNumbers, QStringLiteral("Show Line Numbers"), group);
  AddCheck(TQVOption::LinesInSecondGutter, QStringLiteral("Show Line Numbers in Second Gutter"), group);
  AddCheck(TQVOption::GutterSeparator, QStringLiteral("Show Separator Between Gutters (Second Gutter Only)"), group);
  AddCheck(TQVOption::LineNumbersLeft, QStringLiteral("Second Gutter On Left (Second Gutter Only)"), group);
  QHBoxLayout* const line = AddLine(group);
  AddLabelled(line, "ColorLabel", QStringLiteral("Color:"),
              NewColorButton(TQVOption::LineNumberColor, QStringLiteral("Color of Line Numbers"), group));
  line->addStretch();
}

TQVScrollPage* NewEditorPage(QWidget* parent) {
  auto* const page = new TQVScrollPage(parent);
  page->setObjectName(QStringLiteral("tsEditor"));
  AddCodeTemplates(*page);
  AddLineNumbers(*page);
  AddCheck(TQVOption::ShowToolbar, QStringLiteral("Show Navigation Toolbar"),
           AddGroup(*page, "NavToolbarBox", QStringLiteral("Navigation Toolbar")));
  AddCheck(TQVOption::SyntaxCheck, QStringLiteral("Enable Live Syntax Checking"),
           AddGroup(*page, "SyntaxCheckBox", QStringLiteral("Live Syntax Check")));
  return page;
}

void AddBlockShapes(QGroupBox* group) {
  QHBoxLayout* const line = AddLine(group);
  line->addWidget(NewRadioGroup(TQVOption::BlockIndex, QStringLiteral("Block Markers"),
                                {QStringLiteral("Mark Current Block(s)"), QStringLiteral("Mark All Blocks"),
                                 QStringLiteral("Do Not Mark Blocks")},
                                group),
                  1);
  line->addWidget(NewRadioGroup(TQVOption::BlockShape, QStringLiteral("Marker Shape"),
                                {QStringLiteral("Brackets"), QStringLiteral("Blocks")}, group),
                  1);
  AddCheck(TQVOption::UnevenBrackets, QStringLiteral("Draw Connecting Lines For Uneven Blocks (Brackets Only)"), group);
}

void AddBlockColors(QGroupBox* group) {
  struct TColorRow {
    TQVOption Option;
    const char* Label;
    const char* Caption;
  };
  static constexpr TColorRow rows[] = {
      {TQVOption::BlockColor1, "Color1Label", "Color 1:"},
      {TQVOption::BlockColor2, "Color2Label", "Color 2:"},
      {TQVOption::BlockColor3, "Color3Label", "Color 3:"},
      {TQVOption::BlockColor4, "Color4Label", "Color 4:"},
  };
  QHBoxLayout* const line = AddLine(group);
  for (const TColorRow& row : rows) {
    const QString caption = QLatin1StringView(row.Caption);
    AddLabelled(line, row.Label, caption,
                NewColorButton(row.Option, QStringLiteral("Block ") + caption.chopped(1), group));
    line->addStretch();
  }
}

void AddActivation(QGroupBox* group) {
  QHBoxLayout* const line = AddLine(group);
  line->addWidget(NewRadioGroup(TQVOption::MarkerLive, QStringLiteral("Marker Activation"),
                                {QStringLiteral("Activate Live (Always Active)"), QStringLiteral("Activate on Hotkey")},
                                group),
                  1);
  auto* const hotKey = Named(new THotKey(group), TQVOption::MarkerHotKey);
  hotKey->SetInvalidKeys({0, platform::scShift});
  hotKey->SetModifiers(platform::scShift | platform::scAlt);
  auto* const right = new QHBoxLayout;
  AddLabelled(right, "HotkeyLabel", QStringLiteral("Hotkey:"), hotKey);
  line->addLayout(right, 1);
}

TQVScrollPage* NewHighlighterPage(QWidget* parent) {
  auto* const page = new TQVScrollPage(parent);
  page->setObjectName(QStringLiteral("tsSmartHiliter"));
  QGroupBox* const blocks = AddGroup(*page, "BlocksBox", QStringLiteral("Block Highlighter"));
  AddBlockShapes(blocks);
  AddBlockColors(blocks);
  QHBoxLayout* const width = AddLine(blocks);
  AddLabelled(width, "LineWidthLabel", QStringLiteral("Line Width (Brackets Only):"),
              NewSpin(TQVOption::LineWidth, blocks));
  width->addStretch();
  AddActivation(blocks);

  QGroupBox* const parens = AddGroup(*page, "ParensBox", QStringLiteral("Parenthesis Matcher"));
  QHBoxLayout* const line = AddLine(parens);
  line->addWidget(NewCheck(TQVOption::MarkParens, QStringLiteral("Mark Matching Parenthesis"), parens), 1);
  AddLabelled(line, "ParenColorLabel", QStringLiteral("Color:"),
              NewColorButton(TQVOption::ParenColor, QStringLiteral("Color of Matching Parentheses"), parens));
  line->addStretch(1);
  return page;
}

TQVScrollPage* NewWindowsPage(QWidget* parent) {
  auto* const page = new TQVScrollPage(parent);
  page->setObjectName(QStringLiteral("tsIDEWindows"));
  QGroupBox* const flyout = AddGroup(*page, "gbFlyoutBar", QStringLiteral("Flyout Bar"));
  AddCheck(TQVOption::FlyoutBar, QStringLiteral("Show Flyout Bar On Startup"), flyout);
  QHBoxLayout* const delay = AddLine(flyout);
  AddLabelled(delay, "FlyDelayLabel", QStringLiteral("Flyout Delay (in milliseconds):"),
              NewSpin(TQVOption::FlyoutDelay, flyout));
  delay->addStretch();
  return page;
}

} // namespace

void AddOptionPages(QTabWidget& pages) {
  pages.addTab(NewEditorPage(&pages), Images(qvSectionsImage), QStringLiteral("Source Editor"));
  pages.addTab(NewHighlighterPage(&pages), Images(qvUnitsImage), QStringLiteral("Smart Highlighter"));
  pages.addTab(NewWindowsPage(&pages), Images(qvWindowsImage), QStringLiteral("IDE Windows"));
}

} // namespace quorvane
