// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QObject>
#include <QString>

namespace desktop {

class Page;
class TEditWindow;
class Workspace;

// Opening, saving and closing as the user does it: with dialogs, and with questions before anything can be lost.
//
// Every question names the file, and its cautious answer leaves text and file as they are. All dialogs are modal.
class FileCommands : public QObject {
  Q_OBJECT

public:
  explicit FileCommands(Workspace& workspace);

  // Lets the user choose files and opens them in `window`.
  void open(TEditWindow* window);
  // Saves under the page's name, or asks for one. False when the text has not been saved.
  bool save(Page* page);
  bool saveAs(Page* page);
  // Saves all pages of all windows that are modified. Stops at the first that is not saved, and returns false then.
  bool saveAll();
  // Asks about unsaved changes and gives the page what its file holds. False when it keeps its text.
  bool revert(Page* page);
  // Asks about unsaved changes and closes the page. False when the user thinks better of it or saving fails.
  bool close(Page* page);
  // The same for all other pages of its window; either all of them are closed or none.
  bool closeOthers(Page* page);
  // Asks about the unsaved changes of all of `pages` without closing any. False when one is to be kept.
  bool mayClose(const QList<Page*>& pages);

private:
  enum class Answer { Proceed, SaveAs, Cancel };

  bool write(Page* page, const QString& path);
  bool writeAsUtf8(Page* page, const QString& path);
  Answer askToOverwrite(const Page* page);
  QString chooseName(const Page* page);

  Workspace& workspace_;
};

} // namespace desktop
