// SPDX-License-Identifier: MIT
// Answering modal dialogs in tests, as a user would: the dialog is really shown, and an answer is given to it.
#pragma once

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QPointer>
#include <QTimer>

#include <functional>
#include <utility>
#include <vector>

namespace support {

// While it lives, gives each modal dialog of type TDialog that comes up to the next of its functions, which has to end
// the dialog. At the end the test fails if there were fewer dialogs than functions.
template <class TDialog> class ModalAnswer {
public:
  using Function = std::function<void(TDialog&)>;

  explicit ModalAnswer(Function answer) : ModalAnswer(std::vector<Function>{std::move(answer)}) {}
  explicit ModalAnswer(std::vector<Function> answers) : answers_(std::move(answers)) {
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { look(); });
    timer_.start(1);
  }
  ~ModalAnswer() { EXPECT_EQ(given_, answers_.size()) << "an expected dialog was not shown"; }
  ModalAnswer(const ModalAnswer&) = delete;
  ModalAnswer& operator=(const ModalAnswer&) = delete;

private:
  void look() {
    auto* const dialog = qobject_cast<TDialog*>(QApplication::activeModalWidget());
    if (dialog == nullptr || dialog == answered_ || given_ == answers_.size())
      return;
    answered_ = dialog;
    answers_[given_++](*dialog);
  }

  std::vector<Function> answers_;
  std::size_t given_ = 0;
  QPointer<TDialog> answered_; // may still be up
  QTimer timer_;
};

// Clicks the button of `dialog` whose text, mnemonics apart, is `text`. Fails the test and rejects the dialog if there
// is none.
inline void clickButton(QDialog& dialog, const QString& text) {
  for (QAbstractButton* button : dialog.findChildren<QAbstractButton*>()) {
    QString label = button->text();
    if (label.remove(u'&') == text) {
      button->click();
      return;
    }
  }
  ADD_FAILURE() << "no button " << text.toStdString();
  dialog.reject();
}

} // namespace support
