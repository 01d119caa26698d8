#import "platform/cocoa/ServerConnectionGNUstep.h"

#import "platform/cocoa/StackingGNUstep.h"

#import <AppKit/NSApplication.h>
#import <Foundation/NSObject.h>
#import <Foundation/NSRunLoop.h>
#import <Foundation/NSString.h>

#include <array>
#include <cstdlib>
#include <memory>

/// Passes on the run loop's message that events wait.
@interface VTRServerConnection : NSObject <RunLoopEvents> {
    int _descriptor;
    void (*_readable)();
}

- (id)initWithDescriptor:(int)descriptor readable:(void (*)())readable;
- (void)end;

@end

namespace {

NSArray* eventModes() {
    return [NSArray arrayWithObjects:NSDefaultRunLoopMode, NSModalPanelRunLoopMode,
                                     NSEventTrackingRunLoopMode, nil];
}

/// The form in which the run loop takes a descriptor.
void* asData(int descriptor) {
    // NOLINTNEXTLINE(performance-no-int-to-ptr)
    return reinterpret_cast<void*>(static_cast<intptr_t>(descriptor));
}

} // namespace

@implementation VTRServerConnection

- (id)initWithDescriptor:(int)descriptor readable:(void (*)())readable {
    if ((self = [super init]) == nil)
        return nil;
    _descriptor = descriptor;
    _readable = readable;
    for (NSString* mode in eventModes())
        [[NSRunLoop mainRunLoop] addEvent:asData(descriptor)
                                     type:ET_RDESC
                                  watcher:self
                                  forMode:mode];
    return self;
}

- (void)end {
    for (NSString* mode in eventModes())
        [[NSRunLoop mainRunLoop] removeEvent:asData(_descriptor)
                                        type:ET_RDESC
                                     forMode:mode
                                         all:YES];
}

- (void)receivedEvent:(void*)data
                 type:(RunLoopEventType)type
                extra:(void*)extra
              forMode:(NSString*)mode {
    _readable();
}

@end

namespace vistrel::cocoa::gnustep {

namespace {

struct Free {
    void operator()(void* memory) const { std::free(memory); }
};

template <typename Type> struct Reply : std::unique_ptr<Type, Free> {
    explicit Reply(Type* reply) : std::unique_ptr<Type, Free>(reply) {}
};

Reply<xcb_query_tree_reply_t> queryTree(xcb_connection_t* connection, xcb_window_t window) {
    if (connection == nullptr || window == 0)
        return Reply<xcb_query_tree_reply_t>{nullptr};
    return Reply{xcb_query_tree_reply(connection, xcb_query_tree(connection, window), nullptr)};
}

} // namespace

bool ServerConnection::open(void (*readable)()) {
    if (connection_ != nullptr)
        return true;
    connection_ = xcb_connect(displayName(), nullptr);
    if (xcb_connection_has_error(connection_) != 0) {
        xcb_disconnect(connection_);
        connection_ = nullptr;
        return false;
    }
    root_ = xcb_setup_roots_iterator(xcb_get_setup(connection_)).data->root;
    source_ = [[VTRServerConnection alloc] initWithDescriptor:xcb_get_file_descriptor(connection_)
                                                     readable:readable];
    return true;
}

void ServerConnection::close() {
    if (connection_ == nullptr)
        return;
    [source_ end];
    // The run loop may be in the middle of telling it.
    [source_ autorelease];
    source_ = nil;
    xcb_disconnect(connection_);
    connection_ = nullptr;
}

xcb_generic_event_t* ServerConnection::nextEvent() {
    if (connection_ == nullptr)
        return nullptr;
    auto* const event = xcb_poll_for_event(connection_);
    if (event == nullptr && xcb_connection_has_error(connection_) != 0)
        close();
    return event;
}

void ServerConnection::selectEvents(xcb_window_t window, std::uint32_t events) {
    if (connection_ == nullptr)
        return;
    xcb_change_window_attributes(connection_, window, XCB_CW_EVENT_MASK, &events);
    xcb_flush(connection_);
}

xcb_window_t ServerConnection::makeSensor(NSRect rect) {
    const auto window = xcb_generate_id(connection_);
    const std::array<std::uint32_t, 2> values{1, XCB_EVENT_MASK_ENTER_WINDOW};
    xcb_create_window(
        connection_, XCB_COPY_FROM_PARENT, window, root_, static_cast<std::int16_t>(NSMinX(rect)),
        static_cast<std::int16_t>(NSMinY(rect)), static_cast<std::uint16_t>(NSWidth(rect)),
        static_cast<std::uint16_t>(NSHeight(rect)), 0, XCB_WINDOW_CLASS_INPUT_ONLY,
        XCB_COPY_FROM_PARENT, XCB_CW_OVERRIDE_REDIRECT | XCB_CW_EVENT_MASK, values.data());
    xcb_map_window(connection_, window);
    xcb_flush(connection_);
    return window;
}

xcb_atom_t ServerConnection::atom(std::string_view name) {
    if (connection_ == nullptr)
        return XCB_ATOM_NONE;
    const auto request =
        xcb_intern_atom(connection_, 1, static_cast<std::uint16_t>(name.size()), name.data());
    const Reply reply{xcb_intern_atom_reply(connection_, request, nullptr)};
    return reply ? reply->atom : XCB_ATOM_NONE;
}

std::vector<std::uint32_t> ServerConnection::property(xcb_window_t window, std::string_view name) {
    constexpr std::uint32_t most = 4096;
    if (connection_ == nullptr)
        return {};
    const auto request =
        xcb_get_property(connection_, 0, window, atom(name), XCB_ATOM_ANY, 0, most);
    const Reply reply{xcb_get_property_reply(connection_, request, nullptr)};
    if (!reply || reply->format != 32)
        return {};
    const auto* const values =
        static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get()));
    return {values, values + reply->value_len};
}

std::vector<xcb_window_t> ServerConnection::topWindows() {
    const auto tree = queryTree(connection_, root_);
    if (!tree)
        return {};
    const auto* const windows = xcb_query_tree_children(tree.get());
    return {windows, windows + xcb_query_tree_children_length(tree.get())};
}

xcb_window_t ServerConnection::topWindow(xcb_window_t window) {
    for (;;) {
        const auto tree = queryTree(connection_, window);
        if (!tree || tree->parent == tree->root)
            return tree ? window : 0;
        window = tree->parent;
    }
}

xcb_window_t ServerConnection::focus() {
    if (connection_ == nullptr)
        return 0;
    const Reply reply{
        xcb_get_input_focus_reply(connection_, xcb_get_input_focus(connection_), nullptr)};
    return reply ? reply->focus : 0;
}

void ServerConnection::wait() {
    focus();
}

void ServerConnection::raise(xcb_window_t window) {
    if (connection_ == nullptr)
        return;
    const std::uint32_t mode = XCB_STACK_MODE_ABOVE;
    xcb_configure_window(connection_, window, XCB_CONFIG_WINDOW_STACK_MODE, &mode);
    xcb_flush(connection_);
}

void ServerConnection::destroy(xcb_window_t window) {
    if (connection_ == nullptr)
        return;
    xcb_destroy_window(connection_, window);
    xcb_flush(connection_);
}

} // namespace vistrel::cocoa::gnustep
