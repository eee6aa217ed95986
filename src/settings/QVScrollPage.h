// SPDX-License-Identifier: MIT
#pragma once

#include <QScrollArea>

namespace quorvane {

// A page of the options dialog: as large as its contents, and with scroll bars only on a screen that has no room for
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
  QSize minimumSizeHint() const override { return sizeHint(); }

protected:
  bool event(QEvent* event) override;
};

} // namespace quorvane
