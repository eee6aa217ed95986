// SPDX-License-Identifier: MIT
#include "AddinFixture.h"
#include "platform/Align.h"
#include "platform/Component.h"
#include "platform/Hooks.h"
#include "toolbar/QVEditorToolbar.h"
#include "toolbar/QVLineNumbers.h"
#include "toolbar/QVLocalVars.h"

#include <QEvent>

#include <initializer_list>
#include <thread>
#include <vector>

namespace quorvane {
namespace {

using platform::TAlign;

QWidget* Component(const QWidget& form, const char* name) {
  return qobject_cast<QWidget*>(platform::FindComponent(form, QString::fromLatin1(name)));
}
QWidget* ToolbarOf(const QWidget& form) {
  return Component(form, "TQVEditorToolbar");
}
QWidget* NumbersOf(const QWidget& form) {
  return Component(form, "TQVLineNumbers");
}
bool HasProxy(const QWidget& form) {
  return platform::FindComponent(form, QStringLiteral("TQVEditorProxy")) != nullptr;
}

// The names of a form's components in the order of their creation.
QStringList Components(const QWidget& form) {
  QStringList names;
  for (const QObject* child : form.children())
    names.append(child->objectName());
  return names;
}

const QStringList kBare = {QStringLiteral("Editor"), QStringLiteral("ActionList1")};
const QStringList kWithControls =
    kBare + QStringList{QStringLiteral("TQVLineNumbers"), QStringLiteral("TQVEditorToolbar")};
const QStringList kEquipped = kWithControls + QStringList{QStringLiteral("TQVEditorProxy")};

// A host with one bare editor window.
class QVEditorToolbar : public AddinTest {
protected:
  ~QVEditorToolbar() override { StopEditorToolbar(); }

  // What the host does when a form becomes active.
  static std::intptr_t Activate(QWidget& form) {
    return platform::CallHooks(platform::WH_CBT, platform::HCBT_ACTIVATE, platform::WindowHandle(form), 0);
  }

