// SPDX-License-Identifier: MIT
#include "ColorPickerFixture.h"

#include <QAccessible>

namespace quorvane {
namespace {

class QVColorPickerPanel : public ColorPickerTest {
protected:
  // Presses a key and returns the cell that has the focus then.
  TColBtn* After(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    Press(key, modifiers);
    return qobject_cast<TColBtn*>(QApplication::focusWidget());
  }
};

TEST_F(QVColorPickerPanel, PutsEveryCellAtItsPlace) {
  const TColorPicker picker(&Window);
  EXPECT_EQ(picker.AutoBtn().geometry(), QRect(5, 4, picker.width() - 10, 20));
  for (int index = 0; index < 40; ++index)
    EXPECT_EQ(picker.FixedBtn(index).geometry(), QRect(5 + 20 * (index % 8), 30 + 20 * (index / 8), 20, 20)) << index;
  for (int index = 0; index < 16; ++index)
    EXPECT_EQ(picker.UserBtn(index).geometry(), QRect(5 + 20 * (index % 8), 140 + 20 * (index / 8), 20, 20)) << index;
  EXPECT_EQ(picker.SpareBtn().geometry(), QRect(5, 185, 20, 20));
  EXPECT_EQ(picker.OtherBtn().geometry(), QRect(25, 185, picker.width() - 30, 20));
}

TEST_F(QVColorPickerPanel, LeavesEqualMarginsAroundItsCells) {
  const TColorPicker picker(&Window);
  EXPECT_EQ(picker.size(), QSize(170, 210));
}

TEST_F(QVColorPickerPanel, TagsTheAutomaticButtonAndTheUsersCells) {
  const TColorPicker picker(&Window);
  EXPECT_EQ(picker.AutoBtn().Tag(), 100);
  for (int index = 0; index < 16; ++index)
    EXPECT_EQ(picker.UserBtn(index).Tag(), index);
}

TEST_F(QVColorPickerPanel, ShowsTheFixedAndTheUsersColours) {
  UserColors.at(3) = kUncommon;
  const TColorPicker picker(&Window);
  for (int index = 0; index < 40; ++index)
    EXPECT_EQ(picker.FixedBtn(index).ActiveColor(), FixedColors.at(static_cast<std::size_t>(index))) << index;
  EXPECT_EQ(picker.UserBtn(2).ActiveColor(), platform::clWhite);
  EXPECT_EQ(picker.UserBtn(3).ActiveColor(), kUncommon);
}

TEST_F(QVColorPickerPanel, TakesCaptionsAndColourOfItsButtons) {
  Button.SetAutoBtnCaption(QStringLiteral("As the text"));
  Button.SetOtherBtnCaption(QStringLiteral("&More"));
  Button.SetAutomaticColor(kUncommon);
  Open();
  EXPECT_EQ(Picker().AutoBtn().text(), QStringLiteral("As the text"));
  EXPECT_EQ(Picker().OtherBtn().text(), QStringLiteral("&More"));
  EXPECT_EQ(Picker().AutoBtn().ActiveColor(), kUncommon);
}

TEST_F(QVColorPickerPanel, BothWideButtonsHaveTheirMnemonics) {
  Button.SetAutoBtnCaption(QStringLiteral("&Automatic"));
  Button.SetAutomaticColor(kUncommon);
  Open();
  Press(Qt::Key_A, Qt::AltModifier);
  EXPECT_EQ(Button.ActiveColor(), kUncommon);
  EXPECT_TRUE(Button.IsAutomatic());
  EXPECT_TRUE(IsGone());
}

TEST_F(QVColorPickerPanel, AKeyWithoutACodeIsNoMnemonic) {
  Button.SetOtherBtnCaption(QStringLiteral("More"));
  Open();
  QKeyEvent unknown(QEvent::KeyPress, 0, Qt::NoModifier);
  EXPECT_FALSE(Picker().HandleKey(unknown));
  support::settle();
  EXPECT_TRUE(Dialog && Dialog->isVisible());
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(QVColorPickerPanel, HasAllCellsFlatOrNone) {
  TColorPicker picker(&Window);
  for (const bool flat : {true, false}) {
    picker.SetFlat(flat);
    for (const TColBtn* cell : picker.findChildren<TColBtn*>())
      EXPECT_EQ(cell->Flat(), flat);
  }
}

TEST_F(QVColorPickerPanel, NamesEveryCellForScreenReaders) {
  Open();
  const auto name = [](TColBtn& cell) { return QAccessible::queryAccessibleInterface(&cell)->text(QAccessible::Name); };
  EXPECT_EQ(name(Picker().AutoBtn()), QStringLiteral("Automatic, #000000"));
  EXPECT_EQ(name(Picker().FixedBtn(0)), QStringLiteral("No color"));
  EXPECT_EQ(name(Picker().FixedBtn(18)), QStringLiteral("#FF0000"));
  EXPECT_EQ(name(Picker().UserBtn(15)), QStringLiteral("User color 16, #FFFFFF"));
  EXPECT_EQ(name(Picker().SpareBtn()), QStringLiteral("Other color, #FFFFFF"));
  EXPECT_EQ(name(Picker().OtherBtn()), QStringLiteral("Other colors..."));
  for (TColBtn* cell : Picker().findChildren<TColBtn*>())
    EXPECT_FALSE(name(*cell).isEmpty());
}

TEST_F(QVColorPickerPanel, TellsScreenReadersWhichCellIsPressed) {
  Open();
  EXPECT_TRUE(QAccessible::queryAccessibleInterface(&Picker().FixedBtn(18))->state().checked);
  EXPECT_FALSE(QAccessible::queryAccessibleInterface(&Picker().FixedBtn(19))->state().checked);
}

TEST_F(QVColorPickerPanel, ArrowsMoveBetweenCells) {
  Open();
  EXPECT_EQ(&Picker().FocusCell(), &Picker().FixedBtn(18));
  EXPECT_EQ(After(Qt::Key_Right), &Picker().FixedBtn(19));
  EXPECT_EQ(After(Qt::Key_Down), &Picker().FixedBtn(27));
  EXPECT_EQ(After(Qt::Key_Left), &Picker().FixedBtn(26));
  EXPECT_EQ(After(Qt::Key_Up), &Picker().FixedBtn(18));
}

TEST_F(QVColorPickerPanel, SidewaysArrowsGoOnInTheRowBeside) {
  Button.SetActiveColor(FixedColors.at(7));
  Open();
  EXPECT_EQ(After(Qt::Key_Right), &Picker().FixedBtn(8));
  EXPECT_EQ(After(Qt::Key_Left), &Picker().FixedBtn(7));
}

TEST_F(QVColorPickerPanel, VerticalArrowsGoThroughAllGroups) {
  Button.SetActiveColor(FixedColors.at(32));
  Open();
  EXPECT_EQ(After(Qt::Key_Down), &Picker().UserBtn(0));
  EXPECT_EQ(After(Qt::Key_Down), &Picker().UserBtn(8));
  EXPECT_EQ(After(Qt::Key_Down), &Picker().SpareBtn());
  EXPECT_EQ(After(Qt::Key_Right), &Picker().OtherBtn());
  EXPECT_EQ(After(Qt::Key_Up), &Picker().UserBtn(12)) << "the cell nearest to its middle";
}

TEST_F(QVColorPickerPanel, ArrowsStopAtTheFirstAndTheLastCell) {
  Button.SetActiveColor(platform::clNone);
  Open();
  EXPECT_EQ(After(Qt::Key_Up), &Picker().AutoBtn());
  EXPECT_EQ(After(Qt::Key_Up), &Picker().AutoBtn());
  EXPECT_EQ(After(Qt::Key_Left), &Picker().AutoBtn());
  Picker().MoveToGroup(false);
  EXPECT_EQ(QApplication::focusWidget(), &Picker().OtherBtn());
  EXPECT_EQ(After(Qt::Key_Right), &Picker().OtherBtn());
  EXPECT_EQ(After(Qt::Key_Down), &Picker().OtherBtn());
}

TEST_F(QVColorPickerPanel, TabMovesFromGroupToGroupAndRound) {
  Open(); // in the middle of the fixed colours
  EXPECT_EQ(After(Qt::Key_Tab), &Picker().UserBtn(0));
  EXPECT_EQ(After(Qt::Key_Tab), &Picker().SpareBtn());
  EXPECT_EQ(After(Qt::Key_Tab), &Picker().OtherBtn());
  EXPECT_EQ(After(Qt::Key_Tab), &Picker().AutoBtn());
  EXPECT_EQ(After(Qt::Key_Backtab, Qt::ShiftModifier), &Picker().OtherBtn());
}

TEST_F(QVColorPickerPanel, MovingTheFocusPicksTheColourWithoutPressingOrAccepting) {
  Open();
  Press(Qt::Key_Right);
  EXPECT_EQ(Picker().PickedColor(), 0x00FFFF);
  EXPECT_EQ(Pressed(), std::vector{&Picker().FixedBtn(18)});
  EXPECT_EQ(Button.ActiveColor(), kRed);
}

TEST_F(QVColorPickerPanel, MovingToTheAutomaticButtonPicksItsColourAsAutomatic) {
  Button.SetAutomaticColor(kUncommon);
  Button.SetActiveColor(FixedColors.at(0));
  Open();
  Press(Qt::Key_Up);
  EXPECT_EQ(Picker().PickedColor(), kUncommon);
  EXPECT_TRUE(Picker().IsAutomatic());
  Press(Qt::Key_Down);
  EXPECT_FALSE(Picker().IsAutomatic());
}

TEST_F(QVColorPickerPanel, TheOtherButtonHasNoColourToPick) {
  Open();
  Press(Qt::Key_Right);
  Picker().MoveToGroup(false); // to the automatic button
  Picker().MoveToGroup(true);  // to the first fixed colour
  Picker().MoveToGroup(true);
  Picker().MoveToGroup(true);
  const platform::TColor before = Picker().PickedColor();
  Picker().MoveToGroup(true);
  ASSERT_EQ(QApplication::focusWidget(), &Picker().OtherBtn());
  EXPECT_EQ(Picker().PickedColor(), before);
}

} // namespace
} // namespace quorvane
