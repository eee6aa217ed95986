// SPDX-License-Identifier: MIT
#include "desktop/ui/FilesSearch.h"

#include "desktop/edit/EditControl.h"
#include "desktop/edit/Indentation.h"
#include "desktop/edit/TextColumns.h"
#include "desktop/files/SourceDocument.h"
#include "desktop/ui/EditWindow.h"
#include "desktop/ui/MainWindow.h"
#include "desktop/ui/ModalDialog.h"
#include "desktop/ui/Page.h"
#include "desktop/ui/ResultList.h"
#include "desktop/ui/ResultsPanel.h"
#include "desktop/ui/StatusBar.h"
#include "desktop/ui/Workspace.h"

#include <QFileInfo>
#include <QRegularExpression>

#include <utility>
#include <vector>

namespace desktop {

namespace {

QString matches(int count) {
  return count == 1 ? FilesSearch::tr("1 match") : FilesSearch::tr("%L1 matches").arg(count);
}

QString files(int count) {
  return count == 1 ? FilesSearch::tr("1 file") : FilesSearch::tr("%L1 files").arg(count);
}

bool isWithin(const QString& folder, const QString& outer) {
  return folder == outer || folder.startsWith(outer.endsWith(u'/') ? outer : outer + u'/');
}

QString summaryOf(const FileSearchOutcome& outcome) {
  QString summary = outcome.matches == 0 ? FilesSearch::tr("Nothing found in %1").arg(files(outcome.files))
                                         : FilesSearch::tr("%1 in %L2 of %3")
                                               .arg(matches(outcome.matches))
                                               .arg(outcome.withMatch)
                                               .arg(files(outcome.files));
  if (outcome.isFull)
    summary += FilesSearch::tr("; there may be more, the search ends after %L1").arg(mostFileMatches);
  if (outcome.stopped)
    summary += FilesSearch::tr("; stopped");
  if (outcome.troubleCount > 0)
    summary += FilesSearch::tr("; not all was searched, the reasons stand at the end");
  return summary;
}

} // namespace

FilesSearch::FilesSearch(Workspace& workspace) : QObject(&workspace), workspace_(workspace) {
  connect(&finder_, &FindInFiles::found, this, &FilesSearch::list);
  connect(&finder_, &FindInFiles::progressed, this, &FilesSearch::showProgress);
  connect(&finder_, &FindInFiles::finished, this, &FilesSearch::finish);
}

void FilesSearch::ask(TEditWindow* window) {
  const QPointer<FilesSearch> self = this;
  const QPointer<TEditWindow> guard = window;
  ModalDialog<FindInFilesDialog> dialog(suggestion(window), workspace_.frameOf(window));
  if (dialog.run() && self && guard)
    start(dialog->request(), window);
}

FindInFilesRequest FilesSearch::suggestion(const TEditWindow* window) const {
  FindInFilesRequest request = last_;
  const QTextCursor cursor = window->editor()->textCursor();
  if (window->currentPage() != nullptr && cursor.hasSelection() && !spansLines(cursor))
    request.terms.text =
        request.terms.regularExpression ? QRegularExpression::escape(cursor.selectedText()) : cursor.selectedText();
  const QString own = window->currentPage() != nullptr
                          ? QFileInfo(window->currentPage()->document()->fileName()).absolutePath()
                          : workspace_.currentFolder();
  // A match may have led into a subfolder; the next search is for all of it again.
  if (request.folder.isEmpty() || !request.subfolders || !isWithin(own, request.folder))
    request.folder = own;
  return request;
}

void FilesSearch::start(const FindInFilesRequest& request, TEditWindow* window) {
  last_ = request;
  window_ = window;
  run_ = workspace_.results().begin(
      tr("Matches of \u201c%1\u201d").arg(request.terms.text), [this] { finder_.stop(); }, request.folder);
  workspace_.results().showProgress(run_, tr("Searching..."));
  workspace_.frameOf(window)->resultsPanel()->open();
  FileSearch search;
  search.terms = request.terms;
  search.folder = request.folder;
  search.patterns = request.patterns();
  search.subfolders = request.subfolders;
  search.open = openTexts();
  search.column = [tabWidth = window->editor()->tabWidth()](QStringView line, qsizetype from, int column,
                                                            qsizetype unit) {
    return walkOn(line, {from, column}, unit, tabWidth).column;
  };
  finder_.start(std::move(search));
}

std::vector<OpenText> FilesSearch::openTexts() const {
  std::vector<OpenText> texts;
  for (const TEditWindow* window : workspace_.windows()) {
    for (const Page* page : window->pages()) {
      const SourceDocument& document = *page->document();
      texts.push_back({document.fileName(), {}});
      if (document.isModified() || document.isUntitled())
        texts.back().text = document.snapshot();
    }
  }
  return texts;
}

void FilesSearch::list(const std::vector<FileMatch>& matches) {
  std::vector<FoundPlace> places;
  places.reserve(matches.size());
  for (const FileMatch& match : matches)
    places.push_back({match.fileName, match.line, match.column, match.unit, match.length, match.text, Severity::Match});
  workspace_.results().append(run_, places);
}

void FilesSearch::showProgress(const FileSearchOutcome& sofar) {
  workspace_.results().showProgress(run_,
                                    tr("Searching... %1 in %2 so far").arg(matches(sofar.matches), files(sofar.files)));
}

void FilesSearch::finish(const FileSearchOutcome& outcome, const QString& trouble) {
  std::vector<FoundPlace> places;
  for (const FileTrouble& each : outcome.troubles) {
    FoundPlace& place = places.emplace_back();
    place.fileName = each.path;
    place.text = tr("%1 %2").arg(QFileInfo(each.path).fileName(), each.reason);
    place.severity = Severity::Warning;
  }
  workspace_.results().append(run_, places);
  const QString summary = trouble.isEmpty() ? summaryOf(outcome) : tr("The search could not go on: %1").arg(trouble);
  const bool isListed = workspace_.results().finish(run_, summary);
  if (isListed && window_)
    window_->statusBar()->showNote(summary);
}

} // namespace desktop
