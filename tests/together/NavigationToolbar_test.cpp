// SPDX-License-Identifier: MIT
// The navigation toolbar in the windows of the real host, fed by the real parse thread.
#include "TogetherFixture.h"

#include "analysis/QVParseThread.h"
#include "support/PascalUnits.h"
#include "toolbar/QVEditorToolbar.h"
#include "toolbar/QVLocalVars.h"
#include "toolbar/QVNameCombo.h"

#include <QAbstractItemView>
#include <QDir>
#include <QLineEdit>
#include <QToolButton>

#include <string>

namespace together {
namespace {

using desktop::TEditWindow;
using quorvane::TQVEditorToolbar;
using quorvane::TQVNameCombo;

// A unit with room between its routines, so that a view can be scrolled to each.
QByteArray aUnit() {
  const QByteArray room(60, '\n');
  return "unit unit1;\n"
         "interface\n"
         "uses helper, missing;\n"
         "type\n"
         "  TAnt = class\n"
         "    procedure Walk;\n"
         "  end;\n" +
         room +
         "implementation\n"
         "procedure TAnt.Walk;\n"
         "begin\n"
         "end;\n" +
         room +
         "procedure Rest;\n"
         "begin\n"
         "end;\n" +
         room + "end.\n";
}

// Counts the paints of a widget and of all within it.
class PaintCount : public QObject {
public:
  explicit PaintCount(QWidget& widget) {
    widget.installEventFilter(this);
    for (QWidget* part : widget.findChildren<QWidget*>())
      part->installEventFilter(this);
  }
  int count = 0;

protected:
  bool eventFilter(QObject*, QEvent* event) override {
    count += event->type() == QEvent::Paint;
    return false;
  }
};

class NavigationToolbar : public TogetherFixture {
protected:
  ~NavigationToolbar() override {
    quorvane::StopQVParseThread();
    quorvane::StopEditorToolbar();
  }

  void openParsed(const QByteArray& bytes) {
    openWithAddIn(bytes);
    quorvane::RegisterEditorToolbar();
    quorvane::StartQVParseThread();
    support::settle();
  }

  TQVEditorToolbar& toolbar(const TEditWindow* of) const { return *quorvane::GetEditorToolbar(of->editor()); }
  template <class TControl> TControl& control(const char* name) const {
    return *toolbar(window()).findChild<TControl*>(QString::fromLatin1(name));
  }
  TQVNameCombo& methods() const { return control<TQVNameCombo>("Methods"); }
  TQVNameCombo& classes() const { return control<TQVNameCombo>("Classes"); }
  QMenu& menu(const char* button) const { return *control<QToolButton>(button).menu(); }

  // Waits until the list shows this text, which the thread brings.
  static bool comesTo(const TQVNameCombo& combo, const char* text) {
    return support::waitUntil([&] { return combo.currentText() == QString::fromLatin1(text); });
  }
  // Waits until so many further outlines have come.
  bool comeOutlines(int count) {
    const auto* const proxy = quorvane::TQVEditorProxy::GetProxy(*window());
    auto last = proxy->GetPasInfo();
    return support::waitUntil([&] {
      auto now = proxy->GetPasInfo();
      count -= now != last;
      last = std::move(now); // held, so that no later outline can come to its address
      return count <= 0;
    });
  }
  static bool choose(QMenu& menu, const char* caption) {
    for (QAction* action : menu.actions()) {
      if (action->text() == QString::fromLatin1(caption)) {
        action->trigger();
        return true;
      }
    }
    return false;
  }
  bool hasMenus() {
    return support::waitUntil([this] { return !menu("UsedUnits").isEmpty(); });
  }

