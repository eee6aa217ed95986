// SPDX-License-Identifier: MIT
#include "platform/Actions.h"
#include "platform/Application.h"
#include "platform/Errors.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QWidget>

#include <memory>

using namespace platform;

TEST(ShortCut, IsAVirtualKeyWithModifiers) {
  EXPECT_EQ(ToKeySequence(0xA030), QKeySequence(Qt::SHIFT | Qt::ALT | Qt::Key_0));
  EXPECT_EQ(ToKeySequence(scCtrl | 'F'), QKeySequence(Qt::CTRL | Qt::Key_F));
  EXPECT_EQ(ToKeySequence(0x72), QKeySequence(Qt::Key_F3));
}

TEST(ShortCut, ZeroAndUnknownKeysAreNoShortcut) {
  EXPECT_TRUE(ToKeySequence(0).isEmpty());
  EXPECT_TRUE(ToKeySequence(scCtrl | 0x01).isEmpty());
}

TEST(ShortCut, EveryVirtualKeyComesBackFromQt) {
  int keys = 0;
  for (int code = 1; code < 256; ++code) {
    const int qtKey = QtKey(static_cast<std::uint8_t>(code));
    if (qtKey == 0)
      continue;
    ++keys;
    EXPECT_EQ(VirtualKey(qtKey), code);
  }
  EXPECT_EQ(keys, 10 + 26 + 24 + 15);
}

TEST(Action, ReportsWhatItsHandlerThrows) {
  QObject owner;
  TAction action(&owner);
  action.OnExecute = [] { throw EDivByZero(); };
  QString reported;
  Application().SetReporter([&](const QString& message, int) { reported = message; });
  EXPECT_NO_THROW(action.trigger());
  QCoreApplication::processEvents();
  Application().SetReporter({});
  EXPECT_EQ(reported, QStringLiteral("Division by zero"));
}

TEST(ActionList, KeepsOrderAndFindsByName) {
  QWidget form;
  TActionList list(&form, QStringLiteral("ActionList1"));
  QAction one;
  QAction two;
  two.setObjectName(QStringLiteral("SearchGoToCommand"));
  list.Add(&one);
  list.Add(&two);
  list.Add(&one);
  EXPECT_EQ(list.Actions(), (QList<QAction*>{&one, &two}));
  EXPECT_EQ(list.Find(QStringLiteral("SearchGoToCommand")), &two);
  EXPECT_EQ(list.Find(QStringLiteral("SearchFindCommand")), nullptr);
  EXPECT_EQ(form.actions(), list.Actions());
}

TEST(ActionList, ForgetsADestroyedAction) {
  QWidget form;
  TActionList list(&form, QStringLiteral("ActionList1"));
  auto action = std::make_unique<TAction>(nullptr);
  list.Add(action.get());
  action.reset();
  EXPECT_TRUE(list.Actions().isEmpty());
}

TEST(ActionList, OutlivesItsRemovedActions) {
  QWidget form;
  TActionList list(&form, QStringLiteral("ActionList1"));
  QAction action;
  list.Add(&action);
  list.Remove(&action);
  EXPECT_TRUE(list.Actions().isEmpty());
  EXPECT_TRUE(form.actions().isEmpty());
}
