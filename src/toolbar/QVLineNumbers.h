// SPDX-License-Identifier: MIT
// The line numbers beside the text of an editor window, and what is done with those of all windows at once.
#pragma once

#include "platform/Canvas.h"
#include "platform/Control.h"

#include <QImage>
#include <QPoint>
#include <QPointer>
#include <QRect>
#include <QRegion>
#include <QWidget>

namespace quorvane {

// A narrow control beside the host's edit control: the number of every visible line, the caret's in bold, and in a
// strip at its bottom, level with the editor's scroll bar, how many lines the file has. A click on a number moves the
// caret there, a double click opens the host's "go to line".
//
// It is a component of its editor form, named like its class. It reads the edit control by its published properties and
// is polled: whoever notices that the editor may have moved calls PollLineNumbers, and a control whose editor shows
// other lines, or has its caret on another line, than at the last paint paints itself anew. The poll does not look at
// the number of lines: when lines below the caret are joined, the strip shows the old number until something else
// moves. Intended.
//
// What is painted goes into a picture of the control's own and from there to the screen, so that it may be painted at
// any time, also while the editor is being painted. The width follows the number of lines: it is settled before
// anything is drawn, and a new one only asks the form to lay itself out.
//
// A broken contract (no owner, an owner of another class) is an EAssertionFailed that names the unit QVEditorToolbar;
// an edit control that is missing or is none is an EInvalidCast. What comes out of an event goes to
// TApplication::HandleException. Main thread only.
class TQVLineNumbers : public QWidget, private platform::ICanvasSurface {
  Q_OBJECT
public:
  // Hidden, a child of the editor form `owner`, at the left or right edge as OptLineNumbersLeft says.
  explicit TQVLineNumbers(QWidget* owner);
  ~TQVLineNumbers() override;

  // The edit control whose lines are numbered: the component "Editor" of the owner, looked up at the first call unless
  // it has been set. Not owned.
  QObject* GetEditor();
  void SetEditor(QObject* editor) { FEditor = editor; }
  // Whether anything but the separator is painted; true at first.
  void SetShowLineNumbers(bool value);

  // Paints if the editor's first line, number of lines shown or caret line is another than at the last paint. `sender`
  // is not looked at.
  void DoTimer(QObject* sender);
  // Where numbers are drawn, in logical pixels: without the separator and without the strip at the bottom.
  QRect GetClientRect() const;
  // Paints numbers and separator.
  void Paint();
  // Paints the numbers and the strip as they are now, changed or not.
  void PaintLineNumbers();
  // Asks for a paint later.
  void Invalidate();

  // Moves the caret of the view on top to the line at the mouse. EDivByZero when the editor shows a single line. With
  // no view on top there is nothing to move.
  void ClickHandler(QObject* sender);
  // Executes the host's "go to line".
  void DblClickHandler(QObject* sender);

  // What has been painted, as it is on the screen or about to be.
  const QImage& Picture() const { return FPicture; }
  // The wanted width; the form gives the height.
  QSize sizeHint() const override { return {FWidth, 0}; }

protected:
  // For subclasses. Nothing calls it, and it does nothing.
  virtual void LineNumbersChanged() {}

  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

private:
  QImage& BeginDrawing() override;
  void EndDrawing(const QRect& area) override;
  QFont SurfaceFont() const override { return font(); }
  QPalette SurfacePalette() const override { return palette(); }
  QColor SurfaceColor() const override;

  int Published(const char* name);
  platform::TWinControl& Control();
  // Height of a line of the editor as it is drawn: 0 when a single line is shown.
  int LineHeight();
  void AssignEditorFont();
  void SettleWidth(const QString& count);
  void PaintRows(int lineCount);
  void PaintStrip(const QString& count);
  void PaintSeparator();
  void PaintPicture();
  QSize PictureSize() const;
  bool PictureFits() const;
  void FitPicture();

  QPointer<QObject> FEditor;
  // The editor's state at the last paint; -1 before the first.
  int FLastTopLine = -1;
  int FLastLinesInWindow = -1;
  int FLastCaretLine = -1;
  bool FShowLineNumbers = true;
  bool FAutoWidth = true; // the width follows that of the line count

  int FWidth; // the wanted width, which the form gives with its next layout
  QPoint FMousePos;
  bool FPressed = false; // a click has begun
  QImage FPicture;
  QRegion FCopyOnly;        // to be shown again although only the picture has changed
  bool FPaintWanted = true; // the next paint event paints, whatever it is about
  bool FPainting = false;
  platform::TCanvas FCanvas;
};

// Has the control of every editor window paint itself if its editor has moved.
void PollLineNumbers();
// The same for the window of `editor`, which must not be null.
void UpdateToolbar(const QObject* editor);
// Aligns the control of every editor window as OptLineNumbersLeft says and shows it, if the options want line numbers
// in a control of their own.
void ShowLineNumbers();
// Hides the control of every editor window.
void HideLineNumbers();

// The line numbers of an editor form, or null.
TQVLineNumbers* GetLineNumbers(const QObject& form);

} // namespace quorvane
