// SPDX-License-Identifier: MIT
#include "toolbar/QVColumnMenu.h"

#include <QAction>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScreen>
#include <QStyleOptionFrame>
#include <QStyleOptionMenuItem>
#include <QStylePainter>
#include <QToolTip>

#include <algorithm>
#include <cstdlib>

namespace quorvane {

namespace {

// The bar with the room on both its sides.
constexpr int kBarRoom = 7;

} // namespace

TQVColumnMenu::TQVColumnMenu(QWidget* parent) : QMenu(parent) {
  setMouseTracking(true);
  connect(this, &QMenu::aboutToShow, this, [this] {
    FPlanned = false; // it may open on another screen than last time
    FEntered = false;
  });
}

void TQVColumnMenu::SetBarBreak(QAction* action) {
  FBar = action;
  FPlanned = false;
}

void TQVColumnMenu::Clear() {
  for (QAction* action : actions()) {
    removeAction(action);
    action->deleteLater();
  }
  FBar = nullptr;
}

bool TQVColumnMenu::HasColumns() const {
  return FBar && Plan().Size.width() <= screen()->availableSize().width();
}

const TQVColumnMenu::TPlan& TQVColumnMenu::Plan() const {
  if (!FPlanned) {
    FPlan = MakePlan();
    FPlanned = true;
  }
  return FPlan;
}

// One size for all items, so that the columns line up.
QSize TQVColumnMenu::ItemSize() const {
  QSize largest;
  for (QAction* action : actions()) {
    QStyleOptionMenuItem option;
    initStyleOption(&option, action);
    const QFontMetrics metrics(option.font);
    const QSize text(metrics.boundingRect(QRect(), Qt::TextSingleLine | Qt::TextShowMnemonic, action->text()).width(),
                     metrics.height());
    largest = largest.expandedTo(style()->sizeFromContents(QStyle::CT_MenuItem, &option, text, this));
  }
  return largest;
}

TQVColumnMenu::TPlan TQVColumnMenu::MakePlan() const {
  const int panel = style()->pixelMetric(QStyle::PM_MenuPanelWidth, nullptr, this);
  const int left = panel + style()->pixelMetric(QStyle::PM_MenuHMargin, nullptr, this);
  const int top = panel + style()->pixelMetric(QStyle::PM_MenuVMargin, nullptr, this);
  const QSize item = ItemSize();
  const int rows = std::max(1, (screen()->availableSize().height() - 2 * top) / std::max(1, item.height()));

  TPlan plan;
  int x = left;
  int row = 0;
  int tallest = 0;
  for (const QAction* action : actions()) {
    if (action == FBar) {
      if (row > 0)
        x += item.width();
      plan.Bar = x + kBarRoom / 2;
      x += kBarRoom;
      row = 0;
    } else if (row == rows) {
      x += item.width();
      row = 0;
    }
    plan.Items.append(QRect(QPoint(x, top + row * item.height()), item));
    tallest = std::max(tallest, ++row);
  }
  plan.Size = QSize(x + item.width() + left, tallest * item.height() + 2 * top);
  return plan;
}

QRect TQVColumnMenu::ItemRect(const QAction* action) const {
  const qsizetype index = actions().indexOf(action);
  if (!HasColumns())
    return actionGeometry(const_cast<QAction*>(action));
  return index < 0 ? QRect() : Plan().Items.at(index);
}

QAction* TQVColumnMenu::ItemAt(const QPoint& point) const {
  if (!HasColumns())
    return actionAt(point);
  const QList<QRect>& items = Plan().Items;
  const auto found = std::ranges::find_if(items, [&](const QRect& item) { return item.contains(point); });
  return found == items.end() ? nullptr : actions().at(found - items.begin());
}

QSize TQVColumnMenu::sizeHint() const {
  return HasColumns() ? Plan().Size : QMenu::sizeHint();
}

bool TQVColumnMenu::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip || !HasColumns())
    return QMenu::event(event);
  const auto* const help = static_cast<QHelpEvent*>(event);
  const QAction* const action = ItemAt(help->pos());
  QToolTip::showText(help->globalPos(), action != nullptr && toolTipsVisible() ? action->toolTip() : QString(), this);
  return true;
}

void TQVColumnMenu::actionEvent(QActionEvent* event) {
  FPlanned = false;
  QMenu::actionEvent(event);
}

