// SPDX-License-Identifier: MIT
// Runs at several device pixel ratios: everything that looks at pixels reckons with the ratio.
#include "LineNumbersFixture.h"

namespace quorvane {
namespace {

using platform::TAlign;

// Construction.

TEST_F(QVLineNumbers, AreAComponentOfTheFormNamedLikeTheirClass) {
  EXPECT_EQ(Numbers->objectName(), QStringLiteral("TQVLineNumbers"));
  EXPECT_EQ(platform::ClassName(*Numbers), QStringLiteral("TQVLineNumbers"));
  EXPECT_EQ(GetLineNumbers(*Window), Numbers);
}

TEST_F(QVLineNumbers, AreHiddenAnd35PixelsWideUntilTheirFirstPaint) {
  const TQVLineNumbers numbers(Window.get());
  EXPECT_TRUE(numbers.isHidden());
  EXPECT_EQ(numbers.width(), 35);
  EXPECT_EQ(numbers.sizeHint().width(), 35);
}

TEST_F(QVLineNumbers, StandAtTheEdgeThatTheOptionNames) {
  EXPECT_EQ(Align(*Numbers), TAlign::alLeft);
  OptLineNumbersLeft = false;
  EXPECT_EQ(Align(TQVLineNumbers(Window.get())), TAlign::alRight);
}

// The editor.

TEST_F(QVLineNumbers, FindTheEditControlOfTheirForm) {
  EXPECT_EQ(Numbers->GetEditor(), &Editor());
}

TEST_F(QVLineNumbers, KeepTheEditControlThatTheyWereGiven) {
  fakes::FakeEditControl other;
  Numbers->SetEditor(&other);
  EXPECT_EQ(Numbers->GetEditor(), &other);
}

TEST_F(QVLineNumbers, WithoutAnOwnerHaveNoEditor) {
  TQVLineNumbers alone(nullptr);
  const platform::EAssertionFailed assertion = AssertionOf([&] { alone.GetEditor(); });
  EXPECT_EQ(assertion.Text(), "Assertion failure");
  EXPECT_EQ(assertion.Unit(), "QVEditorToolbar");
  EXPECT_EQ(assertion.Line(), 269U);
}

TEST_F(QVLineNumbers, OnAFormOfAnotherClassHaveNoEditor) {
  fakes::TOtherForm form(QStringLiteral("EditWindow_7"));
  TQVLineNumbers stranger(&form);
  const platform::EAssertionFailed assertion = AssertionOf([&] { stranger.GetEditor(); });
  EXPECT_EQ(assertion.Text(), "Assertion failure");
  EXPECT_EQ(assertion.Unit(), "QVEditorToolbar");
  EXPECT_EQ(assertion.Line(), 270U);
}

TEST_F(QVLineNumbers, OnAFormWithoutEditControlFailToCastIt) {
  Window->DropEditor();
  EXPECT_THROW(Numbers->GetEditor(), platform::EInvalidCast);
}

TEST_F(QVLineNumbers, OnAFormWhoseEditorIsNoControlFailToCastIt) {
  Window->DropEditor();
  QWidget impostor(Window.get());
  impostor.setObjectName(QStringLiteral("Editor"));
  EXPECT_THROW(Numbers->GetEditor(), platform::EInvalidCast);
}

// The client area.

TEST_F(QVLineNumbers, LeaveRoomForTheSeparatorTowardsTheText) {
  const int height = Numbers->height() - platform::GetSystemMetrics(platform::SM_CYHSCROLL);
  EXPECT_EQ(Numbers->GetClientRect(), QRect(0, 0, 60 - kEdge, height));
  SetAlign(*Numbers, TAlign::alRight);
  EXPECT_EQ(Numbers->GetClientRect(), QRect(kEdge, 0, 60 - kEdge, height));
}

TEST_F(QVLineNumbers, HaveTheirWholeWidthWithoutSeparator) {
  OptGutterSeparator = false;
  const int height = Numbers->height() - platform::GetSystemMetrics(platform::SM_CYHSCROLL);
  EXPECT_EQ(Numbers->GetClientRect(), QRect(0, 0, 60, height));
  SetAlign(*Numbers, TAlign::alRight);
  EXPECT_EQ(Numbers->GetClientRect(), QRect(0, 0, 60, height));
}

// Painting.

TEST_F(QVLineNumbers, OfAShortFileFillTheRowsBelowItsEnd) {
  PaintAll();
  EXPECT_TRUE(RowShows(0, QStringLiteral("1"), true));
  for (int row = 1; row < 5; ++row)
    EXPECT_TRUE(RowShows(row, QString::number(row + 1))) << row;
  for (int row = 5; row < 40; ++row)
    EXPECT_TRUE(IsFilled(Row(row), Ground())) << row;
  const QRect strip = Strip();
  EXPECT_EQ(Cut(strip), Expected(strip, strip.topLeft() + QPoint(1, 1), QStringLiteral("5"), true,
                                 SystemColor(QPalette::HighlightedText), SystemColor(QPalette::Highlight)));
}

TEST_F(QVLineNumbers, CountFromTheFirstVisibleLine) {
  Editor().TopLine = 98;
  Editor().LineCount = 100;
  Editor().CaretY = 99;
  PaintAll();
  EXPECT_TRUE(RowShows(0, QStringLiteral("98")));
  EXPECT_TRUE(RowShows(1, QStringLiteral("99"), true));
  EXPECT_TRUE(RowShows(2, QStringLiteral("100")));
  EXPECT_TRUE(IsFilled(Row(3), Ground()));
}

TEST_F(QVLineNumbers, CoverAPartlyVisibleLastLine) {
  ShowLines(10, 100);
  PaintAll();
  EXPECT_TRUE(RowShows(10, QStringLiteral("11"))) << "partly visible";
  EXPECT_TRUE(RowShows(12, QStringLiteral("13"))) << "two rows more than LinesInWindow, which counts the partial one";
  EXPECT_TRUE(IsFilled(Row(13), Ground()));
}

TEST_F(QVLineNumbers, TakeTheHeightOfALineFromTheEditor) {
  Editor().PublishedClientHeight = 809; // over 40 lines: 20, and the rest is dropped
  PaintAll();
  const QRect row(0, 20, Numbers->GetClientRect().width(), 20);
  EXPECT_EQ(Cut(row), Expected(row, row.topLeft(), QStringLiteral("2"), false, Qt::black, Ground()));
}

TEST_F(QVLineNumbers, OfAnEditorOfASingleLineStandOverEachOther) {
  Editor().LinesInWindow = 1;
  EXPECT_NO_THROW(PaintAll());
  EXPECT_FALSE(IsFilled(Row(0), Ground()));
  EXPECT_TRUE(IsFilled(Row(1), Ground()));
}

TEST_F(QVLineNumbers, HaveTheColourOfTheOption) {
  OptLineNumberColor = 0x0000FF; // red
  PaintAll();
  const QRect row = Row(1);
  EXPECT_EQ(Cut(row), Expected(row, row.topLeft(), QStringLiteral("2"), false, Qt::red, Ground()));
}

TEST_F(QVLineNumbers, StartBehindTheSeparatorAtTheRight) {
  SetAlign(*Numbers, TAlign::alRight);
  PaintAll();
  EXPECT_EQ(Row(0).x(), kEdge);
  EXPECT_TRUE(RowShows(1, QStringLiteral("2")));
  EXPECT_TRUE(IsFilled({0, 0, 1, Numbers->height()}, SystemColor(QPalette::Dark)));
  EXPECT_TRUE(IsFilled({1, 0, 1, Numbers->height()}, SystemColor(QPalette::Light)));
  EXPECT_TRUE(IsFilled({Numbers->width() - 2, kLineHeight, 2, kLineHeight}, Ground())) << "the rows reach to the edge";
}

TEST_F(QVLineNumbers, EndBeforeTheSeparatorAtTheLeft) {
  PaintAll();
  EXPECT_TRUE(IsFilled({58, 0, 1, Numbers->height()}, SystemColor(QPalette::Dark)));
  EXPECT_TRUE(IsFilled({59, 0, 1, Numbers->height()}, SystemColor(QPalette::Light)));
}

TEST_F(QVLineNumbers, HaveNoSeparatorUnlessTheOptionIsSet) {
  OptGutterSeparator = false;
  PaintAll();
  EXPECT_TRUE(IsFilled({58, kLineHeight, 2, kLineHeight}, Ground()));
}

TEST_F(QVLineNumbers, SwitchedOffLeaveOnlyTheSeparator) {
  PaintAll();
  TakePaints();
  Numbers->SetShowLineNumbers(false);
  Numbers->grab();
  EXPECT_EQ(TakePaints(), 0);
  EXPECT_TRUE(IsFilled({0, 0, 58, Numbers->height()}, Ground()));
  EXPECT_TRUE(IsFilled({58, 0, 1, Numbers->height()}, SystemColor(QPalette::Dark)));
}

TEST_F(QVLineNumbers, SwitchedOnAgainArePainted) {
  Numbers->SetShowLineNumbers(false);
  PaintAll();
  Numbers->SetShowLineNumbers(true);
  Numbers->grab();
  EXPECT_TRUE(RowShows(1, QStringLiteral("2")));
}

TEST_F(QVLineNumbers, KeepTheirFontWhenTheHostHasNoOptions) {
  PaintAll();
  Services->Options = nullptr;
  PaintAll();
  EXPECT_TRUE(RowShows(1, QStringLiteral("2")));
}

TEST_F(QVLineNumbers, ErrorInAPaintGoesToTheApplication) {
  Window->DropEditor();
  PaintAll();
  EXPECT_EQ(TakeReported(), Lines{"Invalid class typecast"});
}

// The width.

TEST_F(QVLineNumbers, AreWideEnoughForTheNumberOfLines) {
  Editor().LineCount = 12345;
  PaintAll();
  EXPECT_EQ(Numbers->sizeHint().width(), QFontMetrics(NumberFont(true)).horizontalAdvance(QStringLiteral("12345")) + 4);
}

TEST_F(QVLineNumbers, OfALongFileAreWiderThanThoseOfAShortOne) {
  Editor().LineCount = 999;
  PaintAll();
  const int narrow = Numbers->sizeHint().width();
  Editor().LineCount = 10'000;
  PaintAll();
  EXPECT_GT(Numbers->sizeHint().width(), narrow);
  Editor().LineCount = 999;
  PaintAll();
  EXPECT_EQ(Numbers->sizeHint().width(), narrow);
}

TEST_F(QVLineNumbers, LeaveTheirNewWidthToTheNextLayout) {
  Editor().LineCount = 10'000;
  PaintAll();
  EXPECT_EQ(Numbers->width(), 60);
  LayOut();
  PaintAll();
  EXPECT_TRUE(RowShows(1, QStringLiteral("2"))) << "painted for the width that it has";
}

// When they are painted.

TEST_F(QVLineNumbers, ArePaintedByAPollOnlyWhenTheEditorHasMoved) {
  Numbers->DoTimer(nullptr);
  EXPECT_EQ(TakePaints(), 1) << "never painted before";
  Numbers->DoTimer(nullptr);
  EXPECT_EQ(TakePaints(), 0);
  Editor().LineCount = 6; // a change that a poll does not look at
  Numbers->DoTimer(nullptr);
  EXPECT_EQ(TakePaints(), 0);

  Editor().TopLine = 2;
  Numbers->DoTimer(nullptr);
  EXPECT_EQ(TakePaints(), 1);
  Editor().LinesInWindow = 12;
  Numbers->DoTimer(nullptr);
  EXPECT_EQ(TakePaints(), 1);
  Editor().CaretY = 3;
  Numbers->DoTimer(nullptr);
  EXPECT_EQ(TakePaints(), 1);
  Numbers->DoTimer(nullptr);
  EXPECT_EQ(TakePaints(), 0);
}

TEST_F(QVLineNumbers, ArePaintedWhenAskedToEvenIfNothingHasChanged) {
  Numbers->PaintLineNumbers();
  Numbers->PaintLineNumbers();
  EXPECT_EQ(TakePaints(), 2);
}

TEST_F(QVLineNumbers, CaretMovedDownOneLineMovesTheBoldNumberInOnePaint) {
  PaintAll();
  TakePaints();
  Editor().CaretY = 2;
  UpdateToolbar(&Editor());
  EXPECT_EQ(TakePaints(), 1);
  EXPECT_TRUE(RowShows(0, QStringLiteral("1")));
  EXPECT_TRUE(RowShows(1, QStringLiteral("2"), true));
}

TEST_F(QVLineNumbers, PaintedByAPollAreShownWithoutBeingPaintedAgain) {
  Window->resize(200, 41 * kLineHeight);
  Numbers->show();
  Window->show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(Window.get()));
  ASSERT_EQ(Picture().size(), (QSizeF(Numbers->size()) * Numbers->devicePixelRatioF()).toSize());
  QCoreApplication::processEvents();
  TakePaints();
  Editor().CaretY = 2;
  PollLineNumbers();
  QCoreApplication::processEvents();
  EXPECT_EQ(TakePaints(), 1);
}

TEST_F(QVLineNumbers, AnUpdateFromOutsidePaintsThemAnew) {
  PaintAll();
  TakePaints();
  Editor().LineCount = 4;
  Numbers->grab();
  EXPECT_EQ(TakePaints(), 1);
  EXPECT_TRUE(IsFilled(Row(4), Ground()));
}

TEST_F(QVLineNumbers, PaintThemselvesAnewInOtherColours) {
  PaintAll();
  QPalette palette = Numbers->palette();
  palette.setColor(QPalette::Button, QColor(1, 2, 3));
  Numbers->setPalette(palette);
  Numbers->grab();
  EXPECT_TRUE(IsFilled(Row(6), QColor(1, 2, 3)));
  EXPECT_TRUE(RowShows(1, QStringLiteral("2")));
}

// Clicks.

class QVLineNumbersClicked : public QVLineNumbers {
protected:
  QVLineNumbersClicked() {
    ShowLines(40, 1000);
    Editor().TopLine = 50;
    PaintAll();
    TakePaints();
  }
  // The middle of a row, from 0.
  QPoint At(int row) const { return {5, row * kLineHeight + kLineHeight / 2}; }
  void Click(int row, Qt::MouseButton button = Qt::LeftButton) { QTest::mouseClick(Numbers, button, {}, At(row)); }
  // The second press of a double click.
  void SendDoubleClick(int row) {
    const QPointF at = At(row);
    QMouseEvent event(QEvent::MouseButtonDblClick, at, Numbers->mapToGlobal(at), Qt::LeftButton, Qt::LeftButton, {});
    QCoreApplication::sendEvent(Numbers, &event);
  }
};

TEST_F(QVLineNumbersClicked, OnTheThirdRowPutTheCaretTwoLinesBelowTheFirst) {
  Click(2);
  EXPECT_EQ(View->Cursor, (platform::TOTAEditPos{1, 52}));
  EXPECT_EQ(View->Paints, 1);
}

TEST_F(QVLineNumbersClicked, CountTheRowsFromTheLastPaint) {
  Editor().TopLine = 60;
  Click(0);
  EXPECT_EQ(View->Cursor.Line, 50);
}

TEST_F(QVLineNumbersClicked, PollTheNumbersOfAllWindows) {
  fakes::TEditWindow second(QStringLiteral("EditWindow_1"));
  second.Editor().LineCount = 7;
  auto* const other = new TQVLineNumbers(&second);
  Editor().CaretY = 52;
  Click(2);
  EXPECT_EQ(TakePaints(), 2) << "both";
  EXPECT_FALSE(other->Picture().isNull());
}

TEST_F(QVLineNumbersClicked, WithASingleLineShownDivideByZero) {
  Editor().LinesInWindow = 1;
  PaintAll();
  Click(0);
  EXPECT_EQ(TakeReported(), Lines{"Division by zero"});
  EXPECT_EQ(View->Cursor, (platform::TOTAEditPos{1, 1}));
  EXPECT_EQ(View->Paints, 0);
}

TEST_F(QVLineNumbersClicked, WithoutAViewOnTopMoveNothing) {
  Services->TopView = nullptr;
  Click(2);
  EXPECT_EQ(View->Cursor, (platform::TOTAEditPos{1, 1}));
}

TEST_F(QVLineNumbersClicked, WithAnotherButtonMoveNothing) {
  Click(2, Qt::RightButton);
  EXPECT_EQ(View->Paints, 0);
}

TEST_F(QVLineNumbersClicked, ReleasedElsewhereMoveNothing) {
  QTest::mousePress(Numbers, Qt::LeftButton, {}, At(2));
  QTest::mouseRelease(Numbers, Qt::LeftButton, {}, QPoint(-20, 10));
  EXPECT_EQ(View->Paints, 0);
}

TEST_F(QVLineNumbersClicked, TwiceExecuteTheHostsGoToLineAndMoveOnlyOnce) {
  QWidget mainForm;
  platform::Application().SetMainForm(&mainForm);
  auto* const command = new QAction(&mainForm);
  command->setObjectName(QStringLiteral("SearchGoToCommand"));
  int executed = 0;
  QObject::connect(command, &QAction::triggered, command, [&] {
    ++executed;
    Editor().CaretY = 99;
  });
  Click(2);
  EXPECT_EQ(executed, 0);
  SendDoubleClick(2);
  QTest::mouseRelease(Numbers, Qt::LeftButton, {}, At(2));
  platform::Application().SetMainForm(nullptr);
  EXPECT_EQ(executed, 1);
  EXPECT_EQ(View->Paints, 1);
  EXPECT_EQ(TakePaints(), 1) << "polled after the command";
}

TEST_F(QVLineNumbersClicked, TwiceInAHostWithoutThatCommandOnlyPoll) {
  QWidget mainForm;
  platform::Application().SetMainForm(&mainForm);
  Editor().CaretY = 51;
  SendDoubleClick(2);
  platform::Application().SetMainForm(nullptr);
  EXPECT_EQ(TakePaints(), 1);
}

// All windows at once.

TEST_F(QVLineNumbers, PollLooksAtEditorWindowsOnly) {
  fakes::TOtherForm form(QStringLiteral("EditWindow_7"));
  auto* const editor = new fakes::FakeEditControl(&form);
  TQVLineNumbers stranger(&form);
  stranger.SetEditor(editor);
  PollLineNumbers();
  EXPECT_TRUE(stranger.Picture().isNull());
  EXPECT_EQ(TakePaints(), 1);
}

TEST_F(QVLineNumbers, PollPassesByWindowsWithoutNumbersOrEditor) {
  const fakes::TEditWindow plain(QStringLiteral("EditWindow_1"));
  fakes::TEditWindow broken(QStringLiteral("EditWindow_2"));
  new TQVLineNumbers(&broken);
  broken.DropEditor();
  EXPECT_NO_THROW(PollLineNumbers());
  EXPECT_EQ(TakePaints(), 1);
}

TEST_F(QVLineNumbers, UpdateNeedsAnEditor) {
  const platform::EAssertionFailed assertion = AssertionOf([] { UpdateToolbar(nullptr); });
  EXPECT_EQ(assertion.Text(), "Assertion failure");
  EXPECT_EQ(assertion.Unit(), "QVEditorToolbar");
  EXPECT_EQ(assertion.Line(), 165U);
}

TEST_F(QVLineNumbers, AreShownAtTheEdgeThatTheOptionNamesByNow) {
  OptLineNumbersLeft = false;
  PaintAll();
  TakePaints();
  ShowLineNumbers();
  EXPECT_FALSE(Numbers->isHidden());
  EXPECT_EQ(Align(*Numbers), TAlign::alRight);
  Numbers->grab();
  EXPECT_EQ(TakePaints(), 1);
  OptLineNumbersLeft = true;
  ShowLineNumbers();
  EXPECT_EQ(Align(*Numbers), TAlign::alLeft);
}

TEST_F(QVLineNumbers, AreNotShownWhenTheOptionsDoNotWantThem) {
  OptShowLineNumbers = false;
  ShowLineNumbers();
  EXPECT_TRUE(Numbers->isHidden());
  OptShowLineNumbers = true;
  OptLinesInGutter = true;
  ShowLineNumbers();
  EXPECT_TRUE(Numbers->isHidden());
}

TEST_F(QVLineNumbers, OfAllWindowsAreShownAndHidden) {
  fakes::TEditWindow second(QStringLiteral("EditWindow_1"));
  auto* const other = new TQVLineNumbers(&second);
  ShowLineNumbers();
  EXPECT_FALSE(Numbers->isHidden());
  EXPECT_FALSE(other->isHidden());
  HideLineNumbers();
  EXPECT_TRUE(Numbers->isHidden());
  EXPECT_TRUE(other->isHidden());
}

// The messages after which the proxy polls.

class QVLineNumbersPolled : public QVLineNumbers {
protected:
  // Whether a message after which the editor has its caret on another line has the numbers painted.
  bool PaintsAfter(unsigned code) {
    PollLineNumbers();
    const QImage before = Picture().copy();
    Editor().OnMessage = [this, code](platform::TMessage& message) {
      if (message.Msg == code)
        Editor().CaretY = Editor().CaretY % 5 + 1;
    };
    Editor().Send(code);
    Editor().OnMessage = nullptr;
    return Picture() != before;
  }
  TQVEditorProxy* Proxy = new TQVEditorProxy(Window.get());
};

TEST_F(QVLineNumbersPolled, AfterTheHostHasHandledAMessageThatMayMoveTheEditor) {
  for (const unsigned code : {platform::WM_SETFOCUS, platform::WM_PAINT, platform::WM_VSCROLL, platform::CN_KEYDOWN})
    EXPECT_TRUE(PaintsAfter(code)) << code;
}

TEST_F(QVLineNumbersPolled, NotAfterAnyOtherMessage) {
  for (const unsigned code : {platform::WM_KEYDOWN, platform::WM_CHAR, platform::WM_KILLFOCUS, platform::WM_USER})
    EXPECT_FALSE(PaintsAfter(code)) << code;
}

TEST_F(QVLineNumbersPolled, NotWhileTheOptionsWantNoNumbersHere) {
  OptShowLineNumbers = false;
  EXPECT_FALSE(PaintsAfter(platform::WM_PAINT));
  OptShowLineNumbers = true;
  OptLinesInGutter = true;
  EXPECT_FALSE(PaintsAfter(platform::WM_PAINT));
}

TEST_F(QVLineNumbersPolled, AlsoWhenTheMessageHasTakenTheProxyAway) {
  PollLineNumbers();
  TakePaints();
  Editor().OnMessage = [this](platform::TMessage&) {
    delete std::exchange(Proxy, nullptr);
    Editor().CaretY = 2;
  };
  Editor().Send(platform::WM_PAINT);
  Editor().OnMessage = nullptr;
  EXPECT_EQ(TakePaints(), 1);
}

} // namespace
} // namespace quorvane
