// SPDX-License-Identifier: MIT
#include "editor/QVEditorProxy.h"

#include "AddinFixture.h"
#include "editor/QVMarkerStack.h"
#include "platform/Component.h"
#include "platform/Errors.h"

#include <thread>

namespace quorvane {
namespace {

using fakes::FakeView;
using fakes::TEditWindow;
using fakes::TOtherForm;

// Attaching.

class QVEditorProxy : public ProxyTest {};

TEST_F(QVEditorProxy, IsAComponentOfItsFormNamedLikeItsClass) {
  EXPECT_EQ(Proxy->parent(), Window.get());
  EXPECT_EQ(Proxy->objectName(), QStringLiteral("TQVEditorProxy"));
  EXPECT_EQ(platform::ClassName(*Proxy), Proxy->objectName());
}

TEST_F(QVEditorProxy, TakesOverTheWindowProcedure) {
  EXPECT_NE(Editor().WindowProc(), HostProc);
}

TEST_F(QVEditorProxy, HasNoOutlineAndNoCanvasOfItsOwnAtFirst) {
  EXPECT_EQ(Proxy->GetPasInfo(), nullptr);
  EXPECT_EQ(Proxy->CanvasOverride, nullptr);
  EXPECT_EQ(Proxy->EdGetCanvas(), &Editor().Canvas());
}

TEST_F(QVEditorProxy, PutsTheHotKeyActionIntoTheFormsList) {
  const QList<QAction*> actions = Window->Actions().Actions();
  ASSERT_FALSE(actions.isEmpty());
  const auto* action = dynamic_cast<platform::TAction*>(actions.constFirst());
  ASSERT_NE(action, nullptr);
  EXPECT_EQ(action->parent(), Proxy);
  EXPECT_EQ(action->ShortCut(), OptMarkerHotkey);
  EXPECT_EQ(action->shortcut(), QKeySequence(QStringLiteral("Shift+Alt+0")));
  EXPECT_TRUE(action->isEnabled());
}

TEST_F(QVEditorProxy, RedefinesTheHotKeyAndSaysSo) {
  auto* action = dynamic_cast<platform::TAction*>(Window->Actions().Actions().constFirst());
  action->setEnabled(false);
  OptMarkerHotkey = platform::scCtrl | 'M';
  Proxy->RedefineHotKey();
  EXPECT_EQ(action->ShortCut(), platform::scCtrl | 'M');
  EXPECT_TRUE(action->isEnabled());
  EXPECT_EQ(Debug.Take(), (Lines{"RedefineHotKey", "Done RedefineHotKey"}));
}

class QVEditorProxyAttaching : public AddinTest {};

TEST_F(QVEditorProxyAttaching, DefinesTheHotKeyOnce) {
  TEditWindow form;
  new TQVEditorProxy(&form);
  EXPECT_EQ(Debug.Take(), (Lines{"RedefineHotKey", "Done RedefineHotKey"}));
}

TEST_F(QVEditorProxyAttaching, NeedsOnlyTheClassOfItsOwner) {
  TEditWindow form(QStringLiteral("SomeOtherName"));
  EXPECT_NO_THROW(new TQVEditorProxy(&form));
}

TEST_F(QVEditorProxyAttaching, RefusesAnOwnerThatIsNoEditorForm) {
  TOtherForm other(QStringLiteral("EditWindow_0"));
  QObject object;
  for (QObject* owner : {static_cast<QObject*>(&other), &object, static_cast<QObject*>(nullptr)}) {
    const auto assertion = AssertionOf([owner] { new TQVEditorProxy(owner); });
    EXPECT_EQ(assertion.Text(), "Cannot create an editor proxy without an editor");
    EXPECT_EQ(assertion.Unit(), "QVEditorProxy");
  }
  EXPECT_TRUE(other.children().isEmpty());
}

TEST_F(QVEditorProxyAttaching, RefusesAFormWithoutItsControl) {
  TEditWindow form;
  form.DropEditor();
  const auto assertion = AssertionOf([&] { new TQVEditorProxy(&form); });
  EXPECT_EQ(assertion.Text(), "Assertion failure");
  EXPECT_EQ(assertion.Unit(), "QVEditorProxy");
  EXPECT_EQ(TQVEditorProxy::GetProxy(form), nullptr);
}

TEST_F(QVEditorProxyAttaching, RefusesAFormWithoutItsActionList) {
  TEditWindow form;
  const platform::TWndMethod before = form.Editor().WindowProc();
  form.DropActions();
  EXPECT_EQ(AssertionOf([&] { new TQVEditorProxy(&form); }).Unit(), "QVEditorProxy");
  EXPECT_EQ(TQVEditorProxy::GetProxy(form), nullptr);
  EXPECT_EQ(form.Editor().WindowProc(), before);
}

// Going.

TEST_F(QVEditorProxy, PutsTheWindowProcedureBackWhenItIsFreed) {
  delete Proxy;
  EXPECT_EQ(Editor().WindowProc(), HostProc);
  EXPECT_TRUE(Window->Actions().Actions().isEmpty());
  EXPECT_EQ(Debug.Take(), (Lines{"Enter TQVEditorProxy.Destroy", "Exit TQVEditorProxy.Destroy"}));
}

TEST_F(QVEditorProxy, PutsTheWindowProcedureBackWhenTheControlGoesAndLivesOn) {
  Window->DropEditor();
  EXPECT_FALSE(Proxy.isNull());
  delete Proxy;
  EXPECT_EQ(Debug.Take(), (Lines{"Enter TQVEditorProxy.Destroy", "Exit TQVEditorProxy.Destroy"}));
}

TEST_F(QVEditorProxy, LeavesTheWindowProcedureToOthersOnceItHasNoOwner) {
  const platform::TWndMethod own = Editor().WindowProc();
  Proxy->setParent(nullptr);
  delete Proxy;
  EXPECT_EQ(Editor().WindowProc(), own);
  Editor().SetWindowProc(HostProc);
}

TEST_F(QVEditorProxy, GoesWithItsForm) {
  Window.reset();
  EXPECT_TRUE(Proxy.isNull());
  EXPECT_EQ(Debug.Take(), (Lines{"Enter TQVEditorProxy.Destroy", "Exit TQVEditorProxy.Destroy"}));
}

TEST_F(QVEditorProxy, CanBeFreedWhileItsFormIsHalfDestroyed) {
  QObject::connect(Window.get(), &QObject::destroyed, Window.get(), [this] { delete Proxy; });
  Window.reset();
  EXPECT_TRUE(Proxy.isNull());
}

TEST_F(QVEditorProxy, UnSubclassPutsTheWindowProcedureBackAndTheProxyLivesOn) {
  Proxy->UnSubclass();
  EXPECT_EQ(Editor().WindowProc(), HostProc);
  Editor().Send(platform::WM_PAINT);
  EXPECT_TRUE(LogForm.Take().empty());
}

// Registry.

TEST_F(QVEditorProxyAttaching, InjectsAProxyIntoEveryOpenEditorWindow) {
  const TEditWindow first;
  const TOtherForm other(QStringLiteral("EditWindow_1"));
  const TEditWindow misnamed(QStringLiteral("MyEditWindow_1"));
  const TEditWindow second(QStringLiteral("EditWindow_2"));
  TQVEditorProxy::InjectExistingProxies();
  EXPECT_NE(TQVEditorProxy::GetProxy(first), nullptr);
  EXPECT_NE(TQVEditorProxy::GetProxy(second), nullptr);
  EXPECT_EQ(platform::FindComponent(other, QStringLiteral("TQVEditorProxy")), nullptr);
  EXPECT_EQ(platform::FindComponent(misnamed, QStringLiteral("TQVEditorProxy")), nullptr);
}

TEST_F(QVEditorProxyAttaching, InjectionWithoutEditorWindowsDoesNothing) {
  EXPECT_NO_THROW(TQVEditorProxy::InjectExistingProxies());
}

TEST_F(QVEditorProxyAttaching, RemovalLeavesEveryWindowAsItWas) {
  const TEditWindow first;
  const TEditWindow second(QStringLiteral("EditWindow_1"));
  const TEditWindow without(QStringLiteral("EditWindow_2"));
  const platform::TWndMethod firstProc = first.Editor().WindowProc();
  const platform::TWndMethod secondProc = second.Editor().WindowProc();
  TQVEditorProxy::InjectExistingProxies();
  delete TQVEditorProxy::GetProxy(without);

  TQVEditorProxy::RemoveExistingProxies();

  EXPECT_EQ(TQVEditorProxy::GetProxy(first), nullptr);
  EXPECT_EQ(TQVEditorProxy::GetProxy(second), nullptr);
  EXPECT_EQ(first.Editor().WindowProc(), firstProc);
  EXPECT_EQ(second.Editor().WindowProc(), secondProc);
}

TEST_F(QVEditorProxy, IsFoundByItsForm) {
  EXPECT_EQ(TQVEditorProxy::GetProxy(*Window), Proxy);
}

TEST_F(QVEditorProxy, LookUpByAFormThatIsNoEditorIsAnAssertion) {
  const TOtherForm other(QStringLiteral("EditWindow_1"));
  EXPECT_EQ(AssertionOf([&] { TQVEditorProxy::GetProxy(other); }).Unit(), "QVEditorProxy");
}

TEST_F(QVEditorProxy, IsFoundByAViewOfItsForm) {
  EXPECT_EQ(TQVEditorProxy::GetProxy(View), Proxy);
}

TEST_F(QVEditorProxy, LookUpByAViewWhoseWindowHasNoFormIsNull) {
  EXPECT_EQ(TQVEditorProxy::GetProxy(std::make_shared<FakeView>(Buffer, nullptr)), nullptr);
}

TEST_F(QVEditorProxy, LookUpByNoViewIsAnAssertion) {
  EXPECT_EQ(AssertionOf([] { TQVEditorProxy::GetProxy(std::shared_ptr<platform::IOTAEditView>()); }).Unit(),
            "QVEditorProxy");
}

// The view.

TEST_F(QVEditorProxy, HasTheTopViewOnlyWhileItIsInItsForm) {
  EXPECT_EQ(Proxy->GetOTAEditView(), View);
  const TEditWindow other(QStringLiteral("EditWindow_1"));
  Services->TopView = std::make_shared<FakeView>(Buffer, const_cast<TEditWindow*>(&other));
  EXPECT_EQ(Proxy->GetOTAEditView(), nullptr);
  Services->TopView = nullptr;
  EXPECT_EQ(Proxy->GetOTAEditView(), nullptr);
}

TEST_F(QVEditorProxy, HasNoViewWhenTheViewHasNoWindow) {
  View->Window = nullptr;
  EXPECT_EQ(Proxy->GetOTAEditView(), nullptr);
}

// The outline.

TEST_F(QVEditorProxy, KeepsTheLatestOutline) {
  const auto first = SomePasInfo();
  const auto second = SomePasInfo();
  Proxy->SetPasInfo(first);
  EXPECT_EQ(Proxy->GetPasInfo(), first);
  Proxy->SetPasInfo(second);
  EXPECT_EQ(Proxy->GetPasInfo(), second);
  EXPECT_EQ(first.use_count(), 1);
}

TEST_F(QVEditorProxy, RefusesAnOutlineWhenItsFormDoesNotHoldTheTopView) {
  Services->TopView = nullptr;
  EXPECT_EQ(AssertionOf([this] { Proxy->SetPasInfo(SomePasInfo()); }).Unit(), "QVEditorProxy");
  EXPECT_EQ(Proxy->GetPasInfo(), nullptr);
}

TEST_F(QVEditorProxy, GivesTheOutlineToOtherThreadsWhileItIsReplaced) {
  const auto info = SomePasInfo();
  std::atomic<bool> done = false;
  std::atomic<bool> alwaysKnown = true;
  Proxy->SetPasInfo(info);
  std::thread reader([&] {
    do {
      if (Proxy->GetPasInfo() == nullptr)
        alwaysKnown = false;
    } while (!done);
  });
  for (int round = 0; round < 1000; ++round)
    Proxy->SetPasInfo(SomePasInfo());
  done = true;
  reader.join();
  EXPECT_TRUE(alwaysKnown);
}

// Markers and drawing from outside.

class RecordingMarkerStack : public IQVMarkerStack {
public:
  std::vector<std::shared_ptr<platform::IOTAEditView>> Pushed;
  int Pops = 0;
  void Push(const std::shared_ptr<platform::IOTAEditView>& view) override { Pushed.push_back(view); }
  void Pop() override { ++Pops; }
  void Enumerate(const QString&, int, int, const TQVMarkerStackCallback&) const override {}
  int Count() const override { return static_cast<int>(Pushed.size()); }
  void ReverseTop(int) override {}
  void Resume(const std::shared_ptr<platform::IOTAEditView>&) override {}
};

class QVEditorProxyMarkers : public QVEditorProxy {
protected:
  ~QVEditorProxyMarkers() override { QVMarkerStackManager = nullptr; }
  std::shared_ptr<RecordingMarkerStack> Stack = std::make_shared<RecordingMarkerStack>();
};

TEST_F(QVEditorProxyMarkers, DropHandsTheViewToTheStackAndRepaintsAtOnce) {
  QVMarkerStackManager = Stack;
  Proxy->DropMarker();
  ASSERT_EQ(Stack->Pushed.size(), 1U);
  EXPECT_EQ(Stack->Pushed.front(), View);
  EXPECT_EQ(Editor().Repaints, 1);
}

TEST_F(QVEditorProxyMarkers, PickUpPopsTheStackAndRepaintsAtOnce) {
  QVMarkerStackManager = Stack;
  Proxy->PickupMarker();
  EXPECT_EQ(Stack->Pops, 1);
  EXPECT_EQ(Editor().Repaints, 1);
}

TEST_F(QVEditorProxyMarkers, DropWithoutAViewIsAnAssertion) {
  QVMarkerStackManager = Stack;
  Services->TopView = nullptr;
  EXPECT_EQ(AssertionOf([this] { Proxy->DropMarker(); }).Unit(), "QVEditorProxy");
  EXPECT_TRUE(Stack->Pushed.empty());
}

TEST_F(QVEditorProxyMarkers, WithoutAStackOnlyTheRepaintIsLeft) {
  Proxy->DropMarker();
  Proxy->PickupMarker();
  EXPECT_EQ(Editor().Repaints, 2);
}

TEST_F(QVEditorProxy, InvalidateAndStartDrawAskForAPaintLaterAndEndDrawForNone) {
  Proxy->Invalidate();
  EXPECT_EQ(Editor().Invalidations, 1);
  Proxy->StartDraw();
  EXPECT_EQ(Editor().Invalidations, 2);
  Proxy->EndDraw();
  EXPECT_EQ(Editor().Invalidations, 2);
  EXPECT_EQ(Editor().Repaints, 0);
}

} // namespace
} // namespace quorvane
