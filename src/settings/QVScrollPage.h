// SPDX-License-Identifier: MIT
#pragma once

#include <QScrollArea>

namespace quorvane {

// A page of the options dialog: it wants to be as large as its contents, and has scroll bars where there is no room for
// them. The controls are put on Contents(), which lays them out from the top.
class TQVScrollPage final : public QScrollArea {
  Q_OBJECT
public:
  explicit TQVScrollPage(QWidget* parent = nullptr);
  ~TQVScrollPage() override;

  QWidget& Contents() const { return *widget(); }
  // Puts `group` below the groups that are there.
  void AddGroup(QWidget* group);

  QSize sizeHint() const override;

protected:
  bool event(QEvent* event) override;
};

} // namespace quorvane
