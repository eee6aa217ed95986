// SPDX-License-Identifier: MIT
#include "toolbar/QVNameCombo.h"

#include "ToolbarFixture.h"

#include <QAbstractItemView>
#include <QIdentityProxyModel>
#include <QLineEdit>
#include <QTest>
#include <QWheelEvent>

namespace quorvane {
namespace {

class QVNameCombo : public ToolbarTest {
protected:
  QVNameCombo() {
    Combo.OnChange = [this] { Changes.append(Combo.currentText()); };
    for (const char* name : {"Alpha", "Beta", "Gamma"})
      Combo.AddName(QString::fromLatin1(name), 10 + Combo.count());
  }

  void ShowCombo() {
    Show();
    Combo.setGeometry(0, 60, 200, 24);
    Combo.show();
    Focus(Combo);
  }

  TQVNameCombo Combo{200, &Window};
  QStringList Changes;
};

TEST_F(QVNameCombo, TellsEachTypedCharacter) {
  ShowCombo();
  QTest::keyClicks(&Combo, QStringLiteral("Be"));
  EXPECT_EQ(Changes, (QStringList{QStringLiteral("B"), QStringLiteral("Be")}));
}

TEST_F(QVNameCombo, TellsAnEntryChosenWithTheKeys) {
  ShowCombo();
  QTest::keyClick(&Combo, Qt::Key_Down);
  EXPECT_EQ(Changes, QStringList{QStringLiteral("Alpha")});
}

TEST_F(QVNameCombo, TellsAnEntryChosenWithTheMouseAlsoIfItIsTheSameAgain) {
  ShowCombo();
  for (int round = 0; round < 2; ++round) {
    Combo.showPopup();
    ASSERT_TRUE(support::waitUntil([this] { return Combo.view()->isVisible(); }));
    const QPoint beta = Combo.view()->visualRect(Combo.model()->index(1, 0)).center();
    // A list that has just opened takes a release for that of the click that opened it.
    QTest::mouseMove(Combo.view()->viewport(), beta);
    QTest::mousePress(Combo.view()->viewport(), Qt::LeftButton, {}, beta);
    ASSERT_TRUE(support::waitUntil([&] {
      if (Combo.view()->isVisible())
        QTest::mouseRelease(Combo.view()->viewport(), Qt::LeftButton, {}, beta);
      return !Combo.view()->isVisible();
    }));
  }
  EXPECT_EQ(Changes, (QStringList{QStringLiteral("Beta"), QStringLiteral("Beta")}));
}

TEST_F(QVNameCombo, TellsNothingThatTheProgramSets) {
  Combo.SetText(QStringLiteral("Beta"), QStringLiteral("Beta"));
  Combo.SetText(QStringLiteral("Beta"), QStringLiteral("Gamma"));
  Combo.AddName(QStringLiteral("Delta"), 1);
  Combo.SetNames(AnOutline()->GetMethods());
  Combo.ClearNames();
  Combo.SetText({}, {});
  EXPECT_EQ(Changes, QStringList());
}

TEST_F(QVNameCombo, AnEntryThatTheTextNamesIsNotChosenWhenTheBoxIsLeft) {
  ShowCombo();
  Combo.setEditText(QStringLiteral("Gamma"));
  Focus(Editor());
  EXPECT_EQ(Changes, QStringList());
}

TEST_F(QVNameCombo, WhatItsChangeThrowsGoesToTheApplication) {
  ShowCombo();
  Combo.OnChange = [] { throw platform::Exception("no"); };
  QTest::keyClicks(&Combo, QStringLiteral("x"));
  EXPECT_EQ(TakeReported(), Lines{"no"});
}

TEST_F(QVNameCombo, TheWheelTurnsItOnlyWhileItHasTheFocus) {
  ShowCombo();
  Focus(Editor());
  const auto turn = [this] {
    const QPointF place(5, 5);
    QWheelEvent event(place, Combo.mapToGlobal(place), {}, QPoint(0, -120), Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&Combo, &event);
  };
  turn();
  EXPECT_EQ(Changes, QStringList());
  Focus(Combo);
  turn();
  EXPECT_EQ(Changes, QStringList{QStringLiteral("Alpha")});
}

TEST_F(QVNameCombo, HasTheFocusAlsoWhileItsListIsOpen) {
  ShowCombo();
  EXPECT_TRUE(Combo.HasFocus());
  Combo.showPopup();
  ASSERT_TRUE(support::waitUntil([this] { return Combo.view()->isVisible(); }));
  EXPECT_TRUE(Combo.HasFocus());
  Combo.hidePopup();
  Focus(Editor());
  EXPECT_FALSE(Combo.HasFocus());
}

TEST_F(QVNameCombo, FindsNamesWithoutCaseButWhole) {
  const TQVNameModel& names = Combo.Names();
  EXPECT_EQ(names.IndexOf(QStringLiteral("bETA")), 1);
  EXPECT_EQ(names.IndexOf(QStringLiteral("Bet")), -1);
  EXPECT_EQ(names.IndexOf(QString()), -1);
  EXPECT_EQ(names.LineAt(1), 11);
}

TEST_F(QVNameCombo, FindsTheFirstOfEqualNames) {
  Combo.AddName(QStringLiteral("ALPHA"), 99);
  EXPECT_EQ(Combo.Names().IndexOf(QStringLiteral("alpha")), 0);
}

TEST_F(QVNameCombo, ShowsALongTextFromItsStart) {
  ShowCombo();
  Focus(Editor());
  Combo.SetText(QString(200, u'x'), {});
  EXPECT_EQ(Combo.lineEdit()->cursorPosition(), 0);
}

TEST_F(QVNameCombo, EntriesAreAtLeastFourteenPixelsHighAndAsHighAsTheirFont) {
  const auto height = [this] { return Combo.view()->sizeHintForRow(0); };
  QFont small = Combo.font();
  small.setPixelSize(8);
  Combo.setFont(small);
  EXPECT_EQ(height(), 14);
  QFont large = Combo.font();
  large.setPixelSize(30);
  Combo.setFont(large);
  EXPECT_EQ(height(), Combo.fontMetrics().height());
}

// Choosing by the keys alone.

class QVNameComboKeys : public QVNameCombo {
protected:
  QVNameComboKeys() {
    Combo.OnLeave = [this] {
      ++Leaves;
      Editor().setFocus();
    };
    Combo.SetText(QStringLiteral("Beta"), QStringLiteral("Beta"));
  }
  // Shows the box, without the focus.
  void ShowUnfocused() {
    ShowCombo();
    Focus(Editor());
  }
  void OpenList() {
    Combo.Open();
    ASSERT_TRUE(support::waitUntil([this] { return Combo.view()->isVisible(); }));
  }

