// SPDX-License-Identifier: MIT
// Several programs that save to one registry, and programs that are killed while they save.
#include "platform/RegistryFixture.h"
#include "platform/SavedNames.h"

#include <QProcess>
#include <QRandomGenerator>

#include <chrono>
#include <memory>
#include <set>
#include <thread>

namespace platform {
namespace {

class RegistryProcesses : public RegistryTest {
protected:
  // Starts registry_writer, which sees the test's registry.
  static std::unique_ptr<QProcess> Start(const QStringList& arguments) {
    auto process = std::make_unique<QProcess>();
    process->setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process->start(QStringLiteral(REGISTRY_WRITER), arguments);
    EXPECT_TRUE(process->waitForStarted(60'000)) << process->errorString().toStdString();
    return process;
  }

  // Every name in the file has one and the same value, and what others have in the file is there.
  static void ExpectWholeFile() {
    TRegistry registry;
    ASSERT_TRUE(registry.OpenKey("Other", false));
    EXPECT_EQ(registry.ReadString("Kept"), "kept");
    ASSERT_TRUE(registry.OpenKey("\\" + std::string(savedKey), false));
    std::set<std::string> values;
    for (const char* name : savedNames)
      values.insert(registry.ReadString(name));
    EXPECT_EQ(values.size(), 1U);
  }
};

TEST_F(RegistryProcesses, DoNotLoseEachOthersValues) {
  const QString count = QStringLiteral("100");
  const auto first = Start({QStringLiteral("add"), QStringLiteral("first"), count});
  const auto second = Start({QStringLiteral("add"), QStringLiteral("second"), count});
  for (QProcess* process : {first.get(), second.get()}) {
    ASSERT_TRUE(process->waitForFinished(300'000));
    EXPECT_EQ(process->exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(process->exitCode(), 0);
  }
  TRegistry registry;
  ASSERT_TRUE(registry.OpenKey(savedKey, false));
  EXPECT_EQ(registry.GetValueNames().size(), 200U);
}

TEST_F(RegistryProcesses, KilledWhileSavingLeaveTheOldOrTheNewFile) {
  {
    TRegistry registry;
    registry.OpenKey("Other", true);
    registry.WriteString("Kept", "kept");
  }
  QRandomGenerator random(1);
  for (int round = 0; round < 500 && !HasFailure(); ++round) {
    const auto process = Start({QStringLiteral("loop")});
    ASSERT_TRUE(process->waitForReadyRead(60'000)) << "nothing was saved in round " << round;
    std::this_thread::sleep_for(std::chrono::microseconds(random.bounded(5'000))); // the moment of death, not a wait
    process->kill();
    ASSERT_TRUE(process->waitForFinished(60'000));
    EXPECT_EQ(process->exitStatus(), QProcess::CrashExit);
    ExpectWholeFile();
    EXPECT_LE(Files().size(), 3) << Files().join(u' ').toStdString();
  }
  EXPECT_TRUE(Lines.empty());
}

} // namespace
} // namespace platform
