"""The stopwatch program, which acts on an X server and watches it from outside."""

from __future__ import annotations

import queue
import subprocess
import threading
import time
from collections.abc import Iterable
from pathlib import Path
from typing import NamedTuple

from harness.geometry import Rect

# The platform shows a chosen shortcut for 0.1 s, and nothing takes longer than that to settle.
QUIET_SECONDS = 0.25


class Event(NamedTuple):
    time: int  # nanoseconds
    kind: str
    window: int
    place: Rect


class Stopwatch:
    """Use as a context manager. ``client``: a window of a host inside the frame of its manager."""

    def __init__(self, program: Path, display: str, client: int | None = None) -> None:
        self._process = subprocess.Popen(
            [program, *([str(client)] if client else [])],
            env={"DISPLAY": display},
            stdin=subprocess.PIPE,
            stdout=subprocess.PIPE,
            text=True,
        )
        self._lines: queue.SimpleQueue[str] = queue.SimpleQueue()
        self._events: list[Event] = []
        threading.Thread(target=self._read, daemon=True).start()
        assert self._lines.get(timeout=10).endswith("ready")

    def __enter__(self) -> Stopwatch:
        return self

    def __exit__(self, *unused: object) -> None:
        self._process.stdin.close()
        self._process.wait()

    def _read(self) -> None:
        for line in self._process.stdout:
            self._lines.put(line.rstrip())

    def _take(self, timeout: float) -> int | None:
        """The time of an answer; an event is kept, and None is the answer."""
        moment, kind, *rest = self._lines.get(timeout=timeout).split()
        if kind == "done":
            return int(moment)
        window, *place = map(int, rest)
        self._events.append(Event(int(moment), kind, window, Rect(*place)))
        return None

    def _ask(self, command: str) -> int:
        self._process.stdin.write(command + "\n")
        self._process.stdin.flush()
        while (moment := self._take(10)) is None:
            pass
        return moment

    def down(self, *keys: str) -> int:
        return self._ask(" ".join(["down", *keys]))

    def up(self, *keys: str) -> int:
        return self._ask(" ".join(["up", *keys]))

    def chord(self, *keys: str) -> int:
        """When the last of the keys went down; the others are down long before."""
        *modifiers, last = keys
        if modifiers:
            self.down(*modifiers)
            time.sleep(0.05)
        moment = self.down(last)
        self.up(last, *reversed(modifiers))
        return moment

    def place(self, window: int, place: Rect) -> int:
        return self._ask(" ".join(["place", str(window), *map(str, place)]))

    def settle(self, seconds: float = QUIET_SECONDS) -> list[Event]:
        """What has happened, when nothing has for a while."""
        try:
            while True:
                self._take(seconds)
        except queue.Empty:
            events, self._events = self._events, []
            return events

    def wait_for(self, kind: str, is_it, timeout: float = 30) -> Event:
        """The first event of this kind that ``is_it``; those before it are forgotten."""
        while True:
            for number, event in enumerate(self._events):
                if event.kind == kind and is_it(event):
                    del self._events[: number + 1]
                    return event
            self._events.clear()
            self._take(timeout)


def arrival(events: Iterable[Event], frame: int, client: int) -> int | None:
    """The time of the last ConfigureNotify of a window in its frame; None where nothing moved."""
    return max(
        (e.time for e in events if e.kind == "configure" and e.window in (frame, client)),
        default=None,
    )
