#import "ContractHost.h"

#import "platform/cocoa/CocoaPlatform.h"
#import "platform/cocoa/Convert.h"
#import "platform/cocoa/VTRKeyField.h"
#import "platform/cocoa/VTRPreferencesController.h"

#import <AppKit/AppKit.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <functional>

/// The settings window with its interface file, its controls and the defaults that they edit.
/// Outside our namespace, where the names are those of the Objective-C classes.
namespace {

namespace cocoa = vistrel::cocoa;
namespace fs = std::filesystem;
using vistrel::ContractHost;
using vistrel::PropertyList;

enum class Kind { choice, checkBox, text };

/// A setting, and what its control offers.
struct Edited {
    const char* key;
    Kind kind;
    /// How many choices there are.
    NSInteger choices = 0;
    bool isOwnShortcut = false;
};

void PrintTo(const Edited& edited, std::ostream* stream) {
    *stream << edited.key;
}

/// In the order of the keyboard, which is that of the eye.
const std::vector<Edited> allEdited{
    {"globalSettingsIndex", Kind::choice, 4},
    {"spotlightBOOL", Kind::checkBox},
    {"spotlightBOOLIndex", Kind::choice, 2},
    {"globalSettingsFakeFSABool", Kind::checkBox},
    {"vtrDisplaySetupBool", Kind::checkBox},
    {"globalSettingsRestartBOOL", Kind::checkBox},
    {"vtrRestartFinderBOOL", Kind::checkBox},
    {"kuiMode", Kind::choice, 3},
    {"windowMode", Kind::choice, 2},
    {"ownShortCuts", Kind::checkBox},
    {"restoreToggleIndex", Kind::choice, 3, true},
    {"restoreString", Kind::text, 0, true},
    {"centerToggleIndex", Kind::choice, 3, true},
    {"centerString", Kind::text, 0, true},
    {"fullscreenToggleIndex", Kind::choice, 3, true},
    {"fullscreenString", Kind::text, 0, true},
    {"menuToggleIndex", Kind::choice, 3, true},
    {"menuString", Kind::text, 0, true},
};

NSString* keyOf(const Edited& edited) {
    return [NSString stringWithUTF8String:edited.key];
}

NSUserDefaults* defaults() {
    return [NSUserDefaults standardUserDefaults];
}

std::vector<NSView*> viewsIn(NSView* view) {
    std::vector<NSView*> all{view};
    for (NSView* subview in [view subviews]) {
        const auto below = viewsIn(subview);
        all.insert(all.end(), below.begin(), below.end());
    }
    return all;
}

bool isChoice(NSControl* control) {
    return [control isKindOfClass:[NSPopUpButton class]];
}

bool isText(NSControl* control) {
    return [control isKindOfClass:[NSTextField class]];
}

/// What a user sees of the control's value.
std::string shownIn(NSControl* control) {
    if (isChoice(control))
        return std::to_string([static_cast<NSPopUpButton*>(control) indexOfSelectedItem]);
    if (isText(control))
        return cocoa::toString([control stringValue]);
    return [static_cast<NSButton*>(control) state] == NSOnState ? "on" : "off";
}

class SettingsWindow : public testing::Test {
  protected:
    void SetUp() override {
        for (const auto& edited : allEdited)
            [defaults() removeObjectForKey:keyOf(edited)];
        fs::remove_all(folder);
        pool = [[NSAutoreleasePool alloc] init];
        controller = [[VTRPreferencesController alloc] initWithPlatform:platform];
    }

    void TearDown() override {
        [[controller window] close];
        [controller release];
        [pool release];
        fs::remove_all(folder);
    }

    [[nodiscard]] NSWindow* window() const { return [controller window]; }

    [[nodiscard]] std::vector<NSControl*> controls() const {
        std::vector<NSControl*> found;
        for (NSView* view : viewsIn([window() contentView]))
            if ([view isKindOfClass:[NSControl class]])
                found.push_back(static_cast<NSControl*>(view));
        return found;
    }

