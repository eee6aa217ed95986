// SPDX-License-Identifier: MIT
#include "driven/RandomUser.h"

#include "desktop/edit/EditControl.h"
#include "desktop/ui/EditWindow.h"

#include <QAction>
#include <QApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QPlainTextEdit>
#include <QTimerEvent>

namespace driven {

namespace {

constexpr int deepest = 12;      // dialogs, menus and lists within each other
constexpr int longest = 200'000; // characters of a text
constexpr int mostWindows = 4;
constexpr int checkInterval = 100; // events
constexpr int undoInterval = 500;

bool isBelow(const QString& path, const QString& folder) {
  return path == folder || path.startsWith(folder + u'/');
}

} // namespace

RandomUser::RandomUser(std::uint64_t seed, int events, const QString& folder, Witness& witness, Watchdog& watchdog)
    : random_(seed), left_(events), filesDue_(events - checkInterval), undoDue_(events - undoInterval), folder_(folder),
      witness_(witness), watchdog_(watchdog) {}

RandomUser::~RandomUser() = default;

void RandomUser::start() {
  buttons_ = Qt::NoButton;
  waiting_.clear();
  timer_ = startTimer(0);
}

// The next timer is another one, because a timer whose event is being served is at rest in nested event loops.
void RandomUser::timerEvent(QTimerEvent* event) {
  killTimer(event->timerId());
  watchdog_.beat();
  if (isDone()) {
    QCoreApplication::exit();
    return;
  }
  timer_ = startTimer(0);
  ++depth_;
  step();
  --depth_;
}

void RandomUser::step() {
  look();
  if (waiting_.empty())
    choose();
  if (waiting_.empty())
    return;
  const Waiting next = std::move(waiting_.front());
  waiting_.pop_front();
  --left_;
  witness_.note(next.name);
  next.act();
}

// What is done between two events, and is none of the user's.
void RandomUser::look() {
  witness_.look();
  stayInFolder();
  if (filesDue_ >= left_) {
    filesDue_ = left_ - checkInterval;
    witness_.checkFiles();
  }
  // Not while a command is at work, which may hold on to the text.
  const bool isFree = depth_ == 1 && waiting_.empty() && QApplication::activeModalWidget() == nullptr &&
                      QApplication::activePopupWidget() == nullptr;
  if (undoDue_ >= left_ && isFree) {
    undoDue_ = left_ - undoInterval;
    for (desktop::TEditWindow* window : editWindows())
      witness_.checkUndo(*window);
  }
}

// No dialog for files may write or look outside of the folder.
void RandomUser::stayInFolder() {
  for (QWidget* widget : QApplication::topLevelWidgets()) {
    auto* const dialog = qobject_cast<QFileDialog*>(widget);
    if (dialog == nullptr || !dialog->isVisible())
      continue;
    if (!isBelow(dialog->directory().absolutePath(), folder_))
      dialog->setDirectory(folder_);
    for (const QString& file : dialog->selectedFiles()) {
      if (!isBelow(QFileInfo(file).absoluteFilePath(), folder_)) {
        dialog->reject();
        break;
      }
    }
  }
}

// Keeps the editor from growing without end. True if that is what comes next.
bool RandomUser::keepInBounds() {
  if (depth_ > deepest) {
    pressKey(Qt::Key_Escape);
    return true;
  }
  const QList<desktop::TEditWindow*> windows = editWindows();
  for (desktop::TEditWindow* window : windows) {
    if (window->editor()->document()->characterCount() > longest && window->editor()->hasFocus()) {
      pressKey(Qt::Key_A, Qt::ControlModifier);
      pressKey(Qt::Key_Delete);
      return true;
    }
  }
  if (windows.size() > mostWindows && QApplication::activeModalWidget() == nullptr) {
    then(QStringLiteral("close a window"), [window = QPointer(windows.constLast()->window())] {
      if (window)
        window->close();
    });
    return true;
  }
  return false;
}

void RandomUser::choose() {
  if (keepInBounds())
    return;
  struct Share {
    int weight;
    void (RandomUser::*act)();
  };
  static constexpr Share shares[] = {
      {300, &RandomUser::typeSomething}, {150, &RandomUser::moveAround},  {80, &RandomUser::useShortcut},
      {40, &RandomUser::useMarkers},     {120, &RandomUser::useMouse},    {40, &RandomUser::turnWheel},
      {50, &RandomUser::useMenu},        {25, &RandomUser::chooseAction}, {30, &RandomUser::changeWindow},
      {3, &RandomUser::changeFile},
  };
  if (QApplication::activeModalWidget() != nullptr && number(1, 3) != 1) {
    answerDialog();
    return;
  }
  int all = 0;
  for (const Share& share : shares)
    all += share.weight;
  int drawn = number(1, all);
  for (const Share& share : shares) {
    drawn -= share.weight;
    if (drawn <= 0) {
      (this->*share.act)();
      return;
    }
  }
}

QWidget* RandomUser::topLevel() {
  if (QWidget* const popup = QApplication::activePopupWidget())
    return popup;
  if (QWidget* const modal = QApplication::activeModalWidget())
    return modal;
  QWidgetList windows;
  for (QWidget* widget : QApplication::topLevelWidgets()) {
    if (widget->isVisible() && !widget->isMinimized() && (widget->windowType() == Qt::Window))
      windows.append(widget);
  }
  return windows.isEmpty() ? nullptr : pick(windows);
}

QWindow* RandomUser::keyWindow() {
  QWidget* const modal = QApplication::activeModalWidget();
  QWidget* const wanted = modal != nullptr ? modal : QApplication::activeWindow();
  if (QGuiApplication::focusWindow() == nullptr) {
    for (QWidget* widget : QApplication::topLevelWidgets()) {
      if (widget->isVisible() && widget->windowType() == Qt::Window)
        (wanted != nullptr ? wanted : widget)->activateWindow();
    }
  }
  return QGuiApplication::focusWindow();
}

} // namespace driven
