// SPDX-License-Identifier: MIT
// What must hold whatever a user does, looked at from beside the editor.
#pragma once

#include <QMap>
#include <QPointer>
#include <QSet>
#include <QString>
#include <QStringList>
#include <QWidget>

#include <deque>
#include <mutex>
#include <optional>

namespace desktop {
class Page;
class TEditWindow;
} // namespace desktop

namespace driven {

// Collects what went wrong: exceptions that reached the application, warnings of Qt, and texts that are not what their
// files or their own undo steps say. Main thread, but for complain and note.
class Witness {
public:
  // Takes over the messages of Qt and the debugger output. Only one may live at a time.
  Witness();
  ~Witness();
  Witness(const Witness&) = delete;
  Witness& operator=(const Witness&) = delete;

  // Takes over the application's reporter; the one of the editor stands in the way of nothing else.
  void takeReports();

  // The act that comes next, for the trail that a finding is printed with. Any thread.
  void note(const QString& act);
  // The last acts, the latest last. Any thread.
  QStringList trail() const;

  // Something is wrong. Any thread.
  void complain(const QString& finding);
  bool isContent() const;

  // Looks for pages, dialogs and menus that have been opened since the last call.
  void look();
  // How often each kind of thing was seen, as in "QMenu 12, pages 3".
  QString summary() const;
  // The file at `path` is changed from outside, so that for a while it and the text may differ.
  void expectOtherFile(const QString& path) { foreign_.insert(path); }
  // Compares every unmodified text with its file.
  void checkFiles();
  // Takes every step of the page in front of `window` back and makes it again.
  void checkUndo(desktop::TEditWindow& window);

private:
  struct Opened {
    QPointer<desktop::Page> page;
    std::optional<QString> text; // before the first step that can be undone; none if there was such a step already
  };

  Opened* find(const desktop::Page* page);
  void lookAtPages();
  void count(QWidget* up, QPointer<QWidget>& last);

  std::deque<Opened> opened_;
  QSet<QString> foreign_;
  QMap<QString, int> seen_;
  QPointer<QWidget> dialog_; // that was up at the last look
  QPointer<QWidget> popup_;  // the same
  mutable std::mutex mutex_;
  bool content_ = true;       // guarded by mutex_
  std::deque<QString> trail_; // the same
};

// The editor windows that there are.
QList<desktop::TEditWindow*> editWindows();

} // namespace driven
