// SPDX-License-Identifier: MIT
#pragma once

#include <QFileSystemWatcher>
#include <QObject>
#include <QStringList>
#include <QTimer>

namespace desktop {

// Watches files for what other programs do to them.
//
// The system watches what a name stands for and loses it when the file is replaced, so the files' folders are watched
// as well, and every file anew after each notice; what cannot be watched, as in a folder that is gone, is looked at
// once a second. The watch does not say what has happened: who hears look() compares. Main thread only.
class FileWatch : public QObject {
  Q_OBJECT

public:
  explicit FileWatch(QObject* parent = nullptr);

  // Watches the files at these absolute paths and no others; they need not exist. look() follows.
  void setFiles(const QStringList& paths);
  // Makes look() follow in a moment, in which a program that is writing gets on.
  void lookSoon();

Q_SIGNALS:
  // Any of the files may have changed, or come, or gone.
  void look();

private:
  void watch();
  bool watchPath(const QString& path);

  QFileSystemWatcher watcher_;
  QStringList files_;
  QTimer soon_;
  QTimer retry_;
};

} // namespace desktop
