// SPDX-License-Identifier: MIT
#include "platform/Component.h"

namespace platform {

QObject* FindComponent(const QObject& owner, const QString& name) {
  // To Qt an empty name stands for any.
  if (name.isEmpty())
    return nullptr;
  return owner.findChild<QObject*>(name, Qt::FindDirectChildrenOnly);
}

QString ClassName(const QObject& object) {
  const QString qualified = QString::fromLatin1(object.metaObject()->className());
  const qsizetype colons = qualified.lastIndexOf(QStringLiteral("::"));
  return colons < 0 ? qualified : qualified.mid(colons + 2);
}

} // namespace platform
