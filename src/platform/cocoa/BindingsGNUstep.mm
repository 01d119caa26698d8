#import "platform/cocoa/BindingsGNUstep.h"

#import "platform/cocoa/CocoaUserDefaults.h"
#import "platform/cocoa/Convert.h"
#import "platform/cocoa/Guard.h"

#import <AppKit/NSButton.h>
#import <AppKit/NSControl.h>
#import <AppKit/NSKeyValueBinding.h>
#import <AppKit/NSPopUpButton.h>
#import <AppKit/NSView.h>
#import <AppKit/NSWindow.h>
#import <Foundation/NSNotification.h>
#import <Foundation/NSObject.h>
#import <Foundation/NSString.h>
#import <Foundation/NSThread.h>
#import <Foundation/NSUserDefaults.h>

#include <string>
#include <vector>

namespace {

using vistrel::cocoa::CocoaUserDefaults;

constexpr NSString* valuesPrefix = @"values.";

/// What of a control is a value: whether it is enabled, the selected index, the state, the text.
enum class Part { enabled, index, state, text };

/// A control, and which part of it is the value of `key`.
struct Binding {
    NSControl* control;
    Part part;
    std::string key;
};

Part partOf(NSControl* control, NSString* bindingName) {
    if ([bindingName isEqualToString:NSEnabledBinding])
        return Part::enabled;
    if ([control isKindOfClass:[NSPopUpButton class]])
        return Part::index;
    return [control isKindOfClass:[NSButton class]] ? Part::state : Part::text;
}

/// Takes the bindings of `control` from the platform.
void collectFrom(NSControl* control, std::vector<Binding>& bindings) {
    for (NSString* name in @[ NSValueBinding, NSSelectedIndexBinding, NSEnabledBinding ]) {
        NSString* path = [[control infoForBinding:name] objectForKey:NSObservedKeyPathKey];
        if (![path hasPrefix:valuesPrefix])
            continue;
        NSString* key = [path substringFromIndex:[valuesPrefix length]];
        bindings.push_back({control, partOf(control, name), vistrel::cocoa::toString(key)});
        [control unbind:name];
    }
}

void collect(NSView* view, std::vector<Binding>& bindings) {
    if ([view isKindOfClass:[NSControl class]])
        collectFrom(static_cast<NSControl*>(view), bindings);
    for (NSView* subview in [view subviews])
        collect(subview, bindings);
}

void showEnabled(NSControl* control, const std::string& key) {
    [control setEnabled:CocoaUserDefaults().boolForKey(key) ? YES : NO];
}

/// Blank for an index that is none of the choices.
void showIndex(NSPopUpButton* button, const std::string& key) {
    const auto index = CocoaUserDefaults().integerForKey(key);
    const bool isChoice = index >= 0 && index < [button numberOfItems];
    [button selectItemAtIndex:isChoice ? static_cast<NSInteger>(index) : -1];
}

void showState(NSButton* button, const std::string& key) {
    [button setState:CocoaUserDefaults().boolForKey(key) ? NSOnState : NSOffState];
}

/// Empty for what is no text: menu items take nothing else for a key either.
void showText(NSControl* field, const std::string& key) {
    const auto value = CocoaUserDefaults().objectForKey(key);
    const auto* const text = value ? std::get_if<std::string>(&*value) : nullptr;
    NSString* shown = text != nullptr ? vistrel::cocoa::toNSString(*text) : @"";
    // The text that its user is editing would lose the insertion point.
    if (![[field stringValue] isEqualToString:shown])
        [field setStringValue:shown];
}

void show(const Binding& binding) {
    switch (binding.part) {
    case Part::enabled:
        return showEnabled(binding.control, binding.key);
    case Part::index:
        return showIndex(static_cast<NSPopUpButton*>(binding.control), binding.key);
    case Part::state:
        return showState(static_cast<NSButton*>(binding.control), binding.key);
    case Part::text:
        return showText(binding.control, binding.key);
    }
}

/// No text is no value, as on macOS.
void storeText(NSString* text, NSString* key) {
    NSUserDefaults* defaults = [NSUserDefaults standardUserDefaults];
    if ([text length] == 0)
        [defaults removeObjectForKey:key];
    else
        [defaults setObject:text forKey:key];
}

void store(const Binding& binding) {
    NSUserDefaults* defaults = [NSUserDefaults standardUserDefaults];
    NSString* key = vistrel::cocoa::toNSString(binding.key);
    switch (binding.part) {
    case Part::enabled:
        return;
    case Part::index:
        return
            [defaults setInteger:[static_cast<NSPopUpButton*>(binding.control) indexOfSelectedItem]
                          forKey:key];
    case Part::state:
        return [defaults setBool:[static_cast<NSButton*>(binding.control) state] == NSOnState
                          forKey:key];
    case Part::text:
        return storeText([binding.control stringValue], key);
    }
}

} // namespace

/// The controls of one window and the defaults they edit. Keeps the controls, so that it never
/// speaks to one that is gone.
@interface VTRBindings : NSObject {
    std::vector<Binding> bindings;
}
- (id)initWithWindow:(NSWindow*)window;
@end

@implementation VTRBindings

- (id)initWithWindow:(NSWindow*)window {
    if (!(self = [super init]))
        return nil;
    collect([window contentView], bindings);
    for (const auto& binding : bindings) {
        [binding.control retain];
        [self listenTo:binding];
    }
    NSNotificationCenter* center = [NSNotificationCenter defaultCenter];
    [center addObserver:self
               selector:@selector(defaultsDidChange:)
                   name:NSUserDefaultsDidChangeNotification
                 object:[NSUserDefaults standardUserDefaults]];
    [self showAll];
    return self;
}

- (void)listenTo:(const Binding&)binding {
    if (binding.part == Part::text) {
        [[NSNotificationCenter defaultCenter] addObserver:self
                                                 selector:@selector(textDidChange:)
                                                     name:NSControlTextDidChangeNotification
                                                   object:binding.control];
    } else if (binding.part != Part::enabled) {
        [binding.control setTarget:self];
        [binding.control setAction:@selector(controlDidChange:)];
    }
}

- (void)dealloc {
    [[NSNotificationCenter defaultCenter] removeObserver:self];
    for (const auto& binding : bindings) {
        if ([binding.control target] == self)
            [binding.control setTarget:nil];
        [binding.control release];
    }
    [super dealloc];
}

- (void)showAll {
    vistrel::cocoa::runGuarded([self] {
        for (const auto& binding : bindings)
            show(binding);
    });
}

- (void)storeValueOf:(NSControl*)control {
    vistrel::cocoa::runGuarded([self, control] {
        for (const auto& binding : bindings)
            if (binding.control == control)
                store(binding);
    });
}

- (void)controlDidChange:(id)sender {
    [self storeValueOf:sender];
}

- (void)textDidChange:(NSNotification*)notification {
    [self storeValueOf:[notification object]];
}

/// Comes on whichever thread of the host has changed them.
- (void)defaultsDidChange:(NSNotification*)notification {
    if ([NSThread isMainThread])
        [self showAll];
    else
        [self performSelectorOnMainThread:@selector(showAll) withObject:nil waitUntilDone:NO];
}

@end

namespace vistrel::cocoa::gnustep {

id connectBindings(NSWindow* window) {
    return window != nil ? [[[VTRBindings alloc] initWithWindow:window] autorelease] : nil;
}

} // namespace vistrel::cocoa::gnustep
