// SPDX-License-Identifier: MIT
#include "text/CodePages.h"

#include <algorithm>
#include <cstddef>
#include <initializer_list>

namespace quorvane {
namespace {

constexpr TCodePageTable MakeLatin1() {
  TCodePageTable table{};
  for (std::size_t byte = 0; byte < table.size(); ++byte)
    table[byte] = static_cast<char16_t>(byte);
  return table;
}

constexpr TCodePageTable With(TCodePageTable table, std::size_t firstByte, std::initializer_list<char16_t> characters) {
  for (const char16_t character : characters)
    table[firstByte++] = character;
  return table;
}

constexpr TCodePageTable Latin1Table = MakeLatin1();

constexpr TCodePageTable Windows1252Table =
    With(Latin1Table, 0x80,
         {
             0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, // 80
             0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F, // 88
             0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014, // 90
             0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178  // 98
         });

constexpr TCodePageTable MakeWindows1254() {
  TCodePageTable table = Windows1252Table;
  table[0x8E] = 0x008E;
  table[0x9E] = 0x009E;
  table[0xD0] = 0x011E;
  table[0xDD] = 0x0130;
  table[0xDE] = 0x015E;
  table[0xF0] = 0x011F;
  table[0xFD] = 0x0131;
  table[0xFE] = 0x015F;
  return table;
}

constexpr TCodePageTable Windows1254Table = MakeWindows1254();

constexpr TCodePageTable Windows1250Table =
    With(Latin1Table, 0x80,
         {
             0x20AC, 0x0081, 0x201A, 0x0083, 0x201E, 0x2026, 0x2020, 0x2021, // 80
             0x0088, 0x2030, 0x0160, 0x2039, 0x015A, 0x0164, 0x017D, 0x0179, // 88
             0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014, // 90
             0x0098, 0x2122, 0x0161, 0x203A, 0x015B, 0x0165, 0x017E, 0x017A, // 98
             0x00A0, 0x02C7, 0x02D8, 0x0141, 0x00A4, 0x0104, 0x00A6, 0x00A7, // A0
             0x00A8, 0x00A9, 0x015E, 0x00AB, 0x00AC, 0x00AD, 0x00AE, 0x017B, // A8
             0x00B0, 0x00B1, 0x02DB, 0x0142, 0x00B4, 0x00B5, 0x00B6, 0x00B7, // B0
             0x00B8, 0x0105, 0x015F, 0x00BB, 0x013D, 0x02DD, 0x013E, 0x017C, // B8
             0x0154, 0x00C1, 0x00C2, 0x0102, 0x00C4, 0x0139, 0x0106, 0x00C7, // C0
             0x010C, 0x00C9, 0x0118, 0x00CB, 0x011A, 0x00CD, 0x00CE, 0x010E, // C8
             0x0110, 0x0143, 0x0147, 0x00D3, 0x00D4, 0x0150, 0x00D6, 0x00D7, // D0
             0x0158, 0x016E, 0x00DA, 0x0170, 0x00DC, 0x00DD, 0x0162, 0x00DF, // D8
             0x0155, 0x00E1, 0x00E2, 0x0103, 0x00E4, 0x013A, 0x0107, 0x00E7, // E0
             0x010D, 0x00E9, 0x0119, 0x00EB, 0x011B, 0x00ED, 0x00EE, 0x010F, // E8
             0x0111, 0x0144, 0x0148, 0x00F3, 0x00F4, 0x0151, 0x00F6, 0x00F7, // F0
             0x0159, 0x016F, 0x00FA, 0x0171, 0x00FC, 0x00FD, 0x0163, 0x02D9  // F8
         });

constexpr TCodePageTable Windows1251Table =
    With(Latin1Table, 0x80,
         {
             0x0402, 0x0403, 0x201A, 0x0453, 0x201E, 0x2026, 0x2020, 0x2021, // 80
             0x20AC, 0x2030, 0x0409, 0x2039, 0x040A, 0x040C, 0x040B, 0x040F, // 88
             0x0452, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014, // 90
             0x0098, 0x2122, 0x0459, 0x203A, 0x045A, 0x045C, 0x045B, 0x045F, // 98
             0x00A0, 0x040E, 0x045E, 0x0408, 0x00A4, 0x0490, 0x00A6, 0x00A7, // A0
             0x0401, 0x00A9, 0x0404, 0x00AB, 0x00AC, 0x00AD, 0x00AE, 0x0407, // A8
             0x00B0, 0x00B1, 0x0406, 0x0456, 0x0491, 0x00B5, 0x00B6, 0x00B7, // B0
             0x0451, 0x2116, 0x0454, 0x00BB, 0x0458, 0x0405, 0x0455, 0x0457, // B8
             0x0410, 0x0411, 0x0412, 0x0413, 0x0414, 0x0415, 0x0416, 0x0417, // C0
             0x0418, 0x0419, 0x041A, 0x041B, 0x041C, 0x041D, 0x041E, 0x041F, // C8
             0x0420, 0x0421, 0x0422, 0x0423, 0x0424, 0x0425, 0x0426, 0x0427, // D0
             0x0428, 0x0429, 0x042A, 0x042B, 0x042C, 0x042D, 0x042E, 0x042F, // D8
             0x0430, 0x0431, 0x0432, 0x0433, 0x0434, 0x0435, 0x0436, 0x0437, // E0
             0x0438, 0x0439, 0x043A, 0x043B, 0x043C, 0x043D, 0x043E, 0x043F, // E8
             0x0440, 0x0441, 0x0442, 0x0443, 0x0444, 0x0445, 0x0446, 0x0447, // F0
             0x0448, 0x0449, 0x044A, 0x044B, 0x044C, 0x044D, 0x044E, 0x044F  // F8
         });

// The upper half of a table turned round: its characters in ascending order, each with its byte.
struct TUpperByte {
  char16_t Character;
  unsigned char Byte;
};
using TUpperBytes = std::array<TUpperByte, 128>;

constexpr TUpperBytes TurnRound(const TCodePageTable& table) {
  TUpperBytes bytes{};
  for (std::size_t index = 0; index < bytes.size(); ++index)
    bytes[index] = {table[index + 128], static_cast<unsigned char>(index + 128)};
  std::ranges::sort(bytes, {}, &TUpperByte::Character);
  return bytes;
}

struct TCodePageRow {
  std::string_view Name;
  TCodePageTable Table;
  TUpperBytes UpperBytes;
};

constexpr TCodePageRow MakeRow(std::string_view name, const TCodePageTable& table) {
  return {name, table, TurnRound(table)};
}

// In the order of TCodePage.
constexpr std::array CodePageRows = {MakeRow("windows-1250", Windows1250Table),
                                     MakeRow("windows-1251", Windows1251Table),
                                     MakeRow("windows-1252", Windows1252Table),
                                     MakeRow("windows-1254", Windows1254Table), MakeRow("ISO-8859-1", Latin1Table)};
static_assert(CodePageRows.size() == AllCodePages.size());

const TCodePageRow& RowOf(TCodePage codePage) {
  return CodePageRows[static_cast<std::size_t>(codePage)];
}

} // namespace

std::string_view CodePageName(TCodePage codePage) {
  return RowOf(codePage).Name;
}

const TCodePageTable& CodePageTable(TCodePage codePage) {
  return RowOf(codePage).Table;
}

std::optional<unsigned char> CodePageByte(TCodePage codePage, char16_t character) {
  if (character < 0x80)
    return static_cast<unsigned char>(character);
  const TUpperBytes& bytes = RowOf(codePage).UpperBytes;
  const auto found = std::ranges::lower_bound(bytes, character, {}, &TUpperByte::Character);
  if (found == bytes.end() || found->Character != character)
    return std::nullopt;
  return found->Byte;
}

} // namespace quorvane
