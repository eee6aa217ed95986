// SPDX-License-Identifier: MIT
#include "settings/QVColorPickerColors.h"

#include "platform/Errors.h"
#include "platform/Registry.h"

#include <charconv>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

namespace quorvane {

namespace {

using platform::TColor;

// The key that all programs keep their settings below; this spelling of it is intended.
constexpr std::string_view kSoftwareKey = "SoftWare";

constexpr TUserColors AllWhite() {
  TUserColors colors{};
  colors.fill(platform::clWhite);
  return colors;
}

std::string ValueName(std::size_t index) {
  return std::string("Color") + static_cast<char>('A' + index);
}

std::optional<TColor> ParseColor(const std::string& digits) {
  std::uint32_t value = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value, 16);
  if (error != std::errc() || end != digits.data() + digits.size() || value > platform::clWhite)
    return std::nullopt;
  return static_cast<TColor>(value);
}

TColor ReadColor(const platform::TRegistry& registry, const std::string& name) {
  try {
    return ParseColor(registry.ReadString(name)).value_or(platform::clWhite);
  } catch (const platform::ERegistryException&) {
    return platform::clWhite;
  }
}

} // namespace

TUserColors UserColors = AllWhite();

void ReadUserColors(const QString& regKey) {
  UserColors = AllWhite();
  platform::TRegistry registry;
  if (!registry.OpenKey(kSoftwareKey, false) || !registry.OpenKey(regKey.toStdString(), false))
    return;
  for (std::size_t index = 0; index < UserColors.size(); ++index)
    UserColors.at(index) = ReadColor(registry, ValueName(index));
}

void WriteUserColors(const QString& regKey) {
  platform::TRegistry registry;
  if (!registry.OpenKey(kSoftwareKey, true) || !registry.OpenKey(regKey.toStdString(), true))
    return;
  for (std::size_t index = 0; index < UserColors.size(); ++index) {
    const QString digits = QStringLiteral("%1").arg(UserColors.at(index), 6, 16, QLatin1Char('0')).toUpper();
    registry.WriteString(ValueName(index), digits.toStdString());
  }
  registry.CloseKey();
}

QString ColorName(TColor color, const QPalette& palette) {
  const QColor shown = platform::ToQColor(color, palette, palette.color(QPalette::Button));
  return shown.isValid() ? shown.name().toUpper() : QStringLiteral("No color");
}

} // namespace quorvane
