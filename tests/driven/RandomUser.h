// SPDX-License-Identifier: MIT
// A user who does not know what he is doing: keys, mouse, menus, dialogs and windows at random.
#pragma once

#include "driven/Watchdog.h"
#include "driven/Witness.h"

#include <QObject>
#include <QPointer>
#include <QRect>
#include <QString>
#include <QWindow>

#include <cstdint>
#include <deque>
#include <functional>
#include <initializer_list>
#include <random>

class QAction;
class QFileDialog;
class QWidget;

namespace driven {

// Does one act whenever the event loop has served what there was, nested loops included, until all are done; then it
// ends every loop. Events go the way that those of a window system go: a window behind a modal dialog gets none, and an
// open menu gets all.
class RandomUser : public QObject {
  Q_OBJECT

public:
  // Does so many acts, drawn from `seed`, and keeps the dialogs for files within `folder`. The others must outlive it.
  RandomUser(std::uint64_t seed, int events, const QString& folder, Witness& witness, Watchdog& watchdog);
  ~RandomUser() override;

  // Begins, or goes on after the editor was started again.
  void start();
  bool isDone() const { return left_ <= 0; }
  int eventsLeft() const { return left_; }

protected:
  void timerEvent(QTimerEvent* event) override;

private:
  using Act = std::function<void()>;

  int number(int first, int last) { return std::uniform_int_distribution(first, last)(random_); }
  bool oneIn(int chances) { return number(1, chances) == 1; }
  template <class TList> auto& pick(TList& list) {
    return list[static_cast<decltype(list.size())>(number(0, static_cast<int>(list.size()) - 1))];
  }

  void step();
  void choose();
  void look();
  void stayInFolder();
  bool keepInBounds();

  void then(const QString& name, Act act) { waiting_.push_back({name, std::move(act)}); }
  void typeText(const QString& text);
  void pressKey(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier, const QString& text = QString());
  void typeSomething();
  void moveAround();
  void useShortcut();
  void useMarkers();
  void useMouse();
  void clickAt(QWidget* widget, QPoint place, Qt::MouseButton button, bool twice);
  void drag(QWidget* widget);
  void sendMouse(QEvent::Type type, QPointer<QWidget> widget, QPoint place, Qt::MouseButton button);
  void turnWheel();
  void useMenu();
  void chooseAction();
  void answerDialog();
  void changeWindow();
  void changeFile();
  void check();

  // The window that the user can work on: an open menu or list, else the dialog that is up, else one of the windows.
  QWidget* topLevel();
  QWidget* somethingIn(QWidget* window);
  static QWindow* keyWindow();

  struct Waiting {
    QString name;
    Act act;
  };

  std::mt19937_64 random_;
  int left_;
  int filesDue_; // when so many events are left the files are compared
  int undoDue_;  // and the steps taken back
  QString folder_;
  Witness& witness_;
  Watchdog& watchdog_;
  std::deque<Waiting> waiting_; // the rest of an act of several events
  Qt::MouseButtons buttons_;
  int timer_ = 0;
  int clock_ = 0; // of mouse events, in milliseconds
  int depth_ = 0; // of steps within steps
};

} // namespace driven
