#include "AllocationCounter.h"
#include "TestHost.h"

/// A program of its own, because the counter replaces the allocation functions.
namespace vistrel {
namespace {

using CommandMethod = void (Corvane::*)();

class GeometryCommand : public HostTest, public testing::WithParamInterface<CommandMethod> {};

TEST_P(GeometryCommand, AllocatesNothing) {
    it.addFrontWindow();
    it.load();
    it.host.calls.isRecording = false;
    auto& controller = *it.corvane.m;
    const auto before = allocationsSoFar();
    ASSERT_GT(before, 0U) << "allocations are not counted";
    (controller.*GetParam())();
    (controller.*GetParam())();
    EXPECT_EQ(allocationsSoFar(), before);
}

INSTANTIATE_TEST_SUITE_P(Commands, GeometryCommand,
                         testing::Values(&Corvane::left, &Corvane::right, &Corvane::threeL,
                                         &Corvane::threeM, &Corvane::threeR, &Corvane::center,
                                         &Corvane::centerAverage, &Corvane::floating,
                                         &Corvane::setKUIMode, &Corvane::setFullscreenWithDelay,
                                         &Corvane::makeLionFullscreen, &Corvane::spotlight));

} // namespace
} // namespace vistrel
