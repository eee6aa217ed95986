// SPDX-License-Identifier: MIT
#pragma once

#include <QButtonGroup>
#include <QGroupBox>
#include <QStringList>

namespace quorvane {

// A group box with radio buttons of which at most one is checked.
class TRadioGroup final : public QGroupBox {
  Q_OBJECT
  Q_PROPERTY(int ItemIndex READ ItemIndex WRITE SetItemIndex)
public:
  // One button per item, from the top; none is checked.
  TRadioGroup(const QString& caption, const QStringList& items, QWidget* parent = nullptr);
  ~TRadioGroup() override;

  // How many buttons there are.
  int ItemCount() const { return static_cast<int>(buttons_.buttons().size()); }
  // The checked button, from 0, or -1 if there is none.
  int ItemIndex() const { return buttons_.checkedId(); }
  // An index that no button has checks none.
  void SetItemIndex(int index);

private:
  QButtonGroup buttons_;
};

} // namespace quorvane
