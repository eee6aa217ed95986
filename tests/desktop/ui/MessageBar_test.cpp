// SPDX-License-Identifier: MIT
#include "desktop/ui/MessageBar.h"

#include "support/PrintQt.h"
#include "support/Wait.h"

#include <gtest/gtest.h>

#include <QAbstractButton>

namespace desktop {
namespace {

using Kind = MessageBar::Kind;

TEST(MessageBar, IsHiddenUntilThereIsAMessage) {
  MessageBar bar;
  EXPECT_FALSE(bar.isVisible());
  bar.addMessage(Kind::Error, QStringLiteral("Broken"));
  EXPECT_TRUE(bar.isVisible());
  EXPECT_EQ(bar.messages(), QStringList{QStringLiteral("Broken")});
}

TEST(MessageBar, CountsEqualMessagesInsteadOfRepeatingThem) {
  MessageBar bar;
  bar.addMessage(Kind::Error, QStringLiteral("Broken"), 2);
  EXPECT_EQ(bar.messages(), QStringList{QStringLiteral("Broken (2 times)")});
  bar.addMessage(Kind::Error, QStringLiteral("Broken"));
  EXPECT_EQ(bar.messages(), QStringList{QStringLiteral("Broken (3 times)")});
}

TEST(MessageBar, KeepsTheNewestFewMessages) {
  MessageBar bar;
  for (int number = 1; number <= 6; ++number)
    bar.addMessage(Kind::Information, QString::number(number));
  EXPECT_EQ(bar.messages(),
            (QStringList{QStringLiteral("3"), QStringLiteral("4"), QStringLiteral("5"), QStringLiteral("6")}));
}

TEST(MessageBar, AMessageGoesWithItsCloseButtonAndTheBarWithTheLastOne) {
  MessageBar bar;
  bar.addMessage(Kind::Warning, QStringLiteral("one"));
  bar.addMessage(Kind::Warning, QStringLiteral("two"));
  bar.findChild<QAbstractButton*>(QStringLiteral("CloseMessage"))->click();
  support::settle();
  EXPECT_EQ(bar.messages(), QStringList{QStringLiteral("two")});
  bar.findChild<QAbstractButton*>(QStringLiteral("CloseMessage"))->click();
  EXPECT_TRUE(bar.messages().isEmpty());
  EXPECT_FALSE(bar.isVisible());
}

TEST(MessageBar, ShowsMarkupAsTheTextThatItIs) {
  MessageBar bar;
  bar.addMessage(Kind::Error, QStringLiteral("<b>x</b>"));
  EXPECT_EQ(bar.messages(), QStringList{QStringLiteral("<b>x</b>")});
}

} // namespace
} // namespace desktop