  int Leaves = 0;
};

TEST_F(QVNameComboKeys, OpensItsListAtTheCurrentEntry) {
  ShowUnfocused();
  OpenList();
  EXPECT_EQ(Combo.view()->currentIndex().row(), 1);
  Combo.hidePopup();
}

TEST_F(QVNameComboKeys, EnterTakesTheEntryOfTheOpenList) {
  ShowUnfocused();
  OpenList();
  QTest::keyClick(Combo.view(), Qt::Key_Down);
  QTest::keyClick(Combo.view(), Qt::Key_Return);
  EXPECT_EQ(Changes, QStringList{QStringLiteral("Gamma")});
  EXPECT_EQ(Leaves, 0);
}

TEST_F(QVNameComboKeys, TypingSearchesTheOpenList) {
  ShowUnfocused();
  OpenList();
  QTest::keyClicks(Combo.view(), QStringLiteral("al"));
  QTest::keyClick(Combo.view(), Qt::Key_Return);
  EXPECT_EQ(Changes, QStringList{QStringLiteral("Alpha")});
}

TEST_F(QVNameComboKeys, EscapeInTheOpenListLeavesAtOnceAndChangesNothing) {
  ShowUnfocused();
  OpenList();
  QTest::keyClick(Combo.view(), Qt::Key_Down);
  QTest::keyClick(Combo.view(), Qt::Key_Escape);
  EXPECT_FALSE(Combo.view()->isVisible());
  EXPECT_EQ(Leaves, 1);
  EXPECT_EQ(Changes, QStringList());
  EXPECT_EQ(Combo.currentText(), QStringLiteral("Beta"));
  EXPECT_EQ(Combo.currentIndex(), 1);
  EXPECT_TRUE(support::waitUntil([this] { return Editor().hasFocus(); }));
}

TEST_F(QVNameComboKeys, EscapeInTheTextPutsTheTextBack) {
  ShowUnfocused();
  Focus(Combo);
  Combo.lineEdit()->selectAll();
  QTest::keyClicks(&Combo, QStringLiteral("xyz"));
  Changes.clear();
  QTest::keyClick(&Combo, Qt::Key_Escape);
  EXPECT_EQ(Combo.currentText(), QStringLiteral("Beta"));
  EXPECT_EQ(Leaves, 1);
  EXPECT_EQ(Changes, QStringList());
}

TEST_F(QVNameComboKeys, EnterChoosesTheNameInTheTextInAnyCase) {
  ShowUnfocused();
  Focus(Combo);
  Combo.setEditText(QStringLiteral("gAMMA"));
  QTest::keyClick(&Combo, Qt::Key_Return);
  EXPECT_EQ(Changes, QStringList{QStringLiteral("gAMMA")});
}

TEST_F(QVNameComboKeys, EnterOnATextThatNamesNothingDoesNothing) {
  ShowUnfocused();
  Focus(Combo);
  Combo.setEditText(QStringLiteral("Gam"));
  QTest::keyClick(&Combo, Qt::Key_Return);
  EXPECT_EQ(Changes, QStringList());
  EXPECT_EQ(Leaves, 0);
}

TEST_F(QVNameComboKeys, OpensNothingWhileItIsHidden) {
  ShowUnfocused();
  Combo.hide();
  Combo.Open();
  support::settle();
  EXPECT_TRUE(Editor().hasFocus());
  EXPECT_FALSE(Combo.view()->isVisible());
}

TEST_F(QVNameComboKeys, WithoutEntriesTakesTheFocusAlone) {
  ShowUnfocused();
  Combo.ClearNames();
  Combo.Open();
  EXPECT_TRUE(support::waitUntil([this] { return Combo.hasFocus(); }));
  EXPECT_FALSE(Combo.view()->isVisible());
}

TEST_F(QVNameComboKeys, WhatLeavingThrowsGoesToTheApplication) {
  ShowUnfocused();
  Focus(Combo);
  Combo.OnLeave = [] { throw platform::Exception("no"); };
  QTest::keyClick(&Combo, Qt::Key_Escape);
  EXPECT_EQ(TakeReported(), Lines{"no"});
}

// Passes a list on and counts what is asked of it.
class AskedList : public QIdentityProxyModel {
public:
  QVariant data(const QModelIndex& index, int role) const override {
    ++Asked;
    return QIdentityProxyModel::data(index, role);
  }
  mutable int Asked = 0;
};

TEST_F(QVNameCombo, OpensALongListWithoutMeasuringEveryEntry) {
  TQVPasInfo info;
  for (int index = 0; index < 20000; ++index)
    info.AddMethod("Routine" + std::to_string(index), index);
  Combo.SetNames(info.GetMethods());
  AskedList list;
  Combo.model()->setParent(&Window); // or the box would delete it when it is given another
  list.setSourceModel(Combo.model());
  Combo.setModel(&list);
  ShowCombo();
  Combo.showPopup();
  ASSERT_TRUE(support::waitUntil([this] { return Combo.view()->isVisible(); }));
  support::settle();
  EXPECT_EQ(Combo.count(), 20000);
  EXPECT_GT(list.Asked, 0);
  EXPECT_LT(list.Asked, 2000);
  Combo.hidePopup();
}

TEST_F(QVNameCombo, OpensItsListAtTheCurrentEntryWhateverItsText) {
  ShowCombo();
  Combo.SetText(QStringLiteral("something else"), QStringLiteral("bETA"));
  Combo.showPopup();
  ASSERT_TRUE(support::waitUntil([this] { return Combo.view()->isVisible(); }));
  EXPECT_EQ(Combo.view()->currentIndex().row(), 1);
  EXPECT_EQ(Combo.currentText(), QStringLiteral("something else"));
  Combo.hidePopup();
}

TEST_F(QVNameCombo, FindsItsCurrentEntryWhenTheEntriesComeLater) {
  Combo.SetText(QStringLiteral("Walk"), QStringLiteral("TAnt.Walk"));
  EXPECT_EQ(Combo.currentIndex(), -1);
  Combo.SetNames(AnOutline()->GetMethods());
  EXPECT_EQ(Combo.currentIndex(), 1);
  EXPECT_EQ(Combo.currentText(), QStringLiteral("Walk"));
}

TEST_F(QVNameCombo, TakesOverLinesOnlyOfEqualNames) {
  TQVPasInfo info;
  info.AddMethod("Alpha", 1);
  info.AddMethod("Beta", 2);
  EXPECT_FALSE(Combo.SetLines(info.GetMethods()));
  EXPECT_EQ(Entries(Combo),
            (QStringList{QStringLiteral("Alpha 10"), QStringLiteral("Beta 11"), QStringLiteral("Gamma 12")}));
  info.AddMethod("Gamma", 3);
  EXPECT_TRUE(Combo.SetLines(info.GetMethods()));
  EXPECT_EQ(Entries(Combo),
            (QStringList{QStringLiteral("Alpha 1"), QStringLiteral("Beta 2"), QStringLiteral("Gamma 3")}));
}

TEST_F(QVNameCombo, KeepsTheCursorInItsTextWhenTheEntriesChange) {
  Combo.SetText(QStringLiteral("Beta"), QStringLiteral("Beta"));
  Combo.lineEdit()->setCursorPosition(2);
  Combo.SetNames(AnOutline()->GetMethods());
  EXPECT_EQ(Combo.currentText(), QStringLiteral("Beta"));
  EXPECT_EQ(Combo.lineEdit()->cursorPosition(), 2);
}

} // namespace
} // namespace quorvane
