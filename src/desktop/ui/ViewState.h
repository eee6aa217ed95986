// SPDX-License-Identifier: MIT
// How a page was shown, in the files that bring it back.
#pragma once

#include <QJsonObject>

namespace desktop {

struct EditState;

QJsonObject toJson(const EditState& state);
// What the object says; zero for what it does not, or where a number is below zero.
EditState editStateOf(const QJsonObject& json);

} // namespace desktop
