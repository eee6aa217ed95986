// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/edit/BracketPairs.h"
#include "desktop/edit/CellFont.h"
#include "desktop/edit/CellLayout.h"
#include "desktop/edit/ColorScheme.h"
#include "desktop/edit/HotLink.h"
#include "desktop/edit/Indentation.h"
#include "desktop/edit/PascalHighlighter.h"
#include "platform/Canvas.h"
#include "platform/Control.h"

#include <QImage>
#include <QList>
#include <QPlainTextEdit>
#include <QPointer>
#include <QRegion>
#include <QSize>

#include <functional>
#include <memory>
#include <vector>

namespace desktop {

class CaretBlink;
class EditViewport;

// What a page keeps of the control while another page is in front.
struct EditState {
  int caret = 0;    // position in the document, UTF-16 units from 0
  int anchor = 0;   // the other end of the selection; equals caret when nothing is selected
  int topLine = 0;  // the first visible line, from 0
  int leftCell = 0; // the first visible cell, from 0
};

// How a document is coloured.
enum class Colouring { Pascal, None };

// The edit control: a plain text editor whose text stands in cells of one integer size and which tells a window
// procedure about everything that happens to it.
//
// Messages. Each Qt event of interest becomes one TMessage and goes to windowProc; the control's own procedure, in
// place at first, hands the event to Qt. An add-in puts its procedure in place of it and calls the earlier one. What a
// procedure throws goes to Application().HandleException.
//
// Picture. The control paints into an image of its client area (gutter and text) and copies that image to the screen.
// Every change of the text, the selection or the scroll position asks for one WM_PAINT, which paints the whole image.
// What add-ins draw on the canvas at other times stays in the image, and so on the screen, until the next WM_PAINT. The
// caret is laid over the copy by a timer of the control's own; it is never in the image and its blinking is no
// WM_PAINT.
//
// Geometry. All values are logical pixels. Column c (from 1) starts at gutterWidth() + (c - leftColumn()) *
// cellSize().width() and line n (from 1) at (n - topLine()) * cellSize().height(). The published Width and ClientHeight
// are made of whole cells, so that both can be computed from them: (Width - gutter) / columns and ClientHeight /
// (LinesInWindow - 1).
//
// A document must outlive being shown: show another one, or null, before destroying it. Main thread only.
class TEditControl : public QPlainTextEdit, public platform::TWinControl, private platform::ICanvasSurface {
  Q_OBJECT
  // What add-ins read by name. Columns and lines count from 1.
  Q_PROPERTY(int CaretX READ caretColumn)
  Q_PROPERTY(int CaretY READ caretRow)
  Q_PROPERTY(int TopLine READ topLine)
  Q_PROPERTY(int LinesInWindow READ linesInWindow)
  Q_PROPERTY(int LineCount READ lineCount)
  Q_PROPERTY(int CharXIndex READ caretCharIndex)
  Q_PROPERTY(int CursorAttribute READ cursorAttribute)
  Q_PROPERTY(qlonglong BlockBegin READ blockBegin)
  Q_PROPERTY(qlonglong BlockAfter READ blockAfter)
  Q_PROPERTY(qlonglong SearchBegin READ searchBegin)
  Q_PROPERTY(qlonglong SearchAfter READ searchAfter)
  Q_PROPERTY(int BorderStyle READ borderStyle)
  Q_PROPERTY(QString LineText READ lineText)
  Q_PROPERTY(QString HotlinkText READ hotlinkText)
  Q_PROPERTY(int Left READ left)
  Q_PROPERTY(int Top READ top)
  Q_PROPERTY(int Width READ publishedWidth)
  Q_PROPERTY(int Height READ height)
  Q_PROPERTY(int Tag MEMBER tag_)
  Q_PROPERTY(int HelpContext MEMBER helpContext_)
  Q_PROPERTY(int Cursor READ cursorShape)
  Q_PROPERTY(QString Name READ objectName)
  Q_PROPERTY(QString Hint READ toolTip WRITE setToolTip)
  Q_PROPERTY(QString HelpKeyword MEMBER helpKeyword_)

public:
  explicit TEditControl(QWidget* parent = nullptr);
  ~TEditControl() override;

  // Shows `document`, which is not owned and needs a QPlainTextDocumentLayout; null shows an empty document of the
  // control's own. Caret and scroll position go to the start. The document takes the control's font and tab stops.
  void showDocument(QTextDocument* document, Colouring colouring = Colouring::Pascal);
  // What documents take from the control. One that has it, and a CellLayout, is shown at once however long it is.
  DocumentLook look() const;
  // Caret, selection and scroll position. restoreState clips all of them to the text.
  EditState state() const;
  void restoreState(const EditState& state);

