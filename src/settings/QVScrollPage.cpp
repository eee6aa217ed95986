// SPDX-License-Identifier: MIT
#include "settings/QVScrollPage.h"

#include <QEvent>
#include <QVBoxLayout>

namespace quorvane {

TQVScrollPage::TQVScrollPage(QWidget* parent) : QScrollArea(parent) {
  setFrameShape(QFrame::NoFrame);
  setWidgetResizable(true);
  setFocusPolicy(Qt::NoFocus);
  auto* const contents = new QWidget(this);
  auto* const layout = new QVBoxLayout(contents);
  layout->setContentsMargins(9, 5, 9, 5);
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
  return widget()->sizeHint();
}

bool TQVScrollPage::event(QEvent* event) {
  if (event->type() == QEvent::LayoutRequest)
    updateGeometry();
  return QScrollArea::event(event);
}

} // namespace quorvane