    /// The one control that follows this setting; nil if there is none, or more than one.
    [[nodiscard]] NSControl* controlOf(const Edited& edited) const {
        const auto all = controls();
        [defaults() setBool:YES forKey:@"ownShortCuts"];
        [defaults() removeObjectForKey:keyOf(edited)];
        std::vector<std::string> before;
        for (NSControl* control : all)
            before.push_back(shownIn(control));
        [defaults() setObject:edited.kind == Kind::text ? @"k" : @"1" forKey:keyOf(edited)];
        NSControl* found = nil;
        int count = 0;
        for (std::size_t index = 0; index < all.size(); ++index) {
            if (shownIn(all[index]) == before[index])
                continue;
            found = all[index];
            ++count;
        }
        [defaults() setBool:YES forKey:@"ownShortCuts"];
        [defaults() removeObjectForKey:keyOf(edited)];
        return count == 1 ? found : nil;
    }

    /// Types into the text field as the keyboard does, one character after the other.
    void type(NSControl* field, const std::string& text) const {
        [window() makeFirstResponder:field];
        auto* const editor = static_cast<NSTextView*>([field currentEditor]);
        for (const char character : text)
            [editor insertText:[NSString stringWithFormat:@"%c", character]];
    }

    void writeFile(int globalSettingsIndex) const {
        fs::create_directories(folder);
        std::ofstream(folder / "Settings.plist")
            << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\"><dict>"
               "<key>globalSettingsIndex</key><integer>"
            << globalSettingsIndex << "</integer></dict></plist>\n";
    }

