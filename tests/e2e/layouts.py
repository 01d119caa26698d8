"""Where the commands have to put a window, counted from the upper left corner."""

from __future__ import annotations

import math
from typing import NamedTuple

from harness.geometry import Rect


class Layout(NamedTuple):
    title: str
    parts: int
    steps: int
    margin: int

    def on(self, width: float, height: float, top: int = 0) -> Rect:
        """On a screen of this size, its edges rounded to whole pixels.

        ``top`` is where the main screen's top edge would have to be for the
        window to stand on its lower one: 0, unless screens differ in height.
        """
        part = width / self.parts
        x = part * self.steps + (1 if self.steps else 0)
        right = x + math.trunc(part - self.margin)
        return Rect(round(x), top, round(right) - round(x), round(height))


LEFT = Layout("Toggle ½ Screen Left", 2, 0, 2)
RIGHT = Layout("Toggle ½ Screen Right", 2, 1, 2)
THREE_L = Layout("Toggle ⅓ Screen Left", 3, 0, 1)
THREE_M = Layout("Toggle ⅓ Screen Middle", 3, 1, 3)
THREE_R = Layout("Toggle ⅓ Screen Right", 3, 2, 1)
ALL = (LEFT, RIGHT, THREE_L, THREE_M, THREE_R)


def standard_size(width: int, height: int) -> tuple[int, int]:
    return round(width * 0.72), round(height * 0.84)
