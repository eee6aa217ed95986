// SPDX-License-Identifier: MIT
#include "settings/QVHotKey.h"
#include "support/PrintQt.h"
#include "support/Wait.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTest>

#include <ostream>

namespace quorvane {
namespace {

using platform::scAlt;
using platform::scCtrl;
using platform::scShift;
using platform::TShortCut;

constexpr TShortCut kF2 = 0x71;
constexpr quint32 kDigitZero = 19; // the place of the key, as X11 and Wayland tell it

// The field with the rules that the options dialog gives it, in a window with another widget that takes the focus.
class HotKeyTest : public testing::Test {
protected:
  HotKeyTest() {
    Field.SetInvalidKeys({0, scShift});
    Field.SetModifiers(scShift | scAlt);
    Field.SetHotKey(scCtrl | kF2);
    Other.move(0, 100);
  }

  void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) { QTest::keyClick(&Field, key, modifiers); }
  // Presses a key as a layout gives it: what it means there, and its place. Whether the field took it.
  bool PressAt(quint32 scanCode, int key, const QString& sign, Qt::KeyboardModifiers modifiers) {
    QKeyEvent press(QEvent::KeyPress, key, modifiers, scanCode, 0, 0, sign);
    QCoreApplication::sendEvent(&Field, &press);
    return press.isAccepted();
  }
  // Whether a shortcut of the window is held back for the field.
  bool Claims(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    QKeyEvent event(QEvent::ShortcutOverride, key, modifiers);
    event.ignore();
    QCoreApplication::sendEvent(&Field, &event);
    return event.isAccepted();
  }
  void Show() {
    Window.show();
    Window.activateWindow();
    Field.setFocus();
    ASSERT_TRUE(support::waitUntil([this] { return Field.hasFocus(); }));
  }

  QWidget Window;
  THotKey Field{&Window};
  QLineEdit Other{&Window};
};

TEST_F(HotKeyTest, ShowsItsShortcut) {
  Field.SetHotKey(scShift | scAlt | '0');
  EXPECT_EQ(Field.text(), QStringLiteral("Shift+Alt+0"));
}

TEST_F(HotKeyTest, ShowsNoneForNoShortcut) {
  EXPECT_EQ(THotKey().text(), QStringLiteral("None"));
  Field.SetHotKey(0);
  EXPECT_EQ(Field.text(), QStringLiteral("None"));
}

TEST_F(HotKeyTest, KeepsAShortcutThatIsSetThoughTheKeyboardWouldBeRefused) {
  Field.SetHotKey('A');
  EXPECT_EQ(Field.HotKey(), 'A');
  EXPECT_EQ(Field.text(), QStringLiteral("A"));
}

struct Pressed {
  Qt::Key Key;
  Qt::KeyboardModifiers Modifiers;
  const char* Text; // that is shown then

