// SPDX-License-Identifier: MIT
// A registry of their own for the tests, and its file.
#pragma once

#include "platform/Debug.h"
#include "platform/Registry.h"
#include "support/EnvironmentVariable.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <string>
#include <string_view>
#include <vector>

namespace platform {

// Settings are in a folder of the test's, and the lines of the debugger output are collected.
class RegistryTest : public testing::Test {
protected:
  RegistryTest()
      : sinkBefore_(SetDebugSink([this](std::string_view line) { Lines.emplace_back(line); })),
        configHome_("XDG_CONFIG_HOME", QFile::encodeName(Home.path())) {}
  ~RegistryTest() override { SetDebugSink(sinkBefore_); }

  QString Folder() const { return Home.filePath(QStringLiteral("virelle")); }
  QString File(const char* ending = "") const {
    return Folder() + QStringLiteral("/registry.reg") + QLatin1String(ending);
  }

  void SetFile(std::string_view bytes) const {
    QDir().mkpath(Folder());
    QFile file(File());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_EQ(file.write(bytes.data(), static_cast<qint64>(bytes.size())), static_cast<qint64>(bytes.size()));
  }
  std::string FileBytes(const char* ending = "") const {
    QFile file(File(ending));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << file.fileName().toStdString();
    return file.readAll().toStdString();
  }
  // The names of all files in the folder, in their alphabetical order.
  QStringList Files() const { return QDir(Folder()).entryList(QDir::Files | QDir::Hidden, QDir::Name); }

  // Writes one number and closes the key.
  static void WriteNumber(const char* name, int value) {
    TRegistry registry;
    EXPECT_TRUE(registry.OpenKey(Key, true));
    registry.WriteInteger(name, value);
    registry.CloseKey();
  }
  // A number of the key, -1 if it is missing.
  static int ReadNumber(const char* name) {
    TRegistry registry;
    return registry.OpenKey(Key, false) && registry.ValueExists(name) ? registry.ReadInteger(name) : -1;
  }

  static constexpr const char* Key = "Software\\Vantrel\\QVIDE";
  // A file with the key and these lines below it.
  static std::string FileWith(const std::string& lines) {
    return "Windows Registry Editor Version 5.00\n\n[HKEY_CURRENT_USER\\Software\\Vantrel\\QVIDE]\n" + lines;
  }

  QTemporaryDir Home;
  std::vector<std::string> Lines;

private:
  TDebugSink sinkBefore_;
  support::EnvironmentVariable configHome_;
};

// The message of the ERegistryException that `call` raises; empty if it raises none.
template <class TCall> std::string MessageOf(TCall call) {
  try {
    call();
  } catch (const ERegistryException& error) {
    return error.what();
  }
  return {};
}

} // namespace platform
