#import "platform/cocoa/Native.h"

#import "platform/cocoa/AlertGNUstep.h"
#import "platform/cocoa/BindingsGNUstep.h"
#import "platform/cocoa/Convert.h"
#import "platform/cocoa/FrameGNUstep.h"
#import "platform/cocoa/HidingGNUstep.h"
#import "platform/cocoa/LevelGNUstep.h"
#import "platform/cocoa/LookGNUstep.h"
#import "platform/cocoa/PageOpenerGNUstep.h"
#import "platform/cocoa/ReturnKeyGNUstep.h"
#include "platform/cocoa/SearchToolGNUstep.h"
#import "platform/cocoa/ShortcutGNUstep.h"
#include "platform/posix/DetachedProcess.h"
#include "platform/posix/Download.h"

#import <AppKit/NSApplication.h>
#import <AppKit/NSImage.h>
#import <AppKit/NSMenu.h>
#import <AppKit/NSMenuItem.h>
#import <AppKit/NSWindow.h>
#import <Foundation/NSBundle.h>
#import <Foundation/NSProcessInfo.h>
#import <Foundation/NSString.h>
#import <Foundation/NSURL.h>
#import <Foundation/NSUserDefaults.h>

namespace vistrel::cocoa::native {

std::string menuName(NSMenu* menu) {
    // There are no private names here, but the application knows which menu is its Window menu.
    return menu != nil && menu == [NSApp windowsMenu] ? "NSWindowsMenu" : "";
}

void setKeyEquivalent(NSMenuItem* item, std::string_view key) {
    [item setKeyEquivalent:key == "\n" ? gnustep::returnKeyEquivalent() : toNSString(key)];
    gnustep::actAtOnce(item);
}

NSRect screenFrame(NSWindow* window) {
    return gnustep::screenFrame(window);
}

void setFrameAnimated(NSWindow* window, NSRect frame) {
    gnustep::setFrameAnimated(window, frame);
}

NSRect frameRectForContentRect(NSWindow* window, NSRect content) {
    return gnustep::frameRectForContentRect(window, content);
}

void center(NSWindow* window) {
    gnustep::center(window);
}

std::int32_t windowLevelForKey(std::int32_t key) {
    return gnustep::windowLevelForKey(key);
}

void setLevel(NSWindow* window, NSInteger level) {
    gnustep::setLevel(window, level);
}

void dressControls(NSWindow* window) {
    gnustep::dressControls(window);
}

id connectBindings(NSWindow* window) {
    return gnustep::connectBindings(window);
}

void setSystemUIMode(SystemUIMode mode) {
    gnustep::setSystemUIMode(mode);
}

void showSearchWindow(std::string_view text, std::uint32_t options) {
    // The user's own choice of a search tool, which no other setting of ours offers.
    NSString* own = [[NSUserDefaults standardUserDefaults] stringForKey:@"VTRSearchTool"];
    if (const auto problem = gnustep::showSearchWindow(text, options, toString(own)))
        NSLog(@"%@", toNSString(*problem));
}

bool runAlert(const Alert& alert) {
    return gnustep::runAlert(alert);
}

bool isRunningAlert() {
    return gnustep::isRunningAlert();
}

/// The workspace would start another program to find out. Whoever asks here does so for a command
/// that the user has just chosen in the host, so the host is in front.
NSString* activeApplicationName() {
    return [[NSProcessInfo processInfo] processName];
}

void openURL(NSURL* url) {
    gnustep::openPage(url);
}

void launch(const std::string& path, const std::vector<std::string>& arguments) {
    std::vector<std::string> command{path};
    command.insert(command.end(), arguments.begin(), arguments.end());
    posix::startDetached(command);
}

/// An interface file looks for images among those that have a name in this process, and then in the
/// host's bundle only.
void provideImage(NSBundle* bundle, NSString* name) {
    NSString* path = [bundle pathForImageResource:name];
    if (path == nil || [NSImage imageNamed:name] != nil)
        return;
    NSImage* image = [[NSImage alloc] initWithContentsOfFile:path];
    [image setName:name]; // which retains it
    [image release];
}

/// The platform's own requests answer one page of a server for another, take half a text for a
/// whole one, and wait for a silent server for ever.
std::optional<std::string> textAtURL(const std::string& url) {
    return posix::downloadText(url);
}

} // namespace vistrel::cocoa::native
