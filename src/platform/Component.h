// SPDX-License-Identifier: MIT
// Components are QObjects: the owner is the parent, the name the object name.
#pragma once

#include "platform/Export.h"

#include <QObject>
#include <QString>

namespace platform {

// The direct child of `owner` named `name` (case matters), or null. Deeper descendants are not looked at.
VIRELLE_PLATFORM QObject* FindComponent(const QObject& owner, const QString& name);

// The class name of `object` without its namespace: "TEditWindow" for desktop::TEditWindow.
VIRELLE_PLATFORM QString ClassName(const QObject& object);

} // namespace platform
