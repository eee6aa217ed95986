// SPDX-License-Identifier: MIT
#include "desktop/files/EnvironmentSettings.h"

#include "desktop/files/FileFixture.h"
#include "support/PrintQt.h"
#include "support/SignalCount.h"
#include "support/Wait.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace desktop {
namespace {

class EnvironmentSettingsTest : public FileTest {
protected:
  QString file() const { return path("virelle/environment.json"); }
  QString damagedFile() const { return file() + QStringLiteral(".damaged"); }
  void writeFile(const std::string& bytes) const {
    QDir(folder()).mkdir(QStringLiteral("virelle"));
    write(bytes, "virelle/environment.json");
  }
  QJsonObject kept() const { return QJsonDocument::fromJson(QByteArray::fromStdString(read(file()))).object(); }
  QString damageOf(const char* names) const {
    return QStringLiteral("The settings in %1 have values that cannot be used, and the usual ones hold for %2; the "
                          "file was kept as %3.")
        .arg(file(), QString::fromLatin1(names), damagedFile());
  }

  static EnvironmentValues others() {
    EnvironmentValues values;
    values.fontFamily = QStringLiteral("Mono \"x\"");
    values.fontPoints = 13;
    values.tabWidth = 4;
    values.colours = Colours::Desktop;
    values.recoverySeconds = 3;
    values.trimTrailingBlanks = true;
    values.bracketPairs = true;
    values.zoomPoints = -2;
    values.showBlanks = true;
    values.showRightMargin = true;
    return values;
  }
};

TEST_F(EnvironmentSettingsTest, HasItsDefaultsWithoutAFile) {
  EnvironmentSettings settings;
  EXPECT_EQ(settings.open(file()), QString());
  const EnvironmentValues& values = settings.values();
  EXPECT_EQ(values.fontFamily, QString());
  EXPECT_EQ(values.fontPoints, 10);
  EXPECT_EQ(values.tabWidth, 8);
  EXPECT_EQ(values.colours, Colours::Light);
  EXPECT_EQ(values.recoverySeconds, 8);
  EXPECT_FALSE(values.trimTrailingBlanks);
  EXPECT_FALSE(values.bracketPairs);
  EXPECT_EQ(values.zoomPoints, 0);
  EXPECT_FALSE(values.showBlanks);
  EXPECT_FALSE(values.showRightMargin);
}

TEST_F(EnvironmentSettingsTest, OpeningWritesNothing) {
  {
    EnvironmentSettings settings;
    settings.open(file());
  }
  EXPECT_FALSE(QFileInfo::exists(file()));
}

TEST_F(EnvironmentSettingsTest, EveryValueComesBack) {
  {
    EnvironmentSettings settings;
    settings.open(file());
    settings.setValues(others());
    EXPECT_EQ(settings.save(), QString());
  }
  EnvironmentSettings again;
  EXPECT_EQ(again.open(file()), QString());
  EXPECT_EQ(again.values(), others());
}

TEST_F(EnvironmentSettingsTest, TheEndWritesWhatHasNotBeenWritten) {
  {
    EnvironmentSettings settings;
    settings.open(file());
    settings.set(&EnvironmentValues::tabWidth, 4);
  }
  EXPECT_EQ(kept(), (QJsonObject{{QStringLiteral("tabWidth"), 4}}));
}

TEST_F(EnvironmentSettingsTest, ChangesAreWrittenByThemselves) {
  EnvironmentSettings settings;
  settings.open(file());
  settings.set(&EnvironmentValues::showBlanks, true);
  EXPECT_TRUE(support::waitUntil([this] { return QFileInfo::exists(file()); }));
  EXPECT_EQ(kept(), (QJsonObject{{QStringLiteral("showBlanks"), true}}));
}

TEST_F(EnvironmentSettingsTest, ChangedIsToldOnceForAChangeAndNotForNone) {
  EnvironmentSettings settings;
  const support::SignalCount changes(&settings, &EnvironmentSettings::changed);
  settings.setValues(others());
  EXPECT_EQ(changes.count(), 1);
  settings.setValues(others());
  EXPECT_EQ(changes.count(), 1);
}

TEST_F(EnvironmentSettingsTest, OpeningTellsOfTheValuesThatItFinds) {
  writeFile(R"({"tabWidth": 3})");
  EnvironmentSettings settings;
  const support::SignalCount changes(&settings, &EnvironmentSettings::changed);
  settings.open(file());
  EXPECT_EQ(settings.values().tabWidth, 3);
  EXPECT_EQ(changes.count(), 1);
}

TEST_F(EnvironmentSettingsTest, NumbersAreBroughtIntoTheirLimits) {
  EnvironmentSettings settings;
  settings.set(&EnvironmentValues::fontPoints, 500);
  EXPECT_EQ(settings.values().fontPoints, 72);
  settings.set(&EnvironmentValues::tabWidth, -1);
  EXPECT_EQ(settings.values().tabWidth, 1);
  settings.set(&EnvironmentValues::recoverySeconds, 9);
  EXPECT_EQ(settings.values().recoverySeconds, 8);
}

TEST_F(EnvironmentSettingsTest, AStoredValueOutOfItsLimitsOrOfAnotherTypeHasItsDefaultAndTheRestCounts) {
  const std::string bytes = R"({"bracketPairs": 1, "colours": "pink", "fontFamily": 3, "fontPoints": 73, "tabWidth": 5,
                                "recoverySeconds": 2.5})";
  writeFile(bytes);
  EnvironmentSettings settings;
  EXPECT_EQ(settings.open(file()), damageOf("fontFamily, fontPoints, colours, recoverySeconds, bracketPairs"));
  EnvironmentValues understood;
  understood.tabWidth = 5;
  EXPECT_EQ(settings.values(), understood);
  EXPECT_EQ(read(damagedFile()), bytes);
}

