// SPDX-License-Identifier: MIT
#include "desktop/ui/GoToLineDialog.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QSpinBox>
#include <QVBoxLayout>

namespace desktop {

GoToLineDialog::GoToLineDialog(int line, int lineCount, QWidget* parent) : QDialog(parent), line_(new QSpinBox) {
  setObjectName(QStringLiteral("GoToLineDialog"));
  setWindowTitle(tr("Go to Line Number"));
  line_->setObjectName(QStringLiteral("LineNumber"));
  line_->setRange(1, lineCount);
  line_->setValue(line);
  line_->setAccelerated(true);
  line_->selectAll();

  auto* const form = new QFormLayout;
  form->addRow(tr("&Line number (1 to %L1):").arg(lineCount), line_);
  auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
  auto* const layout = new QVBoxLayout(this);
  layout->addLayout(form);
  layout->addWidget(buttons);
  layout->setSizeConstraint(QLayout::SetFixedSize);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

int GoToLineDialog::line() const {
  return line_->value();
}

} // namespace desktop
