// SPDX-License-Identifier: MIT
// An edit control that shows nothing by itself: its published values are plain members, its picture is an image in
// memory, and it records the messages that reach its own window procedure.
#pragma once

#include "platform/Canvas.h"
#include "platform/Control.h"

#include <QFont>
#include <QImage>
#include <QWidget>

#include <functional>
#include <vector>

namespace fakes {

// Name it "Editor" and give it an editor form as parent, or use TEditWindow, which does both. Its ground is white, and
// a character's cell an integer number of pixels wide, as a host's must be.
class FakeEditControl : public QWidget, public platform::TWinControl, private platform::ICanvasSurface {
  Q_OBJECT
  Q_PROPERTY(int CaretX MEMBER CaretX)
  Q_PROPERTY(int CaretY MEMBER CaretY)
  Q_PROPERTY(int TopLine MEMBER TopLine)
  Q_PROPERTY(int LinesInWindow MEMBER LinesInWindow)
  Q_PROPERTY(int LineCount MEMBER LineCount)
  Q_PROPERTY(int CharXIndex MEMBER CharXIndex)
  Q_PROPERTY(int CursorAttribute MEMBER CursorAttribute)
  Q_PROPERTY(qlonglong BlockBegin MEMBER BlockBegin)
  Q_PROPERTY(qlonglong BlockAfter MEMBER BlockAfter)
  Q_PROPERTY(qlonglong SearchBegin MEMBER SearchBegin)
  Q_PROPERTY(qlonglong SearchAfter MEMBER SearchAfter)
  Q_PROPERTY(int BorderStyle MEMBER BorderStyle)
  Q_PROPERTY(QString LineText MEMBER LineText)
  Q_PROPERTY(QString HotlinkText MEMBER HotlinkText)
  Q_PROPERTY(int Left MEMBER Left)
  Q_PROPERTY(int Top MEMBER Top)
  Q_PROPERTY(int Width MEMBER Width)
  Q_PROPERTY(int Height MEMBER Height)
  Q_PROPERTY(int Tag MEMBER Tag)
  Q_PROPERTY(int HelpContext MEMBER HelpContext)
  Q_PROPERTY(int Cursor MEMBER Cursor)
  Q_PROPERTY(QString Name READ objectName)
  Q_PROPERTY(QString Hint MEMBER Hint)
  Q_PROPERTY(QString HelpKeyword MEMBER HelpKeyword)

public:
  explicit FakeEditControl(QWidget* parent = nullptr);
  // Sends WM_DESTROY first of all.
  ~FakeEditControl() override;

  // Published values.
  int CaretX = 1;
  int CaretY = 1;
  int TopLine = 1;
  int LinesInWindow = 0;
  int LineCount = 0;
  int CharXIndex = 0;
  int CursorAttribute = 0;
  qlonglong BlockBegin = 0;
  qlonglong BlockAfter = 0;
  qlonglong SearchBegin = 0;
  qlonglong SearchAfter = 0;
  int BorderStyle = 0;
  QString LineText;
  QString HotlinkText;
  int Left = 0;
  int Top = 0;
  int Width = 0;
  int Height = 0;
  int Tag = 0;
  int HelpContext = 0;
  int Cursor = 0;
  QString Hint;
  QString HelpKeyword;

  // What ClientHeight answers.
  int PublishedClientHeight = 0;

  // Gives the control a text area of whole cells right of a gutter, and a white picture of that size at a device pixel
  // ratio. LinesInWindow becomes lines + 1.
  void SetUp(int columns, int lines, int gutterWidth, qreal ratio = 1);
  // The size of a character's cell in logical pixels.
  QSize CellSize() const;
  const QImage& Picture() const { return picture_; }
  // The device pixels of a cell of the visible text area, both from 1.
  QImage Cell(int column, int row) const;
  // The device pixels of a logical rectangle of the picture.
  QImage Pixels(const QRect& area) const;

  // Sends a message through the window procedure, as a host does, and returns it as it came back.
  platform::TMessage Send(unsigned code, std::uintptr_t wParam = 0);
  // The codes of the messages that reached the control's own procedure, since the start or the last call.
  std::vector<unsigned> TakeReceived() { return std::exchange(received_, {}); }
  // How often a paint was asked for, later and at once.
  int Invalidations = 0;
  int Repaints = 0;

  // What the control's own procedure does with a message, if anything.
  std::function<void(platform::TMessage& message)> OnMessage;
  // Called before each drawing on the canvas, as a host that first brings its picture up to date.
  std::function<void()> OnBeginDrawing;

  platform::TWndMethod WindowProc() const override { return windowProc_; }
  void SetWindowProc(const platform::TWndMethod& procedure) override { windowProc_ = procedure; }
  platform::TCanvas& Canvas() override { return canvas_; }
  int ClientWidth() const override { return Width; }
  int ClientHeight() const override { return PublishedClientHeight; }
  platform::TColor Color() const override { return platform::clWhite; }
  void Invalidate() override { ++Invalidations; }
  // Sends WM_PAINT at once.
  void Repaint() override;

private:
  QImage& BeginDrawing() override;
  void EndDrawing(const QRect&) override {}
  QFont SurfaceFont() const override { return font_; }
  QPalette SurfacePalette() const override { return palette(); }
  QColor SurfaceColor() const override { return Qt::white; }

  void DefaultProc(platform::TMessage& message);

  QFont font_;
  QImage picture_;
  int gutterWidth_ = 0;
  platform::TCanvas canvas_;
  platform::TWndMethod windowProc_;
  std::vector<unsigned> received_;
};

} // namespace fakes
