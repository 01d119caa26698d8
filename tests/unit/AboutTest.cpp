#include "TestHost.h"

namespace vistrel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class AboutWindow : public HostTest {
  protected:
    void SetUp() override {
        HostTest::SetUp();
        it.load();
        it.host.calls.lines.clear();
    }

    Corvane& controller() { return *it.corvane.m; }
};

TEST_F(AboutWindow, IsCentredWhenItsInterfaceIsLoadedAndByTheCommandThenShown) {
    controller().about();
    EXPECT_THAT(it.host.calls.lines,
                ElementsAre("init VTRAbout", "load VTRAbout", "VTRAbout center", "VTRAbout center",
                            "showWindow VTRAbout", "VTRAbout makeKeyAndOrderFront"));
}

TEST_F(AboutWindow, IsMadeOnceAndCentredAtEachCommand) {
    controller().about();
    const auto* first = it.fields().aboutNIBController;
    it.host.calls.lines.clear();
    controller().about();
    EXPECT_EQ(it.fields().aboutNIBController, first);
    EXPECT_THAT(it.host.calls.lines, ElementsAre("VTRAbout center", "showWindow VTRAbout",
                                                 "VTRAbout makeKeyAndOrderFront"));
}

TEST_F(AboutWindow, ComesBackToTheCentreWhenItWasMoved) {
    controller().about();
    auto& window = *it.host.resources().about->outlets.loadedWindow;
    const auto centred = window.frame();
    window.setFrameAnimated({.x = 0, .y = 0, .width = centred.width, .height = centred.height});
    controller().about();
    EXPECT_EQ(window.frame(), centred);
}

TEST_F(AboutWindow, WithoutAnInterfaceShowsNothing) {
    it.host.resources().canLoadInterfaces = false;
    controller().about();
    controller().about();
    EXPECT_THAT(it.host.calls.lines,
                ElementsAre("init VTRAbout", "showWindow VTRAbout", "showWindow VTRAbout"));
}

TEST_F(AboutWindow, IsTriedAgainWhereNoControllerCouldBeMade) {
    it.host.resources().canMakeControllers = false;
    controller().about();
    EXPECT_EQ(it.fields().aboutNIBController, nullptr);
    EXPECT_THAT(it.host.calls.lines, IsEmpty());
    it.host.resources().canMakeControllers = true;
    controller().about();
    EXPECT_NE(it.fields().aboutNIBController, nullptr);
}

TEST_F(AboutWindow, OpensFourPages) {
    controller().about();
    auto& owner = it.host.resources().about->owner;
    it.host.calls.lines.clear();
    owner.openManuals();
    owner.openQuorvix();
    owner.openSupport();
    owner.openACK();
    EXPECT_THAT(it.host.calls.lines,
                ElementsAre("openURL http://second.example/support/manuals/manuals.html",
                            "openURL http://main.example/",
                            "openURL http://second.example/support/support.html",
                            "openURL http://main.example/acknowledgment.html"));
}

TEST_F(AboutWindow, SharesNothingWithTheSettingsWindow) {
    controller().about();
    EXPECT_EQ(it.fields().preferencesController, nullptr);
    controller().preferences();
    EXPECT_NE(it.fields().preferencesController, it.fields().aboutNIBController);
}

class Links : public AboutWindow {};

TEST_F(Links, OpenTheReleaseNotesAndTheMakersApplications) {
    controller().openWebsite();
    controller().quorvix();
    EXPECT_THAT(it.host.calls.lines,
                ElementsAre("openURL http://blog.example/vistrel",
                            "openURL http://second.example/applications/applications.html"));
}

} // namespace
} // namespace vistrel
