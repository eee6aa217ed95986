// SPDX-License-Identifier: MIT
// The services of a host.
#pragma once

#include "platform/ota/Module.h"
#include "platform/ota/Services.h"

#include <QString>
#include <QStringList>

#include <memory>
#include <vector>

namespace fakes {

// How the editor looks.
class FakeEditOptions : public platform::IOTAEditOptions {
public:
  QString FontName = QStringLiteral("DejaVu Sans Mono");
  int FontSize = 10;
  QString GetFontName() const override { return FontName; }
  int GetFontSize() const override { return FontSize; }
};

// A module made of the given editors.
class FakeModule : public platform::IOTAModule {
public:
  std::vector<std::shared_ptr<platform::IOTAEditor>> Files;
  int GetModuleFileCount() const override { return static_cast<int>(Files.size()); }
  std::shared_ptr<platform::IOTAEditor> GetModuleFileEditor(int index) override {
    return Files.at(static_cast<std::size_t>(index));
  }
};

class FakeFormDesigner : public platform::IFormDesigner {};

// The editor of a form file, with a designer or without.
class FakeFormEditor : public platform::IOTAFormEditor, public platform::INTAFormEditor {
public:
  std::shared_ptr<platform::IFormDesigner> Designer;
  QString GetFileName() const override { return QStringLiteral("/home/me/unit1.dfm"); }
  std::shared_ptr<platform::IFormDesigner> GetFormDesigner() override { return Designer; }
};

// What a small host offers: the editor, module, action, message and search path services, with a top view, a current
// module and records of the files asked for and the messages shown. It does not offer the rest.
class FakeServices : public platform::IOTAServices,
                     public platform::INTAServices,
                     public platform::IOTAActionServices,
                     public platform::IOTAEditorServices,
                     public platform::IOTAMessageServices,
                     public platform::IOTAModuleServices,
                     public platform::IOTASearchPathServices {
public:
  std::shared_ptr<platform::IOTAEditView> TopView;
  std::shared_ptr<FakeEditOptions> Options = std::make_shared<FakeEditOptions>();
  std::shared_ptr<platform::IOTAModule> Module;
  QStringList OpenedFiles;
  bool CanOpen = true; // what OpenFile answers
  QStringList Messages;
  std::vector<platform::TOTASearchFolder> SearchPath;

  QString GetBaseRegistryKey() const override { return QStringLiteral("Software\\Host"); }
  bool OpenFile(const QString& fileName) override {
    OpenedFiles.append(fileName);
    return CanOpen;
  }
  std::shared_ptr<platform::IOTAEditView> GetTopView() override { return TopView; }
  std::shared_ptr<platform::IOTAEditBuffer> GetTopBuffer() override { return TopView ? TopView->GetBuffer() : nullptr; }
  std::shared_ptr<platform::IOTAEditOptions> GetEditOptions() override { return Options; }
  std::shared_ptr<platform::IOTAModule> CurrentModule() override { return Module; }
  void AddTitleMessage(const QString& text) override { Messages.append(text); }
  std::vector<platform::TOTASearchFolder> GetSearchPath() override { return SearchPath; }
};

// A host that offers every interface there is.
class FullServices : public FakeServices,
                     public platform::IOTADebuggerServices,
                     public platform::IOTAKeyBindingServices,
                     public platform::IOTAKeyboardServices,
                     public platform::IOTAPackageServices,
                     public platform::IOTAToDoServices,
                     public platform::IOTAWizardServices {};

// While it lives, `services` are those of the process.
class InstalledServices {
public:
  explicit InstalledServices(std::shared_ptr<platform::IInterface> services);
  ~InstalledServices();
  InstalledServices(const InstalledServices&) = delete;
  InstalledServices& operator=(const InstalledServices&) = delete;
};

} // namespace fakes
