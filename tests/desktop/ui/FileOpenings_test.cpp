// SPDX-License-Identifier: MIT
#include "desktop/ui/UiFixture.h"

#include "desktop/ui/ClosedPages.h"
#include "desktop/ui/FileOpenings.h"
#include "desktop/ui/NamedFiles.h"

#include <QProgressBar>
#include <QPushButton>

namespace desktop {
namespace {

class FileOpeningsTest : public UiFixture {
protected:
  FileOpeningsTest() { frame()->show(); }

  // So large that it is opened in a thread.
  static QByteArray large(const QByteArray& line = "line of a long text\n") {
    return line.repeated(static_cast<int>(FileOpenings::largeBytes / line.size()) + 1);
  }
  // So large that it cannot be there before it is stopped.
  static QByteArray veryLarge() { return large().repeated(10); }

  FileOpenings& openings() const { return workspace.openings(); }
  Page* open(const QString& file, const FileOpenings::Opened& opened = {},
             FileOpenings::Place place = FileOpenings::Place::Front) const {
    return openings().open(window(), file, opened, place);
  }
  bool waitForAll() const {
    return support::waitUntil([this] { return openings().isIdle(); });
  }
  QStringList titles() const {
    QStringList titles;
    for (const Page* page : window()->pages())
      titles.append(page->title());
    return titles;
  }
  QString front() const { return window()->currentPage() != nullptr ? window()->currentPage()->title() : QString(); }
  QProgressBar* bar() const { return window()->messageBar()->findChild<QProgressBar*>(); }
  QPushButton* stopButton() const {
    for (QPushButton* button : window()->messageBar()->findChildren<QPushButton*>()) {
      if (button->text() == QStringLiteral("St&op") && button->isVisible())
        return button;
    }
    return nullptr;
  }
};

TEST_F(FileOpeningsTest, ASmallFileIsThereAtOnce) {
  Page* told = nullptr;
  Page* const page = open(write(QStringLiteral("a.pas"), "unit a;"), [&told](Page* opened) { told = opened; });
  ASSERT_NE(page, nullptr);
  EXPECT_EQ(told, page);
  EXPECT_TRUE(openings().isIdle());
}

TEST_F(FileOpeningsTest, ALargeFileComesLaterAndIsWholeThen) {
  Page* told = nullptr;
  EXPECT_EQ(open(write(QStringLiteral("a.pas"), large()), [&told](Page* opened) { told = opened; }), nullptr);
  EXPECT_TRUE(window()->pages().isEmpty());
  ASSERT_TRUE(waitForAll());
  ASSERT_NE(told, nullptr);
  EXPECT_EQ(told, window()->currentPage());
  EXPECT_TRUE(told->document()->toBytes().Bytes == large().toStdString());
  EXPECT_TRUE(editor()->isVisible());
  EXPECT_EQ(messages(), QStringList());
}

TEST_F(FileOpeningsTest, ALargeFileLooksAsOthersDo) {
  const Page* const small = openText(QStringLiteral("a.pas"), "unit a;");
  const QFont font = small->document()->defaultFont();
  const qreal tabs = editor()->tabStopDistance();
  open(write(QStringLiteral("b.pas"), large()));
  ASSERT_TRUE(waitForAll());
  EXPECT_EQ(front(), QStringLiteral("b.pas"));
  EXPECT_EQ(window()->currentPage()->document()->defaultFont(), font);
  EXPECT_EQ(window()->currentPage()->document()->documentMargin(), small->document()->documentMargin());
  EXPECT_EQ(editor()->tabStopDistance(), tabs);
  EXPECT_FALSE(window()->currentPage()->document()->isModified());
  EXPECT_FALSE(window()->currentPage()->document()->isUndoAvailable());
}

TEST_F(FileOpeningsTest, OtherPagesCanBeEditedMeanwhileAndStayInFront) {
  openText(QStringLiteral("a.pas"), "unit a;");
  open(write(QStringLiteral("b.pas"), large()));
  type(QStringLiteral("x"));
  EXPECT_FALSE(openings().isIdle());
  ASSERT_TRUE(waitForAll());
  EXPECT_EQ(front(), QStringLiteral("a.pas"));
  EXPECT_EQ(editor()->toPlainText(), QStringLiteral("xunit a;"));
  EXPECT_EQ(titles(), (QStringList{QStringLiteral("a.pas"), QStringLiteral("b.pas")}));
}

TEST_F(FileOpeningsTest, APageForBehindStaysThere) {
  openText(QStringLiteral("a.pas"), "unit a;");
  open(write(QStringLiteral("b.pas"), large()), {}, FileOpenings::Place::Behind);
  ASSERT_TRUE(waitForAll());
  EXPECT_EQ(front(), QStringLiteral("a.pas"));
  EXPECT_EQ(window()->pages().size(), 2);
}

TEST_F(FileOpeningsTest, AnUntouchedPageMakesRoom) {
  workspace.newFile();
  open(write(QStringLiteral("a.pas"), large()));
  EXPECT_EQ(window()->pages().size(), 1);
  ASSERT_TRUE(waitForAll());
  EXPECT_EQ(titles(), QStringList{QStringLiteral("a.pas")});
}

TEST_F(FileOpeningsTest, ARowTellsHowFarItIsAndStopLeavesEverythingAsItWas) {
  openText(QStringLiteral("a.pas"), "unit a;");
  const QString file = write(QStringLiteral("b.pas"), veryLarge());
  bool told = false;
  open(file, [&told](Page*) { told = true; });
  ASSERT_TRUE(support::waitUntil([this] { return stopButton() != nullptr; }));
  EXPECT_EQ(messages(), QStringList{QStringLiteral("Opening %1").arg(file)});
  ASSERT_NE(bar(), nullptr);
  EXPECT_TRUE(bar()->accessibleName().contains(file));
  EXPECT_TRUE(support::waitUntil([this] { return bar()->value() > 0; }));
  stopButton()->click();
  EXPECT_TRUE(openings().isIdle());
  support::settle();
  EXPECT_EQ(messages(), QStringList());
  EXPECT_EQ(titles(), QStringList{QStringLiteral("a.pas")});
  EXPECT_FALSE(told);
}

TEST_F(FileOpeningsTest, AFileThatWasStoppedCanBeOpenedAgain) {
  const QString file = write(QStringLiteral("a.pas"), large());
  open(file);
  openings().stop(window());
  open(file);
  ASSERT_TRUE(waitForAll());
  EXPECT_EQ(titles(), QStringList{QStringLiteral("a.pas")});
}

TEST_F(FileOpeningsTest, AFileThatIsOpenedTwiceAtOnceGetsOnePage) {
  const QString file = write(QStringLiteral("a.pas"), large());
  const QString link = path(QStringLiteral("link.pas"));
  ASSERT_TRUE(QFile::link(file, link));
  int told = 0;
  for (const QString& name : {file, file, link})
    open(name, [&told](Page*) { ++told; });
  EXPECT_EQ(openings().pending(window()), QStringList{file});
  ASSERT_TRUE(waitForAll());
  EXPECT_EQ(titles(), QStringList{QStringLiteral("a.pas")});
  EXPECT_EQ(told, 3);
}

TEST_F(FileOpeningsTest, AFileThatIsOpenAlreadyComesToTheFrontAtOnce) {
  Page* const page = openText(QStringLiteral("a.pas"), large());
  openText(QStringLiteral("b.pas"), "b");
  EXPECT_EQ(open(path(QStringLiteral("a.pas"))), page);
  EXPECT_EQ(window()->currentPage(), page);
}

TEST_F(FileOpeningsTest, APageThatWasOpenedMeanwhileIsNotOpenedAgain) {
  const QString file = write(QStringLiteral("a.pas"), large());
  Page* told = nullptr;
  open(file, [&told](Page* opened) { told = opened; });
  Page* const page = workspace.openFile(file);
  ASSERT_TRUE(waitForAll());
  EXPECT_EQ(told, page);
  EXPECT_EQ(window()->pages(), QList<Page*>{page});
}

TEST_F(FileOpeningsTest, TheLastOfSeveralLargeFilesIsInFront) {
  openText(QStringLiteral("a.pas"), "a");
  QString last;
  for (const char* name : {"b.pas", "c.pas", "d.pas"})
    open(write(QString::fromLatin1(name), large()), [&last](const Page* page) { last = page->title(); });
  ASSERT_TRUE(waitForAll());
  EXPECT_EQ(window()->pages().size(), 4);
  EXPECT_EQ(front(), last);
}

TEST_F(FileOpeningsTest, AFileThatVanishesIsNamed) {
  const QString file = write(QStringLiteral("a.pas"), large());
  // The threads are busy with these when the file goes.
  for (const char* name : {"b.pas", "c.pas"})
    open(write(QString::fromLatin1(name), veryLarge()));
  open(file);
  ASSERT_TRUE(QFile::remove(file));
  ASSERT_TRUE(waitForAll());
  EXPECT_EQ(window()->pages().size(), 2);
  ASSERT_EQ(messages().size(), 1);
  EXPECT_TRUE(messages().constFirst().contains(file)) << messages().constFirst().toStdString();
}

TEST_F(FileOpeningsTest, AFileOfTooManyLinesIsToldOf) {
  const QString file = write(QStringLiteral("a.pas"), QByteArray(3'000'001, '\n'));
  open(file);
  ASSERT_TRUE(waitForAll());
  EXPECT_TRUE(window()->pages().isEmpty());
  ASSERT_EQ(messages().size(), 1);
  EXPECT_TRUE(messages().constFirst().contains(QStringLiteral("lines")));
}

TEST_F(FileOpeningsTest, ClosingTheWindowStopsWhatIsOpenedInIt) {
  TEditWindow* const second = workspace.newWindow();
  bool told = false;
  openings().open(second, write(QStringLiteral("a.pas"), veryLarge()), [&told](Page*) { told = true; });
  workspace.frameOf(second)->close();
  EXPECT_TRUE(openings().isIdle());
  support::settle();
  EXPECT_EQ(workspace.windows().size(), 1);
  EXPECT_FALSE(told);
}

TEST_F(FileOpeningsTest, TheProgramEndsInTheMidstOfOpening) {
  auto ending = std::make_unique<Workspace>();
  bool told = false;
  for (const char* name : {"a.pas", "b.pas", "c.pas"})
    ending->openings().open(ending->topWindow(), write(QString::fromLatin1(name), veryLarge()),
                            [&told](Page*) { told = true; });
  ending.reset();
  support::settle();
  EXPECT_FALSE(told);
}

TEST_F(FileOpeningsTest, AClosedLargeFileIsReopenedWithItsCaret) {
  Page* const page = openText(QStringLiteral("a.pas"), large());
  editor()->setCaret(50, 3);
  const EditState state = page->state();
  window()->closePage(page);
  EXPECT_EQ(workspace.closedPages().reopen(window()), nullptr);
  ASSERT_TRUE(waitForAll());
  ASSERT_NE(window()->currentPage(), nullptr);
  EXPECT_EQ(window()->currentPage()->state().caret, state.caret);
}

TEST_F(FileOpeningsTest, ANamedFileComesLaterWithItsCaretInPlace) {
  NamedFiles files(workspace);
  const QString file = write(QStringLiteral("a.pas"), large());
  EXPECT_TRUE(files.openSoon(file + QStringLiteral(":5000:3"), CaretPlace{7, 1}));
  EXPECT_TRUE(files.pages().isEmpty());
  ASSERT_TRUE(waitForAll());
  EXPECT_EQ(front(), QStringLiteral("a.pas"));
  EXPECT_EQ(editor()->caretRow(), 5000);
  EXPECT_EQ(editor()->caretColumn(), 3);
}

TEST_F(FileOpeningsTest, TheFileThatWasNamedFirstComesToTheFront) {
  NamedFiles files(workspace);
  EXPECT_TRUE(files.openSoon(write(QStringLiteral("a.pas"), large()), CaretPlace{7, 1}));
  EXPECT_TRUE(files.openSoon(write(QStringLiteral("b.pas"), "b")));
  EXPECT_TRUE(files.show());
  EXPECT_EQ(front(), QStringLiteral("b.pas")) << "until the first is there";
  ASSERT_TRUE(waitForAll());
  EXPECT_EQ(front(), QStringLiteral("a.pas"));
  EXPECT_EQ(editor()->caretRow(), 7);
}

TEST_F(FileOpeningsTest, ANamedFileThatIsMissingIsNotOpened) {
  EXPECT_FALSE(NamedFiles(workspace).openSoon(path(QStringLiteral("no/a.pas"))));
}

} // namespace
} // namespace desktop
