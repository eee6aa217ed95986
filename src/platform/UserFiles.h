// SPDX-License-Identifier: MIT
// Where the user's own files of this program are.
#pragma once

#include "platform/Export.h"

#include <QString>

namespace platform {

// The path of the settings file `name`: in virelle/ below $XDG_CONFIG_HOME, or below ~/.config without that. Neither
// the file nor the folder need exist. Empty if the user has no home directory, so that there is no such place.
VIRELLE_PLATFORM QString ConfigFile(const QString& name);

// The path of `name`, a file or folder of what the program remembers from run to run: in virelle/ below
// $XDG_STATE_HOME, or below ~/.local/state without that or where it is no absolute path. Otherwise as ConfigFile.
VIRELLE_PLATFORM QString StateFile(const QString& name);

} // namespace platform
