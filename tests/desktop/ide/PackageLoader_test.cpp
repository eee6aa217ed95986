// SPDX-License-Identifier: MIT
#include "desktop/ide/PackageLoader.h"

#include "platform/Application.h"
#include "platform/Errors.h"
#include "support/fakes/DebugRecorder.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <dlfcn.h>

#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

namespace desktop {
namespace {

using Lines = std::vector<std::string>;

QString package(const char* name) {
  return QStringLiteral(TEST_PACKAGES "/") + QString::fromLatin1(name) + QStringLiteral(".so");
}

class PackageLoaderTest : public testing::Test {
protected:
  PackageLoaderTest() {
    platform::Application().ReportPending();
    platform::Application().SetReporter(
        [this](const QString& message, int) { reported_.push_back(message.toStdString()); });
  }
  ~PackageLoaderTest() override {
    platform::Application().ReportPending();
    platform::Application().SetReporter([](const QString&, int) {});
  }

  // The message with which a package is refused, and the unit that is to blame.
  struct Refusal {
    std::string message;
    std::string unit;
  };
  Refusal refusal(const QString& path) {
    try {
      loader_.load(path);
    } catch (const platform::EPackageError& error) {
      return {error.what(), error.Unit()};
    }
    ADD_FAILURE() << path.toStdString() << " was loaded";
    return {};
  }

  // What went to the application's reporter.
  Lines reported() {
    platform::Application().ReportPending();
    return std::exchange(reported_, {});
  }

