// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QObject>
#include <QString>

namespace desktop {

class Page;
class TEditWindow;

// All that is open: the editor windows and their pages.
//
// A file is open on one page only. The top window is the editor window that was activated last, also while a dialog has
// the focus. The first window is the application's main form; it lives as long as the workspace. Main thread only.
class Workspace : public QObject {
  Q_OBJECT

public:
  explicit Workspace(QObject* parent = nullptr);
  // Destroys every window, saved or not. Packages must have been unloaded before.
  ~Workspace() override;

  // All editor windows in the order of their creation; at least one.
  QList<TEditWindow*> windows() const;
  // The editor window activated last; the first one while none has been.
  TEditWindow* topWindow() const;
  // The page in front of the top window, or null.
  Page* topPage() const;

  // Opens the file at `path` in the top window, or brings its page to the front wherever it is open. Null when it
  // cannot be opened; the top window's message bar then says why.
  Page* openFile(const QString& path);
  // An empty page with a made-up name in the top window.
  Page* newFile();
  // A further editor window with an empty page.
  TEditWindow* newWindow();
  // The page that shows the file at `path`, in whichever window, or null.
  Page* findPage(const QString& path) const;

Q_SIGNALS:
  void windowOpened(TEditWindow* window);
  void pageOpened(Page* page);
  // `window` is the top window now.
  void topWindowChanged(TEditWindow* window);

private:
  QList<TEditWindow*> windows_;
  QList<TEditWindow*> activationOrder_; // the top window first
};

} // namespace desktop
