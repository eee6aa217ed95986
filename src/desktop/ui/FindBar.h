// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/ui/TextSearch.h"

#include <QPointer>
#include <QWidget>

#include <vector>

class QCheckBox;
class QLabel;
class QLayout;
class QLineEdit;

namespace desktop {

class TEditControl;
struct Replacement;

// The bar below the text in which the user types what to find, and what to put in its place. The text is searched while
// it is typed, from where the search began; Enter goes on, Escape closes the bar and gives the focus back to the
// editor. While the bar is open every match in sight has a frame.
class FindBar : public QWidget {
  Q_OBJECT

public:
  // Searches what `editor` shows. The editor must outlive the use of the bar.
  explicit FindBar(TEditControl* editor, QWidget* parent = nullptr);

  // Shows the bar and puts the focus into it. A selection within one line becomes the text to find, one of several
  // lines is what "In selection" will search.
  void open();
  // The same with the row for replacing.
  void openReplace();
  void close();

  // Selects the next match before or after the caret; opens the bar when there is nothing to find yet.
  void findNext();
  void findPrevious();
  // Takes the word at the caret as the text to find, as a whole word, and goes to its next occurrence. Without a word
  // there nothing happens.
  void findWord(SearchDirection direction);

  // Replaces the match that is selected and goes to the next one; without such a selection it only goes there.
  void replace();
  // Replaces all matches as one undo step. It can be stopped: while it looks for them nothing has been changed, and
  // later those that are replaced stay, as one undo step.
  void replaceAll();

  QString text() const;
  // What the bar says about the last search; empty when there is nothing to say.
  QString message() const;

Q_SIGNALS:
  // What a search has to say while the bar is closed, with what was looked for.
  void toldWhileClosed(const QString& text);

protected:
  void keyPressEvent(QKeyEvent* event) override;
  void changeEvent(QEvent* event) override;

private:
  QLayout* buildFindRow();
  QLayout* buildReplaceRow();
  QLayout* buildOptions();
  void adoptSelection();
  void updateMatcher();
  void showMatches();
  void limitToSelection(bool limit);
  void dropRange();
  const SearchRange& range();
  bool canReplace();
  void apply(const std::vector<Replacement>& replacements);
  QString lookingFor() const;
  QString shownText() const;

  void find(SearchDirection direction);
  void findFrom(const QTextCursor& from, SearchDirection direction);
  void findWhileTyping();
  void startHere();
  void select(const SearchHit& hit, const QString& wrapMessage);
  void showFound(bool found, const QString& message);
  void tell(bool found, const QString& message);

  TEditControl* editor_;
  QLineEdit* text_;
  QLineEdit* replacement_;
  QWidget* replaceRow_;
  QCheckBox* matchCase_;
  QCheckBox* wholeWord_;
  QCheckBox* regularExpression_;
  QCheckBox* inSelection_;
  QLabel* message_;
  TextMatcher matcher_;
  SearchRange range_;
  QTextCursor selectedLines_;        // what was selected when the bar opened, when that was several lines
  QTextCursor lastMatch_;            // selects what was found last
  QPointer<QTextDocument> searched_; // where the search while typing began:
  int origin_ = 0;                   // the document, and the position in it
  bool found_ = true;
};

} // namespace desktop
