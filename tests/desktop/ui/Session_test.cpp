// SPDX-License-Identifier: MIT
#include "desktop/ui/UiFixture.h"

#include "desktop/ui/FileOpenings.h"
#include "desktop/ui/RecentFiles.h"
#include "desktop/ui/ResultsPanel.h"
#include "desktop/ui/Session.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <functional>
#include <memory>
#include <utility>

namespace desktop {
namespace {

// One editor after the other, with one file for the session.
class SessionTest : public testing::Test {
protected:
  // The editor of one run.
  struct Run {
    explicit Run(const QString& file) : session(workspace, file) {
      session.restore();
      if (workspace.topWindow()->pages().isEmpty())
        workspace.newFile();
      for (const TEditWindow* window : workspace.windows())
        workspace.frameOf(window)->show();
      session.restoreViews();
    }
    TEditWindow* window(qsizetype i = 0) const { return workspace.windows().at(i); }
    QStringList titles(qsizetype i = 0) const {
      QStringList titles;
      for (const Page* page : window(i)->pages())
        titles.append(page->title());
      return titles;
    }
    QStringList messages() const { return window()->messageBar()->messages(); }
    bool waitForAll() const {
      return support::waitUntil([this] { return workspace.openings().isIdle(); });
    }

    Workspace workspace;
    Session session;
  };

  // So many lines of source() take a while to be opened.
  static constexpr int large = FileOpenings::largeBytes / 20 + 1;

  QString path(const QString& name) const { return folder_.filePath(name); }
  QString file() const { return path(QStringLiteral("state/session.json")); }
  QString write(const QString& name, const QByteArray& bytes) const {
    QFile out(path(name));
    EXPECT_TRUE(out.open(QIODevice::WriteOnly));
    out.write(bytes);
    return path(name);
  }
  QString source(const char* name, int lines = 200) const {
    return write(QString::fromLatin1(name), QByteArray("line of some length\n").repeated(lines));
  }
  // Runs an editor, does `work`, and ends it in order.
  void run(const std::function<void(Run&)>& work) const {
    Run run(file());
    work(run);
    run.session.save();
  }

