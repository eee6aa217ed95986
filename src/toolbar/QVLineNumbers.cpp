// SPDX-License-Identifier: MIT
#include "toolbar/QVLineNumbers.h"

#include "host/QVIDEHackUtils.h"
#include "host/QVOTAServices.h"
#include "platform/Align.h"
#include "platform/Application.h"
#include "platform/Component.h"
#include "platform/Errors.h"
#include "platform/Metrics.h"
#include "settings/model/QVOptions.h"
#include "toolbar/QVEditorToolbarChecks.h"

#include <QAbstractScrollArea>
#include <QAction>
#include <QCoreApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QScopedValueRollback>

#include <algorithm>
#include <cmath>
#include <utility>

namespace quorvane {

namespace {

// The component's name is the name of its class, which is how a form's control is found.
const QString kName = QStringLiteral("TQVLineNumbers");

constexpr platform::TColor kGround = platform::clBtnFace;
constexpr int kFirstWidth = 35; // until the number of lines is known
constexpr int kMargin = 2;      // beside the number of lines, and the edge
constexpr int kSmallerBy = 2;   // points, than the editor's font

platform::TAlign WantedAlign() {
  return OptLineNumbersLeft ? platform::TAlign::alLeft : platform::TAlign::alRight;
}

int SeparatorWidth() {
  return OptGutterSeparator ? platform::GetSystemMetrics(platform::SM_CYEDGE) : 0;
}

} // namespace

TQVLineNumbers::TQVLineNumbers(QWidget* owner) : QWidget(owner), FWidth(kFirstWidth), FCanvas(*this) {
  setObjectName(kName);
  hide();
  platform::SetAlign(*this, WantedAlign());
  resize(FWidth, height());
  setAttribute(Qt::WA_OpaquePaintEvent);
}

TQVLineNumbers::~TQVLineNumbers() = default;

QObject* TQVLineNumbers::GetEditor() {
  if (!FEditor) {
    RequireInEditorToolbar(parent() != nullptr, chOwner);
    RequireInEditorToolbar(platform::ClassName(*parent()) == EditorFormClassName, chOwnerClass);
    QObject* const editor = platform::FindComponent(*parent(), EditControlName);
    if (dynamic_cast<platform::TWinControl*>(editor) == nullptr)
      throw platform::EInvalidCast();
    FEditor = editor;
  }
  return FEditor;
}

platform::TWinControl& TQVLineNumbers::Control() {
  auto* const control = dynamic_cast<platform::TWinControl*>(GetEditor());
  if (control == nullptr)
    throw platform::EInvalidCast();
  return *control;
}

int TQVLineNumbers::Published(const char* name) {
  return GetEditor()->property(name).toInt();
}

void TQVLineNumbers::SetShowLineNumbers(bool value) {
  FShowLineNumbers = value;
  Invalidate();
}

void TQVLineNumbers::Invalidate() {
  FPaintWanted = true;
  update();
}

void TQVLineNumbers::DoTimer(QObject*) {
  if (Published("TopLine") == FLastTopLine && Published("LinesInWindow") == FLastLinesInWindow &&
      Published("CaretY") == FLastCaretLine)
    return;
  PaintLineNumbers();
}

QRect TQVLineNumbers::GetClientRect() const {
  const int edge = SeparatorWidth();
  const int left = platform::Align(*this) == platform::TAlign::alRight ? edge : 0;
  return {left, 0, width() - edge, height() - platform::GetSystemMetrics(platform::SM_CYHSCROLL)};
}

void TQVLineNumbers::Paint() {
  if (FShowLineNumbers && GetEditor() != nullptr)
    PaintLineNumbers();
  if (OptGutterSeparator)
    PaintSeparator();
}

// Only DoTimer asks whether anything has changed. Intended.
void TQVLineNumbers::PaintLineNumbers() {
  FLastTopLine = Published("TopLine");
  FLastLinesInWindow = Published("LinesInWindow");
  FLastCaretLine = Published("CaretY");
  const int lineCount = Published("LineCount");
  const QString count = QString::number(lineCount);
  AssignEditorFont();
  SettleWidth(count);
  PaintRows(lineCount);
  PaintStrip(count);
}

int TQVLineNumbers::LineHeight() {
  return FLastLinesInWindow == 1 ? 0 : platform::Divide(Control().ClientHeight(), FLastLinesInWindow - 1);
}

void TQVLineNumbers::AssignEditorFont() {
  const auto services = OTAEditorServices();
  const auto options = services ? services->GetEditOptions() : nullptr;
  // A host that is going away has no options any more; then the font stays.
  if (options)
    FCanvas.Font.Assign(options->GetFontName(), std::max(options->GetFontSize() - kSmallerBy, 1));
}

void TQVLineNumbers::SettleWidth(const QString& count) {
  if (!FAutoWidth)
    return;
  FCanvas.Font.SetBold(true);
  const int width = FCanvas.TextWidth(count) + platform::GetSystemMetrics(platform::SM_CYEDGE) + kMargin;
  if (std::exchange(FWidth, width) != width)
    updateGeometry();
}

// Two rows more than are visible, to cover a partly visible last line; rows beyond the end of the file are only filled.
void TQVLineNumbers::PaintRows(int lineCount) {
  const int lineHeight = LineHeight();
  const QRect client = GetClientRect();
  FCanvas.Font.Color = OptLineNumberColor;
  FCanvas.Brush.Color = kGround;
  for (int line = FLastTopLine; line <= FLastTopLine + FLastLinesInWindow + 1; ++line) {
    const int y = (line - FLastTopLine) * lineHeight;
    FCanvas.FillRect({client.x(), y, client.width(), lineHeight});
    if (line > lineCount)
      continue;
    FCanvas.Font.SetBold(line == FLastCaretLine);
    FCanvas.TextOut(client.x(), y, QString::number(line));
  }
}

void TQVLineNumbers::PaintStrip(const QString& count) {
  const QRect client = GetClientRect();
  const int top = client.y() + client.height();
  FCanvas.Brush.Color = platform::clActiveCaption;
  FCanvas.Font.Color = platform::clCaptionText;
  FCanvas.Font.SetBold(true);
  FCanvas.FillRect({client.x(), top, client.width(), height() - top});
  FCanvas.TextOut(client.x() + 1, top + 1, count);
}

// An etched edge between numbers and text: a dark line and a bright one, on either side in this order.
void TQVLineNumbers::PaintSeparator() {
  const bool onLeft = platform::Align(*this) == platform::TAlign::alRight;
  const int x = onLeft ? 0 : width() - platform::GetSystemMetrics(platform::SM_CYEDGE);
  FCanvas.Brush.Color = platform::clBtnShadow;
  FCanvas.FillRect({x, 0, 1, height()});
  FCanvas.Brush.Color = platform::clBtnHighlight;
  FCanvas.FillRect({x + 1, 0, 1, height()});
}

void TQVLineNumbers::ClickHandler(QObject*) {
  const int lineHeight = platform::Divide(Control().ClientHeight(), FLastLinesInWindow - 1);
  const int line = platform::Divide(FMousePos.y(), lineHeight) + FLastTopLine;
  if (const auto view = GetTopView()) {
    view->GetPosition()->GotoLine(line);
    view->Paint();
  }
  PollLineNumbers();
}

void TQVLineNumbers::DblClickHandler(QObject*) {
  if (const QWidget* form = platform::Application().MainForm()) {
    // The action may run a dialog; nothing of this object is used after it.
    if (auto* const action =
            qobject_cast<QAction*>(platform::FindComponent(*form, QStringLiteral("SearchGoToCommand"))))
      action->trigger();
  }
  PollLineNumbers();
}

bool TQVLineNumbers::event(QEvent* event) {
  switch (event->type()) {
  case QEvent::Resize:
  case QEvent::Show:
  case QEvent::PaletteChange:
  case QEvent::StyleChange:
  case QEvent::FontChange:
    Invalidate();
    break;
  default:
    break;
  }
  return QWidget::event(event);
}

void TQVLineNumbers::paintEvent(QPaintEvent* event) {
  const bool copyWillDo = (event->region() - FCopyOnly).isEmpty();
  if (FPaintWanted || !PictureFits() || !copyWillDo)
    PaintPicture();
  FCopyOnly -= event->region();
  QPainter(this).drawImage(0, 0, FPicture);
}

void TQVLineNumbers::PaintPicture() {
  const QScopedValueRollback painting(FPainting, true);
  FitPicture();
  FPaintWanted = false;
  FCopyOnly = {};
  FPicture.fill(SurfaceColor());
  platform::Guarded([this] { Paint(); });
}

// In device pixels; never empty, so that there is always something to draw into.
QSize TQVLineNumbers::PictureSize() const {
  const QSizeF wanted = QSizeF(size()) * devicePixelRatioF();
  return {std::max(static_cast<int>(std::ceil(wanted.width())), 1),
          std::max(static_cast<int>(std::ceil(wanted.height())), 1)};
}

bool TQVLineNumbers::PictureFits() const {
  return FPicture.devicePixelRatio() == devicePixelRatioF() && FPicture.size() == PictureSize();
}

void TQVLineNumbers::FitPicture() {
  if (PictureFits())
    return;
  FPicture = QImage(PictureSize(), QImage::Format_RGB32);
  FPicture.setDevicePixelRatio(devicePixelRatioF());
  FPicture.fill(SurfaceColor());
  FPaintWanted = true;
}

QImage& TQVLineNumbers::BeginDrawing() {
  FitPicture();
  return FPicture;
}

void TQVLineNumbers::EndDrawing(const QRect& area) {
  if (FPainting)
    return;
  FCopyOnly += area & rect();
  update(area);
}

QColor TQVLineNumbers::SurfaceColor() const {
  return platform::ToQColor(kGround, palette(), {});
}

void TQVLineNumbers::mousePressEvent(QMouseEvent* event) {
  FPressed = event->button() == Qt::LeftButton;
}

void TQVLineNumbers::mouseReleaseEvent(QMouseEvent* event) {
  FMousePos = event->position().toPoint();
  const bool clicked = event->button() == Qt::LeftButton && std::exchange(FPressed, false);
  if (clicked && rect().contains(FMousePos))
    platform::Guarded([this] { ClickHandler(this); });
}

// The second release of a double click is no click.
void TQVLineNumbers::mouseDoubleClickEvent(QMouseEvent* event) {
  FPressed = false;
  if (event->button() == Qt::LeftButton)
    platform::Guarded([this] { DblClickHandler(this); });
}

// The wheel scrolls the text, as it does over the text itself.
void TQVLineNumbers::wheelEvent(QWheelEvent* event) {
  if (auto* const area = qobject_cast<QAbstractScrollArea*>(FEditor.data()))
    QCoreApplication::sendEvent(area->viewport(), event);
}

TQVLineNumbers* GetLineNumbers(const QObject& form) {
  return qobject_cast<TQVLineNumbers*>(platform::FindComponent(form, kName));
}

void PollLineNumbers() {
  ForEachEditorForm([](const QWidget& form) {
    if (const QObject* editor = platform::FindComponent(form, EditControlName))
      UpdateToolbar(editor);
  });
}

void UpdateToolbar(const QObject* editor) {
  RequireInEditorToolbar(editor != nullptr, chEditor);
  const QObject* const owner = editor->parent();
  if (TQVLineNumbers* const numbers = owner ? GetLineNumbers(*owner) : nullptr)
    numbers->DoTimer(numbers);
}

void ShowLineNumbers() {
  if (!OptShowLineNumbers || OptLinesInGutter)
    return;
  ForEachEditorForm([](const QWidget& form) {
    if (TQVLineNumbers* const numbers = GetLineNumbers(form)) {
      platform::SetAlign(*numbers, WantedAlign());
      numbers->setVisible(true);
      numbers->Invalidate();
    }
  });
}

void HideLineNumbers() {
  ForEachEditorForm([](const QWidget& form) {
    if (TQVLineNumbers* const numbers = GetLineNumbers(form))
      numbers->setVisible(false);
  });
}

} // namespace quorvane
