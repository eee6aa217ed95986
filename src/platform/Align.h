// SPDX-License-Identifier: MIT
// Where a control goes in its form: the form lays out its direct children by this.
#pragma once

#include "platform/Export.h"

#include <QWidget>

namespace platform {

// Aligned controls take their strip from what is left of the form: first all at the top, then bottom, left and right,
// at last the client. Among the controls of one side those with the smaller Top (or Left) that they were moved to come
// first, for the bottom and the right those with the larger; equal ones in the order in which they became children. A
// hidden control takes no room.
enum class TAlign { alNone, alTop, alBottom, alLeft, alRight, alClient };

// The name of the published property that carries the alignment.
inline constexpr const char* AlignProperty = "Align";

// Sets the alignment of `control`. It may be set at any time; a form that aligns its children follows.
VIRELLE_PLATFORM void SetAlign(QWidget& control, TAlign align);
// The alignment of `control`; alNone when none was set.
VIRELLE_PLATFORM TAlign Align(const QWidget& control);

} // namespace platform
