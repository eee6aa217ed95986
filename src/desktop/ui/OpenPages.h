// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QObject>

namespace desktop {

class Page;

// Waits until the files of some pages are closed. A page that stands for another file, since its text was saved under
// another name, shows its file no longer. Main thread only.
class OpenPages : public QObject {
  Q_OBJECT

public:
  OpenPages(const QList<Page*>& pages, QObject* parent);

  bool isEmpty() const { return pages_.isEmpty(); }

Q_SIGNALS:
  // The last of them has been closed; not emitted if there were none.
  void allClosed();

private:
  void remove(const QObject* page);

  QList<const QObject*> pages_;
};

} // namespace desktop
