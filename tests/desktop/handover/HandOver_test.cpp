// SPDX-License-Identifier: MIT
#include "desktop/handover/HandOver.h"

#include "desktop/handover/Caller.h"
#include "desktop/handover/HandOverFixture.h"
#include "desktop/handover/PeerUser.h"
#include "desktop/handover/RequestServer.h"
#include "platform/FileLock.h"
#include "support/LowerRights.h"
#include "support/SignalCount.h"

#include <QFileInfo>
#include <QLocalSocket>

#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <future>
#include <iterator>
#include <memory>
#include <utility>

namespace desktop {
namespace {

using Kind = HandOverOutcome::Kind;
using namespace std::chrono_literals;

class HandOver : public HandOverFixture {
protected:
  // Hands over in another thread; this one is the editor's.
  static std::future<HandOverOutcome> start(OpenRequest request, std::chrono::milliseconds patience = 120s) {
    return std::async(std::launch::async, [request = std::move(request), at = place(), patience] {
      return handOver(request, at, patience);
    });
  }
  static bool isDone(const std::future<HandOverOutcome>& outcome) {
    return outcome.wait_for(0s) == std::future_status::ready;
  }
  static HandOverOutcome resultOf(std::future<HandOverOutcome>& outcome) {
    EXPECT_TRUE(support::waitUntil([&] { return isDone(outcome); }));
    return outcome.get();
  }

