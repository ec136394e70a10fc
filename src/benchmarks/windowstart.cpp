// SPDX-License-Identifier: GPL-3.0-or-later
// windowstart PROGRAM [ARGUMENT...]
// Starts the program, prints the milliseconds until its first window is mapped and the megabytes it has in memory a
// second later, and ends it.
#include <xcb/xcb.h>

#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <memory>
#include <string>

#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using SteadyClock = std::chrono::steady_clock;

constexpr auto longestWait = std::chrono::seconds(20);
constexpr unsigned settleMicroseconds = 1'000'000;

struct Free {
    void operator()(void* memory) const { std::free(memory); }
};

template <typename T>
using Owned = std::unique_ptr<T, Free>;

double milliseconds(SteadyClock::duration duration) {
    return std::chrono::duration<double, std::milli>(duration).count();
}

/// Whether it is a window that an operator would see, not one of the few pixels that toolkits make for themselves.
bool isProgramWindow(xcb_connection_t* display, xcb_window_t window) {
    constexpr int smallest = 100;
    const Owned<xcb_get_geometry_reply_t> geometry(
        xcb_get_geometry_reply(display, xcb_get_geometry(display, window), nullptr));
    return geometry != nullptr && geometry->width >= smallest && geometry->height >= smallest;
}

/// Waits until a program's window has been mapped. Returns whether one was.
bool waitForWindow(xcb_connection_t* display, SteadyClock::time_point start, SteadyClock::time_point& mapped) {
    while (SteadyClock::now() - start < longestWait) {
        while (const Owned<xcb_generic_event_t> event{xcb_poll_for_event(display)}) {
            const auto arrived = SteadyClock::now();
            constexpr int kindOfEvent = 0x7f;
            if ((event->response_type & kindOfEvent) != XCB_MAP_NOTIFY) {
                continue;
            }
            const auto* notify = reinterpret_cast<const xcb_map_notify_event_t*>(event.get());
            if (notify->override_redirect == 0 && isProgramWindow(display, notify->window)) {
                mapped = arrived;
                return true;
            }
        }
        pollfd descriptor{.fd = xcb_get_file_descriptor(display), .events = POLLIN, .revents = 0};
        ::poll(&descriptor, 1, 100);
    }
    return false;
}

double residentMegabytes(pid_t process) {
    constexpr double kilobytesPerMegabyte = 1000.0 / 1.024;
    std::ifstream file("/proc/" + std::to_string(process) + "/status");
    std::string word;
    while (file >> word) {
        if (word == "VmRSS:") {
            double kilobytes = 0.0;
            file >> kilobytes;
            return kilobytes / kilobytesPerMegabyte;
        }
    }
    return 0.0;
}

} // namespace

int main(int argc, char** argv) {
    if (argc < 2) {
        std::fprintf(stderr, "usage: %s PROGRAM [ARGUMENT...]\n", argv[0]);
        return 2;
    }
    xcb_connection_t* display = xcb_connect(nullptr, nullptr);
    if (xcb_connection_has_error(display) != 0) {
        std::fprintf(stderr, "%s: there is no display\n", argv[0]);
        return 1;
    }
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(display)).data->root;
    const std::uint32_t wanted = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
    xcb_change_window_attributes(display, root, XCB_CW_EVENT_MASK, &wanted);
    // The answer tells that the wish before it has been taken.
    const Owned<xcb_get_input_focus_reply_t> answer(
        xcb_get_input_focus_reply(display, xcb_get_input_focus(display), nullptr));

    pid_t process = 0;
    const auto start = SteadyClock::now();
    if (::posix_spawnp(&process, argv[1], nullptr, nullptr, argv + 1, environ) != 0) {
        std::fprintf(stderr, "%s: %s cannot be started\n", argv[0], argv[1]);
        return 1;
    }
    SteadyClock::time_point mapped;
    const bool seen = waitForWindow(display, start, mapped);
    if (seen) {
        ::usleep(settleMicroseconds);
        std::printf("%.1f %.1f\n", milliseconds(mapped - start), residentMegabytes(process));
    } else {
        std::fprintf(stderr, "%s: %s showed no window\n", argv[0], argv[1]);
    }
    ::kill(process, SIGKILL);
    ::waitpid(process, nullptr, 0);
    xcb_disconnect(display);
    return seen ? 0 : 1;
}