  // The row of the first text that begins with `start`, from 1.
  int rowOf(const char* start, int from = 1) const {
    const QStringList rows = editor()->toPlainText().split(u'\n');
    for (int row = from; row <= rows.size(); ++row) {
      if (rows.at(row - 1).startsWith(QString::fromLatin1(start)))
        return row;
    }
    return 0;
  }
  int caretRow() const { return editor()->property("CaretY").toInt(); }
  int topRow() const { return editor()->property("TopLine").toInt(); }
};

TEST_F(NavigationToolbar, ListsTheTypesAndRoutinesOfARealUnit) {
  const std::filesystem::path unit = "/usr/share/fpcsrc/3.2.2/packages/fcl-base/src/custapp.pp";
  if (!std::filesystem::exists(unit))
    GTEST_SKIP() << support::NoPascalUnits;
  openParsed(QByteArray::fromStdString(support::ReadFile(unit)));
  ASSERT_TRUE(support::waitUntil([this] { return methods().count() > 0; }));
  EXPECT_GE(classes().Names().IndexOf(QStringLiteral("TCustomApplication")), 0);
  const int index = methods().Names().IndexOf(QStringLiteral("TCustomApplication.Terminate"));
  ASSERT_GE(index, 0);
  EXPECT_EQ(methods().Names().LineAt(index) + 1, rowOf("procedure TCustomApplication.Terminate"));

  putCaret(methods().Names().LineAt(index) + 3, 1);
  EXPECT_TRUE(comesTo(classes(), "TCustomApplication"));
  EXPECT_TRUE(comesTo(methods(), "Terminate"));
}

TEST_F(NavigationToolbar, FollowsTheCaret) {
  openParsed(aUnit());
  putCaret(rowOf("procedure TAnt.Walk") + 1, 1);
  EXPECT_TRUE(comesTo(methods(), "Walk"));
  EXPECT_TRUE(comesTo(classes(), "TAnt"));
  putCaret(rowOf("procedure Rest") + 1, 1);
  EXPECT_TRUE(comesTo(methods(), "Rest"));
  EXPECT_TRUE(comesTo(classes(), ""));
}

TEST_F(NavigationToolbar, TheListOfRoutinesOpensAtTheMethodOfTheCaret) {
  openParsed(aUnit());
  putCaret(rowOf("procedure TAnt.Walk") + 1, 1);
  ASSERT_TRUE(comesTo(methods(), "Walk"));
  methods().showPopup();
  ASSERT_TRUE(support::waitUntil([this] { return methods().view()->isVisible(); }));
  EXPECT_EQ(methods().view()->currentIndex().data().toString(), QStringLiteral("TAnt.Walk"));
  methods().hidePopup();
}

TEST_F(NavigationToolbar, WhileAListHasTheFocusTheEditMenuIsForItsText) {
  openParsed(aUnit());
  ASSERT_TRUE(support::waitUntil([this] { return methods().count() == 2; }));
  methods().setFocus();
  ASSERT_TRUE(support::waitUntil([this] { return methods().hasFocus(); }));
  QTest::keyClicks(&methods(), QStringLiteral("needle"));
  action(QStringLiteral("EditSelectAllCommand"))->trigger();
  EXPECT_EQ(methods().lineEdit()->selectedText(), QStringLiteral("needle"));
  EXPECT_FALSE(editor()->textCursor().hasSelection());
}

TEST_F(NavigationToolbar, ChoosingARoutinePutsItsLineAtTheTopAndTheKeyboardIntoTheText) {
  openParsed(aUnit());
  ASSERT_TRUE(support::waitUntil([this] { return methods().count() == 2; }));
  methods().setFocus();
  methods().showPopup();
  ASSERT_TRUE(support::waitUntil([this] { return methods().view()->isVisible(); }));
  QTest::keyClick(methods().view(), Qt::Key_Home);
  QTest::keyClick(methods().view(), Qt::Key_Return);
  const int row = rowOf("procedure Rest");
  EXPECT_EQ(caretRow(), row);
  EXPECT_EQ(editor()->property("CaretX").toInt(), 1);
  EXPECT_EQ(topRow(), row);
  EXPECT_TRUE(support::waitUntil([this] { return editor()->hasFocus(); }));
  EXPECT_TRUE(comeOutlines(3));
  EXPECT_EQ(methods().currentText(), QStringLiteral("Rest"));
}

TEST_F(NavigationToolbar, AltDownAndEnterGoToARoutineFromTheText) {
  openParsed(aUnit());
  ASSERT_TRUE(support::waitUntil([this] { return methods().count() == 2; }));
  QTest::keyClick(editor(), Qt::Key_Down, Qt::AltModifier);
  ASSERT_TRUE(support::waitUntil([this] { return methods().view()->isVisible(); }));
  QTest::keyClick(methods().view(), Qt::Key_End);
  QTest::keyClick(methods().view(), Qt::Key_Return);
  EXPECT_EQ(caretRow(), rowOf("procedure TAnt.Walk"));
  EXPECT_TRUE(support::waitUntil([this] { return editor()->hasFocus(); }));
}

TEST_F(NavigationToolbar, AltUpAndEscapeComeBackToTheTextWithNothingChanged) {
  openParsed(aUnit());
  ASSERT_TRUE(support::waitUntil([this] { return classes().count() == 1; }));
  const int row = rowOf("procedure TAnt.Walk") + 1;
  putCaret(row, 3);
  ASSERT_TRUE(comesTo(classes(), "TAnt"));
  const QString text = editor()->toPlainText();
  QTest::keyClick(editor(), Qt::Key_Up, Qt::AltModifier);
  ASSERT_TRUE(support::waitUntil([this] { return classes().view()->isVisible(); }));
  QTest::keyClick(classes().view(), Qt::Key_Escape);
  EXPECT_TRUE(support::waitUntil([this] { return editor()->hasFocus(); }));
  EXPECT_EQ(caretRow(), row);
  EXPECT_EQ(editor()->property("CaretX").toInt(), 3);
  EXPECT_EQ(classes().currentText(), QStringLiteral("TAnt"));
  EXPECT_EQ(editor()->toPlainText(), text);
}

TEST_F(NavigationToolbar, ChoosingASectionPutsItsLineAtTheTop) {
  openParsed(aUnit());
  ASSERT_TRUE(hasMenus());
  ASSERT_TRUE(choose(menu("Sections"), "Implementation Section"));
  EXPECT_EQ(caretRow(), rowOf("implementation"));
  EXPECT_EQ(topRow(), rowOf("implementation"));
}

TEST_F(NavigationToolbar, EndOfFileScrollsOnlyAsFarAsTheCaretNeeds) {
  openParsed(aUnit());
  ASSERT_TRUE(hasMenus());
  ASSERT_TRUE(choose(menu("Sections"), "End Of File"));
  const int lines = editor()->property("LineCount").toInt();
  EXPECT_EQ(caretRow(), lines);
  EXPECT_EQ(topRow() + editor()->property("LinesInWindow").toInt() - 2, lines) << "in the last whole line of the view";
  ASSERT_TRUE(choose(menu("Sections"), "Top Of File"));
  EXPECT_EQ(caretRow(), 1);
  EXPECT_EQ(topRow(), 1);
}

TEST_F(NavigationToolbar, WhatIsTypedIntoAListOutlivesTheOutlinesThatCome) {
  openParsed(aUnit());
  ASSERT_TRUE(comesTo(methods(), "") && support::waitUntil([this] { return methods().count() == 2; }));
  methods().setFocus();
  ASSERT_TRUE(support::waitUntil([this] { return methods().hasFocus(); }));
  QTest::keyClicks(&methods(), QStringLiteral("TAnt.W"));
  ASSERT_TRUE(comeOutlines(3));
  EXPECT_EQ(methods().currentText(), QStringLiteral("TAnt.W"));
  QTest::keyClicks(&methods(), QStringLiteral("alk"));
  EXPECT_EQ(caretRow(), rowOf("procedure TAnt.Walk"));
  EXPECT_TRUE(editor()->hasFocus());
}

TEST_F(NavigationToolbar, OutlinesThatTellNothingNewCauseNoPaints) {
  openParsed(aUnit());
  ASSERT_TRUE(hasMenus());
  ASSERT_TRUE(comeOutlines(2));
  support::settle();
  forgetHostPaints();
  const PaintCount paints(toolbar(window()));
  ASSERT_TRUE(comeOutlines(20));
  EXPECT_EQ(hostPaints(), 0);
  EXPECT_EQ(paints.count, 0);
}

TEST_F(NavigationToolbar, OpensAUsedUnitFromBesideTheFile) {
  openParsed(aUnit());
  write(QStringLiteral("Helper.PP"), "unit helper;\n");
  ASSERT_TRUE(hasMenus());
  ASSERT_TRUE(choose(menu("UsedUnits"), "helper"));
  ASSERT_NE(window()->currentPage(), nullptr);
  EXPECT_EQ(window()->pages().size(), 2);
  EXPECT_TRUE(window()->currentPage()->document()->fileName().endsWith(QStringLiteral("/Helper.PP")));
}

TEST_F(NavigationToolbar, BringsAUsedUnitToTheFrontThatIsOpen) {
  openParsed(aUnit());
  ASSERT_TRUE(hasMenus());
  desktop::Page* const unit = window()->currentPage();
  desktop::Page* const helper = workspace.openFile(write(QStringLiteral("helper.pas"), "unit helper;\n"));
  window()->showPage(unit);
  ASSERT_TRUE(choose(menu("UsedUnits"), "helper"));
  EXPECT_EQ(window()->currentPage(), helper);
  EXPECT_EQ(window()->pages().size(), 2);
}

TEST_F(NavigationToolbar, BringsAUsedUnitToTheFrontThatIsOpenInAnotherWindow) {
  openParsed(aUnit());
  ASSERT_TRUE(hasMenus());
  TEditWindow* const second = workspace.newWindow();
  activate(second);
  desktop::Page* const helper = workspace.openFile(write(QStringLiteral("helper.pas"), "unit helper;\n"));
  desktop::Page* const other = workspace.openFile(write(QStringLiteral("other.pas"), "unit other;\n"));
  ASSERT_EQ(second->currentPage(), other);
  activate(window());
  ASSERT_TRUE(choose(menu("UsedUnits"), "helper"));
  EXPECT_EQ(second->currentPage(), helper);
  EXPECT_EQ(window()->pages().size(), 1) << "it is open once";
  EXPECT_TRUE(support::waitUntil([&] { return workspace.topWindow() == second; }));
}

TEST_F(NavigationToolbar, TellsWhereAUnitWasLookedForThatIsNotThere) {
  openParsed(aUnit());
  ASSERT_TRUE(hasMenus());
  ASSERT_TRUE(choose(menu("UsedUnits"), "missing"));
  ASSERT_EQ(messages().size(), 1);
  EXPECT_TRUE(messages().constFirst().contains(QStringLiteral("Unit missing was not found")));
  EXPECT_TRUE(messages().constFirst().contains(QFileInfo(path(QStringLiteral("x"))).absolutePath()));
  EXPECT_EQ(window()->pages().size(), 1);
}

TEST_F(NavigationToolbar, EachWindowShowsItsOwnUnit) {
  openParsed(aUnit());
  putCaret(rowOf("procedure Rest") + 1, 1);
  ASSERT_TRUE(comesTo(methods(), "Rest"));
  TEditWindow* const second = workspace.newWindow();
  activate(second);
  ASSERT_NE(workspace.openFile(write(QStringLiteral("second.pas"), "unit second;\ninterface\nimplementation\n"
                                                                   "procedure Other;\nbegin\nend;\nend.\n")),
            nullptr);
  second->editor()->setCaret(5, 1);
  const auto& others = *toolbar(second).findChild<TQVNameCombo*>(QStringLiteral("Methods"));
  EXPECT_TRUE(comesTo(others, "Other"));
  EXPECT_EQ(methods().currentText(), QStringLiteral("Rest"));
  EXPECT_EQ(methods().count(), 2);
}

TEST_F(NavigationToolbar, KeepsTheLastOutlineWhileATextThatIsNoPascalIsOnTop) {
  openParsed(aUnit());
  ASSERT_TRUE(support::waitUntil([this] { return methods().count() == 2; }));
  desktop::Page* const unit = window()->currentPage();
  ASSERT_NE(workspace.openFile(write(QStringLiteral("notes.txt"), "procedure Notes;\n")), nullptr);
  support::settle();
  EXPECT_EQ(methods().count(), 2);
  window()->showPage(unit);
  putCaret(rowOf("procedure Rest") + 1, 1);
  EXPECT_TRUE(comesTo(methods(), "Rest"));
}

TEST_F(NavigationToolbar, TheListOfItsRoutinesClosesWithTheLastFile) {
  openParsed(aUnit());
  ASSERT_TRUE(support::waitUntil([this] { return methods().count() == 2; }));
  methods().showPopup();
  ASSERT_TRUE(support::waitUntil([this] { return methods().view()->isVisible(); }));
  window()->closePage(window()->currentPage());
  EXPECT_TRUE(support::waitUntil([this] { return !methods().view()->isVisible(); }));
  EXPECT_FALSE(methods().isEnabled());
  EXPECT_EQ(services->GetTopView(), nullptr);
}

TEST_F(NavigationToolbar, HoldsAUnitOfTwentyThousandRoutines) {
  QByteArray unit = "unit unit1;\ninterface\nimplementation\n";
  for (int index = 0; index < 20000; ++index)
    unit += "procedure R" + QByteArray::number(index) + ";begin end;\n";
  openParsed(unit + "end.\n");
  EXPECT_TRUE(support::waitUntil([this] { return methods().count() == 20000; }));
  methods().showPopup();
  EXPECT_TRUE(support::waitUntil([this] { return methods().view()->isVisible(); }));
  methods().hidePopup();
}

} // namespace
} // namespace together
