// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>
#include <QWidget>

#include <functional>
#include <vector>

class QVBoxLayout;

namespace desktop {

// Messages that stand above the text until the user closes them, so that nothing ever blocks the work.
//
// A message that is shown already is not shown again: its count goes up. When there are more than a few, the oldest
// go, but never questions. The bar is hidden while it is empty.
class MessageBar : public QWidget {
  Q_OBJECT

public:
  enum class Kind { Information, Warning, Error };

  // A button of a question, and what it does when it is clicked.
  struct Answer {
    QString text; // with its mnemonic
    std::function<void()> run;
  };

  explicit MessageBar(QWidget* parent = nullptr);
  ~MessageBar() override;

  // Shows `text`, which occurred `count` times.
  void addMessage(Kind kind, const QString& text, int count = 1);
  // Shows `text` with a button for each answer. The question goes when it is answered; closed without an answer, it
  // calls `closed`. Returns the question, which lives until it is answered, closed or withdrawn.
  QWidget* ask(Kind kind, const QString& text, const std::vector<Answer>& answers, std::function<void()> closed = {});
  // Shows `text` with a bar that tells how far something has come, and a button that calls `stop`, after which the row
  // goes. Returns the row, which is to be withdrawn when all is done.
  QWidget* showProgress(const QString& text, std::function<void()> stop);
  // `percent` of what `row` shows is done.
  static void setProgress(const QWidget& row, int percent);
  // Takes a question away that needs no answer any more; it may have been answered.
  void withdraw(const QWidget* question);
  // Takes all messages and questions away.
  void clear();
  // The messages as shown, "(3 times)" included, oldest first.
  QStringList messages() const;

private:
  class Row;

  void addRow(Row* row);
  void removeRow(Row* row);

  QVBoxLayout* layout_;
  std::vector<Row*> rows_;
};

} // namespace desktop
