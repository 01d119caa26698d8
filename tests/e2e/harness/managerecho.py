"""Knowing when the window manager has dealt with all that was asked of it.

The X server hands requests to place a top-level window to the manager, in the
order in which they came. A window of ours that is never shown asks for a new
width: when it has it, the manager has seen everything that came before.

While it starts, a manager may lose what it is asked, even after it has
announced itself. So the echo is asked for again; once it has answered, the
windows of others will not be lost either.
"""

from __future__ import annotations

from Xlib import X
from Xlib.display import Display

from .waiting import insist

WIDTHS = 100


class ManagerEcho:
    def __init__(self, display: Display) -> None:
        root = display.screen().root
        self._window = root.create_window(0, 0, 1, 1, 0, X.CopyFromParent)
        self._width = 1

    def wait(self, timeout: float = 10.0) -> None:
        self._width = self._width % WIDTHS + 1
        insist(
            lambda: self._window.configure(width=self._width),
            lambda: self._window.get_geometry().width == self._width,
            "the window manager to catch up",
            timeout,
        )
