// SPDX-License-Identifier: MIT
#pragma once

#include <QMainWindow>

namespace desktop {

class ResultsPanel;
class TEditWindow;
class WindowCommands;
class Workspace;

// The frame around one editor window: menus, title, dropping of files, closing. The frame of the first editor window is
// the application's main form. Frames are made and destroyed by the workspace.
class MainWindow : public QMainWindow {
  Q_OBJECT

public:
  // A frame with an editor window named `editWindowName`.
  MainWindow(Workspace& workspace, const QString& editWindowName);

  // Destroys the commands and then the editor window first, while the frame is still whole.
  ~MainWindow() override;

  TEditWindow* editWindow() const { return editWindow_; }
  // Below the editor window, closed at first.
  ResultsPanel* resultsPanel() const { return resultsPanel_; }

protected:
  void changeEvent(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  void showTitle();
  bool takeDrop(QEvent* event);

  Workspace& workspace_;
  TEditWindow* editWindow_;
  ResultsPanel* resultsPanel_;
  WindowCommands* commands_;
};

} // namespace desktop
