// SPDX-License-Identifier: MIT
#include "settings/QVOptionsForm.h"

#include "editor/QVEditorProxy.h"
#include "host/QVIDEHackUtils.h"
#include "platform/Actions.h"
#include "platform/Application.h"
#include "platform/Component.h"
#include "platform/Debug.h"
#include "platform/Errors.h"
#include "settings/model/QVDarkColors.h"
#include "settings/model/QVOptions.h"
#include "settings/model/QVOptionsStore.h"
#include "settings/QVButtonPanel.h"
#include "settings/QVOptionControls.h"
#include "settings/QVOptionPages.h"
#include "settings/QVOptionsRegistry.h"
#include "settings/QVShowModal.h"
#include "settings/QVTemplateEditor.h"
#include "toolbar/QVLineNumbers.h"
#include "toolbar/QVLocalVars.h"

#include <QAbstractButton>
#include <QEvent>
#include <QGroupBox>
#include <QKeyEvent>
#include <QMenu>
#include <QPushButton>
#include <QScreen>
#include <QStyle>
#include <QTabWidget>
#include <QVBoxLayout>

namespace quorvane {

TQVOptionsForm* QVOptionsForm = nullptr;

namespace {

constexpr QSize kDesignedSize(520, 416); // with fonts of the usual size

// The lines that the assertions name. They are fixed and do not follow this file: intended.
constexpr unsigned kNoMainForm = 293;
constexpr unsigned kNoToolsMenu = 295;
constexpr unsigned kNoGalleryItem = 297;

void Assert(bool condition, unsigned line) {
  platform::Require(condition, "QVOptions", "Assertion failure", line);
}

template <class TCall> void ForEachProxy(TCall call) {
  for (const QWidget* form : platform::Screen().Forms()) {
    if (platform::ClassName(*form) != EditorFormClassName)
      continue;
    if (TQVEditorProxy* const proxy = TQVEditorProxy::GetProxy(*form))
      call(*proxy);
  }
}

} // namespace

TQVOptionsForm::TQVOptionsForm() : Pages(new QTabWidget(this)) {
  setObjectName(QStringLiteral("QVOptionsForm"));
  setWindowTitle(QStringLiteral("Virelle Options"));
  BuildPages();
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  layout->setSizeConstraint(QLayout::SetNoConstraint); // FitContents decides
  layout->addWidget(Pages, 1);
  layout->addWidget(NewBottomPanel());
  FormCreate();
  platform::ColorFollowers().Add(*this);
}

TQVOptionsForm::~TQVOptionsForm() {
  platform::ColorFollowers().Remove(*this);
  platform::Guarded([this] { FormDestroy(); });
  delete MenuItem;
  if (QVOptionsForm == this)
    QVOptionsForm = nullptr;
}

void TQVOptionsForm::BuildPages() {
  Pages->setObjectName(QStringLiteral("Pages"));
  AddOptionPages(*Pages);
  connect(Pages->findChild<QPushButton*>(QStringLiteral("EditTemplatesBtn")), &QPushButton::clicked, this,
          &TQVOptionsForm::EditTemplatesBtnClick);
  for (QWidget* control : Pages->findChildren<QWidget*>()) {
    if (qobject_cast<QAbstractButton*>(control) || qobject_cast<QGroupBox*>(control))
      control->installEventFilter(this);
  }
}

QWidget* TQVOptionsForm::NewBottomPanel() {
  auto* const panel = NewButtonPanel(*this, {"btnOK", "OK", mrOk}, {"btnCancel", "Cancel", mrCancel});
  panel->setObjectName(QStringLiteral("BottomPanel"));
  return panel;
}

void TQVOptionsForm::FormCreate() {
  TQVOptionValues values; // as designed
  TQVOptionsRegistry registry;
  LoadOptions(registry, values, platform::OutputDebugString);
  ShowValues(values, *this);
  InsertMenuItem();
  SetGlobalVars();
}

void TQVOptionsForm::FormDestroy() {
  TQVOptionsRegistry registry;
  SaveOptions(TakeValues(*this), registry, platform::OutputDebugString);
}

void TQVOptionsForm::InsertMenuItem() {
  const QWidget* const mainForm = platform::Application().MainForm();
  Assert(mainForm != nullptr, kNoMainForm);
  auto* const menu = qobject_cast<QMenu*>(platform::FindComponent(*mainForm, QStringLiteral("ToolsMenu")));
  Assert(menu != nullptr, kNoToolsMenu);
  auto* const gallery = qobject_cast<QAction*>(platform::FindComponent(*mainForm, QStringLiteral("ToolsGalleryItem")));
  Assert(gallery != nullptr, kNoGalleryItem);

  auto* const item = new platform::TAction(this);
  item->setText(QStringLiteral("Virelle Options..."));
  item->OnExecute = [this] { MenuClick(); };
  menu->insertAction(gallery, item);
  MenuItem = item;
}

void TQVOptionsForm::MenuClick() {
  if (ShowModal() == mrOk)
    SetGlobalVars();
}

TQVOptionsForm::TModalResult TQVOptionsForm::ShowModal() {
  return ShowModalAboveActive(*this) == mrOk ? mrOk : mrCancel;
}

void TQVOptionsForm::EditTemplatesBtnClick() {
  if (QVTemplateEditorForm) // it starts before this form and stops after it
    QVTemplateEditorForm->ShowModal();
}

void TQVOptionsForm::SetGlobalVars() {
  Applied = TakeValues(*this);
  Apply();
  ShowValue(TQVOption::TemplateKey, Applied, *this); // it may have become a blank
}

void TQVOptionsForm::Apply() {
  ApplyOptions(Applied);
  if (!OptShowLineNumbers || OptLinesInGutter)
    HideLineNumbers();
  else
    ShowLineNumbers();
  if (OptShowNavBar)
    ShowNavBars();
  else
    HideNavBars();
  ForEachProxy([](TQVEditorProxy& proxy) { proxy.RedefineHotKey(); });
  ForEachProxy([](TQVEditorProxy& proxy) { proxy.Invalidate(); });
}

bool TQVOptionsForm::WouldFollow(bool dark) const {
  TQVOptionValues values = TakeValues(*this);
  return FollowGround(values, dark);
}

// What was edited and then cancelled stays in the controls and is not applied.
void TQVOptionsForm::Follow(bool dark) {
  TQVOptionValues values = TakeValues(*this);
  FollowGround(values, dark);
  for (const TQVOptionRow& row : QVOptionTable) {
    if (row.Kind == TQVOptionKind::Color)
      ShowValue(row.Option, values, *this);
  }
  if (FollowGround(Applied, dark))
    Apply();
}

void TQVOptionsForm::setVisible(bool visible) {
  if (visible) {
    ensurePolished();
    FitContents();
  }
  QDialog::setVisible(visible);
}

bool TQVOptionsForm::event(QEvent* event) {
  const bool handled = QDialog::event(event);
  // The desktop moves the window when it puts its frame around it.
  if (event->type() == QEvent::LayoutRequest || event->type() == QEvent::Move)
    FitContents();
  return handled;
}

// On some desktops (GNOME) Enter presses the button that has the focus, and group boxes keep it from the controls in
// them, even those that have no box to check. Ignored, it goes up to the dialog. That holds for the button of the
// templates too: Space presses it.
bool TQVOptionsForm::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress)
    return QDialog::eventFilter(watched, event);
  const int key = static_cast<QKeyEvent*>(event)->key();
  if (key != Qt::Key_Return && key != Qt::Key_Enter)
    return false;
  event->ignore();
  return true;
}