void TQVColumnMenu::changeEvent(QEvent* event) {
  FPlanned = false;
  QMenu::changeEvent(event);
}

void TQVColumnMenu::paintEvent(QPaintEvent* event) {
  if (!HasColumns()) {
    QMenu::paintEvent(event);
    return;
  }
  QStylePainter painter(this);
  QStyleOptionMenuItem ground;
  ground.initFrom(this);
  ground.state = QStyle::State_None;
  ground.checkType = QStyleOptionMenuItem::NotCheckable;
  ground.menuRect = rect();
  painter.drawPrimitive(QStyle::PE_PanelMenu, ground);
  painter.drawControl(QStyle::CE_MenuEmptyArea, ground);

  const TPlan& plan = Plan();
  for (qsizetype index = 0; index < plan.Items.size(); ++index) {
    QStyleOptionMenuItem option;
    initStyleOption(&option, actions().at(index));
    option.rect = plan.Items.at(index);
    painter.drawControl(QStyle::CE_MenuItem, option);
  }
  const int top = plan.Items.constFirst().top();
  QColor bar = palette().color(QPalette::Text);
  bar.setAlphaF(0.3F);
  painter.fillRect(QRect(plan.Bar, top, 1, height() - 2 * top), bar);

  if (const int panel = style()->pixelMetric(QStyle::PM_MenuPanelWidth, nullptr, this); panel > 0) {
    QStyleOptionFrame frame;
    frame.initFrom(this);
    frame.state = QStyle::State_None;
    frame.lineWidth = panel;
    frame.midLineWidth = 0;
    painter.drawPrimitive(QStyle::PE_FrameMenu, frame);
  }
}

void TQVColumnMenu::mouseMoveEvent(QMouseEvent* event) {
  if (!HasColumns() || !rect().contains(event->position().toPoint())) {
    QMenu::mouseMoveEvent(event);
    return;
  }
  FEntered = true;
  Activate(ItemAt(event->position().toPoint()));
}

void TQVColumnMenu::mousePressEvent(QMouseEvent* event) {
  // One beside the menu closes it.
  if (!HasColumns() || !rect().contains(event->position().toPoint())) {
    QMenu::mousePressEvent(event);
    return;
  }
  FEntered = true;
  Activate(ItemAt(event->position().toPoint()));
}

void TQVColumnMenu::mouseReleaseEvent(QMouseEvent* event) {
  if (!HasColumns()) {
    QMenu::mouseReleaseEvent(event);
    return;
  }
  QAction* const action = ItemAt(event->position().toPoint());
  // The release that belongs to the press on the menu's button chooses nothing.
  if (!FEntered || action == nullptr)
    return;
  Activate(action);
  // Choosing the active item, with all that a menu does then, is open to keys only.
  QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
  QMenu::keyPressEvent(&enter);
}

void TQVColumnMenu::leaveEvent(QEvent* event) {
  QMenu::leaveEvent(event);
  if (HasColumns())
    Activate(nullptr);
}

void TQVColumnMenu::keyPressEvent(QKeyEvent* event) {
  if (HasColumns() && (event->key() == Qt::Key_Left || event->key() == Qt::Key_Right)) {
    MoveSideways(event->key() == Qt::Key_Right ? 1 : -1);
    event->accept();
    return;
  }
  const QPointer<TQVColumnMenu> alive(this);
  QMenu::keyPressEvent(event);
  if (alive)
    update(); // the base class repaints what it takes for the place of the item
}

void TQVColumnMenu::Activate(QAction* action) {
  if (action != activeAction())
    setActiveAction(action);
  update();
}

// Goes to the item of the next column whose middle is nearest; from nowhere to the first item.
void TQVColumnMenu::MoveSideways(int direction) {
  const QList<QRect>& items = Plan().Items;
  const qsizetype from = actions().indexOf(activeAction());
  if (from < 0) {
    Activate(actions().constFirst());
    return;
  }
  const QRect start = items.at(from);
  qsizetype best = -1;
  const auto distance = [&](qsizetype index) {
    const QPoint way = items.at(index).center() - start.center();
    return std::pair(way.x() * direction, std::abs(way.y()));
  };
  for (qsizetype index = 0; index < items.size(); ++index) {
    if (distance(index).first > 0 && (best < 0 || distance(index) < distance(best)))
      best = index;
  }
  if (best >= 0)
    Activate(actions().at(best));
}

} // namespace quorvane
