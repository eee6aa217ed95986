// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/files/TextMatcher.h"

#include <QDialog>
#include <QString>
#include <QStringList>

class QCheckBox;
class QLabel;
class QLayout;
class QLineEdit;
class QPushButton;

namespace desktop {

// What the user wants to find, and where.
struct FindInFilesRequest {
  SearchTerms terms;
  QString folder; // absolute
  QString names = QStringLiteral("*.pas;*.dpr;*.dpk;*.inc;*.pp");
  bool subfolders = true;

  // The wildcards in `names`.
  QStringList patterns() const;
};

// Asks what to find in files, and in which. It can be accepted only with a text or a good pattern and a folder that is
// there; what is wrong stands in the dialog.
class FindInFilesDialog : public QDialog {
  Q_OBJECT

public:
  // Shows `request`. A relative folder counts from the request's.
  explicit FindInFilesDialog(const FindInFilesRequest& request, QWidget* parent = nullptr);

  // What the user has entered.
  FindInFilesRequest request() const;

  void accept() override;

private:
  QLayout* makeFields();
  QLayout* makeOptions();
  void browse();
  void complain(QLineEdit* field, const QString& problem);
  void showEntered();
  QString folder() const;

  QString baseFolder_;
  QLineEdit* text_;
  QLineEdit* folder_;
  QLineEdit* names_;
  QCheckBox* matchCase_;
  QCheckBox* wholeWord_;
  QCheckBox* regularExpression_;
  QCheckBox* subfolders_;
  QLabel* problem_;
  QPushButton* find_ = nullptr;
};

} // namespace desktop
