// SPDX-License-Identifier: MIT
#include "support/fakes/FakeEditWindow.h"

#include "platform/Application.h"

namespace fakes {

TEditWindow::TEditWindow(const QString& name)
    : editor_(new FakeEditControl(this)), actions_(new platform::TActionList(this, QStringLiteral("ActionList1"))) {
  setObjectName(name);
  platform::Screen().AddForm(this);
}

TEditWindow::~TEditWindow() = default;

TOtherForm::TOtherForm(const QString& name) {
  setObjectName(name);
  platform::Screen().AddForm(this);
}

TOtherForm::~TOtherForm() = default;

} // namespace fakes
