// SPDX-License-Identifier: MIT
#include "settings/QVOptionControls.h"

#include "platform/Color.h"
#include "platform/Errors.h"
#include "settings/model/QVOptions.h"
#include "settings/QVColorPicker.h"
#include "settings/QVHotKey.h"
#include "settings/QVRadioGroup.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QSpinBox>

#include <type_traits>

namespace quorvane {

namespace {

// The options are a leaf that does not include the platform's name of the type.
static_assert(std::is_same_v<TColor, platform::TColor>);

template <class TControl> TControl& ControlOf(const TQVOptionRow& row, const QWidget& form) {
  auto* const control = form.findChild<TControl*>(ControlName(row.Option));
  platform::Require(control != nullptr, "QVOptions");
  return *control;
}

void TakeValue(const TQVOptionRow& row, const QWidget& form, TQVOptionValues& values) {
  switch (row.Kind) {
  case TQVOptionKind::Color:
    values.SetNumber(row.Option, ControlOf<TColorBtn>(row, form).ActiveColor());
    break;
  case TQVOptionKind::Item:
    values.SetNumber(row.Option, ControlOf<TRadioGroup>(row, form).ItemIndex());
    break;
  case TQVOptionKind::Spin:
    values.SetNumber(row.Option, ControlOf<QSpinBox>(row, form).value());
    break;
  case TQVOptionKind::Flag:
    values.SetFlag(row.Option, ControlOf<QCheckBox>(row, form).isChecked());
    break;
  case TQVOptionKind::Character:
    values.SetText(row.Option, ControlOf<QLineEdit>(row, form).text().toLatin1().toStdString());
    break;
  case TQVOptionKind::HotKey:
    values.SetNumber(row.Option, ControlOf<THotKey>(row, form).HotKey());
    break;
  case TQVOptionKind::Folder:
    break;
  }
}

} // namespace

QString ControlName(TQVOption option) {
  const std::string_view name = RowOf(option).Control;
  return QString::fromLatin1(name.data(), static_cast<qsizetype>(name.size()));
}

void ShowValue(TQVOption option, const TQVOptionValues& values, QWidget& form) {
  const TQVOptionRow& row = RowOf(option);
  switch (row.Kind) {
  case TQVOptionKind::Color:
    ControlOf<TColorBtn>(row, form).SetActiveColor(values.Number(option));
    break;
  case TQVOptionKind::Item:
    ControlOf<TRadioGroup>(row, form).SetItemIndex(values.Number(option));
    break;
  case TQVOptionKind::Spin:
    ControlOf<QSpinBox>(row, form).setValue(values.Number(option));
    break;
  case TQVOptionKind::Flag:
    ControlOf<QCheckBox>(row, form).setChecked(values.Flag(option));
    break;
  case TQVOptionKind::Character:
    ControlOf<QLineEdit>(row, form).setText(QString::fromLatin1(values.Text(option)));
    break;
  case TQVOptionKind::HotKey:
    ControlOf<THotKey>(row, form).SetHotKey(values.Number(option));
    break;
  case TQVOptionKind::Folder:
    break; // has no control
  }
}

void ShowValues(const TQVOptionValues& values, QWidget& form) {
  for (const TQVOptionRow& row : QVOptionTable)
    ShowValue(row.Option, values, form);
}

TQVOptionValues TakeValues(const QWidget& form) {
  TQVOptionValues values;
  for (const TQVOptionRow& row : QVOptionTable)
    TakeValue(row, form, values);
  return values;
}

} // namespace quorvane
