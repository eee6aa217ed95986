// SPDX-License-Identifier: MIT
#include "desktop/ui/OpenPages.h"

#include "desktop/files/SourceDocument.h"
#include "desktop/ui/Page.h"

namespace desktop {

OpenPages::OpenPages(const QList<Page*>& pages, QObject* parent) : QObject(parent) {
  for (const Page* page : pages) {
    pages_.append(page);
    connect(page, &QObject::destroyed, this, &OpenPages::remove);
    connect(page->document(), &SourceDocument::fileNameChanged, this, [this, page] { remove(page); });
  }
}

void OpenPages::remove(const QObject* page) {
  if (pages_.removeOne(page) && pages_.isEmpty())
    Q_EMIT allClosed();
}

} // namespace desktop
