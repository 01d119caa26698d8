#pragma once

#include "core/Corvane.h"

#include <array>

namespace vistrel {

using Flag = bool CorvaneFields::*;
using SavedFrame = Rect CorvaneFields::*;

/// One of the toggles that move a window to a part of its screen: (W / divisor) × steps + offset is
/// the x of the new frame, trunc(W / divisor − margin) its width.
struct Layout {
    Flag flag;
    SavedFrame savedFrame;
    double divisor;
    double steps;
    double offset;
    double margin;
    /// What the command clears at its end, in this order. The thirds leave the flag of the left
    /// half as it is.
    std::array<Flag, 4> clearedFlags;
};

inline constexpr Layout leftHalf{
    .flag = &CorvaneFields::isLeft,
    .savedFrame = &CorvaneFields::rectLeft,
    .divisor = 2,
    .steps = 0,
    .offset = 0,
    .margin = 2,
    .clearedFlags = {&CorvaneFields::isRight, &CorvaneFields::isThreeL, &CorvaneFields::isThreeM,
                     &CorvaneFields::isThreeR},
};
inline constexpr Layout rightHalf{
    .flag = &CorvaneFields::isRight,
    .savedFrame = &CorvaneFields::rectRight,
    .divisor = 2,
    .steps = 1,
    .offset = 1,
    .margin = 2,
    .clearedFlags = {&CorvaneFields::isLeft, &CorvaneFields::isThreeL, &CorvaneFields::isThreeM,
                     &CorvaneFields::isThreeR},
};
inline constexpr Layout leftThird{
    .flag = &CorvaneFields::isThreeL,
    .savedFrame = &CorvaneFields::rectThreeL,
    .divisor = 3,
    .steps = 0,
    .offset = 0,
    .margin = 1,
    .clearedFlags = {&CorvaneFields::isRight, &CorvaneFields::isThreeM, &CorvaneFields::isThreeR},
};
inline constexpr Layout middleThird{
    .flag = &CorvaneFields::isThreeM,
    .savedFrame = &CorvaneFields::rectThreeM,
    .divisor = 3,
    .steps = 1,
    .offset = 1,
    .margin = 3,
    .clearedFlags = {&CorvaneFields::isRight, &CorvaneFields::isThreeL, &CorvaneFields::isThreeR},
};
inline constexpr Layout rightThird{
    .flag = &CorvaneFields::isThreeR,
    .savedFrame = &CorvaneFields::rectThreeR,
    .divisor = 3,
    .steps = 2,
    .offset = 1,
    .margin = 1,
    .clearedFlags = {&CorvaneFields::isRight, &CorvaneFields::isThreeL, &CorvaneFields::isThreeM},
};

/// The frame of the layout on a screen of this frame. Only the screen's size counts: the origin of
/// the new frame is that of all screens. Only the width is truncated; x keeps its fraction.
Rect frameOf(const Layout& layout, const Rect& screen);

/// The size that a window gets before it is centred at standard size: 72 per 100 of the screen's
/// width by 84 per 100 of its height, rounded to single precision. The origin is that of `window`.
Rect standardFrame(const Rect& window, const Rect& screen);

} // namespace vistrel
