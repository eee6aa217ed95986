// SPDX-License-Identifier: MIT
#include "desktop/ui/FindBar.h"

#include "desktop/edit/EditControl.h"
#include "desktop/edit/Indentation.h"
#include "desktop/ui/CloseButton.h"
#include "desktop/ui/TextReplace.h"
#include "desktop/ui/ToolTip.h"
#include "desktop/ui/WorkProgress.h"

#include <QApplication>
#include <QCheckBox>
#include <QElapsedTimer>
#include <QEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QTextBlock>
#include <QToolButton>
#include <QVBoxLayout>

#include <vector>

namespace desktop {

namespace {

QToolButton* addButton(QLayout* layout, const QString& name, const QString& text, const QString& hint) {
  auto* const button = new QToolButton;
  button->setObjectName(name);
  button->setText(text);
  button->setToolTip(hint);
  button->setAutoRaise(true);
  button->setFocusPolicy(Qt::TabFocus);
  layout->addWidget(button);
  return button;
}

QLineEdit* makeLine(const QString& name, const QString& hint) {
  auto* const line = new QLineEdit;
  line->setObjectName(name);
  line->setPlaceholderText(hint);
  line->setAccessibleName(hint);
  line->setClearButtonEnabled(true);
  line->setMaximumWidth(360);
  return line;
}

QCheckBox* makeOption(const QString& name, const QString& text) {
  auto* const option = new QCheckBox(text);
  option->setObjectName(name);
  return option;
}

// Milliseconds that a search may take which nobody has asked for by Enter or a command: while the text is typed, and
// for the frames of a paint.
constexpr int typingPatience = 300;
constexpr int paintPatience = 100;

constexpr int longestShownText = 50; // characters

// Finds what is framed. A pattern that takes too long for a paint gets no frames any more.
class FrameFinder {
public:
  FrameFinder(const TextMatcher& matcher, const SearchRange& range) : matcher_(matcher), range_(range) {}