  OpenRequest request(bool wait = false) const { return {folder_.path(), {QStringLiteral("a.pas")}, {}, wait, {}, {}}; }
};

TEST_F(HandOver, WithoutAnEditorGetsTheLock) {
  const HandOverOutcome outcome = handOver(request(), place());
  EXPECT_EQ(outcome.kind, Kind::NoEditor);
  EXPECT_NE(outcome.lock, nullptr);
  EXPECT_EQ(lockOf(place()), nullptr) << "it is held";
}

TEST_F(HandOver, IsServedByTheEditor) {
  const auto lock = lockOf(place());
  RequestServer server;
  ASSERT_TRUE(server.listen(place()));
  QObject::connect(&server, &RequestServer::asked, [this](Caller* caller) {
    EXPECT_EQ(caller->request().files, request().files);
    caller->tellOpened({QStringLiteral("a problem")});
  });
  auto outcome = start(request());
  const HandOverOutcome result = resultOf(outcome);
  EXPECT_EQ(result.kind, Kind::Opened);
  EXPECT_EQ(result.problems, QStringList{QStringLiteral("a problem")});
}

TEST_F(HandOver, ThatWaitsEndsWhenTheFilesAreClosed) {
  const auto lock = lockOf(place());
  RequestServer server;
  ASSERT_TRUE(server.listen(place()));
  Caller* asking = nullptr;
  QObject::connect(&server, &RequestServer::asked, [&](Caller* caller) {
    caller->tellOpened({});
    asking = caller;
  });
  auto outcome = start(request(true));
  ASSERT_TRUE(support::waitUntil([&] { return asking != nullptr; }));
  EXPECT_FALSE(isDone(outcome));
  asking->tellClosed();
  EXPECT_EQ(resultOf(outcome).kind, Kind::Closed);
}

TEST_F(HandOver, ThatWaitsIsLostWithTheEditor) {
  const auto lock = lockOf(place());
  auto server = std::make_unique<RequestServer>();
  ASSERT_TRUE(server->listen(place()));
  const support::SignalCount asked(server.get(), &RequestServer::asked);
  QObject::connect(server.get(), &RequestServer::asked, [](Caller* caller) { caller->tellOpened({}); });
  auto outcome = start(request(true));
  ASSERT_TRUE(support::waitUntil([&] { return asked.count() == 1; }));
  server.reset();
  EXPECT_EQ(resultOf(outcome).kind, Kind::Lost);
}

TEST_F(HandOver, ToAnEditorThatEndsFirstGetsTheLock) {
  auto lock = lockOf(place());
  auto server = std::make_unique<RequestServer>();
  ASSERT_TRUE(server->listen(place()));
  const support::SignalCount asked(server.get(), &RequestServer::asked);
  auto outcome = start(request());
  ASSERT_TRUE(support::waitUntil([&] { return asked.count() == 1; }));
  server.reset();
  EXPECT_FALSE(isDone(outcome)) << "the editor still has the lock";
  lock.reset();
  const HandOverOutcome result = resultOf(outcome);
  EXPECT_EQ(result.kind, Kind::NoEditor);
  EXPECT_NE(result.lock, nullptr);
}

TEST_F(HandOver, WaitsForAnEditorThatIsStarting) {
  const auto lock = lockOf(place());
  auto outcome = start(request());
  RequestServer server;
  ASSERT_TRUE(server.listen(place()));
  QObject::connect(&server, &RequestServer::asked, [](Caller* caller) { caller->tellOpened({}); });
  EXPECT_EQ(resultOf(outcome).kind, Kind::Opened);
}

TEST_F(HandOver, GivesUpOnAnEditorThatHangsAndLeavesNoRequestBehind) {
  const auto lock = lockOf(place());
  RequestServer server;
  ASSERT_TRUE(server.listen(place()));
  const support::SignalCount asked(&server, &RequestServer::asked);
  EXPECT_EQ(handOver(request(), place(), 50ms).kind, Kind::NoAnswer); // no event is served meanwhile
  auto late = start(request());
  ASSERT_TRUE(support::waitUntil([&] { return asked.count() > 0; }));
  EXPECT_EQ(asked.count(), 1) << "of the second only";
  for (Caller* caller : server.findChildren<Caller*>())
    caller->tellOpened({});
  EXPECT_EQ(resultOf(late).kind, Kind::Opened);
}

TEST_F(HandOver, ReplacesASocketThatWasLeftBehind) {
  const QByteArray name = QFile::encodeName(place().socket);
  sockaddr_un address = {};
  address.sun_family = AF_UNIX;
  std::copy(name.begin(), name.end(), std::begin(address.sun_path));
  const int left = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
  ASSERT_EQ(::bind(left, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
  ::close(left);
  ASSERT_TRUE(QFileInfo::exists(place().socket));

  const HandOverOutcome first = handOver(request(), place());
  ASSERT_EQ(first.kind, Kind::NoEditor);
  RequestServer server;
  ASSERT_TRUE(server.listen(place()));
  QObject::connect(&server, &RequestServer::asked, [](Caller* caller) { caller->tellOpened({}); });
  auto outcome = start(request());
  EXPECT_EQ(resultOf(outcome).kind, Kind::Opened);
}

TEST_F(HandOver, SurvivesCallersThatTalkNonsenseOrGo) {
  const auto lock = lockOf(place());
  RequestServer server;
  ASSERT_TRUE(server.listen(place()));
  const support::SignalCount asked(&server, &RequestServer::asked);
  for (const QByteArray& nonsense :
       {QByteArray("nonsense\n"), QByteArray("{\"virelle\":99}\n"), QByteArray("\0\n", 2)}) {
    QLocalSocket caller;
    caller.connectToServer(place().socket);
    caller.write(nonsense);
    EXPECT_TRUE(support::waitUntil([&] { return caller.state() == QLocalSocket::UnconnectedState; }));
  }
  {
    QLocalSocket gone;
    gone.connectToServer(place().socket);
    ASSERT_TRUE(support::waitUntil([&] { return gone.bytesAvailable() > 0; }));
  }
  EXPECT_TRUE(support::waitUntil([&] { return server.findChildren<Caller*>().isEmpty(); }));
  EXPECT_EQ(asked.count(), 0);
}

TEST_F(HandOver, CutsACallerWhoseRequestNeverEnds) {
  const auto lock = lockOf(place());
  RequestServer server;
  ASSERT_TRUE(server.listen(place()));
  QLocalSocket caller;
  caller.connectToServer(place().socket);
  ASSERT_TRUE(support::waitUntil([&] { return caller.state() == QLocalSocket::ConnectedState; }));
  const QByteArray piece(1 << 20, 'x');
  for (qsizetype sent = 0; sent <= longestMessage; sent += piece.size())
    caller.write(piece);
  EXPECT_TRUE(support::waitUntil([&] { return caller.state() == QLocalSocket::UnconnectedState; }));
}

TEST_F(HandOver, MeetsInAFolderThatNoOtherUserCanEnter) {
  ASSERT_TRUE(QDir().mkpath(path(QStringLiteral("run/virelle"))));
  ASSERT_EQ(::chmod(QFile::encodeName(path(QStringLiteral("run/virelle"))).constData(), 0755), 0);
  const QString socket = place().socket;
  EXPECT_TRUE(socket.startsWith(path(QStringLiteral("run/virelle/")))) << socket.toStdString();
  struct stat status = {};
  ASSERT_EQ(::stat(QFile::encodeName(QFileInfo(socket).path()).constData(), &status), 0);
  EXPECT_EQ(status.st_mode & ACCESSPERMS, 0700U);
}

TEST_F(HandOver, MeetsNowhereWhereTheFolderIsALink) {
  ASSERT_TRUE(QDir().mkpath(path(QStringLiteral("run"))));
  ASSERT_TRUE(QFile::link(folder_.path(), path(QStringLiteral("run/virelle"))));
  EXPECT_FALSE(editorPlace());
}

TEST_F(HandOver, MeetsNowhereWhereTheFolderIsAnothers) {
  if (::geteuid() != 0)
    GTEST_SKIP() << "needs the administrator's rights";
  ASSERT_TRUE(QDir().mkpath(path(QStringLiteral("run/virelle"))));
  ASSERT_EQ(::chown(QFile::encodeName(path(QStringLiteral("run/virelle"))).constData(), 65534, 65534), 0);
  EXPECT_FALSE(editorPlace());
}

TEST_F(HandOver, MeetsBesideTheSessionWithoutAFolderForSockets) {
  const support::EnvironmentVariable none{"XDG_RUNTIME_DIR", {}};
  EXPECT_TRUE(place().socket.startsWith(path(QStringLiteral("state/virelle/run-"))));
}

TEST_F(HandOver, MeetsElsewhereOnAnotherDisplayAndWithAnotherSession) {
  const support::EnvironmentVariable platform{"QT_QPA_PLATFORM", {}};
  const support::EnvironmentVariable noWayland{"WAYLAND_DISPLAY", {}};
  const auto socketOn = [](const char* display) {
    const support::EnvironmentVariable x11{"DISPLAY", display};
    return place().socket;
  };
  EXPECT_NE(socketOn(":0"), socketOn(":1"));
  EXPECT_EQ(socketOn(":0"), socketOn(":0.1")) << "screens of one display";
  EXPECT_NE(socketOn("far.org:0"), socketOn("far.org:1"));
  const QString here = socketOn(":0");
  {
    const support::EnvironmentVariable wayland{"WAYLAND_DISPLAY", "wayland-1"};
    EXPECT_NE(socketOn(":0"), here);
  }
  const support::EnvironmentVariable state{"XDG_STATE_HOME", path(QStringLiteral("other")).toUtf8()};
  EXPECT_NE(socketOn(":0"), here);
}

TEST_F(HandOver, TellsOtherUsersApart) {
  std::array<int, 2> own{};
  ASSERT_EQ(::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, own.data()), 0);
  EXPECT_TRUE(isOwnUser(own[0]));
  if (::geteuid() == 0) {
    std::array<int, 2> others{};
    {
      const support::LowerRights nobody(path(QString()));
      ASSERT_EQ(::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, others.data()), 0);
    }
    EXPECT_FALSE(isOwnUser(others[0]));
    ::close(others[0]);
    ::close(others[1]);
  }
  EXPECT_FALSE(isOwnUser(-1));
  ::close(own[0]);
  ::close(own[1]);
}

} // namespace
} // namespace desktop
