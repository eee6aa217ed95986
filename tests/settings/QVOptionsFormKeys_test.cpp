// SPDX-License-Identifier: MIT
// What Enter, Escape, Space and Tab do in the options dialog.
#include "settings/OptionsFormFixture.h"

#include <QChildEvent>
#include <QGroupBox>

#include <ostream>

namespace quorvane {
namespace {

class QVOptionsFormKeys : public OptionsFormTest {
protected:
  QVOptionsFormKeys() { StartQVOptions(); }

  // The dialog's result after a change and a press of `key` in the control.
  int ResultOf(const char* name, Qt::Key key) {
    Open([&](TQVOptionsForm&) {
      Toggle("GutterSeparatorCheck");
      QWidget* const focus = Focus(name);
      ASSERT_NE(focus, nullptr) << name;
      QTest::keyClick(focus, key);
    });
    return QVOptionsForm->result();
  }

  // One of each kind that takes the focus; the last one is the tabs of the pages.
  static constexpr const char* kControls[] = {
      "ShowNavBarCheck", "BlockMarkerGroup", "ParenColorBox",        "EditTemplatesBtn",
      "TemplateKeyEdit", "LineWidthSpin",    "MarkerActivateHotkey", "Pages"};
};

TEST_F(QVOptionsFormKeys, EnterIsOKWhereverTheFocusIs) {
  for (const char* name : kControls) {
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
      const bool before = OptGutterSeparator;
      EXPECT_EQ(ResultOf(name, key), TQVOptionsForm::mrOk) << name;
      EXPECT_EQ(OptGutterSeparator, !before) << name;
    }
  }
}

TEST_F(QVOptionsFormKeys, EscapeIsCancelWhereverTheFocusIs) {
  for (const char* name : kControls) {
    EXPECT_EQ(ResultOf(name, Qt::Key_Escape), TQVOptionsForm::mrCancel) << name;
    EXPECT_TRUE(OptGutterSeparator) << name;
  }
}

TEST_F(QVOptionsFormKeys, EnterPressesTheButtonCancelIfThatHasTheFocus) {
  EXPECT_EQ(ResultOf("btnCancel", Qt::Key_Return), TQVOptionsForm::mrCancel);
  EXPECT_TRUE(OptGutterSeparator);
}

TEST_F(QVOptionsFormKeys, SpacePressesTheButtonOfTheTemplates) {
  OpenAndCancel([] {
    int clicks = 0;
    QObject::connect(&Button("EditTemplatesBtn"), &QPushButton::clicked, QVOptionsForm, [&] { ++clicks; });
    QTest::keyClick(Focus("EditTemplatesBtn"), Qt::Key_Space);
    EXPECT_EQ(clicks, 1);
    Button("EditTemplatesBtn").disconnect(QVOptionsForm);
  });
}

// A desktop on which Enter presses the button that has the focus, and group boxes keep it, as on GNOME, for all that
// are made while this lives. It gets hold of a key as late as the control itself: after whoever else asks to see it.
class DesktopWhereEnterPressesButtons : public QObject {
public:
  DesktopWhereEnterPressesButtons() { qApp->installEventFilter(this); }

protected:
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::ChildAdded)
      static_cast<QChildEvent*>(event)->child()->installEventFilter(&presser_);
    return false;
  }

private:
  class Presser : public QObject {
    bool eventFilter(QObject* watched, QEvent* event) override {
      auto* const button = qobject_cast<QAbstractButton*>(watched);
      if ((button == nullptr && qobject_cast<QGroupBox*>(watched) == nullptr) || event->type() != QEvent::KeyPress)
        return false;
      const int key = static_cast<QKeyEvent*>(event)->key();
      if (key != Qt::Key_Return && key != Qt::Key_Enter)
        return false;
      if (button)
        button->click();
      event->accept();
      return true;
    }
  };
  Presser presser_;
};

class QVOptionsFormKeysOnGnome : public OptionsFormTest {
protected:
  QVOptionsFormKeysOnGnome() { StartQVOptions(); }

