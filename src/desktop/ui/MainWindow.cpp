// SPDX-License-Identifier: MIT
#include "desktop/ui/MainWindow.h"

#include "desktop/edit/EditControl.h"
#include "desktop/files/SourceDocument.h"
#include "desktop/ui/Appearance.h"
#include "desktop/ui/EditWindow.h"
#include "desktop/ui/FileCommands.h"
#include "desktop/ui/FileOpenings.h"
#include "desktop/ui/Page.h"
#include "desktop/ui/ResultsPanel.h"
#include "desktop/ui/WindowCommands.h"
#include "desktop/ui/Workspace.h"
#include "platform/Application.h"

#include <QCloseEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QUrl>

namespace desktop {

MainWindow::MainWindow(Workspace& workspace, const QString& editWindowName) : workspace_(workspace) {
  platform::Screen().AddForm(this);
  if (platform::Application().MainForm() == nullptr)
    platform::Application().SetMainForm(this);
  setObjectName(platform::Application().MainForm() == this ? QStringLiteral("MainForm")
                                                           : QStringLiteral("Frame_") + editWindowName);
  editWindow_ = new TEditWindow(editWindowName, this);
  setCentralWidget(editWindow_);
  resultsPanel_ = new ResultsPanel(workspace, editWindow_);
  addDockWidget(Qt::BottomDockWidgetArea, resultsPanel_);
  resultsPanel_->hide();
  commands_ = new WindowCommands(this, workspace);
  resize(1000, 700);

  setAcceptDrops(true);
  installEventFilter(this);
  editWindow_->editor()->viewport()->installEventFilter(this);
  connect(editWindow_, &TEditWindow::currentPageChanged, this, &MainWindow::showTitle);
  connect(editWindow_, &TEditWindow::pageChanged, this, &MainWindow::showTitle);
  showTitle();
}

MainWindow::~MainWindow() {
  delete commands_; // it follows the focus, which moves while windows go
  delete editWindow_;
}

void MainWindow::showTitle() {
  const Page* const page = editWindow_->currentPage();
  setWindowTitle(page != nullptr ? tr("%1[*] \u2013 Virelle").arg(page->title()) : tr("Virelle"));
  setWindowFilePath(page != nullptr && !page->document()->isUntitled() ? page->document()->fileName() : QString());
  setWindowModified(page != nullptr && page->document()->isModified());
}

void MainWindow::changeEvent(QEvent* event) {
  QMainWindow::changeEvent(event);
  if (event->type() == QEvent::PaletteChange)
    workspace_.appearance().followDesktop();
}

void MainWindow::closeEvent(QCloseEvent* event) {
  event->setAccepted(workspace_.mayCloseFrame(this));
}

// Files dropped anywhere on the window are opened; text that is dragged about stays the text's own affair.
bool MainWindow::takeDrop(QEvent* event) {
  auto* const drop = static_cast<QDropEvent*>(event);
  if (!drop->mimeData()->hasUrls())
    return false;
  drop->setDropAction(Qt::CopyAction);
  drop->accept();
  if (event->type() != QEvent::Drop)
    return true;
  const TEditWindow::ManyPages many(editWindow_);
  for (const QUrl& url : drop->mimeData()->urls()) {
    if (url.isLocalFile())
      workspace_.openings().open(editWindow_, url.toLocalFile());
  }
  return true;
}

bool MainWindow::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
  case QEvent::DragEnter:
  case QEvent::DragMove:
  case QEvent::Drop:
    return takeDrop(event);
  default:
    return QMainWindow::eventFilter(watched, event);
  }
}

} // namespace desktop
