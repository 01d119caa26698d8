#import "platform/cocoa/CocoaMenu.h"

#import "platform/cocoa/Convert.h"
#import "platform/cocoa/Native.h"

#import <AppKit/NSCell.h>
#import <AppKit/NSMenu.h>
#import <AppKit/NSMenuItem.h>
#import <Foundation/NSString.h>

namespace vistrel::cocoa {

namespace {

SEL selectorOf(Command command) {
    return NSSelectorFromString(toNSString(actionName(command)));
}

/// Answers `id` because GNUstep declares the items of menus by a protocol and AppKit by their
/// class.
id makeItem(const MenuItemDescription& description, id controller) {
    if (description.title.empty())
        return [NSMenuItem separatorItem];

    NSMenuItem* item = [[[NSMenuItem alloc] initWithTitle:toNSString(description.title)
                                                   action:NULL
                                            keyEquivalent:@""] autorelease];
    if (description.command) {
        [item setAction:selectorOf(*description.command)];
        [item setTarget:controller];
        [item setRepresentedObject:controller];
    }
    if (description.shortcut) {
        native::setKeyEquivalent(item, description.shortcut->key);
        [item setKeyEquivalentModifierMask:description.shortcut->mask];
    }
    if (!description.submenu.empty()) {
        NSMenu* submenu = [[[NSMenu alloc] init] autorelease];
        for (const auto& below : description.submenu)
            [submenu addItem:makeItem(below, controller)];
        [item setSubmenu:submenu];
    }
    return item;
}

} // namespace

CocoaMenuItem& CocoaMenuItem::bind(id item) {
    item_ = item;
    return *this;
}

Menu& CocoaMenuItem::submenu() {
    if (!submenu_)
        submenu_ = std::make_unique<CocoaMenu>(controller_);
    return submenu_->bind([item_ submenu]);
}

bool CocoaMenuItem::isOfSeparatorClass() const {
    return [item_ isKindOfClass:[[NSMenuItem separatorItem] class]] != NO;
}

void CocoaMenuItem::setState(bool on) {
    [item_ setState:on ? NSOnState : NSOffState];
}

CocoaMenu& CocoaMenu::bind(NSMenu* menu) {
    menu_ = [[menu retain] autorelease];
    return *this;
}

std::string CocoaMenu::menuName() const {
    return native::menuName(menu_);
}

std::int32_t CocoaMenu::itemCount() const {
    return static_cast<std::int32_t>([menu_ numberOfItems]);
}

MenuItem& CocoaMenu::itemAtIndex(std::int32_t index) {
    const bool inside = index >= 0 && index < itemCount();
    return item_.bind(inside ? [menu_ itemAtIndex:index] : nil);
}

MenuItem& CocoaMenu::itemWithTitle(std::string_view title) {
    return item_.bind([menu_ itemWithTitle:toNSString(title)]);
}

std::int32_t CocoaMenu::indexOfZoomItem() const {
    return static_cast<std::int32_t>([menu_ indexOfItemWithTarget:nil
                                                        andAction:@selector(performZoom:)]);
}

void CocoaMenu::insertItem(const MenuItemDescription& item, std::int32_t index) {
    if (index >= 0 && index <= itemCount())
        [menu_ insertItem:makeItem(item, controller_) atIndex:index];
}

} // namespace vistrel::cocoa
