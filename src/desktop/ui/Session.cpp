// SPDX-License-Identifier: MIT
#include "desktop/ui/Session.h"

#include "desktop/files/FileWriter.h"
#include "desktop/files/SourceDocument.h"
#include "desktop/ui/EditWindow.h"
#include "desktop/ui/FileOpenings.h"
#include "desktop/ui/MainWindow.h"
#include "desktop/ui/MessageBar.h"
#include "desktop/ui/Page.h"
#include "desktop/ui/RecentFiles.h"
#include "desktop/ui/ResultsPanel.h"
#include "desktop/ui/ViewState.h"
#include "desktop/ui/Workspace.h"
#include "platform/FileError.h"
#include "platform/FileLock.h"

#include <QDir>
#include <QEvent>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>
#include <chrono>

namespace desktop {

namespace {

constexpr std::chrono::seconds writingDelay{3};
constexpr qint64 mostBytes = 16 << 20; // of a file that this program can have written

const auto windowsKey = QLatin1StringView("windows");
const auto topKey = QLatin1StringView("top");
const auto geometryKey = QLatin1StringView("geometry");
const auto pagesKey = QLatin1StringView("pages");
const auto currentKey = QLatin1StringView("current");
const auto fileKey = QLatin1StringView("file");
const auto viewKey = QLatin1StringView("view");
const auto panelsKey = QLatin1StringView("panels");

QByteArray bytesOf(const QJsonValue& base64) {
  return QByteArray::fromBase64(base64.toString().toLatin1(), QByteArray::Base64Encoding);
}

QString base64Of(const QByteArray& bytes) {
  return QString::fromLatin1(bytes.toBase64());
}

QString fileOf(const QJsonValue& page) {
  return page[fileKey].toString();
}

} // namespace

Session::Session(Workspace& workspace, QString path) : workspace_(workspace), path_(std::move(path)) {
  timer_.setObjectName(QStringLiteral("SessionTimer"));
  timer_.setSingleShot(true);
  timer_.setInterval(writingDelay);
  connect(&timer_, &QTimer::timeout, this, &Session::save);
}

Session::~Session() = default;

// Whether the session is this editor's.
bool Session::begin() try {
  if (path_.isEmpty() || !QDir().mkpath(QFileInfo(path_).absolutePath()))
    return false;
  lock_ = std::make_unique<platform::TFileLock>(path_ + QStringLiteral(".lock"), std::chrono::milliseconds(0));
  return true;
} catch (const platform::EFileError&) {
  return false;
}

QJsonObject Session::read(QString& problem) const {
  QFile file(path_);
  if (!file.exists())
    return {};
  if (!file.open(QIODevice::ReadOnly)) {
    problem = tr("The last session in %1 could not be read: %2. %3").arg(path_, file.errorString(), putAside());
    return {};
  }
  QJsonObject json = QJsonDocument::fromJson(file.read(mostBytes)).object();
  if (!json[windowsKey].isArray())
    problem = tr("The last session in %1 is damaged. %2").arg(path_, putAside());
  return json;
}

// Returns what became of the file, a sentence for the user.
QString Session::putAside() const {
  const QString aside = path_ + QStringLiteral(".damaged");
  QFile::remove(aside);
  return QFile::rename(path_, aside) ? tr("It is kept as %1.").arg(aside) : tr("It was left out.");
}

void Session::restore() {
  if (!begin())
    return;
  QString problem;
  const QJsonObject json = read(problem);
  const QJsonArray windows = json[windowsKey].toArray();
  TEditWindow* const first = workspace_.windows().constFirst();
  TEditWindow* free = first;
  TEditWindow* top = nullptr;
  for (qsizetype i = 0; i < windows.size(); ++i) {
    if (!restoreWindow(windows[i].toObject(), free))
      continue;
    if (i == json[topKey].toInt())
      top = workspace_.windows().constLast();
    free = nullptr;
  }
  if (top != nullptr && top != first)
    workspace_.showPage(top->currentPage());

  MessageBar* const bar = first->messageBar();
  if (!problem.isEmpty())
    bar->addMessage(MessageBar::Kind::Warning, problem);
  if (!missing_.isEmpty())
    bar->addMessage(MessageBar::Kind::Information,
                    tr("No longer there since the last session: %1.").arg(missing_.join(QStringLiteral(", "))));
  for (TEditWindow* window : workspace_.windows())
    follow(window);
  connect(&workspace_, &Workspace::windowOpened, this, &Session::follow);
  connect(&workspace_, &Workspace::topWindowChanged, this, &Session::noteChange);
  connect(&workspace_.openings(), &FileOpenings::changed, this, &Session::forgetStopped);
}

// Restores one window, in `window` or, if that is null, in a further one. False if none of its files is there.
bool Session::restoreWindow(const QJsonObject& json, TEditWindow* window) {
  bool anyFile = false;
  for (const QJsonValue page : json[pagesKey].toArray()) {
    const bool exists = QFileInfo(fileOf(page)).isFile();
    anyFile = anyFile || exists;
    if (!exists && !fileOf(page).isEmpty())
      missing_.append(fileOf(page));
  }
  if (window == nullptr && !anyFile)
    return false;
  if (window == nullptr)
    window = workspace_.newWindow();
  MainWindow* const frame = workspace_.frameOf(window);
  frame->restoreGeometry(bytesOf(json[geometryKey]));
  frame->restoreState(bytesOf(json[panelsKey]));
  restorePages(json, window);
  return anyFile;
}

void Session::restorePages(const QJsonObject& json, TEditWindow* window) {
  const TEditWindow::ManyPages many(window);
  const QJsonArray pages = json[pagesKey].toArray();
  for (qsizetype i = 0; i < pages.size(); ++i) {
    if (QFileInfo(fileOf(pages[i])).isFile())
      restorePage(pages[i].toObject(), static_cast<int>(i), window);
  }
  const QString current = fileOf(pages[json[currentKey].toInt()]);
  if (Page* const front = window->findPage(current))
    window->showPage(front);
  else if (workspace_.openings().pending(window).contains(current))
    workspace_.openings().open(window, current);
}

void Session::restorePage(const QJsonObject& json, int index, TEditWindow* window) {
  const QString file = fileOf(json);
  const EditState state = editStateOf(json[viewKey].toObject());
  const auto opened = [this, window, file, state](Page* page) {
    if (page->window() != window)
      return;
    takeLate(page, window, file);
    if (viewsRestored_)
      page->setState(state);
    else
      views_.emplace_back(page, state);
  };
  workspace_.openings().open(window, file, opened, FileOpenings::Place::Behind);
  if (workspace_.openings().pending(window).contains(file))
    late_.push_back({window, file, json, index});
}

// Puts a page that has come late to its place.
void Session::takeLate(Page* page, TEditWindow* window, const QString& file) {
  const auto late = std::ranges::find_if(
      late_, [window, &file](const Late& each) { return each.window == window && each.file == file; });
  if (late == late_.end())
    return;
  const auto missing = std::ranges::count_if(
      late_, [&late](const Late& each) { return each.window == late->window && each.index < late->index; });
  window->movePage(page, late->index - static_cast<int>(missing));
  workspace_.recentFiles().leaveOut(page->document()->fileName());
  late_.erase(late);
}

void Session::forgetStopped() {
  std::erase_if(late_,
                [this](const Late& late) { return !workspace_.openings().pending(late.window).contains(late.file); });
  noteChange();
}

// What is still being opened belongs to the session too.
void Session::addLate(QJsonArray& pages, const TEditWindow* window) const {
  QStringList others = workspace_.openings().pending(window);
  for (const Late& late : late_) {
    if (late.window == window && others.removeOne(late.file))
      pages.insert(std::min(qsizetype{late.index}, pages.size()), late.json);
  }
  for (const QString& file : others)
    pages.append(QJsonObject{{fileKey, file}});
}

void Session::restoreViews() {
  viewsRestored_ = true;
  for (const auto& [page, state] : std::exchange(views_, {})) {
    if (page != nullptr)
      page->setState(state);
  }
}

void Session::follow(TEditWindow* window) {
  connect(window, &TEditWindow::currentPageChanged, this, &Session::noteChange);
  connect(window, &TEditWindow::pageAboutToClose, this, &Session::noteChange);
  connect(window, &TEditWindow::pageChanged, this, &Session::noteChange);
  connect(window->editor(), &TEditControl::caretMoved, this, &Session::noteChange);
  connect(workspace_.frameOf(window)->resultsPanel(), &QDockWidget::visibilityChanged, this, &Session::noteChange);
}

void Session::noteChange() {
  if (!timer_.isActive())
    timer_.start();
}

void Session::save() {
  if (lock_ == nullptr)
    return;
  timer_.stop();
  QByteArray bytes = present();
  if (bytes == written_)
    return;
  written_ = std::move(bytes);
  // What fails now will be tried again, and there is nothing that the user could do about it.
  tasks_.add([path = path_, contents = written_.toStdString()] { writeFile(path, contents); });
}

QByteArray Session::present() const {
  QJsonArray windows;
  int top = 0;
  for (TEditWindow* window : workspace_.windows()) {
    const bool isTop = window == workspace_.topWindow();
    const QJsonObject json = present(window);
    if (json[pagesKey].toArray().isEmpty() && !isTop)
      continue;
    if (isTop)
      top = static_cast<int>(windows.size());
    windows.append(json);
  }
  return QJsonDocument(QJsonObject{{windowsKey, windows}, {topKey, top}}).toJson();
}

QJsonObject Session::present(TEditWindow* window) const {
  QJsonArray pages;
  QString front;
  for (const Page* page : window->pages()) {
    // One whose file was never there has nothing to come back with.
    if (page->document()->isUntitled() || page->document()->fileStamp() == FileStamp())
      continue;
    if (page->isCurrent())
      front = page->document()->fileName();
    pages.append(QJsonObject{{fileKey, page->document()->fileName()}, {viewKey, toJson(page->state())}});
  }
  addLate(pages, window);
  const auto current = std::ranges::find(pages, front, fileOf);
  const MainWindow* const frame = workspace_.frameOf(window);
  return {{geometryKey, base64Of(frame->saveGeometry())},
          {panelsKey, base64Of(frame->saveState())},
          {pagesKey, pages},
          {currentKey, current == pages.end() ? 0 : static_cast<int>(current - pages.begin())}};
}

} // namespace desktop
