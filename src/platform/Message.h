// SPDX-License-Identifier: MIT
// Window messages: how an edit control tells what happens to it, and how an add-in steps in between.
//
// A control turns each Qt event it cares about into one TMessage and gives it to its window procedure. The control's
// own procedure does the host's work (it hands the event, carried by LParam, to Qt); an add-in may put its own
// procedure in place of it and call the earlier one whenever it wants the host to act.
#pragma once

#include <cstdint>

namespace platform {

// What happened. The numbers are those of the messages' classic names.
enum TMessageCode : unsigned {
  WM_DESTROY = 0x0002,       // the control is being destroyed; sent first of all in its destructor
  WM_SETFOCUS = 0x0007,      // the control has got the keyboard focus
  WM_KILLFOCUS = 0x0008,     // the control has lost the keyboard focus
  WM_PAINT = 0x000F,         // the whole control is to be painted
  WM_ERASEBKGND = 0x0014,    // the ground is to be cleared: first show, resize, change of palette or document
  WM_KEYDOWN = 0x0100,       // a key press; WParam is the key code
  WM_KEYUP = 0x0101,         // a key release that is no auto-repeat; WParam is the key code
  WM_CHAR = 0x0102,          // a typed character; WParam is its code point; the default inserts it
  WM_HSCROLL = 0x0114,       // the view was scrolled sideways by scroll bar or wheel
  WM_VSCROLL = 0x0115,       // the view was scrolled up or down by scroll bar or wheel
  WM_LBUTTONDBLCLK = 0x0203, // double click with the left button
  WM_USER = 0x0400,          // never sent by a host: free for an add-in's own messages
  CN_KEYDOWN = 0xBD00,       // a key press, once a key, before the action list sees it; WParam is the key code
};

// One message. It is passed by reference and lives during the call.
struct TMessage {
  unsigned Msg = 0;          // a TMessageCode
  std::uintptr_t WParam = 0; // by message
  std::intptr_t LParam = 0;  // the QEvent behind the message as an address, or 0 when there is none
  std::intptr_t Result = 0;  // what the procedure answers
};

// A window procedure: an object and one of its functions. Two are equal when object and function are, which is how an
// add-in and its tests see whether a procedure is still in place. Does not own the object.
class TWndMethod {
public:
  TWndMethod() = default;

  // The procedure `(object.*Function)(message)`, made as TWndMethod::Of<&TClass::Function>(object).
  template <auto Function, class TObject> static TWndMethod Of(TObject& object) {
    return TWndMethod(&object,
                      [](void* target, TMessage& message) { (static_cast<TObject*>(target)->*Function)(message); });
  }

  // Calls the procedure; it must be set. What it throws passes to the caller.
  void operator()(TMessage& message) const { code_(object_, message); }

  explicit operator bool() const { return code_ != nullptr; }
  friend bool operator==(const TWndMethod&, const TWndMethod&) = default;

private:
  using TCode = void (*)(void* object, TMessage& message);
  TWndMethod(void* object, TCode code) : object_(object), code_(code) {}

  void* object_ = nullptr;
  TCode code_ = nullptr;
};

} // namespace platform
