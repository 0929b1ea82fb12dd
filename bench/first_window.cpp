// first_window COMMAND...: starts the program on the display and prints the milliseconds until its window is
// on the screen; then waits until the program ends.

#include <QProcess>
#include <QStringList>

#include <xcb/xcb.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <memory>

namespace {

constexpr int leastWidth = 300; // tool kits make small windows of their own

struct Release {
    void operator()(void *memory) const { std::free(memory); }
};
template <typename Reply>
using Owned = std::unique_ptr<Reply, Release>;

bool isLarge(xcb_connection_t *connection, xcb_window_t window) {
    const Owned<xcb_get_geometry_reply_t> geometry(
        xcb_get_geometry_reply(connection, xcb_get_geometry(connection, window), nullptr));
    return geometry != nullptr && geometry->width >= leastWidth;
}

} // namespace

int main(int argc, char *argv[]) {
    QStringList command;
    for (int index = 1; index < argc; ++index) {
        command.append(QString::fromLocal8Bit(argv[index]));
    }
    xcb_connection_t *const connection = xcb_connect(nullptr, nullptr);
    if (command.isEmpty() || xcb_connection_has_error(connection) != 0) {
        std::fputs("usage: first_window COMMAND..., with a display\n", stderr);
        return 2;
    }
    const xcb_screen_t *const screen = xcb_setup_roots_iterator(xcb_get_setup(connection)).data;
    const uint32_t events = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
    xcb_change_window_attributes(connection, screen->root, XCB_CW_EVENT_MASK, &events);
    xcb_flush(connection);

    const auto begin = std::chrono::steady_clock::now();
    QProcess program;
    program.start(command.takeFirst(), command, QIODevice::ReadOnly);
    while (const Owned<xcb_generic_event_t> event{xcb_wait_for_event(connection)}) {
        if ((event->response_type & 0x7F) != XCB_MAP_NOTIFY) {
            continue;
        }
        const auto *const map = reinterpret_cast<const xcb_map_notify_event_t *>(event.get());
        if (isLarge(connection, map->window)) {
            const std::chrono::duration<double, std::milli> passed = std::chrono::steady_clock::now() - begin;
            std::printf("%.1f\n", passed.count());
            std::fflush(stdout);
            break;
        }
    }
    program.waitForFinished(-1);
    xcb_disconnect(connection);
    return 0;
}
