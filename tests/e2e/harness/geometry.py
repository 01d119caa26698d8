"""Rectangles as the X server counts them: rows run down from the top."""

from __future__ import annotations

from typing import NamedTuple


class Rect(NamedTuple):
    x: int
    y: int
    width: int
    height: int

    @property
    def centre(self) -> tuple[int, int]:
        return self.x + self.width // 2, self.y + self.height // 2

    @property
    def box(self) -> tuple[int, int, int, int]:
        """Left, top, right, bottom, as pictures are cropped."""
        return self.x, self.y, self.x + self.width, self.y + self.height

    def contains(self, x: int, y: int) -> bool:
        return (
            self.x <= x < self.x + self.width and self.y <= y < self.y + self.height
        )
