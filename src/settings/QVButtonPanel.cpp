// SPDX-License-Identifier: MIT
#include "settings/QVButtonPanel.h"

#include <QHBoxLayout>
#include <QPushButton>

namespace quorvane {

namespace {

constexpr QSize kButtonSize(75, 25);
constexpr int kHeight = 37;
constexpr int kMargin = 6;

} // namespace

QWidget* NewButtonPanel(QDialog& form, const TQVPanelButton& ok, const TQVPanelButton& cancel) {
  auto* const panel = new QWidget(&form);
  panel->setMinimumHeight(kHeight);
  auto* const layout = new QHBoxLayout(panel);
  layout->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  layout->addStretch();
  const auto addButton = [&](const TQVPanelButton& with) {
    auto* const button = new QPushButton(QString::fromUtf8(with.Caption), panel);
    button->setObjectName(QLatin1StringView(with.Name));
    button->setMinimumSize(kButtonSize);
    layout->addWidget(button);
    QObject::connect(button, &QPushButton::clicked, &form, [&form, result = with.Result] { form.done(result); });
    return button;
  };
  addButton(ok)->setDefault(true);
  addButton(cancel);
  return panel;
}

} // namespace quorvane
