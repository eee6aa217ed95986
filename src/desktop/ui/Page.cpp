// SPDX-License-Identifier: MIT
#include "desktop/ui/Page.h"

#include "desktop/edit/EditControl.h"
#include "desktop/files/SourceDocument.h"
#include "desktop/ui/EditWindow.h"

#include <QFileInfo>

#include <utility>

namespace desktop {

Page::Page(std::unique_ptr<SourceDocument> document, TEditWindow* window)
    : QObject(window), window_(window), document_(std::move(document)), state_(std::make_unique<EditState>()) {
  connect(document_.get(), &QTextDocument::modificationChanged, this, &Page::changed);
  connect(document_.get(), &SourceDocument::fileNameChanged, this, &Page::changed);
  connect(document_.get(), &SourceDocument::encodingChanged, this, &Page::changed);
}

Page::~Page() = default;

bool Page::isCurrent() const {
  return window_->currentPage() == this;
}

QString Page::title() const {
  return QFileInfo(document_->fileName()).fileName();
}

bool Page::isPascal() const {
  static const QStringList endings = {QStringLiteral("pas"), QStringLiteral("pp"),  QStringLiteral("dpr"),
                                      QStringLiteral("dpk"), QStringLiteral("lpr"), QStringLiteral("inc")};
  return !document_->isPlain() && endings.contains(QFileInfo(document_->fileName()).suffix(), Qt::CaseInsensitive);
}

EditState Page::state() const {
  return isCurrent() ? window_->editor()->state() : *state_;
}

void Page::setState(const EditState& state) {
  if (isCurrent())
    window_->editor()->restoreState(state);
  else
    *state_ = state;
}

} // namespace desktop
