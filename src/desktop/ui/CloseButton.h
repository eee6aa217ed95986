// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractButton>

namespace desktop {

// A small cross in the colour of the text around it, so that it suits light and dark windows alike. Used on tabs and
// bars.
class CloseButton : public QAbstractButton {
  Q_OBJECT

public:
  explicit CloseButton(const QString& hint, QWidget* parent = nullptr);

  QSize sizeHint() const override;

protected:
  void enterEvent(QEnterEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
};

} // namespace desktop
