// SPDX-License-Identifier: MIT
#include "desktop/ide/IdeServices.h"

#include "desktop/edit/EditControl.h"
#include "desktop/files/SourceDocument.h"
#include "desktop/ui/EditWindow.h"
#include "desktop/ui/MessageBar.h"
#include "desktop/ui/Page.h"
#include "desktop/ui/Workspace.h"

namespace desktop {

namespace {

class EditWindowObject : public platform::INTAEditWindow {
public:
  explicit EditWindowObject(TEditWindow& window) : window_(&window) {}
  QWidget* GetForm() const override { return window_; }

private:
  QPointer<QWidget> window_;
};

class ControlOptions : public platform::IOTAEditOptions {
public:
  explicit ControlOptions(const TEditControl& control)
      : fontName_(control.editorFontFamily()), fontSize_(control.editorFontPoints()) {}
  QString GetFontName() const override { return fontName_; }
  int GetFontSize() const override { return fontSize_; }

private:
  QString fontName_;
  int fontSize_;
};

} // namespace

IdeServices::IdeServices(Workspace& workspace) : workspace_(&workspace) {}
IdeServices::~IdeServices() = default;

QString IdeServices::GetBaseRegistryKey() const {
  return QStringLiteral("Software\\Vantrel\\Virelle");
}

bool IdeServices::OpenFile(const QString& fileName) {
  return workspace_ && workspace_->topWindow() != nullptr && workspace_->openFile(fileName) != nullptr;
}

std::shared_ptr<platform::IOTAEditView> IdeServices::GetTopView() {
  return topObjects().view;
}

std::shared_ptr<platform::IOTAEditBuffer> IdeServices::GetTopBuffer() {
  return topObjects().buffer;
}

std::shared_ptr<platform::IOTAEditOptions> IdeServices::GetEditOptions() {
  if (!workspace_ || workspace_->topWindow() == nullptr)
    return nullptr;
  return std::make_shared<ControlOptions>(*workspace_->topWindow()->editor());
}

std::shared_ptr<platform::IOTAModule> IdeServices::CurrentModule() {
  return topObjects().module;
}

void IdeServices::AddTitleMessage(const QString& text) {
  if (workspace_ && workspace_->topWindow() != nullptr)
    workspace_->topWindow()->messageBar()->addMessage(MessageBar::Kind::Information, text);
}

std::vector<platform::TOTASearchFolder> IdeServices::GetSearchPath() {
  std::vector<platform::TOTASearchFolder> folders;
  if (workspace_) {
    for (const SearchFolder& folder : workspace_->searchPath().folders())
      folders.push_back({folder.path, folder.withSubfolders});
  }
  return folders;
}

PageObjects IdeServices::topObjects() {
  Page* const page = workspace_ ? workspace_->topPage() : nullptr;
  if (page == nullptr || page->document()->isPlain())
    return {};
  const auto known = pages_.find(page);
  if (known != pages_.end())
    return known->second;
  connect(page, &QObject::destroyed, this, [this](const QObject* gone) { pages_.erase(gone); });
  return pages_.emplace(page, makePageObjects(*workspace_, *page, windowObject(*page->window()))).first->second;
}

std::shared_ptr<platform::INTAEditWindow> IdeServices::windowObject(TEditWindow& window) {
  std::shared_ptr<platform::INTAEditWindow>& object = windows_[&window];
  if (object == nullptr) {
    object = std::make_shared<EditWindowObject>(window);
    connect(&window, &QObject::destroyed, this, [this](const QObject* gone) { windows_.erase(gone); });
  }
  return object;
}

} // namespace desktop
