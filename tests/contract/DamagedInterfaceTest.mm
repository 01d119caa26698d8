#include "ContractTest.h"

#include "core/Corvane.h"

#import <AppKit/AppKit.h>

#include <filesystem>
#include <fstream>
#include <iterator>

namespace vistrel {
namespace {

namespace fs = std::filesystem;

/// One of our windows: the command that shows it, and its interface file.
struct OwnWindow {
    const char* name;
    void (Corvane::*show)();
    fs::path file;
};

void PrintTo(const OwnWindow& window, std::ostream* stream) {
    *stream << window.name;
}

const std::vector<OwnWindow> ownWindows{
    {"About", &Corvane::about, VISTREL_INTERFACES "/VTRAbout.xib"},
    {"Settings", &Corvane::preferences, VISTREL_INTERFACES "/VTRPreferences.xib"},
};

/// What may have become of a good file; nullopt when it is not there at all.
struct Damage {
    const char* name;
    std::optional<std::string> (*content)(const std::string& good);
};

void PrintTo(const Damage& damage, std::ostream* stream) {
    *stream << damage.name;
}

std::string replaced(std::string text, std::string_view old, std::string_view by) {
    const auto place = text.find(old);
    EXPECT_NE(place, std::string::npos) << old;
    return text.replace(place, old.size(), by);
}

const std::vector<Damage> damages{
    {"Missing", [](auto&) -> std::optional<std::string> { return std::nullopt; }},
    {"Empty", [](auto&) -> std::optional<std::string> { return ""; }},
    {"Text", [](auto&) -> std::optional<std::string> { return "hello"; }},
    {"Bytes", [](auto&) -> std::optional<std::string> { return std::string(4096, '\xff'); }},
    {"CutOff",
     [](auto& good) -> std::optional<std::string> { return good.substr(0, good.size() / 2); }},
    {"WithoutWindow",
     [](auto&) -> std::optional<std::string> {
         return R"(<?xml version="1.0" encoding="UTF-8"?>
<document type="com.apple.InterfaceBuilder3.Cocoa.XIB" version="3.0" targetRuntime="MacOSX.Cocoa">
    <objects><customObject id="-2" userLabel="File's Owner" customClass="NoSuchClass"/></objects>
</document>
)";
     }},
    {"WithAnOutletThatNobodyHas",
     [](auto& good) -> std::optional<std::string> {
         return replaced(good, "property=\"window\"", "property=\"nobodyHasThis\"");
     }},
};

class DamagedInterface : public ContractTest,
                         public testing::WithParamInterface<std::tuple<OwnWindow, Damage>> {
  protected:
    void SetUp() override {
        pool = [[NSAutoreleasePool alloc] init];
        giveBack();
        before = [[NSApp windows] copy];
    }

    void TearDown() override {
        for (NSWindow* window in shown())
            [window close];
        [before release];
        [pool release];
        giveBack();
    }

    [[nodiscard]] const fs::path& file() const { return std::get<0>(GetParam()).file; }

    [[nodiscard]] fs::path kept() const { return fs::path(file()) += ".kept"; }

    void damage() const {
        std::ifstream stream(file(), std::ios::binary);
        const std::string good{std::istreambuf_iterator<char>(stream), {}};
        const auto content = std::get<1>(GetParam()).content(good);
        fs::rename(file(), kept());
        if (content)
            std::ofstream(file(), std::ios::binary) << *content;
    }

    /// Also after a run that did not come to its end.
    void giveBack() const {
        if (fs::exists(kept()))
            fs::rename(kept(), file());
    }

    void show() { (corvane.*std::get<0>(GetParam()).show)(); }

    /// The windows that this test has brought onto the screen.
    [[nodiscard]] NSArray* shown() const {
        NSMutableArray* windows = [NSMutableArray array];
        for (NSWindow* window in [NSApp windows])
            if ([window isVisible] && ![before containsObject:window])
                [windows addObject:window];
        return windows;
    }

    Corvane corvane{host->platform()};
    NSAutoreleasePool* pool = nil;
    NSArray* before = nil;
};

TEST_P(DamagedInterface, ShowsNothingAndRaisesNothing) {
    damage();
    for (int attempt = 0; attempt < 3; ++attempt) {
        show();
        EXPECT_EQ([shown() count], 0U);
    }
}

INSTANTIATE_TEST_SUITE_P(Files, DamagedInterface,
                         testing::Combine(testing::ValuesIn(ownWindows),
                                          testing::ValuesIn(damages)),
                         [](const auto& instance) {
                             return std::string(std::get<0>(instance.param).name) +
                                    std::get<1>(instance.param).name;
                         });

} // namespace
} // namespace vistrel
