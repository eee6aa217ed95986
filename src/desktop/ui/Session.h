// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/edit/EditControl.h"
#include "desktop/files/TaskQueue.h"

#include <QByteArray>
#include <QJsonArray>
#include <QJsonObject>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QStringList>
#include <QTimer>

#include <memory>
#include <utility>
#include <vector>

namespace platform {
class TFileLock;
}

namespace desktop {

class MainWindow;
class Page;
class TEditWindow;
class Workspace;

// Remembers from run to run which windows stood where, with which files, and how each was shown.
//
// All that is in a JSON file, which is written at the end and, in case there is no orderly one, a while after each
// change. Of several editors that run at the same time only the first has the session; the others neither take it up
// nor write it. Files without a name are not remembered. Main thread only.
class Session : public QObject {
  Q_OBJECT

public:
  // The session of `workspace`, which must outlive it, in the file at `path`. An empty path is no place: there is no
  // session.
  Session(Workspace& workspace, QString path);
  // Waits until the file is written.
  ~Session() override;

  // Opens what was open, in the first window and in further ones, and from then on writes down what changes. Files that
  // are gone, and a file of the session that cannot be understood and is kept aside, are told in the first window.
  void restore();
  // Shows each page as it was. To be called when the windows have their sizes, since these limit how far a text can be
  // scrolled.
  void restoreViews();
  // Writes down what is open now.
  void save();

private:
  bool begin();
  QJsonObject read(QString& problem) const;
  QString putAside() const;
  bool restoreWindow(const QJsonObject& json, TEditWindow* window);
  void restorePages(const QJsonObject& json, TEditWindow* window);
  void follow(TEditWindow* window);
  void noteChange();
  void restorePage(const QJsonObject& json, int index, TEditWindow* window);
  void takeLate(Page* page, TEditWindow* window, const QString& file);
  void forgetStopped();
  void addLate(QJsonArray& pages, const TEditWindow* window) const;
  QByteArray present() const;
  QJsonObject present(TEditWindow* window) const;

  // A page that is yet to come, since its file takes a while to be opened.
  struct Late {
    TEditWindow* window; // only to be compared
    QString file;
    QJsonObject json;
    int index; // among the pages of the window
  };

  Workspace& workspace_;
  QString path_;
  std::unique_ptr<platform::TFileLock> lock_; // null while the session is another editor's
  QTimer timer_{this};
  QStringList missing_;                                     // the files that are gone
  std::vector<std::pair<QPointer<Page>, EditState>> views_; // of the pages that were opened again
  std::vector<Late> late_;
  bool viewsRestored_ = false;
  QByteArray written_; // the file's contents
  TaskQueue tasks_;
};

} // namespace desktop
