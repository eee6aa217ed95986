// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QWidget>

namespace desktop {

// The part of an edit control that shows the text. Painting on it goes to an image for as long as one is set.
class EditViewport : public QWidget {
public:
  using QWidget::QWidget;

  // Sends what is painted on this widget to `image`, shifted right by `shift` logical pixels; null ends that.
  void redirectTo(QImage* image, int shift) {
    image_ = image;
    offset_ = QPoint(-shift, 0);
  }

protected:
  QPaintDevice* redirected(QPoint* offset) const override {
    if (image_ == nullptr)
      return QWidget::redirected(offset);
    if (offset != nullptr)
      *offset = offset_;
    return image_;
  }

private:
  QImage* image_ = nullptr;
  QPoint offset_;
};

} // namespace desktop
