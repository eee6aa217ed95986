// SPDX-License-Identifier: MIT
// Units that get another name, or whose files go, while they are open and parsed.
#include "together/LiveFixture.h"

#include <QDir>
#include <QFileDialog>
#include <QMenu>
#include <QToolButton>

namespace together {
namespace {

using desktop::Page;
using FileDialogAnswer = support::ModalAnswer<QFileDialog>;
using desktop::clicking;
using desktop::MessageBoxAnswer;

// A unit with one routine, and brackets in its heading.
const QByteArray unit = "unit unit1;\ninterface\nuses helper;\nimplementation\n"
                        "procedure Stays(x: T);\nbegin\nend;\nend.\n";
constexpr int heading = 5; // the line of the routine
constexpr int bracket = 16;

class MovedFiles : public LiveFixture {
protected:
  Page* page() const { return window()->currentPage(); }
  QString fileName() const { return page()->document()->fileName(); }

  void openMarked() {
    markInMagenta();
    openLive(unit);
    ASSERT_TRUE(comes(window(), "Stays"));
  }

  bool saveAs(const QString& name) {
    const FileDialogAnswer answer([path = path(name)](QFileDialog& dialog) {
      dialog.selectFile(path);
      QMetaObject::invokeMethod(&dialog, "accept");
    });
    return workspace.files().saveAs(page());
  }

  // Types a further routine and expects outline and marks to follow.
  void expectAlive(const char* routine) {
    putCaret(heading, 1);
    type(QStringLiteral("procedure %1; begin end;\n").arg(QLatin1String(routine)));
    EXPECT_TRUE(support::waitUntil([this, routine] {
      const auto outline = proxyOf(window())->GetPasInfo();
      return outline->GetMethods().contains(routine) && outline->GetMethods().contains("Stays");
    }));
    putCaret(heading + 1, bracket);
    EXPECT_GT(markedPixels(), 0);
  }
};

TEST_F(MovedFiles, AUnitSavedUnderAnotherNameIsStillParsedAndMarked) {
  ASSERT_NO_FATAL_FAILURE(openMarked());
  ASSERT_TRUE(saveAs(QStringLiteral("other.pas")));
  EXPECT_EQ(fileName(), path(QStringLiteral("other.pas")));
  EXPECT_EQ(services->GetTopBuffer()->GetFileName(), path(QStringLiteral("other.pas")));
  expectAlive("Later");
  EXPECT_TRUE(workspace.files().save(page()));
  EXPECT_TRUE(read(QStringLiteral("other.pas")).contains("procedure Later"));
  EXPECT_EQ(read(QStringLiteral("unit.pas")), unit);
}

TEST_F(MovedFiles, TheUsedUnitsOfAUnitSavedElsewhereAreThoseBesideItsNewFile) {
  ASSERT_NO_FATAL_FAILURE(openMarked());
  ASSERT_TRUE(QDir(folder_.path()).mkdir(QStringLiteral("elsewhere")));
  write(QStringLiteral("helper.pas"), "unit helper;\n");
  const QString helper = write(QStringLiteral("elsewhere/helper.pas"), "unit helper;\n");
  ASSERT_TRUE(saveAs(QStringLiteral("elsewhere/unit.pas")));
  const auto& units = *toolbarOf(window()).findChild<QToolButton*>(QStringLiteral("UsedUnits"))->menu();
  ASSERT_TRUE(support::waitUntil([&] { return !units.isEmpty(); }));
  units.actions().constFirst()->trigger();
  EXPECT_EQ(fileName(), helper);
}

TEST_F(MovedFiles, ATextIsLeftAloneWhileItsNameIsNoPascalOne) {
  ASSERT_NO_FATAL_FAILURE(openMarked());
  putCaret(heading, bracket);
  ASSERT_GT(markedPixels(), 0);
  ASSERT_TRUE(saveAs(QStringLiteral("notes.txt")));
  editor()->Repaint();
  EXPECT_EQ(markedPixels(), 0);
  ASSERT_TRUE(runCycles(1)); // the one under way still hands over what it has begun
  const auto outline = proxyOf(window())->GetPasInfo();
  ASSERT_TRUE(runCycles(3));
  EXPECT_EQ(proxyOf(window())->GetPasInfo(), outline);
  ASSERT_TRUE(saveAs(QStringLiteral("again.pas")));
  expectAlive("Later");
}

TEST_F(MovedFiles, AUnitWhoseFileWasDeletedIsParsedOnAndCanBeSavedAgain) {
  ASSERT_NO_FATAL_FAILURE(openMarked());
  ASSERT_TRUE(QFile::remove(fileName()));
  expectAlive("Later");
  const MessageBoxAnswer answer([](QMessageBox& box) {
    EXPECT_TRUE(box.text().contains(QStringLiteral("has been removed")));
    support::clickButton(box, QStringLiteral("Save"));
  });
  EXPECT_TRUE(workspace.files().save(page()));
  EXPECT_TRUE(read(QStringLiteral("unit.pas")).contains("procedure Later"));
  EXPECT_FALSE(page()->document()->isModified());
}

TEST_F(MovedFiles, AUnitWhoseFileWasRenamedIsParsedOnAndSavingLeavesTheRenamedFileAlone) {
  ASSERT_NO_FATAL_FAILURE(openMarked());
  ASSERT_TRUE(QFile::rename(fileName(), path(QStringLiteral("renamed.pas"))));
  expectAlive("Later");
  const MessageBoxAnswer answer(clicking(QStringLiteral("Save")));
  EXPECT_TRUE(workspace.files().save(page()));
  EXPECT_EQ(read(QStringLiteral("renamed.pas")), unit);
  EXPECT_TRUE(read(QStringLiteral("unit.pas")).contains("procedure Later"));
}

TEST_F(MovedFiles, AUnitWhoseFolderHasGoneSaysSoAndLosesNothing) {
  ASSERT_TRUE(QDir(folder_.path()).mkdir(QStringLiteral("sub")));
  openLive(unit, "sub/unit.pas");
  ASSERT_TRUE(comes(window(), "Stays"));
  ASSERT_TRUE(QDir(path(QStringLiteral("sub"))).removeRecursively());
  markInMagenta();
  expectAlive("Later");
  const QString text = editor()->toPlainText();
  QString said;
  {
    const MessageBoxAnswer answers({clicking(QStringLiteral("Save")), [&said](QMessageBox& box) {
                                      said = box.text();
                                      box.accept();
                                    }});
    EXPECT_FALSE(workspace.files().save(page()));
  }
  EXPECT_TRUE(said.contains(path(QStringLiteral("sub/unit.pas")))) << said.toStdString();
  EXPECT_TRUE(page()->document()->isModified());
  EXPECT_EQ(editor()->toPlainText(), text);
  ASSERT_TRUE(saveAs(QStringLiteral("rescued.pas")));
  EXPECT_EQ(QString::fromLatin1(read(QStringLiteral("rescued.pas"))), text);
}

TEST_F(MovedFiles, TheThreadGoesOnWhileANewNameIsAskedFor) {
  ASSERT_NO_FATAL_FAILURE(openMarked());
  const FileDialogAnswer answer([this](QFileDialog& dialog) {
    EXPECT_TRUE(runCycles(3));
    dialog.reject();
  });
  EXPECT_FALSE(workspace.files().saveAs(page()));
}

} // namespace
} // namespace together
