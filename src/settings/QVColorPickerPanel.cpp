// SPDX-License-Identifier: MIT
#include "settings/QVColorPickerPanel.h"

#include "settings/QVColorPickerCell.h"
#include "settings/QVColorPickerColors.h"

#include <QApplication>
#include <QKeyEvent>

#include <algorithm>
#include <cstdlib>

namespace quorvane {

namespace {

using platform::TColor;

constexpr int kCell = 20;
constexpr int kMargin = 5;
constexpr int kAutoTop = 4;
constexpr int kFixedTop = 30;
constexpr int kUserTop = 140;
constexpr int kOtherTop = 185;
constexpr int kWidth = kMargin + kColorsPerRow * kCell + kMargin;
constexpr int kHeight = kOtherTop + kCell + kMargin;

} // namespace

TColorPicker::TColorPicker(QWidget* parent) : QFrame(parent) {
  setFrameShape(QFrame::StyledPanel);
  setFixedSize(kWidth, kHeight);
  InitButtons();
}

void TColorPicker::InitButtons() {
  autoBtn_ = AddWideButton(kMargin, kAutoTop, width() - 2 * kMargin);
  autoBtn_->SetTag(AutomaticTag);
  rows_.push_back({autoBtn_});

  const auto addGrid = [this](auto& cells, int top, auto&& prepare) {
    for (int index = 0; index < static_cast<int>(cells.size()); ++index) {
      const int column = index % kColorsPerRow;
      TColBtn*& cell = cells.at(static_cast<std::size_t>(index));
      cell = AddCell(kMargin + kCell * column, top + kCell * (index / kColorsPerRow), {});
      prepare(*cell, index);
      if (column == 0)
        rows_.emplace_back();
      rows_.back().push_back(cell);
    }
  };
  addGrid(fixed_, kFixedTop,
          [](TColBtn& cell, int index) { cell.SetActiveColor(FixedColors.at(static_cast<std::size_t>(index))); });
  addGrid(user_, kUserTop, [this](TColBtn& cell, int index) {
    cell.SetTag(index);
    cell.SetActiveColor(UserColors.at(static_cast<std::size_t>(index)));
    cell.SetTitle(QStringLiteral("User color %1").arg(index + 1));
    connect(&cell, &TColBtn::RightClicked, this, [this, &cell] { BtnRClick(cell); });
  });

  spareBtn_ = AddCell(kMargin, kOtherTop, QStringLiteral("Other color"));
  otherBtn_ = AddWideButton(kMargin + kCell, kOtherTop, width() - 2 * kMargin - kCell);
  otherBtn_->HideSwatch();
  connect(otherBtn_, &TColBtn::clicked, this, &TColorPicker::OtherBtnClick);
  rows_.push_back({spareBtn_, otherBtn_});

  connect(autoBtn_, &TColBtn::clicked, this, [this] { BtnClick(*autoBtn_); });
  focusCell_ = autoBtn_;
  SetAutoBtnCaption(QStringLiteral("Automatic"));
  SetOtherBtnCaption(QStringLiteral("&Other colors..."));
  SetAutomaticColor(platform::clBlack);
}

TColBtn* TColorPicker::AddCell(int left, int top, const QString& title) {
  auto* const cell = new TColBtn(this);
  cell->setGeometry(left, top, kCell, kCell);
  cell->SetTitle(title);
  connect(cell, &TColBtn::clicked, this, [this, cell] { BtnClick(*cell); });
  return cell;
}

TColBtn* TColorPicker::AddWideButton(int left, int top, int width) {
  auto* const button = new TColBtn(this);
  button->setGeometry(left, top, width, kCell);
  return button;
}

QString TColorPicker::AutoBtnCaption() const {
  return autoBtn_->text();
}

void TColorPicker::SetAutoBtnCaption(const QString& caption) {
  autoBtn_->setText(caption);
  autoBtn_->SetTitle(QString(caption).remove(u'&'));
}

QString TColorPicker::OtherBtnCaption() const {
  return otherBtn_->text();
}

void TColorPicker::SetOtherBtnCaption(const QString& caption) {
  otherBtn_->setText(caption);
  otherBtn_->SetTitle(QString(caption).remove(u'&'));
}

TColor TColorPicker::AutomaticColor() const {
  return autoBtn_->ActiveColor();
}

void TColorPicker::SetAutomaticColor(TColor color) {
  autoBtn_->SetActiveColor(color);
}

void TColorPicker::SetFlat(bool flat) {
  flat_ = flat;
  for (const TRow& row : rows_) {
    for (TColBtn* cell : row)
      cell->SetFlat(flat);
  }
}

void TColorPicker::Begin(TColor color, bool automatic) {
  pickedCell_ = nullptr;
  pickedColor_ = color;
  automatic_ = automatic;
  TColBtn& cell = CellOf(color);
  cell.SetActiveColor(color); // the spare swatch may have another
  cell.SetDown(true);
  focusCell_ = &cell;
  cell.setFocus(Qt::PopupFocusReason);
}

TColBtn& TColorPicker::CellOf(TColor color) {
  const auto hasColor = [color](const TColBtn* cell) { return cell->ActiveColor() == color; };
  if (const auto* found = std::ranges::find_if(fixed_, hasColor); found != fixed_.end())
    return **found;
  if (const auto* found = std::ranges::find_if(user_, hasColor); found != user_.end())
    return **found;
  return *spareBtn_;
}

void TColorPicker::Pick(const TColBtn& cell) {
  pickedCell_ = &cell;
  pickedColor_ = cell.ActiveColor();
  automatic_ = cell.Tag() == AutomaticTag;
}

void TColorPicker::BtnClick(TColBtn& cell) {
  Pick(cell);
  // The palette may be gone afterwards.
  QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
  QCoreApplication::sendEvent(parentWidget(), &enter);
}

void TColorPicker::BtnRClick(TColBtn& cell) {
  if (!OnAskColor)
    return;
  OnAskColor(cell.ActiveColor(), [this, &cell](TColor color) {
    cell.SetActiveColor(color);
    UserColors.at(static_cast<std::size_t>(cell.Tag())) = color;
    if (pickedCell_ == &cell)
      Pick(cell);
  });
}

void TColorPicker::OtherBtnClick() {
  if (!OnAskColor)
    return;
  OnAskColor(spareBtn_->ActiveColor(), [this](TColor color) {
    spareBtn_->SetActiveColor(color);
    FocusOn(*spareBtn_);
  });
}

bool TColorPicker::HandleKey(const QKeyEvent& event) {
  for (TColBtn* button : {autoBtn_, otherBtn_}) {
    const QKeySequence mnemonic = button->shortcut();
    if (!mnemonic.isEmpty() && mnemonic == QKeySequence(event.keyCombination())) {
      button->click();
      return true;
    }
  }
  switch (event.key()) {
  case Qt::Key_Left:
    MoveSideways(-1);
    return true;
  case Qt::Key_Right:
    MoveSideways(1);
    return true;
  case Qt::Key_Up:
    MoveVertically(-1);
    return true;
  case Qt::Key_Down:
    MoveVertically(1);
    return true;
  case Qt::Key_Space:
    focusCell_->click();
    return true;
  case Qt::Key_Menu:
    OpenMenuOf(*focusCell_);
    return true;
  case Qt::Key_F10:
    if (event.modifiers() == Qt::ShiftModifier)
      OpenMenuOf(*focusCell_);
    return true;
  default:
    return false;
  }
}

// What the right mouse button does, by key.
void TColorPicker::OpenMenuOf(TColBtn& cell) {
  if (std::ranges::find(user_, &cell) != user_.end())
    BtnRClick(cell);
}

void TColorPicker::FocusOn(TColBtn& cell) {
  focusCell_ = &cell;
  cell.setFocus(Qt::TabFocusReason);
  if (&cell != otherBtn_)
    Pick(cell);
}

std::pair<std::size_t, std::size_t> TColorPicker::FocusPlace() const {
  for (std::size_t row = 0; row < rows_.size(); ++row) {
    const TRow& cells = rows_.at(row);
    if (const auto found = std::ranges::find(cells, focusCell_); found != cells.end())
      return {row, static_cast<std::size_t>(found - cells.begin())};
  }
  return {0, 0};
}

// Along the row, and from its end to the row beside; not further than the first and the last cell.
void TColorPicker::MoveSideways(int step) {
  const auto [row, column] = FocusPlace();
  const TRow& cells = rows_.at(row);
  if (step > 0 ? column + 1 < cells.size() : column > 0)
    FocusOn(*cells.at(step > 0 ? column + 1 : column - 1));
  else if (step > 0 ? row + 1 < rows_.size() : row > 0)
    FocusOn(step > 0 ? *rows_.at(row + 1).front() : *rows_.at(row - 1).back());
}

// To the cell of the row beside whose middle is nearest.
void TColorPicker::MoveVertically(int step) {
  const std::size_t row = FocusPlace().first;
  if (step > 0 ? row + 1 >= rows_.size() : row == 0)
    return;
  const TRow& cells = rows_.at(step > 0 ? row + 1 : row - 1);
  const int middle = focusCell_->geometry().center().x();
  FocusOn(**std::ranges::min_element(
      cells, {}, [middle](const TColBtn* cell) { return std::abs(cell->geometry().center().x() - middle); }));
}

void TColorPicker::MoveToGroup(bool next) {
  const std::array<TColBtn*, 5> groups = {autoBtn_, fixed_.front(), user_.front(), spareBtn_, otherBtn_};
  const auto placeOf = [](const TColBtn* cell) { return std::pair(cell->y(), cell->x()); };
  const auto behind = std::ranges::upper_bound(groups, placeOf(focusCell_), {}, placeOf);
  const std::size_t here = static_cast<std::size_t>(behind - groups.begin()) - 1;
  FocusOn(*groups.at((here + (next ? 1 : groups.size() - 1)) % groups.size()));
}

} // namespace quorvane
