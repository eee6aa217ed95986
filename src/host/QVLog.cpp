// SPDX-License-Identifier: MIT
#include "host/QVLog.h"

#include "platform/Actions.h"
#include "platform/Application.h"

#include <QPlainTextEdit>

namespace quorvane {

TQVLogForm* QVLogForm = nullptr;

TQVLogForm::TQVLogForm() {
  setObjectName(QStringLiteral("QVLogForm"));
  setWindowTitle(QStringLiteral("Quorvane Debug Log"));
  resize(195, 383);

  auto* memo = new QPlainTextEdit(this);
  memo->setObjectName(QStringLiteral("Memo1"));
  memo->setReadOnly(true);
  setWidget(memo);

  new platform::TActionList(this, QStringLiteral("DockActionList"));
}

TQVLogForm::~TQVLogForm() {
  if (QVLogForm == this)
    QVLogForm = nullptr;
}

void TQVLogForm::Log(const QString&) {}

void Log(const QString& text) {
  if (QVLogForm)
    QVLogForm->Log(text);
}

void StartQVLog() {
  QVLogForm = new TQVLogForm;
  platform::Application().InsertComponent(QVLogForm);
}

void StopQVLog() {
  delete QVLogForm;
}

} // namespace quorvane
