// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>
#include <QWidget>

#include <vector>

class QVBoxLayout;

namespace desktop {

// Messages that stand above the text until the user closes them, so that nothing ever blocks the work.
//
// A message that is shown already is not shown again: its count goes up. When there are more than a few, the oldest
// go. The bar is hidden while it is empty.
class MessageBar : public QWidget {
  Q_OBJECT

public:
  enum class Kind { Information, Warning, Error };

  explicit MessageBar(QWidget* parent = nullptr);
  ~MessageBar() override;

  // Shows `text`, which occurred `count` times.
  void addMessage(Kind kind, const QString& text, int count = 1);
  void clear();
  // The messages as shown, "(3 times)" included, oldest first.
  QStringList messages() const;

private:
  class Row;

  void removeRow(Row* row);

  QVBoxLayout* layout_;
  std::vector<Row*> rows_;
};

} // namespace desktop
