// SPDX-License-Identifier: MIT
#include "settings/QVRadioGroup.h"

#include <QRadioButton>
#include <QVBoxLayout>

namespace quorvane {

TRadioGroup::TRadioGroup(const QString& caption, const QStringList& items, QWidget* parent)
    : QGroupBox(caption, parent) {
  setAccessibleName(caption); // or it goes by the name of the group that it stands in
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(9, 4, 9, 4);
  layout->setSpacing(3);
  for (const QString& item : items) {
    auto* const button = new QRadioButton(item, this);
    buttons_.addButton(button, ItemCount());
    layout->addWidget(button);
  }
  layout->addStretch();
}

TRadioGroup::~TRadioGroup() = default;

void TRadioGroup::SetItemIndex(int index) {
  if (QAbstractButton* const button = buttons_.button(index)) {
    button->setChecked(true);
    return;
  }
  // While the buttons exclude each other, the last one cannot be unchecked.
  buttons_.setExclusive(false);
  if (QAbstractButton* const checked = buttons_.checkedButton())
    checked->setChecked(false);
  buttons_.setExclusive(true);
}

} // namespace quorvane
