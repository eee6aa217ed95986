// SPDX-License-Identifier: MIT
// Which messages Qt's events become, in which order, and what their default does.
#include "desktop/edit/EditFixture.h"

#include <QScrollBar>
#include <QWheelEvent>

namespace desktop {
namespace {

using namespace platform;
using Keys = std::vector<MessageRecorder::Key>;

class EditControlMessages : public EditFixture {
protected:
  void turnWheel(QWidget& widget, int notches, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    const QPointF place(20, 20);
    QWheelEvent wheel(place, widget.mapToGlobal(place), {}, QPoint(0, 120 * notches), Qt::NoButton, modifiers,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&widget, &wheel);
  }
};

TEST_F(EditControlMessages, AnnounceAKeyBeforeItIsPressedAndItsCharacterAfterwards) {
  show({});
  MessageRecorder recorder(control);
  press(Qt::Key_A, QStringLiteral("a"));
  EXPECT_EQ(recorder.keys(), (Keys{{CN_KEYDOWN, 65}, {WM_KEYDOWN, 65}, {WM_CHAR, 'a'}, {WM_KEYUP, 65}}));
  EXPECT_EQ(text(), "a");
}

TEST_F(EditControlMessages, AnnounceAKeyOnceEvenWhenItIsPressedPastTheShortcuts) {
  show({});
  MessageRecorder recorder(control);
  QKeyEvent down(QEvent::KeyPress, Qt::Key_Left, Qt::NoModifier);
  static_cast<QObject&>(control).event(&down);
  EXPECT_EQ(recorder.keys(), (Keys{{CN_KEYDOWN, 37}, {WM_KEYDOWN, 37}}));
}

TEST_F(EditControlMessages, AnnounceAKeyThatAShortcutThenTakes) {
  show({});
  MessageRecorder recorder(control);
  QKeyEvent question(QEvent::ShortcutOverride, Qt::Key_F5, Qt::NoModifier);
  QApplication::sendEvent(&control, &question);
  EXPECT_EQ(recorder.keys(), (Keys{{CN_KEYDOWN, 116}}));
  EXPECT_FALSE(question.isAccepted()) << "the shortcut may have it";
}

TEST_F(EditControlMessages, ClaimTheKeysOfEditingFromTheShortcuts) {
  show({});
  QKeyEvent question(QEvent::ShortcutOverride, Qt::Key_A, Qt::NoModifier, QStringLiteral("a"));
  QApplication::sendEvent(&control, &question);
  EXPECT_TRUE(question.isAccepted());
}

TEST_F(EditControlMessages, SendOneCharacterForAPairOfUnits) {
  show({});
  MessageRecorder recorder(control);
  pressOnly(0, QStringLiteral("\U0001F600"));
  EXPECT_EQ(recorder.keys(), (Keys{{CN_KEYDOWN, 0}, {WM_KEYDOWN, 0}, {WM_CHAR, 0x1F600}}));
  EXPECT_EQ(text(), "\U0001F600");
}

TEST_F(EditControlMessages, SendEnterAndTabAsCharacters) {
  show({});
  MessageRecorder recorder(control);
  pressOnly(Qt::Key_Return, QStringLiteral("\r"));
  pressOnly(Qt::Key_Tab, QStringLiteral("\t"));
  EXPECT_EQ(recorder.keys(),
            (Keys{{CN_KEYDOWN, 13}, {WM_KEYDOWN, 13}, {WM_CHAR, 13}, {CN_KEYDOWN, 9}, {WM_KEYDOWN, 9}, {WM_CHAR, 9}}));
}

TEST_F(EditControlMessages, SendNoCharacterForCommands) {
  show(QStringLiteral("ab"));
  MessageRecorder recorder(control);
  press(Qt::Key_Delete, QStringLiteral("\x7F"));
  press(Qt::Key_Backspace, QStringLiteral("\b"));
  press(Qt::Key_Escape, QStringLiteral("\x1B"));
  press(Qt::Key_A, QStringLiteral("\x01"), Qt::ControlModifier);
  press(Qt::Key_A, QStringLiteral("a"), Qt::AltModifier);
  EXPECT_EQ(recorder.count(WM_CHAR), 0);
  EXPECT_EQ(recorder.count(WM_KEYDOWN), 5);
}

TEST_F(EditControlMessages, KeysHeldWithACommandModifierPutNoTextIn) {
  show(QStringLiteral("ab"));
  press(Qt::Key_Q, QStringLiteral("q"), Qt::AltModifier);
  press(Qt::Key_ParenRight, QStringLiteral(")"), Qt::AltModifier | Qt::ShiftModifier);
  press(Qt::Key_Q, QStringLiteral("q"), Qt::AltModifier | Qt::ControlModifier);
  press(Qt::Key_Q, QStringLiteral("q"), Qt::MetaModifier);
  EXPECT_EQ(text(), "ab");
}

TEST_F(EditControlMessages, SendCommittedTextOfAnInputMethodAsCharacters) {
  show({});
  MessageRecorder recorder(control);
  QInputMethodEvent commit;
  commit.setCommitString(QStringLiteral("\u00E9\u4E2D"));
  QApplication::sendEvent(&control, &commit);
  EXPECT_EQ(recorder.keys(), (Keys{{WM_CHAR, 0xE9}, {WM_CHAR, 0x4E2D}}));
  EXPECT_EQ(text(), "\u00E9\u4E2D");
}

TEST_F(EditControlMessages, LeaveACompositionToQt) {
  show(QStringLiteral("end"));
  MessageRecorder recorder(control);
  QInputMethodEvent compose(QStringLiteral("ni"), {});
  QApplication::sendEvent(&control, &compose);
  EXPECT_EQ(recorder.count(WM_CHAR), 0);
  EXPECT_EQ(document.firstBlock().layout()->preeditAreaText(), QStringLiteral("ni"));
  QInputMethodEvent commit;
  commit.setCommitString(QStringLiteral("\u4F60"));
  QApplication::sendEvent(&control, &commit);
  EXPECT_EQ(text(), "\u4F60end");
  EXPECT_TRUE(document.firstBlock().layout()->preeditAreaText().isEmpty());
}

TEST_F(EditControlMessages, ColourALineAgainAfterACancelledComposition) {
  show(QStringLiteral("end"));
  QInputMethodEvent compose(QStringLiteral("ni"), {});
  QApplication::sendEvent(&control, &compose);
  support::settle();
  QInputMethodEvent cancel;
  QApplication::sendEvent(&control, &cancel);
  support::settle();
  ASSERT_EQ(document.firstBlock().layout()->formats().size(), 1);
  EXPECT_EQ(document.firstBlock().layout()->formats()[0].length, 3);
}

TEST_F(EditControlMessages, InsertOnlyCharactersThatArriveAtTheDefault) {
  show({});
  MessageRecorder recorder(control);
  recorder.onMessage = [](TMessage& message) {
    if (message.Msg == WM_CHAR && message.WParam == 'a')
      message.WParam = 'b';
    return message.Msg != WM_CHAR || message.WParam != 'x';
  };
  type(QStringLiteral("axa"));
  EXPECT_EQ(text(), "bb");
}

TEST_F(EditControlMessages, ActOnCommandsOnlyAtTheDefault) {
  show(QStringLiteral("ab"));
  MessageRecorder recorder(control);
  recorder.onMessage = [](const TMessage& message) { return message.Msg != WM_KEYDOWN; };
  press(Qt::Key_Right);
  EXPECT_EQ(control.caretColumn(), 1);
  recorder.onMessage = nullptr;
  press(Qt::Key_Right);
  EXPECT_EQ(control.caretColumn(), 2);
}

TEST_F(EditControlMessages, SkipReleasesThatRepeat) {
  show({});
  MessageRecorder recorder(control);
  QKeyEvent repeated(QEvent::KeyRelease, Qt::Key_A, Qt::NoModifier, QStringLiteral("a"), true);
  QApplication::sendEvent(&control, &repeated);
  EXPECT_EQ(recorder.count(WM_KEYUP), 0);
  release(Qt::Key_A);
  EXPECT_EQ(recorder.count(WM_KEYUP), 1);
}

TEST_F(EditControlMessages, CarryTheEvent) {
  show({});
  MessageRecorder recorder(control);
  QKeyEvent down(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier, QStringLiteral("a"));
  QApplication::sendEvent(&control, &down);
  for (const TMessage& message : recorder.messages()) {
    if (message.Msg == WM_KEYDOWN || message.Msg == WM_CHAR)
      EXPECT_EQ(message.LParam, reinterpret_cast<std::intptr_t>(&down));
    else
      EXPECT_NE(message.LParam, 0);
  }
}

TEST_F(EditControlMessages, TellOfTheFocus) {
  show({});
  MessageRecorder recorder(control);
  control.clearFocus();
  EXPECT_EQ(recorder.count(WM_KILLFOCUS), 1);
  control.setFocus();
  ASSERT_TRUE(support::waitUntil([this] { return control.hasFocus(); }));
  EXPECT_EQ(recorder.count(WM_SETFOCUS), 1);
}

TEST_F(EditControlMessages, TellOfADoubleClickThatSelectsAWord) {
  show(QStringLiteral("one two"));
  MessageRecorder recorder(control);
  const QPointF place(5.5 * control.cellSize().width(), 3);
  for (const Qt::MouseButton button : {Qt::RightButton, Qt::LeftButton}) {
    QMouseEvent click(QEvent::MouseButtonDblClick, place, control.viewport()->mapToGlobal(place), button, button,
                      Qt::NoModifier);
    QApplication::sendEvent(control.viewport(), &click);
  }
  EXPECT_EQ(recorder.count(WM_LBUTTONDBLCLK), 1);
  EXPECT_EQ(control.textCursor().selectedText(), QStringLiteral("two"));
}

TEST_F(EditControlMessages, TellOfScrollingByTheScrollBars) {
  show((QStringLiteral("x").repeated(300) + u'\n').repeated(300));
  MessageRecorder recorder(control);
  int topAfterwards = 0;
  recorder.afterMessage = [&](const TMessage& message) {
    if (message.Msg == WM_VSCROLL)
      topAfterwards = control.topLine();
  };
  control.verticalScrollBar()->triggerAction(QAbstractSlider::SliderSingleStepAdd);
  EXPECT_EQ(recorder.count(WM_VSCROLL), 1);
  EXPECT_EQ(topAfterwards, 2) << "the default has scrolled when it returns";
  control.horizontalScrollBar()->triggerAction(QAbstractSlider::SliderSingleStepAdd);
  EXPECT_EQ(recorder.count(WM_HSCROLL), 1);
  EXPECT_EQ(control.leftColumn(), 2);
}

TEST_F(EditControlMessages, TellOfScrollingByTheWheel) {
  show(QStringLiteral("x\n").repeated(300));
  MessageRecorder recorder(control);
  turnWheel(*control.viewport(), -1);
  ASSERT_EQ(recorder.count(WM_VSCROLL), 1);
  EXPECT_EQ(control.topLine(), 1 + QApplication::wheelScrollLines());
}

TEST_F(EditControlMessages, ScrollByTheWheelOverTheGutter) {
  show(QStringLiteral("x\n").repeated(300));
  MessageRecorder recorder(control);
  QWidget* gutter = control.childAt(3, 3);
  ASSERT_NE(gutter, control.viewport());
  turnWheel(*gutter, -1);
  EXPECT_EQ(recorder.count(WM_VSCROLL), 1);
  EXPECT_GT(control.topLine(), 1);
}

TEST_F(EditControlMessages, KeepTheCellsWhenTheWheelIsTurnedWithCtrlOverAReadOnlyText) {
  show(QStringLiteral("x\n").repeated(300));
  control.setReadOnly(true);
  const QFont before = control.font();
  turnWheel(*control.viewport(), 1, Qt::ControlModifier);
  EXPECT_EQ(control.font(), before);
}

TEST_F(EditControlMessages, AskForZoomByWholeStepsOfTheWheelWithCtrl) {
  show(QStringLiteral("x\n").repeated(300));
  std::vector<int> wanted;
  QObject::connect(&control, &TEditControl::zoomWanted, [&wanted](int steps) { wanted.push_back(steps); });
  turnWheel(*control.viewport(), 2, Qt::ControlModifier);
  turnWheel(*control.viewport(), -1, Qt::ControlModifier);
  for (int part = 0; part < 3; ++part) {
    const QPointF place(20, 20);
    QWheelEvent wheel(place, place, {}, QPoint(0, 40), Qt::NoButton, Qt::ControlModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(control.viewport(), &wheel);
  }
  EXPECT_EQ(wanted, (std::vector{2, -1, 1}));
  EXPECT_EQ(control.topLine(), 1);
}

TEST_F(EditControlMessages, DoNotScrollWhenTheProcedureKeepsTheMessage) {
  show(QStringLiteral("x\n").repeated(300));
  MessageRecorder recorder(control);
  recorder.onMessage = [](const TMessage& message) { return message.Msg != WM_VSCROLL; };
  control.verticalScrollBar()->triggerAction(QAbstractSlider::SliderPageStepAdd);
  support::settle();
  EXPECT_EQ(control.topLine(), 1);
  EXPECT_EQ(control.verticalScrollBar()->value(), 0);
}

TEST_F(EditControlMessages, ScrollByAPageOfWholeLines) {
  show(QStringLiteral("x\n").repeated(300));
  control.verticalScrollBar()->triggerAction(QAbstractSlider::SliderPageStepAdd);
  EXPECT_EQ(control.topLine(), 1 + control.viewSize().height());
  control.verticalScrollBar()->triggerAction(QAbstractSlider::SliderPageStepSub);
  EXPECT_EQ(control.topLine(), 1);
}

TEST_F(EditControlMessages, AreSilentAboutScrollingByProgramOrCaret) {
  show(QStringLiteral("x\n").repeated(300));
  MessageRecorder recorder(control);
  control.setTopLine(100);
  control.moveCursor(QTextCursor::End);
  EXPECT_EQ(recorder.count(WM_VSCROLL), 0);
}

TEST_F(EditControlMessages, TellOfDestructionWhileTheControlIsWhole) {
  PlainDocument shown(QStringLiteral("one\ntwo"));
  auto owned = std::make_unique<TEditControl>();
  const TEditControl* whole = owned.get();
  owned->showDocument(&shown);
  owned->setCaret(2, 3);
  MessageRecorder recorder(*owned);
  int caret = 0;
  recorder.onMessage = [&](const TMessage& message) {
    if (message.Msg == WM_DESTROY)
      caret = whole->property("CaretX").toInt();
    return true;
  };
  owned.reset();
  EXPECT_EQ(recorder.count(WM_DESTROY), 1);
  EXPECT_EQ(caret, 3);
}

TEST_F(EditControlMessages, GoToTheProcedureThatIsInPlace) {
  const TWndMethod own = control.WindowProc();
  {
    MessageRecorder recorder(control);
    EXPECT_FALSE(control.WindowProc() == own);
  }
  EXPECT_TRUE(control.WindowProc() == own);
}

TEST_F(EditControlMessages, SurviveAProcedureThatReplacesItself) {
  show({});
  const TWndMethod own = control.WindowProc();
  MessageRecorder recorder(control);
  recorder.onMessage = [&](const TMessage&) {
    control.SetWindowProc(own);
    return true;
  };
  press(Qt::Key_A, QStringLiteral("a"));
  EXPECT_EQ(recorder.messages().size(), 1U);
  EXPECT_EQ(text(), "a");
}

} // namespace
} // namespace desktop
