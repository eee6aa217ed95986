// SPDX-License-Identifier: MIT
#pragma once

#include <QElapsedTimer>
#include <QPointer>
#include <QProgressDialog>
#include <QString>
#include <QTextDocument>
#include <QWidget>

namespace desktop {

// Shows how far work on a document is, in a dialog that comes up once that takes long. While the dialog is up the
// window takes no other input, and Stop or Escape ends the work. Main thread only.
class WorkProgress {
public:
  // `text` says what is done, `total` is how much there is to do. The dialog belongs to the window of `parent`.
  WorkProgress(const QString& text, int total, QTextDocument& document, QWidget& parent);
  ~WorkProgress();
  WorkProgress(const WorkProgress&) = delete;
  WorkProgress& operator=(const WorkProgress&) = delete;

  // To be called often, between two pieces of the work: shows that `done` is done, and may process events. False when
  // the work must end, because the user stopped it, or somebody else changed or closed the document meanwhile.
  bool goOn(int done);
  // False when the window has gone with all that was in it.
  bool hasWindow() const { return !parent_.isNull(); }

private:
  void makeDialog();

  QString text_;
  int total_;
  QPointer<QProgressDialog> dialog_;
  QPointer<QTextDocument> document_;
  QPointer<QWidget> parent_;
  QElapsedTimer sinceLook_; // or since the beginning
};

} // namespace desktop
