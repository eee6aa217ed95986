// SPDX-License-Identifier: MIT
#include "desktop/ui/LongTextNote.h"

#include "desktop/files/SourceDocument.h"
#include "desktop/ui/EditWindow.h"
#include "desktop/ui/Page.h"
#include "desktop/ui/StatusBar.h"

#include <QGuiApplication>
#include <QString>

namespace desktop {

namespace {

constexpr int longText = 4'000'000; // characters

} // namespace

LongTextNote::LongTextNote(const Page& page, const QString& note)
    : window_(page.window()), isShown_(page.document()->characterCount() > longText) {
  if (!isShown_)
    return;
  QGuiApplication::setOverrideCursor(Qt::WaitCursor);
  window_->statusBar()->showNote(note);
  window_->statusBar()->repaint();
}

LongTextNote::~LongTextNote() {
  if (!isShown_)
    return;
  window_->statusBar()->showPage(window_->currentPage());
  QGuiApplication::restoreOverrideCursor();
}

} // namespace desktop
