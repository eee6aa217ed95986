// SPDX-License-Identifier: MIT
#include "host/QVLog.h"

#include "host/QVStatManager.h"
#include "platform/Actions.h"
#include "platform/Application.h"
#include "platform/Component.h"

#include <gtest/gtest.h>

#include <QMainWindow>
#include <QPlainTextEdit>
#include <QPointer>

#include <memory>

namespace quorvane {
namespace {

QPlainTextEdit* MemoOf(const QWidget& form) {
  return qobject_cast<QPlainTextEdit*>(platform::FindComponent(form, QStringLiteral("Memo1")));
}

TEST(QVLog, FormHasItsCaptionAndSize) {
  const TQVLogForm form;
  EXPECT_EQ(form.windowTitle(), QStringLiteral("Quorvane Debug Log"));
  EXPECT_EQ(form.size(), QSize(195, 383));
  EXPECT_EQ(platform::ClassName(form), QStringLiteral("TQVLogForm"));
}

TEST(QVLog, ReadOnlyMemoFillsTheForm) {
  TQVLogForm form;
  form.show();
  const QPlainTextEdit* memo = MemoOf(form);
  ASSERT_NE(memo, nullptr);
  EXPECT_TRUE(memo->isReadOnly());
  EXPECT_EQ(memo->geometry(), form.rect());
}

TEST(QVLog, FormIsHiddenUntilSomebodyShowsIt) {
  StartQVLog();
  EXPECT_FALSE(QVLogForm->isVisible());
  StopQVLog();
}

TEST(QVLog, FormCanBeDockedToAMainWindow) {
  QMainWindow host;
  host.setCentralWidget(new QWidget);
  StartQVLog();
  host.addDockWidget(Qt::BottomDockWidgetArea, QVLogForm);
  host.show();
  EXPECT_FALSE(QVLogForm->isFloating());
  EXPECT_TRUE(QVLogForm->isVisible());
  EXPECT_EQ(host.dockWidgetArea(QVLogForm), Qt::BottomDockWidgetArea);
  QVLogForm->setFloating(true);
  EXPECT_TRUE(QVLogForm->isWindow());
  StopQVLog();
  EXPECT_EQ(host.findChild<QWidget*>(QStringLiteral("QVLogForm")), nullptr) << "a docked form is freed like any other";
}

TEST(QVLog, DockedFormMayGoWithItsMainWindow) {
  auto host = std::make_unique<QMainWindow>();
  StartQVLog();
  host->addDockWidget(Qt::LeftDockWidgetArea, QVLogForm);
  host.reset();
  EXPECT_EQ(QVLogForm, nullptr);
  EXPECT_NO_THROW(StopQVLog());
}

TEST(QVLog, FormHasAnActionListForDocking) {
  const TQVLogForm form;
  EXPECT_NE(dynamic_cast<platform::TActionList*>(platform::FindComponent(form, QStringLiteral("DockActionList"))),
            nullptr);
}

TEST(QVLog, LogAnyNumberOfTimesLeavesTheFormEmpty) {
  StartQVLog();
  for (int round = 0; round < 100; ++round) {
    Log(QStringLiteral("Editor: WM_PAINT"));
    QVLogForm->Log(QStringLiteral("Combo Changed"));
  }
  EXPECT_EQ(MemoOf(*QVLogForm)->toPlainText(), QString());
  StopQVLog();
}

TEST(QVLog, LogWithoutAFormDoesNothing) {
  ASSERT_EQ(QVLogForm, nullptr);
  EXPECT_NO_THROW(Log(QStringLiteral("Editor: WM_PAINT")));
}

TEST(QVLog, StartMakesTheFormAndStopFreesIt) {
  StartQVLog();
  const QPointer<QWidget> form = QVLogForm;
  EXPECT_FALSE(form.isNull());
  StopQVLog();
  EXPECT_TRUE(form.isNull());
  EXPECT_EQ(QVLogForm, nullptr);
}

TEST(QVLog, StopAfterTheFormHasGoneDoesNothing) {
  StartQVLog();
  delete QVLogForm;
  EXPECT_NO_THROW(StopQVLog());
  EXPECT_EQ(QVLogForm, nullptr);
}

TEST(QVLog, AnotherFormsEndLeavesTheOneFormInPlace) {
  StartQVLog();
  { const TQVLogForm other; }
  EXPECT_NE(QVLogForm, nullptr);
  StopQVLog();
}

class SilentClient : public IQVEditorStatClient {
public:
  void CharTyped(char32_t) override {}
};

TEST(QVStatManager, StartAndStopLeaveTheSlotEmpty) {
  EXPECT_EQ(QVEditorStatClient, nullptr);
  QVEditorStatClient = std::make_shared<SilentClient>();
  StartQVStatManager();
  EXPECT_EQ(QVEditorStatClient, nullptr);
  QVEditorStatClient = std::make_shared<SilentClient>();
  StopQVStatManager();
  EXPECT_EQ(QVEditorStatClient, nullptr);
}

} // namespace
} // namespace quorvane
