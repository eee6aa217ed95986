// SPDX-License-Identifier: MIT
#include "desktop/handover/Caller.h"

#include <QLocalSocket>

namespace desktop {

Caller::Caller(QLocalSocket* socket, QObject* parent) : QObject(parent), socket_(socket) {
  socket_->setParent(this);
  socket_->setReadBufferSize(longestMessage);
  connect(socket_, &QLocalSocket::readyRead, this, &Caller::read);
  connect(socket_, &QLocalSocket::disconnected, this, &QObject::deleteLater);
  send(greetingLine());
}

void Caller::read() {
  if (!socket_->canReadLine()) {
    if (socket_->bytesAvailable() >= longestMessage)
      socket_->abort();
    return;
  }
  const auto request = requestOf(socket_->readLine(longestMessage));
  disconnect(socket_, &QLocalSocket::readyRead, this, nullptr);
  if (!request) {
    socket_->abort();
    return;
  }
  request_ = *request;
  Q_EMIT asked();
}

void Caller::tellOpened(const QStringList& problems) {
  send(openedLine(problems));
  if (!request_.wait)
    socket_->disconnectFromServer();
}

void Caller::tellClosed() {
  if (socket_->state() != QLocalSocket::ConnectedState)
    return;
  send(closedLine());
  socket_->disconnectFromServer();
}

// At once: the program may end before it serves another event.
void Caller::send(const QByteArray& line) {
  socket_->write(line);
  socket_->flush();
}

} // namespace desktop