  // To be called for one line after the other in each paint.
  std::vector<UnitSpan> operator()(const QTextBlock& block) {
    std::vector<UnitSpan> spans;
    if (block.blockNumber() <= line_ || !paint_.isValid())
      paint_.start();
    line_ = block.blockNumber();
    isSlow_ = isSlow_ || paint_.elapsed() > paintPatience;
    if (isSlow_)
      return spans;
    const bool whole = matcher_.forEach(block.text(), [&](const LineMatch& match) {
      if (range_.covers(block, match))
        spans.push_back({match.start, match.length});
      return true;
    });
    return whole ? spans : std::vector<UnitSpan>();
  }

private:
  TextMatcher matcher_;
  SearchRange range_;
  QElapsedTimer paint_;
  int line_ = -1; // the one asked for last, from 0
  bool isSlow_ = false;
};

bool selectsTheSame(const QTextCursor& left, const QTextCursor& right) {
  return !left.isNull() && !right.isNull() && left.document() == right.document() &&
         left.selectionStart() == right.selectionStart() && left.selectionEnd() == right.selectionEnd();
}

} // namespace

FindBar::FindBar(TEditControl* editor, QWidget* parent)
    : QWidget(parent), editor_(editor), text_(makeLine(QStringLiteral("FindText"), tr("Find"))),
      replacement_(makeLine(QStringLiteral("ReplaceText"), tr("Replace with"))), replaceRow_(new QWidget),
      matchCase_(makeOption(QStringLiteral("MatchCase"), tr("&Match case"))),
      wholeWord_(makeOption(QStringLiteral("WholeWord"), tr("&Whole words"))),
      regularExpression_(makeOption(QStringLiteral("RegularExpression"), tr("&Regular expression"))),
      inSelection_(makeOption(QStringLiteral("InSelection"), tr("&In selection"))), message_(new QLabel) {
  setObjectName(QStringLiteral("FindBar"));
  auto* const rows = new QVBoxLayout(this);
  rows->setContentsMargins(8, 4, 4, 4);
  rows->setSpacing(2);
  rows->addLayout(buildFindRow());
  replaceRow_->setLayout(buildReplaceRow());
  rows->addWidget(replaceRow_);
  rows->addLayout(buildOptions());
  setFocusProxy(text_);
  replaceRow_->hide();
  hide();
}

QLayout* FindBar::buildFindRow() {
  message_->setObjectName(QStringLiteral("FindMessage"));
  message_->setTextFormat(Qt::PlainText);
  auto* const row = new QHBoxLayout;
  row->addWidget(text_, 1);
  const auto* const previous = addButton(row, QStringLiteral("FindPreviousButton"), tr("Previous"),
                                         tr("Find the previous occurrence (Shift+Enter)"));
  const auto* const next =
      addButton(row, QStringLiteral("FindNextButton"), tr("Next"), tr("Find the next occurrence (Enter)"));
  row->addWidget(message_, 1);
  auto* const closeButton = new CloseButton(tr("Close (Escape)"));
  closeButton->setObjectName(QStringLiteral("CloseFindBar"));
  row->addWidget(closeButton);
  connect(text_, &QLineEdit::textEdited, this, &FindBar::findWhileTyping);
  connect(previous, &QToolButton::clicked, this, &FindBar::findPrevious);
  connect(next, &QToolButton::clicked, this, &FindBar::findNext);
  connect(closeButton, &CloseButton::clicked, this, &FindBar::close);
  return row;
}

QLayout* FindBar::buildReplaceRow() {
  auto* const row = new QHBoxLayout;
  row->setContentsMargins({});
  row->addWidget(replacement_, 1);
  const auto* const one = addButton(row, QStringLiteral("ReplaceButton"), tr("Re&place"),
                                    tr("Replace this occurrence and go to the next (Enter in the field)"));
  const auto* const all =
      addButton(row, QStringLiteral("ReplaceAllButton"), tr("Replace &All"), tr("Replace all occurrences"));
  row->addStretch(1);
  connect(one, &QToolButton::clicked, this, &FindBar::replace);
  connect(all, &QToolButton::clicked, this, &FindBar::replaceAll);
  return row;
}

QLayout* FindBar::buildOptions() {
  auto* const row = new QHBoxLayout;
  row->setSpacing(12);
  for (QCheckBox* const option : {matchCase_, wholeWord_, regularExpression_, inSelection_})
    row->addWidget(option);
  row->addStretch(1);
  for (QCheckBox* const option : {matchCase_, wholeWord_, regularExpression_})
    connect(option, &QCheckBox::toggled, this, &FindBar::findWhileTyping);
  connect(inSelection_, &QCheckBox::toggled, this, &FindBar::limitToSelection);
  return row;
}

void FindBar::open() {
  adoptSelection();
  updateMatcher();
  startHere();
  showFound(true, matcher_.error());
  show();
  showMatches();
  text_->setFocus(Qt::ShortcutFocusReason);
  text_->selectAll();
}

void FindBar::openReplace() {
  replaceRow_->show();
  open();
}

void FindBar::close() {
  hide();
  replaceRow_->hide();
  dropRange();
  selectedLines_ = {};
  editor_->setFramedSpans(nullptr);
  editor_->setFocus(Qt::OtherFocusReason);
}

void FindBar::adoptSelection() {
  const QTextCursor cursor = editor_->textCursor();
  if (!cursor.hasSelection() || inSelection_->isChecked())
    return;
  if (spansLines(cursor))
    selectedLines_ = cursor;
  else
    text_->setText(regularExpression_->isChecked() ? QRegularExpression::escape(cursor.selectedText())
                                                   : cursor.selectedText());
}

QString FindBar::text() const {
  return text_->text();
}

QString FindBar::message() const {
  return message_->text();
}

void FindBar::findNext() {
  find(SearchDirection::Forward);
}

void FindBar::findPrevious() {
  find(SearchDirection::Backward);
}

void FindBar::find(SearchDirection direction) {
  if (text().isEmpty()) {
    open();
    return;
  }
  findFrom(editor_->textCursor(), direction);
}

void FindBar::findFrom(const QTextCursor& from, SearchDirection direction) {
  QTextDocument& document = *editor_->document();
  WorkProgress progress(lookingFor(), 2 * document.blockCount(), document, *this);
  const SearchHit hit =
      findMatch(document, matcher_, range(), from, direction, [&](int lines) { return progress.goOn(lines); });
  if (!progress.hasWindow()) // nor is there this bar
    return;
  if (hit.stopped)
    tell(true, tr("Stopped"));
  else
    select(hit, direction == SearchDirection::Forward ? tr("Reached the end, went on from the top")
                                                      : tr("Reached the top, went on from the end"));
  startHere();
}

void FindBar::findWord(SearchDirection direction) {
  const QTextCursor word = wordAt(editor_->textCursor());
  if (word.isNull())
    return;
  text_->setText(word.selectedText());
  const QSignalBlocker wholeWordBlocker(wholeWord_);
  const QSignalBlocker expressionBlocker(regularExpression_);
  wholeWord_->setChecked(true);
  regularExpression_->setChecked(false);
  updateMatcher();
  findFrom(word, direction);
}

void FindBar::replace() {
  if (!canReplace())
    return;
  const QTextCursor cursor = editor_->textCursor();
  const bool isMatch = cursor.hasSelection() || selectsTheSame(cursor, lastMatch_);
  const auto replacement =
      isMatch ? replacementAt(cursor, matcher_, range(), replacement_->text()) : std::optional<Replacement>();
  if (replacement) {
    applyReplacements(*editor_->document(), {*replacement});
    QTextCursor behind = editor_->textCursor();
    behind.setPosition(replacement->position + static_cast<int>(replacement->text.size()));
    editor_->setTextCursor(behind);
  }
  findNext();
  if (replacement && lastMatch_.isNull())
    showFound(true, tr("Replaced the last occurrence"));
}

void FindBar::replaceAll() {
  if (!canReplace())
    return;
  QTextDocument& document = *editor_->document();
  Replacements found;
  {
    WorkProgress progress(lookingFor(), document.blockCount(), document, *this);
    found = collectReplacements(document, matcher_, range(), replacement_->text(),
                                [&](int lines) { return progress.goOn(lines); });
    if (!progress.hasWindow()) // nor is there this bar
      return;
  }
  if (found.stopped)
    showFound(true, tr("Stopped, nothing was replaced"));
  else if (found.givenUp.line > 0)
    showFound(false, tr("Too complex for line %L1, nothing was replaced").arg(found.givenUp.line));
  else if (found.all.empty())
    showFound(false, tr("Not found"));
  else
    apply(found.all);
}

// What has been replaced when the user stops it stays, as one undo step: taking it back would take as long again, after
// he has said that it takes too long.
void FindBar::apply(const std::vector<Replacement>& replacements) {
  QTextDocument& document = *editor_->document();
  const auto count = static_cast<int>(replacements.size());
  WorkProgress progress(tr("Replacing %L1 occurrences...").arg(count), count, document, *this);
  const int done = applyReplacements(document, replacements, [&](int sofar) { return progress.goOn(sofar); });
  if (!progress.hasWindow())
    return;
  lastMatch_ = {};
  showFound(true, done == count
                      ? tr("%L1 replaced").arg(count)
                      : tr("Stopped: the first %L1 of %L2 are replaced, undo takes them back").arg(done).arg(count));
}

QString FindBar::lookingFor() const {
  return tr("Looking for \u201c%1\u201d...").arg(shownText());
}

// What is looked for, at a length that fits into a sentence.
QString FindBar::shownText() const {
  const QFontMetrics font = fontMetrics();
  return font.elidedText(text(), Qt::ElideMiddle, longestShownText * font.averageCharWidth());
}

// Says why not.
bool FindBar::canReplace() {
  if (text().isEmpty())
    openReplace();
  else if (!matcher_.error().isEmpty())
    showFound(false, matcher_.error());
  else if (editor_->isReadOnly())
    showFound(true, tr("This text is read-only"));
  else
    return true;
  return false;
}

void FindBar::updateMatcher() {
  matcher_ = TextMatcher({text(), matchCase_->isChecked(), wholeWord_->isChecked(), regularExpression_->isChecked()});
  showMatches();
}

void FindBar::showMatches() {
  if (isVisible())
    editor_->setFramedSpans(FrameFinder(matcher_, range_));
}

void FindBar::limitToSelection(bool limit) {
  if (limit) {
    const QTextCursor cursor = editor_->textCursor();
    const bool isChosen = cursor.hasSelection() && !selectsTheSame(cursor, lastMatch_);
    const QTextCursor& chosen = isChosen ? cursor : selectedLines_;
    if (!chosen.hasSelection() || chosen.document() != editor_->document()) {
      dropRange();
      showFound(true, tr("Nothing is selected"));
      return;
    }
    range_ = SearchRange(chosen);
    searched_ = editor_->document();
    origin_ = range_.begin();
  } else {
    dropRange();
  }
  if (isVisible())
    findWhileTyping();
}

void FindBar::dropRange() {
  const QSignalBlocker blocker(inSelection_);
  inSelection_->setChecked(false);
  range_ = {};
  showMatches();
}

// Another document than the one of the selection is searched whole.
const SearchRange& FindBar::range() {
  if (!range_.isWhole() && range_.document() != editor_->document())
    dropRange();
  return range_;
}

void FindBar::startHere() {
  searched_ = editor_->document();
  origin_ = editor_->textCursor().selectionStart();
}

void FindBar::findWhileTyping() {
  // What is pasted may have been copied with its line end, which the field keeps but does not show.
  if (const QString line = firstLineOf(text()); line != text())
    text_->setText(line);
  updateMatcher();
  if (text().isEmpty()) {
    showFound(true, {});
    return;
  }
  if (searched_ != editor_->document())
    startHere();
  QTextCursor from(editor_->document());
  from.setPosition(qMin(origin_, editor_->document()->characterCount() - 1));
  QElapsedTimer time;
  time.start();
  const SearchHit hit = findMatch(*editor_->document(), matcher_, range(), from, SearchDirection::Forward,
                                  [&](int) { return time.elapsed() < typingPatience; });
  if (hit.stopped)
    showFound(true, tr("This takes long, Enter goes on"));
  else
    select(hit, {});
}

void FindBar::select(const SearchHit& hit, const QString& wrapMessage) {
  lastMatch_ = hit.match;
  const QString tooComplex =
      hit.givenUp.line > 0 ? tr("Too complex for line %L1, passed over").arg(hit.givenUp.line) : QString();
  if (hit.match.isNull()) {
    const QString reason = matcher_.error().isEmpty() ? tooComplex : matcher_.error();
    tell(false, reason.isEmpty() ? tr("Not found") : reason);
    return;
  }
  editor_->setTextCursor(hit.match);
  editor_->setSearchMatch(hit.match.selectionStart(), hit.match.selectionEnd());
  tell(true, !tooComplex.isEmpty() ? tooComplex : hit.wrapped ? wrapMessage : QString());
}

// Of a search, which is also done while the bar is closed.
void FindBar::tell(bool found, const QString& message) {
  showFound(found, message);
  if (!isVisible() && !message.isEmpty())
    Q_EMIT toldWhileClosed(tr("\u201c%1\u201d: %2").arg(shownText(), message));
}

void FindBar::showFound(bool found, const QString& message) {
  found_ = found;
  QPalette colours;
  if (!found) {
    const bool dark = palette().color(QPalette::Base).lightness() < 128;
    colours.setColor(QPalette::Base, dark ? QColor(0x5c, 0x23, 0x23) : QColor(0xff, 0xd9, 0xd9));
    colours.setColor(QPalette::Text, dark ? QColor(0xff, 0xe4, 0xe4) : QColor(0x60, 0x10, 0x10));
  }
  text_->setPalette(colours);
  message_->setText(message);
  // The bar hides what it says when the window is too narrow, so it is there to be read as well.
  message_->setToolTip(toolTipOf(message));
}

void FindBar::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
  case Qt::Key_Escape:
    close();
    break;
  case Qt::Key_Return:
  case Qt::Key_Enter:
    // Not with every desktop a button takes Enter itself.
    if (auto* const button = qobject_cast<QToolButton*>(QApplication::focusWidget()))
      button->click();
    else if (replacement_->hasFocus())
      replace();
    else if (event->modifiers() & Qt::ShiftModifier)
      findPrevious();
    else
      findNext();
    break;
  default:
    QWidget::keyPressEvent(event);
  }
}

void FindBar::changeEvent(QEvent* event) {
  if (event->type() == QEvent::PaletteChange)
    showFound(found_, message());
  QWidget::changeEvent(event);
}

} // namespace desktop
