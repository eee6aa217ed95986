// SPDX-License-Identifier: MIT
#include "toolbar/QVLocalVars.h"

#include "host/QVIDEHackUtils.h"
#include "host/QVImages.h"
#include "host/QVLog.h"
#include "host/QVOTAServices.h"
#include "platform/Align.h"
#include "platform/Application.h"
#include "platform/Component.h"
#include "platform/Errors.h"
#include "settings/model/QVOptions.h"
#include "toolbar/QVColumnMenu.h"
#include "toolbar/QVNameCombo.h"

#include <QAction>
#include <QPainter>
#include <QToolButton>

#include <utility>

namespace quorvane {

namespace {

constexpr const char* kUnit = "QVLocalVars";
constexpr const char* kFailure = "Assertion failure";

// The numbers by which the failed checks of this unit are known. They are fixed, whatever the lines of this file.
enum TCheck : unsigned {
  chView = 78,
  chControl = 87,
  chComboSender = 157,
  chSectionSender = 295,
};

// The component's name is the name of its class, which is how a form's toolbar is found.
const QString kToolbarName = QStringLiteral("TQVEditorToolbar");

constexpr int kImageSize = 16;

constexpr platform::TShortCut kOpenClassesKey = platform::scAlt | 0x26; // Up
constexpr platform::TShortCut kOpenMethodsKey = platform::scAlt | 0x28; // Down

void FocusEditorOn(const QObject& form) {
  if (auto* const editor = qobject_cast<QWidget*>(platform::FindComponent(form, EditControlName)))
    editor->setFocus(Qt::OtherFocusReason);
}

void FocusEditor(platform::IOTAEditView& view) {
  if (const QWidget* const form = FormOf(view))
    FocusEditorOn(*form);
}

// Puts the caret on a line (from 0) of the top view and the line at the view's top.
void GotoLine(int line) {
  const auto view = GetTopView();
  platform::Require(view != nullptr, kUnit);
  view->GetPosition()->Move(line + 1, 1);
  view->SetTopLeft(line + 1, 1);
  view->Paint();
  FocusEditor(*view);
}

// Moves the caret of the top view, if there is one, by `move`, and brings it into view.
template <class TMove> void GotoPlace(TMove&& move) {
  const auto view = GetTopView();
  if (!view)
    return;
  move(*view->GetPosition());
  view->MoveViewToCursor();
  view->Paint();
  FocusEditor(*view);
}

template <class TVisit> void ForEachToolbar(TVisit&& visit) {
  ForEachEditorForm([&](const QWidget& form) {
    if (TQVEditorToolbar* const toolbar = ToolbarOn(form))
      visit(*toolbar);
  });
}

// Brings a list up to date: `text` is what it shows, `entry` the name that it opens at. Of a list that has the focus
// only the lines are touched.
void Refresh(TQVNameCombo& combo, const QString& text, const QString& entry, const TQVNameList& names) {
  if (combo.HasFocus()) {
    combo.SetLines(names);
    return;
  }
  combo.SetText(text, entry);
  combo.SetNames(names);
}

// The name under which the list of routines has the one at the caret.
QString EntryOfProc(const QString& className, const QString& proc) {
  return className.isEmpty() || proc.isEmpty() ? proc : className + u'.' + proc;
}

} // namespace

TQVEditorToolbar::TQVEditorToolbar(QWidget* owner)
    : QToolBar(owner),
      FMethodsCombo(NewCombo(QStringLiteral("Methods"), 300, QStringLiteral("Procedures and Functions"))),
      FClassesCombo(NewCombo(QStringLiteral("Classes"), 150, QStringLiteral("Classes, Interfaces, and Types"))),
      FSectionsMenu{new TQVColumnMenu(this), &TQVEditorToolbar::FillSectionsMenu},
      FUnitsMenu{new TQVColumnMenu(this), &TQVEditorToolbar::FillUnitsMenu},
      FSectionsButton(NewMenuButton(QStringLiteral("Sections"), FSectionsMenu.Menu, QStringLiteral("Sections"))),
      FUnitsButton(NewMenuButton(QStringLiteral("UsedUnits"), FUnitsMenu.Menu, QStringLiteral("Used Units"))) {
  setObjectName(kToolbarName);
  platform::SetAlign(*this, platform::TAlign::alTop);
  setMovable(false);
  setFloatable(false);
  setContextMenuPolicy(Qt::PreventContextMenu);
  setIconSize({kImageSize, kImageSize});
  AddOpener(FClassesCombo, QStringLiteral("Go to Type..."), kOpenClassesKey);
  AddOpener(FMethodsCombo, QStringLiteral("Go to Routine..."), kOpenMethodsKey);
}

TQVEditorToolbar::~TQVEditorToolbar() = default;

TQVNameCombo* TQVEditorToolbar::NewCombo(const QString& name, int width, const QString& hint) {
  auto* const combo = new TQVNameCombo(width, this);
  combo->setObjectName(name);
  combo->setToolTip(hint);
  combo->setAccessibleName(hint);
  combo->OnChange = [this, combo] { ComboGotoLine(combo); };
  combo->OnLeave = [this] {
    if (parent())
      FocusEditorOn(*parent());
  };
  return combo;
}

void TQVEditorToolbar::AddOpener(TQVNameCombo* combo, const QString& text, platform::TShortCut shortCut) {
  QObject* const actions = platform::FindComponent(*parent(), EditorActionListName);
  auto* const list = dynamic_cast<platform::TActionList*>(actions);
  if (!list)
    return;
  auto* const action = new platform::TAction(this);
  action->setText(text);
  action->Category = QStringLiteral("Search");
  action->SetShortCut(shortCut);
  action->setEnabled(!isHidden());
  action->OnExecute = [combo] {
    if (GetTopView()) // what a list names is gone to in the top view
      combo->Open();
  };
  list->Add(action);
  FOpeners.push_back(action);
}

bool TQVEditorToolbar::event(QEvent* event) {
  if (event->type() == QEvent::ShowToParent || event->type() == QEvent::HideToParent) {
    for (platform::TAction* const action : FOpeners)
      action->setEnabled(!isHidden());
  }
  return QToolBar::event(event);
}

QToolButton* TQVEditorToolbar::NewMenuButton(const QString& name, TQVColumnMenu* menu, const QString& hint) {
  menu->setToolTipsVisible(true);
  auto* const button = new QToolButton(this);
  button->setObjectName(name);
  button->setMenu(menu);
  button->setPopupMode(QToolButton::MenuButtonPopup);
  // The arrow opens the menu by itself.
  connect(button, &QToolButton::clicked, button, &QToolButton::showMenu);
  button->setAutoRaise(true);
  button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred); // as high as the lists beside it
  button->setToolTip(hint);
  button->setAccessibleName(hint);
  return button;
}

