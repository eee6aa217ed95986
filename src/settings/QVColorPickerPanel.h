// SPDX-License-Identifier: MIT
// The palette's panel: all cells at their places.
#pragma once

#include "platform/Color.h"

#include <QFrame>

#include <array>
#include <functional>
#include <utility>
#include <vector>

namespace quorvane {

class TColBtn;

// The "Automatic" button, the fixed colours, the user's colours, a spare swatch for any other colour, and the button
// that asks for one. The panel knows which colour has been picked last; the palette, which is its parent, decides what
// becomes of it: a click on a cell sends the palette the Enter key.
//
// One cell has the focus. Moving it with the keys picks the colour of the cell that it comes to, and so does giving
// that cell another colour then: what Enter accepts is what the focus shows. Asking for any other colour moves the
// focus to the spare swatch as the keys would. The choice is accepted by a click on the swatch; this is how Space and
// Enter do it.
class TColorPicker final : public QFrame {
  Q_OBJECT
  Q_PROPERTY(QString AutoBtnCaption READ AutoBtnCaption WRITE SetAutoBtnCaption)
  Q_PROPERTY(int AutomaticColor READ AutomaticColor WRITE SetAutomaticColor)
  Q_PROPERTY(bool Flat READ Flat WRITE SetFlat)
  Q_PROPERTY(QString OtherBtnCaption READ OtherBtnCaption WRITE SetOtherBtnCaption)
public:
  // The tag by which the "Automatic" button is told from other cells; no index of a user's colour is as large.
  static constexpr int AutomaticTag = 100;

  // Takes on its final size and the user's colours as they are now.
  explicit TColorPicker(QWidget* parent);

  QString AutoBtnCaption() const;
  void SetAutoBtnCaption(const QString& caption);
  QString OtherBtnCaption() const;
  void SetOtherBtnCaption(const QString& caption);
  platform::TColor AutomaticColor() const;
  void SetAutomaticColor(platform::TColor color);
  bool Flat() const { return flat_; }
  void SetFlat(bool flat);

  // Begins with `color` as the current and picked one: presses its fixed cell, else the user's cell that has it, else
  // the spare swatch, which takes it on; and gives that cell the focus. `automatic` is how the colour came to be
  // picked.
  void Begin(platform::TColor color, bool automatic);

  platform::TColor PickedColor() const { return pickedColor_; }
  // Whether the colour was picked with the "Automatic" button.
  bool IsAutomatic() const { return automatic_; }

  // Asks the user for a colour, beginning with `preset`; `accept` is to be called with the answer, if there is one. Set
  // by the palette.
  std::function<void(platform::TColor preset, std::function<void(platform::TColor)> accept)> OnAskColor;

  // Handles a key that moves the focus or uses the cell that has it. False for any other key.
  bool HandleKey(const QKeyEvent& event);
  // Moves the focus to the next group of cells, or to the one before; from the last group to the first.
  void MoveToGroup(bool next);
  // The cell that has the focus or had it last.
  TColBtn& FocusCell() const { return *focusCell_; }

  // The cells, for tests and whoever wants to look at them: in the order of their places, from the top left.
  TColBtn& AutoBtn() const { return *autoBtn_; }
  TColBtn& FixedBtn(int index) const { return *fixed_.at(static_cast<std::size_t>(index)); }
  TColBtn& UserBtn(int index) const { return *user_.at(static_cast<std::size_t>(index)); }
  TColBtn& SpareBtn() const { return *spareBtn_; }
  TColBtn& OtherBtn() const { return *otherBtn_; }

private:
  using TRow = std::vector<TColBtn*>;

  void InitButtons();
  TColBtn* AddCell(int left, int top, const QString& title);
  TColBtn* AddWideButton(int left, int top, int width);

  void BtnClick(TColBtn& cell);
  void BtnRClick(TColBtn& cell);
  void OtherBtnClick();

  void Pick(const TColBtn& cell);
  TColBtn& CellOf(platform::TColor color);
  void FocusOn(TColBtn& cell);
  // The place of the focus in rows_.
  std::pair<std::size_t, std::size_t> FocusPlace() const;
  void MoveSideways(int step);
  void MoveVertically(int step);
  void OpenMenuOf(TColBtn& cell);

  TColBtn* autoBtn_ = nullptr;
  std::array<TColBtn*, 40> fixed_{};
  std::array<TColBtn*, 16> user_{};
  TColBtn* spareBtn_ = nullptr;
  TColBtn* otherBtn_ = nullptr;
  std::vector<TRow> rows_; // as they stand under each other
  TColBtn* focusCell_ = nullptr;
  const TColBtn* pickedCell_ = nullptr; // whose colour is the picked one; null if it is the one that all began with
  platform::TColor pickedColor_ = platform::clBlack;
  bool automatic_ = false;
  bool flat_ = false;
};

} // namespace quorvane