  fakes::TEditWindow Window;
};

TEST_F(QVEditorToolbar, RegisterGivesOpenWindowsToolbarAndNumbersAndTheirProxyComesWithTheFirstActivation) {
  RegisterEditorToolbar();
  EXPECT_EQ(Components(Window), kWithControls);
  Activate(Window);
  EXPECT_EQ(Components(Window), kEquipped);
}

TEST_F(QVEditorToolbar, WindowOpenedLaterIsEquippedOnceByItsFirstActivation) {
  RegisterEditorToolbar();
  fakes::TEditWindow second(QStringLiteral("EditWindow_1"));
  EXPECT_EQ(Components(second), kBare);
  Activate(second);
  EXPECT_EQ(Components(second), kEquipped);
  Activate(second);
  Activate(Window);
  Activate(second);
  EXPECT_EQ(Components(second), kEquipped);
}

// The forms that are given components, one entry a component.
class Arrivals : public QObject {
public:
  explicit Arrivals(std::initializer_list<QWidget*> forms) {
    for (QWidget* form : forms)
      form->installEventFilter(this);
  }
  QStringList Forms;

protected:
  bool eventFilter(QObject* form, QEvent* event) override {
    if (event->type() == QEvent::ChildAdded)
      Forms.append(form->objectName());
    return false;
  }
};

TEST_F(QVEditorToolbar, OpenWindowsAreEquippedInTheOrderOfTheForms) {
  fakes::TEditWindow second(QStringLiteral("EditWindow_1"));
  fakes::TEditWindow third(QStringLiteral("EditWindow_2"));
  Arrivals arrivals{&third, &Window, &second};
  InitializeOpenEditors();
  EXPECT_EQ(Components(third), kWithControls);
  arrivals.Forms.removeDuplicates();
  EXPECT_EQ(arrivals.Forms, (QStringList{QStringLiteral("EditWindow_0"), QStringLiteral("EditWindow_1"),
                                         QStringLiteral("EditWindow_2")}));
}

TEST_F(QVEditorToolbar, OpenWindowWithoutEditControlGetsNothing) {
  Window.DropEditor();
  InitializeOpenEditors();
  EXPECT_EQ(Components(Window), QStringList{QStringLiteral("ActionList1")});
}

TEST_F(QVEditorToolbar, OtherFormsGetNothing) {
  fakes::TOtherForm form(QStringLiteral("EditWindow_7"));
  new fakes::FakeEditControl(&form);
  RegisterEditorToolbar();
  Activate(form);
  EXPECT_EQ(Components(form), QStringList{QStringLiteral("Editor")});
}

// What is injected.

TEST_F(QVEditorToolbar, ControlsStandWhereTheEditorStood) {
  Window.Editor().Left = 7;
  Window.Editor().Top = 31;
  InjectToolbar(Window.Editor());
  EXPECT_EQ(NumbersOf(Window)->x(), 7);
  EXPECT_EQ(ToolbarOf(Window)->y(), 31);
  EXPECT_EQ(platform::Align(*NumbersOf(Window)), TAlign::alLeft);
  EXPECT_EQ(platform::Align(*ToolbarOf(Window)), TAlign::alTop);
}

TEST_F(QVEditorToolbar, ControlsAreVisible) {
  InjectToolbar(Window.Editor());
  EXPECT_FALSE(NumbersOf(Window)->isHidden());
  EXPECT_FALSE(ToolbarOf(Window)->isHidden());
}

TEST_F(QVEditorToolbar, NumbersAreHiddenWhileTheyStandInTheHostsGutter) {
  OptLinesInGutter = true;
  InjectToolbar(Window.Editor());
  EXPECT_TRUE(NumbersOf(Window)->isHidden());
  EXPECT_FALSE(ToolbarOf(Window)->isHidden());
}

TEST_F(QVEditorToolbar, ToolbarIsHiddenWhenTheOptionDoesNotWantIt) {
  OptShowNavBar = false;
  InjectToolbar(Window.Editor());
  EXPECT_FALSE(NumbersOf(Window)->isHidden());
  EXPECT_TRUE(ToolbarOf(Window)->isHidden());
}

TEST_F(QVEditorToolbar, WithLineNumbersOffThereIsNoToolbarEither) {
  OptShowLineNumbers = false;
  RegisterEditorToolbar();
  fakes::TEditWindow second(QStringLiteral("EditWindow_1"));
  Activate(second);
  EXPECT_EQ(Components(Window), kBare);
  EXPECT_EQ(Components(second), kBare + QStringList{QStringLiteral("TQVEditorProxy")});
}

TEST_F(QVEditorToolbar, LineNumbersSwitchedOnLaterDoNotBringWhatWasNeverMade) {
  OptShowLineNumbers = false;
  RegisterEditorToolbar();
  OptShowLineNumbers = true;
  ShowLineNumbers();
  ShowNavBars();
  EXPECT_EQ(Components(Window), kBare);
}

TEST_F(QVEditorToolbar, WindowWithAToolbarIsOnlyCheckedForItsProxy) {
  StartHooks();
  auto* const own = new TQVEditorToolbar(&Window);
  Activate(Window);
  EXPECT_EQ(NumbersOf(Window), nullptr);
  EXPECT_EQ(ToolbarOf(Window), own);
  EXPECT_TRUE(HasProxy(Window));
}

// The hook.

TEST_F(QVEditorToolbar, HookThatTheHostRefusesIsAnAssertion) {
  platform::EAssertionFailed assertion({}, {}, 0);
  std::thread([&] { assertion = AssertionOf(StartHooks); }).join();
  EXPECT_EQ(assertion.Text(), "Error Installing CBT Hook");
  EXPECT_EQ(assertion.Unit(), "QVEditorToolbar");
  EXPECT_EQ(assertion.Line(), 77U);
}

TEST_F(QVEditorToolbar, AfterEndHooksNoWindowIsCaughtAnyMore) {
  StartHooks();
  EndHooks();
  Activate(Window);
  EXPECT_EQ(Components(Window), kBare);
}

TEST_F(QVEditorToolbar, OtherCodesEquipNothing) {
  StartHooks();
  for (const int code : {-1, 0, 4, 6})
    platform::CallHooks(platform::WH_CBT, code, platform::WindowHandle(Window), 0);
  EXPECT_EQ(Components(Window), kBare);
}

TEST_F(QVEditorToolbar, WindowThatHasGoneIsPassedOn) {
  StartHooks();
  std::uintptr_t handle = 0;
  {
    fakes::TEditWindow second(QStringLiteral("EditWindow_1"));
    handle = platform::WindowHandle(second);
  }
  EXPECT_EQ(platform::CallHooks(platform::WH_CBT, platform::HCBT_ACTIVATE, handle, 0), 0);
}

// What the hook installed before the add-in's was told.
struct Call {
  int Code = 0;
  std::uintptr_t WParam = 0;
  std::intptr_t LParam = 0;
  friend bool operator==(const Call&, const Call&) = default;
};
std::vector<Call> EarlierCalls;

// An older hook, installed while it lives, that records its calls and answers 42.
class EarlierHook {
public:
  EarlierHook() { EarlierCalls.clear(); }
  ~EarlierHook() { platform::UnhookWindowsHookEx(hook_); }
  EarlierHook(const EarlierHook&) = delete;
  EarlierHook& operator=(const EarlierHook&) = delete;

private:
  static std::intptr_t Proc(int code, std::uintptr_t wParam, std::intptr_t lParam) {
    EarlierCalls.push_back({code, wParam, lParam});
    return 42;
  }

