// SPDX-License-Identifier: MIT
// The palette as a window.
#pragma once

#include "platform/Color.h"

#include <QPointer>
#include <QWidget>

#include <functional>

class QColorDialog;

namespace quorvane {

class TColorBtn;
class TColorPicker;

// The palette of a colour button: dropped below it, and gone with the choice, with Escape, or when it loses the focus.
// It is owned by the button and frees itself when it is closed.
//
// It is a tool window without a frame, so it is active while it is open, and can stay open beneath the system's colour
// dialog. A pop-up could not: it takes all input of the program for itself, the dialog's too. On Wayland only a pop-up
// can be placed below the button, though; there it hides while the dialog is open.
class TColPickDlg final : public QWidget {
  Q_OBJECT
public:
  // Qt::Popup on Wayland, Qt::Tool elsewhere.
  static Qt::WindowType UsualType();

  TColPickDlg(TColorBtn* button, Qt::WindowType type);
  ~TColPickDlg() override;

  TColorPicker& Picker() const { return *picker_; }
  // Whether it has been closed and is about to free itself. One that is hidden beneath the colour dialog has not.
  bool IsClosed() const { return closed_; }

  // Shows the palette below `button`, or above it when the screen ends, for the choice of its colour.
  void Drop(TColorBtn& button);

protected:
  bool event(QEvent* event) override;
  bool focusNextPrevChild(bool next) override;
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void keyReleaseEvent(QKeyEvent* event) override;

private:
  void FormShow();
  void FormKeyDown(const QKeyEvent& event);
  void FormClose();
  void LoseFocus();
  void TakeFocus();
  // Opens the system's colour dialog and calls `accept` with its colour, unless it is cancelled.
  void AskColor(platform::TColor preset, std::function<void(platform::TColor)> accept);

  TColorPicker* picker_;
  QPointer<TColorBtn> button_;
  bool accepted_ = false;
  bool closed_ = false;
  QPointer<QColorDialog> colorDialog_; // while the user is asked for a colour
  bool keepsOpen_ = false;             // then, and until the palette is active again, it may lose the focus
};

} // namespace quorvane
