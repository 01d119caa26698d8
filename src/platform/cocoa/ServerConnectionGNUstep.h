#pragma once

#import <AppKit/AppKit.h>

#include <cstdint>
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

    void selectEvents(xcb_window_t window, xcb_event_mask_t events);

    /// An invisible window that tells when the pointer enters it. Needs a connection.
    xcb_window_t makeSensor(NSRect rect);

    void raise(xcb_window_t window);
    void destroy(xcb_window_t window);

  private:
    xcb_connection_t* connection_ = nullptr;
    xcb_window_t root_ = 0;
    VTRServerConnection* source_ = nil;
};

} // namespace vistrel::cocoa::gnustep
