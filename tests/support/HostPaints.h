// SPDX-License-Identifier: MIT
// Counts the paints of the host itself, whatever an add-in makes of the messages.
#pragma once

#include "platform/Control.h"

namespace support {

// Stands between a control's own window procedure and the procedures of add-ins, so it must be put in place before the
// first add-in and taken out after the last. The control outlives it.
class HostPaints {
public:
  explicit HostPaints(platform::TWinControl& control) : control_(control), previous_(control.WindowProc()) {
    control.SetWindowProc(platform::TWndMethod::Of<&HostPaints::Proc>(*this));
  }
  ~HostPaints() { control_.SetWindowProc(previous_); }
  HostPaints(const HostPaints&) = delete;
  HostPaints& operator=(const HostPaints&) = delete;

  // How many WM_PAINT and WM_ERASEBKGND have reached the host: an add-in paints on either.
  int count = 0;

  void Proc(platform::TMessage& message) {
    count += message.Msg == platform::WM_PAINT || message.Msg == platform::WM_ERASEBKGND;
    previous_(message);
  }

private:
  platform::TWinControl& control_;
  platform::TWndMethod previous_;
};

} // namespace support
