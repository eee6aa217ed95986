// SPDX-License-Identifier: MIT
#include "desktop/ui/FilesSearch.h"

#include "desktop/ui/ResultList.h"
#include "desktop/ui/ResultsPanel.h"
#include "desktop/ui/ResultWalk.h"
#include "desktop/ui/UiFixture.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QDir>
#include <QFileDialog>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QToolButton>

#include <memory>
#include <string>
#include <vector>

namespace desktop {
namespace {

using Strings = std::vector<std::string>;

using FindInFilesAnswer = support::ModalAnswer<FindInFilesDialog>;

class FilesSearchTest : public UiFixture {
protected:
  FindInFilesRequest request(const QString& text) const {
    FindInFilesRequest wanted;
    wanted.terms.text = text;
    wanted.folder = folder_.path();
    return wanted;
  }

  void search(const QString& text) {
    workspace.filesSearch().start(request(text), window());
    waitForEnd();
  }
  void waitForEnd() {
    ASSERT_TRUE(support::waitUntil([this] { return !results().isRunning(); }));
  }

  ResultList& results() const { return workspace.results(); }

  // Each place as "file:line:column text".
  std::vector<std::string> places() const {
    std::vector<std::string> all;
    for (int row = 0; row < results().count(); ++row) {
      const FoundPlace place = results().place(row);
      all.push_back(QStringLiteral("%1:%2:%3 %4")
                        .arg(QDir(folder_.path()).relativeFilePath(place.fileName))
                        .arg(place.line)
                        .arg(place.column)
                        .arg(place.text)
                        .toStdString());
    }
    return all;
  }