  QTemporaryDir folder_;
};

TEST_F(SessionTest, TheFirstRunHasNothingToRestore) {
  run([](const Run& first) {
    EXPECT_EQ(first.titles(), QStringList{QStringLiteral("Unit1.pas")});
    EXPECT_EQ(first.messages(), QStringList());
  });
}

TEST_F(SessionTest, TabsComeBackInTheirOrderWithTheSameOneInFront) {
  run([this](Run& first) {
    Page* const a = first.workspace.openFile(source("a.pas"));
    first.workspace.openFile(source("b.pas"));
    first.workspace.openFile(source("c.pas"));
    first.window()->showPage(a);
    first.workspace.openFile(source("d.pas"));
    first.window()->showPage(first.window()->pages().at(2));
  });
  run([](const Run& second) {
    EXPECT_EQ(second.titles(), (QStringList{QStringLiteral("a.pas"), QStringLiteral("d.pas"), QStringLiteral("b.pas"),
                                            QStringLiteral("c.pas")}));
    EXPECT_EQ(second.window()->currentPage()->title(), QStringLiteral("b.pas"));
    EXPECT_FALSE(second.window()->currentPage()->document()->isModified());
  });
}

TEST_F(SessionTest, EveryPageComesBackAsItWasShown) {
  const auto place = [](TEditWindow* window, int line) {
    window->editor()->setCaret(line + 3, 7);
    window->editor()->setTopLine(line);
  };
  run([&](Run& first) {
    first.workspace.openFile(source("a.pas"));
    place(first.window(), 50);
    first.workspace.openFile(source("b.pas"));
    place(first.window(), 120);
  });
  run([](Run& second) {
    TEditControl& editor = *second.window()->editor();
    EXPECT_EQ(editor.caretRow(), 123);
    EXPECT_EQ(editor.caretColumn(), 7);
    EXPECT_EQ(editor.topLine(), 120);
    second.window()->showPage(second.window()->pages().at(0));
    EXPECT_EQ(editor.caretRow(), 53);
    EXPECT_EQ(editor.topLine(), 50);
  });
}

TEST_F(SessionTest, ASelectionComesBack) {
  run([this](Run& first) {
    Page* const page = first.workspace.openFile(source("a.pas"));
    page->setState({9, 4, 0, 0});
  });
  run([](const Run& second) {
    EXPECT_EQ(second.window()->editor()->textCursor().anchor(), 4);
    EXPECT_EQ(second.window()->editor()->textCursor().position(), 9);
  });
}

TEST_F(SessionTest, WindowsComeBackWithTheirFilesAndSizes) {
  run([this](Run& first) {
    first.workspace.openFile(source("a.pas"));
    first.workspace.frameOf(first.window())->resize(640, 480);
    TEditWindow* const second = first.workspace.newWindow();
    first.workspace.openFileIn(second, source("b.pas"));
    first.workspace.frameOf(second)->resize(500, 400);
    first.workspace.showPage(first.window()->currentPage());
  });
  run([](const Run& second) {
    ASSERT_EQ(second.workspace.windows().size(), 2);
    EXPECT_EQ(second.titles(0), QStringList{QStringLiteral("a.pas")});
    EXPECT_EQ(second.titles(1), QStringList{QStringLiteral("b.pas")});
    EXPECT_EQ(second.workspace.frameOf(second.window(0))->size(), QSize(640, 480));
    EXPECT_EQ(second.workspace.frameOf(second.window(1))->size(), QSize(500, 400));
  });
}

TEST_F(SessionTest, FilesWithoutANameAreNotRemembered) {
  run([this](Run& first) {
    first.workspace.openFile(source("a.pas"));
    first.workspace.newFile();
  });
  run([](const Run& second) { EXPECT_EQ(second.titles(), QStringList{QStringLiteral("a.pas")}); });
}

TEST_F(SessionTest, MissingFilesAreNamedOnceAndSkipped) {
  run([this](Run& first) {
    for (const char* name : {"a.pas", "b.pas", "c.pas"})
      first.workspace.openFile(source(name));
    first.workspace.openFileIn(first.workspace.newWindow(), source("d.pas"));
  });
  for (const char* name : {"a.pas", "c.pas", "d.pas"})
    QFile::remove(path(QString::fromLatin1(name)));
  run([this](const Run& second) {
    EXPECT_EQ(second.workspace.windows().size(), 1);
    EXPECT_EQ(second.titles(), QStringList{QStringLiteral("b.pas")});
    ASSERT_EQ(second.messages().size(), 1);
    for (const char* name : {"a.pas", "c.pas", "d.pas"})
      EXPECT_TRUE(second.messages().constFirst().contains(path(QString::fromLatin1(name))));
  });
  run([](const Run& third) { EXPECT_EQ(third.messages(), QStringList()); });
}

TEST_F(SessionTest, ADamagedFileIsToldInOneLineAndReplaced) {
  run([](const Run&) {});
  for (const char* contents : {"", "{", "[]", "{\"windows\": 1}", "\xFF\xFE garbage"}) {
    write(QStringLiteral("state/session.json"), contents);
    run([this, contents](Run& second) {
      EXPECT_EQ(second.titles(), QStringList{QStringLiteral("Unit1.pas")}) << contents;
      ASSERT_EQ(second.messages().size(), 1) << contents;
      EXPECT_FALSE(second.messages().constFirst().contains(u'\n'));
      second.workspace.openFile(source("a.pas"));
    });
    run([](const Run& third) { EXPECT_EQ(third.titles(), QStringList{QStringLiteral("a.pas")}); });
  }
}

TEST_F(SessionTest, ADamagedFileIsKeptAside) {
  run([](const Run&) {});
  const QString aside = file() + QStringLiteral(".damaged");
  for (const QByteArray contents : {"{ cut off", "[ cut off again"}) {
    write(QStringLiteral("state/session.json"), contents);
    run([&aside](const Run& second) {
      ASSERT_EQ(second.messages().size(), 1);
      EXPECT_TRUE(second.messages().constFirst().contains(aside)) << second.messages().constFirst().toStdString();
    });
    QFile kept(aside);
    ASSERT_TRUE(kept.open(QIODevice::ReadOnly));
    EXPECT_EQ(kept.readAll(), contents);
  }
}

TEST_F(SessionTest, NonsenseInTheFileDoesNoHarm) {
  run([](const Run&) {});
  write(QStringLiteral("state/session.json"),
        "{\"windows\": [1, null, {\"pages\": 3, \"geometry\": \"%%%\"}, {\"pages\": [{\"file\": 7}, {\"file\": \"" +
            source("a.pas").toUtf8() +
            "\", \"view\": {\"caret\": 1e300, \"anchor\": -5, \"topLine\": 2000000000, \"leftCell\": \"x\"}}], "
            "\"current\": -7}], \"top\": 99}");
  run([](const Run& second) {
    EXPECT_TRUE(second.titles().contains(QStringLiteral("a.pas")));
    EXPECT_EQ(second.messages(), QStringList());
  });
}

TEST_F(SessionTest, ASecondEditorNeitherTakesUpNorWritesTheSession) {
  run([this](Run& first) {
    first.workspace.openFile(source("a.pas"));
    first.session.save();
    run([this](Run& second) {
      EXPECT_EQ(second.titles(), QStringList{QStringLiteral("Unit1.pas")});
      second.workspace.openFile(source("b.pas"));
    });
  });
  run([](const Run& third) { EXPECT_EQ(third.titles(), QStringList{QStringLiteral("a.pas")}); });
}

TEST_F(SessionTest, IsWrittenAWhileAfterAChangeToo) {
  Run first(file());
  first.workspace.openFile(source("a.pas"));
  auto* const timer = first.session.findChild<QTimer*>(QStringLiteral("SessionTimer"));
  ASSERT_NE(timer, nullptr);
  EXPECT_TRUE(timer->isActive());
  timer->start(0);
  EXPECT_TRUE(support::waitUntil([this] { return QFileInfo::exists(file()); }));
  EXPECT_FALSE(timer->isActive());
  first.window()->editor()->setCaret(5, 1);
  EXPECT_TRUE(timer->isActive());
}

TEST_F(SessionTest, TheResultsPanelComesBackAsItWas) {
  int height = 0;
  run([this, &height](Run& first) {
    first.workspace.openFile(source("a.pas"));
    MainWindow* const frame = first.workspace.frameOf(first.window());
    frame->resultsPanel()->open();
    frame->resizeDocks({frame->resultsPanel()}, {260}, Qt::Vertical);
    support::settle();
    height = frame->resultsPanel()->height();
    EXPECT_EQ(height, 260);
  });
  run([&height](const Run& second) {
    const ResultsPanel* const panel = second.workspace.frameOf(second.window())->resultsPanel();
    support::settle();
    EXPECT_TRUE(panel->isVisible());
    EXPECT_EQ(panel->height(), height);
  });
}

TEST_F(SessionTest, AClosedResultsPanelStaysClosed) {
  run([this](Run& first) {
    first.workspace.openFile(source("a.pas"));
    first.workspace.frameOf(first.window())->resultsPanel()->open();
    first.workspace.frameOf(first.window())->resultsPanel()->leaveAndClose();
  });
  run([](const Run& second) { EXPECT_FALSE(second.workspace.frameOf(second.window())->resultsPanel()->isVisible()); });
}

TEST_F(SessionTest, OpeningTheResultsPanelIsAChange) {
  run([this](Run& first) { first.workspace.openFile(source("a.pas")); });
  Run second(file());
  auto* const timer = second.session.findChild<QTimer*>(QStringLiteral("SessionTimer"));
  timer->stop();
  second.workspace.frameOf(second.window())->resultsPanel()->open();
  EXPECT_TRUE(timer->isActive());
}

TEST_F(SessionTest, ADamagedStateOfThePanelsIsLeftOut) {
  run([this](Run& first) { first.workspace.openFile(source("a.pas")); });
  QFile session(file());
  ASSERT_TRUE(session.open(QIODevice::ReadOnly));
  QJsonObject json = QJsonDocument::fromJson(session.readAll()).object();
  session.close();
  QJsonArray windows = json[QStringLiteral("windows")].toArray();
  QJsonObject window = windows[0].toObject();
  const QByteArray state = QByteArray::fromBase64(window[QStringLiteral("panels")].toString().toLatin1());
  ASSERT_GT(state.size(), 20);
  window[QStringLiteral("panels")] = QString::fromLatin1(state.left(20).toBase64());
  windows[0] = window;
  json[QStringLiteral("windows")] = windows;
  ASSERT_TRUE(session.open(QIODevice::WriteOnly));
  session.write(QJsonDocument(json).toJson());
  session.close();
  run([](const Run& second) {
    EXPECT_EQ(second.titles(), QStringList{QStringLiteral("a.pas")});
    EXPECT_FALSE(second.workspace.frameOf(second.window())->resultsPanel()->isVisible());
  });
}

TEST_F(SessionTest, LargeFilesComeBackLaterAtTheirPlaces) {
  const QStringList order = {QStringLiteral("a.pas"), QStringLiteral("b.pas"), QStringLiteral("c.pas"),
                             QStringLiteral("d.pas")};
  run([this](Run& first) {
    for (const auto& [name, lines] : {std::pair("a.pas", large), {"b.pas", 200}, {"c.pas", large}, {"d.pas", 200}})
      first.workspace.openFile(source(name, lines));
    first.window()->showPage(first.window()->pages().at(2));
    first.window()->editor()->setCaret(5000, 4);
    first.window()->showPage(first.window()->pages().at(1));
  });
  run([&order](Run& second) {
    EXPECT_EQ(second.titles(), (QStringList{order[1], order[3]})) << "the small ones are there at once";
    ASSERT_TRUE(second.waitForAll());
    EXPECT_EQ(second.titles(), order);
    EXPECT_EQ(second.window()->currentPage()->title(), order[1]);
    second.window()->showPage(second.window()->pages().at(2));
    EXPECT_EQ(second.window()->editor()->caretRow(), 5000);
  });
}

TEST_F(SessionTest, ALargeFileThatWasInFrontComesToTheFront) {
  run([this](Run& first) {
    first.workspace.openFile(source("a.pas", large));
    first.workspace.openFile(source("b.pas"));
    first.window()->showPage(first.window()->pages().at(0));
  });
  run([](Run& second) {
    ASSERT_TRUE(second.waitForAll());
    EXPECT_EQ(second.window()->currentPage()->title(), QStringLiteral("a.pas"));
  });
}

TEST_F(SessionTest, ALargeFileThatComesBackLaterKeepsItsPlaceInTheRecentFiles) {
  const QString list = path(QStringLiteral("recent-files.json"));
  QStringList before;
  run([&](Run& first) {
    first.workspace.recentFiles().open(list);
    first.workspace.openFile(source("a.pas", large));
    first.workspace.openFile(source("b.pas"));
    before = first.workspace.recentFiles().files();
  });
  EXPECT_EQ(before, (QStringList{path(QStringLiteral("b.pas")), path(QStringLiteral("a.pas"))}));
  run([&](const Run& second) {
    second.workspace.recentFiles().open(list);
    ASSERT_TRUE(second.waitForAll());
    EXPECT_EQ(second.titles().size(), 2);
    EXPECT_EQ(second.workspace.recentFiles().files(), before);
  });
}

TEST_F(SessionTest, WhatIsStillBeingOpenedBelongsToTheSession) {
  run([this](Run& first) {
    first.workspace.openFile(source("a.pas", large));
    first.window()->editor()->setCaret(5000, 4);
    first.workspace.openFile(source("b.pas"));
  });
  run([](Run& second) { EXPECT_FALSE(second.workspace.openings().isIdle()); }); // ends before it is there
  run([](Run& third) {
    ASSERT_TRUE(third.waitForAll());
    EXPECT_EQ(third.titles(), (QStringList{QStringLiteral("a.pas"), QStringLiteral("b.pas")}));
    third.window()->showPage(third.window()->pages().at(0));
    EXPECT_EQ(third.window()->editor()->caretRow(), 5000);
  });
}

TEST_F(SessionTest, WhatWasStoppedDoesNotBelongToTheSession) {
  run([this](Run& first) { first.workspace.openFile(source("a.pas", large)); });
  run([](Run& second) { second.workspace.openings().stop(second.window()); });
  run([](Run& third) {
    EXPECT_TRUE(third.workspace.openings().isIdle());
    EXPECT_EQ(third.titles(), QStringList{QStringLiteral("Unit1.pas")});
  });
}

TEST_F(SessionTest, WithoutAPlaceThereIsNoSession) {
  Run nowhere((QString()));
  nowhere.workspace.openFile(source("a.pas"));
  nowhere.session.save();
  EXPECT_EQ(nowhere.messages(), QStringList());
}

} // namespace
} // namespace desktop
