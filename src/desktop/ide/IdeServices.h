// SPDX-License-Identifier: MIT
// What this host offers to add-ins.
//
// One object answers for all services that this host has. It looks at the workspace whenever it is asked, and keeps for
// every page that it has been asked about one buffer and one view, which add-ins compare by identity. When a page
// closes these objects stay for as long as an add-in holds them and answer with EViewClosed.
#pragma once

#include "desktop/ide/PageObjects.h"
#include "platform/ota/Services.h"

#include <QObject>
#include <QPointer>

#include <memory>
#include <unordered_map>
#include <vector>

namespace desktop {

class Page;
class TEditWindow;
class Workspace;

class IdeServices : public QObject,
                    public platform::IOTAServices,
                    public platform::INTAServices,
                    public platform::IOTAActionServices,
                    public platform::IOTAEditorServices,
                    public platform::IOTAMessageServices,
                    public platform::IOTAModuleServices,
                    public platform::IOTASearchPathServices {
  Q_OBJECT

public:
  // Serves `workspace`, which may be destroyed first: then there is no view, and nothing can be opened.
  explicit IdeServices(Workspace& workspace);
  ~IdeServices() override;

  QString GetBaseRegistryKey() const override;
  bool OpenFile(const QString& fileName) override;
  std::shared_ptr<platform::IOTAEditView> GetTopView() override;
  std::shared_ptr<platform::IOTAEditBuffer> GetTopBuffer() override;
  std::shared_ptr<platform::IOTAEditOptions> GetEditOptions() override;
  std::shared_ptr<platform::IOTAModule> CurrentModule() override;
  // In the message bar of the top window.
  void AddTitleMessage(const QString& text) override;
  std::vector<platform::TOTASearchFolder> GetSearchPath() override;

private:
  // The objects of the page in front of the top window; all null when there is none or when it is plain text.
  PageObjects topObjects();
  std::shared_ptr<platform::INTAEditWindow> windowObject(TEditWindow& window);

  QPointer<Workspace> workspace_;
  std::unordered_map<const QObject*, PageObjects> pages_; // of pages that are open
  std::unordered_map<const QObject*, std::shared_ptr<platform::INTAEditWindow>> windows_;
};

} // namespace desktop
