// SPDX-License-Identifier: MIT
#include "desktop/ide/InstalledPackages.h"

#include "platform/Application.h"
#include "support/fakes/DebugRecorder.h"
#include "support/PrintQt.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFileInfo>

namespace desktop {
namespace {

QString package(const char* name) {
  return QFileInfo(QStringLiteral(TEST_PACKAGES "/") + QString::fromLatin1(name) + QStringLiteral(".so"))
      .canonicalFilePath();
}

class InstalledPackagesTest : public testing::Test {
protected:
  InstalledPackagesTest() {
    platform::Application().SetReporter([](const QString&, int) {});
  }
  ~InstalledPackagesTest() override { platform::Application().ReportPending(); }

  const QString good_ = package("GoodPackage");
  const QString description_ = QString::fromUtf8("A good package \xE2\x80\x94 \xD0\xB6");
  fakes::DebugRecorder debug_;
  PackageLoader loader_;
  InstalledPackages packages_{loader_};
};

TEST_F(InstalledPackagesTest, APackageThatWasNeverLoadedIsListedByItsFile) {
  packages_.add(good_);
  EXPECT_EQ(packages_.rows(), (QList<PackageRow>{{QStringLiteral("GoodPackage"), good_, false}}));
  EXPECT_EQ(loader_.loadCount(good_), 0);
}

TEST_F(InstalledPackagesTest, LoadingListsThePackageWithItsOwnDescription) {
  EXPECT_EQ(packages_.load(good_), QString());
  EXPECT_EQ(packages_.rows(), (QList<PackageRow>{{description_, good_, true}}));
}

TEST_F(InstalledPackagesTest, UnloadingKeepsThePackageInTheList) {
  packages_.load(good_);
  debug_.Take();
  packages_.unload(good_);
  EXPECT_EQ(packages_.rows(), (QList<PackageRow>{{description_, good_, false}}));
  EXPECT_EQ(debug_.Take(), (std::vector<std::string>{"stop Second", "stop First"}));
}

TEST_F(InstalledPackagesTest, LoadingAgainStartsThePackageAnew) {
  packages_.load(good_);
  packages_.unload(good_);
  debug_.Take();
  EXPECT_EQ(packages_.load(good_), QString());
  EXPECT_EQ(debug_.Take(),
            (std::vector<std::string>{"start First", "start Second", "register Second", "register First"}));
  EXPECT_TRUE(packages_.rows().constFirst().loaded);
}

TEST_F(InstalledPackagesTest, LoadingWhatIsLoadedDoesNothing) {
  packages_.load(good_);
  packages_.load(good_);
  EXPECT_EQ(loader_.loadCount(good_), 1);
}

TEST_F(InstalledPackagesTest, UnloadingTakesBackEveryLoad) {
  packages_.load(good_);
  loader_.load(good_);
  packages_.unload(good_);
  EXPECT_EQ(loader_.loadCount(good_), 0);
}

TEST_F(InstalledPackagesTest, OtherNamesOfAPackageAreTheSamePackage) {
  packages_.add(good_);
  packages_.load(QDir::current().relativeFilePath(good_));
  packages_.add(QFileInfo(good_).path() + QStringLiteral("/./GoodPackage.so"));
  EXPECT_EQ(packages_.rows(), (QList<PackageRow>{{description_, good_, true}}));
}

TEST_F(InstalledPackagesTest, APackageThatCannotBeLoadedIsNamedWithTheReasonAndNotListed) {
  const QString wrong = package("NoTablePackage");
  const QString reason = packages_.load(wrong);
  EXPECT_TRUE(reason.startsWith(wrong)) << reason.toStdString();
  EXPECT_TRUE(packages_.rows().isEmpty());
}

TEST_F(InstalledPackagesTest, APackageThatFailsStaysListedAsNotLoaded) {
  const QString wrong = package("FailingPackage");
  packages_.add(wrong);
  EXPECT_NE(packages_.load(wrong), QString());
  EXPECT_EQ(packages_.rows(), (QList<PackageRow>{{QStringLiteral("FailingPackage"), wrong, false}}));
}

} // namespace
} // namespace desktop
