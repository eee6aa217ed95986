// SPDX-License-Identifier: MIT
#pragma once

#include <QDockWidget>

class QKeyEvent;
class QLabel;
class QToolButton;
class QTreeView;

namespace desktop {

class TEditWindow;
class Workspace;

// The list of results below the text of one frame. All frames have the same list.
//
// A click or Enter goes to a place. Escape gives the focus back to the text, Shift+Escape closes the panel as well, and
// Ctrl+C copies the rows that are selected. It is closed at first.
class ResultsPanel : public QDockWidget {
  Q_OBJECT

public:
  // A panel for the frame around `window`. Both must outlive its use.
  ResultsPanel(Workspace& workspace, TEditWindow* window);

  // Shows the panel and leaves the focus where it is.
  void open() { show(); }
  // Shows the panel and gives the focus to the list.
  void enter();
  // Closes the panel and gives the focus to the text if it was in the panel.
  void leaveAndClose();

protected:
  void keyPressEvent(QKeyEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  QWidget* makeTitleBar();
  void setUpView();
  void showState();
  void showCurrent(int row);
  void go(const QModelIndex& index);
  bool handleKey(const QKeyEvent& event);
  void copySelected() const;

  Workspace& workspace_;
  TEditWindow* window_;
  QLabel* title_;
  QLabel* summary_;
  QToolButton* stop_;
  QTreeView* view_;
};

} // namespace desktop
