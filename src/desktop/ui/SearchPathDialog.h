// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/files/SearchPath.h"

#include <QDialog>
#include <QList>

class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;

namespace desktop {

// Edits the folders in which units are looked for: add, remove, reorder, with or without the folders below. Folders
// that do not exist at present are greyed and kept.
class SearchPathDialog : public QDialog {
  Q_OBJECT

public:
  explicit SearchPathDialog(const QList<SearchFolder>& folders, QWidget* parent = nullptr);

  // The list as the user left it.
  QList<SearchFolder> folders() const;

private:
  QTreeWidgetItem* addRow(const SearchFolder& folder);
  QPushButton* makeButton(const char* name, const QString& text, void (SearchPathDialog::*run)());
  void add();
  void remove();
  void moveUp();
  void moveDown();
  void moveRow(int step);
  void enableButtons();

  QTreeWidget* list_;
  QPushButton* remove_;
  QPushButton* up_;
  QPushButton* down_;
};

} // namespace desktop
