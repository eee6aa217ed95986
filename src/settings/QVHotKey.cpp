// SPDX-License-Identifier: MIT
#include "settings/QVHotKey.h"

#include "platform/KeyPlaces.h"
#include "settings/model/QVShortCutText.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QStyleOptionFrame>

#include <algorithm>

namespace quorvane {

namespace {

using platform::ModifiersOf;
using platform::scAlt;
using platform::scCtrl;
using platform::scShift;
using platform::TShortCut;
using platform::VirtualKeyOf;

// X11 calls the key Alt Meta while Shift is held.
bool IsAltCalledMeta(const QKeyEvent& event) {
  constexpr quint32 leftAlt = 64;
  constexpr quint32 rightAlt = 108;
  const quint32 code = event.nativeScanCode();
  return event.key() == Qt::Key_Meta && (code == leftAlt || code == rightAlt);
}

// The modifier that the key is, or 0.
TShortCut ModifierOf(const QKeyEvent& event) {
  if (IsAltCalledMeta(event))
    return scAlt;
  switch (event.key()) {
  case Qt::Key_Shift:
    return scShift;
  case Qt::Key_Control:
    return scCtrl;
  case Qt::Key_Alt:
    return scAlt;
  default:
    return 0;
  }
}

enum class TUse {
  Pass,  // the dialog's or the desktop's
  Hold,  // a modifier
  Clear, // no shortcut any more
  Take,  // the new shortcut
};

TUse UseOf(const QKeyEvent& event) {
  if (ModifierOf(event) != 0)
    return TUse::Hold;
  const bool plain = (ModifiersOf(event) & (scCtrl | scAlt)) == 0;
  switch (event.key()) {
  case Qt::Key_Tab:
  case Qt::Key_Backtab:
    return TUse::Pass;
  case Qt::Key_Return:
  case Qt::Key_Enter:
  case Qt::Key_Escape:
    if (plain)
      return TUse::Pass;
    break;
  case Qt::Key_Backspace:
  case Qt::Key_Delete:
  case Qt::Key_Space:
    if (plain)
      return TUse::Clear;
    break;
  default:
    break;
  }
  const bool desktops = event.modifiers().testFlag(Qt::MetaModifier);
  return desktops || VirtualKeyOf(event) == 0 ? TUse::Pass : TUse::Take;
}

// The modifiers alone, as in front of a key.
QString HeldText(TShortCut modifiers) {
  constexpr char anyKey = 'A';
  QString text = QString::fromStdString(ShortCutToText(static_cast<TShortCut>(modifiers | anyKey)));
  text.chop(1);
  return text;
}

QString HotKeyText(TShortCut hotKey) {
  const QString text = QString::fromStdString(ShortCutToText(hotKey));
  return text.isEmpty() ? QStringLiteral("None") : text;
}

} // namespace

THotKey::THotKey(QWidget* parent) : QLineEdit(parent) {
  setReadOnly(true);
  setContextMenuPolicy(Qt::NoContextMenu);
  setText(HotKeyText(hotKey_));
}

THotKey::~THotKey() = default;

void THotKey::SetHotKey(int hotKey) {
  hotKey_ = static_cast<TShortCut>(hotKey);
  setText(HotKeyText(hotKey_));
}

// Wide enough for every shortcut.
QSize THotKey::sizeHint() const {
  constexpr int padding = 8;
  const QSize standard = QLineEdit::sizeHint();
  const QString longest = HeldText(scShift | scCtrl | scAlt) + QStringLiteral("Space");
  QStyleOptionFrame option;
  initStyleOption(&option);
  const QSize contents(fontMetrics().horizontalAdvance(longest) + padding, fontMetrics().height());
  return {style()->sizeFromContents(QStyle::CT_LineEdit, &option, contents, this).width(), standard.height()};
}

bool THotKey::event(QEvent* event) {
  if (event->type() != QEvent::ShortcutOverride)
    return QLineEdit::event(event);
  event->setAccepted(UseOf(*static_cast<QKeyEvent*>(event)) != TUse::Pass);
  return true;
}

void THotKey::focusOutEvent(QFocusEvent* event) {
  setText(HotKeyText(hotKey_));
  QLineEdit::focusOutEvent(event);
}

void THotKey::keyPressEvent(QKeyEvent* event) {
  switch (UseOf(*event)) {
  case TUse::Pass:
    event->ignore();
    break;
  case TUse::Hold:
    setText(HeldText(ModifiersOf(*event) | ModifierOf(*event)));
    break;
  case TUse::Clear:
    SetHotKey(0);
    break;
  case TUse::Take:
    SetHotKey(Accepted(VirtualKeyOf(*event), ModifiersOf(*event)));
    break;
  }
}

// The first modifier that is let go ends the attempt: what counts is shown again.
void THotKey::keyReleaseEvent(QKeyEvent* event) {
  if (ModifierOf(*event) != 0)
    setText(HotKeyText(hotKey_));
  QLineEdit::keyReleaseEvent(event);
}

TShortCut THotKey::Accepted(std::uint8_t key, TShortCut modifiers) const {
  const bool refused = std::ranges::find(invalidKeys_, modifiers) != invalidKeys_.end();
  return static_cast<TShortCut>(key | modifiers | (refused ? modifiers_ : TShortCut{0}));
}

} // namespace quorvane