  platform::HHOOK hook_ = platform::SetWindowsHookEx(platform::WH_CBT, Proc, nullptr, platform::GetCurrentThreadId());
};

TEST_F(QVEditorToolbar, HookPassesEveryEventOnAndReturnsTheAnswer) {
  const EarlierHook earlier;
  StartHooks();
  const std::uintptr_t handle = platform::WindowHandle(Window);
  for (const int code : {-1, 3, static_cast<int>(platform::HCBT_ACTIVATE)})
    EXPECT_EQ(platform::CallHooks(platform::WH_CBT, code, handle, 9), 42) << code;
  EXPECT_EQ(EarlierCalls, (std::vector<Call>{{-1, handle, 9}, {3, handle, 9}, {5, handle, 9}}));
}

TEST_F(QVEditorToolbar, HookPassesTheActivationOnOfAWindowThatCannotBeEquipped) {
  const EarlierHook earlier;
  StartHooks();
  Window.DropEditor(); // without which there can be no proxy
  EXPECT_EQ(Activate(Window), 42);
  EXPECT_EQ(EarlierCalls, (std::vector<Call>{{5, platform::WindowHandle(Window), 0}}));
  EXPECT_EQ(TakeReported().size(), 1U);
}

TEST_F(QVEditorToolbar, IdleHookPollsTheNumbersWhenTheyAreWanted) {
  InitializeOpenEditors();
  const TQVLineNumbers& numbers = *GetLineNumbers(Window);
  EXPECT_EQ(IdleProc(-1, 0, 0), 0);
  EXPECT_TRUE(numbers.Picture().isNull());
  OptShowLineNumbers = false;
  EXPECT_EQ(IdleProc(0, 0, 0), 0);
  EXPECT_TRUE(numbers.Picture().isNull());
  OptShowLineNumbers = true;
  EXPECT_EQ(IdleProc(0, 0, 0), 0);
  EXPECT_FALSE(numbers.Picture().isNull());
}

// The end.

TEST_F(QVEditorToolbar, StopTakesToolbarsAndNumbersFromAllWindowsAndLeavesTheProxies) {
  fakes::TEditWindow second(QStringLiteral("EditWindow_1"));
  RegisterEditorToolbar();
  Activate(Window);
  Activate(second);
  StopEditorToolbar();
  const QStringList left = kBare + QStringList{QStringLiteral("TQVEditorProxy")};
  EXPECT_EQ(Components(Window), left);
  EXPECT_EQ(Components(second), left);
  fakes::TEditWindow third(QStringLiteral("EditWindow_2"));
  Activate(third);
  EXPECT_EQ(Components(third), kBare);
}

TEST_F(QVEditorToolbar, StopPassesByWindowsWithoutControls) {
  RegisterEditorToolbar();
  delete ToolbarOf(Window);
  const fakes::TEditWindow second(QStringLiteral("EditWindow_1"));
  StopEditorToolbar();
  EXPECT_EQ(Components(Window), kBare);
  EXPECT_EQ(Components(second), kBare);
}

} // namespace
} // namespace quorvane
