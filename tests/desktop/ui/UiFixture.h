// SPDX-License-Identifier: MIT
// A workspace with real windows over real files in a folder of the test's own.
#pragma once

#include "desktop/edit/EditControl.h"
#include "desktop/files/SourceDocument.h"
#include "desktop/ui/EditWindow.h"
#include "desktop/ui/FileCommands.h"
#include "desktop/ui/FindBar.h"
#include "desktop/ui/MainWindow.h"
#include "desktop/ui/MessageBar.h"
#include "desktop/ui/Page.h"
#include "desktop/ui/Workspace.h"
#include "platform/Application.h"
#include "platform/Component.h"
#include "support/ModalAnswer.h"
#include "support/PrintQt.h"
#include "support/Wait.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QFile>
#include <QLabel>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QTextCursor>

namespace desktop {

class UiFixture : public testing::Test {
protected:
  QString path(const QString& name) const { return folder_.filePath(name); }

  QString write(const QString& name, const QByteArray& bytes) const {
    QFile file(path(name));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_EQ(file.write(bytes), bytes.size());
    return path(name);
  }

  QByteArray read(const QString& name) const {
    QFile file(path(name));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name.toStdString();
    return file.readAll();
  }

  // Opens a new file with these contents in the top window.
  Page* openText(const QString& name, const QByteArray& bytes) { return workspace.openFile(write(name, bytes)); }

  // Shows the frame of `window` and waits until it is the active one.
  void activate(TEditWindow* window) {
    MainWindow* const frame = workspace.frameOf(window);
    frame->show();
    frame->activateWindow();
    ASSERT_TRUE(support::waitUntil([frame] { return frame->isActiveWindow(); }));
    ASSERT_TRUE(support::waitUntil([this, window] { return workspace.topWindow() == window; }));
  }

  TEditWindow* window() const { return workspace.windows().constFirst(); }
  TEditControl* editor() const { return window()->editor(); }
  MainWindow* frame() const { return workspace.frameOf(window()); }

  QAction* action(const QString& name) const { return qobject_cast<QAction*>(platform::FindComponent(*frame(), name)); }
  // What a label of the top window's status bar shows.
  QString status(const QString& label) const { return window()->findChild<QLabel*>(label)->text(); }
  QStringList messages() const { return window()->messageBar()->messages(); }

  void type(const QString& text) { editor()->textCursor().insertText(text); }
  void select(int begin, int end) {
    QTextCursor cursor = editor()->textCursor();
    cursor.setPosition(begin);
    cursor.setPosition(end, QTextCursor::KeepAnchor);
    editor()->setTextCursor(cursor);
  }

  QTemporaryDir folder_;
  Workspace workspace;
};

using MessageBoxAnswer = support::ModalAnswer<QMessageBox>;

// An answer that clicks the button `text`.
inline std::function<void(QMessageBox&)> clicking(const QString& text) {
  return [text](QMessageBox& box) { support::clickButton(box, text); };
}

} // namespace desktop