  fakes::DebugRecorder debug_;
  PackageLoader loader_;
  Lines reported_;
};

const Lines started = {"start First", "start Second", "register Second", "register First"};
const Lines stopped = {"stop Second", "stop First"};

TEST_F(PackageLoaderTest, StartsTheUnitsAndThenRegistersInTheOrderOfContents) {
  loader_.load(package("GoodPackage"));
  EXPECT_EQ(debug_.Take(), started);
  EXPECT_EQ(loader_.loadCount(package("GoodPackage")), 1);
}

TEST_F(PackageLoaderTest, StopsTheUnitsInReverse) {
  loader_.load(package("GoodPackage"));
  debug_.Take();
  EXPECT_TRUE(loader_.unload(package("GoodPackage")));
  EXPECT_EQ(debug_.Take(), stopped);
  EXPECT_EQ(loader_.loadCount(package("GoodPackage")), 0);
}

TEST_F(PackageLoaderTest, StartsAndRegistersAPackageThatIsLoadedTwiceOnlyOnce) {
  loader_.load(package("GoodPackage"));
  debug_.Take();
  loader_.load(package("GoodPackage"));
  EXPECT_EQ(debug_.Take(), Lines());
  EXPECT_EQ(loader_.loadCount(package("GoodPackage")), 2);
}

TEST_F(PackageLoaderTest, StopsAPackageWithItsLastUnload) {
  loader_.load(package("GoodPackage"));
  loader_.load(package("GoodPackage"));
  debug_.Take();
  EXPECT_TRUE(loader_.unload(package("GoodPackage")));
  EXPECT_EQ(debug_.Take(), Lines());
  EXPECT_TRUE(loader_.unload(package("GoodPackage")));
  EXPECT_EQ(debug_.Take(), stopped);
  EXPECT_FALSE(loader_.unload(package("GoodPackage")));
  EXPECT_EQ(debug_.Take(), Lines());
}

TEST_F(PackageLoaderTest, StartsAndRegistersAnewAfterTheLastUnload) {
  loader_.load(package("GoodPackage"));
  loader_.unload(package("GoodPackage"));
  debug_.Take();
  loader_.load(package("GoodPackage"));
  EXPECT_EQ(debug_.Take(), started);
}

TEST_F(PackageLoaderTest, KnowsAPackageByAnyOfItsNames) {
  const QTemporaryDir folder;
  const QString link = folder.filePath(QStringLiteral("Link.so"));
  ASSERT_TRUE(QFile::link(package("GoodPackage"), link));
  loader_.load(link);
  EXPECT_EQ(loader_.loadCount(QStringLiteral(TEST_PACKAGES "/../test_packages/GoodPackage.so")), 1);
  EXPECT_TRUE(loader_.unload(package("GoodPackage")));
}

TEST_F(PackageLoaderTest, KeepsAnUnloadedPackageMapped) {
  loader_.load(package("GoodPackage"));
  loader_.unload(package("GoodPackage"));
  void* const mapped = ::dlopen(QFile::encodeName(package("GoodPackage")).constData(), RTLD_NOW | RTLD_NOLOAD);
  ASSERT_NE(mapped, nullptr);
  ::dlclose(mapped);
}

TEST_F(PackageLoaderTest, UnloadsEverythingWhenItIsDestroyed) {
  {
    PackageLoader loader;
    loader.load(package("GoodPackage"));
    loader.load(package("GoodPackage"));
    debug_.Take();
  }
  EXPECT_EQ(debug_.Take(), stopped);
}

TEST_F(PackageLoaderTest, ReportsWhatARegisterOrAStopThrowsAndGoesOn) {
  loader_.load(package("GoodPackage"));
  EXPECT_EQ(reported(), Lines{"no form to register"});
  loader_.unload(package("GoodPackage"));
  EXPECT_EQ(reported(), Lines{"cannot stop"});
}

TEST_F(PackageLoaderTest, ListsLoadedPackagesWithTheirDescriptions) {
  EXPECT_TRUE(loader_.loadedPackages().empty());
  loader_.load(package("GoodPackage"));
  const std::vector<PackageLoader::Loaded> loaded = loader_.loadedPackages();
  ASSERT_EQ(loaded.size(), 1U);
  EXPECT_EQ(loaded[0].fileName, QFileInfo(package("GoodPackage")).canonicalFilePath());
  EXPECT_EQ(loaded[0].description, QStringLiteral("A good package — ж"));
  loader_.unload(package("GoodPackage"));
  EXPECT_TRUE(loader_.loadedPackages().empty());
}

TEST_F(PackageLoaderTest, RefusesAMissingFileByNameAndReason) {
  const QString path = package("NoSuchPackage");
  EXPECT_EQ(refusal(path).message, path.toStdString() + ": cannot open shared object file: No such file or directory");
}

TEST_F(PackageLoaderTest, RefusesAFileThatIsNoLibraryByNameAndReason) {
  const QTemporaryDir folder;
  QFile text(folder.filePath(QStringLiteral("Text.so")));
  ASSERT_TRUE(text.open(QIODevice::WriteOnly));
  text.write(QByteArray(4096, 'x'));
  text.close();
  EXPECT_EQ(refusal(text.fileName()).message, text.fileName().toStdString() + ": invalid ELF header");
}

TEST_F(PackageLoaderTest, RefusesATruncatedLibraryByNameAndReason) {
  const QTemporaryDir folder;
  QFile whole(package("GoodPackage"));
  ASSERT_TRUE(whole.open(QIODevice::ReadOnly));
  QFile part(folder.filePath(QStringLiteral("Part.so")));
  ASSERT_TRUE(part.open(QIODevice::WriteOnly));
  part.write(whole.read(20));
  part.close();
  EXPECT_EQ(refusal(part.fileName()).message, part.fileName().toStdString() + ": file too short");
}

TEST_F(PackageLoaderTest, RefusesALibraryThatLacksAFunction) {
  const QString path = package("NoFinalizePackage");
  EXPECT_EQ(refusal(path).message, path.toStdString() + ": it exports no function Finalize");
}

TEST_F(PackageLoaderTest, RefusesAPackageWithoutATable) {
  const QString path = package("NoTablePackage");
  EXPECT_EQ(refusal(path).message, path.toStdString() + ": it has no table of its units");
}

TEST_F(PackageLoaderTest, NamesThePackageAndTheUnitThatCannotStart) {
  const Refusal refused = refusal(package("FailingPackage"));
  EXPECT_EQ(refused.message, package("FailingPackage").toStdString() + ": Unit Second: no room");
  EXPECT_EQ(refused.unit, "Second");
}

TEST_F(PackageLoaderTest, LeavesNothingStartedWhenAUnitCannotStart) {
  refusal(package("FailingPackage"));
  EXPECT_EQ(debug_.Take(), (Lines{"start First", "stop First"}));
  EXPECT_EQ(loader_.loadCount(package("FailingPackage")), 0);
  EXPECT_TRUE(loader_.loadedPackages().empty());
  EXPECT_FALSE(loader_.unload(package("FailingPackage")));
  EXPECT_EQ(debug_.Take(), Lines());
}

TEST_F(PackageLoaderTest, RefusesAPackageAgainThatStillCannotStart) {
  refusal(package("FailingPackage"));
  debug_.Take();
  refusal(package("FailingPackage"));
  EXPECT_EQ(debug_.Take(), (Lines{"start First", "stop First"}));
}

TEST_F(PackageLoaderTest, RefusesAPackageThatThrowsWhatIsNoException) {
  const QString path = package("RaisingPackage");
  EXPECT_EQ(refusal(path).message, path.toStdString() + ": Unknown exception");
  EXPECT_EQ(loader_.loadCount(path), 0);
}

TEST_F(PackageLoaderTest, GoesOnWithOtherPackagesAfterARefusal) {
  refusal(package("FailingPackage"));
  refusal(package("NoFinalizePackage"));
  debug_.Take();
  loader_.load(package("GoodPackage"));
  EXPECT_EQ(debug_.Take(), started);
}

TEST_F(PackageLoaderTest, FindsTheAddInBesideTheBinaryFirst) {
  const QTemporaryDir root;
  const QDir folder(root.path());
  ASSERT_TRUE(folder.mkpath(QStringLiteral("bin")));
  ASSERT_TRUE(folder.mkpath(QStringLiteral("lib/virelle")));
  const QString bin = folder.filePath(QStringLiteral("bin"));
  EXPECT_EQ(PackageLoader::findAddIn(bin), QString());
  const QString installed = folder.filePath(QStringLiteral("lib/virelle/Quorvane5.so"));
  ASSERT_TRUE(QFile(installed).open(QIODevice::WriteOnly));
  EXPECT_EQ(PackageLoader::findAddIn(bin), installed);
  const QString beside = folder.filePath(QStringLiteral("bin/Quorvane5.so"));
  ASSERT_TRUE(QFile(beside).open(QIODevice::WriteOnly));
  EXPECT_EQ(PackageLoader::findAddIn(bin), beside);
}

// An exported function of a loaded package, as the host would call it.
std::function<void()> exported(const char* name) {
  void* const handle = ::dlopen(QFile::encodeName(package("GoodPackage")).constData(), RTLD_NOW | RTLD_NOLOAD);
  EXPECT_NE(handle, nullptr);
  const auto function = reinterpret_cast<void (*)()>(::dlsym(handle, name));
  EXPECT_NE(function, nullptr);
  return function;
}

TEST_F(PackageLoaderTest, LetsTheHostCatchExceptionsOfAPackageByTheirType) {
  loader_.load(package("GoodPackage"));
  EXPECT_THROW(exported("RaiseAssertionFailed")(), platform::EAssertionFailed);
  EXPECT_THROW(exported("RaiseEViewClosed")(), platform::EViewClosed);
  EXPECT_THROW(exported("RaiseOutOfRange")(), std::out_of_range);
}

TEST_F(PackageLoaderTest, LetsTheHostReadAnExceptionOfAPackage) {
  loader_.load(package("GoodPackage"));
  try {
    exported("RaiseAssertionFailed")();
    FAIL() << "nothing was thrown";
  } catch (const platform::EAssertionFailed& error) {
    EXPECT_EQ(error.Text(), "raised in the package");
    EXPECT_EQ(error.Unit(), "GoodPackage");
    EXPECT_GT(error.Line(), 0U);
  }
}

} // namespace
} // namespace desktop
