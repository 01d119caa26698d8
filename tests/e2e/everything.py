"""Every command of the block once, by mouse, in whatever application it is."""

from __future__ import annotations

from collections.abc import Callable
from typing import Any

import settingswindow
from alerts import SAVED, answer, shown, wait_for_alert
from block import ABOUT, ARRANGE, BLOCK, FLOATING, FULLSCREEN, HIDING, LION, SETTINGS, Row
from harness.browser import Browser
from harness.geometry import Rect
from harness.host import Host
from harness.menus import Menus

ABOUT_WINDOW = "About Vistrel"
NO_NETWORK = (
    "Error!",
    "Unable to check for updates. Please check your internet connection and try again later.",
)


class Everything:
    """In a host that has its block, its servers where nobody listens."""

    def __init__(self, host: Host, browser: Browser, fills_the_screen: bool) -> None:
        self.host, self.desktop, self.browser = host, host.desktop, browser
        self.menus = Menus(host)
        self.menu = host.windows_menu()["title"]
        self._fills_the_screen = fills_the_screen
        self._pages = 0

    def do(self) -> None:
        self.information()
        self.settings()
        for row in ARRANGE:
            if row.action:
                self.choose("Arrange", row.title)
                self.check_frames(row.title)
        self.fullscreen()
        self.twice(HIDING)
        self.twice(FLOATING)
        self.choose(LION.title)

    # Choosing

    def choose(self, *titles: str, meanwhile: Callable[[], Any] = lambda: None) -> None:
        """``meanwhile`` is what the user does before the command has come to its end."""
        before = self.host.probe.state()["actions"]
        self.bring_menu_back()
        self.menus.pick(self.menu, *titles)
        meanwhile()
        self.menus.close()
        self.host.catch_up()
        state = self.host.probe.state()
        assert (state["actions"], state["lastAction"]) == (before + 1, titles[-1])

    def bring_menu_back(self) -> None:
        """To the edge with the mouse, where the menu is out of sight."""
        if not self.menus.main()["visible"]:
            self.desktop.mouse.move(40, 0)
            self.host.wait_until(self.menus.is_open, "the menu to come back")

    def twice(self, command: Row) -> None:
        """There and back; the mark comes and goes."""
        before = self.marks()
        self.choose(command.title)
        assert self.marks() == before + 1, command.title
        self.choose(command.title)
        assert self.marks() == before, command.title

    def marks(self) -> int:
        return sum(item["state"] == 1 for item in self.host.windows_menu()["items"])

    # The commands

    def information(self) -> None:
        about, website, updates, more = (row.title for row in ABOUT)
        submenu = BLOCK[1].title
        self.choose(submenu, about)
        self.close_window(ABOUT_WINDOW)
        self.choose(submenu, website, meanwhile=self.wait_for_page)
        self.choose(submenu, updates, meanwhile=lambda: self.dismiss(NO_NETWORK))
        self.choose(submenu, more, meanwhile=self.wait_for_page)

    def settings(self) -> None:
        show, save, restore = (row.title for row in SETTINGS)
        submenu = BLOCK[2].title
        self.choose(submenu, show)
        self.close_window(settingswindow.TITLE)
        saved = self.frame()
        self.choose(submenu, save, meanwhile=lambda: self.dismiss(SAVED))
        self.choose(submenu, restore)
        assert self.frame() == saved

    def fullscreen(self) -> None:
        before = self.frame()
        marks = self.marks()
        self.choose(FULLSCREEN.title)
        assert self.marks() == marks + 1
        if before and self._fills_the_screen:
            self.host.wait_until(self.is_filled, "the content to fill the screen")
        # Until its delay is over, the command enters once more.
        while self.marks() > marks:
            self.choose(FULLSCREEN.title)
        self.host.wait_until(lambda: self.frame() == before, f"the window to be back at {before}")

    # What comes of them

    def dismiss(self, words: tuple[str, str]) -> None:
        assert wait_for_alert(self.host).words == words
        answer(self.host, "Return")
        self.host.wait_until(lambda: shown(self.host) is None, "the alert to end")
        self.host.catch_up()

    def close_window(self, title: str) -> None:
        def is_key() -> bool:
            window = self.host.key_window()
            return bool(window) and window["title"] == title and self.host.has_focus()

        self.host.wait_until(is_key, f"the window {title!r} to have the keyboard")
        self.host.catch_up()
        self.desktop.keyboard.chord("Escape")
        self.host.wait_until(lambda: not self.host.windows(title), f"{title!r} to close")
        self.host.catch_up()

    def wait_for_page(self) -> None:
        self._pages += 1
        self.host.wait_until(lambda: len(self.browser.pages()) == self._pages, "the browser")

    def frame(self) -> Rect | None:
        """The key window's, as the X server has it."""
        window = self.host.key_window()
        return self.desktop.geometry(window["xid"]).frame if window else None

    def is_filled(self) -> bool:
        """A tool bar is no content: it is beyond the edge, as the title bar is."""
        x, y, width, height = self.desktop.geometry(self.host.key_window()["xid"]).client
        return (x, y + height, width) == (0, self.desktop.size[1], self.desktop.size[0]) and y <= 0

    def check_frames(self, command: str) -> None:
        """The host and the X server agree on where the key window is."""
        window = self.host.key_window()
        if window:
            assert self.host.frame(window) == self.frame(), command
