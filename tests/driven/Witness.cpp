// SPDX-License-Identifier: MIT
#include "driven/Witness.h"

#include "desktop/edit/EditControl.h"
#include "desktop/files/SourceDocument.h"
#include "desktop/ui/EditWindow.h"
#include "desktop/ui/Page.h"
#include "platform/Application.h"
#include "platform/Debug.h"

#include <QApplication>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>

#include <algorithm>
#include <cstdio>
#include <string>

namespace driven {

namespace {

constexpr std::size_t trailLength = 60;

Witness* witness = nullptr;

// Remarks of the off-screen platform about itself, and of Qt's own dialog for files about its own lists, between which
// one can switch while a name is being edited.
bool isHarmless(QtMsgType type, const QString& message) {
  return type == QtDebugMsg || type == QtInfoMsg ||
         message.startsWith(QStringLiteral("This plugin does not support")) ||
         (message.endsWith(QStringLiteral("called with an editor that does not belong to this view")) &&
          qobject_cast<QFileDialog*>(QApplication::activeModalWidget()) != nullptr);
}

void handleMessage(QtMsgType type, const QMessageLogContext&, const QString& message) {
  if (!isHarmless(type, message) && witness != nullptr)
    witness->complain(QStringLiteral("warning of Qt: ") + message);
}

// What is still reported when no window is left goes to the debugger output.
void handleDebugLine(std::string_view line) {
  if (witness != nullptr && (line.find("Assertion failure") != line.npos || line.find("xception") != line.npos))
    witness->complain(QString::fromUtf8(line));
}

} // namespace

QList<desktop::TEditWindow*> editWindows() {
  QList<desktop::TEditWindow*> windows;
  for (QWidget* form : platform::Screen().Forms()) {
    if (auto* const window = qobject_cast<desktop::TEditWindow*>(form))
      windows.append(window);
  }
  return windows;
}

Witness::Witness() {
  witness = this;
  qInstallMessageHandler(handleMessage);
  platform::SetDebugSink(handleDebugLine);
}

Witness::~Witness() {
  platform::SetDebugSink({});
  qInstallMessageHandler(nullptr);
  witness = nullptr;
}

void Witness::takeReports() {
  platform::Application().SetReporter([this](const QString& message, int count) {
    complain(QStringLiteral("reported %1 times: %2").arg(count).arg(message));
  });
}

void Witness::note(const QString& act) {
  const std::scoped_lock lock(mutex_);
  trail_.push_back(act);
  if (trail_.size() > trailLength)
    trail_.pop_front();
}

QStringList Witness::trail() const {
  const std::scoped_lock lock(mutex_);
  return {trail_.begin(), trail_.end()};
}

void Witness::complain(const QString& finding) {
  const QStringList acts = trail();
  std::fprintf(stderr, "FINDING: %s\n  after %s\n", qPrintable(finding), qPrintable(acts.join(QStringLiteral("; "))));
  const std::scoped_lock lock(mutex_);
  content_ = false;
}

bool Witness::isContent() const {
  const std::scoped_lock lock(mutex_);
  return content_;
}

Witness::Opened* Witness::find(const desktop::Page* page) {
  const auto found = std::ranges::find(opened_, page, [](const Opened& each) { return each.page.data(); });
  return found == opened_.end() ? nullptr : &*found;
}

void Witness::count(QWidget* up, QPointer<QWidget>& last) {
  if (up == last)
    return;
  last = up;
  if (up != nullptr)
    ++seen_[QLatin1StringView(up->metaObject()->className()) + u' ' + up->windowTitle()];
}

void Witness::look() {
  count(QApplication::activeModalWidget(), dialog_);
  count(QApplication::activePopupWidget(), popup_);
  lookAtPages();
}

QString Witness::summary() const {
  QStringList parts;
  for (const auto& [what, times] : seen_.asKeyValueRange())
    parts.append(QStringLiteral("%1 %2").arg(what.trimmed()).arg(times));
  return parts.join(QStringLiteral(", "));
}

void Witness::lookAtPages() {
  std::erase_if(opened_, [](const Opened& each) { return each.page.isNull(); });
  for (const desktop::TEditWindow* window : editWindows()) {
    for (desktop::Page* page : window->pages()) {
      if (find(page) != nullptr)
        continue;
      const desktop::SourceDocument& document = *page->document();
      ++seen_[QStringLiteral("pages")];
      const bool fresh = !document.isUndoAvailable() && !document.isRedoAvailable();
      opened_.push_back({page, fresh ? std::optional(document.toRawText()) : std::nullopt});
    }
  }
}

void Witness::checkFiles() {
  for (const desktop::TEditWindow* window : editWindows()) {
    for (const desktop::Page* page : window->pages()) {
      const desktop::SourceDocument& document = *page->document();
      if (document.isModified() || document.isUntitled() || document.isReadOnlyText())
        continue;
      QFile file(document.fileName());
      const bool readable = file.open(QIODevice::ReadOnly);
      const quorvane::TEncodedText text = document.toBytes();
      ++seen_[QStringLiteral("files compared")];
      const bool same = readable && file.readAll() == QByteArray::fromStdString(text.Bytes);
      if (same)
        foreign_.remove(document.fileName());
      else if (!foreign_.contains(document.fileName()))
        complain(QStringLiteral("unmodified, but not what is in the file: ") + document.fileName());
    }
  }
}

void Witness::checkUndo(desktop::TEditWindow& window) {
  const desktop::Page* const page = window.currentPage();
  Opened* const opened = page != nullptr ? find(page) : nullptr;
  if (opened == nullptr || page->document()->isReadOnlyText())
    return;
  QTextDocument& document = *page->document();
  const QString before = document.toRawText();
  int steps = 0;
  for (; document.isUndoAvailable(); ++steps)
    window.editor()->undo();
  seen_[QStringLiteral("steps undone")] += steps;
  if (opened->text && document.toRawText() != *opened->text)
    complain(QStringLiteral("undoing %1 steps does not bring the first text back in %2").arg(steps).arg(page->title()));
  for (; steps > 0; --steps)
    window.editor()->redo();
  if (document.toRawText() != before)
    complain(QStringLiteral("redoing does not bring the text back in ") + page->title());
}

} // namespace driven
