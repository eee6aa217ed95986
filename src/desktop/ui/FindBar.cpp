// SPDX-License-Identifier: MIT
#include "desktop/ui/FindBar.h"

#include "desktop/edit/EditControl.h"
#include "desktop/ui/CloseButton.h"

#include <QCheckBox>
#include <QEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QToolButton>

namespace desktop {

namespace {

QToolButton* addButton(QHBoxLayout* layout, const QString& name, const QString& text, const QString& hint) {
  auto* const button = new QToolButton;
  button->setObjectName(name);
  button->setText(text);
  button->setToolTip(hint);
  button->setAutoRaise(true);
  button->setFocusPolicy(Qt::TabFocus);
  layout->addWidget(button);
  return button;
}

} // namespace

FindBar::FindBar(TEditControl* editor, QWidget* parent)
    : QWidget(parent), editor_(editor), text_(new QLineEdit), matchCase_(new QCheckBox(tr("Match &case"))),
      message_(new QLabel) {
  setObjectName(QStringLiteral("FindBar"));
  text_->setObjectName(QStringLiteral("FindText"));
  text_->setPlaceholderText(tr("Find"));
  text_->setClearButtonEnabled(true);
  text_->setMaximumWidth(360);
  matchCase_->setObjectName(QStringLiteral("MatchCase"));
  message_->setObjectName(QStringLiteral("FindMessage"));
  message_->setTextFormat(Qt::PlainText);

  auto* const layout = new QHBoxLayout(this);
  layout->setContentsMargins(8, 4, 4, 4);
  layout->addWidget(text_, 1);
  auto* const previous = addButton(layout, QStringLiteral("FindPreviousButton"), tr("Previous"),
                                   tr("Find the previous occurrence (Shift+Enter)"));
  auto* const next =
      addButton(layout, QStringLiteral("FindNextButton"), tr("Next"), tr("Find the next occurrence (Enter)"));
  layout->addWidget(matchCase_);
  layout->addWidget(message_, 1);
  auto* const closeButton = new CloseButton(tr("Close (Escape)"));
  closeButton->setObjectName(QStringLiteral("CloseFindBar"));
  layout->addWidget(closeButton);
  setFocusProxy(text_);
  hide();

  connect(text_, &QLineEdit::textEdited, this, &FindBar::findWhileTyping);
  connect(matchCase_, &QCheckBox::toggled, this, &FindBar::findWhileTyping);
  connect(previous, &QToolButton::clicked, this, &FindBar::findPrevious);
  connect(next, &QToolButton::clicked, this, &FindBar::findNext);
  connect(closeButton, &CloseButton::clicked, this, &FindBar::close);
}

void FindBar::open() {
  const QTextCursor cursor = editor_->textCursor();
  startHere();
  const QString selected = cursor.selectedText();
  if (!selected.isEmpty() && !selected.contains(QChar::ParagraphSeparator))
    text_->setText(selected);
  showFound(true, {});
  show();
  text_->setFocus(Qt::ShortcutFocusReason);
  text_->selectAll();
}

void FindBar::close() {
  hide();
  editor_->setFocus(Qt::OtherFocusReason);
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
  const SearchHit hit =
      findText(*editor_->document(), editor_->textCursor(), text(), direction, matchCase_->isChecked());
  select(hit, direction == SearchDirection::Forward ? tr("Reached the end, went on from the top")
                                                    : tr("Reached the top, went on from the end"));
  startHere();
}

void FindBar::startHere() {
  searched_ = editor_->document();
  origin_ = editor_->textCursor().selectionStart();
}

void FindBar::findWhileTyping() {
  if (text().isEmpty()) {
    showFound(true, {});
    return;
  }
  if (searched_ != editor_->document())
    startHere();
  QTextCursor from(editor_->document());
  from.setPosition(qMin(origin_, editor_->document()->characterCount() - 1));
  select(findText(*editor_->document(), from, text(), SearchDirection::Forward, matchCase_->isChecked()), {});
}

void FindBar::select(const SearchHit& hit, const QString& wrapMessage) {
  if (hit.match.isNull()) {
    showFound(false, tr("Not found"));
    return;
  }
  editor_->setTextCursor(hit.match);
  editor_->setSearchMatch(hit.match.selectionStart(), hit.match.selectionEnd());
  showFound(true, hit.wrapped ? wrapMessage : QString());
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
  message_->setToolTip(message);
}

void FindBar::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
  case Qt::Key_Escape:
    close();
    break;
  case Qt::Key_Return:
  case Qt::Key_Enter:
    if (event->modifiers() & Qt::ShiftModifier)
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
