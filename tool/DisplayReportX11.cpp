#include "tool/DisplayReport.h"

#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/extensions/Xrandr.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <memory>
#include <optional>

namespace vistrel::tool {

namespace {

constexpr std::array neededHints{"_NET_ACTIVE_WINDOW",           "_NET_CLIENT_LIST_STACKING",
                                 "_NET_FRAME_EXTENTS",           "_NET_WM_STATE",
                                 "_NET_WM_STATE_ABOVE",          "_NET_WM_STATE_FULLSCREEN",
                                 "_NET_WM_STATE_MAXIMIZED_VERT", "_NET_WM_STATE_MAXIMIZED_HORZ",
                                 "_NET_WM_WINDOW_TYPE"};

/// A window manager may end at any moment, and its windows with it.
int ignoreError(::Display* /*display*/, XErrorEvent* /*error*/) {
    return 0;
}

class Server {
  public:
    explicit Server(::Display* display) : display_(display) {}

    [[nodiscard]] std::vector<Monitor> monitors() const {
        std::vector<Monitor> monitors;
        const std::unique_ptr<XRRScreenResources, decltype(&XRRFreeScreenResources)> resources(
            XRRGetScreenResourcesCurrent(display_, root()), &XRRFreeScreenResources);
        const auto primary = XRRGetOutputPrimary(display_, root());
        for (int index = 0; resources && index < resources->noutput; ++index) {
            if (auto monitor = monitorAt(resources.get(), resources->outputs[index])) {
                monitor->isPrimary = resources->outputs[index] == primary;
                monitors.push_back(*monitor);
            }
        }
        return monitors;
    }

    /// The window by which a living manager announces itself, or 0.
    [[nodiscard]] Window manager() const {
        const auto window = windowOf(root());
        return window != 0 && windowOf(window) == window ? window : 0;
    }

    [[nodiscard]] std::string nameOf(Window manager) const {
        const auto bytes = property(manager, "_NET_WM_NAME", AnyPropertyType);
        return {bytes.begin(), bytes.end()};
    }

    [[nodiscard]] std::vector<std::string> missingHints() const {
        const auto supported = property(root(), "_NET_SUPPORTED", XA_ATOM);
        std::vector<std::string> missing;
        for (const auto* hint : neededHints)
            if (std::ranges::find(supported, XInternAtom(display_, hint, False)) == supported.end())
                missing.emplace_back(hint);
        return missing;
    }

  private:
    [[nodiscard]] Window root() const { return DefaultRootWindow(display_); }

    [[nodiscard]] std::optional<Monitor> monitorAt(XRRScreenResources* resources,
                                                   RROutput number) const {
        const std::unique_ptr<XRROutputInfo, decltype(&XRRFreeOutputInfo)> output(
            XRRGetOutputInfo(display_, resources, number), &XRRFreeOutputInfo);
        if (!output || output->crtc == 0)
            return std::nullopt;
        const std::unique_ptr<XRRCrtcInfo, decltype(&XRRFreeCrtcInfo)> crtc(
            XRRGetCrtcInfo(display_, resources, output->crtc), &XRRFreeCrtcInfo);
        if (!crtc)
            return std::nullopt;
        return Monitor{.name = output->name,
                       .x = crtc->x,
                       .y = crtc->y,
                       .width = static_cast<int>(crtc->width),
                       .height = static_cast<int>(crtc->height)};
    }

    [[nodiscard]] Window windowOf(Window window) const {
        const auto found = property(window, "_NET_SUPPORTING_WM_CHECK", XA_WINDOW);
        return found.empty() ? 0 : found.front();
    }

    /// The elements of a property, each in a number of its own whatever its size.
    [[nodiscard]] std::vector<unsigned long> property(Window window, const char* name,
                                                      Atom type) const {
        constexpr long most = 4096;
        Atom actual = None;
        int format = 0;
        unsigned long count = 0;
        unsigned long left = 0;
        unsigned char* bytes = nullptr;
        XGetWindowProperty(display_, window, XInternAtom(display_, name, False), 0, most, False,
                           type, &actual, &format, &count, &left, &bytes);
        const std::unique_ptr<unsigned char, decltype(&XFree)> owner(bytes, &XFree);
        if (bytes == nullptr)
            return {};
        if (format == 8)
            return {bytes, bytes + count};
        // Xlib keeps elements of 32 bits in longs.
        const auto* numbers = reinterpret_cast<const unsigned long*>(bytes);
        return format == 32 ? std::vector<unsigned long>(numbers, numbers + count)
                            : std::vector<unsigned long>();
    }

    ::Display* display_;
};

} // namespace

DisplayReport reportDisplay() {
    const char* const name = std::getenv("DISPLAY");
    DisplayReport report{.name = name != nullptr ? name : ""};
    if (report.name.empty()) {
        report.problem = "There is no display: DISPLAY is not set.";
        return report;
    }
    const std::unique_ptr<::Display, decltype(&XCloseDisplay)> display(XOpenDisplay(name),
                                                                       &XCloseDisplay);
    if (!display) {
        report.problem = "The display " + report.name + " cannot be opened.";
        return report;
    }
    XSetErrorHandler(&ignoreError);
    const Server server(display.get());
    report.monitors = server.monitors();
    if (const auto manager = server.manager(); manager != 0) {
        report.hasManager = true;
        report.windowManager = server.nameOf(manager);
        report.missingHints = server.missingHints();
    }
    return report;
}

} // namespace vistrel::tool
