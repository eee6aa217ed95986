// SPDX-License-Identifier: MIT
#include "toolbar/QVLocalVars.h"

#include "platform/Align.h"
#include "platform/Component.h"
#include "support/SignalCount.h"
#include "ToolbarFixture.h"

#include <QAbstractItemModel>
#include <QAbstractItemView>
#include <QLineEdit>
#include <QTest>
#include <QTimer>

namespace quorvane {
namespace {

using platform::TOTAEditPos;
using support::SignalCount;

class QVLocalVars : public ToolbarTest {};

// How it is made.

TEST_F(QVLocalVars, IsAComponentOfItsFormNamedLikeItsClass) {
  EXPECT_EQ(Toolbar->objectName(), QStringLiteral("TQVEditorToolbar"));
  EXPECT_EQ(platform::ClassName(*Toolbar), Toolbar->objectName());
  EXPECT_EQ(platform::FindComponent(Window, Toolbar->objectName()), Toolbar);
}

TEST_F(QVLocalVars, StandsAtTheTopAndStaysThere) {
  EXPECT_EQ(platform::Align(*Toolbar), platform::TAlign::alTop);
  EXPECT_FALSE(Toolbar->isMovable());
  EXPECT_FALSE(Toolbar->isFloatable());
}

TEST_F(QVLocalVars, IsFlatWithAnEdgeBelow) {
  Show();
  const QImage picture = Toolbar->grab().toImage();
  const QColor ground = Toolbar->palette().color(QPalette::Window);
  const int right = picture.width() - 1; // no control stands there
  for (int y = 0; y < picture.height() - 1; ++y)
    ASSERT_EQ(picture.pixelColor(right, y), ground) << y;
  EXPECT_NE(picture.pixelColor(right, picture.height() - 1), ground);
  EXPECT_EQ(picture.pixelColor(0, 0), ground);
}

TEST_F(QVLocalVars, PlacesItsControlsOnlyWhenItIsGivenAParent) {
  TQVEditorToolbar fresh(&Window);
  EXPECT_TRUE(fresh.actions().isEmpty());
  fresh.SetParent(nullptr);
  EXPECT_TRUE(fresh.actions().isEmpty());
  EXPECT_EQ(fresh.parentWidget(), nullptr);
  fresh.SetParent(&Window);
  EXPECT_EQ(fresh.actions().size(), 4);
}

TEST_F(QVLocalVars, PlacesItsControlsInOrderFromTheLeft) {
  Show();
  EXPECT_LT(Methods().x(), Classes().x());
  EXPECT_LT(Classes().x(), SectionsButton().x());
  EXPECT_LT(SectionsButton().x(), UnitsButton().x());
}

TEST_F(QVLocalVars, PlacesItsControlsOnce) {
  QWidget other;
  Toolbar->SetParent(&other);
  Toolbar->SetParent(&Window);
  EXPECT_EQ(Toolbar->actions().size(), 4);
}

TEST_F(QVLocalVars, HasListsOfTheDesignedSize) {
  Show();
  EXPECT_EQ(Classes().width(), 150);
  EXPECT_EQ(Methods().width(), 300);
  EXPECT_EQ(Classes().maxVisibleItems(), 16);
  EXPECT_EQ(Methods().maxVisibleItems(), 16);
}

TEST_F(QVLocalVars, HasButtonsLevelWithItsLists) {
  Show();
  for (const QToolButton* button : {&SectionsButton(), &UnitsButton()}) {
    EXPECT_EQ(button->y(), Methods().y());
    EXPECT_EQ(button->height(), Methods().height());
  }
}

TEST_F(QVLocalVars, ExplainsItsControls) {
  EXPECT_EQ(Classes().toolTip(), QStringLiteral("Classes, Interfaces, and Types"));
  EXPECT_EQ(Methods().toolTip(), QStringLiteral("Procedures and Functions"));
  EXPECT_EQ(SectionsButton().toolTip(), QStringLiteral("Sections"));
  EXPECT_EQ(UnitsButton().toolTip(), QStringLiteral("Used Units"));
}

TEST_F(QVLocalVars, ShowsImagesOnItsButtons) {
  EXPECT_FALSE(SectionsButton().icon().isNull());
  EXPECT_FALSE(UnitsButton().icon().isNull());
  EXPECT_NE(SectionsButton().icon().pixmap(16).toImage(), UnitsButton().icon().pixmap(16).toImage());
}

TEST_F(QVLocalVars, StartsEmpty) {
  EXPECT_EQ(Classes().count(), 0);
  EXPECT_EQ(Methods().count(), 0);
  EXPECT_EQ(Classes().currentText(), QString());
  EXPECT_EQ(Methods().currentText(), QString());
  EXPECT_TRUE(SectionsMenu().isEmpty());
  EXPECT_TRUE(UnitsMenu().isEmpty());
}

TEST_F(QVLocalVars, GivesWayInANarrowWindow) {
  Show();
  Toolbar->resize(320, Toolbar->height());
  support::settle();
  EXPECT_TRUE(UnitsButton().isVisible());
  EXPECT_LT(Methods().width(), 300);
}

// Filling it by hand.

TEST_F(QVLocalVars, AppendsNamesWithTheirLines) {
  Toolbar->AddClass(QStringLiteral("TZebra"), 5);
  Toolbar->AddClass(QStringLiteral("TAnt"), 9);
  Toolbar->AddMethod(QStringLiteral("Main"), 0);
  EXPECT_EQ(Entries(Classes()), (QStringList{QStringLiteral("TZebra 5"), QStringLiteral("TAnt 9")}));
  EXPECT_EQ(Entries(Methods()), QStringList{QStringLiteral("Main 0")});
  EXPECT_EQ(Classes().currentText(), QString()) << "a list that fills does not choose";
}

TEST_F(QVLocalVars, EmptiesEachListByItself) {
  Toolbar->UpdateToolBar(*AnOutline());
  Toolbar->ClearClasses();
  EXPECT_EQ(Classes().count(), 0);
  EXPECT_EQ(Methods().count(), 3);
  Toolbar->ClearMethods();
  EXPECT_EQ(Methods().count(), 0);
  EXPECT_EQ(Methods().currentText(), QStringLiteral("Walk")) << "the text is no part of the list";
}

TEST_F(QVLocalVars, SetsTheTextsWithoutGoingAnywhere) {
  Toolbar->UpdateToolBar(*AnOutline());
  Toolbar->SetCurrentClass(QStringLiteral("TBird"));
  Toolbar->SetCurrentProc(QStringLiteral("Main"));
  EXPECT_EQ(Classes().currentText(), QStringLiteral("TBird"));
  EXPECT_EQ(Methods().currentText(), QStringLiteral("Main"));
  EXPECT_EQ(View->Cursor, (TOTAEditPos{1, 1}));
  EXPECT_EQ(LogForm.Take(), Lines{});
}

// Refreshing it.

TEST_F(QVLocalVars, ShowsWhatHoldsTheCaret) {
  Toolbar->UpdateToolBar(*AnOutline());
  EXPECT_EQ(Classes().currentText(), QStringLiteral("TAnt"));
  EXPECT_EQ(Methods().currentText(), QStringLiteral("Walk"));
}

TEST_F(QVLocalVars, ListsTypesAndRoutinesInTheOrderOfTheOutline) {
  Toolbar->UpdateToolBar(*AnOutline());
  EXPECT_EQ(Entries(Classes()), (QStringList{QStringLiteral("TAnt 12"), QStringLiteral("TBird 7")}));
  EXPECT_EQ(Entries(Methods()),
            (QStringList{QStringLiteral("Main 50"), QStringLiteral("TAnt.Walk 40"), QStringLiteral("TBird.Sing 30")}));
}

TEST_F(QVLocalVars, TakesTheBytesOfNamesForCharacters) {
  TQVPasInfo info;
  info.AddMethod("Caf\xE9", 3);
  info.SetCurrentProc("Caf\xE9");
  Toolbar->UpdateToolBar(info);
  EXPECT_EQ(Methods().itemText(0), QStringLiteral("Caf\u00E9"));
  EXPECT_EQ(Methods().currentText(), QStringLiteral("Caf\u00E9"));
}

TEST_F(QVLocalVars, KeepsTypedTextAndOldListWhileTheListHasTheFocus) {
  Show();
  Toolbar->UpdateToolBar(*AnOutline());
  Focus(Methods());
  Methods().lineEdit()->selectAll();
  QTest::keyClicks(&Methods(), QStringLiteral("TAnt.W"));
  const auto next = AnOutline();
  next->AddMethod("Another", 70);
  next->AddClass("TCat", 15);
  next->SetCurrentProc("Another");
  next->SetCurrentClass("TCat");
  Toolbar->UpdateToolBar(*next);
  EXPECT_EQ(Methods().currentText(), QStringLiteral("TAnt.W"));
  EXPECT_EQ(Methods().count(), 3);
  EXPECT_EQ(Classes().currentText(), QStringLiteral("TCat")) << "the other one follows";
  EXPECT_EQ(Classes().count(), 3);

  Focus(Classes());
  Toolbar->UpdateToolBar(*AnOutline());
  Toolbar->UpdateToolBar(*next);
  EXPECT_EQ(Methods().currentText(), QStringLiteral("Another"));
  EXPECT_EQ(Methods().count(), 4);
  EXPECT_EQ(Classes().currentText(), QStringLiteral("TCat"));
}

TEST_F(QVLocalVars, KeepsAListThatIsOpen) {
  Show();
  Toolbar->UpdateToolBar(*AnOutline());
  Methods().showPopup();
  ASSERT_TRUE(support::waitUntil([this] { return Methods().view()->isVisible(); }));
  const auto next = AnOutline();
  next->AddMethod("Another", 70);
  next->SetCurrentProc("Another");
  Toolbar->UpdateToolBar(*next);
  EXPECT_EQ(Methods().count(), 3);
  EXPECT_EQ(Methods().currentText(), QStringLiteral("Walk"));
  Methods().hidePopup();
  ASSERT_TRUE(support::waitUntil([this] { return !Methods().view()->isVisible(); }));
  Focus(Editor());
  Toolbar->UpdateToolBar(*next);
  EXPECT_EQ(Methods().count(), 4);
}

TEST_F(QVLocalVars, BringsLinesUpToDateInPlaceWhenTheNamesAreEqual) {
  Toolbar->UpdateToolBar(*AnOutline());
  const SignalCount resets(Methods().model(), &QAbstractItemModel::modelReset);
  const SignalCount texts(Methods().lineEdit(), &QLineEdit::textChanged);
  Methods().lineEdit()->setSelection(1, 2);
  const auto next = std::make_shared<TQVPasInfo>();
  next->AddMethod("Main", 51);
  next->AddMethod("TAnt.Walk", 41);
  next->AddMethod("TBird.Sing", 31);
  next->SetCurrentClass("TAnt");
  next->SetCurrentProc("Walk");
  Toolbar->UpdateToolBar(*next);
  EXPECT_EQ(Entries(Methods()),
            (QStringList{QStringLiteral("Main 51"), QStringLiteral("TAnt.Walk 41"), QStringLiteral("TBird.Sing 31")}));
  EXPECT_EQ(resets.count(), 0);
  EXPECT_EQ(texts.count(), 0);
  EXPECT_EQ(Methods().lineEdit()->selectedText(), QStringLiteral("al"));
}

TEST_F(QVLocalVars, BringsLinesUpToDateAlsoInAListThatHasTheFocus) {
  Show();
  Toolbar->UpdateToolBar(*AnOutline());
  Focus(Methods());
  Methods().lineEdit()->selectAll();
  QTest::keyClicks(&Methods(), QStringLiteral("TBird.Son"));
  Methods().lineEdit()->setSelection(2, 4);
  const SignalCount resets(Methods().model(), &QAbstractItemModel::modelReset);
  const SignalCount texts(Methods().lineEdit(), &QLineEdit::textChanged);
  const int index = Methods().currentIndex();
  const auto next = std::make_shared<TQVPasInfo>();
  next->AddMethod("Main", 51);
  next->AddMethod("TAnt.Walk", 41);
  next->AddMethod("TBird.Sing", 31);
  Toolbar->UpdateToolBar(*next);
  EXPECT_EQ(Entries(Methods()),
            (QStringList{QStringLiteral("Main 51"), QStringLiteral("TAnt.Walk 41"), QStringLiteral("TBird.Sing 31")}));
  EXPECT_EQ(Methods().currentText(), QStringLiteral("TBird.Son"));
  EXPECT_EQ(Methods().lineEdit()->selectedText(), QStringLiteral("ird."));
  EXPECT_EQ(Methods().currentIndex(), index);
  EXPECT_EQ(resets.count(), 0);
  EXPECT_EQ(texts.count(), 0);
  QTest::keyClick(&Methods(), Qt::Key_Up);
  EXPECT_EQ(View->Cursor, (TOTAEditPos{1, 52})) << "a choice goes to the line of now";
}

TEST_F(QVLocalVars, OpensTheListOfRoutinesAtTheMethodOfTheCaret) {
  Show();
  Toolbar->UpdateToolBar(*AnOutline());
  EXPECT_EQ(Methods().currentText(), QStringLiteral("Walk")) << "without its class";
  Methods().showPopup();
  ASSERT_TRUE(support::waitUntil([this] { return Methods().view()->isVisible(); }));
  EXPECT_EQ(Methods().view()->currentIndex().data().toString(), QStringLiteral("TAnt.Walk"));
  EXPECT_EQ(LogForm.Take(), Lines{});
}

TEST_F(QVLocalVars, OpensTheListOfRoutinesAtTheRoutineOfTheCaretThatHasNoClass) {
  const auto info = AnOutline();
  info->SetCurrentClass({});
  info->SetCurrentProc("Main");
  Toolbar->UpdateToolBar(*info);
  EXPECT_EQ(Methods().itemText(Methods().currentIndex()), QStringLiteral("Main"));
}

TEST_F(QVLocalVars, CursorKeysGoOnFromTheMethodOfTheCaret) {
  Show();
  Toolbar->UpdateToolBar(*AnOutline());
  Focus(Methods());
  QTest::keyClick(&Methods(), Qt::Key_Down);
  EXPECT_EQ(Methods().currentText(), QStringLiteral("TBird.Sing"));
  EXPECT_EQ(View->Cursor, (TOTAEditPos{1, 31}));
}

TEST_F(QVLocalVars, FollowsTheCaretIntoAMethodOfTheSameNameInAnotherClass) {
  const auto info = AnOutline();
  info->AddMethod("TBird.Walk", 60);
  Toolbar->UpdateToolBar(*info);
  const int ofAnt = Methods().currentIndex();
  info->SetCurrentClass("TBird");
  Toolbar->UpdateToolBar(*info);
  EXPECT_EQ(Methods().currentText(), QStringLiteral("Walk"));
  EXPECT_NE(Methods().currentIndex(), ofAnt);
  EXPECT_EQ(Methods().itemText(Methods().currentIndex()), QStringLiteral("TBird.Walk"));
  EXPECT_EQ(LogForm.Take(), Lines{});
}

TEST_F(QVLocalVars, ReplacesAListInOneGoWhenANameDiffers) {
  Toolbar->UpdateToolBar(*AnOutline());
  const SignalCount resets(Methods().model(), &QAbstractItemModel::modelReset);
  const SignalCount inserts(Methods().model(), &QAbstractItemModel::rowsInserted);
  const SignalCount classResets(Classes().model(), &QAbstractItemModel::modelReset);
  const auto next = std::make_shared<TQVPasInfo>();
  for (int index = 0; index < 2000; ++index)
    next->AddMethod("Routine" + std::to_string(index), index);
  next->AddClass("TBird", 7);
  next->AddClass("TAnt", 12);
  Toolbar->UpdateToolBar(*next);
  Toolbar->UpdateToolBar(*next);
  EXPECT_EQ(Methods().count(), 2000);
  EXPECT_EQ(resets.count(), 1);
  EXPECT_EQ(inserts.count(), 0);
  EXPECT_EQ(classResets.count(), 0);
}

TEST_F(QVLocalVars, TakesACaseThatDiffersForAnotherName) {
  Toolbar->UpdateToolBar(*AnOutline());
  const auto next = std::make_shared<TQVPasInfo>();
  next->AddMethod("MAIN", 50);
  next->AddMethod("TAnt.Walk", 40);
  next->AddMethod("TBird.Sing", 30);
  Toolbar->UpdateToolBar(*next);
  EXPECT_EQ(Methods().itemText(0), QStringLiteral("MAIN"));
}

TEST_F(QVLocalVars, ReplacingAListKeepsTheTextAndGoesNowhere) {
  const auto next = AnOutline();
  Toolbar->UpdateToolBar(*next);
  next->AddMethod("Aaa", 1);
  Toolbar->UpdateToolBar(*next);
  EXPECT_EQ(Methods().currentText(), QStringLiteral("Walk"));
  EXPECT_EQ(Methods().currentIndex(), 2) << "the list opens at the routine of the caret";
  EXPECT_EQ(LogForm.Take(), Lines{});
}

TEST_F(QVLocalVars, ShowsNothingWhereThereIsNoClassOrRoutine) {
  const auto info = AnOutline();
  Toolbar->UpdateToolBar(*info);
  info->SetCurrentClass({});
  info->SetCurrentProc({});
  Toolbar->UpdateToolBar(*info);
  EXPECT_EQ(Classes().currentText(), QString());
  EXPECT_EQ(Methods().currentText(), QString());
  EXPECT_EQ(Methods().currentIndex(), -1);
}

// Going to a line by the lists.

TEST_F(QVLocalVars, PickingARoutinePutsItsLineAtTheTopWithTheCaretInColumnOne) {
  Show();
  Toolbar->UpdateToolBar(*AnOutline());
  Focus(Methods());
  View->Cursor = {7, 3};
  Methods().showPopup();
  ASSERT_TRUE(support::waitUntil([this] { return Methods().view()->isVisible(); }));
  QTest::keyClick(Methods().view(), Qt::Key_End);
  QTest::keyClick(Methods().view(), Qt::Key_Return);
  EXPECT_EQ(Methods().currentText(), QStringLiteral("TBird.Sing"));
  EXPECT_EQ(View->Cursor, (TOTAEditPos{1, 31}));
  EXPECT_EQ(View->TopPos, (TOTAEditPos{1, 31}));
  EXPECT_EQ(View->Paints, 1);
  EXPECT_TRUE(support::waitUntil([this] { return Editor().hasFocus(); }));
  EXPECT_EQ(LogForm.Take(), Lines{"Combo Changed"});
}

TEST_F(QVLocalVars, TypingANameGoesThereWhenItIsCompleteInAnyCase) {
  Show();
  Toolbar->UpdateToolBar(*AnOutline());
  Focus(Classes());
  Classes().lineEdit()->selectAll();
  QTest::keyClicks(&Classes(), QStringLiteral("tbir"));
  EXPECT_EQ(View->Cursor, (TOTAEditPos{1, 1}));
  EXPECT_EQ(View->Paints, 0);
  EXPECT_TRUE(Classes().hasFocus());
  EXPECT_EQ(Classes().currentText(), QStringLiteral("tbir")) << "nothing is completed";
  EXPECT_EQ(LogForm.Take(), Lines(4, "Combo Changed"));
  QTest::keyClicks(&Classes(), QStringLiteral("d"));
  EXPECT_EQ(View->Cursor, (TOTAEditPos{1, 8}));
  EXPECT_EQ(View->TopPos, (TOTAEditPos{1, 8}));
  EXPECT_TRUE(Editor().hasFocus());
  EXPECT_EQ(LogForm.Take(), Lines{"Combo Changed"});
}

TEST_F(QVLocalVars, ANameThatBeginsAnotherIsTakenAtOnce) {
  Show();
  TQVPasInfo info;
  info.AddMethod("Main", 50);
  info.AddMethod("MainLoop", 60);
  Toolbar->UpdateToolBar(info);
  Focus(Methods());
  for (const QChar typed : QStringLiteral("MainLoop")) {
    QWidget* const focused = QApplication::focusWidget();
    QTest::keyClicks(focused, QString(typed));
  }
  EXPECT_EQ(Methods().currentText(), QStringLiteral("Main"));
  EXPECT_EQ(View->Cursor, (TOTAEditPos{1, 51}));
  EXPECT_TRUE(Editor().hasFocus()) << "which the rest of the name goes to";
}

TEST_F(QVLocalVars, LeavingAListChoosesNothing) {
  Show();
  Toolbar->UpdateToolBar(*AnOutline());
  Focus(Methods());
  Focus(Editor());
  Focus(Methods());
  QTest::keyClick(&Methods(), Qt::Key_Return);
  EXPECT_EQ(View->Cursor, (TOTAEditPos{1, 1}));
  EXPECT_EQ(LogForm.Take(), Lines{});
}

TEST_F(QVLocalVars, GoesToTheLinesOfTheLatestOutline) {
  Toolbar->UpdateToolBar(*AnOutline());
  const auto next = std::make_shared<TQVPasInfo>();
  next->AddClass("TAnt", 13);
  next->AddClass("TBird", 8);
  next->SetCurrentClass("TBird");
  Toolbar->UpdateToolBar(*next);
  Toolbar->ComboGotoLine(&Classes());
  EXPECT_EQ(View->Cursor, (TOTAEditPos{1, 9}));
}

TEST_F(QVLocalVars, ATextThatNamesNothingGoesNowhereButIsLogged) {
  Toolbar->UpdateToolBar(*AnOutline());
  Toolbar->SetCurrentProc(QStringLiteral("Mai"));
  Toolbar->ComboGotoLine(&Methods());
  EXPECT_EQ(View->Cursor, (TOTAEditPos{1, 1}));
  EXPECT_EQ(View->Paints, 0);
  EXPECT_EQ(LogForm.Take(), Lines{"Combo Changed"});
}

TEST_F(QVLocalVars, GoesToTheFirstLineForAnEntryOfLineZero) {
  View->Cursor = {5, 5};
  Toolbar->AddMethod(QStringLiteral("Main"), 0);
  Toolbar->SetCurrentProc(QStringLiteral("Main"));
  Toolbar->ComboGotoLine(&Methods());
  EXPECT_EQ(View->Cursor, (TOTAEditPos{1, 1}));
}

TEST_F(QVLocalVars, AChoiceWithoutAViewIsReportedToTheApplication) {
  Show();
  Toolbar->UpdateToolBar(*AnOutline());
  Services->TopView = nullptr;
  Focus(Methods());
  QTest::keyClick(&Methods(), Qt::Key_Down);
  const Lines reported = TakeReported();
  ASSERT_EQ(reported.size(), 1U);
  EXPECT_TRUE(reported[0].starts_with("Assertion failure (QVLocalVars")) << reported[0];
}

// Broken contracts.

struct Broken {
  const char* Name;
  unsigned Line;
  void (*Call)(TQVEditorToolbar& toolbar);

