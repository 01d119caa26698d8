#include <X11/Xlib.h>
#include <X11/extensions/XTest.h>
#include <chrono>
#include <iostream>
#include <poll.h>
#include <sstream>
#include <string>
#include <unistd.h>

// Watches an X server from outside every application, and acts on it: stopwatch [CLIENT]
//
// Writes one line for each thing that happens to a window on the root window, and to CLIENT, the
// window of an application inside the frame of its manager:
//
//     NANOSECONDS configure WINDOW X Y WIDTH HEIGHT
//     NANOSECONDS map WINDOW X Y WIDTH HEIGHT
//
// by the clock of CLOCK_MONOTONIC, at the moment at which the event was read. Reads commands, one a
// line, and answers "NANOSECONDS done" with the moment at which the request was sent:
//
//     down KEY...                     presses the keys with these names, as X names them
//     up KEY...                       releases them
//     place WINDOW X Y WIDTH HEIGHT   XMoveResizeWindow
//
// It ends with its input.

namespace {

long long now() {
    const auto time = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::nanoseconds>(time).count();
}

void report(const std::string& line) {
    std::cout << line << std::endl;
}

struct Place {
    int x, y, width, height;
};

void report(long long time, const char* kind, Window window, const Place& place) {
    std::ostringstream line;
    line << time << ' ' << kind << ' ' << window << ' ' << place.x << ' ' << place.y << ' '
         << place.width << ' ' << place.height;
    report(line.str());
}

void read(Display* display) {
    while (XPending(display) > 0) {
        XEvent event;
        XNextEvent(display, &event);
        const auto time = now();
        if (event.type == ConfigureNotify) {
            const auto& it = event.xconfigure;
            report(time, "configure", it.window, {it.x, it.y, it.width, it.height});
        } else if (event.type == MapNotify) {
            XWindowAttributes it;
            if (XGetWindowAttributes(display, event.xmap.window, &it) != 0)
                report(time, "map", event.xmap.window, {it.x, it.y, it.width, it.height});
        }
    }
}

/// Answers whether there is such a key.
bool turn(Display* display, const std::string& name, bool down) {
    const KeySym symbol = XStringToKeysym(name.c_str());
    const KeyCode code = XKeysymToKeycode(display, symbol);
    if (code == 0)
        return false;
    XTestFakeKeyEvent(display, code, down ? True : False, CurrentTime);
    return true;
}

/// What is wrong with the command, or the empty text.
std::string perform(Display* display, const std::string& command) {
    std::istringstream words(command);
    std::string verb;
    words >> verb;
    if (verb == "place") {
        Window window = 0;
        Place place{};
        unsigned width = 0;
        unsigned height = 0;
        if (!(words >> window >> place.x >> place.y >> width >> height))
            return "place: a window and four numbers are missing";
        XMoveResizeWindow(display, window, place.x, place.y, width, height);
    } else if (verb == "down" || verb == "up") {
        for (std::string name; words >> name;)
            if (!turn(display, name, verb == "down"))
                return "there is no key " + name;
    } else {
        return "there is no command " + verb;
    }
    const auto time = now();
    XFlush(display);
    report(std::to_string(time) + " done");
    return "";
}

// A window may be gone by the time it is asked about.
int ignoreError(Display*, XErrorEvent*) {
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    Display* const display = XOpenDisplay(nullptr);
    if (display == nullptr) {
        std::cerr << "stopwatch: there is no X server\n";
        return 1;
    }
    XSetErrorHandler(ignoreError);
    XSelectInput(display, DefaultRootWindow(display), SubstructureNotifyMask);
    if (argc > 1)
        XSelectInput(display, std::stoul(argv[1]), StructureNotifyMask);
    XSync(display, False);
    report(std::to_string(now()) + " ready");

    std::string input;
    for (;;) {
        read(display);
        pollfd waiting[] = {{ConnectionNumber(display), POLLIN, 0}, {STDIN_FILENO, POLLIN, 0}};
        if (poll(waiting, 2, -1) < 0)
            return 1;
        if (waiting[1].revents == 0)
            continue;
        char buffer[4096];
        const auto count = ::read(STDIN_FILENO, buffer, sizeof buffer);
        if (count <= 0)
            return 0;
        input.append(buffer, static_cast<std::size_t>(count));
        for (auto end = input.find('\n'); end != std::string::npos; end = input.find('\n')) {
            const auto problem = perform(display, input.substr(0, end));
            input.erase(0, end + 1);
            if (!problem.empty()) {
                std::cerr << "stopwatch: " << problem << '\n';
                return 1;
            }
        }
    }
}
