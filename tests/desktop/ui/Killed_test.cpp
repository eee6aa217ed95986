// SPDX-License-Identifier: MIT
// An editor that is killed at random moments.
#include "desktop/files/FileFixture.h"

#include "desktop/files/RecoveryFolder.h"

#include <QDir>
#include <QProcess>

#include <algorithm>
#include <random>

namespace desktop {
namespace {

class KilledEditor : public FileTest {
protected:
  // What an editor has told until it was killed.
  struct Told {
    int restored = -1; // with which it began
    int kept = 0;
    int saved = 0;
  };

  // Starts an editor on the file and kills it after it has told so many lines.
  Told runAndKill(int lines) const {
    QProcess editor;
    editor.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    editor.start(QStringLiteral(TYPING_EDITOR), {path(), path("recovery"), QStringLiteral("5")});
    Told told;
    int read = 0;
    while (read < lines && (editor.canReadLine() || editor.waitForReadyRead(120'000)))
      read += take(editor, told);
    editor.kill();
    editor.waitForFinished(120'000);
    take(editor, told); // what it managed to tell before the kill counts
    EXPECT_GE(read, lines) << "the editor did not get on";
    return told;
  }

  static int take(QProcess& editor, Told& told) {
    int lines = 0;
    for (; editor.canReadLine(); ++lines) {
      const QList<QByteArray> words = editor.readLine().trimmed().split(' ');
      const int count = words.last().toInt();
      if (words.first() == "typed")
        told.restored = told.restored < 0 ? count : told.restored;
      else if (words.first() == "kept")
        told.kept = std::max(told.kept, count);
      else if (words.first() == "saved")
        told.saved = count;
    }
    return lines;
  }

  // Whether the text is the beginning of what the editor types.
  static bool isSequence(const std::string& text) {
    for (std::size_t i = 0; i < text.size(); ++i) {
      if (text[i] != (i % 26 == 25 ? '\n' : static_cast<char>('a' + i % 26)))
        return false;
    }
    return true;
  }
};

// Each editor goes on with what the one before has left, so that whatever is lost once is missed in the end.
TEST_F(KilledEditor, LosesNothingThatWasKeptOrSavedAndDamagesNoFile) {
  constexpr int rounds = 100;
  std::mt19937 random(20); // the same moments each time, as far as the system plays along
  std::uniform_int_distribution<int> moment(1, 150);
  write("");
  int safe = 0; // so many characters have to be there
  int restored = 0;
  for (int round = 0; round < rounds; ++round) {
    const Told told = runAndKill(moment(random));
    ASSERT_GE(told.restored, safe) << "round " << round << ": not all came back";
    safe = std::max({safe, told.kept, told.saved});

    const std::string saved = read(path());
    ASSERT_TRUE(isSequence(saved)) << "round " << round << ": " << saved;
    ASSERT_GE(static_cast<int>(saved.size()), told.saved);
    std::size_t found = saved.size();
    const std::vector<OrphanedText> orphans = RecoveryFolder(path("recovery")).takeOrphans();
    ASSERT_LE(orphans.size(), 1U);
    if (!orphans.empty()) {
      const std::optional<RecoveredText> recovered = orphans.front().read();
      ASSERT_TRUE(recovered);
      const std::string kept = savedBytes(*recovered).Bytes;
      ASSERT_TRUE(isSequence(kept)) << "round " << round << ": " << kept;
      found = std::max(found, kept.size());
      ++restored;
    }
    ASSERT_GE(static_cast<int>(found), safe) << "round " << round;
  }
  EXPECT_GT(restored, rounds / 4) << "the editor was hardly ever killed with unsaved text";
  EXPECT_TRUE(QDir(path("recovery")).entryList({QStringLiteral("*.damaged.*")}, QDir::Files | QDir::Hidden).isEmpty());
}

} // namespace
} // namespace desktop
