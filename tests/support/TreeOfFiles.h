// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QString>
#include <QTemporaryDir>

namespace support {

// A tree of files in a folder that goes with the test.
class TreeOfFiles {
public:
  QString Path(const char* name = "") const {
    return QDir::cleanPath(QDir(QDir(folder_.path()).canonicalPath()).filePath(QString::fromUtf8(name)));
  }
  QString Folder(const char* name) const {
    EXPECT_TRUE(QDir().mkpath(Path(name)));
    return Path(name);
  }
  QString File(const char* name) const {
    EXPECT_TRUE(QDir().mkpath(QFileInfo(Path(name)).absolutePath()));
    QFile file(Path(name));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    return Path(name);
  }

private:
  QTemporaryDir folder_;
};

} // namespace support
