// SPDX-License-Identifier: MIT
// The real host with the add-in's proxies attached to its windows. The add-in is linked in, so that a test can turn its
// options; the package itself is loaded in PackageInHost_test.cpp.
#pragma once

#include "desktop/ide/IdeFixture.h"

#include "desktop/ide/IdeServices.h"
#include "editor/QVEditorProxy.h"
#include "platform/ota/Services.h"
#include "settings/model/QVOptions.h"
#include "support/HostPaints.h"

#include <QImage>
#include <QTest>

#include <cmath>
#include <memory>

namespace together {

class TogetherFixture : public desktop::IdeFixture {
protected:
  TogetherFixture() {
    quorvane::ResetOptions();
    platform::SetBorlandIDEServices(services);
    platform::Application().SetReporter(
        [](const QString& message, int) { ADD_FAILURE() << "reported: " << message.toStdString(); });
  }
  ~TogetherFixture() override {
    quorvane::TQVEditorProxy::RemoveExistingProxies();
    platform::SetBorlandIDEServices(nullptr);
    platform::Application().ReportPending();
    platform::Application().SetReporter({});
    quorvane::ResetOptions();
  }

  // Shows a new file with the keyboard focus in it, everything painted, and the add-in attached to all windows.
  void openWithAddIn(const QByteArray& bytes, const char* name = "unit.pas") {
    ASSERT_NE(open(bytes, name), nullptr);
    hostPaints_ = std::make_unique<support::HostPaints>(*editor());
    quorvane::TQVEditorProxy::InjectExistingProxies();
    editor()->setFocus();
    ASSERT_TRUE(support::waitUntil([this] { return editor()->hasFocus(); }));
    editor()->Repaint();
    support::settle();
  }

  // Puts the caret into a row and column, both from 1, and lets it be painted.
  void putCaret(int row, int column) {
    editor()->setCaret(row, column);
    support::settle();
  }

  int hostPaints() const { return hostPaints_->count; }
  void forgetHostPaints() { hostPaints_->count = 0; }

  // The pixels of a cell (row and column from 1, from the first visible ones) in the control's picture, each edge
  // rounded to the device pixel by itself.
  QImage cell(int row, int column) const { return cellOf(*editor(), row, column); }
  static QImage cellOf(const desktop::TEditControl& control, int row, int column) {
    const QImage& picture = control.picture();
    const QSize size = control.cellSize();
    const auto edge = [&](int logical) { return static_cast<int>(std::lround(logical * picture.devicePixelRatio())); };
    const int left = control.gutterWidth() + (column - 1) * size.width();
    const int top = (row - 1) * size.height();
    const QPoint corner(edge(left), edge(top));
    return picture.copy(QRect(corner, QPoint(edge(left + size.width()) - 1, edge(top + size.height()) - 1)));
  }

  // Whether every pixel along the border of the cell, where a bracket has no ink, has `color`.
  static bool isFilled(const QImage& cell, const QColor& color) {
    for (int x = 0; x < cell.width(); ++x) {
      if (cell.pixelColor(x, 0) != color || cell.pixelColor(x, cell.height() - 1) != color)
        return false;
    }
    for (int y = 0; y < cell.height(); ++y) {
      if (cell.pixelColor(0, y) != color || cell.pixelColor(cell.width() - 1, y) != color)
        return false;
    }
    return true;
  }
  bool isMarked(int row, int column) const { return isFilled(cell(row, column), markColor); }
  // Whether no pixel of the cell has the colour of the marks.
  bool isPlain(int row, int column) const { return countOf(cell(row, column), markColor) == 0; }

  // How many pixels of the whole picture have the colour of the marks.
  int markedPixels() const { return markedPixelsOf(*editor()); }
  static int markedPixelsOf(const desktop::TEditControl& control) { return countOf(control.picture(), markColor); }

  static int countOf(const QImage& image, const QColor& color) {
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x)
        count += image.pixelColor(x, y) == color;
    }
    return count;
  }

  // A colour that the host's own painting does not have.
  static inline const QColor markColor = QColor(255, 0, 255);

  void markInMagenta() { quorvane::OptParenMatchColor = 0xFF00FF; }

private:
  std::unique_ptr<support::HostPaints> hostPaints_;
};

} // namespace together
