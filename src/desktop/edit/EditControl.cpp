// SPDX-License-Identifier: MIT
#include "desktop/edit/EditControl.h"

#include "desktop/edit/CaretBlink.h"
#include "desktop/edit/CellLayout.h"
#include "desktop/edit/EditViewport.h"
#include "desktop/edit/TextColumns.h"
#include "platform/Color.h"

#include <QFontDatabase>
#include <QMimeData>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextOption>

#include <algorithm>

namespace desktop {

namespace {

QTextCharFormat makeFormat(const TextStyle& style, const QColor& plain, const CellFont& font) {
  QTextCharFormat format;
  if (style.color != plain)
    format.setForeground(style.color);
  const CellFace& face = font.face(style.bold, style.italic);
  if ((!style.bold && !style.italic) || !face.fits)
    return format;
  format.setFontWeight(style.bold ? QFont::Bold : QFont::Normal);
  format.setFontItalic(style.italic);
  format.setFontLetterSpacingType(QFont::AbsoluteSpacing);
  format.setFontLetterSpacing(face.letterSpacing);
  format.setFontHintingPreference(face.hinting);
  return format;
}

QPalette makePalette(QPalette palette, const ColorScheme& scheme) {
  palette.setColor(QPalette::Base, scheme.ground);
  palette.setColor(QPalette::Text, scheme.text);
  palette.setColor(QPalette::Highlight, scheme.selectionGround);
  palette.setColor(QPalette::HighlightedText, scheme.selectionText);
  return palette;
}

} // namespace

TEditControl::TEditControl(QWidget* parent)
    : QPlainTextEdit(parent), windowProc_(platform::TWndMethod::Of<&TEditControl::defaultProc>(*this)),
      viewport_(new EditViewport), gutter_(new QWidget(this)), blink_(new CaretBlink(this)),
      empty_(new QTextDocument(this)), scheme_(lightScheme()),
      fontFamily_(QFontDatabase::systemFont(QFontDatabase::FixedFont).family()),
      pairs_([this](const QTextBlock& line, int unit) { return isCodeAt(line, unit); }) {
  setObjectName(QStringLiteral("Editor"));
  setFrameShape(QFrame::NoFrame);
  setLineWrapMode(QPlainTextEdit::NoWrap);
  // Bars that come and go with the longest line in sight would change the size of the view while one scrolls.
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
  setViewport(viewport_);
  document()->documentLayout()->setPaintDevice(
      viewport_); // Qt would go on with the viewport that has just been replaced
  hotLink_ = new HotLink(this);
  viewport_->setAcceptDrops(true);
  viewport_->setCursor(Qt::IBeamCursor);
  viewport_->setAttribute(Qt::WA_OpaquePaintEvent);
  gutter_->setAttribute(Qt::WA_OpaquePaintEvent);
  gutter_->installEventFilter(this);
  gutter_->raise(); // above the viewport, so that it is painted after it

  cellFont_ = makeCellFont(fontFamily_, fontPoints_, *viewport_);
  canvas_ = std::make_unique<platform::TCanvas>(static_cast<platform::ICanvasSurface&>(*this));
  connectSignals();
  setPalette(makePalette(palette(), scheme_));
  applyFont();
  showDocument(nullptr);
}

TEditControl::~TEditControl() {
  send(platform::WM_DESTROY, 0, nullptr);
  delete hotLink_; // it listens to parts that go with the base classes
  // What the base classes still signal while they go finds nobody here any more.
  disconnect(this, nullptr, this, nullptr);
  horizontalScrollBar()->disconnect(this);
  verticalScrollBar()->disconnect(this);
  document()->documentLayout()->setPaintDevice(nullptr);
}

void TEditControl::connectSignals() {
  connect(this, &QPlainTextEdit::updateRequest, this, &TEditControl::onUpdateRequest);
  connect(this, &QPlainTextEdit::cursorPositionChanged, this, &TEditControl::onCaretMoved);
  connect(this, &QPlainTextEdit::selectionChanged, this, &TEditControl::requestPaint);
  connect(blink_, &CaretBlink::toggled, this, [this] { requestCopy(caretRect().translated(gutterWidth_, 0)); });
  connect(hotLink_, &HotLink::changed, this,
          [this](const QRect& area) { requestCopy(area.translated(gutterWidth_, 0)); });
  connect(horizontalScrollBar(), &QScrollBar::rangeChanged, this, &TEditControl::alignHorizontalRange);
  connect(horizontalScrollBar(), &QScrollBar::valueChanged, this, &TEditControl::alignHorizontalValue);
  // Qt's own handling of page steps would move the text before the message is sent; the bar's is as good, one line
  // being one step.
  disconnect(verticalScrollBar(), &QScrollBar::actionTriggered, this, nullptr);
  connect(horizontalScrollBar(), &QScrollBar::actionTriggered, this, [this] { sendScroll(Qt::Horizontal); });
  connect(verticalScrollBar(), &QScrollBar::actionTriggered, this, [this] { sendScroll(Qt::Vertical); });
}

void TEditControl::showDocument(QTextDocument* document, Colouring colouring) {
  QTextDocument& shown = document != nullptr ? *document : *empty_;
  hotLink_->clear();
  pairs_.clear();
  if (highlighter_)
    highlighter_->disconnect(this);
  this->document()->documentLayout()->setPaintDevice(nullptr); // the document in front so far may outlive the viewport
  adoptDocument(shown);
  setDocument(&shown);
  // What Qt keeps with the document or drops with a new one.
  shown.documentLayout()->setPaintDevice(viewport_);
  setCursorWidth(0);
  setTabStopDistance(tabWidth_ * cellSize().width());
  applyBlanks();
  setViewportMargins(gutterWidth_, 0, 0, 0);

  highlighter_ = colouring == Colouring::Pascal ? &PascalHighlighter::of(shown) : nullptr;
  if (highlighter_) {
    highlighter_->setFormats(formats_);
    connect(highlighter_, &PascalHighlighter::coloursChanged, this, &TEditControl::requestPaint);
  }
  searchBegin_ = searchAfter_ = 0;
  requestErase();
  onCaretMoved();
}

DocumentLook TEditControl::look() const {
  return {font(), document()->defaultTextOption()};
}

// Brings the layout and the font of a document that is about to be shown to the control's.
void TEditControl::adoptDocument(QTextDocument& document) {
  auto* layout = qobject_cast<CellLayout*>(document.documentLayout());
  if (layout == nullptr)
    layout = CellLayout::install(document, look(), viewport_);
  layout->setPaintDevice(viewport_);
  layout->setCell(cellSize().height(), cellFont_.ascent);
  if (document.defaultFont() != font())
    document.setDefaultFont(font());
}

EditState TEditControl::state() const {
  const QTextCursor cursor = textCursor();
  return {cursor.position(), cursor.anchor(), topLine() - 1, leftColumn() - 1};
}

void TEditControl::restoreState(const EditState& state) {
  const int last = document()->characterCount() - 1;
  QTextCursor cursor(document());
  cursor.setPosition(std::clamp(state.anchor, 0, last));
  cursor.setPosition(std::clamp(state.caret, 0, last), QTextCursor::KeepAnchor);
  setTextCursor(cursor);
  setTopLine(state.topLine + 1);
  setLeftColumn(state.leftCell + 1);
}

void TEditControl::setInsertMode(bool insert) {
  if (insert == insertMode_)
    return;
  requestCopy(caretRect().translated(gutterWidth_, 0));
  insertMode_ = insert;
  requestCopy(caretRect().translated(gutterWidth_, 0));
  Q_EMIT insertModeChanged(insert);
}

void TEditControl::setColorScheme(const ColorScheme& scheme) {
  scheme_ = scheme;
  applyFormats();
  setPalette(makePalette(palette(), scheme_));
  requestErase();
}

void TEditControl::setGutterWidth(int width) {
  gutterWidth_ = std::max(width, 0);
  setViewportMargins(gutterWidth_, 0, 0, 0);
  placeGutter();
  requestErase();
}

void TEditControl::setEditorFont(const QString& family, int points) {
  const int left = leftColumn();
  fontFamily_ = family;
  fontPoints_ = std::max(points, 1);
  applyFont();
  setLeftColumn(left);
}

void TEditControl::applyFont() {
  cellFont_ = makeCellFont(fontFamily_, fontPoints_, *viewport_);
  if (auto* layout = qobject_cast<CellLayout*>(document()->documentLayout()))
    layout->setCell(cellSize().height(), cellFont_.ascent);
  setFont(cellFont_.font); // lays the document out again
  canvas_->Font.Face = font();
  setTabStopDistance(tabWidth_ * cellSize().width());
  horizontalScrollBar()->setSingleStep(cellSize().width());
  applyFormats();
  requestErase();
}

void TEditControl::applyFormats() {
  std::transform(scheme_.styles.begin(), scheme_.styles.end(), formats_.begin(),
                 [this](const TextStyle& style) { return makeFormat(style, scheme_.text, cellFont_); });
  if (highlighter_)
    highlighter_->setFormats(formats_);
}

void TEditControl::setTabWidth(int cells) {
  tabWidth_ = std::max(cells, 1);
  setTabStopDistance(tabWidth_ * cellSize().width());
  requestPaint();
}

void TEditControl::setShowsBlanks(bool show) {
  showsBlanks_ = show;
  applyBlanks();
}

// Documents that go from control to control keep the option, so it is set in every case.
void TEditControl::applyBlanks() {
  QTextOption option = document()->defaultTextOption();
  QTextOption::Flags flags = option.flags();
  flags.setFlag(QTextOption::ShowTabsAndSpaces, showsBlanks_);
  if (flags == option.flags())
    return;
  option.setFlags(flags);
  document()->setDefaultTextOption(option);
  requestPaint();
}

void TEditControl::setTypesPairs(bool pairs) {
  typesPairs_ = pairs;
  pairs_.clear();
}

bool TEditControl::isCodeAt(const QTextBlock& line, int unit) const {
  const SyntaxAttribute attribute = highlighter_->typedAttributeAt(line, unit);
  return attribute != SyntaxAttribute::Comment && attribute != SyntaxAttribute::String &&
         attribute != SyntaxAttribute::Directive;
}

void TEditControl::setIndentWidth(int cells) {
  indentWidth_ = std::max(cells, 1);
}

int TEditControl::caretRow() const {
  return textCursor().blockNumber() + 1;
}

int TEditControl::caretColumn() const {
  const QTextCursor cursor = textCursor();
  return columnOfUnit(cursor.block().text(), cursor.positionInBlock(), tabWidth_);
}

int TEditControl::caretCharIndex() const {
  const QTextCursor cursor = textCursor();
  return charIndexOfUnit(cursor.block().text(), cursor.positionInBlock());
}

void TEditControl::setCaret(int row, int column) {
  const QTextBlock block = document()->findBlockByNumber(std::clamp(row, 1, blockCount()) - 1);
  QTextCursor cursor(block);
  cursor.setPosition(block.position() + static_cast<int>(unitOfColumn(block.text(), column, tabWidth_)));
  const int top = topLine();
  const int left = leftColumn();
  setTextCursor(cursor); // scrolls to the caret
  setTopLine(top);
  setLeftColumn(left);
}

void TEditControl::showCaret() {
  ensureCursorVisible();
}

int TEditControl::topLine() const {
  return firstVisibleBlock().blockNumber() + 1;
}

int TEditControl::leftColumn() const {
  return horizontalScrollBar()->value() / cellSize().width() + 1;
}

void TEditControl::setTopLine(int line) {
  verticalScrollBar()->setValue(std::max(line, 1) - 1);
}

void TEditControl::setLeftColumn(int column) {
  // How far the view can go depends on the longest line that has been laid out; the visible ones must be among them.
  const QTextBlock end = lastVisibleBlock().next();
  for (QTextBlock block = firstVisibleBlock(); block.isValid() && block != end; block = block.next())
    blockBoundingRect(block);
  horizontalScrollBar()->setValue((std::max(column, 1) - 1) * cellSize().width());
}

QSize TEditControl::viewSize() const {
  return {std::max(viewport()->width() / cellSize().width(), 1),
          std::max(viewport()->height() / cellSize().height(), 1)};
}

int TEditControl::ClientWidth() const {
  return gutterWidth_ + viewSize().width() * cellSize().width();
}

int TEditControl::ClientHeight() const {
  return viewSize().height() * cellSize().height();
}

platform::TColor TEditControl::Color() const {
  return platform::ToTColor(scheme_.ground);
}

int TEditControl::cursorAttribute() const {
  const QTextCursor cursor = textCursor();
  const auto attribute =
      highlighter_ ? highlighter_->attributeAt(cursor.block(), cursor.positionInBlock()) : SyntaxAttribute::Blank;
  return static_cast<int>(attribute);
}

QString TEditControl::lineText() const {
  return textCursor().block().text();
}

void TEditControl::setSearchMatch(int begin, int after) {
  searchBegin_ = begin;
  searchAfter_ = after;
}

qlonglong TEditControl::blockBegin() const {
  return packedPosition(textCursor().selectionStart());
}

qlonglong TEditControl::blockAfter() const {
  return packedPosition(textCursor().selectionEnd());
}

// The line from 1 above the lower 16 bits, the character index from 0 in them.
qlonglong TEditControl::packedPosition(int position) const {
  const QTextBlock block = document()->findBlock(std::clamp(position, 0, document()->characterCount() - 1));
  const int index = charIndexOfUnit(block.text(), position - block.position());
  return (qlonglong(block.blockNumber() + 1) << 16) | (index & 0xFFFF);
}

void TEditControl::onCaretMoved() {
  pairs_.follow(textCursor());
  requestPaint();
  if (hasFocus())
    blink_->start();
  Q_EMIT caretMoved(caretRow(), caretColumn());
}

// Qt's range ends at the last pixel of the longest line. It must end on a whole cell, and leave room for a caret behind
// that line.
void TEditControl::alignHorizontalRange(int minimum, int maximum) {
  if (aligning_ || maximum <= minimum)
    return;
  aligning_ = true;
  const int width = cellSize().width();
  horizontalScrollBar()->setMaximum((maximum / width + 1) * width);
  aligning_ = false;
}

void TEditControl::alignHorizontalValue(int value) {
  const int width = cellSize().width();
  const int rest = value % width;
  if (rest == 0)
    leftPixel_ = value;
  else
    horizontalScrollBar()->setValue(value > leftPixel_ ? value - rest + width : value - rest);
}

QTextBlock TEditControl::lastVisibleBlock() const {
  const int number = firstVisibleBlock().blockNumber() + viewport()->height() / cellSize().height() + 1;
  return document()->findBlockByNumber(std::min(number, blockCount() - 1));
}

void TEditControl::placeGutter() {
  const QRect text = viewport()->geometry();
  gutter_->setGeometry(text.x() - gutterWidth_, text.y(), gutterWidth_, text.height());
}

// Qt's own rendering of a selection as plain text turns no-break spaces into blanks.
QMimeData* TEditControl::createMimeDataFromSelection() const {
  QString text = textCursor().selectedText();
  text.replace(QChar::ParagraphSeparator, u'\n');
  auto* mime = new QMimeData;
  mime->setText(text);
  return mime;
}

} // namespace desktop
