// SPDX-License-Identifier: MIT
#include "desktop/ui/WindowActivation.h"

#include <QGuiApplication>
#include <QWidget>

#include <xcb/xcb.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string_view>

namespace desktop {

namespace {

// The few messages to the window manager that Qt does not offer.
class WindowManager {
public:
  explicit WindowManager(xcb_connection_t* connection)
      : connection_(connection), root_(xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root) {}

  // Gives the focus to the window. `time` is that of the user's act; 0 says that it has just been.
  void activate(xcb_window_t window, xcb_timestamp_t time) const {
    constexpr std::uint32_t program = 1;
    constexpr std::uint32_t userHimself = 2;
    xcb_client_message_event_t event = message(window, "_NET_ACTIVE_WINDOW", 32);
    event.data.data32[0] = time != 0 ? program : userHimself;
    event.data.data32[1] = time;
    send(event, XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT);
  }

  // Ends the sign that a program is starting.
  void endStart(QByteArray startupId) const {
    startupId.replace('\\', "\\\\").replace('"', "\\\"");
    const QByteArray text = "remove: ID=\"" + startupId + '"' + '\0';
    const char* kind = "_NET_STARTUP_INFO_BEGIN";
    const xcb_window_t sender = xcb_generate_id(connection_); // tells the messages of several programs apart
    xcb_create_window(connection_, XCB_COPY_FROM_PARENT, sender, root_, -1, -1, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY,
                      XCB_COPY_FROM_PARENT, 0, nullptr);
    for (qsizetype i = 0; i < text.size(); i += static_cast<qsizetype>(sizeof(xcb_client_message_data_t))) {
      xcb_client_message_event_t event = message(sender, kind, 8);
      const QByteArray piece = text.mid(i, sizeof event.data.data8);
      std::copy(piece.begin(), piece.end(), std::begin(event.data.data8));
      send(event, XCB_EVENT_MASK_PROPERTY_CHANGE);
      kind = "_NET_STARTUP_INFO";
    }
    xcb_destroy_window(connection_, sender);
  }

private:
  xcb_atom_t atom(std::string_view name) const {
    const auto cookie = xcb_intern_atom(connection_, 0, static_cast<std::uint16_t>(name.size()), name.data());
    const std::unique_ptr<xcb_intern_atom_reply_t, decltype(&std::free)> reply(
        xcb_intern_atom_reply(connection_, cookie, nullptr), &std::free);
    return reply != nullptr ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
  }

  xcb_client_message_event_t message(xcb_window_t window, const char* kind, std::uint8_t format) const {
    xcb_client_message_event_t event = {};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = format;
    event.window = window;
    event.type = atom(kind);
    return event;
  }

  void send(const xcb_client_message_event_t& event, std::uint32_t mask) const {
    xcb_send_event(connection_, 0, root_, mask, reinterpret_cast<const char*>(&event));
    xcb_flush(connection_);
  }

  xcb_connection_t* connection_;
  xcb_window_t root_;
};

// The time of the user's act, which stands at the end of a startup id; 0 if there is none.
xcb_timestamp_t timeOf(const QByteArray& startupId) {
  constexpr std::string_view mark = "_TIME";
  const qsizetype at = startupId.lastIndexOf(mark.data());
  return at < 0 ? 0 : startupId.mid(at + static_cast<qsizetype>(mark.size())).toUInt();
}

} // namespace

void activateWindow(QWidget& window, const QByteArray& startupId, const QByteArray& activationToken) {
  // Qt's plugin for Wayland takes it from here when it activates a window, and removes it.
  if (!activationToken.isEmpty() && QGuiApplication::platformName().startsWith(QStringLiteral("wayland")))
    qputenv("XDG_ACTIVATION_TOKEN", activationToken);
  window.setWindowState(window.windowState() & ~Qt::WindowMinimized);
  window.show();
  window.raise();
  // Qt's off-screen platform has the interface, too, but no connection.
  const auto* const x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
  if (x11 == nullptr || x11->connection() == nullptr) {
    window.activateWindow();
    return;
  }
  const WindowManager manager(x11->connection());
  manager.activate(static_cast<xcb_window_t>(window.winId()), timeOf(startupId));
  if (!startupId.isEmpty())
    manager.endStart(startupId);
}

} // namespace desktop
