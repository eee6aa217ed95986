// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QObject>
#include <QPointer>
#include <QStringList>
#include <QTimer>

namespace desktop {

class Caller;
class NamedFiles;
struct OpenRequest;
class RequestServer;
class Workspace;

// Opens what other processes were asked to open, shows the window to the user, and tells those that wait when their
// files have been closed.
//
// While a dialog or a menu is open, or an add-in edits, requests wait for its end: a question must not find other pages
// than those that it was asked about. Main thread only.
class HandedFiles : public QObject {
  Q_OBJECT

public:
  // Serves the callers of `server` in `workspace`; both must outlive it.
  HandedFiles(Workspace& workspace, RequestServer& server);
  // Tells all that wait that their files have been closed: the editor ends in order. Requests that have not been served
  // are left to those who made them.
  ~HandedFiles() override;

private:
  bool mayAct() const;
  void take(Caller* caller);
  void serve();
  void serve(Caller& caller);
  // Returns which could not be opened, one sentence each.
  QStringList open(const OpenRequest& request, NamedFiles& files) const;

  Workspace& workspace_;
  QList<QPointer<Caller>> requests_; // that have yet to be served
  QList<QPointer<Caller>> waiting_;  // for their files to be closed
  QTimer again_;
};

} // namespace desktop
