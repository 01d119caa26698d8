"""The controls of a host's window, worked with the mouse as its user works them."""

from __future__ import annotations

from typing import Any

from .geometry import Rect
from .host import Host

Control = dict[str, Any]


class Controls:
    """Of the one visible window with this title."""

    def __init__(self, host: Host, window_title: str) -> None:
        self._host, self._window_title = host, window_title

    # Looking

    def window(self) -> dict[str, Any]:
        windows = self._host.windows(self._window_title)
        assert len(windows) == 1, f"{len(windows)} windows {self._window_title!r}"
        return windows[0]

    def all(self) -> list[Control]:
        return self._host.probe.controls(self.window())

    def find(self, title: str) -> Control:
        """By the title of a button, or the text of a field."""
        there = self.all()
        found = [c for c in there if title in (c["title"], c["value"])]
        assert found, f"no {title!r} in {[c['title'] or c['value'] for c in there]}"
        return found[0]

    def focused(self) -> str | None:
        """The title, or the text, of the control that has the keyboard."""
        found = [control for control in self.all() if control["focused"]]
        return (found[0]["title"] or found[0]["value"]) if found else None

    def rect(self, title: str) -> Rect:
        return Rect(*(round(number) for number in self.find(title)["rect"]))

    def is_placed(self) -> bool:
        """Whether the host knows where the window manager has put the window."""
        window = self.window()
        desktop = self._host.desktop
        return desktop.is_mapped(window["xid"]) and (
            desktop.geometry(window["xid"]).frame == self._host.frame(window)
        )

    # Acting

    def click(self, title: str) -> None:
        """Returns when the control's action has been performed.

        The button is held until the host follows the mouse: a control that
        begins with that after the release waits for ever.
        """
        self._host.wait_until(self.is_placed, f"{self._window_title!r} to be placed")
        mouse = self._host.desktop.mouse
        mouse.move(*self.rect(title).centre)
        mouse.press()
        self._host.wait_until(self._is_tracking, f"{title!r} to follow the mouse")
        mouse.release()
        self._host.wait_until(
            lambda: not self._is_tracking(), f"{title!r} to be done with the mouse"
        )

    def _is_tracking(self) -> bool:
        return self._host.probe.state()["mode"] == "NSEventTrackingRunLoopMode"
