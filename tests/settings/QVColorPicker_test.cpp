// SPDX-License-Identifier: MIT
#include "ColorPickerFixture.h"

#include <QAccessible>

namespace quorvane {
namespace {

class QVColorPicker : public ColorPickerTest {};

// Counts the paint events of a widget.
class Paints : public QObject {
public:
  explicit Paints(QWidget& widget) { widget.installEventFilter(this); }
  bool eventFilter(QObject*, QEvent* event) override {
    count_ += event->type() == QEvent::Paint;
    return false;
  }
  int Take() {
    support::settle();
    return std::exchange(count_, 0);
  }

private:
  int count_ = 0;
};

// Calls a function when a widget is hidden.
class OnHide : public QObject {
public:
  OnHide(QWidget& widget, std::function<void()> call) : call_(std::move(call)) { widget.installEventFilter(this); }
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::Hide)
      call_();
    return false;
  }

private:
  std::function<void()> call_;
};

TEST_F(QVColorPicker, BeginsWithTheDesignedProperties) {
  const TColorBtn button;
  EXPECT_EQ(button.ActiveColor(), platform::clBlack);
  EXPECT_EQ(button.TargetColor(), platform::clBlack);
  EXPECT_FALSE(button.Flat());
  EXPECT_TRUE(button.DropDownFlat());
  EXPECT_EQ(button.AutomaticColor(), platform::clBlack);
  EXPECT_FALSE(button.IsAutomatic());
  EXPECT_EQ(button.GlyphType(), gtForeground);
  EXPECT_TRUE(button.Glyph().isNull());
  EXPECT_EQ(button.AutoBtnCaption(), QStringLiteral("Automatic"));
  EXPECT_EQ(button.OtherBtnCaption(), QStringLiteral("&Other colors..."));
  EXPECT_EQ(button.RegKey(), QStringLiteral("Pelinor"));
  EXPECT_EQ(button.DDArrowWidth(), 12);
}

TEST_F(QVColorPicker, PublishesItsPropertiesByName) {
  const std::vector<std::pair<const char*, QVariant>> properties = {
      {"ActiveColor", kUncommon},
      {"TargetColor", kUncommon},
      {"Flat", true},
      {"DropDownFlat", false},
      {"AutomaticColor", kUncommon},
      {"IsAutomatic", true},
      {"GlyphType", QVariant::fromValue(gtLines)},
      {"AutoBtnCaption", QStringLiteral("a")},
      {"OtherBtnCaption", QStringLiteral("b")},
      {"RegKey", QStringLiteral("c")},
      {"DDArrowWidth", QVariant::fromValue<quint8>(20)},
  };
  for (const auto& [name, value] : properties) {
    EXPECT_NE(Button.property(name), value) << name;
    EXPECT_TRUE(Button.setProperty(name, value)) << name;
    EXPECT_EQ(Button.property(name), value) << name;
  }
  EXPECT_EQ(Button.GlyphType(), gtLines);
  EXPECT_EQ(Button.ActiveColor(), kUncommon);
  const QIcon glyph(QPixmap(12, 12)); // icons cannot be compared
  EXPECT_TRUE(Button.setProperty("Glyph", glyph));
  EXPECT_EQ(Button.property("Glyph").value<QIcon>().cacheKey(), glyph.cacheKey());
}

TEST_F(QVColorPicker, RepaintsOnlyWhenTheColourChanges) {
  Show();
  Paints paints(Button);
  paints.Take();
  Button.SetActiveColor(kRed);
  EXPECT_EQ(paints.Take(), 0);
  Button.SetActiveColor(kUncommon);
  EXPECT_EQ(paints.Take(), 1);
}

TEST_F(QVColorPicker, SettingTheColourTellsNobody) {
  Button.SetActiveColor(kUncommon);
  EXPECT_EQ(Clicks, 0);
  EXPECT_NE(Button.TargetColor(), kUncommon);
}

