// SPDX-License-Identifier: MIT
// What a random user does.
#include "driven/RandomUser.h"

#include "desktop/ui/EditWindow.h"
#include "platform/Actions.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QFile>
#include <QMenu>
#include <QMenuBar>
#include <QTest>
#include <QWheelEvent>

#include <array>

namespace driven {

namespace {

const QStringList& pieces() {
  static const QStringList list = {
      QStringLiteral("begin"),   QStringLiteral("end;"),  QStringLiteral("if x then"),  QStringLiteral("procedure P;"),
      QStringLiteral("("),       QStringLiteral(")"),     QStringLiteral("'"),          QStringLiteral("{"),
      QStringLiteral("}"),       QStringLiteral("(*"),    QStringLiteral("*)"),         QStringLiteral("//"),
      QStringLiteral("x := 1;"), QStringLiteral("beg "),  QStringLiteral("ifb "),       QStringLiteral("tryf "),
      QStringLiteral("proc "),   QStringLiteral("cls "),  QStringLiteral("1"),          QStringLiteral("23"),
      QStringLiteral("unit"),    QStringLiteral("Other"), QStringLiteral("\u00e4"),     QStringLiteral("\u4e2d"),
      QStringLiteral("class"),   QStringLiteral("type"),  QStringLiteral("\U0001F600"), QStringLiteral(";"),
  };
  return list;
}

QString named(const QAction& action) {
  return QStringLiteral("choose ") + (action.text().isEmpty() ? action.objectName() : action.text());
}

} // namespace

void RandomUser::typeText(const QString& text) {
  for (const char32_t character : text.toUcs4()) {
    const QString typed = QString::fromUcs4(&character, 1);
    const int key =
        character < 0x80 ? int{QChar(static_cast<char16_t>(character)).toUpper().unicode()} : int{Qt::Key_unknown};
    pressKey(key, Qt::NoModifier, typed);
  }
}

void RandomUser::pressKey(int key, Qt::KeyboardModifiers modifiers, const QString& text) {
  const QString name =
      QStringLiteral("key %1 %2").arg(QKeySequence(key | static_cast<int>(modifiers)).toString(), text);
  then(name, [this, key, modifiers, text] {
    const QPointer<QWindow> window = keyWindow();
    if (!window)
      return;
    // An open menu takes all keys; otherwise shortcuts come first.
    QObject* const focus = QGuiApplication::focusObject();
    const bool isShortcut = focus != nullptr && QApplication::activePopupWidget() == nullptr &&
                            qt_sendShortcutOverrideEvent(focus, 0, key, modifiers, text);
    if (!isShortcut && window)
      qt_handleKeyEvent(window, QEvent::KeyPress, key, modifiers, text);
    if (window)
      qt_handleKeyEvent(window, QEvent::KeyRelease, key, modifiers, text);
  });
}

void RandomUser::typeSomething() {
  switch (number(0, 9)) {
  case 0:
  case 1:
    pressKey(Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"));
    break;
  case 2:
    pressKey(Qt::Key_Backspace);
    break;
  case 3:
    pressKey(Qt::Key_Delete);
    break;
  case 4:
    oneIn(3) ? pressKey(Qt::Key_Backtab, Qt::ShiftModifier)
             : pressKey(Qt::Key_Tab, Qt::NoModifier, QStringLiteral("\t"));
    break;
  default:
    typeText(pick(pieces()));
  }
}

void RandomUser::moveAround() {
  static constexpr std::array keys = {Qt::Key_Left, Qt::Key_Right,  Qt::Key_Up,       Qt::Key_Down,  Qt::Key_Home,
                                      Qt::Key_End,  Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Escape};
  Qt::KeyboardModifiers modifiers;
  modifiers.setFlag(Qt::ShiftModifier, oneIn(3));
  modifiers.setFlag(Qt::ControlModifier, oneIn(4));
  modifiers.setFlag(Qt::AltModifier, oneIn(12));
  pressKey(pick(keys), modifiers);
}

// Any shortcut that is to be had where the user is.
void RandomUser::useShortcut() {
  const QWidget* const window = QApplication::activeWindow();
  if (window == nullptr)
    return;
  QList<QKeySequence> shortcuts;
  for (const QAction* action : window->findChildren<QAction*>())
    shortcuts += action->shortcuts();
  shortcuts.removeIf([](const QKeySequence& keys) { return keys.isEmpty(); });
  if (shortcuts.isEmpty())
    return;
  const QKeyCombination keys = pick(shortcuts)[0];
  if (keys.key() == Qt::Key_Q && !oneIn(8)) // or hardly anything would last
    return;
  pressKey(keys.key(), keys.keyboardModifiers());
}

void RandomUser::useMarkers() {
  static constexpr std::array keys = {Qt::Key_Insert, Qt::Key_Delete, Qt::Key_0};
  pressKey(pick(keys), Qt::ShiftModifier | Qt::AltModifier);
}

// A widget of `window`, or the window itself.
QWidget* RandomUser::somethingIn(QWidget* window) {
  QWidgetList widgets = window->findChildren<QWidget*>();
  widgets.removeIf([window](const QWidget* widget) { return !widget->isVisible() || widget->window() != window; });
  return widgets.isEmpty() || oneIn(4) ? window : pick(widgets);
}

void RandomUser::useMouse() {
  QWidget* const window = topLevel();
  if (window == nullptr)
    return;
  QWidget* const widget = somethingIn(window);
  if (oneIn(4)) {
    drag(widget);
    return;
  }
  const QPoint place(number(0, std::max(widget->width() - 1, 0)), number(0, std::max(widget->height() - 1, 0)));
  clickAt(widget, place, oneIn(6) ? Qt::RightButton : oneIn(20) ? Qt::MiddleButton : Qt::LeftButton, oneIn(6));
}

void RandomUser::clickAt(QWidget* widget, QPoint place, Qt::MouseButton button, bool twice) {
  const QPointer<QWidget> target = widget;
  const QString name = QStringLiteral("%1 %2 at %3,%4 button %5")
                           .arg(QLatin1StringView(widget->metaObject()->className()), widget->objectName())
                           .arg(place.x())
                           .arg(place.y())
                           .arg(static_cast<int>(button));
  const auto send = [&](const char* what, QEvent::Type type) {
    then(QLatin1StringView(what) + name, [=, this] { sendMouse(type, target, place, button); });
  };
  send("move on ", QEvent::MouseMove);
  send("press ", QEvent::MouseButtonPress);
  send("release ", QEvent::MouseButtonRelease);
  if (twice) {
    send("press again ", QEvent::MouseButtonPress);
    send("release again ", QEvent::MouseButtonRelease);
  }
}

void RandomUser::drag(QWidget* widget) {
  const QPointer<QWidget> target = widget;
  const auto place = [&] { return QPoint(number(-20, widget->width() + 20), number(-20, widget->height() + 20)); };
  const QPoint start(number(0, std::max(widget->width() - 1, 0)), number(0, std::max(widget->height() - 1, 0)));
  const QString name = QLatin1StringView(widget->metaObject()->className());
  then(QStringLiteral("press to drag ") + name,
       [=, this] { sendMouse(QEvent::MouseButtonPress, target, start, Qt::LeftButton); });
  QPoint end = start;
  for (int moves = number(1, 6); moves > 0; --moves) {
    end = place();
    then(QStringLiteral("drag over ") + name, [=, this] { sendMouse(QEvent::MouseMove, target, end, Qt::NoButton); });
  }
  then(QStringLiteral("drop on ") + name,
       [=, this] { sendMouse(QEvent::MouseButtonRelease, target, end, Qt::LeftButton); });
}

// A widget that has gone in the meantime gets no event, but a button that is down comes up again.
void RandomUser::sendMouse(QEvent::Type type, QPointer<QWidget> widget, QPoint place, Qt::MouseButton button) {
  if (type == QEvent::MouseButtonPress)
    buttons_ |= button;
  else if (type == QEvent::MouseButtonRelease)
    buttons_ &= ~Qt::MouseButtons(button);
  QWidget* const top = widget && widget->isVisible() ? widget->window() : topLevel();
  if (top == nullptr || top->windowHandle() == nullptr)
    return;
  const QPoint global = widget ? widget->mapToGlobal(place) : top->mapToGlobal(place);
  clock_ += 40; // two presses at one place are a double click
  qt_handleMouseEvent(top->windowHandle(), top->mapFromGlobal(global), global, buttons_, button, type,
                      QGuiApplication::keyboardModifiers(), clock_);
}

void RandomUser::turnWheel() {
  QWidget* const window = topLevel();
  if (window == nullptr)
    return;
  const QPointer<QWidget> target = somethingIn(window);
  const int delta = number(-4, 4) * 60;
  const bool zooms = oneIn(6);
  then(QStringLiteral("wheel over ") + QLatin1StringView(target->metaObject()->className()), [target, delta, zooms] {
    if (!target || !target->isVisible() || !target->isEnabled())
      return;
    const QPoint middle = target->rect().center();
    QWheelEvent event(middle, target->mapToGlobal(middle), {}, {0, delta}, Qt::NoButton,
                      zooms ? Qt::ControlModifier : Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(target, &event);
  });
}

// Opens a menu of the bar, goes down in it, and perhaps takes what is there.
void RandomUser::useMenu() {
  const QWidget* const window = QApplication::activeWindow();
  auto* const bar = window != nullptr ? window->findChild<QMenuBar*>() : nullptr;
  if (bar == nullptr || bar->actions().isEmpty())
    return;
  QAction* const menu = bar->actions().at(number(0, static_cast<int>(bar->actions().size()) - 1));
  clickAt(bar, bar->actionGeometry(menu).center(), Qt::LeftButton, false);
  for (int downs = number(0, 12); downs > 0; --downs)
    pressKey(Qt::Key_Down);
  if (oneIn(5))
    pressKey(Qt::Key_Right);
  pressKey(oneIn(3) ? Qt::Key_Escape : Qt::Key_Return);
}

// Any command at once, as if by its menu.
void RandomUser::chooseAction() {
  QWidget* const window = QApplication::activeWindow();
  if (window == nullptr || QApplication::activeModalWidget() != nullptr || QApplication::activePopupWidget() != nullptr)
    return;
  QList<QAction*> actions = window->findChildren<QAction*>();
  actions.removeIf([](const QAction* action) {
    return !action->isEnabled() || !action->isVisible() || action->isSeparator() || action->menu() != nullptr;
  });
  if (actions.isEmpty())
    return;
  QAction* const action = pick(actions);
  if (action->objectName() == QStringLiteral("FileExitCommand") && !oneIn(8))
    return;
  then(named(*action), [chosen = QPointer(action)] {
    if (chosen && chosen->isEnabled())
      chosen->trigger();
  });
}

void RandomUser::answerDialog() {
  QWidget* const dialog = QApplication::activeModalWidget();
  switch (number(0, 7)) {
  case 0:
    pressKey(Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"));
    return;
  case 1:
    pressKey(Qt::Key_Escape);
    return;
  case 2:
    pressKey(Qt::Key_Tab);
    return;
  case 3:
    pressKey(Qt::Key_Space, Qt::NoModifier, QStringLiteral(" "));
    return;
  case 4:
    typeText(pick(pieces()));
    return;
  default:
    break;
  }
  QList<QAbstractButton*> buttons = dialog->findChildren<QAbstractButton*>();
  buttons.removeIf([](const QAbstractButton* button) { return !button->isVisible() || !button->isEnabled(); });
  if (buttons.isEmpty())
    return;
  QAbstractButton* const button = pick(buttons);
  clickAt(button, button->rect().center(), Qt::LeftButton, false);
}

void RandomUser::changeWindow() {
  QWidget* const window = topLevel();
  if (window == nullptr || window->windowType() == Qt::Popup)
    return;
  const QPointer<QWidget> target = window;
  switch (number(0, 7)) {
  case 0:
  case 1:
  case 2: {
    const QSize size(number(60, 900), number(60, 700));
    then(QStringLiteral("resize to %1x%2").arg(size.width()).arg(size.height()), [target, size] {
      if (target)
        target->resize(size);
    });
    return;
  }
  case 3:
    then(QStringLiteral("maximize"), [target] {
      if (target)
        target->setWindowState(target->windowState() ^ Qt::WindowMaximized);
    });
    return;
  case 4:
    then(QStringLiteral("minimize"), [target] {
      if (target)
        target->showMinimized();
    });
    then(QStringLiteral("show again"), [target] {
      if (target && target->isMinimized())
        target->showNormal();
    });
    return;
  case 5:
    if (!oneIn(4))
      return;
    then(QStringLiteral("close a window"), [target] {
      if (target)
        target->close();
    });
    return;
  default:
    then(QStringLiteral("activate a window"), [target] {
      if (target)
        target->activateWindow();
    });
  }
}

// Another program writes one of the files.
void RandomUser::changeFile() {
  const QString path = folder_ + (oneIn(2) ? QStringLiteral("/Unit.pas") : QStringLiteral("/Other.pas"));
  const int line = number(0, 20);
  then(QStringLiteral("change a file from outside"), [this, path, line] {
    QFile file(path);
    if (!file.open(QIODevice::ReadWrite))
      return;
    QByteArrayList lines = file.readAll().split('\n');
    lines.insert(std::min<qsizetype>(line, lines.size()), "{ from outside }");
    file.resize(0);
    file.seek(0);
    file.write(lines.join('\n'));
    witness_.expectOtherFile(path);
  });
}

} // namespace driven
