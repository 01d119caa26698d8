"""Waiting for conditions.

Nothing in these tests sleeps in the hope that something has happened by then.
They wait for a condition, as briefly as possible, and fail with its name.
"""

from __future__ import annotations

import time
from collections.abc import Callable
from typing import TypeVar

Result = TypeVar("Result")

SHORTEST_PAUSE = 0.005
LONGEST_PAUSE = 0.05


class NotInTime(AssertionError):
    """A condition did not become true within its limit."""


def wait_until(
    predicate: Callable[[], Result],
    what: str,
    timeout: float = 10.0,
    explain: Callable[[], str] | None = None,
) -> Result:
    """Call ``predicate`` until it answers something true, and return that.

    ``what`` completes the sentence "waited N s for ..."; ``explain`` is asked
    for more, such as a log, only when the limit has passed.
    """
    limit = time.monotonic() + timeout
    pause = SHORTEST_PAUSE
    while True:
        result = predicate()
        if result:
            return result
        if time.monotonic() >= limit:
            more = f"\n{explain()}" if explain else ""
            raise NotInTime(
                f"waited {timeout:g} s for {what}; last answer: {result!r}{more}"
            )
        time.sleep(pause)
        pause = min(pause * 1.5, LONGEST_PAUSE)


def insist(
    ask: Callable[[], None],
    predicate: Callable[[], Result],
    what: str,
    timeout: float = 10.0,
    every: float = 0.3,
) -> Result:
    """Ask for something, and ask again from time to time until it is so.

    For what may be lost on its way, as a user clicks again when nothing
    happens; never for what is under test.
    """
    limit = time.monotonic() + timeout
    while True:
        ask()
        left = limit - time.monotonic()
        try:
            return wait_until(predicate, what, max(0.0, min(every, left)))
        except NotInTime:
            if left <= every:
                raise NotInTime(f"asked for {timeout:g} s for {what}") from None
