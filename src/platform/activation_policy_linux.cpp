#include "platform/activation_policy.h"

#include <QGuiApplication>

#include <xcb/xcb.h>

#include <array>
#include <cstdlib>
#include <memory>

using namespace Qt::StringLiterals;

namespace fennick {

namespace {

xcb_connection_t *connection() {
    const auto *const x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 == nullptr ? nullptr : x11->connection();
}

xcb_atom_t atom(xcb_connection_t *xcb, const QByteArray &name) {
    const auto cookie = xcb_intern_atom(xcb, 0, static_cast<uint16_t>(name.size()), name.constData());
    const std::unique_ptr<xcb_intern_atom_reply_t, decltype(&std::free)> reply(
        xcb_intern_atom_reply(xcb, cookie, nullptr), std::free);
    return reply ? reply->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
}

// The extended window manager hints: a mapped window's state is changed by asking the window manager.
void requestState(xcb_connection_t *xcb, xcb_window_t window, bool isSet, xcb_atom_t state) {
    constexpr uint32_t fromAnApplication = 1;
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = window;
    event.type = atom(xcb, "_NET_WM_STATE"_ba);
    event.data.data32[0] = isSet ? 1 : 0;
    event.data.data32[1] = state;
    event.data.data32[3] = fromAnApplication;
    const xcb_screen_t *const screen = xcb_setup_roots_iterator(xcb_get_setup(xcb)).data;
    xcb_send_event(xcb, 0, screen->root,
                   XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                   reinterpret_cast<const char *>(&event));
    xcb_flush(xcb);
}

} // namespace

bool canHideFromTaskBar() {
    return connection() != nullptr;
}

void setActivationPolicy(QWindow *window, ActivationPolicy policy) {
    xcb_connection_t *const xcb = connection();
    if (xcb == nullptr || window == nullptr || !window->isVisible()) {
        return;
    }
    const auto id = static_cast<xcb_window_t>(window->winId());
    const bool isHidden = policy == ActivationPolicy::accessory;
    for (const char *const state : {"_NET_WM_STATE_SKIP_TASKBAR", "_NET_WM_STATE_SKIP_PAGER"}) {
        requestState(xcb, id, isHidden, atom(xcb, state));
    }
}

} // namespace fennick
