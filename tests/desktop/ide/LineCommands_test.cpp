// SPDX-License-Identifier: MIT
// Where tracked lines are after the edit control's commands for whole lines.
#include "desktop/ide/IdeFixture.h"

#include "desktop/edit/EditControl.h"
#include "desktop/ui/EditWindow.h"

namespace desktop {
namespace {

class TrackedLineCommandsTest : public IdeFixture {
protected:
  TrackedLineCommandsTest() {
    view = open("a\nb\nc\nd\n", "unit.pas");
    tracker = view->GetBuffer()->GetEditLineTracker();
    editor = workspace.topWindow()->editor();
  }

  void selectRows(int first, int last) {
    QTextCursor cursor(editor->document()->findBlockByNumber(first - 1));
    cursor.setPosition(editor->document()->findBlockByNumber(last).position(), QTextCursor::KeepAnchor);
    editor->setTextCursor(cursor);
  }
  std::string text() const { return editor->toPlainText().toStdString(); }
  bool isTracked(int row) const { return tracker->IndexOfLine(row) >= 0; }

  std::shared_ptr<platform::IOTAEditView> view;
  std::shared_ptr<platform::IOTAEditLineTracker> tracker;
  TEditControl* editor = nullptr;
};

TEST_F(TrackedLineCommandsTest, GoWithTheLinesThatMove) {
  tracker->AddLine(2, 0);
  tracker->AddLine(3, 0);
  selectRows(2, 3);
  editor->moveBlockDown();
  EXPECT_EQ(text(), "a\nd\nb\nc\n");
  EXPECT_TRUE(!isTracked(2) && isTracked(3) && isTracked(4));
  editor->moveBlockUp();
  editor->moveBlockUp();
  EXPECT_EQ(text(), "b\nc\na\nd\n");
  EXPECT_TRUE(isTracked(1) && isTracked(2) && !isTracked(3));
}

TEST_F(TrackedLineCommandsTest, StayWithTheOriginalsAndWithWhatIsBelow) {
  for (const int row : {1, 2, 3})
    tracker->AddLine(row, 0);
  editor->setCaret(2, 1);
  editor->duplicateBlock();
  editor->commentBlock();
  EXPECT_EQ(text(), "a\nb\n// b\nc\nd\n");
  EXPECT_TRUE(isTracked(1) && isTracked(2) && !isTracked(3) && isTracked(4));
}

} // namespace
} // namespace desktop
