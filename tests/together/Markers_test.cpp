// SPDX-License-Identifier: MIT
// Position markers in the real editor: their lines, their files, their commands, their numbers.
#include "together/MarkerFixture.h"

#include "desktop/files/FileStore.h"

#include <QMenu>
#include <QMenuBar>
#include <QPointer>

namespace together {
namespace {

using Place = std::array<int, 2>;
using desktop::Page;

const QByteArray twentyLines = QByteArray("  x := 1;\n").repeated(20);

class Markers : public MarkerFixture {
protected:
  Page* page() const { return window()->currentPage(); }
  void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::keyClick(editor(), key, modifiers);
    support::settle();
  }
  // Closes the page, which has not been edited, and leaves another in front.
  void closeFile() {
    Page* const closing = page();
    ASSERT_NE(openText(QStringLiteral("other.pas"), "other\n"), nullptr);
    window()->closePage(closing);
    support::settle();
  }
};

// Lines.

TEST_F(Markers, FollowTheirLineWhenLinesAreInsertedAbove) {
  openWithAddIn(twentyLines);
  drop(10, 5);
  putCaret(2, 1);
  for (int line = 0; line < 3; ++line)
    press(Qt::Key_Return);
  EXPECT_EQ(pickUp(), (Place{13, 5}));
}

TEST_F(Markers, FollowTheirLineThroughUndoAndRedo) {
  openWithAddIn(twentyLines);
  drop(10, 5);
  const QString file = page()->document()->fileName();
  select(0, 20); // two lines
  press(Qt::Key_Delete);
  EXPECT_EQ(rowsOf(file), Rows{8});
  editor()->undo();
  EXPECT_EQ(rowsOf(file), Rows{10});
  editor()->redo();
  EXPECT_EQ(rowsOf(file), Rows{8});
}

TEST_F(Markers, ComeBackWithTheirLineWhenItsDeletionIsUndone) {
  openWithAddIn(twentyLines);
  drop(10, 5);
  const QString file = page()->document()->fileName();
  select(70, 130); // the lines 8 to 13
  press(Qt::Key_Delete);
  EXPECT_EQ(rowsOf(file), Rows{8});
  editor()->undo();
  EXPECT_EQ(rowsOf(file), Rows{10});
}

TEST_F(Markers, StayWhereTheirLineIsBrokenBehindItsStart) {
  openWithAddIn(twentyLines);
  drop(10, 8);
  putCaret(10, 4);
  press(Qt::Key_Return);
  EXPECT_EQ(pickUp(), (Place{10, 4})) << "clipped to what is left of the line";
}

TEST_F(Markers, GoUpWithALineThatIsJoinedToTheOneAbove) {
  openWithAddIn(twentyLines);
  drop(9, 1);
  drop(10, 1);
  putCaret(10, 1);
  press(Qt::Key_Backspace);
  EXPECT_EQ(pickUp(), (Place{9, 1}));
  EXPECT_EQ(pickUp(), (Place{9, 1}));
}

TEST_F(Markers, FollowTheirLineWhileAnotherPageIsInFront) {
  openWithAddIn(twentyLines);
  drop(10, 5);
  Page* const marked = page();
  ASSERT_NE(openText(QStringLiteral("other.pas"), "other\n"), nullptr);
  QTextCursor(marked->document()).insertText(QStringLiteral("\n\n"));
  EXPECT_EQ(pickUp(), (Place{12, 5}));
  EXPECT_EQ(page(), marked) << "its page comes to the front";
}

// Files.

TEST_F(Markers, OfAClosedFileOpenItAgain) {
  openWithAddIn(twentyLines);
  const QString file = page()->document()->fileName();
  drop(10, 5);
  closeFile();
  EXPECT_EQ(pickUp(), (Place{10, 5}));
  EXPECT_EQ(page()->document()->fileName(), file);
  EXPECT_EQ(stack().Count(), 0);
}

TEST_F(Markers, OfAClosedFileAreFollowedAgainOnceItIsOpen) {
  openWithAddIn(twentyLines);
  const QString file = page()->document()->fileName();
  drop(10, 5);
  closeFile();
  ASSERT_NE(workspace.openFile(file), nullptr);
  support::settle();
  putCaret(2, 1);
  press(Qt::Key_Return);
  EXPECT_EQ(rowsOf(file), Rows{11});
  EXPECT_EQ(pickUp(), (Place{11, 5}));
}

TEST_F(Markers, OfAClosedFileAreFollowedAgainAlsoWhileMarksAreOnDemand) {
  quorvane::OptMarkerLive = false;
  openWithAddIn(twentyLines);
  const QString file = page()->document()->fileName();
  drop(10, 5);
  closeFile();
  ASSERT_NE(workspace.openFile(file), nullptr);
  support::settle();
  putCaret(2, 1);
  press(Qt::Key_Return);
  EXPECT_EQ(rowsOf(file), Rows{11});
}

TEST_F(Markers, OfAFileThatIsGoneAreDroppedAndTheUserIsTold) {
  openWithAddIn(twentyLines);
  const QString file = page()->document()->fileName();
  drop(10, 5);
  closeFile();
  putCaret(1, 3);
  ASSERT_TRUE(QFile::remove(file));
  EXPECT_EQ(pickUp(), (Place{1, 3}));
  EXPECT_EQ(stack().Count(), 0);
  EXPECT_TRUE(messages().contains(QStringLiteral("The marker in %1 is gone, since the file cannot be shown").arg(file)))
      << messages().join(u'\n').toStdString();
}

TEST_F(Markers, BeyondTheEndOfAFileThatHasBecomeShorterLeadToItsLastLine) {
  openWithAddIn(twentyLines);
  const QString file = page()->document()->fileName();
  drop(15, 5);
  drop(18, 5);
  closeFile();
  write(QStringLiteral("unit.pas"), "  y\nz");
  EXPECT_EQ(pickUp(), (Place{2, 2}));
  press(Qt::Key_Return); // the file is followed with a marker that has no line
  EXPECT_EQ(rowsOf(file), Rows{15});
  EXPECT_EQ(pickUp(), (Place{3, 1}));
}

TEST_F(Markers, OfAFileThatHasGrownTooLargeAreDroppedWhileItIsShown) {
  openWithAddIn(twentyLines);
  const QString file = page()->document()->fileName();
  drop(10, 5);
  closeFile();
  write(QStringLiteral("unit.pas"), QByteArray(200'000, 'x'));
  proxy().PickupMarker();
  EXPECT_EQ(page()->document()->fileName(), file);
  EXPECT_EQ(stack().Count(), 0);
  EXPECT_TRUE(
      messages().contains(QStringLiteral("The marker in %1 is gone, since the file is shown as plain text").arg(file)))
      << messages().join(u'\n').toStdString();
}

TEST_F(Markers, OfADiscardedUntitledPageAreNotThoseOfTheNextOne) {
  openWithAddIn(twentyLines);
  Page* const untitled = workspace.newFile();
  const QString name = untitled->document()->fileName();
  support::settle();
  QTest::keyClicks(editor(), QStringLiteral("a"));
  proxy().DropMarker();
  window()->closePage(untitled);
  Page* const next = workspace.newFile();
  support::settle();
  EXPECT_NE(next->document()->fileName(), name);
  EXPECT_EQ(rowsOf(next->document()->fileName()), Rows{});
  EXPECT_EQ(rowsOf(name), Rows{1});
}

TEST_F(Markers, OfAPageThatGotItsNameWhileItWasClosedOpenTheFileThatWasSaved) {
  openWithAddIn("other\n", "other.pas");
  Page* const untitled = workspace.newFile();
  support::settle();
  QTest::keyClicks(editor(), QStringLiteral("abc"));
  proxy().DropMarker();
  const QString file = path(QStringLiteral("saved.pas"));
  ASSERT_TRUE(desktop::save(*untitled->document(), file).ok()); // nothing is painted in between
  window()->closePage(untitled);
  support::settle();
  EXPECT_EQ(pickUp(), (Place{1, 4}));
  EXPECT_EQ(page()->document()->fileName(), file);
}

TEST_F(Markers, OfAClosedFileAreFollowedUnderAnotherNameThatLeadsToIt) {
  openWithAddIn(twentyLines);
  drop(10, 5);
  closeFile();
  const QString link = path(QStringLiteral("link.pas"));
  ASSERT_TRUE(QFile::link(path(QStringLiteral("unit.pas")), link));
  ASSERT_NE(workspace.openFile(link), nullptr);
  support::settle();
  putCaret(2, 1);
  press(Qt::Key_Return);
  EXPECT_EQ(rowsOf(link), Rows{11});
  EXPECT_EQ(pickUp(), (Place{11, 5}));
}

// What was typed is gone, and the marker has followed it.
TEST_F(Markers, KeepTheRowTheyHadWhenEditsWereDiscarded) {
  openWithAddIn(twentyLines);
  drop(10, 5);
  putCaret(2, 1);
  press(Qt::Key_Return);
  closeFile(); // without saving
  EXPECT_EQ(pickUp(), (Place{11, 5}));
  EXPECT_EQ(editor()->toPlainText().toLatin1(), twentyLines);
}

TEST_F(Markers, InAnotherWindowBringItToTheFront) {
  openWithAddIn(twentyLines);
  drop(10, 5);
  auto* const second = workspace.newWindow();
  activate(second);
  quorvane::TQVEditorProxy proxyOfSecond(second);
  ASSERT_EQ(workspace.topWindow(), second);
  proxyOfSecond.PickupMarker();
  EXPECT_EQ(workspace.topWindow(), window());
  EXPECT_EQ(caret(), (Place{10, 5}));
}

TEST_F(Markers, OutliveTheWindowTheyWereDroppedIn) {
  openWithAddIn("first\n", "first.pas");
  auto* const second = workspace.newWindow();
  activate(second);
  const QString file = write(QStringLiteral("second.pas"), twentyLines);
  ASSERT_NE(workspace.openFile(file), nullptr);
  services->GetTopView()->GetPosition()->Move(10, 5);
  stack().Push(services->GetTopView());
  const QPointer<desktop::TEditWindow> closed = second;
  workspace.frameOf(second)->close();
  ASSERT_TRUE(support::waitUntil([&closed] { return closed.isNull(); }));
  activate(window());
  EXPECT_EQ(rowsOf(file), Rows{10});
  EXPECT_EQ(pickUp(), (Place{10, 5}));
  EXPECT_EQ(page()->document()->fileName(), file);
}

// Commands.

TEST_F(Markers, AreDroppedAndPickedUpByTheirKeys) {
  openWithAddIn(twentyLines);
  putCaret(10, 5);
  press(Qt::Key_Insert, Qt::ShiftModifier | Qt::AltModifier);
  ASSERT_EQ(stack().Count(), 1);
  putCaret(1, 1);
  press(Qt::Key_Delete, Qt::ShiftModifier | Qt::AltModifier);
  EXPECT_EQ(caret(), (Place{10, 5}));
  EXPECT_EQ(stack().Count(), 0);
  EXPECT_EQ(editor()->toPlainText().toLatin1(), twentyLines);
}

TEST_F(Markers, HaveTheirCommandsInTheSearchMenuWhileTheAddInIsThere) {
  openWithAddIn(twentyLines);
  const auto texts = [this] {
    QStringList all;
    for (const QAction* top : frame()->menuBar()->actions()) {
      if (!top->text().remove(u'&').startsWith(QStringLiteral("Search")))
        continue;
      Q_EMIT top->menu()->aboutToShow();
      for (const QAction* each : top->menu()->actions())
        all.append(each->text() + u' ' + each->shortcut().toString());
    }
    return all;
  };
  EXPECT_TRUE(texts().contains(QStringLiteral("Drop Marker Alt+Shift+Ins")) ||
              texts().contains(QStringLiteral("Drop Marker Shift+Alt+Ins")))
      << texts().join(u'\n').toStdString();
  quorvane::TQVEditorProxy::RemoveExistingProxies();
  EXPECT_TRUE(texts().filter(QStringLiteral("Marker")).isEmpty()) << texts().join(u'\n').toStdString();
}

// Numbers.

class MarkerNumbers : public Markers {
protected:
  // Where the picture differs from `before`, in device pixels.
  QRect changed(const QImage& before) const {
    const QImage& now = editor()->picture();
    QRect area;
    for (int y = 0; y < now.height(); ++y) {
      for (int x = 0; x < now.width(); ++x) {
        if (now.pixel(x, y) != before.pixel(x, y))
          area |= QRect(x, y, 1, 1);
      }
    }
    return area;
  }
  // Drops a marker and expects its number there, and nothing else to have changed.
  void expectNumberAt(int row, int column) {
    drop(row, column);
    support::settle();
    const QImage with = editor()->picture().copy();
    stack().Pop(); // the caret stays
    editor()->Repaint();
    const QImage without = editor()->picture().copy();
    proxy().DropMarker();
    ASSERT_EQ(editor()->picture(), with);
    const QRect area = changed(without);
    const qreal ratio = with.devicePixelRatio();
    const QSize cell = editor()->cellSize();
    const int left = editor()->gutterWidth() + (column - 1) * cell.width() - cell.width() / 2;
    const int top = row * cell.height() - cell.height() / 2;
    ASSERT_FALSE(area.isEmpty());
    EXPECT_GE(area.left(), std::floor(left * ratio) - 1);
    EXPECT_LE(area.right(), std::ceil((left + 1.5 * cell.width()) * ratio)) << "one digit";
    EXPECT_GE(area.top(), std::floor(top * ratio) - 1);
    EXPECT_LE(area.top(), std::ceil((top + 0.6 * cell.height()) * ratio));
  }
};

TEST_F(MarkerNumbers, StandInTheLowerHalfOfTheirLineHalfAColumnToTheLeft) {
  openWithAddIn(twentyLines);
  expectNumberAt(3, 5);
}

TEST_F(MarkerNumbers, StandWhereTheCharacterIsBehindATab) {
  openWithAddIn("a\n\tb\n\tc\n");
  expectNumberAt(2, 1 + editor()->tabWidth());
}

TEST_F(MarkerNumbers, MoveWithTheirLine) {
  openWithAddIn(twentyLines);
  drop(3, 8);
  putCaret(1, 1);
  press(Qt::Key_Return);
  const QImage moved = editor()->picture().copy();
  stack().Pop();
  stack().Push(services->GetTopView());
  putCaret(2, 1);
  EXPECT_EQ(editor()->picture(), moved);
  EXPECT_EQ(rowsOf(page()->document()->fileName()), Rows{4});
}

TEST_F(MarkerNumbers, GoWithTheMarker) {
  openWithAddIn(twentyLines);
  putCaret(3, 5);
  const QImage before = editor()->picture().copy();
  proxy().DropMarker();
  EXPECT_NE(editor()->picture(), before);
  proxy().PickupMarker();
  EXPECT_EQ(editor()->picture(), before);
}

TEST_F(MarkerNumbers, AreNotShownInOtherFiles) {
  openWithAddIn(twentyLines);
  drop(1, 1);
  ASSERT_NE(openText(QStringLiteral("other.pas"), twentyLines), nullptr);
  support::settle();
  const QImage with = editor()->picture().copy();
  stack().Pop();
  ASSERT_NE(workspace.openFile(path(QStringLiteral("other.pas"))), nullptr);
  support::settle();
  EXPECT_EQ(editor()->picture(), with);
}

TEST_F(MarkerNumbers, BeyondTheEndOfAShortenedFileAreNotShown) {
  openWithAddIn(twentyLines);
  drop(6, 1);
  closeFile();
  write(QStringLiteral("unit.pas"), "y\nz\n");
  ASSERT_NE(workspace.openFile(path(QStringLiteral("unit.pas"))), nullptr);
  support::settle();
  const QImage with = editor()->picture().copy();
  ASSERT_EQ(stack().Count(), 1);
  quorvane::StopQVMarkerStack();
  quorvane::StartQVMarkerStack();
  editor()->Repaint();
  EXPECT_EQ(editor()->picture(), with);
}

} // namespace
} // namespace together
