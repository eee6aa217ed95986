// SPDX-License-Identifier: MIT
// Toolbar and line numbers in the windows of the real host.
#include "TogetherFixture.h"

#include "platform/Align.h"
#include "platform/Component.h"
#include "toolbar/QVEditorToolbar.h"
#include "toolbar/QVLineNumbers.h"
#include "toolbar/QVLocalVars.h"

#include <QEvent>
#include <QScrollBar>
#include <QWheelEvent>

#include <algorithm>

namespace together {
namespace {

using desktop::TEditWindow;
using quorvane::TQVLineNumbers;

QByteArray linesOf(int count) {
  QByteArray text;
  for (int line = 1; line < count; ++line)
    text += "x := " + QByteArray::number(line) + ";\n";
  return text;
}

// Counts the events of one kind that reach an object.
class EventCount : public QObject {
public:
  EventCount(QObject& watched, QEvent::Type type) : type_(type) { watched.installEventFilter(this); }
  int count = 0;

protected:
  bool eventFilter(QObject*, QEvent* event) override {
    count += event->type() == type_;
    return false;
  }

private:
  QEvent::Type type_;
};

// Tells, while it lives, how the paints of a control nest and how often a widget is resized inside one.
class PaintWatch : public QObject {
public:
  PaintWatch(platform::TWinControl& control, QWidget& resized) : control_(control), previous_(control.WindowProc()) {
    control.SetWindowProc(platform::TWndMethod::Of<&PaintWatch::Proc>(*this));
    resized.installEventFilter(this);
  }
  ~PaintWatch() override { control_.SetWindowProc(previous_); }

  int deepest = 0;
  int resizesInside = 0;

  void Proc(platform::TMessage& message) {
    const bool isPaint = message.Msg == platform::WM_PAINT;
    depth_ += isPaint;
    deepest = std::max(deepest, depth_);
    previous_(message);
    depth_ -= isPaint;
  }

protected:
  bool eventFilter(QObject*, QEvent* event) override {
    resizesInside += depth_ > 0 && event->type() == QEvent::Resize;
    return false;
  }

private:
  platform::TWinControl& control_;
  platform::TWndMethod previous_;
  int depth_ = 0;
};

class Injection : public TogetherFixture {
protected:
  ~Injection() override { quorvane::StopEditorToolbar(); }

  void openEquipped(const QByteArray& bytes) {
    openWithAddIn(bytes);
    quorvane::RegisterEditorToolbar();
    support::settle();
  }

  static QWidget* componentOf(const TEditWindow* window, const char* name) {
    return qobject_cast<QWidget*>(platform::FindComponent(*window, QString::fromLatin1(name)));
  }
  // The names of all components. What Qt itself hangs into a window for a while has no name.
  static QStringList componentsOf(const TEditWindow* window) {
    QStringList names;
    for (const QObject* child : window->children()) {
      if (!child->objectName().isEmpty())
        names.append(child->objectName());
    }
    return names;
  }
  static QWidget* toolbarOf(const TEditWindow* window) { return componentOf(window, "TQVEditorToolbar"); }
  static TQVLineNumbers* numbersOf(const TEditWindow* window) { return quorvane::GetLineNumbers(*window); }
  TQVLineNumbers& numbers() const { return *numbersOf(window()); }
  static bool isEquipped(const TEditWindow* window) {
    return toolbarOf(window) != nullptr && numbersOf(window) != nullptr &&
           platform::FindComponent(*window, QStringLiteral("TQVEditorProxy")) != nullptr;
  }

  // Where a control lies in its window.
  static QRect placeOf(const QWidget& control) { return control.geometry(); }

