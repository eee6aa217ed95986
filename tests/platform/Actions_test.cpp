// SPDX-License-Identifier: MIT
#include "platform/Actions.h"
#include "platform/Application.h"
#include "platform/Errors.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QWidget>

#include <memory>

using namespace platform;

TEST(ShortCut, IsAVirtualKeyWithModifiers) {
  EXPECT_EQ(ToKeySequence(0xA030), QKeySequence(Qt::SHIFT | Qt::ALT | Qt::Key_0));
  EXPECT_EQ(ToKeySequence(scCtrl | 'F'), QKeySequence(Qt::CTRL | Qt::Key_F));
  EXPECT_EQ(ToKeySequence(0x72), QKeySequence(Qt::Key_F3));
}

TEST(ShortCut, ZeroAndUnknownKeysAreNoShortcut) {
  EXPECT_TRUE(ToKeySequence(0).isEmpty());
  EXPECT_TRUE(ToKeySequence(scCtrl | 0x01).isEmpty());
}

TEST(ShortCut, EveryVirtualKeyComesBackFromQt) {
  int keys = 0;
  for (int code = 1; code < 256; ++code) {
    const int qtKey = QtKey(static_cast<std::uint8_t>(code));
    if (qtKey == 0)
      continue;
    ++keys;
    EXPECT_EQ(VirtualKey(qtKey), code);
  }
  EXPECT_EQ(keys, 10 + 26 + 24 + 15);
}

TEST(Action, ReportsWhatItsHandlerThrows) {
  QObject owner;
  TAction action(&owner);
  action.OnExecute = [] { throw EDivByZero(); };
  QString reported;
  Application().SetReporter([&](const QString& message, int) { reported = message; });
  EXPECT_NO_THROW(action.trigger());
  QCoreApplication::processEvents();
  Application().SetReporter({});
  EXPECT_EQ(reported, QStringLiteral("Division by zero"));
}

TEST(ActionList, KeepsOrderAndFindsByName) {
  QWidget form;
  TActionList list(&form, QStringLiteral("ActionList1"));
  QAction one;
  QAction two;
  two.setObjectName(QStringLiteral("SearchGoToCommand"));
  list.Add(&one);
  list.Add(&two);
  list.Add(&one);
  EXPECT_EQ(list.Actions(), (QList<QAction*>{&one, &two}));
  EXPECT_EQ(list.Find(QStringLiteral("SearchGoToCommand")), &two);
  EXPECT_EQ(list.Find(QStringLiteral("SearchFindCommand")), nullptr);
  EXPECT_EQ(form.actions(), list.Actions());
}

TEST(ActionList, ForgetsADestroyedAction) {
  QWidget form;
  TActionList list(&form, QStringLiteral("ActionList1"));
  auto action = std::make_unique<TAction>(nullptr);
  list.Add(action.get());
  action.reset();
  EXPECT_TRUE(list.Actions().isEmpty());
}

TEST(ActionList, OutlivesItsRemovedActions) {
  QWidget form;
  TActionList list(&form, QStringLiteral("ActionList1"));
  QAction action;
  list.Add(&action);
  list.Remove(&action);
  EXPECT_TRUE(list.Actions().isEmpty());
  EXPECT_TRUE(form.actions().isEmpty());
}

// Digits that take Shift. The scan codes are those of X11.

class ShiftedDigits : public testing::Test {
protected:
  static constexpr quint32 codeOfZero = 19;

  ShiftedDigits() {
    hotKey.SetShortCut(scShift | scAlt | '0');
    hotKey.OnExecute = [this] { ++fired; };
    list.Add(&hotKey);
  }

  // A press that Qt found no shortcut for, as it comes to `receiver`. Returns whether it got there.
  static bool press(QWidget& receiver, int key, const QString& text, Qt::KeyboardModifiers modifiers,
                    quint32 code = codeOfZero) {
    class Watch : public QObject {
    public:
      bool eventFilter(QObject*, QEvent* event) override {
        came = came || event->type() == QEvent::KeyPress;
        return false;
      }
      bool came = false;
    } watch;
    receiver.installEventFilter(&watch);
    QKeyEvent event(QEvent::KeyPress, key, modifiers, code, static_cast<quint32>(key), 0, text);
    QCoreApplication::sendEvent(&receiver, &event);
    return watch.came;
  }

  QWidget form;
  QLineEdit control{&form};
  TActionList list{&form, QStringLiteral("ActionList1")};
  TAction hotKey{nullptr};
  int fired = 0;
};

TEST_F(ShiftedDigits, FireTheShortcutOnAFrenchKeyboard) {
  EXPECT_FALSE(press(control, Qt::Key_0, QStringLiteral("0"), Qt::ShiftModifier | Qt::AltModifier));
  EXPECT_EQ(fired, 1);
  EXPECT_EQ(control.text(), QString()) << "nothing is typed";
}

TEST_F(ShiftedDigits, FireItWhateverSignShiftGives) {
  press(control, Qt::Key_Equal, QStringLiteral("="), Qt::ShiftModifier | Qt::AltModifier); // German
  EXPECT_EQ(fired, 1);
}

TEST_F(ShiftedDigits, FireNothingThatWantsOtherModifiersOrAnotherKey) {
  press(control, Qt::Key_0, QStringLiteral("0"), Qt::ShiftModifier | Qt::ControlModifier);
  press(control, Qt::Key_0, QStringLiteral("0"), Qt::ShiftModifier | Qt::AltModifier | Qt::ControlModifier);
  press(control, Qt::Key_0, QStringLiteral("0"), Qt::ShiftModifier | Qt::AltModifier | Qt::MetaModifier);
  press(control, Qt::Key_9, QStringLiteral("9"), Qt::ShiftModifier | Qt::AltModifier, codeOfZero - 1);
  press(control, Qt::Key_Agrave, QStringLiteral("\u00e0"), Qt::AltModifier);
  EXPECT_EQ(fired, 0);
}

TEST_F(ShiftedDigits, AreTypedWithShiftAlone) {
  hotKey.SetShortCut(scShift | '0');
  EXPECT_TRUE(press(control, Qt::Key_0, QStringLiteral("0"), Qt::ShiftModifier));
  EXPECT_EQ(fired, 0);
  EXPECT_EQ(control.text(), QStringLiteral("0"));
}

TEST_F(ShiftedDigits, FireNothingThatIsDisabledOrRemoved) {
  hotKey.setEnabled(false);
  EXPECT_TRUE(press(control, Qt::Key_0, QString(), Qt::ShiftModifier | Qt::AltModifier));
  hotKey.setEnabled(true);
  list.Remove(&hotKey);
  EXPECT_TRUE(press(control, Qt::Key_0, QString(), Qt::ShiftModifier | Qt::AltModifier));
  EXPECT_EQ(fired, 0);
}

TEST_F(ShiftedDigits, FireOnlyInTheFormOfTheList) {
  QLineEdit elsewhere;
  QWidget dialog(&form, Qt::Dialog);
  QLineEdit inDialog(&dialog);
  EXPECT_TRUE(press(elsewhere, Qt::Key_0, QString(), Qt::ShiftModifier | Qt::AltModifier));
  EXPECT_TRUE(press(inDialog, Qt::Key_0, QString(), Qt::ShiftModifier | Qt::AltModifier));
  EXPECT_EQ(fired, 0);
}
