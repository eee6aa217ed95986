// SPDX-License-Identifier: MIT
#include "desktop/ui/ResultsFixture.h"

#include <QIcon>
#include <QImage>

#include <initializer_list>

namespace desktop {
namespace {

class ResultListTest : public ResultsFixture {
protected:
  static QStringList expected(std::initializer_list<const char*> texts) {
    QStringList list;
    for (const char* const text : texts)
      list.append(QString::fromLatin1(text));
    return list;
  }
};

TEST_F(ResultListTest, ShowsTextFileLineAndColumn) {
  listPlaces({placeIn(QStringLiteral("a.pas"), 3, 4)});
  EXPECT_EQ(shown(0, ResultList::TextColumn), QStringLiteral("place in line 3"));
  EXPECT_EQ(shown(0, ResultList::FileColumn), QStringLiteral("a.pas"));
  EXPECT_EQ(shownPlaces(), expected({"3:5"}));
}

TEST_F(ResultListTest, ShowsFilesRelativeToTheFolderOfTheRun) {
  const QString folder = QDir::cleanPath(folder_.path());
  const int run = list().begin(QStringLiteral("Search"), {}, folder);
  list().append(run, {placeIn(QStringLiteral("sub/a.pas"), 1)});
  FoundPlace outside = placeIn(QStringLiteral("b.pas"), 1);
  outside.fileName = folder + QStringLiteral("-other/b.pas");
  list().append(run, {outside});
  EXPECT_EQ(shown(0, ResultList::FileColumn), QStringLiteral("sub/a.pas"));
  EXPECT_EQ(shown(1, ResultList::FileColumn), outside.fileName);
}

TEST_F(ResultListTest, ReadsARowAloudInOneSentence) {
  FoundPlace place = placeIn(QStringLiteral("a.pas"), 3, 4);
  place.severity = Severity::Error;
  listPlaces({place});
  EXPECT_EQ(list().index(0, 0).data(Qt::AccessibleTextRole).toString(),
            QStringLiteral("Error: place in line 3, a.pas, line 3, column 5"));
}

TEST_F(ResultListTest, ReadsTextsWithPercentSignsAsTheyAre) {
  FoundPlace place = placeIn(QStringLiteral("a.pas"), 3, 4);
  place.text = QStringLiteral("Format('%4d %5s')");
  listPlaces({place});
  EXPECT_EQ(list().index(0, 0).data(Qt::AccessibleTextRole).toString(),
            QStringLiteral("Match: Format('%4d %5s'), a.pas, line 3, column 5"));
}

TEST_F(ResultListTest, TellsSeveritiesApartByTheirSigns) {
  QList<QImage> signs;
  for (const Severity severity : {Severity::Error, Severity::Warning, Severity::Information}) {
    FoundPlace place = placeIn(QStringLiteral("a.pas"), 1);
    place.severity = severity;
    listPlaces({place});
    const auto icon = list().index(0, 0).data(Qt::DecorationRole).value<QIcon>();
    EXPECT_FALSE(icon.isNull());
    const QImage sign = icon.pixmap(16, 16).toImage().convertToFormat(QImage::Format_Grayscale8);
    EXPECT_FALSE(signs.contains(sign));
    signs.append(sign);
  }
}

TEST_F(ResultListTest, TakesNoTextForMarkup) {
  FoundPlace place = placeIn(QStringLiteral("a.pas"), 1);
  place.text = QStringLiteral("<b>bold</b> & more");
  listPlaces({place});
  EXPECT_EQ(list().index(0, 0).data(Qt::ToolTipRole).toString(),
            QStringLiteral("<qt>&lt;b&gt;bold&lt;/b&gt; &amp; more</qt>"));
}

TEST_F(ResultListTest, ANewRunEndsTheOneBeforeAndTakesItsPlaces) {
  int stopped = 0;
  const int first = list().begin(QStringLiteral("First"), [&stopped] { ++stopped; });
  list().append(first, {placeIn(QStringLiteral("a.pas"), 1)});
  const int second = list().begin(QStringLiteral("Second"));
  EXPECT_EQ(stopped, 1);
  EXPECT_EQ(list().count(), 0);
  EXPECT_EQ(list().title(), QStringLiteral("Second"));
  list().append(first, {placeIn(QStringLiteral("a.pas"), 1)});
  list().finish(first, QStringLiteral("late"));
  EXPECT_EQ(list().count(), 0);
  EXPECT_TRUE(list().isRunning());
  list().finish(second, QStringLiteral("done"));
  EXPECT_EQ(list().summary(), QStringLiteral("done"));
}

TEST_F(ResultListTest, AFinishedRunIsNotStoppedAnyMore) {
  int stopped = 0;
  const int run = list().begin(QStringLiteral("Search"), [&stopped] { ++stopped; });
  list().finish(run, QStringLiteral("done"));
  list().stop();
  list().begin(QStringLiteral("Next"));
  EXPECT_EQ(stopped, 0);
}

TEST_F(ResultListTest, ARunMayFinishWhenItIsStopped) {
  int run = 0;
  run = list().begin(QStringLiteral("Search"), [this, &run] { list().finish(run, QStringLiteral("stopped")); });
  list().stop();
  EXPECT_FALSE(list().isRunning());
  EXPECT_EQ(list().summary(), QStringLiteral("stopped"));
}

TEST_F(ResultListTest, PlacesFollowTheEditsOfAnOpenPage) {
  Page* const page = openText(QStringLiteral("a.pas"), "one\ntwo\nthree\n");
  listPlaces({placeIn(QStringLiteral("a.pas"), 1, 1), placeIn(QStringLiteral("a.pas"), 2, 1),
              placeIn(QStringLiteral("a.pas"), 3, 2)});
  insertAt(page, 2, 0, QStringLiteral("new\n\t"));
  EXPECT_EQ(shownPlaces(), expected({"1:2", "3:10", "4:3"}));
  page->document()->undo();
  EXPECT_EQ(shownPlaces(), expected({"1:2", "2:2", "3:3"}));
}

TEST_F(ResultListTest, AnEditIsToldToTheViews) {
  Page* const page = openText(QStringLiteral("a.pas"), "one\ntwo\n");
  listPlaces({placeIn(QStringLiteral("a.pas"), 2)});
  int changes = 0;
  const QObject listener;
  QObject::connect(&list(), &ResultList::dataChanged, &listener, [&changes] { ++changes; });
  insertAt(page, 1, 0, QStringLiteral("x\n"));
  EXPECT_GT(changes, 0);
}

TEST_F(ResultListTest, ColumnsAreThoseOfTheStatusBar) {
  openText(QStringLiteral("a.pas"), "\t\xC3\xA4\xF0\x9F\x98\x80x\n");
  listPlaces({placeIn(QStringLiteral("a.pas"), 1, 4)}); // x, behind a tab, a letter and a pair
  walk().go(0, window());
  EXPECT_EQ(shownPlaces(), expected({"1:11"}));
  EXPECT_EQ(status(QStringLiteral("CaretPosition")), QStringLiteral("Line 1, Column 11"));
}

TEST_F(ResultListTest, PlacesOfAFileThatIsOpenedLaterFollowItThen) {
  write(QStringLiteral("a.pas"), "one\ntwo\n");
  listPlaces({placeIn(QStringLiteral("a.pas"), 2)});
  Page* const page = workspace.openFile(path(QStringLiteral("a.pas")));
  insertAt(page, 1, 0, QStringLiteral("x\n"));
  EXPECT_EQ(shownPlaces(), expected({"3:1"}));
}

TEST_F(ResultListTest, PlacesStayWhereSavedEditsHaveBroughtThem) {
  Page* const page = openText(QStringLiteral("a.pas"), "one\ntwo\tx\n");
  listPlaces({placeIn(QStringLiteral("a.pas"), 2), placeIn(QStringLiteral("a.pas"), 2, 4)});
  insertAt(page, 1, 0, QStringLiteral("x\n"));
  ASSERT_TRUE(workspace.files().save(page));
  window()->closePage(page);
  EXPECT_EQ(shownPlaces(), expected({"3:1", "3:9"}));
}

TEST_F(ResultListTest, PlacesGoBackWhenEditsAreDiscarded) {
  Page* const page = openText(QStringLiteral("a.pas"), "one\ntwo\n");
  listPlaces({placeIn(QStringLiteral("a.pas"), 2)});
  insertAt(page, 1, 0, QStringLiteral("x\n"));
  window()->closePage(page);
  EXPECT_EQ(shownPlaces(), expected({"2:1"}));
}

TEST_F(ResultListTest, PlacesKnowTheNewNameOfTheirFile) {
  Page* const page = openText(QStringLiteral("a.pas"), "one\n");
  listPlaces({placeIn(QStringLiteral("a.pas"), 1)});
  page->document()->setFileName(path(QStringLiteral("b.pas")));
  EXPECT_EQ(shown(0, ResultList::FileColumn), QStringLiteral("b.pas"));
  EXPECT_EQ(list().page(0), page);
}

TEST_F(ResultListTest, PlacesBeyondTheTextStandAtItsEnd) {
  openText(QStringLiteral("a.pas"), "one\ntwo");
  listPlaces({placeIn(QStringLiteral("a.pas"), 9, 9), placeIn(QStringLiteral("a.pas"), 1, 99)});
  EXPECT_EQ(shownPlaces(), expected({"2:4", "1:4"}));
}

TEST_F(ResultListTest, PlacesOfSeveralPagesFollowEachTheirOwn) {
  Page* const a = openText(QStringLiteral("a.pas"), "one\ntwo\n");
  openText(QStringLiteral("b.pas"), "one\ntwo\n");
  listPlaces({placeIn(QStringLiteral("a.pas"), 2), placeIn(QStringLiteral("b.pas"), 2)});
  insertAt(a, 1, 0, QStringLiteral("x\n"));
  EXPECT_EQ(shownPlaces(), expected({"3:1", "2:1"}));
}

class ManyPlaces : public ResultListTest {
protected:
  // Lists a place for each line, more than have cursors.
  void SetUp() override {
    page = openText(QStringLiteral("a.pas"), QByteArray("line\n").repeated(3'000));
    std::vector<FoundPlace> places;
    for (int line = 1; line <= 3'000; ++line)
      places.push_back(placeIn(QStringLiteral("a.pas"), line, 2));
    listPlaces(places);
  }
  QString shownPlace(int row) const {
    return shown(row, ResultList::LineColumn) + u':' + shown(row, ResultList::CellColumn);
  }
  Page* page = nullptr;
};

TEST_F(ManyPlaces, FollowLinesThatComeAndGo) {
  insertAt(page, 2'000, 0, QStringLiteral("a\nb\n"));
  EXPECT_EQ(shownPlace(1'997), QStringLiteral("1998:3"));
  EXPECT_EQ(shownPlace(1'998), QStringLiteral("1999:3"));
  EXPECT_EQ(shownPlace(1'999), QStringLiteral("2002:3"));
  EXPECT_EQ(shownPlace(2'000), QStringLiteral("2003:3"));
  page->document()->undo();
  EXPECT_EQ(shownPlace(1'999), QStringLiteral("2000:3"));
  EXPECT_EQ(shownPlace(2'000), QStringLiteral("2001:3"));
  EXPECT_EQ(shownPlace(2'999), QStringLiteral("3000:3"));
}

TEST_F(ManyPlaces, StayOnTheirLinesInAGroupOfEdits) {
  QTextCursor group(page->document());
  group.beginEditBlock();
  for (QTextBlock block = page->document()->begin(); block.isValid(); block = block.next())
    QTextCursor(block).insertText(QStringLiteral("  "));
  group.endEditBlock();
  EXPECT_EQ(shown(2'500, ResultList::LineColumn), QStringLiteral("2501"));
}

TEST_F(ManyPlaces, AreKeptWhenTheirTextIsSavedAndNotWhenItIsDiscarded) {
  insertAt(page, 1, 0, QStringLiteral("a\n"));
  ASSERT_TRUE(workspace.files().save(page));
  insertAt(page, 1, 0, QStringLiteral("b\n"));
  EXPECT_EQ(shownPlace(2'500), QStringLiteral("2503:3"));
  window()->closePage(page);
  EXPECT_EQ(shownPlace(2'500), QStringLiteral("2502:3"));
}

} // namespace
} // namespace desktop
