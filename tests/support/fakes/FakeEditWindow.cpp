// SPDX-License-Identifier: MIT
#include "support/fakes/FakeEditWindow.h"

#include "platform/Application.h"
#include "platform/Hooks.h"

namespace fakes {

TEditWindow::TEditWindow(const QString& name)
    : editor_(new FakeEditControl(this)), actions_(new platform::TActionList(this, QStringLiteral("ActionList1"))) {
  setObjectName(name);
  platform::Screen().AddForm(this);
}

TEditWindow::~TEditWindow() = default;

void TEditWindow::Activate() {
  platform::CallHooks(platform::WH_CBT, platform::HCBT_ACTIVATE, platform::WindowHandle(*this), 0);
}

TOtherForm::TOtherForm(const QString& name) {
  setObjectName(name);
  platform::Screen().AddForm(this);
}

TOtherForm::~TOtherForm() = default;

} // namespace fakes
