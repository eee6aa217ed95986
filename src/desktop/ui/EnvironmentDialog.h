// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/files/EnvironmentSettings.h"
#include "desktop/files/SearchPath.h"

#include <QDialog>
#include <QList>

class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QSpinBox;

namespace desktop {

class Appearance;
class TEditControl;

// Edits the host's own settings and where units are looked for. Nothing is changed but the dialog itself: whoever shows
// it takes values() and folders() when it was accepted.
class EnvironmentDialog : public QDialog {
  Q_OBJECT

public:
  // Shows `values` and `folders`; `appearance`, which must outlive the dialog, knows how light and dark look.
  EnvironmentDialog(const EnvironmentValues& values, const QList<SearchFolder>& folders, const Appearance& appearance,
                    QWidget* parent = nullptr);

  // The settings as the user left them; those that the dialog does not show are as they were given. Another size of
  // the font takes the zoom away, since it would not be the size that is seen.
  EnvironmentValues values() const;
  const QList<SearchFolder>& folders() const { return folders_; }

private:
  QGroupBox* makeTextGroup();
  QGroupBox* makeEditingGroup();
  void showValues(const EnvironmentValues& values);
  void restoreDefaults();
  void updatePreview();
  void editFolders();
  void showFolders();

  EnvironmentValues given_;
  QList<SearchFolder> folders_;
  const Appearance& appearance_;
  QComboBox* family_;
  QSpinBox* points_;
  QSpinBox* tabWidth_;
  QComboBox* colours_;
  QCheckBox* addInColours_;
  QCheckBox* bracketPairs_;
  QCheckBox* trimTrailingBlanks_;
  QSpinBox* recoverySeconds_;
  QLabel* folderCount_;
  TEditControl* preview_;
};

} // namespace desktop
