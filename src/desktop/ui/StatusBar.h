// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

class QLabel;

namespace desktop {

class Page;
class TEditControl;

// The line at the bottom of an editor window: where the caret is, whether there is something to save, whether typing
// inserts, how the file is written, and why it cannot be changed.
class StatusBar : public QWidget {
  Q_OBJECT

public:
  // Follows `editor`, which must outlive the bar.
  explicit StatusBar(TEditControl* editor, QWidget* parent = nullptr);

  // Shows what there is to say of `page`; null shows nothing.
  void showPage(const Page* page);
  // Says `text` in place of what there is to say of the page, until the caret moves or there is news of the page.
  void showNote(const QString& text);

private:
  void showCaret(int row, int column);
  void showInsertMode(bool insert);
  void showRemark(const QString& text);

  QLabel* position_;
  QLabel* modified_;
  QLabel* insert_;
  QLabel* remark_;
  QLabel* encoding_;
  QLabel* lineEnds_;
  QString pageRemark_; // what there is to say of the page
  bool pageShown_ = false;
};

} // namespace desktop
