// SPDX-License-Identifier: MIT
#include "desktop/ui/StatusBar.h"

#include "desktop/edit/EditControl.h"
#include "desktop/files/SourceDocument.h"
#include "desktop/ui/Page.h"
#include "desktop/ui/ToolTip.h"

#include <QHBoxLayout>
#include <QLabel>

namespace desktop {

namespace {

QLabel* addCell(QHBoxLayout* layout, const QString& name, int stretch = 0) {
  auto* const label = new QLabel;
  label->setObjectName(name);
  label->setTextFormat(Qt::PlainText);
  layout->addWidget(label, stretch);
  return label;
}

void addSeparator(QHBoxLayout* layout) {
  auto* const line = new QWidget;
  line->setFixedWidth(1);
  line->setBackgroundRole(QPalette::Mid);
  line->setAutoFillBackground(true);
  layout->addWidget(line);
}

// Keeps the cell as wide as the widest of its texts, so that its neighbours stay where they are.
void reserve(QLabel* label, const QStringList& texts) {
  for (const QString& text : texts)
    label->setMinimumWidth(qMax(label->minimumWidth(), label->fontMetrics().horizontalAdvance(text)));
}

QString lineEndName(quorvane::TLineEnd end) {
  switch (end) {
  case quorvane::TLineEnd::CrLf:
    return QStringLiteral("CR LF");
  case quorvane::TLineEnd::Cr:
    return QStringLiteral("CR");
  case quorvane::TLineEnd::Lf:
  case quorvane::TLineEnd::None:
    break;
  }
  return QStringLiteral("LF");
}

} // namespace

StatusBar::StatusBar(TEditControl* editor, QWidget* parent) : QWidget(parent) {
  setObjectName(QStringLiteral("StatusBar"));
  auto* const layout = new QHBoxLayout(this);
  layout->setContentsMargins(8, 3, 8, 3);
  layout->setSpacing(8);
  position_ = addCell(layout, QStringLiteral("CaretPosition"));
  addSeparator(layout);
  modified_ = addCell(layout, QStringLiteral("ModifiedState"));
  addSeparator(layout);
  insert_ = addCell(layout, QStringLiteral("InsertState"));
  addSeparator(layout);
  remark_ = addCell(layout, QStringLiteral("Remark"), 1);
  addSeparator(layout);
  encoding_ = addCell(layout, QStringLiteral("Encoding"));
  addSeparator(layout);
  lineEnds_ = addCell(layout, QStringLiteral("LineEnds"));
  // The remark is the one to be cut when the window is narrow.
  remark_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);

  reserve(position_, {tr("Line %1, Column %2").arg(99999).arg(999)});
  reserve(modified_, {tr("Modified"), tr("Read only")});
  reserve(insert_, {tr("Insert"), tr("Overwrite")});
  connect(editor, &TEditControl::caretMoved, this, &StatusBar::showCaret);
  connect(editor, &TEditControl::insertModeChanged, this, &StatusBar::showInsertMode);
  showPage(nullptr);
  showCaret(editor->caretRow(), editor->caretColumn());
  showInsertMode(editor->insertMode());
}

void StatusBar::showCaret(int row, int column) {
  position_->setText(tr("Line %1, Column %2").arg(row).arg(column));
  showRemark(pageRemark_);
}

void StatusBar::showInsertMode(bool insert) {
  insert_->setText(insert ? tr("Insert") : tr("Overwrite"));
}

void StatusBar::showNote(const QString& text) {
  showRemark(text);
}

void StatusBar::showRemark(const QString& text) {
  remark_->setText(text);
  remark_->setToolTip(toolTipOf(text));
}

void StatusBar::showPage(const Page* page) {
  for (QLabel* label : {position_, modified_, insert_, encoding_, lineEnds_})
    label->setEnabled(page != nullptr);
  position_->setVisible(page != nullptr);
  insert_->setVisible(page != nullptr);
  if (page == nullptr) {
    pageRemark_.clear();
    for (QLabel* label : {modified_, remark_, encoding_, lineEnds_})
      label->clear();
    return;
  }
  const SourceDocument& document = *page->document();
  modified_->setText(document.isReadOnlyText() ? tr("Read only") : document.isModified() ? tr("Modified") : QString());
  pageRemark_ = document.isReadOnlyText() ? document.readOnlyReason() : document.plainReason();
  showRemark(pageRemark_);
  encoding_->setText(document.encodingName());
  lineEnds_->setText(document.hasMixedLineEnds() ? tr("Mixed (%1)").arg(lineEndName(document.usualLineEnd()))
                                                 : lineEndName(document.usualLineEnd()));
}

} // namespace desktop
