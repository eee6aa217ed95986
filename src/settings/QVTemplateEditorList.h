// SPDX-License-Identifier: MIT
// The list of the template editor.
#pragma once

#include <QListWidget>

#include <functional>

namespace quorvane {

// A list of names of which the user selects one: by mouse, by the keys that move in it, or by typing how a name begins.
// What is selected stays so until something else is. Main thread only.
class TQVTemplateList final : public QListWidget {
public:
  explicit TQVTemplateList(QWidget* parent);

  // The user has selected a name, or clicked on the selected one again. With the mouse it is called when the button
  // goes up, so that it may show a dialog. None of the calls below leads to it.
  std::function<void()> OnClick;

  // Replaces all names. Nothing is selected then.
  void SetNames(const QStringList& names);
  // The row of the selected name, from 0; -1 when none is selected.
  int SelectedRow() const;
  // Selects the name in `row` and scrolls to it; with a row that does not exist, nothing is selected.
  void SelectRow(int row);
  // The selected name, empty when there is none.
  QString SelectedName() const;

protected:
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;
  QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index, const QEvent* event) const override;

private:
  void Click();

  bool pressed_ = false; // a button of the mouse
  bool silent_ = false;  // during the calls from the program
};

} // namespace quorvane
