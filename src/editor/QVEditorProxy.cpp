// SPDX-License-Identifier: MIT
#include "editor/QVEditorProxy.h"

#include "editor/QVMarkerStack.h"
#include "host/QVIDEHackUtils.h"
#include "platform/Application.h"
#include "platform/Component.h"
#include "platform/Debug.h"
#include "platform/Errors.h"
#include "settings/model/QVOptions.h"
#include "toolbar/QVLocalVars.h"

#include <mutex>
#include <utility>

namespace quorvane {

namespace {

// The component's name is the name of its class, which is how a form's proxy is found.
const QString kProxyName = QStringLiteral("TQVEditorProxy");

constexpr platform::TShortCut kDropMarkerKey = platform::scShift | platform::scAlt | 0x2D;   // Insert
constexpr platform::TShortCut kPickupMarkerKey = platform::scShift | platform::scAlt | 0x2E; // Delete

TQVEditorProxy* ProxyOn(const QWidget& form) {
  return qobject_cast<TQVEditorProxy*>(platform::FindComponent(form, kProxyName));
}

} // namespace

TQVEditorProxy::TQVEditorProxy(QObject* owner) : QObject(owner), EditorForm(qobject_cast<QWidget*>(owner)) {
  platform::Require(EditorForm && platform::ClassName(*EditorForm) == EditorFormClassName, kUnit,
                    "Cannot create an editor proxy without an editor");
  EditControl = platform::FindComponent(*EditorForm, EditControlName);
  ActionList = dynamic_cast<platform::TActionList*>(platform::FindComponent(*EditorForm, EditorActionListName));
  platform::Require(FindControl() != nullptr, kUnit);
  platform::Require(!ActionList.isNull(), kUnit);
  setObjectName(kProxyName);

  LiteParser = std::make_unique<TQVLitePasParser>();
  LiteParser->SetOnBlock([this](std::span<const TQVLitePasElement> elements) { PaintBlock(elements); });
  LiteParser->SetOnRound([this](std::span<const TQVLitePasElement> elements) { ProcessRounds(elements); });

  DrawAction = new platform::TAction(this);
  DrawAction->OnExecute = [this] { DrawActionExecute(); };
  ActionList->Add(DrawAction);
  RedefineHotKey();
  DropMarkerAction = AddSearchAction(QStringLiteral("Drop Marker"), kDropMarkerKey, [this] {
    if (GetOTAEditView())
      DropMarker();
  });
  PickupMarkerAction = AddSearchAction(QStringLiteral("Pick Up Marker"), kPickupMarkerKey, [this] { PickupMarker(); });

  OldEditorWndProc = Control().WindowProc();
  Control().SetWindowProc(platform::TWndMethod::Of<&TQVEditorProxy::EditorWndProc>(*this));
}

TQVEditorProxy::~TQVEditorProxy() {
  platform::OutputDebugString("Enter TQVEditorProxy.Destroy");
  if (parent() && platform::FindComponent(*parent(), EditControlName))
    UnSubclass();
  for (platform::TAction* const action : {DrawAction.data(), DropMarkerAction.data(), PickupMarkerAction.data()})
    delete action;
  platform::OutputDebugString("Exit TQVEditorProxy.Destroy");
}

void TQVEditorProxy::InjectExistingProxies() {
  ForEachEditorForm([](QWidget& form) { new TQVEditorProxy(&form); });
}

void TQVEditorProxy::RemoveExistingProxies() {
  ForEachEditorForm([](const QWidget& form) {
    if (TQVEditorProxy* const proxy = GetProxy(form)) {
      proxy->Invalidate(); // what it has drawn goes with it
      delete proxy;
    }
  });
}

TQVEditorProxy* TQVEditorProxy::GetProxy(const QWidget& form) {
  platform::Require(IsEditorForm(form), kUnit);
  return ProxyOn(form);
}

TQVEditorProxy* TQVEditorProxy::GetProxy(const std::shared_ptr<platform::IOTAEditView>& view) {
  platform::Require(view != nullptr, kUnit);
  const QWidget* form = FormOf(*view);
  return form ? ProxyOn(*form) : nullptr;
}

std::shared_ptr<platform::IOTAEditView> TQVEditorProxy::GetOTAEditView() const {
  auto view = GetTopView();
  const bool own = view && EditorForm && FormOf(*view) == EditorForm;
  return own ? view : nullptr;
}

void TQVEditorProxy::SetPasInfo(std::shared_ptr<IQVPasInfo> info) {
  const auto view = GetOTAEditView();
  platform::Require(view != nullptr, kUnit);
  {
    // The earlier outline is let go after the lock, on the way out.
    auto earlier = info;
    const std::unique_lock lock(PasInfoLock);
    PasInfo.swap(earlier);
  }
  UpdateViewToolBar(view, info);
}

std::shared_ptr<IQVPasInfo> TQVEditorProxy::GetPasInfo() const {
  const std::shared_lock lock(PasInfoLock);
  return PasInfo;
}

void TQVEditorProxy::RedefineHotKey() {
  platform::OutputDebugString("RedefineHotKey");
  DrawAction->SetShortCut(OptMarkerHotkey);
  DrawAction->setEnabled(true);
  platform::OutputDebugString("Done RedefineHotKey");
}

platform::TAction* TQVEditorProxy::AddSearchAction(const QString& text, platform::TShortCut shortCut,
                                                   std::function<void()> execute) {
  auto* const action = new platform::TAction(this);
  action->setText(text);
  action->Category = QStringLiteral("Search");
  action->SetShortCut(shortCut);
  action->OnExecute = std::move(execute);
  ActionList->Add(action);
  return action;
}

void TQVEditorProxy::Invalidate() {
  if (platform::TWinControl* control = FindControl())
    control->Invalidate();
}

void TQVEditorProxy::StartDraw() {
  Invalidate();
}

void TQVEditorProxy::EndDraw() {}

void TQVEditorProxy::UnSubclass() {
  if (platform::TWinControl* control = FindControl())
    control->SetWindowProc(OldEditorWndProc);
}

void TQVEditorProxy::DropMarker() {
  const auto view = GetOTAEditView();
  platform::Require(view != nullptr, kUnit);
  if (QVMarkerStackManager)
    QVMarkerStackManager->Push(view);
  if (TemplateGuard) // else the picture follows when the expansion picks its first marker up
    RepaintControl();
}

void TQVEditorProxy::PickupMarker() {
  if (QVMarkerStackManager)
    QVMarkerStackManager->Pop();
  RepaintControl();
}

// Called before the host gets its message, which must reach it whatever happens here.
void TQVEditorProxy::ResumeMarkers() {
  platform::Guarded([this] {
    const auto view = QVMarkerStackManager && QVMarkerStackManager->Count() > 0 ? GetOTAEditView() : nullptr;
    if (view)
      QVMarkerStackManager->Resume(view);
  });
}

} // namespace quorvane
