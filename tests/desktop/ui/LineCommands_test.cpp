// SPDX-License-Identifier: MIT
// The commands for whole lines by their keys, in a window with a file.
#include "desktop/ui/UiFixture.h"

#include <QKeyEvent>
#include <QWindow>

namespace desktop {
namespace {

class LineCommandKeysTest : public UiFixture {
protected:
  void open(const QByteArray& bytes) {
    openText(QStringLiteral("a.pas"), bytes);
    activate(window());
    ASSERT_TRUE(support::waitUntil([this] { return editor()->hasFocus(); }));
  }
  void press(int key, Qt::KeyboardModifiers modifiers) {
    QKeyEvent press(QEvent::KeyPress, key, modifiers);
    QCoreApplication::sendEvent(frame()->windowHandle(), &press);
    QKeyEvent release(QEvent::KeyRelease, key, modifiers);
    QCoreApplication::sendEvent(frame()->windowHandle(), &release);
    support::settle();
  }
  std::string text() const { return editor()->toPlainText().toStdString(); }

  static constexpr Qt::KeyboardModifiers ctrl = Qt::ControlModifier;
  static constexpr Qt::KeyboardModifiers ctrlShift = Qt::ControlModifier | Qt::ShiftModifier;
};

TEST_F(LineCommandKeysTest, EachCommandHasItsKey) {
  open("a\nb\nc");
  editor()->setCaret(2, 1);
  press(Qt::Key_I, ctrl);
  EXPECT_EQ(text(), "a\n  b\nc");
  press(Qt::Key_I, ctrlShift);
  EXPECT_EQ(text(), "a\nb\nc");
  press(Qt::Key_D, ctrl);
  EXPECT_EQ(text(), "a\n// b\nc");
  press(Qt::Key_D, ctrlShift);
  EXPECT_EQ(text(), "a\nb\nc");
  press(Qt::Key_Up, ctrlShift);
  EXPECT_EQ(text(), "b\na\nc");
  press(Qt::Key_Down, ctrlShift);
  EXPECT_EQ(text(), "a\nb\nc");
  press(Qt::Key_Down, Qt::ControlModifier | Qt::AltModifier);
  EXPECT_EQ(text(), "a\nb\nb\nc");
}

TEST_F(LineCommandKeysTest, CommandsForLinesRestWhileAnotherFieldHasTheFocus) {
  open("a\nb\nc");
  window()->findBar()->open();
  EXPECT_FALSE(action(QStringLiteral("EditCommentCommand"))->isEnabled());
  press(Qt::Key_D, ctrl);
  EXPECT_EQ(text(), "a\nb\nc");
  window()->findBar()->close();
  EXPECT_TRUE(action(QStringLiteral("EditCommentCommand"))->isEnabled());
}

TEST_F(LineCommandKeysTest, AReadOnlyTextHasNoSuchCommands) {
  open("a\xE2\x80\xA9z");
  for (const char* const name :
       {"EditIndentCommand", "EditUnindentCommand", "EditCommentCommand", "EditUncommentCommand",
        "EditDuplicateCommand", "EditMoveUpCommand", "EditMoveDownCommand"})
    EXPECT_FALSE(action(QString::fromLatin1(name))->isEnabled()) << name;
}

TEST_F(LineCommandKeysTest, LineEndsGoWithTheirLines) {
  open("a\r\nb\nc\r\nd\r\n");
  editor()->setCaret(2, 1);
  press(Qt::Key_Up, ctrlShift);
  action(QStringLiteral("FileSaveCommand"))->trigger();
  EXPECT_EQ(read(QStringLiteral("a.pas")), "b\na\r\nc\r\nd\r\n");
  press(Qt::Key_Down, Qt::ControlModifier | Qt::AltModifier);
  action(QStringLiteral("FileSaveCommand"))->trigger();
  EXPECT_EQ(read(QStringLiteral("a.pas")), "b\nb\na\r\nc\r\nd\r\n");
  editor()->setCaret(1, 1);
  press(Qt::Key_Down, ctrlShift);
  press(Qt::Key_Down, ctrlShift);
  action(QStringLiteral("FileSaveCommand"))->trigger();
  EXPECT_EQ(read(QStringLiteral("a.pas")), "b\na\r\nb\nc\r\nd\r\n");
}

} // namespace
} // namespace desktop
