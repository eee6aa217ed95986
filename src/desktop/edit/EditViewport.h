// SPDX-License-Identifier: MIT
#pragma once

#include <QBackingStore>
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

  // Whether a paint event goes elsewhere than to the screen, as when somebody takes a picture of the widget.
  bool isRendered() const {
    QPoint offset;
    const QPaintDevice* target = QWidget::redirected(&offset);
    QBackingStore* screen = window()->backingStore();
    return QWidget::sharedPainter() != nullptr ||
           (target != nullptr && (screen == nullptr || target != screen->paintDevice()));
  }

protected:
  QPaintDevice* redirected(QPoint* offset) const override {
    if (image_ == nullptr)
      return QWidget::redirected(offset);
    if (offset != nullptr)
      *offset = offset_;
    return image_;
  }
  // While a picture of the widget is taken its painters share one, which would go past the image.
  QPainter* sharedPainter() const override { return image_ == nullptr ? QWidget::sharedPainter() : nullptr; }

private:
  QImage* image_ = nullptr;
  QPoint offset_;
};

} // namespace desktop
