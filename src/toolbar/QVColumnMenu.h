// SPDX-License-Identifier: MIT
// A menu whose items may stand in two columns side by side.
#pragma once

#include <QList>
#include <QMenu>
#include <QPointer>
#include <QRect>
#include <QSize>

namespace quorvane {

// Like any menu, but an item may begin a new column, with a bar between the columns. Each column is broken again where
// the screen ends. The items are the menu's actions in their order; a menu without a bar, or too wide for the screen,
// is shown as any other.
//
// The up and down keys walk through all items in order; left and right go to the item beside.
class TQVColumnMenu final : public QMenu {
  Q_OBJECT
public:
  explicit TQVColumnMenu(QWidget* parent);

  // Lets `action`, which is in the menu, begin a new column with a separating bar. One action of a menu can do so.
  void SetBarBreak(QAction* action);
  // That action, or null.
  QAction* BarBreak() const { return FBar; }
  // Empties the menu. The actions go later, so one of them may be running now.
  void Clear();

  // Where an item stands in the menu as it is shown, in logical pixels; empty for what is not an item.
  QRect ItemRect(const QAction* action) const;
  // The item at a point of the menu, or null.
  QAction* ItemAt(const QPoint& point) const;

  QSize sizeHint() const override;

protected:
  bool event(QEvent* event) override;
  void actionEvent(QActionEvent* event) override;
  void changeEvent(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

private:
  // Where everything stands when the menu has columns.
  struct TPlan {
    QList<QRect> Items; // one an action
    int Bar = 0;        // x of the bar's left edge
    QSize Size;
  };

  const TPlan& Plan() const;
  TPlan MakePlan() const;
  QSize ItemSize() const;
  // Whether the items stand in columns; else the menu is left to its base class.
  bool HasColumns() const;
  void Activate(QAction* action);
  void MoveSideways(int direction);

  QPointer<QAction> FBar;
  mutable TPlan FPlan;
  mutable bool FPlanned = false;
  bool FEntered = false; // the mouse has been moved or pressed in the menu since it was opened
};

} // namespace quorvane
