// SPDX-License-Identifier: MIT
// How the template editor looks, and what the keyboard does in it.
#include "settings/TemplateEditorFixture.h"

#include "host/QVImages.h"

#include <QAccessible>
#include <QFontMetricsF>
#include <QLabel>
#include <QSplitter>
#include <QToolBar>
#include <QToolButton>

namespace quorvane {
namespace {

class QVTemplateEditorLayout : public TemplateEditorTest {
protected:
  // Shows the dialog and waits until it has the keyboard.
  void ShowActive(const std::function<void()>& act) {
    Show([&] {
      Activate();
      act();
    });
  }
  static void Activate() {
    QVTemplateEditorForm->activateWindow();
    ASSERT_TRUE(support::waitUntil([] { return QVTemplateEditorForm->isActiveWindow(); }));
  }
  static QString Focused() {
    const QWidget* const focus = QApplication::focusWidget();
    return focus ? focus->objectName() : QString();
  }
  static void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    Activate(); // again, after a question
    QTest::keyClick(QApplication::focusWidget(), key, modifiers);
  }
};

TEST_F(QVTemplateEditorLayout, HasItsCaptionAndClientSize) {
  Start();
  Show([] {
    EXPECT_EQ(QVTemplateEditorForm->windowTitle(), QStringLiteral("Code Template Editor"));
    EXPECT_EQ(QVTemplateEditorForm->width(), 531);
    EXPECT_EQ(QVTemplateEditorForm->height(), 313);
  });
}

TEST_F(QVTemplateEditorLayout, KeepsTheSizeThatTheUserGivesIt) {
  Start();
  Show([] { QVTemplateEditorForm->resize(800, 500); });
  Show([] {
    EXPECT_EQ(QVTemplateEditorForm->width(), 800);
    EXPECT_EQ(QVTemplateEditorForm->height(), 500);
    EXPECT_EQ(List().width(), 153) << "the memo takes what is gained";
  });
}

TEST_F(QVTemplateEditorLayout, ListIsLeftOfTheMemoWithASplitterBetween) {
  Start();
  Show([] {
    EXPECT_EQ(List().width(), 153);
    const auto* const splitter = qobject_cast<QSplitter*>(List().parentWidget());
    ASSERT_NE(splitter, nullptr);
    EXPECT_EQ(splitter->orientation(), Qt::Horizontal);
    EXPECT_EQ(splitter->indexOf(&List()), 0);
    EXPECT_EQ(splitter->indexOf(&Memo()), 1);
    EXPECT_EQ(splitter->count(), 2);
    EXPECT_EQ(splitter->width(), QVTemplateEditorForm->width());
  });
}

TEST_F(QVTemplateEditorLayout, ListAndMemoHaveAFixedFont) {
  Start();
  for (const QWidget* widget : {static_cast<QWidget*>(&List()), static_cast<QWidget*>(&Memo())}) {
    EXPECT_EQ(widget->font().family(), QStringLiteral("Courier New"));
    // Not every font that is one says so of itself.
    const QFontMetricsF metrics(widget->font());
    EXPECT_EQ(metrics.horizontalAdvance(u'i'), metrics.horizontalAdvance(u'W'));
    EXPECT_EQ(widget->font().pointSizeF(), QApplication::font().pointSizeF());
  }
}

TEST_F(QVTemplateEditorLayout, TextIsNotWrapped) {
  Start();
  EXPECT_EQ(Memo().lineWrapMode(), QPlainTextEdit::NoWrap);
}

TEST_F(QVTemplateEditorLayout, ToolBarHasItsButtonsWithHintsAndImages) {
  Start();
  const std::tuple<const char*, const char*, TQVImageIndex> buttons[] = {
      {"AddTemplateBtn", "Create New Template", qvAddTemplateImage},
      {"DeleteTemplateBtn", "Delete Template", qvDeleteTemplateImage},
      {"TemplateRenameBtn", "Rename Template", qvRenameTemplateImage},
  };
  auto& bar = *QVTemplateEditorForm->findChild<QToolBar*>();
  for (const auto& [name, hint, image] : buttons) {
    const auto& button = Control<QToolButton>(name);
    EXPECT_EQ(button.parentWidget(), &bar);
    EXPECT_EQ(button.toolTip(), QLatin1StringView(hint));
    EXPECT_EQ(button.icon().pixmap(16).toImage(), Images(image).pixmap(16).toImage()) << name;
  }
  Show([&] {
    Asked([] { Click("AddTemplateBtn"); }, {QStringLiteral("a")});
    EXPECT_TRUE(support::waitUntil([&] {
      const QList<QToolButton*> all = bar.findChildren<QToolButton*>();
      return std::ranges::count_if(all, &QToolButton::isVisible) == 3;
    }));
  });
}

TEST_F(QVTemplateEditorLayout, ButtonsBelowEndTheDialogWithTheirResults) {
  Start();
  EXPECT_EQ(Button("OKBtn").text(), QStringLiteral("OK"));
  EXPECT_EQ(Button("CancelBtn").text(), QStringLiteral("Cancel"));
  EXPECT_EQ(Show([] { Click("OKBtn"); }), 1);
  EXPECT_EQ(QVTemplateEditorForm->result(), 1);
  EXPECT_EQ(Show([] { Click("CancelBtn"); }), 2);
  EXPECT_EQ(QVTemplateEditorForm->result(), 2);
}

TEST_F(QVTemplateEditorLayout, EveryControlHasANameForThoseWhoCannotSeeIt) {
  Start();
  for (const char* name : {"AddTemplateBtn", "DeleteTemplateBtn", "TemplateRenameBtn", "AddExamplesBtn", "TemplateList",
                           "TemplateMemo", "OKBtn", "CancelBtn"}) {
    QAccessibleInterface* const accessible = QAccessible::queryAccessibleInterface(&Control<QWidget>(name));
    ASSERT_NE(accessible, nullptr) << name;
    EXPECT_FALSE(accessible->text(QAccessible::Name).isEmpty()) << name;
  }
}

TEST_F(QVTemplateEditorLayout, ShowsAllOfItselfAlsoWithALargerFont) {
  const QFont before = QApplication::font();
  QFont larger = before;
  larger.setPointSizeF(before.pointSizeF() * 1.5);
  QApplication::setFont(larger);
  Start("[a]\n");
  Show([] {
    for (const char* name : {"AddTemplateBtn", "TemplateRenameBtn", "OKBtn", "CancelBtn"}) {
      const auto& button = Control<QWidget>(name);
      EXPECT_EQ(button.visibleRegion().boundingRect(), button.rect()) << name;
      EXPECT_GE(button.height(), button.minimumSizeHint().height()) << name;
    }
    EXPECT_EQ(List().font().pointSizeF(), QApplication::font().pointSizeF());
  });
  QApplication::setFont(before);
}

TEST_F(QVTemplateEditorLayout, TabLeadsThroughAllControls) {
  Start("[a]\n");
  ShowActive([] {
    Choose(0);
    ASSERT_EQ(Focused(), QStringLiteral("TemplateList"));
    QStringList names;
    do {
      names.append(Focused());
      Press(Qt::Key_Tab);
    } while (Focused() != names.constFirst() && names.size() < 20);
    EXPECT_EQ(names,
              (QStringList{QStringLiteral("TemplateList"), QStringLiteral("TemplateMemo"), QStringLiteral("OKBtn"),
                           QStringLiteral("CancelBtn"), QStringLiteral("AddTemplateBtn"),
                           QStringLiteral("DeleteTemplateBtn"), QStringLiteral("TemplateRenameBtn")}));
  });
}

TEST_F(QVTemplateEditorLayout, ArrowsChooseBeginningWithTheFirstName) {
  Start("[a]\ncode=x\n[b]\ncode=y\n[cd]\ncode=z\n");
  ShowActive([] {
    ASSERT_EQ(Focused(), QStringLiteral("TemplateList"));
    EXPECT_EQ(List().SelectedRow(), -1);
    Press(Qt::Key_Down);
    EXPECT_EQ(MemoText(), "x");
    Press(Qt::Key_Down);
    EXPECT_EQ(MemoText(), "y");
    Press(Qt::Key_End);
    EXPECT_EQ(MemoText(), "z");
    Press(Qt::Key_Up);
    EXPECT_EQ(MemoText(), "y");
  });
}

TEST_F(QVTemplateEditorLayout, TypingTheBeginningOfANameChoosesIt) {
  Start("[a]\ncode=x\n[cd]\ncode=z\n");
  ShowActive([] {
    Press(Qt::Key_C);
    EXPECT_EQ(MemoText(), "z");
  });
}

TEST_F(QVTemplateEditorLayout, WhatIsSelectedStaysSoWithCtrlAndBesideTheNames) {
  Start("[a]\ncode=x\n[b]\n");
  Show([] {
    Choose(0);
    Choose(0, Qt::ControlModifier);
    EXPECT_EQ(List().SelectedRow(), 0);
    QTest::keyClick(&List(), Qt::Key_Space, Qt::ControlModifier);
    EXPECT_EQ(List().SelectedRow(), 0);
    QTest::mouseClick(List().viewport(), Qt::LeftButton, {}, List().viewport()->rect().bottomLeft() - QPoint(-5, 5));
    EXPECT_EQ(List().SelectedRow(), 0);
    EXPECT_EQ(MemoText(), "x");
  });
}

TEST_F(QVTemplateEditorLayout, TheRightButtonSelectsNothing) {
  Start("[a]\ncode=x\n[b]\n");
  Show([] {
    Choose(0);
    QTest::mouseClick(List().viewport(), Qt::RightButton, {}, List().visualItemRect(List().item(1)).center());
    EXPECT_EQ(List().SelectedRow(), 0);
  });
}

TEST_F(QVTemplateEditorLayout, AChoiceByDraggingIsMadeWhereTheButtonGoesUp) {
  Start("[a]\ncode=x\n[b]\ncode=y\n");
  Show([] {
    const auto at = [](int row) { return List().visualItemRect(List().item(row)).center(); };
    QTest::mousePress(List().viewport(), Qt::LeftButton, {}, at(0));
    EXPECT_EQ(MemoText(), "");
    QMouseEvent move(QEvent::MouseMove, at(1), List().viewport()->mapToGlobal(at(1)), Qt::NoButton, Qt::LeftButton, {});
    QCoreApplication::sendEvent(List().viewport(), &move);
    QTest::mouseRelease(List().viewport(), Qt::LeftButton, {}, at(1));
    EXPECT_EQ(List().SelectedRow(), 1);
    EXPECT_EQ(MemoText(), "y");
  });
}

TEST_F(QVTemplateEditorLayout, InsertDeleteAndF2InTheListAreItsButtons) {
  Start("[a]\n");
  ShowActive([] {
    EXPECT_EQ(Asked([] { Press(Qt::Key_Delete); }, {}), Lines{}) << "there is nothing to delete yet";
    EXPECT_EQ(Asked([] { Press(Qt::Key_F2); }, {}), Lines{});
    EXPECT_EQ(Asked([] { Press(Qt::Key_Insert); }, {QStringLiteral("b")}),
              Lines{"New Template, New Template Name: []"});
    EXPECT_EQ(Asked([] { Press(Qt::Key_F2); }, {QStringLiteral("c")}), Lines{"Rename Template, Rename Template b [b]"});
    EXPECT_EQ(Asked([] { Press(Qt::Key_Delete); }, {Yes}), Lines{"Delete Template b?"});
    EXPECT_EQ(Names(), (Lines{"a", "c"}));
  });
}

TEST_F(QVTemplateEditorLayout, DeleteInTheMemoDeletesACharacter) {
  Start("[a]\ncode=xy\n");
  ShowActive([] {
    Choose(0);
    Memo().setFocus();
    EXPECT_EQ(Asked([] { Press(Qt::Key_Delete); }, {}), Lines{});
    EXPECT_EQ(MemoText(), "y");
  });
}

TEST_F(QVTemplateEditorLayout, ReturnIsALineBreakInTheMemoAndOKInTheList) {
  Start("[a]\ncode=x\n");
  ShowActive([] {
    Choose(0);
    Memo().setFocus();
    Press(Qt::Key_Return);
    EXPECT_TRUE(QVTemplateEditorForm->isVisible());
    EXPECT_EQ(MemoText(), "\nx");
    List().setFocus();
    EXPECT_EQ(Asked([] { Press(Qt::Key_Return); }, {No}), Lines{"Save Changes To Template a?"});
    EXPECT_EQ(QVTemplateEditorForm->result(), TQVTemplateEditorForm::mrOk);
  });
}

} // namespace
} // namespace quorvane
