// SPDX-License-Identifier: MIT
// How add-ins hear of editor windows that become active.
#include "desktop/ui/UiFixture.h"

#include "platform/Align.h"
#include "platform/Errors.h"
#include "platform/Hooks.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <vector>

namespace desktop {
namespace {

// While it lives, hears of every activation by a hook of the kind that add-ins install. There is one at a time.
class ActivationHook {
public:
  ActivationHook() : handle_(install()) { present_ = this; }
  ~ActivationHook() {
    platform::UnhookWindowsHookEx(handle_);
    present_ = nullptr;
  }
  ActivationHook(const ActivationHook&) = delete;
  ActivationHook& operator=(const ActivationHook&) = delete;

  // How often the control was announced so far.
  int count(const QWidget* control) const {
    return static_cast<int>(std::count(announced.begin(), announced.end(), control));
  }

  std::vector<const QWidget*> announced; // null for a handle behind which there was no control
  std::function<void(QWidget*)> onActivation;

private:
  static platform::HHOOK install() {
    return platform::SetWindowsHookEx(platform::WH_CBT, &proc, nullptr, platform::GetCurrentThreadId());
  }
  static std::intptr_t proc(int code, std::uintptr_t wParam, std::intptr_t lParam) {
    EXPECT_EQ(code, platform::HCBT_ACTIVATE);
    QWidget* const control = platform::FindControl(wParam);
    present_->announced.push_back(control);
    if (present_->onActivation)
      present_->onActivation(control);
    return platform::CallNextHookEx(present_->handle_, code, wParam, lParam);
  }

  static inline ActivationHook* present_ = nullptr;
  platform::HHOOK handle_;
};

class ActivationTest : public UiFixture {
protected:
  ActivationHook hook;
};

TEST_F(ActivationTest, TheFirstWindowIsAnnouncedWhenItIsShown) {
  workspace.newFile();
  EXPECT_TRUE(hook.announced.empty());
  frame()->show();
  EXPECT_EQ(hook.count(window()), 1);
}

TEST_F(ActivationTest, AFurtherWindowIsAnnouncedWhenItIsOpened) {
  workspace.newFile();
  activate(window());
  const TEditWindow* const other = workspace.newWindow();
  EXPECT_EQ(hook.count(other), 1);
}

TEST_F(ActivationTest, EveryActivationIsAnnounced) {
  workspace.newFile();
  activate(window());
  TEditWindow* const other = workspace.newWindow();
  activate(other);
  const int ofFirst = hook.count(window());
  const int ofOther = hook.count(other);
  activate(window());
  EXPECT_EQ(hook.count(window()), ofFirst + 1);
  EXPECT_EQ(hook.count(other), ofOther);
}

TEST_F(ActivationTest, OnlyFormsThatAreEditorWindowsAreAnnounced) {
  workspace.newFile();
  activate(window());
  activate(workspace.newWindow());
  for (const QWidget* control : hook.announced) {
    ASSERT_NE(control, nullptr);
    EXPECT_EQ(platform::ClassName(*control), QStringLiteral("TEditWindow"));
    const std::vector<QWidget*> forms = platform::Screen().Forms();
    EXPECT_NE(std::find(forms.begin(), forms.end(), control), forms.end());
  }
}

TEST_F(ActivationTest, TheAnnouncedWindowIsTheTopWindowAlready) {
  workspace.newFile();
  activate(window());
  TEditWindow* const other = workspace.newWindow();
  activate(other);
  std::vector<bool> onTop;
  hook.onActivation = [&](const QWidget* control) { onTop.push_back(control == workspace.topWindow()); };
  activate(window());
  EXPECT_EQ(onTop, std::vector<bool>{true});
}

TEST_F(ActivationTest, ControlsThatAHookPutsIntoAnOpeningWindowAreShownAndLaidOut) {
  workspace.newFile();
  activate(window());
  QPointer<QWidget> bar;
  hook.onActivation = [&bar](QWidget* control) {
    if (bar)
      return;
    bar = new QWidget(control);
    bar->setFixedHeight(20);
    SetAlign(*bar, platform::TAlign::alTop);
    bar->show();
  };
  TEditWindow* const other = workspace.newWindow();
  activate(other);
  ASSERT_NE(bar, nullptr);
  EXPECT_TRUE(bar->isVisible());
  EXPECT_TRUE(support::waitUntil([&] { return bar->width() == other->width() && other->editor()->y() > bar->y(); }));
}

TEST_F(ActivationTest, AHookThatThrowsIsReportedAndTheWindowOpens) {
  workspace.newFile();
  hook.onActivation = [](const QWidget*) { throw platform::Exception("No proxy today"); };
  activate(window());
  hook.onActivation = {};
  ASSERT_TRUE(support::waitUntil([this] { return !messages().isEmpty(); }));
  EXPECT_TRUE(messages().constFirst().startsWith(QStringLiteral("An error occurred: No proxy today")));
}

TEST_F(ActivationTest, AWindowThatWasClosedIsNeitherFoundNorAForm) {
  workspace.newFile();
  activate(window());
  const QPointer<TEditWindow> other = workspace.newWindow();
  activate(other);
  const std::uintptr_t handle = platform::WindowHandle(*other);
  const std::size_t forms = platform::Screen().Forms().size();
  EXPECT_TRUE(workspace.frameOf(other)->close());
  ASSERT_TRUE(support::waitUntil([&other] { return other.isNull(); }));
  EXPECT_EQ(platform::FindControl(handle), nullptr);
  EXPECT_EQ(platform::Screen().Forms().size(), forms - 2) << "the window and its frame";
}

TEST_F(ActivationTest, AWindowThatIsClosingIsNotAnnouncedAnyMore) {
  workspace.newFile();
  activate(window());
  const QPointer<TEditWindow> other = workspace.newWindow();
  activate(other);
  const int before = hook.count(other);
  EXPECT_TRUE(workspace.frameOf(other) != nullptr && workspace.frameOf(other)->close());
  Q_EMIT other->activated();
  EXPECT_EQ(hook.count(other), before);
}

TEST_F(ActivationTest, FormsStandInTheOrderOfTheirCreation) {
  support::settle(); // windows of other tests may still wait to be destroyed
  workspace.newFile();
  TEditWindow* const second = workspace.newWindow();
  TEditWindow* const third = workspace.newWindow();
  std::vector<QWidget*> editors = platform::Screen().Forms();
  std::erase_if(editors, [](const QWidget* form) { return qobject_cast<const TEditWindow*>(form) == nullptr; });
  EXPECT_EQ(editors, (std::vector<QWidget*>{window(), second, third}));
}

} // namespace
} // namespace desktop
