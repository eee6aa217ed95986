// SPDX-License-Identifier: MIT
// The window procedure of the proxy: the host paints and acts, the additions go on top.
#include "editor/QVEditorProxy.h"

#include "host/QVLog.h"
#include "settings/model/QVOptions.h"
#include "toolbar/QVLineNumbers.h"

namespace quorvane {

namespace {

// Whether the lines shown or the caret's line may be others after a message, or the file another.
bool MayMoveLines(unsigned code) {
  switch (code) {
  case platform::WM_SETFOCUS:
  case platform::WM_PAINT:
  case platform::WM_VSCROLL:
  case platform::CN_KEYDOWN:
    return true;
  default:
    return false;
  }
}

} // namespace

void TQVEditorProxy::EditorWndProc(platform::TMessage& message) {
  const unsigned code = message.Msg;
  // Nobody tells of a file that has been opened, but no key reaches it before one of these.
  if (MayMoveLines(code))
    ResumeMarkers();
  Dispatch(message);
  // The proxy may be gone by now.
  if (OptShowLineNumbers && !OptLinesInGutter && MayMoveLines(code))
    PollLineNumbers();
}

void TQVEditorProxy::Dispatch(platform::TMessage& message) {
  switch (message.Msg) {
  case platform::WM_DESTROY:
    return EditorWMDestroy(message);
  case platform::WM_SETFOCUS:
  case platform::WM_KEYUP:
  case platform::WM_HSCROLL:
  case platform::WM_VSCROLL:
  case platform::WM_LBUTTONDBLCLK:
    return EditorRefresh(message);
  case platform::WM_PAINT:
    return EditorWMPaint(message);
  case platform::WM_ERASEBKGND:
    return EditorWMEraseBkgnd(message);
  case platform::WM_KEYDOWN:
    return EditorWMKeyDown(message);
  case platform::WM_CHAR:
    return EditorWMChar(message);
  case platform::CN_KEYDOWN:
    return EditorCNKeyDown(message);
  default:
    Forward(message);
  }
}

void TQVEditorProxy::EditorWMDestroy(platform::TMessage& message) {
  Log(QStringLiteral("Editor: WM_DESTROY"));
  UnSubclass();
  Forward(message);
}

void TQVEditorProxy::EditorRefresh(platform::TMessage& message) {
  Log(QStringLiteral("Editor: WM_VSCROLL, WMLBUTTONCBLCLK, WM_HSCROLL, WM_KEYUP, or WM_SETFOCUS"));
  Painted = false;
  if (!Forward(message))
    return;
  // Marks on demand go with the repaint; those that the hot key has drawn just now, while the host acted, stay.
  if (OptMarkerLive || !Painted)
    RepaintControl();
}

void TQVEditorProxy::EditorWMPaint(platform::TMessage& message) {
  Log(QStringLiteral("Editor: WM_PAINT"));
  Painted = false;
  if (OptMarkerLive)
    PaintEditor(message);
  else
    Forward(message);
}

void TQVEditorProxy::EditorWMEraseBkgnd(platform::TMessage& message) {
  Log(QStringLiteral("Editor: WM_ERASEBKGND"));
  // With the marks on demand the message ends here, deliberately: the host never clears the ground by itself, and what
  // the hot key has drawn is not wiped away.
  if (OptMarkerLive)
    PaintEditor(message);
}

void TQVEditorProxy::EditorWMKeyDown(platform::TMessage& message) {
  Log(QStringLiteral("Editor: WM_KEYDOWN"));
  Forward(message);
}

void TQVEditorProxy::EditorWMChar(platform::TMessage& message) {
  if (!ExpandsTemplate(static_cast<char32_t>(message.WParam)))
    Forward(message);
}

void TQVEditorProxy::EditorCNKeyDown(platform::TMessage& message) {
  const QLatin1Char key(static_cast<char>(message.WParam));
  Log(QStringLiteral("Editor: CN_KEYDOWN: ") + key);
  Forward(message);
}

bool TQVEditorProxy::Forward(platform::TMessage& message) {
  const QPointer<TQVEditorProxy> alive(this);
  OldEditorWndProc(message);
  return !alive.isNull();
}

void TQVEditorProxy::RepaintControl() {
  if (platform::TWinControl* control = FindControl())
    control->Repaint();
}

} // namespace quorvane
