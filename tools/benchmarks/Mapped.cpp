// Starts a program and prints the milliseconds from exec until its first window is mapped, and its
// memory in KiB at most, taken half a second later: bench_mapped PROGRAM
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <string>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <xcb/xcb.h>

int main(int argc, char** argv) {
    xcb_connection_t* display = xcb_connect(nullptr, nullptr);
    if (argc != 2 || xcb_connection_has_error(display) != 0) {
        return 2;
    }
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(display)).data->root;
    const std::uint32_t mask = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
    xcb_change_window_attributes(display, root, XCB_CW_EVENT_MASK, &mask);
    free(xcb_get_input_focus_reply(display, xcb_get_input_focus(display), nullptr));
    const auto start = std::chrono::steady_clock::now();
    const pid_t program = fork();
    if (program == 0) {
        execl(argv[1], argv[1], nullptr);
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
    std::this_thread::sleep_for(std::chrono::milliseconds(500));
    std::ifstream status("/proc/" + std::to_string(program) + "/status");
    std::string word;
    while (status >> word && word != "VmHWM:") {
    }
    long memory = 0;
    status >> memory;
    std::cout << taken.count() << ' ' << memory << '\n';
    kill(program, SIGTERM);
    waitpid(program, nullptr, 0);
    xcb_disconnect(display);
}
