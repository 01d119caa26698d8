#include "ContractHost.h"
#import "KeyboardFocus.h"

#import "platform/cocoa/CocoaPlatform.h"
#import "platform/cocoa/Convert.h"

#import <AppKit/AppKit.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>

/// Stands for the user while an alert is up, and for a host with unsaved documents.
@interface ContractUser : NSObject {
  @public
    vistrel::AlertAnswer answer;
    vistrel::ContractAlert alert;
    int terminationsAsked;
}

@end

namespace {

/// The views of `kind` in the alert, in the order in which they were added.
NSArray* partsOfAlert(Class kind) {
    NSMutableArray* parts = [NSMutableArray array];
    for (NSView* view in [[[NSApp modalWindow] contentView] subviews]) {
        NSView* part = [view isKindOfClass:[NSScrollView class]]
                           ? [static_cast<NSScrollView*>(view) documentView]
                           : view;
        if ([part isKindOfClass:kind])
            [parts addObject:part];
    }
    return parts;
}

/// What a modal loop waits for before it looks whether it is to end.
NSEvent* userEvent() {
    return [NSEvent otherEventWithType:NSAppKitDefined
                              location:NSZeroPoint
                         modifierFlags:0
                             timestamp:0
                          windowNumber:0
                               context:nil
                               subtype:0
                                 data1:0
                                 data2:0];
}

} // namespace

@implementation ContractUser

- (void)waitForAlert {
    [self performSelector:@selector(answerAlert)
               withObject:nil
               afterDelay:0.01
                  inModes:[NSArray arrayWithObject:NSModalPanelRunLoopMode]];
}

- (void)answerAlert {
    // Nobody answers an alert that is not in front; a user would click it.
    if (!vistrel::hasKeyboardFocus([NSApp modalWindow])) {
        vistrel::takeKeyboardFocus([NSApp modalWindow]);
        [self waitForAlert];
        return;
    }
    NSArray* texts = partsOfAlert([NSTextField class]);
    NSArray* buttons = partsOfAlert([NSButton class]);
    alert = {vistrel::cocoa::toString([[texts objectAtIndex:0] stringValue]),
             vistrel::cocoa::toString([[texts objectAtIndex:1] stringValue]),
             {}};
    for (NSButton* button in buttons)
        alert.buttons.push_back(vistrel::cocoa::toString([button title]));
    if (answer == vistrel::AlertAnswer::byClosing)
        [[NSApp modalWindow] performClose:nil];
    else
        [[buttons objectAtIndex:answer == vistrel::AlertAnswer::byDefaultButton ? 0 : 1]
            performClick:nil];
    [NSApp postEvent:userEvent() atStart:NO];
    // A timer does not wake up whoever waits for events, but its being due does.
    [self performSelector:@selector(self)
               withObject:nil
               afterDelay:0.01
                  inModes:[NSArray arrayWithObject:NSModalPanelRunLoopMode]];
}

- (NSApplicationTerminateReply)applicationShouldTerminate:(NSApplication*)application {
    ++terminationsAsked;
    return NSTerminateCancel;
}

@end

