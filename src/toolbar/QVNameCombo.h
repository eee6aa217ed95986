// SPDX-License-Identifier: MIT
// The drop-down lists of the navigation toolbar: names, each with its line.
#pragma once

#include "analysis/QVPasInfo.h"

#include <QAbstractListModel>
#include <QComboBox>
#include <QSize>
#include <QString>
#include <QVariant>

#include <functional>
#include <vector>

namespace quorvane {

// A list of names with a line (from 0) each, in the order they were added.
class TQVNameModel final : public QAbstractListModel {
  Q_OBJECT
public:
  using QAbstractListModel::QAbstractListModel;

  // The role of an entry's line; its name is the display and the edit role.
  static constexpr int LineRole = Qt::UserRole;

  // Whether the names, lines apart, are these in this order. Case matters.
  bool Equals(const TQVNameList& names) const;
  // Replaces all entries at once.
  void Assign(const TQVNameList& names);
  // Takes the lines over. The names must be equal. Nobody is told, since lines are not shown; a combo box would take a
  // change of its current entry for a reason to set its text anew.
  void AssignLines(const TQVNameList& names);
  void Add(const QString& name, int line);
  void Clear();

  // The index (from 0) of the first entry named `name`, without regard to case; -1 when there is none.
  int IndexOf(const QString& name) const;
  // The line of an entry that is there.
  int LineAt(int index) const { return FEntries.at(static_cast<std::size_t>(index)).Line; }

  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;

private:
  struct TEntry {
    QString Name;
    int Line;
  };
  std::vector<TEntry> FEntries;
};

// An editable combo box over a TQVNameModel.
//
// The user's acts are told by OnChange: a typed character, or an entry chosen with the mouse or the keys. The text is
// complete then. Setting text or entries by program tells nothing and never touches what the other has set: replacing
// the entries keeps the text. There is no completion, and leaving the box with the name of an entry in it chooses
// nothing.
//
// Escape, on the text as on the open list, gives up: the text is again what it was when the box got the focus, and
// OnLeave is called. Enter chooses the entry that the text names.
//
// Beside its text the box has a current entry, where its list opens and from where the cursor keys go on. The two are
// set together but may differ, as a text may name a thing more briefly than the list does.
class TQVNameCombo final : public QComboBox {
  Q_OBJECT
public:
  // `width` is the preferred and greatest width in logical pixels; in a narrow window the box gives way.
  TQVNameCombo(int width, QWidget* parent);

  // Called when the user has changed the text. What it throws goes to the application's exception handling.
  std::function<void()> OnChange;
  // Called when the user has given up and wants the focus elsewhere; the same holds for what it throws.
  std::function<void()> OnLeave;

  const TQVNameModel& Names() const { return *FNames; }
  // Shows `text`, and makes the entry named `entry` (without regard to case) the current one, now or as soon as there
  // is such an entry. An empty `entry` means none.
  void SetText(const QString& text, const QString& entry);
  // Makes the entries those of `names`: when just the lines differ, only the lines are touched.
  void SetNames(const TQVNameList& names);
  // Takes over the lines of `names` if the names are those of the entries, and nothing otherwise. Returns which.
  bool SetLines(const TQVNameList& names);
  void AddName(const QString& name, int line);
  void ClearNames();

  // Takes the focus and opens the list, for choosing by the keys. Nothing happens while the box cannot be seen.
  void Open();

  // Whether the keyboard works on this box, be it on its text or on its open list.
  bool HasFocus() const;

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

protected:
  void focusInEvent(QFocusEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  // Only a box that has the focus follows the wheel: rolling over it must not move the editor.
  void wheelEvent(QWheelEvent* event) override;

private:
  void Changed();
  void Leave();
  // Calls `change`, silently and with the text kept.
  template <class TChange> void KeepingText(TChange&& change);
  // The same for a change of the entries.
  template <class TChange> void ChangeNames(TChange&& change);
  // Makes the entry that SetText has named the current one.
  void GoToEntry();

  TQVNameModel* FNames;
  int FWidth;
  QString FEntry;      // that SetText has named
  QString FTextBefore; // when the box got the focus
};

} // namespace quorvane