void TQVEditorToolbar::SetParent(QWidget* parent) {
  setParent(parent);
  if (!parent || !actions().isEmpty())
    return;
  FSectionsButton->setIcon(Images(qvSectionsImage));
  FUnitsButton->setIcon(Images(qvUnitsImage));
  addWidget(FMethodsCombo);
  addWidget(FClassesCombo);
  addWidget(FSectionsButton);
  addWidget(FUnitsButton);
}

void TQVEditorToolbar::AddClass(const QString& name, int line) {
  FClassesCombo->AddName(name, line);
}

void TQVEditorToolbar::AddMethod(const QString& name, int line) {
  FMethodsCombo->AddName(name, line);
}

void TQVEditorToolbar::ClearClasses() {
  FClassesCombo->ClearNames();
}

void TQVEditorToolbar::ClearMethods() {
  FMethodsCombo->ClearNames();
}

void TQVEditorToolbar::SetCurrentClass(const QString& name) {
  FClassesCombo->SetText(name, name);
}

void TQVEditorToolbar::SetCurrentProc(const QString& name) {
  FMethodsCombo->SetText(name, name);
}

void TQVEditorToolbar::UpdateToolBar(const IQVPasInfo& info) {
  const QString className = QString::fromLatin1(info.GetCurrentClass());
  const QString proc = QString::fromLatin1(info.GetCurrentProc());
  Refresh(*FClassesCombo, className, className, info.GetClasses());
  Refresh(*FMethodsCombo, proc, EntryOfProc(className, proc), info.GetMethods());
  if (info.GetInterfaceLine() == FInterfaceLine && info.GetImplementationLine() == FImplementationLine)
    return;
  BuildMenus(info.GetInterfaceLine(), info.GetImplementationLine(), info.GetImplementationUsesLine(),
             info.GetInterfaceUsesLine());
  BuildUnitsMenu(info.GetInterfaceUses(), info.GetImplementationUses());
}

