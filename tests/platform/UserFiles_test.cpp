// SPDX-License-Identifier: MIT
#include "platform/UserFiles.h"

#include "support/EnvironmentVariable.h"
#include "support/PrintQt.h"

#include <gtest/gtest.h>

namespace platform {
namespace {

using support::EnvironmentVariable;

TEST(StateFile, IsBelowTheStateHome) {
  const EnvironmentVariable state("XDG_STATE_HOME", "/state/");
  EXPECT_EQ(StateFile(QStringLiteral("session.json")), QStringLiteral("/state/virelle/session.json"));
}

TEST(StateFile, IsBelowTheHomeDirectoryOtherwise) {
  const EnvironmentVariable home("HOME", "/home/somebody");
  for (const std::optional<QByteArray>& value : {std::optional<QByteArray>(), std::optional<QByteArray>("")}) {
    const EnvironmentVariable state("XDG_STATE_HOME", value);
    EXPECT_EQ(StateFile(QStringLiteral("a")), QStringLiteral("/home/somebody/.local/state/virelle/a"));
  }
}

TEST(StateFile, ARelativeStateHomeCountsAsNone) {
  const EnvironmentVariable home("HOME", "/home/somebody");
  const EnvironmentVariable state("XDG_STATE_HOME", "state");
  EXPECT_EQ(StateFile(QStringLiteral("a")), QStringLiteral("/home/somebody/.local/state/virelle/a"));
}

TEST(StateFile, IsNowhereWithoutAHomeDirectory) {
  const EnvironmentVariable home("HOME", std::nullopt);
  const EnvironmentVariable state("XDG_STATE_HOME", std::nullopt);
  EXPECT_EQ(StateFile(QStringLiteral("a")), QString());
}

} // namespace
} // namespace platform
