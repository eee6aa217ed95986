// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>

namespace desktop {

class MessageBar;
class Workspace;

// Has the colours of add-ins go with the scheme when the settings say so, as soon as a package is loaded and whenever
// scheme or setting change; when the setting is turned off they are those for light ground again. The user is asked
// once, when colours that were made for light ground stand on dark.
//
// Each add-in knows which of its colours have another one for the other ground; those that the user has chosen stay.
// Main thread only.
class AddInColours : public QObject {
  Q_OBJECT

public:
  // For the windows of `workspace`, which must outlive it. There may be one at a time.
  explicit AddInColours(Workspace& workspace);
  ~AddInColours() override;

  // From now on the user may be asked, and is if there is reason to.
  void startAsking();

private:
  void update();
  void takeBack();
  void ask();

  Workspace& workspace_;
  bool mayAsk_ = false;
  bool follow_ = false;      // as the settings had it at the last update
  QPointer<MessageBar> bar_; // of the window in which the user was asked
  QPointer<QWidget> question_;
};

} // namespace desktop
