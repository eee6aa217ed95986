// SPDX-License-Identifier: MIT
#include "desktop/ui/UiFixture.h"

#include "desktop/ui/PageTabs.h"
#include "platform/Actions.h"
#include "platform/Align.h"
#include "support/SignalCount.h"
#include "support/Wait.h"

#include <QDir>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QToolBar>
#include <QWindow>

namespace desktop {
namespace {

class EditWindowTest : public UiFixture {
protected:
  PageTabs* tabs() const { return window()->findChild<PageTabs*>(); }
  QStringList tabTexts() const {
    QStringList texts;
    for (int index = 0; index < tabs()->count(); ++index)
      texts.append(tabs()->tabText(index));
    return texts;
  }
};

TEST_F(EditWindowTest, ShowsTheTabsOfManyPagesOnceAllAreThere) {
  frame()->show();
  ASSERT_TRUE(QDir(folder_.path()).mkdir(QStringLiteral("sub")));
  {
    const TEditWindow::ManyPages many(window());
    openText(QStringLiteral("a.pas"), "a");
    openText(QStringLiteral("sub/a.pas"), "b");
    EXPECT_FALSE(tabs()->isVisible());
    EXPECT_EQ(tabTexts(), (QStringList{QString(), QString()})) << "none of them has been laid out";
  }
  EXPECT_TRUE(tabs()->isVisible());
  ASSERT_EQ(tabs()->count(), 2);
  EXPECT_TRUE(tabTexts().constLast().startsWith(QStringLiteral("a.pas \u2013 sub")));
  EXPECT_EQ(tabs()->currentPage(), window()->currentPage());
}

TEST_F(EditWindowTest, ShowsTheNamesOfManyPagesWhole) {
  frame()->resize(600, 400);
  frame()->show();
  for (int number = 0; number < 30; ++number)
    openText(QStringLiteral("unit%1.pas").arg(number), "a");
  support::settle();
  for (int index = 0; index < tabs()->count(); ++index)
    EXPECT_GT(tabs()->tabRect(index).width(), tabs()->fontMetrics().horizontalAdvance(tabs()->tabText(index)));
  EXPECT_LE(frame()->width(), 600);
}

TEST_F(EditWindowTest, ScrollsTheTabsToTheOneInFrontOfMany) {
  frame()->resize(600, 400);
  frame()->show();
  {
    const TEditWindow::ManyPages many(window());
    for (int number = 0; number < 30; ++number)
      openText(QStringLiteral("unit%1.pas").arg(number), "a");
  }
  support::settle();
  ASSERT_EQ(tabs()->currentIndex(), 29);
  EXPECT_TRUE(tabs()->rect().contains(tabs()->tabRect(29).center()));
}

TEST_F(EditWindowTest, ShowsNoTabsWhenOfManyPagesNoneIsLeft) {
  frame()->show();
  Page* const page = openText(QStringLiteral("a.pas"), "a");
  {
    const TEditWindow::ManyPages many(window());
    window()->closePage(page);
  }
  EXPECT_FALSE(tabs()->isVisible());
}

TEST_F(EditWindowTest, IsFoundByItsClassNameAndItsNumberedName) {
  EXPECT_EQ(platform::ClassName(*window()), QStringLiteral("TEditWindow"));
  EXPECT_EQ(window()->objectName(), QStringLiteral("EditWindow_0"));
  EXPECT_EQ(workspace.newWindow()->objectName(), QStringLiteral("EditWindow_1"));
}

TEST_F(EditWindowTest, HasTheControlAndTheActionListAmongItsDirectChildren) {
  EXPECT_EQ(platform::FindComponent(*window(), QStringLiteral("Editor")), window()->editor());
  EXPECT_NE(dynamic_cast<platform::TWinControl*>(window()->editor()), nullptr);
  EXPECT_EQ(platform::FindComponent(*window(), QStringLiteral("ActionList1")), window()->actionList());
}

TEST_F(EditWindowTest, IsAFormOfTheScreenWhileItLives) {
  const auto isForm = [](const QWidget* form) {
    const std::vector<QWidget*> forms = platform::Screen().Forms();
    return std::find(forms.begin(), forms.end(), form) != forms.end();
  };
  auto other = std::make_unique<TEditWindow>(QStringLiteral("EditWindow_7"));
  const QWidget* const form = other.get();
  EXPECT_TRUE(isForm(window()));
  EXPECT_TRUE(isForm(form));
  other.reset();
  EXPECT_FALSE(isForm(form));
}

TEST_F(EditWindowTest, ShowsTheTextOfThePageInFront) {
  openText(QStringLiteral("a.pas"), "unit a;\n");
  openText(QStringLiteral("b.pas"), "unit b;\n");
  EXPECT_EQ(editor()->toPlainText(), QStringLiteral("unit b;\n"));
  window()->showPage(window()->pages().constFirst());
  EXPECT_EQ(editor()->toPlainText(), QStringLiteral("unit a;\n"));
}

TEST_F(EditWindowTest, KeepsCaretAndSelectionOfEachPage) {
  Page* const first = openText(QStringLiteral("a.pas"), "begin end.\n");
  select(2, 5);
  Page* const second = openText(QStringLiteral("b.pas"), "begin end.\n");
  select(4, 4);
  window()->showPage(first);
  EXPECT_EQ(editor()->textCursor().anchor(), 2);
  EXPECT_EQ(editor()->textCursor().position(), 5);
  EXPECT_EQ(second->state().caret, 4);
  window()->showPage(second);
  EXPECT_EQ(editor()->textCursor().position(), 4);
  EXPECT_FALSE(editor()->textCursor().hasSelection());
}

TEST_F(EditWindowTest, KeepsTheScrollPositionOfEachPage) {
  frame()->show();
  Page* const first = openText(QStringLiteral("a.pas"), QByteArray("x\n").repeated(1000));
  editor()->setTopLine(500);
  Page* const second = openText(QStringLiteral("b.pas"), QByteArray("y\n").repeated(1000));
  EXPECT_EQ(editor()->topLine(), 1);
  window()->showPage(first);
  EXPECT_EQ(editor()->topLine(), 500);
  window()->showPage(second);
  EXPECT_EQ(editor()->topLine(), 1);
}

TEST_F(EditWindowTest, AStateGivenToAPageBehindComesWithIt) {
  Page* const first = openText(QStringLiteral("a.pas"), "begin end.\n");
  openText(QStringLiteral("b.pas"), "begin end.\n");
  EditState state;
  state.caret = state.anchor = 6;
  first->setState(state);
  EXPECT_EQ(editor()->textCursor().position(), 0);
  window()->showPage(first);
  EXPECT_EQ(editor()->textCursor().position(), 6);
}

TEST_F(EditWindowTest, ANewPageOpensRightOfTheOneInFront) {
  Page* const first = openText(QStringLiteral("a.pas"), "");
  openText(QStringLiteral("b.pas"), "");
  window()->showPage(first);
  openText(QStringLiteral("c.pas"), "");
  EXPECT_EQ(tabTexts(), (QStringList{QStringLiteral("a.pas"), QStringLiteral("c.pas"), QStringLiteral("b.pas")}));
}

TEST_F(EditWindowTest, ClosingThePageInFrontShowsItsRightNeighbour) {
  openText(QStringLiteral("a.pas"), "");
  Page* const middle = openText(QStringLiteral("b.pas"), "");
  Page* const last = openText(QStringLiteral("c.pas"), "");
  window()->showPage(middle);
  window()->closePage(middle);
  EXPECT_EQ(window()->currentPage(), last);
}

TEST_F(EditWindowTest, ClosingTheLastTabShowsItsLeftNeighbour) {
  Page* const first = openText(QStringLiteral("a.pas"), "a");
  Page* const last = openText(QStringLiteral("b.pas"), "b");
  window()->closePage(last);
  EXPECT_EQ(window()->currentPage(), first);
  EXPECT_EQ(editor()->toPlainText(), QStringLiteral("a"));
}

TEST_F(EditWindowTest, ClosingAPageBehindLeavesTheOneInFrontAlone) {
  Page* const first = openText(QStringLiteral("a.pas"), "a");
  Page* const last = openText(QStringLiteral("b.pas"), "b");
  const support::SignalCount changes(window(), &TEditWindow::currentPageChanged);
  window()->closePage(first);
  EXPECT_EQ(window()->currentPage(), last);
  EXPECT_EQ(changes.count(), 0);
}

TEST_F(EditWindowTest, WithoutAPageAHintStandsInPlaceOfTheEditor) {
  frame()->show();
  Page* const page = openText(QStringLiteral("a.pas"), "a");
  QWidget* const hint = window()->findChild<QWidget*>(QStringLiteral("EmptyHint"));
  EXPECT_FALSE(hint->isVisible());
  window()->closePage(page);
  EXPECT_EQ(window()->currentPage(), nullptr);
  EXPECT_FALSE(editor()->isVisible());
  EXPECT_TRUE(editor()->toPlainText().isEmpty());
  EXPECT_TRUE(hint->isVisible());
  workspace.newFile();
  EXPECT_TRUE(editor()->isVisible());
  EXPECT_FALSE(hint->isVisible());
}

TEST_F(EditWindowTest, TellsThatAPageWillCloseWhileThePageIsWhole) {
  Page* const page = openText(QStringLiteral("a.pas"), "text");
  QString seen;
  QObject::connect(window(), &TEditWindow::pageAboutToClose,
                   [&seen](Page* closing) { seen = closing->title() + closing->document()->toPlainText(); });
  window()->closePage(page);
  EXPECT_EQ(seen, QStringLiteral("a.pastext"));
}

TEST_F(EditWindowTest, AWindowThatGoesClosesItsPagesFirst) {
  auto other = std::make_unique<TEditWindow>(QStringLiteral("EditWindow_9"));
  other->addPage(std::make_unique<SourceDocument>(path(QStringLiteral("a.pas")), true));
  other->addPage(std::make_unique<SourceDocument>(path(QStringLiteral("b.pas")), true));
  const support::SignalCount closing(other.get(), &TEditWindow::pageAboutToClose);
  other.reset();
  EXPECT_EQ(closing.count(), 2);
}

TEST_F(EditWindowTest, MarksModifiedPagesOnTheirTabs) {
  openText(QStringLiteral("a.pas"), "");
  type(QStringLiteral("x"));
  EXPECT_EQ(tabTexts(), QStringList{QStringLiteral("a.pas \u2022")});
  editor()->undo();
  EXPECT_EQ(tabTexts(), QStringList{QStringLiteral("a.pas")});
}

TEST_F(EditWindowTest, TheCloseButtonOfATabClosesItsPage) {
  openText(QStringLiteral("a.pas"), "");
  Page* const second = openText(QStringLiteral("b.pas"), "");
  qobject_cast<QAbstractButton*>(tabs()->tabButton(0, QTabBar::RightSide))->click();
  EXPECT_EQ(window()->pages(), QList<Page*>{second});
}

TEST_F(EditWindowTest, AMiddleClickOnATabClosesItsPage) {
  Page* const first = openText(QStringLiteral("a.pas"), "");
  openText(QStringLiteral("b.pas"), "");
  frame()->show();
  support::settle();
  const QPointF place = tabs()->tabRect(1).center();
  QMouseEvent press(QEvent::MouseButtonPress, place, tabs()->mapToGlobal(place), Qt::MiddleButton, Qt::MiddleButton,
                    Qt::NoModifier);
  QMouseEvent release(QEvent::MouseButtonRelease, place, tabs()->mapToGlobal(place), Qt::MiddleButton, Qt::NoButton,
                      Qt::NoModifier);
  QCoreApplication::sendEvent(tabs(), &press);
  QCoreApplication::sendEvent(tabs(), &release);
  EXPECT_EQ(window()->pages(), QList<Page*>{first});
}

TEST_F(EditWindowTest, TabsTellTheWholePath) {
  openText(QStringLiteral("a.pas"), "");
  EXPECT_EQ(tabs()->tabToolTip(0), path(QStringLiteral("a.pas")));
}

TEST_F(EditWindowTest, TabsOfTheSameNameAreToldApartByTheirFolders) {
  ASSERT_TRUE(QDir(folder_.path()).mkdir(QStringLiteral("one")));
  ASSERT_TRUE(QDir(folder_.path()).mkdir(QStringLiteral("two")));
  openText(QStringLiteral("one/a.pas"), "");
  Page* const other = openText(QStringLiteral("two/a.pas"), "");
  EXPECT_EQ(tabTexts(), (QStringList{QStringLiteral("a.pas \u2013 one"), QStringLiteral("a.pas \u2013 two")}));
  window()->closePage(other);
  EXPECT_EQ(tabTexts(), QStringList{QStringLiteral("a.pas")});
}

TEST_F(EditWindowTest, ATabNameShowsItsAmpersand) {
  openText(QStringLiteral("a&b.pas"), "");
  EXPECT_EQ(tabTexts(), QStringList{QStringLiteral("a&&b.pas")});
}

TEST_F(EditWindowTest, ATextThatCannotBeGivenBackIsReadOnlyAndTheStatusBarSaysWhy) {
  Page* const page = openText(QStringLiteral("a.pas"), "a\xE2\x80\xA9z");
  ASSERT_TRUE(page->document()->isReadOnlyText());
  EXPECT_TRUE(editor()->isReadOnly());
  EXPECT_EQ(status(QStringLiteral("ModifiedState")), QStringLiteral("Read only"));
  EXPECT_EQ(status(QStringLiteral("Remark")), page->document()->readOnlyReason());
  openText(QStringLiteral("b.pas"), "");
  EXPECT_FALSE(editor()->isReadOnly());
  EXPECT_EQ(status(QStringLiteral("Remark")), QString());
}

TEST_F(EditWindowTest, OnlyPascalEndingsAreShownAsPascal) {
  for (const char* name : {"a.pas", "a.PAS", "a.pp", "a.dpr", "a.dpk", "a.lpr", "a.inc"})
    EXPECT_TRUE(openText(QString::fromLatin1(name), "")->isPascal()) << name;
  for (const char* name : {"a.txt", "pas", "a.pas.bak", "Makefile"})
    EXPECT_FALSE(openText(QString::fromLatin1(name), "")->isPascal()) << name;
}

TEST_F(EditWindowTest, AToolBarAtTheEditorsTopLiesBetweenTabsAndEditor) {
  frame()->show();
  openText(QStringLiteral("a.pas"), "");
  support::settle();
  auto* const bar = new QToolBar(window());
  bar->addAction(QStringLiteral("Units"));
  platform::SetAlign(*bar, platform::TAlign::alTop);
  bar->move(0, editor()->y());
  bar->show();
  support::settle();
  EXPECT_EQ(bar->y(), tabs()->height());
  EXPECT_EQ(editor()->y(), bar->y() + bar->height());
  EXPECT_EQ(bar->width(), window()->width());
}

TEST_F(EditWindowTest, AGutterAtTheLeftLiesBesideTheEditorOnly) {
  frame()->show();
  openText(QStringLiteral("a.pas"), "");
  auto* const gutter = new QWidget(window());
  gutter->setFixedWidth(35);
  platform::SetAlign(*gutter, platform::TAlign::alLeft);
  gutter->move(editor()->x(), 0);
  gutter->show();
  support::settle();
  EXPECT_EQ(gutter->geometry(), QRect(0, editor()->y(), 35, editor()->height()));
  EXPECT_EQ(editor()->x(), 35);
}

TEST_F(EditWindowTest, WithoutAPageWhatAddInsPutThereIsOffAndHasNoFocus) {
  openText(QStringLiteral("a.pas"), "a");
  auto* const bar = new QToolBar(window());
  auto* const field = new QLineEdit;
  bar->addWidget(field);
  SetAlign(*bar, platform::TAlign::alTop);
  frame()->show();
  bar->show();
  ASSERT_TRUE(bar->isEnabled());
  window()->editor()->setFocus();
  window()->closePage(window()->currentPage());
  EXPECT_FALSE(bar->isEnabled());
  EXPECT_NE(frame()->focusWidget(), field);
  openText(QStringLiteral("b.pas"), "b");
  EXPECT_TRUE(bar->isEnabled());
}

TEST_F(EditWindowTest, WhatAddInsPutThereWithoutAPageIsOffUntilThereIsOne) {
  frame()->show();
  while (window()->currentPage() != nullptr)
    window()->closePage(window()->currentPage());
  auto* const bar = new QToolBar(window());
  bar->show();
  ASSERT_TRUE(support::waitUntil([&] { return !bar->isEnabled(); }));
  openText(QStringLiteral("a.pas"), "a");
  EXPECT_TRUE(bar->isEnabled());
}

TEST_F(EditWindowTest, TheActionListFiresItsShortcutsInItsWindow) {
  openText(QStringLiteral("a.pas"), "");
  activate(window());
  int fired = 0;
  platform::TAction action(window());
  action.OnExecute = [&fired] { ++fired; };
  action.SetShortCut(platform::scCtrl | platform::scAlt | 'K');
  window()->actionList()->Add(&action);
  QKeyEvent press(QEvent::KeyPress, Qt::Key_K, Qt::ControlModifier | Qt::AltModifier);
  QKeyEvent release(QEvent::KeyRelease, Qt::Key_K, Qt::ControlModifier | Qt::AltModifier);
  QCoreApplication::sendEvent(frame()->windowHandle(), &press);
  QCoreApplication::sendEvent(frame()->windowHandle(), &release);
  support::settle();
  EXPECT_EQ(fired, 1);
}

TEST_F(EditWindowTest, TheStatusBarFollowsTheCaret) {
  openText(QStringLiteral("a.pas"), "begin\n\tend.\n");
  EXPECT_EQ(status(QStringLiteral("CaretPosition")), QStringLiteral("Line 1, Column 1"));
  editor()->setCaret(2, 9);
  EXPECT_EQ(status(QStringLiteral("CaretPosition")), QStringLiteral("Line 2, Column 9"));
}

TEST_F(EditWindowTest, TheStatusBarTellsModifiedInsertEncodingAndLineEnds) {
  openText(QStringLiteral("a.pas"), "a\r\nb\xE4\r\n");
  EXPECT_EQ(status(QStringLiteral("ModifiedState")), QString());
  EXPECT_EQ(status(QStringLiteral("InsertState")), QStringLiteral("Insert"));
  EXPECT_EQ(status(QStringLiteral("Encoding")), QStringLiteral("windows-1252"));
  EXPECT_EQ(status(QStringLiteral("LineEnds")), QStringLiteral("CR LF"));
  type(QStringLiteral("x"));
  editor()->setInsertMode(false);
  EXPECT_EQ(status(QStringLiteral("ModifiedState")), QStringLiteral("Modified"));
  EXPECT_EQ(status(QStringLiteral("InsertState")), QStringLiteral("Overwrite"));
}

TEST_F(EditWindowTest, TheStatusBarTellsMixedLineEnds) {
  openText(QStringLiteral("a.pas"), "a\nb\r\nc\n");
  EXPECT_EQ(status(QStringLiteral("LineEnds")), QStringLiteral("Mixed (LF)"));
}

} // namespace
} // namespace desktop
