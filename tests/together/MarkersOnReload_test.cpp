// SPDX-License-Identifier: MIT
// Markers in a file that another program writes.
#include "together/MarkerFixture.h"

#include "desktop/ui/DiskChanges.h"

namespace together {
namespace {

class MarkersOnReload : public MarkerFixture {
protected:
  // As another program writes it; returns when the page shows it.
  void change(const QByteArray& bytes) {
    desktop::Page* const page = window()->currentPage();
    QFile file(page->document()->fileName());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_EQ(file.write(bytes), bytes.size());
    file.close();
    ASSERT_TRUE(support::waitUntil([&] { return page->document()->toPlainText() == QString::fromLatin1(bytes); }));
    support::settle();
  }
};

TEST_F(MarkersOnReload, AreFoundAgainByTheTextOfTheirLines) {
  openWithAddIn("unit a;\none;\ntwo;\nthree;\nend.\n");
  const desktop::DiskChanges changes(workspace);
  const QString file = window()->currentPage()->document()->fileName();
  drop(2, 1);
  drop(4, 1);
  change("unit a;\n{ new }\n{ new }\none;\nthree;\n{ new }\nend.\n");
  EXPECT_EQ(rowsOf(file), (Rows{4, 5}));
  change("unit a;\none;\nthree;\nend.\n");
  EXPECT_EQ(rowsOf(file), (Rows{2, 3}));
}

TEST_F(MarkersOnReload, ComeBackWithTheUndoOfTheReload) {
  openWithAddIn("unit a;\none;\ntwo;\nend.\n");
  const desktop::DiskChanges changes(workspace);
  const QString file = window()->currentPage()->document()->fileName();
  drop(3, 1);
  change("unit a;\nend.\n");
  EXPECT_EQ(rowsOf(file), (Rows{2}));
  editor()->undo();
  EXPECT_EQ(rowsOf(file), (Rows{3}));
}

} // namespace
} // namespace together
