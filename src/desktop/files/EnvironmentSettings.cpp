// SPDX-License-Identifier: MIT
#include "desktop/files/EnvironmentSettings.h"

#include "platform/FileError.h"
#include "platform/SafeFile.h"

#include <QCoreApplication>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QJsonValue>

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace desktop {

namespace {

constexpr std::size_t mostBytes = 1 << 20; // of a file that somebody can have meant
constexpr qsizetype mostCharacters = 200;  // of a text

constexpr std::array<const char*, 3> colourNames = {"light", "dark", "desktop"}; // by Colours

QString message(const char* text) {
  return QCoreApplication::translate("EnvironmentSettings", text);
}

// Each type of a setting as JSON, and back: nothing when the JSON is no value of the setting.
QJsonValue toJson(bool value) {
  return value;
}
QJsonValue toJson(int value) {
  return value;
}
QJsonValue toJson(const QString& value) {
  return value;
}
QJsonValue toJson(Colours value) {
  return QString::fromLatin1(colourNames[static_cast<std::size_t>(value)]);
}

bool take(const QJsonValue& json, SettingLimits, bool& value) {
  value = json.toBool(value);
  return json.isBool();
}
bool take(const QJsonValue& json, SettingLimits limits, int& value) {
  // Neither a fraction nor a number beyond the range of int is taken for another one.
  const double number = json.toDouble();
  if (!json.isDouble() || !(number >= limits.first && number <= limits.last) || number != static_cast<int>(number))
    return false;
  value = static_cast<int>(number);
  return true;
}
bool take(const QJsonValue& json, SettingLimits, QString& value) {
  if (!json.isString() || json.toString().size() > mostCharacters)
    return false;
  value = json.toString();
  return true;
}
bool take(const QJsonValue& json, SettingLimits, Colours& value) {
  const auto found = std::find(colourNames.begin(), colourNames.end(), json.toString().toStdString());
  if (found == colourNames.end())
    return false;
  value = static_cast<Colours>(found - colourNames.begin());
  return true;
}

template <class TValue> void limit(TValue&, SettingLimits) {}
void limit(int& value, SettingLimits limits) {
  value = std::clamp(value, limits.first, limits.last);
}

// What the bytes of a file say. An empty file says nothing, and that is no damage.
std::optional<QJsonObject> parse(std::string_view bytes) {
  if (bytes.empty())
    return QJsonObject();
  if (bytes.size() > mostBytes)
    return std::nullopt;
  const QJsonDocument document =
      QJsonDocument::fromJson(QByteArray(bytes.data(), static_cast<qsizetype>(bytes.size())));
  return document.isObject() ? std::optional(document.object()) : std::nullopt;
}

// The values of `object`, and the names of those that cannot be used.
EnvironmentValues valuesOf(const QJsonObject& object, QStringList& bad) {
  EnvironmentValues values;
#define ENVIRONMENT_SETTING(name, ...)                                                                                 \
  if (const auto key = QLatin1StringView(#name);                                                                       \
      object.contains(key) && !take(object[key], environmentLimits.name, values.name))                                 \
    bad.append(key);
#include "desktop/files/EnvironmentSettings.def"
  return values;
}

// `bytes` with what differs between `before` and `after`, without what cannot be used.
std::string changedBytes(std::string_view bytes, const EnvironmentValues& before, const EnvironmentValues& after) {
  QJsonObject object = parse(bytes).value_or(QJsonObject());
  QStringList bad;
  valuesOf(object, bad);
  for (const QString& name : bad)
    object.remove(name);
#define ENVIRONMENT_SETTING(name, ...)                                                                                 \
  if (before.name != after.name)                                                                                       \
    object[QLatin1StringView(#name)] = toJson(after.name);
#include "desktop/files/EnvironmentSettings.def"
  return QJsonDocument(object).toJson().toStdString();
}

// Copies the file at `path` to the name that damaged files have, if there is something wrong with it.
void keepDamaged(const QString& path) {
  QStringList bad;
  const std::optional<QJsonObject> object = parse(platform::TSafeFile(path).Read());
  if (object)
    valuesOf(*object, bad);
  if (object && bad.isEmpty())
    return;
  const QString aside = path + QStringLiteral(".damaged");
  QFile::remove(aside);
  if (!QFile::copy(path, aside))
    throw platform::EFileError("it is damaged, and cannot be kept as " + aside.toStdString());
}

} // namespace

EnvironmentSettings::EnvironmentSettings(QObject* parent) : QObject(parent) {
  timer_.setSingleShot(true);
  timer_.setInterval(300); // turning the wheel changes the size of the text many times
  connect(&timer_, &QTimer::timeout, this, &EnvironmentSettings::saveLater);
}

EnvironmentSettings::~EnvironmentSettings() {
  save(); // there is nobody left to be told
}

QString EnvironmentSettings::open(const QString& fileName) {
  save();
  fileName_.clear();
  const EnvironmentValues before = std::exchange(values_, {});
  written_ = {};
  QString problem;
  try {
    const std::string bytes = platform::TSafeFile(fileName).Read();
    fileName_ = fileName;
    const std::optional<QJsonObject> object = parse(bytes);
    QStringList bad;
    values_ = written_ = valuesOf(object.value_or(QJsonObject()), bad);
    if (!object || !bad.isEmpty())
      problem = putAside(bad);
  } catch (const platform::EFileError& error) {
    problem = message("The settings in %1 could not be read: %2. Changes to them will not be kept.")
                  .arg(fileName, QString::fromUtf8(error.what()));
  }
  if (values_ != before)
    Q_EMIT changed();
  return problem;
}

QString EnvironmentSettings::putAside(const QStringList& bad) {
  const QString aside = fileName_ + QStringLiteral(".damaged");
  try {
    platform::TSafeFile(fileName_).Change([](std::string_view bytes) { return changedBytes(bytes, {}, {}); },
                                          keepDamaged);
  } catch (const platform::EFileError& error) {
    const QString problem = message("The settings in %1 are damaged: %2. Changes to them will not be kept.")
                                .arg(fileName_, QString::fromUtf8(error.what()));
    fileName_.clear();
    return problem;
  }
  return bad.isEmpty()
             ? message("The settings in %1 are damaged, and the usual ones hold; the file was kept as %2.")
                   .arg(fileName_, aside)
             : message("The settings in %1 have values that cannot be used, and the usual ones hold for %2; the file "
                       "was kept as %3.")
                   .arg(fileName_, bad.join(QStringLiteral(", ")), aside);
}

void EnvironmentSettings::setValues(const EnvironmentValues& values) {
  EnvironmentValues limited = values;
#define ENVIRONMENT_SETTING(name, ...) limit(limited.name, environmentLimits.name);
#include "desktop/files/EnvironmentSettings.def"
  if (limited == values_)
    return;
  values_ = limited;
  timer_.start();
  Q_EMIT changed();
}

QString EnvironmentSettings::save() {
  timer_.stop();
  if (fileName_.isEmpty() || values_ == written_)
    return {};
  try {
    const platform::TSafeFile file(fileName_);
    file.MakeFolder();
    file.Change([this](std::string_view bytes) { return changedBytes(bytes, written_, values_); }, keepDamaged);
  } catch (const platform::EFileError& error) {
    failing_ = true;
    return message("The settings could not be kept in %1: %2.").arg(fileName_, QString::fromUtf8(error.what()));
  }
  written_ = values_;
  failing_ = false;
  return {};
}

void EnvironmentSettings::saveLater() {
  const bool known = failing_;
  const QString problem = save();
  if (!problem.isEmpty() && !known)
    Q_EMIT saveFailed(problem);
}

} // namespace desktop
