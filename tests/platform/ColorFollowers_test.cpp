// SPDX-License-Identifier: MIT
#include "platform/ColorFollowers.h"

#include "platform/Application.h"

#include <gtest/gtest.h>

#include <QStringList>

#include <stdexcept>

namespace platform {
namespace {

class Follower : public IColorFollower {
public:
  explicit Follower(bool raises = false) : raises_(raises) { ColorFollowers().Add(*this); }
  ~Follower() override { ColorFollowers().Remove(*this); }
  bool WouldFollow(bool dark) const override {
    if (raises_)
      throw std::runtime_error("would not say");
    return dark != isDark;
  }
  void Follow(bool dark) override {
    if (raises_)
      throw std::runtime_error("does not follow");
    isDark = dark;
  }

  bool isDark = false;

private:
  bool raises_;
};

TEST(ColorFollowers, AllFollow) {
  const Follower one;
  const Follower other;
  ColorFollowers().Follow(true);
  EXPECT_TRUE(one.isDark);
  EXPECT_TRUE(other.isDark);
}

TEST(ColorFollowers, OneThatWouldIsEnough) {
  Follower one;
  const Follower other;
  one.isDark = true;
  EXPECT_TRUE(ColorFollowers().WouldFollow(true));
  ColorFollowers().Follow(true);
  EXPECT_FALSE(ColorFollowers().WouldFollow(true));
}

TEST(ColorFollowers, WhoIsRemovedIsNotAskedAnyMore) {
  { const Follower gone; }
  EXPECT_FALSE(ColorFollowers().WouldFollow(true));
  ColorFollowers().Follow(true);
}

TEST(ColorFollowers, TheHostHearsOfEachThatIsAdded) {
  int added = 0;
  ColorFollowers().SetOnAdded([&added] { ++added; });
  { const Follower one; }
  ColorFollowers().SetOnAdded({});
  const Follower other;
  EXPECT_EQ(added, 1);
}

TEST(ColorFollowers, OneThatRaisesKeepsNobodyBackAndIsReported) {
  QStringList reported;
  Application().SetReporter([&reported](const QString& message, int) { reported.append(message); });
  const Follower bad(true);
  const Follower good;
  EXPECT_TRUE(ColorFollowers().WouldFollow(true));
  ColorFollowers().Follow(true);
  EXPECT_TRUE(good.isDark);
  Application().ReportPending();
  Application().SetReporter({});
  EXPECT_EQ(reported, (QStringList{QStringLiteral("would not say"), QStringLiteral("does not follow")}));
}

} // namespace
} // namespace platform
