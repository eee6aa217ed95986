// SPDX-License-Identifier: MIT
// The images of the add-in: one list for all its controls, addressed by index.
#pragma once

#include <QIcon>

namespace quorvane {

// The indexes, from 0. Other units keep them, so a new image goes to the end. The pages of the options dialog have the
// first three in turn; the buttons of the navigation toolbar share the first two with them. The last three are those of
// the template editor.
enum TQVImageIndex : int {
  qvSectionsImage,       // a page with its sections
  qvUnitsImage,          // units beside each other
  qvWindowsImage,        // a window with a bar at its side
  qvAddTemplateImage,    // a page with a plus
  qvDeleteTemplateImage, // a page with a minus
  qvRenameTemplateImage, // a field with a text cursor
  qvImageCount,
};

// The image with that index; a null icon for any other index. It is drawn anew for each size and in the colours that
// the application has then, so it is sharp on every screen and follows a change from light to dark. Main thread only.
QIcon Images(int index);

} // namespace quorvane
