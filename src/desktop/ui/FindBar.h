// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/ui/TextSearch.h"

#include <QPointer>
#include <QWidget>

class QCheckBox;
class QLabel;
class QLineEdit;

namespace desktop {

class TEditControl;

// The bar below the text in which the user types what to find. The text is searched while it is typed, from where the
// search began; Enter goes on, Escape closes the bar and gives the focus back to the editor.
class FindBar : public QWidget {
  Q_OBJECT

public:
  // Searches what `editor` shows. The editor must outlive the bar.
  explicit FindBar(TEditControl* editor, QWidget* parent = nullptr);

  // Shows the bar and puts the focus into it. A selection within one line becomes the text to find.
  void open();
  void close();

  // Selects the next occurrence before or after the caret; opens the bar when there is nothing to find yet.
  void findNext();
  void findPrevious();

  QString text() const;
  // What the bar says about the last search; empty when there is nothing to say.
  QString message() const;

protected:
  void keyPressEvent(QKeyEvent* event) override;
  void changeEvent(QEvent* event) override;

private:
  void find(SearchDirection direction);
  void findWhileTyping();
  void startHere();
  void select(const SearchHit& hit, const QString& wrapMessage);
  void showFound(bool found, const QString& message);

  TEditControl* editor_;
  QLineEdit* text_;
  QCheckBox* matchCase_;
  QLabel* message_;
  QPointer<QTextDocument> searched_; // where the search while typing began:
  int origin_ = 0;                   // the document, and the position in it
  bool found_ = true;
};

} // namespace desktop