  int ResultOfEnter(QWidget& control) {
    Open([&](TQVOptionsForm&) {
      Reach(control);
      QTest::keyClick(&control, Qt::Key_Return);
    });
    return QVOptionsForm->result();
  }

private:
  DesktopWhereEnterPressesButtons desktop_;
};

TEST_F(QVOptionsFormKeysOnGnome, EnterIsOKOnEveryButtonOfThePages) {
  const QList<QAbstractButton*> buttons = Pages().findChildren<QAbstractButton*>();
  for (QAbstractButton* button : buttons)
    EXPECT_EQ(ResultOfEnter(*button), TQVOptionsForm::mrOk) << button->text().toStdString();
  EXPECT_GE(buttons.size(), 23) << "boxes, radio buttons, colours and one to edit";
}

TEST_F(QVOptionsFormKeysOnGnome, EnterIsOKOnWhatStandsInAGroup) {
  for (const char* name : {"TemplateKeyEdit", "LineWidthSpin", "MarkerActivateHotkey", "FlyDelaySpin"})
    EXPECT_EQ(ResultOfEnter(Control<QWidget>(name)), TQVOptionsForm::mrOk) << name;
}

TEST_F(QVOptionsFormKeysOnGnome, EnterPressesTheButtonsBelowThePages) {
  EXPECT_EQ(ResultOfEnter(Button("btnCancel")), TQVOptionsForm::mrCancel);
}

// A page, and its controls in the order of Tab.
struct TTabRow {
  int Page;
  std::vector<const char*> Controls;

  friend void PrintTo(const TTabRow& row, std::ostream* out) { *out << "Page" << row.Page; }
};

class QVOptionsFormTabs : public OptionsFormTest, public testing::WithParamInterface<TTabRow> {
protected:
  QVOptionsFormTabs() { StartQVOptions(); }

  // What has the focus; of a radio button its group.
  static QString FocusName() {
    const QWidget* const focus = QVOptionsForm->focusWidget();
    const bool isRadio = qobject_cast<const TRadioGroup*>(focus->parent()) != nullptr;
    return isRadio ? focus->parent()->objectName() : focus->objectName();
  }
};

INSTANTIATE_TEST_SUITE_P(
    Pages, QVOptionsFormTabs,
    testing::Values(TTabRow{0,
                            {"EnableTemplatesCheck", "EditTemplatesBtn", "TemplateKeyEdit", "ShowLineNumbersCheck",
                             "SecondGutterCheck", "GutterSeparatorCheck", "LineNumbersLeftCheck", "LineNumberColorBox",
                             "ShowNavBarCheck", "LiveSyntaxCheckCheck"}},
                    TTabRow{1,
                            {"BlockMarkerGroup", "BlockMarkerShapeGroup", "UnevenBracketsCheck", "BlockColorBox1",
                             "BlockColorBox2", "BlockColorBox3", "BlockColorBox4", "LineWidthSpin",
                             "MarkerActivationGroup", "MarkerActivateHotkey", "MarkParensCheck", "ParenColorBox"}},
                    TTabRow{2, {"ShowFlyoutBarCheck", "FlyDelaySpin"}}),
    testing::PrintToStringParamName());

TEST_P(QVOptionsFormTabs, LeadThroughThePageInReadingOrderAndRound) {
  QStringList expected;
  for (const char* name : GetParam().Controls)
    expected.append(QLatin1StringView(name));
  expected << QStringLiteral("btnOK") << QStringLiteral("btnCancel") << Pages().focusProxy()->objectName();

  OpenAndCancel([&] {
    ASSERT_TRUE(support::waitUntil([] { return QVOptionsForm->isActiveWindow(); }));
    const QWidget* const first = Focus(GetParam().Controls.front());
    ASSERT_EQ(Pages().currentIndex(), GetParam().Page);
    QStringList names;
    do {
      names.append(FocusName());
      QTest::keyClick(QVOptionsForm->focusWidget(), Qt::Key_Tab);
    } while (QVOptionsForm->focusWidget() != first && names.size() < 50);
    EXPECT_EQ(names, expected);
  });
}

} // namespace
} // namespace quorvane
