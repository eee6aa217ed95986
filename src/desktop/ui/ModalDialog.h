// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>
#include <QPointer>

#include <utility>

namespace desktop {

// A dialog that a command runs until the user has answered.
//
// Anything may happen meanwhile: the window that is the dialog's parent may go, and then the dialog goes with it and
// counts as rejected. Whoever runs a dialog must look after what else may have gone, itself included.
template <class TDialog> class ModalDialog {
public:
  // `arguments` are those of the dialog's constructor, its parent among them.
  template <class... TArguments>
  explicit ModalDialog(TArguments&&... arguments) : dialog_(new TDialog(std::forward<TArguments>(arguments)...)) {}
  ~ModalDialog() { delete dialog_; }
  ModalDialog(const ModalDialog&) = delete;
  ModalDialog& operator=(const ModalDialog&) = delete;

  // Shows the dialog. Whether the user has accepted it; only then the dialog is certain to be there afterwards.
  bool run() { return dialog_->exec() == QDialog::Accepted && dialog_; }

  const TDialog* operator->() const { return dialog_; }

private:
  QPointer<TDialog> dialog_;
};

} // namespace desktop
