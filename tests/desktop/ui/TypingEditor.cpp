// SPDX-License-Identifier: MIT
// An editor that types by itself until it is killed: TypingEditor FILE RECOVERY-FOLDER INTERVAL.
//
// It restores what an earlier run has left behind, and goes on with the text, which is lines of the letters from a to
// y. Standard output tells what has happened, a line each: "saved N" and "kept N" when N characters are in the file or
// in the recovery file; "typed N" when there are N characters in the text.
#include "desktop/edit/EditControl.h"
#include "desktop/files/RecoveryFolder.h"
#include "desktop/files/SourceDocument.h"
#include "desktop/ui/EditWindow.h"
#include "desktop/ui/FileCommands.h"
#include "desktop/ui/MainWindow.h"
#include "desktop/ui/MessageBar.h"
#include "desktop/ui/Page.h"
#include "desktop/ui/Recovery.h"
#include "desktop/ui/Workspace.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPushButton>
#include <QTimer>

#include <chrono>
#include <cstdio>
#include <optional>
#include <utility>

namespace {

using namespace desktop;

void tell(const char* what, qsizetype count) {
  std::printf("%s %lld\n", what, static_cast<long long>(count));
  std::fflush(stdout);
}

class TypingEditor {
public:
  explicit TypingEditor(const QStringList& arguments)
      : recovery_(workspace_, arguments.at(2), std::chrono::milliseconds(arguments.at(3).toInt())) {
    workspace_.openFile(arguments.at(1));
    workspace_.frameOf(workspace_.topWindow())->show();
    discardOlderThanFile(arguments.at(2));
    recovery_.offer();
    for (QPushButton* button : workspace_.topWindow()->messageBar()->findChildren<QPushButton*>()) {
      if (button->text() == QStringLiteral("&Restore"))
        button->click();
    }
    editor().moveCursor(QTextCursor::End);
    QObject::connect(&recovery_, &Recovery::kept, &timer_, [this] { tell("kept", std::exchange(written_, 0)); });
    // What is kept is at least the text of the first end of an interval since the last was kept.
    auto* const interval = recovery_.findChild<QTimer*>(QStringLiteral("RecoveryTimer"));
    QObject::connect(interval, &QTimer::timeout, &timer_, [this] {
      if (written_ == 0)
        written_ = length();
    });
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { type(); });
    tell("typed", length());
    timer_.start(0);
  }

private:
  // An editor that is killed between saving and removing what was kept before leaves less than is in the file. Its user
  // sees that and takes the file.
  void discardOlderThanFile(const QString& folder) const {
    for (const OrphanedText& orphan : RecoveryFolder(folder).takeOrphans()) {
      const std::optional<RecoveredText> recovered = orphan.read();
      if (recovered && static_cast<qsizetype>(savedBytes(*recovered).Bytes.size()) <= length())
        orphan.discard();
    }
  }

  TEditControl& editor() const { return *workspace_.topWindow()->editor(); }
  qsizetype length() const { return editor().document()->characterCount() - 1; }

  void type() {
    const auto place = static_cast<int>(length() % 26);
    const int key = place == 25 ? int{Qt::Key_Return} : Qt::Key_A + place;
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier,
                    place == 25 ? QStringLiteral("\r") : QString(QChar(u'a' + place)));
    QCoreApplication::sendEvent(&editor(), &press);
    tell("typed", length());
    if (length() % 97 == 0 && workspace_.files().save(workspace_.topPage()))
      tell("saved", length());
  }

  Workspace workspace_;
  Recovery recovery_;
  QTimer timer_;
  qsizetype written_ = 0;
};

} // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  const TypingEditor editor(QCoreApplication::arguments());
  return QCoreApplication::exec();
}
