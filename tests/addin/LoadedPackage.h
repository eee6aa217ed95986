// SPDX-License-Identifier: MIT
// The package as a host sees it: a shared object with three functions.
#pragma once

#include "platform/Application.h"
#include "platform/Component.h"
#include "platform/Package.h"
#include "support/fakes/DebugRecorder.h"
#include "support/fakes/FakeMainForm.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QTemporaryDir>

#include <dlfcn.h>

#include <algorithm>
#include <stdexcept>
#include <string>
#include <vector>

namespace package {

using Lines = std::vector<std::string>;

// What the parse thread writes, between the lines of the main thread.
inline const Lines kThreadLines = {"Execute Parse Thread", "Exit Parse Thread"};

// Loads the library, which stays mapped as with a host that has unloaded it. Each test starts and stops it itself, in
// balance.
class LoadedPackage : public testing::Test {
protected:
  LoadedPackage() {
    void* library = dlopen(QUORVANE5_PATH, RTLD_NOW | RTLD_LOCAL);
    if (!library)
      throw std::runtime_error(dlerror());
    Initialize = Resolve<platform::TPackageProcedure>(library, platform::InitializeName);
    Finalize = Resolve<platform::TPackageProcedure>(library, platform::FinalizeName);
    Table = Resolve<platform::TPackageInfoFunction>(library, platform::GetPackageInfoTableName)();
    platform::Application().SetProgramDirectory(ProgramData.path() + u'/');
  }
  ~LoadedPackage() override {
    for (QWidget* splash : FormsOf(QStringLiteral("TVirelleSplashForm")))
      delete splash;
    platform::Application().SetProgramDirectory({});
  }

  template <class TFunction> static TFunction Resolve(void* library, const char* name) {
    void* symbol = dlsym(library, name);
    if (!symbol)
      throw std::runtime_error(dlerror());
    return reinterpret_cast<TFunction>(symbol);
  }

  // The forms of a class, shown or not.
  static QList<QWidget*> FormsOf(const QString& className) {
    QList<QWidget*> forms = QApplication::topLevelWidgets();
    forms.removeIf([&](const QWidget* form) { return platform::ClassName(*form) != className; });
    return forms;
  }

  void Register() { platform::RegisterPackage(*Table); }

  // The lines of the main thread since the last call.
  Lines TakeLines() {
    Lines lines = Debug.Take();
    std::erase_if(lines, [](const std::string& line) { return std::ranges::count(kThreadLines, line) != 0; });
    return lines;
  }

  QTemporaryDir ProgramData;
  fakes::FakeMainForm MainForm;
  fakes::DebugRecorder Debug;
  platform::TPackageProcedure Initialize = nullptr;
  platform::TPackageProcedure Finalize = nullptr;
  const platform::TPackageInfoTable* Table = nullptr;
};

} // namespace package
