// SPDX-License-Identifier: MIT
#include "settings/QVScrollPage.h"

#include <QEvent>
#include <QScreen>
#include <QStyle>
#include <QVBoxLayout>

namespace quorvane {

namespace {

// How much of the screen a page may take; the rest is the dialog's frame, tabs and buttons.
constexpr double kShareOfScreen = 0.8;

} // namespace

TQVScrollPage::TQVScrollPage(QWidget* parent) : QScrollArea(parent) {
  setFrameShape(QFrame::NoFrame);
  setWidgetResizable(true);
  setFocusPolicy(Qt::NoFocus);
  auto* const contents = new QWidget(this);
  auto* const layout = new QVBoxLayout(contents);
  layout->addStretch();
  setWidget(contents);
  // The ground is that of the page control.
  viewport()->setAutoFillBackground(false);
  contents->setAutoFillBackground(false);
}

TQVScrollPage::~TQVScrollPage() = default;

void TQVScrollPage::AddGroup(QWidget* group) {
  auto* const layout = static_cast<QVBoxLayout*>(Contents().layout());
  layout->insertWidget(layout->count() - 1, group);
}

QSize TQVScrollPage::sizeHint() const {
  const QSize room = screen()->availableSize() * kShareOfScreen;
  const QSize contents = widget()->sizeHint();
  const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, this);
  const QSize bars(contents.height() > room.height() ? bar : 0, contents.width() > room.width() ? bar : 0);
  return (contents + bars).boundedTo(room);
}

bool TQVScrollPage::event(QEvent* event) {
  if (event->type() == QEvent::LayoutRequest)
    updateGeometry();
  return QScrollArea::event(event);
}

} // namespace quorvane
