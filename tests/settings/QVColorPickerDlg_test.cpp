// SPDX-License-Identifier: MIT
#include "ColorPickerFixture.h"

#include <QAction>
#include <QScreen>

namespace quorvane {
namespace {

class QVColorPickerDlg : public ColorPickerTest {
protected:
  // Makes another window the active one.
  void ActivateOther() {
    Other.setGeometry(500, 400, 100, 100);
    Other.show();
    Other.activateWindow();
    ASSERT_TRUE(support::waitUntil([this] { return Other.isActiveWindow(); }));
  }

  // Does `act`, answers the colour dialog that it opens, and waits until the palette has the focus again.
  template <class TAct> void Answer(TAct&& act, const std::function<void(QColorDialog&)>& answer) {
    bool answered = false;
    const support::ModalAnswer<QColorDialog> given([&](QColorDialog& dialog) {
      EXPECT_TRUE(support::waitUntil([&] { return dialog.isActiveWindow(); })); // nobody answers sooner
      answered = true;
      answer(dialog);
    });
    act();
    ASSERT_TRUE(support::waitUntil([&] { return answered && (!Dialog || Dialog->isActiveWindow()); }));
  }

  QWidget Other;
};

void Choose(QColorDialog& dialog, const QColor& color) {
  dialog.setCurrentColor(color);
  dialog.accept();
}

// What is pressed at first.

TEST_F(QVColorPickerDlg, PressesTheFixedCellOfTheColour) {
  UserColors.at(0) = kRed;
  WriteUserColors(Button.RegKey());
  Open();
  EXPECT_EQ(Pressed(), std::vector{&Picker().FixedBtn(18)});
}

TEST_F(QVColorPickerDlg, PressesTheFixedCellOfNoColour) {
  Button.SetActiveColor(platform::clNone);
  Open();
  EXPECT_EQ(Pressed(), std::vector{&Picker().FixedBtn(0)});
}

TEST_F(QVColorPickerDlg, PressesTheUsersCellOfAColourThatIsNotFixed) {
  UserColors.at(5) = kUncommon;
  UserColors.at(6) = kUncommon;
  WriteUserColors(Button.RegKey());
  Button.SetActiveColor(kUncommon);
  Open();
  EXPECT_EQ(Pressed(), std::vector{&Picker().UserBtn(5)});
  EXPECT_NE(Picker().SpareBtn().ActiveColor(), kUncommon);
}

TEST_F(QVColorPickerDlg, ShowsAnyOtherColourPressedInTheSpareSwatch) {
  Button.SetActiveColor(kUncommon);
  Open();
  EXPECT_EQ(Pressed(), std::vector{&Picker().SpareBtn()});
  EXPECT_EQ(Picker().SpareBtn().ActiveColor(), kUncommon);
}

TEST_F(QVColorPickerDlg, AFixedColourPickedAgainStaysPressedOnTheNextOpening) {
  Open();
  QTest::mouseClick(&Picker().FixedBtn(18), Qt::LeftButton);
  ASSERT_TRUE(IsGone());
  EXPECT_EQ(Button.ActiveColor(), kRed);
  Open();
  EXPECT_EQ(Pressed(), std::vector{&Picker().FixedBtn(18)});
}

TEST_F(QVColorPickerDlg, FirstOpenedShows16WhiteCellsOfTheUser) {
  UserColors.fill(platform::clBlack);
  Open();
  for (int index = 0; index < 16; ++index)
    EXPECT_EQ(Picker().UserBtn(index).ActiveColor(), platform::clWhite) << index;
}

// Choosing.

TEST_F(QVColorPickerDlg, AClickOnAFixedCellIsTheChoice) {
  Open();
  QTest::mouseClick(&Picker().FixedBtn(20), Qt::LeftButton);
  EXPECT_EQ(Button.ActiveColor(), 0x00FF00);
  EXPECT_EQ(Button.TargetColor(), 0x00FF00);
  EXPECT_FALSE(Button.IsAutomatic());
  EXPECT_EQ(Clicks, 1);
  EXPECT_TRUE(IsGone());
}

TEST_F(QVColorPickerDlg, AClickOnACellSendsThePaletteTheEnterKey) {
  class EnterFilter : public QObject {
  public:
    bool eventFilter(QObject*, QEvent* event) override {
      if (event->type() != QEvent::KeyPress)
        return false;
      Keys.push_back(static_cast<QKeyEvent*>(event)->key());
      return true;
    }
    std::vector<int> Keys;
  } filter;
  Open();
  Dialog->installEventFilter(&filter);
  QTest::mouseClick(&Picker().UserBtn(1), Qt::LeftButton);
  EXPECT_EQ(filter.Keys, std::vector<int>{Qt::Key_Return});
  EXPECT_TRUE(Dialog->isVisible()) << "nothing but the key accepts";
}

TEST_F(QVColorPickerDlg, AClickOnTheAutomaticButtonIsRemembered) {
  Button.SetAutomaticColor(kUncommon);
  Open();
  QTest::mouseClick(&Picker().AutoBtn(), Qt::LeftButton);
  EXPECT_EQ(Button.ActiveColor(), kUncommon);
  EXPECT_TRUE(Button.IsAutomatic());
  ASSERT_TRUE(IsGone());
  Open();
  QTest::mouseClick(&Picker().FixedBtn(8), Qt::LeftButton);
  EXPECT_FALSE(Button.IsAutomatic());
}

TEST_F(QVColorPickerDlg, NoColourCanBeChosen) {
  Open();
  QTest::mouseClick(&Picker().FixedBtn(0), Qt::LeftButton);
  EXPECT_EQ(Button.ActiveColor(), platform::clNone);
}

TEST_F(QVColorPickerDlg, AChoiceWritesTheUsersColours) {
  Open();
  EXPECT_EQ(ReadText("Pelinor", "ColorA"), "-");
  QTest::mouseClick(&Picker().FixedBtn(20), Qt::LeftButton);
  EXPECT_EQ(ReadText("Pelinor", "ColorA"), "FFFFFF");
}

TEST_F(QVColorPickerDlg, AChoiceIsCompleteWhenItIsTold) {
  std::vector<std::string> seen;
  Button.OnClick = [&] {
    EXPECT_EQ(Button.ActiveColor(), platform::clBlack);
    EXPECT_EQ(Button.TargetColor(), platform::clBlack);
    EXPECT_TRUE(Button.IsAutomatic());
    seen.push_back(ReadText("Pelinor", "ColorP"));
  };
  Open();
  QTest::mouseClick(&Picker().AutoBtn(), Qt::LeftButton);
  EXPECT_EQ(seen, std::vector<std::string>{"FFFFFF"});
}

TEST_F(QVColorPickerDlg, ALeftPressThatIsReleasedElsewhereChoosesNothing) {
  Open();
  QTest::mousePress(&Picker().FixedBtn(20), Qt::LeftButton);
  QTest::mouseRelease(&Picker().FixedBtn(20), Qt::LeftButton, {}, QPoint(-10, -10));
  EXPECT_TRUE(Dialog->isVisible());
  EXPECT_EQ(Clicks, 0);
}

TEST_F(QVColorPickerDlg, OnClickMayDestroyTheButton) {
  auto* const button = new TColorBtn(&Window);
  button->setGeometry(100, 20, 44, 24);
  bool returned = false;
  button->OnClick = [button, &returned] {
    delete button;
    returned = true; // what the function holds is still there
  };
  Show();
  button->show();
  QTest::mouseClick(button, Qt::LeftButton);
  const QPointer<TColPickDlg> palette(button->Palette());
  ASSERT_TRUE(palette);
  QTest::mouseClick(&palette->Picker().FixedBtn(20), Qt::LeftButton);
  EXPECT_FALSE(palette);
  EXPECT_TRUE(returned);
}

TEST_F(QVColorPickerDlg, DiesWithItsButton) {
  auto* const button = new TColorBtn(&Window);
  Show();
  button->show();
  button->DropDown();
  const QPointer<TColPickDlg> palette(button->Palette());
  ASSERT_TRUE(palette);
  delete button;
  EXPECT_FALSE(palette);
}

TEST_F(QVColorPickerDlg, WhatOnClickThrowsGoesToTheApplication) {
  Button.OnClick = [] { throw platform::Exception("thrown"); };
  Open();
  QTest::mouseClick(&Picker().FixedBtn(20), Qt::LeftButton);
  EXPECT_EQ(TakeReported(), std::vector<std::string>{"thrown"});
  EXPECT_EQ(Button.ActiveColor(), 0x00FF00);
  EXPECT_TRUE(IsGone());
}

// Keys.

TEST_F(QVColorPickerDlg, EscapeClosesWithoutAChoice) {
  Open();
  Press(Qt::Key_Right);
  Press(Qt::Key_Escape);
  EXPECT_EQ(Button.ActiveColor(), kRed);
  EXPECT_EQ(Clicks, 0);
  EXPECT_EQ(ReadText("Pelinor", "ColorA"), "-");
  EXPECT_TRUE(IsGone());
}

TEST_F(QVColorPickerDlg, EnterAcceptsThePickedColour) {
  for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
    Button.SetActiveColor(kRed);
    Clicks = 0;
    Open();
    Press(Qt::Key_Right);
    Press(key);
    EXPECT_EQ(Button.ActiveColor(), 0x00FFFF);
    EXPECT_EQ(Clicks, 1);
    EXPECT_TRUE(IsGone());
  }
}

TEST_F(QVColorPickerDlg, EnterAtOnceAcceptsTheColourAsItWas) {
  Button.SetIsAutomatic(true);
  Open();
  Press(Qt::Key_Return);
  EXPECT_EQ(Button.ActiveColor(), kRed);
  EXPECT_TRUE(Button.IsAutomatic());
  EXPECT_EQ(Clicks, 1);
}

TEST_F(QVColorPickerDlg, SpaceClicksTheCellThatHasTheFocus) {
  Open();
  Press(Qt::Key_Down);
  Press(Qt::Key_Space);
  EXPECT_EQ(Button.ActiveColor(), 0x8080FF);
  EXPECT_EQ(Clicks, 1);
  EXPECT_TRUE(IsGone());
}

TEST_F(QVColorPickerDlg, ConsumesEveryKey) {
  Open();
  for (const Qt::Key key : {Qt::Key_A, Qt::Key_F1, Qt::Key_F10, Qt::Key_PageDown, Qt::Key_Delete, Qt::Key_Shift}) {
    for (const QEvent::Type type : {QEvent::ShortcutOverride, QEvent::KeyPress, QEvent::KeyRelease}) {
      QKeyEvent event(type, key, Qt::ControlModifier);
      event.ignore();
      QCoreApplication::sendEvent(QApplication::focusWidget(), &event);
      EXPECT_TRUE(event.isAccepted()) << key << " " << type;
    }
  }
  EXPECT_TRUE(Dialog->isVisible());
  EXPECT_EQ(Button.ActiveColor(), kRed);
}

TEST_F(QVColorPickerDlg, KeepsItsKeysFromTheActionsOfTheWindowBelow) {
  int fired = 0;
  QAction action;
  action.setShortcut(QKeySequence(Qt::CTRL | Qt::Key_S));
  QObject::connect(&action, &QAction::triggered, &action, [&] { ++fired; });
  Window.addAction(&action);
  Show();
  QTest::keyClick(Window.windowHandle(), Qt::Key_S, Qt::ControlModifier);
  ASSERT_EQ(fired, 1) << "it does fire there";
  Open();
  QTest::keyClick(Dialog->windowHandle(), Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(fired, 1);
}

// Focus.

TEST_F(QVColorPickerDlg, ClosesWithoutAChoiceWhenItLosesTheFocus) {
  Open();
  Press(Qt::Key_Right);
  ActivateOther();
  EXPECT_TRUE(IsGone());
  EXPECT_EQ(Button.ActiveColor(), kRed);
  EXPECT_EQ(Clicks, 0);
}

TEST_F(QVColorPickerDlg, GivesTheFocusBackToTheButton) {
  Open();
  Press(Qt::Key_Escape);
  EXPECT_TRUE(support::waitUntil([this] { return Window.isActiveWindow() && Button.hasFocus(); }));
}

TEST_F(QVColorPickerDlg, ClosesWhenTheButtonIsHidden) {
  Open();
  Window.hide();
  EXPECT_TRUE(IsGone());
}

// The system's colour dialog.

TEST_F(QVColorPickerDlg, ARightClickOnAUsersCellChangesItsColour) {
  UserColors.at(9) = kUncommon;
  WriteUserColors(Button.RegKey());
  Open();
  Answer([this] { QTest::mouseClick(&Picker().UserBtn(9), Qt::RightButton); },
         [](QColorDialog& dialog) {
           EXPECT_EQ(dialog.currentColor(), QColor(0x56, 0x34, 0x12));
           Choose(dialog, QColor(1, 2, 3));
         });
  ASSERT_TRUE(Dialog && Dialog->isVisible());
  EXPECT_EQ(Picker().UserBtn(9).ActiveColor(), 0x030201);
  EXPECT_EQ(UserColors.at(9), 0x030201);
  EXPECT_EQ(Clicks, 0);
}

TEST_F(QVColorPickerDlg, AUsersColourIsWrittenWithTheNextChoiceOnly) {
  Open();
  Answer([this] { QTest::mouseClick(&Picker().UserBtn(9), Qt::RightButton); },
         [](QColorDialog& dialog) { Choose(dialog, QColor(1, 2, 3)); });
  EXPECT_EQ(ReadText("Pelinor", "ColorJ"), "-");
  QTest::mouseClick(&Picker().UserBtn(9), Qt::LeftButton);
  EXPECT_EQ(ReadText("Pelinor", "ColorJ"), "030201");
  EXPECT_EQ(Button.ActiveColor(), 0x030201);
}

TEST_F(QVColorPickerDlg, ACancelledColourDialogChangesNothing) {
  Open();
  Answer([this] { QTest::mouseClick(&Picker().UserBtn(9), Qt::RightButton); },
         [](QColorDialog& dialog) {
           dialog.setCurrentColor(QColor(1, 2, 3));
           dialog.reject();
         });
  ASSERT_TRUE(Dialog && Dialog->isVisible());
  EXPECT_EQ(Picker().UserBtn(9).ActiveColor(), platform::clWhite);
  EXPECT_EQ(UserColors.at(9), platform::clWhite);
}

TEST_F(QVColorPickerDlg, AChangedColourOfTheUserIsNotYetPicked) {
  Open();
  Answer([this] { QTest::mouseClick(&Picker().UserBtn(9), Qt::RightButton); },
         [](QColorDialog& dialog) { Choose(dialog, QColor(1, 2, 3)); });
  EXPECT_EQ(QApplication::focusWidget(), &Picker().FixedBtn(18));
  Press(Qt::Key_Return);
  EXPECT_EQ(Button.ActiveColor(), kRed);
}

TEST_F(QVColorPickerDlg, ARightClickOnAnyOtherCellDoesNothing) {
  Open();
  for (TColBtn* cell : {&Picker().AutoBtn(), &Picker().FixedBtn(3), &Picker().SpareBtn(), &Picker().OtherBtn()})
    QTest::mouseClick(cell, Qt::RightButton);
  support::settle();
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
  EXPECT_TRUE(Dialog->isVisible());
}

TEST_F(QVColorPickerDlg, TheMenuKeyChangesAUsersColourToo) {
  Open();
  Press(Qt::Key_Menu); // on a fixed cell: nothing
  support::settle();
  ASSERT_EQ(QApplication::activeModalWidget(), nullptr);
  Press(Qt::Key_Tab);
  Answer([this] { Press(Qt::Key_F10, Qt::ShiftModifier); },
         [](QColorDialog& dialog) { Choose(dialog, QColor(1, 2, 3)); });
  EXPECT_EQ(UserColors.at(0), 0x030201);
  Answer([this] { Press(Qt::Key_Menu); }, [](QColorDialog& dialog) { Choose(dialog, QColor(4, 5, 6)); });
  EXPECT_EQ(UserColors.at(0), 0x060504);
}

TEST_F(QVColorPickerDlg, EnterAcceptsTheNewColourOfAUsersCellThatWasPickedByKey) {
  Open();
  Press(Qt::Key_Tab);
  ASSERT_EQ(QApplication::focusWidget(), &Picker().UserBtn(0));
  Answer([this] { Press(Qt::Key_Menu); }, [](QColorDialog& dialog) { Choose(dialog, QColor(1, 2, 3)); });
  EXPECT_EQ(Picker().PickedColor(), 0x030201);
  Press(Qt::Key_Return);
  EXPECT_EQ(Button.ActiveColor(), 0x030201);
  EXPECT_EQ(ReadText("Pelinor", "ColorA"), "030201");
}

TEST_F(QVColorPickerDlg, OtherColoursGoToTheSpareSwatchWhoseClickIsTheChoice) {
  Button.SetActiveColor(kUncommon);
  Open();
  Answer([this] { QTest::mouseClick(&Picker().OtherBtn(), Qt::LeftButton); },
         [](QColorDialog& dialog) {
           EXPECT_EQ(dialog.currentColor(), QColor(0x56, 0x34, 0x12));
           Choose(dialog, QColor(1, 2, 3));
         });
  ASSERT_TRUE(Dialog && Dialog->isVisible());
  EXPECT_EQ(Picker().SpareBtn().ActiveColor(), 0x030201);
  EXPECT_EQ(Button.ActiveColor(), kUncommon);
  EXPECT_EQ(Clicks, 0);
  QTest::mouseClick(&Picker().SpareBtn(), Qt::LeftButton);
  EXPECT_EQ(Button.ActiveColor(), 0x030201);
  EXPECT_EQ(Clicks, 1);
}

TEST_F(QVColorPickerDlg, AnotherColourCanBeAcceptedByKey) {
  Open();
  Answer([this] { QTest::keyClick(Dialog->windowHandle(), Qt::Key_O, Qt::AltModifier); },
         [](QColorDialog& dialog) { Choose(dialog, QColor(1, 2, 3)); });
  EXPECT_EQ(QApplication::focusWidget(), &Picker().SpareBtn());
  Press(Qt::Key_Return);
  EXPECT_EQ(Button.ActiveColor(), 0x030201);
}

TEST_F(QVColorPickerDlg, StaysOpenBeneathTheColourDialog) {
  Open();
  Answer([this] { QTest::mouseClick(&Picker().OtherBtn(), Qt::LeftButton); },
         [this](QColorDialog& dialog) {
           ASSERT_TRUE(Dialog);
           EXPECT_FALSE(Dialog->isActiveWindow());
           EXPECT_TRUE(Dialog->isVisible());
           dialog.reject();
         });
  ASSERT_TRUE(Dialog);
  EXPECT_TRUE(Dialog->isActiveWindow()) << "it has the focus again";
  EXPECT_EQ(QApplication::focusWidget(), &Picker().FocusCell());
  ActivateOther();
  EXPECT_TRUE(IsGone()) << "the next loss of the focus counts again";
}

TEST_F(QVColorPickerDlg, MayBecomeActiveBeneathTheColourDialogAndStillClosesWhenItLosesTheFocusLater) {
  Open();
  Answer([this] { QTest::mouseClick(&Picker().OtherBtn(), Qt::LeftButton); },
         [this](QColorDialog& dialog) {
           Dialog->activateWindow();
           ASSERT_TRUE(support::waitUntil([this] { return QApplication::activeWindow() == Dialog; }));
           dialog.reject();
         });
  support::settle();
  ASSERT_TRUE(Dialog && Dialog->isVisible());
  ActivateOther();
  EXPECT_TRUE(IsGone());
}

TEST_F(QVColorPickerDlg, MayDieBeneathTheColourDialog) {
  Open();
  QTest::mouseClick(&Picker().OtherBtn(), Qt::LeftButton);
  ASSERT_TRUE(support::waitUntil([] { return QApplication::activeModalWidget() != nullptr; }));
  delete Dialog;
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

// The window.

TEST_F(QVColorPickerDlg, HasNoFrameAndBelongsToTheButton) {
  Open();
  EXPECT_TRUE(Dialog->windowFlags().testFlag(Qt::FramelessWindowHint));
  EXPECT_EQ(Dialog->windowType(), Qt::Tool);
  EXPECT_EQ(Dialog->parent(), &Button);
  EXPECT_EQ(Dialog->size(), Picker().size());
}

TEST_F(QVColorPickerDlg, OpensBelowTheButton) {
  Open();
  EXPECT_EQ(Dialog->pos(), Button.mapToGlobal(QPoint(0, Button.height())));
}

TEST_F(QVColorPickerDlg, OpensAboveTheButtonAtTheEndOfTheScreen) {
  const QRect screen = Window.screen()->availableGeometry();
  Window.move(screen.left() + 10, screen.bottom() - 60);
  Open();
  EXPECT_EQ(Dialog->geometry().bottom() + 1, Button.mapToGlobal(QPoint(0, 0)).y());
}

TEST_F(QVColorPickerDlg, StaysOnTheScreen) {
  const QRect screen = Window.screen()->availableGeometry();
  for (const QPoint place : {QPoint(screen.right() - 30, screen.bottom() - 30), QPoint(screen.right() - 30, 100),
                             QPoint(screen.left() - 40, 100)}) {
    Window.move(place);
    Open();
    EXPECT_TRUE(screen.contains(Dialog->geometry())) << place.x() << ", " << place.y();
    Press(Qt::Key_Escape);
    ASSERT_TRUE(IsGone());
  }
}

// As a pop-up, which takes all input until it is closed.

class QVColorPickerPopup : public QVColorPickerDlg {
protected:
  void OpenPopup() {
    Button.SetPaletteType(Qt::Popup);
    Open();
    ASSERT_EQ(QApplication::activePopupWidget(), Dialog);
  }
  // Opens the system's colour dialog, for which the palette hides.
  QPointer<QColorDialog> AskColor() {
    QTest::mouseClick(&Picker().OtherBtn(), Qt::LeftButton);
    EXPECT_TRUE(support::waitUntil([] { return QApplication::activeModalWidget() != nullptr; }));
    EXPECT_FALSE(Dialog->isVisible());
    return qobject_cast<QColorDialog*>(QApplication::activeModalWidget());
  }
};

TEST_F(QVColorPickerPopup, IsOpenWhileItIsHiddenBeneathTheColourDialog) {
  OpenPopup();
  const QPointer<QColorDialog> asked = AskColor();
  ASSERT_TRUE(asked);
  EXPECT_EQ(Button.Palette(), Dialog);
  Button.DropDown();
  EXPECT_TRUE(IsGone()) << "and there is no second one";
  EXPECT_FALSE(asked);
  EXPECT_EQ(Button.Palette(), nullptr);
}

TEST_F(QVColorPickerPopup, GoesWithTheColourDialogWhenTheButtonIsHidden) {
  OpenPopup();
  const QPointer<QColorDialog> asked = AskColor();
  ASSERT_TRUE(asked);
  Window.hide();
  EXPECT_TRUE(IsGone());
  EXPECT_FALSE(asked);
  EXPECT_EQ(Clicks, 0);
}

TEST_F(QVColorPickerPopup, GivesWayToTheColourDialogAndComesBack) {
  OpenPopup();
  Answer([this] { QTest::mouseClick(&Picker().OtherBtn(), Qt::LeftButton); },
         [this](QColorDialog& dialog) {
           ASSERT_TRUE(Dialog);
           EXPECT_EQ(QApplication::activePopupWidget(), nullptr) << "it would keep all input from the dialog";
           Choose(dialog, QColor(1, 2, 3));
         });
  ASSERT_TRUE(Dialog && Dialog->isVisible());
  EXPECT_EQ(QApplication::activePopupWidget(), Dialog);
  EXPECT_EQ(Picker().SpareBtn().ActiveColor(), 0x030201);
  QTest::mouseClick(&Picker().SpareBtn(), Qt::LeftButton);
  EXPECT_EQ(Button.ActiveColor(), 0x030201);
  EXPECT_TRUE(IsGone());
}

TEST_F(QVColorPickerPopup, ClosesWithoutAChoiceAtAClickBeside) {
  OpenPopup();
  QTest::mouseClick(Dialog.data(), Qt::LeftButton, {}, QPoint(-5, -5));
  EXPECT_TRUE(IsGone());
  EXPECT_EQ(Clicks, 0);
}

TEST_F(QVColorPickerPopup, TakesItsKeysAsTheToolWindowDoes) {
  OpenPopup();
  QTest::keyClick(Dialog->windowHandle(), Qt::Key_Right);
  QTest::keyClick(Dialog->windowHandle(), Qt::Key_Return);
  EXPECT_EQ(Button.ActiveColor(), 0x00FFFF);
  EXPECT_TRUE(IsGone());
}

} // namespace
} // namespace quorvane
