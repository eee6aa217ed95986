// SPDX-License-Identifier: MIT
#include "desktop/handover/RequestServer.h"

#include "desktop/handover/Caller.h"
#include "desktop/handover/PeerUser.h"

#include <QLocalSocket>

namespace desktop {

bool RequestServer::listen(const EditorPlace& place) {
  connect(&server_, &QLocalServer::newConnection, this, &RequestServer::greetCallers);
  QLocalServer::removeServer(place.socket);
  server_.setSocketOptions(QLocalServer::UserAccessOption);
  return server_.listen(place.socket);
}

void RequestServer::greetCallers() {
  while (QLocalSocket* const socket = server_.nextPendingConnection()) {
    if (!isOwnUser(static_cast<int>(socket->socketDescriptor()))) {
      delete socket;
      continue;
    }
    auto* const caller = new Caller(socket, this);
    connect(caller, &Caller::asked, this, [this, caller] { Q_EMIT asked(caller); });
  }
}

} // namespace desktop