  friend void PrintTo(const Pressed& row, std::ostream* out) { *out << row.Text; }
};

class HotKeyTakes : public HotKeyTest, public testing::WithParamInterface<Pressed> {};
INSTANTIATE_TEST_SUITE_P(
    Combinations, HotKeyTakes,
    testing::Values(Pressed{Qt::Key_K, Qt::ControlModifier, "Ctrl+K"}, Pressed{Qt::Key_K, Qt::AltModifier, "Alt+K"},
                    Pressed{Qt::Key_F5, Qt::ControlModifier | Qt::ShiftModifier, "Shift+Ctrl+F5"},
                    Pressed{Qt::Key_PageUp, Qt::AltModifier | Qt::ControlModifier, "Ctrl+Alt+PgUp"},
                    Pressed{Qt::Key_Delete, Qt::ControlModifier, "Ctrl+Del"},
                    Pressed{Qt::Key_Backspace, Qt::AltModifier, "Alt+BkSp"},
                    Pressed{Qt::Key_Space, Qt::ControlModifier, "Ctrl+Space"},
                    Pressed{Qt::Key_Return, Qt::ControlModifier, "Ctrl+Enter"},
                    Pressed{Qt::Key_Enter, Qt::KeypadModifier | Qt::AltModifier, "Alt+Enter"},
                    Pressed{Qt::Key_7, Qt::KeypadModifier | Qt::AltModifier, "Alt+7"}));

TEST_P(HotKeyTakes, WithItsModifiers) {
  Press(GetParam().Key, GetParam().Modifiers);
  EXPECT_EQ(Field.text(), QString::fromLatin1(GetParam().Text));
}

class HotKeyRefuses : public HotKeyTest, public testing::WithParamInterface<Pressed> {};
INSTANTIATE_TEST_SUITE_P(Combinations, HotKeyRefuses,
                         testing::Values(Pressed{Qt::Key_K, Qt::NoModifier, "Shift+Alt+K"},
                                         Pressed{Qt::Key_K, Qt::ShiftModifier, "Shift+Alt+K"},
                                         Pressed{Qt::Key_F5, Qt::NoModifier, "Shift+Alt+F5"},
                                         Pressed{Qt::Key_Left, Qt::ShiftModifier, "Shift+Alt+Left"}));

TEST_P(HotKeyRefuses, AndAddsThePresetModifiers) {
  Press(GetParam().Key, GetParam().Modifiers);
  EXPECT_EQ(Field.text(), QString::fromLatin1(GetParam().Text));
}

TEST_F(HotKeyTest, RefusesNothingWithoutRules) {
  THotKey field;
  QTest::keyClick(&field, Qt::Key_K);
  EXPECT_EQ(field.HotKey(), 'K');
}

TEST_F(HotKeyTest, IsClearedByBackspaceDeleteAndSpace) {
  for (const Qt::Key key : {Qt::Key_Backspace, Qt::Key_Delete, Qt::Key_Space}) {
    for (const Qt::KeyboardModifiers modifiers : {Qt::KeyboardModifiers(), Qt::KeyboardModifiers(Qt::ShiftModifier)}) {
      Field.SetHotKey(scCtrl | kF2);
      Press(key, modifiers);
      EXPECT_EQ(Field.HotKey(), 0) << key;
    }
  }
}

TEST_F(HotKeyTest, LeavesEnterEscapeAndTabToTheDialog) {
  for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape}) {
    EXPECT_FALSE(PressAt(0, key, {}, {})) << key;
    EXPECT_FALSE(Claims(key, {})) << key;
  }
  EXPECT_FALSE(PressAt(0, Qt::Key_Tab, {}, Qt::ControlModifier));
  EXPECT_EQ(Field.HotKey(), scCtrl | kF2);
}

TEST_F(HotKeyTest, TabLeadsOutOfIt) {
  Show();
  Press(Qt::Key_Tab);
  EXPECT_TRUE(Other.hasFocus());
}

TEST_F(HotKeyTest, HoldsBackShortcutsOfTheWindow) {
  EXPECT_TRUE(Claims(Qt::Key_S, Qt::ControlModifier));
  EXPECT_TRUE(Claims(Qt::Key_F, Qt::AltModifier));
}

TEST_F(HotKeyTest, LeavesKeysOfTheDesktopAlone) {
  EXPECT_FALSE(PressAt(0, Qt::Key_L, {}, Qt::MetaModifier));
  EXPECT_EQ(Field.HotKey(), scCtrl | kF2);
}

TEST_F(HotKeyTest, LeavesKeysWithoutANameAlone) {
  EXPECT_FALSE(PressAt(47, Qt::Key_Semicolon, QStringLiteral(";"), Qt::AltModifier));
  EXPECT_FALSE(PressAt(121, Qt::Key_VolumeMute, {}, {}));
  EXPECT_EQ(Field.HotKey(), scCtrl | kF2);
}

TEST_F(HotKeyTest, NothingCanBeTypedIntoIt) {
  QTest::keyClicks(&Field, QStringLiteral("ab"));
  EXPECT_EQ(Field.text(), QStringLiteral("Shift+Alt+B"));
}

struct LayoutKey {
  const char* Layout;
  int Key; // what the key gives with Shift and Alt
  const char16_t* Sign;

  friend void PrintTo(const LayoutKey& row, std::ostream* out) { *out << row.Layout; }
};

class HotKeyOnLayout : public HotKeyTest, public testing::WithParamInterface<LayoutKey> {};
INSTANTIATE_TEST_SUITE_P(Layouts, HotKeyOnLayout,
                         testing::Values(LayoutKey{"American", Qt::Key_ParenRight, u")"},
                                         LayoutKey{"German", Qt::Key_Equal, u"="}, LayoutKey{"French", Qt::Key_0, u"0"},
                                         LayoutKey{"Czech", Qt::Key_0, u"0"}));

TEST_P(HotKeyOnLayout, TakesShiftAltZeroWhateverTheSign) {
  EXPECT_TRUE(
      PressAt(kDigitZero, GetParam().Key, QString::fromUtf16(GetParam().Sign), Qt::ShiftModifier | Qt::AltModifier));
  EXPECT_EQ(Field.HotKey(), scShift | scAlt | '0');
}

