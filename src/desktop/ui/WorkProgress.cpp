// SPDX-License-Identifier: MIT
#include "desktop/ui/WorkProgress.h"

#include <QCoreApplication>

namespace desktop {

namespace {

// Milliseconds.
constexpr int patience = 500;
constexpr int betweenLooks = 30;

} // namespace

WorkProgress::WorkProgress(const QString& text, int total, QTextDocument& document, QWidget& parent)
    : text_(text), total_(total), document_(&document), parent_(&parent) {
  sinceLook_.start();
}

WorkProgress::~WorkProgress() {
  delete dialog_;
}

bool WorkProgress::goOn(int done) {
  if (sinceLook_.elapsed() < (dialog_ ? betweenLooks : patience))
    return true;
  if (!dialog_)
    makeDialog();
  const int revision = document_->revision();
  dialog_->setValue(done); // which lets the user press the button
  sinceLook_.start();
  return dialog_ && !dialog_->wasCanceled() && document_ && document_->revision() == revision;
}

void WorkProgress::makeDialog() {
  dialog_ =
      new QProgressDialog(text_, QCoreApplication::translate("desktop::WorkProgress", "Stop"), 0, total_, parent_);
  dialog_->setWindowModality(Qt::WindowModal);
  dialog_->setMinimumDuration(0);
  dialog_->setAutoReset(false);
  // Escape only hides the dialog as long as it is not the active window.
  QObject::connect(dialog_, &QDialog::rejected, dialog_, &QProgressDialog::cancel);
}

} // namespace desktop
