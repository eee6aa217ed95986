// SPDX-License-Identifier: MIT
// A workspace with a list of results.
#pragma once

#include "desktop/ui/UiFixture.h"

#include "desktop/ui/FoundPlace.h"
#include "desktop/ui/ResultList.h"
#include "desktop/ui/ResultsPanel.h"
#include "desktop/ui/ResultWalk.h"

#include <QDir>
#include <QTextBlock>
#include <QTreeView>

#include <vector>

namespace desktop {

class ResultsFixture : public UiFixture {
protected:
  ResultList& list() const { return workspace.results(); }
  ResultWalk& walk() const { return workspace.resultWalk(); }
  ResultsPanel* panel() const { return frame()->resultsPanel(); }
  QTreeView* view() const { return panel()->findChild<QTreeView*>(QStringLiteral("ResultsView")); }

  // A place in the file `name` of the test's folder.
  FoundPlace placeIn(const QString& name, int line, int unit = 0, int length = 0) const {
    FoundPlace place;
    place.fileName = QDir::cleanPath(path(name));
    place.line = line;
    place.unit = unit;
    place.column = unit + 1;
    place.length = length;
    place.text = QStringLiteral("place in line %1").arg(line);
    return place;
  }
  // A finished run with these places.
  void listPlaces(const std::vector<FoundPlace>& places) const {
    const int run = list().begin(QStringLiteral("Search"));
    list().append(run, places);
    list().finish(run, QStringLiteral("done"));
  }
  QString shown(int row, int column) const { return list().index(row, column).data().toString(); }
  // "LINE:COLUMN" of each row, as shown.
  QStringList shownPlaces() const {
    QStringList places;
    for (int row = 0; row < list().count(); ++row)
      places.append(shown(row, ResultList::LineColumn) + u':' + shown(row, ResultList::CellColumn));
    return places;
  }
  QString caret() const { return QStringLiteral("%1:%2").arg(editor()->caretRow()).arg(editor()->caretColumn()); }
  void insertAt(Page* page, int line, int unit, const QString& text) const {
    QTextCursor cursor(page->document()->findBlockByNumber(line - 1));
    cursor.setPosition(cursor.position() + unit);
    cursor.insertText(text);
  }
};

} // namespace desktop
