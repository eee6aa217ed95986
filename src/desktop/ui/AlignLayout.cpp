// SPDX-License-Identifier: MIT
#include "desktop/ui/AlignLayout.h"

#include <QChildEvent>
#include <QDynamicPropertyChangeEvent>

#include <algorithm>
#include <array>
#include <utility>

namespace desktop {

using platform::TAlign;

namespace {

// The thickness of the strip of a control that lies at the top or bottom of a form `width` wide.
int heightOf(QLayoutItem& item, int width) {
  const int hint = item.hasHeightForWidth() ? item.heightForWidth(width) : item.sizeHint().height();
  const QWidget& control = *item.widget();
  return std::clamp(control.sizeHint().isValid() ? hint : control.height(), item.minimumSize().height(),
                    std::max(item.minimumSize().height(), item.maximumSize().height()));
}

int widthOf(QLayoutItem& item) {
  const QWidget& control = *item.widget();
  return std::clamp(control.sizeHint().isValid() ? item.sizeHint().width() : control.width(),
                    item.minimumSize().width(), std::max(item.minimumSize().width(), item.maximumSize().width()));
}

// Cuts the strip of `item` off `rest`.
QRect takeStrip(TAlign side, QLayoutItem& item, QRect& rest) {
  QRect strip = rest;
  switch (side) {
  case TAlign::alTop:
    strip.setHeight(heightOf(item, rest.width()));
    rest.setTop(strip.bottom() + 1);
    break;
  case TAlign::alBottom:
    strip.setTop(rest.bottom() + 1 - heightOf(item, rest.width()));
    rest.setBottom(strip.top() - 1);
    break;
  case TAlign::alLeft:
    strip.setWidth(widthOf(item));
    rest.setLeft(strip.right() + 1);
    break;
  case TAlign::alRight:
    strip.setLeft(rest.right() + 1 - widthOf(item));
    rest.setRight(strip.left() - 1);
    break;
  case TAlign::alClient:
  case TAlign::alNone:
    break;
  }
  return strip;
}

constexpr std::array alignOrder = {TAlign::alTop, TAlign::alBottom, TAlign::alLeft, TAlign::alRight, TAlign::alClient};

} // namespace

AlignLayout::AlignLayout(QWidget* form) : QLayout(form) {
  setContentsMargins(0, 0, 0, 0);
  form->installEventFilter(this);
  for (QObject* child : form->children()) {
    if (child->isWidgetType())
      takeIn(static_cast<QWidget*>(child));
  }
}

AlignLayout::~AlignLayout() = default;

// A hidden control hears of its moves only when it is shown, so places are compared instead of moves counted.
void AlignLayout::Entry::noticeMove() {
  const QWidget* const control = item->widget();
  if (control != nullptr && control->pos() != placed)
    given = control->pos();
}

void AlignLayout::takeIn(QWidget* child) {
  addItem(std::make_unique<QWidgetItem>(child).release());
  child->installEventFilter(this);
}

void AlignLayout::addItem(QLayoutItem* item) {
  auto entry = std::make_unique<Entry>();
  entry->item.reset(item);
  entries_.push_back(std::move(entry));
  invalidate();
}

int AlignLayout::count() const {
  return static_cast<int>(entries_.size());
}

QLayoutItem* AlignLayout::itemAt(int index) const {
  return index >= 0 && index < count() ? entries_[static_cast<std::size_t>(index)]->item.get() : nullptr;
}

QLayoutItem* AlignLayout::takeAt(int index) {
  if (index < 0 || index >= count())
    return nullptr;
  const auto entry = entries_.begin() + index;
  QLayoutItem* const item = (*entry)->item.release();
  entries_.erase(entry);
  return item;
}

std::vector<AlignLayout::Entry*> AlignLayout::alignedAt(TAlign side) const {
  std::vector<Entry*> found;
  for (const std::unique_ptr<Entry>& entry : entries_) {
    const QWidget* const control = entry->item->widget();
    if (control != nullptr && !entry->item->isEmpty() && platform::Align(*control) == side)
      found.push_back(entry.get());
  }
  const auto comesFirst = [side](const Entry* left, const Entry* right) {
    switch (side) {
    case TAlign::alTop:
      return left->given.y() < right->given.y();
    case TAlign::alBottom:
      return left->given.y() > right->given.y();
    case TAlign::alLeft:
      return left->given.x() < right->given.x();
    case TAlign::alRight:
      return left->given.x() > right->given.x();
    case TAlign::alClient:
    case TAlign::alNone:
      break;
    }
    return false;
  };
  std::stable_sort(found.begin(), found.end(), comesFirst);
  return found;
}

void AlignLayout::setGeometry(const QRect& rectangle) {
  QLayout::setGeometry(rectangle);
  for (const std::unique_ptr<Entry>& entry : entries_)
    entry->noticeMove();
  QRect rest = rectangle;
  for (const TAlign side : alignOrder) {
    for (Entry* entry : alignedAt(side)) {
      const QRect strip = takeStrip(side, *entry->item, rest);
      entry->placed = strip.topLeft();
      entry->item->widget()->setGeometry(strip);
    }
  }
}

QSize AlignLayout::combined(QSize (QLayoutItem::*size)() const) const {
  QSize inside(0, 0);
  for (const Entry* entry : alignedAt(TAlign::alClient))
    inside = inside.expandedTo((entry->item.get()->*size)());
  for (const TAlign side : {TAlign::alRight, TAlign::alLeft, TAlign::alBottom, TAlign::alTop}) {
    for (const Entry* entry : alignedAt(side)) {
      const QSize extent = (entry->item.get()->*size)();
      if (side == TAlign::alLeft || side == TAlign::alRight)
        inside = {inside.width() + extent.width(), std::max(inside.height(), extent.height())};
      else
        inside = {std::max(inside.width(), extent.width()), inside.height() + extent.height()};
    }
  }
  return inside;
}

QSize AlignLayout::sizeHint() const {
  return combined(&QLayoutItem::sizeHint);
}

QSize AlignLayout::minimumSize() const {
  return combined(&QLayoutItem::minimumSize);
}

bool AlignLayout::eventFilter(QObject* watched, QEvent* event) {
  if (watched == parentWidget()) {
    if (event->type() == QEvent::ChildAdded) {
      QObject* const child = static_cast<QChildEvent*>(event)->child();
      if (child->isWidgetType())
        takeIn(static_cast<QWidget*>(child));
    }
    return false;
  }
  if (event->type() == QEvent::Move) {
    const auto entry = std::find_if(entries_.begin(), entries_.end(),
                                    [watched](const auto& each) { return each->item->widget() == watched; });
    if (entry != entries_.end() && (*entry)->item->widget()->pos() != (*entry)->placed)
      invalidate();
  } else if (event->type() == QEvent::DynamicPropertyChange &&
             static_cast<QDynamicPropertyChangeEvent*>(event)->propertyName() == platform::AlignProperty) {
    invalidate();
  }
  return false;
}

} // namespace desktop
