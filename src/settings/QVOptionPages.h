// SPDX-License-Identifier: MIT
// The three pages of the options dialog, with the captions, order and names of their controls.
#pragma once

#include <QTabWidget>

namespace quorvane {

// Adds the pages to `pages`. The controls hold no values yet. Tab leads through them in the order in which they are
// read.
void AddOptionPages(QTabWidget& pages);

} // namespace quorvane
