"""A command with its animation, as the X server sees it."""

from __future__ import annotations

from harness.geometry import Rect
from keypress import HOME, KEYS, VISTREL, Window
from place import Place


def steps(window: Window) -> tuple[list[float], Rect]:
    """Milliseconds from the key to each new frame of the window, and the last of the frames."""
    moment = window.watch.chord(*KEYS[VISTREL])
    times: list[float] = []
    frame = HOME
    for event in window.watch.settle(0.4):
        if event.kind == "configure" and event.window == window.frame and event.place != frame:
            frame = event.place
            times.append((event.time - moment) / 1e6)
    return times, frame


def measure(place: Place, rounds: int) -> dict:
    first, total, rate, longest, ends = [], [], [], [], []
    rows = []
    with place.host(place.loader) as host, Window(host, place) as window:
        for _ in range(rounds):
            window.go_home()
            times, end = steps(window)
            between = [b - a for a, b in zip(times, times[1:])]
            first.append(times[0])
            total.append(times[-1])
            rate.append(1000 * len(between) / (times[-1] - times[0]))
            longest.append(max(between))
            ends.append(list(end))
            rows.append(times)
            window.press(VISTREL)
    return {
        "first": first, "total": total, "rate": rate, "longest": longest, "ends": ends, "rows": rows,
    }
