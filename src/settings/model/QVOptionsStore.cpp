// SPDX-License-Identifier: MIT
#include "settings/model/QVOptionsStore.h"

#include "settings/model/QVOptions.h"
#include "settings/model/QVShortCutText.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace quorvane {

namespace {

// Templates come up enabled as the flyout bar is, whatever was stored for them; their own value only says whether
// there is something to read. Intended.
std::string_view ReadName(TQVOption option) {
  return RowOf(option == TQVOption::EnableTemplates ? TQVOption::FlyoutBar : option).Value;
}

// Reads one option. False if its value cannot be read; then nothing has changed.
class TReader {
public:
  TReader(IQVRegistry& registry, TQVOptionValues& values) : registry_(registry), values_(values) {}

  bool Read(const TQVOptionRow& row) {
    const std::string_view name = ReadName(row.Option);
    switch (RegistryType(row.Kind)) {
    case TQVRegistryType::Boolean:
      return Take(registry_.ReadBool(name), [&](bool flag) { values_.SetFlag(row.Option, flag); });
    case TQVRegistryType::String:
      return Take(registry_.ReadString(name), [&](std::string text) { TakeText(row, std::move(text)); });
    case TQVRegistryType::Integer:
      break;
    }
    const std::optional<std::int32_t> number = registry_.ReadInteger(name);
    return number && TakeNumber(row, *number);
  }

private:
  template <class TValue, class TSetter> static bool Take(std::optional<TValue> value, TSetter set) {
    if (!value)
      return false;
    set(*std::move(value));
    return true;
  }

  bool TakeNumber(const TQVOptionRow& row, std::int32_t number) {
    if (row.Kind != TQVOptionKind::Character) {
      values_.SetNumber(row.Option, number);
      return true;
    }
    if (!row.Limits.Hold(number))
      return false;
    // An edit ends its text at a character 0.
    values_.SetText(row.Option, number == 0 ? std::string() : std::string(1, static_cast<char>(number)));
    return true;
  }

  void TakeText(const TQVOptionRow& row, std::string text) {
    if (row.Kind == TQVOptionKind::Folder)
      OptStorageDir = std::move(text);
    else
      values_.SetNumber(row.Option, TextToShortCut(text)); // a text that names no key is no shortcut
  }

  IQVRegistry& registry_;
  TQVOptionValues& values_;
};

// Of a value that two options read, only the one whose name it has reports it.
bool IsReadByItsName(const TQVOptionRow& row) {
  return ReadName(row.Option) == row.Value;
}

std::string Unreadable(const TQVOptionRow& row) {
  std::string line = "QVOptions: registry value \"";
  line += row.Value;
  return line + "\" cannot be read; the default stands";
}

// Writing knows no texts of controls.
static_assert(std::ranges::none_of(QVOptionTable, [](const TQVOptionRow& row) {
  const bool isText = row.Kind == TQVOptionKind::Character || row.Kind == TQVOptionKind::Folder;
  return isText && row.Saving == TQVOptionSaving::Written;
}));

void Write(const TQVOptionRow& row, const TQVOptionValues& values, IQVRegistry& registry) {
  switch (RegistryType(row.Kind)) {
  case TQVRegistryType::Boolean:
    registry.WriteBool(row.Value, values.Flag(row.Option));
    break;
  case TQVRegistryType::String:
    registry.WriteString(row.Value, ShortCutToText(static_cast<TShortCut>(values.Number(row.Option))));
    break;
  case TQVRegistryType::Integer:
    registry.WriteInteger(row.Value, values.Number(row.Option));
    break;
  }
}

} // namespace

void LoadOptions(IQVRegistry& registry, TQVOptionValues& values, const TQVReport& report) {
  if (!registry.KeyExists(QVOptionsKey) || !registry.OpenKey(QVOptionsKey, false))
    return;
  TReader reader(registry, values);
  for (const TQVOptionRow& row : QVOptionTable) {
    const bool failed = registry.ValueExists(row.Value) && !reader.Read(row);
    if (failed && IsReadByItsName(row) && report)
      report(Unreadable(row));
  }
  registry.CloseKey();
}

void ApplyOptions(TQVOptionValues& values) {
  if (values.Text(TQVOption::TemplateKey).empty())
    values.SetText(TQVOption::TemplateKey, " ");
  const TQVOptionValues& Controls = values; // the name that the rows go by
#define QV_GLOBAL(global, value) global = (value);
#include "settings/model/QVOptionGlobals.def"
}

void SaveOptions(const TQVOptionValues& values, IQVRegistry& registry, const TQVReport& report) {
  if (!registry.OpenKey(QVOptionsKey, true)) {
    if (report)
      report("QVOptions: the registry key cannot be opened; the options are not saved");
    return;
  }
  // LineNumbers is written first, the others in the order of the table. Intended.
  Write(RowOf(TQVOption::LineNumbers), values, registry);
  for (const TQVOptionRow& row : QVOptionTable) {
    if (row.Saving == TQVOptionSaving::Written && row.Option != TQVOption::LineNumbers)
      Write(row, values, registry);
  }
  registry.CloseKey();
}

} // namespace quorvane
