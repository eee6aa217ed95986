// SPDX-License-Identifier: MIT
#pragma once

#include "settings/model/QVOptionTable.h"

#include <array>
#include <cstdint>
#include <string>
#include <utility>
#include <variant>

namespace quorvane {

// The state of the controls of the options dialog: one value per row of the table, of the type that the row's kind has.
// A dialog fills its controls from such values and takes them back from its controls; loading, saving and deriving the
// globals work on them alone.
//
// Asking for or setting a value by another type than its own throws std::bad_variant_access.
class TQVOptionValues {
public:
  // The designed values.
  TQVOptionValues();

  // Color: the colour. Item: the item's index from 0, or -1. Spin: the number. HotKey: the shortcut.
  std::int32_t Number(TQVOption option) const { return std::get<std::int32_t>(Slot(option)); }
  // Flag: whether the box is checked.
  bool Flag(TQVOption option) const { return std::get<bool>(Slot(option)); }
  // Character: the whole text of the edit, one byte a character (its Latin-1 code), maybe empty. The place of a Folder,
  // which has no control, stays empty.
  const std::string& Text(TQVOption option) const { return std::get<std::string>(Slot(option)); }
  // Character: the first character of the text, 0 when the text is empty.
  char Character(TQVOption option) const;

  // Brings a number into the limits of its row, as the controls do: above the last is the last, below the first is the
  // first. Colours and shortcuts are taken as they stand.
  void SetNumber(TQVOption option, std::int32_t number);
  void SetFlag(TQVOption option, bool flag) { std::get<bool>(Slot(option)) = flag; }
  void SetText(TQVOption option, std::string text) { std::get<std::string>(Slot(option)) = std::move(text); }

  bool operator==(const TQVOptionValues&) const = default;

private:
  using TValue = std::variant<std::int32_t, bool, std::string>;

  const TValue& Slot(TQVOption option) const { return slots_[static_cast<std::size_t>(option)]; }
  TValue& Slot(TQVOption option) { return slots_[static_cast<std::size_t>(option)]; }

  std::array<TValue, QVOptionTable.size()> slots_;
};

} // namespace quorvane
