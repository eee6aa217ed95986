// SPDX-License-Identifier: MIT
#include "desktop/ui/Workspace.h"

#include "desktop/edit/EditControl.h"
#include "desktop/files/EnvironmentSettings.h"
#include "desktop/files/FileStore.h"
#include "desktop/files/SourceDocument.h"
#include "desktop/ui/Appearance.h"
#include "desktop/ui/ClosedPages.h"
#include "desktop/ui/EditWindow.h"
#include "desktop/ui/FileCheck.h"
#include "desktop/ui/FileCommands.h"
#include "desktop/ui/FileOpenings.h"
#include "desktop/ui/FilesSearch.h"
#include "desktop/ui/MainWindow.h"
#include "desktop/ui/MessageBar.h"
#include "desktop/ui/Page.h"
#include "desktop/ui/RecentFiles.h"
#include "desktop/ui/ResultList.h"
#include "desktop/ui/ResultWalk.h"
#include "platform/Application.h"
#include "platform/Debug.h"
#include "platform/Hooks.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QPointer>

#include <algorithm>
#include <utility>

namespace desktop {

namespace {

// A page that was made for the user to begin on and that nobody has touched.
bool isUntouched(const Page& page) {
  return page.document()->isUntitled() && !page.document()->isModified() && page.document()->isEmpty();
}

// Add-ins equip a window when they hear that it has become active. A window that comes up without becoming active, as
// the desktop may decide, is announced too.
void announceActivation(TEditWindow* window) {
  platform::CallHooks(platform::WH_CBT, platform::HCBT_ACTIVATE, platform::WindowHandle(*window), 0);
}

} // namespace

Workspace::Workspace(QObject* parent)
    : QObject(parent), files_(new FileCommands(*this)), openings_(new FileOpenings(*this)),
      settings_(new EnvironmentSettings(this)), appearance_(new Appearance(*settings_, this)),
      recentFiles_(new RecentFiles(*this)), results_(new ResultList(*this)),
      resultWalk_(new ResultWalk(*this, *results_)), fileCheck_(new FileCheck(*this)),
      filesSearch_(new FilesSearch(*this)) {
  closedPages_ = new ClosedPages(*this); // it looks at the windows, of which there are none yet
  addFrame();
  connect(settings_, &EnvironmentSettings::saveFailed, this, &Workspace::reportUnkeptSettings);
  platform::Application().SetReporter([self = QPointer(this)](const QString& message, int count) {
    if (self)
      self->reportError(message, count);
    else
      platform::OutputDebugString(message.toStdString());
  });
}

Workspace::~Workspace() {
  while (!frames_.empty()) {
    activationOrder_.removeOne(frames_.back()->editWindow());
    frames_.pop_back();
  }
}

QList<TEditWindow*> Workspace::windows() const {
  QList<TEditWindow*> windows;
  for (const std::unique_ptr<MainWindow>& frame : frames_)
    windows.append(frame->editWindow());
  return windows;
}

Page* Workspace::topPage() const {
  return topWindow() != nullptr ? topWindow()->currentPage() : nullptr;
}

MainWindow* Workspace::frameOf(const TEditWindow* window) const {
  const auto found = std::find_if(frames_.begin(), frames_.end(),
                                  [window](const auto& frame) { return frame->editWindow() == window; });
  return found == frames_.end() ? nullptr : found->get();
}

MainWindow* Workspace::addFrame() {
  const QString name = QStringLiteral("EditWindow_%1").arg(nextWindowNumber_++);
  MainWindow* const frame = frames_.emplace_back(std::make_unique<MainWindow>(*this, name)).get();
  TEditWindow* const window = frame->editWindow();
  activationOrder_.append(window);
  appearance_->applyTo(*window->editor());
  connect(appearance_, &Appearance::changed, window, [this, window] { appearance_->applyTo(*window->editor()); });
  connect(window, &TEditWindow::shown, this, [window] { announceActivation(window); });
  connect(window, &TEditWindow::activated, this, [this, window] {
    bringToTop(window);
    announceActivation(window);
  });
  connect(window, &TEditWindow::closeRequested, files_, &FileCommands::close);
  connect(window, &TEditWindow::closeOthersRequested, files_, &FileCommands::closeOthers);
  connect(window, &TEditWindow::pageAdded, this, [this](Page* page) {
    if (page->document()->isUntitled())
      untitledNames_.insert(page->document()->fileName());
    Q_EMIT pageOpened(page);
  });
  Q_EMIT windowOpened(window);
  return frame;
}

void Workspace::showFrame(MainWindow* frame) {
  frame->setWindowState(frame->windowState() & ~Qt::WindowMinimized);
  frame->show();
  frame->raise();
  frame->activateWindow();
}

void Workspace::bringToTop(TEditWindow* window) {
  TEditWindow* const previous = topWindow();
  activationOrder_.removeOne(window);
  activationOrder_.prepend(window);
  announceTop(previous);
}

void Workspace::putLast(TEditWindow* window) {
  TEditWindow* const previous = topWindow();
  activationOrder_.removeOne(window);
  activationOrder_.append(window);
  announceTop(previous);
}

// What an add-in draws belongs to the top view only, so both windows have to be painted anew.
void Workspace::announceTop(TEditWindow* previous) {
  if (topWindow() == previous)
    return;
  Q_EMIT topWindowChanged(topWindow());
  previous->editor()->Invalidate();
  topWindow()->editor()->Invalidate();
}

Page* Workspace::findPage(const QString& path) const {
  const QFileInfo wanted(path);
  const QString canonical = wanted.canonicalFilePath(); // empty if there is no file
  for (Page* page : allPages()) {
    const QFileInfo open(page->document()->fileName());
    // Two names for one file are one file; a name without a file is only equal to itself. Following links takes a
    // while, so files that differ in size are not compared further.
    if (open.absoluteFilePath() == wanted.absoluteFilePath() ||
        (!canonical.isEmpty() && open.size() == wanted.size() && open.canonicalFilePath() == canonical))
      return page;
  }
  return nullptr;
}

Page* Workspace::openFileIn(TEditWindow* window, const QString& path) {
  const QString absolute = QDir::cleanPath(QFileInfo(path).absoluteFilePath());
  if (Page* const open = findPage(absolute)) {
    showPage(open);
    return open;
  }
  QGuiApplication::setOverrideCursor(Qt::WaitCursor); // a very large file takes its time
  LoadResult loaded = load(absolute);
  QGuiApplication::restoreOverrideCursor();
  return addLoaded(window, absolute, std::move(loaded));
}

Page* Workspace::addLoaded(TEditWindow* window, const QString& fileName, LoadResult loaded) {
  if (loaded.document == nullptr) {
    window->messageBar()->addMessage(MessageBar::Kind::Error, loaded.error);
    return nullptr;
  }
  lastFolder_ = QFileInfo(fileName).absolutePath();
  Page* const page = addPage(window, std::move(loaded.document));
  if (page->document()->isReadOnlyText())
    window->messageBar()->addMessage(MessageBar::Kind::Information, page->document()->readOnlyReason());
  else if (page->document()->isPlain())
    window->messageBar()->addMessage(MessageBar::Kind::Information, page->document()->plainReason());
  return page;
}

Page* Workspace::addPage(TEditWindow* window, std::unique_ptr<SourceDocument> document) {
  const QList<Page*> before = window->pages();
  Page* const page = window->addPage(std::move(document));
  if (before.size() == 1 && isUntouched(*before.constFirst()))
    window->closePage(before.constFirst());
  return page;
}

// The desktop activates the window when it likes, if at all; whoever asked goes on with the page at once.
void Workspace::showPage(Page* page) {
  page->window()->showPage(page);
  showFrame(frameOf(page->window()));
  bringToTop(page->window());
}

Page* Workspace::newFileIn(TEditWindow* window) {
  return window->addPage(newDocument(currentFolder(), [this](const QString& path) {
    return untitledNames_.contains(path) || findPage(path) != nullptr;
  }));
}

TEditWindow* Workspace::newWindow() {
  MainWindow* const mainForm = frames_.front().get();
  // A main form that was closed before the others is the next window to be used.
  const bool mainFormIsFree = !mainForm->isVisible() && mainForm->editWindow()->pages().isEmpty() && frames_.size() > 1;
  MainWindow* const frame = mainFormIsFree ? mainForm : addFrame();
  newFileIn(frame->editWindow());
  showFrame(frame);
  return frame->editWindow();
}

QString Workspace::currentFolder() const {
  return lastFolder_.isEmpty() ? QDir::currentPath() : lastFolder_;
}

QList<Page*> Workspace::allPages() const {
  QList<Page*> pages;
  for (const TEditWindow* window : windows())
    pages += window->pages();
  return pages;
}

bool Workspace::isLastVisible(const MainWindow* frame) const {
  return std::none_of(frames_.begin(), frames_.end(),
                      [frame](const auto& other) { return other.get() != frame && other->isVisible(); });
}

bool Workspace::mayCloseFrame(MainWindow* frame) {
  TEditWindow* const window = frame->editWindow();
  if (!files_->mayClose(window->pages()))
    return false;
  if (isLastVisible(frame))
    return true;
  openings_->stop(window);
  while (!window->pages().isEmpty())
    window->closePage(window->pages().constLast());
  putLast(window);
  if (frame != frames_.front().get())
    removeFrame(frame);
  return true;
}

// The frame is in the middle of closing, so it goes when control is back in the event loop.
void Workspace::removeFrame(MainWindow* frame) {
  // A late activation must not bring the dying window back to the top, nor have it equipped by add-ins.
  disconnect(frame->editWindow(), nullptr, this, nullptr);
  activationOrder_.removeOne(frame->editWindow());
  const auto found =
      std::find_if(frames_.begin(), frames_.end(), [frame](const auto& each) { return each.get() == frame; });
  found->release()->deleteLater();
  frames_.erase(found);
}

void Workspace::exit() {
  if (files_->mayClose(allPages()))
    QCoreApplication::exit(0);
}

void Workspace::reportError(const QString& message, int count) {
  topWindow()->messageBar()->addMessage(MessageBar::Kind::Error, tr("An error occurred: %1").arg(message), count);
}

void Workspace::reportUnkeptSettings(const QString& problem) {
  topWindow()->messageBar()->addMessage(MessageBar::Kind::Warning, problem);
}

} // namespace desktop
