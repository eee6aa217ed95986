// SPDX-License-Identifier: MIT
#include "support/fakes/FakeMainForm.h"

#include "platform/Application.h"

namespace fakes {

FakeMainForm::FakeMainForm()
    : tools_(new QMenu(QStringLiteral("Tools"), this)), gallery_(new QAction(QStringLiteral("Gallery"), this)) {
  tools_->setObjectName(QStringLiteral("ToolsMenu"));
  gallery_->setObjectName(QStringLiteral("ToolsGalleryItem"));
  tools_->addAction(QStringLiteral("First"));
  tools_->addAction(gallery_);
  platform::Application().SetMainForm(this);
}

FakeMainForm::~FakeMainForm() {
  if (platform::Application().MainForm() == this)
    platform::Application().SetMainForm(nullptr);
}

QStringList FakeMainForm::ToolsTexts() const {
  QStringList texts;
  for (const QAction* item : tools_->actions())
    texts.append(item->text());
  return texts;
}

QAction* FakeMainForm::ToolsItem(const QString& text) const {
  for (QAction* item : tools_->actions()) {
    if (item->text() == text)
      return item;
  }
  return nullptr;
}

} // namespace fakes
