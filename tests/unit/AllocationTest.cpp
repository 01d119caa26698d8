#include "TestHost.h"

#include <cstdlib>
#include <new>

/// A program of its own, because it replaces the allocation functions.
namespace {

std::size_t allocations = 0;

} // namespace

void* operator new(std::size_t size) {
    ++allocations;
    if (void* memory = std::malloc(size)) // NOLINT(cppcoreguidelines-no-malloc)
        return memory;
    throw std::bad_alloc();
}

void operator delete(void* memory) noexcept {
    std::free(memory); // NOLINT(cppcoreguidelines-no-malloc)
}

void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory); // NOLINT(cppcoreguidelines-no-malloc)
}

namespace vistrel {
namespace {

using CommandMethod = void (Corvane::*)();

class GeometryCommand : public HostTest, public testing::WithParamInterface<CommandMethod> {};

TEST_P(GeometryCommand, AllocatesNothing) {
    it.addFrontWindow();
    it.load();
    it.host.calls.isRecording = false;
    auto& controller = *it.corvane.m;
    const auto before = allocations;
    ASSERT_GT(before, 0U) << "allocations are not counted";
    (controller.*GetParam())();
    (controller.*GetParam())();
    EXPECT_EQ(allocations, before);
}

INSTANTIATE_TEST_SUITE_P(Commands, GeometryCommand,
                         testing::Values(&Corvane::left, &Corvane::right, &Corvane::threeL,
                                         &Corvane::threeM, &Corvane::threeR, &Corvane::center,
                                         &Corvane::centerAverage, &Corvane::floating,
                                         &Corvane::setKUIMode, &Corvane::setFullscreenWithDelay,
                                         &Corvane::makeLionFullscreen, &Corvane::spotlight));

} // namespace
} // namespace vistrel
