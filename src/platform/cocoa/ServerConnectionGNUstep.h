#pragma once

#import <Foundation/NSGeometry.h>

#include <cstdint>
#include <string_view>
#include <vector>
#include <xcb/xcb.h>

@class VTRServerConnection;

namespace vistrel::cocoa::gnustep {

/// A connection of our own to the X server of the platform, listened to by the run loop. It is not
/// Xlib's, whose errors would go to the platform and may end in an exception in the host.
class ServerConnection {
  public:
    /// Connects, unless connected. `readable` is called by the run loop when events wait, in all
    /// modes in which the platform takes events, and has to read all of them. Answers whether there
    /// is a connection.
    bool open(void (*readable)());

    /// Ends the connection, and everything that was made on it.
    void close();

    [[nodiscard]] xcb_window_t root() const { return root_; }

    /// The next event that has arrived, to be freed, or null. Closes a broken connection.
    xcb_generic_event_t* nextEvent();

    // Without a connection these do nothing.

    void selectEvents(xcb_window_t window, std::uint32_t events);

    /// An invisible window that tells when the pointer enters it. Needs a connection.
    xcb_window_t makeSensor(NSRect rect);

    /// The 32-bit values of a property, empty when there are none. Waits for the answer, while
    /// which events may have arrived.
    std::vector<std::uint32_t> property(xcb_window_t window, std::string_view name);

    /// The number of a name, 0 when nobody has ever used it.
    xcb_atom_t atom(std::string_view name);

    /// The windows directly in the root window, from the bottom to the top.
    std::vector<xcb_window_t> topWindows();

    /// The window in the root window that `window` is, or is inside of; 0 when there is none.
    xcb_window_t topWindow(xcb_window_t window);

    /// The window that has the keyboard.
    xcb_window_t focus();

    /// Returns when the server has done all that it was asked for. Events may have arrived
    /// meanwhile.
    void wait();

    void raise(xcb_window_t window);
    void destroy(xcb_window_t window);

  private:
    xcb_connection_t* connection_ = nullptr;
    xcb_window_t root_ = 0;
    VTRServerConnection* source_ = nil;
};

} // namespace vistrel::cocoa::gnustep