namespace vistrel {

namespace {

/// Every action of the block goes to an object of this class.
id controller() {
    static id const theController = [[NSObject alloc] init];
    return theController;
}

NSMenu* makeMenu(const std::vector<ContractItem>& items);

NSMenuItem* makeItem(const ContractItem& item) {
    NSMenuItem* made = [[[NSMenuItem alloc]
        initWithTitle:cocoa::toNSString(item.title)
               action:item.action.empty() ? NULL
                                          : NSSelectorFromString(cocoa::toNSString(item.action))
        keyEquivalent:@""] autorelease];
    if (item.hasTarget)
        [made setTarget:controller()];
    if (!item.submenu.empty() || item.isWindowMenu)
        [made setSubmenu:makeMenu(item.submenu)];
    return made;
}

NSMenu* makeMenu(const std::vector<ContractItem>& items) {
    NSMenu* menu = [[[NSMenu alloc] init] autorelease];
    for (const auto& item : items) {
        if (item.isSeparator)
            [menu addItem:[NSMenuItem separatorItem]];
        else
            [menu addItem:makeItem(item)];
    }
    return menu;
}

std::vector<ContractItem> look(NSMenu* menu) {
    std::vector<ContractItem> items;
    for (NSInteger index = 0; index < [menu numberOfItems]; ++index) {
        NSMenuItem* item = static_cast<NSMenuItem*>([menu itemAtIndex:index]);
        const bool isSeparator = [item isSeparatorItem];
        const bool isParent = [item hasSubmenu];
        SEL action = [item action];
        items.push_back(
            {.title = isSeparator ? "" : cocoa::toString([item title]),
             .action =
                 isParent || action == NULL ? "" : cocoa::toString(NSStringFromSelector(action)),
             .hasTarget = [item target] == controller() && [item representedObject] == controller(),
             .isSeparator = isSeparator,
             .key = cocoa::toString([item keyEquivalent]),
             .mask = static_cast<ModifierMask>([item keyEquivalentModifierMask]),
             .isOn = [item state] == NSOnState,
             .submenu = isParent ? look([item submenu]) : std::vector<ContractItem>{}});
    }
    return items;
}

/// Lets the event loop run until `isDone`, for `seconds` at the most; answers whether it is.
template <typename Condition> bool runUntil(Condition isDone, double seconds) {
    NSDate* limit = [NSDate dateWithTimeIntervalSinceNow:seconds];
    while (!isDone() && [limit timeIntervalSinceNow] > 0) {
        NSEvent* event = [NSApp nextEventMatchingMask:NSAnyEventMask
                                            untilDate:[NSDate dateWithTimeIntervalSinceNow:0.01]
                                               inMode:NSDefaultRunLoopMode
                                              dequeue:YES];
        if (event != nil)
            [NSApp sendEvent:event];
    }
    return isDone();
}

void require(bool condition, const char* what) {
    if (!condition)
        throw std::runtime_error(what);
}

void launchOnce() {
    static bool isLaunched = false;
    if (isLaunched)
        return;
    [[NSAutoreleasePool alloc] init]; // never drained: the process is one test
    [NSApplication sharedApplication];
    [NSApp finishLaunching];
    isLaunched = true;
}

class CocoaContractHost final : public ContractHost {
  public:
    CocoaContractHost() {
        std::string name = cocoa::toString(NSTemporaryDirectory()) + "/contract.XXXXXX";
        if (::mkdtemp(name.data()) != nullptr)
            folder_ = name;
    }

    ~CocoaContractHost() override {
        closeWindow();
        [NSApp setDelegate:nil];
        [user_ release];
        [[NSFileManager defaultManager] removeFileAtPath:cocoa::toNSString(folder_) handler:nil];
        [pool_ release];
    }

    Platform& platform() override { return platform_; }

    void setMainMenu(const std::vector<ContractItem>& items) override {
        // As between two events of any host. Without it the menus that were exchanged before, which
        // are on screen as long as they exist, would gather in front of the windows.
        emptyPool();
        NSMenu* menu = makeMenu(items);
        for (std::size_t index = 0; index < items.size(); ++index)
            if (items[index].isWindowMenu)
                [NSApp setWindowsMenu:[[menu itemAtIndex:static_cast<NSInteger>(index)] submenu]];
        [NSApp setMainMenu:menu];
    }

    void removeMainMenu() override { [NSApp setMainMenu:nil]; }

    std::vector<ContractItem> windowMenuItems() override { return look([NSApp windowsMenu]); }