TEST_F(EnvironmentSettingsTest, LimitsThemselvesAreAllowed) {
  writeFile(R"({"fontPoints": 6, "tabWidth": 32, "recoverySeconds": 1})");
  EnvironmentSettings settings;
  EXPECT_EQ(settings.open(file()), QString());
  EXPECT_EQ(settings.values().fontPoints, 6);
  EXPECT_EQ(settings.values().tabWidth, 32);
  EXPECT_EQ(settings.values().recoverySeconds, 1);
}

TEST_F(EnvironmentSettingsTest, ADamageIsToldOnceOnly) {
  writeFile(R"({"tabWidth": 0, "fontPoints": 12})");
  {
    EnvironmentSettings settings;
    EXPECT_EQ(settings.open(file()), damageOf("tabWidth"));
  }
  EnvironmentSettings again;
  EXPECT_EQ(again.open(file()), QString());
  EXPECT_EQ(again.values().fontPoints, 12);
}

TEST_F(EnvironmentSettingsTest, AFileThatIsNoObjectIsPutAsideAndToldOf) {
  for (const std::string& bytes : {std::string("{"), std::string("[]"), std::string("\xFF\xFE\x01"),
                                   R"({"tabWidth": 3})" + std::string(2 << 20, ' ')}) {
    writeFile(bytes);
    EnvironmentSettings settings;
    EXPECT_EQ(settings.open(file()),
              QStringLiteral("The settings in %1 are damaged, and the usual ones hold; the file was kept as %2.")
                  .arg(file(), damagedFile()))
        << bytes.substr(0, 20);
    EXPECT_EQ(settings.values(), EnvironmentValues());
    EXPECT_EQ(read(damagedFile()), bytes);
  }
}

TEST_F(EnvironmentSettingsTest, AnEmptyFileIsNoDamage) {
  writeFile("");
  EnvironmentSettings settings;
  EXPECT_EQ(settings.open(file()), QString());
}

TEST_F(EnvironmentSettingsTest, EditorsThatRunAtTheSameTimeKeepEachOthersChanges) {
  EnvironmentSettings one;
  EnvironmentSettings other;
  one.open(file());
  other.open(file());
  one.set(&EnvironmentValues::tabWidth, 4);
  EXPECT_EQ(one.save(), QString());
  other.set(&EnvironmentValues::fontPoints, 12);
  EXPECT_EQ(other.save(), QString());
  EXPECT_EQ(kept(), (QJsonObject{{QStringLiteral("tabWidth"), 4}, {QStringLiteral("fontPoints"), 12}}));
}

TEST_F(EnvironmentSettingsTest, NamesThatItDoesNotKnowStay) {
  writeFile(R"({"later": [1, 2], "tabWidth": 3})");
  EnvironmentSettings settings;
  EXPECT_EQ(settings.open(file()), QString());
  settings.set(&EnvironmentValues::tabWidth, 4);
  EXPECT_EQ(settings.save(), QString());
  EXPECT_EQ(kept()[QStringLiteral("later")].toArray().size(), 2);
  EXPECT_EQ(kept()[QStringLiteral("tabWidth")].toInt(), 4);
}

TEST_F(EnvironmentSettingsTest, WithoutAFileChangesHoldForThisRun) {
  EnvironmentSettings settings;
  settings.setValues(others());
  EXPECT_EQ(settings.save(), QString());
  EXPECT_EQ(settings.values(), others());
}

TEST_F(EnvironmentSettingsTest, AFileThatCannotBeReadIsLeftAlone) {
  QDir(folder()).mkpath(file()); // a folder of that name
  EnvironmentSettings settings;
  EXPECT_EQ(settings.open(file()),
            QStringLiteral("The settings in %1 could not be read: it is no regular file. Changes "
                           "to them will not be kept.")
                .arg(file()));
  settings.setValues(others());
  EXPECT_EQ(settings.save(), QString());
  EXPECT_TRUE(QFileInfo(file()).isDir());
}

TEST_F(EnvironmentSettingsTest, AFolderThatCannotBeMadeIsToldOfOnceAndTheValuesHoldForThisRun) {
  write("a file in the way", "virelle");
  EnvironmentSettings settings;
  EXPECT_EQ(settings.open(file()), QString());
  QStringList problems;
  QObject::connect(&settings, &EnvironmentSettings::saveFailed,
                   [&problems](const QString& problem) { problems.append(problem); });
  settings.setValues(others());
  ASSERT_TRUE(support::waitUntil([&problems] { return !problems.isEmpty(); }));
  EXPECT_TRUE(problems.constFirst().startsWith(QStringLiteral("The settings could not be kept in %1: ").arg(file())));
  EXPECT_EQ(settings.values(), others());
  EXPECT_NE(settings.save(), QString());
  EXPECT_EQ(problems.size(), 1);
}

} // namespace
} // namespace desktop
