// SPDX-License-Identifier: MIT
// The rows of QVOptions.def as an enumeration and a table that is known to the compiler. Whoever shows, reads, writes
// or resets options goes through this table; nothing else names a registry value or a designed default.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string_view>

namespace quorvane {

// One name per row, in the order in which the options are read.
enum class TQVOption : std::uint8_t {
#define QV_OPTION(value, ...) value,
#include "settings/model/QVOptions.def"
};

// What kind of control holds an option, which also says how it is stored.
enum class TQVOptionKind : std::uint8_t {
  Color,     // colour button: an integer
  Item,      // radio group: the index of its item from 0, -1 for none; an integer
  Spin,      // spin edit: an integer
  Flag,      // check box: a Boolean
  Character, // edit, of which the first character counts: that character's code, an integer
  HotKey,    // hot-key control: the text of the shortcut, a string
  Folder,    // no control: a string
};

// Whether an option goes back to the registry at the end, or changes only when the registry is edited.
enum class TQVOptionSaving : std::uint8_t { Written, ReadOnly };

enum class TQVRegistryType : std::uint8_t { Integer, Boolean, String };

// The first and the last number that a control takes.
struct TQVLimits {
  std::int32_t First = std::numeric_limits<std::int32_t>::min();
  std::int32_t Last = std::numeric_limits<std::int32_t>::max();

  constexpr bool Hold(std::int32_t number) const { return number >= First && number <= Last; }
};

struct TQVOptionRow {
  TQVOption Option;
  std::string_view Value; // name of the registry value
  TQVOptionKind Kind;
  TQVOptionSaving Saving;
  std::int32_t Designed;    // the number, 0 or 1 for a Flag, the code of a Character; 0 for a Folder, which is empty
  std::string_view Control; // object name; empty for a Folder
  TQVLimits Limits;
};

inline constexpr auto QVOptionTable = std::to_array<TQVOptionRow>({
#define QV_OPTION(value, kind, saving, designed, control, ...)                                                         \
  {TQVOption::value, #value, TQVOptionKind::kind, TQVOptionSaving::saving, designed, #control, {__VA_ARGS__}},
#include "settings/model/QVOptions.def"
});

constexpr const TQVOptionRow& RowOf(TQVOption option) {
  return QVOptionTable[static_cast<std::size_t>(option)];
}

constexpr TQVRegistryType RegistryType(TQVOptionKind kind) {
  switch (kind) {
  case TQVOptionKind::Flag:
    return TQVRegistryType::Boolean;
  case TQVOptionKind::HotKey:
  case TQVOptionKind::Folder:
    return TQVRegistryType::String;
  default:
    return TQVRegistryType::Integer;
  }
}

// Controls that nobody has touched, for QVOptionGlobals.def.
struct TQVDesignedControls {
  constexpr std::int32_t Number(TQVOption option) const { return RowOf(option).Designed; }
  constexpr bool Flag(TQVOption option) const { return Number(option) != 0; }
  constexpr char Character(TQVOption option) const { return static_cast<char>(Number(option)); }
};

} // namespace quorvane
