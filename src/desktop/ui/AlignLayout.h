// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Align.h"

#include <QLayout>
#include <QPoint>

#include <memory>
#include <optional>
#include <vector>

namespace desktop {

// Lays out the direct children of a form by their platform::TAlign.
//
// Children join by being children: nothing is to be added, so an add-in only makes a control a child of the form, says
// its alignment and shows it. The place that a child was moved to by others than this layout decides its order among
// those of its side. A control's size hint gives the extent of its strip, its present size if it has no hint.
class AlignLayout : public QLayout {
  Q_OBJECT

public:
  // Becomes the layout of `form` and takes in the children that it has.
  explicit AlignLayout(QWidget* form);
  ~AlignLayout() override;

  void addItem(QLayoutItem* item) override;
  int count() const override;
  QLayoutItem* itemAt(int index) const override;
  QLayoutItem* takeAt(int index) override;
  QSize sizeHint() const override;
  QSize minimumSize() const override;
  void setGeometry(const QRect& rectangle) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  struct Entry {
    std::unique_ptr<QLayoutItem> item;
    QPoint given;                 // where others than this layout last moved the control to
    std::optional<QPoint> placed; // where this layout last put it

    void noticeMove();
  };

  void takeIn(QWidget* child);
  std::vector<Entry*> alignedAt(platform::TAlign side) const;
  QSize combined(QSize (QLayoutItem::*size)() const) const;

  std::vector<std::unique_ptr<Entry>> entries_; // in the order of joining
};

} // namespace desktop
