// SPDX-License-Identifier: MIT
#include "desktop/ui/FileCheck.h"

#include "analysis/QVUnitCheck.h"
#include "desktop/edit/EditControl.h"
#include "desktop/edit/TextColumns.h"
#include "desktop/files/SourceDocument.h"
#include "desktop/ui/CheckThread.h"
#include "desktop/ui/EditWindow.h"
#include "desktop/ui/MainWindow.h"
#include "desktop/ui/MessageBar.h"
#include "desktop/ui/Page.h"
#include "desktop/ui/ResultList.h"
#include "desktop/ui/ResultsPanel.h"
#include "desktop/ui/StatusBar.h"
#include "desktop/ui/Workspace.h"
#include "text/ShownText.h"

#include <QTextBlock>

#include <utility>
#include <vector>

namespace desktop {

namespace {

// Makes places of findings, which come in the order of the text, so that no line is walked over more than once.
class PlaceMaker {
public:
  PlaceMaker(const SourceDocument& document, int tabWidth) : document_(document), tabWidth_(tabWidth) {}

  FoundPlace placeOf(const quorvane::TFinding& finding) {
    if (finding.Line != line_ || finding.Column - 1 < character_)
      begin(finding.Line);
    const qsizetype unit =
        at_.unit + unitOfCharIndex(QStringView(text_).mid(at_.unit), finding.Column - 1 - character_);
    character_ = finding.Column - 1;
    at_ = walkOn(text_, at_, unit, tabWidth_);
    FoundPlace place;
    place.fileName = document_.fileName();
    place.line = finding.Line;
    place.column = at_.column;
    place.unit = static_cast<int>(at_.unit);
    place.text = QString::fromStdString(quorvane::ShownServed(finding.Message));
    place.severity = Severity::Error;
    return place;
  }

private:
  void begin(int line) {
    line_ = line;
    text_ = document_.findBlockByNumber(line - 1).text();
    character_ = 0;
    at_ = {};
  }

  const SourceDocument& document_;
  int tabWidth_;
  int line_ = 0; // the line that was asked for last, its text, and how far it has been walked over
  QString text_;
  int character_ = 0;
  LinePlace at_;
};

QString errors(qsizetype count) {
  return count == 1 ? FileCheck::tr("1 error") : FileCheck::tr("%L1 errors").arg(count);
}

QString lines(int count) {
  return count == 1 ? FileCheck::tr("1 line") : FileCheck::tr("%L1 lines").arg(count);
}

} // namespace

FileCheck::FileCheck(Workspace& workspace) : QObject(&workspace), workspace_(workspace) {}

FileCheck::~FileCheck() {
  // All are asked before the first is waited for.
  for (CheckThread* thread : findChildren<CheckThread*>(QString(), Qt::FindDirectChildrenOnly))
    thread->stop();
}

void FileCheck::start(TEditWindow* window) {
  Page* const page = window->currentPage();
  if (page == nullptr)
    return;
  if (!page->isPascal()) {
    window->messageBar()->addMessage(
        MessageBar::Kind::Information,
        tr("%1 is not treated as Pascal source, so it cannot be checked.").arg(page->title()));
    return;
  }
  const int run = workspace_.results().begin(tr("Check of %1").arg(page->title()), [this] {
    stop();
    end(tr("Stopped"));
  });
  page_ = page;
  title_ = page->title();
  run_ = run;
  workspace_.results().showProgress(run, tr("Checking..."));
  workspace_.frameOf(window)->resultsPanel()->open();
  launch();
}

void FileCheck::launch() {
  auto* const thread = new CheckThread(page_->document()->servedText(), this);
  thread_ = thread;
  connect(thread, &QThread::finished, this, [this, thread] { finish(thread); });
  connect(page_, &QObject::destroyed, thread, [thread] { thread->stop(); });
  thread->start();
}

void FileCheck::stop() {
  if (thread_ != nullptr)
    thread_->stop();
}

// In the main thread.
void FileCheck::finish(CheckThread* thread) {
  thread->deleteLater();
  if (thread != thread_)
    return;
  thread_ = nullptr;
  if (page_ == nullptr)
    end(tr("%1 was closed before it was checked").arg(title_));
  else if (thread->isStopped())
    return;
  else if (!thread->trouble().isEmpty())
    end(tr("%1 could not be checked: %2").arg(title_, thread->trouble()));
  else if (page_->document()->servedText() != thread->text())
    launch();
  else
    list(thread->findings(), *page_);
}

void FileCheck::list(const quorvane::TFindings& findings, const Page& page) {
  const SourceDocument& document = *page.document();
  PlaceMaker maker(document, page.window()->editor()->tabWidth());
  std::vector<FoundPlace> places;
  places.reserve(findings.Findings.size());
  for (const quorvane::TFinding& finding : findings.Findings)
    places.push_back(maker.placeOf(finding));
  workspace_.results().append(run_, places);

  const auto count = static_cast<qsizetype>(places.size());
  const QString found = count == 0 ? tr("No errors found") : errors(count);
  QString summary = tr("%1 in the %2 of the editor's text, with the first branch of every conditional")
                        .arg(found, lines(document.blockCount()));
  if (findings.LeftOut > 0)
    summary += tr("; %1 more left out").arg(errors(static_cast<qsizetype>(findings.LeftOut)));
  end(summary);
  page.window()->statusBar()->showNote(count == 0
                                           ? tr("No errors found in %1").arg(title_)
                                           : tr("%1 found in %2, F8 goes to the first").arg(errors(count), title_));
}

void FileCheck::end(const QString& summary) {
  workspace_.results().finish(run_, summary);
}

} // namespace desktop
