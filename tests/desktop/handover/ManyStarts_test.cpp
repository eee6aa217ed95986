// SPDX-License-Identifier: MIT
// Several processes of the real program, one of which is the editor.
#include "desktop/handover/HandOverFixture.h"
#include "desktop/handover/Start.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <csignal>
#include <memory>
#include <vector>

namespace desktop {
namespace {

class ManyStarts : public HandOverFixture {
protected:
  ManyStarts() {
    for (const QString& name : {a, b, c, d})
      write(name);
  }

  std::unique_ptr<Start> start(const QStringList& arguments) const {
    return std::make_unique<Start>(folder_.path(), QStringList{QStringLiteral("--no-splash")} + arguments);
  }
  // What the editor with the session has written down, the names of its files in the order of the alphabet.
  QStringList session() const {
    QStringList names;
    QFile file(path(QStringLiteral("state/virelle/session.json")));
    if (!file.open(QIODevice::ReadOnly))
      return names;
    for (const QJsonValue window : QJsonDocument::fromJson(file.readAll())[QStringLiteral("windows")].toArray()) {
      for (const QJsonValue page : window[QStringLiteral("pages")].toArray())
        names.append(QFileInfo(page[QStringLiteral("file")].toString()).fileName());
    }
    names.sort();
    return names;
  }
  bool sessionBecomes(const QStringList& names) const {
    return support::waitUntil([&] { return session() == names; });
  }

  const QString a = QStringLiteral("a.pas");
  const QString b = QStringLiteral("b.pas");
  const QString c = QStringLiteral("c.pas");
  const QString d = QStringLiteral("d.pas");
};

TEST_F(ManyStarts, AtOnceMakeOneEditorWithAllFiles) {
  std::vector<std::unique_ptr<Start>> starts;
  for (const QString& name : {a, b, c, d})
    starts.push_back(start({name}));
  const auto running = [&] {
    return std::ranges::count_if(starts, [](const auto& each) { return each->isRunning(); });
  };
  ASSERT_TRUE(support::waitUntil([&] { return running() == 1; }));
  EXPECT_TRUE(sessionBecomes({a, b, c, d}));
  EXPECT_EQ(running(), 1);
  for (const auto& each : starts) {
    if (!each->isRunning()) {
      EXPECT_EQ(each->exitCode(), 0) << each->errors().toStdString();
    }
  }
}

TEST_F(ManyStarts, AfterAnEditorWasKilledMakeAnotherThatIsFound) {
  {
    const auto killed = start({a});
    ASSERT_TRUE(sessionBecomes({a}));
  }
  const auto editor = start({b});
  ASSERT_TRUE(sessionBecomes({a, b}));
  EXPECT_EQ(start({c})->exitCode(), 0);
  EXPECT_TRUE(sessionBecomes({a, b, c}));
  EXPECT_TRUE(editor->isRunning());
}

TEST_F(ManyStarts, BesideAnEditorThatHangsMakeAnotherAndSaySo) {
  const auto hung = start({a});
  ASSERT_TRUE(sessionBecomes({a}));
  ASSERT_EQ(::kill(static_cast<pid_t>(hung->processId()), SIGSTOP), 0);
  const auto other = start({b});
  QString errors;
  EXPECT_TRUE(support::waitUntil([&] {
    errors += other->errors();
    return errors.contains(
        QStringLiteral("virelle: the editor that is running does not answer; starting another one\n"));
  }));
  ASSERT_EQ(::kill(static_cast<pid_t>(hung->processId()), SIGCONT), 0);
  EXPECT_EQ(start({c})->exitCode(), 0);
  EXPECT_TRUE(sessionBecomes({a, c})) << "b belongs to the other";
  EXPECT_TRUE(other->isRunning());
}

TEST_F(ManyStarts, ThatWaitFailWhenTheEditorDies) {
  auto editor = start({a});
  ASSERT_TRUE(sessionBecomes({a}));
  const auto waiting = start({QStringLiteral("--wait"), b});
  ASSERT_TRUE(sessionBecomes({a, b}));
  EXPECT_TRUE(waiting->isRunning());
  editor.reset();
  EXPECT_EQ(waiting->exitCode(), 2);
  EXPECT_EQ(waiting->errors(), QStringLiteral("virelle: the editor has ended before the file was closed\n"));
}

TEST_F(ManyStarts, WithNewMakeAnEditorOfTheirOwn) {
  const auto editor = start({a});
  ASSERT_TRUE(sessionBecomes({a}));
  const auto other = start({QStringLiteral("--new"), b});
  ASSERT_TRUE(support::waitUntil([&] {
    QFile recent(path(QStringLiteral("state/virelle/recent-files.json")));
    return recent.open(QIODevice::ReadOnly) && recent.readAll().contains("b.pas");
  }));
  EXPECT_EQ(start({c})->exitCode(), 0);
  EXPECT_TRUE(sessionBecomes({a, c})) << "b belongs to the other";
  EXPECT_TRUE(other->isRunning());
}

} // namespace
} // namespace desktop
