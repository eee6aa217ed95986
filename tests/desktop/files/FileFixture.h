// SPDX-License-Identifier: MIT
// Real files for the tests of documents, and the few edits that they need.
#pragma once

#include "desktop/files/FileStore.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>
#include <QTextCursor>

#include <memory>
#include <string>

namespace desktop {

// A folder of its own for every test.
class FileTest : public testing::Test {
protected:
  QString path(const char* name = "unit.pas") const { return folder_.filePath(QString::fromUtf8(name)); }

  QString write(const std::string& bytes, const char* name = "unit.pas") const {
    QFile file(path(name));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_EQ(file.write(bytes.data(), static_cast<qint64>(bytes.size())), static_cast<qint64>(bytes.size()));
    return path(name);
  }

  static std::string read(const QString& path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return file.readAll().toStdString();
  }

  // Opens a file that must open.
  static std::unique_ptr<SourceDocument> open(const QString& path) {
    LoadResult result = load(path);
    EXPECT_TRUE(result.document != nullptr) << result.error.toStdString();
    EXPECT_EQ(result.error, QString());
    return std::move(result.document);
  }
  std::unique_ptr<SourceDocument> openBytes(const std::string& bytes) const { return open(write(bytes)); }

  // Inserts `text` at the UTF-16 index `index` of line `line`, both from 0, as typing does.
  static void type(SourceDocument& document, int line, int index, const QString& text) {
    QTextCursor cursor(document.findBlockByNumber(line));
    cursor.setPosition(cursor.position() + index);
    cursor.insertText(text);
  }

  static void saveOver(SourceDocument& document) {
    const SaveResult result = save(document, document.fileName());
    ASSERT_TRUE(result.ok()) << result.error.toStdString();
  }

  QString folder() const { return folder_.path(); }

private:
  QTemporaryDir folder_;
};

} // namespace desktop
