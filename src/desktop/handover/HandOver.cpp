// SPDX-License-Identifier: MIT
#include "desktop/handover/HandOver.h"

#include "desktop/handover/PeerUser.h"
#include "platform/FileError.h"
#include "platform/FileLock.h"

#include <QDeadlineTimer>
#include <QFile>

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <thread>
#include <utility>

namespace desktop {

namespace {

using Kind = HandOverOutcome::Kind;

constexpr std::chrono::milliseconds betweenAttempts{20};
constexpr int mostRequests = 3; // to editors that end before they have opened anything

// A connection to the editor, which may end at any moment.
class Connection {
public:
  explicit Connection(const QString& path)
      : descriptor_(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0)) {
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    const QByteArray name = QFile::encodeName(path);
    std::copy(name.begin(), name.end(), std::begin(address.sun_path));
    isOpen_ = ::connect(descriptor_, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0 &&
              isOwnUser(descriptor_);
  }
  ~Connection() { ::close(descriptor_); }
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;

  // False from the start if there is nobody, and once the other side has gone.
  bool isOpen() const { return isOpen_; }

  void send(QByteArray bytes) {
    while (isOpen_ && !bytes.isEmpty() && await(POLLOUT, QDeadlineTimer::Forever)) {
      const ssize_t count =
          ::send(descriptor_, bytes.constData(), static_cast<std::size_t>(bytes.size()), MSG_NOSIGNAL);
      if (count > 0)
        bytes.remove(0, count);
      else
        isOpen_ = isTemporary();
    }
  }

  // What the editor tells next. Defaults if that takes too long or the connection ends.
  EditorNews next(QDeadlineTimer deadline) {
    while (isOpen_ && !received_.contains('\n') && await(POLLIN, deadline))
      receive();
    const qsizetype end = received_.indexOf('\n');
    if (end < 0)
      return {};
    const QByteArray line = received_.left(end);
    received_.remove(0, end + 1);
    return newsOf(line);
  }

private:
  bool isTemporary() const { return errno == EAGAIN || errno == EINTR; }

  bool await(short event, QDeadlineTimer deadline) const {
    pollfd waited{descriptor_, event, 0};
    int count = 0;
    do
      count = ::poll(&waited, 1, static_cast<int>(deadline.remainingTime()));
    while (count < 0 && errno == EINTR);
    return count > 0;
  }

  void receive() {
    std::array<char, 4096> piece{};
    const ssize_t count = ::recv(descriptor_, piece.data(), piece.size(), 0);
    if (count > 0)
      received_.append(piece.data(), count);
    else
      isOpen_ = count < 0 && isTemporary();
    isOpen_ = isOpen_ && received_.size() <= longestMessage;
  }

  int descriptor_;
  bool isOpen_ = false;
  QByteArray received_;
};

// What came of the request; NoEditor if the editor ended before it had opened the files.
HandOverOutcome ask(Connection& editor, const OpenRequest& request, QDeadlineTimer deadline) {
  if (!editor.next(deadline).greets)
    return {editor.isOpen() ? Kind::NoAnswer : Kind::NoEditor, nullptr, {}};
  editor.send(requestLine(request));
  const EditorNews opened = editor.next(QDeadlineTimer::Forever);
  if (!opened.opened)
    return {};
  if (!request.wait)
    return {Kind::Opened, nullptr, opened.problems};
  const bool closed = editor.next(QDeadlineTimer::Forever).closed;
  return {closed ? Kind::Closed : Kind::Lost, nullptr, opened.problems};
}

} // namespace

std::unique_ptr<platform::TFileLock> lockOf(const EditorPlace& place) try {
  return std::make_unique<platform::TFileLock>(place.lock, std::chrono::milliseconds(0));
} catch (const platform::EFileError&) {
  return nullptr;
}

// An editor that is starting has the lock before it listens, and one that is ending a while longer.
HandOverOutcome handOver(const OpenRequest& request, const EditorPlace& place, std::chrono::milliseconds patience) {
  QDeadlineTimer deadline(patience);
  for (int requests = 0; requests < mostRequests;) {
    if (Connection editor(place.socket); editor.isOpen()) {
      HandOverOutcome outcome = ask(editor, request, deadline);
      if (outcome.kind != Kind::NoEditor)
        return outcome;
      ++requests;
      deadline.setRemainingTime(patience);
    }
    if (auto lock = lockOf(place))
      return {Kind::NoEditor, std::move(lock), {}};
    if (deadline.hasExpired())
      break;
    std::this_thread::sleep_for(betweenAttempts);
  }
  return {Kind::NoAnswer, nullptr, {}};
}

} // namespace desktop