TEST_F(QVColorPicker, ReadsTheUsersColoursBeforeItTellsThatItOpens) {
  WriteText("Pelinor", "ColorC", "123456");
  int told = 0;
  Button.BeforeDropDown = [&] {
    ++told;
    EXPECT_EQ(UserColors.at(2), kUncommon);
    EXPECT_EQ(Button.Palette(), nullptr);
    Button.SetAutomaticColor(0x010203);
  };
  Open();
  EXPECT_EQ(told, 1);
  EXPECT_EQ(Picker().AutoBtn().ActiveColor(), 0x010203) << "what is set then counts for this opening";
}

TEST_F(QVColorPicker, ReadsTheUsersColoursAtEachOpening) {
  Open();
  Press(Qt::Key_Escape);
  ASSERT_TRUE(IsGone());
  WriteText("Pelinor", "ColorA", "123456");
  Open();
  EXPECT_EQ(Picker().UserBtn(0).ActiveColor(), kUncommon);
}

TEST_F(QVColorPicker, KeepsTheUsersColoursBelowItsOwnKey) {
  Button.SetRegKey(QStringLiteral("Elsewhere"));
  WriteText("Elsewhere", "ColorA", "123456");
  Open();
  EXPECT_EQ(Picker().UserBtn(0).ActiveColor(), kUncommon);
  QTest::mouseClick(&Picker().FixedBtn(8), Qt::LeftButton);
  EXPECT_EQ(ReadText("Elsewhere", "ColorP"), "FFFFFF");
  EXPECT_EQ(ReadText("Pelinor", "ColorP"), "-");
}

TEST_F(QVColorPicker, SharesTheUsersColoursWithAllOthers) {
  UserColors.at(0) = kUncommon;
  Button.WriteReg();
  UserColors.fill(platform::clWhite);
  const TColorBtn other;
  other.ReadReg();
  EXPECT_EQ(UserColors.at(0), kUncommon);
}

TEST_F(QVColorPicker, StillChoosesWhenTheColoursCannotBeWritten) {
  Open();
  Button.SetRegKey(QStringLiteral("a\nb"));
  QTest::mouseClick(&Picker().FixedBtn(8), Qt::LeftButton);
  EXPECT_EQ(Button.ActiveColor(), platform::clBlack);
  EXPECT_EQ(Clicks, 1);
  EXPECT_EQ(TakeReported().size(), 1U);
}

TEST_F(QVColorPicker, OpensByMouseAndByKey) {
  Show();
  const auto opens = [this](auto&& act) {
    act();
    Dialog = Button.Palette();
    const bool opened = Dialog != nullptr;
    if (opened)
      QTest::keyClick(Dialog.data(), Qt::Key_Escape);
    return opened && IsGone();
  };
  EXPECT_TRUE(opens([this] { QTest::mouseClick(&Button, Qt::LeftButton, {}, QPoint(8, 12)); })) << "on the swatch";
  EXPECT_TRUE(opens([this] { QTest::mouseClick(&Button, Qt::LeftButton, {}, QPoint(38, 12)); })) << "on the arrow";
  EXPECT_TRUE(opens([this] { QTest::keyClick(&Button, Qt::Key_Space); }));
  EXPECT_TRUE(opens([this] { QTest::keyClick(&Button, Qt::Key_Down); }));
  EXPECT_TRUE(opens([this] { QTest::keyClick(&Button, Qt::Key_Down, Qt::AltModifier); }));
  EXPECT_FALSE(opens([this] { QTest::keyClick(&Button, Qt::Key_Down, Qt::ControlModifier); }));
  EXPECT_FALSE(opens([this] { QTest::mouseClick(&Button, Qt::RightButton); }));
}

TEST_F(QVColorPicker, AClickWhileThePaletteIsOpenClosesIt) {
  Open();
  QTest::mouseClick(&Button, Qt::LeftButton);
  EXPECT_TRUE(IsGone());
  EXPECT_EQ(Button.Palette(), nullptr);
}

