// SPDX-License-Identifier: MIT
#include "desktop/ui/PackagesDialog.h"

#include "desktop/ui/PackageList.h"
#include "support/ModalAnswer.h"
#include "support/PrintQt.h"

#include <gtest/gtest.h>

#include <QFileDialog>
#include <QLabel>
#include <QTemporaryFile>
#include <QTreeWidget>

namespace desktop {
namespace {

// A list of packages without files; loading one whose problem is set fails.
class Packages : public PackageList {
public:
  QList<PackageRow> known;
  QString problem;
  QStringList calls;

  QList<PackageRow> rows() const override { return known; }
  QString load(const QString& fileName) override {
    calls.append(QStringLiteral("load ") + fileName);
    if (!problem.isEmpty())
      return problem;
    row(fileName).loaded = true;
    return {};
  }
  void unload(const QString& fileName) override {
    calls.append(QStringLiteral("unload ") + fileName);
    row(fileName).loaded = false;
  }

private:
  PackageRow& row(const QString& fileName) {
    for (PackageRow& each : known) {
      if (each.fileName == fileName)
        return each;
    }
    known.append({QStringLiteral("Added"), fileName});
    return known.last();
  }
};

class PackagesDialogTest : public testing::Test {
protected:
  PackagesDialogTest() {
    packages.known = {{QStringLiteral("First"), QStringLiteral("/a.so"), true},
                      {QStringLiteral("Second"), QStringLiteral("/b.so"), false}};
  }

  static QTreeWidgetItem& item(const PackagesDialog& dialog, int row) {
    return *dialog.findChild<QTreeWidget*>()->topLevelItem(row);
  }
  static QString problem(const PackagesDialog& dialog) {
    const auto* const label = dialog.findChild<QLabel*>(QStringLiteral("PackageProblem"));
    return label->isHidden() ? QString() : label->text();
  }
  // What the list shows: "+First /a.so" for a package that is loaded, "-..." for another.
  static QStringList rows(const PackagesDialog& dialog) {
    QStringList shown;
    for (int row = 0; row < dialog.findChild<QTreeWidget*>()->topLevelItemCount(); ++row) {
      const QTreeWidgetItem& each = item(dialog, row);
      shown.append((each.checkState(0) == Qt::Checked ? u'+' : u'-') + each.text(0) + u' ' + each.text(1));
    }
    return shown;
  }

  Packages packages;
};

TEST_F(PackagesDialogTest, ListsThePackagesWithACheckForThoseThatAreLoaded) {
  const PackagesDialog dialog(packages);
  EXPECT_EQ(rows(dialog), (QStringList{QStringLiteral("+First /a.so"), QStringLiteral("-Second /b.so")}));
  EXPECT_TRUE(packages.calls.isEmpty());
}

TEST_F(PackagesDialogTest, TakingTheCheckAwayUnloads) {
  const PackagesDialog dialog(packages);
  item(dialog, 0).setCheckState(0, Qt::Unchecked);
  EXPECT_EQ(packages.calls, QStringList{QStringLiteral("unload /a.so")});
  EXPECT_EQ(rows(dialog).constFirst(), QStringLiteral("-First /a.so"));
}

TEST_F(PackagesDialogTest, TheCheckLoads) {
  const PackagesDialog dialog(packages);
  item(dialog, 1).setCheckState(0, Qt::Checked);
  EXPECT_EQ(packages.calls, QStringList{QStringLiteral("load /b.so")});
  EXPECT_EQ(rows(dialog).constLast(), QStringLiteral("+Second /b.so"));
  EXPECT_EQ(problem(dialog), QString());
}

TEST_F(PackagesDialogTest, APackageThatCannotBeLoadedStaysUncheckedAndTheReasonIsSaid) {
  const PackagesDialog dialog(packages);
  packages.problem = QStringLiteral("/b.so: it has <no> table");
  item(dialog, 1).setCheckState(0, Qt::Checked);
  EXPECT_EQ(rows(dialog).constLast(), QStringLiteral("-Second /b.so"));
  EXPECT_EQ(problem(dialog), packages.problem);
}

TEST_F(PackagesDialogTest, TheReasonGoesWithTheNextSuccess) {
  const PackagesDialog dialog(packages);
  packages.problem = QStringLiteral("no");
  item(dialog, 1).setCheckState(0, Qt::Checked);
  packages.problem.clear();
  item(dialog, 1).setCheckState(0, Qt::Checked);
  EXPECT_EQ(problem(dialog), QString());
}

TEST_F(PackagesDialogTest, AddsAPackageByItsFile) {
  QTemporaryFile file;
  ASSERT_TRUE(file.open());
  PackagesDialog dialog(packages);
  const support::ModalAnswer<QFileDialog> answer([&file](QFileDialog& choice) {
    choice.selectNameFilter(choice.nameFilters().constLast());
    choice.selectFile(file.fileName());
    QMetaObject::invokeMethod(&choice, "accept");
  });
  support::clickButton(dialog, QStringLiteral("Add..."));
  EXPECT_EQ(packages.calls, QStringList{QStringLiteral("load ") + file.fileName()});
  EXPECT_EQ(rows(dialog).constLast(), QStringLiteral("+Added ") + file.fileName());
}

} // namespace
} // namespace desktop