    void openWindow(const Rect& frame) override {
        window_ =
            [[NSWindow alloc] initWithContentRect:NSMakeRect(0, 0, 100, 100)
                                        styleMask:NSTitledWindowMask | NSClosableWindowMask |
                                                  NSResizableWindowMask | NSMiniaturizableWindowMask
                                          backing:NSBackingStoreBuffered
                                            defer:NO];
        [window_ setReleasedWhenClosed:NO];
        [window_ setFrame:cocoa::toNSRect(frame) display:YES];
        const auto isFront = [&] {
            return hasKeyboardFocus(window_) && [NSApp isActive] && [NSApp keyWindow] == window_ &&
                   [NSApp mainWindow] == window_ && cocoa::toRect([window_ frame]) == frame;
        };
        // Where windows come and go quickly, the desktop may give the keyboard to one that is gone;
        // a user would click again.
        for (int attempt = 0; attempt < 10 && !isFront(); ++attempt) {
            [NSApp activateIgnoringOtherApps:YES];
            [window_ makeKeyAndOrderFront:nil];
            if (!runUntil(isFront, 0.5))
                takeKeyboardFocus(window_);
        }
        require(isFront(), "the window does not come to the front");
    }

    void closeWindow() override {
        if (window_ == nil)
            return;
        [window_ close];
        // GNUstep leaves a window key where no other can take its place.
        [window_ resignKeyWindow];
        [window_ resignMainWindow];
        require(
            runUntil([&] { return !hasKeyboardFocus(window_) && [NSApp keyWindow] == nil; }, 10),
            "the window does not give up the keyboard");
        [window_ release];
        window_ = nil;
    }

    void letPass(double seconds) override {
        // A timer of our own: those that were due before it have fired when it has.
        NSTimer* timer = [[NSTimer scheduledTimerWithTimeInterval:seconds
                                                           target:@""
                                                         selector:@selector(self)
                                                         userInfo:nil
                                                          repeats:NO] retain];
        require(runUntil([timer] { return [timer isValid] == NO; }, seconds + 10),
                "time stands still");
        [timer release];
    }

    void answerNextAlert(AlertAnswer answer) override {
        user_->answer = answer;
        [user_ waitForAlert];
    }

    ContractAlert lastAlert() override { return user_->alert; }

    void refuseToTerminate() override { [NSApp setDelegate:user_]; }

    int terminationsAsked() override { return user_->terminationsAsked; }

    void storeDefault(std::string_view key, const PropertyList& value) override {
        [[NSUserDefaults standardUserDefaults] setObject:cocoa::toObject(value)
                                                  forKey:cocoa::toNSString(key)];
    }

    void removeDefault(std::string_view key) override {
        [[NSUserDefaults standardUserDefaults] removeObjectForKey:cocoa::toNSString(key)];
    }

    std::string folder() override { return folder_; }

    std::string recordingProgram() override {
        const auto program = folder_ + "/record";
        std::ofstream(program) << "#!/bin/sh\n"
                               << "[ $# -eq 0 ] || printf '%s\\0' \"$@\" >'" << folder_
                               << "/part'\n"
                               << ": >>'" << folder_ << "/part'\n"
                               << "mv '" << folder_ << "/part' '" << folder_ << "/record.out'\n";
        std::filesystem::permissions(program, std::filesystem::perms::owner_all);
        return program;
    }

    std::vector<std::string> recordedArguments() override {
        const auto path = folder_ + "/record.out";
        require(runUntil([&] { return std::filesystem::exists(path); }, 10),
                "the program does not run");
        std::vector<std::string> arguments;
        std::ifstream file(path);
        for (std::string argument; std::getline(file, argument, '\0');)
            arguments.push_back(argument);
        return arguments;
    }

    void makeDamagedFile(const std::string& path) override { std::ofstream(path) << "damaged"; }

  private:
    void emptyPool() {
        [pool_ release];
        pool_ = [[NSAutoreleasePool alloc] init];
    }

    NSAutoreleasePool* pool_ = [[NSAutoreleasePool alloc] init];
    cocoa::CocoaPlatform platform_{controller()};
    std::string folder_;
    NSWindow* window_ = nil;
    ContractUser* user_ = [[ContractUser alloc] init];
};

} // namespace

std::unique_ptr<ContractHost> ContractHost::make() {
    launchOnce();
    return std::make_unique<CocoaContractHost>();
}

} // namespace vistrel
