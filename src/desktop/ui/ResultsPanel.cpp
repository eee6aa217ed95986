// SPDX-License-Identifier: MIT
#include "desktop/ui/ResultsPanel.h"

#include "desktop/edit/EditControl.h"
#include "desktop/ui/CloseButton.h"
#include "desktop/ui/EditWindow.h"
#include "desktop/ui/ResultList.h"
#include "desktop/ui/ResultWalk.h"
#include "desktop/ui/ToolTip.h"
#include "desktop/ui/Workspace.h"

#include <QApplication>
#include <QClipboard>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QToolButton>
#include <QTreeView>

#include <algorithm>

namespace desktop {

namespace {

constexpr int usualRows = 7;
constexpr int longestTitle = 50; // characters; what is looked for may be much longer

// As tall as a few rows; how tall it becomes is the user's affair.
class PlaceView : public QTreeView {
public:
  using QTreeView::QTreeView;

  QSize sizeHint() const override {
    const int row = fontMetrics().height() + 4;
    return {QTreeView::sizeHint().width(), header()->sizeHint().height() + usualRows * row};
  }
  QSize minimumSizeHint() const override { return {0, header()->sizeHint().height() + 2 * fontMetrics().height()}; }
};

} // namespace

ResultsPanel::ResultsPanel(Workspace& workspace, TEditWindow* window)
    : QDockWidget(tr("Results")), workspace_(workspace), window_(window), title_(new QLabel), summary_(new QLabel),
      stop_(new QToolButton), view_(new PlaceView(this)) {
  setObjectName(QStringLiteral("ResultsPanel"));
  setAllowedAreas(Qt::BottomDockWidgetArea);
  setFeatures(DockWidgetClosable);
  setTitleBarWidget(makeTitleBar());
  setUpView();
  setWidget(view_);
  setFocusProxy(view_);
  connect(&workspace.results(), &ResultList::stateChanged, this, &ResultsPanel::showState);
  connect(&workspace.resultWalk(), &ResultWalk::currentRowChanged, this, &ResultsPanel::showCurrent);
  showState();
  hide();
}

QWidget* ResultsPanel::makeTitleBar() {
  auto* const bar = new QWidget(this);
  auto* const row = new QHBoxLayout(bar);
  row->setContentsMargins(8, 3, 4, 3);
  row->setSpacing(12);
  QFont bold = font();
  bold.setBold(true);
  title_->setFont(bold);
  title_->setObjectName(QStringLiteral("ResultsTitle"));
  summary_->setObjectName(QStringLiteral("ResultsSummary"));
  for (QLabel* const label : {title_, summary_}) {
    label->setTextFormat(Qt::PlainText);
    row->addWidget(label);
  }
  // The summary is the one to be cut when the window is narrow.
  summary_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  row->setStretchFactor(summary_, 1);
  stop_->setObjectName(QStringLiteral("StopResults"));
  stop_->setText(tr("Stop"));
  stop_->setToolTip(tr("Look for no more"));
  stop_->setFocusPolicy(Qt::TabFocus);
  row->addWidget(stop_);
  auto* const closeButton = new CloseButton(tr("Close (Shift+Escape)"));
  closeButton->setObjectName(QStringLiteral("CloseResults"));
  row->addWidget(closeButton);
  connect(stop_, &QToolButton::clicked, &workspace_.results(), &ResultList::stop);
  connect(closeButton, &CloseButton::clicked, this, &ResultsPanel::leaveAndClose);
  return bar;
}

void ResultsPanel::setUpView() {
  view_->setObjectName(QStringLiteral("ResultsView"));
  view_->setAccessibleName(tr("Results"));
  view_->setModel(&workspace_.results());
  view_->setRootIsDecorated(false);
  view_->setItemsExpandable(false);
  view_->setUniformRowHeights(true);
  view_->setAllColumnsShowFocus(true);
  view_->setSelectionMode(QAbstractItemView::ExtendedSelection);
  view_->setFrameShape(QFrame::NoFrame);
  QHeaderView& header = *view_->header();
  header.setStretchLastSection(false);
  header.setSectionsMovable(false);
  header.setSectionResizeMode(ResultList::TextColumn, QHeaderView::Stretch);
  const int cell = fontMetrics().horizontalAdvance(u'0');
  header.resizeSection(ResultList::FileColumn, 26 * cell);
  for (const ResultList::Column column : {ResultList::LineColumn, ResultList::CellColumn})
    header.resizeSection(column, std::max(10 * cell, header.sectionSizeHint(column)));
  view_->installEventFilter(this);
  connect(view_, &QTreeView::clicked, this, [this](const QModelIndex& index) {
    // With these keys a click selects rows to be copied.
    if (!(QApplication::keyboardModifiers() & (Qt::ControlModifier | Qt::ShiftModifier)))
      go(index);
  });
}

void ResultsPanel::enter() {
  show();
  if (!view_->currentIndex().isValid())
    view_->setCurrentIndex(workspace_.results().index(0, 0));
  view_->setFocus(Qt::OtherFocusReason);
}

void ResultsPanel::leaveAndClose() {
  const bool hadFocus = isAncestorOf(QApplication::focusWidget());
  hide();
  if (hadFocus)
    window_->setFocus(Qt::OtherFocusReason);
}

void ResultsPanel::showState() {
  const ResultList& list = workspace_.results();
  const QString title = list.title().isEmpty() ? tr("Results") : list.title();
  const QFontMetrics font = title_->fontMetrics();
  title_->setText(font.elidedText(title, Qt::ElideMiddle, longestTitle * font.averageCharWidth()));
  title_->setToolTip(toolTipOf(title));
  summary_->setText(list.title().isEmpty() ? tr("Nothing has been looked for yet") : list.summary());
  summary_->setToolTip(toolTipOf(list.summary()));
  stop_->setVisible(list.isRunning());
}

void ResultsPanel::showCurrent(int row) {
  const QModelIndex index = workspace_.results().index(row, 0);
  if (index.isValid() && index != view_->currentIndex())
    view_->setCurrentIndex(index);
}

void ResultsPanel::go(const QModelIndex& index) {
  if (index.isValid())
    workspace_.resultWalk().go(index.row(), window_);
}

bool ResultsPanel::handleKey(const QKeyEvent& event) {
  if (event.matches(QKeySequence::Copy)) {
    copySelected();
    return true;
  }
  if (event.matches(QKeySequence::SelectAll)) {
    view_->selectAll();
    return true;
  }
  switch (event.key()) {
  case Qt::Key_Return:
  case Qt::Key_Enter:
    go(view_->currentIndex());
    return true;
  default:
    return false;
  }
}

// What its parts have no use for, so that Escape does the same at its buttons.
void ResultsPanel::keyPressEvent(QKeyEvent* event) {
  if (event->key() != Qt::Key_Escape)
    QDockWidget::keyPressEvent(event);
  else if (event->modifiers() & Qt::ShiftModifier)
    leaveAndClose();
  else
    window_->setFocus(Qt::OtherFocusReason);
}

bool ResultsPanel::eventFilter(QObject* watched, QEvent* event) {
  if (watched == view_ && event->type() == QEvent::KeyPress)
    return handleKey(*static_cast<QKeyEvent*>(event));
  // These are commands of the window as well, which are for its text.
  if (watched == view_ && event->type() == QEvent::ShortcutOverride) {
    const auto* const key = static_cast<QKeyEvent*>(event);
    if (key->matches(QKeySequence::Copy) || key->matches(QKeySequence::SelectAll)) {
      event->accept();
      return true;
    }
  }
  return QDockWidget::eventFilter(watched, event);
}

void ResultsPanel::copySelected() const {
  QModelIndexList rows = view_->selectionModel()->selectedRows();
  std::ranges::sort(rows, {}, [](const QModelIndex& index) { return index.row(); });
  QString text;
  for (const QModelIndex& index : rows) {
    const FoundPlace place = workspace_.results().place(index.row());
    text += QStringLiteral("%1:%2:%3: %4\n")
                .arg(place.fileName, QString::number(place.line), QString::number(place.column), place.text);
  }
  if (!text.isEmpty())
    QApplication::clipboard()->setText(text);
}

} // namespace desktop
