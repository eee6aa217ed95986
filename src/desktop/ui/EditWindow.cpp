// SPDX-License-Identifier: MIT
#include "desktop/ui/EditWindow.h"

#include "desktop/edit/EditControl.h"
#include "desktop/files/SourceDocument.h"
#include "desktop/ui/AlignLayout.h"
#include "desktop/ui/FindBar.h"
#include "desktop/ui/MessageBar.h"
#include "desktop/ui/Page.h"
#include "desktop/ui/PageTabs.h"
#include "desktop/ui/StatusBar.h"
#include "platform/Actions.h"
#include "platform/Align.h"
#include "platform/Application.h"

#include <QEvent>
#include <QLabel>

#include <utility>

namespace desktop {

using platform::TAlign;

TEditWindow::TEditWindow(const QString& name, QWidget* parent)
    : QWidget(parent), tabs_(new PageTabs(this)), messageBar_(new MessageBar(this)), editor_(new TEditControl(this)),
      findBar_(new FindBar(editor_, this)), statusBar_(new StatusBar(editor_, this)),
      actionList_(new platform::TActionList(this, QStringLiteral("ActionList1"))),
      emptyHint_(new QLabel(tr("No file is open.\nFile > New or File > Open begins."), this)) {
  setObjectName(name);
  buildParts();
  platform::Screen().AddForm(this);
  connect(tabs_, &PageTabs::currentChanged, this, [this] { showCurrent(tabs_->currentPage()); });
  connect(findBar_, &FindBar::toldWhileClosed, statusBar_, &StatusBar::showNote);
  connect(tabs_, &PageTabs::closeRequested, this, &TEditWindow::closeRequested);
  connect(tabs_, &PageTabs::closeOthersRequested, this, &TEditWindow::closeOthersRequested);
}

TEditWindow::~TEditWindow() {
  while (!pages().isEmpty())
    closePage(pages().constLast());
}

void TEditWindow::buildParts() {
  editor_->setObjectName(QStringLiteral("Editor"));
  editor_->hide();
  tabs_->hide();
  setFocusProxy(editor_);
  auto* const hint = static_cast<QLabel*>(emptyHint_);
  hint->setObjectName(QStringLiteral("EmptyHint"));
  hint->setAlignment(Qt::AlignCenter);
  hint->setForegroundRole(QPalette::PlaceholderText);

  new AlignLayout(this);
  SetAlign(*tabs_, TAlign::alTop);
  SetAlign(*messageBar_, TAlign::alTop);
  SetAlign(*editor_, TAlign::alClient);
  SetAlign(*emptyHint_, TAlign::alClient);
  SetAlign(*findBar_, TAlign::alBottom);
  SetAlign(*statusBar_, TAlign::alBottom);
  // What add-ins put at the top goes below the tabs and the messages, what they put at the bottom above the find bar.
  tabs_->move(0, -2);
  messageBar_->move(0, -1);
  constexpr int lowest = 1'000'000;
  statusBar_->move(0, lowest);
  findBar_->move(0, lowest - 1);
  parts_ = findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
}

TEditWindow::ManyPages::ManyPages(TEditWindow* window) : tabs_(window->tabs_) {
  tabs_->hold();
}

TEditWindow::ManyPages::~ManyPages() {
  tabs_->release();
}

QList<Page*> TEditWindow::pages() const {
  return tabs_->pages();
}

Page* TEditWindow::findPage(const QString& fileName) const {
  for (Page* page : pages()) {
    if (page->document()->fileName() == fileName)
      return page;
  }
  return nullptr;
}

Page* TEditWindow::addPage(std::unique_ptr<SourceDocument> document) {
  auto* const page = new Page(std::move(document), this);
  connect(page, &Page::changed, this, [this, page] { showPageState(page); });
  tabs_->addPage(page);
  Q_EMIT pageAdded(page);
  showPage(page);
  return page;
}

void TEditWindow::showPage(Page* page) {
  tabs_->setCurrentPage(page);
  // The first tab is current from the start, so that the bar has nothing to tell.
  showCurrent(page);
}

void TEditWindow::movePage(const Page* page, int index) {
  tabs_->movePage(page, index);
}

void TEditWindow::showCurrent(Page* page) {
  if (page == current_)
    return;
  Page* const previous = current_;
  const EditState left = editor_->state();
  const EditState entered = page != nullptr ? page->state() : EditState{};
  current_ = page;
  if (previous != nullptr)
    previous->setState(left);
  showDocumentOf(page, entered);
  const bool hadFocus = editor_->hasFocus() || previous == nullptr;
  tabs_->setVisible(page != nullptr && !tabs_->isHeld());
  enableGuests(); // before the focus looks for another place
  editor_->setVisible(page != nullptr);
  emptyHint_->setVisible(page == nullptr);
  if (hadFocus && page != nullptr)
    editor_->setFocus(Qt::OtherFocusReason);
  showPageState(page);
  // What add-ins show beside the text is of another page now.
  for (QWidget* control : findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly))
    control->update();
  Q_EMIT currentPageChanged(page);
}

// What add-ins put beside the text works on the page in front, and they need not expect that there is none.
void TEditWindow::enableGuests() {
  for (QWidget* control : findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
    if (!parts_.contains(control))
      control->setEnabled(current_ != nullptr);
  }
}

void TEditWindow::showDocumentOf(const Page* page, const EditState& state) {
  colouredAsPascal_ = page != nullptr && page->isPascal();
  editor_->showDocument(page != nullptr ? page->document() : nullptr,
                        colouredAsPascal_ ? Colouring::Pascal : Colouring::None);
  editor_->restoreState(state);
}

void TEditWindow::showPageState(Page* page) {
  tabs_->updateTitles();
  if (page == current_) {
    const bool readOnly = page == nullptr || page->document()->isReadOnlyText();
    editor_->setReadOnly(readOnly);
    // A text that cannot be changed can still be walked through and selected.
    if (readOnly)
      editor_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    statusBar_->showPage(page);
    // A new name may make another kind of text of it.
    if (page != nullptr && page->isPascal() != colouredAsPascal_)
      showDocumentOf(page, editor_->state());
  }
  if (page != nullptr)
    Q_EMIT pageChanged(page);
}

void TEditWindow::closePage(Page* page) {
  Q_EMIT pageAboutToClose(page);
  const QList<Page*> all = pages();
  if (page == current_) {
    const qsizetype index = all.indexOf(page);
    if (all.size() > 1)
      showPage(index + 1 < all.size() ? all[index + 1] : all[index - 1]);
    else
      showCurrent(nullptr);
  }
  tabs_->removePage(page);
  delete page;
}

bool TEditWindow::event(QEvent* event) {
  const bool handled = QWidget::event(event);
  if (event->type() == QEvent::Show && !event->spontaneous())
    Q_EMIT shown();
  else if (event->type() == QEvent::WindowActivate)
    Q_EMIT activated();
  else if (event->type() == QEvent::ChildPolished)
    enableGuests();
  return handled;
}

} // namespace desktop
