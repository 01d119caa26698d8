"""Thousands of commands in one host: nothing grows, and nothing is forgotten.

With VISTREL_ALL it takes a good while.
"""

from __future__ import annotations

import os
import random
import statistics
from collections.abc import Callable
from pathlib import Path

from commands import Commands
from harness.desktop import Desktop
from harness.devices import COMMAND
from harness.geometry import Rect
from harness.host import Host
from layouts import LEFT, RIGHT, Layout

StartHost = Callable[..., Host]

COUNT = 20000 if "VISTREL_ALL" in os.environ else 300
WARM_UP = COUNT // 10
SAMPLES = 60
SEED = 1

# What the platform's heap goes up and down by.
NOISE_KB = 2048
MOST_WINDOWS = 4

# A window that still floats, after another one was told not to, keeps a connection; and the account
# of the tests opens its list of groups when somebody asks for it.
FEW_FILES = 2

AT_ONCE = ("-NSWindowResizeTime", "0")
FULLSCREEN, HIDING, FLOATING, LION = (
    "Toggle Fullscreen", "Toggle Menu And Dock", "Toggle Floating Window",
    "Make OS X Lion Fullscreen Window",
)
CENTER, AVERAGE = "Center Window", "Center Average Window"
OPEN, CLOSE = "open a window", "close a window"
HALVES = {LEFT.title: LEFT, RIGHT.title: RIGHT}
WEIGHTS = {
    LEFT.title: 5, RIGHT.title: 5, CENTER: 3, AVERAGE: 3, FULLSCREEN: 2, HIDING: 3, FLOATING: 3,
    LION: 1, OPEN: 1, CLOSE: 1,
}


class Model:
    """What the controller has to keep in mind, for all windows together."""

    def __init__(self, screen: Rect) -> None:
        self.screen = screen
        self.halves: dict[str, Rect] = {}
        self.saved: dict[str, Rect] = {}
        self.full: Rect | None = None
        self.hides = self.floats = False

    def give(self, title: str, frame: Rect) -> Rect | None:
        """Where the key window, now at ``frame``, has to be next; None where that is its affair."""
        if title in HALVES:
            return self._toggle(HALVES[title], frame)
        if title == FULLSCREEN:
            return self._toggle_fullscreen(frame)
        self.hides ^= title == HIDING
        self.floats ^= title == FLOATING
        if title in (CENTER, AVERAGE):
            self.full = None
            self.halves.clear()
            return None
        return frame

    def _toggle(self, half: Layout, frame: Rect) -> Rect:
        self.full = None
        back = self.halves.pop(half.title, None)
        self.halves.clear()
        if back:
            return back
        self.halves[half.title] = frame
        return half.on(self.screen.width, self.screen.height)

    def _toggle_fullscreen(self, frame: Rect) -> Rect | None:
        self.halves.clear()
        back, self.full = self.full, None if self.full else frame
        return back

    def marked(self) -> list[str]:
        """Each one item further down than its command."""
        return [
            title
            for title, on in ((HIDING, self.full), (FLOATING, self.hides), (LION, self.floats))
            if on
        ]


def memory(host: Host) -> int:
    """In KB; its own, because what it shares depends on who else runs."""
    lines = Path(f"/proc/{host.process.pid}/smaps_rollup").read_text().splitlines()
    return next(int(line.split()[1]) for line in lines if line.startswith("Pss_Anon:"))


def open_files(host: Host) -> int:
    return len(list(Path(f"/proc/{host.process.pid}/fd").iterdir()))


class Soak:
    def __init__(self, commands: Commands) -> None:
        self.commands, self.host, self.desktop = commands, commands.host, commands.desktop
        self.screen = Rect(0, 0, *self.desktop.size)
        self.model = Model(self.screen)
        self.random = random.Random(SEED)
        self.memory: list[int] = []

    def run(self, count: int) -> None:
        for number in range(count):
            title = self.random.choices(list(WEIGHTS), WEIGHTS.values())[0]
            self.step(title)
            if number % max(1, count // SAMPLES) == 0:
                assert self.commands.marked() == self.model.marked(), f"after {number} commands"
                self.memory.append(memory(self.host))

    def step(self, title: str) -> None:
        if title == OPEN:
            return self.open_window()
        if title == CLOSE:
            return self.close_window()
        if title == FULLSCREEN and not self.model.full and self.is_filled():
            return None  # nobody could tell when its delay is over
        due = self.model.give(title, self.commands.frame())
        self.commands.press(title)
        if title == FULLSCREEN and self.model.full:
            self.host.wait_until(self.is_filled, "the full screen")
        elif due:
            assert near(self.commands.frame(), due), title
        return None

    def is_filled(self) -> bool:
        return self.commands.client() == self.screen

    def open_window(self) -> None:
        before = len(self.host.windows())
        if before < MOST_WINDOWS:
            assert self.commands.chosen_by(COMMAND, "n") == "New"
            self.wait_for_windows(before + 1)

    def close_window(self) -> None:
        before = len(self.host.windows())
        if before > 1:
            assert self.commands.chosen_by(COMMAND, "w") == "Close"
            self.wait_for_windows(before - 1)

    def wait_for_windows(self, count: int) -> None:
        self.host.wait_until(lambda: len(self.host.windows()) == count, f"{count} windows")
        self.host.wait_for_focus()

    def end_modes(self) -> None:
        model = self.model
        modes = ((FULLSCREEN, model.full), (HIDING, model.hides), (FLOATING, model.floats))
        for title, on in modes:
            if on:
                self.step(title)
        assert self.commands.marked() == model.marked() == []
        # A half ends the full screen and leaves the menu hidden.
        self.step(HIDING)
        self.step(HIDING)
        self.host.wait_until(lambda: self.commands.menus.main()["visible"], "the menu")


def near(one: Rect, other: Rect) -> bool:
    """The platform centres on half pixels."""
    return all(abs(a - b) <= 1 for a, b in zip(one, other))


def growth(values: list[int]) -> float:
    """From the first third to the last one: what is lost by and by shows, what varies does not."""
    third = len(values) // 3
    return statistics.median(values[-third:]) - statistics.median(values[:third])


def test_thousands_of_commands_leave_nothing_behind(
    start_host: StartHost, desktop: Desktop
) -> None:
    soak = Soak(Commands(start_host("TextEdit", *AT_ONCE, desktop=desktop)))
    soak.run(WARM_UP)
    soak.end_modes()
    files = open_files(soak.host)
    soak.memory.clear()
    soak.run(COUNT)
    soak.end_modes()
    assert growth(soak.memory) < NOISE_KB, soak.memory
    assert open_files(soak.host) <= files + FEW_FILES
    assert soak.host.quit() == 0, soak.host.describe()
    assert "exception" not in soak.host.log.lower()
