// SPDX-License-Identifier: MIT
// The host's own settings, which hold for all of its windows.
#pragma once

#include <QObject>
#include <QString>
#include <QStringList>
#include <QTimer>

#include <limits>

namespace desktop {

enum class Colours { Light, Dark, Desktop };

// One value for each row of EnvironmentSettings.def, the default at first.
struct EnvironmentValues {
#define ENVIRONMENT_SETTING(name, type, byDefault, ...) type name = byDefault;
#include "desktop/files/EnvironmentSettings.def"

  friend bool operator==(const EnvironmentValues&, const EnvironmentValues&) = default;
};

// The first and the last number that a setting may be.
struct SettingLimits {
  int first = std::numeric_limits<int>::min();
  int last = std::numeric_limits<int>::max();
};

// Those of each setting, by its name.
struct EnvironmentLimits {
#define ENVIRONMENT_SETTING(name, type, byDefault, ...) SettingLimits name{__VA_ARGS__};
#include "desktop/files/EnvironmentSettings.def"
};
inline constexpr EnvironmentLimits environmentLimits{};

// The settings, kept in a file of the user's. Whoever follows one of them asks for values() and listens to changed():
//
//   connect(&settings, &EnvironmentSettings::changed, this, [&] { use(settings.values().tabWidth); });
//
// The file is a JSON object, {"fontPoints": 12, "colours": "dark"}; what it does not say has its default. All running
// editors share it: each writes only what was changed in it, a moment after the change, and leaves the rest as it is,
// names that it does not know among it. Main thread only.
class EnvironmentSettings : public QObject {
  Q_OBJECT

public:
  // The defaults, kept in memory only until open() is called.
  explicit EnvironmentSettings(QObject* parent = nullptr);
  // Writes what has not been written yet.
  ~EnvironmentSettings() override;

  // Reads the file at `fileName`, which need not exist, and keeps later changes there; an empty name is no place.
  // Returns a sentence for the user if something was wrong, else an empty string. What is damaged or out of its limits
  // has its default then, and the file is kept as it was under a name that ends in ".damaged". A file that cannot be
  // read is left alone: changes are then not kept.
  QString open(const QString& fileName);

  const EnvironmentValues& values() const { return values_; }
  // Takes `values`, with numbers brought into their limits.
  void setValues(const EnvironmentValues& values);
  // Changes a single one: set(&EnvironmentValues::showBlanks, true).
  template <class TValue> void set(TValue EnvironmentValues::*setting, const TValue& value) {
    EnvironmentValues changedValues = values_;
    changedValues.*setting = value;
    setValues(changedValues);
  }

  // Writes at once what has not been written yet. Returns why that is not possible, for the user, or an empty string;
  // the values hold for this run in either case.
  QString save();

Q_SIGNALS:
  // At least one value is another one now.
  void changed();
  // What was changed could not be written, for this reason; told once until it works again.
  void saveFailed(const QString& problem);

private:
  void saveLater();
  QString putAside(const QStringList& bad);

  QString fileName_; // empty while nothing is to be written
  EnvironmentValues values_;
  EnvironmentValues written_; // as the file has them
  QTimer timer_;
  bool failing_ = false; // the last writing has failed, and the user knows
};

} // namespace desktop