  friend void PrintTo(const Broken& broken, std::ostream* out) { *out << broken.Name; }
};

class QVLocalVarsContract : public ToolbarTest, public testing::WithParamInterface<Broken> {};
INSTANTIATE_TEST_SUITE_P(
    All, QVLocalVarsContract,
    testing::Values(
        Broken{"View", 78, [](TQVEditorToolbar&) { GetEditorToolbar(std::shared_ptr<platform::IOTAEditView>()); }},
        Broken{"ViewToUpdate", 78, [](TQVEditorToolbar&) { UpdateViewToolBar(nullptr, AnOutline()); }},
        Broken{"Control", 87, [](TQVEditorToolbar&) { GetEditorToolbar(static_cast<QObject*>(nullptr)); }},
        Broken{"SenderOfALine", 157, [](TQVEditorToolbar& toolbar) { toolbar.ComboGotoLine(nullptr); }},
        Broken{"SenderOfASection", 295, [](TQVEditorToolbar& toolbar) { toolbar.GotoSectionClick(nullptr); }}),
    [](const auto& broken) { return std::string(broken.param.Name); });

TEST_P(QVLocalVarsContract, NamesTheUnitAndTheNumberOfTheCheck) {
  const auto assertion = AssertionOf([this] { GetParam().Call(*Toolbar); });
  EXPECT_EQ(assertion.Text(), "Assertion failure");
  EXPECT_EQ(assertion.Unit(), "QVLocalVars");
  EXPECT_EQ(assertion.Line(), GetParam().Line);
}

// Finding it.

// The actions that open the lists.

platform::TAction& Opener(const fakes::TEditWindow& window, const char* text) {
  for (QAction* const action : window.Actions().Actions()) {
    if (action->text() == QString::fromLatin1(text))
      return dynamic_cast<platform::TAction&>(*action);
  }
  throw std::runtime_error(std::string("no action ") + text);
}

TEST_F(QVLocalVars, OffersItsListsInTheSearchMenuWithTheirKeys) {
  const platform::TAction& types = Opener(Window, "Go to Type...");
  const platform::TAction& routines = Opener(Window, "Go to Routine...");
  EXPECT_EQ(types.Category, QStringLiteral("Search"));
  EXPECT_EQ(routines.Category, QStringLiteral("Search"));
  EXPECT_EQ(types.shortcut().toString(), QStringLiteral("Alt+Up"));
  EXPECT_EQ(routines.shortcut().toString(), QStringLiteral("Alt+Down"));
}

TEST_F(QVLocalVars, ItsActionsOpenTheirLists) {
  Show();
  Toolbar->UpdateToolBar(*AnOutline());
  Opener(Window, "Go to Type...").trigger();
  EXPECT_TRUE(support::waitUntil([this] { return Classes().view()->isVisible(); }));
  Classes().hidePopup();
  Opener(Window, "Go to Routine...").trigger();
  EXPECT_TRUE(support::waitUntil([this] { return Methods().view()->isVisible(); }));
  Methods().hidePopup();
}

TEST_F(QVLocalVars, ItsActionsAreEnabledWhileItIsShown) {
  const platform::TAction& types = Opener(Window, "Go to Type...");
  Toolbar->hide();
  EXPECT_FALSE(types.isEnabled());
  Show();
  EXPECT_TRUE(types.isEnabled());
  Window.hide();
  EXPECT_TRUE(types.isEnabled()) << "it is only its window that cannot be seen";
  Toolbar->hide();
  EXPECT_FALSE(types.isEnabled());
}

TEST_F(QVLocalVars, ItsActionsDoNothingWithoutAView) {
  Show();
  Toolbar->UpdateToolBar(*AnOutline());
  Services->TopView = nullptr;
  Opener(Window, "Go to Type...").trigger();
  support::settle();
  EXPECT_FALSE(Classes().view()->isVisible());
  EXPECT_TRUE(Editor().hasFocus());
}

TEST_F(QVLocalVars, ItsActionsGoWithIt) {
  const qsizetype count = Window.Actions().Actions().size();
  delete Toolbar;
  EXPECT_EQ(Window.Actions().Actions().size(), count - 2);
}

TEST_F(QVLocalVars, EscapeInAListGoesBackToTheTextAndNowhereElse) {
  Show();
  Toolbar->UpdateToolBar(*AnOutline());
  View->Cursor = {7, 9};
  Opener(Window, "Go to Routine...").trigger();
  ASSERT_TRUE(support::waitUntil([this] { return Methods().view()->isVisible(); }));
  QTest::keyClick(Methods().view(), Qt::Key_Down);
  QTest::keyClick(Methods().view(), Qt::Key_Escape);
  EXPECT_TRUE(support::waitUntil([this] { return Editor().hasFocus(); }));
  EXPECT_EQ(Methods().currentText(), QStringLiteral("Walk"));
  EXPECT_EQ(View->Cursor, (TOTAEditPos{7, 9}));
  EXPECT_EQ(View->Paints, 0);
}

TEST_F(QVLocalVars, IsFoundByAViewOfItsForm) {
  EXPECT_EQ(GetEditorToolbar(View), Toolbar);
}

TEST_F(QVLocalVars, IsFoundByAControlOfItsForm) {
  EXPECT_EQ(GetEditorToolbar(&Editor()), Toolbar);
}

TEST_F(QVLocalVars, IsNotFoundWhereThereIsNone) {
  fakes::TEditWindow other(QStringLiteral("EditWindow_1"));
  QObject alone;
  EXPECT_EQ(GetEditorToolbar(&other.Editor()), nullptr);
  EXPECT_EQ(GetEditorToolbar(&alone), nullptr);
  View->Window->Form = nullptr;
  EXPECT_EQ(GetEditorToolbar(View), nullptr);
  View->Window = nullptr;
  EXPECT_EQ(GetEditorToolbar(View), nullptr);
}

TEST_F(QVLocalVars, IsRefreshedByItsView) {
  UpdateViewToolBar(View, AnOutline());
  EXPECT_EQ(Methods().count(), 3);
}

TEST_F(QVLocalVars, AViewWithoutAToolbarIsRefreshedWithoutHarm) {
  delete Toolbar;
  EXPECT_NO_THROW(UpdateViewToolBar(View, AnOutline()));
}

TEST_F(QVLocalVars, ShowsTheOutlineThatItsProxyIsGiven) {
  TQVEditorProxy proxy(&Window);
  const auto info = AnOutline();
  proxy.SetPasInfo(info);
  EXPECT_EQ(proxy.GetPasInfo(), info);
  EXPECT_EQ(Methods().currentText(), QStringLiteral("Walk"));
}

// Showing and hiding all.

TEST_F(QVLocalVars, AllAreShownOnlyWhenTheOptionIsOn) {
  fakes::TEditWindow second(QStringLiteral("EditWindow_1"));
  fakes::TEditWindow without(QStringLiteral("EditWindow_2"));
  auto* const other = new TQVEditorToolbar(&second);
  other->SetParent(&second);
  Toolbar->hide();
  other->hide();
  OptShowNavBar = false;
  ShowNavBars();
  EXPECT_TRUE(Toolbar->isHidden());
  OptShowNavBar = true;
  ShowNavBars();
  EXPECT_FALSE(Toolbar->isHidden());
  EXPECT_FALSE(other->isHidden());
}

TEST_F(QVLocalVars, AllAreHiddenOnlyWhenTheOptionIsOff) {
  fakes::TEditWindow second(QStringLiteral("EditWindow_1"));
  auto* const other = new TQVEditorToolbar(&second);
  other->SetParent(&second);
  Toolbar->show();
  other->show();
  OptShowNavBar = true;
  HideNavBars();
  EXPECT_FALSE(Toolbar->isHidden());
  OptShowNavBar = false;
  HideNavBars();
  EXPECT_TRUE(Toolbar->isHidden());
  EXPECT_TRUE(other->isHidden());
}

TEST_F(QVLocalVars, AToolbarOnAFormThatIsNoEditorIsLeftAlone) {
  fakes::TEditWindow notListed(QStringLiteral("SomeOtherName"));
  auto* const other = new TQVEditorToolbar(&notListed);
  other->SetParent(&notListed);
  other->show();
  OptShowNavBar = false;
  HideNavBars();
  EXPECT_FALSE(other->isHidden());
}

} // namespace
} // namespace quorvane
