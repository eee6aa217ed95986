// SPDX-License-Identifier: MIT
// What an add-in may do with a host's edit control beyond reading its published properties.
#pragma once

#include "platform/Canvas.h"
#include "platform/Export.h"
#include "platform/Message.h"

namespace platform {

// A window control of the host. The add-in finds it as a component by name and casts it to this class; the class behind
// it is the host's own. Published values (Left, Top, Width, Height, Tag, Hint, CaretX, ...) are read by name through
// QObject::property. Main thread only.
class VIRELLE_PLATFORM TWinControl {
public:
  virtual ~TWinControl();

  // The procedure that receives the control's messages. Replacing it takes effect with the next message; the control's
  // own procedure stays callable for as long as the control lives.
  virtual TWndMethod WindowProc() const = 0;
  virtual void SetWindowProc(const TWndMethod& procedure) = 0;

  // The control's lasting canvas; owned by the control.
  virtual TCanvas& Canvas() = 0;
  // The client area in logical pixels, as the host publishes it for geometry (see the host's own description).
  virtual int ClientWidth() const = 0;
  virtual int ClientHeight() const = 0;
  // The ground colour that the host paints.
  virtual TColor Color() const = 0;

  // Asks for a paint later; several requests before it become one paint.
  virtual void Invalidate() = 0;
  // Paints at once. Inside a paint event of the same control it only asks for a paint later.
  virtual void Repaint() = 0;
};

} // namespace platform