    std::unique_ptr<ContractHost> host = ContractHost::make();
    cocoa::CocoaPlatform platform{nil};
    const fs::path folder =
        platform.fileManager().expandTilde("~/Library/Application Support/Vistrel");
    NSAutoreleasePool* pool = nil;
    VTRPreferencesController* controller = nil;
};

TEST_F(SettingsWindow, IsLoadedWhenItIsFirstAskedFor) {
    EXPECT_FALSE([controller isWindowLoaded]);
    EXPECT_FALSE(fs::exists(folder));
    EXPECT_TRUE([window() isVisible]);
    EXPECT_TRUE([controller isWindowLoaded]);
    EXPECT_TRUE(fs::exists(folder));
}

TEST_F(SettingsWindow, HasItsOutletsConnected) {
    EXPECT_EQ([controller valueForKey:@"window"], window());
    NSTextField* name = [controller valueForKey:@"appName"];
    EXPECT_EQ(cocoa::toString([name stringValue]),
              cocoa::toString([[NSProcessInfo processInfo] processName]));
}

TEST_F(SettingsWindow, StaysTheSameWhenItIsClosedAndShownAgain) {
    writeFile(2);
    NSWindow* before = window();
    EXPECT_EQ([defaults() integerForKey:@"globalSettingsIndex"], 2);
    [before setFrameOrigin:NSMakePoint(17, 29)];
    NSTextField* name = [controller valueForKey:@"appName"];
    [name setStringValue:@"as it was"];
    [before performClose:nil];
    EXPECT_FALSE([before isVisible]);

    writeFile(3);
    [controller showWindow:nil];
    EXPECT_EQ(window(), before);
    EXPECT_TRUE([before isVisible]);
    EXPECT_EQ(NSMinX([before frame]), 17);
    EXPECT_EQ(NSMinY([before frame]), 29);
    EXPECT_EQ([defaults() integerForKey:@"globalSettingsIndex"], 2) << "the file is read once";
    EXPECT_EQ(cocoa::toString([name stringValue]), "as it was");
}

TEST_F(SettingsWindow, ShowsWhatTheFileHolds) {
    writeFile(3);
    auto* const first = static_cast<NSControl*>([window() initialFirstResponder]);
    EXPECT_EQ(shownIn(first), "3");
}

TEST_F(SettingsWindow, FitsIntoASmallScreen) {
    EXPECT_LE(NSWidth([window() frame]), 1024);
    EXPECT_LE(NSHeight([window() frame]), 720);
    EXPECT_FALSE([window() styleMask] & NSResizableWindowMask);
}

TEST_F(SettingsWindow, CutsNoTextOff) {
    for (NSControl* control : controls()) {
        const NSSize needed = [[control cell] cellSize];
        EXPECT_LE(needed.width, NSWidth([control bounds])) << shownIn(control);
        EXPECT_LE(needed.height, NSHeight([control bounds]) + 6) << shownIn(control);
    }
}

TEST_F(SettingsWindow, LetsItsUserEditNoLabel) {
    for (NSControl* control : controls()) {
        if (!isText(control))
            continue;
        EXPECT_EQ([static_cast<NSTextField*>(control) isEditable] != NO,
                  [control isKindOfClass:[VTRKeyField class]] != NO)
            << shownIn(control);
    }
}

TEST_F(SettingsWindow, LeadsTheKeyboardThroughAllControlsInOrder) {
    NSView* view = [window() initialFirstResponder];
    for (const auto& edited : allEdited) {
        EXPECT_EQ(view, controlOf(edited)) << edited.key;
        if (edited.key == std::string("vtrRestartFinderBOOL")) {
            view = [view nextKeyView];
            EXPECT_EQ([static_cast<NSControl*>(view) action], @selector(savePreferences:));
        }
        view = [view nextKeyView];
    }
    for (SEL action :
         { @selector(openManual:), @selector(openQuorvix:), @selector(performClose:) }) {
        EXPECT_EQ(sel_getName([static_cast<NSControl*>(view) action]), sel_getName(action));
        view = [view nextKeyView];
    }
    EXPECT_EQ(view, [window() initialFirstResponder]);
}

TEST_F(SettingsWindow, ReleasedWithItsControllerItNoLongerFollowsTheDefaults) {
    NSControl* control = [controlOf(allEdited.front()) retain];
    [[controller window] close];
    [controller release];
    [pool release];
    pool = [[NSAutoreleasePool alloc] init];
    controller = nil;
    [defaults() setInteger:3 forKey:@"globalSettingsIndex"];
    EXPECT_EQ(shownIn(control), "0");
    EXPECT_EQ([control target], nil);
    [control release];
}

TEST_F(SettingsWindow, AKeyFieldKeepsTheLastTypedCharacter) {
    NSControl* field = controlOf({"centerString", Kind::text, 0, true});
    type(field, "a");
    EXPECT_EQ(cocoa::toString([defaults() stringForKey:@"centerString"]), "a");
    type(field, "]");
    EXPECT_EQ(shownIn(field), "]");
    EXPECT_EQ(cocoa::toString([defaults() stringForKey:@"centerString"]), "]");
}

TEST_F(SettingsWindow, AKeyFieldKeepsACharacterOfSeveralUnits) {
    NSControl* field = controlOf({"centerString", Kind::text, 0, true});
    type(field, "a");
    [static_cast<NSTextView*>([field currentEditor]) insertText:@"𝄞"];
    EXPECT_EQ(cocoa::toString([defaults() stringForKey:@"centerString"]), "𝄞");
}

TEST_F(SettingsWindow, AnEmptiedKeyFieldRemovesItsSetting) {
    NSControl* field = controlOf({"centerString", Kind::text, 0, true});
    [defaults() setObject:@"e" forKey:@"centerString"];
    [window() makeFirstResponder:field];
    auto* const editor = static_cast<NSTextView*>([field currentEditor]);
    [editor selectAll:nil];
    [editor deleteBackward:nil];
    EXPECT_EQ([defaults() objectForKey:@"centerString"], nil);
}

TEST_F(SettingsWindow, WhatIsTypedIsStoredBeforeTheWindowClosesOrIsSaved) {
    NSControl* field = controlOf({"menuString", Kind::text, 0, true});
    type(field, "m");
    [window() performClose:nil];
    EXPECT_EQ(cocoa::toString([defaults() stringForKey:@"menuString"]), "m");
}

TEST_F(SettingsWindow, FollowsAChangeMadeOnAnotherThread) {
    NSControl* control = controlOf({"kuiMode", Kind::choice, 3});
    auto* const dictionary = @{@"kuiMode" : @2};
    auto* const queue = [[[NSOperationQueue alloc] init] autorelease];
    [queue addOperation:[[[NSInvocationOperation alloc]
                            initWithTarget:defaults()
                                  selector:@selector(setValuesForKeysWithDictionary:)
                                    object:dictionary] autorelease]];
    [queue waitUntilAllOperationsAreFinished];
    EXPECT_EQ(shownIn(control), "0") << "controls are for the main thread";
    for (int turn = 0; turn < 500 && shownIn(control) != "2"; ++turn)
        host->letPass(0.01);
    EXPECT_EQ(shownIn(control), "2");
}

class EachSetting : public SettingsWindow, public testing::WithParamInterface<Edited> {
  protected:
    void SetUp() override {
        SettingsWindow::SetUp();
        control = controlOf(GetParam());
        ASSERT_NE(control, nil);
        key = keyOf(GetParam());
    }

