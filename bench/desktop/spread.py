"""Rows of measurements in a few numbers."""

from __future__ import annotations

import statistics
from collections.abc import Iterable
from typing import NamedTuple


class Spread(NamedTuple):
    """The middle of a row, and where four of five values lie."""

    median: float
    low: float
    high: float

    @classmethod
    def of(cls, values: Iterable[float]) -> Spread:
        row = sorted(values)
        if len(row) < 2:
            return cls(row[0], row[0], row[0])
        tenths = statistics.quantiles(row, n=10, method="inclusive")
        return cls(statistics.median(row), tenths[0], tenths[-1])

    def text(self, digits: int = 1) -> str:
        return f"{self.median:.{digits}f} ({self.low:.{digits}f}–{self.high:.{digits}f})"