  // Typing inserts (at first), or else overwrites.
  bool insertMode() const { return insertMode_; }
  void setInsertMode(bool insert);
  const ColorScheme& colorScheme() const { return scheme_; }
  void setColorScheme(const ColorScheme& scheme);
  // The gutter left of the text, 30 at first; 0 hides it.
  int gutterWidth() const { return gutterWidth_; }
  void setGutterWidth(int width);
  // The editor font. One that is not monospaced is taken, but its characters will not keep to their cells.
  QString editorFontFamily() const { return fontFamily_; }
  int editorFontPoints() const { return fontPoints_; }
  void setEditorFont(const QString& family, int points);
  // The distance of the stops to which tab characters reach, in cells; 8 at first, at least 1.
  int tabWidth() const { return tabWidth_; }
  void setTabWidth(int cells);
  // A line behind this column, which lies over the picture as the frames do; 0, as at first, for none.
  int rightMargin() const { return rightMargin_; }
  void setRightMargin(int column);
  // Whether blanks and tabs are drawn; not at first.
  bool showsBlanks() const { return showsBlanks_; }
  void setShowsBlanks(bool show);
  // By how many cells Tab, Shift+Tab and block indentation go, 2 at first, at least 1; and what Tab puts in.
  int indentWidth() const { return indentWidth_; }
  void setIndentWidth(int cells);
  TabInsertion tabInsertion() const { return tabInsertion_; }
  void setTabInsertion(TabInsertion insertion) { tabInsertion_ = insertion; }

  // Whether brackets and quotes are typed as pairs, in Pascal source and while typing inserts; not at first.
  bool typesPairs() const { return typesPairs_; }
  void setTypesPairs(bool pairs);

  IndentOptions indentOptions() const { return {indentWidth_, tabWidth_, tabInsertion_}; }

  // For every line that the selection touches (the caret's line without one), as one undo step; a line that the
  // selection only reaches the start of stays. A read-only text is left alone.
  void indentBlock(); // by one indent width
  void unindentBlock();
  void commentBlock(); // by "// "
  void uncommentBlock();
  void duplicateBlock(); // below, and the caret goes into the copy
  void moveBlockUp();    // by one line
  void moveBlockDown();

  // Row and screen column of the caret, both from 1, tabs expanded; and the character index (code points) from 0.
  int caretRow() const;
  int caretColumn() const;
  int caretCharIndex() const;
  // Puts the caret into a row and screen column (from 1), clipped to the text, without scrolling.
  void setCaret(int row, int column);
  // Scrolls as little as needed for the caret to be seen.
  void showCaret();

  // Between the two nothing is painted, since the document's layout is out of date inside an edit block; the calls may
  // be nested.
  void holdPainting();
  void releasePainting();
  bool isPaintingHeld() const { return paintingHolds_ > 0; }

  // The first visible line and column, from 1.
  int topLine() const;
  int leftColumn() const;
  void setTopLine(int line);
  void setLeftColumn(int column);
  // Whole columns and lines that fit, at least 1 each.
  QSize viewSize() const;
  // Of one character, in logical pixels.
  QSize cellSize() const { return cellFont_.cell; }

  // The published values that have no better name elsewhere.
  int linesInWindow() const { return viewSize().height() + 1; }
  int lineCount() const { return blockCount(); }
  int cursorAttribute() const;
  QString lineText() const;
  int publishedWidth() const { return ClientWidth(); }

  // Remembers the last match of a search, as positions in the document, for SearchBegin and SearchAfter.
  void setSearchMatch(int begin, int after);

  using SpanFinder = std::function<std::vector<UnitSpan>(const QTextBlock& line)>;
  // Puts a frame round what `find` names in each line in sight; it is asked at every WM_PAINT. A null function ends it.
  // Like the caret the frames lie over the picture, not in it, so that add-ins find every ground as it was.
  void setFramedSpans(SpanFinder find);
  // The frames in sight, in pixels of the client area.
  QList<QRect> frames() const;

  // What becomes a link under the mouse; it finds none at first. Its line lies over the picture as the frames do.
  HotLink* hotLink() const { return hotLink_; }

  // The image of the client area as add-ins and the host have painted it, the caret apart.
  const QImage& picture() const { return surface_; }