TEST_F(HotKeyTest, LeavesADigitsPlaceAloneThatGivesAnotherSignWithoutShift) {
  constexpr quint32 digitOne = 10;
  EXPECT_FALSE(PressAt(digitOne, Qt::Key_Ampersand, QStringLiteral("&"), Qt::ControlModifier)); // French
  EXPECT_FALSE(PressAt(kDigitZero, Qt::Key_Agrave, QStringLiteral("à"), Qt::AltModifier));
  EXPECT_EQ(Field.HotKey(), scCtrl | kF2);
}

TEST_F(HotKeyTest, LeavesADigitsPlaceAloneThatGivesALetter) {
  EXPECT_FALSE(
      PressAt(kDigitZero, Qt::Key_Odiaeresis, QStringLiteral("Ö"), Qt::ShiftModifier | Qt::AltModifier)); // Hungarian
  EXPECT_EQ(Field.HotKey(), scCtrl | kF2);
}

TEST_F(HotKeyTest, TakesAFrenchDigitByItsSign) {
  constexpr quint32 digitOne = 10;
  EXPECT_TRUE(PressAt(digitOne, Qt::Key_1, QStringLiteral("1"), Qt::ControlModifier | Qt::ShiftModifier));
  EXPECT_EQ(Field.HotKey(), scShift | scCtrl | '1');
}

TEST_F(HotKeyTest, KnowsALetterOfAnotherScriptByItsPlace) {
  constexpr int cyrillicA = 0x0410;
  EXPECT_TRUE(PressAt(41, cyrillicA, QStringLiteral("а"), Qt::ControlModifier));
  EXPECT_EQ(Field.HotKey(), scCtrl | 'F');
}

TEST_F(HotKeyTest, KnowsALatinLetterByWhatItMeans) {
  constexpr quint32 qOfAmericans = 24;
  EXPECT_TRUE(PressAt(qOfAmericans, Qt::Key_A, QStringLiteral("a"), Qt::ControlModifier)); // French
  EXPECT_EQ(Field.HotKey(), scCtrl | 'A');
}

TEST_F(HotKeyTest, ShowsModifiersWhileTheyAreHeld) {
  Show();
  QTest::keyPress(&Field, Qt::Key_Shift);
  EXPECT_EQ(Field.text(), QStringLiteral("Shift+"));
  QTest::keyPress(&Field, Qt::Key_Alt, Qt::ShiftModifier);
  EXPECT_EQ(Field.text(), QStringLiteral("Shift+Alt+"));
  EXPECT_EQ(Field.HotKey(), scCtrl | kF2);
  QTest::keyRelease(&Field, Qt::Key_Alt, Qt::ShiftModifier);
  EXPECT_EQ(Field.text(), QStringLiteral("Ctrl+F2"));
}

TEST_F(HotKeyTest, ShowsAltThatIsCalledMetaWhileShiftIsHeld) {
  for (const quint32 alt : {64U, 108U}) {
    EXPECT_TRUE(PressAt(alt, Qt::Key_Meta, {}, Qt::ShiftModifier));
    EXPECT_EQ(Field.text(), QStringLiteral("Shift+Alt+")) << alt;
    QKeyEvent release(QEvent::KeyRelease, Qt::Key_Meta, Qt::ShiftModifier | Qt::AltModifier, alt, 0, 0);
    QCoreApplication::sendEvent(&Field, &release);
    EXPECT_EQ(Field.text(), QStringLiteral("Ctrl+F2")) << alt;
  }
}

TEST_F(HotKeyTest, DoesNotShowTheDesktopsOwnModifier) {
  constexpr quint32 leftSuper = 133;
  EXPECT_FALSE(PressAt(leftSuper, Qt::Key_Meta, {}, Qt::ShiftModifier));
  EXPECT_EQ(Field.text(), QStringLiteral("Ctrl+F2"));
}

TEST_F(HotKeyTest, ShowsItsShortcutAgainWhenTheFocusGoes) {
  Show();
  QTest::keyPress(&Field, Qt::Key_Alt);
  ASSERT_EQ(Field.text(), QStringLiteral("Alt+"));
  Other.setFocus();
  EXPECT_EQ(Field.text(), QStringLiteral("Ctrl+F2"));
}

TEST_F(HotKeyTest, HasRoomForTheLongestShortcut) {
  Field.SetHotKey(scShift | scCtrl | scAlt | 0x20);
  Field.resize(Field.sizeHint());
  constexpr int frame = 4;
  EXPECT_GT(Field.width() - frame, Field.fontMetrics().horizontalAdvance(Field.text()));
}

} // namespace
} // namespace quorvane
