// SPDX-License-Identifier: MIT
// The menus: which commands there are, and where.
#include "desktop/ui/WindowCommands.h"

#include "desktop/edit/EditControl.h"
#include "desktop/ui/Appearance.h"
#include "desktop/ui/EditWindow.h"
#include "desktop/ui/MainWindow.h"
#include "desktop/ui/RecentMenu.h"
#include "desktop/ui/UnitLinks.h"
#include "desktop/ui/Workspace.h"
#include "platform/Actions.h"
#include "platform/Application.h"
#include "platform/Component.h"

#include <QActionGroup>
#include <QMenu>
#include <QMenuBar>
#include <QPointer>

#include <array>

namespace desktop {

WindowCommands::WindowCommands(MainWindow* frame, Workspace& workspace)
    : QObject(frame), frame_(frame), window_(frame->editWindow()), editor_(window_->editor()),
      unitLinks_(new UnitLinks(window_, workspace)), workspace_(workspace) {
  buildFileMenu();
  buildEditMenu();
  buildSearchMenu();
  buildViewMenu();
  buildComponentMenu();
  buildToolsMenu();
  buildHelpMenu();
  follow();
}

void WindowCommands::buildFileMenu() {
  static constexpr std::array rows = {
      Row{"FileNewCommand", QT_TR_NOOP("&New"), "Ctrl+N", "document-new", &WindowCommands::newFile},
      Row{"FileNewWindowCommand", QT_TR_NOOP("New Edit &Window"), "Ctrl+Shift+N", "window-new",
          &WindowCommands::newWindow},
      Row{"FileOpenCommand", QT_TR_NOOP("&Open..."), "Ctrl+O", "document-open", &WindowCommands::open},
  };
  static constexpr std::array rest = {
      Row{"FileReopenCommand", QT_TR_NOOP("Reopen Close&d Tab"), "Ctrl+Shift+T", "edit-undo",
          &WindowCommands::reopenTab},
      Row{},
      Row{"FileSaveCommand", QT_TR_NOOP("&Save"), "Ctrl+S", "document-save", &WindowCommands::save},
      Row{"FileSaveAsCommand", QT_TR_NOOP("Save &As..."), "Ctrl+Shift+S", "document-save-as", &WindowCommands::saveAs},
      Row{"FileSaveAllCommand", QT_TR_NOOP("Sa&ve All"), "Ctrl+Alt+S", "document-save-all", &WindowCommands::saveAll},
      Row{"FileRevertCommand", QT_TR_NOOP("Rever&t..."), "F5", "document-revert", &WindowCommands::revert},
      Row{},
      Row{"FileCloseCommand", QT_TR_NOOP("&Close"), "Ctrl+W; Ctrl+F4", "document-close", &WindowCommands::close},
      Row{"FileExitCommand", QT_TR_NOOP("E&xit"), "Ctrl+Q", "application-exit", &WindowCommands::exit},
  };
  QMenu* const menu = addMenu("FileMenu", tr("&File"));
  addRows(menu, rows);
  addRecentMenu(*menu, workspace_, *window_);
  addRows(menu, rest);
}

void WindowCommands::buildEditMenu() {
  static constexpr std::array rows = {
      Row{"EditUndoCommand", QT_TR_NOOP("&Undo"), "Ctrl+Z", "edit-undo", &WindowCommands::undo},
      Row{"EditRedoCommand", QT_TR_NOOP("&Redo"), "Ctrl+Shift+Z; Ctrl+Y", "edit-redo", &WindowCommands::redo},
      Row{},
      Row{"EditCutCommand", QT_TR_NOOP("Cu&t"), "Ctrl+X", "edit-cut", &WindowCommands::cut},
      Row{"EditCopyCommand", QT_TR_NOOP("&Copy"), "Ctrl+C", "edit-copy", &WindowCommands::copy},
      Row{"EditPasteCommand", QT_TR_NOOP("&Paste"), "Ctrl+V", "edit-paste", &WindowCommands::paste},
      Row{},
      Row{"EditSelectAllCommand", QT_TR_NOOP("Select &All"), "Ctrl+A", "edit-select-all", &WindowCommands::selectAll},
      Row{},
      Row{"EditIndentCommand", QT_TR_NOOP("&Indent Block"), "Ctrl+I", "format-indent-more",
          &WindowCommands::indentBlock},
      Row{"EditUnindentCommand", QT_TR_NOOP("U&nindent Block"), "Ctrl+Shift+I", "format-indent-less",
          &WindowCommands::unindentBlock},
      Row{"EditCommentCommand", QT_TR_NOOP("Co&mment Block"), "Ctrl+D", "", &WindowCommands::commentBlock},
      Row{"EditUncommentCommand", QT_TR_NOOP("Unc&omment Block"), "Ctrl+Shift+D", "", &WindowCommands::uncommentBlock},
      Row{},
      Row{"EditDuplicateCommand", QT_TR_NOOP("&Duplicate Lines"), "Ctrl+Alt+Down", "", &WindowCommands::duplicateBlock},
      Row{"EditMoveUpCommand", QT_TR_NOOP("Move &Lines Up"), "Ctrl+Shift+Up", "", &WindowCommands::moveBlockUp},
      Row{"EditMoveDownCommand", QT_TR_NOOP("Move Lines Do&wn"), "Ctrl+Shift+Down", "", &WindowCommands::moveBlockDown},
  };
  QMenu* const menu = addMenu("EditMenu", tr("&Edit"));
  addRows(menu, rows);
  // A line editor may have been worked on since it got the focus.
  connect(menu, &QMenu::aboutToShow, this, &WindowCommands::update);
}

void WindowCommands::buildSearchMenu() {
  static constexpr std::array rows = {
      Row{"SearchFindCommand", QT_TR_NOOP("&Find..."), "Ctrl+F", "edit-find", &WindowCommands::find},
      Row{"SearchNextCommand", QT_TR_NOOP("Find &Next"), "F3", "go-down", &WindowCommands::findNext},
      Row{"SearchPreviousCommand", QT_TR_NOOP("Find &Previous"), "Shift+F3", "go-up", &WindowCommands::findPrevious},
      Row{"SearchNextWordCommand", QT_TR_NOOP("Next &Word at Caret"), "Ctrl+F3", "", &WindowCommands::findNextWord},
      Row{"SearchPreviousWordCommand", QT_TR_NOOP("Previous W&ord at Caret"), "Ctrl+Shift+F3", "",
          &WindowCommands::findPreviousWord},
      Row{"SearchReplaceCommand", QT_TR_NOOP("&Replace..."), "Ctrl+H; Ctrl+R", "edit-find-replace",
          &WindowCommands::replace},
      Row{},
      Row{"SearchFilesCommand", QT_TR_NOOP("Find &in Files..."), "Ctrl+Shift+F", "edit-find",
          &WindowCommands::findInFiles},
      Row{},
      Row{"SearchGoToCommand", QT_TR_NOOP("&Go to Line Number..."), "Ctrl+G", "go-jump", &WindowCommands::goToLine},
      Row{"SearchOpenUnitCommand", QT_TR_NOOP("Op&en Unit at Caret"), "Alt+Return; Alt+Enter", "",
          &WindowCommands::openUnit},
      Row{},
      Row{"SearchCheckCommand", QT_TR_NOOP("&Check File"), "F9", "", &WindowCommands::checkFile},
      Row{"SearchNextResultCommand", QT_TR_NOOP("Ne&xt Result"), "F8", "", &WindowCommands::nextResult},
      Row{"SearchPreviousResultCommand", QT_TR_NOOP("Previous Res&ult"), "Shift+F8", "",
          &WindowCommands::previousResult},
  };
  QMenu* const menu = addMenu("SearchMenu", tr("&Search"));
  addRows(menu, rows);
  appendListed(menu, QStringLiteral("Search"));
}

// Add-ins put actions into the window's list and name the menu they are for. They come and go with the add-in, so the
// end of the menu is made whenever it is opened.
void WindowCommands::appendListed(QMenu* menu, const QString& category) {
  connect(menu, &QMenu::aboutToShow, this, [this, menu, category, own = menu->actions().size()] {
    for (QAction* last : menu->actions().mid(own)) {
      menu->removeAction(last);
      if (last->isSeparator())
        delete last;
    }
    for (QAction* action : window_->actionList()->Actions()) {
      const auto* const listed = dynamic_cast<const platform::TAction*>(action);
      if (listed == nullptr || listed->Category != category)
        continue;
      if (menu->actions().size() == own)
        menu->addSeparator();
      menu->addAction(action);
    }
  });
}

void WindowCommands::buildViewMenu() {
  static constexpr std::array rows = {
      Row{},
      Row{"ViewLargerTextCommand", QT_TR_NOOP("&Larger Text"), "Ctrl++; Ctrl+=", "zoom-in",
          &WindowCommands::largerText},
      Row{"ViewSmallerTextCommand", QT_TR_NOOP("&Smaller Text"), "Ctrl+-", "zoom-out", &WindowCommands::smallerText},
      Row{"ViewUsualTextCommand", QT_TR_NOOP("&Usual Text Size"), "Ctrl+0", "zoom-original",
          &WindowCommands::usualText},
      Row{},
      Row{"ViewNextTabCommand", QT_TR_NOOP("&Next Tab"), "Ctrl+Tab; Ctrl+PgDown", "go-next", &WindowCommands::nextTab},
      Row{"ViewPreviousTabCommand", QT_TR_NOOP("&Previous Tab"), "Ctrl+Shift+Tab; Ctrl+PgUp", "go-previous",
          &WindowCommands::previousTab},
      Row{},
      Row{"ViewResultsCommand", QT_TR_NOOP("&Results"), "Ctrl+Alt+R", "", &WindowCommands::showResults},
  };
  QMenu* const menu = addMenu("ViewMenu", tr("&View"));
  addColours(menu->addMenu(tr("&Colours")));
  addToggles(menu);
  addRows(menu, rows);
}

void WindowCommands::addColours(QMenu* menu) {
  struct Choice {
    Appearance::Colours colours;
    const char* name;
    const char* text;
  };
  static constexpr std::array choices = {
      Choice{Appearance::Colours::Light, "ViewLightCommand", QT_TR_NOOP("&Light")},
      Choice{Appearance::Colours::Dark, "ViewDarkCommand", QT_TR_NOOP("&Dark")},
      Choice{Appearance::Colours::Desktop, "ViewDesktopColoursCommand", QT_TR_NOOP("&Follow the Desktop")},
  };
  menu->setObjectName(QStringLiteral("ColoursMenu"));
  auto* const group = new QActionGroup(menu);
  Appearance& appearance = workspace_.appearance();
  for (const Choice& choice : choices) {
    auto* const action = new QAction(tr(choice.text), frame_);
    action->setObjectName(QLatin1StringView(choice.name));
    action->setCheckable(true);
    action->setChecked(appearance.colours() == choice.colours);
    group->addAction(action);
    menu->addAction(action);
    connect(action, &QAction::triggered, &appearance,
            [&appearance, &choice] { appearance.setColours(choice.colours); });
    connect(&appearance, &Appearance::changed, action,
            [action, &appearance, &choice] { action->setChecked(appearance.colours() == choice.colours); });
  }
}

void WindowCommands::addToggles(QMenu* menu) {
  struct Toggle {
    const char* name;
    const char* text;
    const char* shortcut;
    bool (Appearance::*isOn)() const;
    void (Appearance::*set)(bool);
  };
  static constexpr std::array toggles = {
      Toggle{"ViewBlanksCommand", QT_TR_NOOP("Show &Blanks"), "Ctrl+Alt+B", &Appearance::showsBlanks,
             &Appearance::setShowsBlanks},
      Toggle{"ViewRightMarginCommand", QT_TR_NOOP("Show Right &Margin"), "Ctrl+Alt+M", &Appearance::showsRightMargin,
             &Appearance::setShowsRightMargin},
  };
  Appearance& appearance = workspace_.appearance();
  for (const Toggle& toggle : toggles) {
    auto* const action = new QAction(tr(toggle.text), frame_);
    action->setObjectName(QLatin1StringView(toggle.name));
    action->setShortcut(QKeySequence(QLatin1StringView(toggle.shortcut)));
    action->setCheckable(true);
    action->setChecked((appearance.*toggle.isOn)());
    menu->addAction(action);
    connect(action, &QAction::toggled, &appearance, toggle.set);
    connect(&appearance, &Appearance::changed, action,
            [action, &appearance, &toggle] { action->setChecked((appearance.*toggle.isOn)()); });
  }
}

void WindowCommands::buildComponentMenu() {
  static constexpr std::array rows = {
      Row{"ComponentPackagesCommand", QT_TR_NOOP("&Packages..."), "", "applications-development",
          &WindowCommands::showPackages},
  };
  addRows(addMenu("ComponentMenu", tr("&Component")), rows);
}

void WindowCommands::buildToolsMenu() {
  // Add-ins put their items above the one with this name.
  static constexpr std::array rows = {
      Row{"ToolsGalleryItem", QT_TR_NOOP("Search &Path..."), "", "folder", &WindowCommands::editSearchPath},
      Row{"ToolsEnvironmentCommand", QT_TR_NOOP("&Environment Options..."), "", "preferences-system",
          &WindowCommands::editEnvironment},
  };
  QMenu* const menu = addMenu("ToolsMenu", tr("&Tools"));
  if (platform::Application().MainForm() == frame_) {
    addRows(menu, rows);
    return;
  }
  // Add-ins put their items into the menu of the main form; every other window shows the same items.
  mirrorTools(menu);
  connect(menu, &QMenu::aboutToShow, this, [this, menu] { mirrorTools(menu); });
}

void WindowCommands::mirrorTools(QMenu* menu) {
  const QObject* const tools =
      platform::FindComponent(*platform::Application().MainForm(), QStringLiteral("ToolsMenu"));
  for (QAction* action : menu->actions())
    menu->removeAction(action);
  menu->addActions(static_cast<const QMenu*>(tools)->actions());
}

void WindowCommands::buildHelpMenu() {
  static constexpr std::array rows = {
      Row{"HelpAboutCommand", QT_TR_NOOP("&About Virelle"), "", "help-about", &WindowCommands::about},
  };
  addRows(addMenu("HelpMenu", tr("&Help")), rows);
}

QMenu* WindowCommands::addMenu(const char* name, const QString& title) {
  auto* const menu = new QMenu(title, frame_);
  menu->setObjectName(QLatin1StringView(name));
  frame_->menuBar()->addMenu(menu);
  return menu;
}

void WindowCommands::addRows(QMenu* menu, std::span<const Row> rows) {
  for (const Row& row : rows) {
    if (row.name == nullptr)
      menu->addSeparator();
    else
      menu->addAction(addAction(row));
  }
}

QAction* WindowCommands::addAction(const Row& row) {
  auto* const action = new platform::TAction(frame_);
  action->setIcon(QIcon::fromTheme(QLatin1StringView(row.icon)));
  action->setText(tr(row.text));
  action->setObjectName(QLatin1StringView(row.name));
  if (*row.shortcuts != '\0')
    action->setShortcuts(QKeySequence::listFromString(QLatin1StringView(row.shortcuts)));
  action->OnExecute = [self = QPointer(this), run = row.run] {
    if (self)
      (self->*run)();
  };
  return action;
}

} // namespace desktop
