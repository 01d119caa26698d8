#include "HostLife.h"

#include <charconv>
#include <cstdlib>
#include <random>
#include <string_view>

/// Many lives of many hosts, drawn by lot.
///
/// VISTREL_WALK_SEED chooses another walk; the number is in every failure message.
namespace vistrel {
namespace {

constexpr int livesPerShape = 30;
constexpr int stepsPerLife = 400;

std::uint64_t seed() {
    std::uint64_t value = 20090414;
    if (const char* chosen = std::getenv("VISTREL_WALK_SEED")) {
        const std::string_view text = chosen;
        const auto end = text.data() + text.size();
        const auto read = std::from_chars(text.data(), end, value);
        EXPECT_TRUE(read.ec == std::errc() && read.ptr == end) << "VISTREL_WALK_SEED: " << text;
    }
    return value;
}

class RandomWalk : public testing::TestWithParam<Shape> {
  protected:
    /// Lives one life to its end. False when the core and the model differ.
    bool live(int number, Random& random) {
        HostLife life(GetParam(), random);
        auto differences = life.start();
        int step = 0;
        for (; differences.empty() && step < stepsPerLife; ++step)
            differences = life.step();
        if (differences.empty())
            return true;
        ADD_FAILURE() << "VISTREL_WALK_SEED=" << seed() << ", life " << number << ", step " << step
                      << " (0 is the start)\nThe latest steps:\n"
                      << life.history() << "What differs then:\n"
                      << differences;
        return false;
    }
};

TEST_P(RandomWalk, CoreAndModelAgree) {
    const auto shape = static_cast<std::uint64_t>(
        std::ranges::find(shapes, GetParam().name, &Shape::name) - shapes.begin());
    Random random(std::mt19937_64(seed() * shapes.size() + shape));
    for (int life = 0; life < livesPerShape; ++life)
        if (!live(life, random))
            break;
}

INSTANTIATE_TEST_SUITE_P(Hosts, RandomWalk, testing::ValuesIn(shapes),
                         [](const auto& shape) { return std::string(shape.param.name); });

} // namespace
} // namespace vistrel
