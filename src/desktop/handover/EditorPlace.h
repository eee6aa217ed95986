// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>

namespace desktop {

// Where the processes of one user, one display and one place for sessions find the editor that opens files for all of
// them. An editor on another display would open them out of sight, and one with other settings is another editor.
struct EditorPlace {
  QString socket;
  QString lock; // of the editor that listens at the socket; whoever has it finds the socket free or left behind
};

// The place of this process, by its environment, in a folder that no other user can enter: below $XDG_RUNTIME_DIR, or
// else where the session is kept. The folder is made if it is missing. Nothing if there can be no such place. Needs no
// application object.
std::optional<EditorPlace> editorPlace();

} // namespace desktop
