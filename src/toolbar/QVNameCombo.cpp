// SPDX-License-Identifier: MIT
#include "toolbar/QVNameCombo.h"

#include "platform/Application.h"

#include <QAbstractItemView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>
#include <QSignalBlocker>
#include <QStyledItemDelegate>
#include <QWheelEvent>

#include <algorithm>
#include <string_view>
#include <utility>

namespace quorvane {

namespace {

constexpr int kItemHeight = 14;
constexpr int kVisibleItems = 16;
constexpr int kLeastWidth = 60;

// Names are bytes of the text as the host serves it: one a character.
QLatin1String Served(std::string_view name) {
  return QLatin1String(name.data(), static_cast<qsizetype>(name.size()));
}

// Gives every entry the same height, without looking at any but the one asked for.
class TEntryDelegate : public QStyledItemDelegate {
public:
  using QStyledItemDelegate::QStyledItemDelegate;

  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    const int width = QStyledItemDelegate::sizeHint(option, index).width();
    return {width, std::max(kItemHeight, option.fontMetrics.height())};
  }
};

} // namespace

bool TQVNameModel::Equals(const TQVNameList& names) const {
  return std::ranges::equal(FEntries, names,
                            [](const TEntry& entry, const auto& name) { return entry.Name == Served(name.first); });
}

void TQVNameModel::Assign(const TQVNameList& names) {
  std::vector<TEntry> entries;
  entries.reserve(names.size());
  for (const auto& [name, line] : names)
    entries.push_back({Served(name), line});
  beginResetModel();
  FEntries.swap(entries);
  endResetModel();
}

void TQVNameModel::AssignLines(const TQVNameList& names) {
  auto entry = FEntries.begin();
  for (const auto& [name, line] : names)
    (entry++)->Line = line;
}

void TQVNameModel::Add(const QString& name, int line) {
  const int row = rowCount();
  beginInsertRows({}, row, row);
  FEntries.push_back({name, line});
  endInsertRows();
}

void TQVNameModel::Clear() {
  beginResetModel();
  FEntries.clear();
  endResetModel();
}

int TQVNameModel::IndexOf(const QString& name) const {
  const auto found = std::ranges::find_if(
      FEntries, [&](const TEntry& entry) { return entry.Name.compare(name, Qt::CaseInsensitive) == 0; });
  return found == FEntries.end() ? -1 : static_cast<int>(found - FEntries.begin());
}

int TQVNameModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(FEntries.size());
}

QVariant TQVNameModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid())
    return {};
  const TEntry& entry = FEntries[static_cast<std::size_t>(index.row())];
  switch (role) {
  case Qt::DisplayRole:
  case Qt::EditRole:
    return entry.Name;
  case LineRole:
    return entry.Line;
  default:
    return {};
  }
}

TQVNameCombo::TQVNameCombo(int width, QWidget* parent)
    : QComboBox(parent), FNames(new TQVNameModel(this)), FWidth(width) {
  setEditable(true);
  setInsertPolicy(NoInsert);
  setCompleter(nullptr);
  // By itself the box would choose, when it is left, the entry that its text names: the caret of the editor would move
  // although nobody has touched the text.
  disconnect(lineEdit(), SIGNAL(editingFinished()), this, nullptr);
  setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
  setMaximumWidth(width);
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  setFocusPolicy(Qt::StrongFocus);

  setModel(FNames);
  auto* const list = new QListView(this);
  list->setUniformItemSizes(true);
  list->setTextElideMode(Qt::ElideMiddle);
  setView(list);
  list->installEventFilter(this); // after the box itself, so that this comes first
  setItemDelegate(new TEntryDelegate(this));
  setMaxVisibleItems(kVisibleItems);

  connect(this, &QComboBox::activated, this, &TQVNameCombo::Changed);
  connect(lineEdit(), &QLineEdit::textEdited, this, &TQVNameCombo::Changed);
}

void TQVNameCombo::Changed() {
  if (OnChange)
    platform::Guarded(OnChange);
}

void TQVNameCombo::Leave() {
  SetText(FTextBefore, QString(FEntry));
  if (OnLeave)
    platform::Guarded(OnLeave);
}

void TQVNameCombo::Open() {
  if (!isVisible())
    return;
  setFocus(Qt::ShortcutFocusReason);
  lineEdit()->selectAll();
  showPopup();
}

void TQVNameCombo::focusInEvent(QFocusEvent* event) {
  if (event->reason() != Qt::PopupFocusReason) // else it comes back from the box's own list
    FTextBefore = currentText();
  QComboBox::focusInEvent(event);
}

void TQVNameCombo::keyPressEvent(QKeyEvent* event) {
  const bool isPlain = (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
  const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (isPlain && event->key() == Qt::Key_Escape)
    Leave();
  else if (isPlain && isEnter && FNames->IndexOf(currentText()) >= 0)
    Changed();
  else
    QComboBox::keyPressEvent(event);
}

bool TQVNameCombo::eventFilter(QObject* watched, QEvent* event) {
  const bool isEscape =
      event->type() == QEvent::KeyPress && static_cast<const QKeyEvent*>(event)->key() == Qt::Key_Escape;
  if (watched != view() || !isEscape)
    return QComboBox::eventFilter(watched, event);
  hidePopup();
  Leave();
  return true;
}

void TQVNameCombo::SetText(const QString& text, const QString& entry) {
  FEntry = entry;
  GoToEntry();
  if (text == currentText())
    return;
  const QSignalBlocker silence(this);
  setEditText(text);
  lineEdit()->home(false);
}

void TQVNameCombo::GoToEntry() {
  if (itemText(currentIndex()).compare(FEntry, Qt::CaseInsensitive) == 0)
    return;
  const int index = FNames->IndexOf(FEntry);
  if (index != currentIndex())
    KeepingText([&] { setCurrentIndex(index); });
}

template <class TChange> void TQVNameCombo::KeepingText(TChange&& change) {
  const QSignalBlocker silence(this);
  const QString text = currentText();
  const int cursor = lineEdit()->cursorPosition();
  std::forward<TChange>(change)();
  setEditText(text);
  lineEdit()->setCursorPosition(cursor);
}

template <class TChange> void TQVNameCombo::ChangeNames(TChange&& change) {
  KeepingText([&] {
    std::forward<TChange>(change)();
    setCurrentIndex(FNames->IndexOf(FEntry));
  });
}

void TQVNameCombo::SetNames(const TQVNameList& names) {
  if (!SetLines(names))
    ChangeNames([&] { FNames->Assign(names); });
}

bool TQVNameCombo::SetLines(const TQVNameList& names) {
  const bool equal = FNames->Equals(names);
  if (equal)
    FNames->AssignLines(names);
  return equal;
}

void TQVNameCombo::AddName(const QString& name, int line) {
  ChangeNames([&] { FNames->Add(name, line); });
}

void TQVNameCombo::ClearNames() {
  ChangeNames([&] { FNames->Clear(); });
}

bool TQVNameCombo::HasFocus() const {
  return hasFocus() || view()->isVisible();
}

QSize TQVNameCombo::sizeHint() const {
  return {FWidth, QComboBox::sizeHint().height()};
}

QSize TQVNameCombo::minimumSizeHint() const {
  return {std::min(kLeastWidth, FWidth), QComboBox::minimumSizeHint().height()};
}

void TQVNameCombo::wheelEvent(QWheelEvent* event) {
  if (HasFocus())
    QComboBox::wheelEvent(event);
  else
    event->ignore();
}

} // namespace quorvane