void TQVEditorToolbar::BuildMenus(int interfaceLine, int implementationLine, int implementationUsesLine,
                                  int interfaceUsesLine) {
  if (interfaceLine == FInterfaceLine && implementationLine == FImplementationLine)
    return;
  FInterfaceLine = interfaceLine;
  FInterfaceUsesLine = interfaceUsesLine;
  FImplementationLine = implementationLine;
  FImplementationUsesLine = implementationUsesLine;
  FillWhenClosed(FSectionsMenu);
}

void TQVEditorToolbar::BuildUnitsMenu(const std::vector<std::string>& interfaceUses,
                                      const std::vector<std::string>& implementationUses) {
  FInterfaceUses = interfaceUses;
  FImplementationUses = implementationUses;
  FillWhenClosed(FUnitsMenu);
}

void TQVEditorToolbar::FillWhenClosed(TFilledMenu& menu) {
  if (!menu.Menu->isVisible()) {
    (this->*menu.Fill)();
    return;
  }
  // It may be asked for several times: what is filled in is always the latest.
  if (std::exchange(menu.IsWaiting, true))
    return;
  // The menu closes before its chosen item is told, so the filling waits for the event loop.
  const auto fill = [this, &menu] {
    menu.IsWaiting = false;
    FillWhenClosed(menu);
  };
  connect(
      menu.Menu, &QMenu::aboutToHide, this,
      [this, fill] { QMetaObject::invokeMethod(this, fill, Qt::QueuedConnection); }, Qt::SingleShotConnection);
}

void TQVEditorToolbar::FillSectionsMenu() {
  FSectionsMenu.Menu->Clear();
  const auto add = [this](const QString& caption, int line, THandler handler) {
    AddItem(FSectionsMenu.Menu, caption, handler)->setData(line);
  };
  const auto addSection = [&](const QString& caption, int line) {
    if (line >= 0)
      add(caption, line, &TQVEditorToolbar::GotoSectionClick);
  };
  add(QStringLiteral("Top Of File"), 0, &TQVEditorToolbar::GotoTopOfFile);
  addSection(QStringLiteral("Interface Section"), FInterfaceLine);
  addSection(QStringLiteral("Interface Uses Clause"), FInterfaceUsesLine);
  addSection(QStringLiteral("Implementation Section"), FImplementationLine);
  addSection(QStringLiteral("Implementation Uses Clause"), FImplementationUsesLine);
  add(QStringLiteral("End Of File"), 0, &TQVEditorToolbar::GotoBottomOfFile);
}

void TQVEditorToolbar::FillUnitsMenu() {
  FUnitsMenu.Menu->Clear();
  const auto add = [this](const std::string& unitName) {
    const QString name = QString::fromLatin1(unitName);
    QAction* const item = AddItem(FUnitsMenu.Menu, name, &TQVEditorToolbar::OpenUnit);
    item->setToolTip(QStringLiteral("Open Unit %1.pas").arg(name));
    return item;
  };
  for (const std::string& unitName : FInterfaceUses)
    add(unitName);
  for (const std::string& unitName : FImplementationUses) {
    QAction* const item = add(unitName);
    if (!FUnitsMenu.Menu->BarBreak())
      FUnitsMenu.Menu->SetBarBreak(item);
  }
}