  // The contract. ClientWidth is gutter + columns x cell; ClientHeight a multiple of the cell's height.
  platform::TWndMethod WindowProc() const override { return windowProc_; }
  void SetWindowProc(const platform::TWndMethod& procedure) override;
  platform::TCanvas& Canvas() override { return *canvas_; }
  int ClientWidth() const override;
  int ClientHeight() const override;
  platform::TColor Color() const override;
  void Invalidate() override;
  void Repaint() override;

Q_SIGNALS:
  // Both from 1, the column with tabs expanded.
  void caretMoved(int row, int column);
  void insertModeChanged(bool insert);
  // The wheel was turned with Ctrl, by so many steps; positive is for larger text.
  void zoomWanted(int steps);

protected:
  bool event(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  bool viewportEvent(QEvent* event) override;
  void changeEvent(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void keyReleaseEvent(QKeyEvent* event) override;
  void inputMethodEvent(QInputMethodEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  QMimeData* createMimeDataFromSelection() const override;

private:
  // The canvas's way to the picture.
  QImage& BeginDrawing() override;
  void EndDrawing(const QRect& area) override;
  QFont SurfaceFont() const override { return font(); }
  QPalette SurfacePalette() const override { return palette(); }
  QColor SurfaceColor() const override { return scheme_.ground; }

  // Messages: EditControlMessages.cpp.
  void send(unsigned code, std::uintptr_t wParam, QEvent* event);
  void defaultProc(platform::TMessage& message);
  void announceKey(QKeyEvent& event);
  void sendCharacters(const QString& text, QEvent& event);
  void sendScroll(Qt::Orientation orientation);
  void turnZoom(QWheelEvent& event);
  void applyKey(QKeyEvent& event);
  bool unindentCaret();
  bool takesPairs() const;
  bool isCodeAt(const QTextBlock& line, int unit) const;
  bool takePairBack();
  template <class TEdit> void editLines(TEdit&& edit); // EditControlCommands.cpp
  void applyCharacter(char32_t character);
  void applyScroll(Qt::Orientation orientation);
  QScrollBar& scrollBar(Qt::Orientation orientation) const;

  // Picture: EditControlPaint.cpp.
  void requestPaint();
  void requestErase();
  void requestCopy(const QRegion& area);
  void paintPass(QPaintEvent& event);
  void paintByDefault();
  void eraseByDefault();
  void paintGutter();
  void paintCaret(QPainter& painter) const;
  void findFrames();
  void paintFrames(QPainter& painter) const;
  void paintMargin(QPainter& painter) const;
  bool surfaceFits() const;
  void fitSurface();
  QSize clientSize() const;
  QSize surfaceSize() const;
  void onUpdateRequest(const QRect& rect, int dy);
  QRect caretRect() const;

  void connectSignals();
  void onCaretMoved();
  void applyFont();
  void applyFormats();
  void adoptDocument(QTextDocument& document);
  void applyBlanks();
  void placeGutter();
  void alignHorizontalRange(int minimum, int maximum);
  void alignHorizontalValue(int value);
  QTextBlock lastVisibleBlock() const;

  int borderStyle() const { return 0; } // frameless
  int left() const { return x(); }
  int top() const { return y(); }
  int cursorShape() const { return static_cast<int>(viewport()->cursor().shape()); }
  QString hotlinkText() const { return hotLink_->text(); }
  qlonglong blockBegin() const;
  qlonglong blockAfter() const;
  qlonglong searchBegin() const { return packedPosition(searchBegin_); }
  qlonglong searchAfter() const { return packedPosition(searchAfter_); }
  qlonglong packedPosition(int position) const;

  platform::TWndMethod windowProc_;
  std::unique_ptr<platform::TCanvas> canvas_;
  EditViewport* viewport_;
  QWidget* gutter_;
  CaretBlink* blink_;
  HotLink* hotLink_;
  QTextDocument* empty_; // shown while there is no other document
  QPointer<PascalHighlighter> highlighter_;

  ColorScheme scheme_;
  SyntaxFormats formats_;
  QString fontFamily_;
  int fontPoints_ = 10;
  CellFont cellFont_;
  int gutterWidth_ = 30;
  int tabWidth_ = 8;
  int indentWidth_ = 2;
  int rightMargin_ = 0;
  bool showsBlanks_ = false;
  TabInsertion tabInsertion_ = TabInsertion::Blanks;
  bool insertMode_ = true;
  bool typesPairs_ = false;
  BracketPairs pairs_;
  int searchBegin_ = 0;
  int searchAfter_ = 0;
  int tag_ = 0;
  int helpContext_ = 0;
  QString helpKeyword_;

  SpanFinder framedSpans_;
  QList<QRect> frames_; // of the viewport

  QImage surface_;
  QRegion copyOnly_;          // of the viewport: to be shown again although nothing has changed but the surface
  bool paintWanted_ = true;   // the next paint event must be a paint pass
  bool eraseWanted_ = true;   // the next paint pass begins with WM_ERASEBKGND
  bool painting_ = false;     // inside a paint pass
  bool gutterAsked_ = false;  // an update of the gutter is on its way
  bool keyAnnounced_ = false; // CN_KEYDOWN has been sent for the key press to come
  bool scrolled_ = false;     // the scroll message being sent has reached the default procedure
  bool aligning_ = false;     // the horizontal range is being aligned
  int paintingHolds_ = 0;     // how often painting is held back
  int leftPixel_ = 0;         // the last aligned horizontal scroll position
  int zoomTurn_ = 0;          // how far the wheel has been turned towards the next step of zoom
  QEvent* wheel_ = nullptr;   // the wheel event being handled
};

} // namespace desktop