// Pages that were never shown would keep the sizes that they had with the font before: Qt only tells layouts that are
// in use.
void TQVOptionsForm::changeEvent(QEvent* event) {
  QDialog::changeEvent(event);
  if (event->type() != QEvent::FontChange && event->type() != QEvent::StyleChange)
    return;
  for (QLayout* layout : findChildren<QLayout*>())
    layout->invalidate();
  for (QWidget* control : findChildren<QWidget*>())
    control->updateGeometry();
}

// The size that the dialog can have without its frame leaving the screen. How wide the frame is shows only when the
// desktop has put it there; until then it is taken for a title bar.
QSize TQVOptionsForm::Room() const {
  const QSize titleBar(0, style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, this));
  return screen()->availableSize() - (frameSize() - size()).expandedTo(titleBar);
}

void TQVOptionsForm::FitContents() {
  const QSize room = Room();
  QSize size = layout()->totalSizeHint().expandedTo(kDesignedSize);
  if (size.height() > room.height())
    size.rwidth() += style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, this);
  setFixedSize(size.boundedTo(room));
}

void StartQVOptions() {
  try {
    QVOptionsForm = new TQVOptionsForm;
  } catch (...) {
    OptStorageDir.clear(); // all that loading has set by then
    throw;
  }
  platform::Application().InsertComponent(QVOptionsForm);
}

void StopQVOptions() {
  delete QVOptionsForm;
  platform::OutputDebugString("QVOptions Finalized");
  OptStorageDir.clear();
}

} // namespace quorvane