  static QLineEdit& field(FindInFilesDialog& dialog, const char* name) {
    return *dialog.findChild<QLineEdit*>(QLatin1StringView(name));
  }
};

TEST_F(FilesSearchTest, ListsMatchesAndSaysHowManyInThePanel) {
  write(QStringLiteral("a.pas"), "\tneedle\nneedle needle\n");
  write(QStringLiteral("b.pp"), "Needle\n");
  write(QStringLiteral("c.pas"), "\n");
  write(QStringLiteral("d.txt"), "needle\n");
  activate(window());
  search(QStringLiteral("needle"));
  EXPECT_EQ(places(),
            (Strings{"a.pas:1:9 needle", "a.pas:2:1 needle needle", "a.pas:2:8 needle needle", "b.pp:1:1 Needle"}));
  EXPECT_EQ(results().title(), QStringLiteral("Matches of “needle”"));
  EXPECT_EQ(results().summary(), QStringLiteral("4 matches in 2 of 3 files"));
  EXPECT_TRUE(frame()->resultsPanel()->isVisible());
}

TEST_F(FilesSearchTest, SaysThatThereIsNothing) {
  write(QStringLiteral("a.pas"), "\n");
  search(QStringLiteral("needle"));
  EXPECT_EQ(results().count(), 0);
  EXPECT_EQ(results().summary(), QStringLiteral("Nothing found in 1 file"));
}

TEST_F(FilesSearchTest, TheNextResultIsSelectedInItsFile) {
  write(QStringLiteral("a.pas"), "\n\tx needle\n");
  activate(window());
  search(QStringLiteral("needle"));
  action(QStringLiteral("SearchNextResultCommand"))->trigger();
  ASSERT_NE(workspace.topPage(), nullptr);
  EXPECT_EQ(workspace.topPage()->document()->fileName(), path(QStringLiteral("a.pas")));
  EXPECT_EQ(editor()->textCursor().selectedText(), QStringLiteral("needle"));
  EXPECT_EQ(editor()->textCursor().blockNumber(), 1);
}

TEST_F(FilesSearchTest, UnsavedTextIsSearchedAsItIsInTheEditor) {
  openText(QStringLiteral("a.pas"), "needle\n");
  editor()->selectAll();
  type(QStringLiteral("x\nneedle 2"));
  search(QStringLiteral("needle"));
  EXPECT_EQ(places(), (Strings{"a.pas:2:1 needle 2"}));
  EXPECT_EQ(read(QStringLiteral("a.pas")), "needle\n");
}

TEST_F(FilesSearchTest, WhatCouldNotBeSearchedStandsAtTheEnd) {
  write(QStringLiteral("a.pas"), QByteArray(40, 'x') + "\nxx1");
  FindInFilesRequest wanted = request(QStringLiteral("(x+x+)+\\d"));
  wanted.terms.regularExpression = true;
  workspace.filesSearch().start(wanted, window());
  waitForEnd();
  EXPECT_EQ(places(), (Strings{"a.pas:2:1 xx1", "a.pas:1:1 a.pas has lines that the pattern is too complex for"}));
  EXPECT_EQ(results().place(1).severity, Severity::Warning);
  EXPECT_EQ(results().summary(),
            QStringLiteral("1 match in 1 of 1 file; not all was searched, the reasons stand at the end"));
}

TEST_F(FilesSearchTest, SaysWhenThereMayBeMore) {
  write(QStringLiteral("a.pas"), QByteArray("needle\n").repeated(mostFileMatches + 1));
  search(QStringLiteral("needle"));
  EXPECT_EQ(results().count(), mostFileMatches);
  EXPECT_EQ(
      results().summary(),
      QStringLiteral("%L1 matches in 1 of 1 file; there may be more, the search ends after %L1").arg(mostFileMatches));
}

// A folder in which a search takes long.
class LongFilesSearchTest : public FilesSearchTest {
protected:
  LongFilesSearchTest() {
    const QByteArray slow = (QByteArray("x").repeated(16) + '\n').repeated(20'000);
    for (int i = 0; i < 20; ++i)
      write(QStringLiteral("f%1.pas").arg(i), slow);
  }
  void startSlow() {
    FindInFilesRequest wanted = request(QStringLiteral("(x+x+)+\\d"));
    wanted.terms.regularExpression = true;
    workspace.filesSearch().start(wanted, window());
  }
};

TEST_F(LongFilesSearchTest, StopInThePanelEndsIt) {
  activate(window());
  startSlow();
  auto* const stop = frame()->resultsPanel()->findChild<QToolButton*>(QStringLiteral("StopResults"));
  EXPECT_TRUE(stop->isVisible());
  stop->click();
  waitForEnd();
  EXPECT_TRUE(results().summary().endsWith(QStringLiteral("; stopped"))) << results().summary().toStdString();
  EXPECT_FALSE(stop->isVisible());
}

TEST_F(LongFilesSearchTest, ANewSearchEndsTheOneBefore) {
  write(QStringLiteral("z.pas"), "needle");
  startSlow();
  search(QStringLiteral("needle"));
  EXPECT_EQ(places(), (Strings{"z.pas:1:1 needle"}));
}

TEST_F(LongFilesSearchTest, AnotherRunOfTheListEndsIt) {
  startSlow();
  const int run = results().begin(QStringLiteral("Another"));
  support::settle();
  results().finish(run, QStringLiteral("Done"));
  EXPECT_EQ(results().summary(), QStringLiteral("Done"));
}

TEST_F(LongFilesSearchTest, WhatAnotherRunHasEndedSaysNothingAnyMore) {
  activate(window());
  openText(QStringLiteral("a.txt"), "one\n");
  startSlow();
  results().begin(QStringLiteral("Another"));
  bool isThrough = false;
  FindInFiles* const finder = workspace.filesSearch().findChild<FindInFiles*>();
  ASSERT_NE(finder, nullptr);
  QObject::connect(finder, &FindInFiles::finished, window(), [&isThrough] { isThrough = true; });
  ASSERT_TRUE(support::waitUntil([&isThrough] { return isThrough; }));
  EXPECT_EQ(status(QStringLiteral("Remark")), QString());
}

TEST(FilesSearch, TheWorkspaceCanGoMeanwhile) {
  const QTemporaryDir folder;
  for (int i = 0; i < 20; ++i) {
    QFile file(folder.filePath(QStringLiteral("f%1.pas").arg(i)));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write((QByteArray("x").repeated(16) + '\n').repeated(20'000));
  }
  auto workspace = std::make_unique<Workspace>();
  FindInFilesRequest wanted;
  wanted.terms = {QStringLiteral("(x+x+)+\\d"), false, false, true};
  wanted.folder = folder.path();
  workspace->filesSearch().start(wanted, workspace->topWindow());
  const QPointer<FilesSearch> running = &workspace->filesSearch();
  workspace.reset();
  EXPECT_TRUE(running.isNull());
  support::settle();
}

class FindInFilesDialogTest : public FilesSearchTest {
protected:
  FindInFilesDialogTest() { activate(window()); }
  void ask() { action(QStringLiteral("SearchFilesCommand"))->trigger(); }
};

TEST_F(FindInFilesDialogTest, AsksAndBeginsWithEnter) {
  openText(QStringLiteral("a.pas"), "needle\n");
  const FindInFilesAnswer answer([this](FindInFilesDialog& dialog) {
    EXPECT_EQ(field(dialog, "FilesFolder").text(), folder_.path());
    EXPECT_EQ(field(dialog, "FilesNames").text(), QStringLiteral("*.pas;*.dpr;*.dpk;*.inc;*.pp"));
    field(dialog, "FilesText").setText(QStringLiteral("needle"));
    QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    QCoreApplication::sendEvent(&field(dialog, "FilesText"), &enter);
  });
  ask();
  waitForEnd();
  EXPECT_EQ(places(), (Strings{"a.pas:1:1 needle"}));
}

TEST_F(FindInFilesDialogTest, CancelledItBeginsNothing) {
  const FindInFilesAnswer answer([](FindInFilesDialog& dialog) {
    field(dialog, "FilesText").setText(QStringLiteral("needle"));
    support::clickButton(dialog, QStringLiteral("Cancel"));
  });
  ask();
  EXPECT_EQ(results().title(), QString());
}

TEST_F(FindInFilesDialogTest, TakesTheSelectionOfOneLineAndElseWhatWasLookedForLast) {
  openText(QStringLiteral("a.pas"), "one\ntwo\n");
  select(4, 7);
  const auto expecting = [](const char* text) {
    return [text](FindInFilesDialog& dialog) {
      EXPECT_EQ(field(dialog, "FilesText").text().toStdString(), text);
      dialog.reject();
    };
  };
  search(QStringLiteral("last"));
  const FindInFilesAnswer answer({expecting("two"), expecting("last")});
  ask();
  select(0, 7);
  ask();
}

TEST_F(FindInFilesDialogTest, AMatchInASubfolderDoesNotNarrowTheNextSearch) {
  ASSERT_TRUE(QDir(folder_.path()).mkpath(QStringLiteral("sub")));
  write(QStringLiteral("sub/a.pas"), "needle\n");
  search(QStringLiteral("needle"));
  action(QStringLiteral("SearchNextResultCommand"))->trigger();
  ASSERT_NE(workspace.topPage(), nullptr);
  FindInFilesRequest flat = request(QStringLiteral("needle"));
  flat.subfolders = false;
  const auto expecting = [](const QString& folder) {
    return [folder](FindInFilesDialog& dialog) {
      EXPECT_EQ(field(dialog, "FilesFolder").text(), folder);
      dialog.reject();
    };
  };
  const FindInFilesAnswer answer({expecting(folder_.path()), expecting(path(QStringLiteral("sub")))});
  ask();
  workspace.filesSearch().start(flat, window());
  waitForEnd();
  ask();
}

TEST_F(FindInFilesDialogTest, CannotBeAcceptedWithoutATextOrAFolder) {
  const FindInFilesAnswer answer([](FindInFilesDialog& dialog) {
    auto& find = *dialog.findChild<QPushButton*>(QStringLiteral("FilesFind"));
    EXPECT_FALSE(find.isEnabled());
    field(dialog, "FilesText").setText(QStringLiteral("x"));
    EXPECT_TRUE(find.isEnabled());
    field(dialog, "FilesFolder").setText(QStringLiteral(" "));
    EXPECT_FALSE(find.isEnabled());
    dialog.reject();
  });
  ask();
}

TEST_F(FindInFilesDialogTest, WhatIsWrongStandsInItUntilItIsMended) {
  const FindInFilesAnswer answer([this](FindInFilesDialog& dialog) {
    auto& problem = *dialog.findChild<QLabel*>(QStringLiteral("FilesProblem"));
    field(dialog, "FilesText").setText(QStringLiteral("(x"));
    dialog.findChild<QCheckBox*>(QStringLiteral("FilesRegularExpression"))->setChecked(true);
    field(dialog, "FilesFolder").setText(path(QStringLiteral("missing")));
    support::clickButton(dialog, QStringLiteral("Find"));
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_EQ(problem.text(), QStringLiteral("Bad pattern at character 3: missing closing parenthesis"));
    EXPECT_EQ(dialog.focusWidget(), &field(dialog, "FilesText"));
    field(dialog, "FilesText").setText(QStringLiteral("x"));
    EXPECT_FALSE(problem.isVisible());
    field(dialog, "FilesNames").setText(QStringLiteral("*.pas; [a"));
    support::clickButton(dialog, QStringLiteral("Find"));
    EXPECT_EQ(problem.text(), QStringLiteral("There can be no file with the name [a"));
    EXPECT_EQ(dialog.focusWidget(), &field(dialog, "FilesNames"));
    field(dialog, "FilesNames").setText(QStringLiteral("*.pas"));
    support::clickButton(dialog, QStringLiteral("Find"));
    EXPECT_EQ(problem.text(), QStringLiteral("There is no folder %1").arg(path(QStringLiteral("missing"))));
    dialog.reject();
  });
  ask();
}

TEST_F(FindInFilesDialogTest, CanGoWhileAFolderIsBeingChosen) {
  FindInFilesRequest shown;
  shown.folder = folder_.path();
  const QPointer<FindInFilesDialog> dialog = new FindInFilesDialog(shown);
  const support::ModalAnswer<QFileDialog> answer([&dialog](QFileDialog&) { delete dialog; });
  dialog->findChild<QPushButton*>(QStringLiteral("FilesBrowse"))->click();
  EXPECT_TRUE(dialog.isNull());
}

TEST_F(FindInFilesDialogTest, ATextIsTakenWithoutTheLineEndThatCameWithIt) {
  FindInFilesDialog dialog({});
  field(dialog, "FilesText").setText(QStringLiteral("needle\r\nmore"));
  EXPECT_EQ(dialog.request().terms.text, QStringLiteral("needle"));
}

TEST_F(FindInFilesDialogTest, RelativeFoldersCountFromTheOneThatItCameUpWith) {
  FindInFilesRequest shown;
  shown.folder = folder_.path();
  FindInFilesDialog dialog(shown);
  field(dialog, "FilesFolder").setText(QStringLiteral("sub/../other"));
  EXPECT_EQ(dialog.request().folder, path(QStringLiteral("other")));
  field(dialog, "FilesFolder").setText(QStringLiteral("~/units"));
  EXPECT_EQ(dialog.request().folder, QDir::homePath() + QStringLiteral("/units"));
}

TEST_F(FindInFilesDialogTest, FileNamesAreWildcardsBetweenSemicolons) {
  FindInFilesRequest shown;
  shown.names = QStringLiteral(" *.pas ; a b.inc,*.pp;");
  EXPECT_EQ(shown.patterns(),
            QStringList({QStringLiteral("*.pas"), QStringLiteral("a b.inc"), QStringLiteral("*.pp")}));
  shown.names = QStringLiteral("  ");
  EXPECT_TRUE(shown.patterns().isEmpty());
}

} // namespace
} // namespace desktop