  // Whether what is seen of the numbers is what painting all of them gives.
  bool isUpToDate() {
    const QImage shown = numbers().Picture().copy();
    numbers().Invalidate();
    support::settle();
    return shown == numbers().Picture();
  }
};

TEST_F(Injection, GivesOpenWindowsToolbarAndNumbers) {
  openEquipped(linesOf(20));
  EXPECT_TRUE(isEquipped(window()));
  EXPECT_TRUE(toolbarOf(window())->isVisible());
  EXPECT_TRUE(numbers().isVisible());
}

TEST_F(Injection, GivesALaterWindowAllThreeWhenItBecomesActiveAndNothingMoreAfterwards) {
  openEquipped(linesOf(20));
  TEditWindow* const second = workspace.newWindow();
  activate(second);
  support::settle();
  EXPECT_TRUE(isEquipped(second));
  EXPECT_TRUE(toolbarOf(second)->isVisible());
  EXPECT_TRUE(numbersOf(second)->isVisible());
  const QStringList components = componentsOf(second);
  activate(window());
  activate(second);
  support::settle();
  EXPECT_EQ(componentsOf(second), components);
}

TEST_F(Injection, ToolbarSpansTheWindowAboveNumbersAndText) {
  openEquipped(linesOf(20));
  const QRect toolbar = placeOf(*toolbarOf(window()));
  const QRect gutter = placeOf(numbers());
  const QRect text = placeOf(*editor());
  EXPECT_EQ(toolbar.x(), 0);
  EXPECT_EQ(toolbar.width(), window()->width());
  EXPECT_EQ(gutter.x(), 0);
  EXPECT_EQ(gutter.y(), toolbar.bottom() + 1);
  EXPECT_EQ(text.x(), gutter.right() + 1);
  EXPECT_EQ(text.y(), gutter.y());
  EXPECT_EQ(text.height(), gutter.height());
}

TEST_F(Injection, NumbersStandRightOfTheTextWhenTheOptionSaysSo) {
  quorvane::OptLineNumbersLeft = false;
  openEquipped(linesOf(20));
  EXPECT_EQ(placeOf(*editor()).x(), 0);
  EXPECT_EQ(placeOf(numbers()).x(), placeOf(*editor()).right() + 1);
  EXPECT_EQ(placeOf(numbers()).right(), window()->width() - 1);
}

TEST_F(Injection, NumbersChangeSidesWhileTheyAreShown) {
  openEquipped(linesOf(20));
  quorvane::OptLineNumbersLeft = false;
  quorvane::ShowLineNumbers();
  support::settle();
  EXPECT_EQ(placeOf(numbers()).right(), window()->width() - 1);
  EXPECT_TRUE(isUpToDate());
  quorvane::HideLineNumbers();
  support::settle();
  EXPECT_EQ(placeOf(*editor()).width(), window()->width());
}

TEST_F(Injection, NumbersHaveTheWidthOfTheLineCount) {
  openEquipped(linesOf(20));
  EXPECT_EQ(numbers().width(), numbers().sizeHint().width());
  EXPECT_LT(numbers().width(), 35);
}

TEST_F(Injection, NumbersFollowTheCaretInOnePaintOfTheText) {
  openEquipped(linesOf(200));
  const QImage before = numbers().Picture().copy();
  forgetHostPaints();
  putCaret(2, 1);
  EXPECT_EQ(hostPaints(), 1);
  EXPECT_NE(numbers().Picture(), before);
  EXPECT_TRUE(isUpToDate());
}

TEST_F(Injection, NumbersFollowScrolling) {
  openEquipped(linesOf(200));
  editor()->verticalScrollBar()->setValue(50);
  support::settle();
  EXPECT_TRUE(isUpToDate());
  QTest::keyClick(editor(), Qt::Key_PageDown);
  support::settle();
  EXPECT_TRUE(isUpToDate());
}

TEST_F(Injection, NumbersFollowASizeOfTheWindow) {
  openEquipped(linesOf(200));
  frame()->resize(frame()->width() + 40, frame()->height() + 60);
  support::settle();
  EXPECT_TRUE(isUpToDate());
}

TEST_F(Injection, NumbersFollowTyping) {
  openEquipped(linesOf(200));
  for (int line = 0; line < 5; ++line) {
    QTest::keyClick(editor(), Qt::Key_Return);
    support::settle();
    EXPECT_TRUE(isUpToDate()) << line;
  }
}

TEST_F(Injection, NumbersAreThoseOfThePageInFront) {
  openEquipped(linesOf(20));
  ASSERT_NE(openText(QStringLiteral("other.pas"), linesOf(30)), nullptr);
  support::settle();
  EXPECT_TRUE(isUpToDate());
  window()->showPage(window()->pages().constFirst());
  support::settle();
  EXPECT_TRUE(isUpToDate());
}

TEST_F(Injection, NothingIsPaintedWhileNothingMoves) {
  openEquipped(linesOf(20));
  const qint64 picture = numbers().Picture().cacheKey();
  forgetHostPaints();
  quorvane::PollLineNumbers();
  support::settle();
  EXPECT_EQ(numbers().Picture().cacheKey(), picture);
  EXPECT_EQ(hostPaints(), 0);
}

// A line count that gains a digit.

class InjectionWidth : public Injection, public testing::WithParamInterface<bool> {};
INSTANTIATE_TEST_SUITE_P(LeftAndRight, InjectionWidth, testing::Bool());

TEST_P(InjectionWidth, AFurtherDigitLaysTheWindowOutOnceAndNotInsideAPaint) {
  quorvane::OptLineNumbersLeft = GetParam();
  openEquipped(linesOf(99));
  editor()->setCaret(99, 1);
  support::settle();
  const int narrow = numbers().width();
  EventCount resizes(numbers(), QEvent::Resize);
  EventCount layouts(*window(), QEvent::LayoutRequest);
  const PaintWatch watch(*editor(), numbers());
  QTest::keyClick(editor(), Qt::Key_Return);
  support::settle();
  ASSERT_EQ(editor()->lineCount(), 100);
  EXPECT_GT(numbers().width(), narrow);
  EXPECT_EQ(resizes.count, 1);
  EXPECT_EQ(layouts.count, 1);
  EXPECT_EQ(watch.deepest, 1);
  EXPECT_EQ(watch.resizesInside, 0);
  EXPECT_TRUE(isUpToDate());
}

// Clicks.

TEST_F(Injection, ClickOnTheThirdNumberPutsTheCaretTwoLinesBelowTheFirst) {
  openEquipped(linesOf(200));
  editor()->setTopLine(50);
  support::settle();
  const int lineHeight = editor()->ClientHeight() / (editor()->linesInWindow() - 1);
  QTest::mouseClick(&numbers(), Qt::LeftButton, {}, QPoint(4, 2 * lineHeight + lineHeight / 2));
  EXPECT_EQ(editor()->caretRow(), 52);
  EXPECT_EQ(editor()->caretColumn(), 1);
  EXPECT_EQ(editor()->topLine(), 50);
  EXPECT_TRUE(isUpToDate());
}

TEST_F(Injection, ClickInAnotherWindowMovesTheCaretThere) {
  openEquipped(linesOf(200));
  TEditWindow* const second = workspace.newWindow();
  activate(second);
  ASSERT_NE(openText(QStringLiteral("other.pas"), linesOf(30)), nullptr);
  support::settle();
  QTest::mouseClick(numbersOf(second), Qt::LeftButton, {}, QPoint(4, 3 * editor()->cellSize().height() + 2));
  EXPECT_EQ(second->editor()->caretRow(), 4);
  EXPECT_EQ(editor()->caretRow(), 1);
}

TEST_F(Injection, WheelOverTheNumbersScrollsTheText) {
  openEquipped(linesOf(200));
  const QPointF at(5, 50);
  QWheelEvent wheel(at, numbers().mapToGlobal(at), {}, {0, -120}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                    false);
  QCoreApplication::sendEvent(&numbers(), &wheel);
  support::settle();
  EXPECT_GT(editor()->topLine(), 1);
  EXPECT_TRUE(isUpToDate());
}

// The end.

TEST_F(Injection, ClosedWindowTakesItsControlsAlong) {
  openEquipped(linesOf(20));
  TEditWindow* const second = workspace.newWindow();
  activate(second);
  const QPointer<QWidget> toolbar = toolbarOf(second);
  const QPointer<QWidget> gutter = numbersOf(second);
  ASSERT_FALSE(toolbar.isNull() || gutter.isNull());
  workspace.frameOf(second)->close();
  ASSERT_TRUE(support::waitUntil([&] { return workspace.windows().size() == 1; }));
  support::settle();
  EXPECT_TRUE(toolbar.isNull());
  EXPECT_TRUE(gutter.isNull());
  EXPECT_TRUE(isUpToDate());
}

TEST_F(Injection, StopLeavesTheTextItsWholePlace) {
  open(linesOf(20));
  support::settle();
  const QRect before = placeOf(*editor());
  const QStringList components = componentsOf(window());
  quorvane::RegisterEditorToolbar();
  support::settle();
  EXPECT_NE(placeOf(*editor()), before);
  quorvane::StopEditorToolbar();
  quorvane::TQVEditorProxy::RemoveExistingProxies();
  support::settle();
  EXPECT_EQ(placeOf(*editor()), before);
  EXPECT_EQ(componentsOf(window()), components);
}

} // namespace
} // namespace together
