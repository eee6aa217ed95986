// SPDX-License-Identifier: MIT
#include "desktop/ui/HandedFiles.h"

#include "desktop/edit/EditControl.h"
#include "desktop/handover/Caller.h"
#include "desktop/handover/RequestServer.h"
#include "desktop/ui/EditWindow.h"
#include "desktop/ui/MainWindow.h"
#include "desktop/ui/NamedFiles.h"
#include "desktop/ui/OpenPages.h"
#include "desktop/ui/WindowActivation.h"
#include "desktop/ui/Workspace.h"

#include <QApplication>
#include <QDir>

#include <algorithm>
#include <chrono>

namespace desktop {

namespace {

constexpr std::chrono::milliseconds betweenAttempts{50};

} // namespace

HandedFiles::HandedFiles(Workspace& workspace, RequestServer& server) : workspace_(workspace) {
  again_.setInterval(betweenAttempts);
  connect(&again_, &QTimer::timeout, this, qOverload<>(&HandedFiles::serve));
  connect(&server, &RequestServer::asked, this, &HandedFiles::take);
}

HandedFiles::~HandedFiles() {
  for (const QPointer<Caller>& caller : waiting_) {
    if (caller != nullptr)
      caller->tellClosed();
  }
}

// An add-in holds painting while it has an edit block open.
bool HandedFiles::mayAct() const {
  const QList<TEditWindow*> windows = workspace_.windows();
  return QApplication::activeModalWidget() == nullptr && QApplication::activePopupWidget() == nullptr &&
         std::ranges::none_of(windows, [](const TEditWindow* window) { return window->editor()->isPaintingHeld(); });
}

void HandedFiles::take(Caller* caller) {
  requests_.append(caller);
  // Whoever asked sees what there is to be answered first.
  if (QWidget* const dialog = QApplication::activeModalWidget())
    activateWindow(*dialog, caller->request().startupId, caller->request().activationToken);
  serve();
}

void HandedFiles::serve() {
  if (!mayAct()) {
    again_.start();
    return;
  }
  again_.stop();
  for (const QPointer<Caller>& caller : std::exchange(requests_, {})) {
    if (caller != nullptr)
      serve(*caller);
  }
}

QStringList HandedFiles::open(const OpenRequest& request, NamedFiles& files) const {
  const TEditWindow::ManyPages many(workspace_.topWindow());
  QStringList problems;
  for (const QString& name : request.files) {
    const QString path = QDir(request.folder).filePath(name);
    const auto caret = &name == &request.files.constFirst() ? request.caret : std::nullopt;
    // Who waits for the file to be closed needs its page now.
    if (request.wait ? files.open(path, caret) == nullptr : !files.openSoon(path, caret))
      problems.append(tr("%1 could not be opened; the window of the editor says why.").arg(name));
  }
  files.show();
  return problems;
}

void HandedFiles::serve(Caller& caller) {
  const OpenRequest& request = caller.request();
  NamedFiles files(workspace_);
  const QStringList problems = open(request, files);
  files.placeCarets(request.files.isEmpty() ? request.caret : std::nullopt);
  activateWindow(*workspace_.frameOf(workspace_.topWindow()), request.startupId, request.activationToken);
  caller.tellOpened(problems);
  if (!request.wait)
    return;
  const auto* const pages = new OpenPages(files.pages(), &caller);
  if (pages->isEmpty()) {
    caller.tellClosed();
    return;
  }
  waiting_.removeAll(nullptr);
  waiting_.append(&caller);
  connect(pages, &OpenPages::allClosed, &caller, &Caller::tellClosed);
}

} // namespace desktop
