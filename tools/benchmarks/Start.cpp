#include "Start.h"

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>
#include <xcb/xcb.h>

namespace turnpost::bench {

double startTime(const std::string& program) {
    xcb_connection_t* display = xcb_connect(nullptr, nullptr);
    if (xcb_connection_has_error(display) != 0) {
        throw std::runtime_error("no display");
    }
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(display)).data->root;
    const std::uint32_t mask = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
    xcb_change_window_attributes(display, root, XCB_CW_EVENT_MASK, &mask);
    // The answer comes when the display has handled all earlier requests.
    free(xcb_get_input_focus_reply(display, xcb_get_input_focus(display), nullptr));
    const auto start = std::chrono::steady_clock::now();
    const pid_t child = fork();
    if (child == 0) {
        execl(program.c_str(), program.c_str(), nullptr);
        _exit(127);
    }
    alarm(20);
    int type = 0;
    while (type != XCB_MAP_NOTIFY) {
        xcb_generic_event_t* event = xcb_wait_for_event(display);
        type = event->response_type & 0x7F;
        free(event);
    }
    const std::chrono::duration<double, std::milli> taken =
        std::chrono::steady_clock::now() - start;
    alarm(0);
    kill(child, SIGTERM);
    waitpid(child, nullptr, 0);
    xcb_disconnect(display);
    return taken.count();
}

} // namespace turnpost::bench
