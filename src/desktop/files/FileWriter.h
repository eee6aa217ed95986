// SPDX-License-Identifier: MIT
// Replaces a file's contents without a moment at which neither the old nor the new ones exist.
#pragma once

#include <QString>

#include <string_view>

namespace desktop {

// Whether this process has the right to write to the file at `path`.
bool mayWrite(const QString& path);

// Writes `bytes` to the file at `path`, made if it is missing. Returns the reason of a failure, for the user, or an
// empty string. After a failure the file has its old contents; should even that be impossible, the reason names the
// backup that has them.
QString writeFile(const QString& path, std::string_view bytes);

} // namespace desktop