    NSControl* control = nil;
    NSString* key = nil;
};

TEST_P(EachSetting, HasAControlOfItsOwnKind) {
    EXPECT_EQ(isChoice(control), GetParam().kind == Kind::choice);
    EXPECT_EQ(isText(control), GetParam().kind == Kind::text);
    if (isChoice(control))
        EXPECT_EQ([static_cast<NSPopUpButton*>(control) numberOfItems], GetParam().choices);
}

TEST_P(EachSetting, IsShownAtOnceAlsoWhenItIsRemoved) {
    const bool isNumber = GetParam().kind == Kind::choice;
    const bool isFlag = GetParam().kind == Kind::checkBox;
    const auto none = shownIn(control);
    EXPECT_EQ(none, isNumber ? "0" : isFlag ? "off" : "");
    if (isNumber)
        [defaults() setInteger:GetParam().choices - 1 forKey:key];
    else if (isFlag)
        [defaults() setBool:YES forKey:key];
    else
        [defaults() setObject:@"x" forKey:key];
    const auto last = std::to_string(GetParam().choices - 1);
    EXPECT_EQ(shownIn(control), isNumber ? last : isFlag ? "on" : "x");
    [defaults() removeObjectForKey:key];
    EXPECT_EQ(shownIn(control), none);
}

TEST_P(EachSetting, IsStoredAtOnceInItsOwnType) {
    if (GetParam().kind == Kind::choice) {
        auto* const button = static_cast<NSPopUpButton*>(control);
        for (NSInteger choice = GetParam().choices; choice-- > 0;) {
            [button selectItemAtIndex:choice];
            [button sendAction:[button action] to:[button target]];
            EXPECT_EQ(platform.userDefaults().objectForKey(GetParam().key),
                      PropertyList(std::int64_t{choice}));
        }
    } else if (GetParam().kind == Kind::checkBox) {
        for (const bool isOn : {true, false}) {
            [control setEnabled:YES];
            [static_cast<NSButton*>(control) setState:isOn ? NSOnState : NSOffState];
            [control sendAction:[control action] to:[control target]];
            EXPECT_EQ(platform.userDefaults().objectForKey(GetParam().key), PropertyList(isOn));
        }
    } else {
        type(control, "q");
        EXPECT_EQ(platform.userDefaults().objectForKey(GetParam().key),
                  PropertyList(std::string("q")));
    }
}

TEST_P(EachSetting, IsEnabledWithTheUsersOwnShortcutsIfItIsOneOfThem) {
    [defaults() setBool:NO forKey:@"ownShortCuts"];
    EXPECT_EQ([control isEnabled] != NO, !GetParam().isOwnShortcut);
    [defaults() setBool:YES forKey:@"ownShortCuts"];
    EXPECT_TRUE([control isEnabled]);
}

TEST_P(EachSetting, ShowsAnyValueAsItActs) {
    struct Odd {
        id value;
        const char* index;
        const char* state;
        const char* text;
    };

    // No such choice is blank.
    const std::vector<Odd> odd{
        {@"YES", "0", "on", "YES"},
        {@"1x", "1", "on", "1x"},
        {@"no", "0", "off", "no"},
        {@"", "0", "off", ""},
        {@77, "-1", "on", ""},
        {@-1, "-1", "on", ""},
        {@1.9, "1", "on", ""},
        {@"99999999999999999999999999", "-1", "on", "99999999999999999999999999"},
        {[NSNumber numberWithLongLong:9223372036854775807], "-1", "on", ""},
        {@[ @1, @"k" ], "0", "off", ""},
        {@{@"a" : @1}, "0", "off", ""},
        {[NSData data], "0", "off", ""},
        {[NSDate dateWithTimeIntervalSinceReferenceDate:1], "0", "off", ""},
    };
    for (const auto& each : odd) {
        [defaults() setObject:each.value forKey:key];
        EXPECT_EQ(shownIn(control), GetParam().kind == Kind::choice     ? each.index
                                    : GetParam().kind == Kind::checkBox ? each.state
                                                                        : each.text)
            << [[each.value description] UTF8String];
        EXPECT_EQ([[defaults() objectForKey:key] isEqual:each.value], YES) << "only looked at";
    }
}

INSTANTIATE_TEST_SUITE_P(All, EachSetting, testing::ValuesIn(allEdited),
                         [](const auto& each) { return std::string(each.param.key); });

} // namespace
