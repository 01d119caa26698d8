"""The menus of a host, worked with the mouse as its user works them.

The probe says where items are; what happens at a press, a move, a release is
then up to the platform, which looks where the mouse *is* when it comes to
handle an event, not where it was. So every step waits until the host has
dealt with the one before, or a slow host would choose what it is not told to.

Panels are clicked: an item with a submenu attaches it, and it stays. In a bar
the button is held down from the title to the item, because after a click the
platform goes on tracking, and nobody outside can tell whether it has noticed
the release.
"""

from __future__ import annotations

from typing import Any

from .geometry import Rect
from .host import Host
from .waiting import insist

Menu = dict[str, Any]
Item = dict[str, Any]


def rect(described: Menu | Item) -> Rect:
    assert described["rect"], f"{described.get('title')!r} is not on screen"
    return Rect(*(round(number) for number in described["rect"]))


class Menus:
    def __init__(self, host: Host) -> None:
        self._host = host
        self._mouse = host.desktop.mouse

    # Looking

    def main(self) -> Menu:
        return self._host.probe.menu()["mainMenu"]

    def menu(self, *titles: str) -> Menu:
        return self._host.item_at(*titles)["submenu"] if titles else self.main()

    def is_open(self, *titles: str) -> bool:
        """On screen, and at rest.

        For a moment after a window has opened, while the window manager places
        it, its host is about a row wrong in where it believes it to be.
        """
        window = self.menu(*titles)["window"]
        desktop = self._host.desktop
        if not window or not desktop.is_mapped(window["xid"]):
            return False
        self._host.catch_up()
        window = self.menu(*titles)["window"]
        return bool(window) and (
            desktop.geometry(window["xid"]).frame == rect(window)
        )

    @property
    def is_bar(self) -> bool:
        return self.main()["horizontal"]

    def _is_highlighted(self, *titles: str) -> bool:
        menu = self.menu(*titles[:-1])
        chosen = menu["highlighted"]
        return 0 <= chosen < len(menu["items"]) and (
            menu["items"][chosen]["title"] == titles[-1]
        )

    # Acting

    def open(self, *titles: str) -> Menu:
        """Open a menu and those that lead to it; already open ones stay."""
        self._host.wait_until(self.is_open, "the main menu to be on screen")
        for depth in range(1, len(titles) + 1):
            if not self.menu(*titles[:depth])["visible"]:
                self._open_one(*titles[:depth])
        return self.menu(*titles)

    def pick(self, *titles: str) -> None:
        """Choose an item; returns when its action has run, or runs modally."""
        self.open(*titles[:-1])
        self._move_to(*titles)
        self._press()
        self._host.wait_until(
            lambda: self._is_highlighted(*titles), f"{titles[-1]!r} to be highlighted"
        )
        self._release()

    def close(self) -> None:
        """Close what is open without choosing anything."""
        if self._mouse.is_pressed():
            self._let_go()
        for item in self.main()["items"]:
            if item["submenu"] and item["submenu"]["visible"]:
                self._move_to(item["title"])
                self._press()
                self._release()
        self._host.wait_until(lambda: not self._open_titles(), "all menus to close")

    def _open_one(self, *titles: str) -> None:
        self._move_to(*titles)
        self._press()
        self._host.wait_until(
            lambda: self.is_open(*titles), f"the menu {' > '.join(titles)} to open"
        )
        if not self.is_bar:
            self._release()

    def _open_titles(self) -> list[str]:
        submenus = [(item["title"], item["submenu"]) for item in self.main()["items"]]
        return [title for title, submenu in submenus if submenu and submenu["visible"]]

    def _let_go(self) -> None:
        """Release outside of all menus.

        A bar takes no notice of a release that comes before it has seen the
        mouse leave the title, so that a click may open it; then click again.
        """
        width, height = self._host.desktop.size
        self._mouse.move(width - 1, height - 1)
        insist(
            self._click_or_release,
            lambda: not self._is_tracking(),
            "the menus to be done with the mouse",
        )

    def _click_or_release(self) -> None:
        if not self._mouse.is_pressed():
            self._mouse.press()
        self._mouse.release()

    def _move_to(self, *titles: str) -> None:
        self._mouse.move(*rect(self._host.item_at(*titles)).centre)

    def _is_tracking(self) -> bool:
        return self._host.probe.state()["mode"] == "NSEventTrackingRunLoopMode"

    def _press(self) -> None:
        if not self._mouse.is_pressed():
            self._mouse.press()
            self._host.wait_until(self._is_tracking, "it to follow the mouse")

    def _release(self) -> None:
        self._mouse.release()
        self._host.wait_until(
            lambda: not self._is_tracking(), "it to be done with the mouse"
        )
