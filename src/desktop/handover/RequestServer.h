// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/handover/EditorPlace.h"

#include <QLocalServer>
#include <QObject>

namespace desktop {

class Caller;

// Listens for processes of the same user that were asked to open files. Main thread only.
class RequestServer : public QObject {
  Q_OBJECT

public:
  RequestServer() = default;

  // From now on processes find this editor at `place`, the lock of which this process must have and keep as long as the
  // server lives. A socket that was left behind there is replaced. Callers are served by the event loop. False if it
  // cannot be done.
  bool listen(const EditorPlace& place);

Q_SIGNALS:
  // `caller` has made its request. It is the server's, and may go at any moment.
  void asked(Caller* caller);

private:
  void greetCallers();

  QLocalServer server_;
};

} // namespace desktop
