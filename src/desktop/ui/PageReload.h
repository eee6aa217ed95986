// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace desktop {

class Page;

// Gives `page` what its file holds now, unmodified, as one step to be undone. Caret, selection and the first visible
// line stay on their text. Returns why that is not possible, a sentence for the user, or an empty string.
QString reloadPage(Page& page);

} // namespace desktop