TEST_F(QVColorPicker, ThePressThatTakesTheFocusFromThePaletteDoesNotOpenItAgain) {
  Show();
  QTest::mouseMove(&Button);
  ASSERT_TRUE(support::waitUntil([this] { return Button.underMouse(); }));
  Open();
  const OnHide press(*Dialog, [this] { QTest::mouseClick(&Button, Qt::LeftButton); });
  Window.activateWindow();
  ASSERT_TRUE(support::waitUntil([this] { return !Dialog; }));
  EXPECT_EQ(Button.Palette(), nullptr);
  QTest::mouseClick(&Button, Qt::LeftButton);
  EXPECT_NE(Button.Palette(), nullptr) << "the next one does";
}

TEST_F(QVColorPicker, APressWhileThePaletteIsOpenDoesNotOpenItAgainHoweverLateThePaletteLosesTheFocus) {
  Open();
  QTest::mousePress(&Button, Qt::LeftButton);
  Window.activateWindow();
  ASSERT_TRUE(support::waitUntil([this] { return !Dialog; }));
  QTest::mouseRelease(&Button, Qt::LeftButton);
  EXPECT_EQ(Button.Palette(), nullptr);
}

TEST_F(QVColorPicker, OpensAtAClickAfterThePaletteLostTheFocusWithoutAPress) {
  Show();
  QTest::mouseMove(&Button);
  ASSERT_TRUE(support::waitUntil([this] { return Button.underMouse(); }));
  Open();
  Window.activateWindow();
  ASSERT_TRUE(support::waitUntil([this] { return !Dialog; }));
  ASSERT_TRUE(support::waitUntil([this] { return !Button.AwaitsDismissal(); }));
  EXPECT_TRUE(Button.underMouse());
  QTest::mouseClick(&Button, Qt::LeftButton);
  EXPECT_NE(Button.Palette(), nullptr);
}

TEST_F(QVColorPicker, WhatBeforeDropDownThrowsGoesToTheApplication) {
  Button.BeforeDropDown = [] { throw platform::Exception("thrown"); };
  Open();
  EXPECT_EQ(TakeReported(), std::vector<std::string>{"thrown"});
}

TEST_F(QVColorPicker, BeforeDropDownMayDestroyTheButton) {
  auto* const button = new TColorBtn(&Window);
  const QPointer<TColorBtn> alive(button);
  bool returned = false;
  button->BeforeDropDown = [button, &returned] {
    delete button;
    returned = true; // what the function holds is still there
  };
  Show();
  button->show();
  QTest::mouseClick(button, Qt::LeftButton);
  EXPECT_FALSE(alive);
  EXPECT_TRUE(returned);
}

TEST_F(QVColorPicker, TellsScreenReadersItsColour) {
  const QAccessibleInterface* const interface = QAccessible::queryAccessibleInterface(&Button);
  EXPECT_EQ(interface->text(QAccessible::Name), QStringLiteral("Color"));
  EXPECT_EQ(interface->text(QAccessible::Description), QStringLiteral("#FF0000"));
  Button.SetActiveColor(platform::clNone);
  EXPECT_EQ(interface->text(QAccessible::Description), QStringLiteral("No color"));
}

TEST_F(QVColorPicker, GrowsWithTheFont) {
  const QSize before = Button.sizeHint();
  QFont large = Button.font();
  large.setPointSize(4 * large.pointSize());
  Button.setFont(large);
  EXPECT_GT(Button.sizeHint().height(), before.height());
  EXPECT_GE(Button.sizeHint().height(), QFontMetrics(large).height());
}

TEST_F(QVColorPicker, MakesRoomForTheArrow) {
  const int before = Button.sizeHint().width();
  Button.SetDDArrowWidth(30);
  EXPECT_EQ(Button.sizeHint().width(), before + 18);
}

} // namespace
} // namespace quorvane
