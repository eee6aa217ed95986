// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QPointer>
#include <QString>

namespace quorvane {
struct TFindings;
}

namespace desktop {

class CheckThread;
class Page;
class TEditWindow;
class Workspace;

// Search > Check File: lists what `quorvane check` would say of a page's text as it is in the editor.
//
// The check has a thread of its own. When the text has been changed in the meantime it is checked again, so that what
// is listed is about the text that is there. A new check ends the one before. Main thread only.
class FileCheck : public QObject {
  Q_OBJECT

public:
  // The list of results belongs to `workspace`, which must outlive the check.
  explicit FileCheck(Workspace& workspace);
  // Waits for the threads, which are asked to end.
  ~FileCheck() override;

  // Checks the page in front of `window` and shows the panel in its frame. A page that is no Pascal is not checked,
  // which a message says; without a page nothing happens.
  void start(TEditWindow* window);

private:
  void launch();
  void stop();
  void finish(CheckThread* thread);
  void list(const quorvane::TFindings& findings, const Page& page);
  void end(const QString& summary);

  Workspace& workspace_;
  QPointer<Page> page_; // that is checked
  QString title_;       // its name
  int run_ = 0;         // of the list of results
  CheckThread* thread_ = nullptr;
};

} // namespace desktop
