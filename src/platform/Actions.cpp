// SPDX-License-Identifier: MIT
#include "platform/Actions.h"

#include "platform/Application.h"
#include "platform/KeyPlaces.h"

#include <QCoreApplication>
#include <QKeyEvent>

#include <algorithm>
#include <array>
#include <utility>

namespace platform {

namespace {

struct TKeyPair {
  std::uint8_t Virtual;
  int Qt;
};

// The keys that are neither letters, digits nor function keys.
constexpr std::array<TKeyPair, 17> kNamedKeys = {{
    {0x08, Qt::Key_Backspace},
    {0x09, Qt::Key_Tab},
    {0x0D, Qt::Key_Return},
    {0x1B, Qt::Key_Escape},
    {0x20, Qt::Key_Space},
    {0x21, Qt::Key_PageUp},
    {0x22, Qt::Key_PageDown},
    {0x23, Qt::Key_End},
    {0x24, Qt::Key_Home},
    {0x25, Qt::Key_Left},
    {0x26, Qt::Key_Up},
    {0x27, Qt::Key_Right},
    {0x28, Qt::Key_Down},
    {0x2D, Qt::Key_Insert},
    {0x2E, Qt::Key_Delete},
    {0x0D, Qt::Key_Enter},
    {0x09, Qt::Key_Backtab},
}};

constexpr std::uint8_t kVirtualF1 = 0x70;
constexpr std::uint8_t kVirtualF24 = 0x87;

bool IsDigit(int key) {
  return key >= '0' && key <= '9';
}

bool IsLetterOrDigit(int key) {
  return IsDigit(key) || (key >= 'A' && key <= 'Z');
}

// The shortcut of a digit with Shift and more, or 0 for every other press. Shift alone types.
TShortCut ShiftedDigit(const QKeyEvent& event) {
  const Qt::KeyboardModifiers modifiers = event.modifiers();
  const bool isShifted = modifiers.testFlag(Qt::ShiftModifier) && modifiers & (Qt::ControlModifier | Qt::AltModifier);
  if (!isShifted || modifiers & (Qt::MetaModifier | Qt::KeypadModifier))
    return 0;
  const std::uint8_t key = VirtualKeyOf(event);
  return IsDigit(key) ? static_cast<TShortCut>(key | ModifiersOf(event)) : TShortCut{0};
}

} // namespace

std::uint8_t VirtualKey(int qtKey) {
  if (IsLetterOrDigit(qtKey))
    return static_cast<std::uint8_t>(qtKey);
  if (qtKey >= Qt::Key_F1 && qtKey <= Qt::Key_F24)
    return static_cast<std::uint8_t>(kVirtualF1 + (qtKey - Qt::Key_F1));
  const auto* found = std::ranges::find(kNamedKeys, qtKey, &TKeyPair::Qt);
  return found == kNamedKeys.end() ? 0 : found->Virtual;
}

int QtKey(std::uint8_t virtualKey) {
  if (IsLetterOrDigit(virtualKey))
    return virtualKey;
  if (virtualKey >= kVirtualF1 && virtualKey <= kVirtualF24)
    return Qt::Key_F1 + (virtualKey - kVirtualF1);
  const auto* found = std::ranges::find(kNamedKeys, virtualKey, &TKeyPair::Virtual);
  return found == kNamedKeys.end() ? 0 : found->Qt;
}

QKeySequence ToKeySequence(TShortCut shortCut) {
  const int key = QtKey(static_cast<std::uint8_t>(shortCut & 0xFF));
  if (key == 0)
    return {};
  Qt::KeyboardModifiers modifiers;
  modifiers.setFlag(Qt::ShiftModifier, shortCut & scShift);
  modifiers.setFlag(Qt::ControlModifier, shortCut & scCtrl);
  modifiers.setFlag(Qt::AltModifier, shortCut & scAlt);
  return QKeySequence(QKeyCombination(modifiers, static_cast<Qt::Key>(key)));
}

TAction::TAction(QObject* owner) : QAction(owner) {
  connect(this, &QAction::triggered, this, [this] {
    if (OnExecute)
      Guarded(OnExecute);
  });
}

TAction::~TAction() = default;

void TAction::SetShortCut(TShortCut shortCut) {
  shortCut_ = shortCut;
  setShortcut(ToKeySequence(shortCut));
}

TActionList::TActionList(QWidget* form, const QString& name) : QObject(form), form_(form) {
  setObjectName(name);
  QCoreApplication::instance()->installEventFilter(this);
}

TActionList::~TActionList() = default;

// A press that comes to a control has fired no shortcut before.
bool TActionList::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress || !form_)
    return false;
  const auto* const control = qobject_cast<const QWidget*>(watched);
  if (control == nullptr || (control != form_ && !form_->isAncestorOf(control)))
    return false;
  const TShortCut shortCut = ShiftedDigit(static_cast<const QKeyEvent&>(*event));
  if (shortCut == 0 || !Fire(shortCut))
    return false;
  event->accept();
  return true;
}

bool TActionList::Fire(TShortCut shortCut) const {
  for (QAction* const action : Actions()) {
    const auto* const own = dynamic_cast<const TAction*>(action);
    if (own != nullptr && own->isEnabled() && own->ShortCut() == shortCut) {
      action->trigger();
      return true;
    }
  }
  return false;
}

void TActionList::Add(QAction* action) {
  if (Actions().contains(action))
    return;
  actions_.removeAll(nullptr);
  actions_.append(action);
  action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
  if (form_)
    form_->addAction(action);
}

void TActionList::Remove(QAction* action) {
  actions_.removeAll(action);
  if (form_)
    form_->removeAction(action);
}

QList<QAction*> TActionList::Actions() const {
  QList<QAction*> actions;
  for (const QPointer<QAction>& action : actions_) {
    if (action)
      actions.append(action);
  }
  return actions;
}

QAction* TActionList::Find(const QString& name) const {
  for (QAction* action : Actions()) {
    if (action->objectName() == name)
      return action;
  }
  return nullptr;
}

} // namespace platform