QAction* TQVEditorToolbar::AddItem(TQVColumnMenu* menu, const QString& caption, THandler handler) {
  QAction* const item = menu->addAction(caption);
  connect(item, &QAction::triggered, this,
          [this, item, handler] { platform::Guarded([&] { (this->*handler)(item); }); });
  return item;
}

void TQVEditorToolbar::ComboGotoLine(QObject* sender) {
  platform::Require(sender != nullptr, kUnit, kFailure, chComboSender);
  const auto* const combo = qobject_cast<TQVNameCombo*>(sender);
  platform::Require(combo != nullptr, kUnit);
  const int index = combo->Names().IndexOf(combo->currentText());
  if (index >= 0)
    GotoLine(combo->Names().LineAt(index));
  Log(QStringLiteral("Combo Changed"));
}

void TQVEditorToolbar::GotoSectionClick(QObject* sender) {
  platform::Require(sender != nullptr, kUnit, kFailure, chSectionSender);
  const auto* const item = qobject_cast<QAction*>(sender);
  platform::Require(item != nullptr, kUnit);
  GotoLine(item->data().toInt());
}

void TQVEditorToolbar::GotoTopOfFile(QObject*) {
  GotoPlace([](platform::IOTAEditPosition& position) { position.Move(1, 1); });
}

void TQVEditorToolbar::GotoBottomOfFile(QObject*) {
  GotoPlace([](platform::IOTAEditPosition& position) { position.MoveEOF(); });
}

void TQVEditorToolbar::OpenUnit(QObject* sender) {
  const auto* const item = qobject_cast<QAction*>(sender);
  platform::Require(item != nullptr, kUnit);
  // Some desktops put the marks of access keys into the captions of menus.
  const QString unitName = item->text().remove(u'&');
  const auto view = GetTopView();
  const auto buffer = view ? view->GetBuffer() : nullptr;
  const auto search = OTASearchPathServices();
  const platform::TUnitFinder::TResult result =
      FUnitFinder.Find(unitName, buffer ? buffer->GetFileName() : QString(),
                       search ? search->GetSearchPath() : std::vector<platform::TOTASearchFolder>());
  if (!result.FileName.isEmpty()) {
    if (const auto services = OTAActionServices())
      services->OpenFile(result.FileName);
  } else if (const auto services = OTAMessageServices()) {
    services->AddTitleMessage(platform::UnitNotFoundMessage(unitName, result.Folders));
  }
}

void TQVEditorToolbar::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), palette().window());
  QColor edge = palette().color(QPalette::WindowText);
  edge.setAlphaF(0.25F);
  painter.fillRect(0, height() - 1, width(), 1, edge);
}

TQVEditorToolbar* ToolbarOn(const QObject& form) {
  return qobject_cast<TQVEditorToolbar*>(platform::FindComponent(form, kToolbarName));
}

TQVEditorToolbar* GetEditorToolbar(const std::shared_ptr<platform::IOTAEditView>& view) {
  platform::Require(view != nullptr, kUnit, kFailure, chView);
  const QWidget* form = FormOf(*view);
  return form ? ToolbarOn(*form) : nullptr;
}

TQVEditorToolbar* GetEditorToolbar(const QObject* control) {
  platform::Require(control != nullptr, kUnit, kFailure, chControl);
  return control->parent() ? ToolbarOn(*control->parent()) : nullptr;
}

void UpdateViewToolBar(const std::shared_ptr<platform::IOTAEditView>& view, const std::shared_ptr<IQVPasInfo>& info) {
  if (TQVEditorToolbar* toolbar = GetEditorToolbar(view)) {
    platform::Require(info != nullptr, kUnit);
    toolbar->UpdateToolBar(*info);
  }
}

void ShowNavBars() {
  ForEachToolbar([](TQVEditorToolbar& toolbar) {
    if (OptShowNavBar)
      toolbar.setVisible(true);
  });
}

void HideNavBars() {
  ForEachToolbar([](TQVEditorToolbar& toolbar) {
    if (!OptShowNavBar)
      toolbar.setVisible(false);
  });
}

} // namespace quorvane
