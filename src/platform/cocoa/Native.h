#pragma once

#include "core/Alert.h"
#include "core/SystemUIMode.h"

#import <Foundation/NSGeometry.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

@class NSBundle;
@class NSMenu;
@class NSMenuItem;
@class NSString;
@class NSURL;
@class NSWindow;

/// What GNUstep and macOS do each in their own way. NativeGNUstep.mm or NativeMacOS.mm is built,
/// never both. Windows may be nil everywhere; nothing happens then, and the answer is zero.
namespace vistrel::cocoa::native {

/// The private name that AppKit gives its menus: "NSWindowsMenu" for the application's Window menu.
/// Empty for nil and for menus without one.
std::string menuName(NSMenu* menu);

/// Makes `key` the key equivalent of `item`, which has its target by then. The line feed is the
/// keyboard's Return key.
void setKeyEquivalent(NSMenuItem* item, std::string_view key);

/// The whole frame of the screen that `window` is on.
NSRect screenFrame(NSWindow* window);

/// Moves `window` with animation; returns when it has arrived.
void setFrameAnimated(NSWindow* window, NSRect frame);

/// The frame of `window` whose content area would be `content`.
NSRect frameRectForContentRect(NSWindow* window, NSRect content);

/// The platform's own centring; returns when the window has arrived.
void center(NSWindow* window);

/// CGWindowLevelForKey.
std::int32_t windowLevelForKey(std::int32_t key);

void setLevel(NSWindow* window, NSInteger level);

/// Gives the controls of `window`, which comes from an interface file, the platform's own look, and
/// makes them what the file means.
void dressControls(NSWindow* window);

/// Sees to it that the controls of `window` edit the host defaults as its interface file says: each
/// change of either shows at once in the other. Answers what has to be kept for as long as they
/// shall, or nil where the platform needs no help.
id connectBindings(NSWindow* window);

/// SetSystemUIMode: how much of the system's own interface is shown while the host is active.
void setSystemUIMode(SystemUIMode mode);

/// HISearchWindowShow: opens the system's search window, or says in the log why there is none.
void showSearchWindow(std::string_view text, std::uint32_t options);

/// NSRunAlertPanel: shows the alert and waits for the user. Answers whether the default button
/// ended it.
bool runAlert(const Alert& alert);

/// Whether an alert of ours is up, and the host's menu must not send it the bundle's commands.
bool isRunningAlert();

/// The display name of the application that is in front, or nil.
NSString* activeApplicationName();

/// Opens `url` in the user's browser; does not wait for it.
void openURL(NSURL* url);

/// Starts a program that outlives the host; does not wait for it.
void launch(const std::string& path, const std::vector<std::string>& arguments);

/// Lets the interface files of `bundle` show its image `name`. Where there is none, they show none.
void provideImage(NSBundle* bundle, NSString* name);

/// The text at `url`, or nullopt when it cannot be had or is not UTF-8. Waits for it.
std::optional<std::string> textAtURL(const std::string& url);

} // namespace vistrel::cocoa::native
