// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/files/SearchPath.h"

#include <QList>
#include <QObject>
#include <QString>

#include <span>

class QAction;
class QLineEdit;
class QMenu;
class QPlainTextEdit;

namespace desktop {

class FileCommands;
class MainWindow;
class Page;
class TEditControl;
class TEditWindow;
class UnitLinks;
class Workspace;

// The menus of one frame and what they do to its editor window.
//
// Actions and menus are direct children of the frame, where add-ins look for "ToolsMenu", "ToolsGalleryItem" and
// "SearchGoToCommand". What does not apply is disabled.
class WindowCommands : public QObject {
  Q_OBJECT

public:
  // Builds the menus of `frame`.
  WindowCommands(MainWindow* frame, Workspace& workspace);

private:
  // One command: the action's object name, its text, its shortcuts, its icon in the desktop's theme, and what it does.
  // A row without a name is a separator.
  struct Row {
    const char* name = nullptr;
    const char* text = nullptr;
    const char* shortcuts = "";
    const char* icon = "";
    void (WindowCommands::*run)() = nullptr;
  };

  QMenu* addMenu(const char* name, const QString& title);
  QAction* addAction(const Row& row);
  void addRows(QMenu* menu, std::span<const Row> rows);
  void buildFileMenu();
  void buildEditMenu();
  void buildSearchMenu();
  void buildViewMenu();
  void addColours(QMenu* menu);
  void addToggles(QMenu* menu);
  void buildComponentMenu();
  void buildToolsMenu();
  void mirrorTools(QMenu* menu);
  void appendListed(QMenu* menu, const QString& category);
  void buildHelpMenu();
  void follow();
  void update();
  void enable(const char* name, bool enabled);

  void newFile();
  void newWindow();
  void open();
  void save();
  void saveAs();
  void saveAll();
  void revert();
  void reopenTab();
  void close();
  void exit();
  void undo();
  void redo();
  void cut();
  void copy();
  void paste();
  void selectAll();
  void indentBlock();
  void unindentBlock();
  void commentBlock();
  void uncommentBlock();
  void duplicateBlock();
  void moveBlockUp();
  void moveBlockDown();
  void find();
  void findNext();
  void findPrevious();
  void findNextWord();
  void findPreviousWord();
  void replace();
  void findInFiles();
  void goToLine();
  void openUnit();
  void checkFile();
  void nextResult();
  void previousResult();
  void showResults();
  void zoom(int steps);
  void largerText();
  void smallerText();
  void usualText();
  void nextTab();
  void previousTab();
  void showPackages();
  void editEnvironment();
  void editSearchPath();
  void keepSearchPath(const QList<SearchFolder>& folders);
  void reportUnkept(const QString& problem);
  void about();

  Page* page() const;
  void stepTab(int step);
  // The line editor that has the focus in this window, or null: then the commands of the Edit menu are for it.
  QLineEdit* focusedLine() const;

  MainWindow* frame_;
  TEditWindow* window_;
  TEditControl* editor_;
  UnitLinks* unitLinks_;
  Workspace& workspace_;
};

} // namespace desktop
