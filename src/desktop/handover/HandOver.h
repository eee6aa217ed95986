// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/handover/EditorPlace.h"
#include "desktop/handover/Messages.h"

#include <QStringList>

#include <chrono>
#include <memory>

namespace platform {
class TFileLock;
}

namespace desktop {

// How long an editor that runs may take to answer.
inline constexpr std::chrono::seconds answerTime{5};

struct HandOverOutcome {
  enum class Kind {
    NoEditor, // there is none; this process may be it, and has the lock of the place
    NoAnswer, // there is one, but it did not answer or did not understand; it has not been asked for anything
    Opened,   // the editor has taken the request
    Closed,   // the same, and all files that it could open have been closed since, as the request wanted to know
    Lost      // the same, but the editor ended without telling that they have been closed
  };

  Kind kind = Kind::NoEditor;
  std::unique_ptr<platform::TFileLock> lock; // of NoEditor
  QStringList problems;                      // why files were not opened, one sentence each
};

// The lock of the place if it can be had, so that this process may listen there; or null.
std::unique_ptr<platform::TFileLock> lockOf(const EditorPlace& place);

// Gives `request` to the editor at `place`. Two processes that start at once settle it between them. An editor that is
// busy with a dialog opens the files after it, so that this may take as long as that. Blocks; needs no application
// object.
HandOverOutcome handOver(const OpenRequest& request, const EditorPlace& place,
                         std::chrono::milliseconds patience = answerTime);

} // namespace desktop
