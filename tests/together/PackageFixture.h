// SPDX-License-Identifier: MIT
// The real host, and the package as the editor loads it, from its file. Nothing of the add-in is linked.
#pragma once

#include "desktop/ide/IdeFixture.h"

#include "desktop/ide/PackageLoader.h"
#include "platform/Actions.h"
#include "platform/ota/Services.h"
#include "support/fakes/DebugRecorder.h"

#include <QDir>

namespace desktop {

class PackageFixture : public IdeFixture {
protected:
  PackageFixture() {
    platform::SetBorlandIDEServices(services);
    platform::Application().SetShowSplash(false); // it would stay for seconds behind every test
    platform::Application().SetReporter(
        [](const QString& message, int) { ADD_FAILURE() << "reported: " << message.toStdString(); });
  }
  ~PackageFixture() override {
    loader.unloadAll();
    platform::SetBorlandIDEServices(nullptr);
    platform::Application().ReportPending();
    platform::Application().SetReporter({});
    platform::Application().SetShowSplash(true);
  }

  // The threads of the process, by their numbers.
  static QStringList threads() {
    return QDir(QStringLiteral("/proc/self/task")).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
  }
  static qsizetype threadCount() { return threads().size(); }

  static QObject* proxyOf(const TEditWindow* window) { return platform::FindComponent(*window, equipment.at(0)); }

  // The names of a window's components. What Qt itself hangs into a window for a while has no name.
  static QStringList componentsOf(const TEditWindow* window) {
    QStringList names;
    for (const QObject* child : window->children()) {
      if (!child->objectName().isEmpty())
        names.append(child->objectName());
    }
    names.sort();
    return names;
  }
  // Those that the package has added.
  static QStringList equipmentOf(const TEditWindow* window) {
    QStringList names = componentsOf(window);
    names.removeIf([](const QString& name) { return !equipment.contains(name); });
    return names;
  }

  static inline const QString package = QStringLiteral(ADD_IN_FILE);
  static inline const QStringList equipment = {QStringLiteral("TQVEditorProxy"), QStringLiteral("TQVEditorToolbar"),
                                               QStringLiteral("TQVLineNumbers")};

  fakes::DebugRecorder debug;
  PackageLoader loader;
};

} // namespace desktop
