// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

namespace desktop {

// The installed font families whose letters are all of one width, in alphabetical order.
QStringList monospacedFamilies();

} // namespace desktop
