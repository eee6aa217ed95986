// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/handover/Messages.h"

#include <QObject>
#include <QStringList>

class QLocalSocket;

namespace desktop {

// A process that wants this editor to open files. It is destroyed when the process has heard all that it wants to know,
// or goes. Main thread only.
class Caller : public QObject {
  Q_OBJECT

public:
  // Takes `socket` over, which is connected, and greets. `parent` owns the caller.
  Caller(QLocalSocket* socket, QObject* parent);

  // What is to be done; not before asked() was emitted.
  const OpenRequest& request() const { return request_; }
  // The files have been opened, those apart of which `problems` tells, one sentence each.
  void tellOpened(const QStringList& problems);
  // None of the files is open any more. Does nothing if the process knows or has gone.
  void tellClosed();

Q_SIGNALS:
  // The request is there. Emitted once at most.
  void asked();

private:
  void read();
  void send(const QByteArray& line);

  QLocalSocket* socket_;
  OpenRequest request_;
};

} // namespace desktop
