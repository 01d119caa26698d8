#import "platform/cocoa/Native.h"

#import "platform/cocoa/Convert.h"

#import <AppKit/AppKit.h>

#include <dlfcn.h>

/// Not run anywhere yet: no Mac is at hand. Written against Apple's public documentation.
namespace vistrel::cocoa::native {

namespace {

/// A function of Carbon, or nullptr where the system no longer has it. Looked up at run time, so
/// that its absence is an answer and not a bundle that cannot be loaded.
template <typename Function> Function carbon(const char* name) {
    void* const framework =
        ::dlopen("/System/Library/Frameworks/Carbon.framework/Carbon", RTLD_LAZY);
    return framework != nullptr ? reinterpret_cast<Function>(::dlsym(framework, name)) : nullptr;
}

} // namespace

std::string menuName(NSMenu* menu) {
    @try {
        id name = [menu valueForKey:@"_menuName"];
        return [name isKindOfClass:[NSString class]] ? toString(name) : "";
    } @catch (NSException*) {
        // A system whose menus have lost their private names still knows its Window menu.
        return menu != nil && menu == [NSApp windowsMenu] ? "NSWindowsMenu" : "";
    }
}

void setKeyEquivalent(NSMenuItem* item, std::string_view key) {
    [item setKeyEquivalent:toNSString(key)];
}

NSRect screenFrame(NSWindow* window) {
    NSScreen* screen = [window screen];
    return screen != nil ? [screen frame] : NSZeroRect;
}

void setFrameAnimated(NSWindow* window, NSRect frame) {
    [window setFrame:frame display:YES animate:YES];
}

NSRect frameRectForContentRect(NSWindow* window, NSRect content) {
    return window != nil ? [window frameRectForContentRect:content] : NSZeroRect;
}

void center(NSWindow* window) {
    [window center];
}

std::int32_t windowLevelForKey(std::int32_t key) {
    return CGWindowLevelForKey(static_cast<CGWindowLevelKey>(key));
}

void setLevel(NSWindow* window, NSInteger level) {
    [window setLevel:level];
}

void dressControls(NSWindow*) {}

id connectBindings(NSWindow*) {
    return nil;
}

void setSystemUIMode(SystemUIMode mode) {
    using Function = std::int32_t (*)(std::uint32_t, std::uint32_t);
    if (const auto function = carbon<Function>("SetSystemUIMode"))
        function(mode.mode, mode.options);
}

void showSearchWindow(std::string_view text, std::uint32_t options) {
    using Function = std::int32_t (*)(CFStringRef, std::uint32_t);
    if (const auto function = carbon<Function>("HISearchWindowShow"))
        function(reinterpret_cast<CFStringRef>(toNSString(text)), options);
    else
        NSLog(@"Vistrel: this system has no search window to open");
}

bool runAlert(const Alert& alert) {
    NSString* alternate = alert.alternateButton.empty() ? nil : toNSString(alert.alternateButton);
    return NSRunAlertPanel(toNSString(alert.title), @"%@", toNSString(alert.defaultButton),
                           alternate, nil, toNSString(alert.message)) == NSAlertDefaultReturn;
}

/// The platform itself sends no menu item's action past an alert.
bool isRunningAlert() {
    return false;
}

NSString* activeApplicationName() {
    return [[[NSWorkspace sharedWorkspace] activeApplication] objectForKey:@"NSApplicationName"];
}

void openURL(NSURL* url) {
    [[NSWorkspace sharedWorkspace] openURL:url];
}

void launch(const std::string& path, const std::vector<std::string>& arguments) {
    auto* const list = [NSMutableArray array];
    for (const auto& argument : arguments)
        [list addObject:toNSString(argument)];
    [NSTask launchedTaskWithLaunchPath:toNSString(path) arguments:list];
}

/// An interface file finds the images of the bundle that it lies in.
void provideImage(NSBundle*, NSString*) {}

std::optional<std::string> textAtURL(const std::string& url) {
    NSString* text = [NSString stringWithContentsOfURL:[NSURL URLWithString:toNSString(url)]
                                              encoding:NSUTF8StringEncoding
                                                 error:NULL];
    return text != nil ? std::optional(toString(text)) : std::nullopt;
}

} // namespace vistrel::cocoa::native
