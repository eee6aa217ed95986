// SPDX-License-Identifier: MIT
#include "OpenUnit.h"

#include "PascalTexts.h"

#include "desktop/files/SourceDocument.h"
#include "desktop/ide/IdeServices.h"
#include "desktop/ui/EditWindow.h"
#include "desktop/ui/MainWindow.h"
#include "desktop/ui/Page.h"
#include "platform/ota/Services.h"

#include <QCoreApplication>
#include <QFile>
#include <QKeyEvent>

#include <algorithm>
#include <cmath>

namespace bench {

OpenUnit::OpenUnit(int lines) {
  const QString name = folder_.filePath(QStringLiteral("unit.pas"));
  QFile file(name);
  const std::string text = GeneratedUnit(lines);
  if (!file.open(QIODevice::WriteOnly) || file.write(text.data(), static_cast<qint64>(text.size())) < 0)
    qFatal("the unit could not be written");
  file.close();
  platform::SetBorlandIDEServices(std::make_shared<desktop::IdeServices>(workspace_));
  workspace_.openFile(name);
  workspace_.frameOf(workspace_.topWindow())->show();
  control().setCaret(lines / 2, 1);
  control().showCaret();
  control().setFocus();
  QCoreApplication::processEvents();
}

OpenUnit::~OpenUnit() {
  platform::SetBorlandIDEServices(nullptr);
}

desktop::TEditControl& OpenUnit::control() const {
  return *workspace_.topWindow()->editor();
}

std::shared_ptr<const std::string> OpenUnit::servedText() const {
  return workspace_.topPage()->document()->servedText();
}

void OpenUnit::press(int key, const QString& text) const {
  for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
    QKeyEvent event(type, key, Qt::NoModifier, text);
    QCoreApplication::sendEvent(&control(), &event);
    QCoreApplication::processEvents();
  }
}

double percentile(std::vector<double> values, double part) {
  const auto rank = static_cast<std::ptrdiff_t>(std::ceil(part * static_cast<double>(values.size()))) - 1;
  const auto place = values.begin() + std::clamp<std::ptrdiff_t>(rank, 0, std::ssize(values) - 1);
  std::nth_element(values.begin(), place, values.end());
  return *place;
}

} // namespace bench
